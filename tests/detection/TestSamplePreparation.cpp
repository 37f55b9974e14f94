// SPDX-License-Identifier: GPL-3.0-or-later
#include "detection/SamplePreparation.h"
#include "TestMessages.h"

#include <QTest>

#include <limits>

namespace {

const QString allInvalid =
    QStringLiteral("All samples are invalid.|Your data seems to contain not a single valid sample.");

/// A sample as a test writes it: time, x (y is 10 x), valid or not.
struct Raw {
    qint64 time;
    double x;
    int validity;
};

QList<GazePoint> samples(std::initializer_list<Raw> raw)
{
    QList<GazePoint> points;
    for (const Raw &r : raw)
        points << GazePoint(r.time, r.x, 10 * r.x, 0, 0, r.validity);
    return points;
}

std::vector<WorkSample> records(std::initializer_list<double> values)
{
    std::vector<WorkSample> list;
    for (const double value : values)
        list.push_back({nullptr, value, -value, false, true});
    return list;
}

QList<double> xOf(const std::vector<WorkSample> &list)
{
    QList<double> values;
    for (const WorkSample &record : list)
        values << record.x;
    return values;
}

} // namespace

class TestSamplePreparation : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void bridging_data();
    void bridging();
    void lostSampleOfLongGapKeepsItsPosition();
    void sourceIsTheRawSample();
    void warningForEachSampleOfAnInvalidRecording_data();
    void warningForEachSampleOfAnInvalidRecording();
    void emptyRecording();
    void gapDurationOfSample_data();
    void gapDurationOfSample();
    void interpolation_data();
    void interpolation();
    void interpolationOfValidSampleIsReported();
    void longInvalidRunIsLinear();
    void filterLength_data();
    void filterLength();
    void filterWorksInPlace();
    void filterSkipsUnusable();
    void medianOfWindowCases_data();
    void medianOfWindowCases();
    void medianOfWindowWithoutIndex();
    void medianOfWindowOfUnusableRecord();
};

void TestSamplePreparation::bridging_data()
{
    QTest::addColumn<QList<GazePoint>>("raw");
    QTest::addColumn<bool>("bridged"); // the sample at index 1
    QTest::addColumn<double>("x");
    QTest::newRow("gap of 19 ms") << samples({{0, 1, 1}, {10, 0, 0}, {19, 3, 1}}) << true << 1 + 2.0 / 19 * 10;
    QTest::newRow("gap of exactly 20 ms") << samples({{0, 1, 1}, {10, 0, 0}, {20, 3, 1}}) << true << 2.0;
    QTest::newRow("gap of 21 ms") << samples({{0, 1, 1}, {10, 0, 0}, {21, 3, 1}}) << false << 0.0;
    QTest::newRow("at the end the last sample stands in: 20 ms")
        << samples({{0, 5, 1}, {10, 0, 0}, {20, 0, 0}}) << true << 5.0;
    QTest::newRow("at the end: 21 ms") << samples({{0, 5, 1}, {10, 0, 0}, {21, 0, 0}}) << false << 0.0;
    QTest::newRow("at the start the first sample stands in: 20 ms")
        << samples({{0, 0, 0}, {10, 0, 0}, {20, 7, 1}}) << true << 7.0;
    QTest::newRow("at the start: 21 ms") << samples({{0, 0, 0}, {10, 0, 0}, {21, 7, 1}}) << false << 0.0;
    QTest::newRow("neighbours at one time: the left position")
        << samples({{5, 1, 1}, {5, 0, 0}, {5, 3, 1}}) << true << 1.0;
    QTest::newRow("a clock that runs backwards bridges") // 1 + 2 / -30 * -10
        << samples({{30, 1, 1}, {20, 0, 0}, {0, 3, 1}}) << true << 1 + 2.0 / -30 * -10;
}

void TestSamplePreparation::bridging()
{
    QFETCH(QList<GazePoint>, raw);
    const std::vector<WorkSample> prepared = prepareSamples(raw, 20);
    QCOMPARE(prepared.size(), 3);
    QTEST(prepared[1].usable, "bridged");
    QTEST(prepared[1].filtered, "bridged");
    QTEST(prepared[1].x, "x");
    QCOMPARE(prepared[1].y, 10 * prepared[1].x);
}

void TestSamplePreparation::lostSampleOfLongGapKeepsItsPosition()
{
    const std::vector<WorkSample> prepared = prepareSamples(samples({{0, 1, 1}, {10, 99, 0}, {40, 3, 1}}), 20);
    QCOMPARE(prepared[1].x, 99.0);
    QVERIFY(!prepared[1].usable);
    QVERIFY(!prepared[1].filtered);
}

