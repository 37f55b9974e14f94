// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tracker-simulator/HostileMessages.h"
#include "tracker-simulator/ProtocolSide.h"

#include <QList>
#include <QStringList>

#include <variant>

/// What happens to the simulated tracker while it runs.
struct PlannedEvent {
    enum class Kind {
        State,   ///< the tracker's state changes to `value`
        Screen,  ///< another screen, `value`
        Silence, ///< nothing is said any more
        Close,   ///< the connection is closed without a word
        Restart, ///< it is closed, and nobody listens for `value` ms
        Stop     ///< no more frames
    };

    qint64 frame = 0; ///< number of frames sent on the connection before it happens
    Kind kind = Kind::Stop;
    int value = 0;
};

/// What the command line asks for.
struct TrackerOptions {
    quint16 port = 6555; ///< 0: any free one
    double rateHz = 60;
    QString recordingPath; ///< empty: a simulated subject
    quint64 seed = 1;
    TrackerState state;
    Hostilities hostilities = 0;
    QList<PlannedEvent> events; ///< in the order of their frames
};

struct TrackerHelp {
    QString text;
};

struct TrackerUsageFault {
    QString text;
};

/// @param arguments  the program's own path first.
std::variant<TrackerOptions, TrackerHelp, TrackerUsageFault> parseTrackerOptions(const QStringList &arguments);
