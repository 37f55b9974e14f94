// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/shapes/AoiTransitionShapes.h"

#include "base/TextFormat.h"
#include "base/Truncation.h"
#include "statistics/AoiTransitions.h"
#include "visualization/parameters/AoiVisualizationParameters.h"
#include "visualization/selection/DrawingContext.h"
#include "visualization/shapes/AoiOutlines.h"
#include "visualization/shapes/OutlineGeometry.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace {

constexpr double percentOfWhole = 100.0;

/// What all ribbons of one drawing share.
struct Sources {
    const QList<AreaOfInterest> &areas;
    const AoiTransitions &transitions;
    const AoiVisualizationParameters &parameters;
    double examinations;
    int largestCount; ///< between two different areas, 1 if there is none
};

int largestOut(const AoiTransitions &transitions, qsizetype from)
{
    int largest = 0;
    for (qsizetype to = 0; to < transitions.areas(); ++to)
        largest = from == to ? largest : std::max(largest, transitions.count(from, to));
    return largest;
}

int largestOfAll(const AoiTransitions &transitions)
{
    int largest = 0;
    for (qsizetype from = 0; from < transitions.areas(); ++from)
        largest = std::max(largest, largestOut(transitions, from));
    return std::max(1, largest);
}

bool isTransitionShown(const Sources &sources, qsizetype from, qsizetype to)
{
    return from != to && sources.transitions.shareOfRow(from, to) > 0 &&
           sources.transitions.rate(from, to) / sources.examinations >= sources.parameters.transMin &&
           !sources.areas[from].polygon.isEmpty() && !sources.areas[to].polygon.isEmpty();
}

// ---- ribbons

/// Points of a cubic Bezier curve that leaves the straight way to one side.
QPolygonF sideCurve(QPointF from, QPointF to)
{
    constexpr int steps = 100;
    constexpr double bend = 0.2;
    const QPointF way = to - from;
    const QPointF sideways(-bend * way.y(), bend * way.x());
    const QPointF first = from + sideways + bend * way;
    const QPointF second = first + 2 * bend * way;
    QPolygonF points;
    for (int step = 0; step <= steps; ++step) {
        const double t = double(step) / steps;
        const double s = 1 - t;
        points << s * s * s * from + 3 * s * s * t * first + 3 * s * t * t * second + t * t * t * to;
    }
    return points;
}

/// The ribbons out of one area share its outline, one behind the other.
class OutlineShares {
public:
    explicit OutlineShares(const QPolygon &outline) : m_outline(outline), m_length(perimeter(outline)) {}

    QPolygonF ribbon(const QPolygon &target, double share)
    {
        const NearestPlaces nearest = nearestPlaces(m_outline, target);
        const OutlineWalk walk = walkOutline(m_outline, m_isFirst ? nearest.from : m_next, m_length * share);
        m_next = walk.end;
        m_isFirst = false;
        QPolygonF back = sideCurve(walk.points.first(), nearest.to);
        std::reverse(back.begin(), back.end());
        return walk.points + sideCurve(walk.points.last(), nearest.to) + back;
    }

private:
    const QPolygon &m_outline;
    double m_length;
    OutlinePlace m_next; ///< behind the last ribbon
    bool m_isFirst = true;
};

// ---- lines

/// Half the width of a line in px.
int lineWidth(const Sources &sources, qsizetype from, qsizetype to)
{
    const int reference =
        sources.parameters.normTransGlobal ? sources.largestCount : std::max(1, largestOut(sources.transitions, from));
    const double width = double(sources.transitions.count(from, to)) / reference * sources.parameters.lineSize;
    return std::min(std::max(1, truncated(width)), sources.parameters.lineSize);
}

/// Nothing between areas with the same centre: the line has no direction.
QPolygonF band(QPointF from, QPointF to, int width)
{
    const QPointF way = to - from;
    const double length = std::hypot(way.x(), way.y());
    if (!(length > 0))
        return {};
    const QPointF sideways = QPointF(-way.y(), way.x()) / length * width;
    return {{from + sideways, to + sideways, to - sideways, from - sideways}};
}

// ---- looks

QColor mixed(const QColor &a, double shareOfA, const QColor &b, double shareOfB)
{
    const auto channel = [&](int ofA, int ofB) { return truncated(ofA * shareOfA + ofB * shareOfB); };
    return {channel(a.red(), b.red()), channel(a.green(), b.green()), channel(a.blue(), b.blue())};
}

