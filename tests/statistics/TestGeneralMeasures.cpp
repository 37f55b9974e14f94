// SPDX-License-Identifier: GPL-3.0-or-later
#include "statistics/GeneralMeasures.h"
#include "statistics/RequiredForms.h"

#include <QTest>

#include <cmath>
#include <limits>

namespace {

GazePoint at(qint64 timeMs, double x, double y, int validity = 1)
{
    return {timeMs, x, y, 0, 0, validity};
}

} // namespace

class TestGeneralMeasures : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void speedsAndActivity();
    void firstSampleBiasesALateFrame();
    void oneSample();
    void noSample();
    void equalTimes();
    void constantPosition();
    void twoDecimals_data();
    void twoDecimals();
    void fewestInWindow_data();
    void fewestInWindow();
};

void TestGeneralMeasures::speedsAndActivity()
{
    // Whole pixels: (0,0), (3,4), (3,4): 5 px in 10 ms are 500 px/s, then 0. The invalid sample counts.
    const QList<GazePoint> samples{at(0, 0.9, 0.9), at(10, 3.5, 4.2, 0), at(20, 3.9, 4.9)};
    const GeneralStatistics found = generalStatistics(samples, {0, 20});
    QCOMPARE(found.minSpeed, 0.0);
    QCOMPARE(found.maxSpeed, 500.0);
    QCOMPARE(found.meanSpeed, 250.0);
    const double meanX = (0.9 + 3.5 + 3.9) / 3;
    const double deviationX =
        std::sqrt(((0.9 - meanX) * (0.9 - meanX) + (3.5 - meanX) * (3.5 - meanX) + (3.9 - meanX) * (3.9 - meanX)) / 3);
    QCOMPARE(found.horizontalActivity, std::floor(deviationX * 100 + 0.5) / 100);
    QVERIFY(found.verticalActivity > 1.7 && found.verticalActivity < 1.8); // of 0.9, 4.2 and 4.9: 1.7442
}

void TestGeneralMeasures::firstSampleBiasesALateFrame()
{
    // The frame has the last pair alone, of which the later sample counts; with the first one that is 0 and 100.
    const QList<GazePoint> samples{at(0, 0, 0), at(10, 50, 0), at(20, 90, 0), at(30, 100, 0)};
    const GeneralStatistics found = generalStatistics(samples, {20, 30});
    QCOMPARE(found.horizontalActivity, 50.0);
    QCOMPARE(found.minSpeed, 1000.0);
    QCOMPARE(found.maxSpeed, 1000.0);
}

void TestGeneralMeasures::oneSample()
{
    const GeneralStatistics found = generalStatistics({at(0, 7, 7)}, {0, 100});
    QCOMPARE(found.minSpeed, 1000000.0);
    QCOMPARE(found.maxSpeed, 0.0);
    QVERIFY(std::isnan(found.meanSpeed));
    QCOMPARE(found.horizontalActivity, 0.0);
}

void TestGeneralMeasures::noSample()
{
    const GeneralStatistics found = generalStatistics({}, {0, 100});
    QVERIFY(std::isnan(found.horizontalActivity));
    QCOMPARE(found.minSpeed, 1000000.0);
}

void TestGeneralMeasures::equalTimes()
{
    const GeneralStatistics found = generalStatistics({at(5, 0, 0), at(5, 10, 0)}, {0, 100});
    QVERIFY(std::isinf(found.maxSpeed) && std::isinf(found.meanSpeed));
    QCOMPARE(found.minSpeed, 1000000.0);
}

void TestGeneralMeasures::constantPosition()
{
    QList<GazePoint> samples;
    for (int i = 0; i < 1000; ++i)
        samples << at(i, 1234.567, 0.1);
    const GeneralStatistics found = generalStatistics(samples, {0, 1000});
    QVERIFY(!std::isnan(found.horizontalActivity));
    QCOMPARE(found.verticalActivity, 0.0);
}

void TestGeneralMeasures::twoDecimals_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<double>("rounded");
    QTest::newRow("down") << 1.234 << 1.23;
    QTest::newRow("up") << 1.236 << 1.24;
    QTest::newRow("half away from zero") << 0.125 << 0.13;
    QTest::newRow("zero") << 0.0 << 0.0;
    QTest::newRow("cut towards zero below it") << -1.239 << -1.23;
    QTest::newRow("infinite") << std::numeric_limits<double>::infinity() << std::numeric_limits<double>::infinity();
}

void TestGeneralMeasures::twoDecimals()
{
    QFETCH(double, value);
    QTEST(required::twoDecimals(value), "rounded");
}

void TestGeneralMeasures::fewestInWindow_data()
{
    QTest::addColumn<QList<qint64>>("times");
    QTest::addColumn<int>("fewest");
    constexpr qint64 hour = 3600000;
    QTest::newRow("none") << QList<qint64>{} << -1;
    QTest::newRow("the first window has not ended") << QList<qint64>{1, 2, hour} << -1;
    QTest::newRow("it has: the last one does not count") << QList<qint64>{1, 2, hour + 1} << 2;
    QTest::newRow("the smaller of two") << QList<qint64>{1, 2, 3, hour + 1, 2 * hour + 1} << 1;
    QTest::newRow("windows double") << QList<qint64>{1, 2, hour + 1, 2 * hour + 1, 3 * hour, 4 * hour, 4 * hour + 1}
                                    << 1;
    QTest::newRow("an empty window does not count") << QList<qint64>{1, 2, 3 * hour} << 2;
    QTest::newRow("damaged clock") << QList<qint64>{1, std::numeric_limits<qint64>::max()} << 1;
}

void TestGeneralMeasures::fewestInWindow()
{
    QFETCH(QList<qint64>, times);
    QTEST(required::fewestInWindow(times), "fewest");
}

QTEST_GUILESS_MAIN(TestGeneralMeasures)
#include "TestGeneralMeasures.moc"
