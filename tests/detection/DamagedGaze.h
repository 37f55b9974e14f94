// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "detection/GeneratedGaze.h"

#include <cmath>
#include <limits>
#include <random>

/// Damages that recordings come with, applied to generated gaze.
struct Damage {
    const char *name;
    void (*apply)(QList<GazePoint> &samples, std::mt19937 &random);
};

inline void forSome(QList<GazePoint> &samples, std::mt19937 &random, unsigned oneIn, auto change)
{
    for (GazePoint &sample : samples) {
        if (random() % oneIn == 0)
            change(sample);
    }
}

inline constexpr Damage damages[] = {
    {"as recorded", [](QList<GazePoint> &, std::mt19937 &) {}},
    {"whole pixels",
     [](QList<GazePoint> &samples, std::mt19937 &random) {
         forSome(samples, random, 1, [](GazePoint &s) {
             s.x = std::round(s.x);
             s.y = std::round(s.y);
         });
     }},
    {"one position", [](QList<GazePoint> &samples,
                        std::mt19937 &random) { forSome(samples, random, 1, [](GazePoint &s) { s.x = s.y = 400; }); }},
    {"two positions in turn",
     [](QList<GazePoint> &samples, std::mt19937 &) {
         for (qsizetype i = 0; i < samples.size(); ++i)
             samples[i].x = i % 2 == 0 ? 100 : 140;
     }},
    {"equal times",
     [](QList<GazePoint> &samples, std::mt19937 &random) {
         forSome(samples, random, 1, [](GazePoint &s) { s.time = s.time / 40 * 40; });
     }},
    {"one time", [](QList<GazePoint> &samples,
                    std::mt19937 &random) { forSome(samples, random, 1, [](GazePoint &s) { s.time = 7; }); }},
    {"times backwards",
     [](QList<GazePoint> &samples, std::mt19937 &random) {
         forSome(samples, random, 1, [](GazePoint &s) { s.time = -s.time; });
     }},
    {"times shuffled",
     [](QList<GazePoint> &samples, std::mt19937 &random) {
         forSome(samples, random, 5, [&random](GazePoint &s) { s.time += static_cast<qint64>(random() % 200) - 100; });
     }},
    {"days between samples",
     [](QList<GazePoint> &samples, std::mt19937 &random) {
         qint64 offset = 0;
         forSome(samples, random, 1, [&](GazePoint &s) {
             offset += random() % 300 == 0 ? 1500000000 : 0;
             s.time += offset;
         });
     }},
    {"many short losses",
     [](QList<GazePoint> &samples, std::mt19937 &random) {
         forSome(samples, random, 6, [](GazePoint &s) { s.validFlag = false; });
     }},
    {"hardly a valid sample",
     [](QList<GazePoint> &samples, std::mt19937 &random) {
         forSome(samples, random, 1, [&random](GazePoint &s) { s.validFlag = random() % 40 == 0; });
     }},
    {"spikes", [](QList<GazePoint> &samples,
                  std::mt19937 &random) { forSome(samples, random, 9, [](GazePoint &s) { s.x += 300; }); }},
    {"not numbers",
     [](QList<GazePoint> &samples, std::mt19937 &random) {
         forSome(samples, random, 30, [](GazePoint &s) { s.x = std::numeric_limits<double>::quiet_NaN(); });
         forSome(samples, random, 30, [](GazePoint &s) { s.y = std::numeric_limits<double>::infinity(); });
     }},
    {"only not numbers",
     [](QList<GazePoint> &samples, std::mt19937 &random) {
         forSome(samples, random, 1, [](GazePoint &s) { s.x = std::numeric_limits<double>::quiet_NaN(); });
     }},
    {"huge coordinates",
     [](QList<GazePoint> &samples, std::mt19937 &random) {
         forSome(samples, random, 20, [](GazePoint &s) { s.x *= 1e300; });
         forSome(samples, random, 20, [](GazePoint &s) { s.y = -1e308; });
     }},
    {"far from the origin",
     [](QList<GazePoint> &samples, std::mt19937 &random) {
         forSome(samples, random, 1, [](GazePoint &s) { s.x += 1e15; });
     }},
};
