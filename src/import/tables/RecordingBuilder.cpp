// SPDX-License-Identifier: GPL-3.0-or-later
#include "import/tables/RecordingBuilder.h"

#include "import/LargePages.h"

#include <algorithm>
#include <cmath>

namespace {

using namespace Qt::Literals::StringLiterals;

/// Steps that are measured for the median.
constexpr qsizetype measuredSteps = 10'000;
/// Rates of trackers and of webcams, in Hz, with room on both sides.
constexpr double slowestRateHz = 5;
constexpr double fastestRateHz = 5000;
/// Below this nothing can be said of a rate.
constexpr qsizetype fewestMeasured = 10;

/// In the text, "%1" is the count and "%2" the first line.
struct SentenceRow {
    TableOddityKind kind;
    QLatin1StringView text;
};

constexpr SentenceRow sentences[] = {
    {TableOddityKind::NotANumber,
     "fields that are neither numbers nor codes for missing, and count as missing: %1; the first is in line %2."_L1},
    {TableOddityKind::TimeNotANumber, "lines without a time, left out: %1; the first is line %2."_L1},
    {TableOddityKind::RepeatedTime, "samples with the time of the sample before them: %1; the first is line %2."_L1},
    {TableOddityKind::BackwardTime, "samples earlier than the sample before them: %1; the first is line %2."_L1},
    {TableOddityKind::TimeJump, "samples more than 100 ms after the sample before them: %1; the first is line %2."_L1},
    {TableOddityKind::OutsideTrial, "samples between two trials, left out: %1; the first is line %2."_L1},
    {TableOddityKind::RecordingPause, "pauses of the recording: %1; the first is in line %2."_L1},
    {TableOddityKind::OutsideScreen, "samples outside the screen: %1; the first is line %2."_L1},
    {TableOddityKind::ColumnsChanged,
     "lines that are another header, or have too few or too many columns, left out: %1; the first is line %2."_L1},
    {TableOddityKind::FewerColumns,
     "lines that end before the last column, but have all that is needed and are read: %1; the first is line %2."_L1},
    {TableOddityKind::UnknownLine, "lines of no known kind, passed over: %1; the first is line %2."_L1},
};

QString eyeName(bool isLeft)
{
    return isLeft ? QStringLiteral("left") : QStringLiteral("right");
}

} // namespace

QList<TableOddity> OddityCounts::list() const
{
    QList<TableOddity> list;
    for (const SentenceRow &row : sentences) {
        if (const LineCount &found = of(row.kind); found.count > 0)
            list << TableOddity{row.kind, found.count, found.firstLine,
                                QString(row.text).arg(QString::number(found.count), QString::number(found.firstLine))};
    }
    return list;
}

RecordingBuilder::RecordingBuilder(const TableGeometry &place, bool hasLeft, bool hasRight)
{
    setScreen(place.screenPx);
    setEyes(hasLeft, hasRight);
}

void RecordingBuilder::setEyes(bool hasLeft, bool hasRight)
{
    recording.facts.hasLeft |= hasLeft;
    recording.facts.hasRight |= hasRight;
}

void RecordingBuilder::setScreen(const QSizeF &px)
{
    recording.screenPx = px;
    m_widthPx = px.width();
    m_heightPx = px.height();
}

void RecordingBuilder::reserve(qsizetype samples)
{
    recording.samples.reserve(samples);
    adviseLargePages(recording.samples.constData(),
                     recording.samples.capacity() * static_cast<qsizetype>(sizeof(TableSample)));
}

/// The first samples, from which the rate is measured, and those with odd times.
void RecordingBuilder::addUnusual(const TableSample &sample, qsizetype line)
{
    TableFacts &facts = recording.facts;
    if (facts.samples == 0) {
        facts.firstLine = line;
        facts.firstTimeMs = sample.timeMs;
    } else if (!m_isAfterPause) {
        countStep(sample.timeMs - facts.lastTimeMs, line);
    }
    m_isAfterPause = false;
    m_isMeasured = m_stepCount >= measuredSteps && m_steps.size() >= measuredSteps;
}

void RecordingBuilder::countStep(double stepMs, qsizetype line)
{
    if (stepMs < 0) {
        oddities.add(TableOddityKind::BackwardTime, line);
        return;
    }
    if (stepMs > ImportCounts::longestPlausibleStepMs) {
        oddities.add(TableOddityKind::TimeJump, line);
    } else {
        ++m_usualSteps;
        if (m_stepCount < measuredSteps) {
            m_stepSum += stepMs;
            ++m_stepCount;
        }
    }
    if (stepMs == 0)
        oddities.add(TableOddityKind::RepeatedTime, line);
    else if (m_steps.size() < measuredSteps)
        m_steps.append(stepMs);
}

