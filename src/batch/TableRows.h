// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "export/DataExport.h"

#include <QLatin1StringView>
#include <QList>

struct RunState;

/// A word of `--export` and what it writes. A new table is a row in the list of its subject.
struct TableRow {
    QLatin1StringView word;
    ExportResult (*write)(RunState &, const ExportTarget &); ///< called with at least one recording
    QLatin1StringView needs = {};                            ///< the calculation on which it rests, at least in part
};

/// All tables in the order in which they are written.
QList<TableRow> tableRows();
