// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "aoi/AoiFile.h"

/// Reads areas from a file of any form that there is, told by its ending: .csv a table of vertices, .json, .png a label
/// image with an optional table of names beside it (the same name, but .csv); any other an AOI file. Tells the user
/// what is wrong with it, each cause once.
AoiFileContents readAois(const QString &path);

/// Writes the areas in the form of the file's ending: .csv, .json, or any other for an AOI file.
///
/// @return false, after a message, if there is no area or the file cannot be written; an older file is then as it was.
bool writeAois(const QList<AreaOfInterest> &aois, const QString &path);
