// SPDX-License-Identifier: GPL-3.0-or-later
#include "import/tables/LayoutWords.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>
#include <limits>

namespace {

using namespace Qt::Literals::StringLiterals;

// Writing: what has its value at construction is left out, so that a file shows what is special.

QJsonValue columnJson(const TableColumn &column)
{
    return column.number > 0 ? QJsonValue(column.number) : QJsonValue(column.name);
}

QJsonObject eyeJson(const TableEyeColumns &eye)
{
    QJsonObject json;
    const auto put = [&](QLatin1StringView key, const TableColumn &column) {
        if (column.isGiven())
            json.insert(key, columnJson(column));
    };
    put("x"_L1, eye.x);
    put("y"_L1, eye.y);
    put("pupil"_L1, eye.pupil);
    put("pupilHeight"_L1, eye.pupilHeight);
    put("validity"_L1, eye.validity);
    return json;
}

QJsonArray sizeJson(const QSizeF &size)
{
    return {size.width(), size.height()};
}

QJsonObject placeJson(const TableGeometry &place)
{
    using namespace layout_words;
    QJsonObject json{{"unit"_L1, wordOf(placeUnits, place.unit)},
                     {"origin"_L1, wordOf(origins, place.origin)},
                     {"xAxis"_L1, wordOf(xAxes, place.xAxis)},
                     {"yAxis"_L1, wordOf(yAxes, place.yAxis)}};
    if (!place.screenPx.isEmpty())
        json.insert("screenPx"_L1, sizeJson(place.screenPx));
    if (!place.screenMm.isEmpty())
        json.insert("screenMm"_L1, sizeJson(place.screenMm));
    if (place.distanceMm > 0)
        json.insert("distanceMm"_L1, place.distanceMm);
    return json;
}

QJsonObject validJson(const TableValidityRule &rule)
{
    if (rule.kind == TableValidityRule::Kind::Codes)
        return {{"codes"_L1, QJsonArray::fromStringList(rule.codes)}};
    return {{rule.kind == TableValidityRule::Kind::AtLeast ? "atLeast"_L1 : "atMost"_L1, rule.limit}};
}

QString delimiterWord(char delimiter)
{
    const QString word = layout_words::wordOf(layout_words::delimiters, delimiter);
    return word.isEmpty() ? QString(QLatin1Char(delimiter)) : word;
}

QJsonObject timeJson(const TableLayout &layout)
{
    QJsonObject json{{"unit"_L1, layout_words::wordOf(layout_words::timeUnits, layout.timeUnit)}};
    if (layout.time.isGiven())
        json.insert("column"_L1, columnJson(layout.time));
    if (layout.rateHz > 0)
        json.insert("rateHz"_L1, layout.rateHz);
    return json;
}

QJsonValue headerJson(const TableLayout &layout)
{
    switch (layout.header) {
    case TableHeader::Named:
        return "yes"_L1;
    case TableHeader::Line:
        return static_cast<qint64>(layout.headerLine);
    case TableHeader::None:
        break;
    }
    return "no"_L1;
}

void putDelimited(const TableLayout &layout, QJsonObject &json)
{
    json.insert("delimiter"_L1, delimiterWord(layout.delimiter));
    json.insert("decimal"_L1, layout_words::wordOf(layout_words::decimalSigns, layout.decimalSign));
    json.insert("header"_L1, headerJson(layout));
    if (layout.header == TableHeader::None && layout.headerLine > 0)
        json.insert("skipLines"_L1, static_cast<qint64>(layout.headerLine));
    if (!layout.commentPrefix.isEmpty())
        json.insert("comment"_L1, layout.commentPrefix);
    json.insert("time"_L1, timeJson(layout));
    if (layout.left.isGiven())
        json.insert("left"_L1, eyeJson(layout.left));
    if (layout.right.isGiven())
        json.insert("right"_L1, eyeJson(layout.right));
    json.insert("missing"_L1, QJsonArray::fromStringList(layout.missing));
    json.insert("valid"_L1, validJson(layout.valid));
    QJsonArray split;
    for (const TableColumn &column : layout.split)
        split << columnJson(column);
    if (!split.isEmpty())
        json.insert("split"_L1, split);
    if (layout.eye.column.isGiven())
        json.insert("eye"_L1, QJsonObject{{"column"_L1, columnJson(layout.eye.column)},
                                          {"left"_L1, QJsonArray::fromStringList(layout.eye.left)},
                                          {"right"_L1, QJsonArray::fromStringList(layout.eye.right)}});
    QJsonObject set;
    for (const TableSetColumn &column : layout.set)
        set.insert(column.key, columnJson(column.column));
    if (!set.isEmpty())
        json.insert("set"_L1, set);
}

/// Reads an object key by key, keeps the first problem, and knows at the end which keys nobody asked for.
class LayoutKeys {
public:
    LayoutKeys(QJsonObject object, QString path, std::optional<TableProblem> &problem)
        : m_object(std::move(object))
        , m_path(std::move(path))
        , m_problem(problem)
    {
    }
    ~LayoutKeys() = default;

