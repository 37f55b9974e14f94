// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class Log;
class QWidget;

/// Asks for a file and saves the settings there.
void askAndSaveSettings(QWidget *parent, const Log &log);

/// Asks for a file of settings and takes them over; a file that holds none is told.
/// @return whether the store may have changed.
bool askAndLoadSettings(QWidget *parent, const Log &log);

/// Asks whether all parameters are to be reset.
bool askForReset(QWidget *parent);
