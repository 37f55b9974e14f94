// SPDX-License-Identifier: GPL-3.0-or-later
#include "aoi/generation/GradientSearch.h"

#include "aoi/generation/RegionSteps.h"
#include "density/DensityLoops.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace gradientsearch {

namespace {

using regionsteps::endOfInterior;
using regionsteps::firstInterior;

constexpr int kernelReach = 3;
constexpr int kernelSide = 2 * kernelReach; ///< the last row and column of the kernel are left out
constexpr int unreached = -1;               ///< label of a cell whose way up leads nowhere
constexpr int enoughOfOwnLabel = 5;

/// Weights for the offsets -3 to 2 of both axes, those in x first.
using Kernel = std::array<std::array<double, kernelSide>, kernelSide>;

Kernel smoothingKernel()
{
    constexpr double twiceVariance = 50; // 5 px
    constexpr double norm = std::numbers::pi * twiceVariance;
    const auto weight = [](int i, int j) { return std::exp(-(i * i + j * j) / twiceVariance) / norm; };
    const double lowest = weight(-kernelReach, 1); // cuts the square to a disc
    Kernel kernel{};
    for (int i = 0; i < kernelSide; ++i) {
        for (int j = 0; j < kernelSide; ++j) {
            const double value = weight(i - kernelReach, j - kernelReach);
            kernel[static_cast<std::size_t>(i)][static_cast<std::size_t>(j)] = value < lowest ? 0 : value;
        }
    }
    return kernel;
}

void smoothColumn(double *out, const Grid<double> &density, int x, const Kernel &kernel)
{
    const int count = density.height() - 2 * kernelReach;
    std::fill_n(out + kernelReach, count, 0.0);
    for (int i = 0; i < kernelSide; ++i) {
        for (int j = 0; j < kernelSide; ++j) {
            const double weight = kernel[static_cast<std::size_t>(i)][static_cast<std::size_t>(j)];
            if (weight > 0)
                densityloops::addScaled(out + kernelReach, density.column(x + i - kernelReach) + j, weight, count);
        }
    }
}

double higher(double a, double b)
{
    return a < b ? b : a;
}

double highestOf(const double *cells)
{
    return higher(higher(cells[-1], cells[0]), cells[1]);
}

/// Directions of the column's cells. The loop is free of jumps, so that it runs in vectors: what is as high as the
/// highest counts 1, all else 0.
void ascentsOfColumn(Direction *out, const double *left, const double *column, const double *right, int height)
{
    const auto whole = [](double sum, double count) {
        return static_cast<qint8>(2 * std::abs(sum) >= count ? (sum > 0) - (sum < 0) : 0);
    };
    for (int y = 1; y < height - 1; ++y) {
        const double highest = higher(higher(highestOf(left + y), highestOf(column + y)), highestOf(right + y));
        const auto is = [highest](double value) { return value == highest ? 1.0 : 0.0; };
        const double leftTop = is(left[y - 1]);
        const double leftBottom = is(left[y + 1]);
        const double rightTop = is(right[y - 1]);
        const double rightBottom = is(right[y + 1]);
        const double top = is(column[y - 1]);
        const double bottom = is(column[y + 1]);
        const double leftSum = leftTop + is(left[y]) + leftBottom;
        const double rightSum = rightTop + is(right[y]) + rightBottom;
        const double count = leftSum + rightSum + top + bottom + 2 * is(column[y]);
        out[y].x = whole(rightSum - leftSum, count);
        out[y].y = whole((leftBottom + bottom + rightBottom) - (leftTop + top + rightTop), count);
    }
}

/// The peaks that have labels, in the order in which they got them.
class LabelledPeaks {
public:
    /// The label of the last one in the square about the cell; 0 if there is none.
    int near(QPoint cell, int reach) const
    {
        for (auto peak = m_peaks.crbegin(); peak != m_peaks.crend() && peak->cell.x() >= cell.x() - reach; ++peak) {
            if (std::abs(peak->cell.y() - cell.y()) <= reach)
                return peak->label;
        }
        return 0;
    }

    void append(QPoint cell, int label) { m_peaks.push_back({cell, label}); }

private:
    struct Peak {
        QPoint cell;
        int label;
    };
    std::vector<Peak> m_peaks;
};

/// How many cells of the 3 x 3 about this one have its label.
int ownLabelCount(const Grid<int> &labels, QPoint cell)
{
    const int label = labels.at(cell.x(), cell.y());
    int count = 0;
    for (int x = cell.x() - 1; x <= cell.x() + 1; ++x) {
        const int *column = labels.column(x) + cell.y();
        count += (column[-1] == label) + (column[0] == label) + (column[1] == label);
    }
    return count;
}

bool isInside(const Grid<int> &labels, QPoint cell)
{
    return cell.x() >= 1 && cell.x() < labels.width() - 1 && cell.y() >= 1 && cell.y() < labels.height() - 1;
}

std::vector<QPoint> looseCells(const Grid<int> &labels)
{
    std::vector<QPoint> cells;
    for (int x = 1; x < labels.width() - 1; ++x) {
        const int *column = labels.column(x);
        for (int y = 1; y < labels.height() - 1; ++y) {
            if (column[y] > 0 && ownLabelCount(labels, {x, y}) < enoughOfOwnLabel)
                cells.emplace_back(x, y);
        }
    }
    return cells;
}

/// Whether the cell lies behind a corner of its label's border: both neighbours of the corner's sides have the label,
/// and the cell opposite of them has not.
bool isCornerOfStairs(const Grid<int> &labels, int x, int y)
{
    constexpr std::array<QPoint, 4> sides{QPoint(1, 1), QPoint(1, -1), QPoint(-1, -1), QPoint(-1, 1)};
    const int label = labels.at(x, y);
    return std::any_of(sides.begin(), sides.end(), [&](QPoint side) {
        return labels.at(x + side.x(), y) == label && labels.at(x, y + side.y()) == label &&
               labels.at(x - side.x(), y - side.y()) != label;
    });
}

} // namespace

