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

std::optional<UsageError> complaintAbout(const BatchOptions &options)
{
    if (options.recordings.isEmpty())
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
