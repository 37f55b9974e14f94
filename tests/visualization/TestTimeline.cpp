// SPDX-License-Identifier: GPL-3.0-or-later
#include "TimelineWindow.h"

#include <QApplication>
#include <QSignalSpy>

#include <functional>

using namespace timeline;

class TestTimeline : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void atConstruction();
    void form();
    void setTimeSpan();
    void settersAndTheirSignals_data();
    void settersAndTheirSignals();
    void resizing();
    void curves();
    void inertWithoutData();
    void drag_data();
    void drag();
    void theSceneFollowsAtTheEndOfADrag();
    void otherButtonsDoNothing();
    void cursor_data();
    void cursor();
    void doubleClickDetachesAndPutsBack();
    void closingPutsBack();
    void closingWithoutANewPlaceCloses();
    void colors_data();
    void colors();
    void outlineAndTicks();
    void texts();
};

namespace {

void press(Timeline &strip, int x)
{
    strip.grab(); // what is painted is what is grabbed
    QTest::mousePress(&strip, Qt::LeftButton, {}, at(x));
}

void moveTo(Timeline &strip, int x)
{
    const QPointF position = at(x);
    QMouseEvent event(QEvent::MouseMove, position, strip.mapToGlobal(position), Qt::NoButton, Qt::LeftButton, {});
    QApplication::sendEvent(&strip, &event);
}

/// Two clicks as the screen reports them; they reach the strip through its window.
void doubleClick(Timeline &strip)
{
    const QWidget *window = strip.window();
    QTest::mouseDClick(window->windowHandle(), Qt::LeftButton, {}, strip.mapTo(window, at(200)));
}

void release(Timeline &strip, int x)
{
    QTest::mouseRelease(&strip, Qt::LeftButton, {}, at(x));
}

bool isNear(const QColor &a, const QColor &b)
{
    const auto differ = [](int x, int y) { return std::abs(x - y) > 2; };
    return !differ(a.red(), b.red()) && !differ(a.green(), b.green()) && !differ(a.blue(), b.blue());
}

/// Whether something dark stands in this part of the picture.
bool hasInk(const QImage &image, const QRect &part)
{
    for (int y = part.top(); y <= part.bottom(); ++y) {
        for (int x = part.left(); x <= part.right(); ++x) {
            if (image.pixelColor(x, y).lightness() < 64)
                return true;
        }
    }
    return false;
}

} // namespace

void TestTimeline::atConstruction()
{
    const Timeline strip;
    QCOMPARE(frameOf(strip), Span(0, 60000));
    QCOMPARE(strip.span(), 60000);
    QVERIFY(!strip.isDetached());
    QVERIFY(strip.curve1Values().isEmpty() && strip.curve1Polygons().isEmpty());
    QVERIFY(strip.curve2Values().isEmpty() && strip.curve2Polygons().isEmpty());
    QCOMPARE(strip.timeToPixel(60000), 697);
}

void TestTimeline::form()
{
    const Timeline strip;
    QCOMPARE(strip.objectName(), QStringLiteral("Timeline"));
    QCOMPARE(strip.size(), QSize(699, 50));
    QCOMPARE(strip.minimumSize(), QSize(100, 50));
    QVERIFY(strip.hasMouseTracking());
    QVERIFY(qobject_cast<QHBoxLayout *>(strip.layout()));
    QCOMPARE(strip.layout()->contentsMargins(), QMargins());
    QCOMPARE(strip.layout()->spacing(), 0);
    QVERIFY(!strip.accessibleName().isEmpty());
    QVERIFY(!strip.toolTip().isEmpty());
}

