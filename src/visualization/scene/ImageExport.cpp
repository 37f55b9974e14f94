// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/scene/ImageExport.h"

#include "base/FileReplacement.h"
#include "base/Truncation.h"

#include <QBuffer>
#include <QFileInfo>
#include <QGraphicsScene>
#include <QImageWriter>
#include <QPainter>
#include <QSvgGenerator>

namespace {

/// Curves as smooth as on the screen.
void render(QGraphicsScene &scene, QPaintDevice *device, const QRectF &area)
{
    QPainter painter(device);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    scene.render(&painter, {}, area);
}

/// A picture that is whole, or what went wrong.
struct Encoded {
    QByteArray bytes;
    std::optional<QString> problem;
};

Encoded encodedSvg(QGraphicsScene &scene, const QRectF &area, const ImageSettings &settings)
{
    constexpr int side = 1000;
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QSvgGenerator generator;
    generator.setOutputDevice(&buffer);
    generator.setSize({side, side});
    generator.setViewBox(QRect(0, 0, side, side));
    generator.setTitle(settings.title);
    generator.setDescription(settings.description);
    render(scene, &generator, area);
    return {buffer.data(), std::nullopt};
}

/// Where nothing is lost anyway, a quality of 100 only means a file without compression.
bool isLossy(const QString &path)
{
    return path.endsWith(QLatin1StringView(".jpg"), Qt::CaseInsensitive) ||
           path.endsWith(QLatin1StringView(".jpeg"), Qt::CaseInsensitive);
}

/// In place of the word of the encoder, which names no remedy.
QString problemOf(const QImageWriter &writer)
{
    if (writer.error() != QImageWriter::UnsupportedFormatError)
        return writer.errorString();
    const QString ending = QString::fromLatin1(writer.format());
    const QString trouble = ending.isEmpty() ? QStringLiteral("the name has no ending")
                                             : QStringLiteral("\".%1\" is no ending of a picture").arg(ending);
    return trouble + QStringLiteral("; let the name end in .png, .svg, .tiff or .jpg");
}

Encoded encodedImage(QGraphicsScene &scene, const QString &path, const QRectF &area, const ImageSettings &settings)
{
    constexpr int bestQuality = 100;
    QImage image(truncated(area.width() * settings.scale), truncated(area.height() * settings.scale),
                 QImage::Format_ARGB32);
    if (image.isNull())
        return {{}, QStringLiteral("the drawing is empty or too large for an image")};
    image.fill(settings.ground);
    render(scene, &image, area);
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, QFileInfo(path).suffix().toLower().toLatin1());
    if (isLossy(path))
        writer.setQuality(bestQuality);
    if (writer.write(image))
        return {buffer.data(), std::nullopt};
    return {{}, problemOf(writer)};
}

} // namespace

std::optional<QString> exportScene(QGraphicsScene &scene, const QString &path, const ImageSettings &settings)
{
    const bool isSvg = path.endsWith(QLatin1StringView(".svg"), Qt::CaseInsensitive);
    const QRectF area = settings.area.isNull() ? scene.sceneRect() : settings.area;
    Encoded picture = isSvg ? encodedSvg(scene, area, settings) : encodedImage(scene, path, area, settings);
    if (!picture.problem)
        picture.problem = replaceFile(path, picture.bytes);
    return picture.problem ? std::optional(writeFailure(path, *picture.problem)) : std::nullopt;
}
