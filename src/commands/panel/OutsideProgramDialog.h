// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/OutsideProgram.h"

class QWidget;

/// Runs an outside program behind a modal dialog that stays painted and has a button to wait no longer; the program
/// goes on then. Nothing else can be clicked meanwhile.
OutsideResult runBehindDialog(const OutsideCall &call, const QString &label, QWidget *parent);
