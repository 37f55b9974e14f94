// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

/// The exact median of a multiset of numbers that grows and shrinks one by one, in the order of `sortsBefore`.
///
/// Only the values around the middle rank are kept, sorted; of the others it is enough to know how many lie below and
/// above. A value seldom falls among those kept, so that an update is two comparisons. Where the median has wandered
/// out of the part that is kept, the caller builds it anew from all values: after m updates at the earliest, if m
/// values are kept around the median, with m of the order of the square root of their number.
class RunningMedian {
public:
    /// Takes over the values, in any order.
    void build(std::vector<double> values);

    void add(double value);

    /// Takes out a value that is in the multiset.
    void remove(double value);

    /// The median; nothing where it is no longer among the values kept, or where there are no values at all.
    std::optional<double> median();

private:
    /// Nothing is left that tells on which side of the middle a value lies.
    bool isLost() const { return m_middle.empty() && m_below + m_above > 0; }
    void dropFarValues();

    static constexpr std::size_t leastHalfWidth = 8;

    std::size_t m_below = 0;      ///< count of values that sort before those kept, or equal the first of them
    std::size_t m_above = 0;      ///< the same on the other side
    std::vector<double> m_middle; ///< sorted
    std::size_t m_halfWidth = leastHalfWidth; ///< values kept on each side of the median when built
};
