// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/TransitionTables.h"

#include "base/TextFormat.h"
#include "export/TextTable.h"
#include "statistics/AoiTransitions.h"
#include "statistics/TransitionMeasures.h"

#include <QStringBuilder>

#include <algorithm>
#include <functional>

namespace {

/// Not a number where there is nothing to divide by.
QString decimals10(double value)
{
    constexpr int decimals = 10;
    return text::decimalComma(text::fixed(value, decimals));
}

ClusterTransitions counted(const QList<FixationCluster> &clusters, const QList<GazeWalk> &walks, TimeFrame frame)
{
    return countTransitions(ClusterIndex(clusters, Likeness::MeanAndStart), walks,
                            {TransitionType::Scanpath, LengthFrom::FirstFixation}, frame);
}

QList<TransitionBlock> ownBlocks(const DataModel &model, Eye eye)
{
    QList<TransitionBlock> blocks;
    for (const Examination *examination : model.checkedExaminations()) {
        const EyeData &stream = examination->stream(eye);
        if (!stream.fixationClusters.isEmpty())
            blocks << TransitionBlock{subjectFields(examination->subjectId, examination->subjectText),
                                      counted(stream.fixationClusters, {{stream.scanpath}}, model.timeFrame())};
    }
    return blocks;
}

QList<GazeWalk> ownWalks(const DataModel &model, Eye eye)
{
    QList<GazeWalk> walks;
    for (const Examination *examination : model.checkedExaminations())
        walks << GazeWalk{examination->stream(eye).scanpath};
    return walks;
}

QList<FixationCluster> ownClusters(const DataModel &model, Eye eye)
{
    QList<FixationCluster> clusters;
    for (const Examination *examination : model.checkedExaminations())
        clusters << examination->stream(eye).fixationClusters;
    return clusters;
}

using Cell = std::function<QString(qsizetype from, qsizetype to)>;

QString grid(qsizetype clusters, const Cell &cell)
{
    QString text = QStringLiteral(";");
    for (qsizetype to = 0; to < clusters; ++to)
        text += u"To Cluster" % QString::number(to) % u';';
    text += u'\n';
    for (qsizetype from = 0; from < clusters; ++from) {
        text += u"From Cluster" % QString::number(from) % u';';
        for (qsizetype to = 0; to < clusters; ++to)
            text += cell(from, to) % u';';
        text += u'\n';
    }
    return text;
}

QString countGrid(const ClusterTransitions &transitions)
{
    return grid(transitions.totals.size(),
                [&](qsizetype from, qsizetype to) { return QString::number(transitions.count(from, to)); });
}

QString shareOfAllGrid(const ClusterTransitions &transitions)
{
    return grid(transitions.totals.size(), [&](qsizetype from, qsizetype to) {
        return decimals10(static_cast<double>(transitions.count(from, to)) / transitions.sum);
    });
}

QString shareOfRowGrid(const ClusterTransitions &transitions)
{
    QList<int> sums(transitions.totals.size());
    for (const auto &[pair, count] : transitions.counts)
        sums[pair.first] += count;
    return grid(transitions.totals.size(), [&](qsizetype from, qsizetype to) {
        return decimals10(static_cast<double>(transitions.count(from, to)) / std::as_const(sums)[from]);
    });
}

QString measureRows(const ClusterTransitions &transitions)
{
    QString text = QStringLiteral(";minimum transitions per minute (>0) [-1 no transition];"
                                  "mean time between transition;standard deviation of time between transition;"
                                  "mean length;standard deviation length;\n");
    for (qsizetype cluster = 0; cluster < transitions.totals.size(); ++cluster) {
        const ClusterSpread spread = clusterSpread(transitions, cluster);
        text += u"Cluster" % QString::number(cluster) % u';' % QString::number(spread.fewestInWindow) % u';' %
                decimals10(spread.meanTimeBetween) % u';' % decimals10(spread.timeDeviation) % u';' %
                decimals10(spread.meanLength) % u';' % decimals10(spread.lengthDeviation) % u";\n";
    }
    return text;
}

} // namespace

QList<TransitionBlock> transitionBlocks(const DataModel &model, TransitionFlavour flavour, Eye eye)
{
    if (flavour == TransitionFlavour::Own)
        return ownBlocks(model, eye);
    QList<FixationCluster> clusters = model.pooled(eye).fixationClusters;
    QList<GazeWalk> walks = pooledWalks(eye, model);
    if (flavour == TransitionFlavour::OwnAndPooled) {
        clusters << ownClusters(model, eye);
        walks << ownWalks(model, eye);
    }
    if (clusters.isEmpty())
        return {};
    return {{QString(), counted(clusters, walks, model.timeFrame())}};
}

QString transitionTable(const QList<TransitionBlock> &blocks, TransitionContent content)
{
    constexpr QString (*forms[])(const ClusterTransitions &) = {countGrid, shareOfAllGrid, shareOfRowGrid, measureRows};
    QString table;
    for (const TransitionBlock &block : blocks) {
        if (!block.title.isEmpty())
            table += block.title + u'\n';
        table += forms[static_cast<size_t>(content)](block.transitions) + QLatin1StringView("\n\n");
    }
    return table;
}

bool hasAreasAndFixations(const DataModel &model)
{
    if (model.aoiList().isEmpty())
        return false;
    const QList<const Examination *> checked = model.checkedExaminations();
    return std::any_of(checked.cbegin(), checked.cend(), [](const Examination *examination) {
        const auto streams = examination->streams();
        return std::any_of(streams.begin(), streams.end(),
                           [](const EyeData *stream) { return !stream->scanpath.isEmpty(); });
    });
}

QString aoiTransitionTable(const DataModel &model, EyeMode eyes)
{
    const QList<AreaOfInterest> areas = model.aoiList();
    const TimeFrame frame = model.timeFrame();
    const QList<const Examination *> checked = model.checkedExaminations();
    const AoiTransitions transitions =
        countAoiTransitions(areas, walksOf(checked, eyes), TransitionType::Scanpath, frame);
    constexpr double minuteMs = 60000.0;
    const double perMinute = minuteMs / (static_cast<double>(frame.endMs) - static_cast<double>(frame.startMs));
    QString names = QStringLiteral("NAMES");
    QString rows;
    for (qsizetype from = 0; from < areas.size(); ++from) {
        names += u';' + areas[from].name;
        rows += areas[from].name;
        for (qsizetype to = 0; to < areas.size(); ++to) {
            const double perSubject = transitions.count(from, to) / static_cast<double>(checked.size());
            rows += u';' + text::decimalComma(text::general6(perSubject * perMinute));
        }
        rows += u'\n';
    }
    return names + u'\n' + rows;
}
