// SPDX-License-Identifier: GPL-3.0-or-later
#include "gaze-simulator/StimulusScenery.h"

#include <QLinearGradient>
#include <QRadialGradient>

#include <algorithm>

namespace scenery {

namespace {

QColor withAlpha(QColor color, int alpha)
{
    color.setAlpha(alpha);
    return color;
}

QColor mixed(const QColor &a, const QColor &b, double part)
{
    const auto mix = [part](int from, int to) { return qRound(from + (to - from) * part); };
    return {mix(a.red(), b.red()), mix(a.green(), b.green()), mix(a.blue(), b.blue())};
}

QLinearGradient vertical(double top, double bottom, std::initializer_list<QColor> colors)
{
    QLinearGradient gradient(0, top, 0, bottom);
    double at = 0;
    for (const QColor &color : colors) {
        gradient.setColorAt(at, color);
        at += 1.0 / static_cast<double>(colors.size() - 1);
    }
    return gradient;
}

QLinearGradient horizontal(double left, double right, const QColor &leftColor, const QColor &rightColor)
{
    QLinearGradient gradient(left, 0, right, 0);
    gradient.setColorAt(0, leftColor);
    gradient.setColorAt(1, rightColor);
    return gradient;
}

void fillPolygon(QPainter &painter, const QBrush &brush, const QPolygonF &polygon)
{
    painter.setBrush(brush);
    painter.drawPolygon(polygon);
}

void paintCloud(QPainter &painter, RandomSource &random, const QPointF &center, double size)
{
    constexpr int puffs = 9;
    QPainterPath cloud;
    cloud.setFillRule(Qt::WindingFill);
    for (int i = 0; i < puffs; ++i) {
        const double along = (i - (puffs - 1) / 2.0) / puffs * 2; // -1 to 1
        const double radius = size * (1 - along * along * 0.8) * random.uniform(0.22, 0.34);
        cloud.addEllipse(center + QPointF(along * size, random.uniform(-0.08, 0.02) * size - radius * 0.4),
                         radius * 1.6, radius);
    }
    const QRectF bounds = cloud.boundingRect();
    painter.setBrush(
        vertical(bounds.top(), bounds.bottom(),
                 {QColor(0xff, 0xfd, 0xf8, 245), QColor(0xff, 0xf1, 0xe4, 225), QColor(0xf3, 0xcf, 0xc6, 190)}));
    painter.drawPath(cloud);
}

QPointF balloonMouth(const QPointF &center, double radius)
{
    return center + QPointF(0, radius * 1.45);
}

/// Outline of a balloon of the given radius, drawn in to half the width `wide`.
QPainterPath envelope(const QPointF &center, double radius, double wide)
{
    const QPointF top = center - QPointF(0, radius);
    const QPointF mouth = balloonMouth(center, radius);
    QPainterPath path(top);
    path.cubicTo(center + QPointF(wide * 1.33, -radius), center + QPointF(wide * 1.33, radius * 0.45),
                 mouth + QPointF(wide * 0.16, 0));
    path.lineTo(mouth - QPointF(wide * 0.16, 0));
    path.cubicTo(center + QPointF(-wide * 1.33, radius * 0.45), center + QPointF(-wide * 1.33, -radius), top);
    return path;
}

} // namespace

void paintSky(QPainter &painter, RandomSource &random)
{
    painter.fillRect(QRectF(0, 0, width, horizon),
                     vertical(0, horizon,
                              {QColor(0x2f, 0x5d, 0xa8), QColor(0x5c, 0x8f, 0xcc), QColor(0x9f, 0xbe, 0xdd),
                               QColor(0xfb, 0xcf, 0xa2), QColor(0xff, 0xb6, 0x7d)}));
    paintCloud(painter, random, {190, 110}, 105);
    paintCloud(painter, random, {860, 175}, 90);
    paintCloud(painter, random, {1200, 75}, 85);
    paintCloud(painter, random, {560, 300}, 60);
}

void paintSun(QPainter &painter, const QPointF &center)
{
    constexpr double glowRadius = 300;
    constexpr double radius = 40;
    QRadialGradient glow(center, glowRadius);
    glow.setColorAt(0, QColor(0xff, 0xf3, 0xc4, 235));
    glow.setColorAt(0.25, QColor(0xff, 0xdd, 0x96, 120));
    glow.setColorAt(1, QColor(0xff, 0xc0, 0x80, 0));
    painter.setBrush(glow);
    painter.drawEllipse(center, glowRadius, glowRadius);
    painter.setBrush(QColor(0xff, 0xf8, 0xdc));
    painter.drawEllipse(center, radius, radius);
}

void paintWater(QPainter &painter, RandomSource &random, double sunX)
{
    painter.fillRect(QRectF(0, horizon, width, height - horizon),
                     vertical(horizon, height,
                              {QColor(0xff, 0xc9, 0x98), QColor(0x7f, 0xa6, 0xbe), QColor(0x2f, 0x77, 0x9a),
                               QColor(0x1c, 0x4d, 0x74)}));
    constexpr int waves = 130;
    for (int i = 0; i < waves; ++i) {
        const double depth = static_cast<double>(i) / waves; // 0 at the horizon
        const double y = horizon + 3 + depth * depth * 220;
        const double length = 14 + depth * 70 * random.uniform(0.5, 1.2);
        const bool lit = i % 2 == 0; // the sun's path on the water
        const double x = lit ? sunX + random.normal() * (16 + depth * 34) : random.uniform(0, width);
        painter.setBrush(lit ? QColor(0xff, 0xf0, 0xc0, 150) : QColor(0xff, 0xff, 0xff, 46));
        painter.drawEllipse(QPointF(x, y), length / 2, 0.8 + depth * 1.6);
    }
}

void paintRidge(QPainter &painter, RandomSource &random, const Ridge &ridge)
{
    const double tall = (ridge.bottom - ridge.top) * 0.55;
    QPainterPath path(QPointF(-ridge.hillWidth, ridge.bottom));
    QPointF last(-ridge.hillWidth, ridge.top + tall * random.uniform());
    path.lineTo(last);
    bool summit = true;
    while (last.x() < width + ridge.hillWidth) {
        const double part = summit ? random.uniform(0, 0.35) : random.uniform(0.6, 1);
        const QPointF next(last.x() + ridge.hillWidth * random.uniform(0.35, 0.65), ridge.top + tall * part);
        const double middle = (last.x() + next.x()) / 2;
        path.cubicTo(QPointF(middle, last.y()), QPointF(middle, next.y()), next);
        last = next;
        summit = !summit;
    }
    path.lineTo(last.x(), ridge.bottom);
    painter.setBrush(vertical(ridge.top, ridge.bottom, {ridge.light, ridge.dark}));
    painter.drawPath(path);
}

void paintLighthouse(QPainter &painter, const QPointF &foot)
{
    constexpr double tall = 200;
    constexpr int bands = 5;
    fillPolygon(painter, vertical(foot.y() - 14, foot.y() + 60, {QColor(0x7d, 0x6a, 0x62), QColor(0x3f, 0x3b, 0x45)}),
                {foot + QPointF(-150, 44), foot + QPointF(-92, 4), foot + QPointF(-40, -12), foot + QPointF(46, -10),
                 foot + QPointF(84, 12), foot + QPointF(150, 44)});
    const auto halfWidth = [](double part) { return 27 - 11 * part; };
    for (int i = 0; i < bands; ++i) {
        const double low = static_cast<double>(i) / bands;
        const double high = static_cast<double>(i + 1) / bands;
        const QColor color = i % 2 == 0 ? QColor(0xf7, 0xf3, 0xea) : QColor(0xd1, 0x2f, 0x2f);
        fillPolygon(painter, horizontal(foot.x() - 27, foot.x() + 27, color.darker(125), color),
                    {foot + QPointF(-halfWidth(low), -6 - tall * low), foot + QPointF(halfWidth(low), -6 - tall * low),
                     foot + QPointF(halfWidth(high), -6 - tall * high),
                     foot + QPointF(-halfWidth(high), -6 - tall * high)});
    }
    const QPointF top = foot - QPointF(0, tall + 6);
    QRadialGradient shine(top - QPointF(0, 14), 90);
    shine.setColorAt(0, QColor(0xff, 0xf2, 0xa8, 190));
    shine.setColorAt(1, QColor(0xff, 0xf2, 0xa8, 0));
    painter.setBrush(shine);
    painter.drawEllipse(top - QPointF(0, 14), 90, 90);
    painter.fillRect(QRectF(top.x() - 21, top.y() - 4, 42, 6), QColor(0x2e, 0x2e, 0x38));
    painter.fillRect(QRectF(top.x() - 12, top.y() - 28, 24, 24), QColor(0xff, 0xf0, 0x9a));
    painter.fillRect(QRectF(top.x() - 1.5, top.y() - 28, 3, 24), QColor(0x2e, 0x2e, 0x38));
    fillPolygon(painter, QColor(0xb8, 0x26, 0x2a),
                {top + QPointF(-17, -28), top + QPointF(0, -48), top + QPointF(17, -28)});
    painter.fillRect(QRectF(foot.x() - 7, foot.y() - 34, 14, 28), QColor(0x4a, 0x32, 0x2a));
}

void paintBalloon(QPainter &painter, const QPointF &center, double radius, const QColor &first, const QColor &second)
{
    constexpr int gores = 7;
    for (int i = 0; i < gores; ++i) { // from the outside to the middle, each over the one before
        painter.setBrush(i % 2 == 0 ? first : second);
        painter.drawPath(envelope(center, radius, radius * (1 - static_cast<double>(i) / gores)));
    }
    QRadialGradient light(center + QPointF(radius * 0.4, -radius * 0.3), radius * 1.7);
    light.setColorAt(0, QColor(255, 255, 255, 80));
    light.setColorAt(0.5, QColor(255, 255, 255, 0));
    light.setColorAt(1, QColor(20, 10, 60, 120));
    painter.setBrush(light);
    painter.drawPath(envelope(center, radius, radius));

    const QPointF mouth = balloonMouth(center, radius);
    const double basket = radius * 0.17;
    painter.setPen(QPen(QColor(0x3a, 0x2a, 0x22), std::max(radius * 0.02, 0.8)));
    for (const double side : {-1.0, 1.0})
        painter.drawLine(mouth + QPointF(side * radius * 0.14, 0), mouth + QPointF(side * basket, radius * 0.34));
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0x7a, 0x4a, 0x26));
    painter.drawRoundedRect(QRectF(mouth.x() - basket, mouth.y() + radius * 0.32, 2 * basket, basket * 1.5), 2, 2);
}

