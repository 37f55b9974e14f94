// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// Whole part of a number for texts and pixels, towards zero. Beyond the range of int the nearest int, NaN gives 0.
int truncated(double value);
