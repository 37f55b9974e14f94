// SPDX-License-Identifier: GPL-3.0-or-later
#include "comparison/GroupSimilarity.h"

#include <QTest>

#include <cmath>
#include <functional>

namespace {

/// Recordings as "group subject", and values of the only measure that is looked at.
SimilaritySet setOf(const QStringList &recordings, const std::function<double(qsizetype, qsizetype)> &value)
{
    SimilaritySet set;
    for (const QString &each : recordings)
        set.recordings << ComparedRecording{each, each.section(u' ', 1), each.section(u' ', 0, 0)};
    for (qsizetype i = 0; i < recordings.size(); ++i) {
        for (qsizetype j = i + 1; j < recordings.size(); ++j)
            set.pairs.push_back({i, j, {value(i, j)}});
    }
    return set;
}

QStringList listed(const char *line)
{
    return QString::fromLatin1(line).split(u',');
}

} // namespace

class TestGroupSimilarity : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void pairsByPlace();
    void meansByHand();
    void allPermutations();
    void recordingsOfOneSubject();
    void withoutGroupTheyTakeNoPart();
    void oneGroupAlone();
    void aSubjectInTwoGroups();
    void undefinedPairsCountNowhere();
    void manySubjects();
};

void TestGroupSimilarity::pairsByPlace()
{
    const SimilaritySet set =
        setOf(listed("a 1,a 2,a 3,a 4,a 5"), [](qsizetype i, qsizetype j) { return double(10 * i + j); });
    for (qsizetype i = 0; i < 5; ++i) {
        for (qsizetype j = 0; j < 5; ++j) {
            if (i != j)
                QCOMPARE(set.value(i, j, 0), double(10 * std::min(i, j) + std::max(i, j)));
        }
    }
}

void TestGroupSimilarity::meansByHand()
{
    // a1 a2 0.8; b1 b2 0.6; between 0.1, 0.2, 0.3, 0.4
    const double values[4][4] = {{0, 0.8, 0.1, 0.2}, {0, 0, 0.3, 0.4}, {0, 0, 0, 0.6}};
    const GroupSimilarity found =
        compareGroups(setOf(listed("a 1,a 2,b 3,b 4"), [&](qsizetype i, qsizetype j) { return values[i][j]; }), 0);
    QCOMPARE(found.pairs.size(), 3);
    QCOMPARE(found.pairs[0].mean, 0.8);
    QCOMPARE(found.pairs[1].second, QStringLiteral("b"));
    QCOMPARE(found.pairs[1].subjectPairs, 4);
    QCOMPARE(found.pairs[1].mean, 0.25);
    QCOMPARE(found.within, 0.7);
    QCOMPARE(found.between, 0.25);
    // six orders of two groups, each difference twice: within 0.7 - 0.25; (0.1 + 0.4) / 2 - ...; (0.2 + 0.3) / 2 - ...:
    // 0.45, -0.225, -0.225
    QCOMPARE(found.p, 2 / 6.0);
}

void TestGroupSimilarity::allPermutations()
{
    // three against three, all alike within, nothing between: only the observed split and its mirror are as extreme
    const GroupSimilarity found = compareGroups(
        setOf(listed("a 1,a 2,a 3,b 4,b 5,b 6"), [](qsizetype i, qsizetype j) { return i / 3 == j / 3 ? 1.0 : 0.0; }),
        0);
    QCOMPARE(found.within, 1.0);
    QCOMPARE(found.between, 0.0);
    QCOMPARE(found.p, 2 / 20.0);
}

void TestGroupSimilarity::recordingsOfOneSubject()
{
    // subject 1 twice: 0.2 and 0.4 with subject 2 are one pair of 0.3; the pair with itself does not count
    const GroupSimilarity found = compareGroups(setOf(listed("a 1,a 1,a 2,b 3"),
                                                      [](qsizetype i, qsizetype j) {
                                                          if (i == 0 && j == 1)
                                                              return 0.9;
                                                          return j == 3 ? 0.5 : i == 0 ? 0.2 : 0.4;
                                                      }),
                                                0);
    QCOMPARE(found.withinPairs, 1);
    QCOMPARE(found.within, 0.3);
    QCOMPARE(found.betweenPairs, 2);
    QCOMPARE(found.between, 0.5);
}

void TestGroupSimilarity::withoutGroupTheyTakeNoPart()
{
    SimilaritySet set = setOf(listed("a 1,a 2,b 3,x 4"), [](qsizetype, qsizetype j) { return j == 3 ? 9.0 : 1.0; });
    set.recordings[3].group.clear();
    const GroupSimilarity found = compareGroups(set, 0);
    QCOMPARE(found.within, 1.0);
    QCOMPARE(found.between, 1.0);
    QCOMPARE(found.pairs.size(), 2);
    QCOMPARE(found.p, 1.0);
}

void TestGroupSimilarity::oneGroupAlone()
{
    const GroupSimilarity found =
        compareGroups(setOf(listed("a 1,a 2,a 3"), [](qsizetype, qsizetype) { return 0.5; }), 0);
    QCOMPARE(found.within, 0.5);
    QVERIFY(std::isnan(found.between) && std::isnan(found.p));
}

void TestGroupSimilarity::aSubjectInTwoGroups()
{
    const GroupSimilarity found = compareGroups(
        setOf(listed("a 1,a 2,b 1,b 3"), [](qsizetype i, qsizetype j) { return i + j == 1 ? 1.0 : 0.5; }), 0);
    QCOMPARE(found.within, 0.75); // a1 a2, b1 b3
    QCOMPARE(found.betweenPairs, 3);
    QVERIFY(std::isnan(found.p));
}

void TestGroupSimilarity::undefinedPairsCountNowhere()
{
    const GroupSimilarity found =
        compareGroups(setOf(listed("a 1,a 2,a 3,b 4,b 5"),
                            [](qsizetype i, qsizetype j) { return i == 0 ? undefined : double(i + j) / 10; }),
                      0);
    QCOMPARE(found.withinPairs, 2); // (1,2) 0.3 and (3,4) 0.7
    QCOMPARE(found.within, 0.5);
    QCOMPARE(found.betweenPairs, 4);
}

void TestGroupSimilarity::manySubjects()
{
    QStringList names;
    for (int i = 0; i < 40; ++i)
        names << QStringLiteral("%1 %2").arg(i % 2).arg(i);
    const auto set = setOf(names, [](qsizetype i, qsizetype j) { return i % 2 == j % 2 ? 0.9 : 0.1; });
    const GroupSimilarity found = compareGroups(set, 0);
    QCOMPARE(found.p, 1 / 10001.0); // none of 10,000 random ones is as extreme
    QCOMPARE(compareGroups(set, 0).p, found.p);
}

QTEST_GUILESS_MAIN(TestGroupSimilarity)
#include "TestGroupSimilarity.moc"
