// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "import/ExaminationImport.h"

/// Reads a recording of a BIDS data set: all eyes of the run to which the path belongs, with their events. Nothing is
/// thrown. Safe to be called from several threads.
///
/// Samples of the eyes are joined by their times. Without "cyclopean" samples the mean is that of both eyes, as for any
/// other recording. Fixations, saccades and losses of the data set become those of the examination, and a doubt says
/// so: a calculation replaces them. Subject, dominant eye and properties come from what Vistrum wrote beside the
/// samples, or from the table of participants.
///
/// @param path  of a table of samples, or of the description beside it.
/// Errors: a message with file, key and remedy; then the examination has no samples.
ImportedFile readBidsRecording(const QString &path);

/// The same for a path of that kind, and `readRecording` for any other.
ImportedFile readRecordingOrBids(const QString &path, const Log *log);

/// Folder and name of the examination that `readRecordingOrBids` gives.
RecordingPath recordingOrBidsPath(const QString &path);
