// SPDX-License-Identifier: GPL-3.0-or-later
#include "clustering/panel/ClusterCalculationCommands.h"

#include "base/TextFormat.h"
#include "clustering/ClusterCalculation.h"
#include "clustering/CumulativeClusters.h"
#include "commands/CountText.h"
#include "commands/IMainWindow.h"
#include "model/DataModel.h"

namespace {

/// The undo view's word for a calculation: the method, what is clustered, the radius of a mean-shift.
QString undoText(const ClusterParameters &parameters, QLatin1StringView clustered)
{
    if (const auto *meanShift = std::get_if<MeanShiftClusterParameters>(&parameters))
        return QStringLiteral("Calculate mean-shift %1 [r=%2")
            .arg(clustered, text::general6(meanShift->radiusPx)); // sic
    const bool isOverlap = std::holds_alternative<OverlapClusterParameters>(parameters);
    return QStringLiteral("Calculate %1%2")
        .arg(isOverlap ? QLatin1StringView("overlap ") : QLatin1StringView(), clustered);
}

qsizetype clusterCount(const EyeData &eye)
{
    return eye.fixationClusters.size();
}

} // namespace

CommandCalculateClusters::CommandCalculateClusters(DataModel &model, const ClusterParameters &parameters,
                                                   IMainWindow *window)
    : QUndoCommand(undoText(parameters, QLatin1StringView("clusters")))
    , m_model(model)
    , m_parameters(parameters)
    , m_window(window)
{
}

void CommandCalculateClusters::undo()
{
    QList<Examination> &examinations = m_model.examinations();
    for (qsizetype i = 0; i < examinations.size(); ++i) {
        const auto before = m_before.constFind(i);
        if (!examinations[i].checked || before == m_before.constEnd())
            continue;
        examinations[i].leftEye.fixationClusters = before->left;
        examinations[i].rightEye.fixationClusters = before->right;
        examinations[i].meanEye.fixationClusters = before->mean;
        examinations[i].calculationInfo.clusterCalculationInfo = before->text;
    }
}

void CommandCalculateClusters::redo()
{
    m_before.clear();
    const QList<Examination> &examinations = std::as_const(m_model).examinations();
    for (qsizetype i = 0; i < examinations.size(); ++i) {
        const Examination &each = examinations[i];
        if (each.checked)
            m_before[i] = {each.leftEye.fixationClusters, each.rightEye.fixationClusters, each.meanEye.fixationClusters,
                           each.calculationInfo.clusterCalculationInfo};
    }
    calculateClusters(m_model, m_parameters);
    const QList<const Examination *> checked = m_model.checkedExaminations();
    if (m_window && !checked.isEmpty())
        m_window->tell({countText(QLatin1StringView("Clusters"), checked.size(), countsOf(checked, clusterCount)),
                        {},
                        DataKind::Clusters});
}

CommandCalculateCumulativeClusters::CommandCalculateCumulativeClusters(DataModel &model,
                                                                       const ClusterParameters &parameters,
                                                                       IMainWindow *window)
    : QUndoCommand(undoText(parameters, QLatin1StringView("cumulativclusters"))) // sic
    , m_model(model)
    , m_parameters(parameters)
    , m_window(window)
{
}

void CommandCalculateCumulativeClusters::undo()
{
    for (size_t i = 0; i < m_pooled.size(); ++i)
        m_model.pooled(allEyes[i]) = m_pooled[i];
    m_model.calculationInfo() = m_texts;
    QList<Examination> &examinations = m_model.examinations();
    for (qsizetype i = 0; i < examinations.size(); ++i) {
        const auto before = m_examinationTexts.constFind(i);
        if (examinations[i].checked && before != m_examinationTexts.constEnd())
            examinations[i].calculationInfo.cumulativeClusterCalculationInfo = *before;
    }
}

void CommandCalculateCumulativeClusters::redo()
{
    for (size_t i = 0; i < m_pooled.size(); ++i)
        m_pooled[i] = std::as_const(m_model).pooled(allEyes[i]);
    m_texts = m_model.calculationInfo();
    m_examinationTexts.clear();
    const QList<Examination> &examinations = std::as_const(m_model).examinations();
    for (qsizetype i = 0; i < examinations.size(); ++i) {
        if (examinations[i].checked)
            m_examinationTexts[i] = examinations[i].calculationInfo.cumulativeClusterCalculationInfo;
    }
    calculateCumulativeClusters(m_model, m_parameters);
    const qsizetype checked = m_model.checkedExaminations().size();
    QStringList warnings;
    if (const auto missing = missingClusters(m_model, m_parameters))
        warnings << *missing;
    const auto count = [this](Eye eye) { return clusterCount(std::as_const(m_model).pooled(eye)); };
    if (m_window && checked > 0)
        m_window->tell({countText(QLatin1StringView("Cumulative clusters"), checked,
                                  {count(Eye::Left), count(Eye::Right), count(Eye::Mean)}),
                        warnings, DataKind::Clusters});
}
