// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/timeline/TimeScale.h"

#include "base/Truncation.h"

#include <algorithm>
#include <cmath>

namespace {

/// At least `lowest`, and then at most `highest`, also where that is the lower one.
qint64 bounded(qint64 value, qint64 lowest, qint64 highest)
{
    return std::min(std::max(value, lowest), highest);
}

} // namespace

void TimeScale::setSpan(qint64 spanMs)
{
    m_spanMs = spanMs;
    m_startMs = 0;
    m_endMs = spanMs;
}

void TimeScale::setStart(qint64 timeMs)
{
    m_startMs = bounded(timeMs, 0, m_endMs - 1);
}

void TimeScale::setEnd(qint64 timeMs)
{
    m_endMs = bounded(timeMs, m_startMs + 1, m_spanMs);
}

void TimeScale::setFrame(qint64 startMs, qint64 endMs)
{
    setStart(startMs); // the end as it was is the limit
    setEnd(endMs);
}

void TimeScale::moveTo(qint64 startMs)
{
    const qint64 length = m_endMs - m_startMs;
    setStart(std::min(startMs, m_spanMs - length)); // the end as it was is the limit
    setEnd(m_startMs + length);
}

void TimeScale::shift(FramePart part, qint64 byMs)
{
    // Bounded on both sides before the addition, which must not overflow.
    const qint64 back = part == FramePart::End ? -m_endMs : -m_startMs;
    const qint64 forth = m_spanMs - (part == FramePart::Start ? m_startMs : m_endMs);
    const qint64 step = bounded(byMs, back, forth);
    if (part == FramePart::Start) {
        setStart(m_startMs + step);
    } else if (part == FramePart::End) {
        setEnd(m_endMs + step);
    } else {
        m_startMs += step;
        m_endMs += step;
    }
}

double TimeScale::pixelsPerMs(int width) const
{
    constexpr int marginPx = 3;
    return width > marginPx && m_spanMs > 0 ? (width - marginPx) / static_cast<double>(m_spanMs) : 0;
}

int TimeScale::timeToPixel(qint64 timeMs, int width) const
{
    return truncated(static_cast<double>(timeMs) * pixelsPerMs(width) + 0.5 + 1.0);
}

double TimeScale::pixelToTime(int x, int width) const
{
    const double scale = pixelsPerMs(width);
    return scale > 0 ? std::trunc((x - 1) / scale) : 0;
}

QList<TimeTick> timeTicks(const TimeScale &scale, int width)
{
    const qint64 step = std::max<qint64>(scale.spanMs() / 10, 1); // a span below 10 ms has no tenths
    QList<TimeTick> ticks;
    for (qint64 i = 0; scale.spanMs() > 0 && i <= (scale.spanMs() - 1) / step; ++i)
        ticks << TimeTick{i * step, scale.timeToPixel(i * step, width), i % 2 == 0};
    return ticks;
}

FramePart framePartAt(int x, int startPixel, int endPixel)
{
    const auto isGrabbed = [](int distance) { return 0 <= distance && distance < handleWidth; };
    if (isGrabbed(x - startPixel))
        return FramePart::Start;
    if (isGrabbed(endPixel - x))
        return FramePart::End;
    return startPixel < x && x < endPixel ? FramePart::Frame : FramePart::None;
}

Drag::Drag(FramePart part_, const TimeScale &scale, int x, int width)
    : part(part_)
    , grabStart(static_cast<double>(scale.startMs()) - scale.pixelToTime(x, width))
    , grabEnd(static_cast<double>(scale.endMs()) - scale.pixelToTime(x, width))
{
}

TimeScale Drag::moved(TimeScale scale, int x, int width) const
{
    // Dragging reaches as far as 32 bits do, some 24 days; the slots take any time.
    const int newStart = truncated(scale.pixelToTime(x, width) + grabStart);
    const int newEnd = truncated(scale.pixelToTime(x, width) + grabEnd);
    if (part == FramePart::Start)
        scale.setStart(newStart);
    else if (part == FramePart::End)
        scale.setEnd(newEnd);
    else if (part == FramePart::Frame)
        scale.moveTo(newStart);
    return scale;
}

QPolygon curvePolygon(const QList<double> &values, QSize size)
{
    const double width = size.width() - 2;
    const double height = size.height() - 2;
    double largest = 0;
    for (const double value : values)
        largest = std::max(largest, value);
    const double pixelsPerUnit = largest > 0 ? height / largest : 0;
    const auto count = static_cast<double>(values.size());
    QPolygon polygon;
    polygon.reserve(values.size());
    for (qsizetype i = 0; i < values.size(); ++i)
        polygon << QPoint(truncated(static_cast<double>(i) * width / count + 1),
                          truncated(height - (pixelsPerUnit * values[i] + 1)));
    return polygon;
}
