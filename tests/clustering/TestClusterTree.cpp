// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Progress.h"
#include "PlainSaccadeTree.h"
#include "SaccadeSamples.h"

#include <QTest>

#include <limits>
#include <numeric>

using samples::saccade;

class TestClusterTree : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void joinsByHand_data();
    void joinsByHand();
    void smallSizes();
    void largestDistances();
    void sameAsPlain_data();
    void sameAsPlain();
    void saccadesSameAsPlain_data();
    void saccadesSameAsPlain();
    void nodesHoldWhatIsBelow();
    void nodesStayWhenTheTreeMoves();
    void cut_data();
    void cut();
    void cutOfAVeryHighTree();
};

Q_DECLARE_METATYPE(Linkage)

namespace {

std::vector<Merge> joined(const DistanceMatrix &distances, Linkage linkage)
{
    Progress progress(QString(), 0);
    return agglomerate(distances, linkage, progress);
}

DistanceMatrix matrix(size_t size, const std::vector<int> &rowByRow)
{
    DistanceMatrix made(size);
    auto next = rowByRow.begin();
    for (size_t i = 0; i < size; ++i) {
        for (size_t j = i + 1; j < size; ++j)
            made.at(i, j) = *next++;
    }
    return made;
}

using Merges = std::vector<Merge>;

QList<SaccadeVector> fiveSaccades()
{
    QList<SaccadeVector> vectors;
    for (int i = 0; i < 5; ++i)
        vectors << saccade({i, 1}, {100, 1});
    return vectors;
}

/// ((1, 4) at 3, ((0, 2) at 1, 3) at 5) at 9.
ClusterTree fiveLeaves()
{
    return {fiveSaccades(), {{0, 2, 1}, {1, 4, 3}, {5, 3, 5}, {6, 7, 9}}};
}

/// The places of the starts, which are the numbers of the saccades.
QList<QList<int>> numbersOf(const QList<QList<SaccadeVector>> &clusters)
{
    QList<QList<int>> numbers;
    for (const QList<SaccadeVector> &cluster : clusters) {
        numbers << QList<int>();
        for (const SaccadeVector &vector : cluster)
            numbers.last() << vector.start.x();
    }
    return numbers;
}

} // namespace

void TestClusterTree::joinsByHand_data()
{
    QTest::addColumn<DistanceMatrix>("distances");
    QTest::addColumn<Linkage>("linkage");
    QTest::addColumn<Merges>("expected");
    // 0-1: 4, 0-2: 9, 0-3: 7, 1-2: 6, 1-3: 8, 2-3: 3. First 2 and 3 join to 4, then
    // average: 0-4 (9 + 7) / 2 = 8, 1-4 (6 + 8) / 2 = 7; 0 and 1 join at 4; 4-5 (8 + 7) / 2 = 7.
    const DistanceMatrix four = matrix(4, {4, 9, 7, 6, 8, 3});
    QTest::newRow("average") << four << Linkage::Average << Merges{{2, 3, 3}, {0, 1, 4}, {4, 5, 7}};
    QTest::newRow("maximum") << four << Linkage::Maximum << Merges{{2, 3, 3}, {0, 1, 4}, {4, 5, 9}};
    QTest::newRow("minimum") << four << Linkage::Minimum << Merges{{2, 3, 3}, {0, 1, 4}, {4, 5, 6}};
    // All are 5 apart: the first two in row order, and what has joined stands last.
    const DistanceMatrix equal = matrix(5, {5, 5, 5, 5, 5, 5, 5, 5, 5, 5});
    for (const Linkage linkage : {Linkage::Average, Linkage::Maximum, Linkage::Minimum})
        QTest::addRow("all equal, linkage %d", static_cast<int>(linkage))
            << equal << linkage << Merges{{0, 1, 5}, {2, 3, 5}, {4, 5, 5}, {6, 7, 5}};
    // 0-1: 5, 0-2: 5, 1-2: 9: after 0 and 1 ... 0-2 is an equal of 0-1 and comes later.
    QTest::newRow("the first column of a row")
        << matrix(3, {5, 5, 9}) << Linkage::Minimum << Merges{{0, 1, 5}, {2, 3, 5}};
    // 0-3: 2 joins to 4; then 1-2: 4 and 1-4: max(4, 4) = 4 are equal: 2 stands before 4.
    QTest::newRow("an older node before a newer one")
        << matrix(4, {4, 4, 2, 4, 4, 4}) << Linkage::Maximum << Merges{{0, 3, 2}, {1, 2, 4}, {4, 5, 4}};
}

