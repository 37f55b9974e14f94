// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/Eye.h"

#include <QString>

class QWidget;

// What the parts of the export panel share.

/// The eyes of the combo box's text; any other text means all.
EyeMode eyeSelection(const QString &text);

/// Tells the user that no folder is chosen.
void askForFolder(QWidget *parent);
