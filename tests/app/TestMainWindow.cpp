// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/StoredKeys.h"
#include "table/panel/ExaminationTable.h"
#include "visualization/parameters/VisualizationParameters.h"
#include "WindowTest.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGraphicsPixmapItem>
#include <QGroupBox>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QSpinBox>
#include <QTimer>
#include <QToolButton>
#include <QUndoView>
#include <QWindow>

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

qsizetype fixationCount(const Vistrum &window)
{
    qsizetype count = 0;
    for (const Examination &examination : window.model().examinations())
        count += examination.leftEye.scanpath.size() + examination.rightEye.scanpath.size();
    return count;
}

QStringList logLines()
{
    QFile log(QStringLiteral("Vistrum2013.log"));
    return log.open(QIODevice::ReadOnly) ? QString::fromUtf8(log.readAll()).split(u'\n') : QStringList();
}

} // namespace

/// The window as a user drives it; the working directory and the store are temporary.
class TestMainWindow : public WindowTest {
    Q_OBJECT
private Q_SLOTS:
    void init() { openWindow(); }
    void cleanup() { closeWindow(); }

    void startsWithAWhiteFramedPicture();
    void fitsAFullHdScreenAtDoubleSize();
    void panelsStartWithTheStoredValues();
    void importsCalculatesAndStepsBack();
    void thePictureFollowsUndoAndRedoOfAnImport();
    void outliersStayRemovedAfterARedoneImport();
    void aCalculationParameterChangesNoPicture();
    void uncheckedExaminationsAreNotDrawn();
    void theLeftPane();
    void aFilterTakesWhatOnlyTheHandBringsBack();
    void theViewStaysFitted();
    void aFilterLeavesTheBackground();
    void groupsHaveTheColorsOfThePanels();
    void aCheckMarkShowsTheWholeSpan();
    void aHeldPictureIsDrawnAtTheEnd();
    void removesAndBringsBackOutliers();
    void removingOutliersOfNothingDrawsAnew();
    void anIndexBeyondTheImagesKeepsThePicture();
    void anIndexBeyondTheImagesDrawsTheBorder();
    void drawingWithoutCheckedExaminationTellsTheUser();
    void drawingWithoutCheckedExaminationKeepsTheTimeSpan();
    void eyeModeIsStoredAndDrawnWithoutCommand();
    void staysOpenAfterNo();
    void closesAfterYes();
    void everyUndoViewIsAWindowOfItsOwn();
};

void TestMainWindow::startsWithAWhiteFramedPicture()
{
    const QImage image = picture();
    QCOMPARE(image.pixelColor(1280, 800), QColor(Qt::white));
    QCOMPARE(image.pixelColor(2, 800), QColor(Qt::black));
    QCOMPARE(logLines().constFirst(), QStringLiteral("Starting program"));
    QCOMPARE(find<ExaminationTable>("tableWidget")->rowCount(), 0);
}

void TestMainWindow::fitsAFullHdScreenAtDoubleSize()
{
    const QSize least = m_window->minimumSizeHint();
    QVERIFY2(least.width() <= 960 && least.height() <= 520, // some of the 540 is the title bar
             qPrintable(QStringLiteral("%1 x %2").arg(least.width()).arg(least.height())));
}

