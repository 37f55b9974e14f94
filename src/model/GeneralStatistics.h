// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// How the gaze of one stream moved in a time frame, each value rounded to two decimals.
struct GeneralStatistics {
    bool operator==(const GeneralStatistics &) const = default;

    double horizontalActivity = 0; ///< px, standard deviation of x
    double verticalActivity = 0;   ///< px, standard deviation of y
    double minSpeed = 0;           ///< px per second
    double maxSpeed = 0;           ///< px per second
    double meanSpeed = 0;          ///< px per second; not a number without a pair of samples
};
