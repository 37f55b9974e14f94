// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "density/Density.h"
#include "density/SaccadeMarks.h"

#include <QPoint>

#include <optional>

/// The profile across a tube, exp(-0.5 * (v / sigma)^2) / (2.5 * sigma) for the distance v from 0 to width.
std::vector<double> tubeProfile(const NormalDistribution &kernel);

/// The course of a tube. It covers the middle 80 percent of a saccade, from the end at the later fixation to that at
/// the earlier one, and a half circle beyond each.
struct TubeCourse {
    QPoint start;    ///< px, truncated
    double lengthPx; ///< from there to the other end, which is not truncated
    double alongX;   ///< unit vector towards the other end
    double alongY;
};

/// Nothing where the saccade is not longer than the threshold, and where the ends of its tube coincide.
std::optional<TubeCourse> tubeCourse(const SaccadeMark &mark, double lengthThresholdPx);

/// Density of tubes on some columns of the canvas, which lie here as a copy of their own.
///
/// Tubes cannot be added up column by column: a tube leaves cells out, and they are set to the mean of what is beside
/// them by then. So the last columns here, for which the neighbours are not known, become wrong, one more with each
/// tube.
class TubeStrip {
public:
    explicit TubeStrip(ColumnStripe columns);

    const ColumnStripe &columns() const { return m_columns; }
    double *column(int x) { return &m_cells[cellIndex(x, 0)]; }

    /// Adds one tube of which the cell at distance v from the middle gets factor * profile[v].
    void add(const TubeCourse &course, double factor, const std::vector<double> &profile);

private:
    struct Brush;
    struct Rows {              ///< of a column
        std::size_t first = 0; ///< cell
        int count = 0;
    };

    std::size_t cellIndex(qint64 x, qint64 y) const
    {
        return static_cast<std::size_t>((x - m_columns.begin + 1) * stride + y + 1);
    }
    void sweep(const Brush &brush);
    void drawLine(const Brush &brush, qint64 x, qint64 y, int limit);
    void addDrawn(const Brush &brush, const Rows &rows);
    void fillHoles(const Rows &rows);
    void forget(const Rows &rows);
    Rows rowsOf(const Brush &brush, int x) const;

    static constexpr int stride = canvas::height + 2; ///< a row without tubes above and below, a column at either side

    ColumnStripe m_columns;
    std::vector<double> m_cells;
    std::vector<quint16> m_heights; ///< of the tube in work: which one of the brush a cell gets; 0 where it draws none
    std::vector<double> m_filled;   ///< a column's cells with its holes filled
};
