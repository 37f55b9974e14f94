// SPDX-License-Identifier: GPL-3.0-or-later
#include "aoi/panel/AOI_PopUp.h"
#include "aoi/panel/AoiControl.h"
#include "commands/CommandStack.h"
#include "commands/IMainWindow.h"
#include "model/DataModel.h"
#include "TestMessages.h"
#include "TestSettings.h"

#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

namespace {

const QPolygon square{{10, 10}, {40, 10}, {40, 30}, {10, 30}};

/// A window with a blue picture of 100 by 50 pixels.
class PictureWindow : public IMainWindow {
public:
    void addTableRow(const Examination &) override {}
    void removeTableRows(const QList<int> &) override {}
    void refreshPlainBackground() override {}
    void showImported() override {}
    int stimulusWidthPx() const override { return stimulus().width(); }
    QPixmap stimulus() const override
    {
        QPixmap picture(100, 50);
        picture.fill(Qt::blue);
        return picture;
    }
    void redraw() override {}
    void updateAndRedraw() override {}
};

AreaOfInterest area(const QString &name, const QPolygon &polygon = square, const QColor &color = {1, 2, 3, 150})
{
    AreaOfInterest aoi(name, polygon);
    aoi.color = color;
    return aoi;
}

QList<AOI_PopUp *> openDialogs()
{
    QList<AOI_PopUp *> dialogs;
    for (QWidget *widget : QApplication::topLevelWidgets()) {
        auto *dialog = qobject_cast<AOI_PopUp *>(widget);
        if (dialog && dialog->isVisible())
            dialogs << dialog;
    }
    return dialogs;
}

} // namespace

/// The list page with its commands, in the real panel.
class TestAoiControl : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void formAtConstruction();
    void insertedAreaIsListed();
    void thumbnails_data();
    void thumbnails();
    void insertOfAKnownNameReplaces();
    void namesThatDifferInCaseShareAnEntry();
    void undoOfAnEditRemovesTheArea();
    void undoWithoutEntryIsLogged();
    void renamedAreaIsASecondOne();
    void newAreaComesFromTheDialog();
    void doubleClickEdits();
    void severalDialogsAtATime();
    void deletedAreasComeBackOneByOne();
    void deletionWithoutAreaIsLogged();
    void checkMarkEnables();
    void messagesWithoutSelection();
    void messagesWithoutModel_data();
    void messagesWithoutModel();
    void areaThatIsNotInTheModel();
    void savedAreasAreLoaded_data();
    void savedAreasAreLoaded();
    void cancelledDialogs();
    void fileWithoutAreas();
    void eachFaultOfAFileIsToldOnce();
    void copiesGetNamesOfTheirOwn();

private:
    template <class Widget>
    Widget *find(const char *name) const
    {
        return m_panel->findChild<Widget *>(QLatin1StringView(name));
    }
    QListWidget *list() const { return find<QListWidget>("listViewAOI"); }
    QStringList entries() const;
    QStringList names() const;
    void click(const char *button) const { QTest::mouseClick(find<QPushButton>(button), Qt::LeftButton); }
    static CommandStack &stack() { return CommandStack::instance(); }

    std::unique_ptr<TemporarySettings> m_settings;
    std::unique_ptr<RecordedMessages> m_messages;
    PictureWindow m_window;
    DataModel m_model;
    std::unique_ptr<AoiControl> m_panel;
    std::unique_ptr<QSignalSpy> m_drawn;
};

void TestAoiControl::init()
{
    m_settings = std::make_unique<TemporarySettings>();
    m_messages = std::make_unique<RecordedMessages>();
    m_model = DataModel();
    m_panel = std::make_unique<AoiControl>();
    m_panel->setModel(&m_model);
    m_panel->setMainWindow(&m_window);
    m_drawn = std::make_unique<QSignalSpy>(m_panel.get(), &AoiControl::sigGraphicsParametersChanged);
    m_panel->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_panel.get()));
}

