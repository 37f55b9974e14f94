// SPDX-License-Identifier: GPL-3.0-or-later
#include "convert/ConvertOptions.h"

#include "batch/OptionHelp.h"
#include "batch/OptionParser.h"
#include "batch/OptionValues.h"
#include "import/tables/LayoutFiles.h"

namespace {

using O = ConvertOptions;
using Text = QLatin1StringView;
using optionvalues::flag, optionvalues::number, optionvalues::text, optionvalues::texts;

constexpr OptionRowOf<O> inputTableRows[] = {
    {Text("layout"), Text("FILE|NAME|auto"),
     Text("how the tables are read: a layout file, the name of one that comes with the program, or found by looking at "
          "each table (default: auto)"),
     &text<&O::layout, O>, Reported::Always},
    {Text("split"), Text("COLUMN|MESSAGE"),
     Text("a recording for each value of this column, or for each message of an event log that begins so; several "
          "columns may be given (default: the table is one recording)"),
     &texts<&O::split, O>},
};

constexpr OptionRowOf<O> runRows[] = {
    {Text("out"), Text("DIR"), Text("where files go; made if missing (default: the current folder)"),
     &text<&O::outputFolder, O>, Reported::Never},
    {Text("report"), Text("FILE.json"), Text("record of the run: layouts, counts, messages, files written"),
     &text<&O::reportFile, O>, Reported::Never},
    {Text("jobs"), Text("N"), Text("tables read side by side (default: number of cores)"),
     &number<&O::jobs, 1, std::numeric_limits<int>::max(), O>, Reported::Never},
    {Text("quiet"), Text(), Text("no progress bar, and of the messages only warnings and errors"), &flag<&O::quiet, O>,
     Reported::Never},
    {Text("help"), Text(), Text("this text"), &flag<&O::help, O>, Reported::Never},
    {Text("version"), Text(), Text("the version"), &flag<&O::version, O>, Reported::Never},
};

QList<OptionGroupOf<O>> groups()
{
    return {{Text("Tables"), inputTableRows}, {Text("Run"), runRows}};
}

std::optional<UsageError> takeTableArgument(const QString &argument, O &options)
{
    if (argument.isEmpty())
        return UsageError{QStringLiteral("a table has an empty name")};
    options.tables << argument;
    return {};
}

std::optional<UsageError> complaintAbout(const O &options)
{
    if (options.tables.isEmpty())
        return UsageError{QStringLiteral("no table given")};
    return {};
}

} // namespace

std::variant<ConvertOptions, UsageError> parseConvertOptions(const QStringList &arguments)
{
    return OptionParser<O>(arguments, {.groups = groups(),
                                       .takeInput = takeTableArgument,
                                       .isAnswered = [](const O &options) { return options.help || options.version; },
                                       .complaint = complaintAbout})
        .run();
}

QMap<QString, QString> reportedOptions(const ConvertOptions &options)
{
    return reportedOptionsOf(groups(), options);
}

QString convertHelp()
{
    QString help = QStringLiteral("vistrum-import [options] TABLE...\n"
                                  "Makes recordings (.data and .set) of tables and event logs of other programs; they "
                                  "may be\ncompressed with gzip.\n");
    for (const OptionGroupOf<O> &group : groups())
        help += optionhelp::ofGroup(group);
    help += QLatin1StringView("\nLayouts that come with the program:\n");
    for (const NamedLayout &layout : readyLayouts().layouts)
        help += optionhelp::line(QStringLiteral("  ") + layout.name, layout.layout.description);
    help +=
        QLatin1StringView("\nExamples:\n"
                          "  vistrum-import --out recordings tables/*.csv\n"
                          "  vistrum-import --layout mine.layout.json --split trial --report run.json all.csv.gz\n");
    return help + QLatin1StringView("\nFiles written are listed on standard output, one path a line.\n"
                                    "Exit code: 0 all done, 1 something failed and the rest is done, 2 wrong call.\n");
}
