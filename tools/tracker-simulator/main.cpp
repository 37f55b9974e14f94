// SPDX-License-Identifier: GPL-3.0-or-later
#include "tracker-simulator/TrackerServer.h"

#include <QCoreApplication>

#include <cstdio>
#include <exception>

namespace {

enum ExitStatus { Done = 0, Failed = 1, WrongUsage = 2 };

void print(std::FILE *stream, const QString &text)
{
    std::fputs(text.toLocal8Bit().constData(), stream);
    std::fflush(stream);
}

ExitStatus fail(ExitStatus status, const QString &text)
{
    print(stderr, QStringLiteral("tracker-simulator: %1\n").arg(text));
    return status;
}

ExitStatus run(const TrackerOptions &options)
{
    std::unique_ptr<IFrameSource> frames;
    if (options.recordingPath.isEmpty()) {
        frames = std::make_unique<SimulatedSubject>(options.rateHz, options.seed);
    } else if (auto recorded = readFrames(options.recordingPath)) {
        frames = std::make_unique<ReplayedRecording>(std::move(*recorded));
    } else {
        return fail(Failed, QStringLiteral("%1: no sample line can be read. Give a recording (.data) with --recording.")
                                .arg(options.recordingPath));
    }
    boost::asio::io_context io(1);
    TrackerServer server(io, options, std::move(frames), [](const QString &line) { print(stdout, line + u'\n'); });
    const auto port = server.listen();
    if (!port)
        return fail(Failed, QStringLiteral("port %1 is taken. Choose another one with --port.").arg(options.port));
    print(stdout, QStringLiteral("listening on port %1\n").arg(*port));
    io.run();
    return Done;
}

ExitStatus runCommandLine()
{
    const auto parsed = parseTrackerOptions(QCoreApplication::arguments());
    if (const auto *help = std::get_if<TrackerHelp>(&parsed)) {
        print(stdout, help->text);
        return Done;
    }
    if (const auto *fault = std::get_if<TrackerUsageFault>(&parsed))
        return fail(WrongUsage, fault->text + QStringLiteral("\nSee tracker-simulator --help."));
    return run(std::get<TrackerOptions>(parsed));
}

} // namespace

int main(int argc, char *argv[])
{
    try {
        const QCoreApplication application(argc, argv);
        QCoreApplication::setApplicationName(QStringLiteral("tracker-simulator"));
        QCoreApplication::setApplicationVersion(QStringLiteral(VISTRUM_VERSION));
        return runCommandLine();
    } catch (const std::exception &exception) {
        std::fprintf(stderr, "tracker-simulator: %s\n", exception.what());
        return Failed;
    }
}
