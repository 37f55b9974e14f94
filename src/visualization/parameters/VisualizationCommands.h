// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "commands/ParameterCommand.h"
#include "visualization/parameters/AdjustableColorMap.h"
#include "visualization/parameters/AoiVisualizationParameters.h"
#include "visualization/parameters/VisualizationParameters.h"

#include <functional>
#include <optional>

// The names of parameter commands, as the log and the undo view show them.

using CommandChangeAngleOffset = ParameterCommand<rows::angleOffset>;
using CommandChangeBinsQuantity = ParameterCommand<rows::numberOfHistogramBins>;
using CommandChangeBorderType = ParameterCommand<rows::borderType>;
using CommandChangeBorderWidth = ParameterCommand<rows::borderWidth>;
using CommandChangeColorMap = ParameterCommand<rows::heatmapColormap>;
using CommandChangeDurationDependent = ParameterCommand<rows::durationDependent>;
using CommandChangeDurationSolidColor = ParameterCommand<rows::durationArcsHighlight>;
using CommandChangeDurationVisible = ParameterCommand<rows::showDurationArcs>;
using CommandChangeFillColorDominant = ParameterCommand<rows::fillColor>;
using CommandChangeFillColorLeft = ParameterCommand<rows::fillColorLeft>;
using CommandChangeFillColorRight = ParameterCommand<rows::fillColorRight>;
using CommandChangeFillOpacity = ParameterCommand<rows::fillOpacity>;
using CommandChangeHeatmapThreashold = ParameterCommand<rows::heatmapThreashold>;  // sic
using CommandChangeLenghtSolidColor = ParameterCommand<rows::lenghtArcsHighlight>; // sic
using CommandChangeLenghtVisible = ParameterCommand<rows::showLenghtArcs>;         // sic
using CommandChangeNormalDistributionSigma = ParameterCommand<rows::normalDistributionSigma>;
using CommandChangeNormalDistributionWidth = ParameterCommand<rows::normalDistributionWidth>;
using CommandChangeQuantitySolidColor = ParameterCommand<rows::quantityArcsHighlight>;
using CommandChangeQuantityVisible = ParameterCommand<rows::showQuantityArcs>;
using CommandChangeShadowPower = ParameterCommand<rows::power>;
using CommandChangeShadowTransparency = ParameterCommand<rows::shadowTransparency>;
using CommandChangeShowArrowTip = ParameterCommand<rows::showArrowTip>;
using CommandChangeShowGazePoints = ParameterCommand<rows::showGazePoints>;
using CommandChangeShowOriginalSize = ParameterCommand<rows::showOriginalSize>;
using CommandChangeSizeFactor = ParameterCommand<rows::size>;
using CommandChangeStepSize = ParameterCommand<rows::stepSize>;
using CommandChangeUseIt = ParameterCommand<rows::acmUse>;

using CommandChangeVisualizationAOIBorderType = ParameterCommand<rows::aoiBorderType>;
using CommandChangeVisualizationAOIBorderWidth = ParameterCommand<rows::aoiBorderWidth>;
using CommandChangeVisualizationAOIColor = ParameterCommand<rows::aoiColor>;
using CommandChangeVisualizationAOIDisplayNames = ParameterCommand<rows::aoiDisplayNames>;
using CommandChangeVisualizationAOIFillOpacity = ParameterCommand<rows::aoiFillOpacity>;
using CommandChangeVisualizationAOIMode = ParameterCommand<rows::aoiDrawMode>;

/// Change of the mode. Another mode may count in other units and brings start values for them: undo restores the power
/// and the threshold before, redo those that the undo found.
class CommandChangeVisualizationMode : public ParameterCommand<rows::visualizationMode> {
public:
    CommandChangeVisualizationMode(int mode, VisualizationParameters &record, IParameterView &panel, const Log *log);

    void undo() override;
    void redo() override;

private:
    struct Units {
        double power = 0;
        int threshold = 0;
    };
    Units units();
    void setUnits(const Units &units);

    Units m_before;
    std::optional<Units> m_after; ///< once it was undone
};

/// Change of the whole adjustable colour map, in one step.
class CommandChangeAdjColorMap : public QUndoCommand {
public:
    using Show = std::function<void(const AdjustableColorMap &map)>;

    /// @param show  sets the controls of the map, with their signals blocked.
    /// @param log   may be null: no line is written.
    CommandChangeAdjColorMap(const AdjustableColorMap &map, VisualizationParameters &record, Show show, const Log *log);

    void undo() override;
    void redo() override;

private:
    void apply(const AdjustableColorMap &map, QLatin1StringView step);

    VisualizationParameters &m_record;
    Show m_show;
    const Log *m_log;
    AdjustableColorMap m_new;
    AdjustableColorMap m_old;
};
