// SPDX-License-Identifier: GPL-3.0-or-later
#include "ChordSamples.h"
#include "diagram/ChordShapes.h"

#include <QTest>

#include <cmath>
#include <limits>
#include <numbers>

class TestChordShapes : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void arcsAreAsLongAsTheirShares();
    void ribbonsHaveTheColorOfTheLargerWay();
    void stayingIsALoop();
    void withoutTransitionsThereAreNames();
    void manyNamesStayWithinThePicture();
    void noAreas();
};

namespace {

QList<PolygonShape> polygonsWith(const Drawing &drawing, const QString &tip)
{
    QList<PolygonShape> found;
    for (const Shape &shape : drawing) {
        const auto *polygon = std::get_if<PolygonShape>(&shape);
        if (polygon && polygon->toolTip == tip)
            found << *polygon;
    }
    return found;
}

double areaOf(const QPolygonF &polygon)
{
    double twice = 0;
    for (qsizetype i = 0; i < polygon.size(); ++i) {
        const QPointF a = polygon[i];
        const QPointF b = polygon[(i + 1) % polygon.size()];
        twice += a.x() * b.y() - b.x() * a.y();
    }
    return std::abs(twice) / 2;
}

QStringList textsOf(const Drawing &drawing)
{
    QStringList texts;
    for (const Shape &shape : drawing) {
        if (const auto *text = std::get_if<TextShape>(&shape))
            texts << text->text;
    }
    return texts;
}

} // namespace

void TestChordShapes::arcsAreAsLongAsTheirShares()
{
    const ChordData data = sampleChords();
    const Drawing drawing = chordShapes(data);
    // the surface of a ring is that of its angle: the turn less three gaps of 0.04, by the share of the row
    const double ring = (500.0 * 500 - 460.0 * 460) / 2 * (2 * std::numbers::pi - 3 * 0.04);
    const double shares[] = {0.5, 0.375, 0.125};
    for (qsizetype i = 0; i < 3; ++i) {
        const QList<PolygonShape> found = polygonsWith(drawing, data.areas[i].name);
        QCOMPARE(found.size(), 1);
        QVERIFY(std::abs(areaOf(found[0].polygon) / (ring * shares[i]) - 1) < 0.001); // arcs are drawn in steps
        QCOMPARE(found[0].brush.color().alpha(), 255);
    }
}

void TestChordShapes::ribbonsHaveTheColorOfTheLargerWay()
{
    const Drawing drawing = chordShapes(sampleChords());
    const auto there = polygonsWith(drawing, QStringLiteral("Door, \"left\" → </script><b>: 50.0 %\r\n"
                                                            "</script><b> → Door, \"left\": 25.0 %"));
    QCOMPARE(there.size(), 1);
    QCOMPARE(there[0].brush.color().red(), 255);
    QCOMPARE(there[0].brush.color().blue(), 0);
    const auto back = polygonsWith(drawing, QStringLiteral("</script><b> → Sky: 0.0 %\r\nSky → </script><b>: 12.5 %"));
    QCOMPARE(back.size(), 1);
    QCOMPARE(back[0].brush.color().blue(), 255);
}

void TestChordShapes::stayingIsALoop()
{
    const Drawing drawing = chordShapes(sampleChords());
    const QString name = QStringLiteral("</script><b>");
    const auto loop = polygonsWith(drawing, QStringLiteral("%1 → %1: 12.5 %\r\n%1 → %1: 12.5 %").arg(name));
    QCOMPARE(loop.size(), 1);
    QVERIFY(areaOf(loop[0].polygon) > 0);
}

void TestChordShapes::withoutTransitionsThereAreNames()
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const Drawing drawing = chordShapes({{{QStringLiteral("A"), Qt::red}}, {{nan}}});
    QCOMPARE(textsOf(drawing), QStringList(QStringLiteral("1. A  0.0 %")));
}

void TestChordShapes::manyNamesStayWithinThePicture()
{
    ChordData data;
    for (int i = 0; i < 30; ++i) {
        data.areas << ChordData::Area{QString(100, u'x'), Qt::red};
        data.shares << QList<double>(30, 1.0 / 900);
    }
    double lowest = 0;
    for (const Shape &shape : chordShapes(data)) {
        if (const auto *text = std::get_if<TextShape>(&shape)) {
            lowest = std::max(lowest, text->top.y());
            QVERIFY(text->text.size() < 40);
            QVERIFY(text->font.pointSize() >= 8);
        }
    }
    QVERIFY(lowest < 1040);
}

void TestChordShapes::noAreas()
{
    QCOMPARE(chordShapes({}).size(), 1); // the ground
}

QTEST_GUILESS_MAIN(TestChordShapes)
#include "TestChordShapes.moc"
