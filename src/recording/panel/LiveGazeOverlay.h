// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "recording/GazeInbox.h"

#include <QElapsedTimer>
#include <QGraphicsView>
#include <QPointer>
#include <QTimer>
#include <QWidget>

/// Where the subject looks now, and the trail of the last second, above the picture of a view. It is no part of the
/// scene and costs no redraw of it.
class LiveGazeOverlay : public QWidget {
    Q_OBJECT
public:
    /// @param view  its viewport becomes the parent.
    explicit LiveGazeOverlay(QGraphicsView &view);

    /// Adds to the trail. Painted at most 100 times a second.
    void show(const QList<ArrivedGaze> &gaze);
    using QWidget::show;

Q_SIGNALS:
    /// Gaze has been painted for the first time; for whoever measures.
    void sigPainted(qint64 nanosecondsSinceArrival);

protected:
    void paintEvent(QPaintEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void repaintTrail();
    void forgetOld();
    QRect trailRect() const;
    QPoint placeOf(const ArrivedGaze &gaze) const;

    QGraphicsView &m_view;
    QList<ArrivedGaze> m_trail; ///< the last second, oldest first
    qsizetype m_unpainted = 0;  ///< at the end of the trail
    QRect m_painted;            ///< where the last trail was
    QTimer m_repaint;
    QElapsedTimer m_sinceRepaint;
};
