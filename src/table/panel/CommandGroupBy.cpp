// SPDX-License-Identifier: GPL-3.0-or-later
#include "table/panel/CommandGroupBy.h"

#include "table/Grouping.h"

#include <QSet>

#include <algorithm>

namespace {

QStringList namesOf(const QList<Group> &groups)
{
    QStringList names;
    for (const Group &group : groups)
        names << group.name;
    return names;
}

} // namespace

CommandGroupBy::CommandGroupBy(QString property, DataModel &model, Group::ColorTable colors, Show show)
    : QUndoCommand(QStringLiteral("Group by: ") + property)
    , m_property(std::move(property))
    , m_model(model)
    , m_colors(std::move(colors))
    , m_show(std::move(show))
{
}

void CommandGroupBy::redo()
{
    m_before.clear();
    for (const Examination &examination : std::as_const(m_model).examinations())
        m_before << Membership{examination.groupName, examination.groupIndex};
    const QStringList namesBefore = namesOf(m_model.groups());
    m_model.setGroups(m_model.groups() + std::exchange(m_made, {}));
    groupBy(m_model, m_property, m_colors);
    m_madeNames = namesOf(m_model.groups());
    m_madeNames.removeIf([&](const QString &name) { return namesBefore.contains(name); });
    m_show(QList<Group>(m_model.groups()));
}

void CommandGroupBy::undo()
{
    QList<Examination> &examinations = m_model.examinations();
    for (qsizetype i = 0; i < std::min(examinations.size(), m_before.size()); ++i)
        assignGroup(examinations[i], m_before[i].name, m_before[i].index);
    QSet<QString> used;
    for (const Examination &examination : std::as_const(examinations))
        used << examination.groupName;
    QList<Group> kept;
    for (const Group &group : m_model.groups()) {
        const bool isMade = m_madeNames.contains(group.name) && !used.contains(group.name);
        (isMade ? m_made : kept) << group;
    }
    m_show(kept);
}
