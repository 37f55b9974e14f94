// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/PictureControl.h"
#include "app/ProgramStart.h"
#include "app/Vistrum.h"
#include "app/WindowFeedback.h"
#include "base/ArgumentTexts.h"
#include "model/PictureLimit.h"
#include "recording/RecordingJournal.h"
#include "settings/FirstStart.h"
#include "settings/StoreRepair.h"

#include <QApplication>
#include <QEventLoop>
#include <QImageReader>
#include <QSplashScreen>
#include <QTimer>

#include <cstdio>

namespace {

constexpr int splashMs = 4000; ///< the splash stays at least this long, and stays responsive

void wait(int timeMs)
{
    QEventLoop loop;
    QTimer::singleShot(timeMs, &loop, &QEventLoop::quit);
    loop.exec();
}

int answer(const QString &text)
{
    return std::printf("%s", qPrintable(text)) >= 0 && std::fflush(stdout) == 0 ? 0 : 1;
}

int refuse(const QString &option)
{
    constexpr int wrongCall = 2;
    std::fprintf(stderr, "vistrum: unknown option %s\nTry vistrum --help.\n", qPrintable(option));
    return wrongCall;
}

} // namespace

int main(int argc, char *argv[])
{
    if (const auto text = answerOfStart(QByteArrayList(argv + 1, argv + argc)))
        return answer(*text);
    QApplication::setAttribute(Qt::AA_ShareOpenGLContexts); // for the web engine, which is loaded later
    QApplication application(argc, argv);
    QApplication::setOrganizationName(QStringLiteral("Brennhaus Institute"));
    QApplication::setOrganizationDomain(QStringLiteral("vistrum.example"));
    QApplication::setApplicationName(QStringLiteral("Vistrum 2014"));
    QGuiApplication::setDesktopFileName(QStringLiteral("vistrum"));
    QApplication::setApplicationVersion(QStringLiteral("0.2014"));
    QImageReader::setAllocationLimit(largestPictureMegabytes);
    installWindowFeedback();
    ArgumentTexts texts; // has links to files until the program ends
    const QStringList arguments = texts.texts(QByteArrayList(argv + 1, argv + argc));
    if (const auto option = unknownOption(arguments))
        return refuse(*option);

    QSplashScreen splash(QPixmap(QStringLiteral(":/Orbelle/Splash15")));
    splash.show();
    wait(splashMs);

    const auto privateStore = prepareStore();
    const QString folder = QApplication::applicationDirPath();
    applyFactorySettings(findDataFile(QStringLiteral("factory_settings.ini"), folder), findExamplesFolder(folder));

    Vistrum window;
    const bool isPlaced = window.restorePlace();
    window.show();
    if (!isPlaced)
        window.setWindowState(Qt::WindowMaximized);
    window.picture().sltFitToScreen();
    splash.finish(&window);
    window.importFiles(arguments);
    if (!RecordingJournal::interrupted(RecordingJournal::defaultFolder()).isEmpty())
        window.sltEyeTribeRecorder(); // which offers them
    return QApplication::exec();
}
