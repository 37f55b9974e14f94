// SPDX-License-Identifier: GPL-3.0-or-later
#include "density/FixationKernel.h"

#include "density/DensityLoops.h"

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
        table->resize(2 * static_cast<std::size_t>(m_width));
    m_targets.resize(m_values.size());
}

bool FixationKernel::build(const FixationEvent &event)
{
    clear();
    if (!addsAnything(event))
        return false;
    const Shape shape(event, m_width, m_sigma);
    for (std::size_t index = 0; index < m_alongSecond.size(); ++index) {
        const int j = static_cast<int>(index) - m_width;
        m_alongSecond[index] = std::exp(-0.5 * j * j / shape.secondVariance);
        m_jCos[index] = j * shape.cosine;
        m_jSin[index] = j * shape.sine;
    }
    for (int i = m_width - 1; i >= -m_width; --i)
        drawRow(shape, i);
    findColumns(shape);
    fillHoles(shape.floor);
    return true;
}

void FixationKernel::clear()
{
    for (int row = m_rows.first; row <= m_rows.last; ++row) {
        Span &columns = columnsOf(row);
        if (!columns.isEmpty())
            std::fill_n(&m_cells[rowStart(row) + static_cast<std::size_t>(columns.first)], columns.count(), 0.0);
        columns = {};
    }
    m_rows = {};
}

/// Sets the columns that steps can hit in each row, a little wide. In x and y the exponent is a x^2 + 2 b x y + c y^2.
void FixationKernel::findColumns(const Shape &shape)
{
    const double b = shape.cosine * shape.sine * (1 / shape.firstVariance - 1 / shape.secondVariance);
    const double c = shape.sine * shape.sine / shape.firstVariance + shape.cosine * shape.cosine / shape.secondVariance;
    const double determinant = 1 / (shape.firstVariance * shape.secondVariance);
    const double margin = std::abs(b / c) + 3; // a row takes in what is less than 1 px from it
    const auto columnAt = [](double y) { return static_cast<int>(std::clamp(y + center, 0.0, side - 1.0)); };
    for (int row = m_rows.first; row <= m_rows.last; ++row) {
        const double x = row - center;
        const double nearest = std::max(0.0, std::abs(x) - 1);
        const double square = c * shape.possibleExponent - determinant * nearest * nearest;
        const double reach = std::sqrt(std::max(0.0, square)) / c + margin;
        const double middle = -b * x / c;
        columnsOf(row) = {columnAt(middle - reach), columnAt(middle + reach)};
    }
}

/// The values of the steps (i, j) for all j that can be inside, and then the cells.
void FixationKernel::drawRow(const Shape &shape, int i)
{
    const double possible = shape.largestJ(shape.possibleExponent, i);
    if (possible < 0)
        return;
    const auto within = [this](double reach) {
        const int j = static_cast<int>(std::min<double>(reach, m_width));
        return Span{std::max(-j, -m_width), std::min(j, m_width - 1)};
    };
    const Span all = within(possible + 1);
    const double certain = shape.largestJ(shape.sureExponent, i);
    const Span sure = certain < 0 ? Span{all.last + 1, all.last} : within(certain);
    double *values = m_values.data() + m_width;
    const auto settleDoubt = [&](int first, int last) {
        for (int j = first; j <= last; ++j) {
            const double exact = shape.valueAt(i, j);
            values[j] = exact >= shape.floor ? exact : 0;
        }
    };
    settleDoubt(all.first, sure.first - 1);
    const double alongFirst = std::exp(-0.5 * i * i / shape.firstVariance) / shape.norm * shape.durationMs;
    densityloops::scaled(values + sure.first, m_alongSecond.data() + sure.first + m_width, alongFirst, sure.count());
    settleDoubt(sure.last + 1, all.last);
    drawSteps(shape, i, all, sure);
}

