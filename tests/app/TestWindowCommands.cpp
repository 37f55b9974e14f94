// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/NoticeLine.h"
#include "table/panel/ExaminationTable.h"
#include "visualization/panel/Timeline.h"
#include "WindowTest.h"

#include <QCheckBox>
#include <QComboBox>
#include <QListWidget>
#include <QSpinBox>
#include <QToolBox>
#include <QToolButton>

/// What the window shows follows the commands: after undo and redo, after a calculation, after a cut of outliers.
class TestWindowCommands : public WindowTest {
    Q_OBJECT
private Q_SLOTS:
    void init() { openWindow(); }
    void cleanup() { closeWindow(); }

    void thePictureFollowsUndoAndRedoOfACalculation();
    void anUndoneCalculationIsRemarked();
    void anUndoneImportLeavesNoRowOfASortedTable();
    void aModeGoesBackWithItsUnits();
    void aTypedNumberIsOneCommand();
    void aClickCompletesWhatIsTyped();
    void choicesOutliveTheCutOfOutliers();
    void samplesOutliveAnImportDuringTheCut();
    void aCalculationIsTold();
    void saccadeClustersFollowTheTimeline();
    void saccadeClustersFollowTheCutOfOutliers();
    void saccadeClustersFollowUndoAndRedo();

private:
    void calculateFixations() const
    {
        find<QWidget>("fixationsPage")->findChild<QToolButton *>(QStringLiteral("toolButton"))->click();
    }
    void calculateClusters() const { find<QToolButton>("calculateClusters_button")->click(); }
    void clusterSaccades() const { find<QAbstractButton>("clusterButton")->click(); }
    /// Of the first stage and of the last.
    QStringList saccadeClusterStatus() const
    {
        return {find<QLabel>("preProcessingStatusLabel")->text(), find<QLabel>("distanceClusterStatusLabel")->text()};
    }
    /// What is not drawn by the next redraw.
    void scribble() const
    {
        find<QGraphicsView>("visualization")->scene()->addRect(300, 300, 100, 100, QPen(Qt::red), QBrush(Qt::red));
    }
    NoticeLine *notice() const { return m_window->findChild<NoticeLine *>(); }
};

void TestWindowCommands::thePictureFollowsUndoAndRedoOfACalculation()
{
    importExamples();
    showTab("tab_3");
    calculateFixations();
    const QImage fixations = picture();
    find<QComboBox>("fixationcluster_widget", "comboBox_vismode")->setCurrentIndex(1);
    calculateClusters();
    const QImage clusters = picture();
    QVERIFY(clusters != fixations);
    scribble();
    CommandStack::instance().undo(); // the clusters
    QCOMPARE(picture(), fixations);
    CommandStack::instance().redo();
    QCOMPARE(picture(), clusters);
    CommandStack::instance().setIndex(CommandStack::instance().index() - 3); // as a click in the undo view does
    scribble();
    CommandStack::instance().redo(); // the fixations, whose clusters are gone with the old ones
    QCOMPARE(picture(), fixations);
}

void TestWindowCommands::anUndoneCalculationIsRemarked()
{
    importExamples();
    const auto told = [this] { return m_window->model().examinations().constFirst().calculationInfo.report(); };
    const QString remark = QStringLiteral("The fixations are those of a calculation that was undone.\n");
    calculateFixations();
    QVERIFY(!told().contains(remark));
    CommandStack::instance().undo();
    QVERIFY(told().contains(QStringLiteral("FixationCalculationInfo:\nNot set\n") + remark));
    QCOMPARE(notice()->text(),
             QStringLiteral("Undone: the fixations stay, and differ from the parameters that are told"));
    CommandStack::instance().redo();
    QVERIFY(!told().contains(remark));
}

void TestWindowCommands::anUndoneImportLeavesNoRowOfASortedTable()
{
    importExamples();
    auto *table = find<ExaminationTable>("tableWidget");
    table->sortItems(ExaminationTable::NumberColumn, Qt::DescendingOrder);
    CommandStack::instance().undo();
    QCOMPARE(table->rowCount(), 0);
    CommandStack::instance().redo();
    QCOMPARE(table->rowCount(), static_cast<int>(exampleRecordings().size()));
    QCOMPARE(table->numberOfRow(0), table->rowCount()); // sorted as before
}

