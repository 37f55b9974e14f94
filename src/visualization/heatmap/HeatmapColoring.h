// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "density/Density.h"

#include <array>
#include <QImage>

/// How cells become pixels: one that times `gain` is above `limit` gets colour trunc(cell / unit * steps), at least
/// `lowest` and at most 255; all others get `below`.
struct DensityColoring {
    double gain = 1;
    double limit = 0;
    double unit = 1;
    double steps = 255;
    int lowest = 1;
    std::array<QRgb, 256> colors{};
    QRgb below = 0;
};

/// @param workers  number of threads, at least 1; it does not change the picture.
/// @return 2560 x 1600, Format_ARGB32.
QImage coloredDensity(const Density &density, const DensityColoring &coloring, int workers);

/// The colours of a table of 256 pixels, see `colorTable`.
std::array<QRgb, 256> colorsOf(const QImage &table);

/// The veil of a shadow map: black with `alpha`, opened by step n to alpha * (1 - (ln n / ln steps)^power). The steps 0
/// and 1, which have no positive logarithm, leave it closed; the last step opens it.
///
/// @param steps  number of the last step, up to 255.
/// @param alpha  0 to 255.
std::array<QRgb, 256> shadowVeil(int steps, int alpha, double power);
