// SPDX-License-Identifier: GPL-3.0-or-later
#include "aoi/PlainSaliency.h"
#include "aoi/saliency/PictureMatrix.h"
#include "aoi/saliency/Saliency.h"

#include <benchmark/benchmark.h>

#include <QImage>
#include <QPainter>

#include <chrono>
#include <ctime>
#include <functional>
#include <limits>
#include <random>

// Each model of saliency beside the same steps written plainly with the same OpenCV functions.

namespace {

/// The best of several rounds.
struct Time {
    double elapsedMs = std::numeric_limits<double>::max();
    double processorMs = std::numeric_limits<double>::max(); ///< of all threads
};

void measure(Time &best, const std::function<void()> &work)
{
    const auto start = std::chrono::steady_clock::now();
    const std::clock_t processorStart = std::clock();
    work();
    const std::chrono::duration<double, std::milli> elapsed = std::chrono::steady_clock::now() - start;
    const double processorMs = 1000.0 * static_cast<double>(std::clock() - processorStart) / CLOCKS_PER_SEC;
    best = {std::min(best.elapsedMs, elapsed.count()), std::min(best.processorMs, processorMs)};
}

/// Blobs of colour and noise.
QImage scenery(int width, int height)
{
    QImage image(width, height, QImage::Format_RGB32);
    std::mt19937 random(1);
    image.fill(QColor(90, 110, 130));
    QPainter painter(&image);
    for (int i = 0; i < 60; ++i) {
        painter.setBrush(QColor(int(random() % 256), int(random() % 256), int(random() % 256)));
        painter.drawEllipse(int(random() % unsigned(width)), int(random() % unsigned(height)), 10 + int(random() % 160),
                            10 + int(random() % 160));
    }
    painter.end();
    for (int i = 0; i < width * height / 50; ++i)
        image.setPixel(int(random() % unsigned(width)), int(random() % unsigned(height)), QRgb(random()));
    return image;
}

cv::Mat plainMap(SaliencyMethod method, const QImage &picture)
{
    const cv::Mat pixels = pictureMatrix(picture);
    switch (method) {
    case SaliencyMethod::Itti:
        return plain::itti(pixels, 12, 10, 100);
    case SaliencyMethod::FrequencyTuned:
        return plain::frequencyTuned(pixels, 5, 2, 2);
    case SaliencyMethod::IntegratedFeatures:
        return plain::integrated(pixels, 500, 250, 20, 40);
    }
    return {};
}

void saliency(benchmark::State &state, SaliencyMethod method)
{
    const QImage picture = scenery(1280, 960);
    const auto fast = [&] { benchmark::DoNotOptimize(saliencyMap(method, picture, {})); };
    for (auto _ : state)
        fast();
    // By turns, so that other programs disturb both alike.
    Time ours;
    Time plain;
    constexpr int rounds = 5;
    for (int i = 0; i < rounds; ++i) {
        measure(ours, fast);
        measure(plain, [&] { benchmark::DoNotOptimize(plainMap(method, picture)); });
    }
    state.counters["ms"] = ours.elapsedMs;
    state.counters["plain_ms"] = plain.elapsedMs;
    state.counters["share_of_plain"] = ours.elapsedMs / plain.elapsedMs;
    state.counters["processor_share"] = ours.processorMs / plain.processorMs;
}
BENCHMARK_CAPTURE(saliency, itti, SaliencyMethod::Itti)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(saliency, frequencyTuned, SaliencyMethod::FrequencyTuned)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(saliency, integratedFeatures, SaliencyMethod::IntegratedFeatures)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
