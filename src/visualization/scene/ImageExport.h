#pragma once

#include <QString>

#include <optional>

class QGraphicsScene;

/// Writes the scene's whole rectangle to a file: ".svg" as vector graphics of 1000 by 1000 units with the aspect ratio
/// kept, any other name as an image of the scene's own size whose format its ending names (.png, .tiff, .jpg).
/// The same scene gives the same bytes. After a failure an older file is as it was.
///
/// @return what went wrong, in words for the user; nothing if the file is written.
std::optional<QString> exportScene(QGraphicsScene &scene, const QString &path);
