// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "detection/Bounds.h"
#include "detection/IndexQueue.h"
#include "detection/SamplePreparation.h"

#include <optional>
#include <span>
#include <vector>

/// What can be told about the outliers of a window without its median point.
///
/// The box holds samples that are all within the radius of each other; those that would make it too large are strays.
/// While less than half of the samples are strays, the middle values of both axes belong to the box, so that the median
/// point, wherever it is, lies inside: no sample of the box is an outlier, and the distance to the box decides about
/// nearly all strays. Taking samples away leaves the box as large as it was; that loosens the bounds, never breaks
/// them.
class CoreBox {
public:
    explicit CoreBox(const RadiusLimit &limit) : m_limit(limit) {}

    bool isBuilt() const { return m_isBuilt; }
    void clear();

    /// Gathers the box from the samples from the place `first` on, the newest first: in a window that slides out of a
    /// movement, the fixation to come is at the back.
    void build(std::span<const WorkSample *const> samples, std::size_t first);

    void append(const WorkSample &sample, std::size_t index)
    {
        ++m_changes;
        if (!isTaken(sample.x, sample.y))
            m_strays.append(index);
    }
    void removeFront(std::size_t index)
    {
        ++m_changes;
        m_strays.removeFront(index);
    }
    void removeBack(std::size_t index)
    {
        ++m_changes;
        m_strays.removeBack(index);
    }

    /// Samples appended or taken since the box was built.
    std::size_t changes() const { return m_changes; }

    /// The median point of the window of `count` samples is inside the box.
    bool holdsMedian(std::size_t count) const { return 2 * m_strays.size() < count; }

    const Bounds &bounds() const { return m_bounds; }

    std::size_t strayCount() const { return m_strays.size(); }
    /// There are no more strays than are worth looking at, one by one.
    bool hasFewStrays(std::size_t allowed) const { return m_strays.size() <= allowed + spareStrays; }

    /// Whether there are at most `allowed` outliers; nothing in doubt. Only while the box holds the median point.
    /// @param median  where the median point is known to be.
    std::optional<bool> hasAtMost(std::size_t allowed, const Bounds &median,
                                  std::span<const WorkSample *const> samples) const;

private:
    void gather(std::span<const WorkSample *const> samples, std::size_t first, const WorkSample &seed);
    bool isTaken(double x, double y) { return (!m_isEmpty && m_bounds.contains(x, y)) || extend(x, y); }
    bool extend(double x, double y);

    /// Strays that are looked at beyond the allowed number, before measuring all is the cheaper way.
    static constexpr std::size_t spareStrays = 32;

    RadiusLimit m_limit;
    Bounds m_bounds;
    IndexQueue m_strays;
    std::size_t m_changes = 0;
    bool m_isBuilt = false;
    bool m_isEmpty = true; ///< no sample was ever taken into the bounds
};
