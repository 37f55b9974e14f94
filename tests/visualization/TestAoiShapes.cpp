// SPDX-License-Identifier: GPL-3.0-or-later
#include "statistics/AoiTransitions.h"
#include "ToyData.h"
#include "visualization/modes/AoiModes.h"
#include "visualization/shapes/AoiOutlines.h"
#include "visualization/shapes/AoiTransitionShapes.h"

#include <QTest>

namespace {

const QPolygon leftSquare{{100, 100}, {200, 100}, {200, 200}, {100, 200}};
const QPolygon rightSquare{{400, 100}, {500, 100}, {500, 200}, {400, 200}};
const QPolygon lowerSquare{{400, 400}, {500, 400}, {500, 500}, {400, 500}};

AreaOfInterest area(const char *name, const QPolygon &polygon, const QColor &color = {0, 0, 200, 150})
{
    AreaOfInterest made(QString::fromLatin1(name), polygon);
    made.color = color;
    return made;
}

AoiVisualizationParameters look()
{
    AoiVisualizationParameters parameters;
    setInitialValues(parameters, rows::aoiVisualization);
    parameters.transMin = 0;
    return parameters;
}

/// Left to right 3 times, left to below once, right to left twice, left to itself 4 times; 2 minutes.
AoiTransitions someTransitions()
{
    AoiTransitions transitions(3, 0.5);
    const auto add = [&transitions](qsizetype from, qsizetype to, int times) {
        for (int i = 0; i < times; ++i)
            transitions.add(from, to);
    };
    add(0, 1, 3);
    add(0, 2, 1);
    add(1, 0, 2);
    add(0, 0, 4);
    return transitions;
}

const QList<AreaOfInterest> threeAreas{area("left", leftSquare), area("right", rightSquare), area("low", lowerSquare)};

template <class Kind>
QList<Kind> all(const Drawing &drawing)
{
    QList<Kind> found;
    for (const Shape &shape : drawing) {
        if (const auto *kind = std::get_if<Kind>(&shape))
            found << *kind;
    }
    return found;
}

QStringList textsOf(const Drawing &drawing)
{
    QStringList texts;
    for (const TextShape &shape : all<TextShape>(drawing))
        texts << shape.text;
    return texts;
}

Drawing ribbons(const AoiVisualizationParameters &parameters, qsizetype examinations = 1)
{
    return aoiTransitionShapes(threeAreas, someTransitions(), examinations, parameters);
}

} // namespace

class TestAoiShapes : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void outlines_data();
    void outlines();
    void namesAreOptional();
    void ribbonsInOrder();
    void ribbonTakesItsShareOfTheOutline();
    void ribbonsOfOneAreaStandSideBySide();
    void ribbonEndsAtTheNearestPoint();
    void shareOfZeroDrawsNothing();
    void thresholdIsPerMinuteAndSubject_data();
    void thresholdIsPerMinuteAndSubject();
    void bands_data();
    void bands();
    void bandsBetweenEqualCentresAreLeftOut();
    void colours_data();
    void colours();
    void textsWhenEverythingShows();
    void areaLooks_data();
    void areaLooks();
    void areasWithoutVertices();
    void modes();
    void enabledAreasAreDrawn();
    void gazeIsCounted();
};

void TestAoiShapes::outlines_data()
{
    QTest::addColumn<int>("borderType");
    QTest::addColumn<int>("opacity");
    QTest::addColumn<QColor>("brush");
    QTest::newRow("brighter") << 0 << 50 << QColor(0, 0, 200).lighter(150);
    QTest::newRow("same") << 1 << 100 << QColor(0, 0, 200);
    QTest::newRow("darker") << 2 << 0 << QColor(0, 0, 100);
}

