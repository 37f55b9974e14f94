// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "gaze-simulator/GazeSimulator.h"

#include <QByteArray>
#include <QString>

/// Writes what a recorder would: NAME.data and NAME.set, and on demand the truth beside them, NAME.labels.csv.
/// A file appears when it is complete; one that stood there before is kept until then.
namespace recording {

enum class Truth { Leave, Write };

/// The lines before the first sample.
QByteArray header();

/// One sample as a line of the .data file: 11 fields, tabs between them, line end; decimal point always.
void appendLine(QByteArray &text, const SimulatedSample &sample);

/// @param name  path without extension.
/// @return false if a file cannot be written, which is reported with its name.
bool write(const QString &name, const QByteArray &setText, GazeSimulator &simulator, Truth truth);

} // namespace recording
