// SPDX-License-Identifier: GPL-3.0-or-later
#include "statistics/AoiVisits.h"
#include "visualization/ToyData.h"

#include <QTest>

namespace {

AreaOfInterest square(int left)
{
    return {QString::number(left), QPolygon({{left, 0}, {left + 100, 0}, {left + 100, 100}, {left, 100}})};
}

/// Fixations of 80 ms each 100 ms: "a" at x = 50, "b" at x = 150, a dot at x = 500.
EyeData streamOf(const QString &letters, qint64 startMs = 0)
{
    EyeData stream;
    for (qsizetype i = 0; i < letters.size(); ++i) {
        const int x = letters[i] == u'.' ? 500 : (letters[i].unicode() - u'a') * 100 + 50;
        stream.scanpath << toy::stay({x, 50}, startMs + 100 * i);
    }
    return stream;
}

AoiVisits visitsOf(const EyeData &stream, TimeFrame frame = {0, 100000})
{
    return aoiVisits(stream, AoiIndex({square(0)}), frame).first();
}

double measure(const AoiVisits &visits, const char *name)
{
    for (const Measure<AoiVisits> &each : aoiVisitMeasures()) {
        if (each.name == QLatin1StringView(name))
            return each.value(visits).value_or(-1);
    }
    return qQNaN();
}

} // namespace

class TestAoiVisits : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void visits_data();
    void visits();
    void times();
    void nothingInside();
    void samples();
    void adjacentAreas();
};

void TestAoiVisits::visits_data()
{
    QTest::addColumn<QString>("letters");
    QTest::addColumn<int>("visits");
    QTest::addColumn<int>("into");
    QTest::addColumn<int>("outOf");
    const auto row = [](const char *name, const char *letters, int visits, int into, int outOf) {
        QTest::newRow(name) << QString::fromLatin1(letters) << visits << into << outOf;
    };
    row("never", "b.b", 0, 0, 0);
    row("from the start to the end", "aaa", 1, 0, 0);
    row("in and out", "baab", 1, 1, 1);
    row("nowhere ends a visit, too", "a.a", 2, 1, 1);
    row("three times", "abab.a", 3, 2, 2);
}

void TestAoiVisits::visits()
{
    QFETCH(QString, letters);
    const AoiVisits found = visitsOf(streamOf(letters));
    QTEST(found.visits, "visits");
    QTEST(found.saccadesInto, "into");
    QTEST(found.saccadesOutOf, "outOf");
    QCOMPARE(found.fixations, int(letters.count(u'a')));
}

void TestAoiVisits::times()
{
    // In the frame from 250 ms: "a" from 300 to 380 and 400 to 480, "b", "a" from 600 to 680 ms; all last 80 ms.
    const AoiVisits found = visitsOf(streamOf(QStringLiteral("aabaaba")), {250, 680});
    QCOMPARE(*found.firstFixationMs, 50);
    QCOMPARE(*found.firstFixationDurationMs, 80);
    QCOMPARE(found.dwellMs, 240);
    QCOMPARE(measure(found, "dwell_time_share"), 0.75);
    QCOMPARE(measure(found, "mean_fixation_duration_ms"), 80.0);
    QCOMPARE(measure(found, "mean_visit_duration_ms"), (180.0 + 80.0) / 2);
    QCOMPARE(measure(found, "revisits"), 1.0);
}

void TestAoiVisits::nothingInside()
{
    const AoiVisits found = visitsOf(streamOf(QStringLiteral("b")));
    QVERIFY(!found.firstFixationMs);
    QCOMPARE(measure(found, "revisits"), 0.0);
    QCOMPARE(measure(found, "mean_fixation_duration_ms"), -1.0); // empty
    QCOMPARE(measure(found, "dwell_time_share"), 0.0);
    QCOMPARE(measure(visitsOf({}), "dwell_time_share"), -1.0);
}

void TestAoiVisits::samples()
{
    EyeData stream;
    stream.gazePoints << toy::sample(0, 50, 50) << toy::sample(10, 50, 50, 0) << toy::sample(20, 500, 50)
                      << toy::sample(5000, 50, 50);
    const AoiVisits found = visitsOf(stream, {0, 100});
    QCOMPARE(found.hitSamples, 1);
    QCOMPARE(measure(found, "hit_sample_share"), 0.5);
}

void TestAoiVisits::adjacentAreas()
{
    EyeData stream;
    stream.scanpath << toy::stay({100, 50}, 0); // the right edge of one, the left edge of the other
    const QList<AoiVisits> found = aoiVisits(stream, AoiIndex({square(0), square(100)}), {0, 1000});
    QCOMPARE(found[0].fixations, 0);
    QCOMPARE(found[1].fixations, 1);
}

QTEST_GUILESS_MAIN(TestAoiVisits)
#include "TestAoiVisits.moc"