void TestAoiControl::cleanup()
{
    stack().clear();
    m_drawn.reset();
    m_panel.reset();
    m_messages.reset();
    m_settings.reset();
}

QStringList TestAoiControl::entries() const
{
    QStringList texts;
    for (int row = 0; row < list()->count(); ++row)
        texts << list()->item(row)->text();
    return texts;
}

QStringList TestAoiControl::names() const
{
    QStringList names;
    for (const AreaOfInterest &aoi : m_model.aoiList())
        names << aoi.name;
    return names;
}

void TestAoiControl::formAtConstruction()
{
    QCOMPARE(find<QPushButton>("addAOI_Button")->text(), QStringLiteral("Add AOI"));
    QCOMPARE(find<QPushButton>("editAOI_Button")->text(), QStringLiteral("Edit AOI"));
    QCOMPARE(find<QPushButton>("removeAOI_Button")->text(), QStringLiteral("Remove AOI"));
    QCOMPARE(find<QPushButton>("saveAOIButton")->text(), QStringLiteral("Save all AOIs to File"));
    QCOMPARE(find<QPushButton>("loadAOIButton")->text(), QStringLiteral("Load AOIs from File"));
    QCOMPARE(list()->count(), 0);
}

void TestAoiControl::insertedAreaIsListed()
{
    m_panel->sltInsertAOI(area(QStringLiteral("B")));
    AreaOfInterest off = area(QStringLiteral("A"), square, {9, 8, 7, 60});
    off.enabled = false;
    m_panel->sltInsertAOI(off, QStringLiteral("any"));
    QCOMPARE(entries(), QStringList({QStringLiteral("B"), QStringLiteral("A")}));
    QCOMPARE(names(), QStringList({QStringLiteral("A"), QStringLiteral("B")}));
    QCOMPARE(list()->item(0)->checkState(), Qt::Checked);
    QCOMPARE(list()->item(1)->checkState(), Qt::Unchecked);
    QCOMPARE(list()->item(1)->background().color(), QColor(9, 8, 7, 60));
    QVERIFY(!list()->item(0)->icon().isNull());
    QCOMPARE(m_drawn->count(), 2);
    QCOMPARE(stack().text(0), QStringLiteral("AOI inserted: B"));
}

void TestAoiControl::thumbnails_data()
{
    QTest::addColumn<QPolygon>("polygon");
    QTest::addColumn<QSize>("size");
    QTest::newRow("no vertex") << QPolygon() << QSize(0, 0);
    QTest::newRow("one vertex") << QPolygon{{5, 5}} << QSize(1, 1);
    QTest::newRow("square, its last column and row included") << square << QSize(31, 21);
    QTest::newRow("far beyond the picture") << QPolygon{{0, 0}, {2000000000, 0}, {0, 2000000000}} << QSize(0, 0);
    QTest::newRow("too large") << QPolygon{{0, 0}, {30000, 0}, {0, 30000}} << QSize(0, 0);
}

void TestAoiControl::thumbnails()
{
    QFETCH(QPolygon, polygon);
    m_panel->sltInsertAOI(area(QStringLiteral("A"), polygon));
    QTEST(m_model.aoi(QStringLiteral("A")).thumbnail.size(), "size");
    const QPolygon beyond{{90, 40}, {110, 40}, {110, 60}};
    m_panel->sltInsertAOI(area(QStringLiteral("B"), beyond));
    const QImage thumbnail = m_model.aoi(QStringLiteral("B")).thumbnail;
    QCOMPARE(thumbnail.pixelColor(0, 0), QColor(Qt::blue));
    QCOMPARE(thumbnail.pixelColor(9, 9), QColor(Qt::blue));
    QCOMPARE(thumbnail.pixelColor(10, 0), QColor(Qt::white)); // the picture ends at 100
    QCOMPARE(thumbnail.pixelColor(0, 10), QColor(Qt::white));
}