void TestWindowCommands::aModeGoesBackWithItsUnits()
{
    auto *mode = find<QComboBox>("gazepoint_widget", "comboBox_vismode");
    const auto stored = [](const char *key) {
        return SettingsStore().value(QStringLiteral("Visualization/Gazepoint/") + QLatin1StringView(key)).toString();
    };
    const auto units = [&] { return stored("Power") + u' ' + stored("HeatmapThreashold"); };
    QStringList before;
    for (int index = 1; index < mode->count(); ++index) {
        before << units();
        mode->setCurrentIndex(index);
    }
    const QString last = units();
    for (int step = mode->count() - 1; step > 0; --step) {
        CommandStack::instance().undo();
        QCOMPARE(units(), before.takeLast());
    }
    CommandStack::instance().setIndex(CommandStack::instance().count());
    QCOMPARE(units(), last);
}

void TestWindowCommands::aTypedNumberIsOneCommand()
{
    showTab("tab_3");
    auto *radius = find<QSpinBox>("s_spinBox_rad");
    radius->selectAll();
    QTest::keyClicks(radius, QStringLiteral("120"));
    QTest::keyClick(radius, Qt::Key_Return);
    QCOMPARE(CommandStack::instance().count(), 1);
    QCOMPARE(CommandStack::instance().undoText(),
             QStringLiteral("Fixation standard calculation maximum radius changed: 120"));
}

void TestWindowCommands::aClickCompletesWhatIsTyped()
{
    importExamples();
    showTab("tab_3");
    find<QToolBox>("toolBox")->setCurrentWidget(find<QWidget>("fixationsPage"));
    m_window->activateWindow();
    auto *radius = find<QSpinBox>("s_spinBox_rad");
    radius->setFocus();
    QTRY_VERIFY(radius->hasFocus());
    radius->selectAll();
    QTest::keyClicks(radius, QStringLiteral("77"));
    QTest::mouseClick(find<QWidget>("fixationsPage")->findChild<QToolButton *>(QStringLiteral("toolButton")),
                      Qt::LeftButton);
    QVERIFY(m_window->model().examinations().constFirst().calculationInfo.fixationCalculationInfo.contains(
        QStringLiteral("Maximum Radius:77\n")));
}

void TestWindowCommands::choicesOutliveTheCutOfOutliers()
{
    importExamples();
    auto *table = find<ExaminationTable>("tableWidget");
    filterBy(QStringLiteral("subjectID"), QStringLiteral("nobody")); // unchecks all
    table->sortItems(ExaminationTable::NumberColumn, Qt::DescendingOrder);
    find<QComboBox>("groupByComboBox")->setCurrentText(QStringLiteral("image"));
    const QString group = m_window->model().examinations().constFirst().groupName;
    QVERIFY(group != QStringLiteral("None"));
    for (int step = 0; step < 2; ++step) {
        find<QCheckBox>("remove_outlier")->click(); // cuts, and brings back
        for (const Examination &examination : m_window->model().examinations()) {
            const int row = table->rowOfNumber(examination.number);
            QVERIFY(!examination.checked && !table->isChecked(row));
            QCOMPARE(table->groupBox(row)->currentText(), examination.groupName);
        }
        QCOMPARE(m_window->model().examinations().constFirst().groupName, group);
    }
}

void TestWindowCommands::samplesOutliveAnImportDuringTheCut()
{
    importExamples();
    const auto samples = [this] { return m_window->model().examinations().constFirst().leftEye.gazePoints.size(); };
    const qsizetype all = samples();
    find<QCheckBox>("remove_outlier")->click();
    QVERIFY(samples() < all);
    importExamples(); // a second time
    CommandStack::instance().undo();
    importExamples();
    find<QCheckBox>("remove_outlier")->click();
    QCOMPARE(samples(), all);
}

