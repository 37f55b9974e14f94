// SPDX-License-Identifier: GPL-3.0-or-later
#include "detection/StepWalk.h"

#include <QTest>

#include <cmath>
#include <random>

namespace {

using Labels = std::vector<int>;

/// Valid samples, 10 ms apart, at these places on a slanted line.
QList<GazePoint> samplesAt(const QList<double> &places)
{
    QList<GazePoint> samples;
    for (const double x : places)
        samples << GazePoint(10 * samples.size(), x, 2 * x, 0, 0, 1);
    return samples;
}

/// A label a letter: r is a step of the resting eye, s one of a saccade.
StepLabels labelled(const char *letters, int restingLabel = 0)
{
    StepLabels steps{{}, restingLabel};
    for (const char *letter = letters; *letter; ++letter)
        steps.labels.push_back(*letter == 'r' ? restingLabel : 1 - restingLabel);
    return steps;
}

QString spansOf(const QList<Fixation> &fixations)
{
    QStringList spans;
    for (const Fixation &fixation : fixations)
        spans << QStringLiteral("%1-%2").arg(fixation.firstTime()).arg(fixation.lastTime());
    return spans.join(u' ');
}

QList<Fixation> walked(const QList<GazePoint> &samples, const StepLabels &steps, const MixtureParameters &parameters)
{
    QList<Fixation> scanpath;
    appendRestingRuns(samples, steps, parameters, scanpath);
    return scanpath;
}

/// Four samples on the corners of a rectangle around (x,y): each axis is as long as half the side along it.
QList<GazePoint> rectangle(qint64 time, double x, double y, double halfWidth, double halfHeight)
{
    return {GazePoint(time, x - halfWidth, y - halfHeight, 0, 0, 1),
            GazePoint(time + 10, x + halfWidth, y - halfHeight, 0, 0, 1),
            GazePoint(time + 20, x + halfWidth, y + halfHeight, 0, 0, 1),
            GazePoint(time + 30, x - halfWidth, y + halfHeight, 0, 0, 1)};
}

QList<GazePoint> square(qint64 time, double x, double y, double halfSide)
{
    return rectangle(time, x, y, halfSide, halfSide);
}

/// Each square is a run of its own: three resting steps and the step that leads away.
StepLabels stepsOfSquares(int count)
{
    return labelled(QByteArray("rrrs").repeated(count).constData());
}

} // namespace

class TestStepWalk : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void runs_data();
    void runs();
    void minimumDuration_data();
    void minimumDuration();
    void recordsOfFixations();
    void mergeByDistance_data();
    void mergeByDistance();
    void mergedRecord();
    void mergesWithWhatTheListHad();
    void fewerThanFourSamplesTakeNothing();
    void unorderedRunsAreSortedByAMerge();
    void manyMergesGiveTheSameAsOneByOne_data();
    void manyMergesGiveTheSameAsOneByOne();
};

void TestStepWalk::runs_data()
{
    QTest::addColumn<QByteArray>("steps"); // from each sample to the next
    QTest::addColumn<QString>("spans");
    QTest::newRow("the sample of the ending step belongs to the run") << QByteArray("rrs") << "0-20";
    QTest::newRow("two runs") << QByteArray("rrsrrrs") << "0-20 30-60";
    QTest::newRow("an open run at the end is dropped") << QByteArray("rrsrrr") << "0-20";
    QTest::newRow("nothing but rest") << QByteArray("rrrr") << "";
    QTest::newRow("nothing but saccades: runs of one sample last no time") << QByteArray("ssss") << "";
    QTest::newRow("a saccade of three steps leaves two rejected runs") << QByteArray("rrsssrs") << "0-20 50-60";
    QTest::newRow("no step") << QByteArray("") << "";
}

void TestStepWalk::runs()
{
    QFETCH(QByteArray, steps);
    const QList<GazePoint> samples = samplesAt(QList<double>(steps.size() + 1, 500));
    QTEST(spansOf(walked(samples, labelled(steps.constData(), 0), {})), "spans");
    QTEST(spansOf(walked(samples, labelled(steps.constData(), 1), {})), "spans"); // whichever label is the resting one
    QVERIFY(walked({}, {}, {}).isEmpty());
}

