// SPDX-License-Identifier: GPL-3.0-or-later
#include "recording/CalibrationPoints.h"

QList<QPoint> calibrationPoints(const QSize &area, std::minstd_rand &random)
{
    constexpr int eighths = 8;
    constexpr int places[] = {1, 4, 7};
    QList<QPoint> points;
    for (const int row : places) {
        for (const int column : places)
            points << QPoint(area.width() / eighths * column, area.height() / eighths * row);
    }
    for (qsizetype i = 1; i < points.size(); ++i)
        points.swapItemsAt(i, static_cast<qsizetype>(random() % static_cast<unsigned long>(i + 1)));
    return points;
}
