// SPDX-License-Identifier: GPL-3.0-or-later
#include "import/bids/BidsMetadata.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace {

using namespace Qt::Literals::StringLiterals;

template <class Value>
struct MetadataWord {
    QLatin1StringView word;
    Value value;
};

constexpr MetadataWord<Eye> eyes[] = {{"left"_L1, Eye::Left}, {"right"_L1, Eye::Right}, {"cyclopean"_L1, Eye::Mean}};

constexpr MetadataWord<TableTimeUnit> timeUnits[] = {{"ms"_L1, TableTimeUnit::Milliseconds},
                                                     {"millisecond"_L1, TableTimeUnit::Milliseconds},
                                                     {"milliseconds"_L1, TableTimeUnit::Milliseconds},
                                                     {"s"_L1, TableTimeUnit::Seconds},
                                                     {"second"_L1, TableTimeUnit::Seconds},
                                                     {"seconds"_L1, TableTimeUnit::Seconds},
                                                     {"us"_L1, TableTimeUnit::Microseconds},
                                                     {"microsecond"_L1, TableTimeUnit::Microseconds},
                                                     {"microseconds"_L1, TableTimeUnit::Microseconds},
                                                     {"ns"_L1, TableTimeUnit::Nanoseconds},
                                                     {"nanosecond"_L1, TableTimeUnit::Nanoseconds},
                                                     {"nanoseconds"_L1, TableTimeUnit::Nanoseconds}};

constexpr MetadataWord<TablePlaceUnit> placeUnits[] = {{"pixel"_L1, TablePlaceUnit::Pixels},
                                                       {"pixels"_L1, TablePlaceUnit::Pixels},
                                                       {"px"_L1, TablePlaceUnit::Pixels},
                                                       {"mm"_L1, TablePlaceUnit::Millimetres},
                                                       {"degree"_L1, TablePlaceUnit::Degrees},
                                                       {"degrees"_L1, TablePlaceUnit::Degrees},
                                                       {"deg"_L1, TablePlaceUnit::Degrees},
                                                       {"normalized"_L1, TablePlaceUnit::Normalised},
                                                       {"normalised"_L1, TablePlaceUnit::Normalised},
                                                       {"a.u. 0-1"_L1, TablePlaceUnit::Normalised}};

template <class Value, size_t N>
std::optional<Value> valueOfWord(const MetadataWord<Value> (&words)[N], const QString &text)
{
    for (const MetadataWord<Value> &each : words) {
        if (text.compare(each.word, Qt::CaseInsensitive) == 0)
            return each.value;
    }
    return std::nullopt;
}

double lengthMs(TableTimeUnit unit)
{
    switch (unit) {
    case TableTimeUnit::Seconds:
        return 1e3;
    case TableTimeUnit::Microseconds:
        return 1e-3;
    case TableTimeUnit::Nanoseconds:
        return 1e-6;
    case TableTimeUnit::Milliseconds:
    case TableTimeUnit::Clock:
    case TableTimeUnit::Samples:
        break;
    }
    return 1;
}

/// Reads the keys of one description; the first problem stays.
class KeyReader {
public:
    KeyReader(const QJsonObject &object, QString file) : m_object(object), m_file(std::move(file)) {}

    QString word(const QString &key, const QString &expected)
    {
        const QJsonValue value = m_object[key];
        if (!value.isString() || value.toString().isEmpty())
            refuse(key, value, expected);
        return value.toString();
    }

    double number(const QString &key, const QString &expected)
    {
        const QJsonValue value = m_object[key];
        if (!value.isDouble())
            refuse(key, value, expected);
        return value.toDouble();
    }

    QStringList words(const QString &key) const
    {
        QStringList list;
        for (const auto &entry : m_object[key].toArray())
            list << entry.toString();
        return list;
    }

    /// Of a column; empty where there is none.
    QString unit(const QString &column) const { return m_object[column].toObject()[u"Units"_s].toString().trimmed(); }

    void refuse(const QString &key, const QJsonValue &value, const QString &expected)
    {
        if (m_problem)
            return;
        const QString found = value.isUndefined() ? u"no key %1"_s.arg(key) : u"%1: %2"_s.arg(key, shown(value));
        m_problem = TableProblem{.file = m_file,
                                 .found = found,
                                 .expected = expected,
                                 .remedy = u"Write %1 into that file, or into one above it that holds for all."_s.arg(
                                     key.section(u'.', 0, 0))};
    }

