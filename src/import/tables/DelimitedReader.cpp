// SPDX-License-Identifier: GPL-3.0-or-later
#include "import/tables/DelimitedReader.h"

#include "import/RecordingText.h"

#include <algorithm>

namespace {

/// A header stands among the first lines, or there is none.
constexpr qsizetype headerLines = 1000;

constexpr bool isEndOfField(char byte, char delimiter, bool isBlankSeparated)
{
    return isBlankSeparated ? isBlank(byte) : byte == delimiter;
}

QString shortText(const QString &text)
{
    constexpr qsizetype shown = 60;
    return text.size() > shown ? text.first(shown) + QStringLiteral("...") : text;
}

QList<QByteArray> missingIn(const TableBytes &bytes, const TableLayout &layout)
{
    QList<QByteArray> codes;
    for (const QString &code : layout.missing)
        codes << bytes.encoded(code);
    return codes;
}

} // namespace

DelimitedReader::DelimitedReader(TableBytes &bytes, const QString &file, const TableLayout &layout,
                                 const TableReadOptions &options)
    : m_bytes(bytes)
    , m_file(file)
    , m_layout(layout)
    , m_options(options)
    , m_comment(bytes.encoded(layout.commentPrefix))
    , m_numbers(layout.decimalSign, missingIn(bytes, layout), layout.timeUnit)
    , m_place(layout.place)
    , m_recordings(file, layout, options)
{
    m_isOnlyRecording = layout.split.isEmpty() && !layout.eye.column.isGiven();
    m_hasNames = std::ranges::any_of(columnsOf(layout), [](const TableColumn &column) { return column.number == 0; });
    const NumberFields codes('.', {}, TableTimeUnit::Milliseconds);
    for (const QString &code : layout.valid.codes) {
        m_codeTexts << bytes.encoded(code);
        m_codes << codes.read(m_codeTexts.constLast());
    }
}

std::variant<TableContent, TableProblem> DelimitedReader::read()
{
    TableLines groups(m_bytes);
    bool isReserved = false;
    while (true) {
        const QByteArrayView lines = groups.next(m_line + 1);
        if (lines.isEmpty())
            break;
        if (readLines(lines) == Then::Stop || !m_recordings.handOn(m_bytes.part()))
            break;
        if (!isReserved && !m_bytes.isPacked() && m_recordings.samples() > 0)
            m_recordings.reserve(m_bytes.restBytes(), lines.size() / m_recordings.samples());
        isReserved = true;
    }
    if (!m_problem && groups.problem())
        m_problem = groups.problem();
    return finish();
}

DelimitedReader::Then DelimitedReader::readLines(QByteArrayView lines)
{
    m_readable = lines.end();
    LineWalk walk(lines);
    while (const auto line = walk.next()) {
        ++m_line;
        if (line->isEmpty() || (!m_comment.isEmpty() && line->startsWith(m_comment)))
            continue;
        const Then then = m_plan ? readLine(line->begin(), line->end()) : lookForHeader(*line);
        if (then == Then::Stop)
            return then;
    }
    return Then::GoOn;
}

QStringList DelimitedReader::namesIn(QByteArrayView line) const
{
    QStringList names;
    for (const QByteArrayView field : splitFields(line, m_layout.delimiter))
        names << m_bytes.decoded(field).replace(QStringLiteral("\"\""), QStringLiteral("\""));
    return names;
}

DelimitedReader::Then DelimitedReader::lookForHeader(QByteArrayView line)
{
    if (m_layout.header == TableHeader::None) {
        if (m_line <= m_layout.headerLine)
            return Then::GoOn;
        return setColumns({}) == Then::Stop ? Then::Stop : readLine(line.begin(), line.end());
    }
    if (m_layout.header == TableHeader::Line && m_line < m_layout.headerLine)
        return Then::GoOn;
    const QStringList names = namesIn(line);
    if (m_layout.header == TableHeader::Line || hasNames(names, m_layout))
        return setColumns(names);
    // The line with the most names is told where none has all of them.
    if (names.size() > m_firstNames.size()) {
        m_firstNames = names;
        m_firstHeader = m_line;
    }
    return m_line < headerLines ? Then::GoOn : Then::Stop;
}

