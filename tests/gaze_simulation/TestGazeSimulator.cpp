// SPDX-License-Identifier: GPL-3.0-or-later
#include "gaze-simulator/GazeSimulator.h"

#include <QTest>

#include <algorithm>
#include <cmath>
#include <numeric>

class TestGazeSimulator : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void count_data();
    void count();
    void times_data();
    void times();
    void timesNeverRunBackwards_data();
    void timesNeverRunBackwards();
    void seedDecides();
    void noiseDoesNotChangeWhereThePersonLooks();
    void noiseHasTheGivenSize();
    void fixationDurations_data();
    void fixationDurations();
    void saccadesLieOnTheMainSequence();
    void labelsFitTheSpeed();
    void blinksTakeBothEyes();
    void lidPullsTheGazeDown();
    void lossesTakeOneEyeOrBoth();
    void oneRecordedEye_data();
    void oneRecordedEye();
};

namespace {

/// Successive samples of one label.
struct Run {
    EventLabel label;
    qsizetype first;
    qsizetype last;

    qsizetype count() const { return last - first + 1; }
};

QList<Run> runsOf(const QList<SimulatedSample> &samples)
{
    QList<Run> runs;
    for (qsizetype i = 0; i < samples.size(); ++i) {
        if (runs.isEmpty() || runs.constLast().label != samples[i].label)
            runs.append({samples[i].label, i, i});
        runs.last().last = i;
    }
    return runs;
}

/// Without first and last, which the recording may cut.
QList<Run> wholeRuns(const QList<SimulatedSample> &samples, EventLabel label)
{
    QList<Run> runs = runsOf(samples).mid(1);
    if (!runs.isEmpty())
        runs.removeLast();
    runs.removeIf([label](const Run &run) { return run.label != label; });
    return runs;
}

double distance(const QPointF &a, const QPointF &b)
{
    return std::hypot(a.x() - b.x(), a.y() - b.y());
}

/// Nothing but fixations on the spot and saccades.
SimulationParameters quiet()
{
    SimulationParameters parameters;
    parameters.saccadeSpread = 0;
    parameters.microsaccadesPerS = 0;
    parameters.driftDegPerS = 0;
    parameters.tremorDeg = 0;
    parameters.blinksPerMin = 0;
    parameters.noiseDeg = 0;
    parameters.eyeOffsetDeg = 0;
    return parameters;
}

QList<SimulatedSample> recorded(const SimulationParameters &parameters)
{
    return simulate(parameters, plainSaliency({1280, 800}));
}

/// Greatest speed inside a run and at its edges, degrees per second.
double peakSpeed(const QList<SimulatedSample> &samples, const Run &run, const SimulationParameters &parameters)
{
    double peak = 0;
    for (qsizetype i = run.first; i <= run.last + 1; ++i)
        peak = std::max(peak, distance(samples[i].left.position, samples[i - 1].left.position));
    return peak * parameters.rateHz / parameters.pixelsPerDegree;
}

} // namespace

void TestGazeSimulator::count_data()
{
    QTest::addColumn<double>("rateHz");
    QTest::addColumn<double>("durationS");
    QTest::addColumn<qsizetype>("expected");
    QTest::newRow("ten seconds at 250 Hz") << 250.0 << 10.0 << qsizetype(2500);
    QTest::newRow("a part of a second") << 1000.0 << 1.5 << qsizetype(1500);
    QTest::newRow("more samples than ms") << 2000.0 << 1.0 << qsizetype(2000);
    QTest::newRow("an odd rate") << 59.94 << 10.0 << qsizetype(599);
    QTest::newRow("one sample") << 50.0 << 0.02 << qsizetype(1);
    QTest::newRow("none") << 50.0 << 0.001 << qsizetype(0);
}

void TestGazeSimulator::count()
{
    SimulationParameters parameters;
    QFETCH(double, rateHz);
    QFETCH(double, durationS);
    parameters.rateHz = rateHz;
    parameters.durationS = durationS;
    const QList<SimulatedSample> samples = recorded(parameters);
    QTEST(samples.size(), "expected");
}

