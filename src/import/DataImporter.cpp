#include "import/DataImporter.h"

#include "import/LargePages.h"

#include <QFile>

#include <cstring>
#include <limits>
#include <new>

namespace {

constexpr auto unreadable = QLatin1StringView("DataImporter ERROR: Datafile can not be opened or does not exist!");

/// A file without line breaks is one line; its log line must not be a second copy of it.
constexpr qsizetype longestLoggedBytes = qsizetype(1) << 20;
constexpr qsizetype longestPendingLog = qsizetype(1) << 20; ///< characters

/// A sample line has at least one digit and ten tabs.
constexpr qsizetype shortestSampleLine = 11;

/// A list may keep an eighth of its length in reserve: 54 bytes a sample instead of 48.
constexpr qsizetype spareFraction = 8;

const char *lineEnd(const char *at, const char *end)
{
    const auto *newline = static_cast<const char *>(std::memchr(at, '\n', static_cast<std::size_t>(end - at)));
    return newline ? newline : end;
}

/// The line without the "\r" of a line end.
QByteArrayView withoutReturn(const char *begin, const char *end)
{
    return {begin, end != begin && end[-1] == '\r' ? end - 1 : end};
}

qint64 saturatedDifference(qint64 minuend, qint64 subtrahend)
{
    qint64 difference = 0;
    if (!__builtin_sub_overflow(minuend, subtrahend, &difference))
        return difference;
    return minuend < 0 ? std::numeric_limits<qint64>::min() : std::numeric_limits<qint64>::max();
}

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

/// Not mapped: a file that another program shortens meanwhile must not end the program.
/// @param problem  gets the reason where there is no result.
std::optional<QByteArray> readWhole(const QString &path, QString &problem)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        problem = QStringLiteral("it cannot be opened: ") + file.errorString();
        return std::nullopt;
    }
    QByteArray bytes(file.size(), Qt::Uninitialized);
    adviseLargePages(bytes.constData(), bytes.size());
    bytes.truncate(std::max(qint64(0), file.read(bytes.data(), bytes.size())));
    bytes += file.readAll(); // of files that grow or do not know their size
    if (file.error() == QFile::NoError)
        return bytes;
    problem = QStringLiteral("it cannot be read: ") + file.errorString();
    return std::nullopt;
}

void shrink(QList<GazePoint> &samples)
{
    if (samples.capacity() - samples.size() > samples.size() / spareFraction)
        samples.squeeze();
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
        if (const std::optional<QByteArray> bytes = readWhole(m_path, m_problem))
            return readBytes(*bytes);
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
    if (m_left.isEmpty() || !(m_anyLeftValid || m_anyRightValid)) {
        m_problem = contentProblem(bytes);
        return false;
    }
    store();
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
        return QStringLiteral("its fields are separated by \"%1\" instead of tabs").arg(QLatin1Char(m_wrongSeparator));
    return QStringLiteral("none of its %1 sample lines has eleven fields separated by tabs")
        .arg(m_counts.wrongLength.count);
}

/// Room for as many samples as there can be, so that no list grows while it is filled.
void DataImporter::reserve(QByteArrayView bytes)
{
    qsizetype lines = 0;
    for (const char *at = bytes.begin(); at < bytes.end();) {
        const char *const end = lineEnd(at, bytes.end());
        if (end - at >= shortestSampleLine && lineClass(QByteArrayView(at, end)) == LineClass::Sample)
            ++lines;
        at = end + 1;
    }
    for (QList<GazePoint> *samples : {&m_left, &m_right, &m_mean}) {
        samples->reserve(lines);
        adviseLargePages(samples->constData(), samples->capacity() * static_cast<qsizetype>(sizeof(GazePoint)));
    }
}

void DataImporter::readLines(RecordingText &text)
{
    const QByteArrayView bytes = text.bytes();
    for (const char *at = bytes.begin(); at < bytes.end();) {
        const char *const end = lineEnd(at, bytes.end());
        const QByteArrayView line = withoutReturn(at, end);
        at = end + 1;
        ++m_lineNumber;
        switch (lineClass(line)) {
        case LineClass::Sample:
            readSampleLine(line, text);
            break;
        case LineClass::Header:
            if (m_log)
                log(QStringLiteral("Dataimporter found header: ") + loggedLine(line, text));
            break;
        case LineClass::ColumnNames:
        case LineClass::Filler:
        case LineClass::Other:
            break;
        }
    }
}

void DataImporter::readSampleLine(QByteArrayView line, RecordingText &text)
{
    if (const auto fields = splitSampleLine(line)) {
        FieldReader reader(text);
        addSample(*fields, reader);
        m_counts.noNumbers.add(reader.noNumbers(), m_lineNumber);
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
    const qint64 rawTime = read.toLongLong(fields[0]);
    if (m_firstLine) {
        m_timeZero = rawTime;
        m_firstLine = false;
    } else {
        countTime(rawTime);
    }
    m_lastRawTime = rawTime;
    const qint64 time = saturatedDifference(rawTime, m_timeZero);
    const auto eye = [&](std::size_t first, int validity) {
        return GazePoint(time, read.toDouble(fields[first]), read.toDouble(fields[first + 1]),
                         read.toDouble(fields[first + 2]), read.toDouble(fields[first + 3]), validity);
    };
    const int leftValidity = read.toInt(fields[5]);
    const int rightValidity = read.toInt(fields[10]);
    m_left.append(eye(1, leftValidity));
    m_right.append(eye(6, rightValidity));
    // Codes above 1 count here, but do not make the eye's own sample usable.
    const bool leftValid = leftValidity >= 1;
    const bool rightValid = rightValidity >= 1;
    m_anyLeftValid |= leftValid;
    m_anyRightValid |= rightValid;
    if (leftValid && rightValid)
        addMean(time);
    else
        m_mean.append(GazePoint(time, -1, -1, -1, -1, 0));
    ++m_counts.samples;
}

void DataImporter::countTime(qint64 rawTime)
{
    const qint64 stepMs = saturatedDifference(rawTime, m_lastRawTime);
    if (stepMs > 0 && stepMs <= ImportCounts::longestPlausibleStepMs) // nearly every sample
        return;
    if (stepMs > 0)
        ++m_counts.longSteps;
    else
        (stepMs < 0 ? m_counts.backwardTimes : m_counts.repeatedTimes).add(1, m_lineNumber);
}

void DataImporter::addMean(qint64 time)
{
    const GazePoint &left = m_left.constLast();
    const GazePoint &right = m_right.constLast();
    m_mean.append(GazePoint(time, (left.x + right.x) / 2, (left.y + right.y) / 2, (left.width + right.width) / 2,
                            (left.height + right.height) / 2, 1));
}

void DataImporter::store()
{
    for (QList<GazePoint> *samples : {&m_left, &m_right, &m_mean})
        shrink(*samples);
    m_examination->leftEye.gazePoints = std::exchange(m_left, {});
    m_examination->rightEye.gazePoints = std::exchange(m_right, {});
    m_examination->meanEye.gazePoints = std::exchange(m_mean, {});
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
