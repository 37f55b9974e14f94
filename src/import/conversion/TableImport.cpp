// SPDX-License-Identifier: GPL-3.0-or-later
#include "import/conversion/TableImport.h"

#include "import/conversion/RecordingEntries.h"
#include "import/conversion/TableReport.h"
#include "import/tables/RecordingSamples.h"

#include <QFileInfo>

#include <new>

namespace {

using namespace Qt::Literals::StringLiterals;

class TableImportReader {
public:
    TableImportReader(const QString &path, const LayoutRequest &request) : m_request(request) { m_result.path = path; }

    ImportedTable run(const TableProgress &progress)
    {
        auto chosen = chooseLayout(m_result.path, m_request);
        if (const auto *problem = std::get_if<TableProblem>(&chosen))
            return refused(problem->text());
        m_result.layout = std::get<ChosenLayout>(std::move(chosen));
        TableReadOptions options;
        options.progress = progress;
        auto table = readTable(m_result.path, m_result.layout->layout, options);
        if (const auto *problem = std::get_if<TableProblem>(&table))
            return refused(problem->text());
        take(std::get<TableContent>(table));
        return std::move(m_result);
    }

    ImportedTable refused(const QString &reason)
    {
        m_result.layout.reset();
        m_result.notRead << RecordingPath(m_result.path).baseName;
        m_result.messages << corruptRecording(m_result.path, reason);
        return std::move(m_result);
    }

private:
    void take(TableContent &content)
    {
        m_result.note = layoutNote(*m_result.layout);
        for (const QString &doubt : std::as_const(m_result.layout->doubts))
            m_result.doubts << u"%1: %2"_s.arg(name(), doubt);
        for (const TableOddity &oddity : std::as_const(content.oddities))
            m_result.doubts << u"%1: %2"_s.arg(name(), oddity.sentence);
        for (TableRecording &recording : content.recordings) {
            addRecording(content, recording);
            recording.samples = {};
        }
        m_result.report = reportedTable(*m_result.layout, content);
    }

    void addRecording(const TableContent &content, TableRecording &recording)
    {
        const QString folder = QFileInfo(m_result.path).absolutePath() + u'/';
        const RecordingSetFile setFile = recordingSetFile(recording, m_result.path, folder);
        DescribedExamination described =
            parseSetFile(setFile.text.toUtf8(), RecordingPath(folder + recordingFileName(recording) + u".data"_s));
        ImportedFile file;
        file.path = m_result.path;
        file.examination = std::move(described.examination);
        file.images = std::move(described.images);
        file.examination.importOk = putSamples(recording, file.examination);
        const auto line = [&](const QString &sentence) { return recordingLine(name(), content, recording, sentence); };
        if (!file.examination.importOk) {
            m_result.notRead << file.examination.baseName;
            m_result.messages << corruptRecording(
                m_result.path, line(u"none of its %1 samples is valid"_s.arg(recording.facts.samples)));
            return;
        }
        file.counts.samples = file.examination.leftEye.gazePoints.size();
        for (const QString &note : setFile.notes)
            file.doubts << line(note);
        for (const TableOddity &oddity : std::as_const(recording.oddities))
            file.doubts << line(oddity.sentence);
        m_result.recordings << file;
    }

    QString name() const { return QFileInfo(m_result.path).fileName(); }

    const LayoutRequest &m_request;
    ImportedTable m_result;
};

} // namespace

ImportedTable importTable(const QString &path, const LayoutRequest &request, const TableProgress &progress)
{
    try {
        return TableImportReader(path, request).run(progress);
    } catch (const std::bad_alloc &) {
        return TableImportReader(path, request).refused(u"it does not fit into the memory"_s);
    }
}
