// SPDX-License-Identifier: GPL-3.0-or-later
#include "clustering/CumulativeClusters.h"

#include "base/Messages.h"
#include "base/Progress.h"
#include "clustering/ClusterCalculation.h"
#include "clustering/MeanShiftClusterBuilder.h"
#include "clustering/OverlapClusters.h"
#include "clustering/StandardClusterBuilder.h"
#include "model/DataModel.h"

#include <algorithm>
#include <limits>

namespace {

constexpr Eye pools[] = {Eye::Dominant, Eye::Right, Eye::Left, Eye::Mean}; ///< in the order of the runs

void appendCopies(QList<Fixation> &pooled, const QList<Fixation> &fixations, qsizetype examination)
{
    for (Fixation fixation : fixations) {
        fixation.examination = static_cast<int>(examination);
        pooled << fixation;
    }
}

void collectFixations(DataModel &model)
{
    const QList<Examination> &examinations = std::as_const(model).examinations();
    Progress progress(QStringLiteral("Collecting data for cumulative fixationcluster calculation, please wait."),
                      static_cast<int>(model.checkedExaminations().size()));
    for (qsizetype i = 0; i < examinations.size(); ++i) {
        if (!examinations[i].checked)
            continue;
        for (const Eye eye : pools)
            appendCopies(model.pooled(eye).scanpath, examinations[i].stream(eye).scanpath, i);
        progress.advance();
    }
}

void runPooled(const StandardClusterParameters &parameters, DataModel &model, int examinations)
{
    GrowingMinimum minimum(parameters.minimumFixations, examinations);
    for (const Eye eye : pools) {
        StandardClusterParameters grown = parameters;
        grown.minimumFixations = minimum.next();
        EyeData &pooled = model.pooled(eye);
        if (pooled.scanpath.isEmpty())
            messages::information(QStringLiteral("No fixations found. Cannot calculate fixation clusters."),
                                  QStringLiteral("Please calculate clusters first."));
        else
            StandardClusterBuilder(grown).buildClusters(pooled, StandardClusterBuilder::FinalSort::No);
    }
}

void runPooled(const MeanShiftClusterParameters &parameters, DataModel &model, int)
{
    for (const Eye eye : pools)
        const MeanShiftClusterBuilder builder(model.pooled(eye), parameters,
                                              MeanShiftClusterBuilder::ShowProgress::Yes);
}

void runPooled(const OverlapClusterParameters &parameters, DataModel &model, int examinations)
{
    for (const Eye eye : pools)
        buildPooledOverlapClusters(model.pooled(eye), parameters, examinations);
}

void writeTexts(DataModel &model, const ClusterParameters &parameters)
{
    const auto found = [&](Eye eye) { return std::as_const(model).pooled(eye).fixationClusters.size(); };
    const QString text = clusterResultText(parameters, found(Eye::Left), found(Eye::Right), found(Eye::Mean));
    model.calculationInfo().cumulativeClusterCalculationInfo = text;
    for (Examination &examination : model.examinations()) {
        if (!examination.checked)
            continue;
        examination.calculationInfo.cumulativeClusterCalculationInfo = text;
        model.calculationInfo().fixationCalculationInfo = examination.calculationInfo.fixationCalculationInfo;
        model.calculationInfo().fixationRemark = examination.calculationInfo.fixationRemark;
        model.calculationInfo().clusterCalculationInfo = examination.calculationInfo.clusterCalculationInfo;
    }
}

} // namespace

bool calculateCumulativeClusters(DataModel &model, const ClusterParameters &parameters)
{
    if (!hasCheckedExamination(model))
        return false;
    for (const Eye eye : pools)
        model.pooled(eye) = {};
    collectFixations(model);
    const auto examinations = static_cast<int>(model.checkedExaminations().size());
    {
        const messages::Run told; // containers without fixations say so once
        std::visit([&](const auto &p) { runPooled(p, model, examinations); }, parameters);
    }
    writeTexts(model, parameters);
    return true;
}

std::optional<QString> missingClusters(const DataModel &model, const ClusterParameters &parameters)
{
    const auto *standard = std::get_if<StandardClusterParameters>(&parameters);
    const auto examinations = static_cast<int>(model.checkedExaminations().size());
    if (!standard || examinations < 2)
        return {};
    GrowingMinimum minimum(standard->minimumFixations, examinations);
    QStringList missing;
    for (const Eye eye : pools) {
        const int asked = minimum.next();
        const EyeData &pooled = model.pooled(eye);
        if (!pooled.scanpath.isEmpty() && pooled.fixationClusters.isEmpty())
            missing << QStringLiteral("%1 %2 (of %3)")
                           .arg(eyeWord(eye), QString::number(asked), QString::number(pooled.scanpath.size()));
    }
    if (missing.isEmpty())
        return {};
    return QStringLiteral(
               "Eyes without a cumulative cluster, with the fixations that one cluster would need: %1. The standard "
               "method multiplies the minimum of %2 by the number of recordings, %3, anew for each eye. Choose a "
               "smaller minimum, fewer recordings, or another method.")
        .arg(missing.join(QLatin1StringView(", ")), QString::number(standard->minimumFixations),
             QString::number(examinations));
}

int GrowingMinimum::next()
{
    using Limits = std::numeric_limits<int>;
    m_minimum = static_cast<int>(std::clamp<qint64>(qint64(m_minimum) * m_examinations, Limits::min(), Limits::max()));
    return m_minimum;
}
