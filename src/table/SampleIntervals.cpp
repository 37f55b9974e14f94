// SPDX-License-Identifier: GPL-3.0-or-later
#include "table/SampleIntervals.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double gapFromIntervals = 1.5;
constexpr double regularUpToMedians = 2.0;
/// Two rounded ends move a step by less than 1 ms; the rest is for an interval that is itself only measured.
constexpr double roundingMs = 0.9;

} // namespace

void SampleIntervals::add(qint64 stepMs)
{
    if (stepMs >= 0 && stepMs <= longestMs) { // nearly every step
        ++m_bins[static_cast<size_t>(stepMs)].steps;
        return;
    }
    if (stepMs < 0) {
        ++m_backward;
        return;
    }
    ++m_long;
    m_longSumMs += static_cast<double>(stepMs);
    m_longestMs = std::max(m_longestMs, stepMs);
}

void SampleIntervals::addDistance(qint64 stepMs, double squaredPx)
{
    if (stepMs < 0 || stepMs > longestMs)
        return;
    Bin &bin = m_bins[static_cast<size_t>(stepMs)];
    ++bin.distances;
    bin.squaredPx += squaredPx;
}

SampleIntervals::Moments SampleIntervals::momentsUpTo(double mostMs) const
{
    Moments moments;
    for (size_t ms = 0; ms < m_bins.size() && static_cast<double>(ms) <= mostMs; ++ms) {
        const auto steps = static_cast<double>(m_bins[ms].steps);
        const auto length = static_cast<double>(ms);
        moments.count += steps;
        moments.sum += steps * length;
        moments.squares += steps * length * length;
    }
    return moments;
}

/// Of the steps that go on in time, the lower one of two in the middle; 0 without any.
qint64 SampleIntervals::medianStepMs() const
{
    qint64 all = 0;
    for (size_t ms = 1; ms < m_bins.size(); ++ms)
        all += m_bins[ms].steps;
    qint64 passed = 0;
    for (size_t ms = 1; ms < m_bins.size(); ++ms) {
        passed += m_bins[ms].steps;
        if (all > 0 && 2 * passed >= all)
            return static_cast<qint64>(ms);
    }
    return 0;
}

std::optional<SampleIntervals::Rate> SampleIntervals::rate() const
{
    const qint64 median = medianStepMs();
    if (median == 0)
        return {};
    const Moments regular = momentsUpTo(regularUpToMedians * static_cast<double>(median));
    const double roughMs = regular.sum / regular.count;
    Rate rate;
    rate.gapAfterMs = std::max(gapFromIntervals * roughMs, roughMs + roundingMs);
    const Moments kept = momentsUpTo(rate.gapAfterMs);
    constexpr double msPerSecond = 1000;
    rate.intervalMs = kept.sum / kept.count;
    rate.hz = msPerSecond / rate.intervalMs;
    rate.jitterMs = std::sqrt(std::max(0.0, kept.squares / kept.count - rate.intervalMs * rate.intervalMs));
    const Moments all = momentsUpTo(static_cast<double>(longestMs));
    const double gaps = all.count - kept.count + static_cast<double>(m_long);
    rate.gaps = std::llround(gaps);
    rate.gapTimeMs = all.sum - kept.sum + m_longSumMs - gaps * rate.intervalMs;
    rate.longestGapMs = m_longestMs;
    for (size_t ms = m_bins.size(); ms-- > 0 && rate.longestGapMs == 0 && static_cast<double>(ms) > rate.gapAfterMs;) {
        if (m_bins[ms].steps > 0)
            rate.longestGapMs = static_cast<qint64>(ms);
    }
    return rate;
}

std::optional<double> SampleIntervals::rootMeanSquarePx(double gapAfterMs) const
{
    qint64 count = 0;
    double sum = 0;
    for (size_t ms = 0; ms < m_bins.size() && static_cast<double>(ms) <= gapAfterMs; ++ms) {
        count += m_bins[ms].distances;
        sum += m_bins[ms].squaredPx;
    }
    if (count == 0)
        return {};
    return std::sqrt(sum / static_cast<double>(count));
}
