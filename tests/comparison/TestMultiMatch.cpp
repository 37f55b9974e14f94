// SPDX-License-Identifier: GPL-3.0-or-later
#include "comparison/MultiMatch.h"
#include "comparison/PlainMultiMatch.h"
#include "comparison/RandomScanpaths.h"

#include <QTest>

namespace {

constexpr QSizeF screen(1280, 720);
const double diagonal = std::hypot(1280, 720);
constexpr MultiMatchThresholds thresholds{45, 300, 100};

bool isNear(double a, double b)
{
    return std::abs(a - b) < 1e-9;
}

bool isNear(const MultiMatch &a, const MultiMatch &b)
{
    return isNear(a.vector, b.vector) && isNear(a.direction, b.direction) && isNear(a.length, b.length) &&
           isNear(a.position, b.position) && isNear(a.duration, b.duration);
}

/// Places a fixation at each, all of them short but those named.
SaccadePath walk(const std::vector<std::pair<double, double>> &places, std::vector<std::size_t> longFixations = {})
{
    FixationPath path;
    for (const auto &[x, y] : places)
        path.push_back({x, y, 100});
    for (const std::size_t i : longFixations)
        path[i].durationMs = 300;
    return saccadePath(path);
}

} // namespace

class TestMultiMatch : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void vectorsOfAScanpath();
    void equalScanpaths();
    void byHand();
    void anExtraSaccade();
    void tooShort();
    void saccadesOfOneDirectionJoin();
    void shortSaccadesJoin();
    void theLastShortSaccadeJoinsTheOneBefore();
    void theOneBeforeCountsAsItWas();
    void withoutDurationNothingIsSimplified();
    void likeThePlainForm();
};

void TestMultiMatch::vectorsOfAScanpath()
{
    const SaccadePath path = saccadePath({{10, 20, 5}, {40, 60, 6}, {40, 50, 7}});
    QCOMPARE(path.saccades, (std::vector<SaccadeVector2D>{{10, 20, 30, 40}, {40, 60, 0, -10}}));
    QCOMPARE(path.durationsMs, (std::vector<double>{5, 6, 7}));
    QCOMPARE(path.saccades[0].length(), 50.0);
    QCOMPARE(path.saccades[1].direction(), -std::numbers::pi / 2);
}

void TestMultiMatch::equalScanpaths()
{
    std::mt19937 random(1);
    const SaccadePath path = saccadePath(randomScanpath(random, 12));
    QVERIFY(isNear(multiMatch(path, path, screen), {1, 1, 1, 1, 1}));
}

void TestMultiMatch::byHand()
{
    // Two saccades each; the diagonal pairs cost least. First pair: (100,0) and (0,100), second: (0,50) and (0,70).
    const SaccadePath a = saccadePath({{0, 0, 100}, {100, 0, 200}, {100, 50, 300}});
    const SaccadePath b = saccadePath({{30, 40, 200}, {30, 140, 200}, {30, 210, 100}});
    const MultiMatch match = multiMatch(a, b, screen);
    const double vectors = (std::sqrt(20000.0) + 20) / 2;
    QVERIFY(isNear(match.vector, 1 - vectors / (2 * diagonal)));
    QVERIFY(isNear(match.direction, 1 - (90.0 + 0) / 2 / 180));
    QVERIFY(isNear(match.length, 1 - (0.0 + 20) / 2 / diagonal));
    QVERIFY(isNear(match.position, 1 - (50 + std::hypot(70, 140)) / 2 / diagonal));
    QVERIFY(isNear(match.duration, 1 - (0.5 + 0) / 2));
}

void TestMultiMatch::anExtraSaccade()
{
    // Right, down, right against right, right: the way down goes with the first to the right.
    const SaccadePath a = walk({{0, 0}, {100, 0}, {100, 10}, {200, 10}});
    const SaccadePath b = walk({{0, 0}, {100, 0}, {200, 0}});
    const MultiMatch match = multiMatch(a, b, screen);
    QVERIFY(isNear(match.vector, 1));                   // two of three differences are 0
    QVERIFY(isNear(match.position, 1 - 10 / diagonal)); // 0, then 100 or 10, then 10
}

void TestMultiMatch::tooShort()
{
    const SaccadePath whole = walk({{0, 0}, {100, 0}, {200, 0}});
    QVERIFY(std::isnan(multiMatch(whole, saccadePath({{0, 0, 1}}), screen).vector));
    QVERIFY(std::isnan(multiMatch(saccadePath({}), whole, screen).duration));
    QVERIFY(simplified(saccadePath({}), thresholds).saccades.empty());
}

