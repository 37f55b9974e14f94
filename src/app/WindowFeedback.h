// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <optional>

/// Lets messages appear as boxes with an Ok button and progress as dialogs, for as long as the program runs.
void installWindowFeedback();

/// The problem as a warning or, without one, the text as information.
void tellOutcome(const QString &title, const QString &text, const std::optional<QString> &problem);
