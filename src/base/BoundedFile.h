// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

#include <variant>

/// What files of settings, of recordings' descriptions and the like can hold at most; they have some kilobytes.
inline constexpr qint64 largestDescription = qint64(16) << 20;

/// All bytes of a file that has at most `largest` of them, or in a sentence for the user why it was not read. Of a
/// larger file, or one without an end, no more than that is taken into memory.
std::variant<QByteArray, QString> readBounded(const QString &path, qint64 largest);
