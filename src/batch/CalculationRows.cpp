// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/CalculationRows.h"

#include "base/Messages.h"
#include "batch/RunState.h"
#include "batch/StatisticsRows.h"
#include "clustering/ClusterCalculation.h"
#include "clustering/ClusterOrder.h"
#include "clustering/CumulativeClusters.h"
#include "detection/FixationCalculation.h"
#include "detection/FixationSettingsModel.h"
#include "report/ReportRecords.h"
#include "visualization/scene/Background.h"

namespace {

/// The window, too, runs the standard detector where it does not recognise the name, but not so quietly: there the
/// panel shows no detector.
void warnOfUnknownDetector(const QString &name)
{
    messages::warning(
        QStringLiteral("Detector"),
        QStringLiteral("The settings choose \"%1\", which is not recognised when settings are read, as in "
                       "the window: the standard detector runs. --detector chooses another.")
            .arg(name));
}

/// The parameters as the window has them after a start, and on top what the command line chooses: some choices do not
/// survive the store.
FixationSettingsModel fixationSettings(const BatchOptions &options)
{
    FixationSettingsModel settings;
    loadFixationSettings(settings);
    if (options.detector)
        settings.calculationType = static_cast<int>(*options.detector);
    if (options.velocityUnit)
        setParameter(settings, rows::velocityUnit, static_cast<int>(*options.velocityUnit));
    if (options.detector == BatchOptions::Detector::Velocity)
        setParameter(settings, rows::velocityImageSizePixels,
                     backgroundPixmap(options.background, Border::None).width()); // the report has it
    return settings;
}

bool isVelocity(const FixationSettingsModel &settings)
{
    return settings.calculationType == static_cast<int>(BatchOptions::Detector::Velocity);
}

/// A unit that was chosen with the settings is not in force, in the window as here: there the panel says so.
void warnOfLostUnit(const BatchOptions &options, const QString &lost)
{
    if (!lost.isEmpty() && !options.velocityUnit)
        messages::warning(QStringLiteral("Velocity"), lost + QStringLiteral(" --velocity-unit chooses another."));
}

/// Degrees rest on the width of the picture on the screen, in pixels.
void warnOfAssumedWidth(const BatchOptions &options, const FixationSettingsModel &settings)
{
    if (settings.velocityUnit == static_cast<int>(BatchOptions::VelocityUnit::DegreePerS) &&
        options.background.isEmpty())
        messages::warning(QStringLiteral("Velocity"),
                          QStringLiteral("Degrees are reckoned with a picture that is %1 px wide; --background names "
                                         "the picture that was seen.")
                              .arg(settings.velocityImageSizePixels));
}

void detectFixations(RunState &run)
{
    const LostFixationChoices lost = lostFixationChoices();
    const FixationSettingsModel settings = fixationSettings(run.options);
    if (settings.calculationType == unknownCalculationType)
        warnOfUnknownDetector(SettingsStore().value(rows::calculationType.key).toString());
    if (isVelocity(settings)) {
        warnOfLostUnit(run.options, lost.velocityUnit);
        warnOfAssumedWidth(run.options, settings);
    }
    run.done.detector = calculationParameters(settings.calculationType, settings);
    if (const auto outcome = calculateFixations(run.model, *run.done.detector, nullptr, run.threads()))
        tellDetection(*outcome);
}

ClusterParameters runClusterParameters(const BatchOptions &options, std::optional<int> overlapOutliers)
{
    ClusterSettingsModel settings;
    loadParameters(settings, rows::cluster);
    return clusterParameters(settings.calculationType, settings, {options.overlapFixations, overlapOutliers});
}

void clusterFixations(RunState &run)
{
    run.done.clusters = runClusterParameters(run.options, std::nullopt);
    calculateClusters(run.model, *run.done.clusters, run.threads());
}

void clusterCumulatively(RunState &run)
{
    run.done.pooledClusters = runClusterParameters(run.options, run.options.overlapOutliers);
    poolClusters(run.model, *run.done.pooledClusters);
}

void clusterSaccades(RunState &run)
{
    run.saccadeClusters.setModel(&run.model);
    run.saccadeClusters.setParameters(run.options.saccadeClusters.parameters);
    run.saccadeClusters.cluster();
    if (run.saccadeClusters.stage() != SaccadeClusterModel::Stage::Done)
        run.journal.fail();
}

} // namespace

void tellDetection(const FixationCalculationOutcome &outcome)
{
    for (const RecordingReport &report : outcome.reports)
        messages::information(detectionReportTitle, QStringLiteral("%1: %2").arg(report.recording, report.text));
    for (const DetectionWarning &warning : outcome.warnings) {
        if (warning.recording.isEmpty())
            messages::warning(QStringLiteral("Fixations"), warning.text);
        else
            messages::warning(warning.recording, QStringLiteral("%1: %2").arg(warning.eye, warning.text));
    }
}

void poolClusters(DataModel &model, const ClusterParameters &parameters)
{
    if (!calculateCumulativeClusters(model, parameters))
        return;
    if (const auto missing = missingClusters(model, parameters))
        messages::warning(QStringLiteral("Cumulative clusters"), *missing);
}

QList<CalculationRow> findingCalculations()
{
    return {{fixationWord, detectFixations},
            {clusterWord, clusterFixations, fixationWord},
            {cumulativeClusterWord, clusterCumulatively, fixationWord},
            {saccadeClusterWord, clusterSaccades, fixationWord}};
}

ReportRecords reportRecords(const BatchOptions &options)
{
    const bool fromRegions =
        options.generatedAois.contains(GeneratedAois::Regions) && options.regionExport == RegionExport::Aois;
    return {.fixations = fixationSettings(options),
            .clusters = runClusterParameters(options, options.overlapOutliers),
            .saccadeClusters = options.saccadeClusters.parameters,
            .saccadeClusterMode = options.saccadeClusters.mode,
            .saccadeClusterStyle = options.saccadeClusters.style,
            .regions = fromRegions ? std::optional(options.regions) : std::nullopt};
}

QList<CalculationRow> calculationRows()
{
    return findingCalculations() + statisticsCalculations();
}
