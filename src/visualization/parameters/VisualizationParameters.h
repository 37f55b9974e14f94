// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/DataKind.h"
#include "settings/Parameter.h"
#include "visualization/parameters/AdjustableColorMap.h"

/// How one kind of data (gaze points, fixations, fixation clusters or saccades) is drawn. There are four such records,
/// one for each kind. What a member means depends on the kind and its mode: the cluster modes, for one, take `stepSize`
/// as the width of their thickest line.
struct VisualizationParameters {
    bool operator==(const VisualizationParameters &) const = default;

    QString settingsPath; ///< first part of the keys, such as "Visualization/Fixation"
    QString settingsName; ///< kind of data, as in the colour maps of groups: one of `Group::kindNames`

    // Not stored: they start anew with each run.
    bool gaussianSaccades = false;
    bool fixationDurationDependent = false;
    bool lengthDependent = false;
    double clusterPercentage = 90.0; ///< share of a cluster's fixations in the frame, percent
    bool percentMode = false;
    int transitionType = 0; ///< 0 scanpath, 1 saccades

    QColor fillColor; ///< of the dominant eye and of the mean of both
    QColor fillColorLeft;
    QColor fillColorRight;
    QColor fillColorName; ///< of written names
    QColor borderColor;   ///< the border colours follow from the fill colours and `borderType`
    QColor borderColorLeft;
    QColor borderColorRight;
    int visualizationMode = 0; ///< index of the mode; 0 is none
    int size = 0;
    bool durationDependent = false;
    bool showArrowTip = false;
    int fillOpacity = 0;             ///< percent
    int borderWidth = 0;             ///< px
    int normalDistributionWidth = 0; ///< px
    int normalDistributionSigma = 0;
    int borderType = 0; ///< 0 light, 1 midlight, 2 dark
    bool showGazePoints = false;
    bool showOriginalSize = false;
    bool transitionsOnly = false;
    bool lineSizeAbsolute = false;
    double power = 0; ///< exponent of shadow maps
    int shadowTransparency = 0;
    int heatmapThreashold = 0; // sic
    int heatmapColormap = 0;
    int stepSize = 0;
    int numberOfHistogramBins = 0;
    int angleOffset = 0; ///< degrees
    bool showQuantityArcs = false;
    bool quantityArcsHighlight = false;
    bool showDurationArcs = false;
    bool durationArcsHighlight = false;
    bool showLenghtArcs = false;      // sic
    bool lenghtArcsHighlight = false; // sic

    bool acmUse = false; ///< of the adjustable colour map
    AdjustableColorMap colorMap;
};

/// A record for each kind of data; not owned, none is null.
using DrawingRecords = ByDataKind<const VisualizationParameters *>;

/// The records of the four kinds of data, as the store has them; what it lacks reads as 0, false or an invalid colour.
VisualizationParameters gazePointParameters();
VisualizationParameters fixationParameters();
VisualizationParameters clusterParameters();
VisualizationParameters saccadeParameters();

/// Makes the values of the construction, then reads all keys.
VisualizationParameters loadedParameters(const QString &settingsPath, const QString &settingsName);

/// The border colour around a fill colour; a border type beyond 0 to 2 counts as the nearest of them.
QColor borderColorFor(const QColor &fill, int borderType);

// The border colours, in record and store, follow from the fill colours and the border type.
void deriveBorderColor(VisualizationParameters &parameters);
void deriveBorderColorLeft(VisualizationParameters &parameters);
void deriveBorderColorRight(VisualizationParameters &parameters);
void deriveBorderColors(VisualizationParameters &parameters); ///< all three

/// The row of a value of one stop of the adjustable colour map. The map is changed as a whole, so that its values have
/// no commands of their own.
template <class T>
struct ParameterOfStop {
    using Record = VisualizationParameters;
    using Value = T;

    T &in(Record &record) const { return record.colorMap.stops[stop].*member; }
    const T &in(const Record &record) const { return record.colorMap.stops[stop].*member; }

    T AdjustableColorMap::Stop::*member;
    QLatin1StringView key;
    std::size_t stop;
    T initial{};
    QLatin1StringView text{};
    QLatin1StringView command{};
};

