// SPDX-License-Identifier: GPL-3.0-or-later
#include "gaze-simulator/SaliencyMap.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

constexpr int cellsOnLongSide = 96;
constexpr int centerRadius = 1;                      // cells
constexpr std::array<int, 2> surroundRadii = {3, 7}; // cells
constexpr double halfContrast = 0.55; // of the greatest: above it one object is hardly better than another
constexpr double leastVisible = 10;   // sum of colour levels; a plain picture is not looked at for its rounding errors
constexpr double leastWeight = 0.004; // of the greatest: even plain sky is looked at now and then
constexpr double centerBiasWidth = 0.45; // of the canvas, each axis

size_t gridIndex(int column, int row, int columns)
{
    return static_cast<size_t>(row) * static_cast<size_t>(columns) + static_cast<size_t>(column);
}

/// One feature of the picture on the grid, with sums for boxes of any size at constant cost.
class FeaturePlane {
public:
    FeaturePlane(int columns, int rows, const std::vector<double> &values)
        : m_columns(columns)
        , m_rows(rows)
        , m_sums(index(0, rows + 1))
    {
        for (int row = 0; row < rows; ++row) {
            double rowSum = 0;
            for (int column = 0; column < columns; ++column) {
                rowSum += values[gridIndex(column, row, columns)];
                m_sums[index(column + 1, row + 1)] = m_sums[index(column + 1, row)] + rowSum;
            }
        }
    }

    /// Mean over the square around a cell, cut at the edges.
    double boxMean(int column, int row, int radius) const
    {
        const int left = std::max(column - radius, 0);
        const int right = std::min(column + radius + 1, m_columns);
        const int top = std::max(row - radius, 0);
        const int bottom = std::min(row + radius + 1, m_rows);
        const double sum = m_sums[index(right, bottom)] - m_sums[index(left, bottom)] - m_sums[index(right, top)] +
                           m_sums[index(left, top)];
        return sum / ((right - left) * (bottom - top));
    }

private:
    size_t index(int column, int row) const { return gridIndex(column, row, m_columns + 1); }

    int m_columns;
    int m_rows;
    std::vector<double> m_sums; // (columns + 1) * (rows + 1), sum of all above and left
};

SaliencyMap emptyMap(const QSize &canvas)
{
    SaliencyMap map;
    map.canvas = canvas;
    const int longSide = std::max(canvas.width(), canvas.height());
    map.cellPx = std::max((longSide + cellsOnLongSide - 1) / cellsOnLongSide, 1);
    map.columns = (canvas.width() + map.cellPx - 1) / map.cellPx;
    map.rows = (canvas.height() + map.cellPx - 1) / map.cellPx;
    map.weights.assign(map.index(0, map.rows), 1.0);
    return map;
}

/// Mean red, green and blue of each cell, 0 to 255. Sums are whole numbers, so their order does not matter.
std::array<std::vector<double>, 3> cellColors(const QImage &image, const SaliencyMap &map)
{
    std::array<std::vector<double>, 3> colors;
    std::ranges::fill(colors, std::vector<double>(map.weights.size(), 0.0));
    std::vector<double> counts(map.weights.size(), 0.0);
    const QImage pixels = image.convertToFormat(QImage::Format_RGB32);
    for (int y = 0; y < pixels.height(); ++y) {
        const auto *line = reinterpret_cast<const QRgb *>(pixels.constScanLine(y));
        for (int x = 0; x < pixels.width(); ++x) {
            const auto cell = map.index(x / map.cellPx, y / map.cellPx);
            colors[0][cell] += qRed(line[x]);
            colors[1][cell] += qGreen(line[x]);
            colors[2][cell] += qBlue(line[x]);
            counts[cell] += 1;
        }
    }
    for (std::vector<double> &plane : colors) {
        for (size_t cell = 0; cell < plane.size(); ++cell)
            plane[cell] /= counts[cell];
    }
    return colors;
}

/// Lightness, red against green, blue against yellow.
std::array<FeaturePlane, 3> features(const QImage &image, const SaliencyMap &map)
{
    auto [red, green, blue] = cellColors(image, map);
    for (size_t cell = 0; cell < red.size(); ++cell) {
        const double r = red[cell];
        const double g = green[cell];
        const double b = blue[cell];
        red[cell] = (r + g + b) / 3;
        green[cell] = r - g;
        blue[cell] = b - (r + g) / 2;
    }
    return {FeaturePlane(map.columns, map.rows, red), FeaturePlane(map.columns, map.rows, green),
            FeaturePlane(map.columns, map.rows, blue)};
}

double contrastAt(const std::array<FeaturePlane, 3> &planes, int column, int row)
{
    double contrast = 0;
    for (const FeaturePlane &plane : planes) {
        const double center = plane.boxMean(column, row, centerRadius);
        for (const int radius : surroundRadii)
            contrast += std::abs(center - plane.boxMean(column, row, radius));
    }
    return contrast;
}

/// Falls from 1 in the centre to a bit less than half at the middle of an edge.
double centerBias(const SaliencyMap &map, int column, int row)
{
    const QPointF at = map.cellCenter(column, row);
    const double x = (at.x() / map.canvas.width() - 0.5) / centerBiasWidth;
    const double y = (at.y() / map.canvas.height() - 0.5) / centerBiasWidth;
    return 1 / (1 + x * x + y * y);
}

void applyCenterBias(SaliencyMap &map)
{
    for (int row = 0; row < map.rows; ++row) {
        for (int column = 0; column < map.columns; ++column)
            map.weights[map.index(column, row)] *= centerBias(map, column, row);
    }
}

} // namespace

size_t SaliencyMap::index(int column, int row) const
{
    return gridIndex(column, row, columns);
}

QPointF SaliencyMap::cellCenter(int column, int row) const
{
    return {(column + 0.5) * cellPx, (row + 0.5) * cellPx};
}

SaliencyMap imageSaliency(const QImage &image)
{
    if (image.isNull())
        return {};
    SaliencyMap map = emptyMap(image.size());
    const std::array<FeaturePlane, 3> planes = features(image, map);
    double greatest = leastVisible;
    for (int row = 0; row < map.rows; ++row) {
        for (int column = 0; column < map.columns; ++column) {
            double &weight = map.weights[map.index(column, row)];
            weight = contrastAt(planes, column, row);
            greatest = std::max(greatest, weight);
        }
    }
    for (double &weight : map.weights) {
        const double contrast = weight / greatest;
        const double cubed = contrast * contrast * contrast;
        weight = cubed / (cubed + halfContrast * halfContrast * halfContrast) + leastWeight;
        weight = std::min(weight, 1.0);
    }
    applyCenterBias(map);
    return map;
}

SaliencyMap plainSaliency(const QSize &canvas)
{
    SaliencyMap map = emptyMap(canvas);
    applyCenterBias(map);
    return map;
}
