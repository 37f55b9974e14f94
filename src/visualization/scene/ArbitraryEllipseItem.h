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
    ArbitraryEllipseItem(QPoint center, QVector2D a, QVector2D b, QPen pen, QBrush brush);

    /// The larger y and x components of the axes as half width and half height. Tool tips react to this rectangle.
    QRectF boundingRect() const override;
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;

    /// Points on the ellipse in scene pixels, at equal steps of its parameter; empty for steps < 1.
    QPolygon polygon(int steps) const;

private:
    QVector2D m_major;
    QVector2D m_minor;
    QPoint m_center;
    QPen m_pen;
    QBrush m_brush;
};
