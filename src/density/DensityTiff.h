// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "density/Density.h"

#include <QByteArray>

/// A density as the bytes of a TIFF file for other programs: one channel of 32-bit floating point numbers, 2560 x 1600,
/// uncompressed, little-endian, rows from top to bottom.
///
/// @param description  text for the file's description, in ASCII.
QByteArray densityTiff(const Density &density, const QByteArray &description);