void TestAoiControl::insertOfAKnownNameReplaces()
{
    m_panel->sltInsertAOI(area(QStringLiteral("A")));
    AreaOfInterest other = area(QStringLiteral("A"), {{1, 1}}, {70, 80, 90});
    other.enabled = false;
    m_panel->sltInsertAOI(other);
    QCOMPARE(entries(), QStringList{QStringLiteral("A")});
    QCOMPARE(m_model.aoi(QStringLiteral("A")).polygon, QPolygon({{1, 1}}));
    QCOMPARE(list()->item(0)->checkState(), Qt::Unchecked);
    QCOMPARE(list()->item(0)->background().color(), QColor(70, 80, 90));
    stack().undo();
    QVERIFY(entries().isEmpty());
    QVERIFY(names().isEmpty());
}

void TestAoiControl::namesThatDifferInCaseShareAnEntry()
{
    m_panel->sltInsertAOI(area(QStringLiteral("Face")));
    m_panel->sltInsertAOI(area(QStringLiteral("face"), {{1, 1}}, {70, 80, 90}));
    QCOMPARE(names(), QStringList({QStringLiteral("Face"), QStringLiteral("face")}));
    QCOMPARE(entries(), QStringList{QStringLiteral("Face")});
    QCOMPARE(list()->item(0)->background().color(), QColor(70, 80, 90));
}

void TestAoiControl::undoOfAnEditRemovesTheArea()
{
    m_panel->sltInsertAOI(area(QStringLiteral("A")));
    m_panel->sltInsertAOI(area(QStringLiteral("A"), {{1, 1}}));
    stack().undo();
    QVERIFY(!m_model.hasAoi(QStringLiteral("A")));
    stack().redo();
    QCOMPARE(m_model.aoi(QStringLiteral("A")).polygon, QPolygon({{1, 1}}));
    QCOMPARE(entries(), QStringList{QStringLiteral("A")});
}

void TestAoiControl::undoWithoutEntryIsLogged()
{
    m_panel->sltInsertAOI(area(QStringLiteral("Face")));
    m_panel->sltInsertAOI(area(QStringLiteral("face")));
    QTest::ignoreMessage(QtWarningMsg, "Tried to undo AOI insert for AOI face but found no unique match.");
    stack().undo();
    QCOMPARE(names(), QStringList{QStringLiteral("Face")});
    QCOMPARE(entries(), QStringList{QStringLiteral("Face")});
}

void TestAoiControl::renamedAreaIsASecondOne()
{
    m_panel->sltInsertAOI(area(QStringLiteral("old")));
    list()->setCurrentRow(0);
    click("editAOI_Button");
    QCOMPARE(openDialogs().size(), 1);
    AOI_PopUp *dialog = openDialogs().first();
    dialog->findChild<QLineEdit *>()->setText(QStringLiteral("new"));
    dialog->close();
    QCOMPARE(names(), QStringList({QStringLiteral("new"), QStringLiteral("old")}));
}

void TestAoiControl::newAreaComesFromTheDialog()
{
    click("addAOI_Button");
    QCOMPARE(openDialogs().size(), 1);
    AOI_PopUp *dialog = openDialogs().first();
    QVERIFY(!dialog->parentWidget());
    QVERIFY(!dialog->isModal());
    QVERIFY(QTest::qWaitForWindowExposed(dialog));
    auto *view = dialog->findChild<QGraphicsView *>();
    for (const QPoint &vertex : square)
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, view->mapFromScene(vertex));
    QTest::keyClicks(dialog->findChild<QLineEdit *>(), QStringLiteral("Drawn"));
    QTest::mouseClick(dialog->findChild<QPushButton *>(QStringLiteral("pushButton")), Qt::LeftButton);
    QVERIFY(openDialogs().isEmpty());
    QCOMPARE(m_model.aoi(QStringLiteral("Drawn")).polygon, square);
    QCOMPARE(m_drawn->count(), 1);
}

