// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/PolygonIndex.h"

#include <QTest>

#include <random>

class TestPolygonIndex : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void bordersOfASquare_data();
    void bordersOfASquare();
    void whatIsCrossedTwice();
    void asContainsPoint_data();
    void asContainsPoint();
    void bigCoordinates();
};

namespace {

constexpr std::array rules{Qt::WindingFill, Qt::OddEvenFill};

/// Polygons of few or many vertices within a square of `size` px, which begins at `first`; small sizes make them cross
/// themselves, turn back and stand still.
QPolygon randomPolygon(std::mt19937 &random, int vertices, int first, int size)
{
    std::uniform_int_distribution<int> coordinate(first, first + size);
    QPolygon polygon;
    for (int i = 0; i < vertices; ++i)
        polygon << QPoint(coordinate(random), coordinate(random));
    return polygon;
}

/// Compares at all positions of a square.
void compareAll(const QPolygon &polygon, int first, int last)
{
    for (const Qt::FillRule rule : rules) {
        const PolygonIndex index(polygon, rule);
        for (int y = first; y <= last; ++y) {
            for (int x = first; x <= last; ++x) {
                const QPoint position(x, y);
                if (index.contains(position) != polygon.containsPoint(position, rule))
                    QFAIL(qPrintable(QStringLiteral("differs at %1,%2 with rule %3").arg(x).arg(y).arg(rule)));
            }
        }
    }
}

} // namespace

void TestPolygonIndex::bordersOfASquare_data()
{
    QTest::addColumn<QPoint>("position");
    QTest::addColumn<bool>("inside");
    QTest::newRow("in the middle") << QPoint(15, 15) << true;
    QTest::newRow("left and upper corner") << QPoint(10, 10) << true;
    QTest::newRow("left border") << QPoint(10, 15) << true;
    QTest::newRow("upper border") << QPoint(15, 10) << true;
    QTest::newRow("right border") << QPoint(20, 15) << false;
    QTest::newRow("lower border") << QPoint(15, 20) << false;
    QTest::newRow("before the right border") << QPoint(19, 19) << true;
    QTest::newRow("left of it") << QPoint(9, 15) << false;
    QTest::newRow("above it") << QPoint(15, 9) << false;
}

void TestPolygonIndex::bordersOfASquare()
{
    QFETCH(QPoint, position);
    QFETCH(bool, inside);
    const QPolygon square({{10, 10}, {20, 10}, {20, 20}, {10, 20}});
    const QPolygon otherWay({{10, 10}, {10, 20}, {20, 20}, {20, 10}});
    for (const Qt::FillRule rule : rules) {
        QCOMPARE(PolygonIndex(square, rule).contains(position), inside);
        QCOMPARE(PolygonIndex(otherWay, rule).contains(position), inside);
    }
}

void TestPolygonIndex::whatIsCrossedTwice()
{
    const QPolygon twice({{0, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 0}, {10, 0}, {10, 10}, {0, 10}});
    QVERIFY(PolygonIndex(twice, Qt::WindingFill).contains({5, 5}));
    QVERIFY(!PolygonIndex(twice, Qt::OddEvenFill).contains({5, 5}));
}

void TestPolygonIndex::asContainsPoint_data()
{
    QTest::addColumn<int>("vertices");
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("size");
    QTest::newRow("no vertex") << 0 << 0 << 40;
    QTest::newRow("a point") << 1 << 0 << 40;
    QTest::newRow("a line") << 2 << 0 << 40;
    QTest::newRow("triangles") << 3 << 0 << 40;
    QTest::newRow("a few vertices") << 7 << 0 << 40;
    QTest::newRow("vertices that coincide") << 30 << 10 << 3;
    QTest::newRow("many crossings in a row") << 200 << 0 << 40;
    QTest::newRow("across the upper left corner of the canvas") << 9 << -25 << 50;
    QTest::newRow("across the lower edge of the canvas") << 9 << 1580 << 40;
    QTest::newRow("below the canvas") << 9 << 1700 << 40;
    QTest::newRow("above the canvas") << 9 << -60 << 40;
}

void TestPolygonIndex::asContainsPoint()
{
    QFETCH(int, vertices);
    QFETCH(int, first);
    QFETCH(int, size);
    for (unsigned seed = 0; seed < 60 && !QTest::currentTestFailed(); ++seed) {
        std::mt19937 random(seed);
        compareAll(randomPolygon(random, vertices, first, size), first - 3, first + size + 3);
    }
}

void TestPolygonIndex::bigCoordinates()
{
    constexpr int largest = std::numeric_limits<int>::max();
    constexpr int smallest = std::numeric_limits<int>::min();
    std::mt19937 random(7);
    std::uniform_int_distribution<int> anywhere(smallest, largest);
    std::uniform_int_distribution<int> onCanvas(-10, 2600);
    for (int n = 0; n < 200; ++n) {
        QPolygon polygon;
        for (int i = 0; i < 12; ++i)
            polygon << QPoint(n % 3 == 0 && i % 4 == 0 ? largest : anywhere(random), anywhere(random) >> (n % 20));
        for (const Qt::FillRule rule : rules) {
            const PolygonIndex index(polygon, rule);
            for (int i = 0; i < 300; ++i) {
                QPoint position(i % 2 ? anywhere(random) : onCanvas(random),
                                i % 3 ? onCanvas(random) : anywhere(random));
                if (i % 10 == 0)
                    position = polygon[i / 10 % polygon.size()];
                if (i % 50 == 1)
                    position.setX(i % 100 == 1 ? largest : smallest);
                QCOMPARE(index.contains(position), polygon.containsPoint(position, rule));
            }
        }
    }
}

QTEST_GUILESS_MAIN(TestPolygonIndex)
#include "TestPolygonIndex.moc"
