// SPDX-License-Identifier: GPL-3.0-or-later
#include "detection/MedianBracket.h"

#include "detection/Median.h"

#include <array>

namespace {

/// Samples that are looked at for the rectangle; it reaches from the third smallest value to the third largest.
constexpr std::size_t probes = 9;
constexpr std::size_t lowProbe = 2;
constexpr std::size_t highProbe = probes - 1 - lowProbe;

} // namespace

void MedianBracket::clear()
{
    m_first = 0;
    m_end = 0;
}

void MedianBracket::removeBack(const WorkSample &sample, std::size_t index)
{
    if (m_end <= index)
        return;
    remove(sample);
    m_end = index;
}

std::optional<Bounds> MedianBracket::bounds(std::span<const WorkSample *const> samples, std::size_t first)
{
    const std::size_t count = samples.size() - first;
    if (count < probes)
        return std::nullopt;
    const std::size_t pending = (first - m_first) + (samples.size() - m_end);
    if (m_end <= first || pending > count) {
        choose(samples.subspan(first));
        m_first = first;
        m_end = first;
    }
    for (; m_end < samples.size(); ++m_end)
        add(*samples[m_end]);
    for (; m_first < first; ++m_first)
        remove(*samples[m_first]);
    const std::size_t most = (count - 1) / 2;
    const bool isProved =
        m_counts.left <= most && m_counts.right <= most && m_counts.above <= most && m_counts.below <= most;
    if (!isProved || !m_bounds.isOrdinary()) {
        clear(); // another rectangle next time
        return std::nullopt;
    }
    return m_bounds;
}

void MedianBracket::choose(std::span<const WorkSample *const> window)
{
    std::array<double, probes> x;
    std::array<double, probes> y;
    for (std::size_t i = 0; i < probes; ++i) {
        const WorkSample &probe = *window[i * (window.size() - 1) / (probes - 1)];
        x[i] = probe.x;
        y[i] = probe.y;
    }
    std::sort(x.begin(), x.end(), sortsBefore);
    std::sort(y.begin(), y.end(), sortsBefore);
    m_bounds = {x[lowProbe], x[highProbe], y[lowProbe], y[highProbe]};
    m_counts = {};
}

void MedianBracket::add(const WorkSample &sample)
{
    m_counts.left += sample.x < m_bounds.minX ? 1 : 0;
    m_counts.right += !(sample.x <= m_bounds.maxX) ? 1 : 0;
    m_counts.below += sample.y < m_bounds.minY ? 1 : 0;
    m_counts.above += !(sample.y <= m_bounds.maxY) ? 1 : 0;
}

void MedianBracket::remove(const WorkSample &sample)
{
    m_counts.left -= sample.x < m_bounds.minX ? 1 : 0;
    m_counts.right -= !(sample.x <= m_bounds.maxX) ? 1 : 0;
    m_counts.below -= sample.y < m_bounds.minY ? 1 : 0;
    m_counts.above -= !(sample.y <= m_bounds.maxY) ? 1 : 0;
}
