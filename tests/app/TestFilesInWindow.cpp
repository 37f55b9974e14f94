// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/NoticeLine.h"
#include "import/TableTexts.h"
#include "WindowTest.h"

#include <QAction>
#include <QFile>
#include <QListWidget>
#include <QMimeData>
#include <QPushButton>

namespace {

void write(const QString &path, const QByteArray &content)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
}

} // namespace

/// Files that are dropped on the window, or given to the program.
class TestFilesInWindow : public WindowTest {
    Q_OBJECT
private Q_SLOTS:
    void init() { openWindow(); }
    void cleanup() { closeWindow(); }

    void filesAndFoldersAreImported();
    void droppedFilesAreImported();
    void droppedTableOpensTheAssistant();
    void assistantOpensFromTheMenu();
    void aFolderWithoutRecordingsIsTold();
    void aFolderWithoutRecordingsIsToldBesideOthers();
    void companionsOfRecordingsAreNoTables_data();
    void companionsOfRecordingsAreNoTables();
    void aMissingFolderHasAName();

private:
    NoticeLine *notice() const { return m_window->findChild<NoticeLine *>(); }
    QString path(const char *name) const { return m_folder->filePath(QString::fromLatin1(name)); }
};

void TestFilesInWindow::filesAndFoldersAreImported()
{
    const QStringList recordings = exampleRecordings();
    m_window->importFiles({QStringLiteral(VISTRUM_SOURCE_DIR "/examples/study"), recordings.constFirst()});
    QCOMPARE(m_window->model().examinations().size(), recordings.size() + 1);
    QCOMPARE(CommandStack::instance().text(0), QStringLiteral("Data add"));
    QCOMPARE(CommandStack::instance().text(1), QStringLiteral("Data import"));
}

void TestFilesInWindow::droppedFilesAreImported()
{
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(exampleRecordings().constFirst())});
    QDragEnterEvent enter(QPoint(400, 300), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(m_window.get(), &enter);
    QVERIFY(enter.isAccepted());
    QDropEvent drop(QPointF(400, 300), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(m_window.get(), &drop);
    QCOMPARE(m_window->model().examinations().size(), 1);
    QVERIFY(!find<QGraphicsView>("visualization")->viewport()->acceptDrops()); // would swallow what is dropped there
}

/// A file that is no recording is looked at first; its import is one step of the undo list.
void TestFilesInWindow::droppedTableOpensTheAssistant()
{
    const QString path = m_folder->filePath(QStringLiteral("p01.csv"));
    write(path, tabletexts::table({}));
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(path)});
    QDragEnterEvent enter(QPoint(400, 300), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(m_window.get(), &enter);
    QDropEvent drop(QPointF(400, 300), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(m_window.get(), &drop);
    const QPointer<QDialog> assistant = m_window->findChild<QDialog *>(QStringLiteral("ImportAssistant"));
    QVERIFY(assistant);
    QVERIFY(QTest::qWaitForWindowExposed(assistant));
    QCOMPARE(m_window->model().examinations().size(), 0);
    QTest::mouseClick(assistant->findChild<QPushButton *>(QStringLiteral("import")), Qt::LeftButton);
    QTRY_COMPARE(m_window->model().examinations().size(), 1);
    QTRY_VERIFY(!assistant);
    QCOMPARE(m_window->model().examinations()[0].baseName, QStringLiteral("p01"));
    QCOMPARE(find<QTableWidget>("tableWidget")->rowCount(), 1);
    CommandStack &stack = CommandStack::instance();
    QCOMPARE(stack.count(), 1);
    QCOMPARE(stack.text(0), QStringLiteral("Import of other formats"));
    const auto samples = m_window->model().examinations()[0].leftEye.gazePoints;
    QCOMPARE(samples.size(), 500);
    stack.undo();
    QCOMPARE(m_window->model().examinations().size(), 0);
    QCOMPARE(find<QTableWidget>("tableWidget")->rowCount(), 0);
    stack.redo();
    QCOMPARE(m_window->model().examinations()[0].leftEye.gazePoints, samples);
    QCOMPARE(find<QTableWidget>("tableWidget")->rowCount(), 1);
}

void TestFilesInWindow::assistantOpensFromTheMenu()
{
    find<QAction>("action_ImportOther")->trigger();
    const QPointer<QDialog> assistant = m_window->findChild<QDialog *>(QStringLiteral("ImportAssistant"));
    QVERIFY(assistant);
    QVERIFY(QTest::qWaitForWindowExposed(assistant));
    QTest::keyClick(assistant, Qt::Key_Escape);
    QTRY_VERIFY(!assistant);
    QCOMPARE(CommandStack::instance().count(), 0);
}

void TestFilesInWindow::aFolderWithoutRecordingsIsTold()
{
    m_window->importFiles({m_folder->path()});
    QCOMPARE(notice()->text(), QStringLiteral("No recording in ") + m_folder->path());
    QCOMPARE(CommandStack::instance().count(), 0);
}

void TestFilesInWindow::aFolderWithoutRecordingsIsToldBesideOthers()
{
    m_window->importFiles({exampleRecordings().constFirst(), m_folder->path()});
    QCOMPARE(m_window->model().examinations().size(), 1);
    QCOMPARE(notice()->text(), QStringLiteral("No recording in ") + m_folder->path());
}

void TestFilesInWindow::companionsOfRecordingsAreNoTables_data()
{
    QTest::addColumn<QStringList>("files");
    QTest::addColumn<qsizetype>("recordings");
    QTest::addColumn<bool>("isAssistantOpen");
    const QString study = QStringLiteral(VISTRUM_SOURCE_DIR "/examples/study/");
    QStringList all;
    for (const QString &name : QDir(study).entryList(QDir::Files, QDir::Name))
        all << study + name;
    const QStringList companions{study + QStringLiteral("S01.set"), study + QStringLiteral("bay.png"),
                                 study + QStringLiteral("S01.labels.csv")};
    QTest::newRow("all files of a study") << all << exampleRecordings().size() << false;
    QTest::newRow("beside a folder") << QStringList(companions) + QStringList(study) << exampleRecordings().size()
                                     << false;
    QTest::newRow("a table beside") << QStringList{exampleRecordings().constFirst(), QStringLiteral("p01.csv")}
                                    << qsizetype(1) << true;
    QTest::newRow("alone") << companions << qsizetype(0) << true;
}

void TestFilesInWindow::companionsOfRecordingsAreNoTables()
{
    QFETCH(QStringList, files);
    QFETCH(bool, isAssistantOpen);
    write(path("p01.csv"), tabletexts::table({}));
    m_window->importFiles(files);
    QTEST(m_window->model().examinations().size(), "recordings");
    QCOMPARE(m_window->findChild<QDialog *>(QStringLiteral("ImportAssistant")) != nullptr, isAssistantOpen);
}

void TestFilesInWindow::aMissingFolderHasAName()
{
    m_window->importFiles({path("gone/")});
    const auto *assistant = m_window->findChild<QDialog *>(QStringLiteral("ImportAssistant"));
    QVERIFY(assistant);
    QVERIFY(assistant->findChild<QListWidget *>()->item(0)->text().startsWith(QStringLiteral("gone")));
}

QTEST_MAIN(TestFilesInWindow)
#include "TestFilesInWindow.moc"
