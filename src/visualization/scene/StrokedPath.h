// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPainterPath>
#include <QPen>

/// How far a pen paints on each side of its line, in pixels; a pen of width 0 paints one pixel.
double halfWidth(const QPen &pen);

/// What a pen paints along a path, and what the path encloses.
QPainterPath strokedPath(const QPainterPath &path, const QPen &pen);
