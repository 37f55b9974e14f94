// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/Eye.h"
#include "settings/Parameter.h"

#include <QLatin1StringView>
#include <QSet>
#include <QString>

#include <tuple>
#include <type_traits>

/// A key of the store that belongs to no parameter record, with the type in which its value is read.
template <class T>
struct StoredKey {
    using Value = T;

    QLatin1StringView key;
};

template <class T>
T readStored(const StoredKey<T> &stored)
{
    return fromStored<T>(SettingsStore().value(stored.key));
}

template <class T>
void writeStored(const StoredKey<T> &stored, const std::type_identity_t<T> &value)
{
    SettingsStore().setValue(stored.key, toStored(value));
}

/// Keeps the choice of a check box as its Qt::CheckState, which reads as a flag, too.
inline void writeCheckState(const StoredKey<bool> &stored, Qt::CheckState state)
{
    SettingsStore().setValue(stored.key, static_cast<int>(state));
}

/// The eyes that drawing and exports show. A stored number that is no mode reads as all eyes, as a missing one does.
EyeMode eyeMode();

/// Those of the keys below that are flags and set: the columns that statistics show.
QSet<QLatin1StringView> storedFlags();

/// The only place that knows these keys.
namespace keys {

using Qt::StringLiterals::operator""_L1;

inline constexpr StoredKey<QString> version{"Version"_L1}; ///< of the last start

inline constexpr StoredKey<QString> lastRecordingFolder{"ImportModule/lastbasepath"_L1};

// Screen and files of the import of corrected recordings.
inline constexpr StoredKey<QString> correctionFolder{"CorrectionModule/lastbasepath"_L1};
inline constexpr StoredKey<QString> correctionIniPath{"CorrectionModule/inipath"_L1};
inline constexpr StoredKey<QString> correctionImagePath{"CorrectionModule/imgpath"_L1};
inline constexpr StoredKey<int> correctionWidthPx{"CorrectionModule/width"_L1};
inline constexpr StoredKey<int> correctionHeightPx{"CorrectionModule/height"_L1};
inline constexpr StoredKey<int> correctionWidthMm{"CorrectionModule/widthmm"_L1};
inline constexpr StoredKey<int> correctionHeightMm{"CorrectionModule/heightmm"_L1};

inline constexpr StoredKey<QString> loadAoiFolder{"AOIModule/LOADAOIDIR"_L1};
inline constexpr StoredKey<QString> saveAoiFolder{"AOIModule/SAVEAOIDIR"_L1};

inline constexpr StoredKey<QString> dataExportFolder{"Visualization/Export/pathdata"_L1};
inline constexpr StoredKey<QString> statisticExportFolder{"Visualization/Export/pathstat"_L1};
inline constexpr StoredKey<QString> visualizationExportFolder{"Visualization/Export/pathvisual"_L1};
inline constexpr StoredKey<QString> videoExportFolder{"Visualization/Export/pathvideo"_L1};
inline constexpr StoredKey<QString> aoiImageExportFolder{"Visualization/Export/pathaoiimg"_L1};
inline constexpr StoredKey<QString> aoiTransitionExportFolder{"Visualization/Export/pathaoitransgraph"_L1};
inline constexpr StoredKey<int> exportAppendInfo{"Export/Data/AppendInfo"_L1}; ///< a Qt::CheckState

inline constexpr StoredKey<int> eyeMode{"Visualization/EyeMode"_L1}; ///< read it by ::eyeMode()

// The heatmap settings dialog.
inline constexpr StoredKey<int> heatmapKernelWidth{"Visualization/KernelWidth"_L1};
inline constexpr StoredKey<int> heatmapIntensity{"Visualization/Intensity"_L1};
inline constexpr StoredKey<int> heatmapColormap{"Visualization/GazePoint/HeatmapColormap"_L1};

// Which columns the general statistics show.
inline constexpr StoredKey<bool> horizontalActivity{"Statistics/General/HGA"_L1};
inline constexpr StoredKey<bool> verticalActivity{"Statistics/General/VGA"_L1};
inline constexpr StoredKey<bool> averageSpeed{"Statistics/General/avSpeed"_L1};
inline constexpr StoredKey<bool> maximumSpeed{"Statistics/General/maxSpeed"_L1};
inline constexpr StoredKey<bool> minimumSpeed{"Statistics/General/minSpeed"_L1};

// Which columns the statistics of areas of interest show.
inline constexpr StoredKey<bool> glanceFrequency{"Statistics/AOI/GlanceFrequency"_L1};
inline constexpr StoredKey<bool> glanceLocationProbability{"Statistics/AOI/GlanceLocationProbability"_L1};
inline constexpr StoredKey<bool> glanceProportion{"Statistics/AOI/GlanceProportion"_L1};
inline constexpr StoredKey<bool> maximumGlanceDuration{"Statistics/AOI/MaximumGlanceDuration"_L1};
inline constexpr StoredKey<bool> meanGlanceDuration{"Statistics/AOI/MeanGlanceDuration"_L1};
inline constexpr StoredKey<bool> minimumGlanceDuration{"Statistics/AOI/MinimumGlanceDuration"_L1};
inline constexpr StoredKey<bool> numberOfFixations{"Statistics/AOI/NumberOfFixations"_L1};
inline constexpr StoredKey<bool> numberOfGlances{"Statistics/AOI/NumberOfGlances"_L1};
inline constexpr StoredKey<bool> timeOfFirstGlance{"Statistics/AOI/TimeOfFirstGlance"_L1};
inline constexpr StoredKey<bool> totalGlanceTime{"Statistics/AOI/TotalGlanceTime"_L1};

// Of two panels that no form shows. The keys are kept, so that settings files have them.
inline constexpr StoredKey<int> clusterOptionsEyeMode{"Visualization/Cluster/EyeMode"_L1};
inline constexpr StoredKey<int> clusterOptionsMode{"Visualization/Cluster/VisualizationMode"_L1};
inline constexpr StoredKey<QColor> clusterOptionsFillColor{"Visualization/Cluster/FillColor"_L1};
inline constexpr StoredKey<QColor> clusterOptionsFillColorLeft{"Visualization/Cluster/FillColorLeft"_L1};
inline constexpr StoredKey<QColor> clusterOptionsFillColorRight{"Visualization/Cluster/FillColorRight"_L1};
inline constexpr StoredKey<QColor> clusterOptionsBorderColor{"Visualization/Cluster/BorderColor"_L1};
inline constexpr StoredKey<QColor> clusterOptionsBorderColorLeft{"Visualization/Cluster/BorderColorLeft"_L1};
inline constexpr StoredKey<QColor> clusterOptionsBorderColorRight{"Visualization/Cluster/BorderColorRight"_L1};
inline constexpr StoredKey<QString> clusterExportFolder{"Export/Cluster/Directory"_L1};
inline constexpr StoredKey<int> clusterEyeMode{"Export/Cluster/EyeMode"_L1};

inline constexpr StoredKey<QString> eyetrackerModel{"Analysis/EyetrackerModel"_L1}; ///< stays out of saved files

inline constexpr auto all =
    std::tie(version, lastRecordingFolder, correctionFolder, correctionIniPath, correctionImagePath, correctionWidthPx,
             correctionHeightPx, correctionWidthMm, correctionHeightMm, loadAoiFolder, saveAoiFolder, dataExportFolder,
             statisticExportFolder, visualizationExportFolder, videoExportFolder, aoiImageExportFolder,
             aoiTransitionExportFolder, exportAppendInfo, eyeMode, heatmapKernelWidth, heatmapIntensity,
             heatmapColormap, horizontalActivity, verticalActivity, averageSpeed, maximumSpeed, minimumSpeed,
             glanceFrequency, glanceLocationProbability, glanceProportion, maximumGlanceDuration, meanGlanceDuration,
             minimumGlanceDuration, numberOfFixations, numberOfGlances, timeOfFirstGlance, totalGlanceTime,
             clusterOptionsEyeMode, clusterOptionsMode, clusterOptionsFillColor, clusterOptionsFillColorLeft,
             clusterOptionsFillColorRight, clusterOptionsBorderColor, clusterOptionsBorderColorLeft,
             clusterOptionsBorderColorRight, clusterExportFolder, clusterEyeMode, eyetrackerModel);

} // namespace keys
