// SPDX-License-Identifier: GPL-3.0-or-later
#include "statistics/AoiTransitions.h"
#include "visualization/ToyData.h"

#include <QTest>

#include <limits>
#include <random>

namespace {

constexpr TimeFrame allTime{0, 60000};

/// A square of 100 px with this left edge.
AreaOfInterest square(const QString &name, int left)
{
    return {name, QPolygon(QRect(left, 0, 100, 100))};
}

/// Areas a, b and c side by side, 100 px each; "ab" lies on the border of a and b and covers half of each.
QList<AreaOfInterest> sideBySide()
{
    return {square(QStringLiteral("a"), 0), square(QStringLiteral("b"), 100), square(QStringLiteral("c"), 200)};
}

/// Fixations of 80 ms each 100 ms in the middle of the named areas; a dot lies in none.
QList<Fixation> scanpathOf(const QString &letters)
{
    QList<Fixation> scanpath;
    for (qsizetype i = 0; i < letters.size(); ++i) {
        const int x = letters[i] == u'.' ? 1000 : (letters[i].unicode() - u'a') * 100 + 50;
        scanpath << toy::stay({x, 50}, 100 * i);
    }
    return scanpath;
}

/// The counts as "ab2 ba1".
QString textOf(const AoiTransitions &transitions)
{
    QStringList texts;
    for (qsizetype from = 0; from < transitions.areas(); ++from) {
        for (qsizetype to = 0; to < transitions.areas(); ++to) {
            if (const int count = transitions.count(from, to))
                texts << QString(QChar(char16_t(u'a' + from))) + QChar(char16_t(u'a' + to)) + QString::number(count);
        }
    }
    return texts.join(u' ');
}

} // namespace

class TestAoiTransitions : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void walk_data();
    void walk();
    void frame();
    void overlappingAreas();
    void walksAreNotLinked();
    void sharesAndRates();
    void againstThePlainWalk();
};

void TestAoiTransitions::walk_data()
{
    QTest::addColumn<QString>("letters");
    QTest::addColumn<QString>("byScanpath");
    QTest::addColumn<QString>("bySaccades");
    const auto row = [](const char *name, const char *letters, const char *byScanpath, const char *bySaccades) {
        QTest::newRow(name) << QString::fromLatin1(letters) << QString::fromLatin1(byScanpath)
                            << QString::fromLatin1(bySaccades);
    };
    row("nothing", "", "", "");
    row("one fixation", "a", "", "");
    row("staying counts, too", "aaa", "aa2", "aa2");
    row("there and back", "aba", "ab1 ba1", "ab1 ba1");
    row("fixations in no area are passed over by the scanpath", "a..b", "ab1", "");
    row("a return is a transition to the area itself", "a.a", "aa1", "");
    row("no area at all", "...", "", "");
    row("a tour", "abcab", "ab2 bc1 ca1", "ab2 bc1 ca1");
}

void TestAoiTransitions::walk()
{
    QFETCH(QString, letters);
    const QList<Fixation> scanpath = scanpathOf(letters);
    const QList<GazeWalk> walks{{scanpath}};
    QTEST(textOf(countAoiTransitions(sideBySide(), walks, TransitionType::Scanpath, allTime)), "byScanpath");
    QTEST(textOf(countAoiTransitions(sideBySide(), walks, TransitionType::Saccades, allTime)), "bySaccades");
}

void TestAoiTransitions::frame()
{
    const QList<Fixation> scanpath = scanpathOf(QStringLiteral("abca")); // from 0, 100, 200 and 300 ms
    const auto counted = [&](TimeFrame frame) {
        return textOf(countAoiTransitions(sideBySide(), {{scanpath}}, TransitionType::Scanpath, frame));
    };
    QCOMPARE(counted({0, 380}), QStringLiteral("ab1 bc1 ca1"));
    QCOMPARE(counted({1, 379}), QStringLiteral("bc1")); // what is cut by an end takes no part
    QCOMPARE(counted({400, 900}), QString());
}

