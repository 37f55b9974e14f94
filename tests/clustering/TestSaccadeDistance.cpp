// SPDX-License-Identifier: GPL-3.0-or-later
#include "SaccadeSamples.h"

#include <QTest>

#include <limits>

using samples::saccade;

class TestSaccadeDistance : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void vectorBetween_data();
    void vectorBetween();
    void angleBetween_data();
    void angleBetween();
    void pointToSegment_data();
    void pointToSegment();
    void leastOfFour_data();
    void leastOfFour();
    void damagedPlacesDoNotOverflow();
};

namespace {

constexpr int largest = std::numeric_limits<int>::max();

SaccadeVector withAngle(int angle)
{
    SaccadeVector vector;
    vector.angle = angle;
    return vector;
}

} // namespace

void TestSaccadeDistance::vectorBetween_data()
{
    QTest::addColumn<QPoint>("end");
    QTest::addColumn<int>("angle");
    QTest::addColumn<int>("length");
    QTest::newRow("right is a full turn") << QPoint(200, 100) << 360 << 100;
    QTest::newRow("no movement, too") << QPoint(100, 100) << 360 << 0;
    QTest::newRow("down") << QPoint(100, 150) << 90 << 50;
    QTest::newRow("left") << QPoint(50, 100) << 180 << 50;
    QTest::newRow("up") << QPoint(100, 50) << 270 << 50;
    QTest::newRow("hardly down: atan(1 / 100) = 0.57 degrees") << QPoint(200, 101) << 0 << 100;
    QTest::newRow("hardly up: 360 - 0.57") << QPoint(200, 99) << 359 << 100;
    QTest::newRow("3 right, 4 down: atan(4 / 3) = 53.13") << QPoint(103, 104) << 53 << 5;
    QTest::newRow("cut length: sqrt(2) = 1.41") << QPoint(101, 101) << 45 << 1;
}

void TestSaccadeDistance::vectorBetween()
{
    QFETCH(QPoint, end);
    const SaccadeVector vector({100, 100}, end, 7, 9);
    QTEST(vector.angle, "angle");
    QTEST(vector.length, "length");
    QCOMPARE(vector.start, QPoint(100, 100));
    QCOMPARE(vector.end, end);
    QCOMPARE(vector.startTime, 7);
    QCOMPARE(vector.endTime, 9);
}

void TestSaccadeDistance::angleBetween_data()
{
    QTest::addColumn<int>("a");
    QTest::addColumn<int>("b");
    QTest::addColumn<int>("directed");
    QTest::addColumn<int>("undirected");
    QTest::newRow("equal") << 30 << 30 << 0 << 0;
    QTest::newRow("right and hardly down are one direction") << 360 << 0 << 0 << 0;
    QTest::newRow("across zero") << 350 << 10 << 20 << 20;
    QTest::newRow("at right angles") << 0 << 90 << 90 << 90;
    QTest::newRow("91 is nearer to the way back") << 0 << 91 << 91 << 89;
    QTest::newRow("179") << 1 << 180 << 179 << 1;
    QTest::newRow("opposite") << 90 << 270 << 180 << 0;
    QTest::newRow("181 is 179") << 0 << 181 << 179 << 1;
}

void TestSaccadeDistance::angleBetween()
{
    QFETCH(int, a);
    QFETCH(int, b);
    for (const auto &[one, other] : {std::pair(a, b), std::pair(b, a)}) {
        QTEST(angleDistance(withAngle(one), withAngle(other), Direction::Counts), "directed");
        QTEST(angleDistance(withAngle(one), withAngle(other), Direction::DoesNotCount), "undirected");
    }
}

