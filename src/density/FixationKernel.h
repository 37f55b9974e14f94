// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "density/DensityEvents.h"

#include <QtGlobal>

#include <algorithm>
#include <vector>

/// An oriented Gaussian along the axes of one fixation, as a raster around its centre. The lengths of the axes times
/// sigma are its variances; it reaches from -width to width - 1 along each axis and ends where the first axis would end
/// at width + 1.
///
/// The raster is made by rotating whole steps of both axes onto cells, so that some cells are hit twice and some never.
/// Two rules settle that. They are kept; the textbook form evaluates the Gaussian at the centre of each cell:
/// - of the steps that hit a cell the first one stays (`drawSteps`);
/// - a cell that no step hits takes the mean of its four neighbours if one of them is inside the Gaussian
/// (`fillHoles`).
class FixationKernel {
public:
    static constexpr int side = 600;
    static constexpr int center = side / 2;

    /// Rows, or columns of a row; both ends included.
    struct Span {
        int first = side;
        int last = -1;

        void include(int position) { *this = {std::min(first, position), std::max(last, position)}; }
        void include(const Span &other) { *this = {std::min(first, other.first), std::max(last, other.last)}; }
        bool isEmpty() const { return first > last; }
        int count() const { return last - first + 1; }
    };

    explicit FixationKernel(const NormalDistribution &size);

    /// An upper limit of how far the event's raster goes to the left and to the right, px; -1 if it adds nothing.
    int reachX(const FixationEvent &event) const;

    /// Makes the raster of an event. False, and no raster, where an axis or the duration is not positive: such a
    /// fixation adds nothing.
    bool build(const FixationEvent &event);

    /// All that is not 0 lies within these rows and within these columns of each. A row is an offset in x from the
    /// centre, a column one in y, both plus `center`.
    const Span &rows() const { return m_rows; }
    const Span &columns(int row) const { return m_columns[static_cast<std::size_t>(row)]; }
    const double *row(int row) const { return &m_cells[rowStart(row)]; }
    /// The sum of all cells.
    double mass() const;

private:
    struct Shape;

    static std::size_t rowStart(int row) { return static_cast<std::size_t>(row) * side; }
    void clear();
    void drawRow(const Shape &shape, int i);
    void drawSteps(const Shape &shape, int i, const Span &all, const Span &sure);
    void findColumns(const Shape &shape);
    Span &columnsOf(int row) { return m_columns[static_cast<std::size_t>(row)]; }
    void fillHoles(double floor);
    void fillRow(int row, const Span &columns);
    void fillFrom(int row, int column);
    bool isAnyInside(int row) const;

    int m_width;
    int m_sigma;
    std::vector<double> m_cells = std::vector<double>(std::size_t{side} * side);
    Span m_rows;
    std::vector<Span> m_columns = std::vector<Span>(side); ///< by row
    std::vector<double> m_alongSecond; ///< of the current event: exp(-0.5 * j * j / second variance), j from -width
    std::vector<double> m_jCos;        ///< j * cos a
    std::vector<double> m_jSin;        ///< j * sin a
    std::vector<int> m_targets;        ///< index of the cell that step j hits
    std::vector<double> m_values;
    double m_lowest = 0;                                         ///< neighbours from here on make an empty cell a hole
    std::vector<quint8> m_holes = std::vector<quint8>(side + 8); ///< flags of the row in work
};
