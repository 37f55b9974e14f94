// SPDX-License-Identifier: GPL-3.0-or-later
#include "clustering/MeanShiftClustering.h"
#include "clustering/OverlapClusters.h"
#include "clustering/StandardClusterBuilder.h"
#include "ClusterSamples.h"
#include "PlainClusters.h"

#include <QTest>

#include <algorithm>
#include <numeric>

namespace {

constexpr unsigned seeds = 40;

std::vector<double> centroids(const EyeData &stream)
{
    std::vector<double> data;
    for (const Fixation &each : stream.scanpath) {
        data.push_back(each.mean.x());
        data.push_back(each.mean.y());
    }
    return data;
}

std::vector<double> labelsOf(const std::vector<double> &data, const plain::MeanShift &parameters)
{
    MeanShiftClustering clustering;
    clustering.cluster(data, parameters.radius, parameters.rate, parameters.iterations, 0);
    return clustering.labels;
}

/// Labels by first appearance, so that two partitions of the same points can be compared.
std::vector<double> partition(const std::vector<double> &labels)
{
    std::map<double, double> renamed;
    std::vector<double> result;
    for (const double label : labels)
        result.push_back(renamed.try_emplace(label, double(renamed.size() + 1)).first->second);
    return result;
}

} // namespace

/// The real methods and their plain forms over random input; the seed of a failure is in its text.
class TestClustersAgainstPlain : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void standard_data() { addSpreads(); }
    void standard();
    void overlap_data() { addSpreads(); }
    void overlap();
    void overlapWithOutliers();
    void meanShift_data();
    void meanShift();
    void meanShiftKnowsNoOrder();
    void meanShiftKnowsNoPlace();

private:
    static void addSpreads();
};

void TestClustersAgainstPlain::addSpreads()
{
    QTest::addColumn<int>("widthPx");
    QTest::addColumn<int>("gridPx");
    QTest::addColumn<double>("longestAxisPx");
    QTest::newRow("spread out") << 1500 << 1 << 30.0;
    QTest::newRow("crowded") << 300 << 1 << 30.0;
    QTest::newRow("equal distances and repetitions") << 600 << 50 << 30.0;
    QTest::newRow("very many repetitions") << 300 << 60 << 10.0;
    QTest::newRow("long axes") << 900 << 1 << 120.0;
    QTest::newRow("points") << 200 << 1 << 2.0;
}

void TestClustersAgainstPlain::standard()
{
    QFETCH(int, widthPx);
    QFETCH(int, gridPx);
    QFETCH(double, longestAxisPx);
    for (unsigned seed = 0; seed < seeds; ++seed) {
        EyeData expected =
            samples::randomStream({.widthPx = widthPx, .gridPx = gridPx, .longestAxisPx = longestAxisPx}, seed);
        EyeData stream = expected;
        const auto pick = [&](std::initializer_list<int> values) {
            return values.begin()[(seed / values.size() + seed) % values.size()];
        };
        const StandardClusterParameters parameters{pick({1, 2, 3, 5, 0, 400}), pick({0, 10, 50}),
                                                   pick({100, 40, 60, 300})};
        plain::standardClusters(expected, parameters);
        StandardClusterBuilder(parameters).buildClusters(stream, StandardClusterBuilder::FinalSort::No);
        QVERIFY2(stream == expected, qPrintable(QStringLiteral("seed %1").arg(seed)));
        plain::sortBySize(expected.fixationClusters);
        stream.fixationClusters.clear();
        StandardClusterBuilder(parameters).buildClusters(stream, StandardClusterBuilder::FinalSort::Yes);
        QVERIFY2(stream == expected, qPrintable(QStringLiteral("sorted, seed %1").arg(seed)));
    }
}

void TestClustersAgainstPlain::overlap()
{
    QFETCH(int, widthPx);
    QFETCH(int, gridPx);
    QFETCH(double, longestAxisPx);
    for (unsigned seed = 0; seed < seeds; ++seed) {
        EyeData expected = samples::randomStream(
            {.count = 60, .widthPx = widthPx, .gridPx = gridPx, .longestAxisPx = longestAxisPx}, seed);
        EyeData stream = expected;
        const int minimum = static_cast<int>(seed % 4);
        plain::overlapClusters(expected, minimum);
        buildOverlapClusters(stream, {minimum, std::nullopt});
        QVERIFY2(stream == expected, qPrintable(QStringLiteral("seed %1").arg(seed)));
    }
}

