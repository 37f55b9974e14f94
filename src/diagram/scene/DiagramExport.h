// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "diagram/ChordData.h"

#include <QString>

#include <optional>

/// Writes the diagram as ".html", one page that needs no other file, or as a picture with the endings of `exportScene`.
///
/// @return what went wrong, in words for the user; nothing if the file is written.
std::optional<QString> exportDiagram(const ChordData &data, const QString &path);
