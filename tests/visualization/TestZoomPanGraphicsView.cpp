// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/panel/ZoomPanGraphicsView.h"

#include <QApplication>
#include <QGraphicsScene>
#include <QOpenGLWidget>
#include <QScreen>
#include <QTest>
#include <QWheelEvent>

#include <cmath>

class TestZoomPanGraphicsView : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void atConstruction();
    void wheel_data();
    void wheel();
    void keysCountLikeTheWheel();
    void otherKeysDoNotZoom();
    void fittingStartsTheCountAnew();
    void setUpOnce();
    void showsTheScene();
};

namespace {

constexpr int notch = 120;

void turnWheel(ZoomPanGraphicsView &view, int delta)
{
    const QPointF at = view.viewport()->rect().center();
    QWheelEvent event(at, view.viewport()->mapToGlobal(at), {}, {0, delta}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(view.viewport(), &event);
}

bool isScaledBy(const ZoomPanGraphicsView &view, int steps)
{
    const double expected = std::pow(1.15, steps);
    return std::abs(view.transform().m11() / expected - 1) < 1e-9 &&
           std::abs(view.transform().m22() / expected - 1) < 1e-9;
}

} // namespace

void TestZoomPanGraphicsView::atConstruction()
{
    const ZoomPanGraphicsView view;
    QCOMPARE(view.zoomSteps(), 0);
    QCOMPARE(view.renderHints(), QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    QCOMPARE(view.dragMode(), QGraphicsView::ScrollHandDrag);
}

void TestZoomPanGraphicsView::wheel_data()
{
    QTest::addColumn<QList<int>>("turns"); // notches upwards, then downwards and so on
    QTest::addColumn<int>("steps");
    QTest::addColumn<int>("scaled");
    QTest::newRow("up once") << QList<int>{1} << 1 << 1;
    QTest::newRow("down once") << QList<int>{0, 1} << -1 << -1;
    QTest::newRow("to the limit") << QList<int>{30} << 30 << 30;
    QTest::newRow("the step beyond it does nothing") << QList<int>{31} << 30 << 30;
    QTest::newRow("further ones do not count either") << QList<int>{50, 1} << 29 << 29;
    QTest::newRow("the lower limit") << QList<int>{0, 31} << -30 << -30;
    QTest::newRow("and back from it") << QList<int>{0, 40, 2} << -28 << -28;
}

void TestZoomPanGraphicsView::wheel()
{
    QFETCH(QList<int>, turns);
    QFETCH(int, steps);
    QFETCH(int, scaled);
    ZoomPanGraphicsView view;
    bool up = true;
    for (const int count : turns) {
        for (int i = 0; i < count; ++i)
            turnWheel(view, up ? notch : -notch);
        up = !up;
    }
    QCOMPARE(view.zoomSteps(), steps);
    QVERIFY(isScaledBy(view, scaled));
    turnWheel(view, 0);
    QCOMPARE(view.zoomSteps(), steps);
    QVERIFY(isScaledBy(view, scaled));
    QCOMPARE(view.transformationAnchor(), QGraphicsView::AnchorUnderMouse);
}

void TestZoomPanGraphicsView::keysCountLikeTheWheel()
{
    ZoomPanGraphicsView view;
    for (int i = 0; i < 29; ++i)
        turnWheel(view, notch);
    QTest::keyClick(&view, Qt::Key_Plus);
    QTest::keyClick(&view, Qt::Key_Plus);
    QCOMPARE(view.zoomSteps(), 30);
    QVERIFY(isScaledBy(view, 30));
    QTest::keyClick(&view, Qt::Key_Minus);
    QVERIFY(isScaledBy(view, 29));
    QVERIFY(view.focusPolicy() & Qt::TabFocus);
}

void TestZoomPanGraphicsView::otherKeysDoNotZoom()
{
    ZoomPanGraphicsView view;
    QTest::keyClick(&view, Qt::Key_Z);
    QCOMPARE(view.zoomSteps(), 0);
    QVERIFY(isScaledBy(view, 0));
}

void TestZoomPanGraphicsView::fittingStartsTheCountAnew()
{
    QGraphicsScene scene(0, 0, 2560, 1600);
    ZoomPanGraphicsView view;
    view.setScene(&scene);
    view.resize(660, 420);
    turnWheel(view, notch);
    view.fit({0, 0, 2560, 1600});
    QCOMPARE(view.zoomSteps(), 0);
    QVERIFY(view.transform().m11() < 0.26); // 2560 columns into 660 at most
    QCOMPARE(view.transform().m11(), view.transform().m22());
}

void TestZoomPanGraphicsView::setUpOnce()
{
    ZoomPanGraphicsView view;
    view.setUpOnce();
    const QWidget *viewport = view.viewport();
    QCOMPARE(view.viewportUpdateMode(), QGraphicsView::FullViewportUpdate);
    QCOMPARE(view.cacheMode(), QGraphicsView::CacheBackground);
    QVERIFY(!view.autoFillBackground());
    if (const auto *openGl = qobject_cast<const QOpenGLWidget *>(viewport))
        QCOMPARE(openGl->format().samples(), 4);
    view.setUpOnce();
    QCOMPARE(view.viewport(), viewport);
    turnWheel(view, notch); // the new viewport passes its events on as the old one did
    QCOMPARE(view.zoomSteps(), 1);
}

void TestZoomPanGraphicsView::showsTheScene()
{
    QGraphicsScene scene(0, 0, 200, 200);
    scene.addRect(-1000, -1000, 2000, 2000, Qt::NoPen, Qt::red);
    ZoomPanGraphicsView view;
    view.setScene(&scene);
    view.setUpOnce();
    view.resize(200, 200);
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    // What is on the screen: a grab of the widget would leave out what a view paints on an OpenGL viewport.
    const auto shownColor = [&] { return view.screen()->grabWindow(view.winId()).toImage().pixelColor(100, 100); };
    QTRY_COMPARE(shownColor(), QColor(Qt::red));
}

QTEST_MAIN(TestZoomPanGraphicsView)
#include "TestZoomPanGraphicsView.moc"
