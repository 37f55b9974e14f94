// SPDX-License-Identifier: GPL-3.0-or-later
#include "import/panel/DataWidget.h"

#include "commands/CommandStack.h"

#include "ImportFiles.h"
#include "TestLog.h"
#include "TestMessages.h"
#include "TestSettings.h"

#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// Keeps the rows a table would have, by running number, and counts the rest.
class FakeWindow : public IMainWindow {
public:
    void addTableRow(const Examination &examination) override { rows << examination.number; }
    void removeTableRows(const QList<int> &numbers) override
    {
        removed << numbers;
        rows.removeIf([&](int number) { return numbers.contains(number); });
    }
    void refreshPlainBackground() override { ++backgrounds; }
    void showImported() override { ++shownImports; }
    int stimulusWidthPx() const override { return 0; }
    void redraw() override { ++redraws; }
    void updateAndRedraw() override {}

    QList<int> rows;
    QList<QList<int>> removed;
    int backgrounds = 0;
    int redraws = 0;
    int shownImports = 0;
};

} // namespace

class TestDataWidget : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void form();
    void adding();
    void addingTwice();
    void addingCancelled();
    void addingIsAskedOnlyOnce();
    void removing();
    void removingByKey();
    void removingNothing();
    void removingDoublesAndStrangers();
    void importing();
    void boxesComeOnceTheWindowShowsTheRecordings();
    void importingAgainAfterUndo();
    void redoReadsTheFilesAnew();
    void undoOfTheSecondImport();
    void importingTwoHundred();
    void importingNothing();
    void pictures();

private:
    template <class Widget>
    Widget *child(const char *name) const
    {
        return m_widget->findChild<Widget *>(QString::fromLatin1(name));
    }
    void click(const char *button) const { QTest::mouseClick(child<QPushButton>(button), Qt::LeftButton); }
    void add(const QStringList &paths)
    {
        m_choice = paths;
        click("SM_addButton");
    }
    QStringList listed() const;
    QStringList takeLog() const { return m_log->takeLines(); }
    QUndoStack &stack() const { return CommandStack::instance(); }

    std::unique_ptr<ImportFiles> m_files;
    std::unique_ptr<TemporarySettings> m_settings;
    std::unique_ptr<RecordedLog> m_log;
    std::unique_ptr<DataModel> m_model;
    std::unique_ptr<FakeWindow> m_window;
    std::unique_ptr<DataWidget> m_widget;
    QStringList m_choice;
    QStringList m_askedFolders;
};

void TestDataWidget::init()
{
    m_files = std::make_unique<ImportFiles>();
    m_settings = std::make_unique<TemporarySettings>();
    m_log = std::make_unique<RecordedLog>();
    m_model = std::make_unique<DataModel>();
    m_window = std::make_unique<FakeWindow>();
    m_widget = std::make_unique<DataWidget>();
    m_widget->setModel(m_model.get());
    m_widget->setMainWindow(m_window.get());
    m_widget->setLog(&m_log->log());
    m_choice.clear();
    m_askedFolders.clear();
    m_widget->setRecordingChooser([this](const QString &folder) {
        m_askedFolders << folder;
        return m_choice;
    });
    m_widget->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_widget.get()));
}

void TestDataWidget::cleanup()
{
    stack().clear(); // its commands refer to this test's widget
    m_settings.reset();
}

QStringList TestDataWidget::listed() const
{
    QStringList texts;
    for (int row = 0; row < child<QListWidget>("listView")->count(); ++row)
        texts << child<QListWidget>("listView")->item(row)->text();
    return texts;
}

void TestDataWidget::form()
{
    QCOMPARE(child<QPushButton>("SM_removeButton")->text(), u"Remove"_s);
    QCOMPARE(child<QPushButton>("SM_importButton")->text(), u"Import"_s);
    QVERIFY(child<QPushButton>("SM_addButton"));
    QCOMPARE(child<QPushButton>("ilmenau_import")->text(), u"Import Ilmenau Data"_s);
    QCOMPARE(child<QPushButton>("ilmenau_ini_import")->text(), u"Import INI"_s);
    QCOMPARE(m_widget->findChildren<QPushButton *>().size(), 5);
    QCOMPARE(m_widget->findChild<QLabel *>()->text(), u"Data files:"_s);
}

