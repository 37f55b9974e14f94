// SPDX-License-Identifier: GPL-3.0-or-later
#include "clustering/panel/ClusterCalculationCommands.h"
#include "clustering/panel/ClusterControl.h"
#include "ClusterSamples.h"
#include "model/DataModel.h"
#include "TestMessages.h"
#include "TestPanel.h"

#include <QGroupBox>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>

using samples::clusterSizes;
using samples::streamAt;

namespace {

const QString typeKey = QStringLiteral("Calculation/Cluster/CalculationType");
const QString radiusKey = QStringLiteral("Calculation/Cluster/Standard/MaximumRadius");

Examination examination(const QString &earlierText)
{
    Examination made;
    made.leftEye = streamAt({{100, 100}, {110, 100}});
    made.rightEye = streamAt({{100, 100}, {110, 100}, {120, 100}});
    made.meanEye = made.leftEye;
    made.leftEye.fixationClusters << FixationCluster({made.leftEye.scanpath[0]}, {7, 7});
    made.calculationInfo.clusterCalculationInfo = earlierText;
    made.calculationInfo.cumulativeClusterCalculationInfo = QStringLiteral("pooled ") + earlierText;
    return made;
}

void storeUsualValues()
{
    SettingsStore store;
    store.setValue(typeKey, 0);
    store.setValue(QStringLiteral("Calculation/Cluster/Standard/MinimumFixations"), 2);
    store.setValue(QStringLiteral("Calculation/Cluster/Standard/OverlapAllowed"), 0);
    store.setValue(radiusKey, 100);
    store.setValue(QStringLiteral("Calculation/Cluster/Meanshift/Radius"), 120.5);
    store.setValue(QStringLiteral("Calculation/Cluster/Meanshift/Gradient"), 0.5);
    store.setValue(QStringLiteral("Calculation/Cluster/Meanshift/Iterations"), 60);
    store.setValue(QStringLiteral("Calculation/Cluster/Meanshift/MinFixations"), 2);
}

} // namespace

class TestClusterControl : public PanelTest<ClusterControl> {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { closePanel(); }
    void formOfWholeNumbers_data();
    void formOfWholeNumbers();
    void formOfTheRest();
    void settingsAreShownAtConstruction();
    void missingKeysReadAsZero();
    void onlyTheBoxOfTheMethodShows_data();
    void onlyTheBoxOfTheMethodShows();
    void pageFollowsUndo();
    void changeOfControlIsACommand_data();
    void changeOfControlIsACommand();
    void clickCalculates_data();
    void clickCalculates();
    void undoBringsBackClustersAndTexts();
    void undoLeavesWhatWasNotCalculated();
    void redoCalculatesAgain();
    void clickPools_data();
    void clickPools();
    void undoBringsBackThePooledContainers();
    void overExaminationsWorksWithOverlapOnly();
    void parametersOfTheClickAreKept();
    void withoutModelNothingHappens();
    void withoutCheckedExaminationNothingIsTouched();

private:
    /// With the keyboard, as a user would.
    void chooseMethod(int index) const
    {
        auto *box = child<QComboBox>("calcType_comboBox");
        box->setFocus();
        while (box->currentIndex() != index)
            QTest::keyClick(box, box->currentIndex() < index ? Qt::Key_Down : Qt::Key_Up);
    }
    const Examination &at(qsizetype place) const { return m_model.examinations()[place]; }

    DataModel m_model;
};

void TestClusterControl::init()
{
    openSettings();
    storeUsualValues();
    m_model = DataModel();
    m_model.examinations() << examination(QStringLiteral("first\n")) << examination(QStringLiteral("second\n"))
                           << examination(QStringLiteral("third\n"));
    m_model.examinations()[2].checked = false;
    openPanel();
    m_panel->setModel(&m_model);
    showPanel();
}

void TestClusterControl::formOfWholeNumbers_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("minimum");
    QTest::addColumn<int>("maximum");
    QTest::addColumn<int>("step");
    QTest::newRow("minimum of the standard method") << QStringLiteral("fix_spin") << 1 << 5000000 << 1;
    QTest::newRow("overlap") << QStringLiteral("overlap_spin") << 0 << 50 << 5;
    QTest::newRow("maximum radius") << QStringLiteral("radius_spin") << 30 << 2000 << 10;
    QTest::newRow("iterations") << QStringLiteral("spinIterations") << 1 << 200 << 1;
    QTest::newRow("minimum of mean-shift") << QStringLiteral("spinMinFixations") << 0 << 5000000 << 1;
    QTest::newRow("minimum of the overlap method") << QStringLiteral("spinBox_min_fix") << 1 << 500 << 1;
    QTest::newRow("outliers") << QStringLiteral("spinBox_outlier") << 0 << 500 << 1;
}

