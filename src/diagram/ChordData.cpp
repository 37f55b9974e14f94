// SPDX-License-Identifier: GPL-3.0-or-later
#include "diagram/ChordData.h"

#include "statistics/AoiTransitions.h"

#include <algorithm>

ChordData chordData(const DataModel &model, EyeMode eyes, TransitionType type, TimeFrame frame)
{
    const QList<AreaOfInterest> areas = model.aoiList();
    QList<const Examination *> examinations;
    for (const Examination &examination : model.examinations())
        examinations << &examination;
    const AoiTransitions transitions = countAoiTransitions(areas, walksOf(examinations, eyes), type, frame);
    const double total = transitions.total();
    ChordData data;
    for (qsizetype from = 0; from < areas.size(); ++from) {
        data.areas << ChordData::Area{areas[from].name, areas[from].color};
        QList<double> row;
        for (qsizetype to = 0; to < areas.size(); ++to)
            row << transitions.count(from, to) / total;
        data.shares << row;
    }
    return data;
}

std::optional<QString> emptyDiagram(const DataModel &model)
{
    if (model.aoiList().isEmpty())
        return QStringLiteral("No AOIs available");
    const QList<Examination> &examinations = model.examinations();
    if (examinations.isEmpty())
        return QStringLiteral("No examination selected");
    const bool hasFixations = std::any_of(examinations.cbegin(), examinations.cend(), [](const Examination &each) {
        return !each.leftEye.scanpath.isEmpty() || !each.rightEye.scanpath.isEmpty();
    });
    return hasFixations ? std::nullopt : std::optional(QStringLiteral("No fixations available"));
}