void TestGazeSimulator::times_data()
{
    QTest::addColumn<double>("rateHz");
    QTest::addColumn<QList<qint64>>("expected");
    QTest::newRow("250 Hz") << 250.0 << QList<qint64>{500, 504, 508, 512, 516, 520};
    QTest::newRow("300 Hz is rounded: 3.33, 6.67") << 300.0 << QList<qint64>{500, 503, 507, 510, 513, 517};
    QTest::newRow("1250 Hz repeats: 0.8, 1.6, 2.4") << 1250.0 << QList<qint64>{500, 501, 502, 502, 503, 504};
}

void TestGazeSimulator::times()
{
    SimulationParameters parameters;
    QFETCH(double, rateHz);
    parameters.rateHz = rateHz;
    parameters.clockStartMs = 500;
    parameters.durationS = 6.1 / rateHz;
    QList<qint64> times;
    for (const SimulatedSample &sample : recorded(parameters))
        times << sample.timeMs;
    QTEST(times, "expected");
}

void TestGazeSimulator::timesNeverRunBackwards_data()
{
    QTest::addColumn<double>("rateHz");
    for (const double rate : {1.0, 30.0, 59.94, 120.0, 300.0, 1000.0, 1250.0, 20000.0})
        QTest::addRow("%g Hz", rate) << rate;
}

void TestGazeSimulator::timesNeverRunBackwards()
{
    SimulationParameters parameters;
    QFETCH(double, rateHz);
    parameters.rateHz = rateHz;
    const QList<SimulatedSample> samples = recorded(parameters);
    QVERIFY(std::ranges::is_sorted(samples, {}, &SimulatedSample::timeMs));
    const double lastMs = static_cast<double>(samples.constLast().timeMs - samples.constFirst().timeMs);
    QVERIFY(std::abs(lastMs - 1000 * static_cast<double>(samples.size() - 1) / rateHz) <= 0.5);
}

void TestGazeSimulator::seedDecides()
{
    SimulationParameters parameters;
    const auto positions = [&parameters] {
        QList<double> numbers;
        for (const SimulatedSample &sample : recorded(parameters))
            numbers << sample.left.position.x() << sample.right.position.y() << sample.left.pupilWidth;
        return numbers;
    };
    const QList<double> first = positions();
    QVERIFY(first == positions());
    parameters.seed = 2;
    QVERIFY(first != positions());
}

void TestGazeSimulator::noiseDoesNotChangeWhereThePersonLooks()
{
    SimulationParameters calm;
    calm.noiseDeg = 0;
    SimulationParameters noisy;
    noisy.noiseDeg = 1;
    const QList<SimulatedSample> a = recorded(calm);
    const QList<SimulatedSample> b = recorded(noisy);
    QVERIFY(std::ranges::equal(a, b, {}, &SimulatedSample::label, &SimulatedSample::label));
}

void TestGazeSimulator::noiseHasTheGivenSize()
{
    // Both eyes see the same gaze here, so what differs is two independent noises: sqrt 2 times 0.2 degrees of 35 px.
    SimulationParameters parameters = quiet();
    parameters.noiseDeg = 0.2;
    const QList<SimulatedSample> samples = recorded(parameters);
    double squaresX = 0;
    double squaresY = 0;
    for (const SimulatedSample &sample : samples) {
        const QPointF difference = sample.left.position - sample.right.position;
        squaresX += difference.x() * difference.x();
        squaresY += difference.y() * difference.y();
    }
    const double expected = std::sqrt(2.0) * 0.2 * 35;
    const auto n = static_cast<double>(samples.size()); // 2500: standard error 1.4 %
    QVERIFY(std::abs(std::sqrt(squaresX / n) / expected - 1) < 0.07);
    QVERIFY(std::abs(std::sqrt(squaresY / n) / expected - 1) < 0.07);
}

void TestGazeSimulator::fixationDurations_data()
{
    QTest::addColumn<double>("meanMs");
    QTest::newRow("short") << 150.0;
    QTest::newRow("usual") << 275.0;
    QTest::newRow("long") << 600.0;
}

