// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPixmap>
#include <QPolygonF>
#include <QWidget>

struct TableRecording;

/// The samples of a recording as points on the screen that they were taken on.
class SamplesView : public QWidget {
    Q_OBJECT
public:
    explicit SamplesView(QWidget *parent = nullptr);

    /// @param stimulus  path of the picture that was shown; may be empty.
    void show(const TableRecording &recording, const QString &stimulus);
    void clear();

    QSize sizeHint() const override { return {420, 260}; }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QPolygonF m_left;
    QPolygonF m_right;
    QRectF m_screen; ///< px; of the points where the screen is not known
    QPixmap m_stimulus;
    bool m_isScreenKnown = false;
};

/// x and y of a recording over its time.
class TimeView : public QWidget {
    Q_OBJECT
public:
    explicit TimeView(QWidget *parent = nullptr);

    void show(const TableRecording &recording);
    void clear();

    QSize sizeHint() const override { return {420, 130}; }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    struct Curve {
        QPolygonF points; ///< time in ms, place in px; broken where the eye is lost
        QColor color;
        QString name;
    };
    QList<Curve> m_curves;
    QRectF m_range; ///< time by place
};