void TestMultiMatch::saccadesOfOneDirectionJoin()
{
    // turns of 0 and 44 degrees around short fixations; around a long one, and by 46 degrees, nothing joins
    const auto turned = [](double degrees, std::vector<std::size_t> longOnes) {
        const double angle = degrees * std::numbers::pi / 180;
        return simplified(walk({{0, 0}, {200, 0}, {200 + 200 * std::cos(angle), 200 * std::sin(angle)}}, longOnes),
                          thresholds)
            .saccades.size();
    };
    QCOMPARE(turned(0, {}), 1U);
    QCOMPARE(turned(44, {}), 1U);
    QCOMPARE(turned(46, {}), 2U);
    QCOMPARE(turned(44, {1}), 2U);
    QCOMPARE(turned(44, {0, 2}), 1U);
    const SaccadePath joined = simplified(walk({{1, 2}, {200, 0}, {400, 50}}), thresholds);
    QCOMPARE(joined.saccades, (std::vector<SaccadeVector2D>{{1, 2, 399, 48}}));
    QCOMPARE(joined.durationsMs, (std::vector<double>{100, 100}));
}

void TestMultiMatch::shortSaccadesJoin()
{
    // a short step to the left between two long ones across: it joins the next one
    const SaccadePath joined = simplified(walk({{500, 0}, {500, 200}, {450, 200}, {450, 0}}), thresholds);
    QCOMPARE(joined.saccades, (std::vector<SaccadeVector2D>{{500, 0, 0, 200}, {500, 200, -50, -200}}));
    // as long as the threshold: nothing joins
    QCOMPARE(simplified(walk({{500, 0}, {500, 200}, {400, 200}, {400, 0}}), thresholds).saccades.size(), 3U);
    // between two long fixations: nothing joins
    QCOMPARE(simplified(walk({{500, 0}, {500, 200}, {450, 200}, {450, 0}}, {1, 2}), thresholds).saccades.size(), 3U);
    // one of them is enough
    QCOMPARE(simplified(walk({{500, 0}, {500, 200}, {450, 200}, {450, 0}}, {1}), thresholds).saccades.size(), 2U);
}

void TestMultiMatch::theLastShortSaccadeJoinsTheOneBefore()
{
    const SaccadePath joined = simplified(walk({{0, 0}, {200, 0}, {200, 50}}), thresholds);
    QCOMPARE(joined.saccades, (std::vector<SaccadeVector2D>{{0, 0, 200, 50}}));
    QCOMPARE(joined.durationsMs, (std::vector<double>{100, 100}));
}

void TestMultiMatch::theOneBeforeCountsAsItWas()
{
    // short up, long left join; the last short one down then joins the long one as it was: (-200, 0) + (0, 50)
    const SaccadePath joined = simplified(walk({{500, 100}, {500, 50}, {300, 50}, {300, 100}}), thresholds);
    QCOMPARE(joined.saccades, (std::vector<SaccadeVector2D>{{500, 100, -200, 50}}));
}

void TestMultiMatch::withoutDurationNothingIsSimplified()
{
    std::mt19937 random(3);
    const SaccadePath path = saccadePath(randomScanpath(random, 20));
    QCOMPARE(simplified(path, {180, 0, 1000}), path);
}

void TestMultiMatch::likeThePlainForm()
{
    int simpler = 0;
    for (unsigned seed = 1; seed <= 300; ++seed) {
        std::mt19937 random(seed);
        const FixationPath first = randomScanpath(random, 3 + random() % 30);
        const FixationPath second = randomScanpath(random, 3 + random() % 30);
        QVERIFY2(isNear(multiMatch(saccadePath(first), saccadePath(second), screen),
                        plain::multiMatch(plain::pathOf(first), plain::pathOf(second), screen)),
                 qPrintable(QStringLiteral("whole, seed %1").arg(seed)));
        const SaccadePath a = simplified(saccadePath(first), thresholds);
        const SaccadePath b = simplified(saccadePath(second), thresholds);
        QVERIFY2(isNear(multiMatch(a, b, screen),
                        plain::multiMatch(plain::simplify(plain::pathOf(first), thresholds),
                                          plain::simplify(plain::pathOf(second), thresholds), screen)),
                 qPrintable(QStringLiteral("simplified, seed %1").arg(seed)));
        simpler += a.saccades.size() + 1 < first.size() ? 1 : 0;
    }
    QVERIFY(simpler > 200);
}

QTEST_GUILESS_MAIN(TestMultiMatch)
#include "TestMultiMatch.moc"
