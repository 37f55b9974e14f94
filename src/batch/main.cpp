// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Messages.h"
#include "batch/BatchHelp.h"
#include "batch/BatchRun.h"
#include "batch/TerminalProgram.h"
#include "model/AoiColors.h"
#include "model/PictureLimit.h"
#include "settings/FirstStart.h"
#include "settings/SettingsStore.h"

#include <QApplication>
#include <QFileInfo>
#include <QImageReader>
#include <QTemporaryDir>

namespace {

/// The run has a store of its own with the factory values: the user's is neither read nor changed.
class PrivateStore {
public:
    PrivateStore() = default;
    ~PrivateStore() { SettingsStore::useFile({}); }
    PrivateStore(const PrivateStore &) = delete;
    PrivateStore &operator=(const PrivateStore &) = delete;

    /// @return false, after a message, where there is no such store; no parameter may be read or written then.
    bool open()
    {
        const QString factoryFile =
            findDataFile(QStringLiteral("factory_settings.ini"), QCoreApplication::applicationDirPath());
        if (!m_folder.isValid())
            return refuse(
                QStringLiteral("no temporary folder for the settings of the run: %1").arg(m_folder.errorString()));
        if (!QFileInfo(factoryFile).isReadable())
            return refuse(QStringLiteral("the factory settings %1 cannot be read").arg(factoryFile));
        SettingsStore::useFile(m_folder.filePath(QStringLiteral("settings.ini")));
        applyFactorySettings(factoryFile, QString());
        return true;
    }

private:
    static bool refuse(const QString &reason)
    {
        messages::critical(QStringLiteral("vistrum-batch"), reason);
        return false;
    }

    QTemporaryDir m_folder;
};

ExitCode run(const BatchOptions &options, TerminalProgram &program)
{
    if (options.help)
        return program.answer(batchHelp().chopped(1));
    if (options.version)
        return program.answerVersion();
    return program.run({.shown = options.quiet ? TerminalMessages::Show::Problems : TerminalMessages::Show::All,
                        .run = [&](MessageRecord &record, Terminal &output) {
                            PrivateStore store;
                            if (!store.open())
                                return ExitCode::SomethingFailed;
                            return options.keys ? program.answer(keyList().chopped(1))
                                                : BatchRun(options, record, output).run();
                        }});
}

} // namespace

int main(int argc, char *argv[])
{
    TerminalProgram::dropDeveloperLines();
    qputenv("QT_QPA_PLATFORM", "offscreen"); // drawings need Qt's widgets, but no display
    QImageReader::setAllocationLimit(largestPictureMegabytes);
    // Qt would take options of its own out of the others, without a word; so it gets the name of the program only.
    int programName = 1;
    QApplication application(programName, argv);
    QApplication::setApplicationName(QStringLiteral("vistrum-batch"));
    QApplication::setApplicationVersion(QStringLiteral("0.2014"));

    TerminalProgram program(QCoreApplication::applicationName());
    if (!program.open())
        return static_cast<int>(ExitCode::SomethingFailed);
    const QStringList arguments = program.arguments({argv + 1, argv + argc});
    if (const auto complaint = program.argumentComplaint())
        return static_cast<int>(program.refuse(*complaint));
    const auto parsed = parseBatchOptions(arguments);
    if (const auto *error = std::get_if<UsageError>(&parsed))
        return static_cast<int>(program.refuse(*error));
    constexpr unsigned colorSeed = 1; // the same run gives the same colours
    aoicolors::seed(colorSeed);
    return static_cast<int>(run(std::get<BatchOptions>(parsed), program));
}
