// SPDX-License-Identifier: GPL-3.0-or-later
#include "import/panel/SamplesView.h"

#include "import/tables/TableRecording.h"

#include <QPainter>

#include <algorithm>
#include <limits>

namespace {

using namespace Qt::Literals::StringLiterals;

constexpr int margin = 6;     // px, around what is drawn
constexpr double pointPx = 2; // of a sample
const QColor leftColor(200, 30, 30);
const QColor rightColor(30, 70, 200);
const QColor paper(250, 250, 250);
const QColor frame(140, 140, 140);

/// Room for points, as a rectangle that is not empty.
QRectF widened(const QRectF &bounds)
{
    constexpr double least = 1;
    return {bounds.topLeft(), QSizeF(std::max(bounds.width(), least), std::max(bounds.height(), least))};
}

QPolygonF validPoints(const TableRecording &recording, const TableEyeSample TableSample::*eye,
                      const bool TableSample::*valid)
{
    QPolygonF points;
    for (const TableSample &sample : recording.samples) {
        if (sample.*valid)
            points << QPointF((sample.*eye).x, (sample.*eye).y);
    }
    return points;
}

/// The largest rectangle of this shape in the room.
QRectF fitted(const QSizeF &shape, const QRectF &room)
{
    QRectF rectangle(QPointF(), shape.scaled(room.size(), Qt::KeepAspectRatio));
    rectangle.moveCenter(room.center());
    return rectangle;
}

QTransform mapping(const QRectF &from, const QRectF &to)
{
    QTransform transform;
    transform.translate(to.left(), to.top());
    transform.scale(to.width() / from.width(), to.height() / from.height());
    transform.translate(-from.left(), -from.top());
    return transform;
}

void drawPoints(QPainter &painter, const QPolygonF &points, const QColor &color)
{
    QPen pen(color, pointPx);
    pen.setCosmetic(true);
    pen.setCapStyle(Qt::RoundCap);
    painter.setPen(pen);
    painter.drawPoints(points);
}

} // namespace

SamplesView::SamplesView(QWidget *parent) : QWidget(parent)
{
    constexpr QSize least(240, 150);
    setMinimumSize(least);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void SamplesView::show(const TableRecording &recording, const QString &stimulus)
{
    m_left = validPoints(recording, &TableSample::left, &TableSample::leftValid);
    m_right = validPoints(recording, &TableSample::right, &TableSample::rightValid);
    m_stimulus = stimulus.isEmpty() ? QPixmap() : QPixmap(stimulus);
    m_isScreenKnown = !recording.screenPx.isEmpty();
    m_screen = m_isScreenKnown ? QRectF(QPointF(), recording.screenPx)
                               : widened(m_left.boundingRect().united(m_right.boundingRect()));
    update();
}

void SamplesView::clear()
{
    m_left.clear();
    m_right.clear();
    m_stimulus = {};
    m_screen = {};
    update();
}

void SamplesView::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), palette().window());
    if (m_screen.isEmpty())
        return;
    const int caption = 2 * fontMetrics().lineSpacing() + margin; // lines below
    const QRectF room = QRectF(rect()).adjusted(margin, margin, -margin, -caption);
    const QRectF screen = fitted(m_screen.size(), room);
    painter.fillRect(screen, paper);
    if (!m_stimulus.isNull())
        painter.drawPixmap(mapping(m_screen, screen).mapRect(QRectF(m_stimulus.rect())), m_stimulus,
                           QRectF(m_stimulus.rect()));
    painter.setPen(frame);
    painter.drawRect(screen);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.save();
    painter.setClipRect(room);
    painter.setTransform(mapping(m_screen, screen), true);
    drawPoints(painter, m_left, leftColor);
    drawPoints(painter, m_right, rightColor);
    painter.restore();
    const QString size = u"%1 x %2 px"_s.arg(m_screen.width(), 0, 'f', 0).arg(m_screen.height(), 0, 'f', 0);
    const QString text =
        (m_isScreenKnown ? u"Screen of %1"_s.arg(size) : u"Screen not known; the samples span %1"_s.arg(size)) +
        u"\nLeft eye red, right eye blue"_s;
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(rect().adjusted(margin, 0, -margin, -2), Qt::AlignBottom | Qt::AlignLeft, text);
}

TimeView::TimeView(QWidget *parent) : QWidget(parent)
{
    constexpr QSize least(240, 90);
    setMinimumSize(least);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
}

void TimeView::show(const TableRecording &recording)
{
    const bool isLeft = recording.facts.leftValid >= recording.facts.rightValid;
    Curve x{{}, leftColor, u"x"_s};
    Curve y{{}, rightColor, u"y"_s};
    m_range = {};
    double least = std::numeric_limits<double>::infinity();
    double most = -least;
    double start = least;
    double end = -least;
    for (const TableSample &sample : recording.samples) {
        start = std::min(start, sample.timeMs);
        end = std::max(end, sample.timeMs);
        if (!(isLeft ? sample.leftValid : sample.rightValid))
            continue;
        const TableEyeSample &eye = isLeft ? sample.left : sample.right;
        x.points << QPointF(sample.timeMs, eye.x);
        y.points << QPointF(sample.timeMs, eye.y);
        least = std::min({least, eye.x, eye.y});
        most = std::max({most, eye.x, eye.y});
    }
    if (!x.points.isEmpty())
        m_range = widened(QRectF(start, least, end - start, most - least));
    m_curves = {x, y};
    update();
}

void TimeView::clear()
{
    m_curves.clear();
    m_range = {};
    update();
}

void TimeView::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), palette().window());
    if (m_range.isEmpty())
        return;
    const int caption = fontMetrics().height() + margin;
    const QRectF room = QRectF(rect()).adjusted(margin, margin, -margin, -caption);
    painter.fillRect(room, paper);
    painter.setPen(frame);
    painter.drawRect(room);
    painter.save();
    painter.setClipRect(room);
    painter.setTransform(mapping(m_range, room), true);
    for (const Curve &curve : m_curves)
        drawPoints(painter, curve.points, curve.color);
    painter.restore();
    constexpr double msPerSecond = 1000;
    const QString text =
        u"x (red) and y (blue) from %1 to %2 s, between %3 and %4 px"_s.arg(m_range.left() / msPerSecond, 0, 'f', 2)
            .arg(m_range.right() / msPerSecond, 0, 'f', 2)
            .arg(m_range.top(), 0, 'f', 0)
            .arg(m_range.bottom(), 0, 'f', 0);
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(rect().adjusted(margin, 0, -margin, -2), Qt::AlignBottom | Qt::AlignLeft,
                     fontMetrics().elidedText(text, Qt::ElideRight, width() - 2 * margin));
}