void TestMainWindow::panelsStartWithTheStoredValues()
{
    // None of these is what the form or the record begins with.
    SettingsStore store;
    store.setValue(QStringLiteral("Calculation/Fixation/Standard/MinimumDuration"), 170);
    store.setValue(QStringLiteral("Calculation/Fixation/Standard/MaximumRadius"), 63);
    store.setValue(QStringLiteral("Calculation/Fixation/Standard/Outlier"), 7);
    store.setValue(QStringLiteral("Visualization/EyeMode"), 3);
    store.sync();
    m_window = std::make_unique<Vistrum>();
    QCOMPARE(find<QSpinBox>("s_spinBox_dur")->value(), 170);
    QCOMPARE(find<QSpinBox>("s_spinBox_rad")->value(), 63);
    QCOMPARE(find<QSpinBox>("s_spinBox_out")->value(), 7);
    QCOMPARE(find<QComboBox>("Fix_comboBox")->currentText(), QStringLiteral("Standard"));
    QCOMPARE(find<QComboBox>("comboBox_eyemode")->currentText(), QStringLiteral("show right only"));
    QCOMPARE(CommandStack::instance().count(), 0);

    find<DataWidget>("Data_Widget")->setRecordingChooser([](const QString &) { return exampleRecordings().first(1); });
    find<DataWidget>("Data_Widget")->sltAdd();
    find<DataWidget>("Data_Widget")->sltImport();
    find<QWidget>("fixationsPage")->findChild<QToolButton *>(QStringLiteral("toolButton"))->click();
    const QString text = m_window->model().examinations().constFirst().calculationInfo.fixationCalculationInfo;
    QVERIFY(text.contains(QStringLiteral("Minimum Duration:170, Outliers:7, Maximum Radius:63\n")));
}

void TestMainWindow::importsCalculatesAndStepsBack()
{
    importExamples();
    auto *table = find<ExaminationTable>("tableWidget");
    auto *files = find<QListWidget>("listView");
    const int recordings = static_cast<int>(exampleRecordings().size());
    QVERIFY(recordings > 0);
    QCOMPARE(table->rowCount(), recordings);
    QCOMPARE(files->count(), 0);
    QVERIFY(picture() != QImage());
    const QImage points = picture();

    showTab("tab_3");
    find<QWidget>("fixationsPage")->findChild<QToolButton *>(QStringLiteral("toolButton"))->click();
    QVERIFY(fixationCount(*m_window) > 0);
    QVERIFY(picture() != points);
    const qsizetype fixations = fixationCount(*m_window);
    QVERIFY(m_messages->texts().constLast().startsWith(QStringLiteral("Standard Fixation Filter Action Report|")));

    if (const QString file = qEnvironmentVariable("VISTRUM_SCREENSHOT"); !file.isEmpty()) {
        find<QComboBox>("image_comboBox")->setCurrentIndex(1);
        m_window->redraw();
        m_window->picture().sltFitToScreen();
        QTest::qWait(500);
        m_window->screen()->grabWindow(m_window->winId()).save(file); // a grab would leave the OpenGL viewport empty
    }

    CommandStack &stack = CommandStack::instance();
    stack.undo(); // the calculation: only its text goes
    QCOMPARE(fixationCount(*m_window), fixations);
    stack.undo(); // the import
    QCOMPARE(table->rowCount(), 0);
    QCOMPARE(files->count(), recordings);
    QVERIFY(m_window->model().examinations().isEmpty());
    stack.undo(); // the adding
    QCOMPARE(files->count(), 0);
    stack.redo();
    stack.redo();
    QCOMPARE(table->rowCount(), recordings);
    stack.redo();
    QCOMPARE(fixationCount(*m_window), fixations);
}

void TestMainWindow::thePictureFollowsUndoAndRedoOfAnImport()
{
    const QImage empty = picture();
    importExamples();
    const QImage points = picture();
    QVERIFY(points != empty);
    CommandStack::instance().undo();
    QCOMPARE(picture(), empty);
    CommandStack::instance().redo();
    QCOMPARE(picture(), points);
}

void TestMainWindow::outliersStayRemovedAfterARedoneImport()
{
    find<QCheckBox>("remove_outlier")->click();
    importExamples();
    const auto samples = [this] { return m_window->model().examinations().constFirst().leftEye.gazePoints; };
    const QList<GazePoint> cut = samples();
    QVERIFY(cut.size() < m_window->model().allExaminations().constFirst().leftEye.gazePoints.size());
    CommandStack::instance().undo();
    CommandStack::instance().redo();
    QCOMPARE(samples(), cut);
}

void TestMainWindow::aCalculationParameterChangesNoPicture()
{
    importExamples();
    const QImage before = picture();
    find<QSpinBox>("s_spinBox_rad")->setValue(77);
    QCOMPARE(CommandStack::instance().undoText(),
             QStringLiteral("Fixation standard calculation maximum radius changed: 77"));
    QCOMPARE(picture(), before);
}

