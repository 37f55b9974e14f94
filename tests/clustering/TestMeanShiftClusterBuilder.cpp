// SPDX-License-Identifier: GPL-3.0-or-later
#include "clustering/MeanShiftClusterBuilder.h"
#include "ClusterSamples.h"
#include "ProgressLabels.h"
#include "TestMessages.h"

#include <QTest>

using samples::clusterNumbers;
using samples::clusterSizes;
using samples::fixation;
using samples::stream;
using samples::streamAt;
using ShowProgress = MeanShiftClusterBuilder::ShowProgress;

namespace {

const MeanShiftClusterParameters usual{100, 0.25, 50, 1};

EyeData built(EyeData eye, const MeanShiftClusterParameters &parameters)
{
    const MeanShiftClusterBuilder builder(eye, parameters, ShowProgress::No);
    return eye;
}

} // namespace

class TestMeanShiftClusterBuilder : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void nothingToDo();
    void numbersBeginWithZero();
    void rejectedClustersKeepTheirNumbers();
    void minimumOfZeroKeepsAllWithSamples();
    void statisticsAreThoseOfTheSamples();
    void copiesHaveTheNumberFromBefore();
    void labelsDecide();
    void fewerLabelsThanFixations();
    void dialogs_data();
    void dialogs();
};

void TestMeanShiftClusterBuilder::nothingToDo()
{
    const RecordedMessages messages;
    QCOMPARE(built({}, usual), EyeData());
    QCOMPARE(messages.texts(),
             QStringList(
                 QStringLiteral("No fixations found. Cannot calculate clusters.|Please calculate fixations first.")));
}

void TestMeanShiftClusterBuilder::numbersBeginWithZero()
{
    const EyeData eye = built(streamAt({{100, 100}, {900, 100}, {910, 100}, {920, 100}, {110, 100}}), usual);
    QCOMPARE(clusterNumbers(eye), QList({0, 1, 1, 1, 0}));
    QCOMPARE(clusterSizes(eye), QList<qsizetype>({3, 2})); // sorted, while the numbers are those of the labels
    QCOMPARE(eye.fixationClusters[0].fixations[0].mean, QPoint(900, 100));
}

void TestMeanShiftClusterBuilder::rejectedClustersKeepTheirNumbers()
{
    const EyeData eye =
        built(streamAt({{100, 100}, {900, 100}, {910, 100}, {1900, 100}, {1910, 100}}), {100, 0.25, 50, 2});
    QCOMPARE(clusterNumbers(eye), QList({0, 1, 1, 2, 2}));
    QCOMPARE(clusterSizes(eye), QList<qsizetype>({2, 2}));
    QCOMPARE(eye.fixationClusters[0].mean, QPoint(905, 100)); // among equals the first
}

void TestMeanShiftClusterBuilder::minimumOfZeroKeepsAllWithSamples()
{
    Fixation withoutSamples;
    withoutSamples.mean = {1900, 100};
    const EyeData eye = built(stream({fixation({100, 100}), withoutSamples}), {100, 0.25, 50, 0});
    QCOMPARE(clusterNumbers(eye), QList({0, 1}));
    QCOMPARE(clusterSizes(eye), QList<qsizetype>({1}));
}

void TestMeanShiftClusterBuilder::statisticsAreThoseOfTheSamples()
{
    // Six samples at 100 and two at 120: the mean is 105, the variance along x (6 * 25 + 2 * 225) / 8 = 75.
    const EyeData eye = built(stream({fixation({120, 50}, 2, {1, 0}, {}, 500), fixation({100, 50}, 6)}), usual);
    const FixationCluster &cluster = eye.fixationClusters[0];
    QCOMPARE(cluster.mean, QPoint(105, 50));
    QCOMPARE(cluster.variance, QPoint()); // not computed
    QVERIFY(qAbs(cluster.majorAxis.length() - 8.660254F) < 1e-4F);
    QCOMPARE(cluster.samples.size(), 8);
    QCOMPARE(cluster.firstTime(), 0); // sorted by time
    QCOMPARE(cluster.lastTime(), 510);
}

void TestMeanShiftClusterBuilder::copiesHaveTheNumberFromBefore()
{
    EyeData eye = streamAt({{100, 100}, {900, 100}});
    eye.scanpath[0].cluster = 4;
    const EyeData after = built(eye, usual);
    QCOMPARE(after.fixationClusters[0].fixations[0].cluster, 4);
    QCOMPARE(after.fixationClusters[1].fixations[0].cluster, 0);
    QCOMPARE(clusterNumbers(after), QList({0, 1}));
}

void TestMeanShiftClusterBuilder::labelsDecide()
{
    QList<Fixation> fixations = streamAt({{1, 1}, {2, 2}, {3, 3}}).scanpath;
    const QList<QList<Fixation>> groups = groupsByLabel(fixations, {3, 1, 3});
    QCOMPARE(groups.size(), 3);
    QTest::ignoreMessage(QtWarningMsg, "Empty cluster constructed!");
    const QList<FixationCluster> clusters = clustersOfGroups(groups, 0);
    QCOMPARE(clusters.size(), 2); // an empty group has no samples
    QCOMPARE(clusters[0].mean, QPoint(2, 2));
    QCOMPARE(clusters[1].fixations.size(), 2);
}

void TestMeanShiftClusterBuilder::fewerLabelsThanFixations()
{
    EyeData eye = streamAt({{1, 1}, {2, 2}});
    eye.scanpath[1].cluster = 5;
    QCOMPARE(groupsByLabel(eye.scanpath, {2}).size(), 2);
    QCOMPARE(clusterNumbers(eye), QList({1, 5}));
    QCOMPARE(groupsByLabel(eye.scanpath, {1, 1, 1})[0].size(), 2); // and more labels than fixations
}

void TestMeanShiftClusterBuilder::dialogs_data()
{
    QTest::addColumn<bool>("isShown");
    QTest::addColumn<QStringList>("labels");
    const QStringList always{QStringLiteral("Calculate PCA for clusters, please wait. 2"),
                             QStringLiteral("Sort clusters, please wait. 2")};
    QTest::newRow("few") << false << always;
    QTest::newRow("all") << true
                         << QStringList({QStringLiteral("Generate data vector, please wait. 3"),
                                         QStringLiteral("Filterng clusters, please wait. 3")}) +
                                always;
}

void TestMeanShiftClusterBuilder::dialogs()
{
    QFETCH(bool, isShown);
    EyeData eye = streamAt({{100, 100}, {900, 100}, {900, 100}});
    const ProgressLabels progress;
    const MeanShiftClusterBuilder builder(eye, usual, isShown ? ShowProgress::Yes : ShowProgress::No);
    QTEST(progress.opened(), "labels");
}

QTEST_GUILESS_MAIN(TestMeanShiftClusterBuilder)
#include "TestMeanShiftClusterBuilder.moc"
