#include "visualization/scene/ImageExport.h"

#include "base/TextFormat.h"

#include <QFile>
#include <QGraphicsScene>
#include <QImageWriter>
#include <QPainter>
#include <QSvgGenerator>

namespace {

QString failure(const QString &path, const QString &reason)
{
    return QStringLiteral("%1 could not be written: %2").arg(path, reason);
}

/// Curves as smooth as on the screen.
void render(QGraphicsScene &scene, QPaintDevice *device)
{
    QPainter painter(device);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    scene.render(&painter);
}

std::optional<QString> exportSvg(QGraphicsScene &scene, const QString &path)
{
    constexpr int side = 1000;
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return failure(path, file.errorString());
    QSvgGenerator generator;
    generator.setOutputDevice(&file);
    generator.setSize({side, side});
    generator.setViewBox(QRect(0, 0, side, side));
    generator.setTitle(QStringLiteral("Vistrum 2013 Visualization"));
    generator.setDescription(QStringLiteral("An Eye-Tracking recording visualized by Vistrum 2013"));
    render(scene, &generator);
    file.close();
    return file.error() == QFile::NoError ? std::nullopt : std::optional(failure(path, file.errorString()));
}

/// Where nothing is lost anyway, a quality of 100 only means a file without compression.
bool isLossy(const QString &path)
{
    return path.endsWith(QLatin1StringView(".jpg"), Qt::CaseInsensitive) ||
           path.endsWith(QLatin1StringView(".jpeg"), Qt::CaseInsensitive);
}

std::optional<QString> exportImage(QGraphicsScene &scene, const QString &path)
{
    constexpr int bestQuality = 100;
    const QRectF whole = scene.sceneRect();
    QImage image(text::truncated(whole.width()), text::truncated(whole.height()), QImage::Format_ARGB32);
    if (image.isNull())
        return failure(path, QStringLiteral("the drawing is empty or too large for an image"));
    image.fill(Qt::transparent);
    render(scene, &image);
    QImageWriter writer(path);
    if (isLossy(path))
        writer.setQuality(bestQuality);
    return writer.write(image) ? std::nullopt : std::optional(failure(path, writer.errorString()));
}

} // namespace

std::optional<QString> exportScene(QGraphicsScene &scene, const QString &path)
{
    return path.endsWith(QLatin1StringView(".svg"), Qt::CaseInsensitive) ? exportSvg(scene, path)
                                                                         : exportImage(scene, path);
}
