// SPDX-License-Identifier: GPL-3.0-or-later
#include "import/tables/EventLogReader.h"

#include "import/PlainNumber.h"
#include "import/RecordingText.h"
#include "import/tables/TableFields.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr qsizetype mostWords = 1000;          ///< of messages, of entries of a trial
constexpr qsizetype longestMessageEntry = 200; ///< bytes

/// What lines that are no samples begin with, beside MSG, START, END and SAMPLES.
constexpr QByteArrayView passedOver[] = {"EVENTS", "PRESCALER", "VPRESCALER", "PUPIL",  "INPUT",  "BUTTON",
                                         "SFIX",   "EFIX",      "SSACC",      "ESACC",  "SBLINK", "EBLINK",
                                         "**",     ">>>",       "LTARGET",    "RTARGET"};

/// The first word of a text, taken off its front with the blanks behind it.
QByteArrayView takeWord(QByteArrayView &text)
{
    while (!text.isEmpty() && isBlank(text.front()))
        text = text.sliced(1);
    const qsizetype size = std::find_if(text.begin(), text.end(), isBlank) - text.begin();
    const QByteArrayView word = text.first(size);
    text = text.sliced(size);
    while (!text.isEmpty() && isBlank(text.front()))
        text = text.sliced(1);
    return word;
}

std::optional<double> numberOf(QByteArrayView word)
{
    const PlainNumber number = scanPlainNumber(word.begin(), word.end(), '.');
    if (!number.isPlain() || number.end != word.end() || !number.isExact())
        return std::nullopt;
    return number.value();
}

/// Bounds of pixels that belong to the screen are one less than its size, which is even; others are its size.
double sizeOfBounds(double first, double last)
{
    const double size = last - first;
    return std::fmod(size, 2) == 1 ? size + 1 : size;
}

} // namespace

EventLogReader::EventLogReader(TableBytes &bytes, const QString &file, const TableLayout &layout,
                               const TableReadOptions &options)
    : m_bytes(bytes)
    , m_file(file)
    , m_layout(layout)
    , m_place(layout.place)
    , m_begin(bytes.encoded(layout.beginMessage))
    , m_end(bytes.encoded(layout.endMessage))
    , m_screenPx(layout.place.screenPx)
    , m_recordings(file, layout, options)
{
}

std::variant<TableContent, TableProblem> EventLogReader::read()
{
    TableLines groups(m_bytes);
    while (true) {
        const QByteArrayView lines = groups.next(m_line + 1);
        if (lines.isEmpty() || readLines(lines) == Then::Stop || !m_recordings.handOn(m_bytes.part()))
            break;
    }
    if (!m_problem)
        m_problem = groups.problem();
    return finish();
}

EventLogReader::Then EventLogReader::readLines(QByteArrayView lines)
{
    LineWalk walk(lines);
    while (const auto line = walk.next()) {
        ++m_line;
        if (!line->isEmpty() && readLine(*line) == Then::Stop)
            return Then::Stop;
    }
    return Then::GoOn;
}

EventLogReader::Then EventLogReader::readLine(QByteArrayView line)
{
    if (isDigit(line.front()) || (line.size() > 1 && line.front() == '-' && isDigit(line[1])))
        return readSample(line);
    readOther(line);
    return m_problem ? Then::Stop : Then::GoOn;
}

