#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

/// Puts a file with these bytes in the place of the one of this name, if there is one: whole or, after a failure, not
/// at all. Whatever else has the name, such as a device or a pipe, is refused: it would lose its place.
///
/// @return what went wrong, in words for the user; nothing if the file is written.
std::optional<QString> replaceFile(const QString &path, const QByteArray &bytes);
