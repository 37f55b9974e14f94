// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "density/DensityEvents.h"

struct ScanpathSection;

/// A fixation or a fixation cluster as the density takes it: each component of its axes is rounded up.
FixationEvent sectionEvent(const ScanpathSection &section);