    const std::optional<TableProblem> &problem() const { return m_problem; }

private:
    static QString shown(const QJsonValue &value)
    {
        constexpr qsizetype longest = 60;
        const QByteArray text = QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact);
        return QString::fromUtf8(text.sliced(1, text.size() - 2)).left(longest);
    }

    const QJsonObject &m_object;
    QString m_file;
    std::optional<TableProblem> m_problem;
};

int columnNumber(const QStringList &columns, QLatin1StringView name)
{
    return static_cast<int>(columns.indexOf(name)) + 1;
}

TableColumn column(const QStringList &columns, QLatin1StringView name)
{
    return TableColumn::numbered(columnNumber(columns, name));
}

void readTime(KeyReader &reader, const QStringList &columns, TableLayout &layout)
{
    layout.rateHz = reader.number(u"SamplingFrequency"_s, u"the samples per second"_s);
    if (!(layout.rateHz > 0))
        reader.refuse(u"SamplingFrequency"_s, layout.rateHz, u"a number above 0"_s);
    layout.time = column(columns, "timestamp"_L1);
    if (!layout.time.isGiven()) { // the samples come at equal distances
        layout.timeUnit = TableTimeUnit::Samples;
        return;
    }
    const QString text = reader.unit(u"timestamp"_s);
    const std::optional<TableTimeUnit> unit = valueOfWord(timeUnits, text);
    if (!unit)
        reader.refuse(u"timestamp.Units"_s, text.isEmpty() ? QJsonValue(QJsonValue::Undefined) : QJsonValue(text),
                      u"\"ms\", \"s\", \"us\" or \"ns\""_s);
    layout.timeUnit = unit.value_or(TableTimeUnit::Milliseconds);
    layout.rateHz = 0;
}

void readPlaces(KeyReader &reader, const QStringList &columns, TableLayout &layout)
{
    for (const QLatin1StringView name : {"x_coordinate"_L1, "y_coordinate"_L1}) {
        if (!columns.contains(name)) {
            reader.refuse(u"Columns"_s, QJsonArray::fromStringList(columns), u"a column %1"_s.arg(name));
            return;
        }
        const QString text = reader.unit(name);
        const std::optional<TablePlaceUnit> unit = valueOfWord(placeUnits, text);
        if (!unit)
            reader.refuse(name + ".Units"_L1, text.isEmpty() ? QJsonValue(QJsonValue::Undefined) : QJsonValue(text),
                          u"\"pixel\", \"mm\", \"degree\" or \"normalized\""_s);
        layout.place.unit = unit.value_or(TablePlaceUnit::Pixels);
    }
    if (reader.unit(u"x_coordinate"_s).compare(reader.unit(u"y_coordinate"_s), Qt::CaseInsensitive) != 0)
        reader.refuse(u"y_coordinate.Units"_s, reader.unit(u"y_coordinate"_s), u"the unit of x_coordinate"_s);
    layout.left = {column(columns, "x_coordinate"_L1),
                   column(columns, "y_coordinate"_L1),
                   column(columns, "pupil_size"_L1),
                   column(columns, "pupil_height"_L1),
                   {}};
    layout.right = {column(columns, "lost_x"_L1),
                    column(columns, "lost_y"_L1),
                    column(columns, "lost_pupil_size"_L1),
                    column(columns, "lost_pupil_height"_L1),
                    {}};
}

/// Two numbers above 0, or nothing.
std::optional<QSizeF> sizeOf(const QJsonValue &value, double scale)
{
    const QJsonArray pair = value.toArray();
    const QSizeF size(pair[0].toDouble() * scale, pair[1].toDouble() * scale);
    return pair.size() == 2 && size.width() > 0 && size.height() > 0 ? std::optional(size) : std::nullopt;
}

std::optional<TableOrigin> originOf(const QJsonValue &value)
{
    if (value.isUndefined())
        return TableOrigin::TopLeft;
    const QJsonArray pair = value.toArray();
    const QString vertical = pair[0].toString().toLower();
    const QString horizontal = pair[1].toString().toLower();
    if (vertical == "top"_L1 && horizontal == "left"_L1)
        return TableOrigin::TopLeft;
    if (vertical == "bottom"_L1 && horizontal == "left"_L1)
        return TableOrigin::BottomLeft;
    if (vertical == "center"_L1 && horizontal == "center"_L1)
        return TableOrigin::Centre;
    return std::nullopt;
}

