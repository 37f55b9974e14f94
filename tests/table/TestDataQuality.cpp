// SPDX-License-Identifier: GPL-3.0-or-later
#include "detection/FixationCalculation.h"
#include "gaze-simulator/RecordingWriter.h"
#include "import/DataImporter.h"
#include "model/ImageCache.h"
#include "PlainQuality.h"
#include "table/QualityLimits.h"
#include "table/SampleIntervals.h"
#include "table/StudyQuality.h"

#include <QImage>
#include <QTemporaryDir>
#include <QTest>

#include <cmath>
#include <limits>

namespace {

constexpr TimeFrame whole{0, 1'000'000};
const QSizeF screen(1000, 800);

GazePoint sample(qint64 timeMs, double x, double y, int validity = 1)
{
    return {timeMs, x, y, 0, 0, validity};
}

EyeQuality leftOf(const Examination &examination, const QualityForm &form = {whole, screen, {}})
{
    return dataQuality(examination, {Eye::Left}, form).first();
}

/// All columns that have a value, by name.
plain::Row rowOf(const EyeQuality &quality)
{
    plain::Row row;
    for (const Measure<EyeQuality> &measure : qualityMeasures()) {
        if (const std::optional<double> value = measure.value(quality))
            row.insert(measure.name, *value);
    }
    return row;
}

Examination simulated(const SimulationParameters &person)
{
    GazeSimulator simulator(person, plainSaliency({1280, 1024}));
    QByteArray text = recording::header();
    for (qint64 i = 0; i < simulator.sampleCount(); ++i)
        recording::appendLine(text, simulator.next());
    Examination examination;
    if (!DataImporter({}, &examination, nullptr).readBytes(text))
        qFatal("a simulated recording was not read");
    return examination;
}

SampleIntervals intervals(const QList<qint64> &steps)
{
    SampleIntervals tally;
    for (const qint64 step : steps)
        tally.add(step);
    return tally;
}

} // namespace

class TestDataQuality : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void ratesOfTrackers_data();
    void ratesOfTrackers();
    void gapsByHand();
    void stepsByHand();
    void withoutRate();
    void lossesByLength_data();
    void lossesByLength();
    void placesByHand();
    void precisionByHand();
    void eyesByHand();
    void cutStreamsArePairedByTime();
    void angles();
    void frameCuts();
    void notANumber();
    void nothing();
    void likeThePlainForm_data();
    void likeThePlainForm();
    void screenIsThePicture();
    void studyByThreads();
    void limits();
};

/// Times that a clock rounds to whole ms; one sample in a hundred did not arrive.
void TestDataQuality::ratesOfTrackers_data()
{
    QTest::addColumn<double>("hz");
    for (const int hz : {30, 50, 60, 90, 120, 150, 200, 250, 300, 500, 600, 1000, 1200, 2000})
        QTest::addRow("%d Hz", hz) << double(hz);
}

void TestDataQuality::ratesOfTrackers()
{
    QFETCH(double, hz);
    SampleIntervals tally;
    qint64 before = 0;
    qint64 lost = 0;
    for (int i = 1; i < 20'000; ++i) {
        if (i % 100 == 50) {
            ++lost;
            continue;
        }
        const qint64 time = std::llround(i * 1000 / hz);
        tally.add(time - before);
        before = time;
    }
    const auto rate = tally.rate();
    QVERIFY(rate.has_value());
    if (hz > 1000) { // a lost sample is as short as the rounding: it cannot be told from a step
        QVERIFY2(std::abs(rate->hz / hz - 1) < 0.02, qPrintable(QString::number(rate->hz)));
        return;
    }
    QVERIFY2(std::abs(rate->hz / hz - 1) < 0.002, qPrintable(QString::number(rate->hz)));
    QVERIFY(rate->jitterMs <= 0.5);
    QCOMPARE(rate->gaps, lost);
    QVERIFY(std::abs(rate->gapTimeMs - double(lost) * 1000 / hz) < 1.0 * double(lost) * 0.6 + 1);
}

void TestDataQuality::gapsByHand()
{
    // Eight steps of 10 ms, one of 30, one of 2000 ms, one back: 10 ms an interval, gaps after 15 ms.
    const auto rate = intervals({10, 10, 10, 10, 30, 10, 10, 10, 2000, 10, -5}).rate();
    QVERIFY(rate.has_value());
    QCOMPARE(rate->hz, 100.0);
    QCOMPARE(rate->intervalMs, 10.0);
    QCOMPARE(rate->gapAfterMs, 15.0);
    QCOMPARE(rate->jitterMs, 0.0);
    QCOMPARE(rate->gaps, 2);
    QCOMPARE(rate->gapTimeMs, 20.0 + 1990.0);
    QCOMPARE(rate->longestGapMs, 2000);
    QCOMPARE(intervals({10, 10, 30, 10}).rate()->longestGapMs, 30);
    QCOMPARE(intervals({10, 10, 10}).rate()->longestGapMs, 0);
}

