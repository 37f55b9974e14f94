// SPDX-License-Identifier: GPL-3.0-or-later
#include "density/GazePointDensity.h"

#include "density/DensityLoops.h"
#include "density/HeatmapWorker.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <numeric>

namespace {

constexpr int blockRows = densityloops::blockRows;
constexpr int blocks = canvas::height / blockRows;
static_assert(blocks * blockRows == canvas::height);

/// Of a block, in a column.
std::ptrdiff_t firstRowOf(int block)
{
    return std::ptrdiff_t{block} * blockRows;
}

/// The counts smoothed down the columns, in blocks of rows: block b of column x at index (b * 2560 + x) * blockRows.
/// Only blocks that are marked as reached have values.
struct ColumnSums {
    static std::size_t indexOf(int b, int x)
    {
        return static_cast<std::size_t>(b) * canvas::width + static_cast<std::size_t>(x);
    }
    double *block(int b, int x) { return values.get() + indexOf(b, x) * blockRows; }

    std::unique_ptr<double[]> values = std::make_unique_for_overwrite<double[]>(canvas::pixels);
    std::vector<quint8> reached = std::vector<quint8>(std::size_t{blocks} * canvas::width); ///< index b * 2560 + x
};

/// How many points lie on each row of each column of a stripe, without the canvas in between.
class RowCounts {
public:
    RowCounts(std::span<const GazePointEvent> events, ColumnStripe stripe)
        : m_begins(static_cast<std::size_t>(stripe.end - stripe.begin) + 1)
    {
        const auto isInside = [stripe](const GazePointEvent &event) {
            return event.x >= stripe.begin && event.x < stripe.end && event.y > 0 && event.y < canvas::height;
        };
        for (const GazePointEvent &event : events) {
            if (isInside(event))
                ++m_begins[static_cast<std::size_t>(event.x - stripe.begin) + 1];
        }
        std::partial_sum(m_begins.begin(), m_begins.end(), m_begins.begin());
        m_rows.resize(m_begins.back());
        std::vector<std::size_t> next = m_begins;
        for (const GazePointEvent &event : events) {
            if (isInside(event))
                m_rows[next[static_cast<std::size_t>(event.x - stripe.begin)]++] = static_cast<quint16>(event.y);
        }
    }

    /// Rows of the column's points, one a point.
    std::span<const quint16> rowsOf(int columnOfStripe) const
    {
        const auto column = static_cast<std::size_t>(columnOfStripe);
        return std::span(m_rows).subspan(m_begins[column], m_begins[column + 1] - m_begins[column]);
    }

private:
    std::vector<std::size_t> m_begins; ///< of each column in `m_rows`, and the end
    std::vector<quint16> m_rows;
};

class worker_gazepoint_heatmap : public HeatmapWorker { // NOLINT(readability-identifier-naming): its given name
public:
    worker_gazepoint_heatmap(ColumnStripe stripe, Density &density, ColumnSums &sums,
                             std::span<const GazePointEvent> events, const NormalDistribution &kernel)
        : HeatmapWorker(stripe, density)
        , m_sums(sums)
        , m_events(events)
        , m_halfWidth(kernel.width / 2)
        , m_across(mirrored(gaussianProfile(m_halfWidth, kernel.sigma)))
        , m_down(m_across)
    {
        for (double &value : m_down)
            value /= 2 * std::numbers::pi * kernel.sigma * kernel.sigma;
    }

private:
    static std::vector<double> mirrored(const std::vector<double> &half)
    {
        std::vector<double> whole(half.rbegin(), half.rend());
        whole.insert(whole.end(), half.begin() + 1, half.end());
        return whole;
    }

    void runStage(int stage) override
    {
        if (stage == 0) {
            smoothColumns();
        } else {
            for (int block = 0; block < blocks; ++block)
                smoothAcross(block);
            findPeak();
        }
    }

    void smoothColumns()
    {
        const RowCounts counts(m_events, stripe());
        std::vector<int> countAt(canvas::height);
        for (int x = stripe().begin; x < stripe().end; ++x) {
            const std::span<const quint16> rows = counts.rowsOf(x - stripe().begin);
            if (rows.empty())
                continue;
            std::fill(countAt.begin(), countAt.end(), 0);
            for (const quint16 row : rows)
                ++countAt[row];
            smoothColumn(x, countAt);
        }
    }

