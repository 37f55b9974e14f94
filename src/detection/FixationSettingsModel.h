// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "settings/Parameter.h"

#include <QString>

/// The parameters of fixation detection. A plain record; what it knows of keys, texts and values stands in the rows.
struct FixationSettingsModel {
    int calculationType = 0;         ///< index in calculationTypeNames, or unknownCalculationType
    int standardMinimumDuration = 0; ///< ms
    int standardMaximumRadius = 0;   ///< px
    int standardOutliers = 0;        ///< samples
    int gaussianMinimumDuration = 0; ///< ms
    bool gaussianMergeSequential = false;
    int velocityMinimumDuration = 0;   ///< ms
    double velocityThreshold = 0;      ///< in the unit below
    double velocityScreenDistance = 0; ///< m
    double velocityImageSize = 0;      ///< m
    int velocityImageSizePixels = 0;   ///< px; what the last velocity calculation used
    int velocityUnit = 0;              ///< index in velocityUnitNames
};

/// What the calculation types are called, in the panel and in the store; the index is the type.
inline constexpr QLatin1StringView calculationTypeNames[] = {
    QLatin1StringView("Standard"),
    QLatin1StringView("Gaussian Mixture Model"),
    QLatin1StringView("Velocity based"),
};

/// What the units of the velocity threshold are called, in the panel and in result texts; the index is the unit.
inline constexpr QLatin1StringView velocityUnitNames[] = {
    QLatin1StringView("[Pixel/ms]"),
    QLatin1StringView("[\xB0/s]"),
    QLatin1StringView("Percentile"),
};

/// What a stored text gives that names no known type. It is no index of the panel's combo box.
inline constexpr int unknownCalculationType = 3;

/// The index of a name; the first where there is no such name.
int calculationTypeNamed(const QString &name);

/// The two values whose reading from the store is not the inverse of their writing. Both are kept: the detector and the
/// unit after a start of the program follow from them.
namespace fixationstore {

/// The name; empty for an unknown type.
QString storedCalculationType(const int &type);
/// "Velocity based" is not among the texts: it reads as unknown, and the standard detector runs.
int loadedCalculationType(const QString &stored);

/// The index.
QString storedVelocityUnit(const int &unit);
/// The stored index is compared with the texts below, which it never equals: whatever was chosen, a loaded unit is 2,
/// "Percentile".
int loadedVelocityUnit(const QString &stored);

/// The texts that are recognised, of pixels and of degrees.
inline constexpr QLatin1StringView velocityUnitTexts[] = {
    QLatin1StringView("[Pixel / ms]"), // sic, unlike the item of the combo box
    QLatin1StringView("[\xB0/s]"),
};

} // namespace fixationstore

