// SPDX-License-Identifier: GPL-3.0-or-later
#include "import/conversion/LayoutFields.h"

#include "import/tables/LayoutWords.h"

#include <QRegularExpression>

#include <algorithm>

namespace {

using namespace Qt::Literals::StringLiterals;
using Field = LayoutField;
using Kind = LayoutField::Kind;
using Of = LayoutField::Of;

/// The member of a layout, or of a part of it, to which a path of members leads.
template <auto... Path>
constexpr auto at = [](auto &layout) -> auto &
{
    return (layout.*....*Path);
};

template <const auto &Words>
QStringList allWords()
{
    QStringList words;
    for (const auto &row : Words)
        words << row.word;
    return words;
}

/// A choice that is a word of a table; `Member` finds it in a layout.
template <const auto &Words, auto Member>
constexpr Field wordField(QLatin1StringView key, QLatin1StringView label, QLatin1StringView help, Of of)
{
    return {.key = key,
            .label = label,
            .help = help,
            .kind = Kind::Word,
            .of = of,
            .read = [](const TableLayout &layout) { return layout_words::wordOf(Words, Member(layout)); },
            .write =
                [](TableLayout &layout, const QString &text) {
                    const auto choice = layout_words::choiceOf(Words, text);
                    if (choice)
                        Member(layout) = *choice;
                    return choice.has_value();
                },
            .words = allWords<Words>};
}

template <auto Member>
constexpr Field columnField(QLatin1StringView key, QLatin1StringView label, QLatin1StringView help)
{
    return {.key = key,
            .label = label,
            .help = help,
            .kind = Kind::Column,
            .of = Of::Tables,
            .read =
                [](const TableLayout &layout) {
                    const TableColumn &column = Member(layout);
                    return column.isGiven() ? column.text() : QString();
                },
            .write =
                [](TableLayout &layout, const QString &text) {
                    Member(layout) = columnOf(text);
                    return true;
                }};
}

template <auto Member>
constexpr Field textField(QLatin1StringView key, QLatin1StringView label, QLatin1StringView help)
{
    return {.key = key,
            .label = label,
            .help = help,
            .kind = Kind::Text,
            .of = Of::Tables,
            .read = [](const TableLayout &layout) { return Member(layout); },
            .write =
                [](TableLayout &layout, const QString &text) {
                    Member(layout) = text;
                    return true;
                }};
}

template <auto Member>
constexpr Field messageField(QLatin1StringView key, QLatin1StringView label, QLatin1StringView help)
{
    Field field = textField<Member>(key, label, help);
    field.kind = Kind::Message;
    field.of = Of::Logs;
    return field;
}

QString numberText(double number)
{
    return number == 0 ? QString() : QString::number(number);
}

bool readNumber(const QString &text, double &number)
{
    bool isNumber = text.isEmpty();
    const double value = text.isEmpty() ? 0 : text.toDouble(&isNumber);
    if (!isNumber || !(value >= 0))
        return false;
    number = value;
    return true;
}

template <auto Member>
constexpr Field numberField(QLatin1StringView key, QLatin1StringView label, QLatin1StringView help, Of of)
{
    return {.key = key,
            .label = label,
            .help = help,
            .kind = Kind::Text,
            .of = of,
            .read = [](const TableLayout &layout) { return numberText(Member(layout)); },
            .write = [](TableLayout &layout, const QString &text) { return readNumber(text, Member(layout)); }};
}

template <auto Member>
constexpr Field sizeField(QLatin1StringView key, QLatin1StringView label, QLatin1StringView help)
{
    return {.key = key,
            .label = label,
            .help = help,
            .kind = Kind::Text,
            .of = Of::Both,
            .read =
                [](const TableLayout &layout) {
                    const QSizeF size = Member(layout);
                    return size.isEmpty() ? QString() : u"%1 x %2"_s.arg(size.width()).arg(size.height());
                },
            .write =
                [](TableLayout &layout, const QString &text) {
                    const QStringList parts = text.split(u'x');
                    double width = 0;
                    double height = 0;
                    const bool isSize =
                        text.isEmpty() || (parts.size() == 2 && readNumber(parts[0].trimmed(), width) &&
                                           readNumber(parts[1].trimmed(), height) && width > 0 && height > 0);
                    if (isSize)
                        Member(layout) = QSizeF(width, height);
                    return isSize;
                }};
}

QString delimiterText(const TableLayout &layout)
{
    const QString word = layout_words::wordOf(layout_words::delimiters, layout.delimiter);
    return word.isEmpty() ? QString(QLatin1Char(layout.delimiter)) : word;
}

bool writeDelimiter(TableLayout &layout, const QString &text)
{
    const auto delimiter = layout_words::delimiterOf(text);
    if (delimiter)
        layout.delimiter = *delimiter;
    return delimiter.has_value();
}

constexpr auto linesAbove = "no, after line "_L1;

QString headerText(const TableLayout &layout)
{
    if (layout.header == TableHeader::Line)
        return QString::number(layout.headerLine);
    if (layout.header == TableHeader::None && layout.headerLine > 0)
        return linesAbove + QString::number(layout.headerLine);
    return layout.header == TableHeader::Named ? u"yes"_s : u"no"_s;
}

bool writeHeader(TableLayout &layout, const QString &text)
{
    const bool isWord = text == "yes"_L1 || text == "no"_L1;
    const bool isNone = text == "no"_L1 || text.startsWith(linesAbove);
    bool isNumber = false;
    const qsizetype line = (isNone && !isWord ? text.sliced(linesAbove.size()) : text).toLongLong(&isNumber);
    if (!isWord && !(isNumber && line > 0))
        return false;
    layout.header = isNone ? TableHeader::None : isNumber ? TableHeader::Line : TableHeader::Named;
    layout.headerLine = isNumber ? line : 0;
    return true;
}

QString validText(const TableLayout &layout)
{
    const TableValidityRule &rule = layout.valid;
    if (rule.kind == TableValidityRule::Kind::Codes)
        return rule.codes.join(u' ');
    return (rule.kind == TableValidityRule::Kind::AtLeast ? u">= %1"_s : u"<= %1"_s).arg(rule.limit);
}

bool writeValid(TableLayout &layout, const QString &text)
{
    const bool isLeast = text.startsWith(">="_L1);
    if (!isLeast && !text.startsWith("<="_L1)) {
        const QStringList codes = text.split(u' ', Qt::SkipEmptyParts);
        if (!codes.isEmpty())
            layout.valid = {.kind = TableValidityRule::Kind::Codes, .codes = codes, .limit = 0};
        return !codes.isEmpty();
    }
    bool isNumber = false;
    const double limit = text.sliced(2).trimmed().toDouble(&isNumber);
    if (isNumber)
        layout.valid = {.kind = isLeast ? TableValidityRule::Kind::AtLeast : TableValidityRule::Kind::AtMost,
                        .codes = {},
                        .limit = limit};
    return isNumber;
}

/// Texts with blanks between.
template <auto Member>
constexpr Field textsField(QLatin1StringView key, QLatin1StringView label, QLatin1StringView help)
{
    return {.key = key,
            .label = label,
            .help = help,
            .kind = Kind::Text,
            .of = Of::Tables,
            .read = [](const TableLayout &layout) { return QStringList(Member(layout)).join(u' '); },
            .write =
                [](TableLayout &layout, const QString &text) {
                    Member(layout) = text.split(u' ', Qt::SkipEmptyParts);
                    return true;
                }};
}

QString splitText(const TableLayout &layout)
{
    QStringList columns;
    for (const TableColumn &column : layout.split)
        columns << column.text();
    return columns.join(" + "_L1);
}

bool writeSplit(TableLayout &layout, const QString &text)
{
    layout.split.clear();
    for (const QString &column : text.split(u'+')) {
        if (!column.trimmed().isEmpty())
            layout.split << columnOf(column.trimmed());
    }
    return true;
}

/// The column of a set file's entry.
template <const auto &Key>
constexpr Field setField(QLatin1StringView key, QLatin1StringView label, QLatin1StringView help)
{
    return {.key = key,
            .label = label,
            .help = help,
            .kind = Kind::Column,
            .of = Of::Tables,
            .read =
                [](const TableLayout &layout) {
                    for (const TableSetColumn &each : layout.set) {
                        if (each.key == Key)
                            return each.column.text();
                    }
                    return QString();
                },
            .write =
                [](TableLayout &layout, const QString &text) {
                    layout.set.removeIf([](const TableSetColumn &each) { return each.key == Key; });
                    if (!text.isEmpty())
                        layout.set << TableSetColumn{Key, columnOf(text)};
                    return true;
                }};
}

constexpr QLatin1StringView subjectKey("subject");
constexpr QLatin1StringView groupKey("group");
constexpr QLatin1StringView stimulusKey("stimulus");
constexpr QLatin1StringView dominantKey("dominant");

const QList<Field> fields{
    wordField<layout_words::kinds, at<&TableLayout::kind>>(
        "kind"_L1, "Kind"_L1, "Columns, or a log in which samples stand among events and messages."_L1, Of::Both),
    wordField<layout_words::encodings, at<&TableLayout::encoding>>(
        "encoding"_L1, "Encoding"_L1, "Of the letters; auto: by the mark at the start of the file."_L1, Of::Both),
    Field{.key = "delimiter"_L1,
          .label = "Fields end at"_L1,
          .help = "One of the words, or the character itself."_L1,
          .kind = Kind::Text,
          .of = Of::Tables,
          .read = delimiterText,
          .write = writeDelimiter,
          .words = allWords<layout_words::delimiters>},
    wordField<layout_words::decimalSigns, at<&TableLayout::decimalSign>>("decimal"_L1, "Decimals after"_L1,
                                                                         "Of the numbers."_L1, Of::Tables),
    Field{.key = "header"_L1,
          .label = "Names of columns"_L1,
          .help = "yes: in the first line with these names; the number of the line; no; or no, after line 3, where "
                  "other lines stand above the samples."_L1,
          .kind = Kind::Text,
          .of = Of::Tables,
          .read = headerText,
          .write = writeHeader,
          .words =
              [] {
                  return QStringList{u"yes"_s, u"no"_s};
              }},
    textField<at<&TableLayout::commentPrefix>>("comment"_L1, "Remarks begin with"_L1,
                                               "Lines that begin so are passed over."_L1),
    columnField<at<&TableLayout::time>>(
        "time.column"_L1, "Time"_L1, "The column of the times; none where each line is one sample of a known rate."_L1),
    wordField<layout_words::timeUnits, at<&TableLayout::timeUnit>>(
        "time.unit"_L1, "Unit of time"_L1, "clock: time of day; samples: a count, or no column at all."_L1, Of::Tables),
    numberField<at<&TableLayout::rateHz>>("time.rateHz"_L1, "Rate [Hz]"_L1, "Of samples that are counted."_L1,
                                          Of::Tables),
    columnField<at<&TableLayout::left, &TableEyeColumns::x>>("left.x"_L1, "Left x"_L1,
                                                             "Horizontal place of the left eye."_L1),
    columnField<at<&TableLayout::left, &TableEyeColumns::y>>("left.y"_L1, "Left y"_L1,
                                                             "Vertical place of the left eye."_L1),
    columnField<at<&TableLayout::left, &TableEyeColumns::pupil>>("left.pupil"_L1, "Left pupil"_L1,
                                                                 "Size of the left pupil, or its width."_L1),
    columnField<at<&TableLayout::left, &TableEyeColumns::pupilHeight>>("left.pupilHeight"_L1, "Left pupil height"_L1,
                                                                       "Where the height has a column of its own."_L1),
    columnField<at<&TableLayout::left, &TableEyeColumns::validity>>(
        "left.validity"_L1, "Left validity"_L1,
        "Says whether the left eye was seen; none: it was where there are numbers."_L1),
    columnField<at<&TableLayout::right, &TableEyeColumns::x>>("right.x"_L1, "Right x"_L1,
                                                              "Horizontal place of the right eye."_L1),
    columnField<at<&TableLayout::right, &TableEyeColumns::y>>("right.y"_L1, "Right y"_L1,
                                                              "Vertical place of the right eye."_L1),
    columnField<at<&TableLayout::right, &TableEyeColumns::pupil>>("right.pupil"_L1, "Right pupil"_L1,
                                                                  "Size of the right pupil, or its width."_L1),
    columnField<at<&TableLayout::right, &TableEyeColumns::pupilHeight>>("right.pupilHeight"_L1, "Right pupil height"_L1,
                                                                        "Where the height has a column of its own."_L1),
    columnField<at<&TableLayout::right, &TableEyeColumns::validity>>(
        "right.validity"_L1, "Right validity"_L1,
        "Says whether the right eye was seen; none: it was where there are numbers."_L1),
    textsField<at<&TableLayout::missing>>(
        "missing"_L1, "Missing is written"_L1,
        "Texts that stand for no value, with blanks between; an empty field is one always."_L1),
    Field{.key = "valid"_L1,
          .label = "Valid is"_L1,
          .help = "Codes with blanks between, or a limit such as >= 0.6."_L1,
          .kind = Kind::Text,
          .of = Of::Tables,
          .read = validText,
          .write = writeValid},
    columnField<at<&TableLayout::eye, &TableEyeColumn::column>>("eye.column"_L1, "Eye of the line"_L1,
                                                                "Where each line belongs to one eye."_L1),
    textsField<at<&TableLayout::eye, &TableEyeColumn::left>>("eye.left"_L1, "Left is written"_L1,
                                                             "In the column of the eye, with blanks between."_L1),
    textsField<at<&TableLayout::eye, &TableEyeColumn::right>>("eye.right"_L1, "Right is written"_L1,
                                                              "In the column of the eye, with blanks between."_L1),
    wordField<layout_words::placeUnits, at<&TableLayout::place, &TableGeometry::unit>>(
        "place.unit"_L1, "Unit of place"_L1,
        "normalised: 0 to 1 of the screen; degrees: of visual angle from its middle."_L1, Of::Both),
    wordField<layout_words::origins, at<&TableLayout::place, &TableGeometry::origin>>(
        "place.origin"_L1, "Zero is at"_L1, "Where x and y are 0 on the screen."_L1, Of::Both),
    wordField<layout_words::xAxes, at<&TableLayout::place, &TableGeometry::xAxis>>(
        "place.xAxis"_L1, "x grows to the"_L1, "Direction of the horizontal axis."_L1, Of::Both),
    wordField<layout_words::yAxes, at<&TableLayout::place, &TableGeometry::yAxis>>(
        "place.yAxis"_L1, "y grows"_L1, "Direction of the vertical axis."_L1, Of::Both),
    sizeField<at<&TableLayout::place, &TableGeometry::screenPx>>("place.screenPx"_L1, "Screen [px]"_L1,
                                                                 "Width x height, such as 1920 x 1080."_L1),
    sizeField<at<&TableLayout::place, &TableGeometry::screenMm>>("place.screenMm"_L1, "Screen [mm]"_L1,
                                                                 "Width x height, such as 530 x 300."_L1),
    numberField<at<&TableLayout::place, &TableGeometry::distanceMm>>("place.distanceMm"_L1, "Eye to screen [mm]"_L1,
                                                                     "For places in degrees."_L1, Of::Both),
    Field{.key = "split"_L1,
          .label = "A recording for each"_L1,
          .help = "Columns, with + between; none: the table is one recording."_L1,
          .kind = Kind::Column,
          .of = Of::Tables,
          .read = splitText,
          .write = writeSplit},
    messageField<at<&TableLayout::beginMessage>>("messages.begin"_L1, "A recording begins at"_L1,
                                                 "The beginning of a message; none: the log is one recording."_L1),
    messageField<at<&TableLayout::endMessage>>("messages.end"_L1, "and ends at"_L1,
                                               "The beginning of a message; none: where the next one begins."_L1),
    setField<subjectKey>("set.subject"_L1, "Subject"_L1, "Column of who was looking."_L1),
    setField<groupKey>("set.group"_L1, "Group"_L1, "Column of the group of subjects."_L1),
    setField<stimulusKey>("set.stimulus"_L1, "Picture"_L1, "Column of the name of the picture that was looked at."_L1),
    setField<dominantKey>("set.dominant"_L1, "Dominant eye"_L1, "Column of left or right."_L1)};

} // namespace

const QList<LayoutField> &layoutFields()
{
    return fields;
}

const LayoutField *layoutField(QLatin1StringView key)
{
    const auto found = std::ranges::find(fields, key, &LayoutField::key);
    return found == fields.end() ? nullptr : &*found;
}

TableColumn columnOf(const QString &text)
{
    static const QRegularExpression numbered(u"^column ([1-9][0-9]{0,4})$"_s);
    const QRegularExpressionMatch match = numbered.match(text);
    return match.hasMatch() ? TableColumn::numbered(match.captured(1).toInt()) : TableColumn::named(text);
}
