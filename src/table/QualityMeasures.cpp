// SPDX-License-Identifier: GPL-3.0-or-later
// The columns of the tables of data quality.

#include "table/DataQuality.h"

#include <cmath>
#include <numbers>

namespace {

using Q = EyeQuality;
using Value = EyeQuality::Value;
using Text = QLatin1StringView;

template <auto Member>
Value number(const Q &quality)
{
    if constexpr (std::is_same_v<std::remove_cvref_t<decltype(quality.*Member)>, Q::Count>)
        return static_cast<double>(quality.*Member);
    else
        return quality.*Member;
}

constexpr double degreesPerRadian = 180 / std::numbers::pi;

/// A length in px, seen straight ahead, as a visual angle.
template <auto Member>
Value degrees(const Q &quality)
{
    if (!quality.pixelPerDistance || !(quality.*Member))
        return {};
    return std::atan(*(quality.*Member) * *quality.pixelPerDistance) * degreesPerRadian;
}

template <auto Member>
Value squareDegrees(const Q &quality)
{
    if (!quality.pixelPerDistance || !(quality.*Member))
        return {};
    const double degreesPerPx = std::atan(*quality.pixelPerDistance) * degreesPerRadian;
    return *(quality.*Member) * degreesPerPx * degreesPerPx;
}

constexpr Measure<Q> columns[] = {
    {Text("samples"), number<&Q::samples>},
    {Text("duration_ms"), number<&Q::durationMs>},
    {Text("rate_hz"), number<&Q::rateHz>},
    {Text("interval_jitter_ms"), number<&Q::jitterMs>},
    {Text("repeated_times"), number<&Q::repeatedTimes>},
    {Text("backward_times"), number<&Q::backwardTimes>},
    {Text("gaps"), number<&Q::gaps>},
    {Text("gap_time_ms"), number<&Q::gapTimeMs>},
    {Text("gap_time_share"), number<&Q::gapTimeShare>},
    {Text("longest_gap_ms"), number<&Q::longestGapMs>},
    {Text("valid_sample_share"), number<&Q::validShare>},
    {Text("data_loss_share"), number<&Q::dataLossShare>},
    {Text("losses"), number<&Q::losses>},
    {Text("losses_below_75_ms"), number<&Q::shortLosses>},
    {Text("losses_75_to_500_ms"), number<&Q::blinkLosses>},
    {Text("losses_above_500_ms"), number<&Q::longLosses>},
    {Text("longest_loss_ms"), number<&Q::longestLossMs>},
    {Text("outside_share"), number<&Q::outsideShare>},
    {Text("rms_s2s_px"), number<&Q::rmsPx>},
    {Text("rms_s2s_deg"), degrees<&Q::rmsPx>},
    {Text("window_rms_s2s_px"), number<&Q::windowRmsPx>},
    {Text("window_rms_s2s_deg"), degrees<&Q::windowRmsPx>},
    {Text("measured_fixations"), number<&Q::measuredFixations>},
    {Text("fixation_rms_s2s_px"), number<&Q::fixationRmsPx>},
    {Text("fixation_rms_s2s_deg"), degrees<&Q::fixationRmsPx>},
    {Text("fixation_sd_px"), number<&Q::fixationDeviationPx>},
    {Text("fixation_sd_deg"), degrees<&Q::fixationDeviationPx>},
    {Text("fixation_bcea_px2"), number<&Q::fixationBceaPx2>},
    {Text("fixation_bcea_deg2"), squareDegrees<&Q::fixationBceaPx2>},
    {Text("binocular_share"), number<&Q::binocularShare>},
    {Text("eye_distance_px"), number<&Q::eyeDistancePx>},
    {Text("eye_distance_deg"), degrees<&Q::eyeDistancePx>},
    {Text("eye_offset_x_px"), number<&Q::eyeOffsetXPx>},
    {Text("eye_offset_y_px"), number<&Q::eyeOffsetYPx>},
};

} // namespace

std::span<const Measure<EyeQuality>> qualityMeasures()
{
    return columns;
}
