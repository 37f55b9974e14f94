#pragma once

#include "visualization/TimeFrame.h"
#include "visualization/VisualizationParameters.h"

/// The kernel's size; stored values out of range count as 10.
struct NormalDistribution {
    int width; ///< 10 to 200 px
    int sigma; ///< 10 to 100; px for gaze points and saccades, a factor of the axes' lengths for fixations

    bool operator==(const NormalDistribution &) const = default;
};

NormalDistribution normalDistribution(const VisualizationParameters &parameters);

/// The opacity of the veil, 0 to 255.
int shadowAlpha(const VisualizationParameters &parameters);

/// The exponent with which the veil opens, 0.1 to 1.0.
double shadowPower(const VisualizationParameters &parameters);

/// Events of the frame times this are events per minute; 1 for a frame without duration.
double perMinuteFactor(TimeFrame frame);
