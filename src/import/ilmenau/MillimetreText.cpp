// SPDX-License-Identifier: GPL-3.0-or-later
#include "import/ilmenau/MillimetreText.h"

#include "import/RecordingText.h"
#include "import/SampleLine.h"
#include "import/SampleList.h"

#include <array>

namespace {

using namespace Qt::StringLiterals;

enum Column { Time, LeftX, LeftY, RightX, RightY, columnCount };

constexpr std::array<QLatin1StringView, columnCount> columnNames{"sits"_L1, "Lspx"_L1, "Lspy"_L1, "Rspx"_L1, "Rspy"_L1};
constexpr qint64 msPerHour = 3'600'000;
constexpr qint64 msPerMinute = 60'000;
constexpr qint64 msPerHalfDay = 12 * msPerHour;

/// Digits only, few enough for any clock.
std::optional<qint64> clockNumber(QByteArrayView digits)
{
    constexpr qsizetype mostDigits = 9;
    if (digits.isEmpty() || digits.size() > mostDigits)
        return std::nullopt;
    qint64 number = 0;
    for (const char digit : digits) {
        if (digit < '0' || digit > '9')
            return std::nullopt;
        number = number * 10 + (digit - '0');
    }
    return number;
}

/// The third part of a time without its point.
std::optional<qint64> thousandths(QByteArrayView text)
{
    const qsizetype point = text.indexOf('.');
    if (point < 0)
        return clockNumber(text);
    const QByteArrayView decimals = text.sliced(point + 1);
    const QByteArrayView seconds = text.first(point);
    const auto after = decimals.isEmpty() ? std::optional(qint64(0)) : clockNumber(decimals);
    const auto before = seconds.isEmpty() ? std::optional(qint64(0)) : clockNumber(seconds);
    if (!after || !before || text.size() == 1)
        return std::nullopt;
    qint64 number = *before;
    for (qsizetype i = 0; i < decimals.size(); ++i)
        number *= 10;
    return number + *after;
}

std::optional<qint64> timeOfDay(QByteArrayView text)
{
    const qsizetype first = text.indexOf(':');
    const qsizetype second = first < 0 ? -1 : text.indexOf(':', first + 1);
    if (second < 0)
        return std::nullopt;
    const auto hours = clockNumber(text.first(first));
    const auto minutes = clockNumber(text.sliced(first + 1, second - first - 1));
    const auto rest = thousandths(text.sliced(second + 1));
    if (!hours || !minutes || !rest)
        return std::nullopt;
    return *hours * msPerHour + *minutes * msPerMinute + *rest;
}

bool isLossMark(QByteArrayView field)
{
    constexpr qsizetype longestMark = 3;
    return field.size() <= longestMark &&
           (field.isEmpty() || field == "-1" || field.compare("nan", Qt::CaseInsensitive) == 0);
}

class MillimetreReader {
public:
    MillimetreReader(QByteArrayView bytes, const StimulusSize &size)
        : m_text(bytes)
        , m_fields(m_text)
        , m_halfWidth(size.widthPx / 2)
        , m_height(size.heightPx)
        , m_pixelsPerMmX(static_cast<float>(size.widthPx) / static_cast<float>(size.widthMm))
        , m_pixelsPerMmY(static_cast<float>(size.heightPx) / static_cast<float>(size.heightMm))
    {
    }

    MillimetreSamples run()
    {
        LineWalk walk(m_text.bytes());
        if (const auto header = walk.next())
            readHeader(*header);
        if (m_samples.counts.columns.size() == columnCount)
            reserve();
        while (const auto line = walk.next()) {
            ++m_line;
            readLine(*line);
        }
        for (QList<GazePoint> *samples : {&m_samples.left, &m_samples.right, &m_samples.mean})
            shrinkSamples(*samples);
        m_samples.counts.samples.samples = m_samples.left.size();
        m_samples.counts.samples.durationMs = m_lastTime - m_timeZero;
        return std::move(m_samples);
    }

private:
    void readHeader(QByteArrayView line)
    {
        const QList<QByteArray> names = line.toByteArray().split('\t');
        m_samples.counts.headerFields = names.size();
        m_places.fill(-1);
        for (std::size_t i = 0; i < columnCount; ++i) {
            m_places[i] = names.indexOf(QByteArrayView(columnNames[i]));
            if (m_places[i] >= 0)
                m_samples.counts.columns << columnNames[i];
        }
    }

