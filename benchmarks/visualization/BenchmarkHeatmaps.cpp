// SPDX-License-Identifier: GPL-3.0-or-later
#include "density/PlainFixations.h"
#include "density/PlainGazePoints.h"
#include "density/PlainSaccades.h"
#include "density/SaccadeDensity.h"
#include "visualization/heatmap/Heatmap.h"
#include "visualization/scene/DrawingPass.h"

#include <benchmark/benchmark.h>
#include <opencv2/imgproc.hpp>
#include <QApplication>
#include <QGraphicsScene>

#include <chrono>
#include <random>

// Each density beside the plain form of its definition, and the density of gaze points beside a general Gaussian blur
// of their counts as well.

namespace {

constexpr int workers = 4;
constexpr NormalDistribution widest{.width = 200, .sigma = 50};

template <class Work>
double bestMs(Work work, int times)
{
    double best = 1e9;
    for (int i = 0; i < times; ++i) {
        const auto start = std::chrono::steady_clock::now();
        work();
        const std::chrono::duration<double, std::milli> taken = std::chrono::steady_clock::now() - start;
        best = std::min(best, taken.count());
    }
    return best;
}

/// Adds another form's best time and how many times the best time of the fast form it is.
template <class Fast, class Other>
void compare(benchmark::State &state, const char *name, Fast fast, Other other)
{
    const double otherMs = bestMs(other, 3);
    state.counters[std::string(name) + "_ms"] = otherMs;
    state.counters[std::string(name) + "_ratio"] = otherMs / bestMs(fast, 5);
}

std::vector<GazePointEvent> gazePoints(int count)
{
    std::mt19937 random(1);
    std::uniform_int_distribution<int> x(0, canvas::width - 1);
    std::uniform_int_distribution<int> y(0, canvas::height - 1);
    std::vector<GazePointEvent> events;
    for (int i = 0; i < count; ++i)
        events.push_back({x(random), y(random)});
    return events;
}

/// The counts as an image, smoothed with as many weights as the kernel has.
cv::Mat blurredCounts(const std::vector<GazePointEvent> &events)
{
    cv::Mat counts(canvas::height, canvas::width, CV_64F, cv::Scalar(0));
    for (const GazePointEvent &event : events)
        counts.at<double>(event.y, event.x) += 1;
    constexpr int weights = widest.width / 2 * 2 - 1;
    cv::Mat blurred;
    cv::GaussianBlur(counts, blurred, {weights, weights}, widest.sigma, widest.sigma, cv::BORDER_CONSTANT);
    return blurred;
}

void gazePointDensities(benchmark::State &state)
{
    const auto count = static_cast<int>(state.range(0));
    const std::vector<GazePointEvent> events = gazePoints(count);
    const auto fast = [&] { benchmark::DoNotOptimize(gazePointDensity(events, widest, workers)); };
    for (auto _ : state)
        fast();
    compare(state, "blur", fast, [&] { benchmark::DoNotOptimize(blurredCounts(events)); });
    constexpr int enoughForPlain = 10000; // a million take minutes
    if (count <= enoughForPlain)
        compare(state, "plain", fast, [&] { benchmark::DoNotOptimize(plain::gazePointCells(events, widest)); });
}

std::vector<FixationEvent> fixations(int count)
{
    std::mt19937 random(2);
    std::uniform_int_distribution<int> x(0, canvas::width - 1);
    std::uniform_int_distribution<int> y(0, canvas::height - 1);
    std::uniform_real_distribution<double> angle(0, 6.283);
    std::uniform_real_distribution<double> length(5, 30);
    std::uniform_real_distribution<double> share(0.3, 1);
    std::vector<FixationEvent> events;
    for (int i = 0; i < count; ++i) {
        const double a = angle(random);
        const double major = length(random);
        const double minor = major * share(random);
        const auto component = [](double value) { return static_cast<int>(std::ceil(value)); };
        events.push_back({x(random), y(random), component(major * std::cos(a)), component(major * std::sin(a)),
                          component(minor * -std::sin(a)) - 1, component(minor * std::cos(a)), 250});
    }
    return events;
}

void fixationDensities(benchmark::State &state)
{
    const std::vector<FixationEvent> events = fixations(static_cast<int>(state.range(0)));
    const NormalDistribution kernel{.width = static_cast<int>(state.range(1)), .sigma = 30};
    const auto fast = [&] {
        benchmark::DoNotOptimize(fixationDensity(events, kernel, FixationMass::Duration, workers));
    };
    for (auto _ : state)
        fast();
    compare(state, "plain", fast,
            [&] { benchmark::DoNotOptimize(plain::fixationCells(events, kernel, FixationMass::Duration)); });
}

std::vector<SaccadeEvent> walk(int count)
{
    std::mt19937 random(3);
    std::uniform_int_distribution<int> x(0, canvas::width - 1);
    std::uniform_int_distribution<int> y(0, canvas::height - 1);
    std::vector<SaccadeEvent> events;
    for (int i = 0; i < count; ++i)
        events.push_back({x(random), y(random), 250, i == 0});
    return events;
}

template <class Add>
plain::Cells plainMarks(const std::vector<SaccadeEvent> &events, const SaccadeMarkStyle &style, Add add)
{
    plain::Cells cells;
    for (const SaccadeMark &mark : saccadeMarks(events))
        add(cells, mark, style);
    return cells;
}

void saccadeDensities(benchmark::State &state, SaccadeShape shape)
{
    const std::vector<SaccadeEvent> events = walk(static_cast<int>(state.range(0)));
    const SaccadeMarkStyle style{.kernel = {.width = 100, .sigma = 50}, .shape = shape};
    const auto fast = [&] { benchmark::DoNotOptimize(saccadeDensity(events, style, workers)); };
    for (auto _ : state)
        fast();
    compare(state, "plain", fast, [&] {
        benchmark::DoNotOptimize(
            plainMarks(events, style, shape == SaccadeShape::Tube ? plain::addTube : plain::addGaussian<double>));
    });
}

constexpr int recordings = 10;
constexpr int samplesPerRecording = 60000; // one minute at 1000 Hz

/// Fixations of 100 to 400 ms with a jitter of 4 px anywhere on the canvas.
EyeData recording(unsigned seed)
{
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> column(50, canvas::width - 50.0);
    std::uniform_real_distribution<double> row(50, canvas::height - 50.0);
    std::uniform_int_distribution<int> duration(100, 400);
    std::normal_distribution<double> jitter(0, 4);
    EyeData eye;
    for (qint64 timeMs = 0; timeMs < samplesPerRecording;) {
        const QPointF center(column(random), row(random));
        QList<GazePoint> samples;
        for (const qint64 end = std::min<qint64>(samplesPerRecording, timeMs + duration(random)); timeMs < end;
             ++timeMs)
            samples << GazePoint(timeMs, center.x() + jitter(random), center.y() + jitter(random), 0, 0, 1);
        eye.gazePoints << samples;
        eye.scanpath << Fixation(samples, QStringLiteral("fixation"), QPoint(), 0);
    }
    return eye;
}

struct Study {
    Study()
    {
        for (VisualizationParameters *parameters : {&gazePoints, &fixations, &saccades, &none})
            setInitialValues(*parameters, rows::visualization);
        for (unsigned i = 0; i < recordings; ++i) {
            Examination examination;
            examination.dominantEye = QStringLiteral("left");
            examination.leftEye = recording(i);
            model.examinations() << examination;
        }
    }
    DrawingContext context() const
    {
        return {model,
                EyeMode::showDominant,
                {0, samplesPerRecording},
                {{&gazePoints, &fixations, &none, &saccades}},
                areas};
    }