/// By the side to which the line leads, or a mixture in which the way back has its share, too.
QColor colorOf(const Sources &sources, qsizetype from, qsizetype to)
{
    const AoiVisualizationParameters &parameters = sources.parameters;
    const bool leftward = sources.areas[to].centroid().x() < sources.areas[from].centroid().x();
    const QColor &own = leftward ? parameters.colorLeft : parameters.colorRight;
    if (!parameters.mixColor)
        return own;
    const QColor &ofWayBack = leftward ? parameters.colorRight : parameters.colorLeft;
    const double there = sources.transitions.count(from, to);
    const double back = sources.transitions.count(to, from);
    const double both = there + back > 0 ? there + back : 1;
    return mixed(own, there / both, ofWayBack, back / both);
}

QString shareText(const AoiTransitions &transitions, qsizetype from, qsizetype to)
{
    return QStringLiteral("(%1):%2%")
        .arg(transitions.count(from, to))
        .arg(text::general6(transitions.shareOfRow(from, to) * percentOfWhole));
}

QString ribbonText(const AoiTransitions &transitions, qsizetype from, qsizetype to)
{
    return QStringLiteral("Transitions out ") + shareText(transitions, from, to) +
           QStringLiteral(" \n Transitions in ") + shareText(transitions, to, from);
}

QPointF meanOfPoints(const QPolygonF &points)
{
    return std::accumulate(points.cbegin(), points.cend(), QPointF()) / double(std::max<qsizetype>(1, points.size()));
}

Drawing ribbonShapes(const Sources &sources, qsizetype from, qsizetype to, const QPolygonF &polygon)
{
    const QColor color = colorOf(sources, from, to);
    const QString text = ribbonText(sources.transitions, from, to);
    PolygonShape ribbon{polygon, QPen(color, 1), color};
    if (!sources.parameters.showAll) {
        ribbon.toolTip = text;
        ribbon.shownOnArea = from;
        return {ribbon};
    }
    Drawing drawing{ribbon};
    if (!sources.parameters.noText)
        drawing << aoiText(text, meanOfPoints(polygon), Qt::black, TextAnchor::Left);
    return drawing;
}

Drawing ribbonsOutOf(const Sources &sources, qsizetype from)
{
    Drawing drawing;
    OutlineShares shares(sources.areas[from].polygon);
    for (qsizetype to = 0; to < sources.areas.size(); ++to) {
        if (!isTransitionShown(sources, from, to))
            continue;
        const QPolygonF polygon =
            sources.parameters.showLines
                ? band(sources.areas[from].centroid(), sources.areas[to].centroid(), lineWidth(sources, from, to))
                : shares.ribbon(sources.areas[to].polygon, sources.transitions.shareOfRow(from, to));
        if (!polygon.isEmpty())
            drawing << ribbonShapes(sources, from, to, polygon);
    }
    return drawing;
}

Drawing areaShapes(const Sources &sources, qsizetype index)
{
    constexpr int borderWidth = 7;
    const AreaOfInterest &area = sources.areas[index];
    const AoiVisualizationParameters &parameters = sources.parameters;
    QColor color = parameters.oneColor ? parameters.colorAoi : area.color;
    color.setAlphaF(static_cast<float>(std::clamp(parameters.fillOpacity / percentOfWhole, 0.0, 1.0)));
    const QString text = QStringLiteral("Transitions ") + shareText(sources.transitions, index, index);
    Drawing drawing{AreaShape{area.polygon, QPen(color, borderWidth),
                              parameters.outlines ? QBrush(Qt::NoBrush) : QBrush(color),
                              parameters.showAll ? QString() : text, index}};
    if (parameters.showAll && !parameters.noText)
        drawing << aoiText(text, area.centroid(), Qt::black);
    if (parameters.displayNames && !parameters.noText)
        drawing << aoiText(area.name, area.centroid(), Qt::black);
    return drawing;
}

} // namespace

Drawing aoiTransitionShapes(const QList<AreaOfInterest> &areas, const AoiTransitions &transitions,
                            qsizetype examinations, const AoiVisualizationParameters &parameters)
{
    const Sources sources{areas, transitions, parameters, double(std::max<qsizetype>(1, examinations)),
                          largestOfAll(transitions)};
    Drawing drawing;
    for (qsizetype index = 0; index < areas.size(); ++index)
        drawing << ribbonsOutOf(sources, index) << areaShapes(sources, index);
    return drawing;
}

Drawing aoiTransitionDrawing(const DrawingContext &context)
{
    const QList<AreaOfInterest> areas = context.model.checkedAois();
    const QList<const Examination *> examinations = context.model.checkedExaminations();
    const auto type = static_cast<TransitionType>(context.areas.transitionType);
    const AoiTransitions transitions =
        countAoiTransitions(areas, walksOf(examinations, context.eyeMode), type, context.frame);
    return aoiTransitionShapes(areas, transitions, examinations.size(), context.areas);
}
