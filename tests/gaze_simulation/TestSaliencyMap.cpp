// SPDX-License-Identifier: GPL-3.0-or-later
#include "gaze-simulator/SaliencyMap.h"
#include "gaze-simulator/TargetSelector.h"

#include <QTest>

#include <algorithm>

class TestSaliencyMap : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void anEmptyImageGivesAnEmptyMap();
    void gridCoversTheCanvas_data();
    void gridCoversTheCanvas();
    void theOnlyObjectIsTheMostSalient_data();
    void theOnlyObjectIsTheMostSalient();
    void withoutContrastTheCenterWins();
    void targetsGatherOnTheObject();
    void targetsStayOnATinyCanvas();
    void seenPlacesAreLeftOut();
};

namespace {

/// A blue canvas of 960 x 600 with one square of 60 px.
QImage squareOnBlue(const QPoint &corner, const QColor &color)
{
    QImage image(960, 600, QImage::Format_RGB32);
    image.fill(QColor(40, 60, 160));
    for (int y = 0; y < 60; ++y) {
        for (int x = 0; x < 60; ++x)
            image.setPixelColor(corner.x() + x, corner.y() + y, color);
    }
    return image;
}

QPointF mostSalient(const SaliencyMap &map)
{
    const auto greatest = std::max_element(map.weights.begin(), map.weights.end()) - map.weights.begin();
    const auto cell = static_cast<int>(greatest);
    return map.cellCenter(cell % map.columns, cell / map.columns);
}

} // namespace

void TestSaliencyMap::anEmptyImageGivesAnEmptyMap()
{
    const SaliencyMap map = imageSaliency(QImage());
    QVERIFY(map.weights.empty());
    QVERIFY(map.canvas.isEmpty());
}

void TestSaliencyMap::gridCoversTheCanvas_data()
{
    QTest::addColumn<QSize>("canvas");
    QTest::newRow("one pixel") << QSize(1, 1);
    QTest::newRow("wide") << QSize(1280, 800);
    QTest::newRow("tall and odd") << QSize(601, 1999);
    QTest::newRow("a line") << QSize(5000, 1);
}

void TestSaliencyMap::gridCoversTheCanvas()
{
    QFETCH(QSize, canvas);
    QImage image(canvas, QImage::Format_RGB32);
    image.fill(Qt::green);
    for (const SaliencyMap &map : {imageSaliency(image), plainSaliency(canvas)}) {
        QCOMPARE(map.canvas, canvas);
        QVERIFY(map.columns * map.cellPx >= canvas.width() && (map.columns - 1) * map.cellPx < canvas.width());
        QVERIFY(map.rows * map.cellPx >= canvas.height() && (map.rows - 1) * map.cellPx < canvas.height());
        QCOMPARE(map.weights.size(), static_cast<size_t>(map.columns * map.rows));
        QVERIFY(std::ranges::all_of(map.weights, [](double weight) { return weight > 0 && weight <= 1; }));
    }
}

void TestSaliencyMap::theOnlyObjectIsTheMostSalient_data()
{
    QTest::addColumn<QPoint>("corner");
    QTest::addColumn<QColor>("color");
    QTest::newRow("bright, left") << QPoint(200, 250) << QColor(Qt::white);
    QTest::newRow("dark, right") << QPoint(700, 300) << QColor(Qt::black);
    QTest::newRow("as light as the ground, but red") << QPoint(450, 90) << QColor(200, 30, 30);
}

void TestSaliencyMap::theOnlyObjectIsTheMostSalient()
{
    QFETCH(QPoint, corner);
    QFETCH(QColor, color);
    const QPointF found = mostSalient(imageSaliency(squareOnBlue(corner, color)));
    QVERIFY2(QRectF(corner, QSizeF(60, 60)).contains(found),
             qPrintable(QStringLiteral("%1 %2").arg(found.x()).arg(found.y())));
}

void TestSaliencyMap::withoutContrastTheCenterWins()
{
    QImage gray(960, 600, QImage::Format_RGB32);
    gray.fill(Qt::gray);
    for (const SaliencyMap &map : {imageSaliency(gray), plainSaliency(gray.size())}) {
        const QPointF found = mostSalient(map);
        QVERIFY(std::abs(found.x() - 480) <= map.cellPx && std::abs(found.y() - 300) <= map.cellPx);
        QVERIFY(map.weights.front() < map.weights[map.weights.size() / 2]);
    }
}

void TestSaliencyMap::targetsGatherOnTheObject()
{
    // The square with a margin of a cell is 80 x 80 of 960 x 600 px, about 1.1 % of the canvas. From a place 7 degrees
    // away, seen for the first time, at least a third of the choices must fall on it.
    const SaliencyMap map = imageSaliency(squareOnBlue({600, 270}, Qt::white));
    const QRectF object(590, 260, 80, 80);
    constexpr int tries = 300;
    int hits = 0;
    for (int seed = 0; seed < tries; ++seed)
        hits += object.contains(TargetSelector(map, 35, static_cast<quint64>(seed)).next({385, 300})) ? 1 : 0;
    QVERIFY2(hits > tries / 3, qPrintable(QString::number(hits)));
}

void TestSaliencyMap::targetsStayOnATinyCanvas()
{
    TargetSelector selector(plainSaliency({1, 1}), 35, 1);
    for (int i = 0; i < 20; ++i)
        QCOMPARE(selector.next({0, 0}), QPointF(0, 0));
}

void TestSaliencyMap::seenPlacesAreLeftOut()
{
    // after a look at the object, the next one goes elsewhere: its cells are shut for the moment
    const SaliencyMap map = imageSaliency(squareOnBlue({600, 270}, Qt::white));
    constexpr int tries = 300;
    int again = 0;
    for (int seed = 0; seed < tries; ++seed) {
        TargetSelector selector(map, 35, static_cast<quint64>(seed));
        selector.next({630, 300});
        again += QRectF(600, 270, 60, 60).contains(selector.next({385, 300})) ? 1 : 0;
    }
    QVERIFY2(again < tries / 5, qPrintable(QString::number(again)));
}

QTEST_GUILESS_MAIN(TestSaliencyMap)
#include "TestSaliencyMap.moc"
