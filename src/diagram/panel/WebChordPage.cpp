// SPDX-License-Identifier: GPL-3.0-or-later
// The library of the web engine; see ChordPage.h.

#include "diagram/panel/ChordPage.h"

#include <QEventLoop>
#include <QTimer>
#include <QWebEngineSettings>
#include <QWebEngineView>

#include <unistd.h>

namespace {

constexpr int longestWaitMs = 20'000; ///< the first page starts the engine's processes

/// The engine does not start with its sandbox for the administrator, as whom programs run in containers. The page is
/// the program's own, names in it are text, and it loads nothing from elsewhere.
void allowAdministrator()
{
    if (geteuid() == 0 && !qEnvironmentVariableIsSet("QTWEBENGINE_DISABLE_SANDBOX"))
        qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");
}

class WebChordPage : public IChordPage {
public:
    WebChordPage()
    {
        QWebEngineSettings *const settings = m_view.settings();
        settings->setAttribute(QWebEngineSettings::JavascriptEnabled, true);
        settings->setAttribute(QWebEngineSettings::LocalContentCanAccessFileUrls, true); // it reads two files beside it
        m_view.setContextMenuPolicy(Qt::NoContextMenu);                                  // a browser's: back, source
    }

    QWidget *widget() override { return &m_view; }

    Loaded load(const QUrl &page) override
    {
        if (!m_view.settings()->testAttribute(QWebEngineSettings::JavascriptEnabled))
            return Loaded::WithoutScripts;
        QEventLoop loop;
        bool isThere = false;
        QObject::connect(&m_view, &QWebEngineView::loadFinished, &loop, [&](bool ok) {
            isThere = ok;
            loop.quit();
        });
        QTimer::singleShot(longestWaitMs, &loop, &QEventLoop::quit);
        m_view.load(page);
        loop.exec(QEventLoop::ExcludeUserInputEvents);
        return isThere ? Loaded::Yes : Loaded::No;
    }

private:
    QWebEngineView m_view;
};

} // namespace

extern "C" Q_DECL_EXPORT void vistrumMakeChordPage(std::unique_ptr<IChordPage> &page)
{
    allowAdministrator();
    page = std::make_unique<WebChordPage>();
}
