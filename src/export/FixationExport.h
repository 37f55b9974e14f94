// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/Examination.h"
#include "model/TimeFrame.h"

/// What the fixations file holds of one stream of one examination: a header and a row for each fixation that lies
/// wholly in the frame, or one line that says that there are none, then how they were calculated and who was recorded.
///
/// Numbers have a decimal point. Texts stand in double quotes as they are: a quote in them is not escaped.
QString fixationBlock(const Examination &examination, const EyeData &stream, TimeFrame frame);
