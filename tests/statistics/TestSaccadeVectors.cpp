// SPDX-License-Identifier: GPL-3.0-or-later
#include "statistics/SaccadeVectors.h"
#include "visualization/ToyData.h"

#include <QTest>

#include <cmath>
#include <limits>
#include <numbers>

class TestSaccadeVectors : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void direction_data();
    void direction();
    void lengthAndDuration();
    void framed_data();
    void framed();
    void onlyNeighboursAreLinked();
    void sameMeansAreLeftOut();
    void tooFewFixations();
    void farthestMeans();
    void bins_data();
    void bins();
    void meansOfABin();
    void noSaccades();
    void numberOfBinsIsBounded_data();
    void numberOfBinsIsBounded();
};

namespace {

constexpr double pi = std::numbers::pi;
constexpr TimeFrame wholeDay{0, 86400000};

Fixation fixation(QPoint mean, qint64 firstMs, qint64 lastMs)
{
    return toy::fixation(mean, {1, 0}, {0, 1}, {toy::sample(firstMs, 0, 0), toy::sample(lastMs, 0, 0)});
}

EyeData eyeWith(const QList<Fixation> &scanpath)
{
    EyeData eye;
    eye.scanpath = scanpath;
    return eye;
}

} // namespace

void TestSaccadeVectors::direction_data()
{
    QTest::addColumn<QPoint>("to"); // seen from (100, 100); y grows downwards
    QTest::addColumn<double>("angle");
    QTest::newRow("right is a full turn") << QPoint(140, 100) << 2 * pi;
    QTest::newRow("right and up") << QPoint(140, 60) << pi / 4;
    QTest::newRow("up") << QPoint(100, 60) << pi / 2;
    QTest::newRow("left and up") << QPoint(60, 60) << 3 * pi / 4;
    QTest::newRow("left") << QPoint(60, 100) << pi;
    QTest::newRow("left and down") << QPoint(60, 140) << 5 * pi / 4;
    QTest::newRow("down") << QPoint(100, 140) << 3 * pi / 2;
    QTest::newRow("right and down") << QPoint(140, 140) << 7 * pi / 4;
}

void TestSaccadeVectors::direction()
{
    QFETCH(QPoint, to);
    QFETCH(double, angle);
    const QList<double> triples =
        saccadeVectors(eyeWith({fixation({100, 100}, 0, 50), fixation(to, 80, 200)}), wholeDay);
    QCOMPARE(tripleCount(triples), qsizetype(1));
    QVERIFY(std::abs(tripleAt(triples, 0).angle - angle) < 1e-15 * 8);
}

void TestSaccadeVectors::lengthAndDuration()
{
    // 30 to the left, 40 down; then back. The eye is under way from 50 to 80 ms and from 200 to 260 ms.
    const QList<double> triples = saccadeVectors(
        eyeWith({fixation({100, 100}, 0, 50), fixation({70, 140}, 80, 200), fixation({100, 100}, 260, 300)}), wholeDay);
    QCOMPARE(triples.size(), qsizetype(6));
    QCOMPARE(triples.mid(1, 2), (QList<double>{50, 30}));
    QCOMPARE(triples.mid(4, 2), (QList<double>{50, 60}));
    QCOMPARE(tripleAt(triples, 1), (SaccadeTriple{triples[3], 50, 60}));
    QCOMPARE(triples[3], std::acos(0.6)); // right and up: 30 of 50 to the right
}

void TestSaccadeVectors::framed_data()
{
    QTest::addColumn<qint64>("start");
    QTest::addColumn<qint64>("end");
    QTest::addColumn<qsizetype>("saccades");
    // Fixations from 100 to 150, 180 to 250 and 300 to 400 ms.
    QTest::newRow("exactly all") << qint64(100) << qint64(400) << qsizetype(2);
    QTest::newRow("the first one begins before it") << qint64(101) << qint64(400) << qsizetype(1);
    QTest::newRow("the last one ends after it") << qint64(100) << qint64(399) << qsizetype(1);
    QTest::newRow("only the one in the middle is whole") << qint64(101) << qint64(399) << qsizetype(0);
    QTest::newRow("one is inside, one is not at all") << qint64(260) << qint64(500) << qsizetype(0);
    QTest::newRow("after all") << qint64(500) << qint64(600) << qsizetype(0);
}

void TestSaccadeVectors::framed()
{
    QFETCH(qint64, start);
    QFETCH(qint64, end);
    const EyeData eye = eyeWith({fixation({1, 1}, 100, 150), fixation({2, 2}, 180, 250), fixation({3, 3}, 300, 400)});
    QTEST(tripleCount(saccadeVectors(eye, {start, end})), "saccades");
}