void TestAoiControl::doubleClickEdits()
{
    m_panel->sltInsertAOI(area(QStringLiteral("A")));
    const QPoint place = list()->visualItemRect(list()->item(0)).center();
    QTest::mouseClick(list()->viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(list()->viewport(), Qt::LeftButton, {}, place);
    QCOMPARE(openDialogs().size(), 1);
    QCOMPARE(openDialogs().first()->findChild<QLineEdit *>()->text(), QStringLiteral("A"));
}

void TestAoiControl::severalDialogsAtATime()
{
    m_panel->sltInsertAOI(area(QStringLiteral("A")));
    list()->setCurrentRow(0);
    click("editAOI_Button");
    click("editAOI_Button");
    click("addAOI_Button");
    QList<AOI_PopUp *> dialogs = openDialogs();
    QCOMPARE(dialogs.size(), 3);
    list()->setCurrentRow(0);
    click("removeAOI_Button"); // while it is edited
    QVERIFY(names().isEmpty());
    for (AOI_PopUp *dialog : dialogs)
        dialog->close();
    QCOMPARE(names(), QStringList{QStringLiteral("A")}); // twice accepted, the new one dropped
    QCOMPARE(entries(), QStringList{QStringLiteral("A")});
    click("addAOI_Button");
    m_panel.reset(); // takes its windows along
    QVERIFY(openDialogs().isEmpty());
}

void TestAoiControl::deletedAreasComeBackOneByOne()
{
    for (const char *name : {"A", "B", "C"})
        m_panel->sltInsertAOI(area(QString::fromLatin1(name)));
    list()->item(0)->setSelected(true);
    list()->item(2)->setSelected(true);
    m_drawn->clear();
    click("removeAOI_Button");
    QCOMPARE(names(), QStringList{QStringLiteral("B")});
    QCOMPARE(entries(), QStringList{QStringLiteral("B")});
    QCOMPARE(m_drawn->count(), 1);
    QCOMPARE(stack().count(), 5);
    QCOMPARE(stack().text(3), QStringLiteral("AOI removed: A"));
    stack().undo();
    QCOMPARE(names(), QStringList({QStringLiteral("B"), QStringLiteral("C")}));
    QCOMPARE(list()->item(1)->checkState(), Qt::Checked);
    QVERIFY(!list()->item(1)->icon().isNull());
    stack().undo();
    QCOMPARE(entries(), QStringList({QStringLiteral("B"), QStringLiteral("C"), QStringLiteral("A")}));
    QCOMPARE(m_model.aoi(QStringLiteral("A")).polygon, square);
    stack().redo();
    QCOMPARE(names(), QStringList({QStringLiteral("B"), QStringLiteral("C")}));
}

void TestAoiControl::deletionWithoutAreaIsLogged()
{
    list()->addItem(QStringLiteral("stray"));
    QTest::ignoreMessage(QtWarningMsg, "Aoi to delete was not found");
    QTest::ignoreMessage(QtWarningMsg, "Could not find a unique AOI in the aoilist to delete.");
    m_panel->sltDeleteAOI(list()->item(0));
    QCOMPARE(entries(), QStringList{QStringLiteral("stray")});
    stack().undo();
    QVERIFY(names().isEmpty());
}

void TestAoiControl::checkMarkEnables()
{
    m_panel->sltInsertAOI(area(QStringLiteral("A")));
    m_drawn->clear();
    list()->item(0)->setCheckState(Qt::Unchecked);
    QVERIFY(!m_model.aoi(QStringLiteral("A")).enabled);
    QVERIFY(m_model.checkedAois().isEmpty());
    list()->item(0)->setCheckState(Qt::PartiallyChecked);
    QVERIFY(m_model.aoi(QStringLiteral("A")).enabled);
    QCOMPARE(m_drawn->count(), 2);
    QCOMPARE(stack().count(), 1); // no command of its own
}

void TestAoiControl::messagesWithoutSelection()
{
    click("editAOI_Button");
    click("removeAOI_Button");
    const QString missing =
        QStringLiteral("AOI operation without AOI selected!|You are trying to perform an action on an "
                       "AOI without having one selected. Please first select an AOI, then try "
                       "again.");
    QCOMPARE(m_messages->texts(), QStringList({missing, missing}));
}

void TestAoiControl::messagesWithoutModel_data()
{
    QTest::addColumn<QByteArray>("button");
    QTest::addColumn<QString>("message");
    const QString examination =
        QStringLiteral("AOI operation without examination!|You are trying to work with AOIs without any examination "
                       "loaded. Please load an examination first, then add AOIs.");
    QTest::newRow("add") << QByteArray("addAOI_Button")
                         << QStringLiteral("Internal error: AOI operation without model!|You are trying to work with "
                                           "AOIs without any model loaded. Please make sure a model gets set in the "
                                           "controller.");
    QTest::newRow("edit") << QByteArray("editAOI_Button") << examination;
    QTest::newRow("save") << QByteArray("saveAOIButton") << examination;
    QTest::newRow("load") << QByteArray("loadAOIButton")
                          << QStringLiteral("Internal error: AOI operation without model!|You are trying to work with "
                                            "AOIs without any model set.");
}

void TestAoiControl::messagesWithoutModel()
{
    QFETCH(QByteArray, button);
    QFETCH(QString, message);
    m_panel->setModel(nullptr);
    click(button.constData());
    QCOMPARE(m_messages->texts(), QStringList{message});
    QVERIFY(openDialogs().isEmpty());
}

void TestAoiControl::areaThatIsNotInTheModel()
{
    list()->addItem(QStringLiteral("stray"));
    list()->setCurrentRow(0);
    click("editAOI_Button");
    QCOMPARE(m_messages->texts(),
             QStringList{QStringLiteral("AOI not found!|The AOI you requested was not found in the "
                                        "examination profile.")});
    const QTemporaryDir folder;
    m_panel->sltInsertAOI(area(QStringLiteral("A")));
    m_panel->setSaveFileChooser([&](const QString &) { return folder.filePath(QStringLiteral("a.aoi")); });
    click("saveAOIButton");
    QCOMPARE(m_messages->texts().size(), 2);
    QCOMPARE(m_messages->texts().last(),
             QStringLiteral("AOI not found!|The AOI you are trying to export was not found."));
    QVERIFY(QFile::exists(folder.filePath(QStringLiteral("a.aoi"))));
    QCOMPARE(list()->selectedItems().size(), 2);
}

void TestAoiControl::savedAreasAreLoaded_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("aoi") << QStringLiteral("a.aoi");
    QTest::newRow("table") << QStringLiteral("a.csv");
    QTest::newRow("json") << QStringLiteral("a.json");
}

