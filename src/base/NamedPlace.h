// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

/// The place of a file whose name comes from data, in the folder that the user chose.
///
/// @param name  file name, possibly below folders: as it came, so it may hold anything.
/// @return folder and name joined; nothing where that is not a file below the folder: an empty name, one that ends in
///         a separator, an absolute one, one that leads out by "..", one with a character that ends names, or one
///         through a link that leads out.
std::optional<QString> placeInside(const QString &folder, const QString &name);

/// A text that is the same for every way to a file, by links or other folders, whether it is there or will be. Empty
/// for an empty path.
QString fileIdentity(const QString &path);

/// For each file to which several of the paths lead, these paths in their order.
QList<QStringList> waysToOneFile(const QStringList &paths);

/// The name of a file, whichever way its folders are separated: its path may be one of another system.
QString fileNameOf(const QString &path);
