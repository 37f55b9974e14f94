// SPDX-License-Identifier: GPL-3.0-or-later
#include "statistics/GeneralMeasures.h"

#include "base/Truncation.h"
#include "statistics/RequiredForms.h"

#include <cmath>

namespace {

/// Mean and deviation of positions along one axis.
class Activity {
public:
    void add(double position)
    {
        m_sum += position;
        m_squares += position * position;
        ++m_count;
    }

    /// Population standard deviation in the one-pass form; rounding may make the variance of a constant list negative.
    double deviation() const
    {
        const auto count = static_cast<double>(m_count);
        const double mean = m_sum / count;
        const double variance = m_squares / count - mean * mean;
        return variance < 0 ? 0.0 : std::sqrt(variance);
    }

private:
    double m_sum = 0;
    double m_squares = 0;
    qsizetype m_count = 0;
};

class Speeds {
public:
    void add(const GazePoint &from, const GazePoint &to)
    {
        constexpr double msPerSecond = 1000.0;
        const double dx = double(truncated(to.x)) - truncated(from.x);
        const double dy = double(truncated(to.y)) - truncated(from.y);
        const double seconds = static_cast<double>(elapsedMs(from.time, to.time)) / msPerSecond;
        const double speed = std::sqrt(dx * dx + dy * dy) / seconds;
        m_sum += speed;
        ++m_count;
        if (speed < m_min)
            m_min = speed;
        if (speed > m_max)
            m_max = speed;
    }

    double min() const { return m_min; }
    double max() const { return m_max; }
    double mean() const { return m_sum / static_cast<double>(m_count); }

private:
    double m_min = 1e6;
    double m_max = 0;
    double m_sum = 0;
    qsizetype m_count = 0;
};

} // namespace

GeneralStatistics generalStatistics(const QList<GazePoint> &samples, TimeFrame frame)
{
    Activity x;
    Activity y;
    Speeds speeds;
    const auto list = [&](const GazePoint &sample) {
        x.add(sample.x);
        y.add(sample.y);
    };
    if (required::firstSampleAlwaysListed && !samples.isEmpty())
        list(samples.first());
    for (qsizetype i = 1; i < samples.size(); ++i) {
        if (!frame.contains(samples[i - 1].time) || !frame.contains(samples[i].time))
            continue;
        list(samples[i]);
        speeds.add(samples[i - 1], samples[i]);
    }
    return {.horizontalActivity = required::twoDecimals(x.deviation()),
            .verticalActivity = required::twoDecimals(y.deviation()),
            .minSpeed = required::twoDecimals(speeds.min()),
            .maxSpeed = required::twoDecimals(speeds.max()),
            .meanSpeed = required::twoDecimals(speeds.mean())};
}