void TestTimeline::setTimeSpan()
{
    Timeline strip;
    QStringList signalled;
    connect(&strip, &Timeline::timespanChanged, this,
            [&](qint64 duration) { signalled << QStringLiteral("span %1").arg(duration); });
    connect(&strip, &Timeline::sliderChanged, this, [&](qint64 start, qint64 end) {
        signalled << QStringLiteral("frame %1 %2, %3 %4").arg(start).arg(end).arg(strip.start()).arg(strip.end());
    });
    strip.setTimeSpan(500);
    QCOMPARE(strip.span(), 500);
    QCOMPARE(signalled, (QStringList{QStringLiteral("span 500"), QStringLiteral("frame 0 500, 0 500")}));
    QCOMPARE(strip.accessibleDescription(), QStringLiteral("00.000 sec.ms - 00.500 sec.ms"));
    strip.setTimeSpan(0);
    QCOMPARE(frameOf(strip), Span(0, 0));
    QVERIFY(!strip.grab().isNull()); // the scale has no length
}

void TestTimeline::settersAndTheirSignals_data()
{
    using Set = std::function<void(Timeline &)>;
    QTest::addColumn<Set>("set");
    QTest::addColumn<Span>("frame"); // was 100 to 300 of 500 ms
    QTest::addColumn<int>("signalled");
    QTest::newRow("frame") << Set([](Timeline &strip) { strip.setSliderTimeframe(50, 400); }) << Span(50, 400) << 1;
    QTest::newRow("frame is limited") << Set([](Timeline &strip) { strip.setSliderTimeframe(-9, 900); }) << Span(0, 500)
                                      << 1;
    QTest::newRow("frame cannot be empty")
        << Set([](Timeline &strip) { strip.setSliderTimeframe(200, 200); }) << Span(200, 201) << 1;
    QTest::newRow("the same frame") << Set([](Timeline &strip) { strip.setSliderTimeframe(100, 300); })
                                    << Span(100, 300) << 1;
    QTest::newRow("start") << Set([](Timeline &strip) { strip.setSliderStart(900); }) << Span(299, 300) << 0;
    QTest::newRow("end") << Set([](Timeline &strip) { strip.setSliderEnd(0); }) << Span(100, 101) << 0;
    QTest::newRow("place") << Set([](Timeline &strip) { strip.setSliderPos(120); }) << Span(120, 320) << 0;
    QTest::newRow("place before the scale")
        << Set([](Timeline &strip) { strip.setSliderPos(-1); }) << Span(0, 200) << 0;
}

void TestTimeline::settersAndTheirSignals()
{
    QFETCH(std::function<void(Timeline &)>, set);
    QFETCH(Span, frame);
    QFETCH(int, signalled);
    Timeline strip;
    strip.setTimeSpan(500);
    strip.setSliderTimeframe(100, 300);
    QSignalSpy changed(&strip, &Timeline::sliderChanged);
    set(strip);
    QCOMPARE(frameOf(strip), frame);
    QCOMPARE(changed.size(), signalled);
    if (signalled)
        QCOMPARE(changed[0], (QVariantList{frame.first, frame.second}));
}

void TestTimeline::resizing()
{
    Window window;
    QVERIFY(window.showAndActivate());
    QSignalSpy updated(&window.strip, &Timeline::update_widget);
    window.strip.setFixedSize(253, stripHeight);
    QTRY_COMPARE(updated.size(), 1);
    QCOMPARE(window.strip.timeToPixel(300), 151); // 250 px for 500 ms
}

void TestTimeline::curves()
{
    Timeline strip;
    strip.resize(102, 52);
    const QImage before = strip.grab().toImage();
    strip.setCurve1({0, 10});
    strip.setCurve1({10, 5, 0, 0});
    strip.setCurve2({1});
    QCOMPARE(strip.curve1Values(), (QList<double>{10, 5, 0, 0}));
    QCOMPARE(strip.curve1Polygons(), (QList<QPolygon>{QPolygon({{1, -1}, {26, 24}, {51, 49}, {76, 49}})}));
    QCOMPARE(strip.curve2Values(), QList<double>{1});
    QCOMPARE(strip.curve2Polygons(), (QList<QPolygon>{QPolygon({{1, -1}})}));
    QCOMPARE(strip.grab().toImage(), before);
}

