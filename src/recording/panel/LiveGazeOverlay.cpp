// SPDX-License-Identifier: GPL-3.0-or-later
#include "recording/panel/LiveGazeOverlay.h"

#include <QEvent>
#include <QPainter>

#include <algorithm>

namespace {

using Clock = std::chrono::steady_clock;

constexpr auto trailLength = std::chrono::seconds(1);
constexpr int repaintMs = 10;
constexpr int radius = 12; ///< pixels of the screen
constexpr int penWidth = 3;
constexpr int shortestLine = 3; ///< a fixation is a thousand samples at nearly one place
constexpr QRgb color = qRgb(220, 30, 30);

} // namespace

LiveGazeOverlay::LiveGazeOverlay(QGraphicsView &view) : QWidget(view.viewport()), m_view(view)
{
    setObjectName(QStringLiteral("liveGazeOverlay"));
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAttribute(Qt::WA_NoSystemBackground);
    setGeometry(parentWidget()->rect());
    parentWidget()->installEventFilter(this);
    m_repaint.setInterval(repaintMs);
    m_repaint.setTimerType(Qt::PreciseTimer);
    connect(&m_repaint, &QTimer::timeout, this, &LiveGazeOverlay::repaintTrail);
}

void LiveGazeOverlay::show(const QList<ArrivedGaze> &gaze)
{
    for (const ArrivedGaze &one : gaze) {
        if (one.isTracked)
            m_trail << one;
    }
    const auto added = std::ranges::count_if(gaze, &ArrivedGaze::isTracked);
    m_unpainted += added;
    if (added == 0)
        return;
    if (!m_sinceRepaint.isValid() || m_sinceRepaint.elapsed() >= repaintMs)
        repaintTrail(); // at once: a queued repaint waits for the platform's next turn
    if (!m_repaint.isActive())
        m_repaint.start();
}

/// Runs as long as there is a trail: it grows shorter when nothing comes, too.
void LiveGazeOverlay::repaintTrail()
{
    const bool wasEmpty = m_trail.isEmpty();
    forgetOld();
    if (m_trail.isEmpty() && wasEmpty) {
        m_repaint.stop();
        return;
    }
    const QRect now = trailRect();
    const QRect changed = m_painted.united(now);
    m_painted = now;
    repaint(changed);
    m_sinceRepaint.start();
}

void LiveGazeOverlay::forgetOld()
{
    const auto oldest = Clock::now() - trailLength;
    const auto kept = std::ranges::find_if(m_trail, [oldest](const ArrivedGaze &it) { return it.arrival >= oldest; });
    m_trail.erase(m_trail.cbegin(), kept);
    m_unpainted = std::min(m_unpainted, m_trail.size());
}

QPoint LiveGazeOverlay::placeOf(const ArrivedGaze &gaze) const
{
    return m_view.mapFromScene(gaze.position);
}

QRect LiveGazeOverlay::trailRect() const
{
    QRect all;
    for (const ArrivedGaze &gaze : m_trail)
        all = all.united(QRect(placeOf(gaze), QSize(1, 1)));
    constexpr int margin = radius + penWidth;
    return all.isNull() ? all : all.adjusted(-margin, -margin, margin, margin);
}

void LiveGazeOverlay::paintEvent(QPaintEvent *)
{
    if (m_trail.isEmpty())
        return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const auto now = Clock::now();
    QPoint before = placeOf(m_trail.constFirst());
    for (const ArrivedGaze &gaze : std::as_const(m_trail)) {
        const QPoint place = placeOf(gaze);
        const double age =
            std::chrono::duration<double>(now - gaze.arrival) / std::chrono::duration<double>(trailLength);
        QColor faded = QColor::fromRgb(color);
        faded.setAlphaF(static_cast<float>(std::clamp(1 - age, 0.0, 1.0)));
        painter.setPen(QPen(faded, penWidth, Qt::SolidLine, Qt::RoundCap));
        painter.drawLine(before, place);
        before = place;
    }
    painter.setPen(QPen(QColor::fromRgb(color), penWidth));
    painter.drawEllipse(before, radius, radius);
    painter.end();
    const auto painted = Clock::now();
    for (qsizetype i = m_trail.size() - m_unpainted; i < m_trail.size(); ++i)
        Q_EMIT sigPainted(std::chrono::nanoseconds(painted - m_trail[i].arrival).count());
    m_unpainted = 0;
}

bool LiveGazeOverlay::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == parentWidget() && event->type() == QEvent::Resize)
        setGeometry(parentWidget()->rect());
    return QWidget::eventFilter(watched, event);
}
