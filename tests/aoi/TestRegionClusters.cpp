// SPDX-License-Identifier: GPL-3.0-or-later
#include "aoi/generation/RegionClusters.h"
#include "clustering/FixationOutline.h"
#include "model/DataModel.h"

#include <QTest>

#include <random>

class TestRegionClusters : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void fixationsJoinTheirRegion();
    void eachPoolIsClusteredByItself();
    void aFixationJoinsTheFirstRegionThatItTouches();
    void uncheckedExaminationsAreLeftOut();
    void aRegionWithoutFixationsMakesNoCluster();
    void aStopGivesNothing();
    void asThePlainForm();
};

namespace {

Fixation fixation(QPoint mean, QVector2D major = {10, 0}, QVector2D minor = {0, 6})
{
    Fixation made;
    made.samples = {GazePoint(0, mean.x(), mean.y(), 0, 0, 1), GazePoint(10, mean.x(), mean.y(), 0, 0, 1)};
    made.mean = mean;
    made.majorAxis = major;
    made.minorAxis = minor;
    made.cluster = 9; // of an earlier calculation
    return made;
}

Examination examination(const QList<Fixation> &left, const QList<Fixation> &right, const QList<Fixation> &mean = {})
{
    Examination made;
    made.dominantEye = QStringLiteral("left");
    made.leftEye.scanpath = left;
    made.rightEye.scanpath = right;
    made.meanEye.scanpath = mean;
    return made;
}

QPolygon square(int left, int top, int side)
{
    return QPolygon({{left, top}, {left + side, top}, {left + side, top + side}, {left, top + side}});
}

const EyeData &pool(const PooledStreams &streams, Eye eye)
{
    return streams[std::size_t(eye)];
}

} // namespace

void TestRegionClusters::fixationsJoinTheirRegion()
{
    DataModel model;
    model.examinations() << examination({fixation({150, 150}), fixation({400, 150}), fixation({205, 150}),
                                         fixation({215, 150}), fixation({90, 90}, {80, 0}, {0, 300})},
                                        {});
    const std::optional<PooledStreams> streams = regionClusters({square(100, 100, 100)}, model);
    const EyeData &left = pool(*streams, Eye::Left);
    QCOMPARE(left.scanpath.size(), 5);
    QCOMPARE(left.fixationClusters.size(), 1);
    // Inside, across the border and around the region; the one at 215 begins 5 px to the right of it.
    const FixationCluster &cluster = left.fixationClusters.first();
    QCOMPARE(cluster.fixations.size(), 3);
    QCOMPARE(cluster.fixations[1].mean, QPoint(205, 150));
    QCOMPARE(cluster.mean, QPoint((150 + 205 + 90) / 3, (150 + 150 + 90) / 3)); // of the samples, two each
    QCOMPARE(cluster.fixations[0].cluster, 0);
    QCOMPARE(left.scanpath[0].cluster, 1);
    QCOMPARE(left.scanpath[1].cluster, 0);
    QCOMPARE(left.scanpath[0].examination, 0);
}

void TestRegionClusters::eachPoolIsClusteredByItself()
{
    DataModel model;
    model.examinations() << examination({fixation({150, 150})}, {fixation({150, 150}), fixation({160, 150})},
                                        {fixation({900, 900})});
    const std::optional<PooledStreams> streams = regionClusters({square(100, 100, 100)}, model);
    QCOMPARE(pool(*streams, Eye::Left).fixationClusters.first().fixations.size(), 1);
    QCOMPARE(pool(*streams, Eye::Right).fixationClusters.first().fixations.size(), 2);
    QCOMPARE(pool(*streams, Eye::Dominant).fixationClusters.first().fixations.size(), 1);
    QCOMPARE(pool(*streams, Eye::Mean).fixationClusters.size(), 0);
    QCOMPARE(pool(*streams, Eye::Mean).scanpath.size(), 1);
}

