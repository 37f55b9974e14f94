// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/shapes/ClusterShapes.h"

#include "base/TextFormat.h"
#include "base/Truncation.h"
#include "visualization/shapes/ToolTipText.h"

#include <QStringBuilder>

#include <cmath>

namespace {

constexpr double memberSize = 5.0; ///< px
constexpr float ellipseFactor = 2;

constexpr int paletteAlpha = 150;
constexpr QColor palette[] = {
    {158, 1, 66, paletteAlpha},    {213, 62, 79, paletteAlpha},   {244, 109, 67, paletteAlpha},
    {253, 174, 97, paletteAlpha},  {254, 224, 139, paletteAlpha}, {230, 245, 152, paletteAlpha},
    {171, 221, 164, paletteAlpha}, {102, 194, 165, paletteAlpha}, {50, 136, 189, paletteAlpha},
    {94, 79, 162, paletteAlpha},
};

/// The shape of a cluster and where its name stands.
struct NamedShape {
    Shape shape;
    QPointF nameAt;
};

qint64 durationOf(const FixationCluster &cluster)
{
    qint64 sum = 0;
    for (const Fixation &fixation : cluster.fixations)
        sum += fixation.duration();
    return sum;
}

bool isClusterShown(const FixationCluster &cluster, TimeFrame frame, const VisualizationParameters &parameters)
{
    const auto all = static_cast<double>(cluster.fixations.size());
    const auto inside = static_cast<double>(cluster.fixationsWithin(frame));
    return all > 0 && inside / all >= std::clamp(parameters.clusterPercentage / 100, 0.0, 1.0);
}

QString toolTipOf(const FixationCluster &cluster, qsizetype number, const QString &shapeLine = {})
{
    return u"Cluster ID: " % QString::number(number) % u"\r\nDuration: " %
           text::clockTime(durationOf(cluster), QStringLiteral("ss.zzz")) % u"\r\n" % shapeLine % u"Mean: (" %
           QString::number(cluster.mean.x()) % u',' % QString::number(cluster.mean.y()) % u')';
}

TextShape nameShape(qsizetype number, QPointF at, const QColor &color)
{
    constexpr int points = 30;
    constexpr int weight = 20;
    return {at, u'C' + QString::number(number), QFont(QStringLiteral("Times New Roman"), points, weight, false), color,
            TextAnchor::Middle};
}

Drawing dotsOf(const FixationCluster &cluster, TimeFrame frame, const QPen &pen, const QBrush &brush)
{
    Drawing drawing;
    for (const Fixation &fixation : cluster.fixations) {
        if (frame.holds(fixation))
            drawing << OvalShape{{fixation.mean.toPointF(), QSizeF(memberSize, memberSize)}, pen, brush, {}};
    }
    return drawing;
}

/// Adds `shapeOf(cluster, number)` and, if it is wanted, its name for each cluster that is shown, or else its dots.
template <class ShapeOf>
Drawing shapesOfEach(const QList<FixationCluster> &clusters, TimeFrame frame, const ShapeStyle &style,
                     const VisualizationParameters &parameters, ShapeOf shapeOf)
{
    Drawing drawing;
    for (qsizetype i = 0; i < clusters.size(); ++i) {
        if (!isClusterShown(clusters[i], frame, parameters))
            continue;
        if (parameters.showGazePoints) {
            QPen pen = style.pen;
            pen.setColor(clusterColor(i));
            drawing << dotsOf(clusters[i], frame, pen, style.brush);
            continue;
        }
        const NamedShape named = shapeOf(clusters[i], i);
        drawing << named.shape;
        if (parameters.showOriginalSize) // reads "Show names" here
            drawing << nameShape(i, named.nameAt, parameters.fillColorName);
    }
    return drawing;
}

} // namespace

QColor clusterColor(qsizetype number)
{
    return palette[number % std::ssize(palette)];
}

QPointF nameOfEllipse(QPoint center, QVector2D major, QVector2D minor)
{
    const double a = (std::abs(double(major.x())) + std::abs(double(minor.x()))) * 0.5;
    const double b = (std::abs(double(major.y())) + std::abs(double(minor.y()))) * 0.5;
    return center.toPointF() - QPointF(truncated(a), truncated(b));
}

Drawing clusterEllipses(const QList<FixationCluster> &clusters, TimeFrame frame, const ShapeStyle &style,
                        const VisualizationParameters &parameters)
{
    return shapesOfEach(clusters, frame, style, parameters, [&](const FixationCluster &cluster, qsizetype number) {
        const QVector2D major = cluster.majorAxis * ellipseFactor;
        const QVector2D minor = cluster.minorAxis * ellipseFactor;
        return NamedShape{EllipseShape{cluster.mean, major, minor, style.pen, style.brush,
                                       toolTipOf(cluster, number, axisRatioLine(cluster))},
                          nameOfEllipse(cluster.mean, major, minor)};
    });
}

int clusterDiameter(const FixationCluster &cluster, const VisualizationParameters &parameters)
{
    const double size = parameters.size;
    if (!parameters.durationDependent)
        return truncated((size * 5 + 5) * 4);
    const qint64 halfMs = durationOf(cluster) / 2; // whole milliseconds
    const auto half = static_cast<double>(halfMs);
    return truncated(size / 100.0 * half + (half + 10));
}

Drawing clusterCircles(const QList<FixationCluster> &clusters, TimeFrame frame, const ShapeStyle &style,
                       const VisualizationParameters &parameters)
{
    return shapesOfEach(clusters, frame, style, parameters, [&](const FixationCluster &cluster, qsizetype number) {
        const QRectF square = squareAround(cluster.mean, clusterDiameter(cluster, parameters));
        return NamedShape{OvalShape{square, style.pen, style.brush, toolTipOf(cluster, number)}, square.topLeft()};
    });
}

Drawing paintedClusters(ClusterPainter paint, ClusterSource source, const ExaminationEye &stream,
                        const DrawingContext &context)
{
    const VisualizationParameters &parameters = context.of(DataKind::Clusters);
    const ShapeStyle style = shapeStyle(*stream.examination, stream.eye, context.model, parameters);
    Drawing drawing = paint(clustersToDraw(source, stream, context.model), context.frame, style, parameters);
    addToolTipLine(drawing, sourceLines(source, stream));
    return drawing;
}
