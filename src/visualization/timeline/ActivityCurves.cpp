// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/timeline/ActivityCurves.h"

#include "model/DataModel.h"

#include <cmath>
#include <numeric>

namespace {

double wayLength(std::span<const GazePoint> samples)
{
    double length = 0;
    for (size_t i = 1; i < samples.size(); ++i) {
        const double dx = samples[i].x - samples[i - 1].x;
        const double dy = samples[i].y - samples[i - 1].y;
        length += std::sqrt(dx * dx + dy * dy);
    }
    return length;
}

} // namespace

ActivityCurves activityCurves(const DataModel &model, EyeMode mode, int columns,
                              const std::function<int(qint64)> &timeToPixel)
{
    const qsizetype length = std::max(columns, 0);
    ActivityCurves curves{QList<double>(length), QList<double>(length)};
    for (const Examination *examination : model.checkedExaminations()) {
        for (const Eye eye : eyesOf(mode)) {
            for (const Fixation &fixation : examination->stream(eye).scanpath) {
                if (fixation.samples.isEmpty())
                    continue;
                const int column = timeToPixel(std::midpoint(fixation.firstTime(), fixation.lastTime()));
                if (column < 0 || column >= columns)
                    continue;
                curves.samples[column] += static_cast<double>(fixation.samples.size());
                curves.distances[column] += wayLength(fixation.samples);
            }
        }
    }
    return curves;
}
