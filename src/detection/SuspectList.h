// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "detection/IndexQueue.h"
#include "detection/RadiusLimit.h"
#include "detection/SamplePreparation.h"

#include <QPointF>

#include <span>
#include <vector>

/// The samples of a window that have to be measured to count its outliers, while its median point moves little.
///
/// Samples up to radius minus slack from an anchor, a former median point, are within the radius of every point up to
/// the slack from the anchor. The others are the suspects. The slack is chosen so that they are few: of the order of
/// the square root of the window's size.
class SuspectList {
public:
    SuspectList(int radiusPx, const RadiusLimit &limit) : m_limit(limit), m_radius(radiusPx) {}

    void clear();

    /// @param squares  squared distances from the anchor of the samples from the place `first` on, px^2.
    void build(QPointF anchor, const std::vector<double> &squares, std::size_t first);

    /// Looks at the samples that were appended since it was last asked.
    void catchUp(std::span<const WorkSample *const> samples);
    void removeFront(std::size_t index) { m_suspects.removeFront(index); }
    void removeBack(std::size_t index)
    {
        m_suspects.removeBack(index);
        m_end = std::min(m_end, index);
    }

    /// The median point is near enough to the anchor, and the suspects have not become many.
    bool isValidFor(QPointF medianPoint) const;

    bool hasAtMost(std::size_t allowed, QPointF medianPoint, std::span<const WorkSample *const> samples) const;

private:
    bool isSuspect(double square) const { return !(square <= m_nearSquare); }

    RadiusLimit m_limit;
    double m_radius;         ///< px
    QPointF m_anchor;        ///< px
    double m_nearSquare = 0; ///< px^2; up to here from the anchor a sample is no suspect
    double m_slack = 0;      ///< px
    IndexQueue m_suspects;
    std::size_t m_end = 0;          ///< samples from this place on were not looked at
    std::size_t m_mostSuspects = 0; ///< with more than these a new anchor is due
    bool m_isBuilt = false;
};