/// Keys, values at construction, texts and names of the commands. Rows without a text have no command of their own.
namespace rows {

using namespace Qt::StringLiterals;
using Visual = VisualizationParameters;
inline constexpr Parameter fillColor{&Visual::fillColor,
                                     "/FillColor"_L1,
                                     QColor(255, 0, 0),
                                     "Dominant fill color changed: "_L1,
                                     "CommandChangeFillColorDominant"_L1,
                                     deriveBorderColor};
inline constexpr Parameter fillColorLeft{
    &Visual::fillColorLeft,          "/FillColorLeft"_L1,  QColor(0, 255, 0), "Left fill color changed: "_L1,
    "CommandChangeFillColorLeft"_L1, deriveBorderColorLeft};
inline constexpr Parameter fillColorRight{
    &Visual::fillColorRight,          "/FillColorRight"_L1,  QColor(0, 0, 255), "Right fill color changed: "_L1,
    "CommandChangeFillColorRight"_L1, deriveBorderColorRight};
inline constexpr Parameter fillColorName{&Visual::fillColorName, "/FillColorName"_L1, QColor(0, 0, 0)};
inline constexpr Parameter borderColor{&Visual::borderColor, "/BorderColor"_L1, QColor(255, 0, 0)};
inline constexpr Parameter borderColorLeft{&Visual::borderColorLeft, "/BorderColorLeft"_L1, QColor(0, 255, 0)};
inline constexpr Parameter borderColorRight{&Visual::borderColorRight, "/BorderColorRight"_L1, QColor(0, 0, 255)};
inline constexpr Parameter visualizationMode{&Visual::visualizationMode, "/VisualizationMode"_L1, 0,
                                             "Visualization mode changed to: %1"_L1,
                                             "CommandChangeVisualizationMode"_L1};
inline constexpr Parameter size{&Visual::size, "/Size"_L1, 5, "Size factor changed: %1"_L1,
                                "CommandChangeSizeFactor"_L1};
inline constexpr Parameter durationDependent{&Visual::durationDependent, "/DurationDependent"_L1, false,
                                             "Duration dependent changed: %1"_L1, "CommandChangeDurationDependent"_L1};
inline constexpr Parameter showArrowTip{&Visual::showArrowTip, "/ShowArrowTip"_L1, true,
                                        "Show arrow tip changed: %1"_L1, "CommandChangeShowArrowTip"_L1};
inline constexpr Parameter fillOpacity{&Visual::fillOpacity, "/FillOpacity"_L1, 50, "Fill opacity changed: %1"_L1,
                                       "CommandChangeFillOpacity"_L1};
inline constexpr Parameter borderWidth{&Visual::borderWidth, "/BorderWidth"_L1, 1, "Border width changed: %1"_L1,
                                       "CommandChangeBorderWidth"_L1};
inline constexpr Parameter normalDistributionWidth{&Visual::normalDistributionWidth, "/NormalDistributionWidth"_L1, 100,
                                                   "Normal distribution width changed: %1"_L1,
                                                   "CommandChangeNormalDistributionWidth"_L1};
inline constexpr Parameter normalDistributionSigma{&Visual::normalDistributionSigma, "/NormalDistributionSigma"_L1, 50,
                                                   "Normal distribution sigma changed: %1"_L1,
                                                   "CommandChangeNormalDistributionSigma"_L1};
inline constexpr Parameter borderType{&Visual::borderType,          "/BorderType"_L1,  1, "Border type changed: %1"_L1,
                                      "CommandChangeBorderType"_L1, deriveBorderColors};
inline constexpr Parameter showGazePoints{&Visual::showGazePoints, "/ShowGazePoints"_L1, false,
                                          "Show gazepoints changed: %1"_L1, "CommandChangeShowGazePoints"_L1};
inline constexpr Parameter showOriginalSize{&Visual::showOriginalSize, "/ShowOriginalSize"_L1, false,
                                            "Show original size changed: %1"_L1, "CommandChangeShowOriginalSize"_L1};
inline constexpr Parameter transitionsOnly{&Visual::transitionsOnly, "/transonly"_L1, false};
inline constexpr Parameter lineSizeAbsolute{&Visual::lineSizeAbsolute, "/linesizeabs"_L1, false};
inline constexpr Parameter power{&Visual::power, "/Power"_L1, 1.0, "Shadow power changed: %1"_L1,
                                 "CommandChangeShadowPower"_L1};
inline constexpr Parameter shadowTransparency{&Visual::shadowTransparency, "/ShadowTransparency"_L1, 10,
                                              "Shadow transparency changed: %1"_L1,
                                              "CommandChangeShadowTransparency"_L1};
inline constexpr Parameter heatmapThreashold{&Visual::heatmapThreashold, "/HeatmapThreashold"_L1, 0,
                                             "Heatmap Threashold changed: %1"_L1,
                                             "CommandChangeHeatmapThreashold"_L1}; // sic
inline constexpr Parameter heatmapColormap{&Visual::heatmapColormap, "/HeatmapColormap"_L1, 0,
                                           "Colormap changed: %1"_L1, "CommandChangeColorMap"_L1};
inline constexpr Parameter stepSize{&Visual::stepSize, "/StepSize"_L1, 1, "Step size changed: %1"_L1,
                                    "CommandChangeStepSize"_L1};
inline constexpr Parameter numberOfHistogramBins{&Visual::numberOfHistogramBins, "/NumberOfHistogramBins"_L1, 25,
                                                 "Bins quantity changed: %1"_L1, "CommandChangeBinsQuantity"_L1};
inline constexpr Parameter angleOffset{&Visual::angleOffset, "/AngleOffset"_L1, 0, "Angleoffset changed: %1"_L1,
                                       "CommandChangeAngleOffset"_L1};
inline constexpr Parameter showQuantityArcs{&Visual::showQuantityArcs, "/ShowQuantityArcs"_L1, false,
                                            "Quantity visible changed: %1"_L1, "CommandChangeQuantityVisible"_L1};
inline constexpr Parameter quantityArcsHighlight{&Visual::quantityArcsHighlight, "/QuantityArcsHighlight"_L1, false,
                                                 "Quantity solid color changed: %1"_L1,
                                                 "CommandChangeQuantitySolidColor"_L1};
inline constexpr Parameter showDurationArcs{&Visual::showDurationArcs, "/ShowDurationArcs"_L1, true,
                                            "Duration visible changed: %1"_L1, "CommandChangeDurationVisible"_L1};
inline constexpr Parameter durationArcsHighlight{&Visual::durationArcsHighlight, "/DurationArcsHighlight"_L1, false,
                                                 "Duration solid color changed: %1"_L1,
                                                 "CommandChangeDurationSolidColor"_L1};
inline constexpr Parameter showLenghtArcs{&Visual::showLenghtArcs, "/ShowLenghtArcs"_L1, false,
                                          "Lenght visible changed: %1"_L1, "CommandChangeLenghtVisible"_L1}; // sic
inline constexpr Parameter lenghtArcsHighlight{&Visual::lenghtArcsHighlight, "/LenghtArcsHighlight"_L1, false,
                                               "Lenght solid color changed: %1"_L1,
                                               "CommandChangeLenghtSolidColor"_L1}; // sic
inline constexpr Parameter acmUse{&Visual::acmUse, "/ACM_use"_L1, false, "Use it changed!"_L1, "CommandChangeUseIt"_L1};

/// The rows of one stop of the adjustable colour map.
struct StopRows {
    ParameterOfStop<bool> active;
    ParameterOfStop<int> transparency;
    ParameterOfStop<double> start;
    ParameterOfStop<QColor> color;

