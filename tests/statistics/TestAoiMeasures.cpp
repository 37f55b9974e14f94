// SPDX-License-Identifier: GPL-3.0-or-later
#include "statistics/AoiMeasures.h"
#include "visualization/ToyData.h"

#include <QTest>

#include <cmath>
#include <random>

namespace {

/// From (0,0) to (100,100).
AreaOfInterest square()
{
    return {QStringLiteral("a"), QPolygon({{0, 0}, {100, 0}, {100, 100}, {0, 100}})};
}

/// A sample each 10 ms from the given time: an x is inside the square, a dot is not.
EyeData streamOf(const QString &letters, qint64 startMs = 0)
{
    EyeData stream;
    for (qsizetype i = 0; i < letters.size(); ++i)
        stream.gazePoints << toy::sample(startMs + 10 * i, letters[i] == u'x' ? 50 : 500, 50);
    return stream;
}

AreaOfInterest measured(const EyeData &stream, TimeFrame frame, const AreaOfInterest &area = square())
{
    return aoiStatistics(stream, {area}, AoiIndex({area}), frame).first();
}

bool isInside(const GazePoint &sample, const AreaOfInterest &area, Qt::FillRule rule)
{
    return area.polygon.containsPoint(QPoint(int(sample.x), int(sample.y)), rule);
}

// The measures as they are defined, one area after the other.

void measureGazePlainly(AreaOfInterest &a, const EyeData &stream, TimeFrame frame)
{
    const double span = double(frame.endMs - frame.startMs);
    qint64 runStart = 0;
    qint64 last = 0;
    int runs = 0;
    int inSpan = 0;
    bool open = false;
    a.gazeMinTime = 1000000000;
    const auto close = [&] {
        const qint64 d = last - runStart;
        a.gazeTotalTime += d;
        a.gazeMinTime = qMin(a.gazeMinTime, d);
        a.gazeMaxTime = qMax(a.gazeMaxTime, d);
        ++runs;
        open = false;
    };
    for (const GazePoint &p : stream.gazePoints) {
        if (p.time < frame.startMs || p.time > frame.endMs)
            continue;
        ++inSpan;
        if (isInside(p, a, Qt::WindingFill)) {
            if (++a.gazeCount == 1)
                a.firstGazeTime = p.time;
            last = open ? p.time : p.time + 1;
            if (!open)
                runStart = p.time;
            open = true;
        } else if (open) {
            close();
        }
    }
    if (open && runStart >= 1)
        close();
    a.gazePerMinute = (a.gazeCount / span) * (60000.0 / span);
    a.gazeShare = inSpan ? a.gazeCount / double(inSpan) : 0;
    a.gazeMeanTime = runs ? double(a.gazeTotalTime) / runs : 0;
    if (a.gazeMinTime == 1000000000)
        a.gazeMinTime = 0;
}

void measureFixationsPlainly(AreaOfInterest &a, const EyeData &stream, TimeFrame frame)
{
    const double span = double(frame.endMs - frame.startMs);
    int fixations = 0;
    a.fixationMinTime = 1000000000;
    for (const Fixation &f : stream.scanpath) {
        if (f.firstTime() < frame.startMs || f.lastTime() > frame.endMs)
            continue;
        ++fixations;
        if (!a.polygon.containsPoint(f.mean, Qt::WindingFill))
            continue;
        if (++a.fixationCount == 1)
            a.firstFixationTime = f.firstTime();
        a.fixationTotalTime += f.duration();
        a.fixationMinTime = qMin(a.fixationMinTime, qint64(f.duration()));
        a.fixationMaxTime = qMax(a.fixationMaxTime, qint64(f.duration()));
    }
    a.fixationsPerMinute = (a.fixationCount / span) * (60000.0 / span);
    a.fixationMeanTime = a.fixationCount ? double(a.fixationTotalTime) / a.fixationCount : 0;
    a.fixationShare = fixations ? a.fixationCount / double(fixations) : 0;
    if (a.fixationMinTime == 1000000000)
        a.fixationMinTime = 0;
}

void measureGlancesPlainly(AreaOfInterest &a, const EyeData &stream, TimeFrame frame)
{
    bool open = false;
    qint64 start = 0;
    qint64 end = 0;
    for (const GazePoint &p : stream.gazePoints) {
        if (p.time < frame.startMs || p.time > frame.endMs)
            continue;
        if (isInside(p, a, Qt::OddEvenFill)) {
            if (++a.pointsInside == 1)
                a.firstInsideTime = p.time;
            if (!open) {
                ++a.glanceCount;
                start = p.time;
                a.glanceStarts << start;
                open = true;
            }
        } else if (open) {
            end = p.time;
            a.glanceEnds << end;
            a.glanceDurations << end - start;
            open = false;
        }
    }
    if (a.glanceEnds.size() < a.glanceStarts.size()) {
        a.glanceEnds << end;
        a.glanceDurations << end - start;
    }
}

AreaOfInterest plainlyMeasured(const EyeData &stream, const AreaOfInterest &area, TimeFrame frame)
{
    AreaOfInterest a(area.name, area.polygon);
    measureGazePlainly(a, stream, frame);
    measureFixationsPlainly(a, stream, frame);
    measureGlancesPlainly(a, stream, frame);
    return a;
}

} // namespace

