// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "detection/SpeedThreshold.h"
#include "export/ExportResult.h"
#include "export/ExportTarget.h"

#include <optional>

/// What a BIDS data set needs beside the model.
struct BidsForm {
    std::optional<ViewingGeometry> geometry; ///< nothing: not known, and told as such
    int threads = 1;                         ///< the files do not depend on it
};

/// Writes the checked examinations as a BIDS 1.11 derivative into the folder PREFIX_bids: samples and events of each
/// eye of the target, for all of them left, right and mean, with their descriptions and the table of participants. The
/// user is told where it is, and what was renamed.
///
/// docs/bids.md has the files and their columns.
ExportResult exportBids(const DataModel &model, const ExportTarget &target, const BidsForm &form);