void TestDataWidget::adding()
{
    SettingsStore().setValue(u"ImportModule/lastbasepath"_s, u"/before"_s);
    add({u"/study/b.data"_s, u"/study/a.data"_s});
    QCOMPARE(m_askedFolders, QStringList{u"/before"_s});
    QCOMPARE(listed(), (QStringList{u"/study/b.data"_s, u"/study/a.data"_s}));
    QCOMPARE(SettingsStore().value(u"ImportModule/lastbasepath"_s).toString(), u"/study"_s);
    QCOMPARE(stack().undoText(), u"Data add"_s);
    QCOMPARE(takeLog(),
             (QStringList{u"CommandDataAdd::redo = /study/b.data"_s, u"CommandDataAdd::redo = /study/a.data"_s}));
    stack().undo();
    QCOMPARE(listed(), QStringList());
    QCOMPARE(takeLog(), QStringList());
}

void TestDataWidget::addingTwice()
{
    add({u"/study/a.data"_s});
    add({u"/other/b.data"_s});
    QCOMPARE(m_askedFolders, (QStringList{QString(), u"/study"_s}));
    takeLog();
    stack().undo();
    QCOMPARE(listed(), QStringList{u"/study/a.data"_s});
    QCOMPARE(takeLog(), QStringList{u"CommandDataAdd::undo = /study/a.data"_s});
    stack().redo();
    QCOMPARE(listed(), (QStringList{u"/study/a.data"_s, u"/other/b.data"_s}));
    QCOMPARE(takeLog(),
             (QStringList{u"CommandDataAdd::redo = /study/a.data"_s, u"CommandDataAdd::redo = /other/b.data"_s}));
}

void TestDataWidget::addingCancelled()
{
    add({u"/study/a.data"_s});
    add({});
    QCOMPARE(stack().count(), 2);
    QCOMPARE(listed(), QStringList{u"/study/a.data"_s});
    QCOMPARE(SettingsStore().value(u"ImportModule/lastbasepath"_s).toString(), u"/study"_s);
    stack().undo();
    stack().redo();
    QCOMPARE(listed(), QStringList{u"/study/a.data"_s});
}

void TestDataWidget::addingIsAskedOnlyOnce()
{
    add({u"/study/a.data"_s});
    stack().undo();
    m_choice = {u"/never.data"_s};
    stack().redo();
    QCOMPARE(m_askedFolders.size(), 1);
    QCOMPARE(listed(), QStringList{u"/study/a.data"_s});
}

void TestDataWidget::removing()
{
    add({u"/a"_s, u"/b"_s, u"/c"_s, u"/d"_s});
    takeLog();
    child<QListWidget>("listView")->item(2)->setSelected(true);
    child<QListWidget>("listView")->item(0)->setSelected(true);
    QTest::ignoreMessage(QtDebugMsg, "/a");
    QTest::ignoreMessage(QtDebugMsg, "/c");
    click("SM_removeButton");
    QCOMPARE(listed(), (QStringList{u"/b"_s, u"/d"_s}));
    QCOMPARE(takeLog(), (QStringList{u"CommandDataRemove::redo = /a"_s, u"CommandDataRemove::redo = /c"_s}));
    stack().undo();
    QCOMPARE(listed(), (QStringList{u"/b"_s, u"/d"_s, u"/a"_s, u"/c"_s})); // not where they were
    QCOMPARE(takeLog(), (QStringList{u"CommandDataAdd::redo = /a"_s, u"CommandDataAdd::redo = /c"_s}));
    stack().redo();
    QCOMPARE(listed(), (QStringList{u"/b"_s, u"/d"_s}));
}

