// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/modes/DrawingModes.h"

#include "visualization/charts/ChartKinds.h"
#include "visualization/charts/EventCharts.h"
#include "visualization/modes/ModeOptions.h"
#include "visualization/modes/ModeReport.h"
#include "visualization/shapes/AngleStar.h"
#include "visualization/shapes/ClusterShapes.h"
#include "visualization/shapes/FixationShapes.h"
#include "visualization/shapes/GazePointRaster.h"
#include "visualization/shapes/SaccadeShapes.h"
#include "visualization/shapes/TransitionShapes.h"

namespace modeoptions {

namespace {

using Qt::StringLiterals::operator""_L1;
using Option = DrawingOption;
using Record = VisualizationParameters;
using enum ClusterSource;
using enum HeatmapLook;

constexpr QLatin1StringView notDrawn("NOT DRAWN\n");
constexpr QLatin1StringView points("POINTS\n");
constexpr QLatin1StringView heatmap("HEATMAP\n");
constexpr QLatin1StringView shadow("SHADOW\n");
constexpr QLatin1StringView ellipse("ELLIPSE\n");
constexpr QLatin1StringView circle("CIRCLE\n");
constexpr QLatin1StringView transition("TRANSITION\n");

constexpr DataMode noMode{"none"_L1, {}, {notDrawn, notDrawn}};

constexpr DataMode gazePointModes[] = {
    noMode,
    {"points"_L1,
     gazePointSquares,
     {points},
     [](const Record &) {
         return allColors() + plain({Option::Size, Option::StepSize});
     },
     {"Point"_L1, modereport::points}},
    {"heatmap"_L1,
     AbsoluteScale,
     {heatmap},
     [](const Record &) { return countHeatmap(" GP", " GP/min"); },
     {"Heatmap"_L1, modereport::heatmap}},
    {"shadowmap"_L1,
     ShadowMap,
     {shadow},
     [](const Record &) { return shadowMap() + Options{thresholdFrom0(" %")}; },
     {"Shadowmap"_L1, modereport::shadowMap}},
};

constexpr DataMode fixationModes[] = {
    noMode,
    {"elliptic (pca)"_L1,
     fixationsOfEye<fixationEllipses>,
     {ellipse},
     [](const Record &) { return shapes() + plain({Option::OriginalSize}); },
     {"Elliptic"_L1, modereport::borders}},
    {"circular"_L1,
     fixationsOfEye<fixationCircles>,
     {circle},
     [](const Record &) { return shapes() + plain({Option::OriginalSize}) + circles(); },
     {"Circular"_L1, modereport::fixationCircles}},
    {"heatmap"_L1,
     AbsoluteScale,
     {heatmap},
     [](const Record &record) {
         return shareHeatmap(" Fixations/min", record.percentMode) + plain({Option::FixationClasses});
     },
     {"Heatmap"_L1, modereport::fixationHeatmap}},
    {"shadowmap"_L1,
     ShadowMap,
     {shadow},
     [](const Record &) { return shadowMap() + Options{thresholdFrom0(" %")}; },
     {"Shadowmap"_L1, modereport::shadowMap}},
    {"histogram"_L1,
     drawnChart<fixationChart>,
     {},
     [](const Record &) { return chart() + colorsNamed("Color"); },
     {"Histogram"_L1, modereport::chart}},
    {"histogram seperated"_L1,
     drawnChart<fixationsByEyeChart>,
     {},
     [](const Record &) { return chart() + Options{chartGroups()}; },
     {"Histogram seperated"_L1, modereport::chart}}, // sic
};

constexpr DataMode clusterModes[] = {
    noMode,
    {"elliptic (pca)"_L1,
     clustersOfEye<clusterEllipses, Own>,
     {ellipse, notDrawn},
     [](const Record &) { return clusterShapes(); },
     {"Elliptic"_L1, modereport::clusterEllipses}},
    {"circular"_L1,
     clustersOfEye<clusterCircles, Own>,
     {circle, notDrawn},
     [](const Record &) { return clusterShapes() + circles(); },
     {"Circular"_L1, modereport::clusterCircles}},
    {"heatmap"_L1,
     AbsoluteScale,
     {heatmap, notDrawn},
     [](const Record &record) {
         return shareHeatmap(" Clusters/min", record.percentMode) + plain({Option::HeatmapScale});
     },
     {"Heatmap"_L1, modereport::clusterHeatmap}},
    {"shadowmap"_L1,
     ShadowMap,
     {shadow, notDrawn},
     [](const Record &) { return shadowMap() + Options{thresholdFrom0(" %")}; },
     {"Shadowmap"_L1, modereport::shadowMap}},
    {"cumulative elliptic"_L1,
     SharedBuild{clustersOfEye<clusterEllipses, Cumulative>},
     {notDrawn, ellipse},
     [](const Record &) { return clusterShapes(); },
     {"Cumulativ elliptic"_L1, modereport::clusterEllipses}}, // sic
    {"cumulative circle"_L1,
     SharedBuild{clustersOfEye<clusterCircles, Cumulative>},
     {notDrawn, circle},
     [](const Record &) { return clusterShapes() + circles(); },
     {"Cumulativ circle"_L1, modereport::clusterCircles}}, // sic
    {"transitions"_L1,
     transitionsOfEye<Own>,
     {transition, notDrawn},
     [](const Record &) {
         return transitions() + plain({Option::TransitionsOnly, Option::LineSizeAbsolute, Option::TransitionType});
     },
     {"Transitions"_L1, modereport::transitions}},
    {"cumulative transitions"_L1,
     SharedBuild{transitionsOfEye<Cumulative>},
     {notDrawn, transition},
     [](const Record &) { return transitions(); },
     {"Cumulativ Transitions"_L1, modereport::transitions}}, // sic
    {"cluster + cumulative transitions"_L1,
     SharedBuild{transitionsOfEye<OwnThenCumulative>},
     {transition, transition},
     [](const Record &) { return transitions(); },
     {"Cluster + Cumulativ Transitions"_L1, modereport::transitions}}, // sic
};

constexpr DataMode saccadeModes[] = {
    noMode,
    {"arrows"_L1,
     arrowsOfPass,
     {},
     [](const Record &) {
         return plain({Option::Size, Option::ArrowTip, Option::StepSize}) + allColors();
     },
     {"Arrows"_L1, modereport::arrows}},
    {"anglestar"_L1,
     angleStarOfPass,
     {},
     [](const Record &) {
         return plain({Option::BorderWidth, Option::FillOpacity, Option::BorderType, Option::AngleStar,
                       Option::StarBins, Option::QuantityArcs, Option::DurationArcs, Option::LengthArcs,
                       Option::SolidArcs}) +
                allColors();
     },
     {"Anglestar"_L1, modereport::angleStar}},
    {"heatmap"_L1,
     AbsoluteScale,
     {},
     [](const Record &) {
         return countHeatmap(" Saccades", " Saccades") + plain({Option::GaussianSaccades, Option::LengthDependent});
     },
     {"Heatmap"_L1, modereport::heatmap}},
    {"shadowmap"_L1,
     ShadowMap,
     {},
     [](const Record &) {
         ShownOption length = thresholdFrom0(" px");
         length.text = QStringLiteral("Length threshold");
         return shadowMap() + Options{length};
     },
     {"Shadowmap"_L1, modereport::shadowMap}},
    {"histogram"_L1,
     drawnChart<saccadeChart>,
     {},
     [](const Record &) { return chart() + plain({Option::LengthDependent}) + colorsNamed("Color"); },
     {"Histogram"_L1, modereport::saccadeChart}},
    {"histogram seperated"_L1, // sic
     drawnChart<saccadesByEyeChart>,
     {},
     [](const Record &) { return chart() + plain({Option::LengthDependent}) + Options{chartGroups()}; },
     {"Histogram seperated"_L1, modereport::saccadeChart}}, // sic
    {"histogram sac vs fix"_L1,
     drawnChart<saccadesAndFixationsChart>,
     {},
     [](const Record &) { return chart() + plain({Option::LengthDependent}) + colorsNamed("Saccade", "Fixation"); },
     {"Histogram sac vs fix"_L1, modereport::chart}},
};

} // namespace

} // namespace modeoptions

std::span<const DataMode> drawingModes(DataKind kind)
{
    switch (kind) {
    case DataKind::GazePoints:
        break;
    case DataKind::Fixations:
        return modeoptions::fixationModes;
    case DataKind::Clusters:
        return modeoptions::clusterModes;
    case DataKind::Saccades:
        return modeoptions::saccadeModes;
    }
    return modeoptions::gazePointModes;
}

ModeBuild buildOf(DataKind kind, const VisualizationParameters &record)
{
    const DataMode *mode = modeAt(drawingModes(kind), record.visualizationMode);
    return mode ? mode->build : ModeBuild();
}