void TestClusterControl::formOfWholeNumbers()
{
    QFETCH(QString, name);
    const auto *control = m_panel->findChild<QSpinBox *>(name);
    QVERIFY(control);
    QTEST(control->minimum(), "minimum");
    QTEST(control->maximum(), "maximum");
    QTEST(control->singleStep(), "step");
}

void TestClusterControl::formOfTheRest()
{
    const auto *radius = child<QDoubleSpinBox>("spinrad");
    QCOMPARE(radius->minimum(), 1.0);
    QCOMPARE(radius->maximum(), 5000.0);
    const auto *type = child<QComboBox>("calcType_comboBox");
    QCOMPARE(type->count(), 3);
    QCOMPARE(type->itemText(0), QStringLiteral("Standard"));
    QCOMPARE(type->itemText(1), QStringLiteral("Mean-shift"));
    QCOMPARE(type->itemText(2), QStringLiteral("Overlap"));
    QCOMPARE(child<QToolButton>("toolButton")->text(), QStringLiteral("Calculate Cumulative Clusters"));
    QCOMPARE(child<QToolButton>("toolButton_2")->text(),
             QStringLiteral("Calculate Cumulative Clusters over examinations"));
    QVERIFY(radius->toolTip().startsWith(QStringLiteral("Radius of search")));
    QVERIFY(child<QDoubleSpinBox>("spinGradient")->toolTip().startsWith(QStringLiteral("Gradient descent rate")));
    QVERIFY(child<QSpinBox>("spinIterations")->toolTip().startsWith(QStringLiteral("Maximum number of iterations")));
}

void TestClusterControl::settingsAreShownAtConstruction()
{
    QCOMPARE(child<QSpinBox>("fix_spin")->value(), 2);
    QCOMPARE(child<QSpinBox>("overlap_spin")->value(), 0);
    QCOMPARE(child<QSpinBox>("radius_spin")->value(), 100);
    QCOMPARE(child<QDoubleSpinBox>("spinrad")->value(), 120.5);
    QCOMPARE(child<QDoubleSpinBox>("spinGradient")->value(), 0.5);
    QCOMPARE(child<QSpinBox>("spinIterations")->value(), 60);
    QCOMPARE(child<QSpinBox>("spinMinFixations")->value(), 2);
    SettingsStore().setValue(radiusKey, 250);
    m_panel->checkSettings();
    QCOMPARE(child<QSpinBox>("radius_spin")->value(), 250);
    QCOMPARE(CommandStack::instance().count(), 0);
}

void TestClusterControl::missingKeysReadAsZero()
{
    const TemporarySettings empty;
    m_panel->checkSettings();
    QCOMPARE(child<QSpinBox>("radius_spin")->value(), 30); // as low as the control goes; the record has 0
    click("calculateClusters_button");
    QVERIFY(at(0).calculationInfo.clusterCalculationInfo.contains(
        QStringLiteral("Minimum Fixations:0, Overlap Allowed:0, Maximum Radius:0\n")));
}

void TestClusterControl::onlyTheBoxOfTheMethodShows_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("visible");
    QTest::newRow("standard") << 0 << QStringLiteral("groupBox_standard");
    QTest::newRow("mean-shift") << 1 << QStringLiteral("groupBox_meanshift");
    QTest::newRow("overlap") << 2 << QStringLiteral("groupBox_outlier");
    QTest::newRow("a type that nobody knows") << 7 << QStringLiteral("groupBox_standard");
}

void TestClusterControl::onlyTheBoxOfTheMethodShows()
{
    QFETCH(int, type);
    QFETCH(QString, visible);
    SettingsStore().setValue(typeKey, type);
    m_panel->checkSettings();
    const QStringList boxes{QStringLiteral("groupBox_standard"), QStringLiteral("groupBox_meanshift"),
                            QStringLiteral("groupBox_outlier")};
    for (const QString &box : boxes)
        QCOMPARE(m_panel->findChild<QGroupBox *>(box)->isVisible(), box == visible);
    QCOMPARE(CommandStack::instance().count(), 0);
}

