// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/SideBySide.h"
#include "model/DataModel.h"

#include <vector>

/// One examination through one eye, as tables with a row for each of them, or for what each of them has, go by them.
struct ExportedStream {
    const EyeData &data() const { return examination->stream(eye); }
    QString subject() const
    {
        return examination->subjectId.isEmpty() ? examination->baseName : examination->subjectId;
    }

    const Examination *examination; ///< of the model
    Eye eye;
};

/// Those of the checked examinations, for each of them one for each eye of the mode.
inline std::vector<ExportedStream> streamsOf(const DataModel &model, EyeMode eyes)
{
    std::vector<ExportedStream> streams;
    for (const Examination *examination : model.checkedExaminations()) {
        for (const Eye eye : eyesOf(eyes))
            streams.push_back({examination, eye});
    }
    return streams;
}
