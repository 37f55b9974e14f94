// SPDX-License-Identifier: GPL-3.0-or-later
#include "statistics/GazeEvents.h"
#include "visualization/ToyData.h"

#include <QTest>

#include <cmath>
#include <numbers>

using toy::sample;

namespace {

bool isClose(std::optional<double> value, double expected)
{
    return value && std::abs(*value - expected) <= 1e-12 * std::max(1.0, std::abs(expected));
}

} // namespace

class TestGazeEvents : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void speedOfPairs();
    void speedWithoutPair_data();
    void speedWithoutPair();
    void dispersion();
    void steps();
    void directions_data();
    void directions();
    void stepsInFrame();
    void losses_data();
    void losses();
    void visits();
};

/// 3-4-5 triangles: 5 px in 10 ms are 500 px/s, 10 px in 40 ms are 250 px/s; together 15 px in 50 ms.
void TestGazeEvents::speedOfPairs()
{
    const QList<GazePoint> samples{sample(0, 0, 0), sample(10, 3, 4), sample(50, 9, 12)};
    const GazeSpeed speed = gazeSpeed(samples, 0.001);
    QVERIFY(isClose(speed.meanPxPerS, 300));
    QVERIFY(isClose(speed.peakPxPerS, 500));
    const double first = std::atan(0.005) * 180 / std::numbers::pi;
    const double second = std::atan(0.010) * 180 / std::numbers::pi;
    QVERIFY(isClose(speed.meanDegreesPerS, (first + second) / 0.05));
    QVERIFY(isClose(speed.peakDegreesPerS, first / 0.01));
    QCOMPARE(gazeSpeed(samples, {}).peakDegreesPerS, std::nullopt);
}

void TestGazeEvents::speedWithoutPair_data()
{
    QTest::addColumn<QList<GazePoint>>("samples");
    QTest::newRow("no sample") << QList<GazePoint>();
    QTest::newRow("one sample") << QList<GazePoint>{sample(0, 1, 1)};
    QTest::newRow("an invalid one between") << QList<GazePoint>{sample(0, 1, 1), sample(4, 0, 0, 0), sample(8, 2, 2)};
    QTest::newRow("two of one time") << QList<GazePoint>{sample(4, 1, 1), sample(4, 9, 9)};
    QTest::newRow("backwards in time") << QList<GazePoint>{sample(4, 1, 1), sample(0, 9, 9)};
}

void TestGazeEvents::speedWithoutPair()
{
    QFETCH(QList<GazePoint>, samples);
    QCOMPARE(gazeSpeed(samples, 0.001), GazeSpeed());
}

void TestGazeEvents::dispersion()
{
    QCOMPARE(dispersionPx(GazeSamples{sample(0, 10, 5), sample(4, 12.5, 1), sample(8, 900, 900, 0)}),
             std::optional(2.5 + 4));
    QCOMPARE(dispersionPx(GazeSamples{sample(0, -3, 5)}), std::optional(0.0));
    QCOMPARE(dispersionPx(GazeSamples{sample(0, 1, 1, 0)}), std::nullopt);
}

/// From (50, 50) to (53, 46): 5 px, up to the right. The window has the last sample of the one and the first of the
/// other.
void TestGazeEvents::steps()
{
    EyeData stream;
    stream.gazePoints = {sample(0, 50, 50),   sample(80, 50, 50),  sample(90, 51, 49), sample(95, 0, 0, 0),
                         sample(100, 53, 46), sample(180, 53, 46), sample(300, 9, 9)};
    stream.scanpath = {toy::stay({50, 50}, 0), toy::stay({53, 46}, 100)};
    const QList<GazeStep> steps = gazeSteps(stream, {0, 1000});
    QCOMPARE(steps.size(), qsizetype(1));
    QCOMPARE(steps[0].onsetMs(), qint64(80));
    QCOMPARE(steps[0].durationMs(), qint64(20));
    QCOMPARE(steps[0].amplitudePx(), 5.0);
    QVERIFY(isClose(steps[0].directionDegree(), std::atan2(4, 3) * 180 / std::numbers::pi));
    QCOMPARE(steps[0].samples.size(), size_t(4));
    QCOMPARE(steps[0].samples.front().time, qint64(80));
    QCOMPARE(steps[0].samples.back().time, qint64(100));
}

