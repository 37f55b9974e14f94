#pragma once

#include "model/Examination.h"
#include "model/Group.h"
#include "model/ImageCache.h"

#include <array>

/// Everything that is loaded and computed. One instance in a program; nothing of it outlives the process.
class DataModel {
public:
    /// The four numbers of the saliency page; what they mean depends on the method.
    std::array<int, 4> saliencyParameters{};

    /// The containers that pool the checked examinations; the order is that of stored selections.
    enum class Pool { Left = 0, Right = 1, Dominant = 2, Mean = 3 };

    QList<Examination> &examinations() { return m_examinations; }
    const QList<Examination> &examinations() const { return m_examinations; }

    /// The examinations as imported, for taking back what cuts samples away.
    QList<Examination> &allExaminations() { return m_allExaminations; }
    const QList<Examination> &allExaminations() const { return m_allExaminations; }

    /// The checked examinations in list order; not owned, valid until the list changes.
    QList<const Examination *> checkedExaminations() const;

    /// The longest duration of the checked examinations in ms; 0 if there is none.
    qint64 longestCheckedDuration() const;

    /// Any index beyond the four means the dominant container.
    EyeData &pooledEyeData(int index);
    const EyeData &pooledEyeData(int index) const;
    EyeData &pooledEyeData(Pool pool) { return pooledEyeData(static_cast<int>(pool)); }
    const EyeData &pooledEyeData(Pool pool) const { return pooledEyeData(static_cast<int>(pool)); }
    void clearPooled(int index) { pooledEyeData(index) = {}; }

    /// What was done with the checked examinations as a whole.
    CalculationInfo &calculationInfo() { return m_calculationInfo; }
    const CalculationInfo &calculationInfo() const { return m_calculationInfo; }

    ImageCache &images() { return m_images; }
    const ImageCache &images() const { return m_images; }

    const QList<Group> &groups() const { return m_groups; }
    void setGroups(const QList<Group> &groups) { m_groups = groups; }
    /// The first group of that name; null if there is none.
    const Group *group(const QString &name) const;

    qint64 timeStart() const { return m_timeStart; }
    qint64 timeEnd() const { return m_timeEnd; }
    void setTimeStart(qint64 timeMs) { m_timeStart = timeMs; }
    void setTimeEnd(qint64 timeMs) { m_timeEnd = timeMs; }

private:
    static size_t poolPlace(int index);

    QList<Examination> m_examinations;
    QList<Examination> m_allExaminations;
    std::array<EyeData, 4> m_pooled;
    CalculationInfo m_calculationInfo;
    ImageCache m_images;
    QList<Group> m_groups;
    qint64 m_timeStart = 0; ///< ms
    qint64 m_timeEnd = 0;   ///< ms
};
