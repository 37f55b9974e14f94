// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "import/conversion/LayoutChoice.h"
#include "import/tables/TableRecording.h"

#include <QJsonObject>

/// How a table was read and what was found in it, as data for a report.
QJsonObject reportedTable(const ChosenLayout &chosen, const TableContent &content);

/// "p01.csv: ..." or, where the table has several recordings, "p01.csv, recording 2: ...".
QString recordingLine(const QString &table, const TableContent &content, const TableRecording &recording,
                      const QString &sentence);
