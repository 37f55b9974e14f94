#pragma once

#include <QPixmap>

class QGraphicsPixmapItem;
class QGraphicsScene;
class QString;

enum class Border { None, Black };

/// The picture behind the drawing: the image file at its own size, or a white canvas where the path is empty. The
/// border is a black frame of 10 px on its edge. A file that cannot be read gives a null pixmap.
QPixmap backgroundPixmap(const QString &imagePath, Border border);

/// Draws that border onto a picture; a null pixmap stays as it is.
void drawBorder(QPixmap &pixmap);

/// Puts the pixmap behind all other items; the scene owns the item.
QGraphicsPixmapItem *addBackground(QGraphicsScene &scene, const QPixmap &pixmap);
