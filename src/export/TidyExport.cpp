// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/TidyExport.h"

#include "base/FileReplacement.h"
#include "base/Progress.h"
#include "export/TextTable.h"
#include "export/TidyKinds.h"

namespace {

using Text = QLatin1StringView;

QString pathOf(const ExportTarget &target, Text kind)
{
    return pathStem(target) + Text("_tidy_") + kind + Text(".csv");
}

/// The rows of a stream are made in any thread, and written in the order of the streams.
void writeKind(const TidyKind &kind, const QString &path, const std::vector<ExportedStream> &streams,
               const TidyContext &context, int threads, ExportResult &result)
{
    FileReplacement file(path, Links::Replaced); // as the other tables are written
    file.write(tidyLead().toString().toUtf8() + ',' + kind.columns.toString().toUtf8() + '\n');
    std::vector<QByteArray> rows(streams.size());
    sideBySide(
        std::ssize(streams), threads,
        [&](qsizetype i) {
            const auto place = static_cast<std::size_t>(i);
            rows[place] = kind.rows(streams[place], context);
        },
        [&](qsizetype i) { file.write(std::exchange(rows[static_cast<std::size_t>(i)], {})); });
    takeTable(file, result);
}

ExportResult writeKinds(std::span<const TidyKind> kinds, const DataModel &model, const ExportTarget &target,
                        const MeasureForm &form)
{
    const std::vector<ExportedStream> streams = streamsOf(model, target.eyes);
    const TidyContext context(model, form);
    ExportResult result;
    Progress progress(QStringLiteral("Exporting tidy tables. Please wait."), static_cast<int>(kinds.size()) + 1);
    for (const TidyKind &kind : kinds) {
        writeKind(kind, pathOf(target, kind.word), streams, context, form.threads, result);
        progress.advance();
    }
    return result;
}

} // namespace

ExportResult exportTidy(const DataModel &model, const ExportTarget &target, const MeasureForm &form)
{
    ExportResult result = writeKinds(tidyEvents(), model, target, form);
    tellExported(QStringLiteral("Tidy tables Export"),
                 QStringLiteral("Tidy tables exported to: ") + result.written.join(u'\n'), result);
    return result;
}

ExportResult exportTidySamples(const DataModel &model, const ExportTarget &target, const MeasureForm &form)
{
    ExportResult result = writeKinds({&tidySamples(), 1}, model, target, form);
    tellExported(QStringLiteral("Tidy samples Export"),
                 QStringLiteral("Tidy samples exported to: ") + result.written.join(u'\n'), result);
    return result;
}
