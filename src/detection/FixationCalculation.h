#pragma once

#include "detection/FixationSettingsModel.h"
#include "model/DataModel.h"

class Log;

/// Runs the chosen detector over the left, right and mean stream of each checked examination and stores what it finds.
///
/// The fixations and fixation clusters of the checked examinations and of the pooled left, right and mean streams are
/// dropped first; saccades, invalid sections and event rows of earlier calculations stay, and new ones are added to
/// them. Each examination's `fixationCalculationInfo` says what was calculated.
///
/// With no examination checked the user is told so, and nothing else happens. Afterwards the user sees the detector's
/// report, if it makes one.
/// @param settings  a `calculationType` without detector counts as the standard one.
/// @param log       may be null.
void calculateFixations(DataModel &model, const FixationSettingsModel &settings, const Log *log);
