// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/shapes/AoiOutlines.h"

#include "visualization/parameters/AoiVisualizationParameters.h"
#include "visualization/selection/DrawingContext.h"
#include "visualization/shapes/ShapeStyle.h"

namespace {

/// Of filling and name, beside the outline in the area's own colour.
QColor fillOf(const QColor &color, int borderType)
{
    constexpr int brighter = 150; // percent
    constexpr int darker = 200;
    return borderType == 0 ? color.lighter(brighter) : borderType == 2 ? color.darker(darker) : color;
}

} // namespace

TextShape aoiText(const QString &text, QPointF top, const QColor &color, TextAnchor anchor)
{
    constexpr int points = 30;
    return {top, text, QFont(QStringLiteral("Times New Roman"), points, QFont::Light), color, anchor};
}

Drawing aoiOutlines(const QList<AreaOfInterest> &areas, const AoiVisualizationParameters &parameters)
{
    Drawing drawing;
    for (const AreaOfInterest &area : areas) {
        const QColor fill = fillOf(area.color, parameters.borderType);
        drawing << PolygonShape{area.polygon, QPen(area.color, std::max(0, parameters.borderWidth)),
                                withOpacity(fill, parameters.fillOpacity)};
        if (parameters.displayNames)
            drawing << aoiText(area.name, area.centroid(), fill);
    }
    return drawing;
}

Drawing aoiOutlineDrawing(const DrawingContext &context)
{
    return aoiOutlines(context.model.checkedAois(), context.areas);
}
