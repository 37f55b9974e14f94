// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "clustering/ClusterParameters.h"
#include "model/EyeData.h"

#include <QPainterPath>
#include <QTransform>

#include <algorithm>
#include <cmath>
#include <map>
#include <numbers>
#include <vector>

/// The methods in their plain forms, as a second opinion: lists of fixations, everything computed from scratch for each
/// question, every pair compared. They share with the real ones the records only.
namespace plain {

// --- standard method ---------------------------------------------------------------------------------------------

inline double distance(QPoint a, QPoint b)
{
    return std::sqrt(std::pow(double(a.x()) - double(b.x()), 2) + std::pow(double(a.y()) - double(b.y()), 2));
}

inline int wholePart(double value)
{
    return std::isnan(value) ? 0 : static_cast<int>(std::clamp(value, -2147483648.0, 2147483647.0));
}

inline QPoint weightedCentre(const QList<Fixation> &list)
{
    double x = 0;
    double y = 0;
    double weight = 0;
    for (const Fixation &each : list) {
        x += each.mean.x() * double(each.samples.size());
        y += each.mean.y() * double(each.samples.size());
        weight += double(each.samples.size());
    }
    return {wholePart(x / weight), wholePart(y / weight)};
}

inline double coverRadius(const QList<Fixation> &list, QPoint centre)
{
    double radius = 0.0;
    for (const Fixation &each : list)
        radius = std::max(radius, distance(each.mean, centre) + double(each.majorAxis.length()));
    return radius;
}

inline bool clearOfClusters(QPoint centre, double radius, const QList<FixationCluster> &clusters, int overlapAllowed)
{
    for (const FixationCluster &each : clusters) {
        const double d = distance(centre, each.mean);
        const auto r = double(each.majorAxis.length());
        if (radius > d || r > d)
            return false;
        if (std::trunc((r + radius - d) * (100.0 / d)) > overlapAllowed)
            return false;
    }
    return true;
}

inline void sortBySize(QList<FixationCluster> &clusters)
{
    QList<FixationCluster> sorted;
    while (!clusters.isEmpty()) {
        qsizetype largest = 0;
        for (qsizetype i = 1; i < clusters.size(); ++i) {
            if (clusters[i].fixations.size() > clusters[largest].fixations.size())
                largest = i;
        }
        sorted << clusters.takeAt(largest);
    }
    clusters = sorted;
}

inline void standardClusters(EyeData &stream, const StandardClusterParameters &parameters)
{
    QList<Fixation> &fixations = stream.scanpath;
    for (Fixation &each : fixations)
        each.cluster = 0;
    int counter = 1;
    for (qsizetype i = 0; i < fixations.size(); ++i) {
        QList<Fixation> candidates;
        QList<qsizetype> indices;
        if (fixations[i].cluster == 0) {
            candidates << fixations[i];
            indices << i;
        }
        for (qsizetype j = i + 1; j < fixations.size(); ++j) {
            if (fixations[j].cluster != 0)
                continue;
            candidates << fixations[j];
            const QPoint centre = weightedCentre(candidates);
            const double radius = coverRadius(candidates, centre);
            if (parameters.maximumRadiusPx >= radius &&
                clearOfClusters(centre, radius, stream.fixationClusters, parameters.overlapAllowed))
                indices << j;
            else
                candidates.removeLast();
        }
        if (candidates.isEmpty() || candidates.size() < parameters.minimumFixations)
            continue;
        for (const qsizetype index : indices)
            fixations[index].cluster = counter;
        stream.fixationClusters << FixationCluster(candidates, weightedCentre(candidates));
        ++counter;
    }
}

// --- overlap method ----------------------------------------------------------------------------------------------

inline QPainterPath outline(const Fixation &fixation)
{
    QVector2D major = fixation.majorAxis;
    QVector2D minor = fixation.minorAxis;
    if (minor.length() > major.length())
        std::swap(major, minor);
    QPainterPath path;
    path.addEllipse(QPointF(0, 0), double(major.length()), double(minor.length()));
    QTransform turned;
    turned.rotate(-(std::atan2(-double(major.y()), double(major.x())) * 180 / std::numbers::pi));
    path = turned.map(path);
    path.translate(fixation.mean);
    return path;
}

inline bool touch(const QPainterPath &a, const QPainterPath &b)
{
    return a.intersects(b) || b.intersects(a) || a.contains(b) || b.contains(a);
}

/// @param outliers  below 0: the examinations are not told apart.
inline void overlapClusters(EyeData &stream, int minimum, int outliers = -1, int examinations = 0)
{
    QList<Fixation> &fixations = stream.scanpath;
    QList<QPainterPath> outlines;
    for (Fixation &each : fixations) {
        each.cluster = 0;
        outlines << outline(each);
    }
    QList<QList<qsizetype>> lists;
    for (qsizetype i = 0; i < fixations.size(); ++i) {
        lists << QList<qsizetype>{i};
        for (qsizetype j = 0; j < fixations.size(); ++j) {
            if (j != i && touch(outlines[i], outlines[j]))
                lists[i] << j;
        }
    }
    qsizetype k = 0;
    int id = 0;
    do {
        if (lists.isEmpty())
            return;
        const auto longest = std::max_element(lists.begin(), lists.end(),
                                              [](const auto &a, const auto &b) { return a.size() < b.size(); });
        const QList<qsizetype> current = *longest;
        lists.erase(longest);
        ++id;
        for (bool found = true; found;) {
            found = false;
            for (const qsizetype place : current)
                fixations[place].cluster = id;
            for (qsizetype n = lists.size() - 1; n >= 0; --n) {
                bool isTouched = false;
                for (const qsizetype place : lists[n])
                    isTouched = isTouched || fixations[place].cluster == id;
                if (isTouched) {
                    lists.removeAt(n);
                    found = true;
                }
            }
        }
        QList<Fixation> copies;
        float x = 0;
        float y = 0;
        std::map<int, int> counts;
        for (const qsizetype place : current) {
            copies << fixations[place];
            x += float(fixations[place].mean.x());
            y += float(fixations[place].mean.y());
            ++counts[fixations[place].examination];
        }
        int seenBy = 0;
        for (int e = 0; e < examinations; ++e)
            seenBy += counts[e] >= minimum;
        const bool enough = outliers < 0 || seenBy >= examinations - outliers;
        if (enough && copies.size() - 1 >= minimum)
            stream.fixationClusters << FixationCluster(
                copies, QPoint(int(x / float(copies.size())), int(y / float(copies.size()))));
        ++k;
    } while (k + 1 < lists.size());
}

// --- mean-shift --------------------------------------------------------------------------------------------------

struct MeanShift {
    double radius = 100;
    double rate = 0.25;
    int iterations = 50;
};

/// Numbers 1.. in the order of first appearance.
inline std::vector<double> meanShiftLabels(const std::vector<double> &data, const MeanShift &parameters)
{
    std::vector<std::pair<double, double>> points;
    for (size_t i = 0; i + 1 < data.size(); i += 2)
        points.emplace_back(data[i], data[i + 1]);
    std::vector<size_t> order(points.size());
    for (size_t i = 0; i < order.size(); ++i)
        order[i] = i;
    std::sort(order.begin(), order.end(), [&](size_t a, size_t b) { return points[a] < points[b]; });
    std::vector<std::pair<double, double>> modes;
    std::vector<size_t> modeOf(points.size());
    for (const size_t start : order) {
        auto [x, y] = points[start];
        for (int i = 0; i < parameters.iterations; ++i) {
            double weight = 0;
            double sumX = 0;
            double sumY = 0;
            for (const auto &[px, py] : points) {
                const double d2 = (px - x) * (px - x) + (py - y) * (py - y);
                const double w = std::exp(-d2 / (2 * parameters.radius * parameters.radius));
                weight += w;
                sumX += w * px;
                sumY += w * py;
            }
            const double stepX = parameters.rate * (sumX / weight - x);
            const double stepY = parameters.rate * (sumY / weight - y);
            x += stepX;
            y += stepY;
            if (std::hypot(stepX, stepY) <= 1e-6 * parameters.radius)
                break;
        }
        size_t mode = 0;
        while (mode < modes.size() && std::hypot(modes[mode].first - x, modes[mode].second - y) > parameters.radius)
            ++mode;
        if (mode == modes.size())
            modes.emplace_back(x, y);
        modeOf[start] = mode;
    }
    std::map<size_t, double> labelOf;
    std::vector<double> labels;
    for (const size_t mode : modeOf)
        labels.push_back(labelOf.try_emplace(mode, double(labelOf.size() + 1)).first->second);
    return labels;
}

} // namespace plain