/// Writes the steps from the last one to the first, so that of those on one cell the first one stays, and nobody has to
/// look whether the cell is empty. A step outside has the value 0 and must not write.
void FixationKernel::drawSteps(const Shape &shape, int i, const Span &all, const Span &sure)
{
    int *targets = m_targets.data() + m_width;
    const double *values = m_values.data() + m_width;
    double *cells = m_cells.data();
    densityloops::rotatedCells(targets + all.first, m_jCos.data() + m_width + all.first,
                               m_jSin.data() + m_width + all.first, i * shape.cosine, i * shape.sine, all.count());
    const auto writeDoubtful = [&](int last, int first) {
        for (int j = last; j >= first; --j) {
            if (values[j] > 0)
                cells[targets[j]] = values[j];
        }
    };
    writeDoubtful(all.last, sure.last + 1);
    for (int j = sure.last; j >= sure.first; --j)
        cells[targets[j]] = values[j];
    writeDoubtful(sure.first - 1, all.first);
    m_rows.include(targets[all.first] / side); // along a line rows change in one direction
    m_rows.include(targets[all.last] / side);
}

/// Cells are filled row by row, and a filled one counts as a neighbour of those after it. So the raster can grow to the
/// right and downwards, as far as the means stay above the floor, but no further than one cell to the left and upwards.
void FixationKernel::fillHoles(double floor)
{
    if (m_rows.isEmpty())
        return;
    // A neighbour of 0 never counts, not even where the floor is no double any more: its share of the mean is 0.
    m_lowest = std::max(floor, std::numeric_limits<double>::denorm_min());
    m_rows.first = std::max(m_rows.first - 1, firstInside);
    for (int row = m_rows.first; row <= m_rows.last; ++row) {
        Span columns = columnsOf(row);
        columns = columns.isEmpty() ? columns : Span{columns.first - 1, columns.last + 1};
        columns.include(columnsOf(row - 1));
        columns.include(columnsOf(row + 1));
        fillRow(row, {std::max(columns.first, firstInside), std::min(columns.last, lastInside)});
        if (row == m_rows.last && row < lastInside && isAnyInside(row))
            ++m_rows.last;
    }
}

void FixationKernel::fillRow(int row, const Span &columns)
{
    quint8 *holes = m_holes.data();
    const int first = columns.first;
    const int last = columns.last;
    if (!densityloops::findEmptyBeside(holes + first, this->row(row) + first, side, m_lowest, columns.count()))
        return;
    std::fill_n(holes + last + 1, sizeof(quint64), quint8(0)); // flags are looked at eight at a time
    for (int column = first; column <= last; column += sizeof(quint64)) {
        quint64 flags;
        std::memcpy(&flags, holes + column, sizeof flags);
        for (flags = qFromLittleEndian(flags); flags != 0; flags &= flags - 1)
            fillFrom(row, column + std::countr_zero(flags) / CHAR_BIT);
    }
}

/// Fills a cell, unless it was filled already, and those to the right that become holes by that.
void FixationKernel::fillFrom(int row, int column)
{
    double *cells = &m_cells[rowStart(row)];
    const auto fill = [](double *cell) { *cell = (cell[-1] + cell[1] + cell[-side] + cell[side]) * 0.25; };
    if (cells[column] != 0)
        return;
    fill(cells + column);
    columnsOf(row).include(column);
    while (column < lastInside && cells[column] >= m_lowest && cells[column + 1] == 0)
        fill(cells + ++column);
    columnsOf(row).include(column);
}

bool FixationKernel::isAnyInside(int row) const
{
    const double *cells = this->row(row);
    return std::any_of(cells + std::min(columns(row).first, side), cells + columns(row).last + 1,
                       [this](double cell) { return cell >= m_lowest; });
}

double FixationKernel::mass() const
{
    double sum = 0;
    for (int row = m_rows.first; row <= m_rows.last; ++row) {
        if (!columns(row).isEmpty())
            sum += densityloops::sum(this->row(row) + columns(row).first, columns(row).count());
    }
    return sum;
}
