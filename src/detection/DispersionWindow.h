// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "detection/CoreBox.h"
#include "detection/MedianBracket.h"
#include "detection/RunningMedian.h"
#include "detection/SuspectList.h"

#include <optional>
#include <span>
#include <vector>

/// The samples under consideration by a dispersion detector, and how many of them are outliers: farther than a radius
/// from their median point, which has the median of x and the median of y as coordinates.
///
/// All answers are exactly those of sorting both axes and measuring every distance, but they are mostly had for less. A
/// box around the bulk of the samples decides without the median point: a steady fixation costs a comparison a sample.
/// Where the box leaves a doubt, a bracket tells more closely where the median point is; where that is not enough,
/// running medians give the point itself, and a list of suspects the samples to measure. These are brought up to date
/// when they are asked.
///
/// Cost of an appended sample in a window of n: constant while the box decides, else of the order of the square root of
/// n as long as the window fits. A window that does not fit is measured until one outlier too many is found. The worst
/// case is n: a large part of the samples at just the radius from a median point that does not rest.
class DispersionWindow {
public:
    /// @param maximumRadiusPx  a sample at exactly this distance is no outlier.
    /// @param allowedOutliers  with a negative number nothing ever fits.
    DispersionWindow(int maximumRadiusPx, int allowedOutliers);

    bool isEmpty() const { return m_first == m_samples.size(); }
    std::span<const WorkSample *const> samples() const { return std::span(m_samples).subspan(m_first); }

    /// Time of the last sample minus that of the first, in ms; 0 without samples.
    qint64 durationMs() const
    {
        return isEmpty() ? 0 : elapsedMs(m_samples[m_first]->source->time, m_samples.back()->source->time);
    }

    /// The sample must outlive its stay in the window.
    void append(const WorkSample &sample)
    {
        m_samples.push_back(&sample);
        if (m_box.isBuilt())
            m_box.append(sample, m_samples.size() - 1);
        forgetAnswers();
    }
    /// Takes the first or the last sample out of the window, which must not be empty.
    const WorkSample *takeFront();
    const WorkSample *takeBack();
    void clear();

    /// There are not more outliers than allowed.
    bool fits()
    {
        if (!m_fits)
            m_fits = isCertainToFit() || decideFit();
        return *m_fits;
    }

    /// Outliers in a row at the front or at the back, counted up to the allowed number.
    qsizetype leadingOutliers();
    qsizetype trailingOutliers();

    /// Fits, and has no leading outlier.
    bool isCleanFixation();

private:
    std::size_t size() const { return m_samples.size() - m_first; }
    std::size_t trimLimit() const { return m_allowed ? std::min(size(), *m_allowed) : 0; }
    void forgetAnswers()
    {
        m_fits.reset();
        m_medianPoint.reset();
    }
    bool decideFit();
    bool measureFit();
    std::optional<bool> boundedFit();
    bool isOutlier(const WorkSample &sample);
    /// Even if all samples outside the box are outliers.
    bool isCertainToFit() const { return m_allowed && boxHoldsMedian() && m_box.strayCount() <= *m_allowed; }
    bool boxHoldsMedian() const { return m_box.isBuilt() && m_box.holdsMedian(size()); }
    QPointF medianPoint();
    bool catchUpMedians();
    void buildMedians();

    RadiusLimit m_limit;
    std::optional<std::size_t> m_allowed;      ///< outliers; nothing where not even none are allowed
    std::vector<const WorkSample *> m_samples; ///< also those taken from the front, up to the next clearing
    std::size_t m_first = 0;                   ///< place of the first sample of the window
    std::optional<bool> m_fits;                ///< answers for the samples as they are now
    std::optional<QPointF> m_medianPoint;      ///< px
    CoreBox m_box;
    MedianBracket m_bracket;
    RunningMedian m_medianX;
    RunningMedian m_medianY;
    std::size_t m_medianFirst = 0; ///< the running medians know the samples from here
    std::size_t m_medianEnd = 0;   ///< up to here, this one not included
    SuspectList m_suspects;
};
