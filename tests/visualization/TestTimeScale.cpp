// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/timeline/TimeScale.h"

#include <QTest>

#include <functional>
#include <limits>

using Span = QPair<qint64, qint64>; // start and end in ms

class TestTimeScale : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void atConstruction();
    void setters_data();
    void setters();
    void shift_data();
    void shift();
    void timeToPixel_data();
    void timeToPixel();
    void pixelToTime_data();
    void pixelToTime();
    void ticks_data();
    void ticks();
    void ticksOfAMinute();
    void framePartAt_data();
    void framePartAt();
    void drag_data();
    void drag();
    void curve_data();
    void curve();
};

namespace {

constexpr int width = 103; ///< one pixel for each ms of a span of 100 ms, so that the time t is in column t + 1
constexpr qint64 highest = std::numeric_limits<qint64>::max();
constexpr qint64 lowest = std::numeric_limits<qint64>::min();

TimeScale scaleOf(qint64 spanMs, Span frame)
{
    TimeScale scale;
    scale.setSpan(spanMs);
    scale.setStart(frame.first);
    scale.setEnd(frame.second);
    return scale;
}

Span frameOf(const TimeScale &scale)
{
    return {scale.startMs(), scale.endMs()};
}

} // namespace

void TestTimeScale::atConstruction()
{
    const TimeScale scale;
    QCOMPARE(frameOf(scale), Span(0, 60000));
    QCOMPARE(scale.spanMs(), 60000);
}

void TestTimeScale::setters_data()
{
    using Set = std::function<void(TimeScale &)>;
    QTest::addColumn<Span>("before");
    QTest::addColumn<Set>("set");
    QTest::addColumn<Span>("after"); // the span is 100 ms
    const auto row = [](const char *name, Span before, const Set &set, Span after) {
        QTest::newRow(name) << before << set << after;
    };
    const auto start = [](qint64 time) { return [=](TimeScale &scale) { scale.setStart(time); }; };
    row("start inside", {20, 60}, start(30), {30, 60});
    row("start below 0", {20, 60}, start(-1), {0, 60});
    row("start at the end stops before it", {20, 60}, start(60), {59, 60});
    row("start beyond the scale stops before the end", {20, 60}, start(highest), {59, 60});
    const auto end = [](qint64 time) { return [=](TimeScale &scale) { scale.setEnd(time); }; };
    row("end inside", {20, 60}, end(50), {20, 50});
    row("end at the start stops behind it", {20, 60}, end(20), {20, 21});
    row("end below 0 stops behind the start", {20, 60}, end(lowest), {20, 21});
    row("end at the end of the scale", {20, 60}, end(100), {20, 100});
    row("end beyond the scale", {20, 60}, end(101), {20, 100});
    const auto frame = [](qint64 a, qint64 b) { return [=](TimeScale &scale) { scale.setFrame(a, b); }; };
    row("frame inside", {20, 60}, frame(10, 90), {10, 90});
    row("frame in the wrong order", {20, 60}, frame(50, 40), {50, 51});
    row("frame behind the old one begins before its end", {20, 60}, frame(70, 80), {59, 80});
    row("frame before the old one", {20, 60}, frame(5, 15), {5, 15});
    row("frame beyond the scale on both sides", {20, 60}, frame(-5, 500), {0, 100});
    const auto move = [](qint64 time) { return [=](TimeScale &scale) { scale.moveTo(time); }; };
    row("moved to the right", {20, 60}, move(30), {30, 70});
    row("moved to the left", {20, 60}, move(10), {10, 50});
    row("moved beyond the left end", {20, 60}, move(-7), {0, 40});
    row("moved beyond the right end", {50, 90}, move(80), {60, 100});
    row("moved to the right by its length takes 1 ms less", {20, 30}, move(30), {29, 39});
    row("moved to the right by more than its length", {20, 30}, move(70), {29, 39});
    row("moved to the left by more than its length", {60, 70}, move(5), {5, 15});
    row("a frame of 1 ms does not move to the right", {20, 21}, move(50), {20, 21});
    row("a frame of 1 ms moves to the left", {20, 21}, move(3), {3, 4});
    row("the whole scale does not move", {0, 100}, move(50), {0, 100});
    row("moved to the last time that there is", {20, 60}, move(highest), {59, 99});
    row("moved to the first time that there is", {20, 60}, move(lowest), {0, 40});
}

