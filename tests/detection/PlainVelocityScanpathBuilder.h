// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "detection/VelocityScanpathBuilder.h"

#include <algorithm>
#include <cmath>

/// The velocity detector in its plain form, as a second opinion: every sample is copied, every speed computed, the
/// speeds of a percentile sorted. Shares with the real one the section record only.
class PlainVelocityScanpathBuilder {
public:
    PlainVelocityScanpathBuilder(const QList<GazePoint> &samples, QList<Fixation> *scanpath,
                                 const VelocityParameters &parameters)
    {
        const double threshold = thresholdOf(samples, parameters);
        QList<GazePoint> current;
        double sumX = 0;
        double sumY = 0;
        for (qsizetype i = 1; i < samples.size(); ++i) {
            if (!samples[i].validFlag)
                continue;
            if (threshold > speedAt(samples, i, parameters)) {
                current.append(samples[i]);
                sumX = wholePart(sumX, samples[i].x);
                sumY = wholePart(sumY, samples[i].y);
                continue;
            }
            if (current.isEmpty())
                continue;
            const QPoint centroid(quotient(sumX, current.size()), quotient(sumY, current.size()));
            const int number = scanpath ? static_cast<int>(scanpath->size()) + 1 : 1;
            const Fixation fixation(current, QStringLiteral("fixation"), centroid, number);
            if (fixation.duration() > parameters.minimumDurationMs && scanpath)
                scanpath->append(fixation);
            current.clear();
            sumX = sumY = 0;
        }
    }

    static double thresholdOf(const QList<GazePoint> &samples, const VelocityParameters &parameters)
    {
        const int whole = static_cast<int>(parameters.threshold);
        if (parameters.unit == VelocityUnit::PixelPerMs)
            return whole;
        return parameters.unit == VelocityUnit::DegreePerS ? whole / 1000.0 : percentile(samples, whole);
    }

private:
    static double distance(const GazePoint &a, const GazePoint &b)
    {
        return std::sqrt((b.x - a.x) * (b.x - a.x) + (b.y - a.y) * (b.y - a.y));
    }
    static double time(const GazePoint &a, const GazePoint &b) { return static_cast<double>(b.time - a.time); }

    static double percentile(const QList<GazePoint> &samples, int percent)
    {
        QList<double> speeds;
        for (qsizetype i = 1; i < samples.size(); ++i)
            speeds << distance(samples[i - 1], samples[i]) / time(samples[i - 1], samples[i]);
        if (speeds.isEmpty())
            return 0;
        std::sort(speeds.begin(), speeds.end(),
                  [](double a, double b) { return a < b || (!std::isnan(a) && std::isnan(b)); });
        const qsizetype position = std::clamp<qsizetype>(speeds.size() / 100 * percent, 0, speeds.size());
        return speeds[std::min(position, speeds.size() - 1)];
    }

    static double speedAt(const QList<GazePoint> &samples, qsizetype i, const VelocityParameters &parameters)
    {
        double d = distance(samples[i - 1], samples[i]);
        if (parameters.unit == VelocityUnit::DegreePerS)
            d = std::atan(parameters.imageSizeM / parameters.imageWidthPx * d / parameters.screenDistanceM) * 180 /
                3.141592653589793;
        return d / time(samples[i - 1], samples[i]);
    }

    static double wholePart(double sum, double value)
    {
        return std::isnan(value) ? sum : std::clamp(std::trunc(sum + value), -9.2e18, 9.2e18);
    }
    static int quotient(double sum, qsizetype count)
    {
        return static_cast<int>(std::clamp(std::trunc(sum / static_cast<double>(count)), -2147483648.0, 2147483647.0));
    }
};
