// SPDX-License-Identifier: GPL-3.0-or-later
#include "detection/GeneratedGaze.h"
#include "detection/PlainTwoGaussians.h"

#include <QTest>

#include <algorithm>
#include <cmath>
#include <random>

namespace {

std::vector<float> mixed(unsigned seed, int count)
{
    std::mt19937 random(seed);
    const auto between = [&](double low, double high) {
        return std::uniform_real_distribution<double>(low, high)(random);
    };
    std::normal_distribution<double> resting(between(0.5, 4), between(0.2, 2));
    std::normal_distribution<double> moving(between(3, 90), between(1, 30));
    std::bernoulli_distribution isMoving(between(0.01, 0.5));
    std::vector<float> values;
    for (int i = 0; i < count; ++i)
        values.push_back(static_cast<float>(std::abs(isMoving(random) ? moving(random) : resting(random))));
    return values;
}

std::vector<float> stepsOf(const QList<GazePoint> &samples)
{
    std::vector<float> lengths;
    for (qsizetype i = 0; i + 1 < samples.size(); ++i)
        lengths.push_back(
            static_cast<float>(std::hypot(samples[i + 1].x - samples[i].x, samples[i + 1].y - samples[i].y)));
    return lengths;
}

bool areSame(const Gaussian &a, const Gaussian &b)
{
    return a.weight == b.weight && a.mean == b.mean && a.variance == b.variance;
}

/// Nothing where the fit fails or k-means refuses the values, as it does where their squares leave its numbers.
template <class Fit>
std::optional<TwoGaussians> resultOf(Fit fit, const std::vector<float> &values)
{
    cv::theRNG() = cv::RNG(1);
    try {
        return fit(values);
    } catch (const cv::Exception &) {
        return std::nullopt;
    }
}

} // namespace

class TestTwoGaussians : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void sameBitsAsTheLibrary_data();
    void sameBitsAsTheLibrary();
};

void TestTwoGaussians::sameBitsAsTheLibrary_data()
{
    QTest::addColumn<std::vector<float>>("values");
    QTest::newRow("two") << std::vector<float>{1, 5};
    QTest::newRow("two alike") << std::vector<float>{5, 5};
    QTest::newRow("three") << std::vector<float>{1, 2, 40};
    QTest::newRow("nothing but 0") << std::vector<float>(100, 0.0F);
    QTest::newRow("all alike") << std::vector<float>(100, 7.0F);
    QTest::newRow("huge and tiny") << std::vector<float>{1e-30F, 1e15F, 1e-30F, 1e15F, 1};
    QTest::newRow("largest numbers") << std::vector<float>{3e38F, 1, 3e38F, 2, 3};
    std::vector<float> withSpike(100, 7);
    withSpike[50] = 900;
    QTest::newRow("one unlike the others") << withSpike;
    for (unsigned seed = 0; seed < 60; ++seed)
        QTest::addRow("mixed, seed %u", seed) << mixed(seed, 4 + 37 * static_cast<int>(seed));
    for (unsigned seed = 0; seed < 20; ++seed) {
        std::vector<float> whole = mixed(seed, 500);
        std::transform(whole.begin(), whole.end(), whole.begin(), [](float value) { return std::round(value); });
        QTest::addRow("whole pixels, seed %u", seed) << whole;
    }
    for (unsigned seed = 0; seed < 10; ++seed)
        QTest::addRow("gaze, seed %u", seed)
            << stepsOf(generatedGaze({.count = 2000, .rateHz = 60.0 * (seed + 1), .seed = seed}));
}

void TestTwoGaussians::sameBitsAsTheLibrary()
{
    QFETCH(std::vector<float>, values);
    const auto expected = resultOf(plainTwoGaussians, values);
    const auto found = resultOf(fitTwoGaussians, values);
    QCOMPARE(found.has_value(), expected.has_value());
    if (!expected)
        return;
    QVERIFY(found->labels == expected->labels);
    QVERIFY(areSame(found->components[0], expected->components[0]));
    QVERIFY(areSame(found->components[1], expected->components[1]));
}

QTEST_GUILESS_MAIN(TestTwoGaussians)
#include "TestTwoGaussians.moc"