void paintBoat(QPainter &painter, const QPointF &waterline, double size)
{
    const auto at = [&](double x, double y) { return waterline + QPointF(x, y) * size; };
    painter.setBrush(QColor(0x16, 0x3a, 0x58, 110));
    painter.drawEllipse(at(0.02, 0.1), size * 0.62, size * 0.06);
    fillPolygon(painter,
                vertical(waterline.y() - size * 0.12, waterline.y() + size * 0.1,
                         {QColor(0x8f, 0x4a, 0x26), QColor(0x4b, 0x24, 0x18)}),
                {at(-0.52, -0.1), at(0.56, -0.12), at(0.38, 0.1), at(-0.36, 0.1)});
    painter.fillRect(QRectF(at(-0.02, -1.42), QSizeF(size * 0.03, size * 1.32)), QColor(0x4a, 0x32, 0x26));
    fillPolygon(painter, horizontal(waterline.x(), waterline.x() + size * 0.6, Qt::white, QColor(0xea, 0xdc, 0xc4)),
                {at(0.04, -1.36), at(0.04, -0.2), at(0.58, -0.2)});
    fillPolygon(
        painter,
        horizontal(waterline.x() - size * 0.5, waterline.x(), QColor(0xb3, 0x22, 0x2e), QColor(0xe8, 0x4a, 0x43)),
        {at(-0.05, -1.24), at(-0.05, -0.2), at(-0.48, -0.2)});
    fillPolygon(painter, QColor(0xf6, 0xc1, 0x3a), {at(0.0, -1.42), at(0.2, -1.48), at(0.0, -1.54)});
}