class TestAoiMeasures : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void runs_data();
    void runs();
    void aRunFromTheStartThatDoesNotEnd();
    void perMinuteHasTheSpanTwice();
    void edges();
    void selfCrossing();
    void fixations();
    void noSpan();
    void glances();
    void glanceThatDoesNotEnd();
    void nothingAtAll();
    void againstThePlainForm();
};

void TestAoiMeasures::runs_data()
{
    QTest::addColumn<QString>("letters"); // from 1000 ms
    QTest::addColumn<int>("count");
    QTest::addColumn<qint64>("first");
    QTest::addColumn<qint64>("total");
    QTest::addColumn<qint64>("shortest");
    QTest::addColumn<qint64>("longest");
    QTest::addColumn<double>("mean");
    const auto row = [](const char *name, const char *letters, int count, qint64 first, qint64 total, qint64 shortest,
                        qint64 longest, double mean) {
        QTest::newRow(name) << QString::fromLatin1(letters) << count << first << total << shortest << longest << mean;
    };
    row("never", "....", 0, 0, 0, 0, 0, 0);
    row("one sample lasts one millisecond", ".x..", 1, 1010, 1, 1, 1, 1);
    row("two samples last until the second", ".xx.", 2, 1010, 10, 10, 10, 10);
    row("two runs", "xxx.x.", 4, 1000, 21, 1, 20, 10.5);
    row("open at the end", "..xx", 2, 1020, 10, 10, 10, 10);
}

void TestAoiMeasures::runs()
{
    QFETCH(QString, letters);
    const AreaOfInterest area = measured(streamOf(letters, 1000), {1000, 2000});
    QTEST(area.gazeCount, "count");
    QTEST(area.firstGazeTime, "first");
    QTEST(area.gazeTotalTime, "total");
    QTEST(area.gazeMinTime, "shortest");
    QTEST(area.gazeMaxTime, "longest");
    QTEST(area.gazeMeanTime, "mean");
    QCOMPARE(area.gazeShare, double(letters.count(u'x')) / double(letters.size()));
}

void TestAoiMeasures::aRunFromTheStartThatDoesNotEnd()
{
    const AreaOfInterest area = measured(streamOf(QStringLiteral("xxx")), {0, 100});
    QCOMPARE(area.gazeCount, 3);
    QCOMPARE(area.gazeTotalTime, 0); // it began at 0 ms and is not closed
    QCOMPARE(area.gazeMeanTime, 0.0);
}

void TestAoiMeasures::perMinuteHasTheSpanTwice()
{
    EyeData stream;
    for (int i = 0; i < 120; ++i)
        stream.gazePoints << toy::sample(i * 500, 50, 50);
    QCOMPARE(measured(stream, {0, 60000}).gazePerMinute, 120 / 60000.0);
    QCOMPARE(measured(stream, {0, 30000}).gazePerMinute, 61 / 30000.0 * 2);
}

void TestAoiMeasures::edges()
{
    const auto countAt = [](double x, double y) {
        EyeData stream;
        stream.gazePoints << toy::sample(10, x, y);
        return measured(stream, {0, 100}).gazeCount;
    };
    QCOMPARE(countAt(0, 50), 1);       // left
    QCOMPARE(countAt(50, 0), 1);       // upper
    QCOMPARE(countAt(100, 50), 0);     // right
    QCOMPARE(countAt(50, 100), 0);     // lower
    QCOMPARE(countAt(99.9, 50), 1);    // cut to 99
    QCOMPARE(countAt(-0.9, 50), 1);    // cut to 0, towards zero
    QCOMPARE(countAt(qQNaN(), 50), 1); // counts as 0
}

void TestAoiMeasures::selfCrossing()
{
    // Around the square twice: inside by the winding rule, outside by the odd-even rule.
    const QList<QPoint> corners{{0, 0}, {100, 0}, {100, 100}, {0, 100}};
    const AreaOfInterest twice(QStringLiteral("twice"), QPolygon(corners + corners));
    const AreaOfInterest area = measured(streamOf(QStringLiteral(".x.")), {0, 100}, twice);
    QCOMPARE(area.gazeCount, 1);
    QCOMPARE(area.pointsInside, 0);
    QCOMPARE(area.glanceCount, 0);
}

void TestAoiMeasures::fixations()
{
    EyeData stream = streamOf(QStringLiteral("xxxxxxxxxx"), 900);
    stream.scanpath << toy::stay({50, 50}, 100) << toy::stay({500, 50}, 200) << toy::stay({60, 60}, 300)
                    << toy::stay({50, 50}, 950); // the last one goes on until 1030 ms
    const AreaOfInterest area = measured(stream, {0, 1000});
    QCOMPARE(area.fixationCount, 2); // what crosses the end is no fixation of the frame
    QCOMPARE(area.gazeCount, 10);    // its samples are
    QCOMPARE(area.firstFixationTime, 100);
    QCOMPARE(area.fixationTotalTime, 160);
    QCOMPARE(area.fixationMinTime, 80);
    QCOMPARE(area.fixationMaxTime, 80);
    QCOMPARE(area.fixationMeanTime, 80.0);
    QCOMPARE(area.fixationShare, 2 / 3.0);
    QCOMPARE(area.fixationsPerMinute, 2 / 1000.0 * 60);
    // 2 in 0.09 s of samples: 22.22 a second, in a minute 60 times that.
    QCOMPARE(area.fixationFrequency, 22.22 * 60);
}

