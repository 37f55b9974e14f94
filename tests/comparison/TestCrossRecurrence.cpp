// SPDX-License-Identifier: GPL-3.0-or-later
#include "comparison/CrossRecurrence.h"

#include "comparison/RandomScanpaths.h"

#include <QTest>

#include <cmath>

namespace {

/// Fixations at letters of the alphabet, which lie 100 px apart.
FixationPath path(const char *letters)
{
    FixationPath result;
    for (; *letters; ++letters)
        result.push_back({(*letters - 'a') * 100.0, 0, 100});
    return result;
}

/// Straight from the definitions: for each recurrent pair, how long its line is in each direction.
CrossRecurrence plain(const FixationPath &a, const FixationPath &b, double radius, int shortest)
{
    const int n = int(std::min(a.size(), b.size()));
    const auto at = [&](int i, int j) {
        return i >= 0 && j >= 0 && i < n && j < n &&
               std::hypot(a[std::size_t(i)].x - b[std::size_t(j)].x, a[std::size_t(i)].y - b[std::size_t(j)].y) <=
                   radius;
    };
    const auto line = [&](int i, int j, int di, int dj) {
        int length = 1;
        for (int k = 1; at(i + k * di, j + k * dj); ++k)
            ++length;
        for (int k = 1; at(i - k * di, j - k * dj); ++k)
            ++length;
        return length >= shortest ? 1 : 0;
    };
    double all = 0, diagonal = 0, straight = 0, lag = 0;
    for (int i = 0; i < n; ++i) {
        for (int j = 0; j < n; ++j) {
            if (!at(i, j))
                continue;
            ++all;
            diagonal += line(i, j, 1, 1);
            straight += line(i, j, 1, 0) + line(i, j, 0, 1);
            lag += j - i;
        }
    }
    return {100 * all / n / n, 100 * diagonal / all, 50 * straight / all, 100 * lag / (n - 1) / all};
}

bool isSame(double a, double b)
{
    return (std::isnan(a) && std::isnan(b)) || std::abs(a - b) < 1e-9;
}

} // namespace

class TestCrossRecurrence : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void byHand();
    void aFollower();
    void theRadiusBelongsToIt();
    void nothingInCommon();
    void tooShort();
    void likeTheDefinition();
};

void TestCrossRecurrence::byHand()
{
    // abca against abda:  rows a, b, c, a; recurrent pairs (0,0) (0,3) (1,1) (3,0) (3,3), 5 of 16; on diagonals of two:
    // (0,0) (1,1); no straight line of two; lags 0, 3, 0, -3, 0
    const CrossRecurrence found = crossRecurrence(path("abca"), path("abda"), {});
    QCOMPARE(found.recurrence, 100 * 5 / 16.0);
    QCOMPARE(found.determinism, 100 * 2 / 5.0);
    QCOMPARE(found.laminarity, 0.0);
    QCOMPARE(found.centerOfMass, 0.0);
    // aab against abb: (0,0) (1,0) (2,1) (2,2): (1,0) (2,1) on a diagonal; (0,0) (1,0) and (2,1) (2,2) on straight
    // ones; lags 0, -1, -1, 0 by n - 1 = 2
    const CrossRecurrence stays = crossRecurrence(path("aab"), path("abb"), {});
    QCOMPARE(stays.recurrence, 100 * 4 / 9.0);
    QCOMPARE(stays.determinism, 50.0);
    QCOMPARE(stays.laminarity, 50.0);
    QCOMPARE(stays.centerOfMass, 100 * -2.0 / (2 * 4));
}

void TestCrossRecurrence::aFollower()
{
    // the second comes to each place one fixation later
    const CrossRecurrence found = crossRecurrence(path("abcde"), path("zabcd"), {});
    QCOMPARE(found.determinism, 100.0);
    QCOMPARE(found.centerOfMass, 100 * 1.0 / 4);
    QCOMPARE(crossRecurrence(path("zabcd"), path("abcde"), {}).centerOfMass, -25.0);
}

void TestCrossRecurrence::theRadiusBelongsToIt()
{
    const FixationPath a{{0, 0, 1}};
    QCOMPARE(crossRecurrence(a, {{64, 0, 1}}, {}).recurrence, 100.0);
    QCOMPARE(crossRecurrence(a, {{64.01, 0, 1}}, {}).recurrence, 0.0);
}

void TestCrossRecurrence::nothingInCommon()
{
    const CrossRecurrence found = crossRecurrence(path("abc"), path("xyz"), {});
    QCOMPARE(found.recurrence, 0.0);
    QVERIFY(std::isnan(found.determinism) && std::isnan(found.laminarity) && std::isnan(found.centerOfMass));
}

void TestCrossRecurrence::tooShort()
{
    QVERIFY(std::isnan(crossRecurrence({}, path("abc"), {}).recurrence));
    QVERIFY(std::isnan(crossRecurrence(path("a"), path("abc"), {}).centerOfMass));
    QCOMPARE(crossRecurrence(path("abcdef"), path("ab"), {}).recurrence, 50.0); // cut to two
}

void TestCrossRecurrence::likeTheDefinition()
{
    for (unsigned seed = 1; seed <= 100; ++seed) {
        std::mt19937 random(seed);
        const FixationPath a = randomScanpath(random, 2 + random() % 25);
        const FixationPath b = randomScanpath(random, 2 + random() % 25);
        const int shortest = 2 + int(random() % 3);
        const CrossRecurrence ours = crossRecurrence(a, b, {150, shortest});
        const CrossRecurrence other = plain(a, b, 150, shortest);
        QVERIFY2(isSame(ours.recurrence, other.recurrence) && isSame(ours.determinism, other.determinism) &&
                     isSame(ours.laminarity, other.laminarity) && isSame(ours.centerOfMass, other.centerOfMass),
                 qPrintable(QStringLiteral("seed %1").arg(seed)));
    }
}

QTEST_GUILESS_MAIN(TestCrossRecurrence)
#include "TestCrossRecurrence.moc"
