// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/GazeSamples.h"

#include <QPoint>
#include <QVector2D>

#include <span>

class Log;

/// First and second principal axis of a set of samples, each as long as the standard deviation along it, in pixels.
struct PrincipalAxes {
    QVector2D major{1, 0};
    QVector2D minor;
};

/// Principal axes of the positions of n samples, valid or not; with n < 4 they stay (1,0) and (0,0).
/// Their directions are those of our own solver, the same on every machine; see `SymmetricMatrix.h`.
/// Rounding or samples on one line can make an eigenvalue negative: it counts as 0. Where a coordinate is not a number
/// below 1e140, so that its square could leave the range of doubles, both axes are (0,0).
PrincipalAxes principalAxes(std::span<const GazePoint> samples);

/// Mean position of the samples, valid or not, each axis cut to whole pixels; (0,0) without samples.
QPoint meanOf(std::span<const GazePoint> samples);

/// Mean of the squared distances from `center` along each axis, in px^2, cut to whole numbers; (0,0) without samples.
QPoint varianceAbout(QPoint center, std::span<const GazePoint> samples);

/// A stretch of consecutive samples of one eye: what fixations, saccades and invalid sections have in common.
///
/// The samples keep their raw coordinates, also those that were interpolated for the detection.
struct ScanpathSection {
    /// Time of the last sample minus that of the first, in ms; 0 without samples.
    int duration() const;

    /// Time of the first or last sample in ms; -1 without samples.
    qint64 firstTime() const { return samples.isEmpty() ? -1 : samples.first().time; }
    qint64 lastTime() const { return samples.isEmpty() ? -1 : samples.last().time; }

    /// Appends samples and sorts all by time, stable; a section that was sorted before pays only for the new ones. The
    /// statistics stay those of the construction.
    void extend(const GazeSamples &further);

    bool operator==(const ScanpathSection &) const = default;

    GazeSamples samples;
    QPoint mean;             ///< centroid, whole pixels
    QPoint median;           ///< middle sample in time, not a sorted median; fixations only
    QPoint variance;         ///< px^2 about `mean`, truncated; fixations only
    QVector2D majorAxis;     ///< px; fixations and clusters only
    QVector2D minorAxis;     ///< px; fixations and clusters only
    int cluster = 0;         ///< number of the fixation cluster; 0 is none
    int number = 0;          ///< running number given by the detector; of a cluster, by its calculation
    QString type;            ///< "fixation", "saccade" or "invalid"
    bool timeSorted = false; ///< the samples were sorted by time
    int examination = -1;    ///< of a pooled copy: place of its source in the list of all examinations
};

/// A stretch in which the eye rests.
struct Fixation : ScanpathSection {
    Fixation() = default;
    /// Computes median, variance and principal axes from the samples. A centroid at (0,0) is taken as unknown and
    /// recomputed from them. Without samples all statistics stay at their defaults, with a line on the debug channel.
    Fixation(GazeSamples samples, const QString &type, QPoint centroid, int number);
    bool operator==(const Fixation &) const = default;

    /// Computes the variance about `mean` anew, for samples that were added after the construction.
    void updateVariance();
};

/// A stretch in which the eye moves; its samples are sorted by time.
struct Saccade : ScanpathSection {
    Saccade() = default;
    Saccade(GazeSamples samples, const QString &type, int number, const Log *log);
    bool operator==(const Saccade &) const = default;
};

/// A stretch in which the recording cannot be trusted.
struct Invalid : ScanpathSection {
    Invalid() = default;
    Invalid(GazeSamples samples, const QString &type, int number, const Log *log);
    bool operator==(const Invalid &) const = default;
};
