// SPDX-License-Identifier: GPL-3.0-or-later
// The part of the reader that makes a sample of the fields of a line.

#include "import/tables/DelimitedReader.h"

#include <algorithm>

namespace {

constexpr double msPerSecond = 1000;
/// Of the values that separate recordings, in bytes; they are names of subjects and trials.
constexpr qsizetype longestKey = 1000;
constexpr qsizetype longestSetEntry = 1000; ///< bytes

bool isOneOf(const QStringList &words, const QString &text)
{
    return words.contains(text, Qt::CaseInsensitive);
}

} // namespace

DelimitedReader::Then DelimitedReader::addSample()
{
    const auto eyes = m_plan->eye < 0 ? m_plan->given() : eyesOfLine();
    if (!eyes) {
        m_oddities.add(TableOddityKind::UnknownLine, m_line);
        return Then::GoOn;
    }
    const bool isSame = m_isOnlyRecording && m_current >= 0; // nearly every line
    const qsizetype recording = isSame ? m_current : recordingOfLine(*eyes);
    if (recording < 0)
        return fail(
            {.line = m_line,
             .found = QStringLiteral("more than %1 recordings, or a value of more than %2 bytes that separates them")
                          .arg(RecordingCollector::mostRecordings)
                          .arg(longestKey),
             .expected = QStringLiteral("columns that separate fewer"),
             .remedy = QStringLiteral("Choose the columns that separate recordings anew.")});
    m_current = recording;
    TableSample sample;
    sample.timeMs = timeOf(recording);
    if ((*eyes)[0])
        sample.leftValid = readEye(m_plan->eyes[m_plan->eyes[0].x >= 0 ? 0 : 1], sample.left);
    if ((*eyes)[1])
        sample.rightValid = readEye(m_plan->eyes[m_plan->eyes[1].x >= 0 ? 1 : 0], sample.right);
    return m_recordings.addSample(recording, sample, m_line) ? Then::GoOn : Then::Stop;
}

/// Which eyes the line has; nothing for a word that is no eye.
std::optional<std::array<bool, 2>> DelimitedReader::eyesOfLine() const
{
    const QString word = m_bytes.decoded(bareField(m_kept[static_cast<std::size_t>(m_plan->eye)].text));
    const bool isLeft = isOneOf(m_layout.eye.left, word);
    if (!isLeft && !isOneOf(m_layout.eye.right, word))
        return std::nullopt;
    return std::array{isLeft, !isLeft};
}

double DelimitedReader::timeOf(qsizetype recording)
{
    const bool isCounted = m_plan->time < 0;
    if (isCounted)
        return static_cast<double>(m_recordings[recording].recording.facts.samples) * msPerSecond / m_layout.rateHz;
    double time = m_kept[static_cast<std::size_t>(m_plan->time)].value.value;
    if (m_layout.timeUnit == TableTimeUnit::Samples)
        return time * msPerSecond / m_layout.rateHz;
    if (m_layout.timeUnit != TableTimeUnit::Clock)
        return time;
    constexpr double dayMs = 86'400'000;
    m_clocks.resize(static_cast<std::size_t>(m_recordings.size()));
    DayClock &clock = m_clocks[static_cast<std::size_t>(recording)];
    if (time < clock.lastMs - dayMs / 2)
        clock.offsetMs += dayMs;
    clock.lastMs = time;
    return time + clock.offsetMs;
}

