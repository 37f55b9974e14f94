// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QGradient>
#include <QImage>

/// Colours that run from left to right through the stops, over transparent white; only that without a stop.
///
/// @param stops  at 0 to 1, in any order; of two at one place the later one counts.
/// @param size   in pixels; the image is null where it is empty.
/// @return Format_ARGB32.
QImage gradientImage(const QGradientStops &stops, QSize size);
