// SPDX-License-Identifier: GPL-3.0-or-later
#include "comparison/ScanMatch.h"

LetterScores scanMatchScores(const PictureGrid &grid, double threshold)
{
    LetterScores scores{grid.cells(), {}};
    for (int i = 0; i < grid.cells(); ++i) {
        for (int j = 0; j < grid.cells(); ++j)
            scores.values.push_back(threshold - grid.distance(i, j));
    }
    return scores;
}

double scanMatch(const ScanpathWord &first, const ScanpathWord &second, const LetterScores &scores, double threshold,
                 double gap)
{
    return alignmentSimilarity(first, second, scores, gap) / threshold;
}
