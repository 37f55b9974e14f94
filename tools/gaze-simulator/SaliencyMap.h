// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QImage>
#include <QPointF>
#include <QSize>

#include <vector>

/// How strongly each place of a picture draws the gaze, on a coarse grid.
struct SaliencyMap {
    QSize canvas;                ///< px
    int cellPx = 1;              ///< edge of a square cell
    int columns = 0;             ///< cells cover the canvas; the last of a row or column may stand out
    int rows = 0;                ///<
    std::vector<double> weights; ///< columns * rows, row by row from the top; each > 0 and at most 1

    /// Where the weight of a cell stands.
    size_t index(int column, int row) const;
    QPointF cellCenter(int column, int row) const;
};

/// Centre-surround contrast of lightness and two colour axes over two scales, times a bias to the centre.
///
/// @param image  any size and format; transparency is not looked at.  @return empty for a null image.
/// Source of the idea: Itti, Koch & Niebur (1998), IEEE PAMI 20(11); centre bias: Tatler (2007), Journal of Vision
/// 7(14).
SaliencyMap imageSaliency(const QImage &image);

/// The centre bias alone, for a recording without a picture.
SaliencyMap plainSaliency(const QSize &canvas);
