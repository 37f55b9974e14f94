// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "diagram/ChordData.h"

/// The matrix as one array of arrays of JSON, without a space; a share that is no number is "nan".
QByteArray matrixJson(const ChordData &data);

/// Names and colours, a line for each area; name fields are quoted where they need it. Places and population are those
/// of the map page whose layout the file has, and mean nothing.
QByteArray citiesCsv(const ChordData &data);

/// A page that draws the data and needs no other file.
QByteArray standalonePage(const ChordData &data);

/// What cannot be written, and why, in words for the user.
struct ChordFilesProblem {
    QString text;
    QString reason;
};

/// Writes the two files, the page "index.htm" that reads them, and its scripts; makes the folder where it is missing.
///
/// @return nothing if all is there.
std::optional<ChordFilesProblem> writeChordFiles(const ChordData &data, const QString &folder);

/// The folder of the program, or one of the user's where files cannot be written there.
QString chordFolder();
