// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "gaze-simulator/GazeSimulator.h"
#include "tracker-simulator/SentFrame.h"

#include <QList>
#include <QString>

#include <optional>

/// Where the frames of the simulated tracker come from, one after the other without end.
class IFrameSource {
public:
    virtual ~IFrameSource() = default;
    virtual SentFrame next() = 0;
};

/// The lines of a recording, over and over; its clock goes on with each round.
class ReplayedRecording : public IFrameSource {
public:
    /// @param frames  at least one.
    explicit ReplayedRecording(QList<SentFrame> frames) : m_frames(std::move(frames)) {}

    SentFrame next() override;

private:
    QList<SentFrame> m_frames;
    qsizetype m_next = 0;
    std::int64_t m_offsetMs = 0;
};

/// A person who looks around on a screen; the clock begins at 0.
class SimulatedSubject : public IFrameSource {
public:
    /// @param rateHz  1 to 1000.
    SimulatedSubject(double rateHz, quint64 seed);

    SentFrame next() override;

private:
    double m_rateHz;
    GazeSimulator m_simulator;
    std::int64_t m_index = 0;
};

/// The sample lines of a .data file. A frame is tracked where both eyes are valid.
/// @return nothing where the file cannot be read or has no sample line.
std::optional<QList<SentFrame>> readFrames(const QString &path);
