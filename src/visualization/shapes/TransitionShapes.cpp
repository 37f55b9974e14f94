// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/shapes/TransitionShapes.h"

#include "base/Averages.h"
#include "base/TextFormat.h"
#include "base/Truncation.h"
#include "visualization/shapes/ClusterShapes.h"
#include "visualization/shapes/ToolTipText.h"

#include <QStringBuilder>

#include <cmath>
#include <limits>

namespace {

QPen linePen(const QColor &color, double width)
{
    return {color, std::max(0.0, width), Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin};
}

/// A mark on the picture and where its name stands.
struct Mark {
    Shape shape;
    QPointF nameAt;
};

QString clusterToolTip(qsizetype number, QPoint mean, const ClusterTransitions &transitions)
{
    const int total = transitions.totals[number];
    const Spread spread = spreadOf(transitions.lengths[number]);
    return u"Cluster ID: " % QString::number(number) % u"\r\nMean position: (" % QString::number(mean.x()) % u',' %
           QString::number(mean.y()) % u")\r\nAmount transitions: " % QString::number(total) %
           u"\r\nAmount transitions to global (incoming and outgoing): " %
           text::general6(static_cast<double>(total) / transitions.sum) % u"\r\nMean length: " %
           text::general6(spread.mean) % u"\r\nStandard deviation length: " % text::general6(spread.deviation);
}

Mark markOf(const FixationCluster &cluster, const QString &toolTip, const VisualizationParameters &parameters)
{
    constexpr double width = 5.0;
    const QPen pen = linePen(parameters.fillColor, width);
    if (parameters.showGazePoints) { // reads "Draw cluster elliptical" here
        const auto factor = static_cast<float>(parameters.size / 10.0 + 1.0);
        const QVector2D major = cluster.majorAxis * factor;
        const QVector2D minor = cluster.minorAxis * factor;
        return {EllipseShape{cluster.mean, major, minor, pen, Qt::NoBrush, toolTip},
                nameOfEllipse(cluster.mean, major, minor)};
    }
    const QRectF square = squareAround(cluster.mean, truncated((parameters.size * 5.0 + 5) * 4));
    return {OvalShape{square, pen, Qt::NoBrush, toolTip}, square.topLeft()};
}

TextShape clusterNameShape(qsizetype number, QPointF at, const QColor &color)
{
    constexpr int points = 30;
    return {at, u"C:" % QString::number(number), QFont(QStringLiteral("Times New Roman"), points), color,
            TextAnchor::Middle};
}

Drawing marks(const TransitionPicture &picture, const VisualizationParameters &parameters)
{
    Drawing drawing;
    for (qsizetype i = 0; i < picture.clusters.size(); ++i) {
        const FixationCluster &cluster = picture.clusters[i];
        const double rate = picture.inFrame.totals[i] * picture.perMinute;
        if (cluster.fixations.isEmpty() || !(parameters.transitionsOnly || rate >= parameters.heatmapThreashold))
            continue;
        const Mark mark = markOf(cluster, clusterToolTip(i, cluster.mean, picture.inFrame), parameters);
        drawing << mark.shape;
        if (parameters.showOriginalSize) // reads "Show names" here
            drawing << clusterNameShape(i, mark.nameAt, parameters.fillColorName);
    }
    return drawing;
}

/// A pair of clusters with its transitions there and back.
struct Link {
    qsizetype from;
    qsizetype to;
    int there;
    int back;
};

QString directionLine(qsizetype from, qsizetype to, int count)
{
    return QStringLiteral("From Cluster %1 to Cluster %2 :%3\r\n").arg(from).arg(to).arg(count);
}

QString shareLine(qsizetype cluster, int count, int total)
{
    return QStringLiteral("Share in total(Cluster %1) (incoming and outgoing):%2")
        .arg(QString::number(cluster), text::general6(static_cast<double>(count) / std::max(1, total)));
}

QString lineToolTip(const Link &link, const ClusterTransitions &transitions)
{
    return directionLine(link.from, link.to, link.there) % directionLine(link.to, link.from, link.back) %
           shareLine(link.from, link.there, transitions.totals[link.from]) % u"\r\n" %
           shareLine(link.to, link.back, transitions.totals[link.to]);
}

/// Whether the line of the pair is drawn from this side. One line stands for both directions.
bool isBusierSide(const Link &link)
{
    return link.there > link.back || (link.there == link.back && link.from < link.to);
}

Drawing lines(const TransitionPicture &picture, const VisualizationParameters &parameters)
{
    const double reference = parameters.lineSizeAbsolute ? picture.largestOfRecording : picture.inFrame.largest();
    Drawing drawing;
    for (const auto &[pair, count] : picture.inFrame.counts) {
        const auto [from, to] = pair;
        const Link link{from, to, count, picture.inFrame.count(to, from)};
        const int tested = parameters.transitionsOnly ? link.there + link.back : picture.inFrame.totals[to];
        if (!isBusierSide(link) || !(tested * picture.perMinute >= parameters.heatmapThreashold))
            continue;
        const QPoint start = picture.clusters[from].mean;
        const QPoint end = picture.clusters[to].mean;
        const QColor color = directionColor(start, end, {link.there, link.back}, parameters);
        drawing << LineShape{QLineF(start, end), linePen(color, link.there / reference * parameters.stepSize + 1.0),
                             lineToolTip(link, picture.inFrame)};
    }
    return drawing;
}

} // namespace

QColor directionColor(QPoint from, QPoint to, std::pair<int, int> thereAndBack,
                      const VisualizationParameters &parameters)
{
    const auto [there, back] = thereAndBack;
    const double p = static_cast<double>(there) / (there + back);
    const double q = static_cast<double>(back) / (there + back);
    const bool rightward = qint64(from.x()) - to.x() < 1;
    const QColor forward = rightward ? parameters.fillColorRight : parameters.fillColorLeft;
    const QColor backward = rightward ? parameters.fillColorLeft : parameters.fillColorRight;
    const auto mixed = [&](int a, int b) { return truncated(a * p + b * q); };
    return {mixed(forward.red(), backward.red()), mixed(forward.green(), backward.green()),
            mixed(forward.blue(), backward.blue())};
}

Drawing transitionShapes(const TransitionPicture &picture, const VisualizationParameters &parameters)
{
    return marks(picture, parameters) << lines(picture, parameters);
}

Drawing transitionsBetween(ClusterSource source, const ExaminationEye &stream, const DrawingContext &context)
{
    constexpr TimeFrame allTime{std::numeric_limits<qint64>::min(), std::numeric_limits<qint64>::max()};
    const VisualizationParameters &parameters = context.of(DataKind::Clusters);
    const auto type = static_cast<TransitionType>(parameters.transitionType);
    const QList<FixationCluster> clusters = clustersToDraw(source, stream, context.model);
    const QList<GazeWalk> walks = walksToCount(source, stream, context.model);
    const ClusterIndex index(clusters);
    const TransitionPicture picture{.clusters = clusters,
                                    .inFrame = countTransitions(index, walks, type, context.frame),
                                    .largestOfRecording = countTransitions(index, walks, type, allTime).largest(),
                                    .perMinute = context.frame.perMinute()};
    Drawing drawing = transitionShapes(picture, parameters);
    addToolTipLine(drawing, sourceLines(source, stream));
    return drawing;
}
