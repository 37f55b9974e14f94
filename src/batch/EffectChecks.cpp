// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/EffectChecks.h"

#include "base/NamedPlace.h"
#include "batch/CalculationRows.h"
#include "batch/OptionTable.h"
#include "batch/RecordingInput.h"
#include "batch/TableRows.h"
#include "clustering/ClusterSettingsModel.h"
#include "import/bids/BidsFiles.h"
#include "settings/SettingsStore.h"

#include <QFileInfo>
#include <QMap>

#include <algorithm>

namespace {

constexpr int overlapMethod = 2; // of ClusterSettingsModel
constexpr QLatin1StringView transitionTableWord("transitions");

/// Recordings that come with their fixations.
bool mayHaveFixations(const QString &recording)
{
    return isBidsSamples(recording) || QFileInfo(recording).isDir();
}

/// What tables and calculations rest on.
QStringList resultsWithoutCalculation(const BatchOptions &options)
{
    QStringList lines;
    if (std::ranges::any_of(options.recordings, mayHaveFixations))
        return lines;
    const auto isMissing = [&](const QStringList &wanted, const auto &row) {
        return wanted.contains(row.word) && !row.needs.isEmpty() && !options.calculations.contains(row.needs);
    };
    for (const CalculationRow &row : calculationRows()) {
        if (isMissing(options.calculations, row))
            lines
                << QStringLiteral("--calculate %1: without --calculate %2 it finds nothing.").arg(row.word, row.needs);
    }
    for (const TableRow &row : tableRows()) {
        if (isMissing(options.tables, row))
            lines << QStringLiteral("--export %1: without --calculate %2 whatever rests on %2 is missing.")
                         .arg(row.word, row.needs);
    }
    return lines;
}

/// Transitions are those between clusters, or between areas.
QStringList transitionsOfNothing(const BatchOptions &options)
{
    const bool hasClusters =
        options.calculations.contains(clusterWord) || options.calculations.contains(cumulativeClusterWord);
    const bool hasAreas = !options.aoiFiles.isEmpty() || !options.generatedAois.isEmpty();
    if (!options.tables.contains(transitionTableWord) || hasClusters || hasAreas)
        return {};
    return {QStringLiteral("--export %1: without --calculate %2, --calculate %3, --aois or --generate-aois there is "
                           "nothing to write.")
                .arg(transitionTableWord, clusterWord, cumulativeClusterWord)};
}

/// Whether an option differs from its default; of one behind whose name a word stands, whether it has that word.
bool isAskedFor(const QString &use, const QList<OptionRow> &rows, const BatchOptions &options)
{
    const QString word = use.section(u' ', 1);
    return std::ranges::any_of(rows, [&](const OptionRow &row) {
        if (row.name != use.section(u' ', 0, 0))
            return false;
        const QString shown = row.value->show(options);
        return word.isEmpty() ? shown != row.value->show(BatchOptions()) : shown.split(u',').contains(word);
    });
}

/// "--a, --b or --c"
QString alternatives(const QStringList &uses)
{
    QString text = QStringLiteral("--") + uses.join(QLatin1StringView(", --"));
    if (uses.size() > 1)
        text.replace(text.lastIndexOf(u','), 1, QLatin1StringView(" or"));
    return text;
}

QStringList optionsWithoutUse(const BatchOptions &options)
{
    QList<OptionRow> rows;
    for (const OptionGroup &group : optionGroups())
        rows.append(QList<OptionRow>(group.rows.begin(), group.rows.end()));
    QStringList lines;
    for (const OptionRow &row : rows) {
        const QStringList uses = QString(row.neededBy).split(u',');
        const auto isUsed = [&](const QString &use) { return isAskedFor(use, rows, options); };
        if (!row.neededBy.isEmpty() && isAskedFor(row.name, rows, options) && std::ranges::none_of(uses, isUsed))
            lines << QStringLiteral("--%1: without %2 nothing uses it.").arg(row.name, alternatives(uses));
    }
    return lines;
}

QStringList overlapWithoutClusters(const BatchOptions &options)
{
    const CalculationOptions defaults;
    const bool pooled = options.calculations.contains(cumulativeClusterWord);
    const bool asksForFixations = options.overlapFixations != defaults.overlapFixations;
    const bool asksForOutliers = options.overlapOutliers != defaults.overlapOutliers;
    if (!asksForFixations && !asksForOutliers)
        return {};
    if (fromStored<int>(SettingsStore().value(rows::clusterCalculationType.key)) != overlapMethod)
        return {QStringLiteral("--overlap-fixations, --overlap-outliers: only clusters of the overlap method, %1=%2, "
                               "have them.")
                    .arg(rows::clusterCalculationType.key)
                    .arg(overlapMethod)};
    QStringList lines;
    if (asksForFixations && !pooled && !options.calculations.contains(clusterWord))
        lines << QStringLiteral("--overlap-fixations: without --calculate %1 or --calculate %2 nothing uses it.")
                     .arg(clusterWord, cumulativeClusterWord);
    if (asksForOutliers && !pooled)
        lines
            << QStringLiteral("--overlap-outliers: without --calculate %1 nothing uses it.").arg(cumulativeClusterWord);
    return lines;
}

QStringList clusterOptionsWithoutClusters(const BatchOptions &options)
{
    const CalculationOptions defaults;
    QStringList lines = overlapWithoutClusters(options);
    const bool saccades = options.calculations.contains(saccadeClusterWord);
    if (!saccades && options.saccadeClusters != defaults.saccadeClusters)
        lines << QStringLiteral("--saccade-cluster: without --calculate %1 nothing uses it.").arg(saccadeClusterWord);
    const bool drawn = !options.images.isEmpty() && options.saccadeClusters.mode != SaccadeClusterMode::None;
    if (saccades && !drawn)
        lines << QStringLiteral("--calculate %1: only --image with --saccade-cluster mode=lines or mode=single-line "
                                "shows them.")
                     .arg(saccadeClusterWord);
    return lines;
}

QStringList millimetresWithoutRecording(const BatchOptions &options)
{
    if (!options.millimetres.size.isComplete() ||
        std::any_of(options.recordings.begin(), options.recordings.end(), isMillimetreText))
        return {};
    return {QStringLiteral("--millimetre-image, --millimetre-size: no recording ends in .txt.")};
}

QStringList layoutWithoutTable(const BatchOptions &options)
{
    if (options.layout.isEmpty() || std::any_of(options.recordings.begin(), options.recordings.end(),
                                                [&](const QString &path) { return isTable(path, options); }))
        return {};
    return {QStringLiteral("--layout: every recording is one of Vistrum's own, none is read by a layout.")};
}

/// Files are told apart by what they are, whatever the way to them is called.
QStringList repeatedRecordings(const BatchOptions &options)
{
    QStringList lines;
    QStringList different = options.recordings;
    for (const QStringList &ways : waysToOneFile(options.recordings)) {
        for (qsizetype i = 1; i < ways.size(); ++i) {
            lines << QStringLiteral("%1: the same recording as %2, it counts twice.").arg(ways[i], ways[i - 1]);
            different.removeAt(different.lastIndexOf(ways[i]));
        }
    }
    QMap<QString, QString> names;
    for (const QString &path : std::as_const(different)) {
        QString &before = names[QFileInfo(path).completeBaseName()];
        if (!before.isNull())
            lines << QStringLiteral("%1: has the name of %2; tables tell them apart by their order only.")
                         .arg(path, before);
        before = path;
    }
    return lines;
}

} // namespace

QStringList optionsWithoutEffect(const BatchOptions &options)
{
    return resultsWithoutCalculation(options) + transitionsOfNothing(options) + optionsWithoutUse(options) +
           clusterOptionsWithoutClusters(options) + millimetresWithoutRecording(options) + layoutWithoutTable(options) +
           repeatedRecordings(options);
}
