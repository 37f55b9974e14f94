// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "import/ilmenau/CorrectionEllipse.h"

#include <QGraphicsEllipseItem>
#include <QPen>

#include <functional>

/// An ellipse of a correction that the user can move with the left mouse button. Its outline grows under the mouse.
class interactiv_eli : public QGraphicsEllipseItem { // sic
public:
    /// Called with the new centre when the ellipse was moved, after the event: the item may be gone then.
    using Moved = std::function<void(QPointF center)>;

    interactiv_eli(const RotatedEllipse &ellipse, const QPen &pen, Moved moved);

    int type() const override { return UserType + 1; }

protected:
    void hoverEnterEvent(QGraphicsSceneHoverEvent *event) override;
    void hoverLeaveEvent(QGraphicsSceneHoverEvent *event) override;
    void mousePressEvent(QGraphicsSceneMouseEvent *event) override;
    void mouseMoveEvent(QGraphicsSceneMouseEvent *event) override;
    void mouseReleaseEvent(QGraphicsSceneMouseEvent *event) override;

private:
    Moved m_moved;
    QPen m_pen;
    QPointF m_before; ///< centre when the button was pressed
    QPointF m_grip;   ///< from the centre to the mouse
};