void TestAoiControl::savedAreasAreLoaded()
{
    QFETCH(QString, name);
    const QTemporaryDir folder;
    const QString path = folder.filePath(name);
    QStringList folders;
    m_panel->setSaveFileChooser([&](const QString &start) {
        folders << start;
        return path;
    });
    m_panel->setLoadFileChooser([&](const QString &start) {
        folders << start;
        return path;
    });
    m_panel->sltInsertAOI(area(QStringLiteral("B")));
    m_panel->sltInsertAOI(area(QStringLiteral("A"), {{1, 1}, {2, 3}}));
    click("saveAOIButton");
    click("saveAOIButton");
    list()->selectAll();
    click("removeAOI_Button");
    QVERIFY(names().isEmpty());
    const auto before = stack().count();
    click("loadAOIButton");
    click("loadAOIButton");
    QCOMPARE(names(), QStringList({QStringLiteral("A"), QStringLiteral("B")}));
    QCOMPARE(m_model.aoi(QStringLiteral("B")).polygon, square);
    QCOMPARE(stack().count(), before + 4); // a step an area
    QCOMPARE(folders, QStringList({QString(), folder.path(), QString(), folder.path()}));
    QVERIFY(m_messages->texts().isEmpty());
}

void TestAoiControl::cancelledDialogs()
{
    m_panel->setSaveFileChooser([](const QString &) { return QString(); });
    m_panel->setLoadFileChooser([](const QString &) { return QString(); });
    m_panel->sltInsertAOI(area(QStringLiteral("A")));
    click("saveAOIButton");
    QCOMPARE(m_messages->texts().size(), 1);
    QVERIFY(m_messages->texts().first().startsWith(QStringLiteral("Cannot write to file!|")));
    click("loadAOIButton");
    QCOMPARE(m_messages->texts().size(), 1);
    QVERIFY(SettingsStore().value(QStringLiteral("AOIModule/SAVEAOIDIR")).toString().isEmpty());
}

