// SPDX-License-Identifier: GPL-3.0-or-later
#include "import/conversion/TableConversion.h"

#include "base/FileReplacement.h"
#include "base/NamedPlace.h"
#include "import/conversion/RecordingEntries.h"
#include "import/tables/RecordingSamples.h"

#include <QDir>
#include <QFileInfo>

namespace {

using namespace Qt::Literals::StringLiterals;

/// Turns samples into lines as they come.
class LineMaker {
public:
    explicit LineMaker(ConvertedTable &table) : m_table(table) {}

    bool take(qsizetype recording, const QList<TableSample> &samples)
    {
        if (recording >= m_makers.size()) {
            m_makers.resize(recording + 1);
            m_table.anyValid.resize(recording + 1);
        }
        QByteArray lines;
        for (const TableSample &sample : samples) {
            const std::optional<DataSample> made = m_makers[recording].next(sample);
            if (!made)
                continue;
            if (made->leftValidity > 0 || made->rightValidity > 0)
                m_table.anyValid[recording] = true;
            appendDataLine(*made, lines);
        }
        return m_table.lines.add(recording, lines);
    }

    void addOddities(QList<TableRecording> &recordings) const
    {
        for (qsizetype i = 0; i < std::min(recordings.size(), m_makers.size()); ++i)
            recordings[i].oddities += m_makers[i].oddities();
    }

private:
    ConvertedTable &m_table;
    QList<DataSampleMaker> m_makers;
};

QString takenBy(const QString &file, const QString &table)
{
    return u"%1 is not written: that name is taken by %2. Choose another folder with --out, or rename the table"_s.arg(
        file, table);
}

/// Claims a place for a file.
/// @param file  gets the place.
/// @return what is in the way.
QString claim(const QString &folder, const QString &name, const QString &table, UsedNames &used, QString &file)
{
    const std::optional<QString> place = placeInside(folder, name);
    if (!place)
        return u"%1 is no name for a file in %2"_s.arg(name, folder);
    file = folder == "."_L1 ? name : QDir::cleanPath(*place);
    const QString key = fileIdentity(*place);
    if (const auto taken = used.constFind(key); taken != used.cend())
        return takenBy(file, *taken);
    used.insert(key, table);
    return {};
}

std::optional<QString> writeLines(ConvertedTable &table, qsizetype index, const QString &path)
{
    FileReplacement file(path);
    file.write(dataHeader());
    if (!table.lines.take(index, [&](const QByteArray &text) { return file.write(text); }))
        return table.lines.problem();
    return file.commit();
}

} // namespace

std::variant<ConvertedTable, TableProblem> readForConversion(const QString &path, const LayoutRequest &request)
{
    auto chosen = chooseLayout(path, request);
    if (const auto *problem = std::get_if<TableProblem>(&chosen))
        return *problem;
    ConvertedTable table{
        .layout = std::get<ChosenLayout>(std::move(chosen)), .content = {}, .anyValid = {}, .lines = LineSpool()};
    LineMaker maker(table);
    TableReadOptions options;
    options.take = [&](qsizetype recording, const QList<TableSample> &samples) {
        return maker.take(recording, samples);
    };
    auto content = readTable(path, table.layout.layout, options);
    if (!table.lines.problem().isEmpty())
        return TableProblem{path, 0, 0, table.lines.problem(), {}, {}};
    if (const auto *problem = std::get_if<TableProblem>(&content))
        return *problem;
    table.content = std::get<TableContent>(std::move(content));
    table.anyValid.resize(table.content.recordings.size());
    maker.addOddities(table.content.recordings);
    return table;
}

WrittenRecording writeRecording(ConvertedTable &table, qsizetype index, const QString &path, const QString &folder,
                                UsedNames &used)
{
    const TableRecording &recording = table.content.recordings[index];
    WrittenRecording result;
    if (!table.anyValid[index]) {
        result.problem = u"none of its %1 samples is valid"_s.arg(recording.facts.samples);
        return result;
    }
    const QString name = recordingFileName(recording);
    QString dataFile;
    QString setFile;
    result.problem = claim(folder, name + u".data"_s, path, used, dataFile);
    if (result.problem.isEmpty())
        result.problem = claim(folder, name + u".set"_s, path, used, setFile);
    if (!result.problem.isEmpty())
        return result;
    const bool isReplaced = QFileInfo::exists(dataFile);
    if (const auto problem = writeLines(table, index, dataFile)) {
        result.problem = writeFailure(dataFile, *problem);
        return result;
    }
    result.files << dataFile;
    const RecordingSetFile entries = recordingSetFile(recording, path, folder);
    result.notes = entries.notes;
    if (isReplaced)
        result.notes << u"%1 was there before, and is replaced."_s.arg(dataFile);
    if (entries.origin == RecordingSetFile::Origin::Kept) {
        result.notes << u"%1 is kept as it is; remove it to have it written anew."_s.arg(setFile);
        return result;
    }
    if (const auto problem = replaceFile(setFile, entries.text.toUtf8()))
        result.problem = writeFailure(setFile, *problem);
    else
        result.files << setFile;
    return result;
}
