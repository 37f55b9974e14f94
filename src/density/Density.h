// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/Canvas.h"

#include <cstddef>
#include <memory>
#include <vector>

/// Columns of the canvas that one worker owns, `end` not included.
struct ColumnStripe {
    int begin;
    int end;

    bool operator==(const ColumnStripe &) const = default;
};

/// Stripes of ceil(2560 / workers) columns from left to right; with many workers the last ones may be empty.
std::vector<ColumnStripe> columnStripes(int workers);

/// The cell of the largest density; of equal ones the first, column by column.
struct DensityPeak {
    double value = 0; ///< 0 where no cell is positive; the position is that of the first cell then
    int x = 0;
    int y = 0;

    bool operator==(const DensityPeak &) const = default;
};

/// Density over the canvas: 2560 columns of 1600 doubles in one piece, the cell (x, y) at index x * 1600 + y.
class Density {
public:
    /// The cells are not set: that is up to the workers, each for its stripe.
    Density();

    double *column(int x) { return m_cells.get() + columnStart(x); }
    const double *column(int x) const { return m_cells.get() + columnStart(x); }
    double at(int x, int y) const { return column(x)[y]; }

    const DensityPeak &peak() const { return m_peak; }
    void setPeak(const DensityPeak &peak) { m_peak = peak; }

private:
    static std::ptrdiff_t columnStart(int x) { return std::ptrdiff_t{x} * canvas::height; }

    std::unique_ptr<double[]> m_cells;
    DensityPeak m_peak;
};

/// The peak within a stripe.
DensityPeak peakWithin(const Density &density, ColumnStripe stripe);
