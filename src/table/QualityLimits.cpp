// SPDX-License-Identifier: GPL-3.0-or-later
#include "table/QualityLimits.h"

namespace {

using Q = EyeQuality;
using Text = QLatin1StringView;
using Value = EyeQuality::Value;

template <auto Member>
Value asMeasured(const Q &quality)
{
    return quality.*Member;
}

template <auto Member>
Value percent(const Q &quality)
{
    constexpr double percentOfWhole = 100;
    return quality.*Member ? Value(percentOfWhole * *(quality.*Member)) : Value();
}

constexpr double mostPercent = 100;
constexpr double mostMs = 1000;
constexpr double mostPx = 2560;

constexpr QualityLimit limits[] = {
    {Text("valid_sample_share"), Text("Valid samples"), Text("%"), LimitSide::AtLeast, 80, mostPercent,
     percent<&Q::validShare>},
    {Text("gap_time_share"), Text("Time in gaps"), Text("%"), LimitSide::AtMost, 5, mostPercent,
     percent<&Q::gapTimeShare>},
    {Text("outside_share"), Text("Outside the picture"), Text("%"), LimitSide::AtMost, 20, mostPercent,
     percent<&Q::outsideShare>},
    {Text("interval_jitter_ms"), Text("Jitter of the interval"), Text("ms"), LimitSide::AtMost, 2, mostMs,
     asMeasured<&Q::jitterMs>},
    {Text("window_rms_s2s_px"), Text("Precision (RMS-S2S)"), Text("px"), LimitSide::AtMost, 15, mostPx,
     asMeasured<&Q::windowRmsPx>},
    {Text("eye_distance_px"), Text("Distance of the eyes"), Text("px"), LimitSide::AtMost, 100, mostPx,
     asMeasured<&Q::eyeDistancePx>},
};

} // namespace

std::span<const QualityLimit> qualityLimits()
{
    return limits;
}

QList<double> usualLimits()
{
    QList<double> values;
    for (const QualityLimit &limit : limits)
        values << limit.usual;
    return values;
}

bool isBeyond(const QualityLimit &limit, double value, const EyeQuality &quality)
{
    const Value measured = limit.value(quality);
    return measured && (limit.side == LimitSide::AtLeast ? *measured < value : *measured > value);
}

bool wasRecorded(const EyeQuality &quality)
{
    return quality.validShare.value_or(0) > 0;
}

QList<qsizetype> limitsBroken(const EyeQuality &quality, const QList<double> &values)
{
    QList<qsizetype> broken;
    if (!wasRecorded(quality))
        return broken;
    for (qsizetype i = 0; i < values.size(); ++i) {
        if (isBeyond(limits[static_cast<size_t>(i)], values[i], quality))
            broken << i;
    }
    return broken;
}
