// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "settings/Parameter.h"

/// How areas of interest and the transitions between them are drawn.
struct AoiVisualizationParameters {
    bool operator==(const AoiVisualizationParameters &) const = default;

    // Not stored: they start anew with each run.
    int transitionType = 0; ///< 0 scanpath, 1 saccades
    int timeWindowMs = 1000;
    bool normTransGlobal = false; ///< scale transition lines by the largest of all counts

    int drawMode = 0; ///< index of the mode; 0 is none
    bool displayNames = false;
    bool showLines = false; ///< transitions as straight lines, not as ribbons
    bool showAll = false;   ///< otherwise ribbons show while the mouse is on their area
    bool outlines = false;
    bool oneColor = false; ///< all areas in `colorAoi`
    int lineSize = 0;      ///< px, of the thickest transition line
    int fillOpacity = 0;   ///< percent
    int borderWidth = 0;   ///< px
    int borderType = 0;    ///< 0 brighter, 1 same, 2 darker than the area
    QColor color;
    QColor colorLeft; ///< of transitions to the left
    QColor colorRight;
    QColor colorAoi;
    double transMin = 0; ///< transitions per minute and subject below which none is shown
    bool noText = false;
    bool mixColor = false; ///< transition colours mixed by the shares of the two directions
};

/// Keys, values at construction, texts and names of the commands. Rows without a text have no command.
namespace rows {

using Qt::StringLiterals::operator""_L1;
using AoiVisual = AoiVisualizationParameters;
inline constexpr Parameter aoiDrawMode{&AoiVisual::drawMode, "Visualization/AOI/DrawMode"_L1, 0,
                                       "AOI visualization mode changed: %1"_L1, "CommandChangeVisualizationAOIMode"_L1};
inline constexpr Parameter aoiDisplayNames{&AoiVisual::displayNames, "Visualization/AOI/DisplayNames"_L1, true,
                                           "AOI visualization display names changed: %1"_L1,
                                           "CommandChangeVisualizationAOIDisplayNames"_L1};
inline constexpr Parameter aoiShowLines{&AoiVisual::showLines, "Visualization/AOI/show_lines"_L1, false};
inline constexpr Parameter aoiShowAll{&AoiVisual::showAll, "Visualization/AOI/show_all"_L1, false};
inline constexpr Parameter aoiOutlines{&AoiVisual::outlines, "Visualization/AOI/outlines"_L1, false};
inline constexpr Parameter aoiOneColor{&AoiVisual::oneColor, "Visualization/AOI/one_color"_L1, false};
inline constexpr Parameter aoiLineSize{&AoiVisual::lineSize, "Visualization/AOI/line_size"_L1, 50};
inline constexpr Parameter aoiFillOpacity{&AoiVisual::fillOpacity, "Visualization/AOI/FillOpacity"_L1, 50,
                                          "AOI visualization fill opacity changed: %1"_L1,
                                          "CommandChangeVisualizationAOIFillOpacity"_L1};
inline constexpr Parameter aoiBorderWidth{&AoiVisual::borderWidth, "Visualization/AOI/BorderWidth"_L1, 5,
                                          "AOI visualization border width changed: %1"_L1,
                                          "CommandChangeVisualizationAOIBorderWidth"_L1};
inline constexpr Parameter aoiBorderType{&AoiVisual::borderType, "Visualization/AOI/BorderType"_L1, 0,
                                         "AOI visualization border color changed: %1"_L1,
                                         "CommandChangeVisualizationAOIBorderType"_L1};
inline constexpr Parameter aoiColor{&AoiVisual::color, "Visualization/AOI/Color"_L1, QColor(255, 0, 0),
                                    "AOI visualization color changed: "_L1, "CommandChangeVisualizationAOIColor"_L1};
inline constexpr Parameter aoiColorLeft{&AoiVisual::colorLeft, "Visualization/AOI/ColorL"_L1, QColor(255, 0, 0)};
inline constexpr Parameter aoiColorRight{&AoiVisual::colorRight, "Visualization/AOI/ColorR"_L1, QColor(0, 255, 0)};
inline constexpr Parameter aoiColorAoi{&AoiVisual::colorAoi, "Visualization/AOI/ColorAOI"_L1, QColor(0, 0, 255)};
inline constexpr Parameter aoiTransMin{&AoiVisual::transMin, "Visualization/AOI/trans_min"_L1, 0.0};
inline constexpr Parameter aoiNoText{&AoiVisual::noText, "Visualization/AOI/no_text"_L1, false};
inline constexpr Parameter aoiMixColor{&AoiVisual::mixColor, "Visualization/AOI/mix_color"_L1, false};
inline constexpr auto aoiVisualization =
    std::tie(aoiDrawMode, aoiDisplayNames, aoiShowLines, aoiShowAll, aoiOutlines, aoiOneColor, aoiLineSize,
             aoiFillOpacity, aoiBorderWidth, aoiBorderType, aoiColor, aoiColorLeft, aoiColorRight, aoiColorAoi,
             aoiTransMin, aoiNoText, aoiMixColor);

} // namespace rows

/// The values of the store.
inline AoiVisualizationParameters storedAoiVisualization()
{
    AoiVisualizationParameters parameters;
    setInitialValues(parameters, rows::aoiVisualization);
    loadParameters(parameters, rows::aoiVisualization);
    return parameters;
}
