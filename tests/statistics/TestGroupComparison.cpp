// SPDX-License-Identifier: GPL-3.0-or-later
#include "statistics/GroupComparison.h"

#include <QTest>

#include <cmath>
#include <random>

namespace {

QList<SubjectValue> valuesOf(const QString &group, const QList<double> &values, const QString &subjects)
{
    QList<SubjectValue> all;
    for (qsizetype i = 0; i < values.size(); ++i)
        all << SubjectValue{subjects + QString::number(i), group, values[i]};
    return all;
}

/// By all splits of the pool, each written as a mask.
double enumeratedP(const QList<double> &first, const QList<double> &second)
{
    const QList<double> pool = first + second;
    const auto differenceOf = [&](unsigned mask) {
        double a = 0;
        double b = 0;
        for (qsizetype i = 0; i < pool.size(); ++i)
            (mask >> i & 1U ? a : b) += pool[i];
        return std::abs(a / double(first.size()) - b / double(second.size()));
    };
    const double observed = differenceOf((1U << first.size()) - 1);
    int extreme = 0;
    int ways = 0;
    for (unsigned mask = 0; mask < 1U << pool.size(); ++mask) {
        if (qPopulationCount(mask) != uint(first.size()))
            continue;
        ++ways;
        extreme += differenceOf(mask) >= observed - 1e-9;
    }
    return double(extreme) / ways;
}

} // namespace

class TestGroupComparison : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void summary();
    void oneSubject();
    void bySubject();
    void permutationsOfSmallGroups();
    void permutationsOfLargeGroups();
    void pairedSubjects();
    void mixedSubjects();
    void numberOfGroups();
    void cliff();
    void bootstrap();
    void holm();
    void sameNumbersEachTime();
};

void TestGroupComparison::summary()
{
    const GroupSummary group =
        compareGroups(valuesOf(QStringLiteral("g"), {1, 2, 6, 3}, QStringLiteral("s"))).groups[0];
    QCOMPARE(group.subjects, 4);
    QCOMPARE(group.mean, 3.0);
    QCOMPARE(group.median, 2.5);
    QCOMPARE(*group.deviation, std::sqrt((4.0 + 1 + 9 + 0) / 3));
    QVERIFY(*group.lower >= 1 && *group.lower < 3 && *group.upper > 3 && *group.upper <= 6);
}

void TestGroupComparison::oneSubject()
{
    const GroupSummary group = compareGroups(valuesOf(QStringLiteral("g"), {5}, QStringLiteral("s"))).groups[0];
    QCOMPARE(group.mean, 5.0);
    QVERIFY(!group.deviation && !group.lower);
}

void TestGroupComparison::bySubject()
{
    // Three values of one subject count as their mean: 2 and 10, not 1, 2, 3 and 10.
    const QString g = QStringLiteral("g");
    const GroupSummary group = compareGroups({{QStringLiteral("a"), g, 1},
                                              {QStringLiteral("a"), g, 2},
                                              {QStringLiteral("a"), g, 3},
                                              {QStringLiteral("b"), g, 10}})
                                   .groups[0];
    QCOMPARE(group.subjects, 2);
    QCOMPARE(group.mean, 6.0);
}

void TestGroupComparison::permutationsOfSmallGroups()
{
    QCOMPARE(permutationP({1, 2, 3}, {4, 5, 6}), 2.0 / 20); // of 20 splits this one and its mirror image
    QCOMPARE(permutationP({1, 1}, {1, 1}), 1.0);
    for (unsigned seed = 1; seed <= 20; ++seed) {
        std::mt19937 random(seed);
        QList<double> first;
        QList<double> second;
        for (int i = 0; i < 5; ++i)
            first << double(random() % 10) / 10;
        for (int i = 0; i < 6; ++i)
            second << double(random() % 12) / 10;
        QCOMPARE(permutationP(first, second), enumeratedP(first, second));
    }
}

void TestGroupComparison::permutationsOfLargeGroups()
{
    QList<double> first;
    QList<double> second;
    for (int i = 0; i < 10; ++i) {
        first << i * 1.1;
        second << i * 1.1 + 2 + i % 3;
    }
    // 184,756 splits: the drawn ones estimate the share of all of them; 4 standard errors of 10,000 draws are 0.01.
    QVERIFY(std::abs(permutationP(first, second) - enumeratedP(first, second)) < 0.02);
    for (double &value : second)
        value += 1000;
    QVERIFY(permutationP(first, second) <= 2.0 / 10001 && permutationP(first, second) >= 1.0 / 10001);
}

