// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/TimeFrame.h"

#include <QPolygonF>

#include <cmath>
#include <vector>

/// The calculations of charts as one would write them down first: element by element, no shared helpers.
namespace plain {

struct Event {
    double startMs;
    double durationMs;
    double weight = 1;
};

inline std::vector<double> bins(const std::vector<Event> &events, TimeFrame frame, int windowMs)
{
    std::vector<double> values(2000, 0.0);
    double msPerBin = (double(frame.endMs) - double(frame.startMs)) / 2000.0;
    if (!(msPerBin > 0))
        msPerBin = 1.0;
    if (windowMs < 1)
        windowMs = 10;
    double half = std::trunc(windowMs / msPerBin + 0.5) - 2;
    if (half < 0)
        half = 0;
    for (const Event &event : events) {
        const double start = event.startMs - double(frame.startMs);
        double first = std::floor(start / msPerBin + 0.5) - half;
        double last = std::floor((start + event.durationMs) / msPerBin + 0.5) + half;
        if (first < 0)
            first = 0;
        if (last > 1999)
            last = 1999;
        if (last < first)
            last = first + half;
        for (int bin = 0; bin < 2000; ++bin) {
            if (bin >= first && bin <= last)
                values[std::size_t(bin)] += event.weight;
        }
    }
    return values;
}

/// Solves a full system of equations by elimination.
inline std::vector<double> solved(std::vector<std::vector<double>> rows, std::vector<double> right)
{
    const std::size_t n = right.size();
    for (std::size_t pivot = 0; pivot < n; ++pivot) {
        for (std::size_t row = pivot + 1; row < n; ++row) {
            const double factor = rows[row][pivot] / rows[pivot][pivot];
            for (std::size_t column = pivot; column < n; ++column)
                rows[row][column] -= factor * rows[pivot][column];
            right[row] -= factor * right[pivot];
        }
    }
    for (std::size_t row = n; row-- > 0;) {
        for (std::size_t column = row + 1; column < n; ++column)
            right[row] -= rows[row][column] * right[column];
        right[row] /= rows[row][row];
    }
    return right;
}

/// Value of the natural cubic spline through the points at x.
inline double spline(const QPolygonF &points, double x)
{
    const std::size_t n = std::size_t(points.size());
    const auto px = [&](std::size_t i) { return points[qsizetype(i)].x(); };
    const auto py = [&](std::size_t i) { return points[qsizetype(i)].y(); };
    std::vector<std::vector<double>> rows(n, std::vector<double>(n, 0.0));
    std::vector<double> right(n, 0.0);
    rows[0][0] = rows[n - 1][n - 1] = 1; // no bend at the ends
    for (std::size_t i = 1; i + 1 < n; ++i) {
        const double before = px(i) - px(i - 1);
        const double behind = px(i + 1) - px(i);
        rows[i][i - 1] = before / 6;
        rows[i][i] = (before + behind) / 3;
        rows[i][i + 1] = behind / 6;
        right[i] = (py(i + 1) - py(i)) / behind - (py(i) - py(i - 1)) / before;
    }
    const std::vector<double> second = solved(rows, right);
    std::size_t piece = 0;
    while (piece + 2 < n && x > px(piece + 1))
        ++piece;
    const double h = px(piece + 1) - px(piece);
    const double left = px(piece + 1) - x;
    const double rest = x - px(piece);
    return second[piece] * left * left * left / (6 * h) + second[piece + 1] * rest * rest * rest / (6 * h) +
           (py(piece) / h - second[piece] * h / 6) * left + (py(piece + 1) / h - second[piece + 1] * h / 6) * rest;
}

} // namespace plain
