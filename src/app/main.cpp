// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/PictureControl.h"
#include "app/Vistrum.h"
#include "app/WindowFeedback.h"
#include "base/ArgumentTexts.h"
#include "base/Release.h"
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
#include <string_view>

namespace {

constexpr int splashMs = 4000; ///< the splash stays at least this long, and stays responsive

void wait(int timeMs)
{
    QEventLoop loop;
    QTimer::singleShot(timeMs, &loop, &QEventLoop::quit);
    loop.exec();
}

} // namespace

int main(int argc, char *argv[])
{
    if (argc == 2 && std::string_view(argv[1]) == "--version") { // needs no display
        std::printf("vistrum 0.2014\nrelease %s\n", qPrintable(releaseText()));
        return 0;
    }
    QApplication::setAttribute(Qt::AA_ShareOpenGLContexts); // for the web engine, which is loaded later
    QApplication application(argc, argv);
    QApplication::setOrganizationName(QStringLiteral("Brennhaus Institute"));
    QApplication::setOrganizationDomain(QStringLiteral("vistrum.example"));
    QApplication::setApplicationName(QStringLiteral("Vistrum 2014"));
    QGuiApplication::setDesktopFileName(QStringLiteral("vistrum"));
    QApplication::setApplicationVersion(QStringLiteral("0.2014"));
    QImageReader::setAllocationLimit(largestPictureMegabytes);
    installWindowFeedback();

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
    ArgumentTexts arguments; // has links to files until the program ends
    window.importFiles(arguments.texts(QByteArrayList(argv + 1, argv + argc)));
    if (!RecordingJournal::interrupted(RecordingJournal::defaultFolder()).isEmpty())
        window.sltEyeTribeRecorder(); // which offers them
    return QApplication::exec();
}
