// SPDX-License-Identifier: GPL-3.0-or-later
#include "report/HeatmapLegend.h"

#include "base/TextFormat.h"
#include "visualization/heatmap/ColorTable.h"
#include "visualization/heatmap/HeatmapLabels.h"

#include <algorithm>

namespace {

constexpr int barHeight = 50; // px

struct KindOfLegend {
    const char *caption;
    const char *unit;
};

/// In the order of the kinds.
constexpr KindOfLegend kindsOfLegends[] = {{"Gazepoint Heatmap:", " gaze points"},
                                           {"Fixation Heatmap:", " fix/min"},
                                           {"Fixation Cluster Heatmap:", " clusters/min"},
                                           {"Saccades Heatmap:", " saccades"}};

/// Writes the legend of one look.
class LegendWriter {
public:
    explicit LegendWriter(const LegendLook &look) : m_look(look) {}

    TextShape text(QPointF top, const QString &words, TextAnchor anchor = TextAnchor::Left) const
    {
        constexpr int points = 30;
        return {top, words, QFont(QStringLiteral("Times New Roman"), points, QFont::Light), m_look.text, anchor};
    }

    /// The last one ends near the end of the bar, as the first begins at its start.
    Drawing scale(QPointF top, double maximum, const QString &unit) const
    {
        const double roomOfLast =
            20.0 + 10.0 * static_cast<double>((text::general6(maximum) + unit).size()); // px, half
        const auto textOf = [&](double value) { return text::general6(value) + unit; };
        return {text(top, textOf(0)),
                text(top + QPointF(m_look.widthPx / 2.0, 0), textOf(maximum / 2), TextAnchor::Middle),
                text(top + QPointF(m_look.widthPx - roomOfLast, 0), textOf(maximum), TextAnchor::Middle)};
    }

    /// The five classes of fixations.
    Drawing classes(QPointF top, const HeatmapFigures &figures) const
    {
        return row(top, "Percentage of fixations in color range:", classPercentageTexts(figures)) +
               row(top + QPointF(0, 2 * legendRowHeight),
                   "Fixations per minute over color range:", colorRangeTexts(figures));
    }

private:
    Drawing row(QPointF top, const char *caption, const QStringList &texts) const
    {
        Drawing drawing{text(top, QString::fromLatin1(caption))};
        const double width = m_look.widthPx / 5.0;
        for (qsizetype i = 0; i < texts.size(); ++i)
            drawing << text(top + QPointF(width * (static_cast<double>(i) + 0.5), legendRowHeight), texts[i],
                            TextAnchor::Middle);
        return drawing;
    }

    const LegendLook &m_look;
};

/// Transparent colours, as the heatmap has them, would be lost on a dark ground.
QImage colorsOnWhite(const VisualizationParameters &record, int widthPx)
{
    constexpr int opaque = 255;
    QImage table = colorTable(record);
    for (int x = 0; x < table.width(); ++x) {
        const QRgb pixel = table.pixel(x, 0);
        const auto onWhite = [alpha = qAlpha(pixel)](int channel) {
            return (channel * alpha + opaque * (opaque - alpha)) / opaque;
        };
        table.setPixel(x, 0, qRgb(onWhite(qRed(pixel)), onWhite(qGreen(pixel)), onWhite(qBlue(pixel))));
    }
    return table.scaled(widthPx, barHeight);
}

} // namespace

HeatmapLegend heatmapLegend(const QList<HeatmapFigures> &figures, const DrawingContext &context, QPointF top,
                            const LegendLook &look)
{
    const LegendWriter writer(look);
    HeatmapLegend legend;
    for (const HeatmapFigures &each : figures) {
        const KindOfLegend &kind = kindsOfLegends[static_cast<std::size_t>(each.kind)];
        const bool hasUnit = look.allUnits || each.kind == DataKind::Fixations;
        const QPointF corner = top + QPointF(0, legend.height);
        legend.drawing << writer.text(corner, QString::fromLatin1(kind.caption))
                       << RasterShape{colorsOnWhite(context.of(each.kind), look.widthPx), std::nullopt,
                                      corner + QPointF(0, legendRowHeight)};
        legend.drawing << writer.scale(corner + QPointF(0, 2 * legendRowHeight), std::max(0.0, each.maximum),
                                       hasUnit ? QString::fromLatin1(kind.unit) : QString());
        legend.height += 3 * legendRowHeight;
        if (look.classes && each.classPercentages) {
            legend.drawing << writer.classes(top + QPointF(0, legend.height), each);
            legend.height += 4 * legendRowHeight;
        }
    }
    return legend;
}
