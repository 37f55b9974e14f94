// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "visualization/modes/ShownOption.h"

struct VisualizationParameters;

/// The options of the record's kind of data in its mode; none in mode 0 and in modes that the kind does not have.
///
/// The same few fields serve many modes: "Shadow power" is the time window of a histogram, and "Show Gazepoints" turns
/// transition circles into ellipses. Which name a field has where is told by the row of the mode.
QList<ShownOption> modeLayout(const VisualizationParameters &parameters);

/// Whether the mode is a shadow map.
bool isShadowMode(const VisualizationParameters &parameters);
