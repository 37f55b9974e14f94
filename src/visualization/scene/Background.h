// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>
#include <QPixmap>

class QGraphicsPixmapItem;
class QGraphicsScene;

enum class Border { None, Black };

/// The picture behind the drawing: the image file at its own size, or a white canvas where the path is empty. The
/// border is a black frame of 10 px on its edge. A file that cannot be read gives a null pixmap.
QPixmap backgroundPixmap(const QString &imagePath, Border border);

/// Draws that border onto a picture; a null pixmap stays as it is.
void drawBorder(QPixmap &pixmap);

/// Reads pictures like `backgroundPixmap` without border and keeps the last one: a redraw must not wait for the
/// decoding of a large file, which takes longer than all the drawing. A file that has changed is read again.
class PictureReader {
public:
    QPixmap pixmap(const QString &imagePath);

private:
    struct File {
        bool operator==(const File &) const = default;

        QString path;
        QDateTime modified;
        qint64 sizeBytes = -1; ///< of no file yet
    };

    File m_file;
    QPixmap m_pixmap;
};

/// Puts the pixmap behind all other items; the scene owns the item.
QGraphicsPixmapItem *addBackground(QGraphicsScene &scene, const QPixmap &pixmap);
