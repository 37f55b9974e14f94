// SPDX-License-Identifier: GPL-3.0-or-later
#include "ToyData.h"
#include "visualization/heatmap/HeatmapScale.h"

#include <QTest>

#include <limits>

class TestHeatmapScale : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void options_data();
    void options();
    void perMinute_data();
    void perMinute();
    void eventsAroundThePeak_data();
    void eventsAroundThePeak();
    void gazePoints();
    void saccades();
    void nothingDense();
    void fixationsForEachExamination();
    void fixationsInPercent();
    void fixationsWithoutAbsoluteMaximum();
    void fixationsWithoutEventAroundThePeak();
    void classes();
};

namespace {

VisualizationParameters withScale(double power, int threshold, bool percent = false)
{
    VisualizationParameters parameters = toy::parameters();
    parameters.power = power;
    parameters.heatmapThreashold = threshold;
    parameters.percentMode = percent;
    return parameters;
}

} // namespace

void TestHeatmapScale::options_data()
{
    QTest::addColumn<int>("sigma");
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("transparency");
    QTest::addColumn<double>("power");
    QTest::addColumn<QList<double>>("expected"); // sigma, width, alpha, power
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    QTest::newRow("lowest") << 10 << 10 << 0 << 0.1 << QList<double>{10, 10, 255, 0.1};
    QTest::newRow("highest") << 100 << 200 << 255 << 1.0 << QList<double>{100, 200, 0, 1.0};
    QTest::newRow("below") << 9 << 9 << -1 << 0.09 << QList<double>{10, 10, 255, 1.0};
    QTest::newRow("above") << 101 << 201 << 256 << 1.01 << QList<double>{10, 10, 255, 1.0};
    QTest::newRow("no number") << 50 << 100 << 10 << nan << QList<double>{50, 100, 245, 1.0};
}

void TestHeatmapScale::options()
{
    QFETCH(int, sigma);
    QFETCH(int, width);
    QFETCH(int, transparency);
    QFETCH(double, power);
    VisualizationParameters parameters = withScale(power, 0);
    parameters.normalDistributionSigma = sigma;
    parameters.normalDistributionWidth = width;
    parameters.shadowTransparency = transparency;
    const NormalDistribution kernel = normalDistribution(parameters);
    const QList<double> found{double(kernel.sigma), double(kernel.width), double(shadowAlpha(parameters)),
                              shadowPower(parameters)};
    QTEST(found, "expected");
}

void TestHeatmapScale::perMinute_data()
{
    QTest::addColumn<qint64>("start");
    QTest::addColumn<qint64>("end");
    QTest::addColumn<double>("factor");
    QTest::newRow("a minute") << qint64(0) << qint64(60000) << 1.0;
    QTest::newRow("ten seconds") << qint64(5000) << qint64(15000) << 6.0;
    QTest::newRow("no length") << qint64(5000) << qint64(5000) << 1.0;
    QTest::newRow("backwards") << qint64(5000) << qint64(4000) << 1.0;
}

void TestHeatmapScale::perMinute()
{
    QFETCH(qint64, start);
    QFETCH(qint64, end);
    QTEST((TimeFrame{start, end}.perMinute()), "factor");
}

void TestHeatmapScale::eventsAroundThePeak_data()
{
    QTest::addColumn<QPoint>("event");
    QTest::addColumn<int>("around");
    QTest::newRow("at the peak") << QPoint(100, 200) << 1;
    QTest::newRow("just near enough") << QPoint(109, 191) << 1;
    QTest::newRow("half the width to the right") << QPoint(110, 200) << 0;
    QTest::newRow("half the width to the left") << QPoint(90, 200) << 0;
    QTest::newRow("half the width below") << QPoint(100, 210) << 0;
    QTest::newRow("as far as an int goes") << QPoint(std::numeric_limits<int>::min(), 200) << 0;
}

void TestHeatmapScale::eventsAroundThePeak()
{
    QFETCH(QPoint, event);
    QFETCH(int, around);
    const std::vector<GazePointEvent> events{{event.x(), event.y()}};
    QCOMPARE(eventsAround<GazePointEvent>({1, 100, 200}, events, 21), around); // half of 21 is 10
}

