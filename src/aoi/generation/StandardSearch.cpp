// SPDX-License-Identifier: GPL-3.0-or-later
#include "aoi/generation/StandardSearch.h"

#include "aoi/generation/RegionSteps.h"
#include "density/DensityLoops.h"

#include <algorithm>
#include <array>
#include <optional>

namespace standardsearch {

namespace {

using regionsteps::endOfInterior;
using regionsteps::firstInterior;

constexpr int blockSide = 8;
constexpr int blockReach = 4; ///< before the cell
constexpr double blockDivisor = 81;
constexpr qsizetype maximumCount = 500;

/// out[y] = the sum of the eight cells from 4 before y on.
void sumDown(double *out, const double *column, int begin, int end)
{
    for (int y = begin; y < end; ++y) {
        const double *cells = column + y - blockReach;
        out[y] = cells[0] + cells[1] + cells[2] + cells[3] + cells[4] + cells[5] + cells[6] + cells[7];
    }
}

using BlockColumns = std::array<const double *, blockSide>;

void sumAcross(double *out, const BlockColumns &columns, int begin, int end)
{
    for (int y = begin; y < end; ++y) {
        double sum = columns[0][y];
        for (std::size_t i = 1; i < blockSide; ++i)
            sum += columns[i][y];
        out[y] = sum / blockDivisor;
    }
}

/// A maximum of the tile; none where no cell is positive.
std::optional<QPoint> tileMaximum(const Grid<double> &values, QPoint corner, int window)
{
    std::optional<QPoint> maximum;
    double highest = 0;
    for (int x = corner.x(); x < corner.x() + window; ++x) {
        const double *cells = values.column(x);
        if (!densityloops::isAnyAbove(cells + corner.y(), highest, window))
            continue;
        for (int y = corner.y(); y < corner.y() + window; ++y) {
            if (cells[y] > highest) {
                highest = cells[y];
                maximum = QPoint(x, y);
            }
        }
    }
    return maximum;
}

/// The rings about one maximum.
class RingGrowth {
public:
    RingGrowth(const Grid<double> &values, Grid<quint8> &marks, double threshold)
        : m_values(values)
        , m_marks(marks)
        , m_threshold(threshold)
    {
    }

    /// Whether the ring has a cell that was marked now.
    bool takeRing(QPoint center, int radius)
    {
        const int left = center.x() - radius;
        const int right = center.x() + radius;
        const int top = center.y() - radius;
        const int bottom = center.y() + radius;
        m_isAnyMarked = false;
        takeRow(top, left, right - 1);
        takeColumn(left, top, bottom - 1);
        takeRow(bottom, left + 1, right);
        takeColumn(right, top + 1, bottom);
        return m_isAnyMarked;
    }

private:
    static constexpr int firstCell = 1;

    void takeRow(int y, int first, int last)
    {
        if (y < firstCell || y >= m_values.height())
            return;
        for (int x = std::max(first, firstCell); x <= std::min(last, m_values.width() - 1); ++x)
            take(m_values.at(x, y), m_marks.at(x, y));
    }

    void takeColumn(int x, int first, int last)
    {
        if (x < firstCell || x >= m_values.width())
            return;
        const double *values = m_values.column(x);
        quint8 *marks = m_marks.column(x);
        for (int y = std::max(first, firstCell); y <= std::min(last, m_values.height() - 1); ++y)
            take(values[y], marks[y]);
    }

    void take(double value, quint8 &mark)
    {
        if (value > m_threshold && mark == Outside) {
            mark = Inside;
            m_isAnyMarked = true;
        }
    }

