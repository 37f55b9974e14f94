// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <opencv2/core/types.hpp>

#include <functional>

/// Calls the function for 0 to count - 1, side by side in several threads. Each call writes only what is its own.
void forEachSideBySide(int count, const std::function<void(int)> &work);

/// Calls the function for stripes of rows that cover a picture from 0 to `rows`, side by side in several threads. Each
/// call writes only what belongs to its rows, and its result must not depend on where the stripes end.
void forRowStripes(int rows, const std::function<void(cv::Range)> &work);
