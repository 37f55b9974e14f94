// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/DataKind.h"

#include <QBrush>
#include <QFont>
#include <QImage>
#include <QLineF>
#include <QList>
#include <QPen>
#include <QPolygonF>
#include <QRectF>
#include <QVector2D>

#include <optional>
#include <variant>

/// An ellipse at any angle, given by its semi-axes.
struct EllipseShape {
    QPoint center;
    QVector2D major; ///< px
    QVector2D minor; ///< px
    QPen pen;
    QBrush brush;
    QString toolTip;

    bool operator==(const EllipseShape &) const = default;
};

/// An ellipse whose axes are those of the canvas, such as a circle or the dot of a sample.
struct OvalShape {
    QRectF rect;
    QPen pen;
    QBrush brush;
    QString toolTip;

    bool operator==(const OvalShape &) const = default;
};

/// A picture, mostly of the canvas's size; what is transparent in it lets through what lies below.
struct RasterShape {
    QImage image;
    std::optional<DataKind> heatmapOf = std::nullopt; ///< the kind whose density it shows
    QPointF top = {};                                 ///< its upper left corner

    bool operator==(const RasterShape &) const = default;
};

/// An arrow between two positions, with or without a head at `to`.
struct ArrowShape {
    QPoint from;
    QPoint to;
    bool showTip = false;
    QPen pen;
    QBrush brush;
    QString toolTip;

    bool operator==(const ArrowShape &) const = default;
};

struct LineShape {
    QLineF line;
    QPen pen;
    QString toolTip = {};

    bool operator==(const LineShape &) const = default;
};

/// Which place of its box a text is placed by; its size is known only where it is shown.
enum class TextAnchor {
    Left,   ///< upper left corner
    Middle, ///< middle of the upper edge
    Beside, ///< middle of the left edge
    Center,
};

struct TextShape {
    QPointF top; ///< position of the anchor
    QString text;
    QFont font;
    QColor color;
    TextAnchor anchor = TextAnchor::Left;

    bool operator==(const TextShape &) const = default;
};

/// A closed polygon.
struct PolygonShape {
    QPolygonF polygon;
    QPen pen;
    QBrush brush;
    QString toolTip = {};
    std::optional<qsizetype> shownOnArea = {}; ///< hidden until the mouse enters the area with this index

    bool operator==(const PolygonShape &) const = default;
};

/// An area of interest that the mouse can enter.
struct AreaShape {
    QPolygon polygon;
    QPen pen;
    QBrush brush;
    QString toolTip;
    qsizetype index = 0; ///< place among the areas of the drawing

    bool operator==(const AreaShape &) const = default;
};

using Shape =
    std::variant<EllipseShape, OvalShape, RasterShape, ArrowShape, LineShape, TextShape, PolygonShape, AreaShape>;

/// A picture as data: shapes from back to front, in canvas pixels.
using Drawing = QList<Shape>;

/// The square around a circle of whole pixels. Half of the diameter is cut to whole pixels.
QRectF squareAround(QPoint center, int diameter);

/// Adds a line to the tool tips; shapes without one stay without.
void addToolTipLine(Drawing &drawing, const QString &line);

/// The drawing in words, one shape a line, for comparisons in tests:
///
///     ellipse 640 400 major 30 0 minor 0 20 pen #ff0000 1 brush #7fff0000 tip Fixation ID: 0 | ...
///     oval 10 20 5 5 pen #000000 1 brush none
///     raster 2560 1600 sha1 ...
///     arrow 10 20 to 30 40 pointed pen #ff0000 5 brush #ffff0000 tip Saccade ID: 1 | ...
///     line 10 20 to 30 40 pen #7fff0000 1 dashed tip From Cluster 0 to Cluster 1 :2 | ...
///     text 10 20 #000000 font Arial 30 reads 14.4°
///     text middle 10 20 #000000 font Arial 30 reads C0
///     text beside 10 20 #000000 font Arial 30 reads 12 %
///     polygon 10 20 30 40 50 60 pen #ff0000 1 brush #ffff0000 tip Transitions out ... shown on area 0
///     area 0 10 20 30 40 50 60 pen #0000ff 7 brush #800000ff tip Transitions (4):50%
QString toText(const Drawing &drawing);
