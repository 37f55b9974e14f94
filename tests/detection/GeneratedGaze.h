// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/GazePoint.h"

#include <QList>

#include <cmath>
#include <random>

/// Makes recordings for tests and benchmarks of the detectors.
struct GazeRecipe {
    int count = 10000;       ///< samples
    double rateHz = 500;     ///< times are rounded to ms, as trackers do
    double fixationMs = 250; ///< mean duration
    double noisePx = 1.5;    ///< standard deviation of each sample
    double driftPxPerMs = 0.01;
    double lossShare = 0.0005;  ///< of the samples, where a loss of tracking begins
    double spikeShare = 0.0005; ///< of the samples, which stand 200 px aside
    unsigned seed = 1;
};

/// Fixations with drift and noise at random places of the canvas, saccades of 50 px per 10 ms with a smooth start and
/// end between them, losses of 1 to 200 ms, single spikes.
inline QList<GazePoint> generatedGaze(const GazeRecipe &recipe)
{
    std::mt19937 random(recipe.seed);
    std::normal_distribution<double> normal;
    std::uniform_real_distribution<double> uniform;
    const double stepMs = 1000 / recipe.rateHz;
    QList<GazePoint> samples;
    samples.reserve(recipe.count);
    double fromX = 1280;
    double fromY = 800;
    double toX = fromX;
    double toY = fromY;
    double saccadeMs = 0;
    double phaseEnd = 0; // of saccade and fixation together
    double phaseStart = 0;
    double lossEnd = 0;
    double driftX = 0;
    double driftY = 0;
    for (int i = 0; i < recipe.count; ++i) {
        const double time = i * stepMs;
        if (time >= phaseEnd) {
            const double fixatedMs = time - phaseStart - saccadeMs;
            fromX = toX + driftX * fixatedMs;
            fromY = toY + driftY * fixatedMs;
            toX = uniform(random) * 2560;
            toY = uniform(random) * 1600;
            saccadeMs = 15 + std::hypot(toX - fromX, toY - fromY) / 25;
            phaseStart = time;
            phaseEnd = time + saccadeMs + std::max(60.0, recipe.fixationMs * std::exp(0.4 * normal(random)));
            driftX = recipe.driftPxPerMs * normal(random);
            driftY = recipe.driftPxPerMs * normal(random);
        }
        if (time >= lossEnd && uniform(random) < recipe.lossShare)
            lossEnd = time + 1 + 199 * uniform(random) * uniform(random);
        const double t = std::min(1.0, (time - phaseStart) / saccadeMs);
        const double way = t * t * t * (t * (t * 6 - 15) + 10);
        const double fixatedMs = std::max(0.0, time - phaseStart - saccadeMs);
        double x = fromX + (toX - fromX) * way + driftX * fixatedMs + recipe.noisePx * normal(random);
        const double y = fromY + (toY - fromY) * way + driftY * fixatedMs + recipe.noisePx * normal(random);
        if (uniform(random) < recipe.spikeShare)
            x += 200;
        const bool isLost = time < lossEnd;
        samples << GazePoint(std::llround(time), isLost ? 0 : x, isLost ? 0 : y, 3, 3, isLost ? 0 : 1);
    }
    return samples;
}
