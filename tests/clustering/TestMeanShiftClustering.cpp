// SPDX-License-Identifier: GPL-3.0-or-later
#include "clustering/MeanShiftClustering.h"

#include <QTest>

#include <cmath>
#include <limits>

namespace {

using Labels = std::vector<double>;

constexpr double infinite = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

Labels labelsOf(const std::vector<double> &data, double radius, double rate = 0.25, int iterations = 50)
{
    MeanShiftClustering clustering;
    clustering.cluster(data, radius, rate, iterations, 0);
    return clustering.labels;
}

} // namespace

class TestMeanShiftClustering : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void startsEmpty();
    void noPoints();
    void twoGroups();
    void oneStep_data();
    void oneStep();
    void modesAtJustTheRadiusAreOne();
    void firstEarlierModeCounts();
    void everyPointIsCounted();
    void parametersBeyondAllBounds_data();
    void parametersBeyondAllBounds();
    void pointsThatAreNotFinite();
    void aSecondRunForgetsTheFirst();
};

void TestMeanShiftClustering::startsEmpty()
{
    QVERIFY(MeanShiftClustering().labels.empty());
}

void TestMeanShiftClustering::noPoints()
{
    QCOMPARE(labelsOf({}, 100), Labels());
    QCOMPARE(labelsOf({5}, 100), Labels()); // half a point is none
    QCOMPARE(labelsOf({5, 5}, 100), Labels({1}));
}

void TestMeanShiftClustering::twoGroups()
{
    // In order of first appearance, which is not that of the places.
    QCOMPARE(labelsOf({500, 0, 10, 0, 510, 0, 0, 0, 505, 5}, 50), Labels({1, 2, 1, 2, 1}));
}

void TestMeanShiftClustering::oneStep_data()
{
    QTest::addColumn<double>("radius");
    QTest::addColumn<double>("rate");
    QTest::addColumn<Labels>("labels");
    // Points at 0 and 30, radius 20: each sees the other with exp(-900 / 800) = 0.324652. The mean is 30 * 0.324652 /
    // 1.324652 = 7.352561 away. A step of the whole way leaves 30 - 2 * 7.352561 = 15.294878 between them.
    QTest::newRow("the whole step") << 20.0 << 1.0 << Labels({1, 1});
    // A quarter of the way leaves 26.323720, more than the radius.
    QTest::newRow("a quarter of it") << 20.0 << 0.25 << Labels({1, 2});
    QTest::newRow("no step") << 20.0 << 0.0 << Labels({1, 2});
    // Of 30 - 14.705122 rate no more than 20 is left from a rate of 0.680035 on.
    QTest::newRow("just too short a step") << 20.0 << 0.6800 << Labels({1, 2});
    QTest::newRow("just long enough a step") << 20.0 << 0.6801 << Labels({1, 1});
}

void TestMeanShiftClustering::oneStep()
{
    QFETCH(double, radius);
    QFETCH(double, rate);
    QTEST(labelsOf({0, 0, 30, 0}, radius, rate, 1), "labels");
}

void TestMeanShiftClustering::modesAtJustTheRadiusAreOne()
{
    QCOMPARE(labelsOf({0, 0, 3, 4}, 5, 0, 1), Labels({1, 1}));
    QCOMPARE(labelsOf({0, 0, 3, 4.0001}, 5, 0, 1), Labels({1, 2}));
}

void TestMeanShiftClustering::firstEarlierModeCounts()
{
    // Without a step the places are the modes. From the left: 0 is a mode, 8 belongs to it; 16 is farther than 10 from
    // 0, so that it is a mode, though 8 is near; 9 would be near to both and belongs to the first.
    QCOMPARE(labelsOf({16, 0, 9, 0, 8, 0, 0, 0}, 10, 0, 1), Labels({1, 2, 2, 2}));
}

void TestMeanShiftClustering::everyPointIsCounted()
{
    int count = 0;
    MeanShiftClustering clustering;
    clustering.arrived = [&] { ++count; };
    clustering.cluster({0, 0, 5, 5, 0, 0, 5, 5, 5, 5}, 100, 0.25, 50, 0);
    QCOMPARE(count, 5);
}

void TestMeanShiftClustering::parametersBeyondAllBounds_data()
{
    QTest::addColumn<double>("radius");
    QTest::addColumn<double>("rate");
    QTest::addColumn<int>("iterations");
    QTest::addColumn<Labels>("labels");
    const Labels ofItsOwn{1, 2, 1, 3};
    const Labels allOne{1, 1, 1, 1};
    QTest::newRow("no radius") << 0.0 << 0.25 << 50 << ofItsOwn;
    QTest::newRow("negative radius") << -5.0 << 0.25 << 50 << ofItsOwn;
    QTest::newRow("radius is no number") << notANumber << 0.25 << 50 << ofItsOwn;
    QTest::newRow("hardly any radius") << 1e-200 << 0.25 << 50 << ofItsOwn;
    QTest::newRow("infinite radius") << infinite << 0.25 << 50 << allOne;
    QTest::newRow("negative iterations") << 100.0 << 0.25 << -1 << allOne;
    QTest::newRow("rate is no number") << 100.0 << notANumber << 50 << allOne;
    QTest::newRow("infinite rate") << 100.0 << infinite << 50 << allOne;
}

void TestMeanShiftClustering::parametersBeyondAllBounds()
{
    QFETCH(double, radius);
    QFETCH(double, rate);
    QFETCH(int, iterations);
    QTEST(labelsOf({0, 0, 20, 0, 0, 0, 40, 0}, radius, rate, iterations), "labels");
}

void TestMeanShiftClustering::pointsThatAreNotFinite()
{
    QCOMPARE(labelsOf({0, 0, notANumber, 0, 1, 0, 0, infinite, notANumber, 0}, 100), Labels({1, 2, 1, 3, 4}));
    QCOMPARE(labelsOf({notANumber, 0}, 100), Labels({1}));
    // Steps that lead ever farther away end before the numbers do.
    const Labels labels = labelsOf({0, 0, 30, 0, 90, 0}, 40, 99, 5000);
    QCOMPARE(labels.size(), size_t(3));
    QCOMPARE(labels[0], 1.0);
}

void TestMeanShiftClustering::aSecondRunForgetsTheFirst()
{
    MeanShiftClustering clustering;
    clustering.cluster({0, 0, 900, 0, 1800, 0}, 100, 0.25, 50, 0);
    clustering.cluster({0, 0}, 100, 0.25, 50, 0);
    QCOMPARE(clustering.labels, Labels({1}));
}

QTEST_GUILESS_MAIN(TestMeanShiftClustering)
#include "TestMeanShiftClustering.moc"
