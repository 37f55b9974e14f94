// SPDX-License-Identifier: GPL-3.0-or-later
#include "detection/DetectionReport.h"
#include "detection/StandardScanpathBuilder.h"
#include "TestLog.h"
#include "TestMessages.h"

#include <QRegularExpression>
#include <QTest>

namespace {

/// Appends `count` samples at (x, 100), the first at `from` ms, then every 10 ms.
void rest(QList<GazePoint> &samples, qint64 from, int count, double x, int validity = 1)
{
    for (int i = 0; i < count; ++i)
        samples << GazePoint(from + 10 * i, x, 100, 0, 0, validity);
}

EyeData eyeOf(const QList<GazePoint> &samples)
{
    EyeData eye;
    eye.gazePoints = samples;
    return eye;
}

EyeData detected(const QList<GazePoint> &samples, const StandardParameters &parameters)
{
    EyeData eye = eyeOf(samples);
    const StandardScanpathBuilder builder(eye, parameters, nullptr);
    return eye;
}

/// A section as "type number: first to last, samples".
QString described(const ScanpathSection &section)
{
    return QStringLiteral("%1 %2: %3 to %4, %5")
        .arg(section.type)
        .arg(section.number)
        .arg(section.firstTime())
        .arg(section.lastTime())
        .arg(section.samples.size());
}

/// All sections, fixations first, then saccades and invalid sections, each in the order of creation.
QStringList sectionsOf(const EyeData &eye)
{
    QStringList sections;
    for (const Fixation &fixation : eye.scanpath)
        sections << described(fixation);
    for (const Saccade &saccade : eye.saccades)
        sections << described(saccade);
    for (const Invalid &invalid : eye.invalids)
        sections << described(invalid);
    return sections;
}

QList<qint64> timesOf(const ScanpathSection &section)
{
    QList<qint64> times;
    for (const GazePoint &sample : section.samples)
        times << sample.time;
    return times;
}

} // namespace

class TestStandardScanpathBuilder : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void sections_data();
    void sections();
    void sectionsAroundLosses_data();
    void sectionsAroundLosses() { sections(); }
    void sectionsBesideLosses_data();
    void sectionsBesideLosses() { sections(); }
    void radiusIsInclusive_data();
    void radiusIsInclusive();
    void outliersAtTheEndsAreHandedOver();
    void trimmedCandidateExtendsTheLastSaccade();
    void emptiedCandidateMakesNoSection();
    void replayedOutliersPrecedeTheBreakingSample();
    void replayedOutliersWaitThroughAnInvalidSection();
    void shortGapKeepsRawSamples();
    void centroidIsOfTruncatedSums_data();
    void centroidIsOfTruncatedSums();
    void invalidSectionHasAnEventRow();
    void runsAddToTheTarget();
    void calculationInfo();
    void logLines();
    void clockThatRunsBackwardsViolatesTheInvariant();
    void fixationOfMoreThan31BitsIsReported();
    void emptyRecording();
    void invalidRuns_data();
    void invalidRuns();
    void fixationLine_data();
    void fixationLine();
    void saccadeLine_data();
    void saccadeLine();
    void saccadeOfNegativeDurationIsDescribed();
    void wholeReport();
};

