// SPDX-License-Identifier: GPL-3.0-or-later
#include "convert/ConvertRun.h"

#include "base/FileReplacement.h"
#include "base/Messages.h"
#include "base/NamedPlace.h"
#include "base/Progress.h"
#include "base/SideBySide.h"
#include "import/conversion/TableReport.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QJsonDocument>

#include <algorithm>
#include <new>
#include <vector>

namespace {

using namespace Qt::Literals::StringLiterals;

constexpr qsizetype tablesPerThread = 4; ///< read before those before them are written

QString nameOf(const QString &path)
{
    return QFileInfo(path).fileName();
}

std::variant<ConvertedTable, TableProblem> read(const QString &path, const LayoutRequest &request)
{
    try {
        return readForConversion(path, request);
    } catch (const std::bad_alloc &) {
        return TableProblem{path, 0, 0, u"more than the memory holds"_s, {}, {}};
    }
}

} // namespace

ConvertRun::ConvertRun(const ConvertOptions &options, MessageRecord &record, Terminal &output)
    : m_options(options)
    , m_journal(record, output,
                options.reportFile.isEmpty() ? RunJournal::Digests::NotNeeded : RunJournal::Digests::Made)
{
}

ExitCode ConvertRun::run()
{
    if (const auto problem = prepare()) {
        messages::critical(u"vistrum-import"_s, problem->text);
        return ExitCode::Usage;
    }
    convertTables();
    writeReport();
    return m_journal.failed() ? ExitCode::SomethingFailed : ExitCode::AllDone;
}

std::optional<UsageError> ConvertRun::prepare()
{
    auto request = layoutRequest(m_options.layout, m_options.split);
    if (const auto *problem = std::get_if<QString>(&request))
        return UsageError{u"--layout %1: %2"_s.arg(m_options.layout, *problem)};
    m_request = std::get<LayoutRequest>(std::move(request));
    if (QFileInfo(m_options.layout).isFile())
        m_journal.addInput(m_options.layout, u"layout"_s);
    for (const QString &path : m_options.tables)
        m_used.insert(fileIdentity(path), path);
    if (auto problem = claimReport())
        return problem;
    if (const auto problem = makeFolder(m_options.outputFolder))
        return UsageError{u"--out %1: %2"_s.arg(m_options.outputFolder, *problem)};
    return std::nullopt;
}

/// What is read is not to be lost, and no recording is to be written where the report will stand.
std::optional<UsageError> ConvertRun::claimReport()
{
    const QString file = fileIdentity(m_options.reportFile);
    if (file.isEmpty())
        return std::nullopt;
    if (m_used.contains(file) || file == fileIdentity(m_options.layout))
        return UsageError{u"--report %1: this run reads that file; give another name"_s.arg(m_options.reportFile)};
    m_used.insert(file, u"--report"_s);
    return std::nullopt;
}

void ConvertRun::convertTables()
{
    const QStringList &paths = m_options.tables;
    const int threads = m_options.jobs.value_or(coreCount());
    const qsizetype atATime = threads * tablesPerThread;
    Progress progress(u"Converting tables, please wait."_s, static_cast<int>(paths.size()));
    for (qsizetype first = 0; first < paths.size(); first += atATime) {
        std::vector<std::optional<ReadTable>> tables(static_cast<std::size_t>(std::min(atATime, paths.size() - first)));
        sideBySide(
            std::ssize(tables), threads,
            [&](qsizetype i) { tables[static_cast<std::size_t>(i)] = read(paths[first + i], m_request); },
            [&](qsizetype i) {
                std::optional<ReadTable> &table = tables[static_cast<std::size_t>(i)];
                take(paths[first + i], *table);
                table.reset();
                progress.advance();
            });
    }
}

void ConvertRun::take(const QString &path, ReadTable &table)
{
    m_journal.beginInput();
    if (const auto *problem = std::get_if<TableProblem>(&table)) {
        messages::critical(nameOf(path), problem->text());
        m_journal.fail();
        m_journal.addTable(path, {}, {});
        return;
    }
    write(path, std::get<ConvertedTable>(table));
}

void ConvertRun::write(const QString &path, ConvertedTable &table)
{
    const QString name = nameOf(path);
    messages::information(name, u"%1: %2."_s.arg(path, layoutNote(table.layout)));
    for (const QString &doubt : std::as_const(table.layout.doubts))
        messages::warning(name, u"%1: %2"_s.arg(path, doubt));
    for (const TableOddity &oddity : std::as_const(table.content.oddities))
        messages::warning(name, u"%1: %2"_s.arg(path, oddity.sentence));
    QStringList written;
    QStringList names;
    for (qsizetype i = 0; i < table.content.recordings.size(); ++i) {
        const TableRecording &recording = table.content.recordings[i];
        const auto line = [&](const QString &sentence) {
            return recordingLine(path, table.content, recording, sentence);
        };
        for (const TableOddity &oddity : recording.oddities)
            messages::warning(name, line(oddity.sentence));
        const WrittenRecording result = writeRecording(table, i, path, m_options.outputFolder, m_used);
        for (const QString &note : result.notes)
            messages::warning(name, line(note));
        if (!result.problem.isEmpty()) {
            messages::critical(name, line(result.problem));
            m_journal.fail();
        }
        written += result.files;
        if (!result.files.isEmpty())
            names << recording.name;
    }
    m_journal.addTable(path, names, reportedTable(table.layout, table.content));
    for (const QString &file : std::as_const(written))
        m_journal.keep(file);
}

void ConvertRun::writeReport()
{
    if (m_options.reportFile.isEmpty())
        return;
    BatchReport report = m_journal.report();
    report.program = u"vistrum-import"_s;
    report.version = QCoreApplication::applicationVersion();
    report.options = reportedOptions(m_options);
    m_journal.write(u"Report"_s, m_options.reportFile, toJson(report).toJson());
}
