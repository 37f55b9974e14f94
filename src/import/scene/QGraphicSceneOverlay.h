// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "import/ilmenau/CorrectionEllipse.h"

#include <QGraphicsScene>

/// The scene of the program, on which the user can draw with the right mouse button: a stroke becomes the ellipse
/// nearest to it.
class QGraphicSceneOverlay : public QGraphicsScene {
    Q_OBJECT
public:
    using QGraphicsScene::QGraphicsScene;

    /// Of the last stroke that was long enough; empty before.
    const RotatedEllipse &lastFit() const { return m_lastFit; }

Q_SIGNALS:
    /// A stroke became an ellipse.
    void sigEllipsesdone();

protected:
    void mousePressEvent(QGraphicsSceneMouseEvent *event) override;
    void mouseMoveEvent(QGraphicsSceneMouseEvent *event) override;
    void mouseReleaseEvent(QGraphicsSceneMouseEvent *event) override;
    /// The stroke lies above all items and is none: a redraw meanwhile does not take it away.
    void drawForeground(QPainter *painter, const QRectF &rect) override;

private:
    std::vector<QPointF> m_stroke;
    bool m_drawing = false;
    RotatedEllipse m_lastFit;
};
