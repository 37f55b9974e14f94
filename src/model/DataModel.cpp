// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/DataModel.h"

#include <algorithm>

QList<const Examination *> DataModel::checkedExaminations() const
{
    QList<const Examination *> checked;
    for (const Examination &examination : m_examinations) {
        if (examination.checked)
            checked << &examination;
    }
    return checked;
}

qint64 DataModel::longestCheckedDuration() const
{
    qint64 longest = 0;
    for (const Examination &examination : m_examinations) {
        if (examination.checked)
            longest = std::max(longest, examination.duration());
    }
    return longest;
}

QList<AreaOfInterest> DataModel::checkedAois() const
{
    QList<AreaOfInterest> checked;
    for (const AreaOfInterest &aoi : m_aois) {
        if (aoi.enabled)
            checked << aoi;
    }
    return checked;
}

/// QMap::value() makes a default value each time, and a new area takes the next colour from those to come.
AreaOfInterest DataModel::aoi(const QString &name) const
{
    const auto found = m_aois.constFind(name);
    return found == m_aois.cend() ? AreaOfInterest() : *found;
}

const Group *DataModel::group(const QString &name) const
{
    const auto found = std::find_if(m_groups.cbegin(), m_groups.cend(), [&](const Group &g) { return g.name == name; });
    return found == m_groups.cend() ? nullptr : &*found;
}