void TestStepWalk::minimumDuration_data()
{
    QTest::addColumn<int>("minimumMs"); // the run lasts 20 ms
    QTest::addColumn<qsizetype>("fixations");
    QTest::newRow("shorter") << 19 << qsizetype(1);
    QTest::newRow("exactly as long is rejected") << 20 << qsizetype(0);
    QTest::newRow("longer") << 21 << qsizetype(0);
    QTest::newRow("negative") << -1 << qsizetype(1);
}

void TestStepWalk::minimumDuration()
{
    QFETCH(int, minimumMs);
    QTEST(walked(samplesAt({1, 1, 1, 9}), labelled("rrs"), {minimumMs, false}).size(), "fixations");
}

void TestStepWalk::recordsOfFixations()
{
    const QList<GazePoint> samples = samplesAt({10.9, 11.9, 11.9, 900, 901, 2});
    const QList<Fixation> found = walked(samples, labelled("rrsrs"), {});
    QCOMPARE(found.size(), 2);
    // sums cut after each sample: 10, 21, 32 and 21, 44, 67; divided as whole numbers
    QCOMPARE(found[0], Fixation(samples.first(3), QStringLiteral("fixation"), {10, 22}, 0));
    QCOMPARE(found[1], Fixation(samples.sliced(3, 2), QStringLiteral("fixation"), {900, 1801}, 1));
}

/// The minor axis of the first rectangle is 5 px long, the major one 9.
void TestStepWalk::mergeByDistance_data()
{
    QTest::addColumn<QPointF>("second"); // centre of the second one; the first is at (100,100)
    QTest::addColumn<bool>("isWanted");
    QTest::addColumn<qsizetype>("fixations");
    const auto row = [](const char *name, double x, double y, bool isWanted, qsizetype fixations) {
        QTest::newRow(name) << QPointF(x, y) << isWanted << fixations;
    };
    row("nearer than the minor axis", 104, 100, true, 1);
    row("nearer in both directions: 2.8", 102, 102, true, 1);
    row("the same place", 100, 100, true, 1);
    row("just as far is not nearer", 105, 100, true, 2);
    row("3 and 4 are 5", 103, 104, true, 2);
    row("farther, though nearer than the major axis", 106, 100, true, 2);
    row("whole pixels count: 104.9 is 104", 104.9, 100, true, 1);
    row("not wanted", 104, 100, false, 2);
}

void TestStepWalk::mergeByDistance()
{
    QFETCH(QPointF, second);
    QFETCH(bool, isWanted);
    const QList<GazePoint> samples =
        rectangle(0, 100, 100, 9, 5) + rectangle(100, second.x(), second.y(), 9, 5) + samplesAt({999});
    const QList<Fixation> first = walked(samples.first(5), stepsOfSquares(1), {});
    QCOMPARE(first[0].minorAxis.length(), 5.0F);
    QCOMPARE(first[0].majorAxis.length(), 9.0F);
    QTEST(walked(samples, stepsOfSquares(2), {20, isWanted}).size(), "fixations");
}

void TestStepWalk::mergedRecord()
{
    const QList<GazePoint> samples = square(0, 100, 100, 5) + square(100, 104, 100, 3) + square(200, 500, 500, 5) +
                                     square(300, 501, 500, 5) + samplesAt({999});
    const QList<Fixation> found = walked(samples, stepsOfSquares(4), {20, true});
    QCOMPARE(found.size(), 2);
    const Fixation alone(samples.first(4), QStringLiteral("fixation"), {100, 100}, 0);
    QCOMPARE(found[0].samples, samples.first(8));
    QCOMPARE(found[0].mean, QPoint(102, 100));
    // x: 2 * (7^2 + 3^2) of the first square, 2 * (1^2 + 5^2) of the second, by 8; y: (4 * 5^2 + 4 * 3^2) / 8
    QCOMPARE(found[0].variance, QPoint(21, 17));
    QCOMPARE(found[0].median, alone.median);
    QCOMPARE(found[0].majorAxis, alone.majorAxis);
    QCOMPARE(found[0].minorAxis, alone.minorAxis);
    QCOMPARE(found[0].number, 0);
    QCOMPARE(found[0].duration(), 130);
    QCOMPARE(found[1].number, 1); // the merge used up no number
    QCOMPARE(found[1].samples.size(), 8);
}

