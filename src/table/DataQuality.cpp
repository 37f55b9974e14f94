// SPDX-License-Identifier: GPL-3.0-or-later
#include "table/DataQuality.h"

#include "base/Averages.h"
#include "model/Canvas.h"
#include "model/ImageCache.h"
#include "table/FixationPrecision.h"
#include "table/SampleIntervals.h"

#include <QImageReader>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

using Value = EyeQuality::Value;

double squaredDistance(const GazePoint &a, const GazePoint &b)
{
    const double dx = b.x - a.x;
    const double dy = b.y - a.y;
    return dx * dx + dy * dy;
}

/// Root mean square of sample-to-sample distances in each window of whole usable samples.
class Windows {
public:
    void add(const GazePoint &sample, const GazePoint *usableBefore)
    {
        const qint64 window = sample.time / precisionWindowMs;
        if (window != m_window || m_isNew)
            begin(window);
        if (!isUsable(sample)) {
            m_isWhole = false;
        } else if (usableBefore && usableBefore->time / precisionWindowMs == window) {
            ++m_pairs;
            m_squares += squaredDistance(*usableBefore, sample);
        }
    }

    Value median()
    {
        begin(0);
        return medianOf(m_values);
    }

private:
    void begin(qint64 window)
    {
        if (m_isWhole && m_pairs > 1)
            m_values.push_back(std::sqrt(m_squares / static_cast<double>(m_pairs)));
        m_window = window;
        m_isNew = false;
        m_isWhole = true;
        m_pairs = 0;
        m_squares = 0;
    }

    qint64 m_window = 0;
    bool m_isNew = true;
    bool m_isWhole = true;
    qint64 m_pairs = 0;
    double m_squares = 0;
    std::vector<double> m_values; ///< one for some hundred samples at most
};

/// Runs of samples that are not usable. A run lasts until the next usable sample, or to the last sample of all.
class Losses {
public:
    void add(const GazePoint &sample)
    {
        if (!isUsable(sample)) {
            if (!m_isLost)
                m_since = sample.time;
            m_isLost = true;
        } else if (m_isLost) {
            end(sample.time);
        }
        m_last = sample.time;
    }

    void store(EyeQuality &quality)
    {
        if (m_isLost)
            end(m_last);
        quality.losses = m_short + m_blinks + m_long;
        quality.shortLosses = m_short;
        quality.blinkLosses = m_blinks;
        quality.longLosses = m_long;
        if (quality.losses > 0)
            quality.longestLossMs = m_longestMs;
    }

private:
    void end(qint64 time)
    {
        const auto lengthMs = static_cast<double>(std::max(qint64(0), elapsedMs(m_since, time)));
        m_longestMs = std::max(m_longestMs, lengthMs);
        ++(lengthMs < blinkFromMs ? m_short : lengthMs <= blinkToMs ? m_blinks : m_long);
        m_isLost = false;
    }

    bool m_isLost = false;
    qint64 m_since = 0;
    qint64 m_last = 0;
    qint64 m_short = 0;
    qint64 m_blinks = 0;
    qint64 m_long = 0;
    double m_longestMs = 0;
};

/// All that one pass over the samples of a stream gathers.
class Pass {
public:
    explicit Pass(const QualityForm &form) : m_form(form) {}

    void add(const GazePoint &sample)
    {
        ++m_samples;
        const GazePoint *usableBefore = m_before && isUsable(*m_before) ? m_before : nullptr;
        const bool usable = isUsable(sample);
        if (m_before) {
            const qint64 stepMs = elapsedMs(m_before->time, sample.time);
            m_intervals.add(stepMs);
            if (usable && usableBefore)
                m_intervals.addDistance(stepMs, squaredDistance(*usableBefore, sample));
        } else {
            m_first = sample.time;
        }
        m_valid += sample.validFlag;
        m_outside += sample.validFlag && !isInside(sample);
        m_windows.add(sample, usableBefore);
        m_losses.add(sample);
        m_before = &sample;
    }

    EyeQuality quality(const QList<Fixation> &fixations);

private:
    bool isInside(const GazePoint &sample) const
    {
        return sample.x >= 0 && sample.y >= 0 && sample.x < m_form.screenPx.width() &&
               sample.y < m_form.screenPx.height();
    }
    void storeTime(EyeQuality &quality, const std::optional<SampleIntervals::Rate> &rate) const;

    const QualityForm &m_form;
    SampleIntervals m_intervals;
    Windows m_windows;
    Losses m_losses;
    qint64 m_samples = 0;
    qint64 m_valid = 0;
    qint64 m_outside = 0;
    qint64 m_first = 0;
    const GazePoint *m_before = nullptr;
};