void TestTimeScale::setters()
{
    QFETCH(Span, before);
    QFETCH(std::function<void(TimeScale &)>, set);
    TimeScale scale = scaleOf(100, before);
    set(scale);
    QTEST(frameOf(scale), "after");
    QCOMPARE(scale.spanMs(), 100);
}

void TestTimeScale::shift_data()
{
    QTest::addColumn<int>("part"); // as in FramePart
    QTest::addColumn<qint64>("by");
    QTest::addColumn<Span>("after"); // the frame was 20 to 60 of 100 ms
    const auto row = [](const char *name, FramePart part, qint64 by, Span after) {
        QTest::newRow(name) << static_cast<int>(part) << by << after;
    };
    row("start to the right", FramePart::Start, 5, {25, 60});
    row("start to the left", FramePart::Start, -5, {15, 60});
    row("start up to 0", FramePart::Start, lowest, {0, 60});
    row("start up to the end", FramePart::Start, highest, {59, 60});
    row("end to the right", FramePart::End, 5, {20, 65});
    row("end to the left", FramePart::End, -5, {20, 55});
    row("end down to the start", FramePart::End, lowest, {20, 21});
    row("end up to the span", FramePart::End, highest, {20, 100});
    row("frame to the right", FramePart::Frame, 5, {25, 65});
    row("frame to the left", FramePart::Frame, -5, {15, 55});
    row("frame to the left end", FramePart::Frame, lowest, {0, 40});
    row("frame to the right end at once", FramePart::Frame, highest, {60, 100});
}

void TestTimeScale::shift()
{
    QFETCH(int, part);
    QFETCH(qint64, by);
    TimeScale scale = scaleOf(100, {20, 60});
    scale.shift(static_cast<FramePart>(part), by);
    QTEST(frameOf(scale), "after");
}

void TestTimeScale::timeToPixel_data()
{
    QTest::addColumn<qint64>("span");
    QTest::addColumn<int>("width");
    QTest::addColumn<qint64>("time");
    QTest::addColumn<int>("pixel");
    const auto row = [](const char *name, qint64 span, int widthPx, qint64 time, int pixel) {
        QTest::newRow(name) << span << widthPx << time << pixel;
    };
    row("the first column is the outline's", 100, width, 0, 1);
    row("one column per ms", 100, width, 40, 41);
    row("the end", 100, width, 100, 101);
    row("beyond the end", 100, width, 200, 201);
    row("before 0: towards zero", 100, width, -2, 0); // -2 + 1.5 = -0.5
    row("usual width, first", 60000, 699, 0, 1);
    row("usual width, half", 60000, 699, 30000, 349); // 348 + 1.5
    row("just below a column", 60000, 699, 43, 1);    // 0.0116 * 43 = 0.4988
    row("just above it", 60000, 699, 44, 2);          // 0.0116 * 44 = 0.5104
    row("usual width, last", 60000, 699, 60000, 697); // 696 + 1.5
    row("a span of a month", 2592000000, 1003, 1296000000, 501);
    row("no span", 0, width, 50, 1);
    row("no width", 100, 3, 50, 1);
    row("farther than pixels reach", 1, 1000000, highest, std::numeric_limits<int>::max());
}

void TestTimeScale::timeToPixel()
{
    QFETCH(qint64, span);
    QFETCH(int, width);
    QFETCH(qint64, time);
    TimeScale scale;
    scale.setSpan(span);
    QTEST(scale.timeToPixel(time, width), "pixel");
}

