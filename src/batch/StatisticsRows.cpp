// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/StatisticsRows.h"

#include "base/Messages.h"
#include "batch/RunState.h"
#include "batch/TransitionWords.h"
#include "comparison/SimilarityExport.h"
#include "detection/StoredGeometry.h"
#include "export/AngleStarExport.h"
#include "export/bids/BidsExport.h"
#include "export/MeasureExport.h"
#include "export/QualityExport.h"
#include "export/StatisticsExport.h"
#include "export/TidyExport.h"
#include "settings/StoredKeys.h"
#include "statistics/StatisticsCalculation.h"
#include "visualization/parameters/VisualizationParameters.h"

namespace {

using Text = QLatin1StringView;

template <auto Calculate>
void calculate(RunState &run)
{
    Calculate(run.model, nullptr, run.threads());
}

/// Tables have what was calculated: a run that calculates nothing writes headers alone, and says so.
void warnIfNotCalculated(const RunState &run, Text word)
{
    if (!run.options.calculations.contains(word))
        messages::warning(QStringLiteral("Export"),
                          QStringLiteral("%1 has headers only: it needs --calculate %1.").arg(word));
}

ExportResult writeGeneral(RunState &run, const ExportTarget &target)
{
    warnIfNotCalculated(run, Text("general-statistics"));
    return exportGeneralStatistics(run.model, target, storedFlags());
}

/// Tables of areas without any area have headers alone, too.
void warnIfWithoutAreas(const RunState &run, Text word)
{
    if (run.model.aoiList().isEmpty())
        messages::warning(QStringLiteral("Export"),
                          QStringLiteral("%1 has headers only: there are no areas of interest; --aois and "
                                         "--generate-aois give some.")
                              .arg(word));
}

ExportResult writeAreas(RunState &run, const ExportTarget &target)
{
    warnIfNotCalculated(run, Text("aoi-statistics"));
    warnIfWithoutAreas(run, Text("aoi-statistics"));
    return exportAoiStatistics(run.model, target, storedFlags());
}

ExportResult writeTransitions(RunState &run, const ExportTarget &target)
{
    return exportTransitions(run.model, pathStem(target), target.eyes,
                             chosenTransitions(run.options, run.model, target.eyes), nullptr);
}

ExportResult writeAngleStar(RunState &run, const ExportTarget &target)
{
    const VisualizationParameters saccades = saccadeParameters();
    return exportAngleStar(run.model, pathStem(target), {saccades.numberOfHistogramBins, saccades.angleOffset});
}

template <auto Export>
ExportResult writeTidy(RunState &run, const ExportTarget &target)
{
    run.model.comparedBy = run.options.groupBy;
    return Export(run.model, target,
                  MeasureForm{.pixelPerDistance = storedPixelPerDistance(), .threads = run.threads()});
}

ExportResult writeBids(RunState &run, const ExportTarget &target)
{
    return exportBids(run.model, target, {.geometry = storedGeometry(), .threads = run.threads()});
}

ExportResult writeAoiMeasures(RunState &run, const ExportTarget &target)
{
    warnIfWithoutAreas(run, Text("aoi-measures"));
    return exportAoiMeasures(run.model, target, {.pixelPerDistance = {}, .threads = run.threads()});
}

ExportResult writeGroupComparison(RunState &run, const ExportTarget &target)
{
    run.model.comparedBy = run.options.groupBy;
    ExportResult result = exportGroupComparison(
        run.model, target, {.pixelPerDistance = storedPixelPerDistance(), .threads = run.threads()});
    if (result.written.isEmpty())
        run.journal.fail(); // there was nothing to compare
    return result;
}

ExportResult writeSimilarity(RunState &run, const ExportTarget &target)
{
    const auto sets = compareScanpaths(run.model,
                                       {.eyes = target.eyes,
                                        .parameters = run.options.similarity,
                                        .groupBy = run.options.groupBy,
                                        .threads = run.threads()},
                                       {});
    ExportResult result = exportScanpathSimilarity(sets.value(), target, run.threads());
    if (result.written.isEmpty())
        run.journal.fail();
    return result;
}

} // namespace

QList<CalculationRow> statisticsCalculations()
{
    return {{Text("general-statistics"), calculate<calculateGeneralStatistics>},
            {Text("aoi-statistics"), calculate<calculateAoiStatistics>}};
}

QList<TableRow> statisticsTables()
{
    return {{Text("general-statistics"), writeGeneral},
            {Text("aoi-statistics"), writeAreas},
            {Text("transitions"), writeTransitions},
            {Text("anglestar"), writeAngleStar, fixationWord},
            {Text("tidy"), writeTidy<exportTidy>, fixationWord},
            {Text("tidy-samples"), writeTidy<exportTidySamples>},
            {Text("aoi-measures"), writeAoiMeasures},
            {Text("scanpath-measures"), writeTidy<exportScanpathMeasures>, fixationWord},
            {Text("group-comparison"), writeGroupComparison},
            {Text("scanpath-similarity"), writeSimilarity, fixationWord},
            {Text("quality"), writeTidy<exportQuality>},
            {Text("bids"), writeBids}};
}
