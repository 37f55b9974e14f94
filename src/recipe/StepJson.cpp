// SPDX-License-Identifier: GPL-3.0-or-later
#include "recipe/StepJson.h"

#include "base/JsonFields.h"
#include "clustering/ClusterJson.h"
#include "detection/DetectionJson.h"

#include <limits>

using namespace Qt::StringLiterals;

namespace recipe {

namespace {

using Result = std::variant<Step, QString>;

/// In the order of the enumeration.
QStringList eyeModeWords()
{
    QStringList words;
    for (const EyeMode mode : allEyeModes)
        words << eyeModeWord(mode);
    return words;
}

// ---- areas

QJsonObject areaJson(const Areas::Area &area)
{
    QJsonArray vertices;
    for (const QPoint vertex : area.polygon)
        vertices << QJsonArray{vertex.x(), vertex.y()};
    return {{u"name"_s, area.name}, {u"vertices"_s, vertices}, {u"enabled"_s, area.enabled}};
}

/// Twice the reach of what an editor draws: sums of coordinates must stay numbers.
constexpr int farthestPx = 1'000'000;

std::optional<QPoint> vertexOf(const QJsonValue &json)
{
    const QJsonArray pair = json.toArray();
    const auto coordinate = [&](int i) { return pair.at(i).toInt(farthestPx + 1); };
    const bool isPoint =
        pair.size() == 2 && std::abs(coordinate(0)) <= farthestPx && std::abs(coordinate(1)) <= farthestPx;
    return isPoint ? std::optional(QPoint(coordinate(0), coordinate(1))) : std::nullopt;
}

Areas::Area areaOf(JsonFields &fields)
{
    Areas::Area area{.name = fields.text(u"name"_s), .polygon = {}, .enabled = fields.flag(u"enabled"_s)};
    fields.require(!area.name.isEmpty(), u"name: expected a text that is not empty"_s);
    for (const auto &json : fields.array(u"vertices"_s)) {
        const std::optional<QPoint> vertex = vertexOf(json);
        fields.require(vertex.has_value(), u"vertices: expected pairs of whole numbers, of at most 1000000"_s);
        area.polygon << vertex.value_or(QPoint());
    }
    return area;
}

// ---- each step

QJsonObject json(const Import &step)
{
    return {{u"recordings"_s, QJsonArray::fromStringList(step.recordings)}};
}
Step importOf(JsonFields &fields)
{
    return Import{fields.texts(u"recordings"_s)};
}

QJsonObject json(const Filter &step)
{
    return {{u"where"_s, jsonOf(step.where)}};
}
Step filterOf(JsonFields &fields)
{
    return Filter{fields.textsByName(u"where"_s)};
}

QJsonObject json(const LeaveOut &step)
{
    return {{u"recordings"_s, QJsonArray::fromStringList(step.recordings)}};
}
Step leaveOutOf(JsonFields &fields)
{
    return LeaveOut{fields.texts(u"recordings"_s)};
}

QJsonObject json(const Groups &step)
{
    return {{u"groups"_s, jsonOf(step.groups)}};
}
Step groupsOf(JsonFields &fields)
{
    return Groups{fields.textsByName(u"groups"_s)};
}

QJsonObject json(const CompareBy &step)
{
    return {{u"entry"_s, step.entry}};
}
Step compareByOf(JsonFields &fields)
{
    return CompareBy{fields.text(u"entry"_s)};
}

QJsonObject json(const Time &step)
{
    if (!step.frame)
        return {};
    return {{u"startMs"_s, step.frame->startMs}, {u"endMs"_s, step.frame->endMs}};
}
Step timeOf(JsonFields &fields)
{
    if (!fields.has(u"startMs"_s) && !fields.has(u"endMs"_s))
        return Time{};
    constexpr qint64 farthestMs = qint64(1) << 53; // beyond, JSON has no whole numbers
    TimeFrame frame;
    frame.startMs = fields.whole(u"startMs"_s, 0, farthestMs);
    frame.endMs = fields.whole(u"endMs"_s, frame.startMs, farthestMs);
    return Time{frame};
}

QJsonObject json(const CutEdges &step)
{
    if (!step.picturePx)
        return {{u"cut"_s, false}};
    return {{u"cut"_s, true}, {u"widthPx"_s, step.picturePx->width()}, {u"heightPx"_s, step.picturePx->height()}};
}
Step cutEdgesOf(JsonFields &fields)
{
    if (!fields.flag(u"cut"_s))
        return CutEdges{};
    const auto size = [&](const QString &name) { return static_cast<int>(fields.whole(name, 1, farthestPx)); };
    const int width = size(u"widthPx"_s);
    return CutEdges{QSize(width, size(u"heightPx"_s))};
}

QJsonObject json(const Areas &step)
{
    QJsonArray areas;
    for (const Areas::Area &area : step.areas)
        areas << areaJson(area);
    return {{u"areas"_s, areas}};
}
Step areaStepOf(JsonFields &fields)
{
    Areas step;
    for (const auto &each : fields.array(u"areas"_s)) {
        JsonFields area(each.toObject());
        step.areas << areaOf(area);
        fields.require(area.problem().isEmpty(),
                       u"areas: number %1: %2"_s.arg(QString::number(step.areas.size()), area.problem()));
    }
    return step;
}

QJsonObject json(const Set &step)
{
    return {{u"key"_s, step.key}, {u"value"_s, step.value}};
}
Step setOf(JsonFields &fields)
{
    const QString key = fields.text(u"key"_s);
    return Set{key, fields.text(u"value"_s)};
}

/// Of parameters in an object of their own.
template <class Made, class Parameters>
Step withParameters(JsonFields &fields, std::variant<Parameters, QString> (*read)(const QJsonObject &))
{
    const auto parameters = read(fields.object(u"parameters"_s));
    if (const auto *problem = std::get_if<QString>(&parameters)) {
        fields.require(false, u"parameters: "_s + *problem);
        return Made{};
    }
    return Made{std::get<Parameters>(parameters)};
}

QJsonObject json(const Fixations &step)
{
    return {{u"parameters"_s, ::toJson(step.parameters)}};
}
Step fixationsOf(JsonFields &fields)
{
    return withParameters<Fixations>(fields, &fixationParametersOf);
}

QJsonObject json(const Clusters &step)
{
    return {{u"parameters"_s, ::toJson(step.parameters)}, {u"pooled"_s, step.pooled}};
}
Step clustersOf(JsonFields &fields)
{
    Step step = withParameters<Clusters>(fields, &clusterParametersOf);
    std::get<Clusters>(step).pooled = fields.flag(u"pooled"_s);
    return step;
}

QJsonObject json(const Statistics &step)
{
    return {{u"of"_s, step.of}};
}
Step statisticsOf(JsonFields &fields)
{
    return Statistics{fields.text(u"of"_s)};
}

QJsonObject json(const Export &step)
{
    QJsonObject object{{u"table"_s, step.table},
                       {u"eyes"_s, QString(eyeModeWord(step.eyes))},
                       {u"prefix"_s, step.prefix},
                       {u"folder"_s, step.folder}};
    if (step.transitions) {
        object.insert(u"of"_s, QJsonArray::fromStringList(step.transitions->of));
        object.insert(u"values"_s, QJsonArray::fromStringList(step.transitions->values));
    }
    return object;
}
Step exportOf(JsonFields &fields)
{
    Export step{.table = fields.text(u"table"_s),
                .eyes = static_cast<EyeMode>(fields.word(u"eyes"_s, eyeModeWords())),
                .prefix = fields.text(u"prefix"_s),
                .folder = fields.text(u"folder"_s),
                .transitions = {}};
    if (fields.has(u"of"_s) || fields.has(u"values"_s))
        step.transitions = Transitions{fields.texts(u"of"_s), fields.texts(u"values"_s)};
    return step;
}

/// In the order of the alternatives of `Step`.
struct StepKind {
    QLatin1StringView word;
    Step (*read)(JsonFields &fields);
};
constexpr StepKind kinds[] = {
    {"import"_L1, importOf},       {"filter"_L1, filterOf},        {"leave-out"_L1, leaveOutOf},
    {"groups"_L1, groupsOf},       {"compare-by"_L1, compareByOf}, {"time"_L1, timeOf},
    {"cut-edges"_L1, cutEdgesOf},  {"areas"_L1, areaStepOf},       {"set"_L1, setOf},
    {"fixations"_L1, fixationsOf}, {"clusters"_L1, clustersOf},    {"statistics"_L1, statisticsOf},
    {"export"_L1, exportOf},
};
static_assert(std::size(kinds) == std::variant_size_v<Step>);

} // namespace

QString wordOf(const Step &step)
{
    return kinds[step.index()].word;
}

QJsonObject toJson(const Step &step)
{
    QJsonObject object = std::visit([](const auto &each) { return json(each); }, step);
    object.insert(u"step"_s, wordOf(step));
    return object;
}

std::variant<Step, QString> stepOf(const QJsonObject &json)
{
    QStringList words;
    for (const StepKind &kind : kinds)
        words << kind.word;
    JsonFields fields(json);
    const StepKind &kind = kinds[static_cast<size_t>(fields.word(u"step"_s, words))];
    if (!words.contains(json.value(u"step"_s).toString()))
        return fields.problem();
    Step step = kind.read(fields);
    if (const QString problem = fields.problem(); !problem.isEmpty())
        return u"%1: %2"_s.arg(kind.word, problem);
    return step;
}

} // namespace recipe