void TestTimeScale::pixelToTime_data()
{
    QTest::addColumn<qint64>("span");
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("x");
    QTest::addColumn<double>("time");
    QTest::newRow("first column") << qint64(100) << width << 1 << 0.0;
    QTest::newRow("before it") << qint64(100) << width << -9 << -10.0;
    QTest::newRow("inside") << qint64(100) << width << 41 << 40.0;
    QTest::newRow("usual width") << qint64(60000) << 699 << 350 << 30086.0; // 349 / 0.0116 = 30086.2
    QTest::newRow("towards zero") << qint64(60000) << 699 << 0 << -86.0;    // -1 / 0.0116 = -86.2
    QTest::newRow("no span") << qint64(0) << width << 41 << 0.0;
    QTest::newRow("no width") << qint64(100) << 3 << 41 << 0.0;
}

void TestTimeScale::pixelToTime()
{
    QFETCH(qint64, span);
    QFETCH(int, width);
    QFETCH(int, x);
    TimeScale scale;
    scale.setSpan(span);
    QTEST(scale.pixelToTime(x, width), "time");
}

void TestTimeScale::ticks_data()
{
    QTest::addColumn<qint64>("span");
    QTest::addColumn<QList<qint64>>("times");
    QTest::newRow("no span") << qint64(0) << QList<qint64>();
    QTest::newRow("one ms") << qint64(1) << QList<qint64>{0};
    QTest::newRow("below 10 ms each has a tick") << qint64(9) << QList<qint64>{0, 1, 2, 3, 4, 5, 6, 7, 8};
    QTest::newRow("10 ms") << qint64(10) << QList<qint64>{0, 1, 2, 3, 4, 5, 6, 7, 8, 9};
    QTest::newRow("tenths are rounded down")
        << qint64(25) << QList<qint64>{0, 2, 4, 6, 8, 10, 12, 14, 16, 18, 20, 22, 24};
    QTest::newRow("round") << qint64(1000) << QList<qint64>{0, 100, 200, 300, 400, 500, 600, 700, 800, 900};
    constexpr qint64 tenth = highest / 10; // the longest span is 10 tenths and 7 ms
    QTest::newRow("the longest span") << highest
                                      << QList<qint64>{0,         tenth,     tenth * 2, tenth * 3, tenth * 4, tenth * 5,
                                                       tenth * 6, tenth * 7, tenth * 8, tenth * 9, tenth * 10};
}

void TestTimeScale::ticks()
{
    QFETCH(qint64, span);
    TimeScale scale;
    scale.setSpan(span);
    QList<qint64> found;
    for (const TimeTick &tick : timeTicks(scale, width))
        found << tick.timeMs;
    QTEST(found, "times");
}

void TestTimeScale::ticksOfAMinute()
{
    const QList<TimeTick> ticks = timeTicks(TimeScale(), 699); // 69.6 px a tick
    QCOMPARE(ticks.size(), 10);
    QCOMPARE(ticks[0], (TimeTick{0, 1, true}));
    QCOMPARE(ticks[1], (TimeTick{6000, 71, false}));   // 69.6 + 1.5
    QCOMPARE(ticks[2], (TimeTick{12000, 140, true}));  // 139.2 + 1.5
    QCOMPARE(ticks[9], (TimeTick{54000, 627, false})); // 626.4 + 1.5 = 627.9
}

void TestTimeScale::framePartAt_data()
{
    QTest::addColumn<int>("x");
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("end");
    QTest::addColumn<int>("part");
    const auto row = [](const char *name, int x, int start, int end, FramePart part) {
        QTest::newRow(name) << x << start << end << static_cast<int>(part);
    };
    row("before the frame", 99, 100, 200, FramePart::None);
    row("first of the start handle", 100, 100, 200, FramePart::Start);
    row("last of the start handle", 111, 100, 200, FramePart::Start);
    row("behind the start handle", 112, 100, 200, FramePart::Frame);
    row("before the end handle", 188, 100, 200, FramePart::Frame);
    row("first of the end handle", 189, 100, 200, FramePart::End);
    row("last of the end handle", 200, 100, 200, FramePart::End);
    row("behind the frame", 201, 100, 200, FramePart::None);
    row("where the handles overlap it is the start", 105, 100, 105, FramePart::Start);
    row("a frame of no pixel is its start", 100, 100, 100, FramePart::Start);
    row("behind a short frame, in reach of its start", 108, 100, 105, FramePart::Start);
    row("before a short frame, in reach of its end", 96, 100, 105, FramePart::End);
}

