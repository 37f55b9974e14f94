#pragma once

#include "import/ilmenau/MillimetreImport.h"

struct BatchOptions;
class RunJournal;

/// A recording of the command line.
struct RecordingInput {
    QString path;
    std::optional<MillimetreStimulus> stimulus; ///< of a recording in millimetres
};

/// Whether a file is a recording in millimetres if the options describe their stimulus.
bool isMillimetreText(const QString &path);

/// The recordings in their order. In the place of a correction ini stand the measured recording and
/// the corrected one; one that cannot be read, or lacks entries, fails the run.
QList<RecordingInput> recordingInputs(const QStringList &recordings, const BatchOptions &options, RunJournal &journal);

/// Reads the recording. Safe to be called from several threads.
ImportedFile readInput(const RecordingInput &input, const Log *log);
