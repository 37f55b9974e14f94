// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPointF>

#include <cstdint>

/// One frame as the simulated tracker measures it.
struct SentFrame {
    struct Eye {
        QPointF gaze; ///< screen pixels
        double pupil = 0;
    };

    std::int64_t timeMs = 0;
    bool isTracked = true; ///< both eyes are
    Eye left;
    Eye right;
};
