// SPDX-License-Identifier: GPL-3.0-or-later
#include "rules/SettingRules.h"

#include "clustering/ClusterSettingsModel.h"
#include "detection/FixationSettingsModel.h"
#include "settings/StoredKeys.h"
#include "visualization/modes/AoiModes.h"
#include "visualization/modes/VisualizationKinds.h"
#include "visualization/parameters/AoiVisualizationParameters.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace {

using Rules = QHash<QString, SettingRule>;
using Type = SettingRule::Type;

struct KeyRange {
    QLatin1StringView key; ///< of a row
    double least;
    double most;
};

/// As the forms have them; of options that mean something else in each mode, the widest.
constexpr KeyRange keyRanges[] = {
    {keys::eyeMode.key, 0, 4},
    {rows::standardMinimumDuration.key, 0, 5000},
    {rows::standardMaximumRadius.key, 10, 1000},
    {rows::standardOutliers.key, 0, 20},
    {rows::gaussianMinimumDuration.key, 0, 5000},
    {rows::velocityMinimumDuration.key, 0, 5000},
    {rows::velocityThreshold.key, 0, 5000},
    {rows::velocityScreenDistance.key, 0, 99.99},
    {rows::velocityImageSize.key, 0, 99.99},
    {rows::velocityImageSizePixels.key, 0, std::numeric_limits<int>::max()},
    {rows::clusterCalculationType.key, 0, 2},
    {rows::clusterStandardMinimumFixations.key, 1, 5'000'000},
    {rows::clusterStandardOverlapAllowed.key, 0, 50},
    {rows::clusterStandardMaximumRadius.key, 30, 2000},
    {rows::clusterMeanShiftRadius.key, 1, 5000},
    {rows::clusterMeanShiftGradient.key, 0.01, 1},
    {rows::clusterMeanShiftIterations.key, 1, 200},
    {rows::clusterMeanShiftMinimumFixations.key, 0, 5'000'000},
    {rows::size.key, 1, 999},
    {rows::stepSize.key, 1, 1000},
    {rows::fillOpacity.key, 0, 100},
    {rows::borderWidth.key, 0, 20},
    {rows::borderType.key, 0, 2},
    {rows::normalDistributionWidth.key, 10, 200},
    {rows::normalDistributionSigma.key, 10, 100},
    {rows::power.key, 0, 1'000'000'000},
    {rows::shadowTransparency.key, 0, 255},
    {rows::heatmapThreashold.key, 0, 10'000'000},
    {rows::heatmapColormap.key, 0, 5},
    {rows::numberOfHistogramBins.key, 1, 360},
    {rows::angleOffset.key, -360, 360},
    {rows::colorMapStops[0].transparency.key, 0, 255},
    {rows::colorMapStops[1].transparency.key, 0, 255},
    {rows::colorMapStops[2].transparency.key, 0, 255},
    {rows::colorMapStops[3].transparency.key, 0, 255},
    {rows::colorMapStops[0].start.key, 0, 1},
    {rows::colorMapStops[1].start.key, 0, 1},
    {rows::colorMapStops[2].start.key, 0, 1},
    {rows::colorMapStops[3].start.key, 0, 1},
    {rows::aoiTransMin.key, 0, 1'000'000},
    {rows::aoiLineSize.key, 0, 1000},
    {rows::aoiFillOpacity.key, 0, 100},
    {rows::aoiBorderWidth.key, 0, 100},
    {rows::aoiBorderType.key, 0, 2},
};

template <class T>
constexpr Type typeOf()
{
    if constexpr (std::is_same_v<T, bool>)
        return Type::Flag;
    else if constexpr (std::is_same_v<T, int>)
        return Type::WholeNumber;
    else if constexpr (std::is_same_v<T, double>)
        return Type::Number;
    else if constexpr (std::is_same_v<T, QColor>)
        return Type::Color;
    else
        return Type::Text;
}

template <class Row>
SettingRule ruleOf(const Row &row)
{
    using Value = typename Row::Value;
    SettingRule rule;
    if constexpr (!requires { row.stored; }) // what is stored in a form of its own is text
        rule.type = typeOf<Value>();
    if constexpr (std::is_same_v<Value, QColor> && requires { row.initial; })
        rule.mayBeEmpty = !row.initial.isValid();
    if (rule.type == Type::WholeNumber) {
        rule.least = std::numeric_limits<int>::lowest();
        rule.most = std::numeric_limits<int>::max();
    }
    for (const KeyRange &range : keyRanges) {
        if (range.key == row.key) {
            rule.least = range.least;
            rule.most = range.most;
        }
    }
    return rule;
}

template <class Table>
void addRules(const QString &path, const Table &table, Rules &rules)
{
    const auto add = [&](const auto &...row) { (rules.insert(path + row.key, ruleOf(row)), ...); };
    std::apply(add, table);
}

/// A mode is a place in its table.
void limitMode(SettingRule &rule, qsizetype modes)
{
    rule.least = 0;
    rule.most = static_cast<double>(modes - 1);
}

/// Flags were stored as the state of their check box, too.
const QString checkedBox = QString::number(Qt::Checked);

QString shortNumber(double value)
{
    return QString::number(value, 'g', 10);
}

} // namespace

