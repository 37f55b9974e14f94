// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/heatmap/GradientImage.h"

#include <QPainter>

QImage gradientImage(const QGradientStops &stops, QSize size)
{
    QImage image(size, QImage::Format_ARGB32);
    if (image.isNull())
        return image;
    image.fill(QColor(255, 255, 255, 0));
    if (stops.isEmpty())
        return image; // a gradient without stops would run from black to white
    QLinearGradient gradient(0, 0, size.width(), 0);
    for (const auto &[position, color] : stops)
        gradient.setColorAt(position, color);
    QPainter(&image).fillRect(image.rect(), gradient);
    return image;
}
