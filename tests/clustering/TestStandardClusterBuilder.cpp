// SPDX-License-Identifier: GPL-3.0-or-later
#include "clustering/ClusterSort.h"
#include "clustering/StandardClusterBuilder.h"
#include "ClusterSamples.h"

#include <QTest>

using samples::clusterNumbers;
using samples::clusterSizes;
using samples::fixation;
using samples::stream;
using samples::streamAt;

using FinalSort = StandardClusterBuilder::FinalSort;

namespace {

EyeData built(EyeData eye, const StandardClusterParameters &parameters, FinalSort finalSort = FinalSort::No)
{
    StandardClusterBuilder(parameters).buildClusters(eye, finalSort);
    return eye;
}

/// A cluster as an obstacle: a circle.
FixationCluster circle(QPoint centre, float radius)
{
    FixationCluster made;
    made.mean = centre;
    made.majorAxis = {radius, 0};
    return made;
}

} // namespace

class TestStandardClusterBuilder : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void nothingToDo();
    void twoPlaces();
    void tooFewStayFree();
    void centreIsWeightedWithTheSamples();
    void centreAtTheOriginIsThatOfTheSamples();
    void radiusIsTestedOnAddingOnly();
    void radiusOfExactlyTheMaximum_data();
    void radiusOfExactlyTheMaximum();
    void minimumOfOneMakesOneOfEach();
    void roundWithoutCandidatesMakesNone();
    void laterOnesFormAClusterWithoutTheStart();
    void copiesHaveTheNumberZero();
    void numbersOfAnEarlierRunAreForgotten();
    void overlap_data();
    void overlap();
    void coincidingPointsAreClear();
    void finalSortKeepsTheNumbers();
};

void TestStandardClusterBuilder::nothingToDo()
{
    EyeData eye;
    eye.fixationClusters << circle({1, 1}, 1);
    QCOMPARE(built(eye, {1, 0, 100}, FinalSort::Yes), eye);
}

void TestStandardClusterBuilder::twoPlaces()
{
    const EyeData eye = built(streamAt({{100, 100}, {500, 100}, {110, 100}, {120, 100}, {510, 100}}), {2, 0, 100});
    QCOMPARE(clusterNumbers(eye), QList({1, 2, 1, 1, 2}));
    QCOMPARE(clusterSizes(eye), QList<qsizetype>({3, 2}));
    QCOMPARE(eye.fixationClusters[0].mean, QPoint(110, 100));
    QCOMPARE(eye.fixationClusters[1].mean, QPoint(505, 100));
    QCOMPARE(eye.fixationClusters[0].fixations[1].mean, QPoint(110, 100));
}

void TestStandardClusterBuilder::tooFewStayFree()
{
    const EyeData eye = built(streamAt({{100, 100}, {500, 100}, {110, 100}}), {2, 0, 100});
    QCOMPARE(clusterNumbers(eye), QList({1, 0, 1}));
    QCOMPARE(clusterSizes(eye), QList<qsizetype>({2}));
}

void TestStandardClusterBuilder::centreIsWeightedWithTheSamples()
{
    // (3 * 100 + 1 * 111) / 4 = 102.75, cut to 102; upwards (3 * -100 + 1 * -111) / 4 = -102.75, cut to -102
    const EyeData eye = built(stream({fixation({100, -100}, 3), fixation({111, -111}, 1)}), {2, 0, 100});
    QCOMPARE(eye.fixationClusters[0].mean, QPoint(102, -102));
}

void TestStandardClusterBuilder::centreAtTheOriginIsThatOfTheSamples()
{
    Fixation left = fixation({-10, 0});
    Fixation right = fixation({10, 0});
    right.samples.own()[0].x = 30; // its own centroid came from interpolated values
    const EyeData eye = built(stream({left, right}), {2, 0, 100});
    QCOMPARE(eye.fixationClusters[0].mean, QPoint(10, 0));
}

void TestStandardClusterBuilder::radiusIsTestedOnAddingOnly()
{
    const EyeData alone = built(stream({fixation({100, 100}, 1, {80, 0})}), {1, 0, 50});
    QCOMPARE(clusterNumbers(alone), QList({1}));
    const EyeData two = built(stream({fixation({100, 100}, 1, {80, 0}), fixation({100, 100}, 1, {80, 0})}), {2, 0, 50});
    QCOMPARE(clusterNumbers(two), QList({0, 0}));
}

void TestStandardClusterBuilder::radiusOfExactlyTheMaximum_data()
{
    QTest::addColumn<int>("maximumRadiusPx");
    QTest::addColumn<qsizetype>("clusters");
    // Means at 100 and 120: the centre is 110, the radius 10 + 5.
    QTest::newRow("below") << 14 << qsizetype(0);
    QTest::newRow("equal") << 15 << qsizetype(1);
}

void TestStandardClusterBuilder::radiusOfExactlyTheMaximum()
{
    QFETCH(int, maximumRadiusPx);
    const EyeData eye =
        built(stream({fixation({100, 100}, 1, {3, 4}), fixation({120, 100}, 1, {0, -5})}), {2, 0, maximumRadiusPx});
    QTEST(eye.fixationClusters.size(), "clusters");
}

