// SPDX-License-Identifier: GPL-3.0-or-later
#include "detection/StepMixture.h"

#include <opencv2/ml.hpp>
#include <QTest>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <thread>

namespace {

/// Samples along a row of the image with steps of these lengths.
QList<GazePoint> samplesWithSteps(const std::vector<double> &steps)
{
    QList<GazePoint> samples{GazePoint(0, 100, 300, 0, 0, 1)};
    for (const double step : steps)
        samples << GazePoint(4 * samples.size(), samples.constLast().x + step, 300, 0, 0, 1);
    return samples;
}

struct Recipe {
    double restMean;
    double restDeviation;
    double saccadeMean;
    double saccadeDeviation;
    double saccadeShare;
};

std::vector<double> mixedSteps(const Recipe &recipe, int count, unsigned seed)
{
    std::mt19937 random(seed);
    std::normal_distribution<double> normal;
    std::bernoulli_distribution isSaccade(recipe.saccadeShare);
    std::vector<double> steps;
    for (int i = 0; i < count; ++i) {
        const bool fast = isSaccade(random);
        steps.push_back(std::abs((fast ? recipe.saccadeMean : recipe.restMean) +
                                 (fast ? recipe.saccadeDeviation : recipe.restDeviation) * normal(random)));
    }
    return steps;
}

/// Expectation maximisation of two Gaussians, written for this test: starts from the lower and the upper half, ends
/// when nothing changes any more. 0 marks the component with the smaller mean.
std::vector<int> secondOpinion(const std::vector<double> &values)
{
    const double middle =
        (*std::min_element(values.begin(), values.end()) + *std::max_element(values.begin(), values.end())) / 2;
    std::vector<double> share; // of the second component in each value
    for (const double value : values)
        share.push_back(value > middle ? 1 : 0);
    struct Gaussian {
        double weight, mean, variance;
    };
    const auto fit = [&](bool second) {
        double weight = 0;
        double sum = 0;
        double squares = 0;
        for (size_t i = 0; i < values.size(); ++i)
            weight += second ? share[i] : 1 - share[i];
        for (size_t i = 0; i < values.size(); ++i)
            sum += (second ? share[i] : 1 - share[i]) * values[i];
        for (size_t i = 0; i < values.size(); ++i)
            squares += (second ? share[i] : 1 - share[i]) * std::pow(values[i] - sum / weight, 2);
        return Gaussian{weight / static_cast<double>(values.size()), sum / weight, squares / weight};
    };
    const auto density = [](const Gaussian &g, double value) {
        return g.weight / std::sqrt(g.variance) * std::exp(-std::pow(value - g.mean, 2) / (2 * g.variance));
    };
    for (int iteration = 0; iteration < 1000; ++iteration) {
        const Gaussian low = fit(false);
        const Gaussian high = fit(true);
        for (size_t i = 0; i < values.size(); ++i)
            share[i] = density(high, values[i]) / (density(low, values[i]) + density(high, values[i]));
    }
    std::vector<int> labels;
    for (const double each : share)
        labels.push_back(each > 0.5 ? 1 : 0);
    return labels;
}

StepLabels labelsOf(const QList<GazePoint> &samples)
{
    const auto labelled = labelSteps(samples);
    const auto *steps = std::get_if<StepLabels>(&labelled);
    return steps ? *steps : StepLabels{{}, -1};
}

/// 0 for a resting step, 1 for another.
std::vector<int> movements(const StepLabels &steps)
{
    std::vector<int> movements;
    for (const int label : steps.labels)
        movements.push_back(label == steps.restingLabel ? 0 : 1);
    return movements;
}

/// The definition: a general fit of the library in two stages, each with up to 15,000 iterations and a limit of 1e-5.
std::vector<int> generalFit(const std::vector<double> &steps)
{
    const cv::Mat1f lengths = cv::Mat1f(std::vector<float>(steps.begin(), steps.end()), true);
    const auto mixture = [](int covariances) {
        const cv::Ptr<cv::ml::EM> made = cv::ml::EM::create();
        made->setClustersNumber(2);
        made->setCovarianceMatrixType(covariances);
        made->setTermCriteria({cv::TermCriteria::COUNT + cv::TermCriteria::EPS, 15'000, 1e-5});
        return made;
    };
    cv::theRNG() = cv::RNG(1);
    const cv::Ptr<cv::ml::EM> first = mixture(cv::ml::EM::COV_MAT_SPHERICAL);
    first->trainEM(lengths);
    std::vector<cv::Mat> covariances;
    first->getCovs(covariances);
    const cv::Ptr<cv::ml::EM> second = mixture(cv::ml::EM::COV_MAT_DIAGONAL);
    cv::Mat1i labels;
    second->trainE(lengths, first->getMeans(), covariances, first->getWeights(), cv::noArray(), labels);
    const cv::Mat1d means = second->getMeans();
    std::vector<int> movements;
    for (const int label : labels)
        movements.push_back(label == (means(0) <= means(1) ? 0 : 1) ? 0 : 1);
    return movements;
}

} // namespace

class TestStepMixture : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void sameLabelsAsASecondOpinion_data();
    void sameLabelsAsASecondOpinion();
    void overlappingKindsAsInTheGeneralFit();
    void stepsAreMeasuredInThePlane();
    void failures_data();
    void failures();
    void stillEyeDoesNoHarm_data();
    void stillEyeDoesNoHarm();
    void sameLabelsOnEveryRunAndThread();
    void randomNumbersOfOthersStay();
};

void TestStepMixture::sameLabelsAsASecondOpinion_data()
{
    QTest::addColumn<std::vector<double>>("steps");
    QTest::newRow("far apart") << mixedSteps({2, 0.5, 60, 8, 0.1}, 2000, 1);
    QTest::newRow("mostly saccades") << mixedSteps({2, 0.5, 60, 8, 0.8}, 2000, 2);
    QTest::newRow("wide saccades") << mixedSteps({3, 1, 80, 25, 0.15}, 3000, 3);
    QTest::newRow("few steps") << mixedSteps({2, 0.5, 60, 8, 0.3}, 30, 4);
    QTest::newRow("three short ones and three long ones") << std::vector<double>{1, 2, 40, 3, 42, 41};
    QTest::newRow("long ones first") << std::vector<double>{40, 42, 41, 1, 2, 3, 2, 1};
}

void TestStepMixture::sameLabelsAsASecondOpinion()
{
    QFETCH(std::vector<double>, steps);
    const std::vector<int> expected = secondOpinion(steps);
    QVERIFY(std::count(expected.begin(), expected.end(), 0) > 0 && std::count(expected.begin(), expected.end(), 1) > 0);
    QCOMPARE(movements(labelsOf(samplesWithSteps(steps))), expected);
}

/// Where the kinds overlap, as in a noisy recording, the labels depend on when the fit stops.
void TestStepMixture::overlappingKindsAsInTheGeneralFit()
{
    for (unsigned seed = 1; seed <= 6; ++seed) {
        std::vector<double> steps = mixedSteps({4, 3, 9 + seed * 1.5, 6, 0.06 * seed}, 1500, seed);
        for (double &step : steps)
            step = std::round(step); // differences of whole places are exact
        QVERIFY2(movements(labelsOf(samplesWithSteps(steps))) == generalFit(steps), qPrintable(QString::number(seed)));
    }
}

/// Steps of 5 px as 3 and 4 stand among shorter ones, though none of their sides is longer than those.
void TestStepMixture::stepsAreMeasuredInThePlane()
{
    QList<GazePoint> samples{GazePoint(0, 1, 1, 0, 0, 1)};
    std::vector<int> expected;
    for (int i = 0; i < 60; ++i) {
        const bool isLong = i % 3 == 0;
        const GazePoint &last = samples.constLast();
        const double jitter = 0.01 * (i % 5);
        samples << GazePoint(i, last.x + (isLong ? 30 + jitter : 0), last.y + (isLong ? 40 : 38 + jitter), 0, 0, 1);
        expected.push_back(isLong ? 1 : 0);
    }
    QCOMPARE(movements(labelsOf(samples)), expected);
}

void TestStepMixture::failures_data()
{
    QTest::addColumn<QList<GazePoint>>("samples");
    QTest::addColumn<QString>("reason");
    const QString few = QStringLiteral("fewer than three usable samples");
    QTest::newRow("no sample") << QList<GazePoint>() << few;
    QTest::newRow("one sample") << samplesWithSteps({}) << few;
    QTest::newRow("two samples") << samplesWithSteps({1}) << few;
    const QString endless = QStringLiteral("a step between two samples has no finite length");
    QTest::newRow("not a number") << samplesWithSteps({1, 2, std::nan(""), 3}) << endless;
    QTest::newRow("infinite") << samplesWithSteps({1, 2, std::numeric_limits<double>::infinity()}) << endless;
    QTest::newRow("beyond the digits of the fit") << samplesWithSteps({1, 2, 1e200, 4}) << endless;
}

void TestStepMixture::failures()
{
    QFETCH(QList<GazePoint>, samples);
    const auto labelled = labelSteps(samples);
    QVERIFY(std::holds_alternative<FitFailure>(labelled));
    QTEST(std::get<FitFailure>(labelled).reason, "reason");
}

void TestStepMixture::stillEyeDoesNoHarm_data()
{
    QTest::addColumn<std::vector<double>>("steps");
    QTest::newRow("three samples") << std::vector<double>{1, 2};
    QTest::newRow("three samples at one place") << std::vector<double>{0, 0};
    QTest::newRow("no movement at all") << std::vector<double>(100, 0);
    QTest::newRow("all steps alike") << std::vector<double>(100, 7);
    QTest::newRow("one step unlike the others") << [] {
        std::vector<double> steps(100, 7);
        steps[50] = 900;
        return steps;
    }();
    QTest::newRow("huge and tiny") << std::vector<double>{1e-30, 1e15, 1e-30, 1e15, 1};
}

/// There is no telling what such steps should be called; but there is a label for each, or a reason.
void TestStepMixture::stillEyeDoesNoHarm()
{
    QFETCH(std::vector<double>, steps);
    const auto labelled = labelSteps(samplesWithSteps(steps));
    if (const auto *failure = std::get_if<FitFailure>(&labelled)) {
        QVERIFY(failure->reason.startsWith(QStringLiteral("no mixture fits the lengths of the steps")));
        return;
    }
    const StepLabels &found = std::get<StepLabels>(labelled);
    QCOMPARE(found.labels.size(), steps.size());
    QVERIFY(std::all_of(found.labels.begin(), found.labels.end(), [](int label) { return label == 0 || label == 1; }));
}

void TestStepMixture::sameLabelsOnEveryRunAndThread()
{
    // overlapping kinds, of which the random start could make this or that
    const QList<GazePoint> samples = samplesWithSteps(mixedSteps({4, 3, 9, 6, 0.4}, 1500, 9));
    const StepLabels first = labelsOf(samples);
    QCOMPARE(first.labels.size(), 1500U);
    for (int i = 0; i < 5; ++i) {
        cv::theRNG() = cv::RNG(static_cast<uint64>(1000 + i));
        const StepLabels again = labelsOf(samples);
        QVERIFY(again.labels == first.labels);
        QCOMPARE(again.restingLabel, first.restingLabel);
    }
    labelsOf(samplesWithSteps(mixedSteps({1, 1, 5, 5, 0.5}, 100, 3)));
    std::vector<StepLabels> found(4);
    std::vector<std::thread> threads;
    for (StepLabels &each : found)
        threads.emplace_back([&each, &samples] { each = labelsOf(samples); });
    for (std::thread &thread : threads)
        thread.join();
    for (const StepLabels &each : found)
        QVERIFY(each.labels == first.labels && each.restingLabel == first.restingLabel);
}

void TestStepMixture::randomNumbersOfOthersStay()
{
    cv::theRNG() = cv::RNG(42);
    const unsigned expected = cv::RNG(42).next();
    labelsOf(samplesWithSteps({1, 2, 40, 3, 42, 41}));
    QCOMPARE(cv::theRNG().next(), expected);
}

QTEST_GUILESS_MAIN(TestStepMixture)
#include "TestStepMixture.moc"
