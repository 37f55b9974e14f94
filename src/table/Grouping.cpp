// SPDX-License-Identifier: GPL-3.0-or-later
#include "table/Grouping.h"

#include <algorithm>

namespace {

/// Position of the first group of that name, which is made if there is none.
int groupIndex(QList<Group> &groups, const QString &name, const Group::ColorTable &colors)
{
    const auto found = std::find_if(groups.cbegin(), groups.cend(), [&](const Group &g) { return g.name == name; });
    const qsizetype index = std::distance(groups.cbegin(), found);
    if (index == groups.size())
        groups << Group(name, colors);
    return static_cast<int>(index);
}

} // namespace

void assignGroup(Examination &examination, const QString &name, int index)
{
    examination.groupName = name;
    examination.groupIndex = index;
}

void clearGroup(Examination &examination)
{
    assignGroup(examination, Group::none, 0);
}

void groupBy(DataModel &model, const QString &property, const Group::ColorTable &colors)
{
    QList<Group> groups = model.groups();
    for (Examination &examination : model.examinations()) {
        const auto value = examination.properties.constFind(property);
        if (value == examination.properties.cend())
            clearGroup(examination);
        else
            assignGroup(examination, *value, groupIndex(groups, *value, colors));
    }
    model.setGroups(groups);
}

void keepKnownGroup(Examination &examination, const QStringList &groupNames)
{
    const qsizetype index = groupNames.indexOf(examination.groupName);
    if (index < 0)
        clearGroup(examination);
    else
        examination.groupIndex = static_cast<int>(index);
}

void setGazePointColor(Examination &examination, QRgb color)
{
    for (EyeData *eye : examination.streams()) {
        for (GazePoint &point : eye->gazePoints)
            point.color = color;
    }
    examination.properties[QString(colorProperty)] = QString::number(color);
}