Smoothed smoothed(const Grid<double> &density)
{
    const int width = density.width();
    const int height = density.height();
    const Kernel kernel = smoothingKernel();
    Smoothed result{Grid<double>(width, height)};
    for (int x = 1; x < width - 1; ++x) {
        double *out = result.values.column(x);
        std::copy(density.column(x) + 1, density.column(x) + std::max(height - 1, 1), out + 1);
        if (x < kernelReach || x >= width - kernelReach || height <= 2 * kernelReach)
            continue;
        smoothColumn(out, density, x, kernel);
        const int count = height - 2 * kernelReach;
        if (densityloops::isAnyAbove(out + kernelReach, result.highest, count))
            result.highest = *std::max_element(out + kernelReach, out + kernelReach + count);
    }
    return result;
}

Grid<Direction> ascents(const Grid<double> &values)
{
    Grid<Direction> directions(values.width(), values.height());
    for (int x = 1; x < values.width() - 1; ++x)
        ascentsOfColumn(directions.column(x), values.column(x - 1), values.column(x), values.column(x + 1),
                        values.height());
    return directions;
}

Peaks peaks(const Grid<double> &values, const Grid<Direction> &ascents, int reach)
{
    Peaks found{Grid<int>(values.width(), values.height()), {}};
    LabelledPeaks labelled;
    for (int x = reach; x < values.width() - reach; ++x) {
        for (int y = reach; y < values.height() - reach; ++y) {
            if (!(values.at(x, y) > 0) || !ascents.at(x, y).isStill())
                continue;
            int label = labelled.near({x, y}, reach);
            if (label == 0) {
                found.seeds << QPoint(x, y);
                label = static_cast<int>(found.seeds.size());
            }
            found.labels.at(x, y) = label;
            labelled.append({x, y}, label);
        }
    }
    return found;
}

Grid<int> flooded(Grid<int> labels, const Grid<Direction> &ascents)
{
    std::vector<int *> way;
    const auto follow = [&](QPoint cell) {
        while (isInside(labels, cell) && labels.at(cell.x(), cell.y()) == 0) {
            const Direction up = ascents.at(cell.x(), cell.y());
            int &label = labels.at(cell.x(), cell.y());
            label = unreached; // also ends a way that runs in a circle
            way.push_back(&label);
            cell += QPoint(up.x, up.y);
        }
        return labels.at(cell.x(), cell.y());
    };
    for (int x = 1; x < labels.width() - 1; ++x) {
        for (int y = 1; y < labels.height() - 1; ++y) {
            if (labels.at(x, y) != 0)
                continue;
            const int label = follow({x, y});
            for (int *cell : way)
                *cell = label > 0 ? label : unreached;
            way.clear();
        }
    }
    std::replace(labels.data(), labels.data() + labels.size(), unreached, 0);
    return labels;
}

Grid<int> eroded(Grid<int> labels)
{
    std::vector<QPoint> loose = looseCells(labels); // a work list: only neighbours of what was taken can become loose
    while (!loose.empty()) {
        const QPoint cell = loose.back();
        loose.pop_back();
        const int label = std::exchange(labels.at(cell.x(), cell.y()), 0);
        if (label == 0)
            continue;
        for (int dx = -1; dx <= 1; ++dx) {
            for (int dy = -1; dy <= 1; ++dy) {
                const QPoint beside = cell + QPoint(dx, dy);
                if (isInside(labels, beside) && labels.at(beside.x(), beside.y()) == label &&
                    ownLabelCount(labels, beside) < enoughOfOwnLabel)
                    loose.push_back(beside);
            }
        }
    }
    return labels;
}

Grid<int> hollowed(const Grid<int> &labels)
{
    constexpr int wholeBlock = 9;
    Grid<int> borders = labels;
    for (int x = 1; x < labels.width() - 1; ++x) {
        for (int y = 1; y < labels.height() - 1; ++y) {
            if (labels.at(x, y) > 0 && ownLabelCount(labels, {x, y}) == wholeBlock)
                borders.at(x, y) = 0;
        }
    }
    return borders;
}

Grid<int> thinned(Grid<int> labels)
{
    for (int x = 1; x < labels.width() - 1; ++x) {
        for (int y = 1; y < labels.height() - 1; ++y) {
            if (labels.at(x, y) > 0 && isCornerOfStairs(labels, x, y))
                labels.at(x, y) = 0;
        }
    }
    return labels;
}

QList<QPolygon> contours(Grid<int> borders, int minimumVertices)
{
    constexpr int traced = -1;
    QList<QPolygon> found;
    for (int x = firstInterior; x < endOfInterior(borders.width()); ++x) {
        for (int y = firstInterior; y < endOfInterior(borders.height()); ++y) {
            if (borders.at(x, y) <= 0)
                continue;
            const QPolygon contour = regionsteps::takeContour<int>(borders, {x, y}, traced);
            if (contour.size() > minimumVertices)
                found << contour;
        }
    }
    return found;
}

} // namespace gradientsearch
