// SPDX-License-Identifier: GPL-3.0-or-later
#include "statistics/AoiMeasures.h"

#include "statistics/Quotient.h"
#include "statistics/RequiredForms.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace {

/// Stands for "none yet" among minima.
constexpr qint64 noMinimum = 1000000000;

/// Damaged clocks make runs of nearly any length.
qint64 wrappingSum(qint64 a, qint64 b)
{
    return static_cast<qint64>(static_cast<quint64>(a) + static_cast<quint64>(b));
}

/// Only what measuring writes; name, colour and polygon stay.
AreaOfInterest unmeasured(const AreaOfInterest &area)
{
    AreaOfInterest plain = area;
    plain.glanceCount = plain.pointsInside = plain.gazeCount = plain.fixationCount = 0;
    plain.firstInsideTime = plain.minGlance = plain.maxGlance = 0;
    plain.glanceFrequency = plain.glanceTime = plain.glanceProportion = plain.locationProbability = plain.meanGlance =
        plain.fixationFrequency = plain.recordingSeconds = 0;
    plain.glanceStarts = plain.glanceEnds = plain.glanceDurations = {};
    plain.firstGazeTime = plain.gazeTotalTime = plain.gazeMinTime = plain.gazeMaxTime = 0;
    plain.gazePerMinute = plain.gazeShare = plain.gazeMeanTime = 0;
    plain.firstFixationTime = plain.fixationTotalTime = plain.fixationMinTime = plain.fixationMaxTime = 0;
    plain.fixationsPerMinute = plain.fixationShare = plain.fixationMeanTime = 0;
    return plain;
}

/// Runs of samples inside one area. A run of one sample lasts 1 ms.
class GazeRuns {
public:
    explicit GazeRuns(AreaOfInterest &area) : m_area(area) { m_area.gazeMinTime = noMinimum; }

    void take(qint64 timeMs, bool inside)
    {
        if (!inside) {
            if (m_isOpen)
                close();
            return;
        }
        if (m_area.gazeCount++ == 0)
            m_area.firstGazeTime = timeMs;
        m_lastInsideMs = m_isOpen ? timeMs : wrappingSum(timeMs, 1);
        if (!m_isOpen)
            m_startMs = timeMs;
        m_isOpen = true;
    }

    void finish(qint64 samplesInFrame, double spanMs)
    {
        if (m_isOpen && m_startMs >= 1)
            close();
        m_area.gazePerMinute = required::perMinute(m_area.gazeCount, spanMs);
        m_area.gazeShare = quotient(m_area.gazeCount, static_cast<double>(samplesInFrame));
        m_area.gazeMeanTime = quotient(static_cast<double>(m_area.gazeTotalTime), m_runs);
        if (m_area.gazeMinTime == noMinimum)
            m_area.gazeMinTime = 0;
    }

private:
    void close()
    {
        const qint64 durationMs = elapsedMs(m_startMs, m_lastInsideMs);
        m_area.gazeTotalTime = wrappingSum(m_area.gazeTotalTime, durationMs);
        m_area.gazeMinTime = std::min(m_area.gazeMinTime, durationMs);
        m_area.gazeMaxTime = std::max(m_area.gazeMaxTime, durationMs);
        ++m_runs;
        m_isOpen = false;
    }

    AreaOfInterest &m_area;
    bool m_isOpen = false;
    qint64 m_startMs = 0;
    qint64 m_lastInsideMs = 0;
    int m_runs = 0;
};

/// Unbroken stays of the samples in one area.
class Glances {
public:
    explicit Glances(AreaOfInterest &area) : m_area(area) {}

    void take(qint64 timeMs, bool inside)
    {
        if (inside) {
            if (m_area.pointsInside++ == 0)
                m_area.firstInsideTime = timeMs;
            if (m_isOpen)
                return;
            ++m_area.glanceCount;
            m_startMs = timeMs;
            m_area.glanceStarts << timeMs;
            m_isOpen = true;
        } else if (m_isOpen) {
            m_endMs = timeMs;
            end();
        }
    }

    void finish(const QList<GazePoint> &samples)
    {
        if (m_isOpen)
            end();
        if (samples.isEmpty())
            return;
        const auto count = static_cast<double>(samples.size());
        const auto lengthMs = static_cast<double>(elapsedMs(samples.first().time, samples.last().time));
        m_area.recordingSeconds = lengthMs / 1000.0;
        m_area.glanceFrequency = required::twoDecimals(m_area.glanceCount / m_area.recordingSeconds);
        m_area.glanceTime = required::twoDecimals(lengthMs / count * m_area.pointsInside);
        m_area.glanceProportion = required::glanceProportion(m_area.glanceCount, samples.size());
        m_area.locationProbability = std::trunc(m_area.pointsInside / count * 10000 + 0.5) / 100; // percent
        summarize();
    }

private:
    void end()
    {
        m_area.glanceEnds << m_endMs;
        m_area.glanceDurations << elapsedMs(m_startMs, m_endMs);
        m_isOpen = false;
    }

