// SPDX-License-Identifier: GPL-3.0-or-later
#include "detection/RunningMedian.h"

#include "detection/Median.h"

#include <algorithm>
#include <cmath>

void RunningMedian::build(std::vector<double> values)
{
    const std::size_t count = values.size();
    // A share that keeps the building cheap in short windows; in long ones, as much as can be moved at an insertion.
    const auto most = static_cast<std::size_t>(2 * std::sqrt(static_cast<double>(count)));
    m_halfWidth = leastHalfWidth + std::min(count / 64, most);
    m_below = count / 2 > m_halfWidth ? count / 2 - m_halfWidth : 0;
    const std::size_t end = std::min(count, count / 2 + m_halfWidth);
    m_above = count - end;
    const auto at = [&values](std::size_t rank) { return values.begin() + static_cast<std::ptrdiff_t>(rank); };
    if (m_below > 0)
        std::nth_element(values.begin(), at(m_below), values.end(), sortsBefore);
    if (m_above > 0)
        std::nth_element(at(m_below), at(end), values.end(), sortsBefore);
    std::sort(at(m_below), at(end), sortsBefore);
    m_middle.assign(at(m_below), at(end));
}

void RunningMedian::add(double value)
{
    if (isLost())
        return;
    if (m_below > 0 && sortsBefore(value, m_middle.front()))
        ++m_below;
    else if (m_above > 0 && sortsBefore(m_middle.back(), value))
        ++m_above;
    else
        m_middle.insert(std::upper_bound(m_middle.begin(), m_middle.end(), value, sortsBefore), value);
}

void RunningMedian::remove(double value)
{
    if (isLost() || m_middle.empty())
        return;
    if (sortsBefore(value, m_middle.front()))
        --m_below;
    else if (sortsBefore(m_middle.back(), value))
        --m_above;
    else // equal values are as good as each other, wherever they are counted
        m_middle.erase(std::lower_bound(m_middle.begin(), m_middle.end(), value, sortsBefore));
}

std::optional<double> RunningMedian::median()
{
    const std::size_t count = m_below + m_middle.size() + m_above;
    if (m_middle.empty())
        return std::nullopt;
    const std::size_t lower = (count - 1) / 2;
    const std::size_t upper = count / 2;
    if (lower < m_below || upper >= m_below + m_middle.size())
        return std::nullopt;
    const double low = m_middle[lower - m_below];
    const double high = m_middle[upper - m_below];
    if (m_middle.size() > 6 * m_halfWidth)
        dropFarValues();
    return lower == upper ? low : (low + high) / 2;
}

void RunningMedian::dropFarValues()
{
    const std::size_t upper = (m_below + m_middle.size() + m_above) / 2 - m_below;
    const std::size_t first = upper > m_halfWidth ? upper - m_halfWidth : 0;
    const std::size_t end = std::min(m_middle.size(), upper + m_halfWidth);
    const std::vector<double> kept(m_middle.begin() + static_cast<std::ptrdiff_t>(first),
                                   m_middle.begin() + static_cast<std::ptrdiff_t>(end));
    m_below += first;
    m_above += m_middle.size() - end;
    m_middle = kept;
}
