// SPDX-License-Identifier: GPL-3.0-or-later
#include "diagram/ChordShapes.h"

#include "base/TextFormat.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <numeric>

namespace {

constexpr QPointF center(520, 520);
constexpr double outer = 500;
constexpr double inner = 460;
constexpr double fullTurn = 2 * std::numbers::pi;

/// Angles clockwise from the top, radians.
struct Arc {
    double start = 0;
    double end = 0;
};

double shareOr0(double share)
{
    return std::isfinite(share) ? share : 0;
}

double sumOf(const QList<double> &row)
{
    return std::accumulate(row.cbegin(), row.cend(), 0.0, [](double a, double b) { return a + shareOr0(b); });
}

/// The places of all shares on the circle, [from][to].
QList<QList<Arc>> placesOf(const ChordData &data)
{
    constexpr double widestGap = 0.04;
    const auto count = static_cast<double>(data.areas.size());
    const double gap = std::min(widestGap, 1.2 / count);
    const double perShare = fullTurn - gap * count;
    QList<QList<Arc>> places;
    double angle = 0;
    for (const QList<double> &row : data.shares) {
        places << QList<Arc>();
        for (const double share : row) {
            const double end = angle + shareOr0(share) * perShare;
            places.last() << Arc{angle, end};
            angle = end;
        }
        angle += gap;
    }
    return places;
}

QPointF at(double angle, double radius)
{
    return center + radius * QPointF(std::sin(angle), -std::cos(angle));
}

/// In steps of about a degree.
QPolygonF arcPoints(Arc arc, double radius)
{
    constexpr double step = fullTurn / 360;
    const int steps = std::max(1, static_cast<int>((arc.end - arc.start) / step));
    QPolygonF points;
    for (int i = 0; i <= steps; ++i)
        points << at(arc.start + (arc.end - arc.start) * i / steps, radius);
    return points;
}

/// From one place of the circle to another, drawn towards the centre.
QPolygonF bow(double from, double to)
{
    constexpr int steps = 60;
    QPolygonF points;
    for (int i = 1; i < steps; ++i) {
        const double t = double(i) / steps;
        points << (1 - t) * (1 - t) * at(from, inner) + 2 * t * (1 - t) * center + t * t * at(to, inner);
    }
    return points;
}

/// What stays in an area goes out and comes back.
QPolygonF loop(Arc arc)
{
    return arcPoints(arc, inner) + bow(arc.end, arc.start);
}

QPolygonF ribbon(Arc source, Arc target)
{
    return arcPoints(source, inner) + bow(source.end, target.start) + arcPoints(target, inner) +
           bow(target.end, source.start);
}

QPolygonF ring(Arc arc)
{
    QPolygonF back = arcPoints(arc, inner);
    std::reverse(back.begin(), back.end());
    return arcPoints(arc, outer) + back;
}

QString percentText(double share)
{
    constexpr double percent = 100;
    return text::fixed(shareOr0(share) * percent, 1) + QStringLiteral(" %");
}

QColor translucent(QColor color)
{
    constexpr int alpha = 180;
    color.setAlpha(alpha);
    return color;
}

QColor opaque(QColor color)
{
    constexpr int alpha = 255;
    color.setAlpha(alpha);
    return color;
}

Drawing ribbons(const ChordData &data, const QList<QList<Arc>> &places)
{
    Drawing drawing;
    for (qsizetype i = 0; i < data.areas.size(); ++i) {
        for (qsizetype j = i; j < data.areas.size(); ++j) {
            const double there = shareOr0(data.shares[i][j]);
            const double back = shareOr0(data.shares[j][i]);
            if (!(there + back > 0))
                continue;
            const QColor &color = data.areas[there >= back ? i : j].color;
            drawing << PolygonShape{
                i == j ? loop(places[i][i]) : ribbon(places[i][j], places[j][i]), QPen(opaque(color).darker(), 1),
                translucent(color),
                QStringLiteral("%1 → %2: %3\r\n%2 → %1: %4")
                    .arg(data.areas[i].name, data.areas[j].name, percentText(there), percentText(back))};
        }
    }
    return drawing;
}

/// As large as all of them fit beside the circle.
Drawing names(const ChordData &data)
{
    constexpr double left = 1080;
    constexpr double height = 1040;
    constexpr double largestRow = 50;
    constexpr qsizetype longest = 24;
    const double row = std::min(largestRow, height / static_cast<double>(std::max<qsizetype>(1, data.areas.size())));
    const QFont font(QStringLiteral("Times New Roman"), std::max(8, static_cast<int>(row * 0.5)));
    Drawing drawing;
    for (qsizetype i = 0; i < data.areas.size(); ++i) {
        const double y = static_cast<double>(i) * row;
        const QString &name = data.areas[i].name;
        const QString shown = name.size() <= longest ? name : name.left(longest - 1) + u'…';
        drawing << PolygonShape{QPolygonF(QRectF(left, y + row * 0.2, row * 0.6, row * 0.6)), QPen(Qt::black),
                                QBrush(opaque(data.areas[i].color))}
                << TextShape{{left + row, y + row * 0.5},
                             QStringLiteral("%1. %2  %3").arg(i + 1).arg(shown, percentText(sumOf(data.shares[i]))),
                             font,
                             Qt::black,
                             TextAnchor::Beside};
    }
    return drawing;
}

/// Numbers on those that are wide enough.
Drawing rings(const ChordData &data, const QList<QList<Arc>> &places)
{
    constexpr double leastForNumber = 0.08; // radians
    const QFont font(QStringLiteral("Times New Roman"), 18);
    Drawing drawing;
    for (qsizetype i = 0; i < data.areas.size(); ++i) {
        const Arc arc{places[i].first().start, places[i].last().end};
        if (!(arc.end > arc.start))
            continue;
        const QColor color = opaque(data.areas[i].color);
        drawing << PolygonShape{ring(arc), QPen(Qt::black, 1), QBrush(color), data.areas[i].name};
        if (arc.end - arc.start < leastForNumber)
            continue;
        constexpr int middleGrey = 128;
        const QColor ink = qGray(color.rgb()) > middleGrey ? Qt::black : Qt::white;
        drawing << TextShape{at((arc.start + arc.end) / 2, (inner + outer) / 2), QString::number(i + 1), font, ink,
                             TextAnchor::Center};
    }
    return drawing;
}

} // namespace

Drawing chordShapes(const ChordData &data)
{
    const QRectF ground(0, 0, 1600, 1040);
    const Drawing drawing{PolygonShape{QPolygonF(ground), QPen(Qt::NoPen), QBrush(Qt::white)}};
    const QList<QList<Arc>> places = placesOf(data);
    return drawing + ribbons(data, places) + rings(data, places) + names(data);
}
