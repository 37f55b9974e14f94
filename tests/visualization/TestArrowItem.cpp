// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/Canvas.h"
#include "visualization/scene/ArrowItem.h"

#include <QGraphicsScene>
#include <QGraphicsView>
#include <QPainter>
#include <QScreen>
#include <QTest>

#include <limits>

class TestArrowItem : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void tip_data();
    void tip();
    void boundingRect_data();
    void boundingRect();
    void nothingIsPaintedOutside();
    void isHitWhereItIsPainted_data();
    void isHitWhereItIsPainted();
    void paintsLineAndTip_data();
    void paintsLineAndTip();
    void levelAndUprightArrowsAreDrawn_data();
    void levelAndUprightArrowsAreDrawn();
    void leavesNothingBehindOnTheScreen();
};

namespace {

std::unique_ptr<ArrowItem> blackArrow(QPoint from, QPoint to, bool showTip, int width)
{
    return std::make_unique<ArrowItem>(from, to, showTip, QPen(Qt::black, width), Qt::black);
}

/// In black on white, as the scene shows it.
QImage pictureOf(std::unique_ptr<ArrowItem> item)
{
    QGraphicsScene scene(0, 0, 400, 300);
    scene.addItem(item.release());
    QImage image(400, 300, QImage::Format_Grayscale8);
    image.fill(Qt::white);
    QPainter painter(&image);
    scene.render(&painter);
    return image;
}

bool isBlack(const QImage &image, int x, int y)
{
    return qGray(image.pixel(x, y)) == 0;
}

bool isBlank(const QImage &image)
{
    const QImage rgb = image.convertToFormat(QImage::Format_RGB32);
    QImage white(rgb.size(), QImage::Format_RGB32);
    white.setDevicePixelRatio(rgb.devicePixelRatio());
    white.fill(Qt::white);
    return rgb == white;
}

} // namespace

void TestArrowItem::tip_data()
{
    QTest::addColumn<QPoint>("from");
    QTest::addColumn<QPoint>("to");
    QTest::addColumn<int>("width");
    QTest::addColumn<QPolygon>("expected");
    // The corners lie 5 widths from the end, pi / 7 to both sides of the line: cos 0.900969, sin 0.433884.
    QTest::newRow("to the right: (100 - 22.52, 50 -+ 10.85)")
        << QPoint(0, 50) << QPoint(100, 50) << 5 << QPolygon({{100, 50}, {77, 39}, {77, 60}, {100, 50}});
    QTest::newRow("downwards: (50 +- 21.69, 100 - 45.05)")
        << QPoint(50, 0) << QPoint(50, 100) << 10 << QPolygon({{50, 100}, {71, 54}, {28, 54}, {50, 100}});
    QTest::newRow("longer than the line")
        << QPoint(99, 50) << QPoint(100, 50) << 5 << QPolygon({{100, 50}, {77, 39}, {77, 60}, {100, 50}});
    QTest::newRow("cut towards zero: (0 - 9.01, 10 -+ 4.34)")
        << QPoint(-50, 10) << QPoint(0, 10) << 2 << QPolygon({{0, 10}, {-9, 5}, {-9, 14}, {0, 10}});
    QTest::newRow("of a line without width")
        << QPoint(0, 50) << QPoint(100, 50) << 0 << QPolygon({{100, 50}, {100, 50}, {100, 50}, {100, 50}});
    QTest::newRow("none without length") << QPoint(7, 8) << QPoint(7, 8) << 5 << QPolygon();
}

void TestArrowItem::tip()
{
    QFETCH(QPoint, from);
    QFETCH(QPoint, to);
    QFETCH(int, width);
    QTEST(blackArrow(from, to, true, width)->tip(), "expected");
    QTEST(blackArrow(from, to, false, width)->tip(), "expected");
}

void TestArrowItem::boundingRect_data()
{
    QTest::addColumn<QPoint>("from");
    QTest::addColumn<QPoint>("to");
    QTest::addColumn<QRectF>("expected");
    QTest::addColumn<bool>("showTip");
    // The corners of square ends are half a width and half a width beside it from the end: at most 0.707 widths along
    // x or y. The width is 4.
    const auto around = [](double left, double top, double right, double bottom) {
        constexpr double outside = 2.8284271247461903;
        return QRectF(QPointF(left - outside, top - outside), QPointF(right + outside, bottom + outside));
    };
    QTest::newRow("down to the right") << QPoint(10, 20) << QPoint(50, 80) << around(10, 20, 50, 80) << false;
    QTest::newRow("up to the left") << QPoint(50, 80) << QPoint(10, 20) << around(10, 20, 50, 80) << false;
    QTest::newRow("level") << QPoint(50, 20) << QPoint(10, 20) << around(10, 20, 50, 20) << false;
    // Head: (100 - 18.02, 50 -+ 8.68), cut to whole pixels.
    QTest::newRow("with a head") << QPoint(0, 50) << QPoint(100, 50) << around(0, 41, 100, 58) << true;
    QTest::newRow("no length") << QPoint(10, 20) << QPoint(10, 20) << around(10, 20, 10, 20) << true;
    constexpr int least = std::numeric_limits<int>::min();
    constexpr int most = std::numeric_limits<int>::max();
    QTest::newRow("farthest") << QPoint(most, 0) << QPoint(least, 0) << around(least, 0, most, 0) << false;
}