DelimitedReader::Then DelimitedReader::setColumns(const QStringList &names)
{
    auto plan = columnPlan(m_layout, names, m_line);
    if (const auto *problem = std::get_if<TableProblem>(&plan))
        return fail(*problem);
    m_plan = std::get<ColumnPlan>(std::move(plan));
    m_kept.assign(static_cast<std::size_t>(m_plan->uses.size()), Kept{});
    m_isFirstLine = true;
    return Then::GoOn;
}

/// A field that is no plain number, or is wanted as text.
const char *DelimitedReader::readOther(qsizetype place, const char *at, const char *end)
{
    Kept &kept = m_kept[static_cast<std::size_t>(place)];
    const quint8 uses = m_plan->uses.at(place);
    const char delimiter = m_layout.delimiter;
    const char *first = at;
    if (at != end && *at == '"')
        at = endOfQuotedField(at, end, delimiter);
    at = std::find_if(at, end, [=](char byte) { return isEndOfField(byte, delimiter, delimiter == ' '); });
    kept.text = QByteArrayView(first, at);
    if ((uses & ColumnPlan::Time) != 0)
        kept.value = m_numbers.readTime(kept.text);
    else if ((uses & ColumnPlan::Number) != 0)
        kept.value = m_numbers.read(kept.text);
    return at;
}

qsizetype DelimitedReader::fieldsIn(const char *at, const char *end) const
{
    qsizetype delimiters = 0;
    bool hasQuote = m_layout.delimiter == ' ';
    for (const char *sign = at; sign != end; ++sign) {
        delimiters += *sign == m_layout.delimiter ? 1 : 0;
        hasQuote |= *sign == '"';
    }
    return hasQuote ? splitFields(QByteArrayView(at, end), m_layout.delimiter).size() : delimiters + 1;
}

/// @return the number of fields of the line; those that are kept are read.
template <bool isBlankSeparated>
qsizetype DelimitedReader::walkFields(const char *at, const char *const end)
{
    const char delimiter = m_layout.delimiter;
    const auto skipBlanks = [&] {
        while (isBlankSeparated && at != end && isBlank(*at))
            ++at;
    };
    skipBlanks();
    const qint16 *const kept = m_plan->kept.constData();
    const quint8 *const uses = m_plan->uses.constData();
    Kept *const values = m_kept.data();
    const char decimalSign = m_numbers.decimalSign();
    const int timeShift = m_numbers.timeShift();
    const bool isClock = m_layout.timeUnit == TableTimeUnit::Clock;
    const qsizetype wanted = m_plan->kept.size();
    for (qsizetype field = 0; field < wanted; ++field) {
        const qint16 place = kept[field];
        const quint8 use = place < 0 ? quint8(ColumnPlan::Skip) : uses[place];
        if (use == ColumnPlan::Number || (use == ColumnPlan::Time && !isClock)) { // nearly every one
            const ShortNumber number =
                ShortNumber::scan(at, m_readable, decimalSign, use == ColumnPlan::Time ? timeShift : 0);
            if (number.end && (number.end == end || isEndOfField(*number.end, delimiter, isBlankSeparated))) {
                values[place].value = {number.value, FieldState::Number};
                at = number.end;
            } else {
                at = readOther(place, at, end);
            }
        } else if (place >= 0) {
            at = readOther(place, at, end);
        } else {
            if (at != end && *at == '"')
                at = endOfQuotedField(at, end, delimiter);
            while (at != end && !isEndOfField(*at, delimiter, isBlankSeparated))
                ++at;
        }
        if (at == end)
            return field + 1;
        ++at;
        skipBlanks();
        if (isBlankSeparated && at == end)
            return field + 1;
    }
    return wanted + fieldsIn(at, end);
}

/// Whether a line with another number of fields can be read without a doubt: with fewer, those that are missing at its
/// end are not needed; with more, those are empty.
bool DelimitedReader::isWhole(qsizetype count, QByteArrayView line) const
{
    if (count < m_plan->fieldCount)
        return count >= m_plan->kept.size();
    const QList<QByteArrayView> fields = splitFields(line, m_layout.delimiter);
    return std::all_of(fields.begin() + m_plan->fieldCount, fields.end(),
                       [](QByteArrayView field) { return field.isEmpty(); });
}

