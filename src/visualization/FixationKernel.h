#pragma once

#include "visualization/HeatmapEvents.h"
#include "visualization/HeatmapOptions.h"

#include <vector>

/// An oriented Gaussian along the axes of one fixation, as a raster around its centre. The lengths of the axes times
/// sigma are its variances; it reaches from -width to width - 1 along each axis and ends where the first axis would end
/// at width + 1.
///
/// The raster is made by rotating whole steps of both axes onto cells, so that some cells are hit twice and some never.
/// Two rules settle that, and heatmaps are compared over years, so they stay:
/// - of the steps that hit a cell the first one stays (`drawRow`);
/// - a cell that no step hits takes the mean of its four neighbours if one of them is inside the Gaussian
/// (`fillHoles`).
class FixationKernel {
public:
    static constexpr int side = 600;
    static constexpr int center = side / 2;

    /// Rows and columns of cells, both ends included.
    struct Extent {
        int firstRow = side;
        int lastRow = -1;
        int firstColumn = side;
        int lastColumn = -1;
    };

    explicit FixationKernel(const NormalDistribution &size);

    /// An upper limit of how far the event's raster goes to the left and to the right, px; -1 if it adds nothing.
    int reachX(const FixationEvent &event) const;

    /// Makes the raster of an event. False, and no raster, where an axis or the duration is not positive: such a
    /// fixation adds nothing.
    bool build(const FixationEvent &event);

    /// All that is not 0 lies within. A row is an offset in x from the centre, a column one in y, both plus `center`.
    const Extent &extent() const { return m_extent; }
    const double *row(int row) const { return &m_cells[static_cast<std::size_t>(row * side)]; }
    /// The sum of all cells.
    double mass() const;

private:
    struct Shape;

    void clear();
    void drawRow(const Shape &shape, int i);
    void drawSteps(const Shape &shape, int i, int firstJ, int lastJ);
    void grow(int row, int column);
    void fillHoles(double floor);
    void fillRow(int row);
    void fillFrom(double *cells, int column);
    bool isAnyInside(int row) const;

    int m_width;
    int m_sigma;
    std::vector<double> m_cells = std::vector<double>(side * side);
    Extent m_extent;
    std::vector<double> m_alongSecond; ///< of the current event: exp(-0.5 * j * j / second variance), j from -width
    std::vector<double> m_jCos;        ///< j * cos a
    std::vector<double> m_jSin;        ///< j * sin a
    std::vector<int> m_targets;        ///< index of the cell that step j hits
    std::vector<double> m_values;
    double m_lowest = 0;                                         ///< neighbours from here on make an empty cell a hole
    std::vector<quint8> m_holes = std::vector<quint8>(side + 8); ///< flags of the row in work
};