void TestStandardScanpathBuilder::sections_data()
{
    QTest::addColumn<QList<GazePoint>>("samples");
    QTest::addColumn<StandardParameters>("parameters");
    QTest::addColumn<QStringList>("expected");

    QList<GazePoint> calm;
    rest(calm, 0, 21, 100);
    QTest::newRow("one rest of 200 ms is a fixation")
        << calm << StandardParameters{200, 50, 0} << QStringList(QStringLiteral("fixation 0: 0 to 200, 21"));
    QTest::newRow("a minimum of 201 ms makes a saccade of it")
        << calm << StandardParameters{201, 50, 0} << QStringList(QStringLiteral("saccade 1: 0 to 200, 21"));
    QTest::newRow("a negative number of outliers is never met")
        << calm << StandardParameters{100, 50, -1} << QStringList(QStringLiteral("saccade 1: 0 to 200, 21"));
    QTest::newRow("a negative radius makes outliers of all")
        << calm << StandardParameters{100, -1, 4} << QStringList(QStringLiteral("saccade 1: 0 to 200, 21"));

    QList<GazePoint> jump;
    rest(jump, 0, 20, 100);
    rest(jump, 200, 20, 600);
    QTest::newRow("two rests with a jump: no saccade between")
        << jump << StandardParameters{100, 50, 0}
        << QStringList({QStringLiteral("fixation 0: 0 to 190, 20"), QStringLiteral("fixation 1: 200 to 390, 20")});

    QList<GazePoint> movement;
    rest(movement, 0, 20, 100);
    for (int i = 0; i < 5; ++i)
        rest(movement, 200 + 10 * i, 1, 200 + 100 * i); // x 200 to 600, one sample each
    rest(movement, 250, 20, 700);
    // From 200 ms on the window is searched anew; it becomes clean when its front reaches the new place.
    QTest::newRow("a movement between two rests is a saccade")
        << movement << StandardParameters{100, 50, 0}
        << QStringList({QStringLiteral("fixation 0: 0 to 190, 20"), QStringLiteral("fixation 1: 250 to 440, 20"),
                        QStringLiteral("saccade 2: 200 to 240, 5")});

    QList<GazePoint> spike;
    rest(spike, 0, 10, 100);
    rest(spike, 100, 1, 500);
    rest(spike, 110, 10, 100);
    QTest::newRow("no outlier allowed: a spike ends a fixation, and becomes a saccade")
        << spike << StandardParameters{50, 50, 0}
        << QStringList({QStringLiteral("fixation 0: 0 to 90, 10"), QStringLiteral("fixation 1: 110 to 200, 10"),
                        QStringLiteral("saccade 2: 100 to 100, 1")});
    QTest::newRow("one allowed: the fixation goes on")
        << spike << StandardParameters{50, 50, 1} << QStringList(QStringLiteral("fixation 0: 0 to 200, 21"));

    QTest::newRow("a minimum of 0 makes a fixation of a single sample")
        << calm.first(1) << StandardParameters{0, 50, 0} << QStringList(QStringLiteral("fixation 0: 0 to 0, 1"));
}

void TestStandardScanpathBuilder::sectionsAroundLosses_data()
{
    QTest::addColumn<QList<GazePoint>>("samples");
    QTest::addColumn<StandardParameters>("parameters");
    QTest::addColumn<QStringList>("expected");

    QList<GazePoint> loss;
    rest(loss, 0, 20, 100);
    rest(loss, 200, 5, 0, 0);
    rest(loss, 250, 20, 100);
    QTest::newRow("a long loss closes the fixation and is an invalid section")
        << loss << StandardParameters{100, 50, 0}
        << QStringList({QStringLiteral("fixation 0: 0 to 190, 20"), QStringLiteral("fixation 1: 250 to 440, 20"),
                        QStringLiteral("invalid 2: 200 to 240, 5")});

    QList<GazePoint> shortLoss;
    rest(shortLoss, 0, 10, 100);
    rest(shortLoss, 100, 1, 0, 0);
    rest(shortLoss, 110, 10, 100);
    QTest::newRow("a loss of 20 ms does not")
        << shortLoss << StandardParameters{100, 50, 0} << QStringList(QStringLiteral("fixation 0: 0 to 200, 21"));

    QList<GazePoint> lossAtEnds;
    rest(lossAtEnds, 0, 5, 0, 0);
    rest(lossAtEnds, 50, 20, 100);
    rest(lossAtEnds, 250, 5, 0, 0);
    QTest::newRow("losses at both ends") << lossAtEnds << StandardParameters{100, 50, 0}
                                         << QStringList({QStringLiteral("fixation 0: 50 to 240, 20"),
                                                         QStringLiteral("invalid 1: 0 to 40, 5"),
                                                         QStringLiteral("invalid 3: 250 to 290, 5")});

    QList<GazePoint> shortRest;
    rest(shortRest, 0, 5, 100);
    rest(shortRest, 50, 5, 0, 0);
    rest(shortRest, 100, 5, 100);
    QTest::newRow("a rest too short before a loss is a saccade")
        << shortRest << StandardParameters{100, 50, 0}
        << QStringList({QStringLiteral("saccade 1: 0 to 40, 5"), QStringLiteral("saccade 3: 100 to 140, 5"),
                        QStringLiteral("invalid 2: 50 to 90, 5")});
}