void TestMainWindow::uncheckedExaminationsAreNotDrawn()
{
    const QImage empty = picture();
    importExamples();
    QVERIFY(picture() != empty);
    find<ExaminationTable>("tableWidget")->selectAll();
    click("uncheck_Button");
    for (const Examination &examination : m_window->model().examinations())
        QVERIFY(!examination.checked);
    QCOMPARE(picture(), empty);
    click("check_Button");
    QVERIFY(picture() != empty);
}

void TestMainWindow::theLeftPane()
{
    QCOMPARE(find<QGroupBox>("TableBox")->title(), QStringLiteral("Table Items"));
    QCOMPARE(find<QGroupBox>("groupBox")->title(), QStringLiteral("Filter"));
    QCOMPARE(find<QGroupBox>("groupBox_2")->title(), QStringLiteral("Groups"));
    const std::pair<const char *, const char *> buttons[] = {
        {"check_Button", "Check Selected"},    {"uncheck_Button", "Uncheck Selected"},
        {"remove_outlier", "Remove outlier"},  {"filterButton", "Set Filter"},
        {"clearFilterButton", "Clear Filter"}, {"manageGroupsButton", "Manage Groups"},
    };
    for (const auto &[name, text] : buttons) {
        const auto *button = find<QAbstractButton>(name);
        QCOMPARE(button->text(), QLatin1StringView(text));
        QVERIFY(!button->toolTip().isEmpty());
        QVERIFY(button->width() >= button->sizeHint().width());
    }
    QCOMPARE(find<QLabel>("groupBylabel")->text(), QStringLiteral("Group by:"));
    QCOMPARE(find<QLabel>("groupBylabel")->buddy(), find<QComboBox>("groupByComboBox"));
    QCOMPARE(find<QAbstractButton>("filterButton")->shortcut(), QKeySequence(QStringLiteral("Ctrl+F")));
    QCOMPARE(find<QAbstractButton>("clearFilterButton")->shortcut(), QKeySequence(QStringLiteral("Ctrl+Shift+F")));
    QCOMPARE(find<QAbstractButton>("manageGroupsButton")->shortcut(), QKeySequence(QStringLiteral("Ctrl+G")));
    constexpr int widestPx = 300; // leaves room for picture and panels on a small screen
    QVERIFY(find<QWidget>("layoutWidget")->minimumSizeHint().width() < widestPx);
}

void TestMainWindow::aFilterTakesWhatOnlyTheHandBringsBack()
{
    importExamples();
    const QImage all = picture();
    auto *table = find<ExaminationTable>("tableWidget");
    filterBy(QStringLiteral("subjectID"), QStringLiteral("S03"));
    QCOMPARE(CommandStack::instance().undoText(), QStringLiteral("Filter"));
    QCOMPARE(m_window->model().checkedExaminations().size(), 1);
    QCOMPARE(m_window->model().checkedExaminations()[0]->subjectId, QStringLiteral("S03"));
    QVERIFY(table->isChecked(2));
    QVERIFY(picture() != all);
    click("clearFilterButton");
    CommandStack::instance().undo();
    QCOMPARE(m_window->model().checkedExaminations().size(), 1);
    table->selectAll();
    click("check_Button");
    QCOMPARE(picture(), all);
}