void TestDataWidget::removingByKey()
{
    add({u"/a"_s, u"/b"_s});
    auto *list = child<QListWidget>("listView");
    m_widget->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_widget.get()));
    list->setFocus();
    list->clearSelection();
    QTest::keyClick(list, Qt::Key_Delete);
    QCOMPARE(stack().count(), 1); // nothing selected, no command
    list->item(1)->setSelected(true);
    QTest::keyClick(list, Qt::Key_Delete);
    QCOMPARE(listed(), QStringList{u"/a"_s});
}

void TestDataWidget::removingNothing()
{
    add({u"/a"_s});
    child<QListWidget>("listView")->clearSelection();
    click("SM_removeButton");
    QCOMPARE(stack().count(), 2);
    QCOMPARE(listed(), QStringList{u"/a"_s});
}

void TestDataWidget::removingDoublesAndStrangers()
{
    add({u"/a"_s, u"/b"_s, u"/a"_s});
    child<QListWidget>("listView")->item(2)->setSelected(true);
    click("SM_removeButton");
    QCOMPARE(listed(), (QStringList{u"/b"_s, u"/a"_s})); // the first of that text
    stack().push(new CommandDataRemove(*child<QListWidget>("listView"), {u"/A"_s, u"/"_s}, nullptr));
    QCOMPARE(listed(), (QStringList{u"/b"_s, u"/a"_s}));
}

void TestDataWidget::importing()
{
    const QString first = m_files->writeRecording(u"p01"_s);
    const QString second = m_files->writeRecording(u"p02"_s);
    const QString bad = m_files->writeRecording(u"bad"_s);
    m_files->write(u"bad.data"_s, "# nothing\n");
    m_files->write(u"forest.jpg"_s, "x");
    RecordedMessages shown;
    QSignalSpy loaded(m_widget.get(), &DataWidget::sigLoadTimeline);
    add({first, bad, second});
    takeLog();
    click("SM_importButton");
    QCOMPARE(stack().undoText(), u"Data import"_s);
    QCOMPARE(loaded.size(), 1);
    QCOMPARE(listed(), QStringList());
    QCOMPARE(shown.texts(),
             QStringList{corruptMessage(bad, u"it has no sample line, which would begin with a digit"_s)});
    QCOMPARE(m_window->rows, (QList<int>{1, 2}));
    QCOMPARE(m_window->backgrounds, 1);
    QCOMPARE(m_model->examinations().size(), 2);
    QCOMPARE(m_model->allExaminations().size(), 2);
    QCOMPARE(m_model->examinations()[1].subjectId, u"p02"_s);
    QCOMPARE(takeLog(), (QStringList{u"Dataimporter found header: # nothing"_s,
                                     u"CommandDataImport:redo The import of 3 files is done!"_s}));
    stack().undo();
    QCOMPARE(listed(), (QStringList{first, bad, second}));
    QVERIFY(m_model->examinations().isEmpty());
    QVERIFY(m_model->allExaminations().isEmpty());
    QCOMPARE(m_window->removed, (QList<QList<int>>{{1, 2}}));
    QCOMPARE(takeLog(), QStringList{u"CommandDataImport:undo The import of 3 files has been undone!"_s});
}

void TestDataWidget::boxesComeOnceTheWindowShowsTheRecordings()
{
    class Onlooker : public messages::IHandler {
    public:
        explicit Onlooker(std::function<void()> look) : m_look(std::move(look)) {}
        void show(messages::Severity, const QString &, const QString &) override { m_look(); }

    private:
        std::function<void()> m_look;
    };
    QSignalSpy loaded(m_widget.get(), &DataWidget::sigLoadTimeline);
    int boxes = 0;
    const auto look = [&] {
        ++boxes;
        QCOMPARE(listed(), QStringList());
        QCOMPARE(m_window->rows, (QList<int>{1}));
        QCOMPARE(loaded.size() + m_window->shownImports, boxes); // of this import, too
    };
    const RecordedMessages restored;
    messages::install(std::make_unique<Onlooker>(look));
    const QString bad = m_files->writeRecording(u"bad"_s);
    m_files->write(u"bad.data"_s, "# nothing\n");
    m_files->write(u"forest.jpg"_s, "x");
    add({bad, m_files->writeRecording(u"p01"_s)});
    click("SM_importButton");
    QCOMPARE(boxes, 1);
    stack().undo();
    stack().redo();
    QCOMPARE(boxes, 2);
}

