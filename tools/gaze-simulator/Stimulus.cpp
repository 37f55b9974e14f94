// SPDX-License-Identifier: GPL-3.0-or-later
#include "gaze-simulator/Stimulus.h"

#include "gaze-simulator/StimulusScenery.h"

namespace {

using namespace scenery;

void paintDistance(QPainter &painter, RandomSource &random)
{
    constexpr double sunX = 800;
    paintSky(painter, random);
    paintSun(painter, {sunX, 292});
    paintRidge(painter, random, {270, horizon, 210, QColor(0xa9, 0x8f, 0xb8), QColor(0xe6, 0xb4, 0xa4)});
    paintRidge(painter, random, {335, horizon, 140, QColor(0x74, 0x6c, 0xa0), QColor(0xb5, 0x90, 0xa6)});
    paintWater(painter, random, sunX);
}

void paintAir(QPainter &painter)
{
    paintBalloon(painter, {400, 150}, 66, QColor(0xd8, 0x3a, 0x2b), QColor(0xf9, 0xc8, 0x3f));
    paintBalloon(painter, {1060, 190}, 46, QColor(0x13, 0x8a, 0x8a), QColor(0xf4, 0xf0, 0xe1));
    paintBalloon(painter, {700, 100}, 25, QColor(0x7a, 0x3f, 0x9d), QColor(0xf0, 0x8a, 0x3c));
    paintBird(painter, {560, 250}, 30);
    paintBird(painter, {604, 232}, 24);
    paintBird(painter, {634, 262}, 20);
}

void paintForeground(QPainter &painter, RandomSource &random)
{
    paintRidge(painter, random, {560, height, 520, QColor(0x8f, 0xb3, 0x4a), QColor(0x2c, 0x5c, 0x2e)});
    paintCottage(painter, {1010, 655});
    paintPine(painter, {1165, 672}, 150);
    paintPine(painter, {1225, 690}, 118);
    paintPine(painter, {70, 720}, 190);
    paintPine(painter, {150, 735}, 130);
    paintRidge(painter, random, {665, height + 40, 330, QColor(0x6d, 0x9e, 0x3c), QColor(0x1f, 0x48, 0x25)});
    paintPoppies(painter, random, 715);
}

} // namespace

QImage makeStimulus(const QSize &size, quint64 seed)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::white);
    RandomSource random(seed, RandomSource::Stream::Scenery);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(size.width() / width, size.height() / height);
    painter.setPen(Qt::NoPen);
    paintDistance(painter, random);
    paintAir(painter);
    paintLighthouse(painter, {205, 452});
    paintBoat(painter, {600, 520}, 110);
    paintForeground(painter, random);
    return image;
}
