// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/DataModel.h"

#include <QTest>

#include <cstdlib>
#include <limits>

Q_DECLARE_METATYPE(Qt::FillRule)

class TestAreaOfInterest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void areas_data();
    void areas();
    void areaIsIndependentOfTheFirstVertex();
    void centroids_data();
    void centroids();
    void edges_data();
    void edges();
    void crossingsDependOnTheRule();
    void positionsAreTruncated_data();
    void positionsAreTruncated();
    void newAreas();
    void coloursAreThoseOfTheUnseededGenerator();
    void copiesAreIndependent();
    void mapIsInOrderOfNames();
    void nameOccursOnce();
    void removal();
    void unknownName();
    void lookingUpTakesNoColour();
    void checkedAois();
};

namespace {

constexpr int lowest = std::numeric_limits<int>::min();
constexpr int highest = std::numeric_limits<int>::max();

const QPolygon square{{0, 0}, {10, 0}, {10, 10}, {0, 10}};

AreaOfInterest withPolygon(const QPolygon &polygon)
{
    return {QStringLiteral("area"), polygon};
}

AreaOfInterest named(const char *name)
{
    return {QString::fromUtf8(name), square};
}

QStringList namesOf(const QList<AreaOfInterest> &aois)
{
    QStringList names;
    for (const AreaOfInterest &aoi : aois)
        names << aoi.name;
    return names;
}

DataModel modelWith(std::initializer_list<const char *> names)
{
    DataModel model;
    for (const char *name : names)
        model.insertAoi(named(name));
    return model;
}

} // namespace

void TestAreaOfInterest::areas_data()
{
    QTest::addColumn<QPolygon>("polygon");
    QTest::addColumn<float>("area");
    QTest::newRow("no vertex") << QPolygon() << 0.0F;
    QTest::newRow("one") << QPolygon({{7, 9}}) << 0.0F;
    QTest::newRow("two") << QPolygon({{0, 3}, {5, 11}}) << 0.0F;
    QTest::newRow("three on a line") << QPolygon({{0, 0}, {5, 5}, {9, 9}}) << 0.0F;
    QTest::newRow("a triangle") << QPolygon({{0, 0}, {5, 0}, {0, 3}}) << 7.5F;
    QTest::newRow("the unit square") << QPolygon({{0, 0}, {1, 0}, {1, 1}, {0, 1}}) << 1.0F;
    QTest::newRow("the other way round") << QPolygon({{0, 0}, {0, 1}, {1, 1}, {1, 0}}) << 1.0F;
    QTest::newRow("left of and above the image") << QPolygon({{-1, -1}, {-3, -1}, {-3, -4}, {-1, -4}}) << 6.0F;
    QTest::newRow("closed by a vertex of its own") << QPolygon({{0, 0}, {1, 0}, {1, 1}, {0, 1}, {0, 0}}) << 1.0F;
    QTest::newRow("loops that cancel out") << QPolygon({{0, 0}, {2, 2}, {2, 0}, {0, 2}}) << 0.0F;
    QTest::newRow("the whole canvas") << QPolygon({{0, 0}, {2560, 0}, {2560, 1600}, {0, 1600}}) << 4096000.0F;
    // 65536 * 65536 does not fit into 32 bits.
    QTest::newRow("beyond 32 bits") << QPolygon({{0, 0}, {65536, 0}, {65536, 65536}, {0, 65536}}) << 4294967296.0F;
    QTest::newRow("the largest there is")
        << QPolygon({{lowest, lowest}, {highest, lowest}, {highest, highest}, {lowest, highest}})
        << 18446744073709551616.0F; // (2^32 - 1)^2, in single precision 2^64
}

void TestAreaOfInterest::areas()
{
    QFETCH(QPolygon, polygon);
    QFETCH(float, area);
    QVERIFY2(withPolygon(polygon).area() == area, qPrintable(QString::number(withPolygon(polygon).area())));
}

void TestAreaOfInterest::areaIsIndependentOfTheFirstVertex()
{
    QPolygon polygon{{3, 1}, {9, 2}, {8, 7}, {4, 9}, {1, 5}}; // doubled: -3 + 47 + 44 + 11 - 14 = 85
    for (qsizetype i = 0; i < polygon.size(); ++i) {
        QVERIFY(withPolygon(polygon).area() == 42.5F);
        polygon.append(polygon.takeFirst());
    }
}

