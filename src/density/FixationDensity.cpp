// SPDX-License-Identifier: GPL-3.0-or-later
#include "density/FixationDensity.h"

#include "density/DensityLoops.h"
#include "density/HeatmapWorker.h"

#include <algorithm>

namespace {

class worker_fixation_heatmap : public HeatmapWorker { // NOLINT(readability-identifier-naming): its given name
public:
    worker_fixation_heatmap(ColumnStripe stripe, Density &density, std::span<const FixationEvent> events,
                            const NormalDistribution &kernel, FixationMass mass)
        : HeatmapWorker(stripe, density)
        , m_events(events)
        , m_kernel(kernel)
        , m_mass(mass)
    {
    }

private:
    void runStage(int stage) override
    {
        if (stage == 0) {
            clearStripe();
        } else {
            for (const FixationEvent &event : m_events) {
                if (mayReach(event) && m_kernel.build(event))
                    add(event);
            }
            findPeak();
        }
    }

    bool mayReach(const FixationEvent &event) const
    {
        const int reach = m_kernel.reachX(event);
        const qint64 x = event.x;
        const qint64 y = event.y;
        constexpr int reachY = FixationKernel::center;
        return reach >= 0 && x + reach >= stripe().begin && x - reach < stripe().end && y + reachY > 0 &&
               y - reachY < canvas::height;
    }

    void add(const FixationEvent &event)
    {
        const double factor = (m_mass == FixationMass::Duration ? event.durationMs : 1.0) / m_kernel.mass();
        const int left = event.x - FixationKernel::center; // canvas column of the kernel's row 0
        const int top = event.y - FixationKernel::center;
        const int firstRow = std::max(m_kernel.rows().first, stripe().begin - left);
        const int lastRow = std::min(m_kernel.rows().last, stripe().end - 1 - left);
        for (int row = firstRow; row <= lastRow; ++row) {
            const FixationKernel::Span &columns = m_kernel.columns(row);
            const int first = std::max(columns.first, -top);
            const int last = std::min(columns.last, canvas::height - 1 - top);
            if (first <= last)
                densityloops::addScaled(density().column(left + row) + top + first, m_kernel.row(row) + first, factor,
                                        last - first + 1);
        }
    }

    std::span<const FixationEvent> m_events;
    FixationKernel m_kernel;
    FixationMass m_mass;
};

} // namespace

Density fixationDensity(std::span<const FixationEvent> events, const NormalDistribution &kernel, FixationMass mass,
                        int workers)
{
    Density density;
    std::vector<std::unique_ptr<worker_fixation_heatmap>> threads;
    for (const ColumnStripe stripe : columnStripes(workers))
        threads.push_back(std::make_unique<worker_fixation_heatmap>(stripe, density, events, kernel, mass));
    constexpr int stages = 2;
    for (int stage = 0; stage < stages; ++stage)
        DrawingWorker::runAll(threads);
    density.setPeak(peakOf(threads));
    return density;
}
