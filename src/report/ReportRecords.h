// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "aoi/generation/RegionParameters.h"
#include "clustering/ClusterParameters.h"
#include "clustering/SaccadeClusterParameters.h"
#include "detection/FixationSettingsModel.h"
#include "visualization/shapes/SaccadeClusterShapes.h"

#include <optional>

/// The parameters that a calculation report states, beside those of drawings.
struct ReportRecords {
    FixationSettingsModel fixations;
    ClusterParameters clusters;
    SaccadeClusterParameters saccadeClusters;
    SaccadeClusterMode saccadeClusterMode = SaccadeClusterMode::None;
    SaccadeClusterStyle saccadeClusterStyle;
    std::optional<RegionParameters> regions = {}; ///< where areas were made of regions of a density
};
