// SPDX-License-Identifier: GPL-3.0-or-later
#include "import/scene/pixelitem.h"

#include <QPainter>

pixelitem::pixelitem(QPoint pixel, int sizePx, const QColor &color)
    : m_square(pixel.x() + (1 - sizePx) / 2.0, pixel.y() + (1 - sizePx) / 2.0, sizePx, sizePx)
    , m_color(color)
{
    setAcceptedMouseButtons(Qt::NoButton); // what lies below can be moved
}

void pixelitem::paint(QPainter *painter, const QStyleOptionGraphicsItem *, QWidget *)
{
    painter->fillRect(m_square, m_color);
}
