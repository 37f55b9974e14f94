// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/AboutBox.h"
#include "app/NoticeLine.h"
#include "app/SettingsControl.h"
#include "base/Release.h"
#include "import/TableTexts.h"
#include "settings/StoredKeys.h"
#include "WindowTest.h"

#include <QAction>
#include <QComboBox>
#include <QFile>
#include <QFileDialog>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QScrollArea>
#include <QScrollBar>
#include <QSpinBox>
#include <QSplitter>
#include <QTabBar>
#include <QTextBrowser>
#include <QTimer>
#include <QToolBox>
#include <QUndoView>
#include <QWheelEvent>

namespace {

/// Answers the next modal question box with this button, as a user would.
void answerNextBox(QMessageBox::StandardButton button)
{
    QTimer::singleShot(0, [button] {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        QVERIFY(box);
        QTest::mouseClick(box->button(button), Qt::LeftButton);
    });
}

/// Chooses this file in the next file dialog.
void chooseInNextDialog(const QString &path)
{
    QTimer::singleShot(0, [path] {
        auto *dialog = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
        QVERIFY(dialog);
        dialog->findChild<QLineEdit *>()->setText(path);
        static_cast<QDialog *>(dialog)->accept();
    });
}

void turnWheelOver(QWidget *control)
{
    const QPointF place = control->rect().center();
    QWheelEvent event(place, control->mapToGlobal(place), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(control, &event);
}

void write(const QString &path, const QByteArray &content)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
}

} // namespace

/// Keys, menus, wheel, settings files, dropped files, and what the window remembers.
class TestWindowHabits : public WindowTest {
    Q_OBJECT
private Q_SLOTS:
    void init()
    {
        QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
        openWindow();
    }
    void cleanup() { closeWindow(); }

    void keysStepThroughTheCommands();
    void menusHaveTheirKeys();
    void noMnemonicStandsTwice();
    void aboutTellsReleaseLicenceAndLog();
    void theTourOpens();
    void theUndoViewStaysAbove();
    void theWheelChangesNothingWithoutFocus_data();
    void theWheelChangesNothingWithoutFocus();
    void settingsShowTheEyeMode();
    void aResetAsksFirst();
    void savedSettingsHaveTheirExtension();
    void aFileWithoutSettingsIsTold();
    void aSettingsFileWithAWrongValueChangesNothing_data();
    void aSettingsFileWithAWrongValueChangesNothing();
    void unknownSettingsAreTold();
    void whatIsSavedCanBeTakenBack();
    void theVersionIsNotTakenFromAFile();
    void aPictureThatCannotBeReadIsTold();
    void placeAndPanesAreRemembered();
    void thePaneOfTheTableIsWideEnough();
    void allTabsAreSeen_data();
    void allTabsAreSeen();
    void noPageScrollsSideways_data();
    void noPageScrollsSideways();
    void thePageOfTheOverlapMethodFits();
    void filesAndFoldersAreImported();
    void droppedFilesAreImported();
    void droppedTableOpensTheAssistant();
    void assistantOpensFromTheMenu();
    void aFolderWithoutRecordingsIsTold();

private:
    void openOnASmallScreen()
    {
        m_window = std::make_unique<Vistrum>();
        find<DataWidget>("Data_Widget")->setRecordingChooser([](const QString &) { return exampleRecordings(); });
        m_window->resize(1366, 740); // of 768, the title bar has some
        m_window->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    }
    NoticeLine *notice() const { return m_window->findChild<NoticeLine *>(); }
    QString path(const char *name) const { return m_folder->filePath(QString::fromLatin1(name)); }
};