void TestAoiShapes::outlines()
{
    QFETCH(int, borderType);
    QFETCH(int, opacity);
    QFETCH(QColor, brush);
    AoiVisualizationParameters parameters = look();
    parameters.borderType = borderType;
    parameters.borderWidth = 9;
    parameters.fillOpacity = opacity;
    parameters.color = Qt::green; // of no account
    const Drawing drawing = aoiOutlines({area("left", leftSquare)}, parameters);
    const PolygonShape polygon = all<PolygonShape>(drawing).value(0);
    QCOMPARE(polygon.polygon, QPolygonF(leftSquare));
    QCOMPARE(polygon.pen, QPen(QColor(0, 0, 200, 150), 9));
    brush.setAlpha(static_cast<int>(opacity * 2.55));
    QCOMPARE(polygon.brush, QBrush(brush));
    QVERIFY(!polygon.shownOnArea);
    const TextShape name = all<TextShape>(drawing).value(0);
    QCOMPARE(name.text, QStringLiteral("left"));
    QCOMPARE(name.top, QPointF(150, 150));
    QVERIFY(name.anchor == TextAnchor::Middle);
    QCOMPARE(name.font.family(), QStringLiteral("Times New Roman"));
    QCOMPARE(name.font.pointSize(), 30);
    QCOMPARE(name.color.rgb(), brush.rgb() | 0xff000000);
}

void TestAoiShapes::namesAreOptional()
{
    AoiVisualizationParameters parameters = look();
    parameters.displayNames = false;
    QCOMPARE(aoiOutlines(threeAreas, parameters).size(), 3);
    QVERIFY(aoiOutlines({}, parameters).isEmpty());
}

/// Hidden ribbons, each behind its own area, with the texts as tool tips. 8 transitions lead out of the left area.
void TestAoiShapes::ribbonsInOrder()
{
    const Drawing drawing = ribbons(look());
    QStringList kinds;
    for (const Shape &shape : drawing)
        kinds << (std::holds_alternative<PolygonShape>(shape) ? QStringLiteral("ribbon")
                  : std::holds_alternative<AreaShape>(shape)  ? QStringLiteral("area")
                                                              : QStringLiteral("text"));
    QCOMPARE(kinds.join(u' '), QStringLiteral("ribbon ribbon area text ribbon area text area text"));
    const QList<PolygonShape> found = all<PolygonShape>(drawing);
    QCOMPARE(found[0].toolTip, QStringLiteral("Transitions out (3):37.5% \n Transitions in (2):100%"));
    QCOMPARE(found[1].toolTip, QStringLiteral("Transitions out (1):12.5% \n Transitions in (0):0%"));
    QCOMPARE(found[2].toolTip, QStringLiteral("Transitions out (2):100% \n Transitions in (3):37.5%"));
    QCOMPARE(found[0].shownOnArea, std::optional<qsizetype>(0));
    QCOMPARE(found[1].shownOnArea, std::optional<qsizetype>(0));
    QCOMPARE(found[2].shownOnArea, std::optional<qsizetype>(1));
    const QList<AreaShape> areas = all<AreaShape>(drawing);
    QCOMPARE(areas[0].toolTip, QStringLiteral("Transitions (4):50%"));
    QCOMPARE(areas[1].toolTip, QStringLiteral("Transitions (0):0%"));
    QCOMPARE(areas[2].index, 2);
    QCOMPARE(textsOf(drawing), QStringList({QStringLiteral("left"), QStringLiteral("right"), QStringLiteral("low")}));
}

/// 37.5 % of 400 px from the nearest point on, which is the upper right corner: down the right side to the lower right
/// corner and half of the lower side.
void TestAoiShapes::ribbonTakesItsShareOfTheOutline()
{
    const QPolygonF ribbon = all<PolygonShape>(ribbons(look())).value(0).polygon;
    QCOMPARE(ribbon[0], QPointF(200, 100));
    QCOMPARE(ribbon[1], QPointF(200, 200));
    QCOMPARE(ribbon[2], QPointF(150, 200));
    QCOMPARE(ribbon.last(), QPointF(200, 100));
}

