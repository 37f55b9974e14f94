// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QGraphicsView>

/// The view of the scene: zooms with the wheel and with + and -, pans by dragging.
class ZoomPanGraphicsView : public QGraphicsView {
    Q_OBJECT
public:
    explicit ZoomPanGraphicsView(QWidget *parent = nullptr);

    /// Gives the view its OpenGL viewport, where the platform has OpenGL, and what goes with it. Only the first call
    /// does anything.
    void setUpOnce();

    /// Shows the rectangle as large as possible, with its aspect ratio kept; zooming counts from there.
    void fit(const QRectF &rect);

    /// Steps of zooming since the last `fit`, from -30 to 30.
    int zoomSteps() const { return m_zoomSteps; }

protected:
    void wheelEvent(QWheelEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    enum class Zoom { In, Out };
    void zoom(Zoom direction);

    int m_zoomSteps = 0;
    bool m_isSetUp = false;
};
