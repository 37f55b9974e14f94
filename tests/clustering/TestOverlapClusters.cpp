// SPDX-License-Identifier: GPL-3.0-or-later
#include "clustering/FixationOutline.h"
#include "clustering/OverlapClusters.h"
#include "ClusterSamples.h"

#include <QTest>

#include <cmath>

using samples::clusterNumbers;
using samples::clusterSizes;
using samples::stream;

namespace {

Fixation disc(QPoint mean, float radius, int examination = -1)
{
    Fixation made = samples::fixation(mean, 4, {radius, 0}, {0, radius});
    made.examination = examination;
    return made;
}

/// Discs of radius 10 on a line.
EyeData line(const QList<int> &places)
{
    EyeData eye;
    for (const int x : places)
        eye.scanpath << disc({x, 100}, 10);
    return eye;
}

EyeData built(EyeData eye, int minimum)
{
    buildOverlapClusters(eye, {minimum, std::nullopt});
    return eye;
}

bool touch(const Fixation &a, const Fixation &b)
{
    const FixationOutline first(a);
    const FixationOutline second(b);
    return first.touches(second) && second.touches(first);
}

} // namespace

class TestOverlapClusters : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void outlineHasTheAxesOfTheFixation();
    void touching_data();
    void touching();
    void nothingToDo();
    void oneAlone();
    void theMiddleDoesNotCount();
    void neighboursOfNeighboursDoNotJoin();
    void firstAmongEquals();
    void lastListsAreNeverTakenUp();
    void groupsThatAreNoClustersHaveNumbers();
    void centreIsCutTowardsZero();
    void centreIsSummedInSinglePrecision();
    void outliers_data();
    void outliers();
    void placesBeyondTheCheckedOnesAreNotCounted();
    void withoutOutliersExaminationsAreNotToldApart();
};

void TestOverlapClusters::outlineHasTheAxesOfTheFixation()
{
    // Axes of 50 px along (4,3) / 5 and 20 px along (-3,4) / 5.
    const QPainterPath path = FixationOutline(samples::fixation({1000, 500}, 4, {40, 30}, {-12, 16})).path();
    const auto at = [](double major, double minor) {
        return QPointF(1000 + major * 0.8 - minor * 0.6, 500 + major * 0.6 + minor * 0.8);
    };
    for (const double side : {-1.0, 1.0}) {
        QVERIFY(path.contains(at(side * 49.9, 0)));
        QVERIFY(!path.contains(at(side * 50.1, 0)));
        QVERIFY(path.contains(at(0, side * 19.9)));
        QVERIFY(!path.contains(at(0, side * 20.1)));
    }
    const QPainterPath swapped = FixationOutline(samples::fixation({1000, 500}, 4, {-12, 16}, {40, 30})).path();
    QCOMPARE(swapped, path);
    QVERIFY(FixationOutline(samples::fixation({1, 1}, 4, {0, 0}, {0, 0})).path().isEmpty());
}

void TestOverlapClusters::touching_data()
{
    QTest::addColumn<Fixation>("first");
    QTest::addColumn<Fixation>("second");
    QTest::addColumn<bool>("expected");
    const Fixation first = disc({100, 100}, 10);
    const Fixation point = samples::fixation({100, 100});
    const auto slanted = [](int x) { return samples::fixation({x, 100}, 4, {50, 50}, {-1, 1}); };
    QTest::newRow("apart") << first << disc({121, 100}, 10) << false;
    QTest::newRow("overlapping") << first << disc({119, 100}, 10) << true;
    QTest::newRow("one within the other") << first << disc({101, 100}, 40) << true;
    QTest::newRow("the same") << first << first << true;
    QTest::newRow("same centre") << first << disc({100, 100}, 3) << true;
    QTest::newRow("bounds overlap, outlines do not") << slanted(100) << slanted(110) << false;
    QTest::newRow("slanted and overlapping") << slanted(100) << slanted(102) << true;
    QTest::newRow("two points of few samples at one place") << point << point << true;
    QTest::newRow("no axes at all") << samples::fixation({100, 100}, 4, {0, 0}) << first << false;
}

void TestOverlapClusters::touching()
{
    QFETCH(Fixation, first);
    QFETCH(Fixation, second);
    QTEST(touch(first, second), "expected");
}

void TestOverlapClusters::nothingToDo()
{
    QCOMPARE(built({}, 1), EyeData());
}

void TestOverlapClusters::oneAlone()
{
    // A list of one passes only a minimum of 0, which the panel does not offer.
    QCOMPARE(clusterSizes(built(line({100}), 1)), QList<qsizetype>());
    const EyeData eye = built(line({100}), 0);
    QCOMPARE(clusterSizes(eye), QList<qsizetype>({1}));
    QCOMPARE(clusterNumbers(eye), QList({1}));
}

void TestOverlapClusters::theMiddleDoesNotCount()
{
    QCOMPARE(clusterSizes(built(line({100, 110, 120}), 2)), QList<qsizetype>({3}));
    QCOMPARE(clusterSizes(built(line({100, 110, 120}), 3)), QList<qsizetype>());
}

void TestOverlapClusters::neighboursOfNeighboursDoNotJoin()
{
    // 100 touches 90 and 115, and 115 touches 130: two lists of three. The first one is taken; all others have one of
    // its fixations and are dropped, so that 130 stays without number.
    const EyeData eye = built(line({100, 90, 115, 130}), 1);
    QCOMPARE(clusterNumbers(eye), QList({1, 1, 1, 0}));
    QCOMPARE(clusterSizes(eye), QList<qsizetype>({3}));
    QCOMPARE(eye.fixationClusters[0].fixations[0].cluster, 1); // copies know their number
}

