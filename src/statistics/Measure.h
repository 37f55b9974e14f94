// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLatin1StringView>

#include <optional>

/// One column of a tidy table.
template <class Record>
struct Measure {
    QLatin1StringView name;                         ///< with its unit
    std::optional<double> (*value)(const Record &); ///< nothing where the measure is not defined
};
