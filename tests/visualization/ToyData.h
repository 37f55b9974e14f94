// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/FixationCluster.h"
#include "visualization/selection/DrawingContext.h"

/// Small recordings made by hand, and parameters as a new program has them.
namespace toy {

inline GazePoint sample(qint64 timeMs, double x, double y, int validity = 1)
{
    return {timeMs, x, y, 0, 0, validity};
}

/// A fixation with given statistics, without fitting.
inline Fixation fixation(QPoint mean, QVector2D major, QVector2D minor, const QList<GazePoint> &samples)
{
    Fixation fixation;
    fixation.mean = mean;
    fixation.majorAxis = major;
    fixation.minorAxis = minor;
    fixation.samples = samples;
    return fixation;
}

/// A fixation for 80 ms from that time, its samples at its mean; neither has axes worth mentioning.
inline Fixation stay(QPoint mean, qint64 startMs)
{
    return fixation(mean, {1, 0}, {0, 1},
                    {sample(startMs, mean.x(), mean.y()), sample(startMs + 80, mean.x(), mean.y())});
}

/// A cluster with given statistics, without fitting.
inline FixationCluster cluster(QPoint mean, const QList<Fixation> &fixations, QVector2D major = {30, 10},
                               QVector2D minor = {-2, 6})
{
    FixationCluster cluster;
    cluster.mean = mean;
    cluster.majorAxis = major;
    cluster.minorAxis = minor;
    cluster.fixations = fixations;
    return cluster;
}

/// A cluster of this one fixation, with its centre, axes and samples.
inline FixationCluster clusterOf(const Fixation &fixation)
{
    FixationCluster made = cluster(fixation.mean, {fixation}, fixation.majorAxis, fixation.minorAxis);
    made.samples = fixation.samples;
    return made;
}

inline VisualizationParameters parameters(const QString &settingsName = QStringLiteral("FixationVisualization"))
{
    VisualizationParameters parameters;
    parameters.settingsName = settingsName;
    setInitialValues(parameters, rows::visualization);
    return parameters;
}

inline AoiVisualizationParameters areaParameters()
{
    AoiVisualizationParameters parameters;
    setInitialValues(parameters, rows::aoiVisualization);
    return parameters;
}

/// A model and the parameters of all kinds, with a context that refers to them.
struct Scenery {
    DrawingContext context() const
    {
        return {model, eyeMode, frame, {{&gazePoints, &fixations, &clusters, &saccades}}, areas};
    }

    DataModel model;
    EyeMode eyeMode = EyeMode::showAll;
    TimeFrame frame{0, 1000};
    VisualizationParameters gazePoints = parameters(QStringLiteral("GazepointVisualization"));
    VisualizationParameters fixations = parameters(QStringLiteral("FixationVisualization"));
    VisualizationParameters clusters = parameters(QStringLiteral("FixationclusterVisualization"));
    VisualizationParameters saccades = parameters(QStringLiteral("SaccadeVisualization"));
    AoiVisualizationParameters areas = areaParameters();
};

} // namespace toy
