// SPDX-License-Identifier: GPL-3.0-or-later
#include "aoi/generation/DiscDensity.h"

#include "aoi/generation/Grid.h"
#include "density/DensityLoops.h"
#include "density/HeatmapWorker.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

/// The weights of the disc, those of one offset in x in one column.
class Disc {
public:
    explicit Disc(const NormalDistribution &kernel)
        : m_reach(kernel.width / 2)
        , m_weights(2 * m_reach + 1, 2 * m_reach + 1)
    {
        const double variance = static_cast<double>(kernel.sigma) * kernel.sigma;
        const int largestSquare = m_reach * m_reach + 1;
        for (int a = -m_reach; a <= m_reach; ++a) {
            int length = 0;
            for (int b = -m_reach; b <= m_reach; ++b) {
                const int square = a * a + b * b;
                if (square > largestSquare)
                    continue;
                m_weights.at(a + m_reach, b + m_reach) =
                    std::exp(-square / (2 * variance)) / (2 * std::numbers::pi * variance);
                length = std::max(length, b);
            }
            m_lengths.push_back(length);
        }
    }

    int reach() const { return m_reach; }
    /// How far the disc reaches in y at an offset in x.
    int lengthAt(int a) const { return m_lengths[static_cast<std::size_t>(std::ptrdiff_t{a} + m_reach)]; }
    /// The weight at the offset a in x and 0 in y; those beside it are the weights for other offsets in y.
    const double *middleAt(int a) const { return m_weights.column(a + m_reach) + m_reach; }

private:
    int m_reach;
    Grid<double> m_weights;
    std::vector<int> m_lengths;
};

/// How many events lie on each cell, of the canvas and of a margin of `reach` cells about it.
Grid<int> countsWithMargin(std::span<const GazePointEvent> events, int reach)
{
    Grid<int> counts(canvas::width + 2 * reach, canvas::height + 2 * reach);
    for (const GazePointEvent &event : events) {
        if (event.x >= -reach && event.x < canvas::width + reach && event.y >= -reach &&
            event.y < canvas::height + reach)
            ++counts.at(event.x + reach, event.y + reach);
    }
    return counts;
}

class worker_heatmap_AOI : public HeatmapWorker { // NOLINT(readability-identifier-naming)
public:
    worker_heatmap_AOI(ColumnStripe stripe, Density &density, const Grid<int> &counts, const Disc &disc)
        : HeatmapWorker(stripe, density)
        , m_counts(counts)
        , m_disc(disc)
    {
    }

private:
    void runStage(int stage) override
    {
        if (stage == 0) {
            clearStripe();
            return;
        }
        const int reach = m_disc.reach();
        for (int x = stripe().begin - reach; x < stripe().end + reach; ++x) {
            const int *counts = m_counts.column(x + reach);
            for (int y = -reach; y < canvas::height + reach; ++y) {
                if (counts[y + reach] > 0)
                    add(x, y, counts[y + reach]);
            }
        }
        findPeak();
    }

    void add(int x, int y, int count)
    {
        const int firstColumn = std::max({x - m_disc.reach(), stripe().begin, 1});
        const int lastColumn = std::min(x + m_disc.reach(), stripe().end - 1);
        for (int column = firstColumn; column <= lastColumn; ++column) {
            const int length = m_disc.lengthAt(column - x);
            const int first = std::max(y - length, 1);
            const int last = std::min(y + length, canvas::height - 1);
            if (first <= last)
                densityloops::addScaled(density().column(column) + first, m_disc.middleAt(column - x) + first - y,
                                        count, last - first + 1);
        }
    }

    const Grid<int> &m_counts;
    const Disc &m_disc;
};

} // namespace

Density discDensity(std::span<const GazePointEvent> events, const NormalDistribution &kernel, int workers)
{
    const Disc disc(kernel);
    const Grid<int> counts = countsWithMargin(events, disc.reach());
    Density density;
    std::vector<std::unique_ptr<worker_heatmap_AOI>> threads;
    for (const ColumnStripe stripe : columnStripes(workers))
        threads.push_back(std::make_unique<worker_heatmap_AOI>(stripe, density, counts, disc));
    constexpr int stages = 2;
    for (int stage = 0; stage < stages; ++stage)
        DrawingWorker::runAll(threads);
    density.setPeak(peakOf(threads));
    return density;
}
