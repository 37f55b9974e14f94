// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "PlainTransitions.h"

#include <optional>

namespace plain {

/// A row of a tidy table as numbers by their columns; what is not defined is missing.
using Row = QMap<QString, double>;

inline void put(Row &row, const char *column, double value)
{
    row.insert(QString::fromLatin1(column), value);
}

inline Row aoiRow(const EyeData &stream, const QPolygon &polygon, TimeFrame frame)
{
    const auto fixations = walk(stream.scanpath, frame);
    const auto isInside = [&](const Fixation *fixation) {
        return polygon.containsPoint(fixation->mean, Qt::WindingFill);
    };
    const auto startOf = [](const Fixation *fixation) { return double(fixation->samples.first().time); };
    const auto endOf = [](const Fixation *fixation) { return double(fixation->samples.last().time); };
    double all = 0;
    double dwell = 0;
    double inside = 0;
    double into = 0;
    double out = 0;
    Row row;
    std::vector<double> visits; // durations
    double visitStart = 0;
    for (size_t i = 0; i < fixations.size(); ++i) {
        const Fixation *fixation = fixations[i];
        const double duration = endOf(fixation) - startOf(fixation);
        const bool before = i > 0 && isInside(fixations[i - 1]);
        all += duration;
        if (!isInside(fixation)) {
            out += before;
            continue;
        }
        if (inside++ == 0) {
            put(row, "time_to_first_fixation_ms", startOf(fixation) - double(frame.startMs));
            put(row, "first_fixation_duration_ms", duration);
        }
        dwell += duration;
        into += i > 0 && !before;
        visitStart = before ? visitStart : startOf(fixation);
        if (i + 1 == fixations.size() || !isInside(fixations[i + 1]))
            visits.push_back(endOf(fixation) - visitStart);
    }
    double hits = 0;
    double valid = 0;
    for (const GazePoint &sample : stream.gazePoints) {
        if (sample.time < frame.startMs || sample.time > frame.endMs || sample.validFlag != 1)
            continue;
        valid += 1;
        hits += polygon.containsPoint(QPoint(int(sample.x), int(sample.y)), Qt::WindingFill);
    }
    put(row, "visits", double(visits.size()));
    put(row, "revisits", visits.empty() ? 0 : double(visits.size()) - 1);
    put(row, "dwell_time_ms", dwell);
    put(row, "fixations", inside);
    put(row, "hit_samples", hits);
    put(row, "saccades_into", into);
    put(row, "saccades_out_of", out);
    if (!fixations.empty())
        put(row, "dwell_time_share", dwell / all);
    if (inside > 0) {
        put(row, "mean_fixation_duration_ms", dwell / inside);
        put(row, "mean_visit_duration_ms", meanOf(visits));
    }
    if (valid > 0)
        put(row, "hit_sample_share", hits / valid);
    return row;
}

inline double entropy(const std::vector<double> &shares)
{
    double bits = 0;
    for (const double share : shares)
        bits += share > 0 ? -share * std::log2(share) : 0.0;
    return bits;
}

/// The chain of areas after very many steps: its matrix is squared again and again.
inline void putEntropies(Row &row, const std::vector<size_t> &seen, size_t areas)
{
    if (seen.empty())
        return;
    std::vector<double> shares(areas);
    for (const size_t area : seen)
        shares[area] += 1 / double(seen.size());
    put(row, "gaze_entropy_bit", entropy(shares));
    if (seen.size() < 2)
        return;
    const double kinds = double(std::count_if(shares.begin(), shares.end(), [](double s) { return s > 0; }));
    using Matrix = std::vector<std::vector<double>>;
    Matrix chain(areas, std::vector<double>(areas));
    for (size_t i = 1; i < seen.size(); ++i)
        chain[seen[i - 1]][seen[i]] += 1;
    for (size_t from = 0; from < areas; ++from) {
        double sum = 0;
        for (const double count : chain[from])
            sum += count;
        for (size_t to = 0; to < areas; ++to)
            chain[from][to] = sum > 0 ? chain[from][to] / sum : shares[from] > 0 && shares[to] > 0 ? 1 / kinds : 0.0;
    }
    Matrix power = chain;
    for (size_t i = 0; i < areas; ++i) {
        for (size_t j = 0; j < areas; ++j)
            power[i][j] = (chain[i][j] + (i == j)) / 2;
    }
    for (int doubling = 0; doubling < 30; ++doubling) {
        Matrix next(areas, std::vector<double>(areas));
        for (size_t i = 0; i < areas; ++i) {
            for (size_t j = 0; j < areas; ++j) {
                for (size_t k = 0; k < areas; ++k)
                    next[i][j] += power[i][k] * power[k][j];
            }
            double sum = 0; // 1 up to rounding, which the next squaring would double
            for (const double share : next[i])
                sum += share;
            for (double &share : next[i])
                share /= sum;
        }
        power = next;
    }
    std::vector<double> stationary(areas);
    for (size_t from = 0; from < areas; ++from) {
        for (size_t to = 0; to < areas; ++to)
            stationary[to] += shares[from] * power[from][to];
    }
    double transition = 0;
    for (size_t from = 0; from < areas; ++from)
        transition += stationary[from] * entropy(chain[from]);
    put(row, "stationary_entropy_bit", entropy(stationary));
    put(row, "transition_entropy_bit", transition);
}

/// By the edges that have all other points to one side.
inline double hullArea(std::vector<QPoint> points)
{
    std::sort(points.begin(), points.end(),
              [](QPoint a, QPoint b) { return std::pair(a.x(), a.y()) < std::pair(b.x(), b.y()); });
    points.erase(std::unique(points.begin(), points.end()), points.end());
    double doubled = 0;
    for (const QPoint &a : points) {
        for (const QPoint &b : points) {
            if (a == b)
                continue;
            const auto sideOf = [&](QPoint c) {
                return double(b.x() - a.x()) * (c.y() - a.y()) - double(b.y() - a.y()) * (c.x() - a.x());
            };
            const bool isEdge = std::all_of(points.begin(), points.end(), [&](QPoint c) {
                const QPoint ac = c - a;
                const QPoint bc = c - b;
                return sideOf(c) > 0 || (sideOf(c) == 0 && QPoint::dotProduct(ac, bc) <= 0);
            });
            if (isEdge)
                doubled += double(a.x()) * b.y() - double(b.x()) * a.y();
        }
    }
    return doubled / 2;
}

inline void putSamples(Row &row, const EyeData &stream, TimeFrame frame)
{
    std::vector<double> x;
    std::vector<double> y;
    double all = 0;
    for (const GazePoint &sample : stream.gazePoints) {
        if (sample.time < frame.startMs || sample.time > frame.endMs)
            continue;
        all += 1;
        if (sample.validFlag == 1) {
            x.push_back(sample.x);
            y.push_back(sample.y);
        }
    }
    const double n = double(x.size());
    const double middleX = meanOf(x);
    const double middleY = meanOf(y);
    const double spreads = spreadOf(x) * spreadOf(y);
    double correlation = 0;
    for (size_t i = 0; i < x.size(); ++i)
        correlation += (x[i] - middleX) * (y[i] - middleY) / n / spreads;
    const double ofSample = n / (n - 1); // variance of a sample, from that of a population
    put(row, "bcea_px2",
        2 * -std::log(1 - 0.682) * std::numbers::pi * spreads * ofSample * std::sqrt(1 - correlation * correlation));
    put(row, "valid_sample_share", n / all);
}

inline Row scanpathRow(const EyeData &stream, const QList<AreaOfInterest> &areas, TimeFrame frame, double pixel)
{
    const auto fixations = walk(stream.scanpath, frame);
    std::vector<double> durations;
    std::vector<double> pauses;
    std::vector<double> amplitudes;
    std::vector<double> degrees;
    std::vector<QPoint> places;
    std::vector<size_t> seen;
    for (size_t i = 0; i < fixations.size(); ++i) {
        const Fixation &fixation = *fixations[i];
        durations.push_back(double(fixation.samples.last().time - fixation.samples.first().time));
        places.push_back(fixation.mean);
        for (qsizetype area = areas.size() - 1, found = -1; area >= -1; --area) {
            if (area < 0 && found >= 0)
                seen.push_back(size_t(found));
            else if (area >= 0 && areas[area].polygon.containsPoint(fixation.mean, Qt::WindingFill))
                found = area;
        }
        if (i == 0)
            continue;
        const QPoint way = fixation.mean - places[i - 1];
        amplitudes.push_back(std::sqrt(double(way.x()) * way.x() + double(way.y()) * way.y()));
        degrees.push_back(std::atan2(amplitudes.back() * pixel, 1) * 180 / std::numbers::pi);
        pauses.push_back(double(fixation.samples.first().time - fixations[i - 1]->samples.last().time));
    }
    Row row;
    put(row, "fixations", double(fixations.size()));
    put(row, "saccades", double(amplitudes.size()));
    put(row, "mean_fixation_duration_ms", meanOf(durations));
    put(row, "mean_saccade_duration_ms", meanOf(pauses));
    put(row, "mean_saccade_amplitude_px", meanOf(amplitudes));
    put(row, "mean_saccade_amplitude_deg", meanOf(degrees));
    put(row, "scanpath_length_px", meanOf(amplitudes) * double(amplitudes.size()));
    put(row, "convex_hull_area_px2", hullArea(places));
    putEntropies(row, seen, size_t(areas.size()));
    putSamples(row, stream, frame);
    return row;
}

} // namespace plain
