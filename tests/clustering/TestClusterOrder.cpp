// SPDX-License-Identifier: GPL-3.0-or-later
#include "clustering/ClusterOrder.h"
#include "ClusterSamples.h"
#include "model/DataModel.h"

#include <QTest>

namespace {

/// A cluster of fixations that begin at these times, each with one sample; the first time names it.
FixationCluster clusterAt(const QList<qint64> &times)
{
    QList<Fixation> fixations;
    for (const qint64 time : times)
        fixations << samples::fixation({10, 10}, 1, {1, 0}, {}, time);
    return FixationCluster::gathered(fixations);
}

QList<qint64> namesOf(const QList<FixationCluster> &clusters)
{
    QList<qint64> names;
    for (const FixationCluster &cluster : clusters)
        names << (cluster.fixations.isEmpty() ? -1 : cluster.fixations[0].firstTime());
    return names;
}

const QList<FixationCluster> three{clusterAt({1, 2, 3, 900}), clusterAt({4, 600}), clusterAt({500, 700, 800})};

} // namespace

class TestClusterOrder : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void order_data();
    void order();
    void aDetourLeavesNoTrace();
    void emptyClustersComeLast();
    void anUnchangedOrderSharesTheList();
    void allStreamsOfAllExaminations();
};

void TestClusterOrder::order_data()
{
    QTest::addColumn<qint64>("start");
    QTest::addColumn<qint64>("end");
    QTest::addColumn<QList<qint64>>("expected");
    QTest::newRow("whole recording: 4, 3, 2") << qint64(0) << qint64(1000) << QList<qint64>{1, 500, 4};
    QTest::newRow("second half: 3, 1, 1; equals keep their order")
        << qint64(500) << qint64(1000) << QList<qint64>{500, 1, 4};
    QTest::newRow("limits belong to the frame: 2, 1, 0") << qint64(600) << qint64(800) << QList<qint64>{500, 4, 1};
    QTest::newRow("nothing in the frame: as before") << qint64(2000) << qint64(3000) << QList<qint64>{1, 4, 500};
    QTest::newRow("a frame that ends before it starts") << qint64(900) << qint64(0) << QList<qint64>{1, 4, 500};
}

void TestClusterOrder::order()
{
    QFETCH(qint64, start);
    QFETCH(qint64, end);
    QTEST(namesOf(orderedByFixationsWithin(three, {start, end})), "expected");
}

void TestClusterOrder::aDetourLeavesNoTrace()
{
    QList<FixationCluster> clusters = three;
    for (int number = 0; FixationCluster & cluster : clusters)
        cluster.number = number++;
    constexpr TimeFrame late{600, 850}; // 0, 1, 2: the reverse
    constexpr TimeFrame nothing{2000, 3000};
    const QList<FixationCluster> detour = orderedByFixationsWithin(clusters, late);
    QCOMPARE(namesOf(detour), (QList<qint64>{500, 4, 1}));
    QCOMPARE(namesOf(orderedByFixationsWithin(detour, nothing)), (QList<qint64>{1, 4, 500}));
    constexpr TimeFrame secondHalf{500, 1000};
    QCOMPARE(namesOf(orderedByFixationsWithin(detour, secondHalf)),
             namesOf(orderedByFixationsWithin(clusters, secondHalf)));
}

void TestClusterOrder::emptyClustersComeLast()
{
    QCOMPARE(namesOf(orderedByFixationsWithin({FixationCluster(), clusterAt({5})}, {0, 10})), (QList<qint64>{5, -1}));
    QVERIFY(orderedByFixationsWithin({}, {0, 10}).isEmpty());
}

void TestClusterOrder::anUnchangedOrderSharesTheList()
{
    const QList<FixationCluster> sorted = orderedByFixationsWithin(three, {0, 1000});
    const QList<FixationCluster> again = orderedByFixationsWithin(sorted, {0, 1000});
    QVERIFY(again.constData() == sorted.constData());
}

void TestClusterOrder::allStreamsOfAllExaminations()
{
    DataModel model;
    Examination examination;
    examination.leftEye.fixationClusters = three;
    examination.leftEye.scanpath = {samples::fixation({10, 10})};
    examination.leftEye.scanpath[0].cluster = 2;
    examination.rightEye.fixationClusters = three;
    examination.meanEye.fixationClusters = three;
    model.examinations() = {examination, examination};
    model.examinations()[1].checked = false;
    model.pooled(Eye::Left).fixationClusters = three;
    orderClusters(model, {500, 1000});
    const QList<qint64> ordered{500, 1, 4};
    for (const Examination &each : std::as_const(model).examinations()) {
        QCOMPARE(namesOf(each.leftEye.fixationClusters), ordered);
        QCOMPARE(namesOf(each.rightEye.fixationClusters), ordered);
        QCOMPARE(namesOf(each.meanEye.fixationClusters), ordered);
        QCOMPARE(each.leftEye.scanpath[0].cluster, 2);
    }
    QCOMPARE(namesOf(model.pooled(Eye::Left).fixationClusters), namesOf(three));
}

QTEST_GUILESS_MAIN(TestClusterOrder)
#include "TestClusterOrder.moc"