void TestStandardClusterBuilder::minimumOfOneMakesOneOfEach()
{
    const EyeData eye = built(streamAt({{100, 100}, {500, 100}, {900, 100}, {110, 100}}), {1, 0, 50});
    QCOMPARE(clusterNumbers(eye), QList({1, 2, 3, 1}));
    QCOMPARE(clusterSizes(eye), QList<qsizetype>({2, 1, 1}));
}

void TestStandardClusterBuilder::roundWithoutCandidatesMakesNone()
{
    const EyeData eye = built(streamAt({{100, 100}, {110, 100}}), {0, 0, 50}); // the second round has none
    QCOMPARE(clusterSizes(eye), QList<qsizetype>({2}));
}

void TestStandardClusterBuilder::laterOnesFormAClusterWithoutTheStart()
{
    // Round 1 takes 100, 110 and 120. In round 2 the fixation at 110 has its number already, and the two at 500 and 510
    // go together in it: they have number 2 and not that of their own round.
    const EyeData eye = built(streamAt({{100, 0}, {110, 0}, {120, 0}, {500, 0}, {510, 0}}), {2, 0, 50});
    QCOMPARE(clusterNumbers(eye), QList({1, 1, 1, 2, 2}));
    // Without a start the first one has to pass the tests, too: its own axis is too long, and so it is alone.
    const EyeData tested =
        built(stream({fixation({100, 0}), fixation({110, 0}), fixation({500, 0}, 1, {60, 0}), fixation({900, 0})}),
              {1, 0, 50});
    QCOMPARE(clusterNumbers(tested), QList({1, 1, 3, 2}));
}

void TestStandardClusterBuilder::copiesHaveTheNumberZero()
{
    const EyeData eye = built(streamAt({{100, 100}, {110, 100}}), {2, 0, 100});
    for (const Fixation &each : eye.fixationClusters[0].fixations)
        QCOMPARE(each.cluster, 0);
}

void TestStandardClusterBuilder::numbersOfAnEarlierRunAreForgotten()
{
    EyeData eye = streamAt({{100, 100}, {900, 100}});
    eye.scanpath[0].cluster = 9;
    eye.scanpath[1].cluster = 1;
    const EyeData after = built(eye, {2, 0, 100});
    QCOMPARE(clusterNumbers(after), QList({0, 0}));
    QVERIFY(after.fixationClusters.isEmpty());
}

void TestStandardClusterBuilder::overlap_data()
{
    QTest::addColumn<float>("obstaclePx");
    QTest::addColumn<int>("allowed");
    QTest::addColumn<bool>("isClear");
    // Two fixations at the same place have a circle of radius 40. The obstacle is 100 px away.
    QTest::newRow("far away") << 10.0F << 0 << true;
    QTest::newRow("touching") << 60.0F << 0 << true;
    QTest::newRow("less than a percent counts as none") << 60.99F << 0 << true;
    QTest::newRow("one percent") << 61.0F << 0 << false;
    QTest::newRow("as much as allowed") << 70.5F << 10 << true;
    QTest::newRow("the next whole percent") << 71.0F << 10 << false;
    QTest::newRow("the centre on the other circle") << 100.0F << 50 << true;
    QTest::newRow("the centre in the other circle") << 100.5F << 50 << false;
}

void TestStandardClusterBuilder::overlap()
{
    QFETCH(float, obstaclePx);
    QFETCH(int, allowed);
    QFETCH(bool, isClear);
    EyeData eye = stream({fixation({100, 100}, 1, {40, 0}), fixation({100, 100}, 1, {40, 0})});
    eye.fixationClusters << circle({200, 100}, obstaclePx);
    const EyeData after = built(eye, {2, allowed, 300});
    QCOMPARE(after.fixationClusters.size(), isClear ? 2 : 1);
}

void TestStandardClusterBuilder::coincidingPointsAreClear()
{
    // All lengths are 0, so that the overlap is 0 * (100 / 0), which is no number, and no more than allowed.
    EyeData eye = stream({fixation({100, 100}, 1, {0, 0}), fixation({100, 100}, 1, {0, 0})});
    eye.fixationClusters << circle({100, 100}, 0);
    QCOMPARE(built(eye, {2, 0, 300}).fixationClusters.size(), 2);
    eye.fixationClusters[0].majorAxis = {1, 0};
    QCOMPARE(built(eye, {2, 0, 300}).fixationClusters.size(), 1);
}

void TestStandardClusterBuilder::finalSortKeepsTheNumbers()
{
    const QList<QPoint> means{{100, 100}, {500, 100}, {510, 100}, {520, 100}, {900, 100}, {910, 100}, {110, 100}};
    const EyeData eye = built(streamAt(means), {2, 0, 50}, FinalSort::Yes);
    QCOMPARE(clusterNumbers(eye), QList({1, 2, 2, 2, 3, 3, 1}));
    QCOMPARE(clusterSizes(eye), QList<qsizetype>({3, 2, 2}));
    QCOMPARE(eye.fixationClusters[1].mean, QPoint(105, 100)); // among equals the one that was made first
    QCOMPARE(eye.fixationClusters[2].mean, QPoint(905, 100));
    QList<FixationCluster> none;
    sortBySize(none);
    QVERIFY(none.isEmpty());
}

QTEST_GUILESS_MAIN(TestStandardClusterBuilder)
#include "TestStandardClusterBuilder.moc"
