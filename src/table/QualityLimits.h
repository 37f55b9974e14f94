// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "table/DataQuality.h"

#include <QList>

/// What a measure has to keep to.
enum class LimitSide { AtLeast, AtMost };

/// A measure for which a limit can be set. The usual values are a starting point, no norm: what a recording has to be
/// like depends on what it is for.
struct QualityLimit {
    QLatin1StringView measure; ///< the column that is marked
    QLatin1StringView caption;
    QLatin1StringView unit;
    LimitSide side = LimitSide::AtMost;
    double usual = 0;
    double most = 0;                                    ///< that can be chosen; the least is 0
    std::optional<double> (*value)(const EyeQuality &); ///< in that unit
};

std::span<const QualityLimit> qualityLimits();

/// The usual values, in the order of `qualityLimits`.
QList<double> usualLimits();

/// Whether a measure keeps not to its limit. What is not defined keeps to any.
bool isBeyond(const QualityLimit &limit, double value, const EyeQuality &quality);

/// Whether there is any valid sample: of one eye, the file still has a place for the other.
bool wasRecorded(const EyeQuality &quality);

/// The places in `qualityLimits` of those that are not kept to; none for an eye that was not recorded.
///
/// @param values  a value for each of them, in their units.
QList<qsizetype> limitsBroken(const EyeQuality &quality, const QList<double> &values);