    DataModel model;
    VisualizationParameters gazePoints;
    VisualizationParameters fixations;
    VisualizationParameters saccades;
    VisualizationParameters none;
    AoiVisualizationParameters areas;
};

/// From the recordings to a scene with its pixmap and the figures of the labels.
void redraw(benchmark::State &state, VisualizationParameters Study::*kind, int mode)
{
    Study study;
    (study.*kind).visualizationMode = mode;
    QGraphicsScene scene;
    for (auto _ : state) {
        scene.clear();
        benchmark::DoNotOptimize(drawScene(scene, study.context()));
    }
}

} // namespace

BENCHMARK(gazePointDensities)
    ->Name("gazePointDensity")
    ->Arg(1000)
    ->Arg(10000)
    ->Arg(100000)
    ->Arg(1000000)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK(fixationDensities)
    ->Name("fixationDensity")
    ->Args({1000, 100})
    ->Args({1000, 200})
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(saccadeDensities, tubes, SaccadeShape::Tube)->Arg(200)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(saccadeDensities, gaussians, SaccadeShape::Gaussian)
    ->Arg(50)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(redraw, gazePointHeatmap, &Study::gazePoints, 2)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(redraw, gazePointShadowMap, &Study::gazePoints, 3)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(redraw, fixationHeatmap, &Study::fixations, 3)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(redraw, saccadeHeatmap, &Study::saccades, 3)->Unit(benchmark::kMillisecond)->UseRealTime();

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