void TestAoiShapes::ribbonsOfOneAreaStandSideBySide()
{
    const QList<PolygonShape> found = all<PolygonShape>(ribbons(look()));
    QCOMPARE(found[1].polygon[0], QPointF(150, 200)); // where the first one ended
    QCOMPARE(found[1].polygon[1], QPointF(100, 200)); // 12.5 % of 400 px
}

void TestAoiShapes::ribbonEndsAtTheNearestPoint()
{
    const QList<PolygonShape> found = all<PolygonShape>(ribbons(look()));
    QVERIFY(found[0].polygon.contains(QPointF(400, 100)));
    QVERIFY(found[1].polygon.contains(QPointF(400, 400)));
    // A curve that bends by a fifth of the way to one side: from (200,100) to (400,100) its control points are
    // (240,140) and (320,140), its middle at ((200 + 3 * 240 + 3 * 320 + 400) / 8, (100 + 3 * 140 + 3 * 140 + 100) /
    // 8).
    QVERIFY(found[0].polygon.contains(QPointF(285, 130)));
}

void TestAoiShapes::shareOfZeroDrawsNothing()
{
    AoiVisualizationParameters parameters = look();
    parameters.transMin = -5;
    QCOMPARE(all<PolygonShape>(ribbons(parameters)).size(), 3); // of six pairs
}

void TestAoiShapes::thresholdIsPerMinuteAndSubject_data()
{
    QTest::addColumn<double>("threshold");
    QTest::addColumn<qsizetype>("examinations");
    QTest::addColumn<qsizetype>("shown");
    // 3, 1 and 2 transitions in two minutes.
    QTest::newRow("zero keeps all") << 0.0 << qsizetype(1) << qsizetype(3);
    QTest::newRow("equal is kept") << 0.5 << qsizetype(1) << qsizetype(3);
    QTest::newRow("above") << 0.51 << qsizetype(1) << qsizetype(2);
    QTest::newRow("of two subjects") << 0.51 << qsizetype(2) << qsizetype(1);
    QTest::newRow("all below") << 1.6 << qsizetype(1) << qsizetype(0);
}

void TestAoiShapes::thresholdIsPerMinuteAndSubject()
{
    QFETCH(qsizetype, examinations);
    AoiVisualizationParameters parameters = look();
    QFETCH(double, threshold);
    parameters.transMin = threshold;
    QTEST(all<PolygonShape>(ribbons(parameters, examinations)).size(), "shown");
}

void TestAoiShapes::bands_data()
{
    QTest::addColumn<int>("lineSize");
    QTest::addColumn<bool>("global");
    QTest::addColumn<QList<int>>("widths"); // left to right, left to below, right to left
    QTest::newRow("against the largest of each area") << 30 << false << QList<int>{30, 10, 30};
    QTest::newRow("against the largest of all") << 30 << true << QList<int>{30, 10, 20};
    QTest::newRow("truncated") << 50 << true << QList<int>{50, 16, 33};
    QTest::newRow("at least 1") << 2 << true << QList<int>{2, 1, 1};
    QTest::newRow("the upper limit goes first") << 0 << false << QList<int>{0, 0, 0};
}

void TestAoiShapes::bands()
{
    AoiVisualizationParameters parameters = look();
    parameters.showLines = true;
    QFETCH(int, lineSize);
    parameters.lineSize = lineSize;
    QFETCH(bool, global);
    parameters.normTransGlobal = global;
    QList<int> widths;
    for (const PolygonShape &band : all<PolygonShape>(ribbons(parameters))) {
        QCOMPARE(band.polygon.size(), 4);
        widths << qRound(QLineF(band.polygon[0], band.polygon[3]).length() / 2);
    }
    QTEST(widths, "widths");
    const QPolygonF first = all<PolygonShape>(ribbons(parameters)).value(0).polygon;
    QCOMPARE((first[0] + first[3]) / 2, QPointF(150, 150));
    QCOMPARE((first[1] + first[2]) / 2, QPointF(450, 150));
    QCOMPARE(first[0].x(), 150.0);
}

