#include "visualization/FixationDensity.h"

#include "visualization/DensityLoops.h"
#include "visualization/HeatmapWorker.h"

#include <algorithm>

namespace {

class worker_fixation_heatmap : public HeatmapWorker { // NOLINT(readability-identifier-naming): a name users know
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
        const FixationKernel::Extent &extent = m_kernel.extent();
        const double factor = (m_mass == FixationMass::Duration ? event.durationMs : 1.0) / m_kernel.mass();
        const int left = event.x - FixationKernel::center; // canvas column of the kernel's row 0
        const int top = event.y - FixationKernel::center;
        const int firstRow = std::max(extent.firstRow, stripe().begin - left);
        const int lastRow = std::min(extent.lastRow, stripe().end - 1 - left);
        const int firstColumn = std::max(extent.firstColumn, -top);
        const int count = std::min(extent.lastColumn, canvas::height - 1 - top) - firstColumn + 1;
        for (int row = firstRow; row <= lastRow; ++row)
            densityloops::addScaled(density().column(left + row) + top + firstColumn, m_kernel.row(row) + firstColumn,
                                    factor, count);
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
