// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "density/DensityEvents.h"

#include <span>
#include <vector>

enum class SaccadeShape { Tube, Gaussian };

/// How the marks of saccades are made.
struct SaccadeMarkStyle {
    NormalDistribution kernel;
    SaccadeShape shape = SaccadeShape::Tube;
    bool lengthDependent = false;
    bool durationDependent = false; ///< on the fixations at both ends
    double lengthThresholdPx = 0;   ///< a tube is drawn for longer saccades only
};

/// A saccade between two neighbouring fixations of one walk.
struct SaccadeMark {
    SaccadeEvent from;
    SaccadeEvent to;
};

std::vector<SaccadeMark> saccadeMarks(std::span<const SaccadeEvent> events);

/// What a mark's profile is multiplied with: the square root of its weight, which is 1, the length + 1, and the
/// durations of both fixations in ms, as the style asks for. NaN for a negative weight.
double markFactor(const SaccadeMark &mark, double lengthPx, const SaccadeMarkStyle &style);
