// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

/// Losses of at most this length are bridged before the standard detection.
inline constexpr qint64 longestBridgedGapMs = 20;
