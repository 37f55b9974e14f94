// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/// Whether a program of this file name runs, whoever started it. Letter case counts as the system has it.
bool isProcessRunning(const QString &imageName);

/// The same, asked of the program that lists processes on Windows: it is given the filter for the name, and answers
/// with the name in quotes, first of all, where there is one.
/// @param program  that program.
bool isListedByTasklist(const QString &imageName, const QString &program = QStringLiteral("tasklist"));

/// Whether /proc has a process whose program or first argument has this file name.
bool isListedInProc(const QString &imageName);