void TestTimeline::inertWithoutData()
{
    Timeline strip;
    strip.resize(stripWidth, stripHeight);
    QSignalSpy changed(&strip, &Timeline::sliderChanged);
    QSignalSpy updated(&strip, &Timeline::update_widget);
    press(strip, 5);
    updated.clear(); // of the first showing
    moveTo(strip, 100);
    release(strip, 100);
    QTest::mouseDClick(&strip, Qt::LeftButton, {}, at(200));
    QTest::keyClick(&strip, Qt::Key_Right);
    QCOMPARE(frameOf(strip), Span(0, 60000));
    QCOMPARE(changed.size() + updated.size(), 0);
    QVERIFY(!strip.isDetached());
    QCOMPARE(strip.cursor().shape(), Qt::ArrowCursor);
    QCOMPARE(strip.focusPolicy(), Qt::NoFocus);
}

void TestTimeline::drag_data()
{
    QTest::addColumn<Span>("frame");
    QTest::addColumn<int>("pressed");
    QTest::addColumn<QList<int>>("path"); // columns
    QTest::addColumn<Span>("after");      // of 500 ms
    const auto row = [](const char *name, Span frame, int pressed, const QList<int> &path, Span after) {
        QTest::newRow(name) << frame << pressed << path << after;
    };
    row("start handle", {100, 300}, 101, {121}, {120, 300});
    row("start handle, held inside", {100, 300}, 112, {92}, {80, 300});
    row("start handle beyond the end", {100, 300}, 101, {450}, {299, 300});
    row("end handle", {100, 300}, 301, {351}, {100, 350});
    row("end handle beyond the start", {100, 300}, 290, {1}, {100, 101});
    row("end handle beyond the strip", {100, 300}, 290, {2000}, {100, 500});
    row("frame", {100, 300}, 200, {250}, {150, 350});
    row("frame past the right end", {100, 300}, 200, {399, 900}, {300, 500});
    row("frame past the left end", {100, 300}, 200, {-300}, {0, 200});
    row("beside the frame", {100, 300}, 400, {450}, {100, 300});
    row("in both zones of a short frame it is the start", {100, 105}, 104, {94}, {90, 105});
}

void TestTimeline::drag()
{
    QFETCH(Span, frame);
    QFETCH(int, pressed);
    QFETCH(QList<int>, path);
    Window window;
    QVERIFY(window.showAndActivate());
    window.strip.setSliderTimeframe(0, frame.second); // the end first, which limits the start
    window.strip.setSliderStart(frame.first);
    press(window.strip, pressed);
    for (const int x : path)
        moveTo(window.strip, x);
    release(window.strip, path.last());
    QTEST(frameOf(window.strip), "after");
    moveTo(window.strip, 60); // no longer held
    QTEST(frameOf(window.strip), "after");
}

void TestTimeline::theSceneFollowsAtTheEndOfADrag()
{
    Window window;
    QVERIFY(window.showAndActivate());
    QSignalSpy changed(&window.strip, &Timeline::sliderChanged);
    press(window.strip, 101);
    moveTo(window.strip, 111);
    moveTo(window.strip, 121);
    QCOMPARE(changed.size(), 0);
    release(window.strip, 121);
    QCOMPARE(changed.size(), 1);
    QCOMPARE(changed[0], (QVariantList{120LL, 300LL}));
    QTest::mouseClick(&window.strip, Qt::LeftButton, {}, at(450)); // holds nothing, and ends as a drag does
    QCOMPARE(changed.size(), 2);
}