    void reserve()
    {
        qsizetype lines = 0;
        LineWalk walk(m_text.bytes());
        while (const auto line = walk.next())
            lines += line->size() >= m_samples.counts.headerFields - 1 ? 1 : 0;
        for (QList<GazePoint> *samples : {&m_samples.left, &m_samples.right, &m_samples.mean})
            reserveSamples(*samples, lines);
    }

    /// The fields of the five columns; nothing where the line has another number of fields than the header.
    bool split(QByteArrayView line, std::array<QByteArrayView, columnCount> &fields) const
    {
        qsizetype place = 0;
        const char *first = line.begin();
        for (const char *at = line.begin();; ++at) {
            if (at != line.end() && *at != '\t')
                continue;
            for (std::size_t i = 0; i < columnCount; ++i) {
                if (m_places[i] == place)
                    fields[i] = QByteArrayView(first, at);
            }
            ++place;
            first = at + 1;
            if (at == line.end())
                return place == m_samples.counts.headerFields;
        }
    }

    void readLine(QByteArrayView line)
    {
        if (m_samples.counts.columns.size() < columnCount || line.isEmpty())
            return;
        std::array<QByteArrayView, columnCount> fields;
        if (!split(line, fields)) {
            m_samples.counts.wrongLength.add(1, m_line + 1);
            return;
        }
        if (const auto time = timeOfDay(fields[Time].trimmed()))
            addSample(*time, fields);
        else
            m_samples.counts.noTimes.add(1, m_line + 1);
    }

    void addSample(qint64 rawTime, const std::array<QByteArrayView, columnCount> &fields)
    {
        if (m_timeZero == 0)
            m_timeZero = rawTime;
        countStep(rawTime - m_lastTime);
        m_lastTime = rawTime;
        const double leftX = pixelX(fields[LeftX]);
        const double leftY = pixelY(fields[LeftY]);
        const double rightX = pixelX(fields[RightX]);
        const double rightY = pixelY(fields[RightY]);
        m_samples.counts.samples.add(m_fields.takeFaults(), m_line + 1);
        const int validity = leftX != -1 && leftY != -1 && rightX != -1 && rightY != -1 ? 1 : 0;
        const auto place = static_cast<double>(m_line);
        const qint64 time = rawTime - m_timeZero;
        m_samples.left.append(GazePoint(time, leftX, leftY, place, place, validity));
        m_samples.right.append(GazePoint(time, rightX, rightY, place, place, validity));
        m_samples.mean.append(GazePoint(time, (leftX + rightX) / 2, (leftY + rightY) / 2, place, place, validity));
    }

    void countStep(qint64 stepMs)
    {
        if (m_samples.left.isEmpty())
            return;
        if (stepMs < -msPerHalfDay)
            m_samples.counts.dayEnds.add(1, m_line + 1);
        else
            m_samples.counts.samples.countStep(stepMs, m_line + 1);
    }

    double millimetres(QByteArrayView field)
    {
        if (isLossMark(field))
            m_samples.counts.lossMarks.add(1, m_line + 1);
        return m_fields.toDouble(field);
    }
    double pixelX(QByteArrayView field) { return millimetres(field) * m_pixelsPerMmX + m_halfWidth; }
    double pixelY(QByteArrayView field) { return m_height - millimetres(field) * m_pixelsPerMmY; }

