// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "import/ExaminationImport.h"
#include "import/ilmenau/MillimetreText.h"

/// What a recording in millimetres does not say of itself.
struct MillimetreStimulus {
    bool operator==(const MillimetreStimulus &) const = default;

    StimulusSize size;
    QString imagePath;
    QString iniPath; ///< calibration of the tracker, for correction programs
};

/// A recording in millimetres and its stimulus.
struct MillimetreRecording {
    bool operator==(const MillimetreRecording &) const = default;

    QString path;
    MillimetreStimulus stimulus;
};

/// Reads a recording in millimetres; nothing is thrown. Safe to be called from several threads.
///
/// The examination is called after its whole path, and by its file's name as subject; it has no dominant eye. Without
/// samples it counts as read all the same, and `doubts` tells why.
/// Errors: a file that cannot be opened gives a message; one that does not exist is left out without one.
ImportedFile readMillimetreRecording(const MillimetreRecording &recording);

/// Reads the recordings into the model in the given order and tells at the end, in one message, what is doubtful.
///
/// @param added  called for each examination as soon as it stands in the model.
/// @return the examinations that were added, by number.
QList<int> importMillimetreRecordings(const QList<MillimetreRecording> &recordings, DataModel &model,
                                      const ExaminationCallback &added);
