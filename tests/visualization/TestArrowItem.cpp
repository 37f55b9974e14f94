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
    QTest::newRow("down to the right") << QPoint(10, 20) << QPoint(50, 80) << QRectF(10, 20, 40, 60);
    QTest::newRow("up to the left") << QPoint(50, 80) << QPoint(10, 20) << QRectF(10, 20, 40, 60);
    QTest::newRow("up to the right") << QPoint(10, 80) << QPoint(50, 20) << QRectF(10, 20, 40, 60);
    QTest::newRow("level") << QPoint(50, 20) << QPoint(10, 20) << QRectF(10, 20, 40, 0);
    QTest::newRow("no length") << QPoint(10, 20) << QPoint(10, 20) << QRectF(10, 20, 0, 0);
    constexpr int least = std::numeric_limits<int>::min();
    constexpr int most = std::numeric_limits<int>::max();
    QTest::newRow("farthest") << QPoint(most, 0) << QPoint(least, 0) << QRectF(least, 0, 4294967295.0, 0);
}

void TestArrowItem::boundingRect()
{
    QFETCH(QPoint, from);
    QFETCH(QPoint, to);
    QTEST(blackArrow(from, to, true, 9)->boundingRect(), "expected");
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

/// Their rectangle has no area, which must not keep the scene from drawing them.
void TestArrowItem::levelAndUprightArrowsAreDrawn()
{
    QFETCH(QPoint, to);
    const QImage image = pictureOf(blackArrow({100, 100}, to, true, 3));
    const QPoint middle = (QPoint(100, 100) + to) / 2;
    QVERIFY(isBlack(image, middle.x(), middle.y()));
}

/// Line and head reach beyond the item's rectangle, which is all that a view repaints by itself when an item goes. The
/// view of the scene repaints everything.
void TestArrowItem::leavesNothingBehindOnTheScreen()
{
    QGraphicsScene scene(0, 0, 300, 200);
    QGraphicsView view(&scene);
    view.setViewportUpdateMode(QGraphicsView::FullViewportUpdate);
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
    QTRY_COMPARE(shown().pixelColor(corner), QColor(Qt::black)); // beyond the rectangle, which has no height
    scene.clear();
    QTRY_VERIFY(isBlank(shown()));
}

QTEST_MAIN(TestArrowItem)
#include "TestArrowItem.moc"
