// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/heatmap/HeatmapColoring.h"

#include "density/DensityLoops.h"
#include "density/DrawingWorker.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int lastColor = 255;
constexpr int belowIndex = 256; ///< stands for the colour of all other cells

/// Colours its columns. They lie in memory across the rows of the image, so some are taken together.
class worker_heatmap_coloring : public DrawingWorker { // NOLINT(readability-identifier-naming): like its fellow workers
public:
    worker_heatmap_coloring(ColumnStripe stripe, const Density &density, const DensityColoring &coloring, QRgb *pixels)
        : m_stripe(stripe)
        , m_density(density)
        , m_coloring(coloring)
        , m_pixels(pixels)
    {
        std::copy(coloring.colors.cbegin(), coloring.colors.cend(), m_colors.begin());
        m_colors[belowIndex] = coloring.below;
    }

private:
    static constexpr int columnsAtOnce = 16; ///< a line of the processor's cache, in pixels

    static std::size_t indexOf(int column, int y)
    {
        return static_cast<std::size_t>(column) * canvas::height + static_cast<std::size_t>(y);
    }

    void work() override
    {
        std::vector<quint16> indices(indexOf(columnsAtOnce, 0));
        for (int x = m_stripe.begin; x < m_stripe.end; x += columnsAtOnce) {
            const int columns = std::min(columnsAtOnce, m_stripe.end - x);
            for (int i = 0; i < columns; ++i)
                densityloops::colorIndices(&indices[indexOf(i, 0)], m_density.column(x + i), canvas::height, steps());
            for (int y = 0; y < canvas::height; ++y) {
                QRgb *out = m_pixels + std::ptrdiff_t{y} * canvas::width + x;
                for (int i = 0; i < columns; ++i)
                    out[i] = m_colors[indices[indexOf(i, y)]];
            }
        }
    }

    densityloops::ColorSteps steps() const
    {
        return {.gain = m_coloring.gain,
                .limit = m_coloring.limit,
                .unit = m_coloring.unit,
                .steps = m_coloring.steps,
                .lowest = m_coloring.lowest,
                .highest = lastColor,
                .below = belowIndex};
    }

    ColumnStripe m_stripe;
    const Density &m_density;
    const DensityColoring &m_coloring;
    QRgb *m_pixels; ///< of the whole canvas
    std::array<QRgb, belowIndex + 1> m_colors;
};

} // namespace

QImage coloredDensity(const Density &density, const DensityColoring &coloring, int workers)
{
    QImage image(canvas::width, canvas::height, QImage::Format_ARGB32);
    auto *pixels = reinterpret_cast<QRgb *>(image.bits());
    std::vector<std::unique_ptr<worker_heatmap_coloring>> threads;
    for (const ColumnStripe stripe : columnStripes(workers))
        threads.push_back(std::make_unique<worker_heatmap_coloring>(stripe, density, coloring, pixels));
    DrawingWorker::runAll(threads);
    return image;
}

std::array<QRgb, 256> colorsOf(const QImage &table)
{
    std::array<QRgb, 256> colors;
    for (int i = 0; i <= lastColor; ++i)
        colors[static_cast<std::size_t>(i)] = table.pixel(i, 0);
    return colors;
}

std::array<QRgb, 256> shadowVeil(int steps, int alpha, double power)
{
    std::array<QRgb, 256> veil;
    for (int step = 0; step <= lastColor; ++step) {
        const double logarithm = step > 1 ? std::log(std::min(step, steps)) : 0;
        const double opened =
            logarithm > 0 ? std::trunc(std::pow(logarithm, power) / std::pow(std::log(steps), power) * alpha) : 0;
        veil[static_cast<std::size_t>(step)] = qRgba(0, 0, 0, alpha - static_cast<int>(opened));
    }
    return veil;
}
