// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/ParameterOptions.h"

#include "batch/BatchOptions.h"
#include "batch/OptionValues.h"

namespace {

using O = BatchOptions;
using Text = QLatin1StringView;
using optionvalues::Word, optionvalues::oneOf, optionvalues::texts;

constexpr Word<O::Detector> detectors[] = {{Text("standard"), O::Detector::Standard},
                                           {Text("gaussian"), O::Detector::Gaussian},
                                           {Text("velocity"), O::Detector::Velocity}};

constexpr Word<O::VelocityUnit> velocityUnits[] = {{Text("pixel-per-ms"), O::VelocityUnit::PixelPerMs},
                                                   {Text("degree-per-s"), O::VelocityUnit::DegreePerS},
                                                   {Text("percentile"), O::VelocityUnit::Percentile}};

std::optional<WrongValue> readSetting(const QString &value, BatchOptions &options)
{
    const qsizetype equals = value.indexOf(u'=');
    if (equals < 1)
        return WrongValue{value, QStringLiteral("not of the form KEY=VALUE")};
    options.settings << O::Setting{value.left(equals), value.mid(equals + 1)};
    return std::nullopt;
}

QString shownSettings(const BatchOptions &options)
{
    QStringList texts;
    for (const O::Setting &setting : options.settings)
        texts << setting.key + u'=' + setting.value;
    return texts.join(u',');
}

constexpr OptionValue settingList{.read = readSetting, .show = shownSettings, .given = Given::Repeatedly};

constexpr OptionRow parameterOptionRows[] = {
    {Text("settings"), Text("FILE"), Text("parameters as the window saves them; repeatable, later wins"),
     &texts<&O::settingsFiles>, Reported::Never},
    {Text("set"), Text("KEY=VALUE"), Text("one key of the settings; repeatable, after --settings"), &settingList,
     Reported::Never},
    {Text("detector"), Text("NAME"), Text("of %1 (default: as the settings say)"), &oneOf<&O::detector, detectors>,
     Reported::IfGiven, Text("calculate fixations,recipe")},
    {Text("velocity-unit"), Text("U"), Text("of %1 (default: percentile)"), &oneOf<&O::velocityUnit, velocityUnits>},
};

} // namespace

OptionGroup parameterOptions()
{
    return {Text("Parameters"), parameterOptionRows};
}