void TestWindowCommands::aCalculationIsTold()
{
    importExamples();
    const auto recordings = exampleRecordings().size();
    find<QSpinBox>("s_spinBox_dur")->setValue(0); // doubtful: shorter than an interval
    calculateFixations();
    const QList<Examination> &examinations = m_window->model().examinations();
    const auto count = [&](EyeData Examination::*eye) {
        qsizetype sum = 0;
        for (const Examination &examination : examinations)
            sum += (examination.*eye).scanpath.size();
        return sum;
    };
    const QString start = QStringLiteral("Fixations in %1 recordings: left eye %2, right eye %3, mean eye %4; ")
                              .arg(recordings)
                              .arg(count(&Examination::leftEye))
                              .arg(count(&Examination::rightEye))
                              .arg(count(&Examination::meanEye));
    QVERIFY2(notice()->text().startsWith(start) && notice()->text().endsWith(QStringLiteral(" warnings")),
             qPrintable(notice()->text()));
    notice()->click();
    QVERIFY(m_messages->texts().constLast().startsWith(QStringLiteral("Warnings|")));
    QVERIFY(m_messages->texts().constLast().contains(
        QStringLiteral("left eye: The minimum duration of 0 ms is shorter than one sampling interval, ")));

    find<QComboBox>("fixationcluster_widget", "comboBox_vismode")->setCurrentIndex(0);
    calculateClusters();
    QVERIFY2(notice()->text().startsWith(QStringLiteral("Clusters in %1 recordings: left eye ").arg(recordings)) &&
                 notice()->text().endsWith(QStringLiteral("; not drawn: mode none")),
             qPrintable(notice()->text()));

    find<QToolButton>("clusterCalc_widget", "toolButton")->click();
    QVERIFY2(notice()->text().endsWith(QStringLiteral("; not drawn: mode none; 1 warning")),
             qPrintable(notice()->text()));
    notice()->click();
    QVERIFY(m_messages->texts().constLast().startsWith(QStringLiteral(
        "Warnings|Eyes without a cumulative cluster, with the fixations that one cluster would need: ")));

    find<QPushButton>("generalButton")->click();
    QCOMPARE(notice()->text(),
             QStringLiteral("General statistics in %1 recordings; \"Export statistics\" writes them").arg(recordings));
    find<QPushButton>("aoiButton")->click();
    QCOMPARE(notice()->text(),
             QStringLiteral("AOI statistics (enabled areas: 0) in %1 recordings; \"Export statistics\" writes them")
                 .arg(recordings));
}

void TestWindowCommands::saccadeClustersFollowTheTimeline()
{
    importExamples();
    calculateFixations();
    auto *timeline = find<Timeline>("timeline_widget");
    timeline->setSliderTimeframe(0, 5000);
    QCOMPARE(saccadeClusterStatus(), QStringList(2, QStringLiteral("Not Calculated")));
    clusterSaccades();
    QCOMPARE(saccadeClusterStatus(), QStringList(2, QStringLiteral("Done")));
    timeline->setSliderTimeframe(0, 5000); // as it was
    QCOMPARE(saccadeClusterStatus(), QStringList(2, QStringLiteral("Done")));
    timeline->setSliderTimeframe(0, 2000);
    QCOMPARE(saccadeClusterStatus(), QStringList(2, QStringLiteral("Values changed")));
    clusterSaccades();
    QCOMPARE(saccadeClusterStatus(), QStringList(2, QStringLiteral("Done")));
}

/// The cut takes the fixations along.
void TestWindowCommands::saccadeClustersFollowTheCutOfOutliers()
{
    importExamples();
    calculateFixations();
    clusterSaccades();
    QCOMPARE(saccadeClusterStatus(), QStringList(2, QStringLiteral("Done")));
    find<QCheckBox>("remove_outlier")->click();
    QCOMPARE(saccadeClusterStatus(), QStringList(2, QStringLiteral("Values changed")));
}

void TestWindowCommands::saccadeClustersFollowUndoAndRedo()
{
    importExamples();
    CommandStack &stack = CommandStack::instance();
    const int imported = stack.index();
    calculateFixations();
    find<QSpinBox>("s_spinBox_rad")->setValue(200);
    calculateFixations();
    clusterSaccades();
    stack.setIndex(imported); // the fixations stay
    QCOMPARE(saccadeClusterStatus(), QStringList(2, QStringLiteral("Done")));
    stack.redo(); // those of the first radius
    QCOMPARE(saccadeClusterStatus(), QStringList(2, QStringLiteral("Values changed")));

    const auto *table = find<ExaminationTable>("tableWidget");
    qobject_cast<QCheckBox *>(table->cellWidget(0, ExaminationTable::CheckBoxColumn))->click();
    clusterSaccades();
    QCOMPARE(saccadeClusterStatus(), QStringList(2, QStringLiteral("Done")));
    stack.undo();
    QCOMPARE(saccadeClusterStatus(), QStringList(2, QStringLiteral("Values changed")));
    clusterSaccades();
    stack.redo();
    QCOMPARE(saccadeClusterStatus(), QStringList(2, QStringLiteral("Values changed")));

    clusterSaccades();
    stack.setIndex(imported - 1);
    QVERIFY(m_window->model().examinations().isEmpty());
    QCOMPARE(saccadeClusterStatus(), QStringList(2, QStringLiteral("Values changed")));
}

QTEST_MAIN(TestWindowCommands)
#include "TestWindowCommands.moc"
