// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QGraphicsItem>

/// Marks one pixel by a square around it.
class pixelitem : public QGraphicsItem { // sic
public:
    /// @param sizePx  side of the square, at least 1.
    pixelitem(QPoint pixel, int sizePx, const QColor &color);

    QRectF boundingRect() const override { return m_square; }
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;

private:
    QRectF m_square;
    QColor m_color;
};
