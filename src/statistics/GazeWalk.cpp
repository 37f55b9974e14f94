// SPDX-License-Identifier: GPL-3.0-or-later
#include "statistics/GazeWalk.h"

#include <algorithm>

namespace {

/// The saccades of the eye in another examination; null where the list of examinations is shorter.
const QList<Saccade> *saccadesOf(int examination, Eye eye, const DataModel &model)
{
    const QList<Examination> &examinations = model.examinations();
    if (examination < 0 || examination >= examinations.size())
        return nullptr;
    return &examinations[examination].stream(eye).saccades;
}

} // namespace

QList<GazeWalk> walksOf(const QList<const Examination *> &examinations, EyeMode mode)
{
    QList<GazeWalk> walks;
    for (const Examination *examination : examinations) {
        for (const Eye eye : eyesOf(mode)) {
            const EyeData &stream = examination->stream(eye);
            walks << GazeWalk{stream.scanpath, &stream.saccades};
        }
    }
    return walks;
}

QList<GazeWalk> pooledWalks(Eye eye, const DataModel &model, qsizetype leftOut)
{
    const QList<Fixation> &pooled = model.pooled(eye).scanpath;
    QList<GazeWalk> walks;
    for (auto begin = pooled.cbegin(); begin != pooled.cend();) {
        const int examination = begin->examination;
        const auto end = std::find_if(begin, pooled.cend(),
                                      [&](const Fixation &fixation) { return fixation.examination != examination; });
        if (leftOut < 0 || examination != leftOut)
            walks << GazeWalk{{begin, end}, saccadesOf(examination, eye, model)};
        begin = end;
    }
    return walks;
}
