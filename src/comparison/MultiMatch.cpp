// SPDX-License-Identifier: GPL-3.0-or-later
#include "comparison/MultiMatch.h"

#include "base/Averages.h"
#include "comparison/Alignment.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

/// The saccades of a pass as they come out.
struct Pass {
    void keep(const SaccadePath &path, std::size_t i)
    {
        result.saccades.push_back(path.saccades[i]);
        result.durationsMs.push_back(path.durationsMs[i]);
    }

    void join(const SaccadePath &path, std::size_t i)
    {
        keep(path, i);
        result.saccades.back().dx += path.saccades[i + 1].dx;
        result.saccades.back().dy += path.saccades[i + 1].dy;
    }

    SaccadePath result;
};

double angleDegrees(const SaccadeVector2D &a, const SaccadeVector2D &b)
{
    const double cosine = (a.dx * b.dx + a.dy * b.dy) / (a.length() * b.length());
    return std::acos(std::clamp(cosine, -1.0, 1.0)) * 180 / std::numbers::pi;
}

SaccadePath joinedByDirection(const SaccadePath &path, const MultiMatchThresholds &thresholds)
{
    Pass pass;
    for (std::size_t i = 0; i < path.saccades.size(); ++i) {
        const bool joins = i + 1 < path.saccades.size() &&
                           angleDegrees(path.saccades[i], path.saccades[i + 1]) < thresholds.directionDegrees &&
                           path.durationsMs[i + 1] < thresholds.durationMs;
        if (joins)
            pass.join(path, i++);
        else
            pass.keep(path, i);
    }
    pass.result.durationsMs.push_back(path.durationsMs.back());
    return pass.result;
}

SaccadePath joinedByLength(const SaccadePath &path, const MultiMatchThresholds &thresholds)
{
    Pass pass;
    const std::size_t last = path.saccades.size() - 1;
    for (std::size_t i = 0; i <= last; ++i) {
        const bool isShort = path.saccades[i].length() < thresholds.amplitudePx &&
                             std::min(path.durationsMs[i], path.durationsMs[i + 1]) < thresholds.durationMs;
        if (!isShort || (pass.result.saccades.empty() && i == last)) {
            pass.keep(path, i);
        } else if (i < last) {
            pass.join(path, i++);
        } else {
            SaccadeVector2D &before = pass.result.saccades.back();
            before.dx = path.saccades[i - 1].dx + path.saccades[i].dx;
            before.dy = path.saccades[i - 1].dy + path.saccades[i].dy;
        }
    }
    pass.result.durationsMs.push_back(path.durationsMs.back());
    return pass.result;
}

double directionDifference(const SaccadeVector2D &a, const SaccadeVector2D &b)
{
    const double difference = std::abs(a.direction() - b.direction());
    return std::min(difference, 2 * std::numbers::pi - difference);
}

double durationDifference(double a, double b)
{
    const double longer = std::max(a, b);
    return longer > 0 ? std::abs(a - b) / longer : 0;
}

} // namespace

double SaccadeVector2D::length() const
{
    return lengthOf(dx, dy);
}

double SaccadeVector2D::direction() const
{
    return std::atan2(dy, dx);
}

SaccadePath saccadePath(const FixationPath &path)
{
    SaccadePath result;
    for (std::size_t i = 0; i < path.size(); ++i) {
        result.durationsMs.push_back(path[i].durationMs);
        if (i + 1 < path.size())
            result.saccades.push_back({path[i].x, path[i].y, path[i + 1].x - path[i].x, path[i + 1].y - path[i].y});
    }
    return result;
}

SaccadePath simplified(SaccadePath path, const MultiMatchThresholds &thresholds)
{
    if (path.saccades.empty())
        return path;
    std::size_t before = 0;
    do {
        before = path.saccades.size();
        path = joinedByLength(joinedByDirection(path, thresholds), thresholds);
    } while (path.saccades.size() < before);
    return path;
}

MultiMatch multiMatch(const SaccadePath &first, const SaccadePath &second, QSizeF pictureSizePx)
{
    if (first.saccades.empty() || second.saccades.empty())
        return {};
    const auto &a = first.saccades;
    const auto &b = second.saccades;
    const std::vector<std::pair<std::size_t, std::size_t>> pairs =
        bestAlignment(a.size(), b.size(), [&](std::size_t i, std::size_t j) {
            return lengthOf(a[i].dx - b[j].dx, a[i].dy - b[j].dy);
        }).pairs;
    const auto medianOver = [&](const auto &difference) {
        std::vector<double> values;
        values.reserve(pairs.size());
        for (const auto &[i, j] : pairs)
            values.push_back(difference(i, j));
        return *medianOf(values);
    };
    const double diagonal = lengthOf(pictureSizePx.width(), pictureSizePx.height());
    using I = std::size_t;
    return {.vector = 1 - medianOver([&](I i, I j) { return lengthOf(a[i].dx - b[j].dx, a[i].dy - b[j].dy); }) /
                              (2 * diagonal),
            .direction = 1 - medianOver([&](I i, I j) { return directionDifference(a[i], b[j]); }) / std::numbers::pi,
            .length = 1 - medianOver([&](I i, I j) { return std::abs(a[i].length() - b[j].length()); }) / diagonal,
            .position = 1 - medianOver([&](I i, I j) { return lengthOf(a[i].x - b[j].x, a[i].y - b[j].y); }) / diagonal,
            .duration = 1 - medianOver([&](I i, I j) {
                            return durationDifference(first.durationsMs[i], second.durationsMs[j]);
                        })};
}