void TestAoiControl::fileWithoutAreas()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a.aoi"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("AOI FILE\n");
    file.close();
    m_panel->setLoadFileChooser([&](const QString &) { return path; });
    click("loadAOIButton");
    QCOMPARE(m_messages->texts(), QStringList{QStringLiteral("No AOI imported!|The AOI file you tried to load did not "
                                                             "contain any AOI information.")});
    QCOMPARE(m_drawn->count(), 0);
}

void TestAoiControl::eachFaultOfAFileIsToldOnce()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a.aoi"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("AOI FILE\n");
    for (const char *name : {"A", "B", "C"})
        file.write(QByteArray("type=static\ncolor=1;2;3\nname=") + name + "\n1 1\nx\n");
    file.close();
    m_panel->setLoadFileChooser([&](const QString &) { return path; });
    click("loadAOIButton");
    QCOMPARE(names(), QStringList({QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("C")}));
    QCOMPARE(m_messages->texts().size(), 2);
    QCOMPARE(m_messages->texts()[0],
             QStringLiteral("AOI color undefined!|The AOI color was not specified correctly.\n3 times"));
    QVERIFY(m_messages->texts()[1].startsWith(QStringLiteral("Problems importing the AOI file detected!|")));
}

void TestAoiControl::copiesGetNamesOfTheirOwn()
{
    AreaOfInterest off = area(QStringLiteral("B"), {{1, 1}, {2, 3}}, {70, 80, 90, 60});
    off.enabled = false;
    m_panel->sltInsertAOI(area(QStringLiteral("A")));
    m_panel->sltInsertAOI(off);
    list()->selectAll();
    m_panel->activateWindow(); // for its shortcuts
    QVERIFY(QTest::qWaitForWindowActive(m_panel.get()));
    list()->setFocus();
    QTest::keyClick(list(), Qt::Key_C, Qt::ControlModifier);
    QTest::keyClick(list(), Qt::Key_V, Qt::ControlModifier);
    QTest::keyClick(list(), Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(names(), QStringList({QStringLiteral("A"), QStringLiteral("A (2)"), QStringLiteral("A (3)"),
                                   QStringLiteral("B"), QStringLiteral("B (2)"), QStringLiteral("B (3)")}));
    const AreaOfInterest copy = m_model.aoi(QStringLiteral("B (2)"));
    QCOMPARE(copy.color, off.color);
    QVERIFY(!copy.enabled);
    QCOMPARE(copy.polygon, off.polygon.translated(20, 20));
    QCOMPARE(m_model.aoi(QStringLiteral("B (3)")).polygon, off.polygon.translated(40, 40));
    QApplication::clipboard()->setText(QStringLiteral("no areas"));
    QTest::keyClick(list(), Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(names().size(), 6);
}

QTEST_MAIN(TestAoiControl)
#include "TestAoiControl.moc"