void TestStepWalk::mergesWithWhatTheListHad()
{
    const QList<GazePoint> earlier = square(0, 100, 100, 5);
    QList<Fixation> scanpath{Fixation(earlier, QStringLiteral("fixation"), {100, 100}, 7)};
    appendRestingRuns(square(100, 101, 100, 5) + samplesAt({999}), stepsOfSquares(1), {20, true}, scanpath);
    QCOMPARE(scanpath.size(), 1);
    QCOMPARE(scanpath[0].samples.size(), 8);
    QCOMPARE(scanpath[0].number, 7);
    appendRestingRuns(square(200, 900, 900, 5) + samplesAt({999}), stepsOfSquares(1), {20, true}, scanpath);
    QCOMPARE(scanpath.size(), 2);
    QCOMPARE(scanpath[1].number, 0);
}

void TestStepWalk::fewerThanFourSamplesTakeNothing()
{
    const QList<GazePoint> samples = samplesAt({100, 100, 100, 100, 100, 100, 100, 9});
    QCOMPARE(walked(samples, labelled("rrsrrrs"), {10, true}).size(), 2); // the first has three
}

void TestStepWalk::unorderedRunsAreSortedByAMerge()
{
    QList<GazePoint> samples =
        square(0, 100, 100, 5) + square(100, 101, 100, 5) + square(50, 102, 100, 5) + samplesAt({9});
    std::swap(samples[1].time, samples[2].time);
    const QList<Fixation> alone = walked(samples, stepsOfSquares(3), {20, false});
    QCOMPARE(alone[0].samples[1].time, 20); // as it came
    const QList<Fixation> merged = walked(samples, stepsOfSquares(3), {20, true});
    QCOMPARE(merged.size(), 1);
    QList<qint64> times;
    for (const GazePoint &sample : merged[0].samples)
        times << sample.time;
    QCOMPARE(times, QList<qint64>({0, 10, 20, 30, 50, 60, 70, 80, 100, 110, 120, 130}));
    QCOMPARE(merged[0].mean, QPoint(101, 100));
}

void TestStepWalk::manyMergesGiveTheSameAsOneByOne_data()
{
    QTest::addColumn<bool>("isOrdered");
    QTest::newRow("in order") << true;
    QTest::newRow("clock that jumps back") << false;
}

/// Mean and variance as a new computation from all samples after each merge gives them.
void TestStepWalk::manyMergesGiveTheSameAsOneByOne()
{
    QFETCH(bool, isOrdered);
    std::mt19937 random(5);
    std::normal_distribution<double> noise(0, 6);
    QList<GazePoint> samples;
    StepLabels steps;
    for (int i = 0; i < 3000; ++i) {
        const qint64 time = 4 * i - (isOrdered || random() % 40 != 0 ? 0 : 500);
        samples << GazePoint(time, 800 + noise(random), 600 + noise(random), 0, 0, 1);
        steps.labels.push_back(random() % 25 == 0 ? 1 : 0);
    }
    samples << GazePoint(20000, 1, 1, 0, 0, 1);
    const QList<Fixation> found = walked(samples, steps, {30, true});

    QList<Fixation> expected;
    for (const Fixation &next : walked(samples, steps, {30, false})) {
        const QPointF way = expected.isEmpty() ? QPointF() : QPointF(next.mean - expected.constLast().mean);
        if (expected.isEmpty() || !(expected.constLast().minorAxis.length() > std::hypot(way.x(), way.y()))) {
            expected << next;
            expected.last().number = static_cast<int>(expected.size()) - 1;
            continue;
        }
        Fixation &target = expected.last();
        target.extend(next.samples);
        double x = 0;
        double y = 0;
        for (const GazePoint &sample : std::as_const(target.samples)) {
            x += sample.x;
            y += sample.y;
        }
        const auto count = static_cast<double>(target.samples.size());
        target.mean = QPoint(static_cast<int>(x / count), static_cast<int>(y / count));
        target.updateVariance();
    }
    QVERIFY(expected.size() < 40);
    QCOMPARE(found, expected);
}

QTEST_GUILESS_MAIN(TestStepWalk)
#include "TestStepWalk.moc"
