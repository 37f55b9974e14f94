// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/modes/Picture.h"

#include "visualization/charts/ChartKinds.h"
#include "visualization/heatmap/Heatmap.h"
#include "visualization/modes/AoiModes.h"
#include "visualization/modes/DistinctShapes.h"
#include "visualization/modes/DrawingModes.h"

#include <algorithm>

namespace {

void addStreams(Picture &picture, const Examination &examination, DataKind kind, const DrawingContext &context,
                DistinctShapes &drawn)
{
    const ModeBuild build = buildOf(kind, context.of(kind));
    const auto *ofStream = std::get_if<StreamBuild>(&build);
    const auto *shared = std::get_if<SharedBuild>(&build);
    for (const ExaminationEye &stream : eyesToDraw(examination, context.eyeMode)) {
        if (ofStream)
            picture.drawing << (*ofStream)(stream, context);
        else if (shared)
            picture.drawing << drawn.take(shared->build(stream, context));
    }
}

void addPasses(Picture &picture, DataKind kind, const DrawingContext &context)
{
    const ModeBuild build = buildOf(kind, context.of(kind));
    const auto *ofPass = std::get_if<PassBuild>(&build);
    if (!ofPass)
        return;
    for (const QList<ExaminationEye> &pass : passesToDraw(context.model.checkedExaminations(), context.eyeMode))
        picture.drawing << (*ofPass)(pass, context);
}

void addHeatmap(Picture &picture, DataKind kind, const Heatmap &heatmap)
{
    if (!heatmap.image.isNull())
        picture.drawing << RasterShape{heatmap.image, kind};
    if (heatmap.figures)
        picture.figures << *heatmap.figures;
}

void addPooled(Picture &picture, DataKind kind, const DrawingContext &context)
{
    const ModeBuild build = buildOf(kind, context.of(kind));
    if (const auto *pooled = std::get_if<PooledBuild>(&build))
        picture.drawing << (*pooled)(context);
    else if (const auto *look = std::get_if<HeatmapLook>(&build))
        addHeatmap(picture, kind, heatmapOf(kind, context, *look));
}

bool isChart(const ModeBuild &build)
{
    return std::any_of(chartKinds().begin(), chartKinds().end(),
                       [&](const ChartKind &kind) { return build == ModeBuild(PooledBuild(kind.draw)); });
}

} // namespace

Picture pictureOf(const DrawingContext &context)
{
    Picture picture;
    DistinctShapes drawn;
    for (const Examination *examination : context.model.checkedExaminations()) {
        for (const DataKind kind : allDataKinds)
            addStreams(picture, *examination, kind, context, drawn);
    }
    for (const DataKind kind : allDataKinds)
        addPasses(picture, kind, context);
    for (const DataKind kind : allDataKinds)
        addPooled(picture, kind, context);
    picture.drawing << aoiDrawing(context);
    return picture;
}

bool hasChart(const DrawingContext &context)
{
    if (std::any_of(allDataKinds.begin(), allDataKinds.end(),
                    [&](DataKind kind) { return isChart(buildOf(kind, context.of(kind))); }))
        return true;
    const AoiMode *mode = aoiMode(context.areas.drawMode);
    return mode && mode->options.testFlag(AoiModeOption::TimeWindow) && !context.model.checkedAois().isEmpty();
}
