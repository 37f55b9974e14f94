// SPDX-License-Identifier: GPL-3.0-or-later
#include "detection/DetectionReport.h"

#include <QDebug>

#include <algorithm>
#include <utility>

namespace {

constexpr int overlongMs = 1000;
constexpr qsizetype fewestSaccadeSamples = 2;

/// Smallest and largest so far. A smallest of 0 gives way to whatever comes next. That is kept; in the plain form a
/// duration of 0 would stay the smallest.
struct Range {
    void add(qint64 value)
    {
        if (smallest == 0 || value < smallest)
            smallest = value;
        largest = std::max(largest, value);
    }

    qint64 smallest = 0;
    qint64 largest = 0;
};

/// Steps between the clock values of a damaged file can leave the range of the type.
qint64 wrappingSum(qint64 a, qint64 b)
{
    return static_cast<qint64>(static_cast<quint64>(a) + static_cast<quint64>(b));
}

/// Lengths of the runs of bad samples, the samples added in order.
class Runs {
public:
    void add(bool isBad, qint64 stepMs)
    {
        if (isBad) {
            m_run = wrappingSum(m_run, stepMs);
            ++m_badCount;
            return;
        }
        if (m_run != 0)
            m_run = wrappingSum(m_run, stepMs);
        if (m_run != 0 || m_range.smallest == 0)
            m_range.add(m_run);
        m_run = 0;
    }

    QString line(const QString &caption) const
    {
        return QStringLiteral("%1 processing: min %2[ms] max %3[ms] total# %4\n")
            .arg(caption)
            .arg(m_range.smallest)
            .arg(m_range.largest)
            .arg(m_badCount);
    }

private:
    Range m_range;
    qint64 m_run = 0; ///< ms
    qsizetype m_badCount = 0;
};

template <class Section>
QList<int> durationsOf(const QList<Section> &sections)
{
    QList<int> durations;
    durations.reserve(sections.size());
    for (const Section &section : sections)
        durations.append(section.duration());
    return durations;
}

QString durationText(const QList<int> &durations)
{
    Range range;
    qint64 sum = 0;
    for (const int duration : durations) {
        range.add(duration);
        sum += duration;
    }
    return QStringLiteral("durations: min %1[ms], max %2[ms], avg %3[ms]")
        .arg(range.smallest)
        .arg(range.largest)
        .arg(durations.isEmpty() ? 0 : sum / durations.size());
}

void describe(const Saccade &saccade)
{
    qDebug().noquote() << "Saccade with unlogical length:"; // sic
    for (const GazePoint &sample : saccade.samples)
        qDebug() << sample.time << sample.x << sample.y << sample.width << sample.height << sample.validFlag;
}

} // namespace

QString invalidRunLines(const std::vector<WorkSample> &samples)
{
    Runs before;
    Runs after;
    qint64 lastTime = samples.empty() ? 0 : samples.front().source->time;
    for (const WorkSample &sample : samples) {
        const qint64 stepMs = elapsedMs(std::exchange(lastTime, sample.source->time), sample.source->time);
        before.add(!sample.source->validFlag, stepMs);
        after.add(!sample.usable, stepMs);
    }
    return before.line(QStringLiteral("Invalid before")) + after.line(QStringLiteral("Invalid after"));
}

QString fixationDurationLine(const QList<Fixation> &fixations)
{
    const QList<int> durations = durationsOf(fixations);
    const auto overlong = std::count_if(durations.cbegin(), durations.cend(), [](int ms) { return ms > overlongMs; });
    return QStringLiteral("%1 Fixation %2, overlong# %3\n")
        .arg(durations.size())
        .arg(durationText(durations))
        .arg(overlong);
}

QString saccadeDurationLine(const QList<Saccade> &saccades)
{
    const QList<int> durations = durationsOf(saccades);
    qsizetype tooShort = 0;
    for (qsizetype i = 0; i < saccades.size(); ++i) {
        if (durations[i] < 0)
            describe(saccades[i]);
        if (saccades[i].samples.size() < fewestSaccadeSamples)
            ++tooShort;
    }
    return QStringLiteral("%1 Saccade %2, tooshort# %3\n")
        .arg(durations.size())
        .arg(durationText(durations))
        .arg(tooShort);
}
