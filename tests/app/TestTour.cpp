// SPDX-License-Identifier: GPL-3.0-or-later
#include "table/panel/ExaminationTable.h"
#include "visualization/panel/Timeline.h"
#include "visualization/panel/VisualizationWidget.h"
#include "WindowTest.h"

#include <QComboBox>
#include <QGraphicsItem>
#include <QGroupBox>
#include <QListWidget>
#include <QRegularExpression>
#include <QSpinBox>
#include <QToolBox>
#include <QUndoView>
#include <QWheelEvent>

/// The tour of the README, step by step in the real window. What is in italics there is what the window says: each step
/// looks for it in the window and uses it, and a step has no such word that is not used.
class TestTour : public WindowTest {
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase() { closeWindow(); }
    void add();
    void import();
    void calculate();
    void look();
    void select();
    void undo();
    void exportTables();

private:
    /// Begins a step of the tour.
    void begin(const char *title);
    /// The step names this word; it is used now.
    QString said(const char *word);
    void nothingElseIsSaid() const { QCOMPARE(m_words, QStringList()); }

    void showTab(const char *caption);
    void showPage(const char *caption);
    template <class Button = QAbstractButton>
    Button *button(const char *caption);
    QComboBox *boxBeside(const char *caption);
    qsizetype fixations() const;

    QString m_tour;
    QStringList m_words; ///< of the step, in italics, that have not been used yet
};