void TestGroupComparison::pairedSubjects()
{
    const QList<SubjectValue> values = valuesOf(QStringLiteral("a"), {2, 3, 4}, QStringLiteral("s")) +
                                       valuesOf(QStringLiteral("b"), {1, 1, 1}, QStringLiteral("s"));
    const GroupDifference found = *compareGroups(values).difference;
    QVERIFY(found.design == GroupDifference::Design::Paired);
    QCOMPARE(found.difference, 2.0);
    QCOMPARE(*found.p, 2.0 / 8); // of 8 choices of signs, all plus and all minus
    QCOMPARE(signFlipP({1, -1}), 1.0);
    QList<double> many;
    for (int i = 0; i < 20; ++i)
        many << 1 + i * 0.01;
    QVERIFY(signFlipP(many) < 0.001);
}

void TestGroupComparison::mixedSubjects()
{
    const QList<SubjectValue> values = valuesOf(QStringLiteral("a"), {2, 3, 4}, QStringLiteral("s")) +
                                       valuesOf(QStringLiteral("b"), {1, 1}, QStringLiteral("s"));
    const GroupDifference found = *compareGroups(values).difference;
    QVERIFY(found.design == GroupDifference::Design::Mixed);
    QVERIFY(!found.p);
    QCOMPARE(found.difference, 2.0);
}

void TestGroupComparison::numberOfGroups()
{
    const auto group = [](const char *name) {
        return valuesOf(QString::fromLatin1(name), {1, 2}, QString::fromLatin1(name));
    };
    QVERIFY(compareGroups({}).groups.isEmpty());
    QVERIFY(!compareGroups(group("a")).difference);
    QVERIFY(compareGroups(group("b") + group("a")).difference);
    QCOMPARE(compareGroups(group("b") + group("a")).groups[0].group, QStringLiteral("a"));
    const GroupComparison three = compareGroups(group("a") + group("b") + group("c"));
    QCOMPARE(three.groups.size(), 3);
    QVERIFY(!three.difference);
}

void TestGroupComparison::cliff()
{
    QCOMPARE(cliffsDelta({1, 2}, {3, 4}), -1.0);
    QCOMPARE(cliffsDelta({3, 4}, {1, 2}), 1.0);
    QCOMPARE(cliffsDelta({1, 2}, {1, 2}), 0.0);
    QCOMPARE(cliffsDelta({1, 5}, {2, 3}), 0.0);
    QCOMPARE(cliffsDelta({5, 5, 1}, {2}), 1.0 / 3);
}

void TestGroupComparison::bootstrap()
{
    const auto [lower, upper] = bootstrapInterval({4, 4, 4});
    QCOMPARE(lower, 4.0);
    QCOMPARE(upper, 4.0);
    // Two values: resamples have mean 0, 5 and 10 with 1/4, 1/2 and 1/4, so that both ends are certain.
    const auto [low, high] = bootstrapInterval({0, 10});
    QCOMPARE(low, 0.0);
    QCOMPARE(high, 10.0);
    // Many values from 0 to 1: mean 0.5, standard error sqrt(1/12/400).
    QList<double> even;
    for (int i = 0; i < 400; ++i)
        even << (i + 0.5) / 400;
    const auto [from, to] = bootstrapInterval(even);
    const double halfWidth = 1.96 * std::sqrt(1.0 / 12 / 400);
    QVERIFY(std::abs(from - (0.5 - halfWidth)) < 0.003 && std::abs(to - (0.5 + halfWidth)) < 0.003);
}

void TestGroupComparison::holm()
{
    QList<GroupDifference> family(5);
    const QList<std::optional<double>> p{0.01, 0.04, 0.03, {}, 0.005};
    QList<GroupDifference *> pointers;
    for (qsizetype i = 0; i < family.size(); ++i) {
        family[i].p = p[i];
        pointers << &family[i];
    }
    correctByHolm(pointers);
    // In order: 0.005 * 4, 0.01 * 3, 0.03 * 2, and 0.04 * 1 raised to the one before.
    QCOMPARE(*family[4].holm, 0.02);
    QCOMPARE(*family[0].holm, 0.03);
    QCOMPARE(*family[2].holm, 0.06);
    QCOMPARE(*family[1].holm, 0.06);
    QVERIFY(!family[3].holm);
    GroupDifference alone{.p = 0.7};
    correctByHolm({&alone});
    QCOMPARE(*alone.holm, 0.7);
}

void TestGroupComparison::sameNumbersEachTime()
{
    QList<double> values;
    for (int i = 0; i < 30; ++i)
        values << std::sin(i);
    QVERIFY(bootstrapInterval(values) == bootstrapInterval(values));
    QCOMPARE(permutationP(values.first(15), values.last(15)), permutationP(values.first(15), values.last(15)));
}

QTEST_GUILESS_MAIN(TestGroupComparison)
#include "TestGroupComparison.moc"