void TestRegionClusters::aFixationJoinsTheFirstRegionThatItTouches()
{
    DataModel model;
    model.examinations() << examination({fixation({200, 150}), fixation({250, 150})}, {});
    const std::optional<PooledStreams> streams = regionClusters({square(100, 100, 100), square(190, 100, 100)}, model);
    const EyeData &left = pool(*streams, Eye::Left);
    QCOMPARE(left.fixationClusters.size(), 2);
    QCOMPARE(left.fixationClusters[0].fixations.first().mean, QPoint(200, 150));
    QCOMPARE(left.fixationClusters[1].fixations.size(), 1);
    QCOMPARE(left.scanpath[0].cluster, 1);
    QCOMPARE(left.scanpath[1].cluster, 2);
}

void TestRegionClusters::uncheckedExaminationsAreLeftOut()
{
    DataModel model;
    model.examinations() << examination({fixation({150, 150})}, {}) << examination({fixation({160, 150})}, {});
    model.examinations()[0].checked = false;
    const std::optional<PooledStreams> streams = regionClusters({square(100, 100, 100)}, model);
    QCOMPARE(pool(*streams, Eye::Left).scanpath.size(), 1);
    QCOMPARE(pool(*streams, Eye::Left).scanpath[0].examination, 1); // its place in the list of all
}

void TestRegionClusters::aRegionWithoutFixationsMakesNoCluster()
{
    DataModel model;
    model.examinations() << examination({fixation({900, 900})}, {});
    const std::optional<PooledStreams> streams = regionClusters({square(100, 100, 100), QPolygon()}, model);
    QVERIFY(pool(*streams, Eye::Left).fixationClusters.isEmpty());
    QCOMPARE(pool(*regionClusters({}, model), Eye::Left).scanpath.size(), 1);
}

void TestRegionClusters::aStopGivesNothing()
{
    std::stop_source source;
    source.request_stop();
    QVERIFY(!regionClusters({square(100, 100, 100)}, DataModel(), source.get_token()));
}

void TestRegionClusters::asThePlainForm()
{
    std::mt19937 random(8);
    std::uniform_int_distribution<int> place(0, 500);
    std::uniform_real_distribution<float> axis(-30, 30);
    QList<Fixation> fixations;
    for (int i = 0; i < 150; ++i) {
        const QVector2D major(axis(random), axis(random));
        fixations << fixation({place(random), place(random)}, major,
                              i % 10 ? QVector2D(-major.y(), major.x()) * 0.4F : QVector2D());
    }
    QList<QPolygon> regions;
    for (int i = 0; i < 6; ++i) {
        QPolygon region;
        for (int j = 0; j < 9; ++j)
            region << QPoint(place(random) / 2 + 40 * i, place(random) / 2 + 30 * i);
        regions << region;
    }
    DataModel model;
    model.examinations() << examination(fixations, {});
    const std::optional<PooledStreams> streams = regionClusters(regions, model);

    QList<QList<QPoint>> expected;
    std::vector<bool> isTaken(std::size_t(fixations.size()));
    for (const QPolygon &region : regions) {
        QPainterPath path;
        path.addPolygon(region);
        path.closeSubpath();
        QList<QPoint> members;
        for (qsizetype i = 0; i < fixations.size(); ++i) {
            const QPainterPath ellipse = FixationOutline(fixations[i]).path();
            if (isTaken[std::size_t(i)] || !(path.contains(ellipse) || path.intersects(ellipse) ||
                                             ellipse.contains(path) || ellipse.intersects(path)))
                continue;
            isTaken[std::size_t(i)] = true;
            members << fixations[i].mean;
        }
        if (!members.isEmpty())
            expected << members;
    }
    QList<QList<QPoint>> found;
    for (const FixationCluster &cluster : pool(*streams, Eye::Left).fixationClusters) {
        QList<QPoint> members;
        for (const Fixation &member : cluster.fixations)
            members << member.mean;
        found << members;
    }
    QVERIFY(found.size() > 2);
    QCOMPARE(found, expected);
}

QTEST_GUILESS_MAIN(TestRegionClusters)
#include "TestRegionClusters.moc"