/// Another picture, or another size of the window, is seen as a whole until the user has chosen a scale.
void TestMainWindow::theViewStaysFitted()
{
    importExamples();
    auto *view = find<QGraphicsView>("visualization");
    auto *images = find<QComboBox>("image_comboBox");
    const auto fitted = [&] {
        const QRectF seen = view->mapToScene(view->viewport()->rect()).boundingRect();
        const QRectF picture = m_window->picture().backgroundArea();
        return std::max(picture.width() / seen.width(), picture.height() / seen.height());
    };
    find<QAbstractButton>("fitToScreenButton")->click();
    const auto isFitted = [&] { return fitted() > 0.97 && fitted() <= 1.001; };
    QVERIFY(isFitted());
    images->setCurrentIndex(1);
    QVERIFY(isFitted());
    find<QAbstractButton>("start_calc")->click(); // draws
    QVERIFY(isFitted());
    m_window->resize(m_window->size() - QSize(150, 120));
    QTRY_VERIFY(isFitted());

    view->scale(3, 3);
    const QTransform own = view->transform();
    images->setCurrentIndex(0);
    m_window->resize(m_window->size() + QSize(50, 40));
    QCOMPARE(view->transform(), own);
    find<QAbstractButton>("originalSiteButton")->click();
    const QTransform original = view->transform();
    images->setCurrentIndex(1);
    QCOMPARE(view->transform(), original);
}

void TestMainWindow::aFilterLeavesTheBackground()
{
    importExamples();
    auto *images = find<QComboBox>("image_comboBox");
    images->setCurrentIndex(1);
    filterBy(QStringLiteral("subjectID"), QStringLiteral("S03"));
    QCOMPARE(images->currentIndex(), 1);
}

void TestMainWindow::groupsHaveTheColorsOfThePanels()
{
    importExamples();
    find<QComboBox>("groupByComboBox")->setCurrentText(QStringLiteral("dominant"));
    const QList<Group> groups = m_window->model().groups();
    QVERIFY(!groups.isEmpty());
    for (const Group &group : groups) {
        QCOMPARE(group.colorsLeft.value(QStringLiteral("FixationVisualization")), fixationParameters().fillColorLeft);
        QCOMPARE(group.colorsDominant.value(QStringLiteral("SaccadeVisualization")), saccadeParameters().fillColor);
    }
    const Examination &first = m_window->model().examinations().constFirst();
    QCOMPARE(first.groupName, first.properties.value(QStringLiteral("dominant")));
    QCOMPARE(find<ExaminationTable>("tableWidget")->groupBox(0)->currentText(), first.groupName);
    QCOMPARE(find<QComboBox>("groupByComboBox")->currentIndex(), 0);
}

void TestMainWindow::aCheckMarkShowsTheWholeSpan()
{
    importExamples();
    auto *table = find<ExaminationTable>("tableWidget");
    qobject_cast<QCheckBox *>(table->cellWidget(0, ExaminationTable::CheckBoxColumn))->click();
    QCOMPARE(m_window->model().timeFrame().startMs, 0);
    QCOMPARE(m_window->model().timeFrame().endMs, m_window->model().longestCheckedDuration());
}

void TestMainWindow::aHeldPictureIsDrawnAtTheEnd()
{
    const QImage before = picture();
    QGraphicsScene *scene = find<QGraphicsView>("visualization")->scene();
    scene->addRect(300, 300, 100, 100, QPen(Qt::red)); // does not outlive a redraw
    {
        const RedrawHold outer(*m_window);
        {
            const RedrawHold inner(*m_window);
            m_window->updateAndRedraw();
        }
        QVERIFY(picture() != before);
    }
    QCOMPARE(picture(), before);
    scene->addRect(300, 300, 100, 100, QPen(Qt::red));
    {
        const RedrawHold nothing(*m_window);
    }
    QVERIFY(picture() != before); // nobody asked
}

void TestMainWindow::removesAndBringsBackOutliers()
{
    importExamples();
    const auto sampleCount = [this] { return m_window->model().examinations().constFirst().leftEye.gazePoints.size(); };
    const qsizetype all = sampleCount();
    find<QCheckBox>("remove_outlier")->click();
    QVERIFY(sampleCount() < all); // losses stand at 0, 0
    find<QCheckBox>("remove_outlier")->click();
    QCOMPARE(sampleCount(), all);
}

void TestMainWindow::removingOutliersOfNothingDrawsAnew()
{
    const QImage before = picture();
    QGraphicsScene *scene = find<QGraphicsView>("visualization")->scene();
    scene->addRect(300, 300, 100, 100, QPen(Qt::red)); // does not outlive a redraw
    QVERIFY(picture() != before);
    find<QCheckBox>("remove_outlier")->click();
    QCOMPARE(picture(), before);
    QVERIFY(m_window->model().examinations().isEmpty());
    QVERIFY(m_messages->texts().isEmpty());
}