    constexpr auto all() const { return std::tie(active, transparency, start, color); }
};
using Stop = AdjustableColorMap::Stop;
inline constexpr StopRows colorMapStops[AdjustableColorMap::stopCount] = {
    {ParameterOfStop<bool>{&Stop::active, "/ACM_acti1"_L1, 0},
     ParameterOfStop<int>{&Stop::transparency, "/ACM_trans1"_L1, 0},
     ParameterOfStop<double>{&Stop::start, "/ACM_start_p1"_L1, 0},
     ParameterOfStop<QColor>{&Stop::color, "/ACM_start_c1"_L1, 0}},
    {ParameterOfStop<bool>{&Stop::active, "/ACM_acti2"_L1, 1},
     ParameterOfStop<int>{&Stop::transparency, "/ACM_trans2"_L1, 1},
     ParameterOfStop<double>{&Stop::start, "/ACM_start_p2"_L1, 1},
     ParameterOfStop<QColor>{&Stop::color, "/ACM_start_c2"_L1, 1}},
    {ParameterOfStop<bool>{&Stop::active, "/ACM_acti3"_L1, 2},
     ParameterOfStop<int>{&Stop::transparency, "/ACM_trans3"_L1, 2},
     ParameterOfStop<double>{&Stop::start, "/ACM_start_p3"_L1, 2},
     ParameterOfStop<QColor>{&Stop::color, "/ACM_start_c3"_L1, 2}},
    {ParameterOfStop<bool>{&Stop::active, "/ACM_acti4"_L1, 3},
     ParameterOfStop<int>{&Stop::transparency, "/ACM_trans4"_L1, 3},
     ParameterOfStop<double>{&Stop::start, "/ACM_start_p4"_L1, 3},
     ParameterOfStop<QColor>{&Stop::color, "/ACM_start_c4"_L1, 3}},
};
inline constexpr auto colorMap =
    std::tuple_cat(colorMapStops[0].all(), colorMapStops[1].all(), colorMapStops[2].all(), colorMapStops[3].all());

inline constexpr auto visualization = std::tuple_cat(
    std::tie(fillColor, fillColorLeft, fillColorRight, fillColorName, borderColor, borderColorLeft, borderColorRight,
             visualizationMode, size, durationDependent, showArrowTip, fillOpacity, borderWidth,
             normalDistributionWidth, normalDistributionSigma, borderType, showGazePoints, showOriginalSize,
             transitionsOnly, lineSizeAbsolute, power, shadowTransparency, heatmapThreashold, heatmapColormap, stepSize,
             numberOfHistogramBins, angleOffset, showQuantityArcs, quantityArcsHighlight, showDurationArcs,
             durationArcsHighlight, showLenghtArcs, lenghtArcsHighlight, acmUse),
    colorMap);
} // namespace rows
