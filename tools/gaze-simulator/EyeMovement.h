// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "gaze-simulator/SimulationParameters.h"
#include "gaze-simulator/TargetSelector.h"

/// Where the person looks at each moment, before eyes and tracker add their part: fixations with drift and
/// microsaccades, and the saccades between them.
class EyeMovement {
public:
    EyeMovement(const SimulationParameters &parameters, const SaliencyMap &map);

    /// Goes on to the next sample.
    /// @param timeMs  time since the start; samples lie 1000 / rateHz apart.
    void advance(double timeMs);

    QPointF position() const { return m_position; } ///< px
    bool inSaccade() const { return m_inSaccade; }

private:
    struct Jump {
        QPointF way; ///< px
        double startMs = 0;
        double durationMs = 0;
    };

    void startFixation();
    void startSaccade();
    void advanceDrift();
    void advanceMicrosaccade(double timeMs);
    void startMicrosaccade(double timeMs);
    Jump jump(const QPointF &way, double startMs, RandomSource &random) const;

    SimulationParameters m_parameters;
    TargetSelector m_targets;
    RandomSource m_scanpath;
    RandomSource m_movement;
    double m_stepMs;
    double m_driftKept;  // part of the drift speed left after a step
    double m_driftFresh; // px per step, standard deviation of what is added to the speed
    double m_returnKept; // part of the deviation from the target left after a step

    bool m_inSaccade = false;
    double m_eventEndMs = 0;
    QPointF m_anchor;    // px, where the fixation or the saccade began
    QPointF m_deviation; // px, drift and microsaccades since the start of the fixation
    QPointF m_driftStep; // px per step
    QPointF m_position;  // px
    Jump m_saccade;
    Jump m_microsaccade;
    double m_microsaccadeDone = 1; // part of the way already in the deviation
};