void TestOverlapClusters::firstAmongEquals()
{
    // Two pairs and four more of their kind: they are taken in the order of the fixations.
    const EyeData eye = built(line({500, 100, 505, 105, 900, 905}), 1);
    // After round 1 four lists are left, 2 < 4; after round 2 two lists, and 3 < 2 does not hold.
    QCOMPARE(clusterNumbers(eye), QList({1, 2, 1, 2, 0, 0}));
    QCOMPARE(eye.fixationClusters[0].mean, QPoint(502, 100));
    QCOMPARE(eye.fixationClusters[1].mean, QPoint(102, 100));
}

void TestOverlapClusters::lastListsAreNeverTakenUp()
{
    // Alone each: after round 1 three lists are left and 2 < 3, after round 2 two lists, and the third has no number.
    QCOMPARE(clusterNumbers(built(line({100, 200, 300, 400}), 0)), QList({1, 2, 0, 0}));
    QCOMPARE(clusterNumbers(built(line({100, 200, 300}), 0)), QList({1, 0, 0}));
    QCOMPARE(clusterNumbers(built(line({100, 200}), 0)), QList({1, 0}));
}

void TestOverlapClusters::groupsThatAreNoClustersHaveNumbers()
{
    // Round 1: three at 100. Round 2 to 4: one alone each, of no cluster. With seven lists left round after round it is
    // 2 < 7, 3 < 6, 4 < 5, 5 < 4.
    const EyeData eye = built(line({200, 300, 400, 500, 600, 700, 800, 100, 102, 104}), 1);
    QCOMPARE(clusterNumbers(eye), QList({2, 3, 4, 0, 0, 0, 0, 1, 1, 1}));
    QCOMPARE(clusterSizes(eye), QList<qsizetype>({3}));
}

void TestOverlapClusters::centreIsCutTowardsZero()
{
    const EyeData eye = built(stream({disc({-10, 10}, 10), disc({-11, 11}, 10)}), 1);
    QCOMPARE(eye.fixationClusters[0].mean, QPoint(-10, 10)); // -10.5 and 10.5
}

void TestOverlapClusters::centreIsSummedInSinglePrecision()
{
    // 2^24 + 1 has no place in a float: 16777217 reads as 16777216.
    const EyeData eye = built(stream({disc({16777217, 0}, 10), disc({16777217, 0}, 10)}), 1);
    QCOMPARE(eye.fixationClusters[0].mean, QPoint(16777216, 0));
    // Each of these places has, but not the sum of the first two: 16777216 / 3 = 5592405.3, 16777218 / 3 = 5592406.
    const EyeData sums = built(stream({disc({16777216, 0}, 2e7F), disc({1, 0}, 2e7F), disc({1, 0}, 2e7F)}), 2);
    QCOMPARE(sums.fixationClusters[0].mean, QPoint(5592405, 0));
}

void TestOverlapClusters::outliers_data()
{
    QTest::addColumn<QList<int>>("examinations"); // whose fixations are at the one place
    QTest::addColumn<int>("minimum");
    QTest::addColumn<int>("outliers");
    QTest::addColumn<bool>("isCluster");
    QTest::newRow("seen by all three") << QList({0, 1, 2}) << 1 << 0 << true;
    QTest::newRow("one is missing") << QList({0, 1, 1}) << 1 << 0 << false;
    QTest::newRow("one may be missing") << QList({0, 1, 1}) << 1 << 1 << true;
    QTest::newRow("two are missing and one may") << QList({2, 2, 2}) << 1 << 1 << false;
    QTest::newRow("each with the minimum") << QList({0, 0, 1, 1, 2, 2}) << 2 << 0 << true;
    QTest::newRow("one with less than the minimum") << QList({0, 0, 1, 1, 2}) << 2 << 0 << false;
    QTest::newRow("all may be missing, and it is large enough") << QList({7, 7, 7}) << 2 << 3 << true;
    QTest::newRow("all may be missing, and it is too small") << QList({0, 1, 2}) << 3 << 3 << false;
}

void TestOverlapClusters::outliers()
{
    QFETCH(QList<int>, examinations);
    QFETCH(int, minimum);
    QFETCH(int, outliers);
    QFETCH(bool, isCluster);
    EyeData eye;
    for (const int examination : examinations)
        eye.scanpath << disc({100, 100}, 10, examination);
    buildPooledOverlapClusters(eye, {minimum, outliers}, 3);
    QCOMPARE(eye.fixationClusters.size(), isCluster ? 1 : 0);
    QCOMPARE(eye.scanpath[0].cluster, 1); // with a number in any case
}

void TestOverlapClusters::placesBeyondTheCheckedOnesAreNotCounted()
{
    // Three examinations in the list, of which the first is not checked: the fixations are of places 1 and 2, and 2 is
    // not below the number of checked ones.
    EyeData eye = stream({disc({100, 100}, 10, 1), disc({100, 100}, 10, 2)});
    EyeData strict = eye;
    buildPooledOverlapClusters(strict, {1, 0}, 2);
    QVERIFY(strict.fixationClusters.isEmpty());
    buildPooledOverlapClusters(eye, {1, 1}, 2);
    QCOMPARE(eye.fixationClusters.size(), 1);
}

void TestOverlapClusters::withoutOutliersExaminationsAreNotToldApart()
{
    EyeData eye = stream({disc({100, 100}, 10, 0), disc({100, 100}, 10, 0)});
    buildPooledOverlapClusters(eye, {1, std::nullopt}, 5);
    QCOMPARE(eye.fixationClusters.size(), 1);
}

QTEST_GUILESS_MAIN(TestOverlapClusters)
#include "TestOverlapClusters.moc"
