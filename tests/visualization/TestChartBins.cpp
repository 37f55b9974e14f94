// SPDX-License-Identifier: GPL-3.0-or-later
#include "PlainChart.h"
#include "visualization/charts/ChartBins.h"

#include <QTest>

#include <random>

class TestChartBins : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void scale_data();
    void scale();
    void range_data();
    void range();
    void likeThePlainForm_data();
    void likeThePlainForm();
    void largestOfValues();
};

void TestChartBins::scale_data()
{
    QTest::addColumn<TimeFrame>("frame");
    QTest::addColumn<int>("windowMs");
    QTest::addColumn<double>("msPerBin");
    QTest::addColumn<double>("half");
    // trunc(1000 / 10 + 0.5) - 2
    QTest::newRow("20 s, window of a second") << TimeFrame{0, 20000} << 1000 << 10.0 << 98.0;
    QTest::newRow("the start counts") << TimeFrame{10000, 30000} << 1000 << 10.0 << 98.0;
    QTest::newRow("window of two bins") << TimeFrame{0, 20000} << 20 << 10.0 << 0.0;
    QTest::newRow("window of three bins") << TimeFrame{0, 20000} << 30 << 10.0 << 1.0;
    QTest::newRow("window below a bin") << TimeFrame{0, 200000} << 10 << 100.0 << 0.0;
    QTest::newRow("no window counts as 10 ms") << TimeFrame{0, 2000} << 0 << 1.0 << 8.0;
    QTest::newRow("empty frame") << TimeFrame{500, 500} << 1000 << 1.0 << 998.0;
    QTest::newRow("frame that ends before it starts") << TimeFrame{500, 400} << 1000 << 1.0 << 998.0;
    QTest::newRow("more than one bin a millisecond") << TimeFrame{0, 1000} << 10 << 0.5 << 18.0;
}

void TestChartBins::scale()
{
    QFETCH(TimeFrame, frame);
    QFETCH(int, windowMs);
    QTEST(chart::binScale(frame, windowMs).msPerBin, "msPerBin");
    QTEST(chart::binScale(frame, windowMs).half, "half");
}

void TestChartBins::range_data()
{
    QTest::addColumn<qint64>("startMs");
    QTest::addColumn<double>("durationMs");
    QTest::addColumn<double>("half");
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("last");
    // 10 ms a bin, frame from 1000 ms on
    QTest::newRow("without duration") << qint64(1500) << 0.0 << 0.0 << 50 << 50;
    QTest::newRow("widened") << qint64(1500) << 100.0 << 5.0 << 45 << 65;
    QTest::newRow("halves are rounded up") << qint64(1505) << 0.0 << 0.0 << 51 << 51;
    QTest::newRow("from before the frame") << qint64(0) << 1500.0 << 5.0 << 0 << 55;
    QTest::newRow("beyond the end") << qint64(20900) << 1000.0 << 5.0 << 1985 << 1999;
    QTest::newRow("overlapping fixations: an end before the start") << qint64(1500) << -200.0 << 3.0 << 47 << 50;
    QTest::newRow("behind all bins") << qint64(50000) << 10.0 << 5.0 << 4895 << 1999;
}

void TestChartBins::range()
{
    QFETCH(qint64, startMs);
    QFETCH(double, durationMs);
    QFETCH(double, half);
    const chart::BinRange bins = chart::binsOf({1000, 10, half}, startMs, durationMs);
    QTEST(bins.first, "first");
    QTEST(bins.last, "last");
}

void TestChartBins::likeThePlainForm_data()
{
    QTest::addColumn<TimeFrame>("frame");
    QTest::addColumn<int>("windowMs");
    QTest::newRow("usual") << TimeFrame{0, 20000} << 1000;
    QTest::newRow("short frame") << TimeFrame{100, 900} << 100;
    QTest::newRow("long frame, narrow window") << TimeFrame{0, 3600000} << 10;
    QTest::newRow("window beyond the frame") << TimeFrame{0, 5000} << 1000000000;
    QTest::newRow("empty frame") << TimeFrame{0, 0} << 1000;
}

void TestChartBins::likeThePlainForm()
{
    QFETCH(TimeFrame, frame);
    QFETCH(int, windowMs);
    std::mt19937 random(14);
    std::uniform_int_distribution<qint64> start(frame.startMs - 500, frame.endMs + 500);
    std::uniform_int_distribution<int> duration(-50, 900);
    std::vector<plain::Event> events;
    QList<double> bins = chart::emptyBins();
    for (int i = 0; i < 200; ++i) {
        const plain::Event event{double(start(random)), double(duration(random)), double(i % 7)};
        events.push_back(event);
        chart::addEvent(bins, chart::binsOf(chart::binScale(frame, windowMs), qint64(event.startMs), event.durationMs),
                        event.weight);
    }
    const std::vector<double> expected = plain::bins(events, frame, windowMs);
    QCOMPARE(bins, QList<double>(expected.begin(), expected.end()));
}

void TestChartBins::largestOfValues()
{
    QCOMPARE(chart::largest({}), 0.0);
    QCOMPARE(chart::largest({-3, -1}), 0.0);
    QCOMPARE(chart::largest({1, 5, 2}), 5.0);
}

QTEST_GUILESS_MAIN(TestChartBins)
#include "TestChartBins.moc"
