// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/scene/Background.h"

#include "model/Canvas.h"
#include "model/PictureFile.h"

#include <QFileInfo>
#include <QGraphicsPixmapItem>
#include <QGraphicsScene>
#include <QPainter>

namespace {

QPixmap plainPixmap()
{
    QPixmap pixmap(canvas::width, canvas::height);
    pixmap.fill(Qt::white);
    return pixmap;
}

} // namespace

QPixmap backgroundPixmap(const QString &imagePath, Border border)
{
    QPixmap pixmap;
    if (imagePath.isEmpty())
        pixmap = plainPixmap();
    else if (isWholePictureFile(imagePath))
        pixmap.load(imagePath);
    if (border == Border::Black)
        drawBorder(pixmap);
    return pixmap;
}

QPixmap PictureReader::pixmap(const QString &imagePath)
{
    const QFileInfo info(imagePath);
    const File file{imagePath, info.lastModified(), info.size()};
    if (m_file != file) {
        m_pixmap = backgroundPixmap(imagePath, Border::None);
        m_file = file;
    }
    return m_pixmap;
}

void drawBorder(QPixmap &pixmap)
{
    constexpr int frameWidth = 10; // px; half of it falls outside the picture
    if (pixmap.isNull())
        return;
    QPainter painter(&pixmap);
    painter.setPen(QPen(Qt::black, frameWidth));
    painter.drawRect(0, 0, pixmap.width(), pixmap.height());
}

QGraphicsPixmapItem *addBackground(QGraphicsScene &scene, const QPixmap &pixmap)
{
    constexpr double behindEverything = -1;
    QGraphicsPixmapItem *item = scene.addPixmap(pixmap);
    item->setZValue(behindEverything);
    return item;
}
