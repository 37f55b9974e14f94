// SPDX-License-Identifier: GPL-3.0-or-later
#include "detection/GaussianMixtureScanpathBuilder.h"

#include "detection/GeneratedGaze.h"

#include <QTest>

namespace {

/// Rests of 20 samples, 5 ms apart, at three places, with fast steps between them and a last one at the end.
QList<GazePoint> threeRests()
{
    std::mt19937 random(3);
    std::normal_distribution<double> noise;
    QList<GazePoint> samples;
    for (const double x : {200.0, 700.0, 300.0, 900.0}) {
        for (int i = 0; i < 20; ++i)
            samples << GazePoint(5 * samples.size(), x + noise(random), 400 + noise(random), 0, 0, 1);
    }
    return samples;
}

QList<Fixation> fixationsOf(const QList<GazePoint> &samples, const MixtureParameters &parameters)
{
    QList<Fixation> scanpath;
    const GaussianMixtureScanpathBuilder builder(samples, &scanpath, parameters);
    return scanpath;
}

} // namespace

class TestGaussianMixtureScanpathBuilder : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void restsAreFound();
    void unusableSamplesLeaveNoTrace_data();
    void unusableSamplesLeaveNoTrace();
    void invalidSamplesLeaveAGapInTimeOnly();
    void withoutListNothingIsKept();
    void failureIsTold();
    void generatedRecordingIsCovered();
};

void TestGaussianMixtureScanpathBuilder::restsAreFound()
{
    const QList<GazePoint> samples = threeRests();
    const QList<Fixation> found = fixationsOf(samples, {50, false});
    QCOMPARE(found.size(), 3); // the fourth is still open at the end
    for (qsizetype i = 0; i < 3; ++i) {
        QCOMPARE(found[i].samples, samples.sliced(20 * i, 20));
        QCOMPARE(found[i].number, static_cast<int>(i));
        QCOMPARE(found[i].type, QStringLiteral("fixation"));
    }
    QCOMPARE(fixationsOf(samples, {95, false}).size(), 0); // each lasts exactly 95 ms
    QCOMPARE(fixationsOf(samples, {94, false}).size(), 3);
}

void TestGaussianMixtureScanpathBuilder::unusableSamplesLeaveNoTrace_data()
{
    QTest::addColumn<GazePoint>("unusable");
    QTest::newRow("invalid") << GazePoint(52, 700, 400, 0, 0, 0);
    QTest::newRow("x is 0") << GazePoint(52, 0, 400, 0, 0, 1);
    QTest::newRow("y is 0") << GazePoint(52, 200, 0, 0, 0, 1);
    QTest::newRow("the origin") << GazePoint(52, 0, 0, 0, 0, 1);
    QTest::newRow("minus 0 is 0") << GazePoint(52, -0.0, 400, 0, 0, 1);
}

void TestGaussianMixtureScanpathBuilder::unusableSamplesLeaveNoTrace()
{
    QFETCH(GazePoint, unusable);
    const QList<GazePoint> samples = threeRests();
    QList<GazePoint> mixed = samples;
    for (const qsizetype place : {80, 45, 20, 11, 10, 0})
        mixed.insert(place, unusable);
    QCOMPARE(fixationsOf(mixed, {50, true}), fixationsOf(samples, {50, true}));
    QCOMPARE(fixationsOf(mixed, {50, true}).size(), 3);
}

void TestGaussianMixtureScanpathBuilder::invalidSamplesLeaveAGapInTimeOnly()
{
    QList<GazePoint> samples = threeRests();
    for (qsizetype i = 5; i < 15; ++i)
        samples[i].validFlag = false;
    const QList<Fixation> found = fixationsOf(samples, {50, false});
    QCOMPARE(found.size(), 3);
    QCOMPARE(found[0].samples.size(), 10);
    QCOMPARE(found[0].duration(), 95);
}

void TestGaussianMixtureScanpathBuilder::withoutListNothingIsKept()
{
    const GaussianMixtureScanpathBuilder builder(threeRests(), nullptr, {50, true});
    QVERIFY(builder.report().isEmpty());
}

void TestGaussianMixtureScanpathBuilder::failureIsTold()
{
    QList<GazePoint> samples = threeRests().first(5);
    samples[0].validFlag = samples[1].validFlag = false;
    samples[2].x = 0;
    const auto found = mixtureFixations(samples, {0, true});
    QVERIFY(std::holds_alternative<FitFailure>(found));
    QCOMPARE(std::get<FitFailure>(found).reason, QStringLiteral("fewer than three usable samples"));
    QList<Fixation> scanpath{Fixation()};
    const GaussianMixtureScanpathBuilder builder(samples, &scanpath, {0, true});
    QCOMPARE(scanpath.size(), 1);
}

/// Most of the time of a clean recording is spent in fixations.
void TestGaussianMixtureScanpathBuilder::generatedRecordingIsCovered()
{
    const QList<GazePoint> samples = generatedGaze({.count = 20000, .noisePx = 1, .lossShare = 0, .spikeShare = 0});
    qint64 fixated = 0;
    for (const Fixation &fixation : fixationsOf(samples, {50, false}))
        fixated += fixation.duration();
    const auto share = static_cast<double>(fixated) / static_cast<double>(samples.constLast().time);
    QVERIFY2(share > 0.7 && share < 0.98, qPrintable(QString::number(share)));
}

QTEST_GUILESS_MAIN(TestGaussianMixtureScanpathBuilder)
#include "TestGaussianMixtureScanpathBuilder.moc"