void TestClusterControl::pageFollowsUndo()
{
    chooseMethod(2);
    QCOMPARE(CommandStack::instance().count(), 2); // past mean-shift
    QVERIFY(child<QGroupBox>("groupBox_outlier")->isVisible());
    QVERIFY(child<QToolButton>("toolButton_2")->isVisible());
    CommandStack::instance().undo();
    QVERIFY(child<QGroupBox>("groupBox_meanshift")->isVisible());
    CommandStack::instance().undo();
    QVERIFY(child<QGroupBox>("groupBox_standard")->isVisible());
    QVERIFY(!child<QGroupBox>("groupBox_outlier")->isVisible());
    QCOMPARE(SettingsStore().value(typeKey).toInt(), 0);
    CommandStack::instance().redo();
    QVERIFY(child<QGroupBox>("groupBox_meanshift")->isVisible());
}

void TestClusterControl::changeOfControlIsACommand_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("command");
    const auto row = [](const char *name, const char *control, const char *key, const char *text, const char *command) {
        QTest::newRow(name) << QString::fromLatin1(control)
                            << QStringLiteral("Calculation/Cluster/") + QLatin1StringView(key)
                            << QString::fromLatin1(text) << QString::fromLatin1(command);
    };
    row("minimum", "fix_spin", "Standard/MinimumFixations",
        "Cluster standard minimum fixations changed: ", "CommandChangeClusterControlStandardMinimumFixation");
    row("overlap", "overlap_spin", "Standard/OverlapAllowed",
        "Cluster standard overlap changed: ", "CommandChangeClusterControlStandardOverlap");
    row("maximum radius", "radius_spin", "Standard/MaximumRadius", "Cluster standard maximum radius changed: ",
        "CommandChangeClusterControStandardlMaximumRadius"); // sic
    row("search radius", "spinrad", "Meanshift/Radius",
        "Cluster mean-shift radius changed: ", "CommandChangeClusterControlMeanShiftSearchRadius");
    row("rate", "spinGradient", "Meanshift/Gradient", "Cluster mean-shift gradient descent rate changed: ",
        "CommandChangeClusterControlMeanShiftGradientDescentRate");
    row("iterations", "spinIterations", "Meanshift/Iterations",
        "Cluster mean-shift maximum iterations changed: ", "CommandChangeClusterControlMeanShiftMaximumIterations");
    row("minimum of mean-shift", "spinMinFixations", "Meanshift/MinFixations",
        "Cluster mean-shift minimum fixations changed: ", "CommandChangeClusterControlMeanShiftMinimumFixations");
}

void TestClusterControl::changeOfControlIsACommand()
{
    QFETCH(QString, name);
    QFETCH(QString, key);
    QFETCH(QString, text);
    QFETCH(QString, command);
    m_panel->setLog(&log().log());
    const QString before = SettingsStore().value(key).toString();
    auto *control = m_panel->findChild<QAbstractSpinBox *>(name);
    control->stepBy(1);
    const QString after = SettingsStore().value(key).toString();
    QVERIFY(after != before);
    QCOMPARE(CommandStack::instance().count(), 1);
    QCOMPARE(CommandStack::instance().text(0), text + after);
    CommandStack::instance().undo();
    QCOMPARE(SettingsStore().value(key).toString(), before);
    QVERIFY(control->text().startsWith(before));
    CommandStack::instance().redo();
    QCOMPARE(SettingsStore().value(key).toString(), after);
    QCOMPARE(CommandStack::instance().count(), 1); // the control's signal makes no new command
    QCOMPARE(log().lines(),
             QStringList({command + QStringLiteral("::redo = ") + after, command + QStringLiteral("::undo = ") + before,
                          command + QStringLiteral("::redo = ") + after}));
}

void TestClusterControl::clickCalculates_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("undoText");
    QTest::addColumn<QString>("result");
    QTest::newRow("standard") << 0 << QStringLiteral("Calculate clusters")
                              << QStringLiteral("Algorithm:STANDARD\nParameter:\n Minimum Fixations:2, Overlap "
                                                "Allowed:0, Maximum Radius:100\n");
    QTest::newRow("mean-shift") << 1 << QStringLiteral("Calculate mean-shift clusters [r=120.5")
                                << QStringLiteral("Algorithm:MEANSHIFT\nParameter:\n Minimum Fixations:2, "
                                                  "Radius:120.5, Gradient:0.5, Iterations:60\n");
    QTest::newRow("overlap") << 2 << QStringLiteral("Calculate overlap clusters")
                             << QStringLiteral("Algorithm:OVERLAP\nParameter:\n Minimum Fixations:4\n");
}

