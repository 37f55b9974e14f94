// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "comparison/CrossRecurrence.h"
#include "comparison/MultiMatch.h"
#include "comparison/ScanMatch.h"

#include <QLatin1StringView>
#include <QList>

#include <span>

/// What all measures of similarity rest on.
struct SimilarityParameters {
    double gridColumns = 5; ///< of the words over a grid
    double gridRows = 5;
    double scanMatchColumns = 12;
    double scanMatchRows = 8;
    double scanMatchBinMs = 50;
    double scanMatchThreshold = 3.5; ///< cells
    double scanMatchGap = 0;
    double directionDegrees = 45; ///< of the simplification
    double durationMs = 300;
    double amplitudePercent = 10; ///< of the diagonal of the picture
    double recurrenceRadiusPx = 64;
    double recurrenceLine = 2;

    bool operator==(const SimilarityParameters &) const = default;
};

/// One of them: how people call it, and which values it may have.
struct SimilarityParameter {
    double SimilarityParameters::*member;
    QLatin1StringView name;    ///< on the command line
    QLatin1StringView caption; ///< in the window
    QLatin1StringView unit;
    double least;
    double most;
    int decimals; ///< 0: a whole number
};

std::span<const SimilarityParameter> similarityParameters();

/// A scanpath made ready for all comparisons on one picture.
struct PreparedScanpath {
    FixationPath path;
    ScanpathWord areas; ///< letters are places in the list of areas; fixations in none are passed over
    ScanpathWord grid;
    ScanpathWord timedGrid;
    SaccadePath saccades; ///< simplified; none of fewer than three fixations
};

/// Everything that the scanpaths on one picture share.
class SimilarityMeasures {
public:
    /// @param areas  number of areas of interest.
    SimilarityMeasures(const SimilarityParameters &parameters, QSizeF pictureSizePx, int areas);

    PreparedScanpath prepared(FixationPath path, ScanpathWord areas) const;

    /// A value for each of `similarityMeasures`, in their order.
    std::vector<double> compare(const PreparedScanpath &first, const PreparedScanpath &second) const;

private:
    SimilarityParameters m_parameters;
    QSizeF m_pictureSizePx;
    PictureGrid m_grid;
    PictureGrid m_scanMatchGrid;
    LetterScores m_areaScores;
    LetterScores m_gridScores;
    LetterScores m_scanMatchScores;
};

/// One column of the results.
struct SimilarityMeasure {
    /// Whether a larger value means more alike.
    enum class Kind { Similarity, Distance, Neither };

    QLatin1StringView name;
    QLatin1StringView caption;
    Kind kind;
    double least; ///< of the scale of colours
    double most;  ///< the same; infinite where the largest value found is the end of the scale
};

std::span<const SimilarityMeasure> similarityMeasures();
