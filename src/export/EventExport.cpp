// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/EventExport.h"

#include "base/TextFormat.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <optional>

namespace {

constexpr double degreePerRadian = 57.2958; // rounded to the six digits that the tables print

QString decimal(double value)
{
    return text::decimalComma(text::general6(value));
}

double distancePx(QPoint from, QPoint to)
{
    return std::hypot(static_cast<double>(to.x()) - from.x(), static_cast<double>(to.y()) - from.y());
}

class EventWalk {
public:
    EventWalk(const QList<Fixation> &fixations, TimeFrame frame) : m_fixations(fixations), m_frame(frame)
    {
        skipFixationsOutside();
    }

    void take(const GazePoint &sample)
    {
        if (!m_frame.contains(sample.time))
            return;
        if (!sample.validFlag) {
            if (m_errorSamples == 0)
                m_errorOnsetMs = sample.time;
            ++m_errorSamples;
            return;
        }
        closeError(sample.time);
        takeValid(sample.time);
    }

    EventList result() && { return std::move(m_events); }

private:
    void skipFixationsOutside()
    {
        while (m_current < m_fixations.size() && !m_frame.holds(m_fixations[m_current]))
            ++m_current;
    }

    void closeError(qint64 timeMs)
    {
        if (m_errorSamples == 0)
            return;
        EventRow row;
        row.event = QStringLiteral("error");
        row.eventCode = QStringLiteral("2");
        row.gazePoints = QString::number(m_errorSamples);
        row.onset = QString::number(m_errorOnsetMs);
        row.duration = QString::number(elapsedMs(m_errorOnsetMs, timeMs));
        m_events.rows << row;
        m_errorSamples = 0;
    }

    void takeValid(qint64 timeMs)
    {
        while (m_current < m_fixations.size() && timeMs > m_fixations[m_current].lastTime()) {
            ++m_current;
            skipFixationsOutside();
        }
        const Fixation *current = m_current < m_fixations.size() ? &m_fixations[m_current] : nullptr;
        const bool fixating = current && timeMs >= current->firstTime();
        if (fixating && current == m_former)
            return;
        if (!m_saccadeOnsetMs)
            m_saccadeOnsetMs = timeMs;
        if (!fixating) {
            ++m_saccadeSamples;
            return;
        }
        if (m_former)
            addSaccade(*m_former, *current);
        addFixation(*current);
        m_former = current;
        m_saccadeOnsetMs.reset();
        m_saccadeSamples = 0;
    }

    void addSaccade(const Fixation &from, const Fixation &to)
    {
        const qint64 durationMs = elapsedMs(*m_saccadeOnsetMs, to.firstTime());
        const double lengthPx = distancePx(from.mean, to.mean);
        const double angleDegree = saccadeAngleDegree(from.mean, to.mean);
        EventRow row;
        row.event = QStringLiteral("saccade");
        row.eventCode = QStringLiteral("1");
        row.gazePoints = QString::number(m_saccadeSamples);
        row.onset = QString::number(*m_saccadeOnsetMs);
        row.duration = QString::number(durationMs);
        row.saccadeLength = decimal(lengthPx);
        EventSums &sums = m_events.sums;
        if (!std::isnan(angleDegree)) {
            row.saccadeAngle = decimal(angleDegree);
            ++sums.directedSaccades;
            sums.saccadeAngleDegree += angleDegree;
        }
        ++sums.saccades;
        sums.saccadeDurationMs += static_cast<double>(durationMs);
        sums.saccadeLengthPx += lengthPx;
        m_events.rows << row;
    }