void TestDataQuality::stepsByHand()
{
    // 16, 17, 17, 0, 20: the median is 17, the mean of what is up to 34 is 14, gaps are above 21.
    const SampleIntervals tally = intervals({16, 17, 17, 0, 20});
    const auto rate = tally.rate();
    QCOMPARE(rate->intervalMs, 14.0);
    QCOMPARE(rate->gapAfterMs, 21.0);
    QCOMPARE(rate->gaps, 0);
    QCOMPARE(rate->jitterMs, std::sqrt((4 + 9 + 9 + 196 + 36) / 5.0));
    QCOMPARE(tally.repeated(), 1);
    QCOMPARE(tally.backward(), 0);
    QCOMPARE(intervals({10, -1, -2000}).backward(), 2);
}

void TestDataQuality::withoutRate()
{
    QVERIFY(!intervals({}).rate());
    QVERIFY(!intervals({0, 0}).rate());
    QVERIFY(!intervals({1000, 5000}).rate());
    QVERIFY(!intervals({-1}).rate());
    QCOMPARE(intervals({999}).rate()->intervalMs, 999.0);
    SampleIntervals tally;
    tally.add(-1);
    tally.addDistance(-1, 9);
    tally.addDistance(std::numeric_limits<qint64>::max(), 9);
    QVERIFY(!tally.rootMeanSquarePx(1000));
}

void TestDataQuality::lossesByLength_data()
{
    QTest::addColumn<QList<qint64>>("times");
    QTest::addColumn<QString>("validity");
    QTest::addColumn<QList<qint64>>("counts"); // all, short, blinks, long
    QTest::addColumn<double>("longestMs");
    using Counts = QList<qint64>;
    const auto none = -1.0;
    QTest::newRow("none") << Counts{0, 10, 20} << "111" << Counts{0, 0, 0, 0} << none;
    QTest::newRow("shorter than a blink") << Counts{0, 10, 84} << "101" << Counts{1, 1, 0, 0} << 74.0;
    QTest::newRow("as short as a blink") << Counts{0, 10, 85} << "101" << Counts{1, 0, 1, 0} << 75.0;
    QTest::newRow("as long as a blink") << Counts{0, 10, 510} << "101" << Counts{1, 0, 1, 0} << 500.0;
    QTest::newRow("longer than a blink") << Counts{0, 10, 511} << "101" << Counts{1, 0, 0, 1} << 501.0;
    QTest::newRow("several samples are one loss") << Counts{0, 50, 100, 150} << "1001" << Counts{1, 0, 1, 0} << 100.0;
    QTest::newRow("at the beginning") << Counts{0, 50, 60} << "011" << Counts{1, 1, 0, 0} << 50.0;
    QTest::newRow("at the end, to the last sample") << Counts{0, 50, 140} << "100" << Counts{1, 0, 1, 0} << 90.0;
    QTest::newRow("the last sample alone") << Counts{0, 50, 100} << "110" << Counts{1, 1, 0, 0} << 0.0;
    QTest::newRow("all") << Counts{0, 400, 800} << "000" << Counts{1, 0, 0, 1} << 800.0;
    QTest::newRow("two") << Counts{0, 10, 20, 30, 630} << "10101" << Counts{2, 1, 0, 1} << 600.0;
}

void TestDataQuality::lossesByLength()
{
    QFETCH(QList<qint64>, times);
    QFETCH(QString, validity);
    QFETCH(QList<qint64>, counts);
    QFETCH(double, longestMs);
    Examination examination;
    for (qsizetype i = 0; i < times.size(); ++i)
        examination.leftEye.gazePoints << sample(times[i], 5, 5, validity[i] == u'1');
    const EyeQuality quality = leftOf(examination);
    QCOMPARE((QList<qint64>{quality.losses, quality.shortLosses, quality.blinkLosses, quality.longLosses}), counts);
    QCOMPARE(quality.longestLossMs.value_or(-1), longestMs);
    QCOMPARE(quality.validShare, double(validity.count(u'1')) / double(validity.size()));
}