void paintBird(QPainter &painter, const QPointF &center, double span)
{
    QPainterPath wings(center - QPointF(span / 2, span * 0.12));
    wings.quadTo(center + QPointF(-span * 0.2, -span * 0.3), center);
    wings.quadTo(center + QPointF(span * 0.2, -span * 0.3), center + QPointF(span / 2, -span * 0.12));
    painter.setPen(QPen(QColor(0x2c, 0x2c, 0x44), span * 0.09, Qt::SolidLine, Qt::RoundCap));
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(wings);
    painter.setPen(Qt::NoPen);
}

void paintPine(QPainter &painter, const QPointF &foot, double size)
{
    constexpr int tiers = 4;
    painter.fillRect(QRectF(foot.x() - size * 0.035, foot.y() - size * 0.16, size * 0.07, size * 0.2),
                     QColor(0x55, 0x38, 0x26));
    for (int i = 0; i < tiers; ++i) {
        const double low = foot.y() - size * (0.12 + 0.2 * i);
        const double half = size * (0.27 - 0.05 * i);
        fillPolygon(
            painter, horizontal(foot.x() - half, foot.x() + half, QColor(0x12, 0x3b, 0x2c), QColor(0x3d, 0x7a, 0x45)),
            {QPointF(foot.x() - half, low), QPointF(foot.x(), low - size * 0.36), QPointF(foot.x() + half, low)});
    }
}