void TestTimeScale::framePartAt()
{
    QFETCH(int, x);
    QFETCH(int, start);
    QFETCH(int, end);
    QTEST(static_cast<int>(::framePartAt(x, start, end)), "part");
}

void TestTimeScale::drag_data()
{
    QTest::addColumn<int>("part");
    QTest::addColumn<Span>("before");
    QTest::addColumn<int>("pressed");
    QTest::addColumn<QList<int>>("path"); // columns, one after the other
    QTest::addColumn<Span>("after");      // of 100 ms
    const auto row = [](const char *name, FramePart part, Span before, int pressed, const QList<int> &path,
                        Span after) {
        QTest::newRow(name) << static_cast<int>(part) << before << pressed << path << after;
    };
    row("no part, no move", FramePart::None, {20, 60}, 80, {90}, {20, 60});
    row("start", FramePart::Start, {20, 60}, 25, {30}, {25, 60});
    row("start back to where it was", FramePart::Start, {20, 60}, 25, {30, 25}, {20, 60});
    row("start beyond the left end", FramePart::Start, {20, 60}, 25, {-50}, {0, 60});
    row("start beyond the end handle", FramePart::Start, {20, 60}, 25, {99}, {59, 60});
    row("end", FramePart::End, {20, 60}, 55, {65}, {20, 70});
    row("end beyond the right end", FramePart::End, {20, 60}, 55, {500}, {20, 100});
    row("end beyond the start handle", FramePart::End, {20, 60}, 55, {2}, {20, 21});
    row("frame", FramePart::Frame, {20, 60}, 40, {35}, {15, 55});
    row("frame past the right end keeps its length", FramePart::Frame, {20, 60}, 40, {75, 500}, {60, 100});
    row("frame past the left end keeps its length", FramePart::Frame, {20, 60}, 40, {-5}, {0, 40});
    row("a fast move follows at the next one", FramePart::Frame, {20, 30}, 26, {56, 56, 56, 56}, {50, 60});
}

void TestTimeScale::drag()
{
    QFETCH(int, part);
    QFETCH(Span, before);
    QFETCH(int, pressed);
    QFETCH(QList<int>, path);
    TimeScale scale = scaleOf(100, before);
    const Drag drag(static_cast<FramePart>(part), scale, pressed, width);
    for (const int x : path)
        scale = drag.moved(scale, x, width);
    QTEST(frameOf(scale), "after");
}

void TestTimeScale::curve_data()
{
    QTest::addColumn<QList<double>>("values");
    QTest::addColumn<QPolygon>("expected"); // in 102 x 52: 100 by 50 inside
    const double nan = std::numeric_limits<double>::quiet_NaN();
    QTest::newRow("no value") << QList<double>() << QPolygon();
    QTest::newRow("one value is the largest") << QList<double>{7} << QPolygon({{1, -1}});
    QTest::newRow("all zero is flat") << QList<double>{0, 0} << QPolygon({{1, 49}, {51, 49}});
    QTest::newRow("heights relative to the largest")
        << QList<double>{0, 5, 10, 2.5} << QPolygon({{1, 49}, {26, 24}, {51, -1}, {76, 36}}); // 50 - 13.5
    QTest::newRow("columns are cut to whole ones") << QList<double>{0, 0, 0} << QPolygon({{1, 49}, {34, 49}, {67, 49}});
    QTest::newRow("below zero lies below") << QList<double>{-5, 10} << QPolygon({{1, 74}, {51, -1}});
    QTest::newRow("what is no number") << QList<double>{nan, 10} << QPolygon({{1, 0}, {51, -1}});
}

void TestTimeScale::curve()
{
    QFETCH(QList<double>, values);
    QTEST(curvePolygon(values, {102, 52}), "expected");
}

QTEST_GUILESS_MAIN(TestTimeScale)
#include "TestTimeScale.moc"