EventLogReader::Then EventLogReader::readSample(QByteArrayView line)
{
    const bool isUnderstood = m_hasLeft || m_hasRight;
    const auto time = numberOf(takeWord(line));
    if (!isUnderstood || !time) {
        m_oddities.add(TableOddityKind::UnknownLine, m_line);
        return Then::GoOn;
    }
    TableSample sample;
    sample.timeMs = *time;
    for (const bool isLeft : {true, false}) {
        if (!(isLeft ? m_hasLeft : m_hasRight))
            continue;
        const QByteArrayView x = takeWord(line);
        const QByteArrayView y = takeWord(line);
        const QByteArrayView pupil = takeWord(line);
        if (pupil.isEmpty()) {
            m_oddities.add(TableOddityKind::ColumnsChanged, m_line);
            return Then::GoOn;
        }
        TableEyeSample &eye = isLeft ? sample.left : sample.right;
        const auto placeX = numberOf(x);
        const auto placeY = numberOf(y);
        const qsizetype texts = (!placeX && x != "." ? 1 : 0) + (!placeY && y != "." ? 1 : 0);
        if (texts > 0)
            m_oddities.add(TableOddityKind::NotANumber, m_line, texts);
        eye.pupilWidth = eye.pupilHeight = numberOf(pupil).value_or(0);
        if (!placeX || !placeY)
            continue;
        eye.x = m_place.x(*placeX) - m_shiftX;
        eye.y = m_place.y(*placeY) - m_shiftY;
        (isLeft ? sample.leftValid : sample.rightValid) = true;
    }
    return addSample(sample);
}

EventLogReader::Then EventLogReader::addSample(const TableSample &sample)
{
    if (!m_begin.isEmpty() && !m_isInTrial) {
        m_oddities.add(TableOddityKind::OutsideTrial, m_line);
        return Then::GoOn;
    }
    if (m_current < 0)
        openRecording({});
    return m_recordings.addSample(m_current, sample, m_line) ? Then::GoOn : Then::Stop;
}

void EventLogReader::openRecording(const QStringList &parts)
{
    m_current = m_recordings.add(parts, m_hasLeft, m_hasRight);
    if (m_current < 0) {
        m_problem = TableProblem{.line = m_line,
                                 .found = QStringLiteral("more than %1 trials").arg(RecordingCollector::mostRecordings),
                                 .expected = QStringLiteral("a message that begins fewer"),
                                 .remedy = QStringLiteral("Choose the message that begins a trial anew.")};
        return;
    }
    m_recordings[m_current].recording.facts.statedRateHz = m_rateHz;
    m_recordings[m_current].setScreen(m_screenPx);
}

void EventLogReader::readOther(QByteArrayView line)
{
    if (line.startsWith("MSG"))
        readMessage(line.sliced(3));
    else if (line.startsWith("START"))
        startBlock(line);
    else if (line.startsWith("SAMPLES"))
        readSampleKind(line);
    else if (line.startsWith("END"))
        return;
    else if (!isBlank(line.front()) &&
             std::ranges::none_of(passedOver, [&](QByteArrayView word) { return line.startsWith(word); }))
        m_oddities.add(TableOddityKind::UnknownLine, m_line);
}

void EventLogReader::setEyes(QByteArrayView line)
{
    m_hasLeft = line.contains("LEFT");
    m_hasRight = line.contains("RIGHT");
    if (m_current >= 0)
        m_recordings[m_current].setEyes(m_hasLeft, m_hasRight);
}

void EventLogReader::startBlock(QByteArrayView line)
{
    setEyes(line);
    if (m_current < 0 || m_recordings[m_current].recording.facts.samples == 0)
        return;
    m_recordings[m_current].oddities.add(TableOddityKind::RecordingPause, m_line);
    m_recordings[m_current].pause();
}

void EventLogReader::readSampleKind(QByteArrayView line)
{
    setEyes(line);
    if (!line.contains("GAZE"))
        m_problem = TableProblem{.line = m_line,
                                 .found = QStringLiteral("samples that are no places on the screen: ") +
                                          m_bytes.decoded(line.first(std::min(line.size(), longestMessageEntry))),
                                 .expected = QStringLiteral("SAMPLES GAZE"),
                                 .remedy = QStringLiteral("Write the log anew with gaze positions as samples.")};
    const qsizetype rate = line.indexOf("RATE");
    if (rate < 0)
        return;
    QByteArrayView rest = line.sliced(rate);
    takeWord(rest);
    m_rateHz = numberOf(takeWord(rest)).value_or(0);
    if (m_current >= 0)
        m_recordings[m_current].recording.facts.statedRateHz = m_rateHz;
}

