// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QBrush>
#include <QGraphicsItem>
#include <QPen>
#include <QPolygon>

/// A straight line with an arrowhead whose size follows the line's width.
class ArrowItem : public QGraphicsItem {
public:
    /// @param from, to  canvas pixels; an arrow without length has no head.
    ArrowItem(QPoint from, QPoint to, bool showTip, QPen pen, const QBrush &brush);

    /// What is painted: the line with its ends, and the head.
    QRectF boundingRect() const override;
    /// The same without what lies beside line and head; tool tips react to it.
    QPainterPath shape() const override;
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