void TestTour::initTestCase()
{
    QFile readme(QStringLiteral(VISTRUM_SOURCE_DIR "/README.md"));
    QVERIFY(readme.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(readme.readAll());
    m_tour = text.section(QStringLiteral("\n## Five minutes"), 1)
                 .section(QStringLiteral("\nThe same from a terminal"), 0, 0);
    QVERIFY(!m_tour.isEmpty());
    openWindow();
}

void TestTour::begin(const char *title)
{
    const QString step = m_tour.section(QStringLiteral(". **%1.** ").arg(QLatin1StringView(title)), 1)
                             .section(QRegularExpression(QStringLiteral("\n\\d\\. \\*\\*")), 0, 0);
    QVERIFY2(!step.isEmpty(), title);
    m_words.clear();
    const QRegularExpression italics(QStringLiteral("\\*([^*\n]+)\\*"));
    for (auto word = italics.globalMatch(step); word.hasNext();)
        m_words << word.next().captured(1);
}

QString TestTour::said(const char *word)
{
    const QString text = QString::fromUtf8(word);
    if (!m_words.removeOne(text))
        QTest::qFail(qPrintable(QStringLiteral("The step does not say %1").arg(text)), __FILE__, __LINE__);
    return text;
}

void TestTour::showTab(const char *caption)
{
    const QString text = said(caption);
    auto *tabs = find<QTabWidget>("tabWidget");
    for (int i = 0; i < tabs->count(); ++i) {
        if (tabs->tabText(i) == text)
            tabs->setCurrentIndex(i);
    }
    QCOMPARE(tabs->tabText(tabs->currentIndex()), text);
}

/// A page of the tab that is shown.
void TestTour::showPage(const char *caption)
{
    const QString text = said(caption);
    auto *pages = find<QTabWidget>("tabWidget")->currentWidget()->findChild<QToolBox *>();
    QVERIFY(pages);
    for (int i = 0; i < pages->count(); ++i) {
        if (pages->itemText(i) == text)
            pages->setCurrentIndex(i);
    }
    QCOMPARE(pages->itemText(pages->currentIndex()), text);
}

/// A button that can be seen, by what stands on it.
template <class Button>
Button *TestTour::button(const char *caption)
{
    const QString text = said(caption);
    Button *found = nullptr;
    for (Button *each : m_window->findChildren<Button *>()) {
        if (each->isVisible() && each->text().remove(u'&') == text)
            found = each;
    }
    if (!found)
        qFatal("No button says %s", caption);
    return found;
}

/// The list beside a label, or in a group box, of this caption.
QComboBox *TestTour::boxBeside(const char *caption)
{
    const QString text = said(caption);
    for (const QGroupBox *group : m_window->findChildren<QGroupBox *>()) {
        if (group->isVisible() && group->title().remove(u'&') == text)
            return group->findChild<QComboBox *>();
    }
    for (const QLabel *label : m_window->findChildren<QLabel *>()) {
        if (label->isVisible() && label->text().remove(u'&') == text)
            return label->parentWidget()->findChild<QComboBox *>();
    }
    qFatal("Nothing is called %s", caption);
}

qsizetype TestTour::fixations() const
{
    qsizetype count = 0;
    for (const Examination &examination : m_window->model().examinations())
        count += examination.leftEye.scanpath.size() + examination.rightEye.scanpath.size();
    return count;
}

void TestTour::add()
{
    begin("Add");
    showTab("Data");
    showPage("Import");
    QTest::mouseClick(button("Add..."), Qt::LeftButton);
    QCOMPARE(find<QListWidget>("listView")->count(), 6);
    nothingElseIsSaid();
}

void TestTour::import()
{
    begin("Import");
    QTest::mouseClick(button<QPushButton>("Import"), Qt::LeftButton);
    auto *table = find<ExaminationTable>("tableWidget");
    QCOMPARE(table->rowCount(), 6);
    const QImage plain = picture();
    boxBeside("Background")->setCurrentText(said("bay.png"));
    const QImage bay = picture();
    QVERIFY(bay != plain);
    QCOMPARE(bay.pixelColor(2000, 1500), QColor(Qt::white)); // the picture is smaller than the canvas
    QTest::mouseClick(table->cellWidget(5, ExaminationTable::CheckBoxColumn), Qt::LeftButton);
    QVERIFY(picture() != bay);
    QCOMPARE(m_window->model().checkedExaminations().size(), 5);
    QTest::mouseClick(table->cellWidget(5, ExaminationTable::CheckBoxColumn), Qt::LeftButton);
    nothingElseIsSaid();
}

void TestTour::calculate()
{
    begin("Calculate");
    showTab("Calculation");
    showPage("Fixations");
    const QImage samples = picture();
    QTest::mouseClick(button("Calculate fixations"), Qt::LeftButton);
    QVERIFY(fixations() > 0);
    QVERIFY(picture() != samples);
    QString tip;
    for (const QGraphicsItem *item : find<QGraphicsView>("visualization")->scene()->items()) {
        if (item->toolTip().startsWith(QStringLiteral("Fixation ID")))
            tip = item->toolTip();
    }
    for (const char *line : {"Start: ", "End: ", "Duration: ", "Mean: ("})
        QVERIFY2(tip.contains(QLatin1StringView(line)), line);
    nothingElseIsSaid();
}

void TestTour::look()
{
    begin("Look");
    auto *view = find<QGraphicsView>("visualization");
    QAbstractButton *fit = button("Fit to Screen");
    QTest::mouseClick(fit, Qt::LeftButton);
    const double fitted = view->transform().m11();
    const QPointF middle = view->viewport()->rect().center();
    QWheelEvent wheel(middle, view->viewport()->mapToGlobal(middle), {}, {0, 120}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(view->viewport(), &wheel);
    QVERIFY(view->transform().m11() > fitted);
    QTest::mouseClick(fit, Qt::LeftButton);
    QCOMPARE(view->transform().m11(), fitted);

    showTab("Visualization");
    const QImage both = picture();
    boxBeside("Eye")->setCurrentText(QStringLiteral("show left only"));
    QVERIFY(picture() != both);
    const auto offered = [this](const char *panel) {
        const auto *modes = find<QComboBox>(panel, "comboBox_vismode");
        QStringList names;
        for (int i = 0; i < modes->count(); ++i)
            names << modes->itemText(i);
        return names.join(u' ');
    };
    showPage("GazePoints");
    QVERIFY(offered("gazepoint_widget").contains(QStringLiteral("points heatmap shadowmap")));
    showPage("Fixations");
    QVERIFY(offered("fixation_widget").contains(QStringLiteral("elliptic (pca) circular heatmap shadowmap")));
    showPage("Saccades");
    QVERIFY(offered("saccade_widget").contains(QStringLiteral("arrows anglestar heatmap shadowmap")));
    const QImage before = picture();
    find<QComboBox>("saccade_widget", "comboBox_vismode")->setCurrentIndex(1);
    QCOMPARE(picture(), before);
    QTest::mouseClick(button("Calculate changes"), Qt::LeftButton);
    QVERIFY(picture() != before);

    auto *timeline = find<Timeline>("timeline_widget");
    const int height = timeline->height() / 2;
    QTest::mousePress(timeline, Qt::LeftButton, {}, QPoint(timeline->timeToPixel(timeline->end()) - 3, height));
    QTest::mouseMove(timeline, QPoint(timeline->width() / 2, height));
    QTest::mouseRelease(timeline, Qt::LeftButton, {}, QPoint(timeline->width() / 2, height));
    QVERIFY(timeline->end() < 6000);
    nothingElseIsSaid();
}

void TestTour::select()
{
    begin("Select");
    said("Set Filter");
    filterBy(QStringLiteral("dominant"), QStringLiteral("right"));
    QCOMPARE(m_window->model().checkedExaminations().size(), 4);
    QComboBox *properties = find<QComboBox>("groupByComboBox");
    QCOMPARE(boxBeside("Group by:"), properties);
    const QString key = said("expertise");
    QVERIFY(properties->findText(key) > 0);
    properties->setCurrentText(key);
    const auto *table = find<ExaminationTable>("tableWidget");
    const int column = static_cast<int>(table->labels().indexOf(said("group")));
    QCOMPARE(column, static_cast<int>(ExaminationTable::GroupColumn));
    QStringList shown;
    for (int row = 0; row < table->rowCount(); ++row)
        shown << table->groupBox(row)->currentText();
    QCOMPARE(shown.join(u' '), QStringLiteral("expert expert expert novice novice novice"));
    said("Visualization");
    const Group expert = *m_window->model().group(QStringLiteral("expert"));
    const auto *fixationPanel = find<VisualizationWidget>("fixation_widget");
    QCOMPARE(expert.colorsDominant.value(fixationPanel->parameters().settingsName),
             fixationPanel->parameters().fillColor);
    nothingElseIsSaid();
}

void TestTour::undo()
{
    begin("Undo");
    showTab("Calculation");
    showPage("close...");
    QTest::mouseClick(button("Undo view"), Qt::LeftButton);
    const auto views = m_window->findChildren<QUndoView *>();
    QCOMPARE(views.size(), 1);
    QVERIFY(QTest::qWaitForWindowExposed(views[0]->window()));
    CommandStack &stack = CommandStack::instance();
    QCOMPARE(views[0]->model()->rowCount(), stack.count() + 1);
    const auto clickStep = [&](int index) {
        const QModelIndex row = views[0]->model()->index(index, 0);
        views[0]->scrollTo(row);
        QTest::mouseClick(views[0]->viewport(), Qt::LeftButton, {}, views[0]->visualRect(row).center());
        QCOMPARE(stack.index(), index);
    };
    const qsizetype found = fixations();
    const QString info = m_window->model().examinations()[0].calculationInfo.fixationCalculationInfo;
    int calculation = 0;
    while (stack.text(calculation) != QStringLiteral("Calculate Fixations"))
        ++calculation;
    clickStep(calculation); // before it
    QVERIFY(m_window->model().examinations()[0].calculationInfo.fixationCalculationInfo != info);
    QCOMPARE(fixations(), found);
    clickStep(0);
    QVERIFY(m_window->model().examinations().isEmpty());
    clickStep(stack.count());
    QCOMPARE(m_window->model().examinations().size(), 6);
    QVERIFY(fixations() > 0);
    nothingElseIsSaid();
}

void TestTour::exportTables()
{
    begin("Export");
    said("Export");
    find<QTabWidget>("tabWidget")->setCurrentWidget(find<QWidget>("tab_5"));
    const QString folder = m_folder->filePath(QStringLiteral("tables"));
    QVERIFY(QDir().mkpath(folder));
    find<QLineEdit>("dataFolderLineEdit")->setText(folder);
    find<QLineEdit>("dataPrefixLineEdit")->setText(QStringLiteral("tour"));
    QTest::mouseClick(button("Fixations"), Qt::LeftButton, {}, QPoint(8, 8));
    QTest::mouseClick(button("Events"), Qt::LeftButton, {}, QPoint(8, 8));
    QTest::mouseClick(button<QPushButton>("Export"), Qt::LeftButton);
    QCOMPARE(QDir(folder).entryList({QStringLiteral("*.csv")}, QDir::Files).size(), 4); // two tables of two eyes
    nothingElseIsSaid();
}

QTEST_MAIN(TestTour)
#include "TestTour.moc"
