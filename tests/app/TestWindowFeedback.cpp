// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/WindowFeedback.h"
#include "base/Messages.h"
#include "base/Progress.h"

#include <QMessageBox>
#include <QProgressDialog>
#include <QPushButton>
#include <QTest>
#include <QTimer>

class TestWindowFeedback : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { installWindowFeedback(); }
    void cleanupTestCase();
    void progressCannotBeDismissed();
    void aBoxOverTheProgressCanBeAnswered();
    void aBoxWithoutWindowCanBeAnswered();
    void aBoxIsAsWideAsItsTitle();
    void everySeverityHasItsIcon_data();
    void everySeverityHasItsIcon();
};

namespace {

QProgressDialog *progressDialog()
{
    for (QWidget *widget : QApplication::topLevelWidgets()) {
        if (auto *dialog = qobject_cast<QProgressDialog *>(widget))
            return dialog;
    }
    return nullptr;
}

/// Looks at the next box and clicks its button.
template <class Look>
void whenABoxComes(Look look)
{
    QTimer::singleShot(0, [look] {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        QVERIFY(box);
        look(*box);
        QTest::mouseClick(box->button(QMessageBox::Ok), Qt::LeftButton);
    });
}

} // namespace

void TestWindowFeedback::cleanupTestCase()
{
    messages::install(nullptr);
    Progress::install(nullptr);
}

void TestWindowFeedback::progressCannotBeDismissed()
{
    Progress progress(QStringLiteral("Working"), 3);
    QProgressDialog *dialog = progressDialog();
    QVERIFY(dialog);
    QVERIFY(dialog->isVisible());
    QVERIFY(dialog->isModal());
    QCOMPARE(dialog->labelText(), QStringLiteral("Working"));
    QVERIFY(!dialog->findChild<QPushButton *>());
    QTest::keyClick(dialog, Qt::Key_Escape);
    QVERIFY(dialog->isVisible());
    QVERIFY(!dialog->close());
    QTest::qSleep(static_cast<int>(Progress::oneMovement.count()));
    progress.advance();
    QVERIFY(dialog->isVisible());
    QVERIFY(!dialog->wasCanceled());
    QCOMPARE(dialog->value(), 1);
}

void TestWindowFeedback::aBoxOverTheProgressCanBeAnswered()
{
    Progress progress(QStringLiteral("Working"), 3);
    QProgressDialog *dialog = progressDialog();
    bool seen = false;
    whenABoxComes([&](const QMessageBox &box) {
        seen = true;
        QCOMPARE(box.parentWidget(), dialog);
        QCOMPARE(box.text(), QStringLiteral("A file is bad"));
        QVERIFY(dialog->isVisible());
    });
    messages::critical(QStringLiteral("IMPORT ERROR!"), QStringLiteral("A file is bad"));
    QVERIFY(seen);
    QVERIFY(dialog->isVisible());
    QTest::qSleep(static_cast<int>(Progress::oneMovement.count()));
    progress.advance();
    QCOMPARE(dialog->value(), 1);
}

void TestWindowFeedback::aBoxWithoutWindowCanBeAnswered()
{
    QVERIFY(!progressDialog());
    bool seen = false;
    whenABoxComes([&](const QMessageBox &box) { seen = box.text() == QStringLiteral("text"); });
    messages::information(QStringLiteral("title"), QStringLiteral("text"));
    QVERIFY(seen);
}

/// The window's frame has a bold title, and a symbol and buttons beside it.
void TestWindowFeedback::aBoxIsAsWideAsItsTitle()
{
    constexpr int symbolAndButtons = 200; // px
    const QString title = QStringLiteral("A title that is longer than its text");
    int width = 0;
    int titleWidth = 0;
    whenABoxComes([&](const QMessageBox &box) {
        width = box.width();
        QFont bold = box.font();
        bold.setBold(true);
        titleWidth = QFontMetrics(bold).horizontalAdvance(title);
    });
    messages::information(title, QStringLiteral("text"));
    QVERIFY(titleWidth > 0);
    QVERIFY2(width >= titleWidth + symbolAndButtons, qPrintable(QStringLiteral("%1, %2").arg(width).arg(titleWidth)));
}

void TestWindowFeedback::everySeverityHasItsIcon_data()
{
    QTest::addColumn<messages::Severity>("severity");
    QTest::addColumn<QMessageBox::Icon>("icon");
    QTest::newRow("information") << messages::Severity::Information << QMessageBox::Information;
    QTest::newRow("warning") << messages::Severity::Warning << QMessageBox::Warning;
    QTest::newRow("critical") << messages::Severity::Critical << QMessageBox::Critical;
}

void TestWindowFeedback::everySeverityHasItsIcon()
{
    QFETCH(const messages::Severity, severity);
    QFETCH(const QMessageBox::Icon, icon);
    QMessageBox::Icon shown = QMessageBox::NoIcon;
    whenABoxComes([&](const QMessageBox &box) { shown = box.icon(); });
    messages::show(severity, QStringLiteral("title"), QStringLiteral("text"));
    QCOMPARE(shown, icon);
}

QTEST_MAIN(TestWindowFeedback)
#include "TestWindowFeedback.moc"