void TestTimeline::otherButtonsDoNothing()
{
    Window window;
    QVERIFY(window.showAndActivate());
    window.strip.grab();
    QSignalSpy changed(&window.strip, &Timeline::sliderChanged);
    QTest::mousePress(&window.strip, Qt::RightButton, {}, at(101));
    moveTo(window.strip, 121);
    QTest::mouseRelease(&window.strip, Qt::RightButton, {}, at(121));
    QTest::mouseDClick(&window.strip, Qt::RightButton, {}, at(200));
    QCOMPARE(frameOf(window.strip), Span(100, 300));
    QCOMPARE(changed.size(), 0);
    QVERIFY(!window.strip.isDetached());
}

void TestTimeline::cursor_data()
{
    QTest::addColumn<int>("x");
    QTest::addColumn<Qt::CursorShape>("shape");
    QTest::newRow("before the frame") << 100 << Qt::ArrowCursor;
    QTest::newRow("start handle") << 101 << Qt::SizeHorCursor;
    QTest::newRow("frame") << 113 << Qt::OpenHandCursor;
    QTest::newRow("end handle") << 290 << Qt::SizeHorCursor;
    QTest::newRow("behind the frame") << 302 << Qt::ArrowCursor;
}

void TestTimeline::cursor()
{
    QFETCH(int, x);
    Window window;
    QVERIFY(window.showAndActivate());
    window.strip.grab();
    moveTo(window.strip, 113);
    moveTo(window.strip, x);
    QTEST(window.strip.cursor().shape(), "shape");
    QCOMPARE(frameOf(window.strip), Span(100, 300));
}

void TestTimeline::doubleClickDetachesAndPutsBack()
{
    Window window;
    QVERIFY(window.showAndActivate());
    Timeline &strip = window.strip;
    QSignalSpy updated(&strip, &Timeline::update_widget);
    QSignalSpy reinserted(&strip, &Timeline::reinsert_widget);
    doubleClick(strip);
    QVERIFY(strip.isDetached());
    QVERIFY(strip.isWindow() && !strip.parent() && strip.isVisible());
    QCOMPARE(strip.pos(), QPoint(200, 200));
    QVERIFY(!strip.testAttribute(Qt::WA_QuitOnClose)); // the program ends with its main window
    QVERIFY(!updated.isEmpty());
    QCOMPARE(reinserted.size(), 0);
    QVERIFY(QTest::qWaitForWindowExposed(&strip));
    moveTo(strip, 250); // not held
    QCOMPARE(frameOf(strip), Span(100, 300));

    updated.clear();
    doubleClick(strip);
    QVERIFY(!strip.isDetached());
    QCOMPARE(reinserted.size(), 1);
    QCOMPARE(reinserted[0][0].value<QWidget *>(), &strip);
    QVERIFY(!updated.isEmpty());
    QCOMPARE(strip.parentWidget(), &window);
    QTRY_VERIFY(strip.isVisible());
    QCOMPARE(frameOf(strip), Span(100, 300));
    press(strip, 101); // and works as before
    moveTo(strip, 111);
    release(strip, 111);
    QCOMPARE(frameOf(strip), Span(110, 300));
}

void TestTimeline::closingPutsBack()
{
    Window window;
    QVERIFY(window.showAndActivate());
    Timeline &strip = window.strip;
    for (int i = 0; i < 2; ++i) {
        QSignalSpy reinserted(&strip, &Timeline::reinsert_widget);
        doubleClick(strip);
        QVERIFY(QTest::qWaitForWindowExposed(&strip));
        strip.windowHandle()->close();
        QTRY_COMPARE(reinserted.size(), 1);
        QVERIFY(!strip.isDetached());
        QCOMPARE(strip.parentWidget(), &window);
        QTRY_VERIFY(strip.isVisible());
    }
    QVERIFY(window.isVisible());
}