void TestStandardScanpathBuilder::sectionsBesideLosses_data()
{
    QTest::addColumn<QList<GazePoint>>("samples");
    QTest::addColumn<StandardParameters>("parameters");
    QTest::addColumn<QStringList>("expected");

    QList<GazePoint> longerLoss;
    rest(longerLoss, 0, 10, 100);
    rest(longerLoss, 100, 1, 0, 0);
    rest(longerLoss, 111, 10, 100);
    QTest::newRow("a loss of 21 ms is an invalid section of one sample")
        << longerLoss << StandardParameters{50, 50, 0}
        << QStringList({QStringLiteral("fixation 0: 0 to 90, 10"), QStringLiteral("fixation 1: 111 to 201, 10"),
                        QStringLiteral("invalid 2: 100 to 100, 1")});

    QList<GazePoint> trimmed;
    rest(trimmed, 0, 5, 100); // 40 ms are too short: a saccade
    rest(trimmed, 50, 5, 0, 0);
    rest(trimmed, 100, 6, 100);
    rest(trimmed, 160, 1, 300); // the allowed outlier makes the candidate last 60 ms
    rest(trimmed, 170, 1, 500); // breaks it; without the outlier it lasts 50 ms and is none
    QTest::newRow("a saccade is not extended across an invalid section")
        << trimmed << StandardParameters{60, 50, 1}
        << QStringList({QStringLiteral("saccade 1: 0 to 40, 5"), QStringLiteral("saccade 3: 100 to 150, 6"),
                        QStringLiteral("saccade 4: 160 to 170, 2"), QStringLiteral("invalid 2: 50 to 90, 5")});
}

void TestStandardScanpathBuilder::sections()
{
    QFETCH(QList<GazePoint>, samples);
    QFETCH(StandardParameters, parameters);
    const RecordedMessages messages;
    QTEST(sectionsOf(detected(samples, parameters)), "expected");
    QVERIFY(messages.texts().isEmpty());
}

void TestStandardScanpathBuilder::radiusIsInclusive_data()
{
    QTest::addColumn<double>("x");
    QTest::addColumn<qsizetype>("fixations");
    QTest::newRow("at the radius it belongs") << 150.0 << qsizetype(1);
    QTest::newRow("beyond it does not") << 150.0001 << qsizetype(0);
}

void TestStandardScanpathBuilder::radiusIsInclusive()
{
    QFETCH(double, x);
    QList<GazePoint> samples;
    rest(samples, 0, 5, 100);
    rest(samples, 50, 1, x);
    QTEST(detected(samples, {50, 50, 0}).scanpath.size(), "fixations");
}

/// The samples that a fixation grew over before it broke are no part of it.
void TestStandardScanpathBuilder::outliersAtTheEndsAreHandedOver()
{
    QList<GazePoint> samples;
    rest(samples, 0, 10, 100);
    rest(samples, 100, 2, 400); // 2 allowed outliers: the fixation grows over them
    rest(samples, 120, 1, 410); // the third breaks it
    rest(samples, 130, 10, 410);
    const EyeData eye = detected(samples, {50, 50, 2});
    // Closed at 120 ms: 110 and 100 are trailing outliers, replayed in this order; 120 comes behind them.
    QCOMPARE(timesOf(eye.scanpath[0]), QList<qint64>({0, 10, 20, 30, 40, 50, 60, 70, 80, 90}));
    QCOMPARE(timesOf(eye.scanpath[1]).first(4), QList<qint64>({110, 100, 120, 130}));
    QVERIFY(eye.saccades.isEmpty());
}

