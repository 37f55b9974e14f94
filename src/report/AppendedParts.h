// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// What is to stand below a picture.
struct AppendedParts {
    bool operator==(const AppendedParts &) const = default;

    bool legends = false;    ///< the colours of heatmaps
    bool parameters = false; ///< the calculation report
};
