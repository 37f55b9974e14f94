// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Log.h"

#include <QGraphicsView>
#include <QList>
#include <QPointer>

#include <functional>
#include <memory>
#include <random>

class LiveGazeOverlay;
class TheEyeTribeRecorder;

/// The recorders that are open, and the live view of what they see. A recorder lives until it is closed.
class Recorders {
public:
    /// @param view, log  outlive the recorders.  @param picture  path of the picture that the view shows.
    Recorders(QGraphicsView &view, Log &log, std::function<QString()> picture);
    ~Recorders();
    Recorders(const Recorders &) = delete;
    Recorders &operator=(const Recorders &) = delete;

    /// Opens one more. It asks for recordings that were interrupted.
    TheEyeTribeRecorder &open();

    /// Null while nobody wants a live view.
    LiveGazeOverlay *overlay() const;

private:
    void showLiveView(bool isShown);

    QGraphicsView &m_view;
    Log &m_log;
    std::function<QString()> m_picture;
    std::shared_ptr<std::minstd_rand> m_random; ///< a calibration goes on where the one before ended
    QList<QPointer<TheEyeTribeRecorder>> m_open;
    QPointer<LiveGazeOverlay> m_overlay; ///< owned by the viewport
};