void TestTimeline::closingWithoutANewPlaceCloses()
{
    Timeline strip;
    strip.setTimeSpan(500);
    strip.show();
    QVERIFY(QTest::qWaitForWindowExposed(&strip));
    QTest::mouseDClick(&strip, Qt::LeftButton, {}, at(200));
    QVERIFY(strip.close());
    QCoreApplication::processEvents();
    QVERIFY(!strip.isVisible());
    strip.show(); // a strip that is not detached closes as any widget
    QVERIFY(strip.close());
    QVERIFY(!strip.isVisible() && !strip.isDetached());
}

void TestTimeline::colors_data()
{
    QTest::addColumn<bool>("withData");
    QTest::addColumn<QColor>("fill");
    QTest::addColumn<QColor>("handle");
    // The fill covers white by 0.4 * 150 / 255, a handle covers the fill by 0.8 * 220 / 255.
    QTest::newRow("with data") << true << QColor(233, 199, 206) << QColor(184, 74, 96);
    QTest::newRow("grey without data") << false << QColor(230, 230, 230) << QColor(175, 175, 175);
}

void TestTimeline::colors()
{
    QFETCH(bool, withData);
    QFETCH(QColor, fill);
    QFETCH(QColor, handle);
    Timeline strip;
    strip.resize(stripWidth, stripHeight);
    if (withData)
        strip.setTimeSpan(500);
    strip.setSliderTimeframe(strip.span() / 5, strip.span() * 3 / 5); // columns 101 to 301
    const QImage image = strip.grab().toImage();
    const auto isShown = [&](int x, const QColor &color) { return isNear(image.pixelColor(x, 25), color); };
    QVERIFY(isShown(100, Qt::white));
    QVERIFY(isShown(101, handle));
    QVERIFY(isShown(112, handle));
    QVERIFY(isShown(113, fill));
    QVERIFY(isShown(288, fill));
    QVERIFY(isShown(289, handle));
    QVERIFY(isShown(300, handle));
    QVERIFY(isShown(301, Qt::white));
}

void TestTimeline::outlineAndTicks()
{
    Timeline strip;
    strip.resize(stripWidth, stripHeight);
    strip.setTimeSpan(500);
    strip.setSliderTimeframe(0, 1);
    const QImage image = strip.grab().toImage();
    const QColor tickColor(105, 55, 38);
    for (const QPoint &corner :
         {QPoint(0, 0), {stripWidth - 1, 0}, {0, stripHeight - 1}, {stripWidth - 1, stripHeight - 1}})
        QCOMPARE(image.pixelColor(corner), tickColor);
    QCOMPARE(image.pixelColor(250, 1), QColor(Qt::white));
    // Every 50 ms, in turns 50 / 3 and 50 / 6 rows long. Texts may cover the lower rows.
    QCOMPARE(image.pixelColor(101, 34), tickColor);
    QCOMPARE(image.pixelColor(101, 33), QColor(Qt::white));
    QCOMPARE(image.pixelColor(151, 42), tickColor);
    QCOMPARE(image.pixelColor(151, 41), QColor(Qt::white));
    QCOMPARE(image.pixelColor(126, 34), QColor(Qt::white));
}

void TestTimeline::texts()
{
    Timeline strip;
    strip.resize(903, stripHeight); // room between the labels
    strip.setTimeSpan(900);
    strip.setSliderTimeframe(300, 301);
    const QImage image = strip.grab().toImage();
    QVERIFY(hasInk(image, {1, 38, 60, 10}));    // at 0, flush left
    QVERIFY(!hasInk(image, {110, 38, 30, 10})); // behind it
    QVERIFY(hasInk(image, {190, 38, 40, 10}));  // at 180 ms
    QVERIFY(hasInk(image, {840, 4, 60, 16}));   // the span, at the right
    QVERIFY(!hasInk(image, {550, 4, 250, 16})); // between the frame's text and it
    QVERIFY(hasInk(image, {315, 3, 60, 14}));   // the frame's text, from its start on
    QVERIFY(!hasInk(image, {100, 3, 180, 14})); // before it
}

QTEST_MAIN(TestTimeline)
#include "TestTimeline.moc"
