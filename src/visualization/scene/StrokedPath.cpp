// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/scene/StrokedPath.h"

#include <algorithm>

double halfWidth(const QPen &pen)
{
    return pen.style() == Qt::NoPen ? 0 : std::max(1.0, pen.widthF()) / 2;
}

QPainterPath strokedPath(const QPainterPath &path, const QPen &pen)
{
    if (pen.style() == Qt::NoPen)
        return path;
    QPainterPathStroker stroker(pen);
    stroker.setWidth(2 * halfWidth(pen));
    return stroker.createStroke(path).united(path); // laid over each other, opposite directions would cancel out
}
