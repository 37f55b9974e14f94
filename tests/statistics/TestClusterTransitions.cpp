// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/selection/ClusterSelection.h"
#include "visualization/ToyData.h"

#include <QTest>

#include <cmath>
#include <limits>
#include <random>

namespace {

constexpr TimeFrame allTime{std::numeric_limits<qint64>::min(), std::numeric_limits<qint64>::max()};

/// The cluster of a letter: that of "a" is number 0, its fixations stand at x = 100, that of "b" at x = 200 and so on.
/// A dot is a fixation of no cluster.
int numberOf(QChar letter)
{
    return letter == u'.' ? -1 : letter.unicode() - u'a';
}

/// Fixations of 80 ms, the first one from 0 and each 100 ms after the one before.
QList<Fixation> scanpathOf(const QString &letters)
{
    QList<Fixation> scanpath;
    for (qsizetype i = 0; i < letters.size(); ++i)
        scanpath << toy::stay({100 * (numberOf(letters[i]) + 1), 50}, 100 * i);
    return scanpath;
}

/// The clusters of the letters, with all fixations of the scanpath that they name.
QList<FixationCluster> clustersOf(const QList<Fixation> &scanpath, int count)
{
    QList<FixationCluster> clusters(count);
    for (const Fixation &fixation : scanpath) {
        if (const int number = fixation.mean.x() / 100 - 1; number >= 0)
            clusters[number].fixations << fixation;
    }
    return clusters;
}

/// The counts as "ab2 ba1".
QString textOf(const ClusterTransitions &transitions)
{
    QStringList texts;
    for (const auto &[pair, count] : transitions.counts) {
        texts << QString(QChar(char16_t(u'a' + pair.first))) + QChar(char16_t(u'a' + pair.second)) +
                     QString::number(count);
    }
    return texts.join(u' ');
}

Saccade saccadeAt(qint64 startMs, qint64 endMs)
{
    return {{toy::sample(startMs, 0, 0), toy::sample(endMs, 0, 0)}, QStringLiteral("saccade"), 0, nullptr};
}

ClusterTransitions countOf(const QString &letters, TimeFrame frame = allTime)
{
    const QList<Fixation> scanpath = scanpathOf(letters);
    const QList<FixationCluster> clusters = clustersOf(scanpath, 3);
    return countTransitions(ClusterIndex(clusters), {{scanpath, nullptr}}, TransitionType::Scanpath, frame);
}

} // namespace

class TestClusterTransitions : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void scanpath_data();
    void scanpath();
    void frame_data();
    void frame();
    void sumsAndLengths();
    void nothingCounted();
    void saccades_data();
    void saccades();
    void walksAreNotLinked();
    void theFirstOfSeveralClusters();
    void likenessOfFixations_data();
    void likenessOfFixations();
    void againstThePlainSearch();
    void walksOfEachSource();
    void savedSaccadesOfPooledRecordings();
};

void TestClusterTransitions::scanpath_data()
{
    QTest::addColumn<QString>("letters");
    QTest::addColumn<QString>("counts");
    const auto row = [](const char *name, const char *letters, const char *counts) {
        QTest::newRow(name) << QString::fromLatin1(letters) << QString::fromLatin1(counts);
    };
    row("none", "", "");
    row("one fixation", "a", "");
    row("staying in a cluster", "aaaa", "");
    row("there", "ab", "ab1");
    row("there and back", "aba", "ab1 ba1");
    row("long stays count once", "aaabbbaacc", "ab1 ac1 ba1");
    row("what lies in no cluster is passed over", "a..b", "ab1");
    row("a return after it is no transition", "a.a", "");
    row("at both ends", ".ab.", "ab1");
    row("no cluster at all", "...", "");
    row("busy", "abababc", "ab3 ba2 bc1");
}

void TestClusterTransitions::scanpath()
{
    QFETCH(QString, letters);
    QTEST(textOf(countOf(letters)), "counts");
}

