#include "app/Vistrum.h"
#include "app/WindowFeedback.h"
#include "settings/FirstStart.h"
#include "settings/StoreRepair.h"

#include <QApplication>
#include <QEventLoop>
#include <QSplashScreen>
#include <QTimer>

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
    QApplication application(argc, argv);
    QApplication::setOrganizationName(QStringLiteral("Brennhaus Institute"));
    QApplication::setOrganizationDomain(QStringLiteral("vistrum.example"));
    QApplication::setApplicationName(QStringLiteral("Vistrum 2014"));
    QApplication::setApplicationDisplayName(QStringLiteral("Vistrum"));
    QApplication::setApplicationVersion(QStringLiteral("0.2014"));
    installWindowFeedback();

    QSplashScreen splash(QPixmap(QStringLiteral(":/Orbelle/Splash15")));
    splash.show();
    wait(splashMs);

    const auto privateStore = prepareStore();
    const QString folder = QApplication::applicationDirPath();
    applyFactorySettings(findDataFile(QStringLiteral("factory_settings.ini"), folder), findExamplesFolder(folder));

    Vistrum window;
    window.show();
    window.setWindowState(Qt::WindowMaximized);
    window.sltFitToScreen();
    splash.finish(&window);
    return QApplication::exec();
}
