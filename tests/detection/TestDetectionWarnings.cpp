// SPDX-License-Identifier: GPL-3.0-or-later
#include "detection/DetectionWarnings.h"

#include <QTest>

#include <cmath>
#include <limits>

namespace {

/// Valid samples that step to and fro by so many px.
QList<GazePoint> recording(int count, double stepPx, qint64 intervalMs = 10)
{
    QList<GazePoint> samples;
    for (int i = 0; i < count; ++i)
        samples << GazePoint(intervalMs * i, 500 + (i % 2 == 0 ? 0 : stepPx), 400, 0, 0, 1);
    return samples;
}

QList<GazePoint> unrecorded(int count)
{
    QList<GazePoint> samples = recording(count, 0);
    for (GazePoint &sample : samples)
        sample.validFlag = false;
    return samples;
}

const FixationCalculationParameters standard = StandardParameters{100, 30, 2};
const FixationCalculationParameters mixture = MixtureParameters{100, true};

FixationCalculationParameters velocity(VelocityUnit unit, int minimumMs = 100)
{
    return VelocityParameters{.minimumDurationMs = minimumMs,
                              .threshold = 50,
                              .unit = unit,
                              .screenDistanceM = 0.6,
                              .imageSizeM = 0.4,
                              .imageWidthPx = 1024};
}

} // namespace

Q_DECLARE_METATYPE(FixationCalculationParameters)

class TestDetectionWarnings : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void warnings_data();
    void warnings();
    void warningsOfParameters_data();
    void warningsOfParameters();
    void noise_data();
    void noise();
};

namespace {

void row(const char *name, const QList<GazePoint> &samples, const FixationCalculationParameters &parameters,
         const QStringList &texts = {})
{
    QTest::newRow(name) << samples << parameters << texts;
}

void parameterRow(const char *name, const FixationCalculationParameters &parameters, const QStringList &texts = {})
{
    QTest::newRow(name) << parameters << texts;
}

void durations()
{
    const auto text = [](int minimum, int interval) {
        return QStringList(QStringLiteral("The minimum duration of %1 ms is shorter than one sampling interval, %2 ms.")
                               .arg(minimum)
                               .arg(interval));
    };
    const QList<GazePoint> slow = recording(200, 1, 17);
    row("duration as long as the interval", slow, StandardParameters{17, 30, 2});
    row("duration below the interval, standard", slow, StandardParameters{16, 30, 2}, text(16, 17));
    row("duration below the interval, mixture", slow, MixtureParameters{16, false}, text(16, 17));
    row("duration below the interval, velocity", slow, velocity(VelocityUnit::PixelPerMs, 16), text(16, 17));
    row("no duration at all", slow, MixtureParameters{0, false}, text(0, 17));
    QList<GazePoint> paused = slow;
    for (qsizetype i = 100; i < paused.size(); ++i)
        paused[i].time += 100000;
    row("a pause is no interval", paused, MixtureParameters{17, false});
    row("one sample has no interval", recording(1, 0), MixtureParameters{0, false});
}

void percentiles()
{
    const QString text =
        QStringLiteral("A percentile of fewer than 100 speeds finds no fixation; this recording has %1.");
    row("100 speeds", recording(101, 1), velocity(VelocityUnit::Percentile));
    row("99 speeds", recording(100, 1), velocity(VelocityUnit::Percentile), {text.arg(99)});
    row("no speed", recording(1, 1), velocity(VelocityUnit::Percentile), {text.arg(0)});
    row("99 speeds, other unit", recording(100, 1), velocity(VelocityUnit::DegreePerS));
    row("99 speeds, other detector", recording(100, 1), standard);
}

VelocityParameters velocityWith(double threshold, double distanceM, double sizeM)
{
    return {.minimumDurationMs = 100,
            .threshold = threshold,
            .unit = VelocityUnit::DegreePerS,
            .screenDistanceM = distanceM,
            .imageSizeM = sizeM,
            .imageWidthPx = 1024};
}

void thresholds()
{
    const QString text =
        QStringLiteral("The velocity threshold of %1 works as 0, since only its whole part counts: no eye is slower.");
    parameterRow("threshold of 1", velocityWith(1, 0.6, 0.4));
    parameterRow("threshold below 1", velocityWith(0.99, 0.6, 0.4), {text.arg(QStringLiteral("0.99"))});
    parameterRow("threshold of 0", velocityWith(0, 0.6, 0.4), {text.arg(0)});
}

void geometries()
{
    parameterRow("no distance", velocityWith(10, 0, 0.4),
                 {QStringLiteral("The screen distance is 0: each movement counts as 90 degrees.")});
    parameterRow("no size", velocityWith(10, 0.6, 0),
                 {QStringLiteral("The image size is 0: all speeds in degrees are 0.")});
    VelocityParameters pixels = velocityWith(10, 0, 0);
    pixels.unit = VelocityUnit::PixelPerMs;
    parameterRow("no geometry, not asked for", pixels);
    parameterRow("other detectors", standard);
}

} // namespace