void TestClusterTransitions::frame_data()
{
    QTest::addColumn<qint64>("start");
    QTest::addColumn<qint64>("end");
    QTest::addColumn<QString>("counts");
    // "abac": from 0 to 80, 100 to 180, 200 to 280 and 300 to 380 ms.
    const auto row = [](const char *name, qint64 start, qint64 end, const char *counts) {
        QTest::newRow(name) << start << end << QString::fromLatin1(counts);
    };
    row("all", 0, 380, "ab1 ac1 ba1");
    row("the first one begins before it", 1, 380, "ac1 ba1");
    row("the last one ends after it", 0, 379, "ab1 ba1");
    row("one fixation", 100, 279, "");
    row("between fixations", 181, 199, "");
    row("backwards", 380, 0, "");
}

void TestClusterTransitions::frame()
{
    QFETCH(qint64, start);
    QFETCH(qint64, end);
    QTEST(textOf(countOf(QStringLiteral("abac"), {start, end})), "counts");
}

void TestClusterTransitions::sumsAndLengths()
{
    // a-b, b-a, a-c: 100, 100 and 200 px.
    const ClusterTransitions transitions = countOf(QStringLiteral("aabaac"));
    QCOMPARE(transitions.sum, 3);
    QCOMPARE(transitions.totals, (QList<int>{3, 2, 1}));
    QCOMPARE(transitions.lengths, (QList<QList<double>>{{100, 100, 200}, {100, 100}, {200}}));
    QCOMPARE(transitions.count(0, 2), 1);
    QCOMPARE(transitions.count(2, 0), 0);
    QCOMPARE(transitions.largest(), 1);
    QCOMPARE(countOf(QStringLiteral("abab")).largest(), 2);
}

void TestClusterTransitions::nothingCounted()
{
    const ClusterTransitions transitions = countOf(QStringLiteral("a"));
    QCOMPARE(transitions.largest(), 1);
    QCOMPARE(transitions.sum, 0);
    QCOMPARE(transitions.totals, (QList<int>{0, 0, 0}));
    const QList<FixationCluster> none;
    QVERIFY(countTransitions(ClusterIndex(none), {}, TransitionType::Scanpath, allTime).totals.isEmpty());
}

void TestClusterTransitions::saccades_data()
{
    using Times = QList<QPair<qint64, qint64>>;
    QTest::addColumn<QString>("letters");
    QTest::addColumn<Times>("times");
    QTest::addColumn<QString>("counts");
    const auto row = [](const char *name, const char *letters, const Times &times, const char *counts) {
        QTest::newRow(name) << QString::fromLatin1(letters) << times << QString::fromLatin1(counts);
    };
    // Fixations from 0 to 80, 100 to 180, 200 to 280 ms.
    row("each movement is a saccade", "aba", {{84, 96}, {184, 196}}, "ab1 ba1");
    row("only one is", "aba", {{184, 196}}, "ba1");
    row("none is", "aba", {}, "");
    row("as long as the gap", "ab", {{80, 100}}, "ab1");
    row("into the next fixation", "ab", {{84, 101}}, "");
    row("out of the fixation before", "ab", {{79, 90}}, "");
    row("found twice by two calculations", "ab", {{84, 96}, {84, 96}}, "ab1");
    row("two between the same fixations", "ab", {{84, 86}, {90, 96}}, "ab1");
    row("out of order", "aba", {{184, 196}, {84, 96}}, "ab1 ba1");
    row("not across a fixation in no cluster", "a.b", {{84, 96}, {184, 196}}, "");
    row("within a cluster", "aa", {{84, 96}}, "");
}

void TestClusterTransitions::saccades()
{
    using Times = QList<QPair<qint64, qint64>>;
    QFETCH(QString, letters);
    QFETCH(Times, times);
    QList<Saccade> saccades{Saccade()}; // one without samples leads nowhere
    for (const auto &[start, end] : times)
        saccades << saccadeAt(start, end);
    const QList<Fixation> scanpath = scanpathOf(letters);
    const QList<FixationCluster> clusters = clustersOf(scanpath, 3);
    const ClusterIndex index(clusters);
    QTEST(textOf(countTransitions(index, {{scanpath, &saccades}}, TransitionType::Saccades, allTime)), "counts");
    QVERIFY(countTransitions(index, {{scanpath, nullptr}}, TransitionType::Saccades, allTime).counts.empty());
}