void TestSaccadeVectors::onlyNeighboursAreLinked()
{
    // The one in the middle reaches out of the frame, as only a damaged recording has it, or has no samples.
    for (const Fixation &middle : {fixation({2, 2}, 180, 5000), toy::fixation({2, 2}, {}, {}, {})}) {
        const EyeData eye = eyeWith({fixation({1, 1}, 100, 150), middle, fixation({3, 3}, 300, 400)});
        QVERIFY(saccadeVectors(eye, {0, 1000}).isEmpty());
    }
}

void TestSaccadeVectors::sameMeansAreLeftOut()
{
    const EyeData eye = eyeWith({fixation({5, 5}, 0, 50), fixation({5, 5}, 80, 200), fixation({5, 9}, 260, 300)});
    const QList<double> triples = saccadeVectors(eye, wholeDay);
    QCOMPARE(tripleCount(triples), qsizetype(1));
    QCOMPARE(tripleAt(triples, 0).length, 4.0);
    QCOMPARE(tripleAt(triples, 0).duration, 60.0); // from the second one, not from the first
}

void TestSaccadeVectors::tooFewFixations()
{
    QVERIFY(saccadeVectors({}, wholeDay).isEmpty());
    QVERIFY(saccadeVectors(eyeWith({fixation({5, 5}, 0, 50)}), wholeDay).isEmpty());
}

void TestSaccadeVectors::farthestMeans()
{
    constexpr int least = std::numeric_limits<int>::min();
    constexpr int most = std::numeric_limits<int>::max();
    const QList<double> triples = saccadeVectors(
        eyeWith({fixation({least, 0}, 0, 50), fixation({most, 0}, 80, 200), fixation({least, -1}, 260, 300)}),
        wholeDay);
    QCOMPARE(tripleAt(triples, 0), (SaccadeTriple{2 * pi, 4294967295.0, 30}));
    QCOMPARE(tripleAt(triples, 1).angle, pi);
}

void TestSaccadeVectors::bins_data()
{
    QTest::addColumn<double>("angle");
    QTest::addColumn<int>("bins");
    QTest::addColumn<int>("bin");
    QTest::newRow("nothing is in the first") << 0.0 << 4 << 0;
    QTest::newRow("below the limit") << 1.57 << 4 << 0;
    QTest::newRow("on the limit is in the next") << pi / 2 << 4 << 1;
    QTest::newRow("below a full turn") << 6.28 << 4 << 3;
    QTest::newRow("a full turn is in the last") << 2 * pi << 4 << 3;
    QTest::newRow("of one") << 4.0 << 1 << 0;
    QTest::newRow("a full turn of 360") << 2 * pi << 360 << 359;
    QTest::newRow("14.4 degrees each: 100 degrees") << 100 / 180.0 * pi << 25 << 6;
}

void TestSaccadeVectors::bins()
{
    QFETCH(double, angle);
    QFETCH(int, bins);
    QFETCH(int, bin);
    const AngleStarBins star = angleStarBins({angle, 12, 34}, bins);
    QList<double> expected(bins, 0.0);
    expected[bin] = 1;
    QCOMPARE(star.quantity, expected);
    expected[bin] = 12;
    QCOMPARE(star.meanLength, expected);
    expected[bin] = 34;
    QCOMPARE(star.meanDuration, expected);
}

void TestSaccadeVectors::meansOfABin()
{
    const AngleStarBins star = angleStarBins({0.1, 100, 40, 4.0, 50, 60, 0.2, 300, 20}, 4);
    QCOMPARE(star, (AngleStarBins{{2, 0, 1, 0}, {200, 0, 50, 0}, {30, 0, 60, 0}}));
}

void TestSaccadeVectors::noSaccades()
{
    QCOMPARE(angleStarBins({}, 2), (AngleStarBins{{0, 0}, {0, 0}, {0, 0}}));
}

void TestSaccadeVectors::numberOfBinsIsBounded_data()
{
    QTest::addColumn<int>("wanted");
    QTest::addColumn<qsizetype>("made");
    QTest::newRow("none") << 0 << qsizetype(1);
    QTest::newRow("fewer") << -7 << qsizetype(1);
    QTest::newRow("one") << 1 << qsizetype(1);
    QTest::newRow("most") << 360 << qsizetype(360);
    QTest::newRow("more") << std::numeric_limits<int>::max() << qsizetype(360);
}

void TestSaccadeVectors::numberOfBinsIsBounded()
{
    QFETCH(int, wanted);
    QTEST(angleStarBins({1, 2, 3}, wanted).quantity.size(), "made");
}

QTEST_GUILESS_MAIN(TestSaccadeVectors)
#include "TestSaccadeVectors.moc"
