// SPDX-License-Identifier: GPL-3.0-or-later
#include "statistics/TransitionMeasures.h"
#include "visualization/ToyData.h"

#include <QTest>

#include <cmath>

class TestTransitionMeasures : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void lengthFromTheFirstFixationOfTheStay();
    void likenessByMeanAndStart();
    void spread();
    void spreadOfNothing();
};

void TestTransitionMeasures::lengthFromTheFirstFixationOfTheStay()
{
    // Two fixations in cluster 0, at x = 0 and 30, then one in cluster 1 at x = 100.
    const QList<Fixation> scanpath{toy::stay({0, 0}, 0), toy::stay({30, 0}, 100), toy::stay({100, 0}, 200)};
    const QList<FixationCluster> clusters{toy::cluster({15, 0}, {scanpath[0], scanpath[1]}),
                                          toy::cluster({100, 0}, {scanpath[2]})};
    const ClusterIndex index(clusters);
    const auto counted = [&](LengthFrom from) {
        return countTransitions(index, {{scanpath}}, {TransitionType::Scanpath, from}, {0, 1000});
    };
    QCOMPARE(counted(LengthFrom::FirstFixation).lengths, (QList<QList<double>>{{100}, {100}}));
    QCOMPARE(counted(LengthFrom::LastFixation).lengths, (QList<QList<double>>{{70}, {70}}));
    QCOMPARE(counted(LengthFrom::FirstFixation).times, (QList<QList<qint64>>{{240}, {240}})); // 200 to 280
}

void TestTransitionMeasures::likenessByMeanAndStart()
{
    const Fixation stored = toy::stay({5, 5}, 100);
    Fixation longer = stored;
    longer.samples << toy::sample(300, 5, 5);
    Fixation later = toy::stay({5, 5}, 101);
    const QList<FixationCluster> clusters{toy::cluster({5, 5}, {stored})};
    QCOMPARE(ClusterIndex(clusters, Likeness::MeanAndStart).clusterOf(longer), 0);
    QCOMPARE(ClusterIndex(clusters, Likeness::Samples).clusterOf(longer), -1);
    QCOMPARE(ClusterIndex(clusters, Likeness::MeanAndStart).clusterOf(later), -1);
}

void TestTransitionMeasures::spread()
{
    ClusterTransitions transitions(2);
    transitions.add({0, 1}, 10, 100);
    transitions.add({1, 0}, 20, 400);
    transitions.add({0, 1}, 60, 1000); // 300, then 600 ms later
    const ClusterSpread found = clusterSpread(transitions, 0);
    QCOMPARE(found.fewestInWindow, -1);
    QCOMPARE(found.meanTimeBetween, 450.0);
    QCOMPARE(found.timeDeviation, 150.0); // two differences, 150 from their mean each
    QCOMPARE(found.meanLength, 30.0);
    QCOMPARE(found.lengthDeviation, std::sqrt((400.0 + 100.0 + 900.0) / 3));
}

void TestTransitionMeasures::spreadOfNothing()
{
    ClusterTransitions transitions(1);
    const ClusterSpread none = clusterSpread(transitions, 0);
    QCOMPARE(none.meanTimeBetween, 0.0);
    QCOMPARE(none.lengthDeviation, 0.0);
    QCOMPARE(none.fewestInWindow, -1);
}

QTEST_GUILESS_MAIN(TestTransitionMeasures)
#include "TestTransitionMeasures.moc"
