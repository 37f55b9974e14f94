// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/shapes/SaccadeClusterShapes.h"

#include "base/Truncation.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int hues = 360;

double wayBetween(QPoint a, QPoint b)
{
    const double dx = double(a.x()) - double(b.x());
    const double dy = double(a.y()) - double(b.y());
    return std::sqrt(dx * dx + dy * dy);
}

int wholeDistance(QPoint a, QPoint b)
{
    return truncated(wayBetween(a, b));
}

QPen penOf(const QColor &color, int widthPx)
{
    return {color, double(std::max(0, widthPx)), Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin};
}

using ClusterBuild = QList<ArrowShape> (*)(const QList<SaccadeVector> &cluster, const QColor &color,
                                           const SaccadeClusterStyle &style);

QList<ArrowShape> linesOf(const QList<SaccadeVector> &cluster, const QColor &color, const SaccadeClusterStyle &style)
{
    QList<ArrowShape> arrows;
    for (const SaccadeVector &saccade : cluster)
        arrows << ArrowShape{saccade.start, saccade.end, style.showArrowTips, penOf(color, style.lineWidthPx),
                             color,         QString()};
    return arrows;
}

QList<ArrowShape> singleLineOf(const QList<SaccadeVector> &cluster, const QColor &color,
                               const SaccadeClusterStyle &style)
{
    const auto [from, to] = singleLine(cluster);
    return {ArrowShape{from, to, false, penOf(color, style.lineWidthPx), color, QString()}};
}

ClusterBuild clusterBuildOf(SaccadeClusterMode mode)
{
    switch (mode) {
    case SaccadeClusterMode::Lines:
        return linesOf;
    case SaccadeClusterMode::SingleLine:
        return singleLineOf;
    case SaccadeClusterMode::None:
        break;
    }
    return nullptr;
}

} // namespace

QList<QColor> saccadeClusterColors(qsizetype n)
{
    constexpr int saturation = 230;
    constexpr int lightness = 125;
    const qsizetype step = n > hues ? 1 : hues / std::max<qsizetype>(n, 1);
    QList<QColor> colors;
    for (qsizetype i = 0; i < n; ++i)
        colors << QColor::fromHsl(static_cast<int>(i * step % hues), saturation, lightness, 255);
    return colors;
}

SaccadeClusterLine singleLine(const QList<SaccadeVector> &cluster)
{
    SaccadeClusterLine line{cluster.first().start, cluster.first().end};
    int length = wholeDistance(line.from, line.to);
    for (const SaccadeVector &saccade : cluster) {
        for (const QPoint end : {saccade.start, saccade.end}) {
            if (wayBetween(line.from, end) <= wayBetween(line.to, end)) {
                if (wayBetween(line.to, end) > length) {
                    line.from = end;
                    length = 0; // not the new length, see the declaration
                }
            } else if (wayBetween(line.from, end) > length) {
                line.to = end;
                length = wholeDistance(line.from, end);
            }
        }
    }
    return line;
}

QList<ArrowShape> saccadeClusterArrows(const SaccadeClusterList &clusters, SaccadeClusterMode mode,
                                       const SaccadeClusterStyle &style)
{
    const ClusterBuild build = clusterBuildOf(mode);
    if (!build)
        return {};
    const QList<QColor> colors = saccadeClusterColors(clusters.size());
    QList<ArrowShape> arrows;
    for (qsizetype i = 0; i < clusters.size(); ++i) {
        if (!clusters[i].isEmpty() && clusters[i].size() >= style.minimumQuantity)
            arrows << build(clusters[i], colors[i], style);
    }
    return arrows;
}