Value share(qint64 part, qint64 whole)
{
    return whole == 0 ? Value() : static_cast<double>(part) / static_cast<double>(whole);
}

void Pass::storeTime(EyeQuality &quality, const std::optional<SampleIntervals::Rate> &rate) const
{
    quality.repeatedTimes = m_intervals.repeated();
    quality.backwardTimes = m_intervals.backward();
    if (m_before)
        quality.durationMs = static_cast<double>(elapsedMs(m_first, m_before->time));
    if (!rate)
        return;
    quality.rateHz = rate->hz;
    quality.jitterMs = rate->jitterMs;
    quality.gaps = rate->gaps;
    quality.gapTimeMs = rate->gapTimeMs;
    if (*quality.durationMs > 0)
        quality.gapTimeShare = rate->gapTimeMs / *quality.durationMs;
    if (rate->gaps > 0)
        quality.longestGapMs = static_cast<double>(rate->longestGapMs);
    const double expected = *quality.durationMs / rate->intervalMs + 1;
    quality.dataLossShare = std::clamp(1 - static_cast<double>(m_valid) / expected, 0.0, 1.0);
}

EyeQuality Pass::quality(const QList<Fixation> &fixations)
{
    const std::optional<SampleIntervals::Rate> rate = m_intervals.rate();
    const double gapAfterMs = rate ? rate->gapAfterMs : std::numeric_limits<double>::infinity();
    EyeQuality quality;
    quality.samples = m_samples;
    storeTime(quality, rate);
    quality.validShare = share(m_valid, m_samples);
    m_losses.store(quality);
    quality.outsideShare = share(m_outside, m_valid);
    quality.rmsPx = m_intervals.rootMeanSquarePx(gapAfterMs);
    quality.windowRmsPx = m_windows.median();
    const FixationPrecision precision = fixationPrecision(fixations, m_form.frame, gapAfterMs);
    quality.measuredFixations = precision.fixations;
    quality.fixationRmsPx = precision.rmsPx;
    quality.fixationDeviationPx = precision.deviationPx;
    quality.fixationBceaPx2 = precision.bceaPx2;
    quality.pixelPerDistance = m_form.pixelPerDistance;
    return quality;
}

/// How the places of the two eyes agree, over samples of one time that both have.
struct Agreement {
    Value binocularShare;
    Value distancePx;
    Value offsetXPx;
    Value offsetYPx;
};

/// The streams are of equal length unless samples were cut out of them; both follow the file.
Agreement agreementOf(const QList<GazePoint> &left, const QList<GazePoint> &right, TimeFrame frame)
{
    std::vector<double> distances;
    std::vector<double> xs;
    std::vector<double> ys;
    const auto most = static_cast<size_t>(std::min(left.size(), right.size()));
    for (std::vector<double> *list : {&distances, &xs, &ys})
        list->reserve(most);
    qint64 both = 0;
    for (qsizetype i = 0, j = 0; i < left.size() && j < right.size();) {
        const GazePoint &l = left[i];
        const GazePoint &r = right[j];
        i += l.time <= r.time;
        j += r.time <= l.time;
        if (l.time != r.time || !frame.contains(l.time))
            continue;
        ++both;
        if (!isUsable(l) || !isUsable(r))
            continue;
        distances.push_back(std::hypot(r.x - l.x, r.y - l.y));
        xs.push_back(r.x - l.x);
        ys.push_back(r.y - l.y);
    }
    return {share(static_cast<qint64>(distances.size()), both), medianOf(distances), medianOf(xs), medianOf(ys)};
}

} // namespace

QList<EyeQuality> dataQuality(const Examination &examination, const QList<Eye> &eyes, const QualityForm &form)
{
    const Agreement agreement =
        agreementOf(examination.leftEye.gazePoints, examination.rightEye.gazePoints, form.frame);
    QList<EyeQuality> all;
    for (const Eye eye : eyes) {
        const EyeData &stream = examination.stream(eye);
        Pass pass(form);
        for (const GazePoint &sample : stream.gazePoints) {
            if (form.frame.contains(sample.time))
                pass.add(sample);
        }
        EyeQuality quality = pass.quality(stream.scanpath);
        quality.binocularShare = agreement.binocularShare;
        quality.eyeDistancePx = agreement.distancePx;
        quality.eyeOffsetXPx = agreement.offsetXPx;
        quality.eyeOffsetYPx = agreement.offsetYPx;
        all << quality;
    }
    return all;
}

QSizeF screenSizeOf(const Examination &examination)
{
    const QSize size = examination.image ? QImageReader(examination.image->path).size() : QSize();
    return size.isEmpty() ? QSizeF(canvas::width, canvas::height) : QSizeF(size);
}