    void addFixation(const Fixation &fixation)
    {
        const auto majorPx = static_cast<double>(fixation.majorAxis.length());
        const auto minorPx = static_cast<double>(fixation.minorAxis.length());
        EventRow row;
        row.event = QStringLiteral("fixation");
        row.eventCode = QStringLiteral("0");
        row.gazePoints = QString::number(fixation.samples.size());
        row.cluster = QString::number(fixation.cluster);
        row.onset = QString::number(fixation.firstTime());
        row.duration = QString::number(fixation.duration());
        row.meanX = QString::number(fixation.mean.x());
        row.meanY = QString::number(fixation.mean.y());
        row.radius = decimal(majorPx);
        EventSums &sums = m_events.sums;
        ++sums.fixations;
        sums.fixationDurationMs += fixation.duration();
        sums.fixationAreaPx2 += std::numbers::pi * majorPx * minorPx;
        m_events.rows << row;
    }

    const QList<Fixation> &m_fixations;
    const TimeFrame m_frame;
    EventList m_events;
    qsizetype m_current = 0;            ///< the fixation that is awaited or under way
    const Fixation *m_former = nullptr; ///< the last one that became an event
    std::optional<qint64> m_saccadeOnsetMs;
    qint64 m_saccadeSamples = 0;
    qint64 m_errorOnsetMs = 0;
    qint64 m_errorSamples = 0; ///< 0 when no stretch without valid samples is open
};

QString eventFields(const EventRow &row)
{
    const QStringList fields{row.event, row.eventCode, row.gazePoints, row.cluster,       row.onset,       row.duration,
                             row.meanX, row.meanY,     row.radius,     row.saccadeLength, row.saccadeAngle};
    return fields.join(u';');
}

QString meanLine(QLatin1StringView label, double sum, qint64 count)
{
    constexpr int decimals = 10;
    return label + text::decimalComma(text::fixed(sum / static_cast<double>(count), decimals)) + u'\n';
}

QString summary(const EventSums &sums)
{
    return meanLine(QLatin1StringView("Fixation mean duration:"), static_cast<double>(sums.fixationDurationMs),
                    sums.fixations) +
           meanLine(QLatin1StringView("Fixation mean area:"), sums.fixationAreaPx2, sums.fixations) +
           meanLine(QLatin1StringView("Saccade mean time:"), sums.saccadeDurationMs, sums.saccades) +
           meanLine(QLatin1StringView("Saccade mean length:"), sums.saccadeLengthPx, sums.saccades) +
           meanLine(QLatin1StringView("Saccade mean angle:"), sums.saccadeAngleDegree, sums.directedSaccades);
}

} // namespace

double saccadeAngleDegree(QPoint from, QPoint to)
{
    const double lengthPx = distancePx(from, to);
    if (lengthPx == 0.0)
        return std::numeric_limits<double>::quiet_NaN();
    const double right = std::clamp((static_cast<double>(to.x()) - from.x()) / lengthPx, -1.0, 1.0);
    const bool upwards = to.y() < from.y();
    const double base = upwards ? std::acos(right) : std::acos(-right) + std::numbers::pi;
    return (2 * std::numbers::pi - base) * degreePerRadian;
}

EventList eventsOf(const EyeData &stream, TimeFrame frame)
{
    EventWalk walk(stream.scanpath, frame);
    for (const GazePoint &sample : stream.gazePoints)
        walk.take(sample);
    return std::move(walk).result();
}

QString eventHeader()
{
    return QStringLiteral("subjectID;subjectINFO;picture;event;eventcode;gazepoints;cluster;onset(ms);duration(ms);"
                          "mean_x(px);mean_y(px);radius(px);saccade_length(px);saccade_angle(\u00B0)\n");
}

QString eventBlock(const Examination &examination, const EventList &events)
{
    const QString picture = examination.image ? examination.imageName : QStringLiteral("no image");
    const QString lead =
        QStringLiteral("\"%1\";\"%2\";%3;").arg(examination.subjectId, examination.subjectText, picture);
    QString block;
    for (const EventRow &row : events.rows)
        block += lead + eventFields(row) + u'\n';
    constexpr int emptyLines = 4;
    return block + QString(emptyLines, u'\n') + summary(events.sums) + QLatin1StringView("Subject information:\n") +
           examination.subjectText + u'\n';
}
