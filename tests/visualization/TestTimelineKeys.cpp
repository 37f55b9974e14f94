// SPDX-License-Identifier: GPL-3.0-or-later
#include "TimelineWindow.h"

#include <QApplication>
#include <QSignalSpy>

using namespace timeline;

class TestTimelineKeys : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void keys_data();
    void keys();
    void keyWithoutEffectIsSilent();
    void heldKeyIsADrag();
    void heldKeyEndsWithTheFocus();
    void tabGoesThroughTheHandles();
    void focusLeavesAHiddenStrip();
    void clickedHandleHasTheKeys();
    void tabInAWindowOfItsOwn();
    void focusShows();
};

namespace {

void sendKey(Timeline &strip, QEvent::Type type, Qt::Key key, bool isRepeated)
{
    QKeyEvent event(type, key, {}, {}, isRepeated);
    QApplication::sendEvent(&strip, &event);
}

} // namespace

void TestTimelineKeys::keys_data()
{
    QTest::addColumn<int>("keys"); // with modifiers
    QTest::addColumn<Span>("withStart");
    QTest::addColumn<Span>("withEnd"); // was 100 to 300 of 500 ms
    const auto row = [](const char *name, int keys, Span withStart, Span withEnd) {
        QTest::newRow(name) << keys << withStart << withEnd;
    };
    row("right: a hundredth", Qt::Key_Right, {105, 300}, {100, 305});
    row("up as right", Qt::Key_Up, {105, 300}, {100, 305});
    row("left", Qt::Key_Left, {95, 300}, {100, 295});
    row("down as left", Qt::Key_Down, {95, 300}, {100, 295});
    row("ctrl: 1 ms", int(Qt::ControlModifier) | Qt::Key_Right, {101, 300}, {100, 301});
    row("page up: a tenth", Qt::Key_PageUp, {150, 300}, {100, 350});
    row("page down", Qt::Key_PageDown, {50, 300}, {100, 250});
    row("home", Qt::Key_Home, {0, 300}, {100, 101});
    row("end", Qt::Key_End, {299, 300}, {100, 500});
    row("shift: the frame", int(Qt::ShiftModifier) | Qt::Key_Right, {105, 305}, {105, 305});
    row("shift and end", int(Qt::ShiftModifier) | Qt::Key_End, {300, 500}, {300, 500});
    row("shift and home", int(Qt::ShiftModifier) | Qt::Key_Home, {0, 200}, {0, 200});
    row("shift and page down", int(Qt::ShiftModifier) | Qt::Key_PageDown, {50, 250}, {50, 250});
}

void TestTimelineKeys::keys()
{
    QFETCH(int, keys);
    QFETCH(Span, withStart);
    QFETCH(Span, withEnd);
    const auto key = static_cast<Qt::Key>(keys & ~int(Qt::KeyboardModifierMask));
    const Qt::KeyboardModifiers modifiers(keys & int(Qt::KeyboardModifierMask));
    for (const auto &[reason, expected] : {QPair(Qt::TabFocusReason, withStart), {Qt::BacktabFocusReason, withEnd}}) {
        Window window;
        QVERIFY(window.showAndActivate());
        window.strip.setFocus(reason);
        QSignalSpy changed(&window.strip, &Timeline::sliderChanged);
        QTest::keyClick(&window.strip, key, modifiers);
        QCOMPARE(frameOf(window.strip), expected);
        QCOMPARE(changed.size(), 1);
        QCOMPARE(changed[0], (QVariantList{expected.first, expected.second}));
    }
}

void TestTimelineKeys::keyWithoutEffectIsSilent()
{
    Window window;
    QVERIFY(window.showAndActivate());
    window.strip.setFocus(Qt::TabFocusReason);
    window.strip.setSliderStart(0);
    QSignalSpy changed(&window.strip, &Timeline::sliderChanged);
    QTest::keyClick(&window.strip, Qt::Key_Left);
    QTest::keyClick(&window.strip, Qt::Key_Home);
    QTest::keyClick(&window.strip, Qt::Key_A);
    QCOMPARE(changed.size(), 0);
    QCOMPARE(frameOf(window.strip), Span(0, 300));
}

void TestTimelineKeys::heldKeyIsADrag()
{
    Window window;
    QVERIFY(window.showAndActivate());
    window.strip.setFocus(Qt::TabFocusReason);
    QSignalSpy changed(&window.strip, &Timeline::sliderChanged);
    sendKey(window.strip, QEvent::KeyPress, Qt::Key_Right, false);
    QCOMPARE(changed.size(), 1);
    for (int i = 0; i < 3; ++i) {
        sendKey(window.strip, QEvent::KeyRelease, Qt::Key_Right, true);
        sendKey(window.strip, QEvent::KeyPress, Qt::Key_Right, true);
    }
    QCOMPARE(frameOf(window.strip), Span(120, 300));
    QCOMPARE(changed.size(), 1);
    sendKey(window.strip, QEvent::KeyRelease, Qt::Key_Right, false);
    QCOMPARE(changed.size(), 2);
    QCOMPARE(changed[1], (QVariantList{120LL, 300LL}));
}

