// SPDX-License-Identifier: GPL-3.0-or-later
#include "clustering/SaccadeCollection.h"
#include "ProgressLabels.h"
#include "SaccadeSamples.h"

#include <QTest>

using samples::saccade;
using samples::scanpathAt;

class TestSaccadeCollection : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void linksFixations_data();
    void linksFixations();
    void cutsFixationsToTheSpan();
    void meanComesFromTheSamples();
    void fixationWithoutSamplesInTheSpanIsSkipped();
    void stopsAtTheFirstFixationBehindTheSpan();
    void showsProgress();
    void lineBetweenDirections_data();
    void lineBetweenDirections();
    void joins_data();
    void joins();
    void joinedTakesTimesOfBoth();
};

namespace {

constexpr TimeFrame always{0, 1'000'000};

using Ends = QList<QLine>;

Ends endsOf(const QList<SaccadeVector> &vectors)
{
    Ends ends;
    for (const SaccadeVector &vector : vectors)
        ends << QLine(vector.start, vector.end);
    return ends;
}

QLine line(QPoint from, QPoint to)
{
    return {from, to};
}

GazePoint sample(qint64 timeMs, double x, double y)
{
    return {timeMs, x, y, 0, 0, 1};
}

/// Three fixations: 0 to 20 ms, 100 to 120 ms, 200 to 220 ms, each moving by 30 px in each sample.
EyeData movingFixations()
{
    EyeData eye;
    for (int i = 0; i < 3; ++i) {
        Fixation fixation;
        for (int j = 0; j < 3; ++j)
            fixation.samples << sample(100 * i + 10 * j, 1000 * i + 30 * j, 500);
        eye.scanpath << fixation;
    }
    return eye;
}

} // namespace

void TestSaccadeCollection::linksFixations_data()
{
    QTest::addColumn<QList<QPoint>>("places");
    QTest::addColumn<Ends>("expected");
    QTest::newRow("none") << QList<QPoint>() << Ends();
    QTest::newRow("one") << QList<QPoint>{{1, 2}} << Ends();
    QTest::newRow("three") << QList<QPoint>{{1, 2}, {30, 40}, {5, 6}}
                           << Ends{line({1, 2}, {30, 40}), line({30, 40}, {5, 6})};
    QTest::newRow("negative places are passed over")
        << QList<QPoint>{{1, 2}, {-1, 40}, {40, -1}, {5, 6}} << Ends{line({1, 2}, {5, 6})};
    QTest::newRow("a negative place at the beginning") << QList<QPoint>{{-1, 2}, {3, 4}} << Ends();
    QTest::newRow("no movement starts at (0,0), but one leads there")
        << QList<QPoint>{{1, 2}, {0, 0}, {5, 6}, {7, 8}} << Ends{line({1, 2}, {0, 0}), line({5, 6}, {7, 8})};
    QTest::newRow("one coordinate may be 0") << QList<QPoint>{{0, 2}, {3, 0}} << Ends{line({0, 2}, {3, 0})};
    QTest::newRow("a movement without length is one") << QList<QPoint>{{1, 2}, {1, 2}} << Ends{line({1, 2}, {1, 2})};
}

void TestSaccadeCollection::linksFixations()
{
    QFETCH(QList<QPoint>, places);
    QTEST(endsOf(collectSaccadeVectors(scanpathAt(places).scanpath, always)), "expected");
}

void TestSaccadeCollection::cutsFixationsToTheSpan()
{
    // 10 and 20 ms of the first: (30 + 60) / 2 = 45; 200 and 210 ms of the last: (2000 + 2030) / 2 = 2015.
    const QList<SaccadeVector> vectors = collectSaccadeVectors(movingFixations().scanpath, {10, 210});
    QCOMPARE(endsOf(vectors), (Ends{line({45, 500}, {1030, 500}), line({1030, 500}, {2015, 500})}));
    QCOMPARE(vectors[0].startTime, 100);
    QCOMPARE(vectors[0].endTime, 120);
    QCOMPARE(vectors[1].startTime, 200);
    QCOMPARE(vectors[1].endTime, 210); // the last sample inside
}

void TestSaccadeCollection::meanComesFromTheSamples()
{
    EyeData eye = scanpathAt({{1, 2}, {30, 40}});
    eye.scanpath[1].mean = {999, 999};
    eye.scanpath[1].samples << sample(110, 32.9, 40);
    QCOMPARE(endsOf(collectSaccadeVectors(eye.scanpath, always)), Ends{line({1, 2}, {31, 40})});
}

void TestSaccadeCollection::fixationWithoutSamplesInTheSpanIsSkipped()
{
    EyeData eye = scanpathAt({{1, 2}, {30, 40}, {5, 6}});
    eye.scanpath[1].samples = {sample(90, 30, 40), sample(120, 30, 40)}; // around the span of the next line
    QCOMPARE(endsOf(collectSaccadeVectors(eye.scanpath, {95, 115})), Ends());
    eye.scanpath[1].samples = {};
    QCOMPARE(endsOf(collectSaccadeVectors(eye.scanpath, always)), Ends{line({1, 2}, {5, 6})});
    QCOMPARE(endsOf(collectSaccadeVectors(eye.scanpath, {300, 400})), Ends()); // all end before
}

