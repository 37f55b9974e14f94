// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLatin1StringView>

/// Label of the progress of all models.
inline constexpr QLatin1StringView saliencyLabel("Calculating the saliency map, please wait.");
