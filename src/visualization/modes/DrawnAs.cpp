#include "visualization/modes/DrawnAs.h"

#include <cstddef>

namespace {

using Word = QLatin1StringView;

constexpr Word notDrawn("NOT DRAWN\n");
constexpr Word points("POINTS\n");
constexpr Word heatmap("HEATMAP\n");
constexpr Word shadow("SHADOW\n");
constexpr Word ellipse("ELLIPSE\n");
constexpr Word circle("CIRCLE\n");
constexpr Word transition("TRANSITION\n");

// The index is the mode; modes beyond a table leave the text as it was.
constexpr Word gazePointWords[] = {notDrawn, points, heatmap, shadow};
constexpr Word fixationWords[] = {notDrawn, ellipse, circle, heatmap, shadow};
constexpr Word clusterWords[] = {notDrawn, ellipse,  circle,     heatmap,  shadow,
                                 notDrawn, notDrawn, transition, notDrawn, transition};
constexpr Word cumulativeWords[] = {notDrawn, notDrawn, notDrawn, notDrawn,   notDrawn,
                                    ellipse,  circle,   notDrawn, transition, transition};

template <std::size_t Count>
void setWord(QString &text, const Word (&words)[Count], int mode)
{
    if (mode >= 0 && static_cast<std::size_t>(mode) < Count)
        text = words[mode];
}

} // namespace

void setDrawnAs(QList<Examination> &examinations, const DrawingContext &context)
{
    constexpr int none = 0;
    const auto modeOf = [](const Examination &examination, const VisualizationParameters &parameters) {
        return examination.checked ? parameters.visualizationMode : none;
    };
    for (Examination &examination : examinations) {
        CalculationInfo &info = examination.calculationInfo;
        const int clusterMode = modeOf(examination, context.clusters);
        setWord(info.gazepointsVisualizationInfo, gazePointWords, modeOf(examination, context.gazePoints));
        setWord(info.fixationVisualizationInfo, fixationWords, modeOf(examination, context.fixations));
        setWord(info.clusterVisualizationInfo, clusterWords, clusterMode);
        setWord(info.cumulativeClusterVisualizationInfo, cumulativeWords, clusterMode);
    }
}