/// A candidate that its own outliers leave too short is no fixation. While the last section is a saccade it extends
/// that one; two saccades never stand side by side.
void TestStandardScanpathBuilder::trimmedCandidateExtendsTheLastSaccade()
{
    QList<GazePoint> samples;
    rest(samples, 0, 1, 900); // pushed out of the window: pending saccade
    rest(samples, 10, 6, 100);
    rest(samples, 70, 1, 300); // outlier, allowed
    rest(samples, 80, 1, 500); // breaks the candidate
    const EyeData eye = detected(samples, {60, 50, 1});
    // At 60 ms the window 0..60 fits but begins with an outlier. At 70 ms it is 10..70 of 60 ms and clean: it grows.
    // At 80 ms it breaks: 0 is flushed as a saccade; without 70 the candidate lasts 50 ms and extends it.
    QCOMPARE(sectionsOf(eye),
             QStringList({QStringLiteral("saccade 1: 0 to 60, 7"), QStringLiteral("saccade 2: 70 to 80, 2")}));
}

void TestStandardScanpathBuilder::emptiedCandidateMakesNoSection()
{
    // The first sample alone is its own median, so that the window grows; the median point of all three is (1000,1000),
    // from which each is farther than 10. At the end all are trailing outliers.
    QList<GazePoint> triangle;
    triangle << GazePoint(0, 1000, 0, 0, 0, 1) << GazePoint(10, 0, 1000, 0, 0, 1) << GazePoint(20, 2000, 2000, 0, 0, 1);
    const EyeData wide = detected(triangle, {0, 10, 20});
    QVERIFY(wide.scanpath.isEmpty());
    QVERIFY(wide.saccades.isEmpty());
}

void TestStandardScanpathBuilder::replayedOutliersPrecedeTheBreakingSample()
{
    QList<GazePoint> samples;
    rest(samples, 0, 10, 100);
    rest(samples, 100, 1, 300);
    rest(samples, 110, 1, 400);
    rest(samples, 120, 1, 500);
    const EyeData eye = detected(samples, {50, 50, 2});
    // The window after the break is 110, 100, 120, and the saccade it ends as is sorted again.
    QCOMPARE(eye.scanpath.size(), 1);
    QCOMPARE(timesOf(eye.saccades[0]), QList<qint64>({100, 110, 120}));
}

void TestStandardScanpathBuilder::replayedOutliersWaitThroughAnInvalidSection()
{
    QList<GazePoint> samples;
    rest(samples, 0, 10, 100);
    rest(samples, 100, 2, 400); // trailing outliers
    rest(samples, 120, 5, 0, 0);
    rest(samples, 170, 10, 400); // join them
    const EyeData eye = detected(samples, {50, 50, 2});
    QCOMPARE(sectionsOf(eye),
             QStringList({QStringLiteral("fixation 0: 0 to 90, 10"), QStringLiteral("fixation 1: 110 to 260, 12"),
                          QStringLiteral("invalid 2: 120 to 160, 5")}));
    // At the end of a recording they enter no section.
    const EyeData ended = detected(samples.first(17), {50, 50, 2});
    QCOMPARE(sectionsOf(ended),
             QStringList({QStringLiteral("fixation 0: 0 to 90, 10"), QStringLiteral("invalid 2: 120 to 160, 5")}));
}

void TestStandardScanpathBuilder::shortGapKeepsRawSamples()
{
    QList<GazePoint> samples;
    rest(samples, 0, 5, 100);
    samples << GazePoint(50, -777, -777, 0, 0, 0); // lies at 100 for the detection
    rest(samples, 60, 6, 100);
    const EyeData eye = detected(samples, {100, 50, 0});
    QCOMPARE(eye.scanpath.size(), 1);
    const Fixation &fixation = eye.scanpath[0];
    QCOMPARE(fixation.samples, samples);
    QCOMPARE(fixation.samples.data(), eye.gazePoints.constData()); // shared, not copied
    QCOMPARE(fixation.mean, QPoint(100, 100));                     // of the interpolated positions
    QCOMPARE(fixation.variance, QPoint(64094, 64094));             // of the raw ones: 877^2 / 12 = 64094.08
    QCOMPARE(fixation.median, QPoint(-338, -338));                 // (-777 + 100) / 2 = -338.5, towards zero
}

