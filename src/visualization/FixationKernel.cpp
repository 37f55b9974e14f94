#include "visualization/FixationKernel.h"

#include "visualization/DensityLoops.h"

#include <QtEndian>

#include <algorithm>
#include <bit>
#include <climits>
#include <cmath>
#include <cstring>
#include <limits>
#include <numbers>

namespace {

constexpr int firstInside = 1; // the outermost rows and columns of the raster are not filled
constexpr int lastInside = FixationKernel::side - 2;

bool addsAnything(const FixationEvent &event)
{
    const bool hasAxes = (event.firstX != 0 || event.firstY != 0) && (event.secondX != 0 || event.secondY != 0);
    return hasAxes && event.durationMs > 0;
}

// The product of two exponentials and the exponential of the sum differ in the last bits. Where that could decide
// whether a step is inside, or where values lose digits near the smallest double, the step is computed as defined.
constexpr double doubt = 1e-9;               // relative, of the exponent
constexpr double smallestLog = -644;         // exp() of it is 1e-280
constexpr double largestExponent = 2 * 750.; // exp(-750) is 0

} // namespace

/// What the steps of one event share. A step (i, j) is i px along the first axis and j px along the second.
struct FixationKernel::Shape {
    Shape(const FixationEvent &event, int width, int sigma)
    {
        const double firstX = event.firstX;
        const double firstY = event.firstY;
        const double secondX = event.secondX;
        const double secondY = event.secondY;
        const double firstLength = std::sqrt(firstX * firstX + firstY * firstY);
        firstVariance = sigma * firstLength;
        secondVariance = sigma * std::sqrt(secondX * secondX + secondY * secondY);
        double angle = std::acos(firstX / firstLength);
        if (firstY < 0)
            angle = 2 * std::numbers::pi - angle;
        cosine = std::cos(angle);
        sine = std::sin(angle);
        norm = 2 * std::numbers::pi * firstVariance * secondVariance;
        durationMs = event.durationMs;
        const double rim = (width + 1.0) * (width + 1.0);
        floor = std::exp(-0.5 * rim / firstVariance) / norm * durationMs;
        const double rimExponent = rim / firstVariance;
        sureExponent = std::min(rimExponent * (1 - doubt), 2 * (std::log(durationMs / norm) - smallestLog));
        possibleExponent = std::min(rimExponent * (1 + doubt), largestExponent);
    }

    double valueAt(double i, double j) const
    {
        return std::exp(-0.5 * (j * j / secondVariance + i * i / firstVariance)) / norm * durationMs;
    }

    /// The largest j whose exponent is at most the given one; -1 if there is none.
    double largestJ(double exponent, double i) const
    {
        const double square = secondVariance * (exponent - i * i / firstVariance);
        return square < 0 ? -1 : std::sqrt(square);
    }

    double firstVariance;
    double secondVariance;
    double cosine;
    double sine;
    double norm;
    double durationMs;
    double floor;            ///< smaller values are left out
    double sureExponent;     ///< x in exp(-0.5 * x); up to here a step is inside for certain
    double possibleExponent; ///< beyond it a step is outside for certain, or its value is 0
};

/// No value of the raster is farther from its centre. The steps end with the Gaussian and with the width; filling goes
/// on as long as halving the largest value leaves it above the floor.
int FixationKernel::reachX(const FixationEvent &event) const
{
    if (!addsAnything(event))
        return -1;
    const Shape shape(event, m_width, m_sigma);
    const double cosSquare = shape.cosine * shape.cosine;
    const double sinSquare = shape.sine * shape.sine;
    const double inGaussian =
        std::sqrt(shape.possibleExponent * (shape.firstVariance * cosSquare + shape.secondVariance * sinSquare));
    const double inWidth = m_width * (std::abs(shape.cosine) + std::abs(shape.sine));
    const double filled = shape.possibleExponent / 2 / std::numbers::ln2;
    constexpr double rounding = 4;
    return static_cast<int>(std::min<double>(center, std::min(inGaussian, inWidth) + filled + rounding));
}

FixationKernel::FixationKernel(const NormalDistribution &size) : m_width(size.width), m_sigma(size.sigma)
{
    for (auto *table : {&m_alongSecond, &m_jCos, &m_jSin, &m_values})
        table->resize(static_cast<std::size_t>(2 * m_width));
    m_targets.resize(m_values.size());
}

bool FixationKernel::build(const FixationEvent &event)
{
    clear();
    if (!addsAnything(event))
        return false;
    const Shape shape(event, m_width, m_sigma);
    for (int j = -m_width; j < m_width; ++j) {
        const auto index = static_cast<std::size_t>(j + m_width);
        m_alongSecond[index] = std::exp(-0.5 * j * j / shape.secondVariance);
        m_jCos[index] = j * shape.cosine;
        m_jSin[index] = j * shape.sine;
    }
    for (int i = -m_width; i < m_width; ++i)
        drawRow(shape, i);
    fillHoles(shape.floor);
    return true;
}

void FixationKernel::clear()
{
    for (int row = m_extent.firstRow; row <= m_extent.lastRow; ++row)
        std::fill_n(&m_cells[static_cast<std::size_t>(row * side + m_extent.firstColumn)],
                    m_extent.lastColumn - m_extent.firstColumn + 1, 0.0);
    m_extent = {};
}

