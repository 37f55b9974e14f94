// SPDX-License-Identifier: GPL-3.0-or-later
#include "detection/CoreBox.h"

void CoreBox::clear()
{
    m_strays.clear();
    m_changes = 0;
    m_isBuilt = false;
    m_isEmpty = true;
}

void CoreBox::build(std::span<const WorkSample *const> samples, std::size_t first)
{
    gather(samples, first, *samples.back());
    if (!holdsMedian(samples.size() - first)) // the newest sample may be an outlier
        gather(samples, first, *samples[first + (samples.size() - first) / 2]);
}

void CoreBox::gather(std::span<const WorkSample *const> samples, std::size_t first, const WorkSample &seed)
{
    clear();
    m_isBuilt = true;
    isTaken(seed.x, seed.y);
    for (std::size_t index = samples.size(); index-- > first;) {
        if (!isTaken(samples[index]->x, samples[index]->y))
            m_strays.append(index);
    }
    m_strays.reverse();
}

bool CoreBox::extend(double x, double y)
{
    const Bounds larger = m_isEmpty ? Bounds{x, x, y, y} : m_bounds.including(x, y);
    if (!isOrdinary(x) || !isOrdinary(y) || !larger.fitWithin(m_limit))
        return false;
    m_bounds = larger;
    m_isEmpty = false;
    return true;
}

std::optional<bool> CoreBox::hasAtMost(std::size_t allowed, const Bounds &median,
                                       std::span<const WorkSample *const> samples) const
{
    if (m_strays.size() <= allowed)
        return true;
    std::size_t certain = 0;
    std::size_t doubtful = 0;
    const std::span<const std::size_t> strays = m_strays.all();
    for (const std::size_t index : strays.first(std::min(strays.size(), allowed + spareStrays))) {
        const std::optional<bool> outlier = median.isOutlier(m_limit, samples[index]->x, samples[index]->y);
        certain += outlier.value_or(false) ? 1 : 0;
        doubtful += outlier.has_value() ? 0 : 1;
        if (certain > allowed)
            return false;
    }
    if (hasFewStrays(allowed) && certain + doubtful <= allowed)
        return true;
    return std::nullopt;
}
