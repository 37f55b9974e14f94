// SPDX-License-Identifier: GPL-3.0-or-later
#include "clustering/CumulativeClusters.h"
#include "ClusterSamples.h"
#include "model/DataModel.h"
#include "ProgressLabels.h"
#include "TestMessages.h"

#include <QTest>

#include <limits>

using samples::clusterSizes;
using samples::streamAt;
namespace {

/// So many fixations at one place in each stream.
Examination examination(int left, int right, int mean)
{
    Examination made;
    made.leftEye = streamAt(QList<QPoint>(left, {100, 100}));
    made.rightEye = streamAt(QList<QPoint>(right, {200, 100}));
    made.meanEye = streamAt(QList<QPoint>(mean, {150, 100}));
    return made;
}

DataModel modelOf(const QList<Examination> &examinations)
{
    DataModel model;
    model.examinations() = examinations;
    return model;
}

} // namespace

class TestCumulativeClusters : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void nothingChecked();
    void fixationsArePooled();
    void growingMinimum_data();
    void growingMinimum();
    void minimumGrowsFromRunToRun();
    void missingClustersAreExplained_data();
    void missingClustersAreExplained();
    void withoutFixationsNoClusterIsMissing();
    void oneExaminationKeepsTheMinimum();
    void eachCalculationBeginsWithTheParameter();
    void clustersAreNotSorted();
    void boxesOfEmptyContainers();
    void meanShift();
    void overlap();
    void overlapOverExaminations();
    void texts();
    void remarkOfUndoneFixations();
};

void TestCumulativeClusters::nothingChecked()
{
    DataModel model = modelOf({examination(1, 1, 1)});
    model.examinations()[0].checked = false;
    model.pooled(Eye::Left).scanpath << Fixation();
    const RecordedMessages messages;
    QVERIFY(!calculateCumulativeClusters(model, StandardClusterParameters{1, 0, 100}));
    QCOMPARE(messages.texts(), QStringList(QStringLiteral("No examination selected!|Please select some data first.")));
    QCOMPARE(model.pooled(Eye::Left).scanpath.size(), 1);
}

void TestCumulativeClusters::fixationsArePooled()
{
    DataModel model = modelOf({examination(1, 2, 3), examination(9, 9, 9), examination(4, 5, 6)});
    model.examinations()[1].checked = false;
    model.examinations()[2].dominantEye = QStringLiteral("left");
    model.pooled(Eye::Dominant).calculationInfo = QStringLiteral("of an earlier one");
    const ProgressLabels progress;
    QVERIFY(calculateCumulativeClusters(model, StandardClusterParameters{1, 0, 100}));
    const auto sources = [&](Eye pool) {
        QList<int> places;
        for (const Fixation &each : std::as_const(model).pooled(pool).scanpath)
            places << each.examination;
        return places;
    };
    QCOMPARE(sources(Eye::Left), QList({0, 2, 2, 2, 2})); // places in the list of all
    QCOMPARE(sources(Eye::Right), QList({0, 0, 2, 2, 2, 2, 2}));
    QCOMPARE(sources(Eye::Mean), QList({0, 0, 0, 2, 2, 2, 2, 2, 2}));
    QCOMPARE(sources(Eye::Dominant), QList({0, 0, 2, 2, 2, 2})); // the right eye of the first, the left of the third
    QCOMPARE(model.pooled(Eye::Dominant).scanpath[0].mean, QPoint(200, 100));
    QCOMPARE(model.pooled(Eye::Dominant).calculationInfo, QString());
    QCOMPARE(model.examinations()[0].leftEye.scanpath[0].examination, -1);
    QCOMPARE(progress.opened().first(),
             QStringLiteral("Collecting data for cumulative fixationcluster calculation, please wait. 2"));
}

void TestCumulativeClusters::growingMinimum_data()
{
    QTest::addColumn<int>("minimum");
    QTest::addColumn<int>("examinations");
    QTest::addColumn<QList<int>>("minima");
    constexpr int most = std::numeric_limits<int>::max();
    QTest::newRow("one examination") << 5 << 1 << QList({5, 5, 5, 5});
    QTest::newRow("three examinations") << 5 << 3 << QList({15, 45, 135, 405});
    QTest::newRow("no more than an int holds") << 5000000 << 20 << QList({100000000, 2000000000, most, most});
    QTest::newRow("no minimum") << 0 << 20 << QList({0, 0, 0, 0});
}

void TestCumulativeClusters::growingMinimum()
{
    QFETCH(int, minimum);
    QFETCH(int, examinations);
    GrowingMinimum growing(minimum, examinations);
    const QList<int> minima{growing.next(), growing.next(), growing.next(), growing.next()};
    QTEST(minima, "minima");
}

