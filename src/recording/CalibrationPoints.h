// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QPoint>
#include <QSize>

#include <random>

/// Where calibration points are shown: nine places, three by three, in an order by chance.
///
/// @param area    size of the window, pixels.
/// @param random  moves on, so that the next calibration has another order.
/// @return columns and rows at 1, 4 and 7 times the whole eighth of the area.
QList<QPoint> calibrationPoints(const QSize &area, std::minstd_rand &random);
