// SPDX-License-Identifier: GPL-3.0-or-later
#include "aoi/generation/GradientSearch.h"
#include "aoi/generation/RegionSearch.h"

#include <QColor>

#include <algorithm>
#include <array>

// The pictures of a density and of its regions, which lie on each other in the preview.

namespace {

constexpr int layerAlpha = 150;

/// A picture of which the pixel (x, y) is colorAt(x, y). Grids lie column by column and pictures row by row: squares
/// that fit into the cache are taken one by one.
template <class ColorAt>
QImage layer(int width, int height, ColorAt colorAt)
{
    constexpr int square = 32;
    QImage image(width, height, QImage::Format_ARGB32);
    if (image.isNull())
        return image;
    uchar *bits = image.bits();
    const qsizetype bytesPerLine = image.bytesPerLine();
    for (int top = 0; top < height; top += square) {
        for (int left = 0; left < width; left += square) {
            for (int y = top; y < std::min(top + square, height); ++y) {
                auto *line = reinterpret_cast<QRgb *>(bits + y * bytesPerLine);
                for (int x = left; x < std::min(left + square, width); ++x)
                    line[x] = colorAt(x, y);
            }
        }
    }
    return image;
}

/// Colours of regions by the last digit of their number.
constexpr std::array regionColors{
    qRgba(158, 1, 66, layerAlpha),    qRgba(213, 62, 79, layerAlpha),   qRgba(244, 109, 67, layerAlpha),
    qRgba(253, 174, 97, layerAlpha),  qRgba(254, 224, 139, layerAlpha), qRgba(230, 245, 152, layerAlpha),
    qRgba(171, 221, 164, layerAlpha), qRgba(102, 194, 165, layerAlpha), qRgba(50, 136, 189, layerAlpha),
    qRgba(94, 79, 162, layerAlpha),
};

} // namespace

QImage densityLayer(const RegionDensity &density)
{
    constexpr int steps = 250;
    constexpr int lowestAlpha = 5;
    const Grid<double> &cells = density.cells;
    return layer(cells.width(), cells.height(), [&](int x, int y) -> QRgb {
        const double value = cells.at(x, y);
        if (!(value > 0))
            return 0;
        const double share = std::min(1.0, value / density.highest);
        return qRgba(0, 255, 0, static_cast<int>(share * steps) + lowestAlpha);
    });
}

QImage regionLayer(const RegionSearch &search)
{
    if (search.method == RegionMethod::Standard) {
        const Grid<quint8> &marks = search.marks;
        return layer(marks.width(), marks.height(),
                     [&](int x, int y) { return marks.at(x, y) > 0 ? qRgba(255, 0, 0, layerAlpha) : 0; });
    }
    const Grid<int> &labels = search.labels;
    const Grid<int> borders = gradientsearch::hollowed(labels);
    return layer(labels.width(), labels.height(), [&](int x, int y) -> QRgb {
        const int label = labels.at(x, y);
        if (label <= 0)
            return 0;
        return borders.at(x, y) > 0 ? qRgba(0, 0, 0, layerAlpha)
                                    : regionColors[static_cast<std::size_t>(label) % regionColors.size()];
    });
}