void TestDataQuality::placesByHand()
{
    Examination examination;
    // The upper left corner is inside, the right and lower edge are not; an unusable sample is nowhere.
    examination.leftEye.gazePoints << sample(0, 0, 0) << sample(10, 999.9, 799.9) << sample(20, 1000, 5)
                                   << sample(30, 5, 800) << sample(40, -0.1, 5) << sample(50, -9, -9, 0);
    QCOMPARE(leftOf(examination).outsideShare, 3.0 / 5);
    examination.leftEye.gazePoints = {sample(0, 10, 10),  sample(10, 13, 14), sample(20, 13, 14, 0),
                                      sample(30, 13, 26), sample(40, 13, 38), sample(500, 900, 38)};
    // Distances 5 and 12 are counted; not that over the unusable sample, nor the one over the gap.
    const EyeQuality quality = leftOf(examination);
    QCOMPARE(quality.rmsPx, std::sqrt((25.0 + 144.0) / 2));
    QVERIFY(!quality.windowRmsPx); // none is whole
    QCOMPARE(quality.gaps, 1);
    QCOMPARE(quality.gapTimeMs, 450.0);
    QCOMPARE(quality.gapTimeShare, 0.9);
    QCOMPARE(quality.dataLossShare, 1 - 5.0 / 51);
    // Windows from 0, 200, 400 ms: 5 and 5 px, 1 and 7 px, 30 and 40 px. Their RMS are 5, 5 and 35.4 px.
    examination.leftEye.gazePoints = {sample(0, 0, 0),     sample(90, 5, 0),    sample(180, 10, 0),
                                      sample(270, 50, 0),  sample(300, 51, 0),  sample(390, 58, 0),
                                      sample(450, 100, 0), sample(500, 130, 0), sample(590, 170, 0)};
    QCOMPARE(leftOf(examination).windowRmsPx, 5.0);
}

void TestDataQuality::precisionByHand()
{
    Examination examination;
    const auto rest = [](qint64 startMs, double reach) {
        // Corners of a square: steps of 2 reach, deviations sqrt(4/3) reach each way, no correlation.
        return Fixation({sample(startMs, 100 - reach, 100 - reach), sample(startMs + 10, 100 + reach, 100 - reach),
                         sample(startMs + 20, 100 + reach, 100 + reach),
                         sample(startMs + 30, 100 - reach, 100 + reach)},
                        QStringLiteral("fixation"), {}, 1);
    };
    for (qint64 time = 0; time < 400; time += 10)
        examination.leftEye.gazePoints << sample(time, 100, 100);
    examination.leftEye.scanpath = {rest(0, 1), rest(100, 3), rest(200, 50)};
    EyeQuality quality = leftOf(examination);
    QCOMPARE(quality.measuredFixations, 3);
    QCOMPARE(quality.fixationRmsPx, 6.0);
    QCOMPARE(quality.fixationDeviationPx, std::sqrt(2 * 12.0));
    const double k = -std::log(1 - 0.682);
    QVERIFY(std::abs(*quality.fixationBceaPx2 - 2 * k * std::numbers::pi * 12) < 1e-9);
    // Without the last, the mean of the two.
    quality = leftOf(examination, {{0, 220}, screen, {}});
    QCOMPARE(quality.measuredFixations, 2);
    QCOMPARE(quality.fixationRmsPx, 4.0);
    // Unusable samples take no part, and are between no neighbours: two are left.
    for (const int i : {1, 3})
        examination.leftEye.scanpath[2].samples.own()[i].validFlag = false;
    QCOMPARE(leftOf(examination).measuredFixations, 2);
    examination.leftEye.scanpath.clear();
    quality = leftOf(examination);
    QCOMPARE(quality.measuredFixations, 0);
    QVERIFY(!quality.fixationRmsPx && !quality.fixationDeviationPx && !quality.fixationBceaPx2);
}

void TestDataQuality::eyesByHand()
{
    Examination examination;
    examination.leftEye.gazePoints << sample(0, 10, 10) << sample(10, 10, 10) << sample(20, 10, 10, 0)
                                   << sample(30, 10, 10);
    examination.rightEye.gazePoints << sample(0, 13, 14) << sample(10, 16, 18) << sample(20, 90, 90)
                                    << sample(30, 22, 5);
    for (const EyeQuality &quality : dataQuality(examination, {Eye::Left, Eye::Right}, {whole, screen, {}})) {
        QCOMPARE(quality.binocularShare, 0.75);
        QCOMPARE(quality.eyeDistancePx, 10.0); // of 5, 10 and 13
        QCOMPARE(quality.eyeOffsetXPx, 6.0);   // of 3, 6 and 12
        QCOMPARE(quality.eyeOffsetYPx, 4.0);   // of 4, 8 and -5
    }
}

