// SPDX-License-Identifier: GPL-3.0-or-later
#include "aoi/generation/ClusterAois.h"

#include <QTest>

#include <numbers>

class TestClusterAois : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void namesBeginAtOne();
    void axesAreDoubled();
    void quarterSteps();
    void theWalkBeginsAtTheFirstAxis_data();
    void theWalkBeginsAtTheFirstAxis();
    void aFullCircleEndsTheWalk_data();
    void aFullCircleEndsTheWalk();
    void aNullAxisIsALine();
};

namespace {

CumulativeCluster cluster(QPoint mean, QVector2D major, QVector2D minor)
{
    CumulativeCluster made;
    made.mean = mean;
    made.majorAxis = major;
    made.minorAxis = minor;
    return made;
}

} // namespace

void TestClusterAois::namesBeginAtOne()
{
    const QList<GeneratedAoi> aois =
        clusterAois({cluster({100, 100}, {10, 0}, {0, 5}), cluster({300, 100}, {10, 0}, {0, 5})});
    QCOMPARE(aois.size(), 2);
    QCOMPARE(aois[0].aoi.name, QStringLiteral("ClusterAOI(1)"));
    QCOMPARE(aois[1].aoi.name, QStringLiteral("ClusterAOI(2)"));
    QVERIFY(aois[0].oldName.isNull());
    QVERIFY(clusterAois({}).isEmpty());
}

void TestClusterAois::axesAreDoubled()
{
    const QPolygon ellipse = clusterAois({cluster({500, 400}, {100, 0}, {0, 50})}).first().aoi.polygon;
    QVERIFY(ellipse.size() == 50 || ellipse.size() == 51);
    QCOMPARE(ellipse.first(), QPoint(700, 400));
    QCOMPARE(ellipse[25].x(), 300);
    const QRect bounds = ellipse.boundingRect();
    QVERIFY(bounds.top() >= 300 && bounds.top() <= 301); // steps of 7.2 degrees nearly hit the ends
    QVERIFY(bounds.bottom() >= 499 && bounds.bottom() <= 500);
}

void TestClusterAois::quarterSteps()
{
    QCOMPARE(ellipsePolygon({100, 200}, {10, 0}, {0, 5}, 4), QPolygon({{110, 200}, {100, 205}, {90, 200}, {100, 195}}));
}

void TestClusterAois::theWalkBeginsAtTheFirstAxis_data()
{
    QTest::addColumn<QVector2D>("axis");
    QTest::addColumn<QPoint>("first");
    QTest::newRow("to the right") << QVector2D(100, 0) << QPoint(600, 500);
    QTest::newRow("down") << QVector2D(0, 100) << QPoint(500, 600);
    QTest::newRow("up is turned round") << QVector2D(0, -100) << QPoint(500, 600);
    QTest::newRow("down to the right") << QVector2D(300, 400) << QPoint(800, 900);
    QTest::newRow("down to the left") << QVector2D(-300, 400) << QPoint(200, 900);
    QTest::newRow("up to the left is turned round") << QVector2D(-300, -400) << QPoint(800, 900);
    QTest::newRow("to the left") << QVector2D(-100, 0) << QPoint(400, 500);
}

void TestClusterAois::theWalkBeginsAtTheFirstAxis()
{
    QFETCH(QVector2D, axis);
    QFETCH(QPoint, first);
    const QPoint found = ellipsePolygon({500, 500}, axis, {0, 5}, 50).first();
    QVERIFY2((found - first).manhattanLength() <= 2, qPrintable(QStringLiteral("%1,%2").arg(found.x()).arg(found.y())));
}

void TestClusterAois::aFullCircleEndsTheWalk_data()
{
    QTest::addColumn<int>("steps");
    for (const int steps : {1, 2, 3, 7, 50, 64, 100})
        QTest::addRow("%d steps", steps) << steps;
}

void TestClusterAois::aFullCircleEndsTheWalk()
{
    QFETCH(int, steps);
    const double full = 2 * std::numbers::pi;
    int expected = 1; // the test stands behind the step
    for (double t = full / steps; t < full; t += full / steps)
        ++expected;
    QCOMPARE(ellipsePolygon({0, 0}, {10, 0}, {0, 10}, steps).size(), expected);
}

void TestClusterAois::aNullAxisIsALine()
{
    const QPolygon line = ellipsePolygon({10, 10}, {1, 0}, {0, 0}, 50);
    for (const QPoint vertex : line)
        QCOMPARE(vertex.y(), 10);
    QVERIFY(!line.isEmpty());
}

QTEST_GUILESS_MAIN(TestClusterAois)
#include "TestClusterAois.moc"
