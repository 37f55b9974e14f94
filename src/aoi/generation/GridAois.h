// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "aoi/generation/GeneratedAoi.h"

/// Twenty-five tiles of 512 x 320 px that cover the canvas, column by column from its upper left corner, whatever the
/// size of the image. Names run from "GridAOI(2)" to "GridAOI(26)".
///
/// The polygon of a tile has a vertex at each pixel of its border: clockwise from the upper left corner and back to it,
/// with each corner twice.
QList<GeneratedAoi> gridAois();
