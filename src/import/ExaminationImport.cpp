// SPDX-License-Identifier: GPL-3.0-or-later
#include "import/ExaminationImport.h"

#include "base/NamedPlace.h"
#include "base/Progress.h"
#include "base/SideBySide.h"
#include "model/OutlierCut.h"

#include <QFileInfo>

#include <new>
#include <utility>
#include <vector>

namespace {

QString importError()
{
    return QStringLiteral("IMPORT ERROR!");
}

/// Reads the samples.
/// @return why there are none; empty if they were read.
QString loadData(const QString &path, ImportedFile &file, const Log *log)
{
    if (!QFile::exists(path)) {
        qDebug("Eyetracking file does not exist");
        return QStringLiteral("there is no such file");
    }
    DataImporter importer(path, &file.examination, log);
    file.examination.importOk = importer.readFile();
    file.counts = importer.counts();
    file.pipeDigest = importer.pipeDigest();
    file.doubts = importDoubts(file.counts);
    if (QFileInfo(path).isDir())
        return QStringLiteral("it is a folder");
    return importer.problem();
}

ImportedFile readRecordingAndSetFile(const QString &path, const Log *log)
{
    DescribedExamination described = readSetFile(path);
    ImportedFile file;
    file.path = path;
    file.examination = std::move(described.examination);
    file.images = std::move(described.images);
    if (!described.error.isEmpty())
        file.messages << ImportMessage{messages::Severity::Warning, QStringLiteral("Error opening set file"),
                                       described.error, RecordingPath(path).setFile()};
    const QString problem = loadData(path, file, log);
    if (!file.examination.importOk)
        file.messages << corruptRecording(path, problem);
    return file;
}

} // namespace

void reportDoubts(const QStringList &doubts)
{
    if (!doubts.isEmpty())
        messages::show({messages::Severity::Warning, QStringLiteral("Import"),
                        QStringLiteral("Some recordings hold what is doubtful. They were loaded all the same."),
                        doubts.join(u'\n')});
}

QStringList doubtsWithName(const ImportedFile &file, const QString &name)
{
    QStringList lines;
    for (const QString &doubt : file.doubts)
        lines << QStringLiteral("%1: %2").arg(name, doubt);
    return lines;
}

QStringList repeatedFiles(const QStringList &paths)
{
    QStringList lines;
    for (const QStringList &ways : waysToOneFile(paths)) {
        QStringList names;
        for (const QString &path : ways)
            names << QFileInfo(path).fileName();
        names.removeDuplicates();
        lines << QStringLiteral("%1: the same recording, it counts %2 times.")
                     .arg(names.join(QStringLiteral(", ")))
                     .arg(ways.size());
    }
    return lines;
}

ImportMessage corruptRecording(const QString &path, const QString &reason)
{
    return {messages::Severity::Critical, importError(),
            QStringLiteral("The file: \n") + path + QStringLiteral("\n is corrupt and has not been loaded!"),
            QStringLiteral("Reason: ") + (reason.endsWith(u'.') ? reason : reason + u'.')};
}

ImportedFile readRecording(const QString &path, const Log *log)
{
    try {
        return readRecordingAndSetFile(path, log);
    } catch (const std::bad_alloc &) {
        ImportedFile file;
        file.path = path;
        file.messages << corruptRecording(path, QStringLiteral("it does not fit into the memory"));
        return file;
    }
}

void readFiles(qsizetype count, int threads, const Log *log,
               const std::function<ImportedFile(qsizetype, const Log *)> &read,
               const std::function<void(const ImportedFile &)> &taken)
{
    struct Read {
        ImportedFile file;
        QStringList logLines;
    };
    std::vector<Read> files(static_cast<std::size_t>(count));
    sideBySide(
        count, threads,
        [&](qsizetype i) {
            Read &each = files[static_cast<std::size_t>(i)];
            const Log lines(each.logLines);
            each.file = read(i, log ? &lines : nullptr);
        },
        [&](qsizetype i) {
            const Read each = std::exchange(files[static_cast<std::size_t>(i)], {});
            if (log)
                log->write(each.logLines);
            taken(each.file);
        });
}

void readRecordings(const QStringList &paths, int threads, const Log *log,
                    const std::function<void(const ImportedFile &)> &taken, RecordingReader read)
{
    readFiles(
        paths.size(), threads, log, [&](qsizetype i, const Log *lines) { return read(paths[i], lines); }, taken);
}

std::optional<int> addToModel(const ImportedFile &file, DataModel &model)
{
    Examination examination = file.examination;
    examination.number = static_cast<int>(model.examinations().size()) + 1;
    for (const ImageReference &reference : file.images) {
        const std::shared_ptr<ImageRecord> image = model.images().image(reference.path);
        image->name = reference.name;
        examination.image = image;
    }
    for (const ImportMessage &message : file.messages)
        messages::show(message);
    if (!examination.importOk)
        return std::nullopt;
    model.examinations() << examination;
    return examination.number;
}

void reportMissingImages(const QStringList &paths)
{
    constexpr qsizetype listed = 10;
    if (paths.isEmpty())
        return;
    if (paths.size() <= listed) {
        messages::warning(importError(), QStringLiteral("The images: \n") + paths.join(u'\n') +
                                             QStringLiteral("\n are missing and have not been loaded!"));
        return;
    }
    messages::show({messages::Severity::Warning, importError(),
                    QStringLiteral("The first 10 missing images: \n") + paths.first(listed).join(u'\n') +
                        QStringLiteral("\n are missing and have not been loaded!\n (Missing images overall:") +
                        QString::number(paths.size()) + QStringLiteral(" )"),
                    QStringLiteral("The other missing images:\n") + paths.sliced(listed).join(u'\n')});
}

ImportOutcome importRecordings(const QStringList &paths, DataModel &model, const Log *log,
                               const ExaminationCallback &added, RecordingReader read)
{
    Progress progress(QStringLiteral("Loading data, please wait."), static_cast<int>(paths.size()));
    ImportOutcome outcome;
    QStringList missingImages;
    QStringList doubts;
    QStringList loaded;
    {
        const messages::Run told;
        const auto take = [&](const ImportedFile &file) {
            if (!file.examination.missingImagePath.isEmpty())
                missingImages << file.examination.missingImagePath;
            if (const auto number = addToModel(file, model)) {
                outcome.numbers << *number;
                added(model.examinations().constLast());
                doubts += doubtsWithName(file, QFileInfo(file.path).fileName());
                loaded << file.path;
            } else {
                outcome.notRead << RecordingPath(file.path).baseName;
            }
            progress.advance();
        };
        readRecordings(paths, coreCount(), log, take, read);
    }
    reportMissingImages(missingImages);
    reportDoubts(doubts + repeatedFiles(loaded));
    followExaminations(model);
    return outcome;
}

void removeFromModel(const QList<int> &numbers, DataModel &model)
{
    model.examinations().removeIf([&](const Examination &examination) { return numbers.contains(examination.number); });
    followExaminations(model);
}
