// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

/// Places and sizes of windows, kept beside the store of parameters in a file of their own: they belong to a screen,
/// and neither to a way of working nor to the files in which one is handed on.
namespace windowmemory {

/// What was kept under this name; empty at the first start.
QByteArray recall(const QString &name);

void keep(const QString &name, const QByteArray &state);

} // namespace windowmemory
