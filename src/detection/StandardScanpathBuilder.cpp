// SPDX-License-Identifier: GPL-3.0-or-later
#include "detection/StandardScanpathBuilder.h"

#include "base/Log.h"
#include "base/Messages.h"
#include "detection/BridgedGap.h"
#include "detection/CentroidSum.h"
#include "detection/DetectionReport.h"

#include <QStringList>

#include <algorithm>
#include <span>

namespace {

constexpr int filterLength = 1; // no filtering

constexpr QLatin1StringView tooShort("Fixation too short!");
constexpr QLatin1StringView tooManyOutliers("Fixation with too many outliers!");

bool areInARow(std::span<const WorkSample *const> records)
{
    return std::adjacent_find(records.begin(), records.end(), [](const WorkSample *record, const WorkSample *next) {
               return next->source != record->source + 1;
           }) == records.end();
}

/// @param raw  the list that the records were made of.
GazeSamples samplesOf(std::span<const WorkSample *const> records, const QList<GazePoint> &raw)
{
    if (!records.empty() && areInARow(records))
        return {raw, records.front()->source - raw.constData(), std::ssize(records)};
    QList<GazePoint> copies;
    copies.reserve(std::ssize(records));
    for (const WorkSample *record : records)
        copies.append(*record->source);
    return copies;
}

QPoint centroidOf(std::span<const WorkSample *const> records)
{
    CentroidSum sum;
    for (const WorkSample *record : records)
        sum.add(record->x, record->y);
    return sum.centroid();
}

/// Onset and duration stand one field before their own. That is kept; nothing shows these rows, since the events export
/// builds its own and replaces them.
EventRow eventRowOf(const Invalid &section)
{
    const QString nothing = QStringLiteral(".");
    return {section.type,
            QStringLiteral("2"),
            QString::number(section.samples.size()),
            QString::number(section.firstTime()),
            QString::number(section.duration()),
            nothing,
            nothing,
            nothing,
            nothing,
            nothing,
            nothing};
}

} // namespace

StandardScanpathBuilder::StandardScanpathBuilder(EyeData &target, const StandardParameters &parameters, const Log *log)
    : m_target(target)
    , m_parameters(parameters)
    , m_log(log)
    , m_window(parameters.maximumRadiusPx, parameters.allowedOutliers)
    , m_calculationInfo(QStringLiteral("Calculated with: MinimumDuration=%1ms, MaximumRadius=%2, AllowedOutliers=%3")
                            .arg(parameters.minimumDurationMs)
                            .arg(parameters.maximumRadiusPx)
                            .arg(parameters.allowedOutliers))
{
    std::vector<WorkSample> samples = prepareSamples(std::as_const(target.gazePoints), longestBridgedGapMs);
    medianFilter(samples, filterLength);
    m_report = invalidRunLines(samples);
    run(samples);
    finish();
    m_target.calculationInfo = m_calculationInfo;
    m_report += fixationDurationLine(m_target.scanpath) + saccadeDurationLine(m_target.saccades);
}

void StandardScanpathBuilder::run(const std::vector<WorkSample> &samples)
{
    for (const WorkSample &sample : samples) {
        checkInvariants();
        if (sample.usable)
            addValid(sample);
        else
            addInvalid(sample);
    }
}

bool StandardScanpathBuilder::isLongEnough() const
{
    return !m_window.isEmpty() && m_window.durationMs() >= m_parameters.minimumDurationMs;
}

/// A window that grows can break its promise: by a clock that runs backwards, or by samples appended unseen after a
/// fixation was closed.
void StandardScanpathBuilder::checkInvariants()
{
    if (m_state != State::Growing)
        return;
    const QString violated = QStringLiteral("Fixation calculation invariant violated!");
    if (m_window.durationMs() < m_parameters.minimumDurationMs)
        messages::critical(tooShort, violated);
    if (!m_window.fits())
        messages::critical(tooManyOutliers, violated);
}

void StandardScanpathBuilder::addValid(const WorkSample &sample)
{
    switch (m_state) {
    case State::InsideInvalid:
        closeInvalid();
        m_state = State::Searching;
        [[fallthrough]];
    case State::Searching:
        search(sample);
        return;
    case State::Shifting:
        shift(sample);
        return;
    case State::Growing:
        grow(sample);
        return;
    }
}

void StandardScanpathBuilder::search(const WorkSample &sample)
{
    m_window.append(sample);
    if (isLongEnough())
        m_state = m_window.isCleanFixation() ? State::Growing : State::Shifting;
}

void StandardScanpathBuilder::shift(const WorkSample &sample)
{
    do {
        moveToPendingSaccade(1);
        if (isLongEnough() && m_window.isCleanFixation()) {
            m_state = State::Growing;
            grow(sample);
            return;
        }
    } while (isLongEnough());
    m_state = State::Searching;
    search(sample);
}

