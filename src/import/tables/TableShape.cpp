// SPDX-License-Identifier: GPL-3.0-or-later
#include "import/tables/TableShape.h"

#include "import/tables/TableFields.h"

#include <algorithm>
#include <map>

namespace {

/// Lines that are tried with each delimiter.
constexpr qsizetype triedLines = 200;

bool isNumberOrMissing(const NumberFields &numbers, QByteArrayView field)
{
    return numbers.read(field).state != FieldState::Text;
}

QList<QByteArray> usualMissing()
{
    return {"nan", "na", ".", "null", "none", "-"};
}

} // namespace

/// The tried lines by one delimiter.
struct TableShape::Split {
    QList<Row> rows;
    qsizetype columns = 0; ///< of most of them
    qsizetype alike = 0;   ///< how many have so many
};

struct TableShape::Trial {
    char delimiter = ',';
    char decimalSign = '.';
    qsizetype columns = 0;
    double alikeShare = 0;
    double numberShare = 0;
    bool hasDecimals = false;

    double score() const { return columns > 1 ? alikeShare * numberShare : 0; }
};

std::optional<double> shapeNumber(QByteArrayView field, char decimalSign)
{
    const FieldValue value = NumberFields(decimalSign, {}, TableTimeUnit::Milliseconds).read(field);
    return value.state == FieldState::Number ? std::optional(value.value) : std::nullopt;
}

TableShape::TableShape(const TableExtract &extract)
{
    findComment(extract.head);
    const auto take = [this](const QString &line, qsizetype number) {
        if (line.trimmed().isEmpty() || (!commentPrefix.isEmpty() && line.startsWith(commentPrefix)))
            return;
        m_lines << line.toUtf8();
        m_lineNumbers << number;
    };
    for (qsizetype i = 0; i < extract.head.size(); ++i)
        take(extract.head[i], i + 1);
    for (const QString &line : extract.tail)
        take(line, 0);
    takeBest();
    findHeader();
    takeRows();
}

void TableShape::findComment(const QStringList &head)
{
    for (const QString &line : head) {
        if (line.trimmed().isEmpty())
            continue;
        for (const QLatin1StringView prefix :
             {QLatin1StringView("##"), QLatin1StringView("#"), QLatin1StringView("%"), QLatin1StringView("//")})
        {
            if (commentPrefix.isEmpty() && line.startsWith(prefix))
                commentPrefix = prefix;
        }
        return; // comments are on top, if anywhere
    }
}

/// The lines in the middle of the head are neither header nor remarks.
TableShape::Split TableShape::splitBy(char sign) const
{
    Split split;
    const qsizetype end = m_lines.size();
    const qsizetype begin = end > triedLines ? std::min(end / 2, end - triedLines) : 0;
    std::map<qsizetype, qsizetype> linesWith;
    for (qsizetype i = begin; i < std::min(end, begin + triedLines); ++i) {
        split.rows << splitFields(m_lines[i], sign, mostColumns);
        ++linesWith[split.rows.constLast().size()];
    }
    for (const auto &[fields, lines] : linesWith) {
        if (lines >= split.alike) { // of equals the one with more columns
            split.alike = lines;
            split.columns = fields;
        }
    }
    return split;
}

TableShape::Trial TableShape::tryOut(const Split &split, char sign, const NumberFields &numbers)
{
    Trial trial{.delimiter = sign, .decimalSign = numbers.decimalSign(), .columns = split.columns};
    qsizetype good = 0;
    qsizetype all = 0;
    for (const Row &row : split.rows) {
        if (row.size() != trial.columns)
            continue;
        all += row.size();
        for (const QByteArrayView field : row) {
            const bool isNumber = isNumberOrMissing(numbers, field);
            good += isNumber ? 1 : 0;
            trial.hasDecimals |= isNumber && field.contains(trial.decimalSign) && field.size() > 1;
        }
    }
    const auto lines = static_cast<double>(split.rows.size());
    trial.alikeShare = split.rows.isEmpty() ? 0 : static_cast<double>(split.alike) / lines;
    trial.numberShare = all == 0 ? 0 : static_cast<double>(good) / static_cast<double>(all);
    return trial;
}