void readScreen(KeyReader &samples, const QJsonObject &screen, TableGeometry &place)
{
    constexpr double mmPerMetre = 1000;
    const auto need = [&](const QString &key, bool isKnown, const QString &expected) {
        if (!isKnown)
            samples.refuse(u"StimulusPresentation.%1 of the run's events.json"_s.arg(key), screen[key], expected);
    };
    const std::optional<TableOrigin> origin = originOf(screen[u"ScreenOrigin"_s]);
    need(u"ScreenOrigin"_s, origin.has_value(), u"[\"top\", \"left\"], [\"bottom\", \"left\"] or the centre"_s);
    place.origin = origin.value_or(TableOrigin::TopLeft);
    if (place.unit == TablePlaceUnit::Pixels && place.origin == TableOrigin::TopLeft)
        return;
    const auto resolution = sizeOf(screen[u"ScreenResolution"_s], 1);
    need(u"ScreenResolution"_s, resolution.has_value(), u"width and height in pixels"_s);
    place.screenPx = resolution.value_or(QSizeF(0, 0));
    const bool isMeasured = place.unit == TablePlaceUnit::Millimetres || place.unit == TablePlaceUnit::Degrees;
    if (!isMeasured)
        return;
    const auto size = sizeOf(screen[u"ScreenSize"_s], mmPerMetre);
    need(u"ScreenSize"_s, size.has_value(), u"width and height in metres"_s);
    place.screenMm = size.value_or(QSizeF(0, 0));
    place.distanceMm = screen[u"ScreenDistance"_s].toDouble() * mmPerMetre;
    need(u"ScreenDistance"_s, place.distanceMm > 0 || place.unit != TablePlaceUnit::Degrees, u"metres"_s);
}

} // namespace

bool isEyeTracking(const QJsonObject &samples)
{
    return samples[u"PhysioType"_s].toString().compare("eyetrack"_L1, Qt::CaseInsensitive) == 0;
}

std::variant<BidsEyeTable, TableProblem> bidsEyeTable(const QJsonObject &samples, const QJsonObject &screen,
                                                      const QString &file)
{
    KeyReader reader(samples, file);
    if (!isEyeTracking(samples))
        reader.refuse(u"PhysioType"_s, samples[u"PhysioType"_s], u"\"eyetrack\""_s);
    BidsEyeTable table;
    const QString eyeNames = u"\"left\", \"right\" or \"cyclopean\""_s;
    const QString eyeText = reader.word(u"RecordedEye"_s, eyeNames);
    const std::optional<Eye> eye = valueOfWord(eyes, eyeText);
    if (!eye)
        reader.refuse(u"RecordedEye"_s, eyeText, eyeNames);
    table.eye = eye.value_or(Eye::Left);
    const QStringList columns = reader.words(u"Columns"_s);
    if (columns.isEmpty())
        reader.refuse(u"Columns"_s, samples[u"Columns"_s], u"the names of the columns in their order"_s);
    const double start = reader.number(u"StartTime"_s, u"the start of the samples in seconds"_s);
    TableLayout &layout = table.layout;
    layout.delimiter = '\t';
    layout.header = TableHeader::None;
    layout.missing = {u"n/a"_s, u"nan"_s};
    readTime(reader, columns, layout);
    table.startMs = layout.time.isGiven() ? 0 : start * lengthMs(TableTimeUnit::Seconds);
    readPlaces(reader, columns, layout);
    readScreen(reader, screen, layout.place);
    table.recordingName = samples[u"RecordingName"_s].toString();
    table.setFile = reader.words(u"SetFile"_s);
    if (reader.problem())
        return *reader.problem();
    return table;
}

std::variant<BidsEventColumns, TableProblem> bidsEventColumns(const QJsonObject &events, TableTimeUnit timeUnit,
                                                              const QString &file)
{
    KeyReader reader(events, file);
    const QStringList names = reader.words(u"Columns"_s);
    BidsEventColumns columns{.onset = columnNumber(names, "onset"_L1),
                             .duration = columnNumber(names, "duration"_L1),
                             .type = columnNumber(names, "trial_type"_L1),
                             .x = columnNumber(names, "x_coordinate"_L1),
                             .y = columnNumber(names, "y_coordinate"_L1),
                             .samples = columnNumber(names, "samples"_L1)};
    for (const auto &[name, number] : {std::pair("onset"_L1, columns.onset), std::pair("duration"_L1, columns.duration),
                                       std::pair("trial_type"_L1, columns.type)})
    {
        if (number == 0)
            reader.refuse(u"Columns"_s, events[u"Columns"_s], u"a column %1"_s.arg(name));
    }
    columns.onsetMs = lengthMs(valueOfWord(timeUnits, reader.unit(u"onset"_s)).value_or(timeUnit));
    const std::optional<TableTimeUnit> duration = valueOfWord(timeUnits, reader.unit(u"duration"_s));
    columns.durationMs = duration ? lengthMs(*duration) : columns.onsetMs;
    if (reader.problem())
        return *reader.problem();
    return columns;
}
