// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "recording/client/GazeApi.h"

#include <QList>
#include <QPoint>
#include <QWidget>

#include <memory>
#include <mutex>
#include <random>

/// The whole screen while the tracker is calibrated: first the subject's eyes, to find a place before the camera, then
/// nine points one after the other. Each key goes on; Escape leaves.
class QCalibrationWidget : public QWidget, public gtl::IGazeListener {
    Q_OBJECT
public:
    /// @param client, random  outlive the widget.
    QCalibrationWidget(gtl::GazeApi &client, std::minstd_rand &random, QWidget *parent = nullptr);
    ~QCalibrationWidget() override;

    /// Begins on a widget that is shown. Waits for the server.
    /// @return false where an error came instead, and why stands in the client's last problem. It may have been the
    ///         answer to something else: if the server says later that it has started, `begin` goes on.
    bool start();

    /// The server has started: shows the eyes. Nothing happens where they are shown already.
    void begin();

    /// The point that is shown; -1 while eyes are, below until the server has started, the number of points at the end.
    int index() const { return m_index; }
    const QList<QPoint> &points() const { return m_points; }

    void onGazeData(const gtl::GazeData &frame) override;

public Q_SLOTS:
    /// Ends the point that is shown and shows the next one.
    void continueCalibration();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    void continueAfter(int timeMs);
    void paintEyes(QPainter &painter);

    static constexpr int justStarted = -2;
    static constexpr int positioning = -1;

    gtl::GazeApi &m_client;
    std::minstd_rand &m_random;
    QList<QPoint> m_points;
    int m_index = justStarted;
    bool m_isStarted = false; ///< the server calibrates
    std::mutex m_frameMutex;
    gtl::GazeData m_frame;
};