void paintCottage(QPainter &painter, const QPointF &foot)
{
    const QColor wall(0xf3, 0xe2, 0xc4);
    const QColor glass(0xff, 0xd9, 0x62);
    const QColor wood(0x5a, 0x36, 0x22);
    for (int i = 0; i < 4; ++i) {
        painter.setBrush(withAlpha(Qt::white, 110 - 22 * i));
        painter.drawEllipse(foot + QPointF(52 + 9 * i, -158 - 22 * i), 8.0 + 4 * i, 6.0 + 3 * i);
    }
    painter.fillRect(QRectF(foot.x() + 36, foot.y() - 148, 20, 50), QColor(0x8f, 0x4b, 0x3c));
    painter.fillRect(QRectF(foot.x() - 80, foot.y() - 78, 160, 88),
                     horizontal(foot.x() - 80, foot.x() + 80, wall, wall.darker(122)));
    fillPolygon(
        painter, vertical(foot.y() - 140, foot.y() - 74, {QColor(0xd8, 0x5a, 0x38), QColor(0x97, 0x2e, 0x22)}),
        {foot + QPointF(-98, -74), foot + QPointF(-58, -140), foot + QPointF(58, -140), foot + QPointF(98, -74)});
    painter.setBrush(QColor(0x23, 0x6a, 0x84));
    painter.drawRoundedRect(QRectF(foot.x() - 17, foot.y() - 52, 34, 62), 4, 4);
    painter.setBrush(QColor(0xf7, 0xd0, 0x5a));
    painter.drawEllipse(foot + QPointF(10, -20), 2.5, 2.5);
    for (const double x : {-50.0, 50.0}) {
        const QRectF window(foot.x() + x - 17, foot.y() - 56, 34, 32);
        painter.fillRect(window.adjusted(-3, -3, 3, 3), wood);
        painter.fillRect(window, glass);
        painter.fillRect(QRectF(window.center().x() - 1.5, window.top(), 3, window.height()), wood);
        painter.fillRect(QRectF(window.left(), window.center().y() - 1.5, window.width(), 3), wood);
    }
}

void paintPoppies(QPainter &painter, RandomSource &random, double top)
{
    constexpr int count = 110;
    for (int i = 0; i < count; ++i) { // from far to near
        const double depth = static_cast<double>(i) / count;
        const double x = random.uniform(0, width);
        const QPointF head(x, top + depth * (height - top) + random.uniform(-6, 6));
        const double radius = (2.5 + 6.5 * depth) * random.uniform(0.8, 1.2);
        painter.setPen(QPen(QColor(0x2a, 0x5a, 0x2a), radius * 0.22));
        painter.drawLine(head, head + QPointF(random.uniform(-0.6, 0.6) * radius, radius * 3.2));
        painter.setPen(Qt::NoPen);
        const QColor petal = mixed(QColor(0xd6, 0x22, 0x22), QColor(0xff, 0x5d, 0x3a), random.uniform());
        painter.setBrush(petal);
        painter.drawEllipse(head + QPointF(-radius * 0.45, 0), radius * 0.75, radius * 0.7);
        painter.setBrush(petal.lighter(112));
        painter.drawEllipse(head + QPointF(radius * 0.45, 0), radius * 0.75, radius * 0.7);
        painter.setBrush(QColor(0x2a, 0x18, 0x1e));
        painter.drawEllipse(head + QPointF(0, radius * 0.08), radius * 0.26, radius * 0.26);
    }
}

} // namespace scenery
