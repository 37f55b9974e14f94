// SPDX-License-Identifier: GPL-3.0-or-later
#include "report/panel/MethodsWindow.h"
#include "WindowTest.h"

#include <QAction>
#include <QFile>

/// What was done in the window, as its methods section tells it.
class TestSessionInWindow : public WindowTest {
    Q_OBJECT
private Q_SLOTS:
    void init() { openWindow(); }
    void cleanup() { closeWindow(); }
    void namesWhatCouldNotBeRead();
    void tellsOnlyWhatWasNotUndone();

private:
    QString methods() const;
};

/// The text of a new window of methods.
QString TestSessionInWindow::methods() const
{
    find<QAction>("action_Methods")->trigger();
    const auto windows = m_window->findChildren<MethodsWindow *>();
    const QString text = windows.constLast()->text();
    windows.constLast()->close();
    return text;
}

void TestSessionInWindow::namesWhatCouldNotBeRead()
{
    const QString bad = m_folder->filePath(QStringLiteral("S99.data"));
    QVERIFY(QFile(bad).open(QIODevice::WriteOnly)); // empty
    m_window->importFiles(exampleRecordings() << bad);
    QCOMPARE(m_window->model().examinations().size(), 6);
    const QString wanted = QStringLiteral("1 recording could not be read: S99.");
    QVERIFY2(methods().contains(wanted), qPrintable(methods()));
    CommandStack::instance().undo();
    QVERIFY(!methods().contains(QStringLiteral("could not be read")));
}

void TestSessionInWindow::tellsOnlyWhatWasNotUndone()
{
    importExamples();
    QVERIFY(!methods().contains(QStringLiteral("of their median position")));
    find<QAbstractButton>("fixationsPage", "toolButton")->click();
    QVERIFY2(methods().contains(QStringLiteral("of their median position")), qPrintable(methods()));
    CommandStack::instance().undo();
    QVERIFY(!methods().contains(QStringLiteral("of their median position")));
}

QTEST_MAIN(TestSessionInWindow)
#include "TestSessionInWindow.moc"
