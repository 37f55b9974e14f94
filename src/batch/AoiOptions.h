// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "aoi/generation/RegionParameters.h"
#include "aoi/saliency/Saliency.h"
#include "batch/OptionRow.h"

/// How areas of interest are made.
enum class GeneratedAois { Grid, Clusters, Regions };

/// Where areas of interest come from and go, and saliency with them.
struct AoiOptions {
    bool operator==(const AoiOptions &) const = default;

    QStringList aoiFiles;               ///< of areas with the same name, those of later files count
    QList<GeneratedAois> generatedAois; ///< each kind once, in the order of the command line
    RegionParameters regions;           ///< those of the dialog as it opens, and what was given
    RegionExport regionExport = RegionExport::Aois;
    QStringList givenRegions; ///< names of the assignments
    QString aoiOutput;
    QString aoiImageFolder; ///< empty: none
    std::optional<SaliencyMethod> saliency;
    QString saliencyFile;
    std::optional<SaliencyNumbers> saliencyNumbers; ///< without them those of the method
};

OptionGroup aoiOptions();

/// Why these options do not go together; nothing if they do.
std::optional<QString> aoiComplaint(const AoiOptions &options);
