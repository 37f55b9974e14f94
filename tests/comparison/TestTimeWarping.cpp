// SPDX-License-Identifier: GPL-3.0-or-later
#include "comparison/TimeWarping.h"

#include "comparison/RandomScanpaths.h"

#include <QTest>

#include <cmath>

namespace {

double distance(const ScanpathPoint &a, const ScanpathPoint &b)
{
    return std::hypot(a.x - b.x, a.y - b.y);
}

/// The best of all ways, without a table.
double plainDistance(const FixationPath &a, const FixationPath &b, std::size_t i, std::size_t j)
{
    const double here = distance(a[i], b[j]);
    if (i == 0 && j == 0)
        return here;
    double best = std::numeric_limits<double>::infinity();
    if (i > 0)
        best = std::min(best, plainDistance(a, b, i - 1, j));
    if (j > 0)
        best = std::min(best, plainDistance(a, b, i, j - 1));
    if (i > 0 && j > 0)
        best = std::min(best, plainDistance(a, b, i - 1, j - 1));
    return here + best;
}

} // namespace

class TestTimeWarping : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void byHand();
    void equalPathsAtAnotherPace();
    void withoutFixations();
    void likeTheDefinition();
};

void TestTimeWarping::byHand()
{
    // (0,0) (10,0) (20,0) and (0,5) (20,5): 5 + (10,0) to the nearer (0,5) or (20,5), the same, + 5
    const WarpedDistance warped = timeWarpedDistance({{0, 0, 1}, {10, 0, 1}, {20, 0, 1}}, {{0, 5, 1}, {20, 5, 1}});
    QCOMPARE(warped.sumPx, 10 + std::hypot(10, 5));
    QCOMPARE(warped.meanPx, (10 + std::hypot(10, 5)) / 3);
}

void TestTimeWarping::equalPathsAtAnotherPace()
{
    const WarpedDistance warped =
        timeWarpedDistance({{0, 0, 1}, {50, 9, 1}}, {{0, 0, 1}, {0, 0, 1}, {50, 9, 1}, {50, 9, 1}, {50, 9, 1}});
    QCOMPARE(warped.sumPx, 0.0);
    QCOMPARE(warped.meanPx, 0.0);
}

void TestTimeWarping::withoutFixations()
{
    QVERIFY(std::isnan(timeWarpedDistance({}, {{1, 2, 3}}).sumPx));
    QVERIFY(std::isnan(timeWarpedDistance({{1, 2, 3}}, {}).meanPx));
    QCOMPARE(timeWarpedDistance({{1, 2, 3}}, {{4, 6, 3}}).sumPx, 5.0);
}

void TestTimeWarping::likeTheDefinition()
{
    std::mt19937 random(5);
    for (int round = 0; round < 100; ++round) {
        const FixationPath a = randomScanpath(random, 1 + random() % 6);
        const FixationPath b = randomScanpath(random, 1 + random() % 6);
        const double plain = plainDistance(a, b, a.size() - 1, b.size() - 1);
        QVERIFY(std::abs(timeWarpedDistance(a, b).sumPx - plain) < 1e-9);
        QVERIFY(std::abs(timeWarpedDistance(b, a).sumPx - plain) < 1e-9);
    }
}

QTEST_GUILESS_MAIN(TestTimeWarping)
#include "TestTimeWarping.moc"
