// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/shapes/OutlineGeometry.h"

#include <QLineF>
#include <QRandomGenerator>
#include <QTest>

#include <cmath>

namespace {

const QPolygon square{{0, 0}, {10, 0}, {10, 10}, {0, 10}};

/// The smallest distance between points set densely on both outlines.
double denseDistance(const QPolygon &a, const QPolygon &b)
{
    constexpr int steps = 60;
    double nearest = 1e9;
    for (qsizetype i = 0; i < a.size(); ++i) {
        for (qsizetype j = 0; j < b.size(); ++j) {
            for (int s = 0; s <= steps; ++s) {
                for (int t = 0; t <= steps; ++t) {
                    const QPointF p = positionOf(a, {i, double(s) / steps});
                    const QPointF q = positionOf(b, {j, double(t) / steps});
                    nearest = std::min(nearest, QLineF(p, q).length());
                }
            }
        }
    }
    return nearest;
}

double distanceOf(const QPolygon &a, const QPolygon &b)
{
    const NearestPlaces nearest = nearestPlaces(a, b);
    return QLineF(positionOf(a, nearest.from), nearest.to).length();
}

} // namespace

class TestOutlineGeometry : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void perimeters_data();
    void perimeters();
    void nearest_data();
    void nearest();
    void nearestOfAnyTwoTriangles();
    void walks_data();
    void walks();
    void walksFollowEachOther();
    void degenerateOutlines();
};

void TestOutlineGeometry::perimeters_data()
{
    QTest::addColumn<QPolygon>("outline");
    QTest::addColumn<double>("length");
    QTest::newRow("no vertex") << QPolygon() << 0.0;
    QTest::newRow("one vertex") << QPolygon{{5, 5}} << 0.0;
    QTest::newRow("there and back") << QPolygon{{0, 0}, {3, 4}} << 10.0;
    QTest::newRow("square, the closing edge included") << square << 40.0;
    QTest::newRow("the first vertex again at the end") << QPolygon{{0, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 0}} << 40.0;
}

void TestOutlineGeometry::perimeters()
{
    QFETCH(QPolygon, outline);
    QTEST(perimeter(outline), "length");
}

void TestOutlineGeometry::nearest_data()
{
    QTest::addColumn<QPolygon>("other");
    QTest::addColumn<QPointF>("from");
    QTest::addColumn<QPointF>("to");
    QTest::newRow("corner to corner") << QPolygon{{20, 20}, {30, 20}, {30, 30}} << QPointF(10, 10) << QPointF(20, 20);
    QTest::newRow("corner to edge") << QPolygon{{13, 4}, {20, 0}, {20, 8}} << QPointF(10, 4) << QPointF(13, 4);
    QTest::newRow("edge to corner") << QPolygon{{5, 15}, {15, 5}, {20, 20}} << QPointF(10, 10) << QPointF(10, 10);
    QTest::newRow("crossing") << QPolygon{{5, -5}, {5, 5}, {6, -5}} << QPointF(5, 0) << QPointF(5, 0);
    QTest::newRow("closing edge") << QPolygon{{-3, 5}, {-9, 2}, {-9, 8}} << QPointF(0, 5) << QPointF(-3, 5);
    QTest::newRow("a point") << QPolygon{{5, 13}} << QPointF(5, 10) << QPointF(5, 13);
}

void TestOutlineGeometry::nearest()
{
    QFETCH(QPolygon, other);
    const NearestPlaces found = nearestPlaces(square, other);
    QTEST(positionOf(square, found.from), "from");
    QTEST(found.to, "to");
}

void TestOutlineGeometry::nearestOfAnyTwoTriangles()
{
    QRandomGenerator random(5);
    for (int run = 0; run < 60; ++run) {
        const auto triangle = [&random](int offset) {
            const auto at = [&] { return QPoint(offset + random.bounded(40), random.bounded(40)); };
            return QPolygon{at(), at(), at()};
        };
        const QPolygon a = triangle(0);
        const QPolygon b = triangle(random.bounded(60));
        const double dense = denseDistance(a, b); // at most half a step of both outlines too much
        const double found = distanceOf(a, b);
        QVERIFY2(found <= dense + 1e-9 && found >= dense - 1.2, qPrintable(QString::number(run)));
        QVERIFY(std::abs(found - distanceOf(b, a)) < 1e-9);
    }
}

void TestOutlineGeometry::walks_data()
{
    QTest::addColumn<qsizetype>("edge");
    QTest::addColumn<double>("fraction");
    QTest::addColumn<double>("length");
    QTest::addColumn<QPolygonF>("points");
    QTest::newRow("nowhere") << qsizetype(0) << 0.5 << 0.0 << QPolygonF{{5, 0}, {5, 0}};
    QTest::newRow("within an edge") << qsizetype(0) << 0.2 << 5.0 << QPolygonF{{2, 0}, {7, 0}};
    QTest::newRow("to a corner") << qsizetype(0) << 0.2 << 8.0 << QPolygonF{{2, 0}, {10, 0}};
    QTest::newRow("around a corner") << qsizetype(0) << 0.5 << 9.0 << QPolygonF{{5, 0}, {10, 0}, {10, 4}};
    QTest::newRow("over the last edge") << qsizetype(3) << 0.5 << 10.0 << QPolygonF{{0, 5}, {0, 0}, {5, 0}};
    QTest::newRow("all around") << qsizetype(1) << 0.5 << 40.0
                                << QPolygonF{{10, 5}, {10, 10}, {0, 10}, {0, 0}, {10, 0}, {10, 5}};
}

void TestOutlineGeometry::walks()
{
    QFETCH(qsizetype, edge);
    QFETCH(double, fraction);
    QFETCH(double, length);
    const OutlineWalk walk = walkOutline(square, {edge, fraction}, length);
    QTEST(walk.points, "points");
    QCOMPARE(positionOf(square, walk.end), walk.points.last());
}

void TestOutlineGeometry::walksFollowEachOther()
{
    const OutlinePlace start{2, 0.3};
    OutlinePlace place = start;
    for (const double share : {0.1, 0.25, 0.4, 0.25})
        place = walkOutline(square, place, 40 * share).end;
    QVERIFY(QLineF(positionOf(square, place), positionOf(square, start)).length() < 1e-9);
}

void TestOutlineGeometry::degenerateOutlines()
{
    const QPolygon point{{5, 5}};
    QCOMPARE(walkOutline(point, {0, 0}, 0).points.last(), QPointF(5, 5));
    QCOMPARE(walkOutline(point, {0, 0}, 7).points.last(), QPointF(5, 5));
    QVERIFY(walkOutline(square, {0, 0}, 1e9).points.size() < 20); // comes to an end
    QCOMPARE(distanceOf(point, {{8, 9}}), 5.0);
    const QPolygon twice{{0, 0}, {0, 0}, {10, 0}, {10, 0}};
    QCOMPARE(perimeter(twice), 20.0);
    QCOMPARE(walkOutline(twice, {0, 0}, 4).points.last(), QPointF(4, 0));
}

QTEST_GUILESS_MAIN(TestOutlineGeometry)
#include "TestOutlineGeometry.moc"
