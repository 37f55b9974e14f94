// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/Canvas.h"
#include "visualization/scene/ArbitraryEllipseItem.h"

#include <QGraphicsScene>
#include <QPainter>
#include <QTest>

#include <cmath>

class TestArbitraryEllipseItem : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void landsOnItsCenterAlongItsMajorAxis_data();
    void landsOnItsCenterAlongItsMajorAxis();
    void shorterMajorAxisIsSwapped();
    void boundingRect_data();
    void boundingRect();
    void isHitWhereItIsPainted_data();
    void isHitWhereItIsPainted();
    void paintsWholePixels();
    void polygonByHand_data();
    void polygonByHand();
    void polygonWithoutSteps();
};

namespace {

/// Filled in black on white, as the scene shows it.
QImage pictureOf(std::unique_ptr<ArbitraryEllipseItem> item, QPainter::RenderHints hints = {})
{
    QGraphicsScene scene(0, 0, canvas::width, canvas::height);
    scene.addItem(item.release());
    QImage image(canvas::width, canvas::height, QImage::Format_Grayscale8);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHints(hints);
    scene.render(&painter);
    return image;
}

std::unique_ptr<ArbitraryEllipseItem> blackItem(QPoint center, QVector2D major, QVector2D minor)
{
    return std::make_unique<ArbitraryEllipseItem>(center, major, minor, Qt::NoPen, Qt::black);
}

struct Moments {
    double x = 0; ///< centroid
    double y = 0;
    double xx = 0; ///< second moments about it
    double xy = 0;
    double yy = 0;
};

Moments momentsOf(const QImage &image)
{
    Moments sum;
    double count = 0;
    for (int y = 0; y < image.height(); ++y) {
        const uchar *line = image.constScanLine(y);
        for (int x = 0; x < image.width(); ++x) {
            if (line[x] != 0)
                continue;
            ++count;
            sum = {sum.x + x, sum.y + y, sum.xx + double(x) * x, sum.xy + double(x) * y, sum.yy + double(y) * y};
        }
    }
    const double meanX = sum.x / count;
    const double meanY = sum.y / count;
    return {meanX, meanY, sum.xx / count - meanX * meanX, sum.xy / count - meanX * meanY,
            sum.yy / count - meanY * meanY};
}

} // namespace

void TestArbitraryEllipseItem::landsOnItsCenterAlongItsMajorAxis_data()
{
    QTest::addColumn<QVector2D>("major");
    QTest::addColumn<QVector2D>("minor");
    QTest::newRow("along x") << QVector2D(100, 0) << QVector2D(0, 40);
    QTest::newRow("along x, backwards") << QVector2D(-100, 0) << QVector2D(0, 40);
    QTest::newRow("along y") << QVector2D(0, 100) << QVector2D(40, 0);
    QTest::newRow("down to the right") << QVector2D(80, 60) << QVector2D(-24, 32);
    QTest::newRow("up to the right") << QVector2D(80, -60) << QVector2D(24, 32);
    QTest::newRow("steep") << QVector2D(28, 96) << QVector2D(-38.4F, 11.2F);
}

/// A filled ellipse with semi-axes a and b has the second moments a^2 / 4 and b^2 / 4 along them.
void TestArbitraryEllipseItem::landsOnItsCenterAlongItsMajorAxis()
{
    QFETCH(QVector2D, major);
    QFETCH(QVector2D, minor);
    const Moments found = momentsOf(pictureOf(blackItem({640, 400}, major, minor)));
    QVERIFY(std::abs(found.x - 640) <= 1);
    QVERIFY(std::abs(found.y - 400) <= 1);
    const QVector2D u = major.normalized();
    const double cosine = u.x();
    const double sine = u.y();
    const double along = found.xx * cosine * cosine + 2 * found.xy * cosine * sine + found.yy * sine * sine;
    const double across = found.xx * sine * sine - 2 * found.xy * cosine * sine + found.yy * cosine * cosine;
    const double mixed = (found.yy - found.xx) * cosine * sine + found.xy * (cosine * cosine - sine * sine);
    QVERIFY2(std::abs(along - 100 * 100 / 4.0) < 50, qPrintable(QString::number(along)));
    QVERIFY2(std::abs(across - 40 * 40 / 4.0) < 20, qPrintable(QString::number(across)));
    QVERIFY2(std::abs(mixed) < 20, qPrintable(QString::number(mixed)));
}

