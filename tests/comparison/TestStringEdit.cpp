// SPDX-License-Identifier: GPL-3.0-or-later
#include "comparison/ScanMatch.h"
#include "comparison/StringEdit.h"

#include <QTest>

#include <cmath>
#include <functional>
#include <random>

namespace {

ScanpathWord wordOf(const char *letters)
{
    ScanpathWord word;
    for (; *letters; ++letters)
        word.push_back(*letters - 'a');
    return word;
}

/// By the definition: the best of all ways, without a table.
int plainDistance(const ScanpathWord &a, const ScanpathWord &b, std::size_t i = 0, std::size_t j = 0)
{
    if (i == a.size() || j == b.size())
        return int(a.size() - i + b.size() - j);
    return std::min({plainDistance(a, b, i + 1, j + 1) + (a[i] == b[j] ? 0 : 1), plainDistance(a, b, i + 1, j) + 1,
                     plainDistance(a, b, i, j + 1) + 1});
}

double plainScore(const ScanpathWord &a, const ScanpathWord &b, const std::function<double(int, int)> &score,
                  double gap, std::size_t i = 0, std::size_t j = 0)
{
    if (i == a.size() || j == b.size())
        return gap * double(a.size() - i + b.size() - j);
    return std::max({plainScore(a, b, score, gap, i + 1, j + 1) + score(a[i], b[j]),
                     plainScore(a, b, score, gap, i + 1, j) + gap, plainScore(a, b, score, gap, i, j + 1) + gap});
}

ScanpathWord randomWord(std::mt19937 &random, int letters)
{
    ScanpathWord word(1 + random() % 6);
    for (int &letter : word)
        letter = int(random() % unsigned(letters));
    return word;
}

} // namespace

class TestStringEdit : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void levenshtein_data();
    void levenshtein();
    void emptyWords();
    void needlemanWunsch();
    void likeTheDefinition();
    void cellsOfAGrid();
    void lettersByTime();
    void scanMatchByHand();
};

void TestStringEdit::levenshtein_data()
{
    QTest::addColumn<QByteArray>("first");
    QTest::addColumn<QByteArray>("second");
    QTest::addColumn<double>("similarity");
    QTest::newRow("equal") << QByteArray("abc") << QByteArray("abc") << 1.0;
    QTest::newRow("kitten and sitting: two replaced, one inserted, of 7")
        << QByteArray("kitten") << QByteArray("sitting") << 1 - 3 / 7.0;
    QTest::newRow("nothing in common") << QByteArray("aa") << QByteArray("bbb") << 0.0;
    QTest::newRow("one letter") << QByteArray("a") << QByteArray("ab") << 0.5;
}

void TestStringEdit::levenshtein()
{
    QFETCH(QByteArray, first);
    QFETCH(QByteArray, second);
    QFETCH(double, similarity);
    QCOMPARE(levenshteinSimilarity(wordOf(first), wordOf(second)), similarity);
    QCOMPARE(levenshteinSimilarity(wordOf(second), wordOf(first)), similarity);
}

void TestStringEdit::emptyWords()
{
    const LetterScores scores = equalityScores(2, 1, -1);
    for (const auto &[a, b] : {std::pair("", ""), {"a", ""}, {"", "a"}}) {
        QVERIFY(std::isnan(levenshteinSimilarity(wordOf(a), wordOf(b))));
        QVERIFY(std::isnan(alignmentSimilarity(wordOf(a), wordOf(b), scores, -1)));
    }
}

void TestStringEdit::needlemanWunsch()
{
    // GATTACA and GCATGCU, equal 1, other -1, gap -1: the well known result is 0
    const LetterScores scores = equalityScores(26, 1, -1);
    QCOMPARE(alignmentScore(wordOf("gattaca"), wordOf("gcatgcu"), scores, -1), 0.0);
    QCOMPARE(alignmentSimilarity(wordOf("abcd"), wordOf("abd"), scores, -1), (3 - 1) / 4.0);
    QCOMPARE(alignmentSimilarity(wordOf("ab"), wordOf("ab"), scores, -1), 1.0);
    QCOMPARE(alignmentSimilarity(wordOf("aa"), wordOf("bb"), scores, -1), -1.0);
}

void TestStringEdit::likeTheDefinition()
{
    std::mt19937 random(7);
    for (int round = 0; round < 300; ++round) {
        const ScanpathWord a = randomWord(random, 4);
        const ScanpathWord b = randomWord(random, 4);
        QCOMPARE(levenshteinSimilarity(a, b), 1 - plainDistance(a, b) / double(std::max(a.size(), b.size())));
        LetterScores scores{4, {}};
        for (int i = 0; i < 16; ++i)
            scores.values.push_back(double(random() % 21) / 4 - 2);
        const double gap = -double(random() % 5) / 2;
        QCOMPARE(alignmentScore(a, b, scores, gap), plainScore(
                                                        a, b, [&](int i, int j) { return scores.of(i, j); }, gap));
    }
}

void TestStringEdit::cellsOfAGrid()
{
    const PictureGrid grid{4, 2, {400, 200}};
    QCOMPARE(grid.cellOf(0, 0), 0);
    QCOMPARE(grid.cellOf(99.9, 0), 0);
    QCOMPARE(grid.cellOf(100, 0), 1);
    QCOMPARE(grid.cellOf(399, 199), 7);
    QCOMPARE(grid.cellOf(-50, 1000), 4); // beside the picture: the nearest
    QCOMPARE(grid.cellOf(1e300, -1e300), 3);
    QCOMPARE(grid.distance(0, 7), std::sqrt(10.0));
    QCOMPARE(gridWord({{50, 50, 1}, {350, 150, 1}, {50, 50, 1}}, grid), (ScanpathWord{0, 7, 0}));
}

void TestStringEdit::lettersByTime()
{
    const PictureGrid grid{2, 1, {200, 100}};
    const FixationPath path{{50, 50, 100}, {150, 50, 24}, {150, 50, 25}, {50, 50, 124}};
    QCOMPARE(timedGridWord(path, grid, 50), (ScanpathWord{0, 0, 1, 0, 0})); // 2, none, 1 (half up), 2
    QCOMPARE(timedGridWord(path, grid, 0), (ScanpathWord{0, 1, 1, 0}));
}

void TestStringEdit::scanMatchByHand()
{
    const PictureGrid grid{3, 1, {300, 100}};
    const LetterScores scores = scanMatchScores(grid, 1.5);
    QCOMPARE(scores.of(0, 0), 1.5);
    QCOMPARE(scores.of(0, 1), 0.5);
    QCOMPARE(scores.of(2, 0), -0.5);
    // aab and acb: a with a 1.5, a with c would cost 0.5: both stand alone, b with b 1.5; 3 of 1.5 * 3
    QCOMPARE(scanMatch({0, 0, 1}, {0, 2, 1}, scores, 1.5, 0), 3 / 4.5);
    QCOMPARE(scanMatch({0, 1, 2}, {0, 1, 2}, scores, 1.5, 0), 1.0);
    QCOMPARE(scanMatch({0, 0}, {2, 2}, scores, 1.5, 0), 0.0);
    QCOMPARE(scanMatch({0, 0}, {2, 2}, scores, 1.5, -1), -1.0 / 3); // replaced: -0.5 twice, of 1.5 * 2
}

QTEST_GUILESS_MAIN(TestStringEdit)
#include "TestStringEdit.moc"
