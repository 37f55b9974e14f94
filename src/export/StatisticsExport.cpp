// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/StatisticsExport.h"

#include "base/Progress.h"
#include "export/TextTable.h"

namespace {

using Rows = QString (*)(const Examination &, Eye, const StatisticsColumns &);

struct Table {
    QLatin1StringView label; ///< in the progress
    QLatin1StringView infix; ///< of the file names
    QString header;
    Rows rows;
    const StatisticsColumns &columns;
};

/// A file for each eye with the rows of all checked examinations.
ExportResult writeRows(const DataModel &model, const ExportTarget &target, const Table &table)
{
    ExportResult result;
    const QList<const Examination *> checked = model.checkedExaminations();
    const QList<Eye> eyes = eyesOf(target.eyes);
    QStringList texts(eyes.size(), table.header);
    Progress progress(QStringLiteral("Exporting %1. Please wait.").arg(table.label),
                      static_cast<int>(checked.size()) + 1);
    for (const Examination *examination : checked) {
        for (qsizetype i = 0; i < eyes.size(); ++i)
            texts[i] += table.rows(*examination, eyes[i], table.columns);
        progress.advance();
    }
    for (qsizetype i = 0; i < eyes.size(); ++i)
        writeTable(exportPath(target, table.infix, eyes[i]), texts[i], result);
    return result;
}

} // namespace

ExportResult exportGeneralStatistics(const DataModel &model, const ExportTarget &target,
                                     const StatisticsColumns &columns)
{
    ExportResult result = writeRows(model, target,
                                    {QLatin1StringView("general statistics"), QLatin1StringView("_generalstatistics_"),
                                     generalStatisticsHeader(columns), generalStatisticsRow, columns});
    tellExported(QStringLiteral("General statistics Export"),
                 QStringLiteral("General statistics exported to: ") + target.folder +
                     QLatin1StringView("_filename_generalstatistics_left/right.csv"),
                 result);
    return result;
}

ExportResult exportAoiStatistics(const DataModel &model, const ExportTarget &target, const StatisticsColumns &columns)
{
    ExportResult result = writeRows(model, target,
                                    {QLatin1StringView("AOI statistics"), QLatin1StringView("_AOIstatistics_"),
                                     aoiStatisticsHeader(columns), aoiStatisticsRows, columns});
    writeTable(pathStem(target) + QLatin1StringView("_AOIArea_.csv"), aoiAreaTable(model.aoiList()), result);
    tellExported(QStringLiteral("AOI statistics Export"),
                 QStringLiteral("AOI statistics exported to: ") + target.folder +
                     QLatin1StringView("_filename_AOIstatistics_left/right.csv"),
                 result);
    return result;
}
