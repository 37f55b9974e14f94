// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "detection/Bounds.h"
#include "detection/SamplePreparation.h"

#include <optional>
#include <span>

/// A small rectangle that holds the median point of a window, proved by counting the samples on each side of it. That
/// is far less work than the median point itself, and mostly as good.
///
/// The rectangle comes from the middle of a few samples. It is brought up to date when it is asked for.
class MedianBracket {
public:
    void clear();

    /// The sample at the place `index`, the last of the window, was taken.
    void removeBack(const WorkSample &sample, std::size_t index);

    /// Nothing where the counts do not prove that the median point of the samples from the place `first` on is inside.
    std::optional<Bounds> bounds(std::span<const WorkSample *const> samples, std::size_t first);

private:
    /// Samples beyond each side of the rectangle. What is not a number lies above, where it is sorted.
    struct Counts {
        std::size_t left = 0;
        std::size_t right = 0;
        std::size_t above = 0;
        std::size_t below = 0;
    };

    void choose(std::span<const WorkSample *const> window);
    void add(const WorkSample &sample);
    void remove(const WorkSample &sample);

    Bounds m_bounds;
    Counts m_counts;
    std::size_t m_first = 0; ///< samples from here
    std::size_t m_end = 0;   ///< up to here, this one not included, are counted
};
