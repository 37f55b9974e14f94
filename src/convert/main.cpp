// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/TerminalProgram.h"
#include "convert/ConvertRun.h"

#include <QCoreApplication>

namespace {

ExitCode run(const ConvertOptions &options, TerminalProgram &program)
{
    if (options.help)
        return program.answer(convertHelp().chopped(1));
    if (options.version)
        return program.answerVersion();
    return program.run(
        {.shown = options.quiet ? TerminalMessages::Show::Problems : TerminalMessages::Show::All,
         .run = [&](MessageRecord &record, Terminal &output) { return ConvertRun(options, record, output).run(); }});
}

} // namespace

int main(int argc, char *argv[])
{
    TerminalProgram::dropDeveloperLines();
    int programName = 1; // Qt would take options of its own out of the others
    const QCoreApplication application(programName, argv);
    QCoreApplication::setApplicationName(QStringLiteral("vistrum-import"));
    QCoreApplication::setApplicationVersion(QStringLiteral("0.2014"));

    TerminalProgram program(QCoreApplication::applicationName());
    if (!program.open())
        return static_cast<int>(ExitCode::SomethingFailed);
    const QStringList arguments = program.arguments({argv + 1, argv + argc});
    if (const auto complaint = program.argumentComplaint())
        return static_cast<int>(program.refuse(*complaint));
    const auto parsed = parseConvertOptions(arguments);
    if (const auto *error = std::get_if<UsageError>(&parsed))
        return static_cast<int>(program.refuse(*error));
    return static_cast<int>(run(std::get<ConvertOptions>(parsed), program));
}
