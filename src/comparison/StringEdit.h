// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "comparison/ScanpathWord.h"

/// Scores of pairs of letters, for letters from 0 to `letters` - 1.
struct LetterScores {
    double of(int first, int second) const
    {
        return values[static_cast<std::size_t>(first) * static_cast<std::size_t>(letters) +
                      static_cast<std::size_t>(second)];
    }

    int letters = 0;
    std::vector<double> values; ///< row by row
};

/// `equal` for equal letters, `other` for all other pairs.
LetterScores equalityScores(int letters, double equal, double other);

/// 1 - distance / length of the longer word, from 0 to 1, where inserting, deleting and replacing a letter cost 1 each;
/// undefined for an empty word. Source: Levenshtein (1966), Soviet Physics Doklady 10(8); for scanpaths Brandt & Stark
/// (1997), Journal of Cognitive Neuroscience 9(1).
double levenshteinSimilarity(const ScanpathWord &first, const ScanpathWord &second);

/// The highest sum of scores that an alignment of the whole words has; each letter without a partner adds `gap`.
/// Source: Needleman & Wunsch (1970), Journal of Molecular Biology 48(3).
double alignmentScore(const ScanpathWord &first, const ScanpathWord &second, const LetterScores &scores, double gap);

/// The same, divided by the number of letters of the longer word; undefined for an empty word.
double alignmentSimilarity(const ScanpathWord &first, const ScanpathWord &second, const LetterScores &scores,
                           double gap);
