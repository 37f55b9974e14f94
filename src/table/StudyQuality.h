// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/SideBySide.h"
#include "model/DataModel.h"
#include "table/DataQuality.h"

/// The quality of one recording through one eye.
struct StreamQuality {
    qsizetype examination = 0; ///< place in the model's list
    Eye eye = Eye::Left;
    EyeQuality quality;
};

/// Which examinations are measured.
enum class MeasuredExaminations { Checked, All };

struct StudyQualityForm {
    EyeMode eyes = EyeMode::showAll;
    MeasuredExaminations which = MeasuredExaminations::Checked;
    std::optional<double> pixelPerDistance; ///< nothing: not known, angles stay empty
    int threads = coreCount();              ///< the result does not depend on it
};

/// Measures the examinations of the model in its time frame, with progress: by their order, and of each the eyes in
/// theirs. What lies on the picture counts as inside, see `screenSizeOf`.
QList<StreamQuality> studyQuality(const DataModel &model, const StudyQualityForm &form);
