// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// Pictures that take more memory are refused. Those that people are shown can be large: this is one of 23,000 by
/// 23,000 pixels.
inline constexpr int largestPictureMegabytes = 2048;
