// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QPolygon>

/// What mouse and keys can have hold of.
enum class FramePart { None = 0, Start = 1, End = 2, Frame = 3 };

/// The scale of the timeline and the frame that is chosen on it. All times are ms since the start of the examinations;
/// `width` is that of the strip in pixels.
///
/// The setters keep the frame inside the scale and at least one millisecond long. Where both cannot be, with a span of
/// 0, the upper bound has the last word.
class TimeScale {
public:
    qint64 startMs() const { return m_startMs; }
    qint64 endMs() const { return m_endMs; }
    qint64 spanMs() const { return m_spanMs; }

    /// The length of the scale; the frame becomes the whole of it.
    void setSpan(qint64 spanMs);

    void setStart(qint64 timeMs);
    void setEnd(qint64 timeMs);

    /// First the start, then the end. A start beyond the old end stops before that one.
    void setFrame(qint64 startMs, qint64 endMs);

    /// Moves the frame to a new start and keeps its length. A start beyond the old end stops before that one, so that a
    /// frame moves to the right by less than its length at a time.
    void moveTo(qint64 startMs);

    /// Moves one edge, or the frame with its length kept, by so many ms, as far as it can go.
    void shift(FramePart part, qint64 byMs);

    /// The pixel column of a time. A scale without length has all times in column 1.
    int timeToPixel(qint64 timeMs, int width) const;

    /// The time of a pixel column in whole ms; 0 on a scale without length.
    double pixelToTime(int x, int width) const;

    bool operator==(const TimeScale &) const = default;

private:
    double pixelsPerMs(int width) const;

    qint64 m_startMs = 0;
    qint64 m_endMs = 60000;
    qint64 m_spanMs = 60000;
};

struct TimeTick {
    qint64 timeMs;
    int pixel;
    bool isLabelled; ///< every second one, from the first on

    bool operator==(const TimeTick &) const = default;
};

/// A tick at every whole tenth of the span (at least 1 ms, rounded down), from 0 on and before its end.
QList<TimeTick> timeTicks(const TimeScale &scale, int width);

constexpr int handleWidth = 12; ///< pixels of each of the two grab zones

/// What lies at pixel column x, with the frame shown from `startPixel` to `endPixel`. Where the zones of both handles
/// overlap, it is the start.
FramePart framePartAt(int x, int startPixel, int endPixel);

/// A drag in progress: how far from the pressed position the frame's edges were, in ms.
struct Drag {
    Drag() = default;
    Drag(FramePart part_, const TimeScale &scale, int x, int width);

    /// The scale after the mouse has moved to column x.
    TimeScale moved(TimeScale scale, int x, int width) const;

    FramePart part = FramePart::None;
    double grabStart = 0;
    double grabEnd = 0;
};

/// The curve of n values over a strip of the given size, one point each from left to right; the largest value reaches
/// the upper edge, and without one above 0 the curve is flat.
QPolygon curvePolygon(const QList<double> &values, QSize size);