void StandardScanpathBuilder::grow(const WorkSample &sample)
{
    m_window.append(sample);
    if (m_window.fits())
        return;
    m_window.takeBack();
    m_state = State::Searching;
    flushSaccade();
    closeFixation();
    m_window.append(sample); // whatever the state that the replayed outliers have led to
}

void StandardScanpathBuilder::addInvalid(const WorkSample &sample)
{
    m_pendingInvalid.push_back(&sample);
    if (m_state == State::InsideInvalid)
        return;
    const bool isFixation = m_state == State::Growing;
    if (!isFixation)
        moveToPendingSaccade(std::ssize(m_window.samples()));
    flushSaccade();
    if (isFixation)
        closeFixation();
    m_state = State::InsideInvalid;
}

void StandardScanpathBuilder::finish()
{
    switch (m_state) {
    case State::Searching:
    case State::Shifting:
        moveToPendingSaccade(std::ssize(m_window.samples()));
        flushSaccade();
        break;
    case State::Growing:
        flushSaccade();
        closeFixation(); // outliers that it replays stay in the window and enter no section
        break;
    case State::InsideInvalid:
        closeInvalid();
        break;
    }
    logCounts();
}

void StandardScanpathBuilder::moveToPendingSaccade(qsizetype count)
{
    for (; count > 0; --count)
        m_pendingSaccade.push_back(m_window.takeFront());
}

void StandardScanpathBuilder::flushSaccade()
{
    if (m_pendingSaccade.empty())
        return;
    m_target.saccades.append(
        Saccade(samplesOf(m_pendingSaccade, m_target.gazePoints), QStringLiteral("saccade"), m_sectionCounter, m_log));
    ++m_saccadeCount;
    ++m_sectionCounter;
    m_lastSectionWasSaccade = true;
    m_pendingSaccade.clear();
}

void StandardScanpathBuilder::closeInvalid()
{
    if (m_pendingInvalid.empty())
        return;
    m_target.invalids.append(
        Invalid(samplesOf(m_pendingInvalid, m_target.gazePoints), QStringLiteral("invalid"), m_sectionCounter, m_log));
    m_target.eventRows.append(eventRowOf(m_target.invalids.constLast()));
    ++m_sectionCounter;
    ++m_invalidCount;
    m_lastSectionWasSaccade = false;
    m_pendingInvalid.clear();
}

/// The window is the candidate. What trailing outliers are taken off it is replayed into the emptied window, the latest
/// first; fewer samples than outliers are allowed cannot break a fixation, so that this never leads back here.
void StandardScanpathBuilder::closeFixation()
{
    if (m_window.isEmpty())
        return;
    Records removed;
    for (qsizetype count = m_window.trailingOutliers(); count > 0; --count)
        removed.push_back(m_window.takeBack());
    handToMovement(m_window.leadingOutliers());
    const bool isFixation = isLongEnough() && m_window.fits();
    if (isFixation)
        appendFixation();
    else
        handToMovement(std::ssize(m_window.samples()));
    m_window.clear();
    m_state = State::Searching;
    for (const WorkSample *sample : removed)
        addValid(*sample);
}

/// Records at the front of the window that belong to the movement before it become a saccade, or part of the saccade
/// that ends there.
void StandardScanpathBuilder::handToMovement(qsizetype count)
{
    if (count == 0)
        return;
    moveToPendingSaccade(count);
    if (m_target.saccades.isEmpty() || !m_lastSectionWasSaccade) {
        flushSaccade();
        return;
    }
    m_target.saccades.last().extend(samplesOf(m_pendingSaccade, m_target.gazePoints));
    m_pendingSaccade.clear();
}

void StandardScanpathBuilder::appendFixation()
{
    Fixation fixation(samplesOf(m_window.samples(), m_target.gazePoints), QStringLiteral("fixation"),
                      centroidOf(m_window.samples()), m_fixationCount);
    // The section's own duration has 32 bits.
    if (fixation.duration() < m_parameters.minimumDurationMs)
        messages::critical(
            tooShort, QStringLiteral("Fixation calculation has an error! Length found:%1").arg(fixation.duration()));
    if (!m_window.fits())
        messages::critical(tooManyOutliers, QStringLiteral("Fixation calculation has an error!"));
    m_target.scanpath.append(std::move(fixation));
    ++m_sectionCounter;
    ++m_fixationCount;
    m_lastSectionWasSaccade = false;
}

void StandardScanpathBuilder::logCounts() const
{
    if (!m_log)
        return;
    m_log->write({QStringLiteral("StandardScanpathBuilder found: %1 fixations, %2 saccades and %3 invalid sections")
                      .arg(m_fixationCount)
                      .arg(m_saccadeCount)
                      .arg(m_invalidCount),
                  m_calculationInfo});
}
