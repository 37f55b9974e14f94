// SPDX-License-Identifier: GPL-3.0-or-later
#include "comparison/StringEdit.h"

#include <algorithm>
#include <numeric>

namespace {

double longerOf(const ScanpathWord &first, const ScanpathWord &second)
{
    return static_cast<double>(std::max(first.size(), second.size()));
}

/// Each score is at least that of its left neighbour and a gap. Without a penalty the chain of dependent steps is half
/// as long.
void letGapsThrough(std::vector<double> &row, double gap)
{
    double best = row.front();
    if (gap == 0) {
        for (double &score : row)
            score = best = std::max(score, best);
        return;
    }
    for (std::size_t j = 1; j < row.size(); ++j)
        row[j] = best = std::max(row[j], best + gap);
}

} // namespace

LetterScores equalityScores(int letters, double equal, double other)
{
    const auto count = static_cast<std::size_t>(letters);
    LetterScores scores{letters, std::vector<double>(count * count, other)};
    for (std::size_t i = 0; i < count; ++i)
        scores.values[i * count + i] = equal;
    return scores;
}

double levenshteinSimilarity(const ScanpathWord &first, const ScanpathWord &second)
{
    if (first.empty() || second.empty())
        return undefined;
    std::vector<int> row(second.size() + 1);
    std::iota(row.begin(), row.end(), 0);
    for (const int letter : first) {
        int diagonal = row[0]++;
        for (std::size_t j = 0; j < second.size(); ++j) {
            const int replaced = diagonal + (second[j] == letter ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({replaced, diagonal + 1, row[j] + 1});
        }
    }
    return 1 - row.back() / longerOf(first, second);
}

double alignmentScore(const ScanpathWord &first, const ScanpathWord &second, const LetterScores &scores, double gap)
{
    std::vector<double> before(second.size() + 1);
    std::vector<double> row(second.size() + 1);
    std::vector<double> scoresOfLetter(second.size());
    for (std::size_t j = 0; j < before.size(); ++j)
        before[j] = gap * static_cast<double>(j);
    for (std::size_t i = 0; i < first.size(); ++i) {
        if (i == 0 || first[i] != first[i - 1]) {
            for (std::size_t j = 0; j < second.size(); ++j)
                scoresOfLetter[j] = scores.of(first[i], second[j]);
        }
        // What needs the row before alone comes first: this loop has no chain of dependent steps.
        for (std::size_t j = 0; j < second.size(); ++j)
            row[j + 1] = std::max(before[j] + scoresOfLetter[j], before[j + 1] + gap);
        row[0] = gap * static_cast<double>(i + 1);
        letGapsThrough(row, gap);
        row.swap(before);
    }
    return before.back();
}

double alignmentSimilarity(const ScanpathWord &first, const ScanpathWord &second, const LetterScores &scores,
                           double gap)
{
    if (first.empty() || second.empty())
        return undefined;
    return alignmentScore(first, second, scores, gap) / longerOf(first, second);
}