/// Steps of 0 count, so that a clock in whole ms does not hide half of the samples of a faster tracker.
void RecordingBuilder::measureRate()
{
    TableFacts &facts = recording.facts;
    if (!m_steps.isEmpty()) {
        const auto middle = m_steps.begin() + m_steps.size() / 2;
        std::nth_element(m_steps.begin(), middle, m_steps.end());
        facts.medianStepMs = *middle;
    }
    if (m_stepSum > 0)
        facts.rateHz = 1000 * static_cast<double>(m_stepCount) / m_stepSum;
    else if (facts.medianStepMs > 0)
        facts.rateHz = 1000 / facts.medianStepMs;
    m_steps = {};
}

/// A file that says its rate is measured against it.
void RecordingBuilder::addStatedRateOddity()
{
    constexpr double tolerance = 0.1;
    const TableFacts &facts = recording.facts;
    if (facts.statedRateHz <= 0 || std::abs(facts.rateHz - facts.statedRateHz) <= tolerance * facts.statedRateHz)
        return;
    recording.oddities << TableOddity{TableOddityKind::ImplausibleRate, 1, facts.firstLine,
                                      QStringLiteral("the file says %1 samples a second, its times %2.")
                                          .arg(facts.statedRateHz)
                                          .arg(facts.rateHz, 0, 'g', 4)};
}

void RecordingBuilder::addRateOddity()
{
    const TableFacts &facts = recording.facts;
    const qsizetype jumps = oddities.of(TableOddityKind::TimeJump).count;
    const qsizetype steps = m_usualSteps + jumps;
    if (steps < fewestMeasured)
        return;
    const double rate = jumps > m_usualSteps ? 1000 / std::max(facts.medianStepMs, 1e-9) : facts.rateHz;
    const bool isStill = facts.lastTimeMs == facts.firstTimeMs;
    if (rate >= slowestRateHz && rate <= fastestRateHz && !isStill) {
        addStatedRateOddity();
        return;
    }
    recording.oddities << TableOddity{
        TableOddityKind::ImplausibleRate, 1, facts.firstLine,
        QStringLiteral("%1 samples in %2 ms, %3 a second, are no rate of an eye tracker: most likely the unit of time "
                       "is another one.")
            .arg(facts.samples)
            .arg(facts.lastTimeMs - facts.firstTimeMs)
            .arg(isStill ? QStringLiteral("without end") : QString::number(rate, 'g', 4))};
}

void RecordingBuilder::addEyeOddities()
{
    const TableFacts &facts = recording.facts;
    const auto tell = [&](TableOddityKind kind, qsizetype count, qsizetype line, const QString &sentence) {
        recording.oddities << TableOddity{kind, count, line, sentence};
    };
    for (const bool isLeft : {true, false}) {
        const LineCount &lost = isLeft ? m_leftLost : m_rightLost;
        if (!(isLeft ? facts.hasLeft : facts.hasRight))
            tell(TableOddityKind::EyeAbsent, 1, 0,
                 QStringLiteral("the file has no %1 eye; its samples are not valid.").arg(eyeName(isLeft)));
        else if (facts.samples > 0 && lost.count == facts.samples)
            tell(TableOddityKind::EyeNeverValid, lost.count, lost.firstLine,
                 QStringLiteral("no sample of the %2 eye is valid, of %1; the first is line %3.")
                     .arg(QString::number(lost.count), eyeName(isLeft), QString::number(lost.firstLine)));
        else if (lost.count > 0)
            tell(TableOddityKind::EyeLost, lost.count, lost.firstLine,
                 QStringLiteral("the %1 eye is lost in %2 of %3 samples; the first is line %4.")
                     .arg(eyeName(isLeft), QString::number(lost.count), QString::number(facts.samples),
                          QString::number(lost.firstLine)));
    }
}

TableRecording RecordingBuilder::finish()
{
    measureRate();
    recording.oddities = oddities.list();
    addRateOddity();
    addEyeOddities();
    std::ranges::stable_sort(recording.oddities, {}, &TableOddity::kind);
    constexpr qsizetype spareFraction = 8;
    if (recording.samples.capacity() - recording.samples.size() > recording.samples.size() / spareFraction)
        recording.samples.squeeze();
    return std::move(recording);
}