/// Steps in the order of j, so that in the end the first one in the order of i and j has its cell.
void FixationKernel::drawRow(const Shape &shape, int i)
{
    const double possible = shape.largestJ(shape.possibleExponent, i);
    if (possible < 0)
        return;
    const auto within = [this](double j) { return static_cast<int>(std::min<double>(j, m_width)); };
    const int outer = within(possible + 1);
    const int inner = within(shape.largestJ(shape.sureExponent, i)); // -1: no step is sure
    const double alongFirst = std::exp(-0.5 * i * i / shape.firstVariance) / shape.norm * shape.durationMs;
    const auto value = [&](int j) -> double & { return m_values[static_cast<std::size_t>(j + m_width)]; };
    const auto settleDoubt = [&](int first, int last) {
        for (int j = first; j <= last; ++j) {
            const double exact = shape.valueAt(i, j);
            value(j) = exact >= shape.floor ? exact : 0; // a 0 leaves its cell free for a later step
        }
    };
    const int first = std::max(-outer, -m_width);
    const int last = std::min(outer, m_width - 1);
    const int firstSure = std::max(-inner, -m_width);
    const int lastSure = std::min(inner, m_width - 1);
    if (inner < 0) {
        settleDoubt(first, last);
    } else {
        settleDoubt(first, firstSure - 1);
        densityloops::scaled(&value(firstSure), &m_alongSecond[static_cast<std::size_t>(firstSure + m_width)],
                             alongFirst, lastSure - firstSure + 1);
        settleDoubt(lastSure + 1, last);
    }
    drawSteps(shape, i, first, last);
}

void FixationKernel::drawSteps(const Shape &shape, int i, int firstJ, int lastJ)
{
    const auto begin = static_cast<std::size_t>(firstJ + m_width);
    const auto end = static_cast<std::size_t>(lastJ + m_width) + 1;
    const double iCos = i * shape.cosine;
    const double iSin = i * shape.sine;
    densityloops::rotatedCells(&m_targets[begin], &m_jCos[begin], &m_jSin[begin], iCos, iSin,
                               static_cast<int>(end - begin));
    for (std::size_t step = begin; step < end; ++step) {
        double &cell = m_cells[static_cast<std::size_t>(m_targets[step])];
        cell = cell == 0 ? m_values[step] : cell; // the first one stays
    }
    for (const std::size_t step : {begin, end - 1}) // along a line rows and columns change in one direction
        grow(m_targets[step] / side, m_targets[step] % side);
}

void FixationKernel::grow(int row, int column)
{
    m_extent.firstRow = std::min(m_extent.firstRow, row);
    m_extent.lastRow = std::max(m_extent.lastRow, row);
    m_extent.firstColumn = std::min(m_extent.firstColumn, column);
    m_extent.lastColumn = std::max(m_extent.lastColumn, column);
}

/// Cells are filled row by row, and a filled one counts as a neighbour of those after it. So the raster can grow to the
/// right and downwards, as far as the means stay above the floor, but no further than one cell to the left and upwards.
void FixationKernel::fillHoles(double floor)
{
    if (m_extent.lastRow < 0)
        return;
    m_extent = {.firstRow = std::max(m_extent.firstRow - 1, firstInside),
                .lastRow = m_extent.lastRow,
                .firstColumn = std::max(m_extent.firstColumn - 1, firstInside),
                .lastColumn = std::min(m_extent.lastColumn + 1, lastInside)};
    // A neighbour of 0 never counts, not even where the floor is no double any more: its share of the mean is 0.
    m_lowest = std::max(floor, std::numeric_limits<double>::denorm_min());
    for (int row = m_extent.firstRow; row <= m_extent.lastRow; ++row) {
        fillRow(row);
        if (row == m_extent.lastRow && row < lastInside && isAnyInside(row))
            ++m_extent.lastRow;
    }
}

void FixationKernel::fillRow(int row)
{
    double *cells = &m_cells[static_cast<std::size_t>(row * side)];
    quint8 *holes = m_holes.data();
    const int first = m_extent.firstColumn;
    const int last = m_extent.lastColumn;
    if (!densityloops::findEmptyBeside(holes + first, cells + first, side, m_lowest, last - first + 1))
        return;
    std::fill_n(holes + last + 1, sizeof(quint64), quint8(0)); // flags are looked at eight at a time
    for (int column = first; column <= last; column += sizeof(quint64)) {
        quint64 flags;
        std::memcpy(&flags, holes + column, sizeof flags);
        for (flags = qFromLittleEndian(flags); flags != 0; flags &= flags - 1)
            fillFrom(cells, column + std::countr_zero(flags) / CHAR_BIT);
    }
}

/// Fills a cell, unless it was filled already, and those to the right that become holes by that.
void FixationKernel::fillFrom(double *cells, int column)
{
    const auto fill = [](double *cell) { *cell = (cell[-1] + cell[1] + cell[-side] + cell[side]) * 0.25; };
    if (cells[column] != 0)
        return;
    fill(cells + column);
    while (column < lastInside && cells[column] >= m_lowest && cells[column + 1] == 0)
        fill(cells + ++column);
    m_extent.lastColumn = std::max(m_extent.lastColumn, column);
}

bool FixationKernel::isAnyInside(int row) const
{
    const double *cells = this->row(row);
    return std::any_of(cells + m_extent.firstColumn, cells + m_extent.lastColumn + 1,
                       [this](double cell) { return cell >= m_lowest; });
}

double FixationKernel::mass() const
{
    double sum = 0;
    for (int row = m_extent.firstRow; row <= m_extent.lastRow; ++row)
        sum += densityloops::sum(&m_cells[static_cast<std::size_t>(row * side + m_extent.firstColumn)],
                                 m_extent.lastColumn - m_extent.firstColumn + 1);
    return sum;
}