void TestHeatmapScale::gazePoints()
{
    // 40 points at a peak of 8: a point is 0.2. The last colour is for 50 points, the threshold 10 points a minute.
    QCOMPARE(gazePointScale(8, 40, 6, withScale(0.5, 10)), (AbsoluteScale{6, 2, 10, 50}));
    // Power 0: the peak has the last colour, and the label shows its points.
    QCOMPARE(gazePointScale(8, 40, 6, withScale(0, 10)), (AbsoluteScale{6, 2, 8, 40}));
    QCOMPARE(gazePointScale(8, 40, 6, withScale(-1, 0)), (AbsoluteScale{6, 0, 8, 40}));
}

void TestHeatmapScale::saccades()
{
    QCOMPARE(saccadeScale(8, 40, 100, withScale(0.5, 10)), (AbsoluteScale{1, 2, 10, 50}));
    QCOMPARE(saccadeScale(8, 0, 2, withScale(0, 10)), (AbsoluteScale{1, 80, 8, 1})); // the middle of a long saccade
    QCOMPARE(saccadeScale(0, 0, 1, withScale(0, 10)).maximum, 0.0);
}

void TestHeatmapScale::nothingDense()
{
    const AbsoluteScale scale = gazePointScale(0, 0, 1, withScale(1, 0));
    QVERIFY(std::isnan(scale.limit)); // no cell is above it
    QCOMPARE(scale.maximum, 100.0);
}

void TestHeatmapScale::fixationsForEachExamination()
{
    // 10 fixations at the peak of 4, 3 a minute each: 30 a minute. The box shows 20, for each of 2 examinations.
    const FixationScale scale = fixationScale(4, 10, 3, 2, withScale(0.2, 3));
    QCOMPARE(scale.colors.gain, 1.0);
    QCOMPARE(scale.colors.limit, 4.0 / 30 * 6);
    QCOMPARE(scale.colors.unit, 4.0 / 30 * 40);
    QCOMPARE(scale.colors.maximum, 20.0); // 40 over 2 examinations
    QCOMPARE(scale.top, 40.0 / 30 * 4);
    QCOMPARE(scale.lower, 6.0 / 30 * 4);
}

void TestHeatmapScale::fixationsInPercent()
{
    // Half of 30 a minute is the last colour, a tenth the threshold.
    const FixationScale scale = fixationScale(4, 10, 3, 2, withScale(0.5, 10, true));
    QCOMPARE(scale.colors.limit, 0.4);
    QCOMPARE(scale.colors.unit, 2.0);
    QCOMPARE(scale.colors.maximum, 7.5); // 15 over 2 examinations
    QCOMPARE(scale.top, 2.0);
    QCOMPARE(scale.lower, 0.4);
}

void TestHeatmapScale::fixationsWithoutAbsoluteMaximum()
{
    for (const bool percent : {false, true}) {
        const FixationScale scale = fixationScale(4, 10, 3, 2, withScale(0, 0, percent));
        QCOMPARE(scale.colors, (AbsoluteScale{1, 0, 4, 15}));
        QCOMPARE(scale.top, 4.0);
    }
    QCOMPARE(fixationScale(4, 10, 3, 0, withScale(0, 0)).colors.maximum, 30.0); // not divided by 0
}

void TestHeatmapScale::fixationsWithoutEventAroundThePeak()
{
    QCOMPARE(fixationScale(4, 0, 3, 1, withScale(0, 0)).colors, (AbsoluteScale{1, 0, 4, 1}));
}

void TestHeatmapScale::classes()
{
    Density density;
    const double values[] = {0.5, 1.0, 1.999, 2.0, 4.0, 6.0, 7.999, 8.0, 100.0};
    std::vector<FixationEvent> events;
    for (int i = 0; i < 9; ++i) {
        density.column(i)[3] = values[i];
        events.push_back({i, 3, 0, 0, 0, 0, 0});
    }
    events.push_back({-1, 3, 0, 0, 0, 0, 0}); // not on the canvas: in no class, but one of all events
    // Top 10, lower 0.5: what is not above it is in no class.
    QCOMPARE(classPercentages(density, events, 10, 0.5), (ClassPercentages{20, 10, 10, 20, 20}));
}

QTEST_GUILESS_MAIN(TestHeatmapScale)
#include "TestHeatmapScale.moc"