void TestDetectionWarnings::warnings_data()
{
    QTest::addColumn<QList<GazePoint>>("samples");
    QTest::addColumn<FixationCalculationParameters>("parameters");
    QTest::addColumn<QStringList>("texts");
    durations();
    percentiles();
    row("radius as large as the noise", recording(100, 30), standard);
    row("radius below the noise", recording(100, 31.5), standard,
        {QStringLiteral("The maximum radius of 30 px is below the noise of the recording, 31.5 px from sample to "
                        "sample.")});
    row("noise does not matter to others", recording(200, 500), mixture);
    QList<GazePoint> hasty = recording(120, 1);
    hasty[50].time = hasty[49].time;
    hasty[80].time = hasty[79].time;
    hasty[90].time = hasty[89].time;
    hasty[90].validFlag = false; // it is passed over
    row("equal times", hasty, velocity(VelocityUnit::PixelPerMs),
        {QStringLiteral("Samples with the time of the sample before them: 2 of 120; each ends a fixation.")});
    row("equal times, standard", hasty, standard,
        {QStringLiteral("Samples with the time of the sample before them: 2 of 120; times are coarser than the "
                        "recording.")});
    row("equal times, mixture", hasty, mixture);
    row("parameters are told elsewhere", recording(120, 1), velocityWith(0, 0, 0));
    row("no samples", {}, velocity(VelocityUnit::Percentile, 0));
    row("an eye that was not recorded", unrecorded(50), velocity(VelocityUnit::Percentile, 0));
    row("several, in order", recording(50, 1000), StandardParameters{0, 30, 2},
        {QStringLiteral("The minimum duration of 0 ms is shorter than one sampling interval, 10 ms."),
         QStringLiteral("The maximum radius of 30 px is below the noise of the recording, 1000 px from sample to "
                        "sample.")});
}

void TestDetectionWarnings::warnings()
{
    QFETCH(QList<GazePoint>, samples);
    QFETCH(FixationCalculationParameters, parameters);
    QTEST(detectionWarnings(samples, parameters), "texts");
}

void TestDetectionWarnings::warningsOfParameters_data()
{
    QTest::addColumn<FixationCalculationParameters>("parameters");
    QTest::addColumn<QStringList>("texts");
    thresholds();
    geometries();
}

void TestDetectionWarnings::warningsOfParameters()
{
    QFETCH(FixationCalculationParameters, parameters);
    QTEST(parameterWarnings(parameters), "texts");
}

void TestDetectionWarnings::noise_data()
{
    QTest::addColumn<QList<GazePoint>>("samples");
    QTest::addColumn<double>("px");
    QTest::newRow("no sample") << QList<GazePoint>() << 0.0;
    QTest::newRow("shorter than a stretch") << recording(10, 3) << 0.0;
    QTest::newRow("one stretch of 100 ms") << recording(11, 3) << 3.0;
    QTest::newRow("a still eye") << recording(100, 0) << 0.0;
    QList<GazePoint> uneven = recording(11, 0);
    for (qsizetype i = 0; i < uneven.size(); ++i)
        uneven[i].x = 7 * static_cast<double>((i + 1) / 2); // five steps of 7 px and five of none
    QTest::newRow("root mean square of 0 and 7") << uneven << std::sqrt(24.5);
    QList<GazePoint> plane = recording(11, 0);
    for (qsizetype i = 0; i < plane.size(); ++i) {
        plane[i].x += 3 * static_cast<double>(i);
        plane[i].y += 4 * static_cast<double>(i);
    }
    QTest::newRow("distances in the plane") << plane << 5.0;

    QList<GazePoint> moving = recording(111, 2);
    for (qsizetype i = 0; i < 3; ++i)
        moving[5 + 20 * i].x += 900;
    QTest::newRow("saccades in three of eleven stretches") << moving << 2.0;
    QList<GazePoint> lost = recording(40, 2);
    lost[9].validFlag = lost[18].validFlag = lost[27].validFlag = lost[36].validFlag = false;
    QTest::newRow("losses leave no stretch long enough") << lost << 0.0;
    QList<GazePoint> damaged = recording(111, 2);
    damaged[15].x = std::numeric_limits<double>::quiet_NaN();
    damaged[35].y = std::numeric_limits<double>::infinity();
    QTest::newRow("a stretch with no number does not count") << damaged << 2.0;
}

void TestDetectionWarnings::noise()
{
    QFETCH(QList<GazePoint>, samples);
    QTEST(noisePx(samples), "px");
}

QTEST_GUILESS_MAIN(TestDetectionWarnings)
#include "TestDetectionWarnings.moc"