void TestDataQuality::cutStreamsArePairedByTime()
{
    Examination examination;
    examination.leftEye.gazePoints << sample(0, 0, 0) << sample(20, 0, 0) << sample(30, 0, 0);
    examination.rightEye.gazePoints << sample(10, 90, 0) << sample(20, 3, 0) << sample(40, 90, 0);
    const EyeQuality quality = leftOf(examination);
    QCOMPARE(quality.eyeDistancePx, 3.0);
    QCOMPARE(quality.binocularShare, 1.0);
}

void TestDataQuality::angles()
{
    EyeQuality quality;
    quality.rmsPx = 1000;
    quality.fixationBceaPx2 = 100;
    QVERIFY(!rowOf(quality).contains(QStringLiteral("rms_s2s_deg")));
    quality.pixelPerDistance = 0.001; // 1000 px are as wide as the picture is far
    const plain::Row row = rowOf(quality);
    QVERIFY(std::abs(row[QStringLiteral("rms_s2s_deg")] - 45) < 1e-12);
    const double degreePerPx = std::atan(0.001) * 180 / std::numbers::pi;
    QVERIFY(std::abs(row[QStringLiteral("fixation_bcea_deg2")] - 100 * degreePerPx * degreePerPx) < 1e-12);
    QVERIFY(!row.contains(QStringLiteral("fixation_sd_deg")));
}

void TestDataQuality::frameCuts()
{
    Examination examination;
    for (qint64 time = 0; time <= 100; time += 10)
        examination.leftEye.gazePoints << sample(time, time < 50 ? 5 : 5000, 5, time != 60);
    const EyeQuality quality = leftOf(examination, {{20, 60}, screen, {}});
    QCOMPARE(quality.samples, 5);
    QCOMPARE(quality.durationMs, 40.0);
    QCOMPARE(quality.validShare, 0.8);
    QCOMPARE(quality.outsideShare, 0.25);
}

void TestDataQuality::notANumber()
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    Examination examination;
    examination.leftEye.gazePoints << sample(0, 1, 1) << sample(10, nan, 1) << sample(20, 1, 1) << sample(30, 4, 5);
    examination.rightEye.gazePoints << sample(0, nan, nan) << sample(10, 1, 1) << sample(20, 1, 1) << sample(30, 4, 5);
    const EyeQuality quality = leftOf(examination);
    QCOMPARE(quality.losses, 1);
    QCOMPARE(quality.outsideShare, 0.25);
    QCOMPARE(quality.rmsPx, 5.0);
    QCOMPARE(quality.binocularShare, 0.5);
    QCOMPARE(quality.eyeDistancePx, 0.0);
}

void TestDataQuality::nothing()
{
    const plain::Row empty = rowOf(leftOf(Examination()));
    for (const double value : empty)
        QCOMPARE(value, 0.0);
    QVERIFY(!empty.contains(QStringLiteral("rate_hz")));
    QVERIFY(!empty.contains(QStringLiteral("valid_sample_share")));
    QVERIFY(!empty.contains(QStringLiteral("eye_distance_px")));
    Examination one;
    one.leftEye.gazePoints << sample(7, 1, 1);
    QCOMPARE(leftOf(one).durationMs, 0.0);
    QCOMPARE(leftOf(one).validShare, 1.0);
    QVERIFY(!leftOf(one).rateHz && !leftOf(one).rmsPx && !leftOf(one).dataLossShare);
}

void TestDataQuality::likeThePlainForm_data()
{
    QTest::addColumn<double>("rateHz");
    QTest::addColumn<double>("lossesPerMin");
    QTest::addColumn<double>("noiseDeg");
    QTest::addColumn<int>("dropped"); // one sample in so many is not in the file; 0: none
    QTest::newRow("calm") << 250.0 << 0.0 << 0.1 << 0;
    QTest::newRow("slow") << 60.0 << 10.0 << 0.3 << 0;
    QTest::newRow("with gaps") << 120.0 << 20.0 << 0.5 << 17;
    QTest::newRow("fast") << 1000.0 << 30.0 << 0.05 << 101;
    QTest::newRow("times repeat") << 2000.0 << 5.0 << 0.2 << 0;
}

