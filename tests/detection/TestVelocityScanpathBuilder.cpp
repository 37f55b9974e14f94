// SPDX-License-Identifier: GPL-3.0-or-later
#include "detection/VelocityScanpathBuilder.h"

#include <QTest>

#include <limits>

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

/// Valid samples on one row of the image at these places, so many ms apart.
QList<GazePoint> samplesAt(const QList<double> &places, qint64 intervalMs = 10)
{
    QList<GazePoint> samples;
    for (const double x : places)
        samples << GazePoint(intervalMs * samples.size(), x, 300, 0, 0, 1);
    return samples;
}

VelocityParameters pixelsPerMs(double threshold, int minimumDurationMs = 0)
{
    return {.minimumDurationMs = minimumDurationMs, .threshold = threshold, .unit = VelocityUnit::PixelPerMs};
}

QList<Fixation> fixationsOf(const QList<GazePoint> &samples, const VelocityParameters &parameters)
{
    QList<Fixation> scanpath;
    const VelocityScanpathBuilder builder(samples, &scanpath, parameters);
    return scanpath;
}

/// Onsets and ends in ms, "10-30 50-70".
QString spansOf(const QList<Fixation> &fixations)
{
    QStringList spans;
    for (const Fixation &fixation : fixations)
        spans << QStringLiteral("%1-%2").arg(fixation.firstTime()).arg(fixation.lastTime());
    return spans.join(u' ');
}

} // namespace

class TestVelocityScanpathBuilder : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void threshold_data();
    void threshold();
    void thresholdIsCutToAWholeNumber_data();
    void thresholdIsCutToAWholeNumber();
    void degrees_data();
    void degrees();
    void minimumDuration_data();
    void minimumDuration();
    void runs_data();
    void runs();
    void recordOfAFixation();
    void samplesAreSharedWithTheRecording();
    void centroid_data();
    void centroid();
    void numbersFollowTheList();
    void withoutListNothingIsKept();
    void reportIsEmpty();
    void percentileSpeed_data();
    void percentileSpeed();
    void percentileThreshold();
};

void TestVelocityScanpathBuilder::threshold_data()
{
    QTest::addColumn<double>("stepPx"); // in 10 ms; the threshold is 2 px/ms
    QTest::addColumn<qsizetype>("fixations");
    QTest::newRow("slower is a fixation") << 19.0 << qsizetype(1);
    QTest::newRow("a little slower, too") << 20 - 1e-9 << qsizetype(1);
    QTest::newRow("equal is not") << 20.0 << qsizetype(0);
    QTest::newRow("faster is not") << 21.0 << qsizetype(0);
    QTest::newRow("no step at all is a fixation") << 0.0 << qsizetype(1);
    QTest::newRow("not a number is not") << notANumber << qsizetype(0);
    QTest::newRow("infinite is not") << infinity << qsizetype(0);
}

void TestVelocityScanpathBuilder::threshold()
{
    QFETCH(double, stepPx);
    const QList<GazePoint> samples = samplesAt({100, 100 + stepPx, 100 + 2 * stepPx, 5000});
    QTEST(fixationsOf(samples, pixelsPerMs(2)).size(), "fixations");
}

void TestVelocityScanpathBuilder::thresholdIsCutToAWholeNumber_data()
{
    QTest::addColumn<double>("threshold");
    QTest::addColumn<qsizetype>("fixations"); // of steps of 10.5 px/ms
    QTest::newRow("10.75 works as 10") << 10.75 << qsizetype(0);
    QTest::newRow("11") << 11.0 << qsizetype(1);
    QTest::newRow("0.9 works as 0") << 0.9 << qsizetype(0);
    QTest::newRow("beyond int") << 1e20 << qsizetype(0); // nothing is as fast, so nothing ends the run
    QTest::newRow("not a number works as 0") << notANumber << qsizetype(0);
}

void TestVelocityScanpathBuilder::thresholdIsCutToAWholeNumber()
{
    QFETCH(double, threshold);
    QTEST(fixationsOf(samplesAt({0, 105, 210, 315, 9000}), pixelsPerMs(threshold)).size(), "fixations");
}

/// At 0.6 m before 0.4 m on 1000 px, a step of n px is atan(n * 0.0004 / 0.6) wide; 26.18 px are 1 degree.
void TestVelocityScanpathBuilder::degrees_data()
{
    QTest::addColumn<double>("stepPx");    // in 10 ms
    QTest::addColumn<double>("threshold"); // degrees/s
    QTest::addColumn<qsizetype>("fixations");
    QTest::newRow("just slower than 100 degrees/s") << 26.18 << 100.0 << qsizetype(1);
    QTest::newRow("just faster") << 26.19 << 100.0 << qsizetype(0);
    QTest::newRow("the fraction of the threshold is cut off") << 26.19 << 100.99 << qsizetype(0);
    QTest::newRow("one degree more") << 26.19 << 101.0 << qsizetype(1);
}

