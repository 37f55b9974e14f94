// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "visualization/timeline/TimeScale.h"

#include <QWidget>

/// The strip with the slider that chooses the time frame of the scene.
///
/// The mouse drags its two handles and the frame between them; keys move the handle that has the focus. The strip alone
/// follows a move: `sliderChanged` comes once, at its end. Before the first `setTimeSpan` the strip is grey, and mouse
/// and keys do nothing.
///
/// A double click makes the strip a window of its own. It has no parent then, so whoever created it has to see that it
/// ends. Another double click, or closing that window, emits `reinsert_widget`: the receiver puts the strip back into
/// its layout at once, which makes it a child again.
class Timeline : public QWidget {
    Q_OBJECT
public:
    explicit Timeline(QWidget *parent = nullptr);

    qint64 start() const { return m_scale.startMs(); } ///< ms
    qint64 end() const { return m_scale.endMs(); }     ///< ms
    qint64 span() const { return m_scale.spanMs(); }   ///< ms
    bool isDetached() const { return m_detached; }

    /// The pixel column of a time in ms.
    int timeToPixel(qint64 timeMs) const { return m_scale.timeToPixel(timeMs, width()); }

    /// The activity along the time, one value per pixel column, kept as values and as one polygon in the size that the
    /// strip has now. The strip does not show them.
    void setCurve1(const QList<double> &values);
    void setCurve2(const QList<double> &values);
    const QList<double> &curve1Values() const { return m_curve1.values; }
    const QList<double> &curve2Values() const { return m_curve2.values; }
    const QList<QPolygon> &curve1Polygons() const { return m_curve1.polygons; }
    const QList<QPolygon> &curve2Polygons() const { return m_curve2.polygons; }

Q_SIGNALS:
    void sliderChanged(qint64 start, qint64 end);
    void timespanChanged(qint64 duration);
    void update_widget();
    void reinsert_widget(QWidget *widget);

public Q_SLOTS:
    /// Sets the length of the scale, the frame to the whole of it, and wakes the strip up.
    void setTimeSpan(qint64 span);
    /// The only setter of the frame that emits `sliderChanged`; limits are those of TimeScale.
    void setSliderTimeframe(qint64 start, qint64 end);
    void setSliderStart(qint64 pos);
    void setSliderPos(qint64 pos);
    void setSliderEnd(qint64 pos);

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    bool focusNextPrevChild(bool next) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    struct Curve {
        QList<double> values;
        QList<QPolygon> polygons;
    };

    void setCurve(Curve &curve, const QList<double> &values);
    void setScale(const TimeScale &scale);
    void focusHandle(FramePart handle);
    void endKeyMove();
    void toggleDetached();

    TimeScale m_scale;
    bool m_detached = false;
    bool m_enabled = false; ///< data are loaded
    int m_startPixel = 0;   ///< edges of the frame as painted: what is seen is what is grabbed
    int m_endPixel = 0;
    Drag m_drag;
    FramePart m_focusedHandle = FramePart::Start; ///< Start or End
    bool m_keyMovePending = false;                ///< keys moved the frame, and `sliderChanged` has still to come
    Curve m_curve1;
    Curve m_curve2;
};
