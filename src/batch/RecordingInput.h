// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "import/conversion/TableImport.h"
#include "import/ilmenau/MillimetreImport.h"

struct BatchOptions;
class RunJournal;

/// A recording of the command line.
struct RecordingInput {
    QString path;
    std::optional<MillimetreStimulus> stimulus; ///< of a recording in millimetres
    bool isTable = false;                       ///< to be read by the layout
};

/// What was read of it: one recording, or the recordings of a table.
using ReadInput = std::variant<ImportedFile, ImportedTable>;

/// Whether a file is a recording in millimetres if the options describe their stimulus.
bool isMillimetreText(const QString &path);

/// The recordings in their order. In the place of a correction ini stand the measured recording and
/// the corrected one; one that cannot be read, or lacks entries, fails the run. In the
/// place of the folder of a BIDS data set stand its recordings, a file of each.
QList<RecordingInput> recordingInputs(const QStringList &recordings, const BatchOptions &options, RunJournal &journal);

/// Whether a file of the command line is read by the layout, where one is given: all but those in forms of our own.
bool isTable(const QString &path, const BatchOptions &options);

/// Reads the recording. Safe to be called from several threads.
/// @param layout  for tables; may be null where there are none.
ReadInput readInput(const RecordingInput &input, const LayoutRequest *layout);
