#pragma once

#include "settings/Parameter.h"

/// Parameters of the detectors. The ones of all detectors are kept, whichever is chosen.
struct FixationSettingsModel {
    FixationSettingsModel();
    bool operator==(const FixationSettingsModel &) const = default;

    int calculationType = 0; ///< index in `detectorNames`; another number means that none is chosen
    int standardMinimumDuration = 0; ///< ms
    int standardMaximumRadius = 0;   ///< px
    int standardOutliers = 0;        ///< samples
    int gaussianMinimumDuration = 0; ///< ms
    bool gaussianMergeSequential = false;
    int velocityMinimumDuration = 0; ///< ms
    double velocityThreshold = 0;    ///< in the unit
    double screenDistance = 0;       ///< m
    double imageSize = 0;            ///< m
    int velocityUnit = 0;            ///< 0 px/ms, 1 degrees/s, 2 percentile
};

/// The detectors as users know them, in the order of their indices.
inline constexpr QLatin1StringView detectorNames[] = {
    QLatin1StringView("Standard"), QLatin1StringView("Gaussian Mixture Model"), QLatin1StringView("Velocity based")};

/// The name of the detector with this index; empty for a number that means none.
QString detectorName(int calculationType);

/// Reads all parameters from the store and writes them back, so that a store that lacks keys has them from then on.
///
/// Two of them do not come back as they were written; results of studies rest on it:
/// - only the names of the first two detectors are known again, any other text means that none is chosen;
/// - the unit is stored as a number and read as a text: unless somebody wrote that text, it is the percentile.
void loadFixationSettings(FixationSettingsModel &settings);

/// Keys, values at construction, texts and names of the commands.
namespace rows {

using namespace Qt::StringLiterals;
using Detection = FixationSettingsModel;
inline constexpr Parameter fixationCalculationType{
    &Detection::calculationType, "Calculation/Fixation/CalculationType"_L1, 0,
    "Fixation calculation type changed: %1"_L1, "CommandChangeFixationControlCalculationType"_L1, detectorName};
inline constexpr Parameter standardMinimumDuration{
    &Detection::standardMinimumDuration, "Calculation/Fixation/Standard/MinimumDuration"_L1, 30,
    "Fixation standard calculation minimum duration changed: %1"_L1,
    "CommandChangeFixationControlStandardMinimumDuration"_L1};
inline constexpr Parameter standardMaximumRadius{
    &Detection::standardMaximumRadius, "Calculation/Fixation/Standard/MaximumRadius"_L1, 40,
    "Fixation standard calculation maximum radius changed: %1"_L1,
    "CommandChangeFixationControlStandardMaximumRadius"_L1};
inline constexpr Parameter standardOutliers{&Detection::standardOutliers, "Calculation/Fixation/Standard/Outlier"_L1, 4,
                                            "Fixation standard calculation outliers allowed changed: %1"_L1,
                                            "CommandChangeFixationControlStandardOutliersAllowed"_L1};
inline constexpr Parameter gaussianMinimumDuration{
    &Detection::gaussianMinimumDuration, "Calculation/Fixation/Gaussian/MinimumDuration"_L1, 200,
    "Fixation gaussian calculation minimum duration changed: %1"_L1,
    "CommandChangeFixationControlGaussianMinimumDuration"_L1};
inline constexpr Parameter gaussianMergeSequential{
    &Detection::gaussianMergeSequential, "Calculation/Fixation/Gaussian/MergeSequential"_L1, true,
    "Fixation gaussian calculation merge sequential fixations changed: %1"_L1,
    "CommandChangeFixationControlGaussianMergeSequentialFixations"_L1};
inline constexpr Parameter velocityMinimumDuration{
    &Detection::velocityMinimumDuration, "Calculation/Fixation/Velocity/MinimumDuration"_L1, 200,
    "Fixation velocity calculation minimum duration changed: %1"_L1,
    "CommandChangeFixationControlVelocityMinimumDuration"_L1};
inline constexpr Parameter velocityThreshold{
    &Detection::velocityThreshold, "Calculation/Fixation/Velocity/VelocityThreshold"_L1, 10.0,
    "Fixation velocity calculation threshold changed: %1"_L1, "CommandChangeFixationControlVelocityThreshold"_L1};
inline constexpr Parameter screenDistance{&Detection::screenDistance, "Calculation/Fixation/Velocity/ScreenDistance"_L1,
                                          0.6, "Fixation velocity calculation observer distance changed: %1"_L1,
                                          "CommandChangeFixationControlVelocityObserverDistance"_L1};
inline constexpr Parameter imageSize{&Detection::imageSize, "Calculation/Fixation/Velocity/ImageSize"_L1, 0.2,
                                     "Fixation velocity calculation image size changed: %1"_L1,
                                     "CommandChangeFixationControlVelocityImageSize"_L1};
inline constexpr Parameter velocityUnit{&Detection::velocityUnit, "Calculation/Fixation/Velocity/Unit"_L1, 0,
                                        "Fixation velocity calculation threshold unit changed: %1"_L1,
                                        "CommandChangeFixationControlVelocityUnit"_L1};
inline constexpr auto fixation =
    std::tie(fixationCalculationType, standardMinimumDuration, standardMaximumRadius, standardOutliers,
             gaussianMinimumDuration, gaussianMergeSequential, velocityMinimumDuration, velocityThreshold,
             screenDistance, imageSize, velocityUnit);

} // namespace rows
