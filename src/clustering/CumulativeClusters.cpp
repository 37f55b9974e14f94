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

using Pool = DataModel::Pool;

constexpr Pool pools[] = {Pool::Dominant, Pool::Right, Pool::Left, Pool::Mean}; ///< in the order of the runs

const EyeData &sourceOf(Pool pool, const Examination &examination)
{
    switch (pool) {
    case Pool::Left:
        return examination.leftEye;
    case Pool::Right:
        return examination.rightEye;
    case Pool::Dominant:
        return examination.dominantEyeData();
    case Pool::Mean:
        break;
    }
    return examination.meanEye;
}

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
        for (const Pool pool : pools)
            appendCopies(model.pooledEyeData(pool).scanpath, sourceOf(pool, examinations[i]).scanpath, i);
        progress.advance();
    }
}

void runPooled(const StandardClusterParameters &parameters, DataModel &model, int examinations)
{
    GrowingMinimum minimum(parameters.minimumFixations, examinations);
    for (const Pool pool : pools) {
        StandardClusterParameters grown = parameters;
        grown.minimumFixations = minimum.next();
        EyeData &pooled = model.pooledEyeData(pool);
        if (pooled.scanpath.isEmpty())
            messages::information(QStringLiteral("No fixations found. Cannot calculate fixation clusters."),
                                  QStringLiteral("Please calculate clusters first."));
        else
            StandardClusterBuilder(grown).buildClusters(pooled, StandardClusterBuilder::FinalSort::No);
    }
}

void runPooled(const MeanShiftClusterParameters &parameters, DataModel &model, int)
{
    for (const Pool pool : pools)
        const MeanShiftClusterBuilder builder(model.pooledEyeData(pool), parameters,
                                              MeanShiftClusterBuilder::ShowProgress::Yes);
}

void runPooled(const OverlapClusterParameters &parameters, DataModel &model, int examinations)
{
    for (const Pool pool : pools)
        buildPooledOverlapClusters(model.pooledEyeData(pool), parameters, examinations);
}

void writeTexts(DataModel &model, const ClusterParameters &parameters)
{
    const auto found = [&](Pool pool) { return std::as_const(model).pooledEyeData(pool).fixationClusters.size(); };
    const QString text = clusterResultText(parameters, found(Pool::Left), found(Pool::Right), found(Pool::Mean));
    model.calculationInfo().cumulativeClusterCalculationInfo = text;
    for (Examination &examination : model.examinations()) {
        if (!examination.checked)
            continue;
        examination.calculationInfo.cumulativeClusterCalculationInfo = text;
        model.calculationInfo().fixationCalculationInfo = examination.calculationInfo.fixationCalculationInfo;
        model.calculationInfo().clusterCalculationInfo = examination.calculationInfo.clusterCalculationInfo;
    }
}

} // namespace

bool calculateCumulativeClusters(DataModel &model, const ClusterParameters &parameters)
{
    if (!hasCheckedExamination(model))
        return false;
    for (const Pool pool : pools)
        model.clearPooled(static_cast<int>(pool));
    collectFixations(model);
    const auto examinations = static_cast<int>(model.checkedExaminations().size());
    std::visit([&](const auto &p) { runPooled(p, model, examinations); }, parameters);
    writeTexts(model, parameters);
    return true;
}

int GrowingMinimum::next()
{
    using Limits = std::numeric_limits<int>;
    m_minimum = static_cast<int>(std::clamp<qint64>(qint64(m_minimum) * m_examinations, Limits::min(), Limits::max()));
    return m_minimum;
}
