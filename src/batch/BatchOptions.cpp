// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/BatchOptions.h"

#include "batch/OptionParser.h"
#include "batch/OptionTable.h"

namespace {

std::optional<UsageError> takeRecording(const QString &argument, BatchOptions &options)
{
    if (argument.isEmpty())
        return UsageError{QStringLiteral("a recording has an empty name")};
    options.recordings << argument;
    return {};
}

/// A recipe has its own steps: what else would decide them is no part of its run.
std::optional<UsageError> besideRecipe(const BatchOptions &options)
{
    const QStringList beside{u"recipe"_qs, u"out"_qs, u"report"_qs, u"methods"_qs, u"jobs"_qs, u"quiet"_qs};
    const BatchOptions defaults;
    if (options.recipeFile.isEmpty())
        return {};
    for (const OptionGroup &group : optionGroups()) {
        for (const OptionRow &row : group.rows) {
            if (beside.contains(row.name) || row.value->show(options) == row.value->show(defaults))
                continue;
            return UsageError{u"--%1: a recipe has its own steps; with --recipe there are only --%2"_qs.arg(
                row.name, beside.mid(1).join(u", --"_qs))};
        }
    }
    return {};
}

std::optional<UsageError> complaintAbout(const BatchOptions &options)
{
    if (auto complaint = besideRecipe(options))
        return complaint;
    if (options.recordings.isEmpty() && options.recipeFile.isEmpty())
        return UsageError{QStringLiteral("no recording given")};
    if (options.velocityUnit && options.detector != BatchOptions::Detector::Velocity)
        return UsageError{QStringLiteral("--velocity-unit: only with --detector velocity")};
    if (const auto complaint = inputComplaint(options))
        return UsageError{*complaint};
    if (const auto complaint = aoiComplaint(options))
        return UsageError{*complaint};
    return {};
}

} // namespace

std::variant<BatchOptions, UsageError> parseBatchOptions(const QStringList &arguments)
{
    return OptionParser<BatchOptions>(arguments, {.groups = optionGroups(),
                                                  .takeInput = takeRecording,
                                                  .isAnswered =
                                                      [](const BatchOptions &options) {
                                                          return options.help || options.version || options.keys;
                                                      },
                                                  .complaint = complaintAbout})
        .run();
}
