// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QRectF>
#include <QString>

#include <optional>

class QGraphicsScene;

/// Which part of a scene becomes an image, and how large.
struct ImageSettings {
    QRectF area = {};                ///< px of the scene; null for the scene's whole rectangle
    double scale = 1;                ///< pixels of the image for one of the scene; drawn finer, not enlarged
    QColor ground = Qt::transparent; ///< where nothing is drawn
    QString title = QStringLiteral("Vistrum 2013 Visualization"); ///< of vector graphics
    QString description = QStringLiteral("An Eye-Tracking recording visualized by Vistrum 2013");
};

/// Writes a scene to a file: ".svg" as vector graphics of 1000 by 1000 units with the aspect ratio kept, any other name
/// as an image whose format its ending names (.png, .tiff, .jpg). The same scene gives the same bytes. After a failure
/// an older file is as it was.
///
/// @return what went wrong, in words for the user; nothing if the file is written.
std::optional<QString> exportScene(QGraphicsScene &scene, const QString &path, const ImageSettings &settings = {});