void TestMainWindow::anIndexBeyondTheImagesDrawsTheBorder()
{
    auto *border = find<QCheckBox>("showBorderCheckBox");
    border->click();
    QCOMPARE(picture().pixelColor(2, 800), QColor(Qt::white));
    border->setChecked(true); // no click: nothing is drawn yet
    m_window->picture().sltUpdateImageView(99);
    QCOMPARE(picture().pixelColor(2, 800), QColor(Qt::black));
    QCOMPARE(find<QGraphicsView>("visualization")->scene()->items().size(), 1);
}

void TestMainWindow::anIndexBeyondTheImagesKeepsThePicture()
{
    importExamples();
    m_window->picture().sltUpdateImageView(1);
    const QImage before = picture();
    m_window->picture().sltUpdateImageView(99);
    QCOMPARE(picture(), before);
}

void TestMainWindow::drawingWithoutCheckedExaminationTellsTheUser()
{
    m_window->picture().sltDrawPaths();
    QCOMPARE(m_messages->texts(),
             QStringList{QStringLiteral("No examination selected|Please select an examination first")});
}

void TestMainWindow::drawingWithoutCheckedExaminationKeepsTheTimeSpan()
{
    importExamples();
    find<ExaminationTable>("tableWidget")->selectAll();
    click("uncheck_Button");
    constexpr qint64 shortestSpan = 1000; // ms, of a table without a checked row
    QCOMPARE(m_window->model().timeFrame().endMs, shortestSpan);
    const qsizetype told = m_messages->texts().size();
    m_window->picture().sltDrawPaths();
    QCOMPARE(m_messages->texts().sliced(told),
             QStringList{QStringLiteral("No examination selected|Please select an examination first")});
    QCOMPARE(m_window->model().timeFrame().endMs, shortestSpan);
}

void TestMainWindow::eyeModeIsStoredAndDrawnWithoutCommand()
{
    importExamples();
    const int commands = CommandStack::instance().count();
    const QImage before = picture();
    auto *eyes = find<QComboBox>("comboBox_eyemode");
    const int other = eyes->currentIndex() == 2 ? 3 : 2;
    eyes->setCurrentIndex(other);
    QVERIFY(picture() != before);
    QCOMPARE(eyeMode(), static_cast<EyeMode>(other));
    QCOMPARE(CommandStack::instance().count(), commands);
}

void TestMainWindow::staysOpenAfterNo()
{
    const qsizetype lines = logLines().size();
    answerNextBox(QMessageBox::No);
    QVERIFY(!m_window->close());
    QVERIFY(m_window->isVisible());
    QCOMPARE(logLines().size(), lines);
}

void TestMainWindow::closesAfterYes()
{
    answerNextBox(QMessageBox::Yes);
    QVERIFY(m_window->close());
    QVERIFY(logLines().contains(QStringLiteral("Application closed by user.")));
}

void TestMainWindow::everyUndoViewIsAWindowOfItsOwn()
{
    const auto views = [] {
        qsizetype count = 0;
        for (const QWidget *widget : QApplication::topLevelWidgets())
            count += qobject_cast<const QUndoView *>(widget) ? 1 : 0;
        return count;
    };
    auto *button = find<QWidget>("page_7")->findChild<QToolButton *>();
    button->click();
    button->click();
    QCOMPARE(views(), 2);
    for (const QWidget *widget : QApplication::topLevelWidgets()) { // an open view does not keep the program running
        if (qobject_cast<const QUndoView *>(widget))
            QCOMPARE(widget->windowHandle()->transientParent(), m_window->windowHandle());
    }
    for (QWidget *widget : QApplication::topLevelWidgets()) {
        if (qobject_cast<QUndoView *>(widget))
            delete widget;
    }
}

QTEST_MAIN(TestMainWindow)
#include "TestMainWindow.moc"