void TestClusterTransitions::walksAreNotLinked()
{
    const QList<Fixation> first = scanpathOf(QStringLiteral("ab"));
    const QList<Fixation> second = scanpathOf(QStringLiteral("ca"));
    const QList<FixationCluster> clusters = clustersOf(first + second, 3);
    const ClusterIndex index(clusters);
    QCOMPARE(textOf(countTransitions(index, {{first, nullptr}, {second, nullptr}}, TransitionType::Scanpath, allTime)),
             QStringLiteral("ab1 ca1")); // and no bc1
}

void TestClusterTransitions::theFirstOfSeveralClusters()
{
    const QList<Fixation> scanpath = scanpathOf(QStringLiteral("ab"));
    QList<FixationCluster> clusters = clustersOf(scanpath, 2);
    clusters << clusters[0] << FixationCluster(); // as own and cumulative ones share their fixations
    const ClusterIndex index(clusters);
    QCOMPARE(index.clusterOf(scanpath[0]), qsizetype(0));
    QCOMPARE(index.clusterCount(), qsizetype(4));
}

void TestClusterTransitions::likenessOfFixations_data()
{
    QTest::addColumn<Fixation>("fixation");
    QTest::addColumn<bool>("found");
    const Fixation stored = toy::stay({10, 20}, 100);
    const auto row = [&](const char *name, auto change, bool found) {
        Fixation fixation = stored;
        change(fixation);
        QTest::newRow(name) << fixation << found;
    };
    row(
        "the same", [](Fixation &) {}, true);
    row(
        "a copy that went to a pool", [](Fixation &f) { f.examination = 3; }, true);
    row(
        "one that was given a cluster later", [](Fixation &f) { f.cluster = 1; }, true);
    row(
        "samples of its own", [](Fixation &f) { f.samples.own().detach(); }, true);
    row(
        "another mean", [](Fixation &f) { f.mean.ry() += 1; }, false);
    row(
        "another time", [](Fixation &f) { f.samples.own()[0].time += 1; }, false);
    row(
        "another sample at its end", [](Fixation &f) { f.samples.own()[1].x += 1; }, false);
    row(
        "one sample less", [](Fixation &f) { f.samples.own().removeLast(); }, false);
}

void TestClusterTransitions::likenessOfFixations()
{
    QFETCH(Fixation, fixation);
    const QList<FixationCluster> clusters{toy::cluster({10, 20}, {toy::stay({10, 20}, 100)})};
    QTEST(ClusterIndex(clusters).clusterOf(fixation) == 0, "found");
}

void TestClusterTransitions::againstThePlainSearch()
{
    const auto plainClusterOf = [](const Fixation &fixation, const QList<FixationCluster> &clusters) {
        for (qsizetype i = 0; i < clusters.size(); ++i) {
            for (const Fixation &member : clusters[i].fixations) {
                if (member.mean == fixation.mean && member.samples == fixation.samples)
                    return i;
            }
        }
        return qsizetype(-1);
    };
    for (unsigned seed = 1; seed <= 40; ++seed) {
        std::mt19937 random(seed);
        constexpr int clusterCount = 6;
        QList<Fixation> scanpath;
        QList<FixationCluster> clusters(clusterCount);
        for (int i = 0; i < 150; ++i) { // few means and times, so that many fixations are alike
            scanpath << toy::stay({int(random() % 3), int(random() % 2)}, 100 * int(random() % 12));
            for (auto copies = random() % 3; copies > 0; --copies)
                clusters[int(random() % clusterCount)].fixations << scanpath.last();
        }
        const TimeFrame frame{200, 980};
        QList<QList<int>> expected(clusterCount, QList<int>(clusterCount, 0));
        qsizetype previous = -1;
        for (const Fixation &fixation : std::as_const(scanpath)) {
            const qsizetype cluster = plainClusterOf(fixation, clusters);
            if (cluster < 0 || fixation.firstTime() < frame.startMs || fixation.lastTime() > frame.endMs)
                continue;
            if (previous >= 0 && previous != cluster)
                ++expected[previous][cluster];
            previous = cluster;
        }
        const ClusterTransitions found =
            countTransitions(ClusterIndex(clusters), {{scanpath, nullptr}}, TransitionType::Scanpath, frame);
        for (int i = 0; i < clusterCount; ++i) {
            for (int j = 0; j < clusterCount; ++j) {
                QVERIFY2(found.count(i, j) == expected[i][j],
                         qPrintable(QStringLiteral("seed %1, from %2 to %3").arg(seed).arg(i).arg(j)));
            }
        }
    }
}

