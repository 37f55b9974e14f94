// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/panel/OpenGlViewport.h"

#include <QGraphicsView>
#include <QGuiApplication>
#include <QOpenGLContext>
#include <QOpenGLWidget>

namespace {

/// Some platforms have no OpenGL at all, and a remote desktop may offer it without being able to.
bool hasOpenGl()
{
    const QString platform = QGuiApplication::platformName();
    if (platform == QLatin1StringView("offscreen") || platform.startsWith(QLatin1StringView("minimal")) ||
        platform == QLatin1StringView("vnc") || platform == QLatin1StringView("linuxfb"))
        return false;
    return QOpenGLContext().create();
}

QOpenGLWidget *multisampledWidget(QWidget *parent)
{
    constexpr int samplesPerPixel = 4;
    QSurfaceFormat format = QSurfaceFormat::defaultFormat();
    format.setSamples(samplesPerPixel);
    auto *widget = new QOpenGLWidget(parent);
    widget->setFormat(format);
    return widget;
}

} // namespace

void useOpenGlViewport(QGraphicsView &view)
{
    if (hasOpenGl())
        view.setViewport(multisampledWidget(&view));
}
