// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <optional>

bool isReadable(const QString &path);

/// Why a picture cannot be shown, for the user; nothing if it can be, or where the path is empty. It is decoded whole:
/// a file that breaks off behind its header would be a picture without size.
std::optional<QString> pictureProblem(const QString &path);