void TestAoiShapes::bandsBetweenEqualCentresAreLeftOut()
{
    AoiVisualizationParameters parameters = look();
    parameters.showLines = true;
    AoiTransitions transitions(2, 1);
    transitions.add(0, 1);
    const QPolygon around{{50, 50}, {250, 50}, {250, 250}, {50, 250}};
    QVERIFY(all<PolygonShape>(
                aoiTransitionShapes({area("in", leftSquare), area("out", around)}, transitions, 1, parameters))
                .isEmpty());
}

void TestAoiShapes::colours_data()
{
    QTest::addColumn<bool>("mix");
    QTest::addColumn<QColor>("toTheRight"); // 3 against 2
    QTest::addColumn<QColor>("below");      // 1 against 0
    QTest::addColumn<QColor>("toTheLeft");
    QTest::newRow("by the side") << false << QColor(0, 200, 100) << QColor(0, 200, 100) << QColor(100, 0, 50);
    QTest::newRow("mixed") << true << QColor(40, 120, 80) << QColor(0, 200, 100) << QColor(40, 120, 80);
}

void TestAoiShapes::colours()
{
    AoiVisualizationParameters parameters = look();
    QFETCH(bool, mix);
    parameters.mixColor = mix;
    parameters.colorLeft = QColor(100, 0, 50);
    parameters.colorRight = QColor(0, 200, 100);
    const QList<PolygonShape> found = all<PolygonShape>(ribbons(parameters));
    QTEST(found[0].brush.color(), "toTheRight");
    QTEST(found[1].brush.color(), "below");
    QTEST(found[2].brush.color(), "toTheLeft");
    QCOMPARE(found[0].pen, QPen(found[0].brush.color(), 1));
}

void TestAoiShapes::textsWhenEverythingShows()
{
    AoiVisualizationParameters parameters = look();
    parameters.showAll = true;
    const Drawing drawing = ribbons(parameters);
    QCOMPARE(textsOf(drawing).size(), 9); // of three ribbons, three areas, and their names
    QCOMPARE(textsOf(drawing).first(), QStringLiteral("Transitions out (3):37.5% \n Transitions in (2):100%"));
    QVERIFY(textsOf(drawing).contains(QStringLiteral("Transitions (4):50%")));
    for (const PolygonShape &ribbon : all<PolygonShape>(drawing))
        QVERIFY(ribbon.toolTip.isEmpty() && !ribbon.shownOnArea);
    for (const AreaShape &shape : all<AreaShape>(drawing))
        QVERIFY(shape.toolTip.isEmpty());
    parameters.displayNames = false;
    QCOMPARE(textsOf(ribbons(parameters)).size(), 6);
    parameters.displayNames = parameters.noText = true;
    QVERIFY(textsOf(ribbons(parameters)).isEmpty());
    QCOMPARE(all<PolygonShape>(ribbons(parameters)).size(), 3);
}

void TestAoiShapes::areaLooks_data()
{
    QTest::addColumn<bool>("oneColor");
    QTest::addColumn<bool>("outlines");
    QTest::addColumn<QColor>("color");
    QTest::newRow("own colour") << false << false << QColor(0, 0, 200);
    QTest::newRow("one colour") << true << false << QColor(9, 8, 7);
    QTest::newRow("outlines only") << false << true << QColor(0, 0, 200);
}

void TestAoiShapes::areaLooks()
{
    AoiVisualizationParameters parameters = look();
    QFETCH(bool, oneColor);
    QFETCH(bool, outlines);
    QFETCH(QColor, color);
    parameters.oneColor = oneColor;
    parameters.outlines = outlines;
    parameters.colorAoi = QColor(9, 8, 7);
    parameters.fillOpacity = 40;
    const AreaShape shape = all<AreaShape>(ribbons(parameters)).value(0);
    color.setAlphaF(0.4F);
    QCOMPARE(shape.pen, QPen(color, 7));
    QCOMPARE(shape.brush, outlines ? QBrush() : QBrush(color));
    QCOMPARE(shape.polygon, leftSquare);
}

