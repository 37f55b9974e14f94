// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "comparison/SimilarityMeasures.h"
#include "model/DataModel.h"

#include <optional>
#include <stop_token>

/// Whose scanpath was compared.
struct ComparedRecording {
    QString recording;
    QString subject; ///< the recording's name where the subject has no id
    QString group;   ///< empty: none
};

/// Two of them, by place, and what `similarityMeasures` say of them.
struct ScanpathPair {
    qsizetype first;
    qsizetype second; ///< above `first`
    std::vector<double> values;
};

/// All pairs of recordings on one picture, through one eye.
struct SimilaritySet {
    /// The value of a measure for two different recordings, in either order of which the first stands first.
    double value(qsizetype first, qsizetype second, std::size_t measure) const;

    QString picture; ///< file name; empty where there is none
    Eye eye = Eye::Left;
    QList<ComparedRecording> recordings = {};
    std::vector<ScanpathPair> pairs = {}; ///< (0, 1), (0, 2), ..., (1, 2), ...
};

/// What is compared, and how.
struct SimilarityTask {
    EyeMode eyes = EyeMode::showAll;
    SimilarityParameters parameters = {};
    QString groupBy = QStringLiteral("group"); ///< property of the examinations that names their groups
    int threads = 1;
};

/// Compares the checked recordings of each picture, pair by pair, through each eye: of fixations that lie wholly in the
/// time frame, with their centroids in whole pixels and their durations. Areas of interest are those of the model, the
/// first one that has a fixation. With progress.
///
/// @return a set for each picture, in the order in which they appear, and eye, of at least two recordings; nothing
/// where
///         the work was stopped. The same numbers with any number of threads.
std::optional<std::vector<SimilaritySet>> compareScanpaths(const DataModel &model, const SimilarityTask &task,
                                                           const std::stop_token &stop);