void TestArbitraryEllipseItem::shorterMajorAxisIsSwapped()
{
    QTest::ignoreMessage(QtWarningMsg, "WARNING: Ellipse major axis smaller than minor axis. Swapped automatically.");
    const auto swapped = blackItem({640, 400}, {0, 40}, {100, 0});
    QCOMPARE(swapped->polygon(7), blackItem({640, 400}, {100, 0}, {0, 40})->polygon(7));
    QCOMPARE(pictureOf(blackItem({640, 400}, {100, 0}, {0, 40})), [] {
        QTest::ignoreMessage(QtWarningMsg,
                             "WARNING: Ellipse major axis smaller than minor axis. Swapped automatically.");
        return pictureOf(blackItem({640, 400}, {0, 40}, {100, 0}));
    }());
}

void TestArbitraryEllipseItem::boundingRect_data()
{
    QTest::addColumn<QVector2D>("major");
    QTest::addColumn<QVector2D>("minor");
    QTest::addColumn<QRectF>("expected");
    QTest::addColumn<QPen>("pen");
    const QPen five(Qt::black, 5);
    // Before the turn the axes lie along x and y; half of the pen is outside.
    QTest::newRow("upright") << QVector2D(0, 100) << QVector2D(40, 0) << QRectF(-100, -40, 200, 80) << QPen(Qt::NoPen);
    QTest::newRow("level") << QVector2D(100, 0) << QVector2D(0, 40) << QRectF(-100, -40, 200, 80) << QPen(Qt::NoPen);
    QTest::newRow("aslant, with a pen") << QVector2D(-80, -60) << QVector2D(-24, 32) << QRectF(-102.5, -42.5, 205, 85)
                                        << five;
    QTest::newRow("a pen without width paints a pixel")
        << QVector2D(100, 0) << QVector2D(0, 40) << QRectF(-100.5, -40.5, 201, 81) << QPen(Qt::black, 0);
    // The picture lies between whole pixels: from -1 to 2 where the axis is 1.75 long.
    QTest::newRow("what rounding paints outside the axes")
        << QVector2D(1.75F, 0) << QVector2D(0, 0.5F) << QRectF(-1.75, -0.5, 3.75, 1.5) << QPen(Qt::NoPen);
    QTest::newRow("nothing") << QVector2D() << QVector2D() << QRectF(0, 0, 0, 0) << QPen(Qt::NoPen);
}

void TestArbitraryEllipseItem::boundingRect()
{
    QFETCH(QVector2D, major);
    QFETCH(QVector2D, minor);
    QFETCH(QPen, pen);
    QTEST(ArbitraryEllipseItem({640, 400}, major, minor, pen, Qt::black).boundingRect(), "expected");
}

void TestArbitraryEllipseItem::isHitWhereItIsPainted_data()
{
    QTest::addColumn<QPointF>("position");
    QTest::addColumn<bool>("expected");
    // The major axis leads from the centre 80 px to the right and 60 up, the minor one 24 to the right and 32 down.
    QTest::newRow("centre") << QPointF(640, 400) << true;
    QTest::newRow("near an end of the major axis") << QPointF(640 + 76, 400 - 57) << true;
    QTest::newRow("near an end of the minor axis") << QPointF(640 + 22, 400 + 30) << true;
    QTest::newRow("inner half of the outline") << QPointF(640 - 78.8, 400 + 59.1) << true;
    QTest::newRow("outer half of the outline") << QPointF(640 + 81.2, 400 - 60.9) << true;
    QTest::newRow("beyond the outline") << QPointF(640 + 84, 400 - 63) << false;
    QTest::newRow("in the rectangle of the axes, beside the ellipse") << QPointF(640 + 90, 400 - 30) << false;
    QTest::newRow("the mirrored ellipse") << QPointF(640 + 76, 400 + 57) << false;
}

