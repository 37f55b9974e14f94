// SPDX-License-Identifier: GPL-3.0-or-later
#include "aoi/PolygonChecks.h"
#include "model/AreaOfInterest.h"

#include <QRandomGenerator>
#include <QTest>

class TestPolygonChecks : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void outlines_data();
    void outlines();
    void turningAndMirroringChangesNothing_data() { outlines_data(); }
    void turningAndMirroringChangesNothing();
    void overlaps_data();
    void overlaps();
    void overlapIsACommonPixel();
    void farVerticesAreNoTrouble();
};

void TestPolygonChecks::outlines_data()
{
    QTest::addColumn<QPolygon>("polygon");
    QTest::addColumn<bool>("meets");
    QTest::newRow("no vertex") << QPolygon() << false;
    QTest::newRow("a line there and back") << QPolygon{{0, 0}, {10, 0}} << false;
    QTest::newRow("triangle") << QPolygon{{0, 0}, {10, 0}, {5, 8}} << false;
    QTest::newRow("bent inwards") << QPolygon{{0, 0}, {10, 0}, {5, 3}, {10, 10}, {0, 10}} << false;
    QTest::newRow("bow tie") << QPolygon{{0, 0}, {10, 10}, {10, 0}, {0, 10}} << true;
    QTest::newRow("vertex on another edge") << QPolygon{{0, 0}, {10, 0}, {10, 10}, {5, 0}, {0, 10}} << true;
    QTest::newRow("vertex passed twice") << QPolygon{{0, 0}, {5, 5}, {10, 0}, {10, 10}, {5, 5}, {0, 10}} << true;
    QTest::newRow("spike there and back") << QPolygon{{0, 0}, {10, 0}, {20, 0}, {10, 0}, {5, 8}} << true;
    QTest::newRow("vertex in the middle of an edge") << QPolygon{{0, 0}, {5, 0}, {10, 0}, {5, 8}} << false;
    QTest::newRow("corners twice, the first vertex again at the end")
        << QPolygon{{0, 0}, {9, 0}, {9, 0}, {9, 9}, {9, 9}, {0, 9}, {0, 0}} << false;
    QTest::newRow("crossing far from the origin") << QPolygon{{-2000000000, -2000000000},
                                                              {2000000000, 2000000000},
                                                              {2000000000, -2000000000},
                                                              {-2000000000, 2000000000}}
                                                  << true;
}

void TestPolygonChecks::outlines()
{
    QFETCH(QPolygon, polygon);
    QTEST(crossesItself(polygon), "meets");
}

void TestPolygonChecks::turningAndMirroringChangesNothing()
{
    QFETCH(QPolygon, polygon);
    QFETCH(bool, meets);
    for (QPoint &vertex : polygon)
        vertex = QPoint(-vertex.y(), vertex.x());
    QCOMPARE(crossesItself(polygon), meets);
    std::reverse(polygon.begin(), polygon.end());
    QCOMPARE(crossesItself(polygon), meets);
    std::rotate(polygon.begin(), polygon.begin() + polygon.size() / 2, polygon.end());
    QCOMPARE(crossesItself(polygon), meets);
}

void TestPolygonChecks::overlaps_data()
{
    QTest::addColumn<QPolygon>("other");
    QTest::addColumn<bool>("overlaps");
    QTest::newRow("far away") << QPolygon{{100, 100}, {110, 100}, {110, 110}} << false;
    QTest::newRow("common edge") << QPolygon{{10, 0}, {20, 0}, {20, 10}, {10, 10}} << false;
    QTest::newRow("one column in common") << QPolygon{{9, 0}, {20, 0}, {20, 10}, {9, 10}} << true;
    QTest::newRow("inside") << QPolygon{{3, 3}, {6, 3}, {6, 6}, {3, 6}} << true;
    QTest::newRow("around") << QPolygon{{-5, -5}, {50, -5}, {50, 50}, {-5, 50}} << true;
    QTest::newRow("without vertices") << QPolygon() << false;
}

void TestPolygonChecks::overlaps()
{
    QFETCH(QPolygon, other);
    QFETCH(bool, overlaps);
    const QPolygon square{{0, 0}, {10, 0}, {10, 10}, {0, 10}};
    const QList<AreaOfInterest> aois{{QStringLiteral("own"), square}, {QStringLiteral("other"), other}};
    const QStringList expected = overlaps ? QStringList{QStringLiteral("other")} : QStringList();
    QCOMPARE(overlappedNames(square, QStringLiteral("own"), aois), expected);
}

/// Against a look at every pixel.
void TestPolygonChecks::overlapIsACommonPixel()
{
    QRandomGenerator random(20);
    int overlapping = 0;
    for (int run = 0; run < 300; ++run) {
        const auto rectangle = [&random] {
            const QRect frame(random.bounded(20), random.bounded(20), random.bounded(1, 12), random.bounded(1, 12));
            return QPolygon(frame); // with the corners one pixel beyond it
        };
        const AreaOfInterest a(QStringLiteral("a"), rectangle());
        const AreaOfInterest b(QStringLiteral("b"), rectangle());
        int common = 0;
        for (int pixel = 0; pixel < 40 * 40; ++pixel) {
            const QPoint at(pixel % 40, pixel / 40);
            common += a.contains(at, Qt::WindingFill) && b.contains(at, Qt::WindingFill) ? 1 : 0;
        }
        overlapping += common > 0 ? 1 : 0;
        QVERIFY2(overlappedNames(a.polygon, a.name, {b}).isEmpty() == (common == 0), qPrintable(QString::number(run)));
    }
    QVERIFY(overlapping > 50 && overlapping < 250);
}

void TestPolygonChecks::farVerticesAreNoTrouble()
{
    const QPolygon far{{0, -2000000000}, {2000000000, 2000000000}, {-2000000000, 2000000000}};
    QVERIFY(overlappedNames(far, QString(), {AreaOfInterest(QStringLiteral("a"), far)}).isEmpty());
}

QTEST_GUILESS_MAIN(TestPolygonChecks)
#include "TestPolygonChecks.moc"
