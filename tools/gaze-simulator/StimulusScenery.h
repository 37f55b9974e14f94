// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "gaze-simulator/RandomSource.h"

#include <QColor>
#include <QPainter>
#include <QPainterPath>

/// The parts of the generated picture, each in its own place. Lengths are px of a canvas of 1280 by 800.
namespace scenery {

inline constexpr double width = 1280;
inline constexpr double height = 800;
inline constexpr double horizon = 430;

void paintSky(QPainter &painter, RandomSource &random);
void paintSun(QPainter &painter, const QPointF &center);
void paintWater(QPainter &painter, RandomSource &random, double sunX);

/// A ridge of hills from the left edge to the right, filled down to `bottom`.
struct Ridge {
    double top;       ///< y of the highest possible summit
    double bottom;    ///< y of the foot
    double hillWidth; ///< from one summit to the next
    QColor light;     ///< colour at the summits
    QColor dark;      ///< colour at the foot
};
void paintRidge(QPainter &painter, RandomSource &random, const Ridge &ridge);

void paintLighthouse(QPainter &painter, const QPointF &foot);
void paintBalloon(QPainter &painter, const QPointF &center, double radius, const QColor &first, const QColor &second);
void paintBoat(QPainter &painter, const QPointF &waterline, double size);
void paintBird(QPainter &painter, const QPointF &center, double span);
void paintPine(QPainter &painter, const QPointF &foot, double size);
void paintCottage(QPainter &painter, const QPointF &foot);
void paintPoppies(QPainter &painter, RandomSource &random, double top);

} // namespace scenery