void TestVelocityScanpathBuilder::degrees()
{
    QFETCH(double, stepPx);
    QFETCH(double, threshold);
    const VelocityParameters parameters{.minimumDurationMs = 0,
                                        .threshold = threshold,
                                        .unit = VelocityUnit::DegreePerS,
                                        .screenDistanceM = 0.6,
                                        .imageSizeM = 0.4,
                                        .imageWidthPx = 1000};
    QTEST(fixationsOf(samplesAt({0, stepPx, 2 * stepPx, 9000}), parameters).size(), "fixations");
}

void TestVelocityScanpathBuilder::minimumDuration_data()
{
    QTest::addColumn<int>("minimumMs"); // the run lasts 20 ms
    QTest::addColumn<qsizetype>("fixations");
    QTest::newRow("shorter") << 19 << qsizetype(1);
    QTest::newRow("exactly as long is rejected") << 20 << qsizetype(0);
    QTest::newRow("longer") << 21 << qsizetype(0);
    QTest::newRow("negative") << -1 << qsizetype(1);
}

void TestVelocityScanpathBuilder::minimumDuration()
{
    QFETCH(int, minimumMs);
    QTEST(fixationsOf(samplesAt({100, 100, 100, 100, 900}), pixelsPerMs(1, minimumMs)).size(), "fixations");
}

void TestVelocityScanpathBuilder::runs_data()
{
    QTest::addColumn<QList<GazePoint>>("samples");
    QTest::addColumn<QString>("spans");
    const QList<GazePoint> two = samplesAt({100, 100, 100, 100, 900, 900, 900, 100, 100, 100});
    QTest::newRow("the first sample is in none, the last fixation is not closed") << two << "10-30 50-60";
    QTest::newRow("no sample") << QList<GazePoint>() << "";
    QTest::newRow("one sample") << two.first(1) << "";
    QTest::newRow("a recording that ends within its fixation") << two.first(4) << "";
    QTest::newRow("a fast step closes once") << samplesAt({100, 100, 100, 900, 100, 900, 900}) << "10-20";

    QList<GazePoint> lost = two;
    lost[2].validFlag = false;
    QTest::newRow("an invalid sample neither ends nor joins") << lost << "10-30 50-60";
    lost[2].x = lost[2].y = 0;
    QTest::newRow("the sample after a loss is measured from the lost one") << lost << "50-60";
    QList<GazePoint> still = two;
    still[6].time = still[5].time;
    QTest::newRow("no time without a step is no number and ends the fixation") << still << "10-30";
    still[6].x += 1;
    QTest::newRow("no time with a step is infinitely fast and ends it, too") << still << "10-30";
    QList<GazePoint> backwards = two;
    backwards[4].time = 25; // 900 px in -5 ms: slower than anything
    QTest::newRow("a clock that runs backwards") << backwards << "10-60";
    QList<GazePoint> damaged = two;
    damaged[2].x = notANumber;
    QTest::newRow("a coordinate that is not a number ends two steps") << damaged << "50-60";
}

void TestVelocityScanpathBuilder::runs()
{
    QFETCH(QList<GazePoint>, samples);
    QTEST(spansOf(fixationsOf(samples, pixelsPerMs(1))), "spans");
}

void TestVelocityScanpathBuilder::recordOfAFixation()
{
    QList<GazePoint> samples = samplesAt({100, 101, 102, 104, 900});
    samples[2].validFlag = false;
    const QList<Fixation> found = fixationsOf(samples, pixelsPerMs(1));
    QCOMPARE(found.size(), 1);
    QCOMPARE(found[0], Fixation({samples[1], samples[3]}, QStringLiteral("fixation"), {102, 300}, 1));
    QCOMPARE(found[0].cluster, 0);
}

void TestVelocityScanpathBuilder::samplesAreSharedWithTheRecording()
{
    const QList<GazePoint> samples = samplesAt({100, 101, 102, 104, 900});
    const QList<Fixation> found = fixationsOf(samples, pixelsPerMs(1));
    QCOMPARE(found.size(), 1);
    QCOMPARE(found[0].samples, samples.sliced(1, 3));
    QCOMPARE(found[0].samples.data(), samples.constData() + 1);
}

void TestVelocityScanpathBuilder::centroid_data()
{
    QTest::addColumn<QList<double>>("places"); // of the samples in the fixation
    QTest::addColumn<int>("x");
    QTest::newRow("each sum is cut: 10, 21, 32") << QList<double>{10.9, 11.9, 11.9} << 10;
    QTest::newRow("a whole division: 31 / 3") << QList<double>{10, 10, 11} << 10;
    QTest::newRow("towards zero: -31 / 3") << QList<double>{-10, -10, -11} << -10;
    QTest::newRow("sums beyond 32 bits") << QList<double>{2000000000, 2000000000} << 2000000000;
    QTest::newRow("places beyond 32 bits end at them") << QList<double>{1e15, 1e15} << std::numeric_limits<int>::max();
}

void TestVelocityScanpathBuilder::centroid()
{
    QFETCH(QList<double>, places);
    places.prepend(places.constFirst());
    places.append(places.constLast() + 1e9);
    const QList<Fixation> found = fixationsOf(samplesAt(places), pixelsPerMs(1));
    QCOMPARE(found.size(), 1);
    QTEST(found[0].mean.x(), "x");
    QCOMPARE(found[0].mean.y(), 300);
}

