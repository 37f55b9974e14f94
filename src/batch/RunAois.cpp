// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/RunAois.h"

#include "aoi/AoiFiles.h"
#include "aoi/generation/ClusterAois.h"
#include "aoi/generation/GridAois.h"
#include "aoi/generation/RegionClusters.h"
#include "aoi/generation/RegionSearch.h"
#include "base/Messages.h"
#include "batch/PictureCheck.h"
#include "batch/RunState.h"
#include "density/DensityTiff.h"
#include "model/ImageCache.h"
#include "model/PictureFile.h"

namespace {

const QString areasTitle = QStringLiteral("Areas of interest");
const QString saliencyTitle = QStringLiteral("Saliency");

/// The background, or without one the picture of the first recording that has one; empty without any.
QString picturePathOf(const RunState &run)
{
    if (!run.options.background.isEmpty())
        return run.options.background;
    for (const Examination &examination : run.model.examinations()) {
        if (examination.image)
            return examination.image->path;
    }
    return {};
}

/// That picture; null, and the run has failed, where there is none or it cannot be shown.
/// @param missing  what is told where there is none.
QImage pictureOrFailure(RunState &run, const QString &title, const QString &missing)
{
    const QString path = picturePathOf(run);
    const std::optional<QString> problem = pictureProblem(path);
    if (path.isEmpty())
        run.journal.fail(title, missing);
    else if (problem)
        run.journal.fail(title, QStringLiteral("%1: %2").arg(path, *problem));
    return path.isEmpty() || problem ? QImage() : readPicture(path);
}

void insertGenerated(RunState &run, const QList<GeneratedAoi> &generated)
{
    for (const AreaOfInterest &aoi : aoisOf(generated))
        run.model.insertAoi(aoi);
}

void makeClusters(RunState &run)
{
    const QList<CumulativeCluster> &clusters = std::as_const(run.model).pooled(Eye::Dominant).fixationClusters;
    if (clusters.isEmpty())
        run.journal.fail(areasTitle, QStringLiteral("There are no cumulative clusters; --calculate cumulative-clusters "
                                                    "makes them."));
    insertGenerated(run, clusterAois(clusters));
}

void takeRegions(RunState &run, const RegionSearch &search)
{
    const int minimum = run.options.regions.minimumRegion;
    if (run.options.regionExport == RegionExport::Aois) {
        insertGenerated(run, regionAois(search, minimum));
        return;
    }
    auto pools = regionClusters(regionContours(search, minimum), run.model);
    for (const Eye eye : allEyes) {
        if (pools)
            run.model.pooled(eye) = std::move((*pools)[static_cast<std::size_t>(eye)]);
    }
}

void makeRegions(RunState &run)
{
    const RegionParameters &parameters = run.options.regions;
    const bool isSaliency = parameters.source >= RegionSource::SaliencyItti;
    const QImage picture =
        isSaliency ? pictureOrFailure(run, areasTitle,
                                      QStringLiteral("Regions of a saliency need a picture; --background gives one."))
                   : QImage();
    if (isSaliency && picture.isNull())
        return;
    const auto density = regionDensity(run.model, picture, parameters);
    if (!density) {
        run.journal.fail(areasTitle, QStringLiteral("There is nothing to search regions in within the time frame."));
        return;
    }
    const auto search = searchRegions(*density, parameters);
    if (!search)
        return;
    for (const QString &remark : {density->remark, searchRemark(*search)}) {
        if (!remark.isEmpty())
            messages::warning(areasTitle, remark);
    }
    takeRegions(run, *search);
}

/// The map with the cells in the order of a density.
Density densityOf(const cv::Mat &map)
{
    Density density;
    for (int x = 0; x < canvas::width; ++x) {
        double *column = density.column(x);
        for (int y = 0; y < canvas::height; ++y)
            column[y] = map.at<double>(y, x);
    }
    return density;
}

} // namespace

void generateAois(RunState &run)
{
    run.model.saliencyParameters = run.options.saliencyNumbers.value_or(SaliencyNumbers{});
    for (const GeneratedAois kind : run.options.generatedAois) {
        switch (kind) {
        case GeneratedAois::Grid:
            insertGenerated(run, gridAois());
            break;
        case GeneratedAois::Clusters:
            makeClusters(run);
            break;
        case GeneratedAois::Regions:
            makeRegions(run);
            break;
        }
    }
}

void exportAois(RunState &run)
{
    const QString &path = run.options.aoiOutput;
    if (path.isEmpty())
        return;
    const QList<AreaOfInterest> aois = run.model.aoiList();
    if (aois.isEmpty())
        run.journal.fail(areasTitle, QStringLiteral("There is no area of interest: %1 is not written.").arg(path));
    else if (writeAois(aois, path))
        run.journal.keep(path);
    else
        run.journal.fail(); // the writer told why
}

void exportSaliency(RunState &run)
{
    if (!run.options.saliency)
        return;
    const QImage picture =
        pictureOrFailure(run, saliencyTitle, QStringLiteral("There is no picture; --background gives one."));
    if (picture.isNull())
        return;
    const cv::Mat map =
        saliencyMap(*run.options.saliency, picture, run.options.saliencyNumbers.value_or(SaliencyNumbers{}));
    run.journal.write(saliencyTitle, run.options.saliencyFile,
                      densityTiff(densityOf(saliencyOnCanvas(map)), "saliency"));
}

QList<ReportedArea> reportedAreas(const RunState &run)
{
    QList<ReportedArea> areas;
    for (const AreaOfInterest &aoi : run.model.aoiList())
        areas << ReportedArea{aoi.name, aoi.enabled, aoi.polygon.size(), double(aoi.area())};
    return areas;
}