void TestStandardScanpathBuilder::centroidIsOfTruncatedSums_data()
{
    QTest::addColumn<double>("coordinate");
    QTest::addColumn<int>("mean");
    // Sums of four: truncated after each addition, then divided as whole numbers.
    QTest::newRow("10.9: 10, 20, 30, 40") << 10.9 << 10;
    QTest::newRow("-10.9: -10, -20, -30, -40") << -10.9 << -10;
    QTest::newRow("beyond int it stays at the largest") << 1e300 << 2147483647;
}

void TestStandardScanpathBuilder::centroidIsOfTruncatedSums()
{
    QFETCH(double, coordinate);
    QList<GazePoint> samples;
    rest(samples, 0, 4, coordinate);
    const EyeData eye = detected(samples, {30, 50, 0});
    QCOMPARE(eye.scanpath.size(), 1);
    QTEST(eye.scanpath[0].mean.x(), "mean");
    QCOMPARE(eye.scanpath[0].mean.y(), 100);
}

void TestStandardScanpathBuilder::invalidSectionHasAnEventRow()
{
    QList<GazePoint> samples;
    rest(samples, 0, 3, 100);
    rest(samples, 30, 4, 0, 0);
    rest(samples, 70, 1, 100);
    const EyeData eye = detected(samples, {50, 50, 0});
    QCOMPARE(eye.eventRows.size(), 1);
    const EventRow &row = eye.eventRows[0];
    QCOMPARE(row.event, QStringLiteral("invalid"));
    QCOMPARE(row.eventCode, QStringLiteral("2"));
    QCOMPARE(row.gazePoints, QStringLiteral("4"));
    // Onset and duration stand one field before their own.
    QCOMPARE(row.cluster, QStringLiteral("30"));
    QCOMPARE(row.onset, QStringLiteral("30"));
    for (const QString &rest : {row.duration, row.meanX, row.meanY, row.radius, row.saccadeLength, row.saccadeAngle})
        QCOMPARE(rest, QStringLiteral("."));
}

void TestStandardScanpathBuilder::runsAddToTheTarget()
{
    QList<GazePoint> samples;
    rest(samples, 0, 3, 100);
    rest(samples, 30, 4, 0, 0);
    rest(samples, 70, 20, 100);
    EyeData eye = eyeOf(samples);
    const StandardScanpathBuilder first(eye, {50, 50, 0}, nullptr);
    const StandardScanpathBuilder second(eye, {50, 50, 0}, nullptr);
    QCOMPARE(eye.scanpath.size(), 2);
    QCOMPARE(eye.saccades.size(), 2);
    QCOMPARE(eye.invalids.size(), 2);
    QCOMPARE(eye.eventRows.size(), 2);
    QCOMPARE(eye.saccades[1].number, 1); // the counters are those of the run
    QVERIFY(first.report().contains(QStringLiteral("\n1 Fixation")));
    QVERIFY(second.report().contains(QStringLiteral("\n2 Fixation")));
}

void TestStandardScanpathBuilder::calculationInfo()
{
    QCOMPARE(detected({}, {200, 50, 3}).calculationInfo,
             QStringLiteral("Calculated with: MinimumDuration=200ms, MaximumRadius=50, AllowedOutliers=3"));
}

void TestStandardScanpathBuilder::logLines()
{
    const RecordedLog log;
    QList<GazePoint> samples;
    rest(samples, 0, 3, 100);
    rest(samples, 30, 4, 0, 0);
    rest(samples, 70, 20, 100);
    EyeData eye = eyeOf(samples);
    const StandardScanpathBuilder builder(eye, {50, 50, 0}, &log.log());
    QCOMPARE(log.bytes(), QByteArray("StandardScanpathBuilder found: 1 fixations, 1 saccades and 1 invalid sections\n"
                                     "Calculated with: MinimumDuration=50ms, MaximumRadius=50, AllowedOutliers=0\n"));
}