/// Of the point to the segment from (10,20) to (20,20), d = (10,0), d * d = 100.
void TestSaccadeDistance::pointToSegment_data()
{
    QTest::addColumn<QPoint>("point");
    QTest::addColumn<int>("euclidean");
    QTest::addColumn<int>("manhattan");
    QTest::newRow("at the start") << QPoint(10, 20) << 0 << 0;
    QTest::newRow("t = 0.5 counts as 0: to the start (5,3)") << QPoint(15, 23) << 5 << 8; // sqrt(34) = 5.83
    QTest::newRow("t = 0.9, too: (9,0)") << QPoint(19, 20) << 9 << 9;
    QTest::newRow("t = 1, the very end: from the sum (30,40), (10,20)") << QPoint(20, 20) << 22 << 30; // 22.36
    QTest::newRow("t = 1.9: from the sum (30,40), (1,0)") << QPoint(29, 40) << 1 << 1;
    QTest::newRow("t = 2: to the end (10,0)") << QPoint(30, 20) << 10 << 10;
    QTest::newRow("t = -0.9 counts as 0: (9,0)") << QPoint(1, 20) << 9 << 9;
    QTest::newRow("t = -1: to the start (10,1)") << QPoint(0, 21) << 10 << 11; // sqrt(101) = 10.05
    QTest::newRow("t = -2: to the start") << QPoint(-10, 20) << 20 << 20;
}

void TestSaccadeDistance::pointToSegment()
{
    QFETCH(QPoint, point);
    QTEST(pointToSegmentDistance(point, {10, 20}, {20, 20}, DistanceAlgorithm::Euclidean), "euclidean");
    QTEST(pointToSegmentDistance(point, {10, 20}, {20, 20}, DistanceAlgorithm::Manhattan), "manhattan");
}

void TestSaccadeDistance::leastOfFour_data()
{
    QTest::addColumn<SaccadeVector>("a");
    QTest::addColumn<SaccadeVector>("b");
    QTest::addColumn<int>("euclidean");
    QTest::addColumn<int>("manhattan");
    const SaccadeVector level = saccade({10, 20}, {20, 20});
    QTest::newRow("the same: start on start") << level << level << 0 << 0;
    QTest::newRow("side by side: the starts are (0,5) apart") << level << saccade({10, 25}, {20, 25}) << 5 << 5;
    QTest::newRow("crossing: all four ends are nearest to a start or end, (5,5) apart at least")
        << saccade({100, 105}, {110, 105}) << saccade({105, 100}, {105, 110}) << 7 << 10; // sqrt(50) = 7.07
    // (33,44) has t = 2.3 on the first: to its end (13,24). (60,44) has t = 5, (40,24). The first's ends lie before the
    // second's start: t = -23 / 27 and -13 / 27 count as 0, (23,24) and (13,24).
    QTest::newRow("apart") << level << saccade({33, 44}, {60, 44}) << 27 << 37; // sqrt(745) = 27.29
    QTest::newRow("two without length, (3,4) apart: t is no number and counts as 0")
        << saccade({10, 10}, {10, 10}) << saccade({13, 14}, {13, 14}) << 5 << 7;
    QTest::newRow("one without length: t = 0.3 counts as 0, (3,4)") << saccade({13, 24}, {13, 24}) << level << 5 << 7;
}

void TestSaccadeDistance::leastOfFour()
{
    QFETCH(SaccadeVector, a);
    QFETCH(SaccadeVector, b);
    for (const auto &[one, other] : {std::pair(a, b), std::pair(b, a)}) {
        QTEST(segmentDistance(one, other, DistanceAlgorithm::Euclidean), "euclidean");
        QTEST(segmentDistance(one, other, DistanceAlgorithm::Manhattan), "manhattan");
    }
}

void TestSaccadeDistance::damagedPlacesDoNotOverflow()
{
    const SaccadeVector across({0, largest}, {largest, 0}, 0, 0);
    QCOMPARE(across.length, largest); // 1.41 times as long
    QCOMPARE(across.angle, 315);
    // The end has t = 1; the sum of both ends is as far from it as 0 from the largest.
    QCOMPARE(pointToSegmentDistance(across.end, across.start, across.end, DistanceAlgorithm::Manhattan), largest);
    QCOMPARE(segmentDistance(across, saccade({1, 0}, {2, 0}), DistanceAlgorithm::Manhattan), largest - 2);
}

QTEST_GUILESS_MAIN(TestSaccadeDistance)
#include "TestSaccadeDistance.moc"
