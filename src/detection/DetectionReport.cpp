#include "detection/DetectionReport.h"

#include <QDebug>

#include <algorithm>

namespace {

constexpr int overlongMs = 1000;
constexpr qsizetype fewestSaccadeSamples = 2;

/// Smallest and largest so far. A smallest of 0 gives way to whatever comes next: users compare the figures of many
/// years, so that it stays.
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

/// @param isBad  tells the samples that make a run.
template <class IsBad>
QString invalidRunLine(const QString &caption, const std::vector<WorkSample> &samples, IsBad isBad)
{
    Range range;
    qint64 run = 0;
    qsizetype badCount = 0;
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const qint64 stepMs = i == 0 ? 0 : elapsedMs(samples[i - 1].source->time, samples[i].source->time);
        if (isBad(samples[i])) {
            run = wrappingSum(run, stepMs);
            ++badCount;
            continue;
        }
        if (run != 0)
            run = wrappingSum(run, stepMs);
        range.largest = std::max(range.largest, run);
        if (range.smallest == 0 || (run != 0 && run < range.smallest))
            range.smallest = run;
        run = 0;
    }
    return QStringLiteral("%1 processing: min %2[ms] max %3[ms] total# %4\n")
        .arg(caption)
        .arg(range.smallest)
        .arg(range.largest)
        .arg(badCount);
}

template <class Section>
QString durationText(const QList<Section> &sections)
{
    Range range;
    qint64 sum = 0;
    for (const Section &section : sections) {
        range.add(section.duration());
        sum += section.duration();
    }
    return QStringLiteral("durations: min %1[ms], max %2[ms], avg %3[ms]")
        .arg(range.smallest)
        .arg(range.largest)
        .arg(sections.isEmpty() ? 0 : sum / sections.size());
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
    return invalidRunLine(QStringLiteral("Invalid before"), samples,
                          [](const WorkSample &sample) { return !sample.source->validFlag; }) +
           invalidRunLine(QStringLiteral("Invalid after"), samples,
                          [](const WorkSample &sample) { return !sample.usable; });
}

QString fixationDurationLine(const QList<Fixation> &fixations)
{
    const auto overlong = std::count_if(fixations.cbegin(), fixations.cend(),
                                        [](const Fixation &fixation) { return fixation.duration() > overlongMs; });
    return QStringLiteral("%1 Fixation %2, overlong# %3\n")
        .arg(fixations.size())
        .arg(durationText(fixations))
        .arg(overlong);
}

QString saccadeDurationLine(const QList<Saccade> &saccades)
{
    const auto tooShort = std::count_if(saccades.cbegin(), saccades.cend(), [](const Saccade &saccade) {
        return saccade.samples.size() < fewestSaccadeSamples;
    });
    for (const Saccade &saccade : saccades) {
        if (saccade.duration() < 0)
            describe(saccade);
    }
    return QStringLiteral("%1 Saccade %2, tooshort# %3\n")
        .arg(saccades.size())
        .arg(durationText(saccades))
        .arg(tooShort);
}