void TestGazeSimulator::fixationDurations()
{
    QFETCH(double, meanMs);
    SimulationParameters parameters = quiet();
    parameters.rateHz = 1000;
    parameters.durationS = 100;
    parameters.fixationMeanMs = meanMs;
    parameters.fixationSpread = 0.4;
    const QList<Run> fixations = wholeRuns(recorded(parameters), EventLabel::Fixation);
    const auto n = static_cast<double>(fixations.size());
    double sum = 0;
    double logarithms = 0;
    double squares = 0;
    for (const Run &run : fixations) {
        const auto durationMs = static_cast<double>(run.count()); // 1000 Hz
        sum += durationMs;
        logarithms += std::log(durationMs);
        squares += std::log(durationMs) * std::log(durationMs);
    }
    // deviation of a log-normal of spread 0.4: 0.417 of the mean; 5 standard errors
    QVERIFY2(std::abs(sum / n / meanMs - 1) < 5 * 0.417 / std::sqrt(n), qPrintable(QString::number(sum / n)));
    const double spread = std::sqrt(squares / n - logarithms / n * logarithms / n);
    QVERIFY2(std::abs(spread - 0.4) < 5 * 0.4 / std::sqrt(2 * n), qPrintable(QString::number(spread)));
}

void TestGazeSimulator::saccadesLieOnTheMainSequence()
{
    SimulationParameters parameters = quiet();
    parameters.rateHz = 10000;
    parameters.durationS = 30;
    const QList<SimulatedSample> samples = recorded(parameters);
    const QList<Run> saccades = wholeRuns(samples, EventLabel::Saccade);
    QVERIFY(saccades.size() > 50);
    for (const Run &run : saccades) {
        const double amplitude = distance(samples[run.first - 1].left.position, samples[run.last + 1].left.position) /
                                 parameters.pixelsPerDegree;
        const double expectedMs = 2.2 * amplitude + 21;
        const double durationMs = static_cast<double>(run.count()) / 10;
        QVERIFY2(std::abs(durationMs - expectedMs) <= 0.1 + 1e-6, qPrintable(QString::number(amplitude)));
        // the steepest point of 10 f^3 - 15 f^4 + 6 f^5 is f = 1/2: 30/4 - 60/8 + 30/16 = 1.875
        const double expectedPeak = 1.875 * amplitude / expectedMs * 1000;
        const double measuredPeak = peakSpeed(samples, run, parameters);
        QVERIFY2(std::abs(measuredPeak / expectedPeak - 1) < 0.001, qPrintable(QString::number(measuredPeak)));
    }
}

void TestGazeSimulator::labelsFitTheSpeed()
{
    SimulationParameters parameters;
    parameters.rateHz = 500;
    parameters.durationS = 60;
    parameters.noiseDeg = 0;
    parameters.microsaccadesPerS = 0;
    parameters.blinksPerMin = 0;
    const QList<SimulatedSample> samples = recorded(parameters);
    constexpr double fastestFixation = 25; // degrees per second: drift 0.5, tremor about 2.5 at 500 Hz, and a margin
    for (const Run &run : wholeRuns(samples, EventLabel::Fixation)) {
        const Run inside{run.label, run.first + 2, run.last - 1}; // the edges share a step with the saccades
        if (inside.count() > 0)
            QVERIFY(peakSpeed(samples, inside, parameters) < fastestFixation);
    }
    for (const Run &run : wholeRuns(samples, EventLabel::Saccade)) {
        const double amplitude = distance(samples[run.first - 1].left.position, samples[run.last + 1].left.position) /
                                 parameters.pixelsPerDegree;
        // a chord over 2 ms of at least 21 ms, and durations that scatter by 8 %, four times at most
        const double slowest = 1.875 * amplitude / (2.2 * amplitude + 21) * 1000 * 0.95 * std::exp(-4 * 0.08);
        QVERIFY(peakSpeed(samples, run, parameters) > slowest);
    }
}

void TestGazeSimulator::blinksTakeBothEyes()
{
    SimulationParameters parameters;
    parameters.durationS = 480;
    parameters.blinksPerMin = 30;
    parameters.blinkMeanMs = 150;
    const QList<SimulatedSample> samples = recorded(parameters);
    QVERIFY(std::ranges::all_of(samples, [](const SimulatedSample &sample) {
        const bool blink = sample.label == EventLabel::Blink;
        return sample.left.valid == !blink && sample.right.valid == !blink;
    }));
    const QList<Run> blinks = wholeRuns(samples, EventLabel::Blink);
    const auto n = static_cast<double>(blinks.size());
    QVERIFY2(std::abs(n - 240) < 5 * std::sqrt(240.0), qPrintable(QString::number(n)));
    const double meanMs =
        4 *
        std::accumulate(blinks.begin(), blinks.end(), 0.0,
                        [](double sum, const Run &run) { return sum + static_cast<double>(run.count()); }) /
        n;
    // deviation of a log-normal of spread 0.3: 0.307 of the mean
    QVERIFY2(std::abs(meanMs - 150) < 5 * 0.307 * 150 / std::sqrt(n), qPrintable(QString::number(meanMs)));
}

