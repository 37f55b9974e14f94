#pragma once

#include <QBrush>
#include <QGraphicsItem>
#include <QPen>
#include <QPolygon>

/// A straight line with an arrowhead whose size follows the line's width.
class ArrowItem : public QGraphicsItem {
public:
    /// @param from, to  canvas pixels; an arrow without length has no head.
    ArrowItem(QPoint from, QPoint to, bool showTip, QPen pen, QBrush brush);

    /// The rectangle between both ends. The line's width and the head reach beyond it, and tool tips react to it alone.
    /// What moves or vanishes outside it stays on the screen in a view that repaints only what has changed; the view of
    /// the scene repaints everything.
    QRectF boundingRect() const override;
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;

    /// Closed outline of the head, the end of the arrow first; empty for an arrow without length.
    const QPolygon &tip() const { return m_tip; }

private:
    QPen m_pen;
    QBrush m_brush;
    QPoint m_from;
    QPoint m_to;
    QPolygon m_tip;
    bool m_showTip = false;
};
