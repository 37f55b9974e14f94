// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "comparison/MultiMatch.h"

#include <complex>
#include <map>
#include <numbers>
#include <set>

/// A second form of the comparison in five dimensions, written from its description alone: vectors are complex numbers,
/// the alignment is a shortest way through a graph.
namespace plain {

struct Path {
    std::vector<std::complex<double>> starts, vectors;
    std::vector<double> durations;
};

inline Path pathOf(const FixationPath &fixations)
{
    Path path;
    for (std::size_t i = 0; i < fixations.size(); ++i) {
        const std::complex<double> at(fixations[i].x, fixations[i].y);
        path.durations.push_back(fixations[i].durationMs);
        if (i > 0) {
            path.vectors.push_back(at - std::complex<double>(fixations[i - 1].x, fixations[i - 1].y));
            path.starts.emplace_back(fixations[i - 1].x, fixations[i - 1].y);
        }
    }
    return path;
}

enum class Joins { No, WithNext, LastWithBefore };

template <class Decide>
Path pass(const Path &path, const Decide &decide)
{
    Path out;
    std::size_t i = 0;
    while (i < path.vectors.size()) {
        const Joins joins = decide(i, out);
        if (joins == Joins::LastWithBefore) {
            out.vectors.back() = path.vectors[i - 1] + path.vectors[i];
            ++i;
            continue;
        }
        out.starts.push_back(path.starts[i]);
        out.durations.push_back(path.durations[i]);
        out.vectors.push_back(path.vectors[i]);
        if (joins == Joins::WithNext)
            out.vectors.back() += path.vectors[i + 1];
        i += joins == Joins::WithNext ? 2 : 1;
    }
    out.durations.push_back(path.durations.back());
    return out;
}

inline Path simplify(Path path, const MultiMatchThresholds &t)
{
    for (std::size_t before = path.vectors.size() + 1; path.vectors.size() < before;) {
        before = path.vectors.size();
        path = pass(path, [&](std::size_t i, const Path &) {
            if (i + 1 >= path.vectors.size() || path.durations[i + 1] >= t.durationMs)
                return Joins::No;
            const double turn = std::abs(std::arg(path.vectors[i + 1] / path.vectors[i])) * 180 / std::numbers::pi;
            return turn < t.directionDegrees ? Joins::WithNext : Joins::No;
        });
        path = pass(path, [&](std::size_t i, const Path &out) {
            const bool isBrief = path.durations[i] < t.durationMs || path.durations[i + 1] < t.durationMs;
            if (std::abs(path.vectors[i]) >= t.amplitudePx || !isBrief)
                return Joins::No;
            if (i + 1 < path.vectors.size())
                return Joins::WithNext;
            return out.vectors.empty() ? Joins::No : Joins::LastWithBefore;
        });
    }
    return path;
}

/// Dijkstra's algorithm over the pairs of saccades.
inline std::vector<std::pair<std::size_t, std::size_t>> align(const Path &a, const Path &b)
{
    using Node = std::pair<std::size_t, std::size_t>;
    std::map<Node, double> distance{{{0, 0}, 0}};
    std::map<Node, Node> from;
    std::set<std::pair<double, Node>> open{{0, {0, 0}}};
    while (!open.empty()) {
        const auto [reached, node] = *open.begin();
        open.erase(open.begin());
        for (const auto &[di, dj] : {Node(1, 1), Node(1, 0), Node(0, 1)}) {
            const Node next(node.first + di, node.second + dj);
            if (next.first >= a.vectors.size() || next.second >= b.vectors.size())
                continue;
            const double length = reached + std::abs(a.vectors[next.first] - b.vectors[next.second]);
            if (distance.contains(next) && distance[next] <= length)
                continue;
            if (distance.contains(next))
                open.erase({distance[next], next});
            distance[next] = length;
            from[next] = node;
            open.insert({length, next});
        }
    }
    std::vector<Node> way{{a.vectors.size() - 1, b.vectors.size() - 1}};
    while (way.back() != Node(0, 0))
        way.push_back(from[way.back()]);
    return way;
}

template <class Difference>
double similarity(const std::vector<std::pair<std::size_t, std::size_t>> &way, const Difference &difference)
{
    std::multiset<double> all;
    for (const auto &[i, j] : way)
        all.insert(difference(i, j));
    const auto upper = std::next(all.begin(), std::ptrdiff_t(all.size() / 2));
    const auto lower = std::next(all.begin(), std::ptrdiff_t((all.size() - 1) / 2));
    return 1 - (*lower + *upper) / 2;
}

inline MultiMatch multiMatch(const Path &a, const Path &b, QSizeF size)
{
    const double diagonal = std::abs(std::complex<double>(size.width(), size.height()));
    const auto way = align(a, b);
    using I = std::size_t;
    return {
        similarity(way, [&](I i, I j) { return std::abs(a.vectors[i] - b.vectors[j]) / (2 * diagonal); }),
        similarity(
            way,
            [&](I i, I j) { return std::abs(std::arg(a.vectors[i] * std::conj(b.vectors[j]))) / std::numbers::pi; }),
        similarity(way, [&](I i, I j) { return std::abs(std::abs(a.vectors[i]) - std::abs(b.vectors[j])) / diagonal; }),
        similarity(way, [&](I i, I j) { return std::abs(a.starts[i] - b.starts[j]) / diagonal; }),
        similarity(way, [&](I i, I j) {
            return std::abs(a.durations[i] - b.durations[j]) / std::max(a.durations[i], b.durations[j]);
        })};
}

} // namespace plain
