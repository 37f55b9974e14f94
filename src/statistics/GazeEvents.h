// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/EyeData.h"
#include "model/TimeFrame.h"
#include "statistics/AoiIndex.h"

#include <optional>
#include <span>

/// How fast the gaze moved over a stretch of samples, from valid sample to valid sample. Two samples of which one is
/// not valid, or whose time does not grow, count for nothing; nothing where no pair counts.
struct GazeSpeed {
    bool operator==(const GazeSpeed &) const = default;

    std::optional<double> meanPxPerS; ///< sum of the distances over the sum of their times
    std::optional<double> peakPxPerS; ///< of the fastest pair
    /// The same by angles, arctan(distance * size of a pixel / distance of the eye) for each pair; nothing where the
    /// geometry is not known.
    std::optional<double> meanDegreesPerS;
    std::optional<double> peakDegreesPerS;
};

/// @param samples           in file order.
/// @param pixelPerDistance  size of a pixel as part of the distance from eye to picture; nothing: not known.
GazeSpeed gazeSpeed(std::span<const GazePoint> samples, std::optional<double> pixelPerDistance);

/// Angle at which a distance in the picture is seen, in degrees: arctan(distance * size of a pixel / distance of the
/// eye).
double visualAngleDegree(double distancePx, double pixelPerDistance);

/// Summed extent of the positions: (largest x - smallest x) + (largest y - smallest y) of the valid samples, in px;
/// nothing without a valid sample. Source: the dispersion of the I-DT detector in Salvucci & Goldberg (2000), ETRA.
std::optional<double> dispersionPx(std::span<const GazePoint> samples);

/// The way of the gaze from a fixation to the next one, whatever the detector found between them.
struct GazeStep {
    qint64 onsetMs() const { return from->lastTime(); }
    qint64 durationMs() const { return elapsedMs(from->lastTime(), to->firstTime()); }
    double amplitudePx() const; ///< distance of the centroids
    /// Counter-clockwise on the screen, 0 to the right, 90 upwards, below 360; nothing where both lie on one pixel.
    std::optional<double> directionDegree() const;

    const Fixation *from; ///< of the stream
    const Fixation *to;
    /// From the last sample of the one to the first of the other, both included; of the stream.
    std::span<const GazePoint> samples;
};

/// Those between the fixations that the frame holds whole, in their order. Linear in samples.
QList<GazeStep> gazeSteps(const EyeData &stream, TimeFrame frame);

/// An unbroken run of samples that are not valid.
struct GazeLoss {
    bool operator==(const GazeLoss &) const = default;

    qint64 onsetMs = 0;    ///< of the first sample of the run
    qint64 durationMs = 0; ///< to the next valid sample, or to the last of the run where none follows in the frame
    qsizetype samples = 0;
    bool isOpen = false; ///< no valid sample follows in the frame
};

/// Those of the frame; samples outside do not take part.
QList<GazeLoss> gazeLosses(const QList<GazePoint> &samples, TimeFrame frame);

/// A run of fixations in one area of interest, which any fixation elsewhere ends.
struct AoiVisit {
    bool operator==(const AoiVisit &) const = default;

    qint64 onsetMs = 0;    ///< first sample of its first fixation
    qint64 durationMs = 0; ///< to the last sample of its last one, saccades within included
    qint64 dwellMs = 0;    ///< sum of the durations of its fixations
    int fixations = 0;
};

/// The visits of an area by the fixations that the frame holds whole, in the order of time. Their number is that of
/// `AoiVisits`.
QList<AoiVisit> visitsOfArea(const AoiIndex::Area &area, const QList<Fixation> &fixations, TimeFrame frame);
