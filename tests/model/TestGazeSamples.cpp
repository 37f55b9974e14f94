// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/GazeSamples.h"

#include <QTest>

#include <span>

namespace {

QList<GazePoint> numbered(qsizetype count)
{
    QList<GazePoint> samples;
    for (qsizetype i = 0; i < count; ++i)
        samples << GazePoint(i, static_cast<double>(i), 0, 0, 0, 1);
    return samples;
}

QList<qint64> timesOf(const GazeSamples &samples)
{
    QList<qint64> times;
    for (const GazePoint &sample : samples)
        times << sample.time;
    return times;
}

} // namespace

class TestGazeSamples : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void reading_data();
    void reading();
    void stretchesShareTheList();
    void changesStayInTheStretch();
    void changesOfTheListStayOutOfTheStretch();
    void appending_data();
    void appending();
    void appendingItself();
    void equality();
};

void TestGazeSamples::reading_data()
{
    QTest::addColumn<GazeSamples>("samples");
    QTest::addColumn<QList<qint64>>("times");
    QTest::newRow("nothing") << GazeSamples() << QList<qint64>();
    QTest::newRow("a whole list") << GazeSamples(numbered(3)) << QList<qint64>{0, 1, 2};
    QTest::newRow("written out") << GazeSamples{GazePoint(7, 0, 0, 0, 0, 1)} << QList<qint64>{7};
    QTest::newRow("the front of a list") << GazeSamples(numbered(5), 0, 2) << QList<qint64>{0, 1};
    QTest::newRow("the middle of a list") << GazeSamples(numbered(5), 1, 3) << QList<qint64>{1, 2, 3};
    QTest::newRow("the end of a list") << GazeSamples(numbered(5), 4, 1) << QList<qint64>{4};
    QTest::newRow("an empty stretch") << GazeSamples(numbered(5), 5, 0) << QList<qint64>();
}

void TestGazeSamples::reading()
{
    QFETCH(GazeSamples, samples);
    QFETCH(QList<qint64>, times);
    QCOMPARE(timesOf(samples), times);
    QCOMPARE(samples.size(), times.size());
    QCOMPARE(samples.isEmpty(), times.isEmpty());
    QCOMPARE(std::span<const GazePoint>(samples).size(), static_cast<size_t>(times.size()));
    for (qsizetype i = 0; i < times.size(); ++i)
        QCOMPARE(samples[i].time, times[i]);
    if (times.isEmpty())
        return;
    QCOMPARE(samples.first().time, times.first());
    QCOMPARE(samples.last().time, times.last());
}

void TestGazeSamples::stretchesShareTheList()
{
    const QList<GazePoint> list = numbered(5);
    const GazeSamples stretch(list, 1, 3);
    QCOMPARE(stretch.data(), list.constData() + 1);
    const GazeSamples copy = stretch;
    QCOMPARE(copy.data(), stretch.data());
}

void TestGazeSamples::changesStayInTheStretch()
{
    const QList<GazePoint> list = numbered(5);
    GazeSamples stretch(list, 1, 3);
    const GazeSamples copy = stretch;
    stretch.own()[0].time = 70;
    stretch << GazePoint(80, 0, 0, 0, 0, 1);
    QCOMPARE(timesOf(stretch), (QList<qint64>{70, 2, 3, 80}));
    QCOMPARE(timesOf(copy), (QList<qint64>{1, 2, 3}));
    QCOMPARE(timesOf(list), (QList<qint64>{0, 1, 2, 3, 4}));
}

void TestGazeSamples::changesOfTheListStayOutOfTheStretch()
{
    QList<GazePoint> list = numbered(5);
    const GazeSamples stretch(list, 1, 3);
    list[2].time = 70;
    list.clear();
    QCOMPARE(timesOf(stretch), (QList<qint64>{1, 2, 3}));
}

void TestGazeSamples::appending_data()
{
    QTest::addColumn<GazeSamples>("samples");
    QTest::addColumn<GazeSamples>("further");
    QTest::addColumn<bool>("isShared");
    const QList<GazePoint> list = numbered(9);
    const QList<GazePoint> other = numbered(9);
    QTest::newRow("what follows") << GazeSamples(list, 1, 2) << GazeSamples(list, 3, 4) << true;
    QTest::newRow("what follows, to the end") << GazeSamples(list, 1, 2) << GazeSamples(list, 3, 6) << true;
    QTest::newRow("behind nothing") << GazeSamples() << GazeSamples(list, 3, 4) << true;
    QTest::newRow("nothing") << GazeSamples(list, 1, 2) << GazeSamples(list, 3, 0) << true;
    QTest::newRow("nothing behind the whole") << GazeSamples(list) << GazeSamples(list, 9, 0) << true;
    QTest::newRow("later") << GazeSamples(list, 1, 2) << GazeSamples(list, 4, 4) << false;
    QTest::newRow("before") << GazeSamples(list, 3, 2) << GazeSamples(list, 1, 2) << false;
    QTest::newRow("the same place of another list") << GazeSamples(list, 1, 2) << GazeSamples(other, 3, 4) << false;
    QTest::newRow("behind a whole list") << GazeSamples(list) << GazeSamples(list, 1, 2) << false;
}

void TestGazeSamples::appending()
{
    QFETCH(GazeSamples, samples);
    QFETCH(GazeSamples, further);
    const QList<qint64> expected = timesOf(samples) + timesOf(further);
    const GazePoint *const begin = samples.isEmpty() ? further.data() : samples.data();
    const GazeSamples before = samples;
    samples.append(further);
    QCOMPARE(timesOf(samples), expected);
    QCOMPARE(timesOf(before) + timesOf(further), expected);
    QTEST(samples.data() == begin, "isShared");
}

void TestGazeSamples::appendingItself()
{
    GazeSamples samples(numbered(3), 1, 2);
    samples.append(samples);
    QCOMPARE(timesOf(samples), (QList<qint64>{1, 2, 1, 2}));
    GazeSamples whole(numbered(2));
    const GazeSamples before = whole;
    whole.append(whole);
    QCOMPARE(timesOf(whole), (QList<qint64>{0, 1, 0, 1}));
    QCOMPARE(timesOf(before), (QList<qint64>{0, 1}));
}

void TestGazeSamples::equality()
{
    const QList<GazePoint> list = numbered(5);
    const GazeSamples stretch(list, 1, 3);
    QVERIFY(stretch == GazeSamples(list.sliced(1, 3)));
    QVERIFY(stretch == GazeSamples(list, 1, 3));
    QVERIFY(stretch != GazeSamples(list, 1, 2));
    QVERIFY(stretch != GazeSamples(list, 2, 3));
    QVERIFY(GazeSamples() == GazeSamples(list, 2, 0));
}

QTEST_GUILESS_MAIN(TestGazeSamples)
#include "TestGazeSamples.moc"
