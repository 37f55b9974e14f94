// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/panel/Timeline.h"

#include "ui_Timeline.h"
#include "visualization/timeline/TimeLabels.h"

#include <QKeyEvent>
#include <QPainter>

#include <optional>

namespace {

constexpr QColor tickColor(105, 55, 38);
constexpr QColor focusColor(128, 179, 255);

struct FrameColors {
    QColor fill;
    QColor handle;
};

constexpr FrameColors activeColors{{162, 18, 47, 150}, {162, 18, 47, 220}};
constexpr FrameColors greyColors{{150, 150, 150, 150}, {150, 150, 150, 220}};

/// How far a key moves a handle, in ms; nothing if it is none of ours. Home and End go farther than any handle can.
std::optional<qint64> keyStep(const QKeyEvent &event, qint64 spanMs)
{
    const bool isFine = event.modifiers().testFlag(Qt::ControlModifier);
    const qint64 step = isFine ? 1 : std::max<qint64>(spanMs / 100, 1);
    const qint64 page = std::max<qint64>(spanMs / 10, 1);
    switch (event.key()) {
    case Qt::Key_Right:
    case Qt::Key_Up:
        return step;
    case Qt::Key_Left:
    case Qt::Key_Down:
        return -step;
    case Qt::Key_PageUp:
        return page;
    case Qt::Key_PageDown:
        return -page;
    case Qt::Key_Home:
        return -spanMs;
    case Qt::Key_End:
        return spanMs;
    default:
        return {};
    }
}

// Outlines and lines are filled rectangles: with a scaled screen a pen would leave them uneven.

void paintOutline(QPainter &painter, const QRect &rect, const QColor &color, int thickness = 1)
{
    const QRect inside = rect.adjusted(thickness, thickness, -thickness, -thickness);
    for (const QRect &edge : QRegion(rect) - QRegion(inside))
        painter.fillRect(edge, color);
}

QRect handleRect(const QRect &frame, FramePart handle)
{
    const int left = handle == FramePart::Start ? frame.left() : frame.left() + frame.width() - handleWidth;
    return {left, frame.top(), handleWidth, frame.height()};
}

void paintFrame(QPainter &painter, const QRect &frame, const FrameColors &colors)
{
    painter.setOpacity(0.4);
    painter.fillRect(frame, colors.fill);
    painter.setOpacity(0.8);
    painter.fillRect(handleRect(frame, FramePart::Start), colors.handle);
    painter.fillRect(handleRect(frame, FramePart::End), colors.handle);
    painter.setOpacity(1.0);
}

/// Dark outside and light inside, so that it shows on the handle and on the white of the strip.
void paintFocus(QPainter &painter, const QRect &handle)
{
    paintOutline(painter, handle, Qt::black);
    paintOutline(painter, handle.adjusted(1, 1, -1, -1), focusColor, 2);
}

void paintTicks(QPainter &painter, const QList<TimeTick> &ticks, int height)
{
    for (const TimeTick &tick : ticks) {
        const int length = height / (tick.isLabelled ? 3 : 6);
        painter.fillRect(tick.pixel, height - length, 1, length, tickColor);
    }
}

/// The widget's font, as far as its texts fit the height of the strip.
QFont fittingFont(const QFont &font)
{
    constexpr int largestPx = 11;
    QFont fitting(font);
    if (QFontInfo(font).pixelSize() > largestPx)
        fitting.setPixelSize(largestPx);
    return fitting;
}

} // namespace

Timeline::Timeline(QWidget *parent) : QWidget(parent)
{
    Ui::Timeline().setupUi(this);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAttribute(Qt::WA_QuitOnClose, false); // in a window of its own it does not keep the program alive
}

void Timeline::setCurve(Curve &curve, const QList<double> &values)
{
    curve = {values, {curvePolygon(values, size())}};
    update();
}

void Timeline::setCurve1(const QList<double> &values)
{
    setCurve(m_curve1, values);
}

void Timeline::setCurve2(const QList<double> &values)
{
    setCurve(m_curve2, values);
}

void Timeline::setScale(const TimeScale &scale)
{
    m_scale = scale;
    setAccessibleDescription(frameText(scale));
    update();
}

void Timeline::setTimeSpan(qint64 span)
{
    TimeScale scale;
    scale.setSpan(span);
    m_enabled = true;
    setFocusPolicy(Qt::StrongFocus);
    setScale(scale);
    Q_EMIT timespanChanged(span);
    Q_EMIT sliderChanged(0, span);
}

void Timeline::setSliderTimeframe(qint64 start, qint64 end)
{
    TimeScale scale = m_scale;
    scale.setFrame(start, end);
    setScale(scale);
    Q_EMIT sliderChanged(m_scale.startMs(), m_scale.endMs());
}

void Timeline::setSliderStart(qint64 pos)
{
    TimeScale scale = m_scale;
    scale.setStart(pos);
    setScale(scale);
}

void Timeline::setSliderPos(qint64 pos)
{
    TimeScale scale = m_scale;
    scale.moveTo(pos);
    setScale(scale);
}

void Timeline::setSliderEnd(qint64 pos)
{
    TimeScale scale = m_scale;
    scale.setEnd(pos);
    setScale(scale);
}

