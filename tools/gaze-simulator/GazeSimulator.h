// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "gaze-simulator/EventTrain.h"
#include "gaze-simulator/EyeMovement.h"
#include "gaze-simulator/SimulatedEye.h"
#include "gaze-simulator/SimulatedSample.h"

#include <QList>

/// A recording of one person in front of one picture, sample by sample, so that its length does not cost memory.
/// The same parameters and map give the same samples on every machine.
class GazeSimulator {
public:
    /// @param parameters  each value in the range that the program's options allow.
    /// @param map         of a canvas of at least one pixel.
    GazeSimulator(const SimulationParameters &parameters, const SaliencyMap &map);

    /// Duration times rate, rounded.
    qint64 sampleCount() const { return m_sampleCount; }

    SimulatedSample next();

private:
    double lidClosed(double timeMs) const;
    double nextPupil();
    void applyLosses(SimulatedSample &sample, double timeMs) const;
    EventLabel labelOf(const SimulatedSample &sample, double timeMs) const;

    SimulationParameters m_parameters;
    EyeMovement m_movement;
    SimulatedEye m_left;
    SimulatedEye m_right;
    EventTrain m_blinks;
    EventTrain m_losses;
    RandomSource m_pupilRandom;
    double m_pupilKept;
    double m_pupilFresh;      // px
    double m_pupilChange = 0; // px
    qint64 m_sampleCount;
    qint64 m_index = 0;
};

/// The whole recording at once.
QList<SimulatedSample> simulate(const SimulationParameters &parameters, const SaliencyMap &map);