void TestAoiTransitions::overlappingAreas()
{
    QList<AreaOfInterest> areas = sideBySide();
    areas << AreaOfInterest(QStringLiteral("d"), QPolygon(QRect(0, 0, 150, 100))); // a and the left half of b
    const QList<Fixation> scanpath = scanpathOf(QStringLiteral("ac"));             // in a and d, then in c
    QCOMPARE(textOf(countAoiTransitions(areas, {{scanpath}}, TransitionType::Scanpath, allTime)),
             QStringLiteral("ac1 dc1"));
    QCOMPARE(textOf(countAoiTransitions(areas, {{scanpath}}, TransitionType::Saccades, allTime)),
             QStringLiteral("ac1")); // the first area has it
    const QList<Fixation> back = scanpathOf(QStringLiteral("aa"));
    QCOMPARE(textOf(countAoiTransitions(areas, {{back}}, TransitionType::Scanpath, allTime)),
             QStringLiteral("aa1 ad1 da1 dd1"));
}

void TestAoiTransitions::walksAreNotLinked()
{
    Examination first;
    first.leftEye.scanpath = scanpathOf(QStringLiteral("ab"));
    first.rightEye.scanpath = scanpathOf(QStringLiteral("ca"));
    Examination second = first;
    second.dominantEye = QStringLiteral("left");
    const auto counted = [&](EyeMode mode) {
        return textOf(
            countAoiTransitions(sideBySide(), walksOf({&first, &second}, mode), TransitionType::Scanpath, allTime));
    };
    QCOMPARE(counted(EyeMode::showLeft), QStringLiteral("ab2"));
    QCOMPARE(counted(EyeMode::showAll), QStringLiteral("ab2 ca2")); // and no bc, no ac
    QCOMPARE(counted(EyeMode::showDominant), QStringLiteral("ab1 ca1"));
    QCOMPARE(counted(EyeMode::showMean), QString());
}

void TestAoiTransitions::sharesAndRates()
{
    // ab twice, ba and bc once each; 30 s are half a minute.
    const QList<Fixation> scanpath = scanpathOf(QStringLiteral("abab.c"));
    const AoiTransitions transitions =
        countAoiTransitions(sideBySide(), {{scanpath}}, TransitionType::Scanpath, {0, 30000});
    QCOMPARE(transitions.countOut(0), 2);
    QCOMPARE(transitions.countOut(1), 2);
    QCOMPARE(transitions.countOut(2), 0);
    QCOMPARE(transitions.total(), 4);
    QCOMPARE(transitions.shareOfRow(1, 2), 0.5);
    QCOMPARE(transitions.shareOfRow(2, 0), 0.0);
    QCOMPARE(transitions.shareOfAll(0, 1), 0.5);
    QCOMPARE(transitions.rate(0, 1), 4.0);
    const AoiTransitions none(2, 1.0);
    QCOMPARE(none.shareOfAll(0, 1), 0.0);
}

void TestAoiTransitions::againstThePlainWalk()
{
    for (unsigned seed = 1; seed <= 30; ++seed) {
        std::mt19937 random(seed);
        QList<AreaOfInterest> areas;
        for (int i = 0; i < 5; ++i) {
            QPolygon polygon;
            for (int vertex = 0; vertex < 6; ++vertex) // crosses itself more often than not
                polygon << QPoint(int(random() % 60), int(random() % 60));
            areas << AreaOfInterest(QString::number(i), polygon);
        }
        QList<Fixation> scanpath;
        for (int i = 0; i < 80; ++i)
            scanpath << toy::stay({int(random() % 60), int(random() % 60)}, 100 * i);
        const TimeFrame frame{1000, 7000};
        QList<QList<int>> expected(5, QList<int>(5, 0));
        QList<int> previous;
        for (const Fixation &fixation : std::as_const(scanpath)) {
            if (fixation.firstTime() < frame.startMs || fixation.lastTime() > frame.endMs)
                continue;
            QList<int> current;
            for (int i = 0; i < 5; ++i) {
                if (areas[i].polygon.containsPoint(fixation.mean, Qt::WindingFill))
                    current << i;
            }
            if (current.isEmpty())
                continue;
            for (const int from : std::as_const(previous)) {
                for (const int to : std::as_const(current))
                    ++expected[from][to];
            }
            previous = current;
        }
        const AoiTransitions found = countAoiTransitions(areas, {{scanpath}}, TransitionType::Scanpath, frame);
        for (int i = 0; i < 5; ++i) {
            for (int j = 0; j < 5; ++j)
                QVERIFY2(found.count(i, j) == expected[i][j],
                         qPrintable(QStringLiteral("seed %1, from %2 to %3").arg(seed).arg(i).arg(j)));
        }
    }
}

QTEST_GUILESS_MAIN(TestAoiTransitions)
#include "TestAoiTransitions.moc"
