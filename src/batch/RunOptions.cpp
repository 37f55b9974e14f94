// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/RunOptions.h"

#include "batch/BatchOptions.h"
#include "batch/OptionValues.h"

namespace {

using O = BatchOptions;
using Text = QLatin1StringView;
using optionvalues::flag, optionvalues::number, optionvalues::text;

std::optional<WrongValue> readMethodsFile(const QString &value, BatchOptions &options)
{
    if (!value.endsWith(Text(".md"), Qt::CaseInsensitive) && !value.endsWith(Text(".txt"), Qt::CaseInsensitive))
        return WrongValue{value, QStringLiteral("the name has to end with .md or .txt")};
    options.methodsFile = value;
    return std::nullopt;
}

constexpr OptionValue methodsFile{.read = readMethodsFile, .show = text<&O::methodsFile>.show};

constexpr OptionRow runOptionRows[] = {
    {Text("report"), Text("FILE.json"), Text("record of the run: version, parameters, inputs, messages, files written"),
     &text<&O::reportFile>, Reported::Never},
    {Text("methods"), Text("FILE.md"),
     Text("methods section for a paper, of what the run did; FILE.txt: as plain text"), &methodsFile, Reported::Never},
    {Text("jobs"), Text("N"), Text("recordings read and calculated side by side (default: number of cores)"),
     &number<&O::jobs, 1>, Reported::Never},
    {Text("quiet"), Text(), Text("no progress bar, and of the messages only warnings and errors"), &flag<&O::quiet>,
     Reported::Never},
    {Text("help"), Text(), Text("this text"), &flag<&O::help>, Reported::Never},
    {Text("keys"), Text(), Text("the keys of --set with their factory values and what they take"), &flag<&O::keys>,
     Reported::Never},
    {Text("version"), Text(), Text("the version"), &flag<&O::version>, Reported::Never},
};

} // namespace

OptionGroup runOptions()
{
    return {Text("Run"), runOptionRows};
}
