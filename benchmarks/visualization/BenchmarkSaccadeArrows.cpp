// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/Canvas.h"
#include "visualization/scene/DrawingPass.h"
#include "visualization/shapes/AngleStar.h"
#include "visualization/shapes/SaccadeShapes.h"

#include <benchmark/benchmark.h>
#include <QApplication>
#include <QGraphicsScene>

#include <random>

namespace {

/// Fixations of four samples, anywhere on the canvas, one each 250 ms.
EyeData scanpathOf(qint64 count)
{
    std::mt19937 random(1);
    std::uniform_int_distribution<int> column(0, canvas::width - 1);
    std::uniform_int_distribution<int> row(0, canvas::height - 1);
    EyeData eye;
    eye.scanpath.resize(count);
    for (qint64 i = 0; i < count; ++i) {
        eye.scanpath[i].mean = {column(random), row(random)};
        for (qint64 time = i * 250; time < i * 250 + 200; time += 50)
            eye.scanpath[i].samples << GazePoint(time, 0, 0, 0, 0, 1);
    }
    return eye;
}

VisualizationParameters initialParameters()
{
    VisualizationParameters parameters;
    setInitialValues(parameters, rows::visualization);
    return parameters;
}

TimeFrame wholeOf(qint64 fixations)
{
    return {0, fixations * 250};
}

/// The time is to grow with the number of fixations and no faster; the last lines of the output tell.
void arrows(benchmark::State &state)
{
    const EyeData eye = scanpathOf(state.range(0));
    const VisualizationParameters parameters = initialParameters();
    for (auto _ : state)
        benchmark::DoNotOptimize(saccadeArrows(eye, wholeOf(state.range(0)), Qt::red, parameters));
    state.SetComplexityN(state.range(0));
}

/// From the fixations to a scene that is ready to paint.
void redraw(benchmark::State &state)
{
    Examination examination;
    examination.leftEye = scanpathOf(state.range(0));
    DataModel model;
    model.examinations() << examination;
    const VisualizationParameters none;
    VisualizationParameters parameters = initialParameters();
    parameters.visualizationMode = 1;
    const AoiVisualizationParameters areas;
    QGraphicsScene scene;
    for (auto _ : state) {
        scene.clear();
        drawScene(scene,
                  {model, EyeMode::showLeft, wholeOf(state.range(0)), {{&none, &none, &none, &parameters}}, areas});
        benchmark::DoNotOptimize(scene.items(QPointF())); // painting asks alike
    }
    state.SetComplexityN(state.range(0));
}

void star(benchmark::State &state)
{
    const EyeData eye = scanpathOf(state.range(0));
    const VisualizationParameters parameters = initialParameters();
    for (auto _ : state) {
        const QList<double> triples = saccadeVectors(eye, wholeOf(state.range(0)));
        benchmark::DoNotOptimize(
            angleStarChart(angleStarBins(triples, parameters.numberOfHistogramBins), Qt::red, parameters));
    }
    state.SetComplexityN(state.range(0));
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    struct Work {
        const char *name;
        void (*run)(benchmark::State &);
    };
    for (const Work &work : {Work{"saccadeArrows", arrows}, Work{"redrawWithArrows", redraw}, Work{"angleStar", star}})
    {
        benchmark::RegisterBenchmark(work.name, work.run)
            ->RangeMultiplier(10)
            ->Range(1000, 100000)
            ->Complexity(benchmark::oN)
            ->Unit(benchmark::kMillisecond);
    }
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
