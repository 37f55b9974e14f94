// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "density/SaccadeMarks.h"
#include "PlainDensity.h"

#include <QPoint>

namespace plain {

inline double weightOf(const SaccadeMark &mark, double length, const SaccadeMarkStyle &style)
{
    double w = 1;
    if (style.lengthDependent)
        w = length + 1;
    if (style.durationDependent)
        w += mark.from.durationMs + mark.to.durationMs;
    return w;
}

/// One mark's byte mask: 1 where nothing was drawn yet.
struct TubeMask {
    TubeMask(double length, int width, QPoint start)
        : side(static_cast<int>(std::ceil(2 * length)) + 4 * width)
        , origin(start.x() - side / 2, start.y() - side / 2)
        , bytes(static_cast<std::size_t>(side * side), 1)
    {
    }
    char &at(int x, int y) { return bytes[static_cast<std::size_t>((x - origin.x()) * side + y - origin.y())]; }

    int side;
    QPoint origin;
    std::vector<char> bytes;
};

inline void drawTubeLines(Cells &cells, TubeMask &mask, const SaccadeMarkStyle &style, QPoint start, QPointF u,
                          double length, double weight)
{
    const int w = style.kernel.width;
    const double s = style.kernel.sigma;
    for (int t = -w; t <= std::ceil(length) + w; ++t) {
        const double px = std::floor(t * u.x() + start.x() + 0.5);
        const double py = std::floor(t * u.y() + start.y() + 0.5);
        const double beyond = t < 0 ? t : std::max(0.0, t - std::ceil(length));
        const int limit = static_cast<int>(std::ceil(std::sqrt(w * w - beyond * beyond)));
        for (int v = -limit; v <= limit; ++v) {
            const auto x = static_cast<int>(std::floor(v * -u.y() + px + 0.5));
            const auto y = static_cast<int>(std::floor(v * u.x() + py + 0.5));
            if (!Cells::contains(x, y) || mask.at(x, y) == 0)
                continue;
            const int i = std::abs(v) + w - limit;
            cells.at(x, y) += std::sqrt(weight) * (std::exp(-0.5 * (i / s) * (i / s)) / (s * 2.5));
            mask.at(x, y) = 0;
        }
    }
}

inline void fillTubeHoles(Cells &cells, TubeMask &mask)
{
    for (int x = mask.origin.x() + 1; x < mask.origin.x() + mask.side - 1; ++x) {
        for (int y = mask.origin.y() + 1; y < mask.origin.y() + mask.side - 1; ++y) {
            if (mask.at(x, y) == 0 || !Cells::contains(x, y))
                continue;
            int drawn = 0;
            double sum = 0;
            for (const QPoint &neighbor : {QPoint(x - 1, y), QPoint(x + 1, y), QPoint(x, y - 1), QPoint(x, y + 1)}) {
                if (mask.at(neighbor.x(), neighbor.y()) == 0) {
                    ++drawn;
                    sum += cells.at(neighbor.x(), neighbor.y());
                }
            }
            if (drawn > 2)
                cells.at(x, y) = 0.25 * sum;
        }
    }
}

inline void addTube(Cells &cells, const SaccadeMark &mark, const SaccadeMarkStyle &style)
{
    const QPointF p(mark.from.x, mark.from.y);
    const QPointF q(mark.to.x, mark.to.y);
    const QPointF way = p - q;
    if (!(std::hypot(way.x(), way.y()) > style.lengthThresholdPx))
        return;
    const QPoint start(static_cast<int>(q.x() + 0.1 * way.x()), static_cast<int>(q.y() + 0.1 * way.y()));
    const QPointF toEnd(p.x() - 0.1 * way.x() - start.x(), p.y() - 0.1 * way.y() - start.y());
    const double length = std::sqrt(toEnd.x() * toEnd.x() + toEnd.y() * toEnd.y());
    if (length == 0)
        return;
    TubeMask mask(length, style.kernel.width, start);
    drawTubeLines(cells, mask, style, start, {toEnd.x() / length, toEnd.y() / length}, length,
                  weightOf(mark, length, style));
    fillTubeHoles(cells, mask);
}

/// @tparam Real  the type of the calculation.
template <class Real>
void addGaussian(Cells &cells, const SaccadeMark &mark, const SaccadeMarkStyle &style)
{
    const int dx = mark.to.x - mark.from.x;
    const int dy = mark.to.y - mark.from.y;
    const auto cx = mark.from.x + static_cast<int>(std::floor(dx * 0.5 + 0.5));
    const auto cy = mark.from.y + static_cast<int>(std::floor(dy * 0.5 + 0.5));
    const Real l = std::max(Real(1.0), std::sqrt(static_cast<Real>(dx) * dx + static_cast<Real>(dy) * dy));
    const auto reach = std::max(1, static_cast<int>(std::ceil(l)));
    const double w = weightOf(mark, static_cast<double>(l), style);
    const Real a = std::max(Real(1.0), std::sqrt(l));
    const Real b = std::max(Real(1.0), (std::log(l) / std::log(Real(2.71828182846)) + 1) * a);
    const Real r = std::atan2(Real(0.0), Real(1.0)) - std::atan2(dy / l, dx / l);
    const Real cosine = std::cos(r);
    const Real sine = std::sin(r);
    for (int i = -reach; i < reach; ++i) {
        for (int j = -reach; j < reach; ++j) {
            if (!Cells::contains(cx + i, cy + j))
                continue;
            const Real along = i * cosine - j * sine;
            const Real across = j * cosine + i * sine;
            const auto value = static_cast<double>(
                std::sqrt(w) * std::exp(-Real(0.5) * (along * along / (b * b) + across * across / (a * a))));
            cells.at(cx + i, cy + j) += std::clamp(value, 0.0, 1.0);
        }
    }
}

} // namespace plain