void Timeline::mousePressEvent(QMouseEvent *event)
{
    if (!m_enabled || event->button() != Qt::LeftButton)
        return;
    const int x = event->position().toPoint().x();
    m_drag = Drag(framePartAt(x, m_startPixel, m_endPixel), m_scale, x, width());
    if (m_drag.part == FramePart::Start || m_drag.part == FramePart::End)
        focusHandle(m_drag.part);
}

void Timeline::mouseMoveEvent(QMouseEvent *event)
{
    if (!m_enabled)
        return;
    const int x = event->position().toPoint().x();
    if (m_drag.part != FramePart::None)
        setScale(m_drag.moved(m_scale, x, width()));
    const FramePart part = framePartAt(x, m_startPixel, m_endPixel);
    if (part == FramePart::Start || part == FramePart::End)
        setCursor(Qt::SizeHorCursor);
    else
        setCursor(part == FramePart::Frame ? Qt::OpenHandCursor : Qt::ArrowCursor);
}

void Timeline::mouseReleaseEvent(QMouseEvent *event)
{
    if (!m_enabled || event->button() != Qt::LeftButton)
        return;
    m_drag.part = FramePart::None;
    Q_EMIT sliderChanged(m_scale.startMs(), m_scale.endMs());
}

void Timeline::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (m_enabled && event->button() == Qt::LeftButton)
        toggleDetached();
}

void Timeline::keyPressEvent(QKeyEvent *event)
{
    const std::optional<qint64> step = m_enabled ? keyStep(*event, m_scale.spanMs()) : std::nullopt;
    if (!step) {
        QWidget::keyPressEvent(event);
        return;
    }
    const bool isWhole = event->modifiers().testFlag(Qt::ShiftModifier);
    TimeScale scale = m_scale;
    scale.shift(isWhole ? FramePart::Frame : m_focusedHandle, *step);
    if (scale == m_scale)
        return;
    setScale(scale);
    m_keyMovePending = true;
    if (!event->isAutoRepeat()) // a key held down is a drag, which ends when the key is released
        endKeyMove();
}

void Timeline::keyReleaseEvent(QKeyEvent *event)
{
    QWidget::keyReleaseEvent(event);
    if (!event->isAutoRepeat())
        endKeyMove();
}

void Timeline::endKeyMove()
{
    if (!m_keyMovePending)
        return;
    m_keyMovePending = false;
    Q_EMIT sliderChanged(m_scale.startMs(), m_scale.endMs());
}

void Timeline::focusHandle(FramePart handle)
{
    m_focusedHandle = handle;
    update();
}

void Timeline::focusInEvent(QFocusEvent *event)
{
    QWidget::focusInEvent(event);
    if (event->reason() == Qt::TabFocusReason)
        focusHandle(FramePart::Start);
    else if (event->reason() == Qt::BacktabFocusReason)
        focusHandle(FramePart::End);
}

void Timeline::focusOutEvent(QFocusEvent *event)
{
    QWidget::focusOutEvent(event);
    endKeyMove(); // the release of the key goes to somebody else
}

bool Timeline::focusNextPrevChild(bool next)
{
    // The focus of a strip that is being hidden or disabled is passed on this way, too.
    const bool isKey = isVisible() && isEnabled();
    const bool isLast = m_focusedHandle == (next ? FramePart::End : FramePart::Start);
    if (!isKey || (isLast && !isWindow()))
        return QWidget::focusNextPrevChild(next);
    focusHandle(m_focusedHandle == FramePart::Start ? FramePart::End : FramePart::Start);
    return true;
}

void Timeline::paintEvent(QPaintEvent *)
{
    m_startPixel = m_scale.timeToPixel(m_scale.startMs(), width());
    m_endPixel = m_scale.timeToPixel(m_scale.endMs(), width());
    const QRect frame(m_startPixel, 1, m_endPixel - m_startPixel, height() - 2);
    const QList<TimeTick> ticks = timeTicks(m_scale, width());

    QPainter painter(this);
    painter.fillRect(rect(), Qt::white);
    paintOutline(painter, rect(), tickColor);
    paintFrame(painter, frame, m_enabled ? activeColors : greyColors);
    if (hasFocus())
        paintFocus(painter, handleRect(frame, m_focusedHandle));
    paintTicks(painter, ticks, height());
    painter.setFont(fittingFont(font()));
    painter.setPen(Qt::black);
    for (const TimeLabel &label : timeLabels(m_scale, size(), painter.fontMetrics()))
        painter.drawText(label.box, static_cast<int>(label.alignment) | Qt::TextDontClip, label.text);
}

void Timeline::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    Q_EMIT update_widget();
}

void Timeline::toggleDetached()
{
    if (m_detached) {
        Q_EMIT reinsert_widget(this);
        m_detached = false;
    } else {
        setParent(nullptr);
        move(200, 200);
        show();
        m_detached = true;
    }
    Q_EMIT update_widget();
}

void Timeline::closeEvent(QCloseEvent *event)
{
    QWidget::closeEvent(event);
    if (!m_detached)
        return;
    toggleDetached();
    // The strip is part of the main window again. Qt hides a closed widget after this function returns, so that the
    // strip is shown when that is done. If it has become a window of its own again by then, it stays closed.
    QMetaObject::invokeMethod(
        this, [this] { setVisible(!isWindow()); }, Qt::QueuedConnection);
}