void TestSamplePreparation::sourceIsTheRawSample()
{
    const QList<GazePoint> raw = samples({{0, 1, 1}, {10, 0, 0}, {20, 3, 1}});
    const std::vector<WorkSample> prepared = prepareSamples(raw, 20);
    for (size_t i = 0; i < prepared.size(); ++i)
        QCOMPARE(prepared[i].source, &raw[static_cast<qsizetype>(i)]);
    QVERIFY(prepared[0].usable);
    QVERIFY(!prepared[0].filtered);
}

void TestSamplePreparation::warningForEachSampleOfAnInvalidRecording_data()
{
    QTest::addColumn<QList<GazePoint>>("raw");
    QTest::addColumn<int>("warnings");
    QTest::newRow("one sample") << samples({{0, 9, 0}}) << 1;
    QTest::newRow("20 ms: each is interpolated") << samples({{0, 9, 0}, {10, 9, 0}, {20, 9, 0}}) << 3;
    QTest::newRow("21 ms: none is") << samples({{0, 9, 0}, {10, 9, 0}, {21, 9, 0}}) << 0;
}

void TestSamplePreparation::warningForEachSampleOfAnInvalidRecording()
{
    QFETCH(QList<GazePoint>, raw);
    QFETCH(int, warnings);
    const RecordedMessages messages;
    const std::vector<WorkSample> prepared = prepareSamples(raw, 20);
    QCOMPARE(messages.texts(), QStringList(warnings, allInvalid));
    for (const WorkSample &record : prepared) {
        QCOMPARE(record.x, warnings > 0 ? 0.0 : 9.0);
        QCOMPARE(record.usable, warnings > 0);
    }
}

void TestSamplePreparation::emptyRecording()
{
    const RecordedMessages messages;
    QVERIFY(prepareSamples({}, 20).empty());
    QVERIFY(messages.texts().isEmpty());
}

void TestSamplePreparation::gapDurationOfSample_data()
{
    QTest::addColumn<qsizetype>("index");
    QTest::addColumn<qint64>("duration");
    // valid at 10 and 40 only, of 0 to 60 ms
    QTest::newRow("at the start: from the first sample") << qsizetype(0) << qint64(10);
    QTest::newRow("in the middle: between the neighbours") << qsizetype(3) << qint64(30);
    QTest::newRow("at the end: to the last sample") << qsizetype(6) << qint64(20);
    QTest::newRow("of a valid sample: it is both neighbours") << qsizetype(1) << qint64(0);
}

void TestSamplePreparation::gapDurationOfSample()
{
    QFETCH(qsizetype, index);
    const QList<GazePoint> raw =
        samples({{0, 0, 0}, {10, 1, 1}, {20, 0, 0}, {30, 0, 0}, {40, 3, 1}, {50, 0, 0}, {60, 0, 0}});
    QTEST(gapDuration(raw, index), "duration");
}

void TestSamplePreparation::interpolation_data()
{
    QTest::addColumn<qsizetype>("index");
    QTest::addColumn<double>("x");
    // valid at 10 (x 1) and 40 (x 4) only, of 0 to 50 ms
    QTest::newRow("at the start: the first valid position") << qsizetype(0) << 1.0;
    QTest::newRow("a third of the way") << qsizetype(2) << 2.0;
    QTest::newRow("two thirds of the way") << qsizetype(3) << 3.0;
    QTest::newRow("at the end: the last valid position") << qsizetype(5) << 4.0;
}

void TestSamplePreparation::interpolation()
{
    QFETCH(qsizetype, index);
    const QList<GazePoint> raw = samples({{0, 0, 0}, {10, 1, 1}, {20, 0, 0}, {30, 0, 0}, {40, 4, 1}, {50, 0, 0}});
    const QPointF position = interpolateGap(raw, index);
    QTEST(position.x(), "x");
    QCOMPARE(position.y(), 10 * position.x());
}

void TestSamplePreparation::interpolationOfValidSampleIsReported()
{
    const RecordedMessages messages;
    QCOMPARE(interpolateGap(samples({{0, 1, 1}, {10, 2, 1}}), 1), QPointF(2, 20));
    QCOMPARE(messages.texts(),
             QStringList(QStringLiteral("Program error|Interpolation indices are erroneous. Program has a bug :-(")));
}

/// Two million lost samples: a search of the neighbours from each of them would take hours.
void TestSamplePreparation::longInvalidRunIsLinear()
{
    QList<GazePoint> raw;
    constexpr int count = 2000000;
    raw.reserve(count + 1);
    for (int i = 0; i < count; ++i)
        raw << GazePoint(i, 0, 0, 0, 0, 0);
    raw << GazePoint(count, 0, 0, 0, 0, 1);
    const std::vector<WorkSample> prepared = prepareSamples(raw, 20);
    QCOMPARE(prepared.size(), size_t(count + 1));
    QVERIFY(!prepared[count / 2].usable);
}