void TestArbitraryEllipseItem::isHitWhereItIsPainted()
{
    QFETCH(QPointF, position);
    QGraphicsScene scene(0, 0, canvas::width, canvas::height);
    scene.addItem(new ArbitraryEllipseItem({640, 400}, {80, -60}, {24, 32}, QPen(Qt::black, 5), Qt::black));
    QTEST(!scene.items(position).isEmpty(), "expected");
}

void TestArbitraryEllipseItem::paintsWholePixels()
{
    // Semi-axes 10.9 and 5.9: the corner is cut to (-10, -5), the size to (21, 11), so that the picture reaches from
    // column 90 to 110 and from row 95 to 105. Smoothing gives grey to every pixel that is touched.
    const QImage image = pictureOf(blackItem({100, 100}, {10.9F, 0}, {0, 5.9F}), QPainter::Antialiasing);
    const auto isTouched = [&](int x, int y) { return qGray(image.pixel(x, y)) < 255; };
    QVERIFY(isTouched(90, 100) && !isTouched(89, 100));
    QVERIFY(isTouched(110, 100) && !isTouched(111, 100));
    QVERIFY(isTouched(100, 95) && !isTouched(100, 94));
    QVERIFY(isTouched(100, 105) && !isTouched(100, 106));
}

void TestArbitraryEllipseItem::polygonByHand_data()
{
    QTest::addColumn<QVector2D>("major");
    QTest::addColumn<QVector2D>("minor");
    QTest::addColumn<QPolygon>("expected");
    // At t = 0, 90, 180 and 270 degrees: ends of the major and minor axis. Centre (100.., 200..) is whole, so that
    // coordinates lose less than 1 by cutting; lengths end on .5 to stay away from whole numbers.
    QTest::newRow("level") << QVector2D(20.5F, 0) << QVector2D(0, 10.5F)
                           << QPolygon({{120, 200}, {100, 210}, {79, 200}, {99, 189}});
    QTest::newRow("upright") << QVector2D(0, 20.5F) << QVector2D(10.5F, 0)
                             << QPolygon({{100, 220}, {89, 200}, {99, 179}, {110, 199}});
    // (12.3, 16.4) is 20.5 long, (-8.4, 6.3) is 10.5 long.
    QTest::newRow("down to the right") << QVector2D(12.3F, 16.4F) << QVector2D(-8.4F, 6.3F)
                                       << QPolygon({{112, 216}, {91, 206}, {87, 183}, {108, 193}});
    QTest::newRow("turned into the other half plane") << QVector2D(-12.3F, -16.4F) << QVector2D(-8.4F, 6.3F)
                                                      << QPolygon({{112, 216}, {91, 206}, {87, 183}, {108, 193}});
}

void TestArbitraryEllipseItem::polygonByHand()
{
    QFETCH(QVector2D, major);
    QFETCH(QVector2D, minor);
    QFETCH(QPolygon, expected);
    const QPolygon polygon = blackItem({100, 200}, major, minor)->polygon(4);
    QCOMPARE(polygon.size(), qsizetype(4));
    for (int i = 0; i < 4; ++i) { // where a coordinate is whole but for rounding, cutting may take it either way
        const QPoint difference = polygon[i] - expected[i];
        QVERIFY2(difference.manhattanLength() <= 1, qPrintable(QString::number(i)));
    }
}

void TestArbitraryEllipseItem::polygonWithoutSteps()
{
    const auto item = blackItem({100, 200}, {20, 0}, {0, 10});
    QVERIFY(item->polygon(0).isEmpty());
    QVERIFY(item->polygon(-3).isEmpty());
    QCOMPARE(item->polygon(1), QPolygon({{120, 200}}));
}

QTEST_MAIN(TestArbitraryEllipseItem)
#include "TestArbitraryEllipseItem.moc"