void TestClusterTree::joinsByHand()
{
    QFETCH(DistanceMatrix, distances);
    QFETCH(Linkage, linkage);
    QFETCH(Merges, expected);
    QVERIFY(joined(distances, linkage) == expected);
    QVERIFY(plain::agglomerate(distances, linkage) == expected);
}

void TestClusterTree::smallSizes()
{
    QVERIFY(joined(DistanceMatrix(0), Linkage::Average).empty());
    QVERIFY(joined(DistanceMatrix(1), Linkage::Average).empty());
    QVERIFY(joined(matrix(2, {7}), Linkage::Average) == Merges({{0, 1, 7}}));
}

void TestClusterTree::largestDistances()
{
    constexpr int largest = std::numeric_limits<int>::max();
    const DistanceMatrix far = matrix(4, std::vector<int>(6, largest));
    const Merges expected{{0, 1, largest}, {2, 3, largest}, {4, 5, largest}};
    for (const Linkage linkage : {Linkage::Average, Linkage::Maximum, Linkage::Minimum})
        QVERIFY(joined(far, linkage) == expected);
}

void TestClusterTree::sameAsPlain_data()
{
    QTest::addColumn<int>("kinds");
    QTest::newRow("all equal") << 1;
    QTest::newRow("two distances") << 2;
    QTest::newRow("five distances") << 5;
    QTest::newRow("as many as degrees") << 181;
    QTest::newRow("hardly any equal") << 1'000'000;
}

void TestClusterTree::sameAsPlain()
{
    QFETCH(int, kinds);
    for (unsigned seed = 0; seed < 60; ++seed) {
        const DistanceMatrix distances = plain::randomDistances(2 + seed, kinds, seed);
        for (const Linkage linkage : {Linkage::Average, Linkage::Maximum, Linkage::Minimum})
            QVERIFY2(joined(distances, linkage) == plain::agglomerate(distances, linkage),
                     qPrintable(QStringLiteral("seed %1, linkage %2").arg(seed).arg(static_cast<int>(linkage))));
    }
}

void TestClusterTree::saccadesSameAsPlain_data()
{
    QTest::addColumn<int>("grid");
    QTest::newRow("anywhere") << 1;
    QTest::newRow("on a grid of 60 px, with many equal ones") << 60;
    QTest::newRow("on a grid of 360 px") << 360;
}

void TestClusterTree::saccadesSameAsPlain()
{
    QFETCH(int, grid);
    for (unsigned seed = 0; seed < 12; ++seed) {
        const QList<SaccadeVector> vectors = samples::randomSaccades(100, grid, seed);
        const DistanceMatrix matrices[] = {
            samples::matrixOf(vectors, [](auto &a, auto &b) { return angleDistance(a, b, Direction::Counts); }),
            samples::matrixOf(vectors, [](auto &a, auto &b) { return angleDistance(a, b, Direction::DoesNotCount); }),
            samples::matrixOf(vectors,
                              [](auto &a, auto &b) { return segmentDistance(a, b, DistanceAlgorithm::Euclidean); }),
            samples::matrixOf(vectors,
                              [](auto &a, auto &b) { return segmentDistance(a, b, DistanceAlgorithm::Manhattan); })};
        for (const DistanceMatrix &distances : matrices) {
            for (const Linkage linkage : {Linkage::Average, Linkage::Maximum, Linkage::Minimum})
                QVERIFY2(joined(distances, linkage) == plain::agglomerate(distances, linkage),
                         qPrintable(QStringLiteral("seed %1").arg(seed)));
        }
    }
}

