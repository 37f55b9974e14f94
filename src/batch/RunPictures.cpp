// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/RunPictures.h"

#include "aoi/AoiThumbnail.h"
#include "base/FileReplacement.h"
#include "base/Messages.h"
#include "base/NamedPlace.h"
#include "batch/CalculationRows.h"
#include "batch/PictureCheck.h"
#include "batch/RunState.h"
#include "batch/StoredRecords.h"
#include "density/DensityTiff.h"
#include "export/AoiImages.h"
#include "export/scene/PictureExport.h"
#include "export/scene/VideoExport.h"
#include "model/ImageCache.h"
#include "visualization/heatmap/Heatmap.h"
#include "visualization/scene/Background.h"
#include "visualization/scene/DrawingPass.h"

#include <QFileInfo>
#include <QGraphicsPixmapItem>
#include <QGraphicsScene>
#include <QSet>

namespace {

/// The recordings of one picture.
struct PictureOf {
    QString name;       ///< appended to that of the file; empty where there is one picture for all
    QString background; ///< path; empty for the white canvas
    QList<int> places;  ///< in the list of examinations; all of them without a name
};

QString keyOf(const Examination &examination, ImagePer per)
{
    switch (per) {
    case ImagePer::Subject:
        return examination.subjectId.isEmpty() ? examination.baseName : examination.subjectId;
    case ImagePer::Image:
        return examination.image ? QFileInfo(examination.image->path).completeBaseName() : QStringLiteral("no-image");
    case ImagePer::Run:
    case ImagePer::Recording:
        break;
    }
    return examination.baseName;
}

/// Two recordings of one name are two pictures.
QString unusedName(const QString &name, const QList<PictureOf> &pictures)
{
    QString free = name;
    const auto isTaken = [&](const PictureOf &picture) { return picture.name == free; };
    for (int number = 2; std::any_of(pictures.cbegin(), pictures.cend(), isTaken); ++number)
        free = QStringLiteral("%1_%2").arg(name).arg(number);
    return free;
}

QList<PictureOf> picturesOf(const RunState &run)
{
    const ImagePer per = run.options.imagePer;
    if (per == ImagePer::Run)
        return {{{}, run.options.background, {}}};
    QList<PictureOf> pictures;
    const QList<Examination> &examinations = run.model.examinations();
    for (int place = 0; place < examinations.size(); ++place) {
        const Examination &examination = examinations[place];
        const QString key = keyOf(examination, per);
        const auto same = std::find_if(pictures.begin(), pictures.end(),
                                       [&](const PictureOf &picture) { return picture.name == key; });
        if (same != pictures.end() && per != ImagePer::Recording)
            same->places << place;
        else
            pictures << PictureOf{unusedName(key, pictures),
                                  examination.image ? examination.image->path : run.options.background,
                                  {place}};
    }
    return pictures;
}

/// The pictures of recordings that cannot be shown: each is told once, however many recordings have it. That of the
/// command line has been checked.
QSet<QString> brokenBackgrounds(RunState &run, const QList<PictureOf> &pictures)
{
    QSet<QString> checked{run.options.background};
    QSet<QString> broken;
    for (const PictureOf &picture : pictures) {
        if (checked.contains(picture.background))
            continue;
        checked.insert(picture.background);
        const std::optional<QString> problem = pictureProblem(picture.background);
        if (!problem)
            continue;
        broken.insert(picture.background);
        run.journal.fail(QStringLiteral("Image"), QStringLiteral("%1: %2").arg(picture.background, *problem));
    }
    return broken;
}

/// "drawn.png" becomes "drawn_S01.png"; nothing where that would leave the folder.
std::optional<QString> pathFor(const QString &path, const QString &name)
{
    if (name.isEmpty())
        return path;
    const QFileInfo info(path);
    const QString file = QStringLiteral("%1_%2.%3").arg(info.completeBaseName(), name, info.suffix());
    if (name.contains(u'/') || !placeInside(info.path(), file))
        return std::nullopt;
    return path.left(path.size() - info.fileName().size()) + file;
}

void writePicture(RunState &run, const DrawnPicture &picture, const QString &path, const QString &name)
{
    const std::optional<QString> place = pathFor(path, name);
    const QString title = QStringLiteral("Image");
    if (!place)
        run.journal.fail(
            title,
            QStringLiteral("%1: \"%2\" is no name of a file; rename what the set file calls so.").arg(path, name));
    else if (const auto problem = exportPicture(picture, pictureSettings(run.options), *place))
        run.journal.fail(title, *problem);
    else
        run.journal.keep(*place);
}

SceneLayers layersOf(const RunState &run, const QString &background)
{
    const Border border = run.options.noBorder ? Border::None : Border::Black;
    const SaccadeClusterOptions &clusters = run.options.saccadeClusters;
    return {backgroundPixmap(background, border), QImage(),
            saccadeClusterArrows(run.saccadeClusters.distanceClusters(), clusters.mode, clusters.style)};
}

/// A recording whose own picture is not there is drawn on white, and that is not what was asked for.
void tellMissingPictures(RunState &run, const PictureOf &picture)
{
    if (!picture.background.isEmpty())
        return;
    for (const int place : picture.places) {
        const Examination &examination = run.model.examinations()[place];
        if (!examination.missingImagePath.isEmpty())
            run.journal.fail(QStringLiteral("Image"),
                             QStringLiteral("%1: its picture %2 is missing, it is drawn on the white canvas.")
                                 .arg(examination.baseName, examination.missingImagePath));
    }
}

void drawPicture(RunState &run, const PictureOf &wanted, const StoredRecords &parameters, const ReportRecords &records)
{
    DataModel model = run.model;
    for (int place = 0; place < model.examinations().size() && !wanted.name.isEmpty(); ++place)
        model.examinations()[place].checked = wanted.places.contains(place);
    QGraphicsScene scene;
    const DrawingContext context = parameters.context(model);
    const DrawnScene drawn = runDrawingPass(scene, model, context, layersOf(run, wanted.background));
    const DrawnPicture picture{scene,         scene.sceneRect(), drawn.background->sceneBoundingRect(),
                               drawn.figures, context,           records};
    for (const QString &path : run.options.images)
        writePicture(run, picture, path, wanted.name);
}

} // namespace

