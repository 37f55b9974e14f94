#include "base/Messages.h"
#include "base/Progress.h"
#include "base/Release.h"
#include "batch/BatchHelp.h"
#include "batch/BatchRun.h"
#include "batch/Terminal.h"
#include "batch/TerminalMessages.h"
#include "batch/TerminalProgress.h"
#include "model/AoiColors.h"
#include "model/PictureLimit.h"
#include "settings/FirstStart.h"
#include "settings/SettingsStore.h"

#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QTemporaryDir>

#include <cstdio>

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

/// Lines for developers are not for the terminal of a cluster job; what users need comes as a message. To
/// Qt, even the lack of a runtime folder is critical, and such a job often has none.
void dropDeveloperLines(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    if (type == QtFatalMsg)
        std::fprintf(stderr, "%s\n", qPrintable(text));
}

ExitCode answer(Terminal &output, const QString &text)
{
    return output.writeLine(text) ? ExitCode::AllDone : ExitCode::SomethingFailed;
}

ExitCode run(const BatchOptions &options, Terminal &output, Terminal &errors)
{
    if (options.help)
        return answer(output, batchHelp().chopped(1));
    if (options.version)
        return answer(
            output,
            QStringLiteral("vistrum-batch %1\nrelease %2").arg(QCoreApplication::applicationVersion(), releaseText()));
    MessageRecord record;
    messages::install(std::make_unique<TerminalMessages>(
        errors, record, options.quiet ? TerminalMessages::Show::Problems : TerminalMessages::Show::All));
    if (!options.quiet)
        Progress::install(std::make_unique<TerminalProgress>(errors));
    PrivateStore store;
    ExitCode result = ExitCode::SomethingFailed;
    if (store.open())
        result = options.keys ? answer(output, keyList().chopped(1)) : BatchRun(options, record, output).run();
    messages::install(nullptr);
    Progress::install(nullptr);
    return result;
}

QStringList argumentsOf(int argc, char *argv[])
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    return arguments;
}

} // namespace

int main(int argc, char *argv[])
{
    qInstallMessageHandler(dropDeveloperLines);
    qputenv("QT_QPA_PLATFORM", "offscreen"); // drawings need Qt's widgets, but no display
    QImageReader::setAllocationLimit(largestPictureMegabytes);
    // Qt would take options of its own out of the others, without a word; so it gets the name of the program only.
    int programName = 1;
    QApplication application(programName, argv);
    QApplication::setApplicationName(QStringLiteral("vistrum-batch"));
    QApplication::setApplicationVersion(QStringLiteral("0.2014"));

    // By their numbers: the language's own streams would keep lines back, and with them that they cannot be written.
    QFile standardOutput;
    QFile standardError;
    if (!standardOutput.open(fileno(stdout), QIODevice::WriteOnly | QIODevice::Unbuffered) ||
        !standardError.open(fileno(stderr), QIODevice::WriteOnly | QIODevice::Unbuffered))
        return static_cast<int>(ExitCode::SomethingFailed);
    Terminal output(standardOutput, Terminal::Kind::Stream);
    Terminal errors(standardError, Terminal::kindOfStandardError());

    const auto parsed = parseBatchOptions(argumentsOf(argc, argv));
    if (const auto *error = std::get_if<UsageError>(&parsed)) {
        errors.writeLine(QStringLiteral("vistrum-batch: %1\nTry vistrum-batch --help.").arg(error->text));
        return static_cast<int>(ExitCode::Usage);
    }
    constexpr unsigned colorSeed = 1; // the same run gives the same colours
    aoicolors::seed(colorSeed);
    return static_cast<int>(run(std::get<BatchOptions>(parsed), output, errors));
}
