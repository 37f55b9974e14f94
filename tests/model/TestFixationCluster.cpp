// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/FixationCluster.h"

#include "model/DataModel.h"

#include <QTest>

#include <algorithm>
#include <random>

namespace {

GazePoint at(qint64 timeMs, double x, double y)
{
    return {timeMs, x, y, 0, 0, 1};
}

Fixation fixationOf(const QList<GazePoint> &samples)
{
    return {samples, QStringLiteral("fixation"), QPoint(), 7};
}

const Fixation early = fixationOf({at(0, 10, 0), at(10, 20, 0)});
const Fixation late = fixationOf({at(5, 30, 8), at(10, 40, 8)});

} // namespace

class TestFixationCluster : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void samplesOfAllAreSortedByTime();
    void anyNumberOfFixationsIsMergedAsIfSorted();
    void centreIsTaken();
    void withoutCentreTheMeanIsThatOfTheSamples();
    void fewSamplesHaveTheAxisOfOne();
    void emptyListIsAWarning();
    void fixationWithoutSamples();
    void gatheredHasNoStatistics();
    void fixationsWithinTheFrame_data();
    void fixationsWithinTheFrame();
    void pooledByConstReference();
};

void TestFixationCluster::samplesOfAllAreSortedByTime()
{
    const FixationCluster cluster({late, early}, {1, 1});
    // Two at 10 ms: they stay in the order of the list.
    QCOMPARE(cluster.samples, QList({early.samples[0], late.samples[0], late.samples[1], early.samples[1]}));
    QCOMPARE(cluster.fixations, QList({late, early}));
    QCOMPARE(cluster.median, QPoint());
    QCOMPARE(cluster.number, 0);
    QCOMPARE(cluster.cluster, 0);
    QCOMPARE(cluster.type, QString());
    QCOMPARE(cluster.examination, -1);
}

void TestFixationCluster::anyNumberOfFixationsIsMergedAsIfSorted()
{
    for (unsigned seed = 0; seed < 60; ++seed) {
        std::mt19937 random(seed);
        const auto below = [&](unsigned limit) { return static_cast<int>(random() % limit); };
        QList<Fixation> fixations(static_cast<qsizetype>(1 + seed % 17));
        QList<GazePoint> expected;
        for (Fixation &fixation : fixations) {
            for (int i = below(9); i > 0; --i) // few times, so that many are equal; x tells the samples apart
                fixation.samples << at(below(30), static_cast<double>(expected.size() + i), 0);
            expected.append(QList(fixation.samples.begin(), fixation.samples.end()));
        }
        std::stable_sort(expected.begin(), expected.end(),
                         [](const GazePoint &a, const GazePoint &b) { return a.time < b.time; });
        QVERIFY2(FixationCluster::gathered(fixations).samples == expected,
                 qPrintable(QStringLiteral("seed %1").arg(seed)));
    }
}

void TestFixationCluster::centreIsTaken()
{
    const FixationCluster cluster({early, late}, {20, 4});
    QCOMPARE(cluster.mean, QPoint(20, 4));
    // x: ((-10)^2 + 0 + 10^2 + 20^2) / 4 = 150; y: 4 * 4^2 / 4 = 16
    QCOMPARE(cluster.variance, QPoint(150, 16));
}

void TestFixationCluster::withoutCentreTheMeanIsThatOfTheSamples()
{
    const FixationCluster cluster({early, late}, {0, 0});
    QCOMPARE(cluster.mean, QPoint(25, 4));
    // x: (15^2 + 5^2 + 5^2 + 15^2) / 4 = 125; y: 16
    QCOMPARE(cluster.variance, QPoint(125, 16));
    // Covariances over 4 samples: xx 125, yy 16, xy (15*4 + 5*4 + 5*4 + 15*4) / 4 = 40. The eigenvalues are
    // (141 +- sqrt(109^2 + 4 * 40^2)) / 2 = (141 +- 135.2072) / 2 = 138.1036 and 2.8964.
    QVERIFY(qAbs(cluster.majorAxis.length() - 11.7518F) < 1e-3F);
    QVERIFY(qAbs(cluster.minorAxis.length() - 1.7019F) < 1e-3F);
}

void TestFixationCluster::fewSamplesHaveTheAxisOfOne()
{
    const FixationCluster cluster({early}, {3, 3});
    QCOMPARE(cluster.majorAxis, QVector2D(1, 0));
    QCOMPARE(cluster.minorAxis, QVector2D());
}

void TestFixationCluster::emptyListIsAWarning()
{
    QTest::ignoreMessage(QtWarningMsg, "WARNING: Cluster of size zero constructed!");
    const FixationCluster cluster({}, {3, 3});
    QCOMPARE(cluster, FixationCluster());
}

void TestFixationCluster::fixationWithoutSamples()
{
    const FixationCluster cluster({Fixation()}, {});
    QCOMPARE(cluster.fixations.size(), 1);
    QCOMPARE(cluster.mean, QPoint());
    QCOMPARE(cluster.variance, QPoint());
    QCOMPARE(cluster.firstTime(), -1);
}

void TestFixationCluster::gatheredHasNoStatistics()
{
    const FixationCluster cluster = FixationCluster::gathered({late, early});
    QCOMPARE(cluster.samples.size(), 4);
    QCOMPARE(cluster.firstTime(), 0);
    QCOMPARE(cluster.mean, QPoint());
    QCOMPARE(cluster.majorAxis, QVector2D());
    QCOMPARE(FixationCluster::gathered({}), FixationCluster());
}

void TestFixationCluster::fixationsWithinTheFrame_data()
{
    QTest::addColumn<qint64>("start");
    QTest::addColumn<qint64>("end");
    QTest::addColumn<qsizetype>("count");
    // From 0 to 10 and from 5 to 10 ms, and one without samples.
    QTest::newRow("its limits belong to it") << qint64(0) << qint64(10) << qsizetype(2);
    QTest::newRow("one begins before it") << qint64(1) << qint64(10) << qsizetype(1);
    QTest::newRow("both end after it") << qint64(0) << qint64(9) << qsizetype(0);
    QTest::newRow("one without samples lies nowhere") << qint64(-5) << qint64(20) << qsizetype(2);
}

void TestFixationCluster::fixationsWithinTheFrame()
{
    QFETCH(qint64, start);
    QFETCH(qint64, end);
    const FixationCluster cluster = FixationCluster::gathered({early, late, Fixation()});
    QTEST(cluster.fixationsWithin({start, end}), "count");
}

void TestFixationCluster::pooledByConstReference()
{
    DataModel model;
    model.pooled(Eye::Dominant).calculationInfo = QStringLiteral("dominant");
    model.pooled(Eye::Mean).calculationInfo = QStringLiteral("mean");
    const DataModel &same = model;
    QCOMPARE(same.pooled(Eye::Mean).calculationInfo, QStringLiteral("mean"));
    QCOMPARE(same.pooled(Eye::Dominant).calculationInfo, QStringLiteral("dominant"));
}

QTEST_GUILESS_MAIN(TestFixationCluster)
#include "TestFixationCluster.moc"