    void smoothColumn(int x, const std::vector<int> &countAt)
    {
        std::array<double, canvas::height> sums{};
        for (int y = 1; y < canvas::height; ++y) {
            const int count = countAt[static_cast<std::size_t>(y)];
            if (count == 0)
                continue;
            const int reach = std::min({m_halfWidth, y, canvas::height - y}) - 1; // see positionsReaching
            densityloops::addScaled(&sums[static_cast<std::size_t>(y - reach)], &m_down[centerIndex() - size_t(reach)],
                                    count, 2 * reach + 1);
            for (int block = (y - reach) / blockRows; block <= (y + reach) / blockRows; ++block)
                m_sums.reached[ColumnSums::indexOf(block, x)] = 1;
        }
        for (int block = 0; block < blocks; ++block) {
            if (m_sums.reached[ColumnSums::indexOf(block, x)])
                std::copy_n(sums.cbegin() + firstRowOf(block), blockRows, m_sums.block(block, x));
        }
    }

    /// Also reads columns that other workers have smoothed: all of them had finished that stage before this one began.
    void smoothAcross(int block)
    {
        const quint8 *reached = &m_sums.reached[ColumnSums::indexOf(block, 0)];
        std::vector<int> columns;
        for (int x = std::max(0, stripe().begin - m_halfWidth); x < std::min(canvas::width, stripe().end + m_halfWidth);
             ++x) {
            if (reached[x])
                columns.push_back(x);
        }
        auto first = columns.cbegin();
        auto last = first;
        const auto shift = static_cast<int>(centerIndex());
        for (int x = stripe().begin; x < stripe().end; ++x) {
            const PositionRange sources = positionsReaching(x, canvas::width, m_halfWidth);
            first = std::find_if(first, columns.cend(), [&](int column) { return column >= sources.begin; });
            last = std::find_if(std::max(first, last), columns.cend(), [&](int c) { return c >= sources.end; });
            densityloops::weightedSum(density().column(x) + firstRowOf(block), m_sums.block(block, 0),
                                      columns.data() + (first - columns.cbegin()), static_cast<int>(last - first),
                                      m_across.data(), shift - x);
        }
    }

    std::size_t centerIndex() const { return static_cast<std::size_t>(m_halfWidth) - 1; }

    ColumnSums &m_sums;
    std::span<const GazePointEvent> m_events;
    int m_halfWidth;
    std::vector<double> m_across; ///< offsets from 1 - half width to half width - 1
    std::vector<double> m_down;   ///< the same over the kernel's norm
};

} // namespace

std::vector<double> gaussianProfile(int count, int sigma)
{
    std::vector<double> profile;
    profile.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        profile.push_back(std::exp(-static_cast<double>(i * i) / (2.0 * sigma * sigma)));
    return profile;
}

PositionRange positionsReaching(int cell, int size, int halfWidth)
{
    // Wanted are the p with |cell - p| < min(halfWidth, p, size - p). For p below the cell, |cell - p| < p means
    // p > cell / 2, and |cell - p| < halfWidth means p > cell - halfWidth; for p from the cell on, |cell - p| < p holds
    // for each cell but 0. The upper end is the lower one counted from the far edge.
    if (cell <= 0)
        return {0, 0};
    const int fromFarEdge = size - cell;
    const int begin = std::max(cell / 2, cell - halfWidth) + 1;
    const int end = size - std::max(fromFarEdge / 2, fromFarEdge - halfWidth);
    return {begin, end};
}

Density gazePointDensity(std::span<const GazePointEvent> events, const NormalDistribution &kernel, int workers)
{
    Density density;
    ColumnSums sums;
    std::vector<std::unique_ptr<worker_gazepoint_heatmap>> threads;
    for (const ColumnStripe stripe : columnStripes(workers))
        threads.push_back(std::make_unique<worker_gazepoint_heatmap>(stripe, density, sums, events, kernel));
    constexpr int stages = 2;
    for (int stage = 0; stage < stages; ++stage)
        DrawingWorker::runAll(threads);
    density.setPeak(peakOf(threads));
    return density;
}