void TestClusterControl::clickCalculates()
{
    QFETCH(int, type);
    QFETCH(QString, result);
    chooseMethod(type);
    child<QSpinBox>("spinBox_min_fix")->setValue(4);
    child<QSpinBox>("spinBox_outlier")->setValue(1);
    const QSignalSpy calculated(m_panel.get(), &ClusterControl::sigCalculateClusters);
    const QSignalSpy pooled(m_panel.get(), &ClusterControl::sigCalculateCumulativeClusters);
    click("calculateClusters_button");
    QCOMPARE(calculated.count(), 1);
    QCOMPARE(pooled.count(), 0);
    QTEST(CommandStack::instance().text(CommandStack::instance().count() - 1), "undoText");
    QVERIFY(at(0).calculationInfo.clusterCalculationInfo.startsWith(result));
    QVERIFY(at(1).calculationInfo.clusterCalculationInfo.startsWith(result));
    QCOMPARE(at(2).calculationInfo.clusterCalculationInfo, QStringLiteral("third\n"));
    QCOMPARE(clusterSizes(at(0).rightEye), type == 2 ? QList<qsizetype>() : QList<qsizetype>({3}));
}

void TestClusterControl::undoBringsBackClustersAndTexts()
{
    const QList<Examination> before = m_model.examinations();
    click("calculateClusters_button");
    QCOMPARE(clusterSizes(at(0).leftEye), QList<qsizetype>({2}));
    CommandStack::instance().undo();
    for (qsizetype i = 0; i < before.size(); ++i) {
        QCOMPARE(at(i).leftEye.fixationClusters, before[i].leftEye.fixationClusters);
        QCOMPARE(at(i).rightEye.fixationClusters, before[i].rightEye.fixationClusters);
        QCOMPARE(at(i).meanEye.fixationClusters, before[i].meanEye.fixationClusters);
        QCOMPARE(at(i).calculationInfo, before[i].calculationInfo);
    }
    QCOMPARE(samples::clusterNumbers(at(0).leftEye), QList({1, 1})); // these stay
}

void TestClusterControl::undoLeavesWhatWasNotCalculated()
{
    click("calculateClusters_button");
    m_model.examinations()[2].checked = true;
    m_model.examinations()[1].checked = false;
    CommandStack::instance().undo();
    QCOMPARE(clusterSizes(at(0).leftEye), QList<qsizetype>({1}));
    QCOMPARE(clusterSizes(at(1).leftEye), QList<qsizetype>({2})); // no longer checked
    QCOMPARE(clusterSizes(at(2).leftEye), QList<qsizetype>({1})); // was not calculated
}

void TestClusterControl::redoCalculatesAgain()
{
    click("calculateClusters_button");
    const QList<Examination> once = m_model.examinations();
    CommandStack::instance().undo();
    CommandStack::instance().redo();
    QCOMPARE(at(0).leftEye, once[0].leftEye);
    QCOMPARE(at(1).calculationInfo, once[1].calculationInfo);
    CommandStack::instance().undo();
    QCOMPARE(at(1).calculationInfo.clusterCalculationInfo, QStringLiteral("second\n"));
}

void TestClusterControl::clickPools_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("undoText");
    QTest::addColumn<QString>("result");
    QTest::newRow("standard") << 0 << QStringLiteral("toolButton") << QStringLiteral("Calculate cumulativclusters")
                              << QStringLiteral("Algorithm:STANDARD\nParameter:\n Minimum Fixations:2, Overlap "
                                                "Allowed:0, Maximum Radius:100\nFixationclusters found:\n Left Eye:0, "
                                                "Right Eye:0, Mean Eye:0\n");
    QTest::newRow("mean-shift") << 1 << QStringLiteral("toolButton")
                                << QStringLiteral("Calculate mean-shift cumulativclusters [r=120.5")
                                << QStringLiteral("Algorithm:MEANSHIFT\nParameter:\n Minimum Fixations:2, "
                                                  "Radius:120.5, Gradient:0.5, Iterations:60\nFixationclusters "
                                                  "found:\n Left Eye:1, Right Eye:1, Mean Eye:1\n");
    // The ellipses of so few samples have no area, and those at 100, 110, 120 do not touch: two of each.
    QTest::newRow("overlap") << 2 << QStringLiteral("toolButton")
                             << QStringLiteral("Calculate overlap cumulativclusters")
                             << QStringLiteral("Algorithm:OVERLAP\nParameter:\n Minimum Fixations:1\nFixationclusters "
                                               "found:\n Left Eye:1, Right Eye:2, Mean Eye:1\n");
    QTest::newRow("over examinations") << 2 << QStringLiteral("toolButton_2")
                                       << QStringLiteral("Calculate overlap cumulativclusters")
                                       << QStringLiteral("Algorithm:OVERLAP\nParameter:\n Minimum Fixations:1, "
                                                         "Outlier:2\nFixationclusters found:\n Left Eye:1, Right "
                                                         "Eye:2, Mean Eye:1\n");
}

