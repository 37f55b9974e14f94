// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "density/FixationDensity.h"
#include "PlainDensity.h"

#include <numbers>

namespace plain {

inline constexpr int kernelSide = 600;
inline constexpr int kernelMiddle = 300;

/// The definition, with every step's exponential and the whole scratch raster, row by row.
inline std::vector<double> fixationKernel(const FixationEvent &event, const NormalDistribution &kernel)
{
    std::vector<double> scratch(kernelSide * kernelSide);
    const auto at = [&](int row, int column) -> double & {
        return scratch[static_cast<std::size_t>(row * kernelSide + column)];
    };
    const double l1 = std::sqrt(1.0 * event.firstX * event.firstX + 1.0 * event.firstY * event.firstY);
    const double l2 = std::sqrt(1.0 * event.secondX * event.secondX + 1.0 * event.secondY * event.secondY);
    const double s1 = kernel.sigma * l1;
    const double s2 = kernel.sigma * l2;
    double a = std::acos(event.firstX / l1);
    if (event.firstY < 0)
        a = 2 * std::numbers::pi - a;
    const double cosA = std::cos(a);
    const double sinA = std::sin(a);
    const double norm = 2 * std::numbers::pi * s1 * s2;
    const int w = kernel.width;
    const double floor = std::exp(-0.5 * (w + 1.0) * (w + 1.0) / s1) / norm * event.durationMs;
    for (int i = -w; i < w; ++i) {
        for (int j = -w; j < w; ++j) {
            const double v = std::exp(-0.5 * (j * j / s2 + i * i / s1)) / norm * event.durationMs;
            const int row = static_cast<int>(i * cosA - j * sinA) + kernelMiddle;
            const int column = static_cast<int>(j * cosA + i * sinA) + kernelMiddle;
            if (v >= floor && at(row, column) == 0)
                at(row, column) = v;
        }
    }
    double sum = 0;
    for (int row = 1; row < kernelSide - 1; ++row) {
        for (int column = 1; column < kernelSide - 1; ++column) {
            const double up = at(row - 1, column);
            const double down = at(row + 1, column);
            const double left = at(row, column - 1);
            const double right = at(row, column + 1);
            if (at(row, column) == 0 && (up >= floor || down >= floor || left >= floor || right >= floor))
                at(row, column) = (up + down + left + right) * 0.25;
            sum += at(row, column);
        }
    }
    for (double &cell : scratch)
        cell /= sum;
    return scratch;
}

inline Cells fixationCells(const std::vector<FixationEvent> &events, const NormalDistribution &kernel,
                           FixationMass mass)
{
    Cells cells;
    for (const FixationEvent &event : events) {
        const std::vector<double> scratch = fixationKernel(event, kernel);
        const double factor = mass == FixationMass::Duration ? event.durationMs : 1;
        for (int dx = -kernelMiddle; dx < kernelMiddle; ++dx) {
            for (int dy = -kernelMiddle; dy < kernelMiddle; ++dy) {
                const double value =
                    scratch[static_cast<std::size_t>((dx + kernelMiddle) * kernelSide + dy + kernelMiddle)];
                if (Cells::contains(event.x + dx, event.y + dy) && value > 0)
                    cells.at(event.x + dx, event.y + dy) += factor * value;
            }
        }
    }
    return cells;
}

} // namespace plain
