// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "aoi/generation/Grid.h"

#include <QString>

#include <cmath>
#include <functional>
#include <random>
#include <vector>

/// Densities on which the searches of regions have to agree with their plain forms.
namespace maps {

struct Map {
    QString name;
    Grid<double> density;
};

inline Grid<double> grid(int width, int height, const std::function<double(int, int)> &valueAt)
{
    Grid<double> made(width, height);
    for (int x = 0; x < width; ++x) {
        for (int y = 0; y < height; ++y)
            made.at(x, y) = valueAt(x, y);
    }
    return made;
}

inline double hill(int x, int y, double centerX, double centerY, double sigma)
{
    return std::exp(-(std::pow(x - centerX, 2) + std::pow(y - centerY, 2)) / (2 * sigma * sigma));
}

/// Hills at random places, of random height and width.
inline Grid<double> hills(int width, int height, int count, unsigned seed)
{
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> share(0, 1);
    Grid<double> sum(width, height);
    for (int n = 0; n < count; ++n) {
        const double x = share(random) * width;
        const double y = share(random) * height;
        const double sigma = 2 + 12 * share(random);
        const double top = 0.2 + share(random);
        const Grid<double> one = grid(width, height, [&](int i, int j) { return top * hill(i, j, x, y, sigma); });
        for (std::ptrdiff_t i = 0; i < sum.size(); ++i)
            sum.data()[i] += one.data()[i];
    }
    return sum;
}

/// The map in a few steps, so that there are plateaus and ties.
inline Grid<double> terraces(Grid<double> map, double steps)
{
    for (std::ptrdiff_t i = 0; i < map.size(); ++i)
        map.data()[i] = std::floor(map.data()[i] * steps) / steps;
    return map;
}

/// Ridges as a chessboard of dense and empty stripes, with ways of many cells along them.
inline double maze(int x, int y)
{
    const bool isWall = x % 12 < 6 || (y % 24 < 6 && x / 12 % 2 == 0) || (y % 24 > 17 && x / 12 % 2 == 1);
    return isWall ? 1 + x * 0.01 + y * 0.003 : 0;
}

inline std::vector<Map> all()
{
    const auto named = [](const char *name, Grid<double> density) {
        return Map{QString::fromLatin1(name), std::move(density)};
    };
    std::mt19937 random(5);
    std::uniform_real_distribution<double> share(0, 1);
    std::vector<Map> made;
    made.push_back(named("nothing", Grid<double>(120, 90)));
    made.push_back(named("the same everywhere", Grid<double>(120, 90, 0.5)));
    made.push_back(named("one hill", grid(120, 90, [](int x, int y) { return hill(x, y, 60, 45, 9); })));
    made.push_back(named("two equal hills",
                         grid(120, 90, [](int x, int y) { return hill(x, y, 40, 45, 6) + hill(x, y, 80, 45, 6); })));
    made.push_back(named("hills on all edges", grid(120, 90, [](int x, int y) {
                             return hill(x, y, 0, 45, 8) + hill(x, y, 119, 40, 8) + hill(x, y, 60, 0, 8) +
                                    hill(x, y, 50, 89, 8) + hill(x, y, 0, 0, 8) + hill(x, y, 119, 89, 8);
                         })));
    made.push_back(named("a ridge", grid(120, 90, [](int x, int y) { return 1 / (1.0 + std::abs(x - y)); })));
    made.push_back(named("a level plateau",
                         grid(120, 90, [](int x, int y) { return x > 30 && x < 80 && y > 20 && y < 60 ? 1.0 : 0.0; })));
    made.push_back(named("plateaus that touch at corners",
                         grid(120, 90, [](int x, int y) { return (x / 15 + y / 15) % 2 == 0 ? 1.0 + x / 60 : 0.0; })));
    made.push_back(named("a frame", grid(120, 90, [](int x, int y) {
                             const double distance = std::max(std::abs(x - 60), std::abs(y - 45));
                             return distance > 20 && distance < 30 ? 1.0 : 0.0;
                         })));
    made.push_back(named("a maze", grid(120, 90, maze)));
    made.push_back(named("noise", grid(120, 90, [&](int, int) { return share(random); })));
    made.push_back(named("sparse noise", grid(120, 90, [&](int, int) { return share(random) < 0.02 ? 1.0 : 0.0; })));
    for (unsigned seed = 1; seed <= 3; ++seed) {
        made.push_back({QStringLiteral("hills %1").arg(seed), hills(120, 90, 12, seed)});
        made.push_back({QStringLiteral("terraces %1").arg(seed), terraces(hills(120, 90, 12, seed), 5)});
    }
    made.push_back(named("too small for a block", Grid<double>(6, 5, 1.0)));
    made.push_back(named("one cell", Grid<double>(1, 1, 1.0)));
    return made;
}

} // namespace maps