/// The first line of samples tells how many fields there are, where no header does.
DelimitedReader::Then DelimitedReader::checkFirstLine(qsizetype count, QByteArrayView line)
{
    m_isFirstLine = false;
    if (count > mostTableColumns)
        return fail({.line = m_line,
                     .found = QStringLiteral("more than %1 columns").arg(mostTableColumns),
                     .expected = QStringLiteral("a table of samples"),
                     .remedy = QStringLiteral("Choose the delimiter of the layout anew.")});
    if (m_plan->fieldCount == 0) {
        if (count < m_plan->kept.size())
            return fail({.line = m_line,
                         .found = QStringLiteral("%1 columns").arg(count),
                         .expected = QStringLiteral("at least %1").arg(m_plan->kept.size()),
                         .remedy = QStringLiteral("Choose delimiter and columns of the layout anew.")});
        m_plan->fieldCount = count;
        return Then::GoOn;
    }
    if (count > m_plan->fieldCount && m_hasNames && !isWhole(count, line))
        return fail(
            {.line = m_line,
             .found = QStringLiteral("%1 columns below a header of %2 names").arg(count).arg(m_plan->fieldCount),
             .expected = QStringLiteral("a name for each column"),
             .remedy = QStringLiteral("Choose the columns in the layout by their numbers.")});
    if (count > m_plan->fieldCount)
        m_plan->fieldCount = count;
    return Then::GoOn;
}

DelimitedReader::Then DelimitedReader::readLine(const char *at, const char *const end)
{
    const qsizetype count = m_layout.delimiter == ' ' ? walkFields<true>(at, end) : walkFields<false>(at, end);
    const QByteArrayView line(at, end);
    if (m_isFirstLine && checkFirstLine(count, line) == Then::Stop)
        return Then::Stop;
    const bool isRead = count == m_plan->fieldCount || isWhole(count, line);
    const bool hasTime =
        m_plan->time < 0 || m_kept[static_cast<std::size_t>(m_plan->time)].value.state == FieldState::Number;
    if (isRead && hasTime && count >= m_plan->fieldCount) // nearly every one
        return addSample();
    if (m_hasNames && !(isRead && hasTime)) {
        // A header can stand in the table again, as where files were joined.
        const QStringList names = namesIn(line);
        if (hasNames(names, m_layout)) {
            m_oddities.add(TableOddityKind::ColumnsChanged, m_line);
            return setColumns(names);
        }
    }
    if (count != m_plan->fieldCount)
        m_oddities.add(isRead ? TableOddityKind::FewerColumns : TableOddityKind::ColumnsChanged, m_line);
    if (!isRead)
        return Then::GoOn;
    return hasTime ? addSample() : lineWithoutTime();
}

DelimitedReader::Then DelimitedReader::lineWithoutTime()
{
    const Kept &time = m_kept[static_cast<std::size_t>(m_plan->time)];
    m_oddities.add(TableOddityKind::TimeNotANumber, m_line);
    if (!m_timeProblem)
        m_timeProblem = TableProblem{
            .line = m_line,
            .column = m_plan->fields[m_plan->time] + 1,
            .found = QStringLiteral("\"%1\"").arg(shortText(m_bytes.decoded(time.text))),
            .expected = m_layout.timeUnit == TableTimeUnit::Clock ? QStringLiteral("a time such as 12:34:56.789")
                                                                  : QStringLiteral("a number that is the time"),
            .remedy = QStringLiteral("Choose the column of the time, its unit and the decimal sign in the layout.")};
    return Then::GoOn;
}

DelimitedReader::Then DelimitedReader::fail(const TableProblem &problem)
{
    m_problem = problem;
    return Then::Stop;
}

std::variant<TableContent, TableProblem> DelimitedReader::finish()
{
    if (!m_problem && !m_plan) {
        const auto missing = columnPlan(m_layout, m_firstNames, m_firstHeader);
        if (m_firstNames.isEmpty())
            m_problem =
                TableProblem{.found = QStringLiteral("no lines"), .expected = QStringLiteral("a table of samples")};
        else if (const auto *problem = std::get_if<TableProblem>(&missing))
            m_problem = *problem;
    }
    if (!m_problem && m_recordings.samples() == 0)
        m_problem = m_timeProblem.value_or(
            TableProblem{.line = m_line,
                         .found = QStringLiteral("no samples"),
                         .expected = QStringLiteral("lines with %1 columns").arg(m_plan ? m_plan->fieldCount : 0),
                         .remedy = QStringLiteral("Choose delimiter and header of the layout anew.")});
    if (m_problem) {
        m_problem->file = m_file;
        return *m_problem;
    }
    TableContent content;
    content.recordings = m_recordings.finish();
    content.oddities = m_oddities.list();
    return content;
}