void TestStandardScanpathBuilder::clockThatRunsBackwardsViolatesTheInvariant()
{
    QList<GazePoint> samples;
    rest(samples, 0, 10, 100);
    rest(samples, 20, 1, 100); // the window lasts 20 ms now
    rest(samples, 100, 2, 100);
    const RecordedMessages messages;
    const EyeData eye = detected(samples, {50, 50, 0});
    QCOMPARE(messages.texts(),
             QStringList(QStringLiteral("Fixation too short!|Fixation calculation invariant violated!")));
    QCOMPARE(sectionsOf(eye), QStringList(QStringLiteral("fixation 0: 0 to 110, 13")));
}

void TestStandardScanpathBuilder::fixationOfMoreThan31BitsIsReported()
{
    QList<GazePoint> samples;
    rest(samples, 0, 10, 100);
    rest(samples, 3000000000, 1, 100); // 3e9 - 2^32 = -1294967296
    const RecordedMessages messages;
    const EyeData eye = detected(samples, {50, 50, 0});
    QCOMPARE(messages.texts(),
             QStringList(QStringLiteral("Fixation too short!|Fixation calculation has an error! Length "
                                        "found:-1294967296")));
    QCOMPARE(eye.scanpath.size(), 1);
}

void TestStandardScanpathBuilder::emptyRecording()
{
    EyeData eye;
    const StandardScanpathBuilder builder(eye, {200, 50, 2}, nullptr);
    QVERIFY(eye.scanpath.isEmpty());
    QVERIFY(eye.saccades.isEmpty());
    QCOMPARE(builder.report(), QStringLiteral("Invalid before processing: min 0[ms] max 0[ms] total# 0\n"
                                              "Invalid after processing: min 0[ms] max 0[ms] total# 0\n"
                                              "0 Fixation durations: min 0[ms], max 0[ms], avg 0[ms], overlong# 0\n"
                                              "0 Saccade durations: min 0[ms], max 0[ms], avg 0[ms], tooshort# 0\n"));
}

void TestStandardScanpathBuilder::invalidRuns_data()
{
    QTest::addColumn<QString>("validity"); // one sample every 10 ms
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("after");
    const auto line = [](int min, int max, int total) {
        return QStringLiteral(" processing: min %1[ms] max %2[ms] total# %3\n").arg(min).arg(max).arg(total);
    };
    QTest::newRow("no bad sample") << QStringLiteral("1111") << line(0, 0, 0) << line(0, 0, 0);
    // 10 to the bad sample and 10 to the good one behind it; 20 ms are bridged.
    QTest::newRow("one bad sample") << QStringLiteral("1011") << line(20, 20, 1) << line(0, 0, 0);
    QTest::newRow("runs of one and three") << QStringLiteral("10110001") << line(20, 40, 4) << line(40, 40, 3);
    // The first sample has no sample before it: its run of one counts nothing.
    QTest::newRow("a bad first sample") << QStringLiteral("0111") << line(0, 0, 1) << line(0, 0, 0);
    QTest::newRow("a run at the start lacks its first step")
        << QStringLiteral("00011") << line(30, 30, 3) << line(30, 30, 3);
    QTest::newRow("a run that reaches the end is only counted")
        << QStringLiteral("1110000") << line(0, 0, 4) << line(0, 0, 4);
}

void TestStandardScanpathBuilder::invalidRuns()
{
    QFETCH(QString, validity);
    QFETCH(QString, before);
    QFETCH(QString, after);
    QList<GazePoint> samples;
    for (const QChar c : validity)
        rest(samples, 10 * samples.size(), 1, 100, c.digitValue());
    QCOMPARE(invalidRunLines(prepareSamples(samples, 20)),
             QStringLiteral("Invalid before") + before + QStringLiteral("Invalid after") + after);
}