void TestAreaOfInterest::centroids_data()
{
    QTest::addColumn<QPolygon>("polygon");
    QTest::addColumn<QPoint>("centroid");
    QTest::newRow("no vertex") << QPolygon() << QPoint(0, 0);
    QTest::newRow("one") << QPolygon({{7, -9}}) << QPoint(7, -9);
    QTest::newRow("halves are truncated") << QPolygon({{0, 0}, {1, 3}}) << QPoint(0, 1);
    QTest::newRow("towards zero") << QPolygon({{0, 0}, {-1, -3}}) << QPoint(0, -1);
    QTest::newRow("of the vertices, not of the surface")
        << QPolygon({{0, 0}, {0, 0}, {0, 0}, {100, 40}}) << QPoint(25, 10);
    QTest::newRow("beyond 32 bits") << QPolygon({{highest, lowest}, {highest, lowest}, {highest, lowest}})
                                    << QPoint(highest, lowest);
}

void TestAreaOfInterest::centroids()
{
    QFETCH(QPolygon, polygon);
    QTEST(withPolygon(polygon).centroid(), "centroid");
}

void TestAreaOfInterest::edges_data()
{
    QTest::addColumn<QPoint>("position");
    QTest::addColumn<bool>("inside");
    QTest::newRow("the middle") << QPoint(5, 5) << true;
    QTest::newRow("left side") << QPoint(0, 5) << true;
    QTest::newRow("upper side") << QPoint(5, 0) << true;
    QTest::newRow("right side") << QPoint(10, 5) << false;
    QTest::newRow("lower side") << QPoint(5, 10) << false;
    QTest::newRow("upper left corner") << QPoint(0, 0) << true;
    QTest::newRow("upper right corner") << QPoint(10, 0) << false;
    QTest::newRow("lower left corner") << QPoint(0, 10) << false;
    QTest::newRow("lower right corner") << QPoint(10, 10) << false;
    QTest::newRow("just inside the lower right corner") << QPoint(9, 9) << true;
    QTest::newRow("outside") << QPoint(-1, 5) << false;
    QTest::newRow("far outside") << QPoint(highest, lowest) << false;
}

void TestAreaOfInterest::edges()
{
    QFETCH(QPoint, position);
    QFETCH(bool, inside);
    for (const Qt::FillRule rule : {Qt::OddEvenFill, Qt::WindingFill}) {
        QCOMPARE(withPolygon(square).contains(position, rule), inside);
        QCOMPARE(withPolygon(QPolygon(square.crbegin(), square.crend())).contains(position, rule), inside);
        QVERIFY(!AreaOfInterest().contains(position, rule));
    }
}

void TestAreaOfInterest::crossingsDependOnTheRule()
{
    // Twice round the inner square.
    const AreaOfInterest area =
        withPolygon({{0, 0}, {30, 0}, {30, 30}, {0, 30}, {0, 0}, {10, 10}, {20, 10}, {20, 20}, {10, 20}, {10, 10}});
    QVERIFY(area.contains(QPoint(15, 15), Qt::WindingFill));
    QVERIFY(!area.contains(QPoint(15, 15), Qt::OddEvenFill));
    QVERIFY(area.contains(QPoint(25, 15), Qt::WindingFill));
    QVERIFY(area.contains(QPoint(25, 15), Qt::OddEvenFill));
}

void TestAreaOfInterest::positionsAreTruncated_data()
{
    QTest::addColumn<QPointF>("position");
    QTest::addColumn<bool>("inside");
    const double none = std::numeric_limits<double>::quiet_NaN();
    const double infinite = std::numeric_limits<double>::infinity();
    QTest::newRow("left of the edge, towards zero") << QPointF(-0.99, 5) << true;
    QTest::newRow("a pixel left of it") << QPointF(-1, 5) << false;
    QTest::newRow("left of the right edge") << QPointF(9.99, 9.99) << true;
    QTest::newRow("on it") << QPointF(10, 5) << false;
    QTest::newRow("beyond all pixels") << QPointF(1e300, 5) << false;
    QTest::newRow("infinitely far") << QPointF(5, -infinite) << false;
    QTest::newRow("no number counts as 0") << QPointF(none, 5) << true;
}

void TestAreaOfInterest::positionsAreTruncated()
{
    QFETCH(QPointF, position);
    QTEST(withPolygon(square).contains(position, Qt::WindingFill), "inside");
}

