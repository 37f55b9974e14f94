// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QBrush>
#include <QGraphicsItem>
#include <QPen>
#include <QPolygon>
#include <QVector2D>

/// An ellipse at any angle, drawn with whole-pixel semi-axes around its centre.
class ArbitraryEllipseItem : public QGraphicsItem {
public:
    /// @param a, b  semi-axes in pixels; where b is the longer one they are swapped, with a line on the debug channel.
    ArbitraryEllipseItem(QPoint center, QVector2D a, QVector2D b, QPen pen, const QBrush &brush);

    /// What is painted, before the turn: the axes lie along x and y.
    QRectF boundingRect() const override;
    /// The surface with its outline; tool tips react to it.
    QPainterPath shape() const override;
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;

    /// Points on the ellipse in scene pixels, at equal steps of its parameter; empty for steps < 1.
    QPolygon polygon(int steps) const;

private:
    QRectF painted() const;

    QVector2D m_major;
    QVector2D m_minor;
    QPoint m_center;
    QPen m_pen;
    QBrush m_brush;
};