    void summarize()
    {
        const QList<qint64> &durations = m_area.glanceDurations;
        if (durations.isEmpty())
            return;
        m_area.minGlance = *std::min_element(durations.cbegin(), durations.cend());
        m_area.maxGlance = *std::max_element(durations.cbegin(), durations.cend());
        const double sum = std::accumulate(durations.cbegin(), durations.cend(), 0.0,
                                           [](double before, qint64 each) { return before + double(each); });
        m_area.meanGlance = sum / static_cast<double>(durations.size());
    }

    AreaOfInterest &m_area;
    bool m_isOpen = false;
    qint64 m_startMs = 0;
    qint64 m_endMs = 0;
};

/// All measures of one area in the making.
struct Measuring {
    explicit Measuring(AreaOfInterest &area) : gaze(area), glances(area) {}

    GazeRuns gaze;
    Glances glances;
};

QList<const Fixation *> fixationsIn(const QList<Fixation> &scanpath, TimeFrame frame)
{
    QList<const Fixation *> held;
    for (const Fixation &fixation : scanpath) {
        if (frame.holds(fixation))
            held << &fixation;
    }
    return held;
}

void measureFixations(AreaOfInterest &area, const QList<const Fixation *> &fixations, const AoiIndex::Area &index,
                      double spanMs)
{
    area.fixationMinTime = noMinimum;
    for (const Fixation *fixation : fixations) {
        if (!index.winding.contains(fixation->mean))
            continue;
        if (area.fixationCount++ == 0)
            area.firstFixationTime = fixation->firstTime();
        const qint64 durationMs = fixation->duration();
        area.fixationTotalTime += durationMs;
        area.fixationMinTime = std::min(area.fixationMinTime, durationMs);
        area.fixationMaxTime = std::max(area.fixationMaxTime, durationMs);
    }
    area.fixationsPerMinute = required::perMinute(area.fixationCount, spanMs);
    area.fixationMeanTime = quotient(static_cast<double>(area.fixationTotalTime), area.fixationCount);
    area.fixationShare = quotient(area.fixationCount, static_cast<double>(fixations.size()));
    if (area.fixationMinTime == noMinimum)
        area.fixationMinTime = 0;
}

/// Per minute of the whole recording.
double fixationFrequency(const QList<const Fixation *> &fixations, const AoiIndex::Area &index, double seconds)
{
    const auto count = std::count_if(fixations.cbegin(), fixations.cend(),
                                     [&](const Fixation *fixation) { return index.oddEven.contains(fixation->mean); });
    constexpr double secondsPerMinute = 60.0;
    return required::twoDecimals(static_cast<double>(count) / seconds) * secondsPerMinute;
}

} // namespace

QList<AreaOfInterest> aoiStatistics(const EyeData &stream, const QList<AreaOfInterest> &areas, const AoiIndex &index,
                                    TimeFrame frame)
{
    QList<AreaOfInterest> measured;
    measured.reserve(areas.size());
    for (const AreaOfInterest &area : areas)
        measured << unmeasured(area);
    std::vector<Measuring> measuring(measured.begin(), measured.end());

    const double spanMs = static_cast<double>(frame.endMs) - static_cast<double>(frame.startMs);
    const bool hasSpan = spanMs >= 1;
    qint64 samplesInFrame = 0;
    for (const GazePoint &sample : stream.gazePoints) {
        if (!frame.contains(sample.time))
            continue;
        ++samplesInFrame;
        const QPoint pixel = AoiIndex::pixelOf(sample.x, sample.y);
        for (qsizetype i = 0; i < index.size(); ++i) {
            Measuring &each = measuring[static_cast<size_t>(i)];
            if (hasSpan)
                each.gaze.take(sample.time, index[i].winding.contains(pixel));
            each.glances.take(sample.time, index[i].oddEven.contains(pixel));
        }
    }

    const QList<const Fixation *> fixations = fixationsIn(stream.scanpath, frame);
    for (qsizetype i = 0; i < measured.size(); ++i) {
        AreaOfInterest &area = measured[i];
        Measuring &each = measuring[static_cast<size_t>(i)];
        each.glances.finish(stream.gazePoints);
        area.fixationFrequency = fixationFrequency(fixations, index[i], area.recordingSeconds);
        if (hasSpan) {
            each.gaze.finish(samplesInFrame, spanMs);
            measureFixations(area, fixations, index[i], spanMs);
        } else {
            area.gazeMinTime = 0;
        }
    }
    return measured;
}
