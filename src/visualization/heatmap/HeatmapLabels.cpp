// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/heatmap/HeatmapLabels.h"

#include <algorithm>

namespace {

QString number4(double value)
{
    constexpr int digits = 4;
    return QString::number(value, 'g', digits);
}

double shownMaximum(const HeatmapFigures &figures)
{
    return std::max(0.0, figures.maximum);
}

} // namespace

QString maximumText(const HeatmapFigures &figures)
{
    constexpr int digits = 6;
    return QString::number(shownMaximum(figures), 'g', digits);
}

QStringList colorRangeTexts(const HeatmapFigures &figures)
{
    constexpr double ends[] = {0.19999, 0.39999, 0.59999, 0.79999, 1.0}; // shares of the maximum
    constexpr double begins[] = {0.2, 0.4, 0.6, 0.8};
    const double maximum = shownMaximum(figures);
    QStringList texts{QStringLiteral("0-") + number4(maximum * ends[0])};
    for (std::size_t i = 0; i < std::size(begins); ++i)
        texts << number4(maximum * begins[i]) + QLatin1Char('-') + number4(maximum * ends[i + 1]);
    return texts;
}

QStringList classPercentageTexts(const HeatmapFigures &figures)
{
    QStringList texts;
    if (figures.classPercentages) {
        for (const double percentage : *figures.classPercentages)
            texts << number4(percentage) + QStringLiteral(" %");
    }
    return texts;
}
