// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "gaze-simulator/RandomSource.h"
#include "gaze-simulator/SimulatedSample.h"
#include "gaze-simulator/SimulationParameters.h"

/// One eye before the tracker: what it and the measurement add to where the person looks.
class SimulatedEye {
public:
    /// @param offset  constant distance of this eye's gaze from the common one, px.
    SimulatedEye(const SimulationParameters &parameters, const QPointF &offset, RandomSource::Stream stream);

    /// The next sample, valid; samples lie 1000 / rateHz ms apart.
    /// @param gaze      where the person looks, px.
    /// @param pupil     width of the pupil, px of the tracker's camera.
    /// @param lidClosed 0 open to 1 shut; a closing lid pulls the measured gaze down and flattens the pupil.
    EyeSample next(const QPointF &gaze, double pupil, double lidClosed);

private:
    /// Band-limited noise around the tremor's frequency: an autoregression of second order.
    struct Tremor {
        QPointF next(RandomSource &random);

        double first = 0;  // weight of the value before
        double second = 0; // weight of the value before that
        double fresh = 0;  // px, standard deviation of what is added
        QPointF before;
        QPointF last;
    };
    static Tremor tremorOf(const SimulationParameters &parameters);

    RandomSource m_random;
    QPointF m_offset; // px
    Tremor m_tremor;
    double m_wanderKept;
    double m_wanderFresh; // px
    double m_noise;       // px
    double m_lidPull;     // px
    QPointF m_wander;     // px, slow change of the angle between the eyes
};