void TestGazeEvents::directions_data()
{
    QTest::addColumn<QPoint>("to");
    QTest::addColumn<double>("degrees"); // -1: none
    QTest::newRow("right") << QPoint(60, 50) << 0.0;
    QTest::newRow("up") << QPoint(50, 40) << 90.0;
    QTest::newRow("left") << QPoint(40, 50) << 180.0;
    QTest::newRow("down") << QPoint(50, 60) << 270.0;
    QTest::newRow("nowhere") << QPoint(50, 50) << -1.0;
}

void TestGazeEvents::directions()
{
    QFETCH(QPoint, to);
    QFETCH(double, degrees);
    const Fixation from = toy::stay({50, 50}, 0);
    const Fixation target = toy::stay(to, 100);
    const GazeStep step{&from, &target, {}};
    if (degrees < 0)
        QCOMPARE(step.directionDegree(), std::nullopt);
    else
        QVERIFY(isClose(step.directionDegree(), degrees));
}

void TestGazeEvents::stepsInFrame()
{
    EyeData stream;
    for (int i = 0; i < 5; ++i)
        stream.scanpath << toy::stay({10 * i, 0}, 100 * i);
    QCOMPARE(gazeSteps(stream, {0, 1000}).size(), qsizetype(4));
    QCOMPARE(gazeSteps(stream, {50, 380}).size(), qsizetype(2)); // fixations from 100 to 380
    QCOMPARE(gazeSteps(stream, {50, 379}).size(), qsizetype(1));
    QCOMPARE(gazeSteps(stream, {50, 200}).size(), qsizetype(0)); // one fixation
    QCOMPARE(gazeSteps({}, {0, 1000}).size(), qsizetype(0));
}

void TestGazeEvents::losses_data()
{
    QTest::addColumn<QList<int>>("validity"); // a sample each 10 ms
    QTest::addColumn<QList<GazeLoss>>("expected");
    QTest::newRow("none") << QList<int>{1, 1} << QList<GazeLoss>();
    QTest::newRow("until the next valid one") << QList<int>{1, 0, 0, 1} << QList<GazeLoss>{{10, 20, 2, false}};
    QTest::newRow("at the start") << QList<int>{0, 1} << QList<GazeLoss>{{0, 10, 1, false}};
    QTest::newRow("at the end") << QList<int>{1, 0, 0} << QList<GazeLoss>{{10, 10, 2, true}};
    QTest::newRow("one sample at the end") << QList<int>{1, 0} << QList<GazeLoss>{{10, 0, 1, true}};
    QTest::newRow("two") << QList<int>{0, 1, 0, 1} << QList<GazeLoss>{{0, 10, 1, false}, {20, 10, 1, false}};
    QTest::newRow("beyond the frame") << QList<int>{1, 0, 0, 0, 0, 0, 0, 1} << QList<GazeLoss>{{10, 40, 5, true}};
}

void TestGazeEvents::losses()
{
    QFETCH(QList<int>, validity);
    QFETCH(QList<GazeLoss>, expected);
    QList<GazePoint> samples;
    for (qsizetype i = 0; i < validity.size(); ++i)
        samples << sample(10 * i, 1, 1, validity[i]);
    QCOMPARE(gazeLosses(samples, {0, 50}), expected);
}

/// Two fixations inside, one outside, one inside; the last one lies beyond the frame.
void TestGazeEvents::visits()
{
    const AoiIndex index({AreaOfInterest(QStringLiteral("a"), QPolygon({{0, 0}, {100, 0}, {100, 100}, {0, 100}}))});
    const QList<Fixation> fixations{toy::stay({50, 50}, 0), toy::stay({60, 50}, 100), toy::stay({100, 50}, 200),
                                    toy::stay({0, 0}, 300), toy::stay({50, 50}, 400)};
    QCOMPARE(visitsOfArea(index[0], fixations, {0, 450}),
             (QList<AoiVisit>{{.onsetMs = 0, .durationMs = 180, .dwellMs = 160, .fixations = 2},
                              {.onsetMs = 300, .durationMs = 80, .dwellMs = 80, .fixations = 1}}));
    QCOMPARE(visitsOfArea(index[0], {}, {0, 450}), QList<AoiVisit>());
}

QTEST_GUILESS_MAIN(TestGazeEvents)
#include "TestGazeEvents.moc"
