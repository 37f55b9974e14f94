// SPDX-License-Identifier: GPL-3.0-or-later
#include "report/panel/MethodsWindow.h"
#include "TestMessages.h"

#include <QClipboard>
#include <QComboBox>
#include <QFile>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

namespace {

MethodsRecord record()
{
    MethodsRecord made;
    made.run.release = QStringLiteral("9.8");
    made.run.detector = MixtureParameters{};
    return made;
}

} // namespace

class TestMethodsWindow : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init() { m_window = std::make_unique<MethodsWindow>(record(), nullptr); }
    void cleanup() { m_window.reset(); }
    void beginsWithMarkdown();
    void formatWritesAnew();
    void copiesWhatWasEdited();
    void savesWhatWasEdited();
    void tellsWhyItWasNotSaved();

private:
    void click(const char *name) const
    {
        QTest::mouseClick(m_window->findChild<QPushButton *>(QString::fromLatin1(name)), Qt::LeftButton);
    }
    void type(const QString &text) const
    {
        QTest::keyClicks(m_window->findChild<QPlainTextEdit *>(QStringLiteral("methodsText")), text);
    }

    std::unique_ptr<MethodsWindow> m_window;
};

void TestMethodsWindow::beginsWithMarkdown()
{
    QCOMPARE(m_window->text(), methodsText(record(), MethodsFormat::Markdown));
}

void TestMethodsWindow::formatWritesAnew()
{
    m_window->show();
    QTest::keyClick(m_window->findChild<QComboBox *>(QStringLiteral("formatComboBox")), Qt::Key_Down);
    QCOMPARE(m_window->text(), methodsText(record(), MethodsFormat::Plain));
}

void TestMethodsWindow::copiesWhatWasEdited()
{
    type(QStringLiteral("Mine. "));
    click("copyButton");
    QVERIFY(m_window->text().startsWith(QStringLiteral("Mine. # Methods")));
    QCOMPARE(QGuiApplication::clipboard()->text(), m_window->text());
}

void TestMethodsWindow::savesWhatWasEdited()
{
    const QTemporaryDir folder;
    const RecordedMessages messages;
    QString proposed;
    m_window->setFileChooser([&](const QString &name) {
        proposed = name;
        return folder.filePath(name);
    });
    type(QStringLiteral("Mine. "));
    click("saveButton");
    QCOMPARE(proposed, QStringLiteral("methods.md"));
    QFile file(folder.filePath(proposed));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(QString::fromUtf8(file.readAll()), m_window->text());
}

void TestMethodsWindow::tellsWhyItWasNotSaved()
{
    const QTemporaryDir folder;
    RecordedMessages messages;
    m_window->setFileChooser([](const QString &) { return QString(); });
    click("saveButton");
    QCOMPARE(messages.texts().size(), 0);
    m_window->setFileChooser([&](const QString &name) { return folder.filePath(QStringLiteral("none/") + name); });
    click("saveButton");
    QCOMPARE(messages.texts().size(), 1);
    QVERIFY(messages.texts()[0].contains(QStringLiteral("none/methods.md")));
}

QTEST_MAIN(TestMethodsWindow)
#include "TestMethodsWindow.moc"
