// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "clustering/ClusterTree.h"
#include "clustering/SaccadeDistance.h"
#include "model/Examination.h"

#include <random>

/// Movements and scanpaths for the tests and benchmarks of saccade clusters.
namespace samples {

inline SaccadeVector saccade(QPoint start, QPoint end)
{
    return {start, end, 0, 0};
}

/// Fixations of one sample each, 100 ms apart, at these places.
inline EyeData scanpathAt(const QList<QPoint> &places)
{
    EyeData eye;
    for (qsizetype i = 0; i < places.size(); ++i) {
        Fixation fixation;
        fixation.samples << GazePoint(100 * i, places[i].x(), places[i].y(), 0, 0, 1);
        fixation.mean = places[i];
        eye.scanpath << fixation;
    }
    return eye;
}

/// The right eye is the dominant one.
inline Examination examinationAt(const QList<QPoint> &places)
{
    Examination made;
    made.rightEye = scanpathAt(places);
    return made;
}

/// Movements between places anywhere on a grid over a picture of the usual size.
inline QList<SaccadeVector> randomSaccades(int count, int gridPx, unsigned seed)
{
    std::mt19937 random(seed);
    std::uniform_int_distribution<int> x(0, 1920 / gridPx - 1);
    std::uniform_int_distribution<int> y(0, 1080 / gridPx - 1);
    const auto place = [&] { return QPoint(x(random) * gridPx, y(random) * gridPx); };
    QList<SaccadeVector> made;
    for (int i = 0; i < count; ++i) {
        const QPoint start = place();
        made << saccade(start, place());
    }
    return made;
}

template <class Distance>
DistanceMatrix matrixOf(const QList<SaccadeVector> &vectors, const Distance &distance)
{
    DistanceMatrix made(static_cast<size_t>(vectors.size()));
    for (qsizetype i = 0; i < vectors.size(); ++i) {
        for (qsizetype j = i + 1; j < vectors.size(); ++j)
            made.at(static_cast<size_t>(i), static_cast<size_t>(j)) = distance(vectors[i], vectors[j]);
    }
    return made;
}

} // namespace samples
