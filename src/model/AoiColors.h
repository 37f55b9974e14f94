// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>

/// The random colours of new areas of interest, all from the C library's generator.
namespace aoicolors {

/// The next colour: red, green and blue from one call each, half transparent, so that the stimulus shows through.
QColor next();

/// Begins the sequence of that seed. A program that does not call this has the sequence of seed 1, as the C standard
/// has it: the window finds the same areas in the same colours in every session.
void seed(unsigned number);

} // namespace aoicolors
