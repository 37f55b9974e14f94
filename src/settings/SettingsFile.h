// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>

#include <optional>

/// One line of a settings file.
struct SettingsLine {
    QString key;
    QString value;
    int number = 0; ///< of the line in its file, from 1; no part of what the line says

    bool operator==(const SettingsLine &other) const { return key == other.key && value == other.value; }
};

/// The lines of a settings file: a key, "=" and its value, nothing else. There are no sections and no comments, and
/// nothing is trimmed. A line that holds no "=" or more than one, or no key, is left out.
///
/// @return nothing where the file cannot be opened.
std::optional<QList<SettingsLine>> readSettingsFile(const QString &path);

/// The same for the content of a file.
QList<SettingsLine> parseSettingsFile(const QByteArray &bytes);

/// The lines that are left out, other than empty ones and headers of sections: what stands before the first "=" and
/// what behind it.
QList<SettingsLine> settingsLinesLeftOut(const QByteArray &bytes);
/// The content of a file of these lines.
QByteArray settingsFileText(const QList<SettingsLine> &lines);

/// Replaces the file by one of these lines.
///
/// @return what went wrong, in words for the user; nothing if the file is written.
std::optional<QString> writeSettingsFile(const QString &path, const QList<SettingsLine> &lines);
