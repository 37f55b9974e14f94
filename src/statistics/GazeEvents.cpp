// SPDX-License-Identifier: GPL-3.0-or-later
#include "statistics/GazeEvents.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

constexpr double msPerSecond = 1000;
constexpr double degreesPerRadian = 180 / std::numbers::pi;

/// Ways and times of the pairs that count, in one unit of way.
class SpeedSum {
public:
    void add(double way, double seconds)
    {
        m_way += way;
        m_seconds += seconds;
        m_peak = std::max(m_peak, way / seconds);
    }

    std::optional<double> mean() const { return m_seconds > 0 ? std::optional(m_way / m_seconds) : std::nullopt; }
    std::optional<double> peak() const { return m_seconds > 0 ? std::optional(m_peak) : std::nullopt; }

private:
    double m_way = 0;
    double m_seconds = 0;
    double m_peak = 0;
};

/// The samples between two times, both included, when it is asked for ever later times.
class SampleWindow {
public:
    explicit SampleWindow(const QList<GazePoint> &samples) : m_samples(samples) {}

    std::span<const GazePoint> between(qint64 startMs, qint64 endMs)
    {
        while (m_begin < m_samples.size() && m_samples[m_begin].time < startMs)
            ++m_begin;
        m_end = std::max(m_end, m_begin);
        while (m_end < m_samples.size() && m_samples[m_end].time <= endMs)
            ++m_end;
        return {m_samples.constData() + m_begin, static_cast<std::size_t>(m_end - m_begin)};
    }

private:
    const QList<GazePoint> &m_samples;
    qsizetype m_begin = 0;
    qsizetype m_end = 0;
};

double distancePx(QPoint from, QPoint to)
{
    return std::hypot(double(to.x()) - from.x(), double(to.y()) - from.y());
}

} // namespace

double visualAngleDegree(double distancePx, double pixelPerDistance)
{
    return std::atan(distancePx * pixelPerDistance) * degreesPerRadian;
}

GazeSpeed gazeSpeed(std::span<const GazePoint> samples, std::optional<double> pixelPerDistance)
{
    SpeedSum pixels;
    SpeedSum degrees;
    for (std::size_t i = 1; i < samples.size(); ++i) {
        const GazePoint &from = samples[i - 1];
        const GazePoint &to = samples[i];
        if (!from.validFlag || !to.validFlag || to.time <= from.time)
            continue;
        const double seconds = static_cast<double>(elapsedMs(from.time, to.time)) / msPerSecond;
        const double wayPx = std::hypot(to.x - from.x, to.y - from.y);
        pixels.add(wayPx, seconds);
        if (pixelPerDistance)
            degrees.add(visualAngleDegree(wayPx, *pixelPerDistance), seconds);
    }
    return {pixels.mean(), pixels.peak(), degrees.mean(), degrees.peak()};
}

std::optional<double> dispersionPx(std::span<const GazePoint> samples)
{
    std::optional<QPointF> least;
    QPointF most;
    for (const GazePoint &sample : samples) {
        if (!sample.validFlag)
            continue;
        if (!least)
            least = most = {sample.x, sample.y};
        least = {std::min(least->x(), sample.x), std::min(least->y(), sample.y)};
        most = {std::max(most.x(), sample.x), std::max(most.y(), sample.y)};
    }
    if (!least)
        return std::nullopt;
    return (most.x() - least->x()) + (most.y() - least->y());
}

double GazeStep::amplitudePx() const
{
    return distancePx(from->mean, to->mean);
}

std::optional<double> GazeStep::directionDegree() const
{
    const double right = double(to->mean.x()) - from->mean.x();
    const double up = double(from->mean.y()) - to->mean.y();
    if (right == 0 && up == 0)
        return std::nullopt;
    const double angle = std::atan2(up, right) * degreesPerRadian;
    constexpr double turn = 360;
    return angle < 0 ? angle + turn : angle;
}

QList<GazeStep> gazeSteps(const EyeData &stream, TimeFrame frame)
{
    QList<GazeStep> steps;
    SampleWindow window(stream.gazePoints);
    const Fixation *former = nullptr;
    for (const Fixation &fixation : stream.scanpath) {
        if (!frame.holds(fixation))
            continue;
        if (former)
            steps << GazeStep{former, &fixation, window.between(former->lastTime(), fixation.firstTime())};
        former = &fixation;
    }
    return steps;
}

QList<GazeLoss> gazeLosses(const QList<GazePoint> &samples, TimeFrame frame)
{
    QList<GazeLoss> losses;
    bool isLost = false;
    for (const GazePoint &sample : samples) {
        if (!frame.contains(sample.time))
            continue;
        if (isLost) {
            losses.last().durationMs = elapsedMs(losses.last().onsetMs, sample.time);
            losses.last().isOpen = !sample.validFlag;
        } else if (!sample.validFlag) {
            losses << GazeLoss{.onsetMs = sample.time, .isOpen = true};
        }
        isLost = !sample.validFlag;
        if (isLost)
            ++losses.last().samples;
    }
    return losses;
}

QList<AoiVisit> visitsOfArea(const AoiIndex::Area &area, const QList<Fixation> &fixations, TimeFrame frame)
{
    QList<AoiVisit> visits;
    bool isInside = false;
    for (const Fixation &fixation : fixations) {
        if (!frame.holds(fixation))
            continue;
        const bool wasInside = std::exchange(isInside, area.winding.contains(fixation.mean));
        if (!isInside)
            continue;
        if (!wasInside)
            visits << AoiVisit{.onsetMs = fixation.firstTime()};
        AoiVisit &visit = visits.last();
        visit.durationMs = elapsedMs(visit.onsetMs, fixation.lastTime());
        visit.dwellMs += fixation.duration();
        ++visit.fixations;
    }
    return visits;
}
