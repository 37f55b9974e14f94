// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/AreaOfInterest.h"
#include "model/Examination.h"
#include "model/Group.h"
#include "model/ImageCache.h"
#include "model/TimeFrame.h"

#include <array>

/// Everything that is loaded and computed. One instance in a program; nothing of it outlives the process.
class DataModel {
public:
    /// The four numbers of the saliency page; what they mean depends on the method.
    std::array<int, 4> saliencyParameters{};

    /// Property of the examinations that names the groups whose measures are compared.
    QString comparedBy = QStringLiteral("group");

    /// The examinations lack samples that they were imported with; kept by the cut of outliers.
    bool samplesAreCut = false;

    QList<Examination> &examinations() { return m_examinations; }
    const QList<Examination> &examinations() const { return m_examinations; }

    /// The examinations as imported, for taking back what cuts samples away.
    QList<Examination> &allExaminations() { return m_allExaminations; }
    const QList<Examination> &allExaminations() const { return m_allExaminations; }

    /// The checked examinations in list order; not owned, valid until the list changes.
    QList<const Examination *> checkedExaminations() const;

    /// The longest duration of the checked examinations in ms; 0 if there is none.
    qint64 longestCheckedDuration() const;

    /// The container that pools the stream of the checked examinations.
    EyeData &pooled(Eye eye) { return m_pooled[static_cast<size_t>(eye)]; }
    const EyeData &pooled(Eye eye) const { return m_pooled[static_cast<size_t>(eye)]; }

    /// What was done with the checked examinations as a whole.
    CalculationInfo &calculationInfo() { return m_calculationInfo; }
    const CalculationInfo &calculationInfo() const { return m_calculationInfo; }

    ImageCache &images() { return m_images; }
    const ImageCache &images() const { return m_images; }

    /// The areas of interest in ascending order of their names; all examinations are measured against the same ones.
    QList<AreaOfInterest> aoiList() const { return m_aois.values(); }
    /// Those of them that are enabled.
    QList<AreaOfInterest> checkedAois() const;
    /// The area of that name; one with a null name if there is none.
    AreaOfInterest aoi(const QString &name) const;
    bool hasAoi(const QString &name) const { return m_aois.contains(name); }
    /// Replaces the area of the same name.
    void insertAoi(const AreaOfInterest &aoi) { m_aois.insert(aoi.name, aoi); }
    void removeAoi(const QString &name) { m_aois.remove(name); }

    const QList<Group> &groups() const { return m_groups; }
    void setGroups(const QList<Group> &groups) { m_groups = groups; }
    /// The first group of that name; null if there is none.
    const Group *group(const QString &name) const;

    TimeFrame timeFrame() const { return m_timeFrame; }
    void setTimeFrame(TimeFrame frame) { m_timeFrame = frame; }

private:
    QList<Examination> m_examinations;
    QList<Examination> m_allExaminations;
    std::array<EyeData, allEyes.size()> m_pooled;
    CalculationInfo m_calculationInfo;
    ImageCache m_images;
    QMap<QString, AreaOfInterest> m_aois;
    QList<Group> m_groups;
    TimeFrame m_timeFrame;
};
