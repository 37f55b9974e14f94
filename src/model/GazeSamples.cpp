// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/GazeSamples.h"

#include <algorithm>

GazeSamples::GazeSamples(const QList<GazePoint> &list, qsizetype first, qsizetype count)
    : m_list(list)
    , m_first(first)
    , m_count(count)
{
    Q_ASSERT(first >= 0 && count >= 0 && first + count <= list.size());
}

QList<GazePoint> &GazeSamples::own()
{
    if (m_count != all) {
        m_list = m_list.sliced(m_first, m_count);
        m_first = 0;
        m_count = all;
    }
    return m_list;
}

void GazeSamples::append(const GazeSamples &further)
{
    if (isEmpty()) {
        *this = further;
    } else if (end() == further.begin() && m_list.isSharedWith(further.m_list)) {
        m_count = size() + further.size();
    } else {
        const qsizetype count = further.size();
        QList<GazePoint> &list = own();
        const qsizetype joint = list.size();
        list.resize(joint + count);
        std::copy_n(further.begin(), count, list.begin() + joint); // the front of these samples themselves, perhaps
    }
}

GazeSamples &GazeSamples::operator<<(const GazePoint &sample)
{
    own() << sample;
    return *this;
}

bool GazeSamples::equals(const GazeSamples &other) const
{
    if (size() != other.size())
        return false;
    return begin() == other.begin() || std::equal(begin(), end(), other.begin());
}