std::optional<ParameterValue> SettingRule::value(const QString &text) const
{
    const auto textIf = [&](bool isValue) { return isValue ? std::optional<ParameterValue>(text) : std::nullopt; };
    if (type == Type::Text)
        return textIf(words.isEmpty() || words.contains(text));
    if (type == Type::Flag) {
        const bool on = text == QLatin1StringView("true") || text == QLatin1StringView("1") || text == checkedBox;
        const bool off = text == QLatin1StringView("false") || text == QLatin1StringView("0");
        return on || off ? std::optional<ParameterValue>(on) : std::nullopt;
    }
    if (type == Type::Color) {
        const QColor color(text);
        const bool isKept = color.isValid() && color.alpha() == 255; // transparency is stored elsewhere or not at all
        return isKept ? std::optional<ParameterValue>(color.name()) : textIf(text.isEmpty() && mayBeEmpty);
    }
    bool ok = false;
    const double read = type == Type::WholeNumber ? text.toInt(&ok) : text.toDouble(&ok);
    if (!ok || !std::isfinite(read) || read < least || read > most)
        return std::nullopt;
    if (type == Type::WholeNumber)
        return static_cast<int>(read);
    return read;
}

QString SettingRule::nearest(const QString &text) const
{
    if (value(text))
        return text;
    switch (type) {
    case Type::Text:
        return otherwise;
    case Type::Flag:
        return toStored(fromStored<bool>(text)).toString();
    case Type::Color:
        return mayBeEmpty ? QString() : toStored(fromStored<QColor>(text)).toString();
    case Type::WholeNumber:
        return QString::number(std::clamp(fromStored<int>(text), static_cast<int>(least), static_cast<int>(most)));
    case Type::Number:
        break;
    }
    const double read = fromStored<double>(text);
    return toStored(std::clamp(std::isfinite(read) ? read : 0, least, most)).toString();
}

QString SettingRule::expected() const
{
    switch (type) {
    case Type::Text: {
        QStringList named = words;
        named.removeAll(QString());
        return QStringLiteral("one of ") + named.join(QLatin1StringView(", "));
    }
    case Type::Flag:
        return QStringLiteral("true or false");
    case Type::Color:
        return QStringLiteral("an opaque color such as #ff8000");
    case Type::WholeNumber:
    case Type::Number:
        break;
    }
    const QString kind =
        type == Type::WholeNumber ? QStringLiteral("a whole number") : QStringLiteral("a number with a decimal point");
    const bool bounded = most < (type == Type::WholeNumber ? std::numeric_limits<int>::max() : 1e300);
    if (bounded)
        return QStringLiteral("%1 from %2 to %3").arg(kind, shortNumber(least), shortNumber(most));
    return least == 0 ? QStringLiteral("%1 from 0").arg(kind) : kind;
}

QHash<QString, SettingRule> settingRules()
{
    Rules rules;
    addRules(QString(), keys::all, rules);
    addRules(QString(), rows::fixation, rules);
    addRules(QString(), rows::cluster, rules);
    addRules(QString(), rows::aoiVisualization, rules);
    for (const VisualizationKind &kind : visualizationKinds()) {
        const QString path = kind.stored().settingsPath;
        addRules(path, rows::visualization, rules);
        limitMode(rules[path + rows::visualizationMode.key], kind.modeNames().size());
    }
    limitMode(rules[rows::aoiDrawMode.key], std::ssize(aoiModes()));
    QStringList &detectors = rules[rows::calculationType.key].words;
    for (const QLatin1StringView name : calculationTypeNames)
        detectors << name;
    detectors << QString(); // as an unknown one is stored
    QStringList &units = rules[rows::velocityUnit.key].words;
    for (int unit = 0; unit < static_cast<int>(std::size(velocityUnitNames)); ++unit)
        units << fixationstore::storedVelocityUnit(unit);
    for (const QLatin1StringView text : fixationstore::velocityUnitTexts) // of stores that hold texts
        units << text;
    rules[rows::velocityUnit.key].otherwise =
        fixationstore::storedVelocityUnit(fixationstore::loadedVelocityUnit(QString()));
    return rules;
}
