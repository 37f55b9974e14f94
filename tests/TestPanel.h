// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "commands/CommandStack.h"
#include "TestLog.h"
#include "TestSettings.h"

#include <QAbstractButton>
#include <QTest>

#include <memory>

/// A test of a panel: it has a store and a log of its own, and an empty undo stack. `openSettings()` comes first, so
/// that the store can be filled before the panel reads it.
template <class Panel>
class PanelTest : public QObject {
protected:
    void openSettings() { m_settings = std::make_unique<TemporarySettings>(); }

    void openPanel()
    {
        m_log = std::make_unique<RecordedLog>();
        m_panel = std::make_unique<Panel>();
    }
    void showPanel()
    {
        m_panel->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_panel.get()));
    }
    void closePanel()
    {
        CommandStack::instance().clear(); // its commands refer to the panel
        m_panel.reset();
        m_log.reset();
        m_settings.reset();
    }

    RecordedLog &log() const { return *m_log; }
    static CommandStack &stack() { return CommandStack::instance(); }

    /// The control of this name; without one the test ends.
    template <class Widget>
    Widget *child(const char *name) const
    {
        auto *found = m_panel->template findChild<Widget *>(QLatin1StringView(name));
        if (!found)
            qFatal("The form has no %s", name);
        return found;
    }
    void click(const char *name) const { QTest::mouseClick(child<QAbstractButton>(name), Qt::LeftButton); }

    std::unique_ptr<Panel> m_panel;

private:
    std::unique_ptr<TemporarySettings> m_settings;
    std::unique_ptr<RecordedLog> m_log;
};