    RecordingText m_text;
    FieldReader m_fields;
    const int m_halfWidth;
    const int m_height;
    const float m_pixelsPerMmX;
    const float m_pixelsPerMmY;
    std::array<qsizetype, columnCount> m_places{-1, -1, -1, -1, -1};
    MillimetreSamples m_samples;
    qsizetype m_line = 0; ///< index of the line being read, the header being 0
    qint64 m_timeZero = 0;
    qint64 m_lastTime = 0;
};

struct MillimetreCountRow {
    LineCount MillimetreCounts::*member;
    QLatin1StringView name;
    QLatin1StringView text; ///< "%1" is the count, "%2" the first line, "%3" what was found
};

constexpr MillimetreCountRow millimetreLineCounts[] = {
    {&MillimetreCounts::wrongLength, "lines of wrong length"_L1,
     "lines with another number of fields than the header, left out: %1; the first is line %2. %3 Fields are "
     "separated by one tab each."_L1},
    {&MillimetreCounts::noTimes, "lines without time"_L1,
     "lines without a time of day, left out: %1; the first is line %2. %3 Times are written as hh:mm:ss.zzz."_L1},
    {&MillimetreCounts::lossMarks, "marks of loss"_L1,
     "positions that are -1, \"nan\" or empty: %1; the first is in line %2. They count as places on the stimulus, in "
     "mm: leave out such lines if they mean that the eye was lost."_L1},
    {&MillimetreCounts::dayEnds, "ends of a day"_L1,
     "jumps of the clock back by a day: %1; the first is line %2. What comes after is not joined to what comes "
     "before: write hours on beyond 24."_L1},
};

QString foundColumns(const MillimetreCounts &counts)
{
    return QStringLiteral("The header has %1 fields; found the columns %2.")
        .arg(QString::number(counts.headerFields), counts.columns.join(QStringLiteral(", ")));
}

QString missingColumns(const MillimetreCounts &counts)
{
    QStringList missing = millimetreColumns();
    missing.removeIf([&](const QString &name) { return counts.columns.contains(name); });
    const QString found =
        counts.columns.isEmpty() ? QStringLiteral("none of those it needs") : counts.columns.join(QStringLiteral(", "));
    return QStringLiteral("no sample was read, since the first line lacks the columns %1; it has %2 fields, of them "
                          "%3. Names are separated by one tab each and written exactly so.")
        .arg(missing.join(QStringLiteral(", ")), QString::number(counts.headerFields), found);
}

} // namespace

QStringList millimetreColumns()
{
    return {columnNames.begin(), columnNames.end()};
}

MillimetreSamples readMillimetreText(QByteArrayView bytes, const StimulusSize &size)
{
    const std::optional<QByteArray> wide = utf8OfWideText(bytes);
    return MillimetreReader(wide ? QByteArrayView(*wide) : bytes, size).run();
}

QStringList importDoubts(const MillimetreCounts &counts)
{
    if (counts.columns.size() < columnCount)
        return {missingColumns(counts)};
    QStringList doubts;
    for (const MillimetreCountRow &row : millimetreLineCounts) {
        const LineCount &found = counts.*row.member;
        if (found.count > 0)
            doubts << QString(row.text)
                          .replace("%3"_L1, foundColumns(counts))
                          .arg(QString::number(found.count), QString::number(found.firstLine));
    }
    if (counts.samples.samples == 0)
        doubts << QStringLiteral("no sample was read.");
    return doubts + importDoubts(counts.samples);
}

QMap<QString, qint64> reportedCounts(const MillimetreCounts &counts)
{
    QMap<QString, qint64> reported = reportedCounts(counts.samples);
    for (const MillimetreCountRow &row : millimetreLineCounts) {
        const LineCount &found = counts.*row.member;
        reported.insert(row.name, found.count);
        if (found.count > 0)
            reported.insert("first of "_L1 + row.name, found.firstLine);
    }
    return reported;
}