/// @return whether the eye is valid.
bool DelimitedReader::readEye(const ColumnPlan::Eye &eye, TableEyeSample &sample)
{
    const FieldValue &x = m_kept[static_cast<std::size_t>(eye.x)].value;
    const FieldValue &y = m_kept[static_cast<std::size_t>(eye.y)].value;
    const qsizetype texts = (x.state == FieldState::Text ? 1 : 0) + (y.state == FieldState::Text ? 1 : 0);
    if (texts > 0)
        m_recordings[m_current].oddities.add(TableOddityKind::NotANumber, m_line, texts);
    sample.pupilWidth = pupilOf(eye.pupil);
    sample.pupilHeight = eye.pupilHeight >= 0 ? pupilOf(eye.pupilHeight) : sample.pupilWidth;
    if (x.state != FieldState::Number || y.state != FieldState::Number)
        return false;
    // A number that stands for missing does so only in both: gaze can well be at 0 in one of them.
    if (m_numbers.isMissingCode(x.value) && m_numbers.isMissingCode(y.value))
        return false;
    sample.x = m_place.x(x.value);
    sample.y = m_place.y(y.value);
    return eye.validity < 0 || isValid(eye.validity);
}

double DelimitedReader::pupilOf(int place)
{
    if (place < 0)
        return 0;
    const FieldValue &pupil = m_kept[static_cast<std::size_t>(place)].value;
    if (pupil.state == FieldState::Text)
        m_recordings[m_current].oddities.add(TableOddityKind::NotANumber, m_line);
    return pupil.state == FieldState::Number && !m_numbers.isMissingCode(pupil.value) ? pupil.value : 0;
}

bool DelimitedReader::isValid(int place)
{
    const QByteArrayView field = bareField(m_kept[static_cast<std::size_t>(place)].text);
    const FieldValue number = m_numbers.read(field);
    const bool isNumber = number.state == FieldState::Number;
    switch (m_layout.valid.kind) {
    case TableValidityRule::Kind::AtLeast:
        return isNumber && number.value >= m_layout.valid.limit;
    case TableValidityRule::Kind::AtMost:
        return isNumber && number.value <= m_layout.valid.limit;
    case TableValidityRule::Kind::Codes:
        break;
    }
    for (qsizetype i = 0; i < m_codes.size(); ++i) {
        const bool isCodeNumber = m_codes[i].state == FieldState::Number;
        if (isNumber && isCodeNumber ? m_codes[i].value == number.value
                                     : field.compare(m_codeTexts[i], Qt::CaseInsensitive) == 0)
            return true;
    }
    return false;
}

/// Lines of one recording mostly follow each other: the key of the one before is compared first.
qsizetype DelimitedReader::recordingOfLine(std::array<bool, 2> eyes)
{
    const bool isOnly = m_plan->split.isEmpty() && m_plan->eye < 0;
    if (isOnly)
        return newRecording(eyes);
    constexpr char separator = '\x1F';
    QByteArray &key = m_newKey;
    key.resize(0);
    for (const int place : std::as_const(m_plan->split)) {
        const QByteArrayView text = bareField(m_kept[static_cast<std::size_t>(place)].text);
        key.append(text.data(), text.size()).append(separator);
    }
    key.append(eyes[0] ? 'L' : 'R');
    if (m_current >= 0 && key == m_key)
        return m_current;
    if (key.size() > longestKey)
        return -1;
    const auto known = m_indices.constFind(key);
    const qsizetype index = known != m_indices.constEnd() ? *known : newRecording(eyes);
    if (index >= 0)
        m_indices.insert(key, index);
    m_key = std::exchange(m_newKey, m_key);
    return index;
}

qsizetype DelimitedReader::newRecording(std::array<bool, 2> eyes)
{
    const auto textOf = [&](int place) {
        const QByteArrayView text = bareField(m_kept[static_cast<std::size_t>(place)].text);
        return m_bytes.decoded(text.first(std::min(text.size(), longestSetEntry)));
    };
    QStringList parts;
    for (const int place : std::as_const(m_plan->split))
        parts << textOf(place);
    if (m_plan->eye >= 0)
        parts << (eyes[0] ? QStringLiteral("left") : QStringLiteral("right"));
    const qsizetype index = m_recordings.add(parts, eyes[0], eyes[1]);
    for (qsizetype i = 0; index >= 0 && i < m_plan->set.size(); ++i)
        m_recordings[index].recording.entries << TableEntry{m_layout.set[i].key, textOf(m_plan->set[i])};
    return index;
}