void exportImages(RunState &run)
{
    if (run.options.images.isEmpty())
        return;
    const StoredRecords parameters(run.options.drawValues);
    const ReportRecords records = run.options.appended.parameters ? reportRecords(run.options) : ReportRecords{};
    const QList<PictureOf> pictures = picturesOf(run);
    const QSet<QString> broken = brokenBackgrounds(run, pictures);
    for (const PictureOf &picture : pictures) {
        if (broken.contains(picture.background))
            continue;
        tellMissingPictures(run, picture);
        drawPicture(run, picture, parameters, records);
    }
}

void exportVideo(RunState &run)
{
    if (run.options.videoFile.isEmpty())
        return;
    const StoredRecords parameters(run.options.drawValues);
    VideoContent content{parameters.context(run.model), layersOf(run, run.options.background), {}};
    QGraphicsScene scene;
    runDrawingPass(scene, run.model, content.context, content.layers);
    content.area = scene.sceneRect();
    const QString &path = run.options.videoFile;
    const VideoOutcome outcome = exportVideo(content, run.options.videoStepMs, path);
    if (outcome == VideoOutcome::Written) {
        run.journal.keep(path);
        return;
    }
    run.journal.fail();
    messages::show(
        {messages::Severity::Warning, QStringLiteral("Video"), videoText(outcome), videoFailure(outcome, path)});
}

void exportAoiImages(RunState &run)
{
    const QString &folder = run.options.aoiImageFolder;
    if (folder.isEmpty())
        return;
    const QString title = QStringLiteral("AOI images");
    QList<AreaOfInterest> areas = run.model.aoiList();
    if (areas.isEmpty()) {
        run.journal.fail(title, QStringLiteral("There is no area of interest."));
        return;
    }
    if (const auto problem = makeFolder(folder)) {
        run.journal.fail(title, QStringLiteral("%1: %2").arg(folder, *problem));
        return;
    }
    const Border border = run.options.noBorder ? Border::None : Border::Black;
    const QImage picture = backgroundPixmap(run.options.background, border).toImage();
    for (AreaOfInterest &area : areas)
        area.thumbnail = aoiThumbnail(area.polygon, picture);
    const ExportResult result = exportAoiImages(areas, folder);
    for (const QString &path : result.written)
        run.journal.keep(path);
    for (const QString &problem : result.problems)
        run.journal.fail(title, problem);
}

QMap<QString, QString> exportDensity(RunState &run)
{
    if (run.options.densityFile.isEmpty())
        return {};
    const StoredRecords parameters(run.options.drawValues);
    const std::optional<HeatmapDensity> density =
        heatmapDensity(run.options.densityKind, parameters.context(run.model));
    if (!density) {
        run.journal.fail(QStringLiteral("Density"), QStringLiteral("There is nothing of this kind in the time frame."));
        return {};
    }
    run.journal.write(QStringLiteral("Density"), run.options.densityFile,
                      densityTiff(density->cells, density->unit.toLatin1()));
    return {{QStringLiteral("kind"), densityKindWord(run.options.densityKind)},
            {QStringLiteral("kernelWidthPx"), QString::number(density->kernel.width)},
            {QStringLiteral("kernelSigma"), QString::number(density->kernel.sigma)},
            {QStringLiteral("unit"), density->unit}};
}