void TestTimelineKeys::heldKeyEndsWithTheFocus()
{
    Window window;
    QVERIFY(window.showAndActivate());
    window.strip.setFocus(Qt::TabFocusReason);
    QSignalSpy changed(&window.strip, &Timeline::sliderChanged);
    sendKey(window.strip, QEvent::KeyPress, Qt::Key_Right, true);
    QCOMPARE(changed.size(), 0);
    window.after.setFocus();
    QCOMPARE(changed.size(), 1);
}

void TestTimelineKeys::tabGoesThroughTheHandles()
{
    Window window;
    QVERIFY(window.showAndActivate());
    window.before.setFocus();
    const auto tab = [](Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); };
    tab(Qt::Key_Tab);
    QVERIFY(window.strip.hasFocus());
    tab(Qt::Key_Right);
    QCOMPARE(frameOf(window.strip), Span(105, 300));
    tab(Qt::Key_Tab);
    QVERIFY(window.strip.hasFocus());
    tab(Qt::Key_Right);
    QCOMPARE(frameOf(window.strip), Span(105, 305));
    tab(Qt::Key_Tab);
    QVERIFY(window.after.hasFocus());
    tab(Qt::Key_Backtab);
    QVERIFY(window.strip.hasFocus());
    tab(Qt::Key_Left);
    QCOMPARE(frameOf(window.strip), Span(105, 300));
    tab(Qt::Key_Backtab);
    tab(Qt::Key_Left);
    QCOMPARE(frameOf(window.strip), Span(100, 300));
    tab(Qt::Key_Backtab);
    QVERIFY(window.before.hasFocus());
}

void TestTimelineKeys::focusLeavesAHiddenStrip()
{
    Window window;
    QVERIFY(window.showAndActivate());
    window.strip.setFocus(Qt::TabFocusReason);
    window.strip.hide();
    QVERIFY(window.after.hasFocus());
    window.strip.show();
    window.strip.setFocus(Qt::TabFocusReason);
    window.strip.setEnabled(false);
    QVERIFY(window.after.hasFocus());
}

void TestTimelineKeys::clickedHandleHasTheKeys()
{
    Window window;
    QVERIFY(window.showAndActivate());
    window.strip.grab();
    QTest::mouseClick(&window.strip, Qt::LeftButton, {}, at(300));
    QTest::keyClick(&window.strip, Qt::Key_Right);
    QCOMPARE(frameOf(window.strip), Span(100, 305));
    QTest::mouseClick(&window.strip, Qt::LeftButton, {}, at(200)); // the frame between them changes nothing
    QTest::keyClick(&window.strip, Qt::Key_Right);
    QCOMPARE(frameOf(window.strip), Span(100, 310));
    QTest::mouseClick(&window.strip, Qt::LeftButton, {}, at(102));
    QTest::keyClick(&window.strip, Qt::Key_Right);
    QCOMPARE(frameOf(window.strip), Span(105, 310));
}

void TestTimelineKeys::tabInAWindowOfItsOwn()
{
    Window window;
    QVERIFY(window.showAndActivate());
    QTest::mouseDClick(&window.strip, Qt::LeftButton, {}, at(200));
    QVERIFY(QTest::qWaitForWindowExposed(&window.strip));
    for (const Span &expected : {Span(100, 305), Span(105, 305), Span(105, 310)}) {
        QTest::keyClick(&window.strip, Qt::Key_Tab);
        QTest::keyClick(&window.strip, Qt::Key_Right);
        QCOMPARE(frameOf(window.strip), expected);
    }
}

void TestTimelineKeys::focusShows()
{
    Window window;
    QVERIFY(window.showAndActivate());
    const QColor ring(128, 179, 255);
    const auto rings = [&] {
        const QImage image = window.strip.grab().toImage();
        return QPair(image.pixelColor(102, 25) == ring, image.pixelColor(299, 25) == ring);
    };
    window.before.setFocus();
    QCOMPARE(rings(), QPair(false, false));
    window.strip.setFocus(Qt::TabFocusReason);
    QCOMPARE(rings(), QPair(true, false));
    QTest::keyClick(&window.strip, Qt::Key_Tab);
    QCOMPARE(rings(), QPair(false, true));
}

QTEST_MAIN(TestTimelineKeys)
#include "TestTimelineKeys.moc"