void TestAreaOfInterest::newAreas()
{
    const AreaOfInterest empty;
    QVERIFY(empty.name.isNull());
    QVERIFY(empty.polygon.isEmpty());
    QVERIFY(empty.thumbnail.isNull());
    QVERIFY(empty.enabled);
    QCOMPARE(empty.color.alpha(), 150);
    const AreaOfInterest area(QStringLiteral("left mirror"), square);
    QCOMPARE(area.name, QStringLiteral("left mirror"));
    QCOMPARE(area.polygon, square);
    QVERIFY(area.enabled);
    QCOMPARE(area.color.alpha(), 150);
}

void TestAreaOfInterest::coloursAreThoseOfTheUnseededGenerator()
{
    const auto threeColors = [] {
        std::srand(1); // the state of a program that never seeded
        return std::array{AreaOfInterest().color, named("a").color, AreaOfInterest().color};
    };
    std::srand(1);
    std::array<QColor, 3> expected;
    for (QColor &color : expected) {
        const int red = std::rand() % 256;
        const int green = std::rand() % 256;
        const int blue = std::rand() % 256;
        color = QColor(red, green, blue, 150);
    }
    QVERIFY(threeColors() == expected);
    QVERIFY(threeColors() == expected);
    QVERIFY(expected[0] != expected[1]);
}

void TestAreaOfInterest::copiesAreIndependent()
{
    const AreaOfInterest area = named("a");
    AreaOfInterest copy = area;
    QVERIFY(copy == area);
    copy.polygon << QPoint(1, 1);
    copy.glanceStarts << 5;
    QVERIFY(copy != area);
    QCOMPARE(area.polygon, square);
    QVERIFY(area.glanceStarts.isEmpty());
}

void TestAreaOfInterest::mapIsInOrderOfNames()
{
    QVERIFY(DataModel().aoiList().isEmpty());
    const DataModel model = modelWith({"b", "\u00e4", "a10", "B", "a2", ""});
    QCOMPARE(namesOf(model.aoiList()), QStringLiteral("|B|a10|a2|b|\u00e4").split(u'|'));
}

void TestAreaOfInterest::nameOccursOnce()
{
    DataModel model = modelWith({"a", "b"});
    model.insertAoi({QStringLiteral("a"), QPolygon({{1, 2}})});
    QCOMPARE(namesOf(model.aoiList()), QStringLiteral("a b").split(u' '));
    QCOMPARE(model.aoi(QStringLiteral("a")).polygon, QPolygon({{1, 2}}));
    QCOMPARE(model.aoi(QStringLiteral("b")).polygon, square);
}

void TestAreaOfInterest::removal()
{
    DataModel model = modelWith({"a", "b"});
    model.removeAoi(QStringLiteral("c"));
    QCOMPARE(model.aoiList().size(), 2);
    model.removeAoi(QStringLiteral("a"));
    QCOMPARE(namesOf(model.aoiList()), QStringList{QStringLiteral("b")});
    QVERIFY(!model.hasAoi(QStringLiteral("a")));
    QVERIFY(model.hasAoi(QStringLiteral("b")));
}

void TestAreaOfInterest::unknownName()
{
    const AreaOfInterest unknown = modelWith({"a"}).aoi(QStringLiteral("b"));
    QVERIFY(unknown.name.isNull());
    QVERIFY(unknown.polygon.isEmpty());
}

void TestAreaOfInterest::lookingUpTakesNoColour()
{
    std::srand(1);
    DataModel model = modelWith({"a", "b"});
    const QColor next = named("c").color;
    std::srand(1);
    model = modelWith({"a", "b"});
    QVERIFY(!model.aoi(QStringLiteral("a")).name.isNull());
    QCOMPARE(model.aoiList().size() + model.checkedAois().size(), 4);
    model.insertAoi(model.aoi(QStringLiteral("a")));
    model.removeAoi(QStringLiteral("b"));
    QCOMPARE(named("c").color, next);
}

void TestAreaOfInterest::checkedAois()
{
    DataModel model = modelWith({"c", "a", "b"});
    AreaOfInterest unchecked = model.aoi(QStringLiteral("b"));
    unchecked.enabled = false;
    model.insertAoi(unchecked);
    QCOMPARE(namesOf(model.checkedAois()), QStringLiteral("a c").split(u' '));
    QCOMPARE(model.aoiList().size(), 3);
}

QTEST_GUILESS_MAIN(TestAreaOfInterest)
#include "TestAreaOfInterest.moc"
