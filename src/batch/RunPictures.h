// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMap>
#include <QString>

struct RunState;

/// Draws the scene and writes it into each picture that was asked for: once, or for each subject, image or recording.
void exportImages(RunState &run);

/// Writes the video that was asked for.
void exportVideo(RunState &run);

/// Writes the cuts of the background that were asked for.
void exportAoiImages(RunState &run);

/// Writes the density that was asked for.
///
/// @return what it is, for the report; empty where there is none.
QMap<QString, QString> exportDensity(RunState &run);