void TestCumulativeClusters::minimumGrowsFromRunToRun()
{
    // Two examinations and a minimum of 1: dominant asks for 2, right for 4, left for 8, mean for 16. Dominant and
    // right hold the same.
    DataModel model = modelOf({examination(4, 1, 8), examination(4, 2, 8)});
    calculateCumulativeClusters(model, StandardClusterParameters{1, 0, 100});
    QCOMPARE(clusterSizes(model.pooled(Eye::Dominant)), QList<qsizetype>({3}));
    QCOMPARE(clusterSizes(model.pooled(Eye::Right)), QList<qsizetype>());
    QCOMPARE(clusterSizes(model.pooled(Eye::Left)), QList<qsizetype>({8}));
    QCOMPARE(clusterSizes(model.pooled(Eye::Mean)), QList<qsizetype>({16}));
    model.examinations()[0].meanEye.scanpath.removeLast();
    calculateCumulativeClusters(model, StandardClusterParameters{1, 0, 100});
    QCOMPARE(clusterSizes(model.pooled(Eye::Mean)), QList<qsizetype>());
}

/// One recording has enough for a cluster of its own; pooled, the second and later eyes lack what is asked for.
void TestCumulativeClusters::missingClustersAreExplained_data()
{
    QTest::addColumn<int>("recordings");
    QTest::addColumn<ClusterParameters>("parameters");
    QTest::addColumn<QString>("eyes"); // none where nothing is told
    QTest::newRow("one recording") << 1 << ClusterParameters(StandardClusterParameters{5, 0, 100}) << QString();
    QTest::newRow("two recordings") << 2 << ClusterParameters(StandardClusterParameters{2, 0, 100})
                                    << QStringLiteral("left 16 (of 8), mean 32 (of 8)");
    QTest::newRow("three recordings") << 3 << ClusterParameters(StandardClusterParameters{2, 0, 100})
                                      << QStringLiteral("right 18 (of 12), left 54 (of 12), mean 162 (of 12)");
    QTest::newRow("other methods") << 2 << ClusterParameters(MeanShiftClusterParameters{100, 0.25, 50, 9}) << QString();
}

void TestCumulativeClusters::missingClustersAreExplained()
{
    QFETCH(int, recordings);
    QFETCH(ClusterParameters, parameters);
    QFETCH(QString, eyes);
    DataModel model = modelOf(QList<Examination>(recordings, examination(4, 4, 4)));
    calculateCumulativeClusters(model, parameters);
    const QString expected =
        QStringLiteral("Eyes without a cumulative cluster, with the fixations that one cluster would need: %1. The "
                       "standard method multiplies the minimum of 2 by the number of recordings, %2, anew for each "
                       "eye. Choose a smaller minimum, fewer recordings, or another method.")
            .arg(eyes)
            .arg(recordings);
    QCOMPARE(missingClusters(model, parameters).value_or(QString()), eyes.isEmpty() ? QString() : expected);
}

void TestCumulativeClusters::withoutFixationsNoClusterIsMissing()
{
    DataModel model = modelOf({Examination(), Examination()});
    const RecordedMessages messages;
    calculateCumulativeClusters(model, StandardClusterParameters{2, 0, 100});
    QVERIFY(!missingClusters(model, StandardClusterParameters{2, 0, 100}));
}

void TestCumulativeClusters::oneExaminationKeepsTheMinimum()
{
    DataModel model = modelOf({examination(3, 3, 3)});
    calculateCumulativeClusters(model, StandardClusterParameters{3, 0, 100});
    for (const Eye pool : allEyes)
        QCOMPARE(clusterSizes(model.pooled(pool)), QList<qsizetype>({3}));
}

void TestCumulativeClusters::eachCalculationBeginsWithTheParameter()
{
    DataModel model = modelOf({examination(8, 2, 16), examination(0, 2, 0)});
    calculateCumulativeClusters(model, StandardClusterParameters{1, 0, 100});
    const EyeData once = model.pooled(Eye::Mean);
    QCOMPARE(clusterSizes(once), QList<qsizetype>({16}));
    calculateCumulativeClusters(model, StandardClusterParameters{1, 0, 100});
    QCOMPARE(model.pooled(Eye::Mean), once);
}

void TestCumulativeClusters::clustersAreNotSorted()
{
    Examination made;
    made.rightEye = streamAt({{100, 100}, {900, 100}, {900, 100}});
    made.leftEye = made.meanEye = made.rightEye;
    DataModel model = modelOf({made});
    const ProgressLabels progress;
    calculateCumulativeClusters(model, StandardClusterParameters{1, 0, 100});
    QCOMPARE(clusterSizes(model.pooled(Eye::Right)), QList<qsizetype>({1, 2}));
    QVERIFY(progress.opened().filter(QStringLiteral("Sort")).isEmpty());
}

void TestCumulativeClusters::boxesOfEmptyContainers()
{
    DataModel model = modelOf({examination(0, 2, 0)});
    const RecordedMessages messages;
    calculateCumulativeClusters(model, StandardClusterParameters{1, 0, 100});
    const QString box =
        QStringLiteral("No fixations found. Cannot calculate fixation clusters.|Please calculate clusters first.");
    QCOMPARE(messages.texts(), QStringList{box + QStringLiteral("\n2 times")}); // left and mean
    calculateCumulativeClusters(model, MeanShiftClusterParameters{100, 0.25, 50, 1});
    QCOMPARE(messages.texts().size(), 2);
    QVERIFY(messages.texts()[1].startsWith(QStringLiteral("No fixations found. Cannot calculate clusters.|")));
    calculateCumulativeClusters(model, OverlapClusterParameters{1, 0});
    QCOMPARE(messages.texts().size(), 2);
}

