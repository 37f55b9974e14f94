// SPDX-License-Identifier: GPL-3.0-or-later
#include "gaze-simulator/PortableMath.h"
#include "gaze-simulator/RandomSource.h"

#include <QTest>

#include <cmath>
#include <functional>
#include <numbers>

class TestRandomSource : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void portableFunctionsAgreeWithTheLibrary_data();
    void portableFunctionsAgreeWithTheLibrary();
    void meanAndSpread_data();
    void meanAndSpread();
    void streamsAndSeeds();
};

using Function = std::function<double(double)>;
using Draw = std::function<double(RandomSource &)>;

void TestRandomSource::portableFunctionsAgreeWithTheLibrary_data()
{
    QTest::addColumn<Function>("ours");
    QTest::addColumn<Function>("library");
    QTest::addColumn<double>("from");
    QTest::addColumn<double>("to");
    const Function logarithm = [](double x) { return std::log(x); };
    const Function exponential = [](double x) { return std::exp(x); };
    const Function cosine = [](double x) { return std::cos(x); };
    QTest::newRow("logarithm below 1") << Function(portable::naturalLogarithm) << logarithm << 1e-9 << 1.0;
    QTest::newRow("logarithm above 1") << Function(portable::naturalLogarithm) << logarithm << 1.0 << 1e6;
    QTest::newRow("logarithm of the smallest numbers")
        << Function(portable::naturalLogarithm) << logarithm << 1e-310 << 1e-300;
    QTest::newRow("exponential around 0") << Function(portable::exponential) << exponential << -1.0 << 1.0;
    QTest::newRow("exponential far out") << Function(portable::exponential) << exponential << -600.0 << 600.0;
    QTest::newRow("cosine of half a turn") << Function(portable::cosine) << cosine << 0.0 << std::numbers::pi;
}

void TestRandomSource::portableFunctionsAgreeWithTheLibrary()
{
    QFETCH(Function, ours);
    QFETCH(Function, library);
    QFETCH(double, from);
    QFETCH(double, to);
    constexpr int steps = 10007;
    for (int i = 0; i <= steps; ++i) {
        const double x = from + (to - from) * i / steps;
        const double expected = library(x);
        const double difference = std::abs(ours(x) - expected);
        QVERIFY2(difference <= 2e-15 * std::max(std::abs(expected), 1.0) || difference <= 2e-15 * std::abs(expected),
                 qPrintable(QString::number(x, 'g', 17)));
    }
}

void TestRandomSource::meanAndSpread_data()
{
    QTest::addColumn<Draw>("draw");
    QTest::addColumn<double>("mean");
    QTest::addColumn<double>("deviation");
    QTest::newRow("uniform: deviation is the width / sqrt 12")
        << Draw([](RandomSource &random) { return random.uniform(2, 8); }) << 5.0 << 6 / std::sqrt(12.0);
    QTest::newRow("normal") << Draw([](RandomSource &random) { return random.normal(); }) << 0.0 << 1.0;
    QTest::newRow("exponential: deviation is the mean")
        << Draw([](RandomSource &random) { return random.exponential(3); }) << 3.0 << 3.0;
    QTest::newRow("log-normal: deviation is the mean times sqrt(exp(spread^2) - 1)")
        << Draw([](RandomSource &random) { return random.logNormal(275, 0.4); }) << 275.0
        << 275 * std::sqrt(std::exp(0.16) - 1);
}

void TestRandomSource::meanAndSpread()
{
    QFETCH(Draw, draw);
    QFETCH(double, mean);
    QFETCH(double, deviation);
    RandomSource random(20, RandomSource::Stream::Scanpath);
    constexpr int count = 200000;
    double sum = 0;
    double squares = 0;
    for (int i = 0; i < count; ++i) {
        const double value = draw(random);
        sum += value;
        squares += (value - mean) * (value - mean);
    }
    // the mean of n values has a standard error of deviation / sqrt n; 5 of them are never left by chance
    const double standardError = deviation / std::sqrt(static_cast<double>(count));
    QVERIFY2(std::abs(sum / count - mean) < 5 * standardError, qPrintable(QString::number(sum / count)));
    const double measured = std::sqrt(squares / count);
    QVERIFY2(std::abs(measured / deviation - 1) < 0.02, qPrintable(QString::number(measured)));
}

void TestRandomSource::streamsAndSeeds()
{
    using Stream = RandomSource::Stream;
    const auto first = [](quint64 seed, Stream stream) { return RandomSource(seed, stream).uniform(); };
    QCOMPARE(first(1, Stream::Blinks), first(1, Stream::Blinks));
    QVERIFY(first(1, Stream::Blinks) != first(2, Stream::Blinks));
    QVERIFY(first(1, Stream::Blinks) != first(1, Stream::Losses));
    // neighbours must not be shifted copies: seed and stream may not be interchangeable
    QVERIFY(first(1, Stream::Losses) != first(2, Stream::Blinks));
}

QTEST_GUILESS_MAIN(TestRandomSource)
#include "TestRandomSource.moc"