void TestClusterTree::nodesHoldWhatIsBelow()
{
    const ClusterTree tree = fiveLeaves();
    const auto numbers = [](const ClusterNode *node) {
        return numbersOf({QList<SaccadeVector>(node->vectors.begin(), node->vectors.end())}).first();
    };
    const ClusterNode &root = tree.root();
    QCOMPARE(root.height, 9);
    QCOMPARE(numbers(&root), QList<int>({1, 4, 0, 2, 3}));
    QCOMPARE(root.left->height, 3);
    QCOMPARE(numbers(root.left), QList<int>({1, 4}));
    QCOMPARE(root.right->height, 5);
    QCOMPARE(numbers(root.right), QList<int>({0, 2, 3}));
    QCOMPARE(numbers(root.right->left), QList<int>({0, 2}));
    const ClusterNode *leaf = root.right->right;
    QCOMPARE(numbers(leaf), QList<int>({3}));
    QCOMPARE(leaf->height, 0);
    QVERIFY(!leaf->left && !leaf->right);
}

void TestClusterTree::nodesStayWhenTheTreeMoves()
{
    ClusterTree tree = fiveLeaves();
    const ClusterNode *root = &tree.root();
    const ClusterTree moved = std::move(tree);
    QCOMPARE(&moved.root(), root);
    QCOMPARE(numbersOf(cutTree(moved.root(), 9, 1)), (QList<QList<int>>{{1, 4, 0, 2, 3}}));
}

void TestClusterTree::cut_data()
{
    QTest::addColumn<int>("cutoff");
    QTest::addColumn<int>("minimum");
    QTest::addColumn<QList<QList<int>>>("expected");
    using Numbers = QList<QList<int>>;
    QTest::newRow("above the root") << 10 << 1 << Numbers{{1, 4, 0, 2, 3}};
    QTest::newRow("at the root") << 9 << 1 << Numbers{{1, 4, 0, 2, 3}};
    QTest::newRow("below the root") << 8 << 1 << Numbers{{1, 4}, {0, 2, 3}};
    QTest::newRow("with a minimum") << 8 << 3 << Numbers{{0, 2, 3}};
    QTest::newRow("below a joint") << 4 << 1 << Numbers{{1, 4}, {0, 2}, {3}};
    QTest::newRow("pairs only") << 4 << 2 << Numbers{{1, 4}, {0, 2}};
    QTest::newRow("leaves") << 0 << 1 << Numbers{{1}, {4}, {0}, {2}, {3}};
    QTest::newRow("nothing is so large") << 10 << 6 << Numbers();
}

void TestClusterTree::cut()
{
    QFETCH(int, cutoff);
    QFETCH(int, minimum);
    QTEST(numbersOf(cutTree(fiveLeaves().root(), cutoff, minimum)), "expected");
}

void TestClusterTree::cutOfAVeryHighTree()
{
    constexpr int leaves = 10'000;
    QList<SaccadeVector> vectors;
    Merges chain{{0, 1, 1}};
    for (int i = 0; i < leaves; ++i)
        vectors << saccade({i, 1}, {0, 0});
    for (size_t i = 2; i < leaves; ++i)
        chain.push_back({i, leaves + i - 2, static_cast<int>(i)});
    const ClusterTree tree(vectors, chain);
    const auto clusters = numbersOf(cutTree(tree.root(), 1, 1));
    QCOMPARE(clusters.size(), leaves - 1);
    QCOMPARE(clusters.first(), QList<int>({leaves - 1}));
    QCOMPARE(clusters.last(), QList<int>({0, 1}));
}

QTEST_GUILESS_MAIN(TestClusterTree)
#include "TestClusterTree.moc"
