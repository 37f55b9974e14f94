// SPDX-License-Identifier: GPL-3.0-or-later
#include "clustering/ClusterCalculation.h"

#include "base/Messages.h"
#include "base/Progress.h"
#include "base/TextFormat.h"
#include "clustering/MeanShiftClusterBuilder.h"
#include "clustering/OverlapClusters.h"
#include "clustering/StandardClusterBuilder.h"
#include "model/DataModel.h"

#include <vector>

namespace {

void run(const StandardClusterParameters &parameters, EyeData &eye)
{
    StandardClusterBuilder(parameters).buildClusters(eye, StandardClusterBuilder::FinalSort::Yes);
}

void run(const MeanShiftClusterParameters &parameters, EyeData &eye)
{
    const MeanShiftClusterBuilder builder(eye, parameters, MeanShiftClusterBuilder::ShowProgress::No);
}

void run(const OverlapClusterParameters &parameters, EyeData &eye)
{
    buildOverlapClusters(eye, parameters);
}

QString parameterText(const StandardClusterParameters &parameters)
{
    return QStringLiteral("Algorithm:STANDARD\n"
                          "Parameter:\n Minimum Fixations:%1, Overlap Allowed:%2, Maximum Radius:%3\n")
        .arg(parameters.minimumFixations)
        .arg(parameters.overlapAllowed)
        .arg(parameters.maximumRadiusPx);
}

QString parameterText(const MeanShiftClusterParameters &parameters)
{
    return QStringLiteral("Algorithm:MEANSHIFT\n"
                          "Parameter:\n Minimum Fixations:%1, Radius:%2, Gradient:%3, Iterations:%4\n")
        .arg(QString::number(parameters.minimumFixations), text::general6(parameters.radiusPx),
             text::general6(parameters.rate), QString::number(parameters.iterations));
}

QString parameterText(const OverlapClusterParameters &parameters)
{
    const QString outliers = parameters.outliers ? QStringLiteral(", Outlier:%1").arg(*parameters.outliers) : QString();
    return QStringLiteral("Algorithm:OVERLAP\nParameter:\n Minimum Fixations:%1%2\n")
        .arg(QString::number(parameters.minimumFixations), outliers);
}

/// The number tells the order of creation when a redraw has ordered the list otherwise.
void numberClusters(QList<FixationCluster> &clusters)
{
    for (int number = 0; FixationCluster & cluster : clusters)
        cluster.number = number++;
}

void clusterEyes(Examination &examination, const ClusterParameters &parameters)
{
    for (EyeData *eye : examination.streams())
        eye->fixationClusters.clear();
    for (EyeData *eye : {&examination.rightEye, &examination.leftEye, &examination.meanEye}) {
        std::visit([&](const auto &p) { run(p, *eye); }, parameters);
        numberClusters(eye->fixationClusters);
    }
    examination.calculationInfo.clusterCalculationInfo =
        clusterResultText(parameters, examination.leftEye.fixationClusters.size(),
                          examination.rightEye.fixationClusters.size(), examination.meanEye.fixationClusters.size());
}

void clearPooledFixations(DataModel &model)
{
    for (const Eye pool : {Eye::Left, Eye::Right, Eye::Mean}) {
        model.pooled(pool).fixationClusters.clear();
        model.pooled(pool).scanpath.clear();
    }
}

} // namespace

ClusterMethod clusterMethod(int calculationType)
{
    constexpr int last = static_cast<int>(ClusterMethod::Overlap);
    return calculationType < 0 || calculationType > last ? ClusterMethod::Standard
                                                         : static_cast<ClusterMethod>(calculationType);
}

ClusterParameters clusterParameters(int calculationType, const ClusterSettingsModel &settings,
                                    const OverlapClusterParameters &overlap)
{
    switch (clusterMethod(calculationType)) {
    case ClusterMethod::MeanShift:
        return MeanShiftClusterParameters{settings.meanShiftRadius, settings.meanShiftGradient,
                                          settings.meanShiftIterations, settings.meanShiftMinimumFixations};
    case ClusterMethod::Overlap:
        return overlap;
    case ClusterMethod::Standard:
        break;
    }
    return StandardClusterParameters{settings.standardMinimumFixations, settings.standardOverlapAllowed,
                                     settings.standardMaximumRadius};
}

bool hasCheckedExamination(const DataModel &model)
{
    if (!model.checkedExaminations().isEmpty())
        return true;
    messages::information(QStringLiteral("No examination selected!"), QStringLiteral("Please select some data first."));
    return false;
}

bool calculateClusters(DataModel &model, const ClusterParameters &parameters, int threads)
{
    if (!hasCheckedExamination(model))
        return false;
    clearPooledFixations(model);
    std::vector<Examination *> checked;
    for (Examination &examination : model.examinations()) {
        if (examination.checked)
            checked.push_back(&examination);
    }
    Progress progress(QStringLiteral("Calculating fixationclusters, please wait."), static_cast<int>(checked.size()));
    messages::Run told;
    std::vector<QList<messages::Message>> messages(checked.size());
    sideBySide(
        std::ssize(checked), threads,
        [&](qsizetype i) {
            messages::Collector collector;
            clusterEyes(*checked[static_cast<std::size_t>(i)], parameters);
            messages[static_cast<std::size_t>(i)] = collector.take();
        },
        [&](qsizetype i) {
            const auto place = static_cast<std::size_t>(i);
            told.addRecording(checked[place]->baseName, messages[place]);
            progress.advance();
        });
    return true;
}

QString clusterResultText(const ClusterParameters &parameters, qsizetype left, qsizetype right, qsizetype mean)
{
    return std::visit([](const auto &p) { return parameterText(p); }, parameters) +
           QStringLiteral("Fixationclusters found:\n Left Eye:%1, Right Eye:%2, Mean Eye:%3\n")
               .arg(left)
               .arg(right)
               .arg(mean);
}
