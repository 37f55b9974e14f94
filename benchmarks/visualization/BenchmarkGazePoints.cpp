// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/Canvas.h"
#include "visualization/scene/Background.h"
#include "visualization/scene/DrawingPass.h"
#include "visualization/shapes/GazePointRaster.h"

#include <benchmark/benchmark.h>
#include <QApplication>
#include <QGraphicsScene>

#include <chrono>
#include <memory>
#include <random>

namespace {

constexpr int samplesPerRecording = 60000; // one minute at 1000 Hz
constexpr int halfSize = 5;

/// Fixations of 100 to 400 ms with a jitter of 4 px anywhere on the canvas.
QList<GazePoint> recording(unsigned seed)
{
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> column(50, canvas::width - 50.0);
    std::uniform_real_distribution<double> row(50, canvas::height - 50.0);
    std::uniform_int_distribution<int> duration(100, 400);
    std::normal_distribution<double> jitter(0, 4);
    QList<GazePoint> samples;
    samples.reserve(samplesPerRecording);
    int left = 0;
    double x = 0;
    double y = 0;
    for (int i = 0; i < samplesPerRecording; ++i, --left) {
        if (left == 0) {
            left = duration(random);
            x = column(random);
            y = row(random);
        }
        samples << GazePoint(i, x + jitter(random), y + jitter(random), 0, 0, 1);
    }
    return samples;
}

/// Recordings with both eyes.
struct Study {
    explicit Study(int recordings)
    {
        setInitialValues(parameters, rows::visualization);
        parameters.visualizationMode = 1;
        parameters.size = halfSize;
        for (int i = 0; i < recordings; ++i) {
            Examination examination;
            examination.leftEye.gazePoints = recording(static_cast<unsigned>(2 * i));
            examination.rightEye.gazePoints = recording(static_cast<unsigned>(2 * i + 1));
            model.examinations() << examination;
        }
    }
    DrawingContext context() const
    {
        return {model, EyeMode::showAll, {0, samplesPerRecording}, {{&parameters, &none, &none, &none}}, areas};
    }

    DataModel model;
    AoiVisualizationParameters areas;
    VisualizationParameters parameters;
    VisualizationParameters none;
};

/// Every sample, in the order in which they are drawn.
std::vector<GazePointRecord> plainRecords(const DrawingContext &context)
{
    std::vector<GazePointRecord> records;
    for (const Examination &examination : context.model.examinations()) {
        for (const EyeData *eye : {&examination.leftEye, &examination.rightEye}) {
            for (const GazePoint &sample : eye->gazePoints)
                records.push_back({static_cast<int>(sample.x), static_cast<int>(sample.y), 0});
        }
    }
    return records;
}

/// The textbook form: one point after the other, each pixel of the outline tested and written by itself.
QImage plainImage(const std::vector<GazePointRecord> &records, int n)
{
    QImage image(canvas::width, canvas::height, QImage::Format_ARGB32);
    image.fill(qRgba(255, 255, 255, 0));
    auto *pixels = reinterpret_cast<QRgb *>(image.bits());
    for (const GazePointRecord &record : records) {
        const auto index = [&](int dx, int dy) { return (record.y + dy) * canvas::width + record.x + dx; };
        for (int j = -n; j < n; ++j) {
            const int step[] = {index(n, j), index(-n, j), index(n - 1, j), index(-n + 1, j),
                                index(j, n), index(j, -n), index(j, n - 1), index(j, -n + 1)};
            if (!std::all_of(std::begin(step), std::end(step), [](int i) { return i > 0 && i < canvas::pixels; }))
                continue;
            for (const int i : step)
                pixels[i] = record.color;
        }
    }
    return image;
}

template <class Work>
double bestMs(Work work)
{
    double best = 1e9;
    for (int i = 0; i < 25; ++i) {
        const auto start = std::chrono::steady_clock::now();
        work();
        const std::chrono::duration<double, std::milli> taken = std::chrono::steady_clock::now() - start;
        best = std::min(best, taken.count());
    }
    return best;
}

/// Adds the plain form's time and the ratio of both best times.
template <class Fast, class Plain>
void compare(benchmark::State &state, Fast fast, Plain plain)
{
    for (auto _ : state)
        fast();
    const double plainMs = bestMs(plain);
    state.counters["plain_ms"] = plainMs;
    state.counters["ratio"] = plainMs / bestMs(fast);
}

/// From the samples to the image, with so many recordings.
void gazePointImages(benchmark::State &state)
{
    const Study study(static_cast<int>(state.range(0)));
    compare(
        state, [&] { benchmark::DoNotOptimize(gazePointSquares(study.context())); },
        [&] { benchmark::DoNotOptimize(plainImage(plainRecords(study.context()), halfSize)); });
}

/// From the samples to a scene with all its items: selection, image, pixmap.
void redraw(benchmark::State &state)
{
    const Study study(static_cast<int>(state.range(0)));
    QGraphicsScene scene;
    const QPixmap background = backgroundPixmap({}, Border::Black);
    for (auto _ : state) {
        scene.clear();
        addBackground(scene, background);
        drawScene(scene, study.context());
    }
}

/// A check mark: one examination of the list is written, and the list was shared with the copy of the import.
void checkMark(benchmark::State &state)
{
    Study study(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        study.model.allExaminations() = study.model.examinations();
        Examination &examination = study.model.examinations()[0];
        examination.checked = !examination.checked;
        benchmark::DoNotOptimize(examination);
    }
}

} // namespace

// Of 60,000 samples and two eyes each.
BENCHMARK(gazePointImages)
    ->Name("gazePoints/recordings")
    ->Arg(10)
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime()
    ->UseRealTime();
BENCHMARK(redraw)
    ->Name("redrawWithGazePoints/recordings")
    ->Arg(10)
    ->Arg(100)
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime()
    ->UseRealTime();
BENCHMARK(checkMark)->Name("checkMark/recordings")->Arg(100)->Unit(benchmark::kMillisecond)->UseRealTime();

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