void EventLogReader::readMessage(QByteArrayView text)
{
    takeWord(text); // time
    QByteArrayView behindOffset = text;
    // A message can begin with its offset from the time of the line.
    if (numberOf(takeWord(behindOffset)))
        text = behindOffset;
    countWord(text);
    if (text.startsWith("GAZE_COORDS"))
        readScreen(text);
    if (!m_begin.isEmpty() && text.startsWith(m_begin)) {
        const QByteArrayView name = text.sliced(m_begin.size());
        beginTrial(m_bytes.decoded(bareField(name.first(std::min(name.size(), longestMessageEntry)))));
    } else if (m_isInTrial && !m_end.isEmpty() && text.startsWith(m_end)) {
        m_isInTrial = false;
    } else if (m_current >= 0 && !m_begin.isEmpty() && text.startsWith("!V TRIAL_VAR ")) {
        readTrialVariable(text);
    }
}

void EventLogReader::beginTrial(const QString &name)
{
    ++m_trials;
    openRecording({QStringLiteral("trial%1").arg(m_trials)});
    m_isInTrial = true;
    if (m_current >= 0 && !name.isEmpty())
        m_recordings[m_current].recording.entries << TableEntry{QStringLiteral("trial"), name};
}

/// "!V TRIAL_VAR NAME VALUE" tells of the trial it stands in.
void EventLogReader::readTrialVariable(QByteArrayView text)
{
    takeWord(text);
    takeWord(text);
    const QByteArrayView key = takeWord(text);
    QList<TableEntry> &entries = m_recordings[m_current].recording.entries;
    if (key.isEmpty() || key.size() > longestMessageEntry || entries.size() >= mostWords)
        return;
    entries << TableEntry{m_bytes.decoded(key),
                          m_bytes.decoded(bareField(text.first(std::min(text.size(), longestMessageEntry))))};
}

void EventLogReader::readScreen(QByteArrayView text)
{
    takeWord(text);
    std::array<double, 4> bounds{};
    for (double &bound : bounds) {
        const auto number = numberOf(takeWord(text));
        if (!number)
            return;
        bound = *number;
    }
    const QSizeF size(sizeOfBounds(bounds[0], bounds[2]), sizeOfBounds(bounds[1], bounds[3]));
    if (size.isEmpty() || !m_layout.place.screenPx.isEmpty())
        return;
    m_shiftX = bounds[0];
    m_shiftY = bounds[1];
    m_screenPx = size;
    if (m_current >= 0)
        m_recordings[m_current].setScreen(size);
}

void EventLogReader::countWord(QByteArrayView text)
{
    const QByteArray word = takeWord(text).toByteArray();
    if (!word.isEmpty() && word.size() <= longestMessageEntry && (m_words.size() < mostWords || m_words.contains(word)))
        ++m_words[word];
}

std::variant<TableContent, TableProblem> EventLogReader::finish()
{
    if (!m_problem && m_recordings.samples() == 0)
        m_problem = TableProblem{
            .line = m_line,
            .found = QStringLiteral("no samples"),
            .expected =
                m_begin.isEmpty()
                    ? QStringLiteral("lines of samples below a line START that names the eyes")
                    : QStringLiteral("samples behind a message that begins with \"%1\"").arg(m_layout.beginMessage),
            .remedy = m_begin.isEmpty() ? QStringLiteral("Write the log anew with samples.")
                                        : QStringLiteral("Choose the message that begins a trial anew.")};
    if (m_problem) {
        m_problem->file = m_file;
        return *m_problem;
    }
    TableContent content;
    content.recordings = m_recordings.finish();
    content.oddities = m_oddities.list();
    for (auto word = m_words.constBegin(); word != m_words.constEnd(); ++word)
        content.messageWords << m_bytes.decoded(word.key());
    std::ranges::sort(content.messageWords, [this](const QString &a, const QString &b) {
        const qsizetype countA = m_words.value(a.toUtf8());
        const qsizetype countB = m_words.value(b.toUtf8());
        return countA != countB ? countA > countB : a < b;
    });
    return content;
}
