// SPDX-License-Identifier: GPL-3.0-or-later
#include "ToyData.h"
#include "visualization/heatmap/ColorTable.h"

#include <QTest>

class TestColorTable : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void shape();
    void stops_data();
    void stops();
    void adjustableMap();
    void adjustableMapWithUnorderedStops();
};

namespace {

VisualizationParameters withMap(int map)
{
    VisualizationParameters parameters = toy::parameters();
    parameters.heatmapColormap = map;
    return parameters;
}

/// Colours are painted with premultiplied alpha, and a pixel lies half a step beside its stop.
bool isNear(QRgb found, QRgb expected)
{
    const auto near = [](int a, int b, int tolerance) { return std::abs(a - b) <= tolerance; };
    const int tolerance = qAlpha(expected) < 20 ? 255 : 6; // a nearly transparent colour has few digits
    return near(qAlpha(found), qAlpha(expected), 4) && near(qRed(found), qRed(expected), tolerance) &&
           near(qGreen(found), qGreen(expected), tolerance) && near(qBlue(found), qBlue(expected), tolerance);
}

} // namespace

void TestColorTable::shape()
{
    const QImage table = colorTable(withMap(0));
    QCOMPARE(table.size(), QSize(256, 1));
    QCOMPARE(table.format(), QImage::Format_ARGB32);
}

void TestColorTable::stops_data()
{
    QTest::addColumn<int>("map");
    QTest::addColumn<double>("position");
    QTest::addColumn<QRgb>("color");
    const auto row = [](const char *name, int map, double position, QRgb color) {
        QTest::addRow("%s at %g", name, position) << map << position << color;
    };
    row("red green", 0, 0.0, qRgba(0, 255, 0, 0));
    row("red green", 0, 0.1, qRgba(0, 255, 0, 100));
    row("red green", 0, 0.33, qRgba(255, 255, 0, 130));
    row("red green", 0, 0.66, qRgba(255, 155, 0, 170));
    row("red green", 0, 1.0, qRgba(255, 0, 0, 200));
    row("blue", 1, 0.1, qRgba(0, 255, 255, 100));
    row("blue", 1, 0.33, qRgba(0, 155, 255, 130));
    row("blue", 1, 0.66, qRgba(0, 0, 255, 170));
    row("blue ends in red", 1, 1.0, qRgba(255, 0, 0, 200));
    row("focal point", 2, 0.0, qRgba(0, 0, 0, 255));
    row("focal point", 2, 0.4, qRgba(0, 0, 0, 150));
    row("focal point", 2, 1.0, qRgba(0, 0, 0, 0));
    row("sunrise", 3, 0.1, qRgba(255, 200, 0, 100));
    row("sunrise", 3, 0.5, qRgba(255, 100, 0, 140));
    row("sunrise", 3, 0.8, qRgba(255, 0, 0, 160));
    row("sunrise", 3, 1.0, qRgba(255, 255, 0, 200));
    row("cloud", 4, 0.2, qRgba(50, 50, 50, 100));
    row("cloud", 4, 1.0, qRgba(255, 255, 255, 200));
    for (const int unknown : {-1, 6}) {
        row(unknown < 0 ? "below the maps" : "beyond the maps", unknown, 0.1, qRgba(0, 255, 0, 100));
        row(unknown < 0 ? "below the maps" : "beyond the maps", unknown, 0.66, qRgba(255, 255, 0, 100));
        row(unknown < 0 ? "below the maps" : "beyond the maps", unknown, 1.0, qRgba(255, 0, 0, 100));
    }
}

void TestColorTable::stops()
{
    QFETCH(int, map);
    QFETCH(double, position);
    QFETCH(QRgb, color);
    const QRgb found = colorTable(withMap(map)).pixel(qRound(position * 255), 0);
    QVERIFY2(isNear(found, color), qPrintable(QStringLiteral("%1, expected %2").arg(found, 8, 16).arg(color, 8, 16)));
}

void TestColorTable::adjustableMap()
{
    VisualizationParameters parameters = withMap(5);
    parameters.colorMap.stops[0].active = parameters.colorMap.stops[3].active = true;
    parameters.colorMap.stops[0].color = Qt::red;
    parameters.colorMap.stops[1].color = Qt::yellow; // not active: not in the map
    parameters.colorMap.stops[3].color = Qt::blue;
    parameters.colorMap.stops[1].start = 0.5;
    parameters.colorMap.stops[3].start = 1.0;
    parameters.colorMap.stops[0].transparency = 100;
    parameters.colorMap.stops[1].transparency = 255;
    parameters.colorMap.stops[3].transparency = 200;
    const QImage table = colorTable(parameters);
    QVERIFY(isNear(table.pixel(0, 0), qRgba(255, 0, 0, 100)));
    QVERIFY(isNear(table.pixel(128, 0), qRgba(85, 0, 170, 150))); // means of the colours times their alphas
    QVERIFY(isNear(table.pixel(255, 0), qRgba(0, 0, 255, 200)));
    QCOMPARE(qGreen(table.pixel(128, 0)), 0);
}

void TestColorTable::adjustableMapWithUnorderedStops()
{
    VisualizationParameters parameters = withMap(5);
    parameters.colorMap.stops[0].active = parameters.colorMap.stops[1].active = parameters.colorMap.stops[2].active =
        true;
    parameters.colorMap.stops[0].start = 1.0;
    parameters.colorMap.stops[2].start = 0.5;
    parameters.colorMap.stops[0].transparency = parameters.colorMap.stops[1].transparency =
        parameters.colorMap.stops[2].transparency = 255;
    parameters.colorMap.stops[0].color = Qt::red;
    parameters.colorMap.stops[1].color = Qt::green;
    parameters.colorMap.stops[2].color = Qt::blue;
    const QImage table = colorTable(parameters);
    QVERIFY(isNear(table.pixel(0, 0), qRgb(0, 255, 0)));
    QVERIFY(isNear(table.pixel(128, 0), qRgb(0, 0, 255)));
    QVERIFY(isNear(table.pixel(255, 0), qRgb(255, 0, 0)));
}

QTEST_GUILESS_MAIN(TestColorTable)
#include "TestColorTable.moc"
