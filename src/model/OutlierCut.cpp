// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/OutlierCut.h"

#include "model/Canvas.h"
#include "model/DataModel.h"

#include <algorithm>

namespace {

constexpr double marginFraction = 0.01;

class Limits {
public:
    Limits(double sizePx, double canvasPx)
    {
        const double size = sizePx < 0 || sizePx > canvasPx ? canvasPx : sizePx;
        m_lower = size * marginFraction;
        m_upper = size - m_lower;
    }
    bool excludes(double value) const { return value < m_lower || value >= m_upper; }

private:
    double m_lower = 0;
    double m_upper = 0;
};

const Examination *withNumber(const QList<Examination> &examinations, int number)
{
    const auto found = std::find_if(examinations.cbegin(), examinations.cend(),
                                    [&](const Examination &examination) { return examination.number == number; });
    return found == examinations.cend() ? nullptr : &*found;
}

/// The examinations as imported, with the choices that the user has made among those of the model since then.
QList<Examination> importedWithChoices(const DataModel &model)
{
    QList<Examination> imported = model.allExaminations();
    for (Examination &examination : imported) {
        const Examination *current = withNumber(model.examinations(), examination.number);
        if (!current)
            continue;
        examination.checked = current->checked;
        examination.groupName = current->groupName;
        examination.groupIndex = current->groupIndex;
    }
    return imported;
}

} // namespace

void cutOutliers(DataModel &model, QSizeF pictureSizePx)
{
    if (pictureSizePx.isEmpty()) {
        restoreOutliers(model);
        return;
    }
    const Limits x(pictureSizePx.width(), canvas::width);
    const Limits y(pictureSizePx.height(), canvas::height);
    const auto isOutlier = [&](const GazePoint &point) { return x.excludes(point.x) || y.excludes(point.y); };

    model.examinations() = importedWithChoices(model);
    model.samplesAreCut = true;
    for (Examination &examination : model.examinations()) {
        for (EyeData *eye : examination.streams()) {
            eye->gazePoints.removeIf(isOutlier);
            eye->scanpath.clear();
            eye->fixationClusters.clear();
        }
    }
}

void restoreOutliers(DataModel &model)
{
    model.examinations() = importedWithChoices(model);
    model.samplesAreCut = false;
}

void followExaminations(DataModel &model)
{
    if (!model.samplesAreCut) {
        model.allExaminations() = model.examinations();
        return;
    }
    QList<Examination> imported;
    for (const Examination &examination : std::as_const(model).examinations()) {
        const Examination *known = withNumber(std::as_const(model).allExaminations(), examination.number);
        imported << (known ? *known : examination);
    }
    model.allExaminations() = imported;
}
