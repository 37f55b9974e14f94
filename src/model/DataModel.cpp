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

EyeData &DataModel::pooledEyeData(int index)
{
    return m_pooled[poolPlace(index)];
}

const EyeData &DataModel::pooledEyeData(int index) const
{
    return m_pooled[poolPlace(index)];
}

size_t DataModel::poolPlace(int index)
{
    const bool known = index >= 0 && index < static_cast<int>(std::tuple_size_v<decltype(m_pooled)>);
    return static_cast<size_t>(known ? index : static_cast<int>(Pool::Dominant));
}

const Group *DataModel::group(const QString &name) const
{
    const auto found = std::find_if(m_groups.cbegin(), m_groups.cend(), [&](const Group &g) { return g.name == name; });
    return found == m_groups.cend() ? nullptr : &*found;
}