    bool has(QLatin1StringView key) const { return m_object.contains(key); }

    /// @return undefined where the key is not there.
    QJsonValue take(QLatin1StringView key) { return m_object.take(key); }

    LayoutKeys object(QLatin1StringView key)
    {
        const QJsonValue value = take(key);
        if (!value.isUndefined() && !value.isObject())
            fail(key, value, QStringLiteral("an object in braces"));
        return {value.toObject(), nameOf(key) + u'.', m_problem};
    }

    void text(QLatin1StringView key, QString &target)
    {
        const QJsonValue value = take(key);
        if (value.isString())
            target = value.toString();
        else if (!value.isUndefined())
            fail(key, value, QStringLiteral("a text in quotes"));
    }

    void number(QLatin1StringView key, double &target)
    {
        const QJsonValue value = take(key);
        if (value.isDouble() && std::isfinite(value.toDouble()))
            target = value.toDouble();
        else if (!value.isUndefined())
            fail(key, value, QStringLiteral("a number"));
    }

    void positive(QLatin1StringView key, double &target)
    {
        const QJsonValue value = m_object.value(key);
        number(key, target);
        if (value.isDouble() && !(target > 0))
            fail(key, value, QStringLiteral("a number above 0"));
    }

    void size(QLatin1StringView key, QSizeF &target)
    {
        const QJsonValue value = take(key);
        if (value.isUndefined())
            return;
        const QJsonArray pair = value.toArray();
        target = QSizeF(pair.at(0).toDouble(), pair.at(1).toDouble());
        if (pair.size() != 2 || !(target.width() > 0) || !(target.height() > 0))
            fail(key, value, QStringLiteral("[width, height], both above 0"));
    }

    void texts(QLatin1StringView key, QStringList &target)
    {
        const QJsonValue value = take(key);
        if (value.isUndefined())
            return;
        target.clear();
        for (const QJsonValue each : value.toArray()) {
            if (!each.isString())
                fail(key, each, QStringLiteral("a text in quotes"));
            target << each.toString();
        }
        if (!value.isArray())
            fail(key, value, QStringLiteral("a list in brackets"));
    }

    void column(QLatin1StringView key, TableColumn &target)
    {
        const QJsonValue value = take(key);
        if (!value.isUndefined())
            target = columnOf(key, value);
    }

    TableColumn columnOf(QLatin1StringView key, const QJsonValue &value)
    {
        if (value.isString() && !value.toString().isEmpty())
            return TableColumn::named(value.toString());
        if (const int number = value.toInt(); number > 0)
            return TableColumn::numbered(number);
        fail(key, value, QStringLiteral("the name of a column, or its number from 1"));
        return {};
    }

    template <class Choice, std::size_t count>
    void word(QLatin1StringView key, const std::array<LayoutWord<Choice>, count> &words, Choice &target)
    {
        const QJsonValue value = take(key);
        if (value.isUndefined())
            return;
        if (const auto choice = layout_words::choiceOf(words, value.toString()))
            target = *choice;
        else
            fail(key, value, layout_words::listOf(words));
    }

    void fail(const QString &key, const QJsonValue &value, const QString &expected)
    {
        if (!m_problem)
            m_problem =
                TableProblem{.found = QStringLiteral("%1 for the key \"%2\"").arg(shortText(value), nameOf(key)),
                             .expected = expected,
                             .remedy = QStringLiteral("Correct the layout file.")};
    }

    /// All keys must have been asked for.
    void finish()
    {
        if (!m_problem && !m_object.isEmpty())
            m_problem = TableProblem{
                .found = QStringLiteral("the key \"%1\"").arg(nameOf(m_object.constBegin().key())),
                .expected = QStringLiteral("only keys of version %1").arg(TableLayout::version),
                .remedy = QStringLiteral("Take it out, or correct its spelling; docs/layouts.md lists the keys.")};
    }

