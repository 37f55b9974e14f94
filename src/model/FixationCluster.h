// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/TimeFrame.h"

/// A region to which the gaze came back: fixations of one stream, or of one pooled stream.
///
/// The samples are those of all its fixations, sorted by time; what a section computes from its samples it has, too.
/// The length of `majorAxis` is the radius of the cluster.
struct FixationCluster : ScanpathSection {
    FixationCluster() = default;
    /// Takes the fixations as they are and computes mean, variance and principal axes from their samples. A centre at
    /// (0,0) is taken as unknown: the mean is that of the samples. Without fixations nothing is computed, with a line
    /// on the debug channel.
    FixationCluster(QList<Fixation> fixations, QPoint center);
    bool operator==(const FixationCluster &) const = default;

    /// The fixations and their samples, sorted by time, and no statistics.
    static FixationCluster gathered(QList<Fixation> fixations);

    /// How many of its fixations the frame holds.
    qsizetype fixationsWithin(TimeFrame frame) const;

    QList<Fixation> fixations; ///< as they stood when the cluster was made
};

/// A cluster whose fixations come from several examinations; `ScanpathSection::examination` of each tells from which.
using CumulativeCluster = FixationCluster;
