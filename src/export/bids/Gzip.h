// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

/// The bytes packed as one gzip member without name and time: the same bytes always give the same file.
/// Source: RFC 1952.
QByteArray gzipped(const QByteArray &bytes);