void TestSamplePreparation::filterLength_data()
{
    QTest::addColumn<int>("length");
    QTest::addColumn<QStringList>("messages");
    QTest::addColumn<QList<double>>("x");
    const QString even =
        QStringLiteral("Filter length is even|Expected an odd number as filter length, but found even. "
                       "Increasing length by 1.");
    const QString tooSmall =
        QStringLiteral("Filter length <= 0|Filter length was invalid. Choosing 1 (= no filtering) instead.");
    const QList<double> unfiltered{9, 1, 5};
    // In place: (9,1) -> 5; then (5,1,5) -> 5; then (5,5) -> 5.
    const QList<double> filtered{5, 5, 5};
    QTest::newRow("3") << 3 << QStringList() << filtered;
    QTest::newRow("2 becomes 3") << 2 << QStringList(even) << filtered;
    QTest::newRow("1 filters nothing") << 1 << QStringList() << unfiltered;
    QTest::newRow("0 becomes 1") << 0 << QStringList(even) << unfiltered;
    QTest::newRow("-1 is invalid") << -1 << QStringList(tooSmall) << unfiltered;
    QTest::newRow("-2 becomes -1") << -2 << QStringList({even, tooSmall}) << unfiltered;
}

void TestSamplePreparation::filterLength()
{
    QFETCH(int, length);
    const RecordedMessages messages;
    std::vector<WorkSample> list = records({9, 1, 5});
    medianFilter(list, length);
    QTEST(messages.texts(), "messages");
    QTEST(xOf(list), "x");
}

void TestSamplePreparation::filterWorksInPlace()
{
    // (0,0,9) of indices 0 to 2: first (0,9) -> 4.5, then (4.5,9,0) -> 4.5, then (4.5,0,9) -> 4.5, then (4.5,9)
    // -> 6.75.
    std::vector<WorkSample> list = records({0, 9, 0, 9});
    medianFilter(list, 3);
    QCOMPARE(xOf(list), QList<double>({4.5, 4.5, 4.5, 6.75}));
    QVERIFY(list[0].filtered);
    QCOMPARE(list[3].y, -6.75);
}

void TestSamplePreparation::filterSkipsUnusable()
{
    std::vector<WorkSample> list = records({1, 50, 3});
    list[1].usable = false;
    medianFilter(list, 3);
    QCOMPARE(xOf(list), QList<double>({1, 50, 3}));
    QVERIFY(!list[1].filtered);
    QVERIFY(list[0].filtered);
}

void TestSamplePreparation::medianOfWindowCases_data()
{
    QTest::addColumn<qsizetype>("start");
    QTest::addColumn<qsizetype>("end");
    QTest::addColumn<double>("x");
    // of 8, 1, 6, 3
    QTest::newRow("odd count: the middle") << qsizetype(0) << qsizetype(2) << 6.0;
    QTest::newRow("even count: mean of the middle two") << qsizetype(0) << qsizetype(3) << 4.5;
    QTest::newRow("two") << qsizetype(1) << qsizetype(2) << 3.5;
    QTest::newRow("clamped to the list") << qsizetype(-5) << qsizetype(90) << 4.5;
    QTest::newRow("-1 is the last") << qsizetype(2) << qsizetype(-1) << 4.5; // (6 + 3) / 2
}

void TestSamplePreparation::medianOfWindowCases()
{
    QFETCH(qsizetype, start);
    QFETCH(qsizetype, end);
    const WorkSample median = medianOfWindow(records({8, 1, 6, 3}), start, end, 2);
    QTEST(median.x, "x");
    QCOMPARE(median.y, -median.x);
    QVERIFY(median.filtered);
    QVERIFY(median.usable);
}

void TestSamplePreparation::medianOfWindowWithoutIndex()
{
    const WorkSample median = medianOfWindow(records({8, 1, 6}), 0, -1, -1);
    QCOMPARE(median.x, 6.0);
    QVERIFY(!median.source);
    QVERIFY(!median.filtered);
    std::vector<WorkSample> unusable = records({8});
    unusable[0].usable = false;
    QCOMPARE(medianOfWindow(unusable, 0, -1, -1).x, 0.0);
    QCOMPARE(medianOfWindow({}, 0, -1, -1).x, 0.0);
    constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
    QCOMPARE(medianOfWindow(records({notANumber, 2, 1}), 0, -1, -1).x, 2.0);
}

void TestSamplePreparation::medianOfWindowOfUnusableRecord()
{
    std::vector<WorkSample> list = records({8, 1, 6});
    list[1].usable = false;
    const WorkSample same = medianOfWindow(list, 0, 2, 1);
    QCOMPARE(same.x, 1.0);
    QVERIFY(!same.filtered);
    QVERIFY(!same.usable);
}

QTEST_GUILESS_MAIN(TestSamplePreparation)
#include "TestSamplePreparation.moc"
