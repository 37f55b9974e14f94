// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "detection/StandardScanpathBuilder.h"
#include "detection/StepWalk.h"
#include "detection/VelocityScanpathBuilder.h"

#include <variant>

/// The detector of a calculation, with its own parameters only. A further detector is a further alternative here, a row
/// in the table of the calculation, its `run` and `parameterText` there, and its warnings.
using FixationCalculationParameters = std::variant<StandardParameters, MixtureParameters, VelocityParameters>;