void TestSaccadeCollection::stopsAtTheFirstFixationBehindTheSpan()
{
    EyeData eye = scanpathAt({{1, 2}, {30, 40}, {5, 6}, {7, 8}});
    eye.scanpath[2].samples.own()[0].time = 1000;
    QCOMPARE(endsOf(collectSaccadeVectors(eye.scanpath, {0, 500})), Ends{line({1, 2}, {30, 40})});
    QCOMPARE(endsOf(collectSaccadeVectors(eye.scanpath, {100, 500})), Ends()); // the first one is skipped, too
}

void TestSaccadeCollection::showsProgress()
{
    const ProgressLabels progress;
    collectSaccadeVectors(scanpathAt({{1, 2}, {30, 40}, {5, 6}}).scanpath, always);
    QCOMPARE(progress.opened(), QStringList{QStringLiteral("Saccade clustering collecting data. 3")});
}

void TestSaccadeCollection::lineBetweenDirections_data()
{
    QTest::addColumn<int>("a");
    QTest::addColumn<int>("b");
    QTest::addColumn<int>("expected");
    QTest::newRow("equal") << 10 << 10 << 0;
    QTest::newRow("across zero") << 355 << 10 << 15;
    QTest::newRow("a full turn") << 0 << 360 << 0;
    QTest::newRow("right angle") << 10 << 100 << 90;
    QTest::newRow("one more") << 10 << 101 << 89;
    QTest::newRow("the way back") << 10 << 190 << 0;
    QTest::newRow("beyond the way back") << 10 << 200 << 10;
}

void TestSaccadeCollection::lineBetweenDirections()
{
    QFETCH(int, a);
    QFETCH(int, b);
    QTEST(lineDifference(a, b), "expected");
    QTEST(lineDifference(b, a), "expected");
}

void TestSaccadeCollection::joins_data()
{
    QTest::addColumn<QList<SaccadeVector>>("vectors");
    QTest::addColumn<int>("minimumLength");
    QTest::addColumn<int>("minimumDifference");
    QTest::addColumn<Ends>("expected");
    const SaccadeVector right = saccade({0, 10}, {100, 10});
    const SaccadeVector further = saccade({100, 10}, {150, 10});
    const SaccadeVector down = saccade({150, 10}, {150, 50});
    const SaccadeVector slanting = saccade({100, 10}, {200, 47}); // 20.3 degrees
    using V = QList<SaccadeVector>;
    QTest::newRow("none") << V() << 0 << 0 << Ends();
    QTest::newRow("one") << V{right} << 100 << 0 << Ends{line({0, 10}, {100, 10})};
    QTest::newRow("one too short") << V{right} << 101 << 0 << Ends();
    QTest::newRow("the same line is joined with a difference of 0")
        << V{right, further, down} << 0 << 0 << Ends{line({0, 10}, {150, 10}), line({150, 10}, {150, 50})};
    QTest::newRow("length counts after the joining")
        << V{right, further, down} << 120 << 0 << Ends{line({0, 10}, {150, 10})};
    QTest::newRow("the last one has to be long enough, too")
        << V{down, saccade({150, 50}, {160, 50})} << 40 << 0 << Ends{line({150, 10}, {150, 50})};
    QTest::newRow("back along the line") << V{right, saccade({100, 10}, {40, 10})} << 0 << 0
                                         << Ends{line({0, 10}, {40, 10})};
    QTest::newRow("20 degrees are more than 19")
        << V{right, slanting} << 0 << 19 << Ends{line({0, 10}, {100, 10}), line({100, 10}, {200, 47})};
    QTest::newRow("and not more than 20") << V{right, slanting} << 0 << 20 << Ends{line({0, 10}, {200, 47})};
    QTest::newRow("right angles are split by 89")
        << V{further, down} << 0 << 89 << Ends{line({100, 10}, {150, 10}), line({150, 10}, {150, 50})};
    QTest::newRow("and 90 joins all") << V{right, further, down} << 0 << 90 << Ends{line({0, 10}, {150, 50})};
}

void TestSaccadeCollection::joins()
{
    QFETCH(QList<SaccadeVector>, vectors);
    QFETCH(int, minimumLength);
    QFETCH(int, minimumDifference);
    QTEST(endsOf(joinSaccadeVectors(vectors, {minimumLength, minimumDifference})), "expected");
}

void TestSaccadeCollection::joinedTakesTimesOfBoth()
{
    const SaccadeVector first({0, 10}, {100, 10}, 100, 150);
    const SaccadeVector second({100, 10}, {150, 10}, 200, 250);
    QCOMPARE(joinSaccadeVectors({first, second}, {}), QList{SaccadeVector({0, 10}, {150, 10}, 100, 250)});
}

QTEST_GUILESS_MAIN(TestSaccadeCollection)
#include "TestSaccadeCollection.moc"
