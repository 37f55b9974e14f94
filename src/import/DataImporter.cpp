// SPDX-License-Identifier: GPL-3.0-or-later
#include "import/DataImporter.h"

#include <QFileInfo>

#include <new>

namespace {

constexpr auto unreadable = QLatin1StringView("DataImporter ERROR: Datafile can not be opened or does not exist!");

/// A file without line breaks is one line; its log line must not be a second copy of it.
constexpr qsizetype longestLoggedBytes = qsizetype(1) << 20;
constexpr qsizetype longestPendingLog = qsizetype(1) << 20; ///< characters

/// A sample line has at least one digit and ten tabs.
constexpr qsizetype shortestSampleLine = 11;

QString loggedLine(QByteArrayView line, RecordingText &text)
{
    if (line.size() <= longestLoggedBytes)
        return text.decoded(line);
    qsizetype length = longestLoggedBytes;
    constexpr qsizetype longestCharacter = 4;
    while (length > longestLoggedBytes - longestCharacter && (line[length] & 0xC0) == 0x80)
        --length; // not within a character
    return text.decoded(line.first(length)) + QStringLiteral(" ... (cut, the line has %1 bytes)").arg(line.size());
}

/// What separates the fields of a line that has no tab: ",", ";" or, if it has neither, 0.
char separatorInsteadOfTab(QByteArrayView line)
{
    if (line.contains('\t'))
        return 0;
    return line.contains(';') ? ';' : line.contains(',') ? ',' : char(0);
}

} // namespace

DataImporter::DataImporter(QString path, Examination *examination, const Log *log)
    : m_path(std::move(path))
    , m_examination(examination)
    , m_log(log)
{
}

bool DataImporter::readFile()
{
    try {
        if (const std::optional<QByteArray> bytes = readWholeRecording(m_path, m_problem)) {
            if (!QFileInfo(m_path).isFile())
                m_pipeDigest = contentDigest(*bytes);
            return readBytes(*bytes);
        }
    } catch (const std::bad_alloc &) {
        m_problem = QStringLiteral("it does not fit into the memory");
        log(QStringLiteral("DataImporter ERROR: Datafile does not fit into the memory!"));
    }
    log(unreadable);
    flushLog();
    return false;
}

bool DataImporter::readBytes(QByteArrayView bytes)
{
    const std::optional<QByteArray> wide = utf8OfWideText(bytes);
    RecordingText text(wide ? QByteArrayView(*wide) : bytes);
    reserve(text.bytes());
    readLines(text);
    m_counts.durationMs = saturatedDifference(m_lastRawTime, m_timeZero);
    flushLog();
    if (m_streams.isEmpty() || !m_streams.anyValid()) {
        m_problem = contentProblem(bytes);
        return false;
    }
    m_streams.moveTo(*m_examination);
    return true;
}

QString DataImporter::contentProblem(QByteArrayView bytes) const
{
    if (bytes.isEmpty())
        return QStringLiteral("it is empty");
    if (m_counts.samples > 0)
        return QStringLiteral("none of its %1 samples is valid").arg(m_counts.samples);
    if (m_counts.wrongLength.count == 0)
        return QStringLiteral("it has no sample line, which would begin with a digit");
    if (m_wrongSeparator != 0)
        return QStringLiteral("its fields are separated by \"%1\" instead of tabs; \"Import other formats...\" or "
                              "vistrum-import read such files")
            .arg(QLatin1Char(m_wrongSeparator));
    return QStringLiteral("none of its %1 sample lines has eleven fields separated by tabs")
        .arg(m_counts.wrongLength.count);
}

/// Room for as many samples as there can be, so that no list grows while it is filled.
void DataImporter::reserve(QByteArrayView bytes)
{
    qsizetype lines = 0;
    LineWalk walk(bytes);
    while (const auto line = walk.next()) {
        if (line->size() >= shortestSampleLine && lineClass(*line) == LineClass::Sample)
            ++lines;
    }
    m_streams.reserve(lines);
}

void DataImporter::readLines(RecordingText &text)
{
    LineWalk walk(text.bytes());
    while (const auto line = walk.next()) {
        ++m_lineNumber;
        switch (lineClass(*line)) {
        case LineClass::Sample:
            readSampleLine(*line, text);
            break;
        case LineClass::Header:
            if (m_log)
                log(QStringLiteral("Dataimporter found header: ") + loggedLine(*line, text));
            break;
        case LineClass::Other:
            m_counts.shifted.add(isShiftedSample(*line) ? 1 : 0, m_lineNumber);
            break;
        case LineClass::ColumnNames:
        case LineClass::Filler:
            break;
        }
    }
}

void DataImporter::readSampleLine(QByteArrayView line, RecordingText &text)
{
    if (const auto fields = splitSampleLine(line)) {
        FieldReader reader(text);
        addSample(*fields, reader);
        m_counts.add(reader.takeFaults(), m_lineNumber);
        return;
    }
    if (m_counts.wrongLength.count == 0)
        m_wrongSeparator = separatorInsteadOfTab(line);
    m_counts.wrongLength.add(1, m_lineNumber);
    if (m_log) {
        log(QStringLiteral("DataImporter ERROR: Journal entry has invalid length"));
        log(QStringLiteral("   --> ") + loggedLine(line, text));
    }
}

void DataImporter::addSample(const SampleFields &fields, FieldReader &read)
{
    const qint64 rawTime = read.toTime(fields[0]);
    if (m_firstLine) {
        m_timeZero = rawTime;
        m_firstLine = false;
    } else {
        m_counts.countStep(saturatedDifference(rawTime, m_lastRawTime), m_lineNumber);
    }
    m_lastRawTime = rawTime;
    const qint64 time = saturatedDifference(rawTime, m_timeZero);
    const auto eye = [&](std::size_t first, int validity) {
        return GazePoint(time, read.toDouble(fields[first]), read.toDouble(fields[first + 1]),
                         read.toDouble(fields[first + 2]), read.toDouble(fields[first + 3]), validity);
    };
    const int leftValidity = read.toInt(fields[5]);
    const int rightValidity = read.toInt(fields[10]);
    m_streams.add(eye(1, leftValidity), leftValidity, eye(6, rightValidity), rightValidity);
    ++m_counts.samples;
}

void DataImporter::log(const QString &line)
{
    m_pendingLog << line;
    m_pendingLogLength += line.size();
    if (m_pendingLogLength > longestPendingLog)
        flushLog();
}

void DataImporter::flushLog()
{
    if (m_log && !m_pendingLog.isEmpty())
        m_log->write(m_pendingLog);
    m_pendingLog.clear();
    m_pendingLogLength = 0;
}
