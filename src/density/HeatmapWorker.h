// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "density/Density.h"
#include "density/DrawingWorker.h"

/// A worker of a heatmap: it fills its own columns of the density and nothing else, taking every event's part in them,
/// in the order of the events. So no cell depends on the number of workers, nor on who comes first.
///
/// Each start does one stage, and the next one begins when all workers have done theirs: what a worker made in one
/// stage its neighbours may read in the next.
class HeatmapWorker : public DrawingWorker {
public:
    HeatmapWorker(ColumnStripe stripe, Density &density) : m_stripe(stripe), m_density(density) {}

    /// Of the worker's stripe; known after the last stage.
    const DensityPeak &peak() const { return m_peak; }

protected:
    ColumnStripe stripe() const { return m_stripe; }
    Density &density() const { return m_density; }

    void clearStripe();
    void findPeak() { m_peak = peakWithin(m_density, m_stripe); }

    virtual void runStage(int stage) = 0;

private:
    void work() final { runStage(m_stage++); }

    ColumnStripe m_stripe;
    Density &m_density;
    DensityPeak m_peak;
    int m_stage = 0;
};

/// The peak of all stripes, which are given from left to right.
template <class Worker>
DensityPeak peakOf(const std::vector<std::unique_ptr<Worker>> &workers)
{
    DensityPeak peak;
    for (const auto &worker : workers) {
        if (worker->peak().value > peak.value)
            peak = worker->peak();
    }
    return peak;
}
