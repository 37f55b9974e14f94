// SPDX-License-Identifier: GPL-3.0-or-later
#include "report/PictureLegend.h"

#include "report/HeatmapLegend.h"
#include "visualization/modes/DrawingModes.h"
#include "visualization/shapes/FixationShapes.h"
#include "visualization/shapes/GazePointRaster.h"
#include "visualization/shapes/ShapeStyle.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double margin = 10; // px

struct Entry {
    QColor color;
    QString name;

    bool operator==(const Entry &) const = default;
};

TextShape legendText(QPointF top, const QString &text)
{
    constexpr int points = 30;
    return {top, text, QFont(QStringLiteral("Times New Roman"), points), Qt::black, TextAnchor::Left};
}

/// Whether the mode paints in the colours of eyes and groups; heatmaps and charts have legends of their own.
bool hasEyeColors(DataKind kind, const DrawingContext &context)
{
    const ModeBuild build = buildOf(kind, context.of(kind));
    const bool isOfStreams = std::holds_alternative<StreamBuild>(build) || std::holds_alternative<SharedBuild>(build) ||
                             std::holds_alternative<PassBuild>(build);
    return isOfStreams || build == ModeBuild(PooledBuild(gazePointSquares));
}

/// Gaze points know no groups.
Entry entryOf(DataKind kind, const ExaminationEye &stream, const DrawingContext &context)
{
    constexpr const char *kinds[] = {"gaze points", "fixations", "clusters", "saccades"};
    Examination owner;
    const bool isInGroup = kind != DataKind::GazePoints && context.model.group(stream.examination->groupName);
    if (isInGroup)
        owner.groupName = stream.examination->groupName;
    QColor color = shapeStyle(owner, stream.eye, context.model, context.of(kind)).brush.color();
    color.setAlpha(255);
    const QString group = isInGroup ? owner.groupName + QStringLiteral(", ") : QString();
    return {color, group + QLatin1StringView(kinds[static_cast<std::size_t>(kind)]) + QStringLiteral(", ") +
                       eyeWord(stream.eye)};
}

QList<Entry> entries(const DrawingContext &context)
{
    QList<Entry> found;
    for (const DataKind kind : allDataKinds) {
        if (!hasEyeColors(kind, context))
            continue;
        for (const Examination *examination : context.model.checkedExaminations()) {
            for (const ExaminationEye &stream : eyesToDraw(*examination, context.eyeMode)) {
                const Entry entry = entryOf(kind, stream, context);
                if (!found.contains(entry))
                    found << entry;
            }
        }
    }
    return found;
}

/// In as many columns as there is room for.
double addEntries(Drawing &drawing, QPointF top, double width, const QList<Entry> &found)
{
    constexpr double columnWidth = 600;
    constexpr double patchSize = 30;
    const auto columns = std::max<qsizetype>(1, static_cast<qsizetype>(width / columnWidth));
    for (qsizetype i = 0; i < found.size(); ++i) {
        const qsizetype row = i / columns;
        const QPointF corner =
            top + QPointF(static_cast<double>(i % columns) * columnWidth, static_cast<double>(row) * legendRowHeight);
        const QRectF patch(corner + QPointF(0, margin), QSizeF(patchSize, patchSize));
        drawing << PolygonShape{QPolygonF(patch), QPen(Qt::black), QBrush(found[i].color)}
                << legendText(corner + QPointF(patchSize + margin, 0), found[i].name);
    }
    const qsizetype rows = (found.size() + columns - 1) / columns;
    return static_cast<double>(rows) * legendRowHeight;
}

/// Samples per ms of the first recording that has any.
double sampleRate(const DataModel &model)
{
    for (const Examination *examination : model.checkedExaminations()) {
        const auto samples = static_cast<double>(examination->leftEye.gazePoints.size());
        if (samples > 1 && examination->duration() > 0)
            return (samples - 1) / static_cast<double>(examination->duration());
    }
    return 0;
}

/// Diameter of the circle of a fixation that lasts so long.
int diameterOf(int durationMs, double rate, const VisualizationParameters &record)
{
    Fixation fixation;
    const int samples = static_cast<int>(std::lround(durationMs * rate));
    for (int i = 0; i < samples; ++i)
        fixation.samples << GazePoint(i + 1, 0, 0, 0, 0, 1);
    return circleDiameter(fixation, {0, samples + 2}, record);
}

/// Those for which there is room.
double addCircles(Drawing &drawing, QPointF top, double width, const DrawingContext &context)
{
    constexpr int durationsMs[] = {100, 250, 500};
    const VisualizationParameters &record = context.of(DataKind::Fixations);
    const double rate = sampleRate(context.model);
    const ModeBuild circles = StreamBuild(fixationsOfEye<fixationCircles>);
    const bool growWithTime = record.durationDependent && !record.showOriginalSize;
    if (buildOf(DataKind::Fixations, record) != circles || !growWithTime || !(rate > 0))
        return 0;
    double x = top.x();
    double height = legendRowHeight;
    for (const int durationMs : durationsMs) {
        constexpr double roomForText = 200;
        const int diameter = diameterOf(durationMs, rate, record);
        if (x + diameter + roomForText > top.x() + width)
            break;
        const QRectF rect(x, top.y() + margin, diameter, diameter);
        drawing << OvalShape{rect, QPen(Qt::black), QBrush(Qt::NoBrush), {}};
        drawing << legendText({x + diameter + margin, top.y()}, QStringLiteral("%1 ms").arg(durationMs));
        x += diameter + roomForText;
        height = std::max(height, diameter + 2 * margin);
    }
    return height;
}

} // namespace

PictureLegend pictureLegend(const QList<HeatmapFigures> &figures, const DrawingContext &context, const QRectF &picture)
{
    const QPointF corner = picture.bottomLeft() + QPointF(margin, margin);
    const double width = picture.width() - 2 * margin;
    Drawing content;
    double height = addEntries(content, corner, width, entries(context));
    height += addCircles(content, corner + QPointF(0, height), width, context);
    const LegendLook look{
        .widthPx = std::max(1, static_cast<int>(width)), .text = Qt::black, .allUnits = true, .classes = false};
    const HeatmapLegend scales = heatmapLegend(figures, context, corner + QPointF(0, height), look);
    height += scales.height;
    if (!(height > 0))
        return {};
    const QRectF ground(picture.bottomLeft(), QSizeF(picture.width(), height + 2 * margin));
    return {Drawing{PolygonShape{QPolygonF(ground), QPen(Qt::NoPen), QBrush(Qt::white)}} + content + scales.drawing,
            ground.height()};
}
