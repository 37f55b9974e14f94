// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/modes/DrawnAs.h"

#include "visualization/modes/DrawingModes.h"

namespace {

/// Where the words of a kind go. Saccades have no text.
struct DrawnTexts {
    DataKind kind;
    QString CalculationInfo::*own;
    QString CalculationInfo::*cumulative = nullptr;
};

constexpr DrawnTexts drawnTexts[] = {
    {DataKind::GazePoints, &CalculationInfo::gazepointsVisualizationInfo},
    {DataKind::Fixations, &CalculationInfo::fixationVisualizationInfo},
    {DataKind::Clusters, &CalculationInfo::clusterVisualizationInfo,
     &CalculationInfo::cumulativeClusterVisualizationInfo},
};

void setWord(CalculationInfo &info, QString CalculationInfo::*text, QLatin1StringView word)
{
    if (text && !word.isNull())
        info.*text = word;
}

} // namespace

void setDrawnAs(QList<Examination> &examinations, const DrawingContext &context)
{
    constexpr int none = 0;
    for (Examination &examination : examinations) {
        for (const auto &[kind, own, cumulative] : drawnTexts) {
            const int number = examination.checked ? context.of(kind).visualizationMode : none;
            const DataMode *mode = modeAt(drawingModes(kind), number);
            if (!mode)
                continue;
            setWord(examination.calculationInfo, own, mode->words.own);
            setWord(examination.calculationInfo, cumulative, mode->words.cumulative);
        }
    }
}
