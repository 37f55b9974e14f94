// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/panel/ZoomPanGraphicsView.h"

#include "visualization/panel/OpenGlViewport.h"

#include <QKeyEvent>
#include <QWheelEvent>

namespace {

constexpr int zoomLimit = 30;
constexpr double zoomFactor = 1.15;

} // namespace

ZoomPanGraphicsView::ZoomPanGraphicsView(QWidget *parent) : QGraphicsView(parent)
{
    setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    setDragMode(ScrollHandDrag);
    setFocusPolicy(Qt::StrongFocus);
    // Bars that come and go would cover the edge of what was just fitted.
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
}

void ZoomPanGraphicsView::setUpOnce()
{
    if (m_isSetUp)
        return;
    m_isSetUp = true;
    useOpenGlViewport(*this);
    setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    setTransformationAnchor(AnchorUnderMouse);
    setCacheMode(CacheBackground);
    setViewportUpdateMode(FullViewportUpdate);
    setAutoFillBackground(false);
}

void ZoomPanGraphicsView::fit(const QRectF &rect)
{
    fitInView(rect, Qt::KeepAspectRatio);
    m_zoomSteps = 0;
}

void ZoomPanGraphicsView::wheelEvent(QWheelEvent *event)
{
    setTransformationAnchor(AnchorUnderMouse);
    const int delta = event->angleDelta().y();
    if (delta >= 1)
        zoom(Zoom::In);
    else if (delta < 0)
        zoom(Zoom::Out);
    event->accept();
}

void ZoomPanGraphicsView::keyPressEvent(QKeyEvent *event)
{
    const bool isIn = event->key() == Qt::Key_Plus || event->key() == Qt::Key_Equal;
    if (!isIn && event->key() != Qt::Key_Minus) {
        QGraphicsView::keyPressEvent(event);
        return;
    }
    setTransformationAnchor(AnchorViewCenter);
    zoom(isIn ? Zoom::In : Zoom::Out);
    setTransformationAnchor(AnchorUnderMouse);
}

/// Steps beyond the limit are not kept: the first step back acts at once.
void ZoomPanGraphicsView::zoom(Zoom direction)
{
    m_zoomSteps += direction == Zoom::In ? 1 : -1;
    if (std::abs(m_zoomSteps) <= zoomLimit) {
        const double factor = direction == Zoom::In ? zoomFactor : 1 / zoomFactor;
        scale(factor, factor);
    }
    m_zoomSteps = std::clamp(m_zoomSteps, -zoomLimit, zoomLimit);
}