void TestDataWidget::importingAgainAfterUndo()
{
    m_files->write(u"forest.jpg"_s, "x");
    add({m_files->writeRecording(u"p01"_s)});
    click("SM_importButton");
    stack().undo();
    click("SM_importButton"); // the paths stand in the list again
    QCOMPARE(m_model->examinations().size(), 1);
    QCOMPARE(m_model->examinations()[0].number, 1);
    QCOMPARE(m_window->rows, QList<int>{1});
    QCOMPARE(listed(), QStringList());
}

void TestDataWidget::redoReadsTheFilesAnew()
{
    m_files->write(u"forest.jpg"_s, "x");
    const QString path = m_files->writeRecording(u"p01"_s);
    add({path});
    click("SM_importButton");
    QCOMPARE(m_model->examinations()[0].duration(), 4);
    QCOMPARE(m_window->shownImports, 0); // whoever pushed the command sees to it
    stack().undo();
    QCOMPARE(m_window->redraws, 1);
    m_files->write(u"p01.data"_s, "0\t1\t1\t1\t1\t1\t1\t1\t1\t1\t1\n9\t1\t1\t1\t1\t1\t1\t1\t1\t1\t1\n");
    stack().redo();
    QCOMPARE(m_model->examinations()[0].duration(), 9);
    QCOMPARE(m_window->shownImports, 1);
    QCOMPARE(m_window->rows, QList<int>{1});
}

void TestDataWidget::undoOfTheSecondImport()
{
    m_files->write(u"forest.jpg"_s, "x");
    add({m_files->writeRecording(u"p01"_s)});
    click("SM_importButton");
    add({m_files->writeRecording(u"p02"_s)});
    click("SM_importButton");
    QCOMPARE(m_window->rows, (QList<int>{1, 2}));
    stack().undo();
    QCOMPARE(m_window->rows, QList<int>{1});
    QCOMPARE(m_model->examinations().size(), 1);
    QCOMPARE(m_model->examinations()[0].subjectId, u"p01"_s);
    QCOMPARE(m_model->allExaminations().size(), 1);
}

void TestDataWidget::importingTwoHundred()
{
    constexpr int count = 200;
    QStringList paths;
    for (int i = 0; i < count; ++i)
        paths << m_files->writeRecording(u"p%1"_s.arg(i));
    RecordedMessages shown;
    add(paths);
    click("SM_importButton");
    QCOMPARE(m_model->examinations().size(), count);
    QCOMPARE(m_model->examinations().constLast().number, count);
    QCOMPARE(shown.texts().size(), 1); // all images are missing: one box
    QVERIFY(shown.texts()[0].contains(u"(Missing images overall:200 )\nThe other missing images:\n"_s));
    stack().undo();
    QCOMPARE(listed(), paths);
    QVERIFY(m_model->examinations().isEmpty());
}

void TestDataWidget::importingNothing()
{
    QSignalSpy loaded(m_widget.get(), &DataWidget::sigLoadTimeline);
    click("SM_importButton");
    QCOMPARE(loaded.size(), 1);
    QCOMPARE(takeLog(), QStringList{u"CommandDataImport:redo The import of 0 files is done!"_s});
    stack().undo();
    QCOMPARE(m_model->examinations().size(), 0);
}

void TestDataWidget::pictures()
{
    stack().push(new CommandPictureImport(*m_model, u"/study/forest.jpg"_s));
    QCOMPARE(stack().undoText(), u"Picture Import: /study/forest.jpg"_s);
    QCOMPARE(m_model->images().paths(), QStringList{u"/study/forest.jpg"_s});
    QCOMPARE(m_model->images().names(), QStringList{u"forest"_s});
    stack().undo();
    QCOMPARE(m_model->images().paths(), QStringList());
    stack().redo();
    QCOMPARE(m_model->images().paths(), QStringList{u"/study/forest.jpg"_s});
}

QTEST_MAIN(TestDataWidget)
#include "TestDataWidget.moc"
