// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// What densities count, as whole canvas pixels. A position may lie outside the canvas; one that is no number is 0, and
/// one beyond the range of int is the nearest int.
struct GazePointEvent {
    int x;
    int y;

    bool operator==(const GazePointEvent &) const = default;
};

/// A fixation or a fixation cluster.
struct FixationEvent {
    int x; ///< mean
    int y;
    int firstX; ///< first axis, px
    int firstY;
    int secondX; ///< second axis, px
    int secondY;
    int durationMs; ///< from the first sample to the last

    bool operator==(const FixationEvent &) const = default;
};

/// A fixation as the end of a saccade: each pair of neighbours in a walk is one mark.
struct SaccadeEvent {
    int x; ///< mean
    int y;
    int durationMs;
    bool startsWalk; ///< the first one of its recording and eye: no saccade leads to it

    bool operator==(const SaccadeEvent &) const = default;
};

/// The size of a kernel.
struct NormalDistribution {
    int width; ///< 10 to 200 px
    int sigma; ///< 10 to 100; px for gaze points and saccades, a factor of the axes' lengths for fixations

    bool operator==(const NormalDistribution &) const = default;
};
