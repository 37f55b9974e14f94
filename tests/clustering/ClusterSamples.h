// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/EyeData.h"

#include <random>

/// Fixations with statistics set by hand, shared by the tests and benchmarks of clusters.
namespace samples {

/// A fixation with its samples all at its mean, 10 ms apart.
inline Fixation fixation(QPoint mean, int sampleCount = 1, QVector2D major = {1, 0}, QVector2D minor = {},
                         qint64 startMs = 0)
{
    Fixation made;
    for (int i = 0; i < sampleCount; ++i)
        made.samples << GazePoint(startMs + 10 * i, mean.x(), mean.y(), 0, 0, 1);
    made.mean = mean;
    made.majorAxis = major;
    made.minorAxis = minor;
    made.type = QStringLiteral("fixation");
    return made;
}

inline EyeData stream(const QList<Fixation> &fixations)
{
    EyeData made;
    made.scanpath = fixations;
    return made;
}

/// Fixations at these places, each of one sample and with the axis (1,0).
inline EyeData streamAt(const QList<QPoint> &means)
{
    EyeData made;
    for (const QPoint &mean : means)
        made.scanpath << fixation(mean);
    return made;
}

inline QList<int> clusterNumbers(const EyeData &stream)
{
    QList<int> numbers;
    for (const Fixation &each : stream.scanpath)
        numbers << each.cluster;
    return numbers;
}

inline QList<qsizetype> clusterSizes(const EyeData &stream)
{
    QList<qsizetype> sizes;
    for (const FixationCluster &each : stream.fixationClusters)
        sizes << each.fixations.size();
    return sizes;
}

/// How random fixations are spread.
struct Spread {
    int count = 100;
    int widthPx = 600;
    int gridPx = 1; ///< means are whole multiples of it: a coarse grid gives many equal distances and repetitions
    double longestAxisPx = 30;
    int mostSamples = 12;
};

inline EyeData randomStream(const Spread &spread, unsigned seed)
{
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> uniform;
    const auto whole = [&](int below) { return static_cast<int>(uniform(random) * below); };
    EyeData made;
    for (int i = 0; i < spread.count; ++i) {
        const QPoint mean(whole(spread.widthPx / spread.gridPx) * spread.gridPx,
                          whole(spread.widthPx / spread.gridPx) * spread.gridPx);
        const int count = 1 + whole(spread.mostSamples);
        const double angle = uniform(random) * 6.28;
        const double longer = uniform(random) * spread.longestAxisPx;
        const double shorter = uniform(random) * longer;
        const bool hasAxes = count >= 4;
        const QVector2D major(static_cast<float>(longer * std::cos(angle)),
                              static_cast<float>(longer * std::sin(angle)));
        const QVector2D minor(static_cast<float>(-shorter * std::sin(angle)),
                              static_cast<float>(shorter * std::cos(angle)));
        made.scanpath << fixation(mean, count, hasAxes ? major : QVector2D(1, 0), hasAxes ? minor : QVector2D(),
                                  1000 * i);
    }
    return made;
}

} // namespace samples
