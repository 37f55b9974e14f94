// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/OwnLibrary.h"
#include "export/scene/VideoExport.h"
#include "export/video/VideoFile.h"
#include "visualization/ToyData.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QGraphicsScene>
#include <QTemporaryDir>

#include <random>

namespace {

constexpr int recordings = 10;
constexpr int seconds = 10;
constexpr int samplesPerSecond = 500;
constexpr qint64 stepMs = 200; // of a video; each image shows so much

/// Gaze that rests for 300 ms here and there.
Examination recording(std::mt19937 &random)
{
    std::uniform_int_distribution<int> x(100, 2400);
    std::uniform_int_distribution<int> y(100, 1500);
    std::normal_distribution<double> noise(0, 8);
    Examination examination;
    for (qint64 startMs = 0; startMs < 1000 * seconds; startMs += 300) {
        const QPoint place(x(random), y(random));
        for (qint64 timeMs = startMs; timeMs < startMs + 300; timeMs += 1000 / samplesPerSecond)
            examination.leftEye.gazePoints << toy::sample(timeMs, place.x() + noise(random), place.y() + noise(random));
        examination.leftEye.scanpath << toy::stay(place, startMs);
    }
    return examination;
}

/// Ten recordings with circles of fixations over a heatmap of the gaze, on the whole canvas.
toy::Scenery study()
{
    std::mt19937 random(14);
    toy::Scenery scenery;
    for (int i = 0; i < recordings; ++i)
        scenery.model.examinations() << recording(random);
    scenery.eyeMode = EyeMode::showLeft;
    scenery.frame = {0, 1000 * seconds};
    scenery.gazePoints.visualizationMode = 2;
    scenery.fixations.visualizationMode = 2;
    return scenery;
}

VideoContent contentOf(const toy::Scenery &scenery)
{
    QPixmap background(2560, 1600);
    background.fill(Qt::white);
    return {scenery.context(), {background}, QRectF(0, 0, 2560, 1600)};
}

void drawAndEncode(benchmark::State &state)
{
    const toy::Scenery scenery = study();
    const VideoContent content = contentOf(scenery);
    const QTemporaryDir folder;
    for (auto _ : state) {
        if (exportVideo(content, stepMs, folder.filePath(QStringLiteral("a.avi"))) != VideoOutcome::Written)
            state.SkipWithError("no video");
    }
    state.SetItemsProcessed(state.iterations() * videoFrames(scenery.frame, stepMs).size());
}

/// The encoder alone, with the same images.
void encode(benchmark::State &state)
{
    const toy::Scenery scenery = study();
    const VideoContent content = contentOf(scenery);
    QGraphicsScene scene;
    QList<QImage> images;
    for (const TimeFrame frame : videoFrames(scenery.frame, stepMs))
        images << videoImage(scene, content, frame);
    const QTemporaryDir folder;
    const auto open = reinterpret_cast<OpenVideo>(ownLibraryFunction(QStringLiteral("vistrum_video"), openVideoName));
    for (auto _ : state) {
        std::unique_ptr<IVideoFile> video;
        open(folder.filePath(QStringLiteral("a.avi")), images.first().size(), video);
        for (const QImage &image : images)
            video->write(image);
    }
    state.SetItemsProcessed(state.iterations() * images.size());
}

BENCHMARK(drawAndEncode)->Name("video/drawn")->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(encode)->Name("video/encoder alone")->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace

int main(int argc, char *argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
