// SPDX-License-Identifier: GPL-3.0-or-later
#include "detection/Median.h"
#include "detection/RunningMedian.h"

#include <QTest>

#include <algorithm>
#include <deque>
#include <limits>
#include <random>

class TestRunningMedian : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void handCases_data();
    void handCases();
    void emptyHasNoMedian();
    void agreesWithSorting_data();
    void agreesWithSorting();
    void wanderingMedianAsksForBuild();
};

namespace {

double sortedMedian(const std::deque<double> &values)
{
    std::vector<double> sorted(values.begin(), values.end());
    std::sort(sorted.begin(), sorted.end(), sortsBefore);
    return medianOfSorted(sorted, sorted.size());
}

} // namespace

void TestRunningMedian::handCases_data()
{
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    QTest::addColumn<QList<double>>("values");
    QTest::addColumn<double>("median");
    QTest::newRow("one") << QList<double>{7} << 7.0;
    QTest::newRow("two: their mean") << QList<double>{7, 4} << 5.5;
    QTest::newRow("odd: the middle") << QList<double>{9, 1, 5} << 5.0;
    QTest::newRow("even: mean of the middle two") << QList<double>{9, 1, 5, 6} << 5.5;
    QTest::newRow("what is not a number sorts last") << QList<double>{nan, 1, 5, nan, 6} << 6.0;
    QTest::newRow("also after infinity") << QList<double>{nan, 1, std::numeric_limits<double>::infinity(), 5, 6} << 6.0;
}

void TestRunningMedian::handCases()
{
    QFETCH(QList<double>, values);
    QFETCH(double, median);
    RunningMedian built;
    built.build({values.cbegin(), values.cend()});
    QCOMPARE(built.median().value(), median);
    RunningMedian grown;
    grown.build({values.first()});
    for (const double value : values.sliced(1))
        grown.add(value);
    QCOMPARE(grown.median().value(), median);
}

void TestRunningMedian::emptyHasNoMedian()
{
    RunningMedian median;
    QVERIFY(!median.median());
    median.build({});
    QVERIFY(!median.median());
    median.add(3);
    QCOMPARE(median.median().value(), 3.0);
}

void TestRunningMedian::agreesWithSorting_data()
{
    QTest::addColumn<int>("distinct");
    QTest::newRow("few distinct values") << 3;
    QTest::newRow("some equal values") << 50;
    QTest::newRow("hardly any equal values") << 1000000;
}

void TestRunningMedian::agreesWithSorting()
{
    QFETCH(int, distinct);
    for (unsigned seed = 0; seed < 8; ++seed) {
        std::mt19937 random(seed);
        std::deque<double> values;
        RunningMedian median;
        for (int step = 0; step < 3000; ++step) {
            const bool grows = values.empty() || random() % 100 < (step / 700 % 2 == 0 ? 70 : 35);
            if (grows) {
                const auto value = static_cast<double>(random() % static_cast<unsigned>(distinct));
                values.push_back(random() % 50 == 0 ? std::numeric_limits<double>::quiet_NaN() : value + step * 0.001);
                median.add(values.back());
            } else if (random() % 3 == 0) {
                median.remove(values.back());
                values.pop_back();
            } else {
                median.remove(values.front());
                values.pop_front();
            }
            if (values.empty())
                continue;
            std::optional<double> found = median.median();
            if (!found) {
                median.build({values.begin(), values.end()});
                found = median.median();
            }
            const double expected = sortedMedian(values);
            QVERIFY2(found && (*found == expected || (std::isnan(*found) && std::isnan(expected))),
                     qPrintable(QStringLiteral("seed %1 step %2").arg(seed).arg(step)));
        }
    }
}

void TestRunningMedian::wanderingMedianAsksForBuild()
{
    RunningMedian median;
    median.build(std::vector<double>(1000, 5.0));
    for (int i = 0; i < 2000; ++i)
        median.add(9);
    QVERIFY(!median.median());
}

QTEST_GUILESS_MAIN(TestRunningMedian)
#include "TestRunningMedian.moc"