void TestClustersAgainstPlain::overlapWithOutliers()
{
    for (unsigned seed = 0; seed < seeds; ++seed) {
        EyeData expected = samples::randomStream({.count = 80, .widthPx = 300}, seed);
        for (qsizetype i = 0; i < expected.scanpath.size(); ++i)
            expected.scanpath[i].examination = static_cast<int>(i * (seed + 1) % 5) - (seed % 2 == 0);
        EyeData stream = expected;
        const int minimum = 1 + static_cast<int>(seed % 3);
        const int outliers = static_cast<int>(seed % 5);
        plain::overlapClusters(expected, minimum, outliers, 4);
        buildPooledOverlapClusters(stream, {minimum, outliers}, 4);
        QVERIFY2(stream == expected, qPrintable(QStringLiteral("seed %1").arg(seed)));
    }
}

void TestClustersAgainstPlain::meanShift_data()
{
    QTest::addColumn<int>("widthPx");
    QTest::addColumn<int>("gridPx");
    QTest::addColumn<double>("radius");
    QTest::addColumn<double>("rate");
    QTest::addColumn<int>("iterations");
    QTest::newRow("as installed") << 1500 << 1 << 100.0 << 0.25 << 50;
    QTest::newRow("at construction") << 1500 << 1 << 100.0 << 0.1 << 100;
    QTest::newRow("narrow kernel") << 1500 << 1 << 7.0 << 0.5 << 200;
    QTest::newRow("kernel of a pixel") << 100 << 1 << 1.0 << 1.0 << 200;
    QTest::newRow("kernel wider than the picture") << 1500 << 1 << 5000.0 << 0.25 << 50;
    QTest::newRow("whole steps") << 1500 << 1 << 60.0 << 1.0 << 200;
    QTest::newRow("few steps") << 1500 << 1 << 60.0 << 0.25 << 3;
    QTest::newRow("no steps") << 1500 << 1 << 60.0 << 0.25 << 0;
    QTest::newRow("repetitions") << 700 << 100 << 37.0 << 0.3 << 50;
}

void TestClustersAgainstPlain::meanShift()
{
    QFETCH(int, widthPx);
    QFETCH(int, gridPx);
    QFETCH(double, radius);
    QFETCH(double, rate);
    QFETCH(int, iterations);
    const plain::MeanShift parameters{radius, rate, iterations};
    for (unsigned seed = 0; seed < seeds; ++seed) {
        const std::vector<double> data =
            centroids(samples::randomStream({.count = 120, .widthPx = widthPx, .gridPx = gridPx}, seed));
        QVERIFY2(labelsOf(data, parameters) == plain::meanShiftLabels(data, parameters),
                 qPrintable(QStringLiteral("seed %1").arg(seed)));
    }
}

void TestClustersAgainstPlain::meanShiftKnowsNoOrder()
{
    for (unsigned seed = 0; seed < seeds; ++seed) {
        const std::vector<double> data = centroids(samples::randomStream({.count = 150, .gridPx = 20}, seed));
        std::vector<size_t> order(data.size() / 2);
        std::iota(order.begin(), order.end(), 0);
        std::shuffle(order.begin(), order.end(), std::mt19937(seed));
        std::vector<double> shuffled;
        for (const size_t place : order) {
            shuffled.push_back(data[2 * place]);
            shuffled.push_back(data[2 * place + 1]);
        }
        const plain::MeanShift parameters{.radius = 30.0 + seed, .rate = 0.4};
        const std::vector<double> labels = labelsOf(data, parameters);
        std::vector<double> expected;
        for (const size_t place : order)
            expected.push_back(labels[place]);
        QVERIFY2(labelsOf(shuffled, parameters) == partition(expected),
                 qPrintable(QStringLiteral("seed %1").arg(seed)));
    }
}

void TestClustersAgainstPlain::meanShiftKnowsNoPlace()
{
    for (unsigned seed = 0; seed < seeds; ++seed) {
        const std::vector<double> data = centroids(samples::randomStream({.count = 150, .gridPx = 20}, seed));
        std::vector<double> moved = data;
        for (size_t i = 0; i < moved.size(); ++i)
            moved[i] += i % 2 == 0 ? -12345.0 * seed : 777.0 + seed;
        const plain::MeanShift parameters{.radius = 30.0 + seed, .rate = 0.4};
        QVERIFY2(labelsOf(moved, parameters) == labelsOf(data, parameters),
                 qPrintable(QStringLiteral("seed %1").arg(seed)));
    }
}

QTEST_GUILESS_MAIN(TestClustersAgainstPlain)
#include "TestClustersAgainstPlain.moc"
