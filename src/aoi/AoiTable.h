// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "aoi/AoiFile.h"

#include <optional>

/// Areas as a table with a vertex a line, UTF-8, for scripts:
///
///     name,x,y
///     Left mirror,10,20
///     Left mirror,110,20
///     "Door, left",300,40
///
/// A name with a comma, a quotation mark or a line break stands in quotation marks, which are doubled inside. Vertices
/// of one name make one area, wherever they stand; areas come in the order of their first vertex. The line of headings
/// may be missing. Numbers with decimals are rounded to whole pixels. Colours are not kept.
AoiFileContents parseAoiTable(const QByteArray &bytes);

/// The content of such a file. Areas without vertices are not in it.
QByteArray aoiTable(const QList<AreaOfInterest> &aois);

/// The records of a text of values with commas between them. A quotation mark that is not closed reaches to the end.
QList<QStringList> csvRecords(QStringView text);

/// A coordinate in px, rounded; nothing for what is no number or lies beyond 1e9.
std::optional<int> pixelOf(double coordinate);
