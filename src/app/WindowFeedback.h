// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// Lets messages appear as boxes with an Ok button and progress as dialogs, for as long as the program runs.
void installWindowFeedback();