    QStringList keys() const { return m_object.keys(); }

private:
    QString nameOf(const QString &key) const { return m_path + key; }

    static QString shortText(const QJsonValue &value)
    {
        constexpr qsizetype shown = 60;
        QJsonArray holder{value};
        QString text = QString::fromUtf8(QJsonDocument(holder).toJson(QJsonDocument::Compact)).sliced(1).chopped(1);
        return text.size() > shown ? text.first(shown) + QStringLiteral("...") : text;
    }

    QJsonObject m_object;
    QString m_path;
    std::optional<TableProblem> &m_problem;
};

TableEyeColumns readEyeColumns(LayoutKeys json)
{
    TableEyeColumns eye;
    json.column("x"_L1, eye.x);
    json.column("y"_L1, eye.y);
    json.column("pupil"_L1, eye.pupil);
    json.column("pupilHeight"_L1, eye.pupilHeight);
    json.column("validity"_L1, eye.validity);
    json.finish();
    return eye;
}

TableGeometry readPlace(LayoutKeys json)
{
    TableGeometry place;
    json.word("unit"_L1, layout_words::placeUnits, place.unit);
    json.word("origin"_L1, layout_words::origins, place.origin);
    json.word("xAxis"_L1, layout_words::xAxes, place.xAxis);
    json.word("yAxis"_L1, layout_words::yAxes, place.yAxis);
    json.size("screenPx"_L1, place.screenPx);
    json.size("screenMm"_L1, place.screenMm);
    json.positive("distanceMm"_L1, place.distanceMm);
    json.finish();
    return place;
}

TableValidityRule readRule(LayoutKeys json)
{
    TableValidityRule rule;
    const bool hasAtLeast = json.has("atLeast"_L1);
    const bool hasAtMost = json.has("atMost"_L1);
    if ((hasAtLeast ? 1 : 0) + (hasAtMost ? 1 : 0) + (json.has("codes"_L1) ? 1 : 0) > 1)
        json.fail(QStringLiteral("codes"), json.take("codes"_L1), QStringLiteral("only one of codes, atLeast, atMost"));
    json.texts("codes"_L1, rule.codes);
    if (hasAtLeast)
        rule.kind = TableValidityRule::Kind::AtLeast;
    if (hasAtMost)
        rule.kind = TableValidityRule::Kind::AtMost;
    json.number("atLeast"_L1, rule.limit);
    json.number("atMost"_L1, rule.limit);
    json.finish();
    return rule;
}

void readDelimiter(LayoutKeys &json, TableLayout &layout)
{
    const QJsonValue value = json.take("delimiter"_L1);
    if (value.isUndefined())
        return;
    const QString word = value.toString();
    if (const auto delimiter = layout_words::delimiterOf(word))
        layout.delimiter = *delimiter;
    else
        json.fail(QStringLiteral("delimiter"), value,
                  layout_words::listOf(layout_words::delimiters) + QStringLiteral(", or a single sign"));
}

void readHeader(LayoutKeys &json, TableLayout &layout)
{
    const QJsonValue value = json.take("header"_L1);
    const bool isNone = value == QJsonValue("no"_L1);
    if (isNone)
        layout.header = TableHeader::None;
    if (value.isDouble() && value.toInteger() > 0) {
        layout.header = TableHeader::Line;
        layout.headerLine = value.toInteger();
    } else if (!value.isUndefined() && !isNone && value != QJsonValue("yes"_L1)) {
        json.fail(QStringLiteral("header"), value, QStringLiteral("\"yes\", \"no\" or the number of its line"));
    }
    double skipped = 0;
    if (isNone && json.has("skipLines"_L1))
        json.positive("skipLines"_L1, skipped);
    constexpr double mostSkipped = 1e9;
    layout.headerLine += static_cast<qsizetype>(std::min(skipped, mostSkipped));
}

void readEyeColumn(LayoutKeys json, TableLayout &layout)
{
    json.column("column"_L1, layout.eye.column);
    json.texts("left"_L1, layout.eye.left);
    json.texts("right"_L1, layout.eye.right);
    json.finish();
}

void readColumnLists(LayoutKeys &json, TableLayout &layout)
{
    const QJsonValue split = json.take("split"_L1);
    if (!split.isUndefined() && !split.isArray())
        json.fail(QStringLiteral("split"), split, QStringLiteral("a list of columns in brackets"));
    for (const QJsonValue each : split.toArray())
        layout.split << json.columnOf("split"_L1, each);
    LayoutKeys set = json.object("set"_L1);
    for (const QString &key : set.keys()) {
        TableColumn column;
        const QByteArray bytes = key.toUtf8();
        if (key.isEmpty() || key.size() != bytes.size()) {
            set.fail(key, QJsonValue(key), QStringLiteral("a key of plain letters"));
            break;
        }
        set.column(QLatin1StringView(bytes), column);
        layout.set << TableSetColumn{key, column};
    }
}

void readDelimited(LayoutKeys &json, TableLayout &layout)
{
    readDelimiter(json, layout);
    json.word("decimal"_L1, layout_words::decimalSigns, layout.decimalSign);
    readHeader(json, layout);
    json.text("comment"_L1, layout.commentPrefix);
    LayoutKeys time = json.object("time"_L1);
    time.word("unit"_L1, layout_words::timeUnits, layout.timeUnit);
    time.column("column"_L1, layout.time);
    time.positive("rateHz"_L1, layout.rateHz);
    time.finish();
    layout.left = readEyeColumns(json.object("left"_L1));
    layout.right = readEyeColumns(json.object("right"_L1));
    json.texts("missing"_L1, layout.missing);
    layout.valid = readRule(json.object("valid"_L1));
    readEyeColumn(json.object("eye"_L1), layout);
    readColumnLists(json, layout);
}

void readVersion(LayoutKeys &json)
{
    const QJsonValue version = json.take("version"_L1);
    if (version.toInt(0) != TableLayout::version)
        json.fail(QStringLiteral("version"), version,
                  QStringLiteral("%1, the version that this program reads").arg(TableLayout::version));
}

TableProblem syntaxProblem(const QJsonParseError &error, QByteArrayView json)
{
    const auto offset = std::min(static_cast<qsizetype>(error.offset), json.size());
    const qsizetype line = 1 + json.first(offset).count('\n');
    return {.line = line,
            .found = QStringLiteral("what is no JSON (%1)").arg(error.errorString()),
            .expected = QStringLiteral("a layout as docs/layouts.md describes it"),
            .remedy = QStringLiteral("Correct the file, or save the layout anew.")};
}

} // namespace