void TestClusterControl::clickPools()
{
    QFETCH(int, type);
    QFETCH(QString, button);
    chooseMethod(type);
    child<QSpinBox>("spinBox_outlier")->setValue(2);
    const QSignalSpy calculated(m_panel.get(), &ClusterControl::sigCalculateClusters);
    const QSignalSpy pooled(m_panel.get(), &ClusterControl::sigCalculateCumulativeClusters);
    click(qPrintable(button));
    QCOMPARE(calculated.count(), 0);
    QCOMPARE(pooled.count(), 1);
    QTEST(CommandStack::instance().text(CommandStack::instance().count() - 1), "undoText");
    QTEST(m_model.calculationInfo().cumulativeClusterCalculationInfo, "result");
    QCOMPARE(at(2).calculationInfo.cumulativeClusterCalculationInfo, QStringLiteral("pooled third\n"));
    QCOMPARE(m_model.pooled(Eye::Right).scanpath.size(), 6);
}

void TestClusterControl::undoBringsBackThePooledContainers()
{
    m_model.calculationInfo().cumulativeClusterCalculationInfo = QStringLiteral("earlier\n");
    for (const Eye pool : allEyes) {
        m_model.pooled(pool).scanpath << samples::fixation({static_cast<int>(pool), 1});
        m_model.pooled(pool).fixationClusters
            << FixationCluster({samples::fixation({1, 1})}, {static_cast<int>(pool), 1});
    }
    const DataModel before = m_model;
    chooseMethod(1);
    click("toolButton");
    QCOMPARE(clusterSizes(m_model.pooled(Eye::Left)), QList<qsizetype>({4}));
    CommandStack::instance().undo();
    for (const Eye pool : allEyes)
        QCOMPARE(m_model.pooled(pool), before.pooled(pool));
    QCOMPARE(m_model.calculationInfo(), before.calculationInfo());
    for (qsizetype i = 0; i < 3; ++i)
        QCOMPARE(at(i).calculationInfo, before.examinations()[i].calculationInfo);
    CommandStack::instance().redo();
    QCOMPARE(clusterSizes(m_model.pooled(Eye::Left)), QList<qsizetype>({4}));
    QVERIFY(m_model.calculationInfo().cumulativeClusterCalculationInfo.startsWith(QStringLiteral("Algorithm:")));
}

void TestClusterControl::overExaminationsWorksWithOverlapOnly()
{
    const QSignalSpy pooled(m_panel.get(), &ClusterControl::sigCalculateCumulativeClusters);
    QVERIFY(!child<QToolButton>("toolButton_2")->isVisible());
    for (const int type : {0, 1}) {
        chooseMethod(type);
        const int before = CommandStack::instance().count();
        m_panel->sltCalculateCumulativeClusters_MERIDOS();
        QCOMPARE(CommandStack::instance().count(), before);
    }
    QCOMPARE(pooled.count(), 0);
}

void TestClusterControl::parametersOfTheClickAreKept()
{
    click("calculateClusters_button");
    CommandStack::instance().undo();
    SettingsStore().setValue(radiusKey, 30);
    m_panel->checkSettings();
    CommandStack::instance().redo();
    QVERIFY(at(0).calculationInfo.clusterCalculationInfo.contains(QStringLiteral("Maximum Radius:100\n")));
}

void TestClusterControl::withoutModelNothingHappens()
{
    m_panel->setModel(nullptr);
    const QSignalSpy calculated(m_panel.get(), &ClusterControl::sigCalculateClusters);
    const QSignalSpy pooled(m_panel.get(), &ClusterControl::sigCalculateCumulativeClusters);
    click("calculateClusters_button");
    click("toolButton");
    chooseMethod(2);
    click("toolButton_2");
    QCOMPARE(calculated.count() + pooled.count(), 0);
    QCOMPARE(CommandStack::instance().count(), 2); // the two changes of the method
}

void TestClusterControl::withoutCheckedExaminationNothingIsTouched()
{
    for (Examination &made : m_model.examinations())
        made.checked = false;
    const QList<Examination> before = m_model.examinations();
    const RecordedMessages messages;
    click("calculateClusters_button");
    click("toolButton");
    CommandStack::instance().undo();
    CommandStack::instance().undo();
    QCOMPARE(messages.texts(),
             QStringList(2, QStringLiteral("No examination selected!|Please select some data first.")));
    for (qsizetype i = 0; i < before.size(); ++i) {
        QCOMPARE(at(i).leftEye, before[i].leftEye);
        QCOMPARE(at(i).calculationInfo, before[i].calculationInfo);
    }
}

QTEST_MAIN(TestClusterControl)
#include "TestClusterControl.moc"