void TableShape::takeBest()
{
    const NumberFields withPoint('.', usualMissing(), TableTimeUnit::Milliseconds);
    const NumberFields withComma(',', usualMissing(), TableTimeUnit::Milliseconds);
    QList<Trial> trials;
    for (const char sign : {'\t', ';', ',', '|', ' '}) {
        const Split split = splitBy(sign);
        trials << tryOut(split, sign, withPoint);
        if (sign != ',')
            trials << tryOut(split, sign, withComma);
    }
    // Of equals the first one: blanks can hide in any other, and a point is the usual decimal sign.
    std::ranges::stable_sort(trials, std::ranges::greater(), &Trial::score);
    const Trial &best = trials.constFirst();
    delimiter = best.delimiter;
    decimalSign = best.decimalSign;
    columns = best.columns;
    numberShare = best.numberShare;
    hasDecimals = best.hasDecimals;
    for (const Trial &trial : std::as_const(trials)) {
        if (trial.delimiter != delimiter || (hasDecimals && trial.decimalSign != decimalSign))
            secondShare = std::max(secondShare, trial.score());
    }
}

/// The last line above the rows in which no field is a number.
void TableShape::findHeader()
{
    const NumberFields numbers(decimalSign, {}, TableTimeUnit::Milliseconds);
    constexpr double fewNumbers = 0.2;
    qsizetype firstRow = 0;
    const auto isRow = [&](qsizetype line) {
        const Row fields = splitFields(m_lines[line], delimiter, mostColumns);
        const auto count = std::ranges::count_if(
            fields, [&](QByteArrayView field) { return numbers.read(field).state == FieldState::Number; });
        return fields.size() >= columns &&
               static_cast<double>(count) >= fewNumbers * static_cast<double>(fields.size());
    };
    while (firstRow < m_lines.size() && !isRow(firstRow))
        ++firstRow;
    // Rows can begin with lines without any number, where the eyes are lost: a header has no empty fields.
    linesBefore = firstRow < m_lines.size() ? m_lineNumbers[firstRow] - 1 : 0;
    for (qsizetype line = firstRow - 1; line >= 0; --line) {
        const Row fields = splitFields(m_lines[line], delimiter, mostColumns);
        const bool isHeader = fields.size() + 1 >= columns && fields.size() > 1 &&
                              std::ranges::none_of(fields.first(fields.size() - 1), [&](QByteArrayView field) {
                                  return field.isEmpty() || numbers.read(field).state != FieldState::Text;
                              });
        if (!isHeader)
            continue;
        for (const QByteArrayView field : fields)
            names << QString::fromUtf8(field);
        headerLine = m_lineNumbers[line];
        linesBefore = headerLine - 1;
        return;
    }
}

void TableShape::takeRows()
{
    qsizetype others = 0;
    const qsizetype usual = columns;
    columns = std::max(columns, names.size());
    for (qsizetype i = 0; i < m_lines.size(); ++i) {
        const bool isInHead = m_lineNumbers[i] > 0;
        if (isInHead && m_lineNumbers[i] <= std::max(headerLine, linesBefore))
            continue;
        Row row = splitFields(m_lines[i], delimiter, mostColumns);
        // Fields that are missing at the end of a line are empty.
        while (row.size() >= usual && row.size() < columns)
            row << QByteArrayView();
        if (row.size() == columns) {
            rows << row;
            headRows += isInHead ? 1 : 0;
        } else {
            ++others;
        }
    }
    const qsizetype all = rows.size() + others;
    alikeShare = all == 0 ? 0 : static_cast<double>(rows.size()) / static_cast<double>(all);
}
