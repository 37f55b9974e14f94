// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "aoi/generation/Grid.h"
#include "aoi/generation/RegionParameters.h"

#include <QImage>
#include <QStringList>

#include <optional>
#include <stop_token>

class DataModel;

inline constexpr double wholeInPercent = 100;

/// A density over the canvas in which regions are searched.
struct RegionDensity {
    Grid<double> cells;
    double highest = 1;   ///< the largest cell; 1 where none is positive, and always for saliency
    QString unit;         ///< " gp/min", " fix/min", " clu/min", " cumclu/min" or " saliency"
    double atHighest = 1; ///< the highest density in that unit; NaN or infinite where the recordings have no duration
    QString remark;       ///< what the user should know of it; empty if nothing
};

/// The density of a source.
///
/// Gaze points, fixations and clusters are those of both eyes of the checked examinations within the model's time
/// frame; samples count where they are valid, sections where they begin and end inside. Cumulative clusters are those
/// of the pooled left and right eyes. Saliency is that of the picture, with the model's four numbers; it fills the
/// canvas whatever the size of the picture, so that on one of another size regions lie elsewhere than what they mark.
/// @param picture  the stimulus, for saliency only.
/// @return nothing where there is nothing to take: no sample or section at all, no picture; and when stopped.
std::optional<RegionDensity> regionDensity(const DataModel &model, const QImage &picture,
                                           const RegionParameters &parameters, const std::stop_token &stop = {});

/// What stands at the zero, the half and the maximum of the scale.
QStringList scaleTexts(const RegionDensity &density);

/// The pre-threshold in the unit of the source.
double preThresholdInUnit(const RegionDensity &density, int percent);

/// The density in shades of green, 2560 x 1600; transparent where it is 0.
QImage densityLayer(const RegionDensity &density);