QByteArray layoutJson(const TableLayout &layout)
{
    QJsonObject json{{"version"_L1, TableLayout::version},
                     {"kind"_L1, layout_words::wordOf(layout_words::kinds, layout.kind)},
                     {"encoding"_L1, layout_words::wordOf(layout_words::encodings, layout.encoding)},
                     {"place"_L1, placeJson(layout.place)}};
    if (!layout.description.isEmpty())
        json.insert("description"_L1, layout.description);
    if (!layout.match.isEmpty())
        json.insert("match"_L1, QJsonArray::fromStringList(layout.match));
    if (layout.kind == TableKind::Delimited)
        putDelimited(layout, json);
    QJsonObject messages;
    if (!layout.beginMessage.isEmpty())
        messages.insert("begin"_L1, layout.beginMessage);
    if (!layout.endMessage.isEmpty())
        messages.insert("end"_L1, layout.endMessage);
    if (layout.kind == TableKind::EventLog && !messages.isEmpty())
        json.insert("messages"_L1, messages);
    return QJsonDocument(json).toJson();
}

std::variant<TableLayout, TableProblem> layoutFromJson(QByteArrayView bytes, const QString &file)
{
    std::optional<TableProblem> problem;
    const auto refused = [&](TableProblem reason) {
        reason.file = file;
        return reason;
    };
    QJsonParseError error{};
    const QJsonDocument document = QJsonDocument::fromJson(bytes.toByteArray(), &error);
    if (!document.isObject())
        return refused(syntaxProblem(error, bytes));
    TableLayout layout;
    LayoutKeys json(document.object(), {}, problem);
    readVersion(json);
    json.text("description"_L1, layout.description);
    json.word("kind"_L1, layout_words::kinds, layout.kind);
    json.word("encoding"_L1, layout_words::encodings, layout.encoding);
    json.texts("match"_L1, layout.match);
    layout.place = readPlace(json.object("place"_L1));
    if (layout.kind == TableKind::Delimited) {
        readDelimited(json, layout);
    } else {
        LayoutKeys messages = json.object("messages"_L1);
        messages.text("begin"_L1, layout.beginMessage);
        messages.text("end"_L1, layout.endMessage);
        messages.finish();
    }
    json.finish();
    if (!problem)
        problem = layoutProblem(layout);
    if (problem)
        return refused(*problem);
    return layout;
}