void TestCumulativeClusters::meanShift()
{
    DataModel model = modelOf({examination(2, 1, 1), examination(2, 1, 1)});
    const ProgressLabels progress;
    calculateCumulativeClusters(model, MeanShiftClusterParameters{100, 0.25, 50, 2});
    for (const Eye pool : allEyes)
        QCOMPARE(model.pooled(pool).fixationClusters.size(), 1); // the minimum does not grow
    QVERIFY(progress.opened().contains(QStringLiteral("Generate data vector, please wait. 4")));
    QVERIFY(progress.opened().contains(QStringLiteral("Filterng clusters, please wait. 2")));
}

void TestCumulativeClusters::overlap()
{
    DataModel model = modelOf({examination(1, 1, 1), examination(2, 0, 1)});
    calculateCumulativeClusters(model, OverlapClusterParameters{2, std::nullopt});
    QCOMPARE(clusterSizes(model.pooled(Eye::Left)), QList<qsizetype>({3}));
    QCOMPARE(clusterSizes(model.pooled(Eye::Mean)), QList<qsizetype>());
    QCOMPARE(model.pooled(Eye::Left).fixationClusters[0].fixations[2].examination, 1);
}

void TestCumulativeClusters::overlapOverExaminations()
{
    DataModel model = modelOf({examination(2, 2, 2), examination(2, 0, 2), examination(2, 0, 2)});
    calculateCumulativeClusters(model, OverlapClusterParameters{1, 0});
    QCOMPARE(clusterSizes(model.pooled(Eye::Left)), QList<qsizetype>({6}));
    QCOMPARE(clusterSizes(model.pooled(Eye::Right)), QList<qsizetype>());
    calculateCumulativeClusters(model, OverlapClusterParameters{1, 3}); // all may be missing
    QCOMPARE(clusterSizes(model.pooled(Eye::Right)), QList<qsizetype>({2}));
}

void TestCumulativeClusters::texts()
{
    DataModel model = modelOf({examination(2, 2, 2), examination(2, 2, 2), examination(2, 2, 2)});
    model.examinations()[2].checked = false;
    for (qsizetype i = 0; i < 3; ++i) {
        model.examinations()[i].calculationInfo.fixationCalculationInfo = QStringLiteral("fixations %1\n").arg(i);
        model.examinations()[i].calculationInfo.clusterCalculationInfo = QStringLiteral("clusters %1\n").arg(i);
    }
    calculateCumulativeClusters(model, StandardClusterParameters{1, 0, 100});
    // Four fixations in each container. Asked for are 4 in the right one, 8 in the left one, 16 in the mean; the text
    // has the parameter.
    const QString text = QStringLiteral("Algorithm:STANDARD\nParameter:\n Minimum Fixations:1, Overlap Allowed:0, "
                                        "Maximum Radius:100\nFixationclusters found:\n Left Eye:0, Right Eye:1, Mean "
                                        "Eye:0\n");
    QCOMPARE(model.calculationInfo().cumulativeClusterCalculationInfo, text);
    QCOMPARE(model.calculationInfo().fixationCalculationInfo, QStringLiteral("fixations 1\n"));
    QCOMPARE(model.calculationInfo().clusterCalculationInfo, QStringLiteral("clusters 1\n"));
    QCOMPARE(model.examinations()[0].calculationInfo.cumulativeClusterCalculationInfo, text);
    QCOMPARE(model.examinations()[1].calculationInfo.cumulativeClusterCalculationInfo, text);
    QCOMPARE(model.examinations()[2].calculationInfo.cumulativeClusterCalculationInfo, QStringLiteral("Not set\n"));
}

/// The pooled fixations need not be those of the text, either; a later calculation takes the remark away.
void TestCumulativeClusters::remarkOfUndoneFixations()
{
    DataModel model = modelOf({examination(2, 2, 2), examination(2, 2, 2)});
    const QString remark = QStringLiteral("Other fixations.\n");
    model.examinations()[1].calculationInfo.fixationRemark = remark;
    calculateCumulativeClusters(model, StandardClusterParameters{1, 0, 100});
    QCOMPARE(model.calculationInfo().fixationLines(), QStringLiteral("Not set\n") + remark);
    model.examinations()[1].calculationInfo.fixationRemark.clear();
    calculateCumulativeClusters(model, StandardClusterParameters{1, 0, 100});
    QCOMPARE(model.calculationInfo().fixationLines(), QStringLiteral("Not set\n"));
}

QTEST_GUILESS_MAIN(TestCumulativeClusters)
#include "TestCumulativeClusters.moc"
