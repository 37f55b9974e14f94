// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/Examination.h"
#include "model/TimeFrame.h"

#include <QMap>
#include <QSizeF>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <numeric>
#include <vector>

/// Data quality as the definitions read: a list for each measure, sorted where a median is taken, one pass for each.
namespace plain {

using Numbers = std::vector<double>;
using Row = QMap<QString, double>; ///< by column; what is not defined is missing

inline double sum(const Numbers &list)
{
    return std::accumulate(list.begin(), list.end(), 0.0);
}

inline double mean(const Numbers &list)
{
    return sum(list) / static_cast<double>(list.size());
}

inline double median(Numbers list)
{
    std::sort(list.begin(), list.end());
    const size_t n = list.size();
    return n % 2 ? list[n / 2] : (list[n / 2 - 1] + list[n / 2]) / 2;
}

inline double rootMeanSquare(const Numbers &list)
{
    double squares = 0;
    for (const double value : list)
        squares += value * value;
    return std::sqrt(squares / static_cast<double>(list.size()));
}

inline void put(Row &row, const char *column, double value)
{
    row.insert(QString::fromLatin1(column), value);
}

inline double distance(const GazePoint &a, const GazePoint &b)
{
    return std::hypot(a.x - b.x, a.y - b.y);
}

/// Longer steps are gaps.
inline double gapBound(const Numbers &steps)
{
    Numbers forward;
    for (const double step : steps) {
        if (step > 0 && step < 1000)
            forward.push_back(step);
    }
    std::sort(forward.begin(), forward.end());
    const double middle = forward[(forward.size() - 1) / 2];
    Numbers regular;
    for (const double step : steps) {
        if (step >= 0 && step <= 2 * middle)
            regular.push_back(step);
    }
    return std::max(1.5 * mean(regular), mean(regular) + 0.9);
}

inline void putTime(Row &row, const std::vector<GazePoint> &samples, const Numbers &steps, double bound)
{
    Numbers kept;
    Numbers gaps;
    double repeated = 0;
    double backward = 0;
    for (const double step : steps) {
        repeated += step == 0;
        backward += step < 0;
        if (step > bound)
            gaps.push_back(step);
        else if (step >= 0)
            kept.push_back(step);
    }
    const double interval = mean(kept);
    double squares = 0;
    for (const double step : kept)
        squares += (step - interval) * (step - interval);
    const double duration = double(samples.back().time) - double(samples.front().time);
    put(row, "duration_ms", duration);
    put(row, "rate_hz", 1000 / interval);
    put(row, "interval_jitter_ms", std::sqrt(squares / double(kept.size())));
    put(row, "repeated_times", repeated);
    put(row, "backward_times", backward);
    put(row, "gaps", double(gaps.size()));
    put(row, "gap_time_ms", sum(gaps) - interval * double(gaps.size()));
    put(row, "gap_time_share", (sum(gaps) - interval * double(gaps.size())) / duration);
    if (!gaps.empty())
        put(row, "longest_gap_ms", *std::max_element(gaps.begin(), gaps.end()));
    const auto valid = std::count_if(samples.begin(), samples.end(), [](const GazePoint &s) { return s.validFlag; });
    put(row, "data_loss_share", std::max(0.0, 1 - double(valid) / (duration / interval + 1)));
}

inline void putLosses(Row &row, const std::vector<GazePoint> &samples)
{
    Numbers lengths;
    for (size_t i = 0; i < samples.size();) {
        if (samples[i].validFlag) {
            ++i;
            continue;
        }
        size_t end = i;
        while (end < samples.size() && !samples[end].validFlag)
            ++end;
        lengths.push_back(double(samples[std::min(end, samples.size() - 1)].time) - double(samples[i].time));
        i = end;
    }
    const auto within = [&](double from, double to) {
        return double(std::count_if(lengths.begin(), lengths.end(), [&](double l) { return l >= from && l <= to; }));
    };
    put(row, "losses", double(lengths.size()));
    put(row, "losses_below_75_ms", within(0, 74.999));
    put(row, "losses_75_to_500_ms", within(75, 500));
    put(row, "losses_above_500_ms", within(500.001, 1e9));
    if (!lengths.empty())
        put(row, "longest_loss_ms", *std::max_element(lengths.begin(), lengths.end()));
}

inline void putSteadiness(Row &row, const std::vector<GazePoint> &samples, double bound)
{
    Numbers all;
    QMap<qint64, Numbers> windows;
    QMap<qint64, bool> isWhole;
    for (size_t i = 0; i < samples.size(); ++i) {
        const qint64 window = samples[i].time / 200;
        isWhole[window] = isWhole.value(window, true) && samples[i].validFlag;
        if (i == 0 || !samples[i].validFlag || !samples[i - 1].validFlag)
            continue;
        const double step = double(samples[i].time) - double(samples[i - 1].time);
        if (step >= 0 && step <= bound)
            all.push_back(distance(samples[i - 1], samples[i]));
        if (samples[i - 1].time / 200 == window)
            windows[window].push_back(distance(samples[i - 1], samples[i]));
    }
    if (!all.empty())
        put(row, "rms_s2s_px", rootMeanSquare(all));
    Numbers ofWindows;
    for (auto window = windows.cbegin(); window != windows.cend(); ++window) {
        if (isWhole[window.key()] && window->size() > 1)
            ofWindows.push_back(rootMeanSquare(*window));
    }
    if (!ofWindows.empty())
        put(row, "window_rms_s2s_px", median(ofWindows));
}

inline void putFixations(Row &row, const QList<Fixation> &fixations, TimeFrame frame, double bound)
{
    Numbers rms;
    Numbers deviations;
    Numbers areas;
    for (const Fixation &fixation : fixations) {
        const bool isIn = fixation.samples.first().time >= frame.startMs && fixation.samples.last().time <= frame.endMs;
        Numbers x;
        Numbers y;
        Numbers steps;
        for (qsizetype i = 0; i < fixation.samples.size(); ++i) {
            const GazePoint &sample = fixation.samples[i];
            if (!sample.validFlag)
                continue;
            x.push_back(sample.x);
            y.push_back(sample.y);
            if (i > 0 && fixation.samples[i - 1].validFlag &&
                double(sample.time - fixation.samples[i - 1].time) <= bound)
                steps.push_back(distance(fixation.samples[i - 1], sample));
        }
        if (!isIn || x.size() < 3)
            continue;
        double xx = 0;
        double yy = 0;
        double xy = 0;
        for (size_t i = 0; i < x.size(); ++i) {
            xx += (x[i] - mean(x)) * (x[i] - mean(x)) / double(x.size() - 1);
            yy += (y[i] - mean(y)) * (y[i] - mean(y)) / double(x.size() - 1);
            xy += (x[i] - mean(x)) * (y[i] - mean(y)) / double(x.size() - 1);
        }
        deviations.push_back(std::sqrt(xx + yy));
        const double rho = xx * yy > 0 ? xy / std::sqrt(xx * yy) : 0;
        const double root = std::sqrt(std::max(0.0, 1 - rho * rho));
        areas.push_back(2 * -std::log(1 - 0.682) * std::numbers::pi * std::sqrt(xx) * std::sqrt(yy) * root);
        if (!steps.empty())
            rms.push_back(rootMeanSquare(steps));
    }
    put(row, "measured_fixations", double(deviations.size()));
    if (!deviations.empty()) {
        put(row, "fixation_rms_s2s_px", median(rms));
        put(row, "fixation_sd_px", median(deviations));
        put(row, "fixation_bcea_px2", median(areas));
    }
}

inline void putEyes(Row &row, const Examination &examination, TimeFrame frame)
{
    Numbers distances;
    Numbers x;
    Numbers y;
    double all = 0;
    for (qsizetype i = 0; i < examination.leftEye.gazePoints.size(); ++i) {
        const GazePoint &left = examination.leftEye.gazePoints[i];
        const GazePoint &right = examination.rightEye.gazePoints[i];
        if (!frame.contains(left.time))
            continue;
        ++all;
        if (!left.validFlag || !right.validFlag)
            continue;
        distances.push_back(distance(left, right));
        x.push_back(right.x - left.x);
        y.push_back(right.y - left.y);
    }
    put(row, "binocular_share", double(distances.size()) / all);
    if (distances.empty())
        return;
    put(row, "eye_distance_px", median(distances));
    put(row, "eye_offset_x_px", median(x));
    put(row, "eye_offset_y_px", median(y));
}

/// Of a recording with two samples and more whose positions are all numbers.
inline Row quality(const Examination &examination, Eye eye, TimeFrame frame, QSizeF screen)
{
    const EyeData &stream = examination.stream(eye);
    std::vector<GazePoint> samples;
    for (const GazePoint &sample : stream.gazePoints) {
        if (frame.contains(sample.time))
            samples.push_back(sample);
    }
    Numbers steps;
    for (size_t i = 1; i < samples.size(); ++i)
        steps.push_back(double(samples[i].time) - double(samples[i - 1].time));
    double valid = 0;
    double outside = 0;
    for (const GazePoint &sample : samples) {
        valid += sample.validFlag;
        outside += sample.validFlag &&
                   !(sample.x >= 0 && sample.y >= 0 && sample.x < screen.width() && sample.y < screen.height());
    }
    Row row;
    put(row, "samples", double(samples.size()));
    put(row, "valid_sample_share", valid / double(samples.size()));
    if (valid > 0)
        put(row, "outside_share", outside / valid);
    const double bound = gapBound(steps);
    putTime(row, samples, steps, bound);
    putLosses(row, samples);
    putSteadiness(row, samples, bound);
    putFixations(row, stream.scanpath, frame, bound);
    putEyes(row, examination, frame);
    return row;
}

} // namespace plain