void TestArrowItem::boundingRect()
{
    QFETCH(QPoint, from);
    QFETCH(QPoint, to);
    QFETCH(QRectF, expected);
    QFETCH(bool, showTip);
    const QRectF found = blackArrow(from, to, showTip, 4)->boundingRect();
    QVERIFY(qFuzzyCompare(found.left(), expected.left()) && qFuzzyCompare(found.top(), expected.top()));
    QVERIFY(qFuzzyCompare(found.right(), expected.right()) && qFuzzyCompare(found.bottom(), expected.bottom()));
}

void TestArrowItem::nothingIsPaintedOutside()
{
    for (const QPoint to : {QPoint(300, 200), QPoint(290, 100), QPoint(100, 210), QPoint(150, 60)}) {
        auto arrow = std::make_unique<ArrowItem>(QPoint(100, 100), to, true, QPen(Qt::black, 12), Qt::black);
        const QRect bounds = arrow->boundingRect().toAlignedRect();
        const QImage image = pictureOf(std::move(arrow));
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                QVERIFY2(bounds.contains(x, y) || !isBlack(image, x, y), qPrintable(QString::number(x)));
        }
    }
}

void TestArrowItem::isHitWhereItIsPainted_data()
{
    QTest::addColumn<QPointF>("position");
    QTest::addColumn<bool>("expected");
    QTest::newRow("on the line") << QPointF(200, 150) << true;
    QTest::newRow("within the line's width") << QPointF(200, 152) << true;
    QTest::newRow("beside the line, in its rectangle") << QPointF(200, 170) << false;
    QTest::newRow("in the head, beside the line") << QPointF(284, 197) << true;
    QTest::newRow("beside the head") << QPointF(278, 205) << false;
    QTest::newRow("behind the start") << QPointF(90, 95) << false;
}

void TestArrowItem::isHitWhereItIsPainted()
{
    QFETCH(QPointF, position);
    QGraphicsScene scene(0, 0, 400, 300);
    scene.addItem(blackArrow({100, 100}, {300, 200}, true, 6).release());
    QTEST(!scene.items(position).isEmpty(), "expected");
}

void TestArrowItem::paintsLineAndTip_data()
{
    QTest::addColumn<QPoint>("from");
    QTest::addColumn<QPoint>("to");
    QTest::addColumn<bool>("showTip");
    QTest::addColumn<bool>("headAtTo");
    QTest::newRow("with tip") << QPoint(100, 100) << QPoint(300, 200) << true << true;
    QTest::newRow("without tip") << QPoint(100, 100) << QPoint(300, 200) << false << false;
    QTest::newRow("backwards") << QPoint(300, 200) << QPoint(100, 100) << true << true;
}

void TestArrowItem::paintsLineAndTip()
{
    QFETCH(QPoint, from);
    QFETCH(QPoint, to);
    QFETCH(bool, showTip);
    QFETCH(bool, headAtTo);
    const QImage image = pictureOf(blackArrow(from, to, showTip, 4));
    QVERIFY(isBlack(image, 200, 150)); // the middle of the line
    QVERIFY(!isBlack(image, 200, 145));
    // The head is 20 long. 15 before the end its sides are 15 * tan(pi / 7) = 7.2 off the line; half as much is inside.
    const QPointF forward = QPointF(to - from) / 223.607;
    const QPointF aside(-forward.y(), forward.x());
    const auto at = [&](QPoint end, double along, double beside) {
        const QPoint pixel = (end + along * forward + beside * aside).toPoint();
        return isBlack(image, pixel.x(), pixel.y());
    };
    QCOMPARE(at(to, -15, 5), headAtTo);
    QCOMPARE(at(to, -15, -5), headAtTo);
    QVERIFY(!at(to, -15, 12));
    QVERIFY(!at(from, 15, 5)); // none at the other end
}

void TestArrowItem::levelAndUprightArrowsAreDrawn_data()
{
    QTest::addColumn<QPoint>("to");
    QTest::newRow("level") << QPoint(300, 100);
    QTest::newRow("upright") << QPoint(100, 250);
}

void TestArrowItem::levelAndUprightArrowsAreDrawn()
{
    QFETCH(QPoint, to);
    const QImage image = pictureOf(blackArrow({100, 100}, to, true, 3));
    const QPoint middle = (QPoint(100, 100) + to) / 2;
    QVERIFY(isBlack(image, middle.x(), middle.y()));
}

/// A view repaints what the item's rectangle tells, and nothing else, when an item goes.
void TestArrowItem::leavesNothingBehindOnTheScreen()
{
    QGraphicsScene scene(0, 0, 300, 200);
    QGraphicsView view(&scene);
    view.setViewportUpdateMode(QGraphicsView::MinimalViewportUpdate);
    view.setFrameShape(QFrame::NoFrame);
    view.resize(400, 300);
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    // What is on the screen: a grab of the widget would paint it anew.
    const auto shown = [&] { return view.screen()->grabWindow(view.winId()).toImage(); };
    QTRY_VERIFY(isBlank(shown()));
    const auto *arrow = blackArrow({50, 100}, {250, 100}, true, 10).release();
    scene.addItem(const_cast<ArrowItem *>(arrow));
    QTRY_VERIFY(!isBlank(shown()));
    const QPoint corner = view.mapFromScene(arrow->tip()[1]) + QPoint(3, 2);
    QTRY_COMPARE(shown().pixelColor(corner), QColor(Qt::black)); // the head
    scene.clear();
    QTRY_VERIFY(isBlank(shown()));
}

QTEST_MAIN(TestArrowItem)
#include "TestArrowItem.moc"