void TestWindowHabits::keysStepThroughTheCommands()
{
    showTab("tab_3");
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    auto *radius = find<QSpinBox>("s_spinBox_rad");
    const int before = radius->value();
    radius->setFocus();
    radius->selectAll();
    QTest::keyClicks(radius, QStringLiteral("120"));
    QTest::keyClick(radius, Qt::Key_Return);
    QCOMPARE(radius->value(), 120);
    QTest::keyClick(radius, Qt::Key_Z, Qt::ControlModifier); // not the undo of the line that was typed
    QCOMPARE(radius->value(), before);
    QCOMPARE(CommandStack::instance().index(), 0);
    QTest::keyClick(m_window.get(), Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(radius->value(), 120);
}

void TestWindowHabits::menusHaveTheirKeys()
{
    QCOMPARE(find<QAction>("action_Quit")->shortcut(), QKeySequence(QStringLiteral("Ctrl+Q")));
    QCOMPARE(find<QAction>("action_Help")->shortcut(), QKeySequence(QStringLiteral("F1")));
    QStringList mnemonics;
    for (const QAction *menu : find<QMenuBar>("menuBar")->actions())
        mnemonics << menu->text().section(u'&', 1).left(1);
    QCOMPARE(mnemonics.removeDuplicates(), 0);
    QCOMPARE(find<QMenu>("menuEdit")->actions().constFirst()->shortcut(), QKeySequence(QStringLiteral("Ctrl+Z")));
    answerNextBox(QMessageBox::No);
    find<QAction>("action_Quit")->trigger();
    QVERIFY(m_window->isVisible());
}

/// On each page of each tab, with the menus, whatever else is hidden.
void TestWindowHabits::noMnemonicStandsTwice()
{
    const auto visibleMnemonics = [this] {
        QStringList found;
        for (const QAction *menu : find<QMenuBar>("menuBar")->actions())
            found << QKeySequence::mnemonic(menu->text()).toString();
        for (const auto *label : m_window->findChildren<QLabel *>())
            found << (label->isVisible() && label->buddy() ? QKeySequence::mnemonic(label->text()).toString()
                                                           : QString());
        for (const auto *button : m_window->findChildren<QAbstractButton *>())
            found << (button->isVisible() ? QKeySequence::mnemonic(button->text()).toString() : QString());
        found.removeAll(QString());
        return found;
    };
    const auto check = [&](const QString &page) {
        QStringList mnemonics = visibleMnemonics();
        QVERIFY2(!mnemonics.isEmpty(), qPrintable(page));
        mnemonics.sort();
        const QString all = mnemonics.join(u' ');
        QVERIFY2(mnemonics.removeDuplicates() == 0, qPrintable(page + QStringLiteral(": ") + all));
    };
    const auto checkChoices = [&](const QString &page) {
        check(page);
        for (const char *choice : {"Fix_comboBox", "calcType_comboBox"}) {
            auto *box = find<QComboBox>(choice);
            for (int i = 0; box->isVisible() && i < box->count(); ++i) {
                box->setCurrentIndex(i);
                check(page);
            }
        }
    };
    auto *tabs = find<QTabWidget>("tabWidget");
    QCOMPARE(tabs->count(), 5);
    for (int tab = 0; tab < tabs->count(); ++tab) {
        tabs->setCurrentIndex(tab);
        checkChoices(tabs->tabText(tab));
        for (auto *pages : tabs->widget(tab)->findChildren<QToolBox *>()) {
            for (int page = 0; page < pages->count(); ++page) {
                pages->setCurrentIndex(page);
                checkChoices(tabs->tabText(tab) + u'/' + pages->itemText(page));
            }
        }
    }
}

void TestWindowHabits::aboutTellsReleaseLicenceAndLog()
{
    const QString text = aboutText();
    for (const QString &part :
         {releaseText(), QStringLiteral("GPL-3.0-or-later"), QStringLiteral("How to cite"),
          QDir::currentPath() + QStringLiteral("/Vistrum2013.log"), QStringLiteral("/docs/validation.md")})
        QVERIFY2(text.contains(part), qPrintable(part));
    find<QAction>("action_About")->trigger();
    auto *box = m_window->findChild<QMessageBox *>();
    QVERIFY(box);
    QCOMPARE(box->text(), text);
    QTest::keyClick(box, Qt::Key_Escape);
    QTRY_VERIFY(!m_window->findChild<QMessageBox *>());
}

void TestWindowHabits::theTourOpens()
{
    find<QAction>("action_Help")->trigger();
    const QList<QTextBrowser *> pages = m_window->findChildren<QTextBrowser *>();
    const auto page = std::find_if(pages.begin(), pages.end(), [this](const QTextBrowser *each) {
        return each->window() != m_window.get(); // the page of corrections has one, too
    });
    QVERIFY(page != pages.end());
    QVERIFY((*page)->toPlainText().contains(QStringLiteral("Vistrum")));
}

void TestWindowHabits::theUndoViewStaysAbove()
{
    find<QAction>("action_UndoView")->trigger();
    const auto *view = m_window->findChild<QUndoView *>();
    QVERIFY(view);
    QCOMPARE(view->windowType(), Qt::Dialog);
}

void TestWindowHabits::theWheelChangesNothingWithoutFocus_data()
{
    QTest::addColumn<QString>("name");
    for (const char *name : {"groupByComboBox", "image_comboBox", "comboBox_eyemode", "s_spinBox_rad"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void TestWindowHabits::theWheelChangesNothingWithoutFocus()
{
    QFETCH(QString, name);
    importExamples();
    auto *control = m_window->findChild<QWidget *>(name);
    const auto shown = [control] {
        const auto *box = qobject_cast<QComboBox *>(control);
        return box ? box->currentIndex() : qobject_cast<QSpinBox *>(control)->value();
    };
    const auto groups = m_window->model().groups().size();
    m_window->setFocus();
    const int before = shown();
    turnWheelOver(control);
    QCOMPARE(shown(), before);
    QCOMPARE(m_window->model().groups().size(), groups);
    QVERIFY(control->focusPolicy() != Qt::WheelFocus);
}

void TestWindowHabits::settingsShowTheEyeMode()
{
    auto *eyes = find<QComboBox>("comboBox_eyemode");
    const int factory = eyes->currentIndex();
    const int other = factory == 2 ? 3 : 2;
    write(path("mine.ini"), QStringLiteral("Visualization/EyeMode=%1\n").arg(other).toUtf8());
    chooseInNextDialog(path("mine.ini"));
    find<QAction>("action_ImportSettings")->trigger();
    QCOMPARE(eyes->currentIndex(), other);
    m_window->settings().sltLoadDefaultSettings();
    QCOMPARE(eyes->currentIndex(), factory);
}

void TestWindowHabits::aResetAsksFirst()
{
    auto *radius = find<QSpinBox>("s_spinBox_rad");
    const int factory = radius->value();
    radius->setValue(factory + 7);
    answerNextBox(QMessageBox::No);
    find<QAction>("action_LoadDefaultSettings")->trigger();
    QCOMPARE(radius->value(), factory + 7);
    answerNextBox(QMessageBox::Yes);
    find<QAction>("action_LoadDefaultSettings")->trigger();
    QCOMPARE(radius->value(), factory);
}

void TestWindowHabits::savedSettingsHaveTheirExtension()
{
    chooseInNextDialog(path("way of working"));
    find<QAction>("action_SaveSettings")->trigger();
    QVERIFY(QFile::exists(path("way of working.ini")));
    QCOMPARE(notice()->text(), QStringLiteral("Settings saved to: ") + path("way of working.ini"));
}

void TestWindowHabits::aFileWithoutSettingsIsTold()
{
    write(path("letter.ini"), "Dear reader,\n[General]\nname=value\n");
    chooseInNextDialog(path("letter.ini"));
    find<QAction>("action_ImportSettings")->trigger();
    QCOMPARE(m_messages->texts(),
             QStringList(QStringLiteral("Settings|\"%1\" holds no settings of this program.").arg(path("letter.ini"))));
}

void TestWindowHabits::aSettingsFileWithAWrongValueChangesNothing_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("told");
    QTest::newRow("no number") << QByteArray("Visualization/Gazepoint/Size=abc")
                               << QStringLiteral("Visualization/Gazepoint/Size=abc: not a whole number from 1 to 999");
    QTest::newRow("decimal comma") << QByteArray("Calculation/Fixation/Standard/MaximumRadius=30,5")
                                   << QStringLiteral("Calculation/Fixation/Standard/MaximumRadius=30,5: not a whole "
                                                     "number from 10 to 1000");
    QTest::newRow("out of range") << QByteArray("Visualization/EyeMode=9")
                                  << QStringLiteral("Visualization/EyeMode=9: not a whole number from 0 to 4");
    QTest::newRow("two values") << QByteArray("Visualization/EyeMode=1=2")
                                << QStringLiteral("Visualization/EyeMode: not a key, one \"=\" and a value");
}

void TestWindowHabits::aSettingsFileWithAWrongValueChangesNothing()
{
    QFETCH(QByteArray, line);
    QFETCH(QString, told);
    const auto stored = [] {
        QMap<QString, QVariant> values;
        for (const QString &key : SettingsStore().allKeys())
            values.insert(key, SettingsStore().value(key));
        return values;
    };
    const auto before = stored();
    write(path("mine.ini"), "Calculation/Fixation/Standard/Outlier=7\n" + line + '\n');
    chooseInNextDialog(path("mine.ini"));
    find<QAction>("action_ImportSettings")->trigger();
    QCOMPARE(m_messages->texts(),
             QStringList(QStringLiteral("Settings|%1, line 2: %2. Nothing was changed.").arg(path("mine.ini"), told)));
    QCOMPARE(stored(), before);
}

void TestWindowHabits::unknownSettingsAreTold()
{
    write(path("mine.ini"), "Visualization/Foo=3\nCalculation/Fixation/Standard/MaximumRadius=33\n");
    chooseInNextDialog(path("mine.ini"));
    find<QAction>("action_ImportSettings")->trigger();
    QCOMPARE(m_messages->texts(),
             QStringList(QStringLiteral("Settings|%1: keys that this version does not have are passed over: "
                                        "Visualization/Foo")
                             .arg(path("mine.ini"))));
    QCOMPARE(find<QSpinBox>("s_spinBox_rad")->value(), 33);
}

/// Though the store holds what an import refuses.
void TestWindowHabits::whatIsSavedCanBeTakenBack()
{
    SettingsStore().setValue(QStringLiteral("Visualization/Gazepoint/Size"), QStringLiteral("abc"));
    SettingsStore().setValue(QStringLiteral("Visualization/EyeMode"), 99);
    chooseInNextDialog(path("mine.ini"));
    find<QAction>("action_SaveSettings")->trigger();
    chooseInNextDialog(path("mine.ini"));
    find<QAction>("action_ImportSettings")->trigger();
    QCOMPARE(m_messages->texts(), QStringList());
    QCOMPARE(SettingsStore().value(QStringLiteral("Visualization/Gazepoint/Size")).toString(), QStringLiteral("1"));
}

void TestWindowHabits::theVersionIsNotTakenFromAFile()
{
    write(path("old.ini"), "Version=1999\nCalculation/Fixation/Standard/MaximumRadius=33\n");
    chooseInNextDialog(path("old.ini"));
    find<QAction>("action_ImportSettings")->trigger();
    QCOMPARE(find<QSpinBox>("s_spinBox_rad")->value(), 33);
    QCOMPARE(readStored(keys::version), QString(settingsVersion));
}

void TestWindowHabits::aPictureThatCannotBeReadIsTold()
{
    QImage good(640, 480, QImage::Format_RGB32);
    good.fill(Qt::blue);
    QVERIFY(good.save(path("face.png")));
    QFile::copy(exampleRecordings().constFirst(), path("s1.data"));
    write(path("s1.set"), "picturename=face.png\npicturepath=face.png\n[subject]\nsubjectID=A\n");
    m_window->importFiles({path("s1.data")});
    auto *images = find<QComboBox>("image_comboBox");
    QCOMPARE(images->count(), 2);
    images->setCurrentIndex(1);
    QCOMPARE(m_window->stimulusWidthPx(), 640);
    QCOMPARE(find<QLabel>("imageWidth")->text(), QStringLiteral("640 px"));
    const qsizetype all = m_window->model().examinations().constFirst().leftEye.gazePoints.size();

    write(path("face.png"), "this is no picture");
    find<QAbstractButton>("remove_outlier")->click();
    QCOMPARE(m_window->stimulusWidthPx(), 0);
    QCOMPARE(notice()->text(), QStringLiteral("The picture cannot be shown: face.png; 1 warning"));
    QCOMPARE(find<QLabel>("imageWidth")->text(), QStringLiteral("unknown"));
    QCOMPARE(m_window->model().examinations().constFirst().leftEye.gazePoints.size(), all);

    // Degrees have nothing to be measured by; other units need no picture.
    find<QComboBox>("Fix_comboBox")->setCurrentIndex(2);
    find<QComboBox>("comboVelocityUnit")->setCurrentIndex(1);
    const int commands = CommandStack::instance().count();
    find<QAbstractButton>("fixationsPage", "toolButton")->click();
    QCOMPARE(CommandStack::instance().count(), commands);
    QVERIFY(
        m_messages->texts().constLast().startsWith(QStringLiteral("Velocity based|The picture behind the drawing")));
    find<QComboBox>("comboVelocityUnit")->setCurrentIndex(0);
    find<QAbstractButton>("fixationsPage", "toolButton")->click();
    QCOMPARE(CommandStack::instance().undoText(), QStringLiteral("Calculate Fixations"));
}

void TestWindowHabits::placeAndPanesAreRemembered()
{
    QVERIFY(!m_window->restorePlace()); // a first start
    m_window->resize(1200, 700);
    auto *panes = find<QSplitter>("splitter");
    panes->setSizes({400, 500, 300});
    const QList<int> sizes = panes->sizes();
    answerNextBox(QMessageBox::Yes);
    QVERIFY(m_window->close());
    m_window = std::make_unique<Vistrum>();
    QVERIFY(m_window->restorePlace());
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    QCOMPARE(m_window->size(), QSize(1200, 700));
    QCOMPARE(find<QSplitter>("splitter")->sizes(), sizes);
    for (const QString &key : SettingsStore().allKeys())
        QVERIFY2(!key.startsWith(QStringLiteral("Window")), qPrintable(key)); // no part of a way of working
}

void TestWindowHabits::thePaneOfTheTableIsWideEnough()
{
    openOnASmallScreen();
    importExamples();
    const auto *table = find<QTableWidget>("tableWidget");
    const QRect group = table->visualRect(table->model()->index(0, 4));
    QVERIFY2(group.right() <= table->viewport()->width(),
             qPrintable(QStringLiteral("%1 of %2").arg(group.right()).arg(table->viewport()->width())));
}

void TestWindowHabits::allTabsAreSeen_data()
{
    QTest::addColumn<bool>("isSmallScreen");
    QTest::newRow("as the window is made") << false;
    QTest::newRow("1366 pixels") << true;
}

void TestWindowHabits::allTabsAreSeen()
{
    QFETCH(bool, isSmallScreen);
    if (isSmallScreen)
        openOnASmallScreen();
    const auto *tabs = find<QTabWidget>("tabWidget")->tabBar();
    QTRY_VERIFY2(tabs->width() >= tabs->sizeHint().width(),
                 qPrintable(QStringLiteral("%1 of %2").arg(tabs->width()).arg(tabs->sizeHint().width())));
}

void TestWindowHabits::noPageScrollsSideways_data()
{
    QTest::addColumn<QString>("tab");
    QTest::addColumn<QString>("area");
    QTest::newRow("statistics") << QStringLiteral("tab_2") << QStringLiteral("statisticsScrollArea");
    QTest::newRow("export") << QStringLiteral("tab_5") << QStringLiteral("exportScrollArea");
}

void TestWindowHabits::noPageScrollsSideways()
{
    QFETCH(QString, tab);
    QFETCH(QString, area);
    openOnASmallScreen();
    showTab(tab.toUtf8().constData());
    const auto *page = find<QScrollArea>(area.toUtf8().constData());
    QTRY_VERIFY(page->isVisible() && page->verticalScrollBar()->isVisible()); // which takes some of the width
    QCOMPARE(page->horizontalScrollBar()->maximum(), 0);
}

/// It has the longest text of all buttons.
void TestWindowHabits::thePageOfTheOverlapMethodFits()
{
    openOnASmallScreen();
    showTab("tab_3");
    find<QToolBox>("toolBox")->setCurrentWidget(find<QWidget>("fixationClustersPage"));
    find<QComboBox>("calcType_comboBox")->setCurrentIndex(2);
    const auto *longest = find<QAbstractButton>("groupBox_outlier", "toolButton_2");
    QVERIFY(longest->isVisible());
    const QWidget *page = find<QWidget>("fixationClustersPage");
    const QWidget *shown = page->parentWidget(); // the toolbox lets pages scroll
    const auto fits = [&] { return page->width() <= shown->width() && page->height() <= shown->height(); };
    QTRY_VERIFY2(fits(), qPrintable(QStringLiteral("%1 x %2 in %3 x %4")
                                        .arg(page->width())
                                        .arg(page->height())
                                        .arg(shown->width())
                                        .arg(shown->height())));
    QVERIFY(longest->width() >= longest->sizeHint().width());
}

void TestWindowHabits::filesAndFoldersAreImported()
{
    const QStringList recordings = exampleRecordings();
    m_window->importFiles({QStringLiteral(VISTRUM_SOURCE_DIR "/examples/study"), recordings.constFirst()});
    QCOMPARE(m_window->model().examinations().size(), recordings.size() + 1);
    QCOMPARE(CommandStack::instance().text(0), QStringLiteral("Data add"));
    QCOMPARE(CommandStack::instance().text(1), QStringLiteral("Data import"));
}

void TestWindowHabits::droppedFilesAreImported()
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
void TestWindowHabits::droppedTableOpensTheAssistant()
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

void TestWindowHabits::assistantOpensFromTheMenu()
{
    find<QAction>("action_ImportOther")->trigger();
    const QPointer<QDialog> assistant = m_window->findChild<QDialog *>(QStringLiteral("ImportAssistant"));
    QVERIFY(assistant);
    QVERIFY(QTest::qWaitForWindowExposed(assistant));
    QTest::keyClick(assistant, Qt::Key_Escape);
    QTRY_VERIFY(!assistant);
    QCOMPARE(CommandStack::instance().count(), 0);
}

void TestWindowHabits::aFolderWithoutRecordingsIsTold()
{
    m_window->importFiles({m_folder->path()});
    QCOMPARE(notice()->text(), QStringLiteral("No recording in ") + m_folder->path());
    QCOMPARE(CommandStack::instance().count(), 0);
}

QTEST_MAIN(TestWindowHabits)
#include "TestWindowHabits.moc"