void TestStandardScanpathBuilder::fixationLine_data()
{
    QTest::addColumn<QList<int>>("durations");
    QTest::addColumn<QString>("line");
    QTest::newRow("none") << QList<int>{}
                          << QStringLiteral("0 Fixation durations: min 0[ms], max 0[ms], avg 0[ms], overlong# 0\n");
    QTest::newRow("the mean is rounded down") // 100 + 201 = 301, / 2 = 150
        << QList<int>{100, 201}
        << QStringLiteral("2 Fixation durations: min 100[ms], max 201[ms], avg 150[ms], overlong# 0\n");
    QTest::newRow("1000 ms is not overlong, 1001 is")
        << QList<int>{1000, 1001}
        << QStringLiteral("2 Fixation durations: min 1000[ms], max 1001[ms], avg 1000[ms], overlong# 1\n");
    QTest::newRow("a smallest of 0 is replaced by the next")
        << QList<int>{0, 300, 200}
        << QStringLiteral("3 Fixation durations: min 200[ms], max 300[ms], avg 166[ms], overlong# 0\n");
    QTest::newRow("and stays if nothing follows")
        << QList<int>{300, 0}
        << QStringLiteral("2 Fixation durations: min 0[ms], max 300[ms], avg 150[ms], overlong# 0\n");
}

void TestStandardScanpathBuilder::fixationLine()
{
    QFETCH(QList<int>, durations);
    QList<Fixation> fixations;
    for (const int duration : durations) {
        QList<GazePoint> samples;
        samples << GazePoint(5, 1, 1, 0, 0, 1) << GazePoint(5 + duration, 1, 1, 0, 0, 1);
        fixations << Fixation(samples, QStringLiteral("fixation"), {1, 1}, 0);
    }
    QTEST(fixationDurationLine(fixations), "line");
}

void TestStandardScanpathBuilder::saccadeLine_data()
{
    QTest::addColumn<QList<int>>("sampleCounts"); // 10 ms apart
    QTest::addColumn<QString>("line");
    QTest::newRow("none") << QList<int>{}
                          << QStringLiteral("0 Saccade durations: min 0[ms], max 0[ms], avg 0[ms], tooshort# 0\n");
    QTest::newRow("one sample is too short, two are not") // 0 + 10 = 10, / 2 = 5
        << QList<int>{1, 2} << QStringLiteral("2 Saccade durations: min 10[ms], max 10[ms], avg 5[ms], tooshort# 1\n");
}

void TestStandardScanpathBuilder::saccadeLine()
{
    QFETCH(QList<int>, sampleCounts);
    QList<Saccade> saccades;
    for (const int count : sampleCounts) {
        QList<GazePoint> samples;
        rest(samples, 0, count, 1);
        saccades << Saccade(samples, QStringLiteral("saccade"), 1, nullptr);
    }
    QTEST(saccadeDurationLine(saccades), "line");
}

void TestStandardScanpathBuilder::saccadeOfNegativeDurationIsDescribed()
{
    const QList<GazePoint> samples{GazePoint(0, 1.5, 2, 3, 4, 1), GazePoint(3000000000, 5, 6, 7, 8, 0)};
    QTest::ignoreMessage(QtDebugMsg, "Saccade with unlogical length:");
    QTest::ignoreMessage(QtDebugMsg, "0 1.5 2 3 4 true");
    QTest::ignoreMessage(QtDebugMsg, "3000000000 5 6 7 8 false");
    QCOMPARE(saccadeDurationLine({Saccade(samples, QStringLiteral("saccade"), 1, nullptr)}),
             QStringLiteral("1 Saccade durations: min -1294967296[ms], max 0[ms], avg -1294967296[ms], tooshort# 0\n"));
}

void TestStandardScanpathBuilder::wholeReport()
{
    QList<GazePoint> samples;
    rest(samples, 0, 20, 100);
    rest(samples, 200, 5, 0, 0);
    rest(samples, 250, 3, 100);
    EyeData eye = eyeOf(samples);
    const StandardScanpathBuilder builder(eye, {100, 50, 0}, nullptr);
    // The loss: five steps to its samples and one to the next good one.
    QCOMPARE(builder.report(),
             QStringLiteral("Invalid before processing: min 60[ms] max 60[ms] total# 5\n"
                            "Invalid after processing: min 60[ms] max 60[ms] total# 5\n"
                            "1 Fixation durations: min 190[ms], max 190[ms], avg 190[ms], overlong# 0\n"
                            "1 Saccade durations: min 20[ms], max 20[ms], avg 20[ms], tooshort# 0\n"));
}

QTEST_GUILESS_MAIN(TestStandardScanpathBuilder)
#include "TestStandardScanpathBuilder.moc"