namespace rows {

using namespace Qt::Literals::StringLiterals;

inline constexpr ParameterStoredAs<FixationSettingsModel, int> calculationType{
    {&FixationSettingsModel::calculationType, "Calculation/Fixation/CalculationType"_L1, 0,
     "Fixation calculation type changed: %1"_L1, "CommandChangeFixationControlCalculationType"_L1},
    fixationstore::storedCalculationType,
    fixationstore::loadedCalculationType};
inline constexpr Parameter standardMinimumDuration{&FixationSettingsModel::standardMinimumDuration,
                                                   "Calculation/Fixation/Standard/MinimumDuration"_L1, 30,
                                                   "Fixation standard calculation minimum duration changed: %1"_L1,
                                                   "CommandChangeFixationControlStandardMinimumDuration"_L1};
inline constexpr Parameter standardMaximumRadius{&FixationSettingsModel::standardMaximumRadius,
                                                 "Calculation/Fixation/Standard/MaximumRadius"_L1, 40,
                                                 "Fixation standard calculation maximum radius changed: %1"_L1,
                                                 "CommandChangeFixationControlStandardMaximumRadius"_L1};
inline constexpr Parameter standardOutliers{&FixationSettingsModel::standardOutliers,
                                            "Calculation/Fixation/Standard/Outlier"_L1, 4,
                                            "Fixation standard calculation outliers allowed changed: %1"_L1,
                                            "CommandChangeFixationControlStandardOutliersAllowed"_L1};
inline constexpr Parameter gaussianMinimumDuration{&FixationSettingsModel::gaussianMinimumDuration,
                                                   "Calculation/Fixation/Gaussian/MinimumDuration"_L1, 200,
                                                   "Fixation gaussian calculation minimum duration changed: %1"_L1,
                                                   "CommandChangeFixationControlGaussianMinimumDuration"_L1};
inline constexpr Parameter gaussianMergeSequential{
    &FixationSettingsModel::gaussianMergeSequential, "Calculation/Fixation/Gaussian/MergeSequential"_L1, true,
    "Fixation gaussian calculation merge sequential fixations changed: %1"_L1,
    "CommandChangeFixationControlGaussianMergeSequentialFixations"_L1};
inline constexpr Parameter velocityMinimumDuration{&FixationSettingsModel::velocityMinimumDuration,
                                                   "Calculation/Fixation/Velocity/MinimumDuration"_L1, 200,
                                                   "Fixation velocity calculation minimum duration changed: %1"_L1,
                                                   "CommandChangeFixationControlVelocityMinimumDuration"_L1};
inline constexpr Parameter velocityThreshold{
    &FixationSettingsModel::velocityThreshold, "Calculation/Fixation/Velocity/VelocityThreshold"_L1, 10.0,
    "Fixation velocity calculation threshold changed: %1"_L1, "CommandChangeFixationControlVelocityThreshold"_L1};
inline constexpr Parameter velocityScreenDistance{&FixationSettingsModel::velocityScreenDistance,
                                                  "Calculation/Fixation/Velocity/ScreenDistance"_L1, 0.6,
                                                  "Fixation velocity calculation observer distance changed: %1"_L1,
                                                  "CommandChangeFixationControlVelocityObserverDistance"_L1};
inline constexpr Parameter velocityImageSize{
    &FixationSettingsModel::velocityImageSize, "Calculation/Fixation/Velocity/ImageSize"_L1, 0.2,
    "Fixation velocity calculation image size changed: %1"_L1, "CommandChangeFixationControlVelocityImageSize"_L1};
inline constexpr Parameter velocityImageSizePixels{&FixationSettingsModel::velocityImageSizePixels,
                                                   "Calculation/Fixation/Velocity/ImageSizePixel"_L1, 0};
inline constexpr ParameterStoredAs<FixationSettingsModel, int> velocityUnit{
    {&FixationSettingsModel::velocityUnit, "Calculation/Fixation/Velocity/Unit"_L1, 0,
     "Fixation velocity calculation threshold unit changed: %1"_L1, "CommandChangeFixationControlVelocityUnit"_L1},
    fixationstore::storedVelocityUnit,
    fixationstore::loadedVelocityUnit};

inline constexpr auto fixation =
    std::tie(calculationType, standardMinimumDuration, standardMaximumRadius, standardOutliers, gaussianMinimumDuration,
             gaussianMergeSequential, velocityMinimumDuration, velocityThreshold, velocityScreenDistance,
             velocityImageSize, velocityImageSizePixels, velocityUnit);

} // namespace rows

/// The values at construction, which last until the store is read.
FixationSettingsModel initialFixationSettings();

/// Reads all values from the store. A key that is missing reads as 0, false or empty, and is written so. The unit that
/// was read is written back, too: the store follows the record.
void loadFixationSettings(FixationSettingsModel &model);

/// Choices in the store that reading it does not give back, a sentence each for the user; empty where nothing is lost.
struct LostFixationChoices {
    bool operator==(const LostFixationChoices &) const = default;

    QString detector;
    QString velocityUnit;
};

/// To be asked before `loadFixationSettings`, which writes the unit that it read.
LostFixationChoices lostFixationChoices();