void TestAoiShapes::areasWithoutVertices()
{
    AoiTransitions transitions(2, 1);
    transitions.add(0, 1);
    transitions.add(1, 0);
    const QList<AreaOfInterest> areas{area("left", leftSquare), area("none", {})};
    for (const bool showLines : {false, true}) {
        AoiVisualizationParameters parameters = look();
        parameters.showLines = showLines;
        const Drawing drawing = aoiTransitionShapes(areas, transitions, 1, parameters);
        QVERIFY(all<PolygonShape>(drawing).isEmpty());
        QCOMPARE(all<AreaShape>(drawing).size(), 2);
    }
    QVERIFY(aoiTransitionShapes({}, AoiTransitions(0, 1), 0, look()).isEmpty());
}

void TestAoiShapes::modes()
{
    QStringList names;
    for (const AoiMode &mode : aoiModes())
        names << mode.name;
    QCOMPARE(names,
             QStringList({QStringLiteral("none"), QStringLiteral("Outlined"), QStringLiteral("Transition Diagramm"),
                          QStringLiteral("Transitions"), QStringLiteral("Time dependent transitions"),
                          QStringLiteral("Fixations over time"), QStringLiteral("Transitions over time"),
                          QStringLiteral("FixationsRelativeToTimeWindow")}));
    QVERIFY(!aoiMode(-1) && !aoiMode(8));
}

void TestAoiShapes::enabledAreasAreDrawn()
{
    toy::Scenery scenery;
    AreaOfInterest off = area("off", rightSquare);
    off.enabled = false;
    scenery.model.insertAoi(off);
    scenery.model.insertAoi(area("on", leftSquare));
    const QList<qsizetype> outlinesOfMode{0, 1, 1, 0, 0, 0, 0, 1};
    for (int mode = -1; mode < 9; ++mode) {
        scenery.areas.drawMode = mode;
        const QList<PolygonShape> polygons = all<PolygonShape>(aoiDrawing(scenery.context()));
        const auto outlines = std::count_if(polygons.cbegin(), polygons.cend(), [](const PolygonShape &shape) {
            return shape.polygon == QPolygonF(leftSquare); // charts have surfaces of their own
        });
        QCOMPARE(outlines, outlinesOfMode.value(mode, 0));
        QCOMPARE(all<AreaShape>(aoiDrawing(scenery.context())).size(), mode == 3 ? 1 : 0);
    }
}

/// From left to right to left in half a minute: two transitions of 2 a minute.
void TestAoiShapes::gazeIsCounted()
{
    toy::Scenery scenery;
    scenery.frame = {0, 30000};
    scenery.eyeMode = EyeMode::showLeft;
    scenery.areas.drawMode = 3;
    for (const AreaOfInterest &each : threeAreas)
        scenery.model.insertAoi(each);
    Examination examination;
    examination.leftEye.scanpath = {toy::stay({150, 150}, 100), toy::stay({450, 150}, 300), toy::stay({150, 120}, 900)};
    scenery.model.examinations() << examination;
    const QList<PolygonShape> found = all<PolygonShape>(aoiDrawing(scenery.context()));
    QCOMPARE(found.size(), 2);
    QCOMPARE(found[0].toolTip, QStringLiteral("Transitions out (1):100% \n Transitions in (1):100%"));
    scenery.areas.transMin = 2;
    QCOMPARE(all<PolygonShape>(aoiDrawing(scenery.context())).size(), 2);
    scenery.areas.transMin = 2.1;
    QVERIFY(all<PolygonShape>(aoiDrawing(scenery.context())).isEmpty());
}

QTEST_GUILESS_MAIN(TestAoiShapes)
#include "TestAoiShapes.moc"
