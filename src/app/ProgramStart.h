// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArrayList>
#include <QStringList>

#include <optional>

/// What the arguments ask for that needs neither window nor display: the help, or the version.
/// @param arguments  as the system gave them, without the program's name.
/// @return lines for standard output; nothing where the window is to open.
std::optional<QString> answerOfStart(const QByteArrayList &arguments);

/// The first argument that looks like an option and is no file.
/// @param arguments  those that the toolkit left, which takes its own out of them.
std::optional<QString> unknownOption(const QStringList &arguments);