void TestAoiMeasures::noSpan()
{
    EyeData stream = streamOf(QStringLiteral("x"), 100);
    stream.scanpath << toy::fixation({50, 50}, {1, 0}, {}, {toy::sample(100, 50, 50)});
    const AreaOfInterest area = measured(stream, {100, 100});
    QCOMPARE(area.gazeCount, 0);
    QCOMPARE(area.gazeMinTime, 0);
    QCOMPARE(area.fixationCount, 0);
    QCOMPARE(area.glanceCount, 1); // glances are measured all the same
}

void TestAoiMeasures::glances()
{
    // 10 samples, 90 ms: glances from 10 to 30 and from 50 to 60 ms.
    const AreaOfInterest area = measured(streamOf(QStringLiteral(".xx..x....")), {0, 1000});
    QCOMPARE(area.glanceStarts, (QList<qint64>{10, 50}));
    QCOMPARE(area.glanceEnds, (QList<qint64>{30, 60}));
    QCOMPARE(area.glanceDurations, (QList<qint64>{20, 10}));
    QCOMPARE(area.firstInsideTime, 10);
    QCOMPARE(area.glanceFrequency, 22.22);    // 2 in 0.09 s
    QCOMPARE(area.glanceTime, 27.0);          // 3 of 10 samples, 9 ms each
    QCOMPARE(area.glanceProportion, 0.0);     // 2 / 10 as whole numbers
    QCOMPARE(area.locationProbability, 30.0); // percent
    QCOMPARE(area.minGlance, 10);
    QCOMPARE(area.maxGlance, 20);
    QCOMPARE(area.meanGlance, 15.0);
    QCOMPARE(measured(streamOf(QStringLiteral("x")), {0, 1000}).glanceProportion, 100.0);
}

void TestAoiMeasures::glanceThatDoesNotEnd()
{
    const AreaOfInterest later = measured(streamOf(QStringLiteral("x.xx")), {0, 1000});
    QCOMPARE(later.glanceEnds, (QList<qint64>{10, 10})); // the end of the one before
    QCOMPARE(later.glanceDurations, (QList<qint64>{10, -10}));
    const AreaOfInterest only = measured(streamOf(QStringLiteral(".xx")), {0, 1000});
    QCOMPARE(only.glanceEnds, (QList<qint64>{0}));
    QCOMPARE(only.glanceDurations, (QList<qint64>{-10}));
}

void TestAoiMeasures::nothingAtAll()
{
    const AreaOfInterest area = measured({}, {0, 1000});
    QCOMPARE(area.gazeShare, 0.0);
    QCOMPARE(area.fixationShare, 0.0);
    QCOMPARE(area.fixationMeanTime, 0.0);
    QVERIFY(aoiStatistics({}, {}, AoiIndex({}), {0, 1000}).isEmpty());
}

void TestAoiMeasures::againstThePlainForm()
{
    for (unsigned seed = 1; seed <= 20; ++seed) {
        std::mt19937 random(seed);
        const auto place = [&] { return int(random() % 120) - 10; };
        QList<AreaOfInterest> areas;
        for (int i = 0; i < 4; ++i) {
            QPolygon polygon;
            for (int vertex = 0; vertex < 7; ++vertex)
                polygon << QPoint(place(), place());
            areas << AreaOfInterest(QString::number(i), polygon);
        }
        EyeData stream;
        for (int i = 0; i < 500; ++i)
            stream.gazePoints << toy::sample(i * 4, place() + 0.5, place() - 0.25);
        for (int i = 0; i < 20; ++i)
            stream.scanpath << toy::stay({place(), place()}, i * 100);
        const TimeFrame frame{100, 1700};
        const QList<AreaOfInterest> found = aoiStatistics(stream, areas, AoiIndex(areas), frame);
        for (int i = 0; i < 4; ++i) {
            AreaOfInterest expected = plainlyMeasured(stream, areas[i], frame);
            AreaOfInterest trimmed = found[i]; // what the plain form does not compute
            expected.color = trimmed.color;
            for (AreaOfInterest *each : {&expected, &trimmed}) {
                each->glanceFrequency = each->glanceTime = each->glanceProportion = each->locationProbability =
                    each->meanGlance = each->fixationFrequency = each->recordingSeconds = 0;
                each->minGlance = each->maxGlance = 0;
            }
            QVERIFY2(trimmed == expected, qPrintable(QStringLiteral("seed %1, area %2").arg(seed).arg(i)));
        }
    }
}

QTEST_GUILESS_MAIN(TestAoiMeasures)
#include "TestAoiMeasures.moc"