void TestVelocityScanpathBuilder::numbersFollowTheList()
{
    // a fixation of 20 ms, one of 10 ms, which uses up no number, and one of 30 ms
    const QList<GazePoint> samples = samplesAt({0, 0, 0, 0, 500, 500, 500, 0, 0, 0, 0, 0, 500});
    QList<Fixation> scanpath{Fixation(), Fixation()};
    const VelocityScanpathBuilder builder(samples, &scanpath, pixelsPerMs(1, 10));
    QCOMPARE(scanpath.size(), 4);
    QCOMPARE(scanpath[2].number, 3);
    QCOMPARE(scanpath[3].number, 4);
    QCOMPARE(spansOf(scanpath.sliced(2)), QStringLiteral("10-30 80-110"));
}

void TestVelocityScanpathBuilder::withoutListNothingIsKept()
{
    const QList<GazePoint> samples = samplesAt({0, 0, 0, 0, 500});
    const VelocityScanpathBuilder builder(samples, nullptr, pixelsPerMs(1));
    QVERIFY(builder.report().isEmpty());
}

void TestVelocityScanpathBuilder::reportIsEmpty()
{
    QList<Fixation> scanpath;
    QCOMPARE(VelocityScanpathBuilder(samplesAt({0, 0, 0, 500}), &scanpath, pixelsPerMs(1)).report(), QString());
    QCOMPARE(scanpath.size(), 1);
}

/// Steps of 1, 2, 3 ... px in 1 ms, in a mixed order.
QList<GazePoint> speedsUpTo(int count)
{
    QList<double> places{0};
    for (int i = 0; i < count; ++i)
        places << places.constLast() + 1 + i * 37 % count; // 37 has no divisor in common with the counts below
    return samplesAt(places, 1);
}

void TestVelocityScanpathBuilder::percentileSpeed_data()
{
    QTest::addColumn<QList<GazePoint>>("samples");
    QTest::addColumn<int>("percent");
    QTest::addColumn<double>("speed");
    const auto row = [](const char *name, int count, int percent, double speed) {
        QTest::newRow(name) << speedsUpTo(count) << percent << speed;
    };
    row("100 speeds, none of them", 100, 0, 1);
    row("100 speeds, half of them", 100, 50, 51);
    row("100 speeds, all but one", 100, 99, 100);
    row("100 speeds, all: the last", 100, 100, 100);
    row("more than all", 100, 5000, 100);
    row("less than none", 100, -3, 1);
    row("199 speeds move in steps of one", 199, 50, 51);
    row("199 speeds, all: place 100", 199, 100, 101);
    row("200 speeds move in steps of two", 200, 50, 101);
    row("99 speeds: always the slowest", 99, 99, 1);
    row("one speed", 1, 50, 1);
    QTest::newRow("one sample") << speedsUpTo(0) << 50 << 0.0;
    QTest::newRow("no sample") << QList<GazePoint>() << 50 << 0.0;

    QList<GazePoint> lost = speedsUpTo(100);
    for (GazePoint &sample : lost)
        sample.validFlag = false;
    QTest::newRow("invalid samples count") << lost << 50 << 51.0;
    QList<GazePoint> still = speedsUpTo(100);
    still[1].time = 0; // the speed of 1 px/ms becomes infinite, and the next is half as fast: 38 becomes 19
    QTest::newRow("no time is infinitely fast") << still << 100 << infinity;
    QTest::newRow("and the others move down") << still << 0 << 2.0;
    still[1].x = 0; // 0 px in 0 ms, and 39 in the next 2 ms
    QTest::newRow("not a number counts as faster than all") << still << 98 << 100.0;
}

void TestVelocityScanpathBuilder::percentileSpeed()
{
    QFETCH(QList<GazePoint>, samples);
    QFETCH(int, percent);
    QTEST(::percentileSpeed(samples, percent), "speed");
}

void TestVelocityScanpathBuilder::percentileThreshold()
{
    // 80 steps of 1 px/ms in pairs between 20 of 50 and more: the 85th of 100 is a fast one
    QList<double> places{0};
    for (int i = 0; i < 20; ++i) {
        for (int k = 0; k < 4; ++k)
            places << places.constLast() + 1;
        places << places.constLast() + 50 + i;
    }
    VelocityParameters parameters{.minimumDurationMs = 2, .threshold = 80, .unit = VelocityUnit::Percentile};
    QCOMPARE(fixationsOf(samplesAt(places, 1), parameters).size(), 20);
    parameters.threshold = 79; // the threshold is 1 px/ms, which is not slower than itself
    QCOMPARE(fixationsOf(samplesAt(places, 1), parameters).size(), 0);
    parameters.threshold = 100;
    QCOMPARE(fixationsOf(samplesAt(places, 1), parameters).size(), 1);           // only the fastest step closes it
    QCOMPARE(fixationsOf(samplesAt(places.first(80), 1), parameters).size(), 0); // fewer than 100 speeds
}

QTEST_GUILESS_MAIN(TestVelocityScanpathBuilder)
#include "TestVelocityScanpathBuilder.moc"