void TestDataQuality::likeThePlainForm()
{
    QFETCH(double, rateHz);
    QFETCH(double, lossesPerMin);
    QFETCH(double, noiseDeg);
    QFETCH(int, dropped);
    for (quint64 seed = 1; seed <= 3; ++seed) {
        SimulationParameters person;
        person.seed = seed;
        person.rateHz = rateHz;
        person.lossesPerMin = lossesPerMin;
        person.noiseDeg = noiseDeg;
        DataModel model;
        model.examinations() << simulated(person);
        for (EyeData *stream : model.examinations()[0].streams()) {
            for (qsizetype i = stream->gazePoints.size() - 1; dropped > 0 && i > 0; i -= dropped)
                stream->gazePoints.removeAt(i);
        }
        calculateFixations(model,
                           StandardParameters{.minimumDurationMs = 80, .maximumRadiusPx = 40, .allowedOutliers = 1},
                           nullptr, 1);
        const Examination &examination = std::as_const(model).examinations()[0];
        const TimeFrame frame{300, 9000};
        for (const Eye eye : {Eye::Left, Eye::Right, Eye::Mean}) {
            const plain::Row found = rowOf(dataQuality(examination, {eye}, {frame, screen, {}}).first());
            const plain::Row expected = plain::quality(examination, eye, frame, screen);
            QCOMPARE(found.keys(), expected.keys());
            for (auto each = expected.cbegin(); each != expected.cend(); ++each) {
                const double most = 1e-9 * std::max(1.0, std::abs(each.value()));
                QVERIFY2(std::abs(found[each.key()] - each.value()) <= most,
                         qPrintable(QStringLiteral("%1: %2, not %3 (seed %4)")
                                        .arg(each.key(), QString::number(found[each.key()], 'g', 17),
                                             QString::number(each.value(), 'g', 17), QString::number(seed))));
            }
            QVERIFY(found[QStringLiteral("measured_fixations")] > 5);
        }
    }
}

void TestDataQuality::screenIsThePicture()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("p.png"));
    QVERIFY(QImage(320, 200, QImage::Format_RGB32).save(path));
    Examination examination;
    QCOMPARE(screenSizeOf(examination), QSizeF(2560, 1600));
    examination.image = std::make_shared<ImageRecord>(path);
    QCOMPARE(screenSizeOf(examination), QSizeF(320, 200));
    examination.image = std::make_shared<ImageRecord>(folder.filePath(QStringLiteral("none.png")));
    QCOMPARE(screenSizeOf(examination), QSizeF(2560, 1600));
}

void TestDataQuality::studyByThreads()
{
    DataModel model;
    for (quint64 seed = 1; seed <= 5; ++seed) {
        SimulationParameters person;
        person.seed = seed;
        person.durationS = 2;
        model.examinations() << simulated(person);
        model.examinations().last().checked = seed != 2;
    }
    model.setTimeFrame({0, 2000});
    const auto rows = [&](MeasuredExaminations which, int threads) {
        QStringList texts;
        for (const StreamQuality &each : studyQuality(
                 model, {.eyes = EyeMode::showAll, .which = which, .pixelPerDistance = {}, .threads = threads}))
        {
            texts << QString::number(each.examination) + eyeWord(each.eye);
            for (const double value : rowOf(each.quality))
                texts.last() += u' ' + QString::number(value, 'g', 17);
        }
        return texts;
    };
    const QStringList checked = rows(MeasuredExaminations::Checked, 1);
    QCOMPARE(checked.size(), 8);
    QVERIFY(checked[2].startsWith(QStringLiteral("2left ")));
    QCOMPARE(rows(MeasuredExaminations::Checked, 4), checked);
    QCOMPARE(rows(MeasuredExaminations::All, 4).size(), 10);
}

void TestDataQuality::limits()
{
    EyeQuality quality;
    QCOMPARE(limitsBroken(quality, usualLimits()), QList<qsizetype>()); // nothing is defined
    quality.jitterMs = 1000;
    QCOMPARE(limitsBroken(quality, usualLimits()), QList<qsizetype>()); // not recorded
    quality.validShare = 0.8;
    quality.jitterMs = 2;
    QCOMPARE(limitsBroken(quality, usualLimits()), QList<qsizetype>());
    quality.validShare = 0.799;
    quality.jitterMs = 2.1;
    QCOMPARE(limitsBroken(quality, usualLimits()), (QList<qsizetype>{0, 3}));
    QList<double> milder = usualLimits();
    milder[0] = 50;
    QCOMPARE(limitsBroken(quality, milder), QList<qsizetype>{3});
    QStringList columns;
    for (const Measure<EyeQuality> &measure : qualityMeasures())
        columns << measure.name;
    for (const QualityLimit &limit : qualityLimits())
        QVERIFY2(columns.contains(limit.measure), limit.measure.data());
}

QTEST_GUILESS_MAIN(TestDataQuality)
#include "TestDataQuality.moc"