void TestGazeSimulator::lidPullsTheGazeDown()
{
    SimulationParameters parameters = quiet();
    parameters.rateHz = 1000;
    parameters.durationS = 60;
    parameters.blinksPerMin = 20;
    parameters.lidArtefactMs = 20;
    parameters.fixationMeanMs = 1e8; // nobody moves: what moves is the lid
    const QList<SimulatedSample> samples = recorded(parameters);
    const QPointF gaze = samples.constFirst().left.position;
    const QList<Run> blinks = wholeRuns(samples, EventLabel::Blink);
    QVERIFY(!blinks.isEmpty());
    for (const Run &run : blinks) {
        QVERIFY(samples[run.first].left.valid && samples[run.last].right.valid);
        for (const qsizetype end : {run.first + 18, run.last - 18}) {
            const EyeSample &nearlyShut = samples[end].left;
            QVERIFY(nearlyShut.valid);
            QCOMPARE(nearlyShut.position.x(), gaze.x());
            QVERIFY(nearlyShut.position.y() > gaze.y() + parameters.pixelsPerDegree);
            QVERIFY(nearlyShut.pupilHeight < nearlyShut.pupilWidth / 2);
        }
        QVERIFY(!samples[(run.first + run.last) / 2].left.valid);
    }
}

void TestGazeSimulator::lossesTakeOneEyeOrBoth()
{
    SimulationParameters parameters;
    parameters.durationS = 300;
    parameters.blinksPerMin = 0;
    parameters.lossesPerMin = 20;
    parameters.lossMeanMs = 500;
    qsizetype leftOnly = 0;
    qsizetype rightOnly = 0;
    qsizetype both = 0;
    for (const SimulatedSample &sample : recorded(parameters)) {
        QCOMPARE(sample.label == EventLabel::Undefined, !sample.left.valid && !sample.right.valid);
        both += !sample.left.valid && !sample.right.valid;
        leftOnly += !sample.left.valid && sample.right.valid;
        rightOnly += sample.left.valid && !sample.right.valid;
        if (!sample.left.valid) {
            QCOMPARE(sample.left.position.x(), 0.0);
            QCOMPARE(sample.left.pupilWidth, 0.0);
        }
    }
    QVERIFY(both > leftOnly && both > rightOnly && leftOnly > 0 && rightOnly > 0);
    // 20 of 500 ms a minute are a sixth. 100 losses: relative standard error 0.083 from the gaps (5/6 of the time, as
    // random as they are long) and 0.066 from the durations, 0.106 together; the margin is nearly 4 of them.
    const double lost = static_cast<double>(both + leftOnly + rightOnly) / (300 * parameters.rateHz);
    QVERIFY2(std::abs(lost * 6 - 1) < 0.4, qPrintable(QString::number(lost)));
}

void TestGazeSimulator::oneRecordedEye_data()
{
    QTest::addColumn<RecordedEyes>("eyes");
    QTest::newRow("left") << RecordedEyes::Left;
    QTest::newRow("right") << RecordedEyes::Right;
}

void TestGazeSimulator::oneRecordedEye()
{
    QFETCH(RecordedEyes, eyes);
    SimulationParameters parameters;
    parameters.eyes = eyes;
    parameters.durationS = 120;
    parameters.lossesPerMin = 20;
    for (const SimulatedSample &sample : recorded(parameters)) {
        const bool left = eyes == RecordedEyes::Left;
        QVERIFY(!(left ? sample.right : sample.left).valid);
        const bool moving = sample.label == EventLabel::Fixation || sample.label == EventLabel::Saccade;
        QCOMPARE((left ? sample.left : sample.right).valid, moving);
    }
}

QTEST_GUILESS_MAIN(TestGazeSimulator)
#include "TestGazeSimulator.moc"
