// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/EyeData.h"
#include "model/TimeFrame.h"

/// Activity and speed of the gaze. Validity is not looked at: invalid samples count with their stored positions.
///
/// A pair of neighbours takes part if the frame has both; its speed goes by whole pixels, each coordinate cut.
/// Positions are those of the later sample of each pair, and that of the first sample of the stream. Without a pair
/// `minSpeed` stays at 1e6 and `meanSpeed` is not a number; a pair of the same time has a speed of infinity.
///
/// @param samples  of one stream, in file order.
GeneralStatistics generalStatistics(const QList<GazePoint> &samples, TimeFrame frame);
