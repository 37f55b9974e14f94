// SPDX-License-Identifier: GPL-3.0-or-later
#include "statistics/AoiEntropy.h"
#include "statistics/ScanpathMeasures.h"
#include "visualization/ToyData.h"

#include <QTest>

#include <cmath>
#include <numbers>

namespace {

double binaryEntropy(double p)
{
    return -p * std::log2(p) - (1 - p) * std::log2(1 - p);
}

} // namespace

class TestScanpathMeasures : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void wayOfTheEye();
    void angles();
    void nothing();
    void hull();
    void bcea();
    void entropyOfOneArea();
    void entropyOfARound();
    void entropyOfAChain();
    void entropyOfShortSequences();
    void areasOfTheScanpath();
};

void TestScanpathMeasures::wayOfTheEye()
{
    // 80 ms each; 50 px and 20 ms, then 100 px and 220 ms to the next.
    EyeData stream;
    stream.scanpath << toy::stay({0, 0}, 0) << toy::stay({30, 40}, 100) << toy::stay({130, 40}, 400);
    stream.gazePoints << toy::sample(0, 0, 0) << toy::sample(5, 0, 0, 0);
    const ScanpathMeasures found = scanpathMeasures(stream, AoiIndex({}), {0, 1000}, {});
    QCOMPARE(found.fixations, 3);
    QCOMPARE(found.saccades, 2);
    QCOMPARE(found.fixationDurationMs, 80.0);
    QCOMPARE(found.saccadeDurationMs, 120.0);
    QCOMPARE(found.amplitudePx, 75.0);
    QCOMPARE(found.lengthPx, 150.0);
    QCOMPARE(found.validShare, 0.5);
    QVERIFY(!found.amplitudeDegrees && !found.gazeEntropyBits);
}

void TestScanpathMeasures::angles()
{
    EyeData stream;
    stream.scanpath << toy::stay({0, 0}, 0) << toy::stay({1000, 0}, 100);
    // A pixel of a thousandth of the distance: 1000 px are as wide as the picture is far, 45 degrees.
    const ScanpathMeasures found = scanpathMeasures(stream, AoiIndex({}), {0, 1000}, 0.001);
    QVERIFY(std::abs(*found.amplitudeDegrees - 45.0) < 1e-12);
}

void TestScanpathMeasures::nothing()
{
    const ScanpathMeasures found = scanpathMeasures({}, AoiIndex({}), {0, 1000}, 0.001);
    QCOMPARE(found.fixations, 0);
    QCOMPARE(found.saccades, 0);
    for (const auto &value : {found.fixationDurationMs, found.amplitudePx, found.amplitudeDegrees, found.lengthPx,
                              found.hullAreaPx2, found.bceaPx2, found.validShare, found.transitionEntropyBits})
        QVERIFY(!value);
}

void TestScanpathMeasures::hull()
{
    EyeData stream;
    for (const QPoint place : {QPoint(0, 0), QPoint(10, 0), QPoint(10, 20), QPoint(0, 20), QPoint(5, 5), QPoint(5, 0)})
        stream.scanpath << toy::stay(place, 100 * stream.scanpath.size());
    const auto area = [&] { return scanpathMeasures(stream, AoiIndex({}), {0, 10000}, {}).hullAreaPx2; };
    QCOMPARE(area(), 200.0);
    stream.scanpath = {toy::stay({0, 0}, 0), toy::stay({5, 5}, 100), toy::stay({9, 9}, 200)};
    QCOMPARE(area(), 0.0); // on one line
    stream.scanpath = {toy::stay({1, 1}, 0), toy::stay({1, 1}, 100), toy::stay({1, 1}, 200)};
    QCOMPARE(area(), 0.0);
    stream.scanpath.removeLast();
    QVERIFY(!area());
}

void TestScanpathMeasures::bcea()
{
    // Squared distances from the mean sum up to 8 px^2 along each axis; no correlation.
    EyeData stream;
    for (const QPointF place : {QPointF(2, 0), QPointF(-2, 0), QPointF(0, 2), QPointF(0, -2)})
        stream.gazePoints << toy::sample(10 * stream.gazePoints.size(), place.x(), place.y());
    const double variance = 8.0 / 3;
    const double expected = 2 * -std::log(1 - 0.682) * std::numbers::pi * variance;
    QCOMPARE(*scanpathMeasures(stream, AoiIndex({}), {0, 100}, {}).bceaPx2, expected);
    for (GazePoint &sample : stream.gazePoints)
        sample.y = sample.x; // on one line
    QCOMPARE(*scanpathMeasures(stream, AoiIndex({}), {0, 100}, {}).bceaPx2, 0.0);
}

void TestScanpathMeasures::entropyOfOneArea()
{
    const AoiEntropy found = aoiEntropy({4, 4, 4});
    QCOMPARE(*found.gaze, 0.0);
    QCOMPARE(*found.transition, 0.0);
    QCOMPARE(*found.stationary, 0.0);
}

void TestScanpathMeasures::entropyOfARound()
{
    // Each area is followed by a certain one, and in the long run all four are seen equally often.
    const AoiEntropy found = aoiEntropy({0, 1, 2, 3, 0, 1, 2, 3, 0});
    QVERIFY(std::abs(*found.transition) < 1e-9);
    QVERIFY(std::abs(*found.stationary - 2) < 1e-9);
}

void TestScanpathMeasures::entropyOfAChain()
{
    // From 0: to 0 once, to 1 once; from 1: to 0 always. The long run solves s0 = s0 / 2 + s1: 2/3 and 1/3.
    const AoiEntropy found = aoiEntropy({0, 0, 1, 0, 0, 1, 0});
    QVERIFY(std::abs(*found.stationary - binaryEntropy(2.0 / 3)) < 1e-9);
    QVERIFY(std::abs(*found.transition - 2.0 / 3) < 1e-9); // one bit out of 0, none out of 1
    QVERIFY(std::abs(*found.gaze - binaryEntropy(5.0 / 7)) < 1e-12);
}

void TestScanpathMeasures::entropyOfShortSequences()
{
    QVERIFY(!aoiEntropy({}).gaze);
    QCOMPARE(*aoiEntropy({7}).gaze, 0.0);
    QVERIFY(!aoiEntropy({7}).transition);
    // 1 is never left: it goes on to both alike. s0 = s1 / 2: 1/3 and 2/3; one bit out of 1.
    const AoiEntropy found = aoiEntropy({0, 1});
    QVERIFY(std::abs(*found.stationary - binaryEntropy(1.0 / 3)) < 1e-9);
    QVERIFY(std::abs(*found.transition - 2.0 / 3) < 1e-9);
}

void TestScanpathMeasures::areasOfTheScanpath()
{
    const auto square = [](int left) {
        return AreaOfInterest(QString::number(left),
                              QPolygon({{left, 0}, {left + 100, 0}, {left + 100, 100}, {left, 100}}));
    };
    EyeData stream;
    for (const int x : {50, 500, 150, 50, 150}) // one lies in no area
        stream.scanpath << toy::stay({x, 50}, 100 * stream.scanpath.size());
    const ScanpathMeasures found = scanpathMeasures(stream, AoiIndex({square(0), square(100)}), {0, 1000}, {});
    QCOMPARE(*found.gazeEntropyBits, 1.0);
    QVERIFY(std::abs(*found.stationaryEntropyBits - 1) < 1e-9);
    QVERIFY(std::abs(*found.transitionEntropyBits) < 1e-9);
}

QTEST_GUILESS_MAIN(TestScanpathMeasures)
#include "TestScanpathMeasures.moc"