namespace {

/// Two recordings, "ab" and ".ab", with a cluster each for their own "a", and pooled clusters of all "a" and all "b".
toy::Scenery pooledScenery()
{
    toy::Scenery scenery;
    scenery.eyeMode = EyeMode::showLeft;
    EyeData &pool = scenery.model.pooled(Eye::Left);
    for (const char *letters : {"ab", ".ab"}) {
        Examination examination;
        examination.leftEye.scanpath = scanpathOf(QString::fromLatin1(letters));
        examination.leftEye.fixationClusters = clustersOf(examination.leftEye.scanpath, 2).first(1);
        for (Fixation fixation : std::as_const(examination.leftEye.scanpath)) {
            fixation.examination = static_cast<int>(scenery.model.examinations().size());
            pool.scanpath << fixation;
        }
        scenery.model.examinations() << examination;
    }
    pool.fixationClusters = clustersOf(pool.scanpath, 2);
    return scenery;
}

ClusterTransitions countOf(ClusterSource source, const toy::Scenery &scenery, qsizetype examination,
                           TransitionType type = TransitionType::Scanpath)
{
    const DrawingContext context = scenery.context();
    const Examination &drawn = context.model.examinations()[examination];
    const ExaminationEye stream = eyesToDraw(drawn, scenery.eyeMode)[0];
    const QList<FixationCluster> clusters = clustersToDraw(source, stream, context.model);
    return countTransitions(ClusterIndex(clusters), walksToCount(source, stream, context.model), type, allTime);
}

} // namespace

void TestClusterTransitions::walksOfEachSource()
{
    const toy::Scenery scenery = pooledScenery();
    QCOMPARE(textOf(countOf(ClusterSource::Own, scenery, 0)), QString()); // it has "a" alone
    // Of both recordings, one by one: "ab.ab" in one go would have a "ba", too.
    QCOMPARE(textOf(countOf(ClusterSource::Cumulative, scenery, 0)), QStringLiteral("ab2"));
    QCOMPARE(textOf(countOf(ClusterSource::Cumulative, scenery, 1)), QStringLiteral("ab2"));
    // "a" is the own cluster, "b" the pooled "a", "c" the pooled "b". The "a" of the other recording is at another
    // time, so that it lies in the pooled cluster alone. Each recording counts once.
    QCOMPARE(textOf(countOf(ClusterSource::OwnThenCumulative, scenery, 0)), QStringLiteral("ac1 bc1"));
    QCOMPARE(textOf(countOf(ClusterSource::OwnThenCumulative, scenery, 1)), QStringLiteral("ac1 bc1"));
}

void TestClusterTransitions::savedSaccadesOfPooledRecordings()
{
    toy::Scenery scenery = pooledScenery();
    scenery.model.examinations()[1].leftEye.saccades = {saccadeAt(184, 196)};
    QCOMPARE(textOf(countOf(ClusterSource::Cumulative, scenery, 0, TransitionType::Saccades)), QStringLiteral("ab1"));
    scenery.model.examinations().removeLast(); // its pooled fixations stay until the next calculation
    QCOMPARE(textOf(countOf(ClusterSource::Cumulative, scenery, 0, TransitionType::Saccades)), QString());
    QCOMPARE(textOf(countOf(ClusterSource::Cumulative, scenery, 0)), QStringLiteral("ab2"));
}

QTEST_GUILESS_MAIN(TestClusterTransitions)
#include "TestClusterTransitions.moc"