    const Grid<double> &m_values;
    Grid<quint8> &m_marks;
    double m_threshold;
    bool m_isAnyMarked = false;
};

/// Marked neighbours of each cell but for the one above it, which the pass may still mark.
void countBeside(quint8 *counts, const quint8 *before, const quint8 *column, const quint8 *behind, int begin, int end)
{
    for (int y = begin; y < end; ++y)
        counts[y] = static_cast<quint8>(before[y - 1] + before[y] + before[y + 1] + behind[y - 1] + behind[y] +
                                        behind[y + 1] + column[y + 1]);
}

void markBorders(quint8 *column, const quint8 *before, const quint8 *behind, int begin, int end)
{
    const auto isGap = [](const quint8 *cells) {
        return (cells[-1] == Outside) | (cells[0] == Outside) | (cells[1] == Outside);
    };
    for (int y = begin; y < end; ++y) {
        const bool isBorder = (isGap(before + y) | isGap(column + y) | isGap(behind + y)) & (column[y] != Outside);
        column[y] = isBorder ? quint8(Border) : column[y];
    }
}

} // namespace

Grid<double> blockSums(const Grid<double> &density)
{
    const int width = density.width();
    const int height = density.height();
    const int begin = blockReach;
    const int end = height - blockReach;
    Grid<double> sums(width, height);
    Grid<double> latest(blockSide, height); ///< sums down the column x in column x mod 8
    for (int x = 0; x < width - 1; ++x) {
        sumDown(latest.column(x % blockSide), density.column(x), begin, end);
        const int center = x - (blockSide - blockReach - 1);
        if (center < blockReach)
            continue;
        BlockColumns columns{};
        for (int i = 0; i < blockSide; ++i)
            columns[static_cast<std::size_t>(i)] = latest.column((center - blockReach + i) % blockSide);
        sumAcross(sums.column(center), columns, begin, end);
    }
    return sums;
}

Maxima tileMaxima(const Grid<double> &values, int window)
{
    Maxima maxima;
    for (int x = 1; x < values.width() - window; x += window) {
        for (int y = 1; y < values.height() - window; y += window) {
            const std::optional<QPoint> maximum = tileMaximum(values, {x, y}, window);
            if (!maximum)
                continue;
            if (maxima.positions.size() < maximumCount)
                maxima.positions << *maximum;
            else
                ++maxima.dropped;
        }
    }
    return maxima;
}

QList<QPoint> distantMaxima(const QList<QPoint> &maxima, const Grid<double> &values, int window)
{
    const auto areNear = [window](QPoint a, QPoint b) {
        const QPoint distance = a - b;
        return QPoint::dotProduct(distance, distance) < window * window;
    };
    const auto valueAt = [&values](QPoint cell) { return values.at(cell.x(), cell.y()); };
    std::vector<bool> isCleared(static_cast<std::size_t>(maxima.size()));
    for (std::size_t a = 0; a < isCleared.size(); ++a) {
        for (std::size_t b = a + 1; b < isCleared.size() && !isCleared[a]; ++b) {
            const QPoint first = maxima[static_cast<qsizetype>(a)];
            const QPoint second = maxima[static_cast<qsizetype>(b)];
            if (!isCleared[b] && areNear(first, second))
                isCleared[valueAt(second) < valueAt(first) ? b : a] = true;
        }
    }
    QList<QPoint> kept;
    for (qsizetype i = 0; i < maxima.size(); ++i) {
        if (!isCleared[static_cast<std::size_t>(i)])
            kept << maxima[i];
    }
    return kept;
}

Grid<quint8> grownRegions(const Grid<double> &values, const QList<QPoint> &maxima, double share, int rings)
{
    Grid<quint8> marks(values.width(), values.height(), Outside);
    for (const QPoint maximum : maxima) {
        const double threshold = values.at(maximum.x(), maximum.y()) * share;
        if (!(threshold > 0) || marks.at(maximum.x(), maximum.y()) != Outside)
            continue;
        RingGrowth growth(values, marks, threshold);
        for (int radius = 1; radius < rings && growth.takeRing(maximum, radius); ++radius) {
        }
    }
    return marks;
}

Grid<quint8> closedHoles(Grid<quint8> marks)
{
    constexpr int enoughNeighbours = 6;
    const int end = endOfInterior(marks.height());
    std::vector<quint8> counts(static_cast<std::size_t>(marks.height()));
    for (int x = firstInterior; x < endOfInterior(marks.width()); ++x) {
        quint8 *column = marks.column(x);
        countBeside(counts.data(), marks.column(x - 1), column, marks.column(x + 1), firstInterior, end);
        for (int y = firstInterior; y < end; ++y) {
            if (column[y] == Outside && counts[static_cast<std::size_t>(y)] + column[y - 1] >= enoughNeighbours)
                column[y] = Inside;
        }
    }
    return marks;
}

Grid<quint8> withBorders(Grid<quint8> marks)
{
    const int end = endOfInterior(marks.height());
    for (int x = firstInterior; x < endOfInterior(marks.width()); ++x)
        markBorders(marks.column(x), marks.column(x - 1), marks.column(x + 1), firstInterior, end);
    return marks;
}

QList<QPolygon> contours(Grid<quint8> marks, int minimumVertices)
{
    QList<QPolygon> found;
    const int end = std::max(endOfInterior(marks.height()), firstInterior);
    const auto nextBorder = [&marks, end](int x, int y) {
        const quint8 *column = marks.column(x);
        return static_cast<int>(std::find(column + y, column + end, Border) - column);
    };
    for (int x = firstInterior; x < endOfInterior(marks.width()); ++x) {
        for (int y = nextBorder(x, firstInterior); y < end; y = nextBorder(x, y)) {
            const QPolygon contour = regionsteps::takeContour<quint8>(marks, {x, y}, Traced);
            if (contour.size() > minimumVertices)
                found << contour;
        }
    }
    return found;
}

} // namespace standardsearch
