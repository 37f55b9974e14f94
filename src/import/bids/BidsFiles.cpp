// SPDX-License-Identifier: GPL-3.0-or-later
#include "import/bids/BidsFiles.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QSet>

namespace {

using namespace Qt::Literals::StringLiterals;

constexpr QLatin1StringView sampleEnds[] = {"_physio.tsv.gz"_L1, "_physio.tsv"_L1, "_physio.json"_L1};

QString directoryOf(const QString &path)
{
    const QString folder = QFileInfo(path).path();
    return folder.endsWith(u'/') ? folder : folder + u'/';
}

/// "sub-01_task-view_recording-eye1" of a file's name.
QString entitiesOf(const QString &path)
{
    return path.section(u'/', -1).section(u'.', 0, 0).section(u'_', 0, -2);
}

QString withoutRecording(const QString &entities)
{
    QStringList kept;
    for (const QString &entity : entities.split(u'_')) {
        if (!entity.startsWith("recording-"_L1))
            kept << entity;
    }
    return kept.join(u'_');
}

/// A description holds for a file that has all its entities.
bool holdsFor(const QString &description, const QStringList &entities)
{
    const QStringList own = entitiesOf(description).split(u'_', Qt::SkipEmptyParts);
    return std::ranges::all_of(own, [&](const QString &entity) { return entities.contains(entity); });
}

std::variant<QJsonObject, TableProblem> readObject(const QString &path)
{
    constexpr qint64 largest = qint64(16) << 20;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return TableProblem{.file = path,
                            .found = u"a file that cannot be opened (%1)"_s.arg(file.errorString()),
                            .remedy = u"Allow to read it."_s};
    const QByteArray bytes = file.read(largest + 1);
    if (bytes.size() > largest)
        return TableProblem{.file = path, .found = u"more than 16 MB"_s, .expected = u"a description"_s};
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(bytes, &error);
    if (document.isObject())
        return document.object();
    const bool isJson = error.error == QJsonParseError::NoError;
    return TableProblem{.file = path,
                        .line = isJson ? 0 : bytes.first(error.offset).count('\n') + 1,
                        .found = isJson ? u"no object"_s : error.errorString(),
                        .expected = u"an object in JSON"_s,
                        .remedy = u"Mend the file."_s};
}

/// The folders from that of the data set down to that of the file.
QStringList foldersDownTo(const QString &dataFile)
{
    QStringList folders;
    QDir folder(QFileInfo(dataFile).absolutePath());
    constexpr int mostFolders = 5; // data set, subject, session, kind of data; and one more
    for (int i = 0; i < mostFolders; ++i) {
        folders.prepend(folder.path());
        const bool isInside =
            folder.dirName().startsWith("sub-"_L1) || folder.dirName().startsWith("ses-"_L1) || i == 0;
        if (folder.exists(u"dataset_description.json"_s) || !isInside || !folder.cdUp())
            break;
    }
    return folders;
}

} // namespace

bool isBidsSamples(const QString &path)
{
    return std::ranges::any_of(sampleEnds, [&](QLatin1StringView end) { return path.endsWith(end); });
}

BidsRun bidsRun(const QString &path)
{
    BidsRun run{withoutRecording(entitiesOf(path)), directoryOf(path), {}};
    const QStringList patterns{run.name + "_*physio.tsv.gz"_L1, run.name + "_*physio.tsv"_L1};
    for (const QString &name : QDir(run.directory).entryList(patterns, QDir::Files, QDir::Name)) {
        if (isBidsSamples(name) && withoutRecording(entitiesOf(name)) == run.name)
            run.samples << run.directory + name;
    }
    return run;
}

QStringList bidsRunsIn(const QString &folder)
{
    QStringList paths;
    for (QDirIterator entry(folder, {u"*_physio.tsv.gz"_s, u"*_physio.tsv"_s}, QDir::Files,
                            QDirIterator::Subdirectories);
         entry.hasNext();)
        paths << entry.next();
    paths.sort();
    return withoutRepeatedRuns(paths);
}

QStringList withoutRepeatedRuns(const QStringList &paths)
{
    QSet<QString> runs;
    QStringList kept;
    for (const QString &path : paths) {
        if (isBidsSamples(path)) {
            const QString run = QFileInfo(path).absolutePath() + u'/' + withoutRecording(entitiesOf(path));
            if (runs.contains(run))
                continue;
            runs << run;
        }
        kept << path;
    }
    return kept;
}

std::variant<QJsonObject, TableProblem> bidsDescription(const QString &dataFile, const QString &kind)
{
    const QStringList entities = entitiesOf(dataFile).split(u'_', Qt::SkipEmptyParts);
    QJsonObject merged;
    for (const QString &folder : foldersDownTo(dataFile)) {
        QStringList names = QDir(folder).entryList({u"*%1.json"_s.arg(kind)}, QDir::Files, QDir::Name);
        names.removeIf([&](const QString &name) {
            return name.section(u'.', 0, 0).section(u'_', -1) != kind || !holdsFor(name, entities);
        });
        std::ranges::stable_sort(names, {}, [](const QString &name) { return name.count(u'_'); }); // general ones first
        for (const QString &name : std::as_const(names)) {
            const auto read = readObject(folder + u'/' + name);
            if (const auto *problem = std::get_if<TableProblem>(&read))
                return *problem;
            const QJsonObject object = std::get<QJsonObject>(read);
            for (auto entry = object.begin(); entry != object.end(); ++entry)
                merged[entry.key()] = entry.value();
        }
    }
    return merged;
}

QString bidsSidecarPath(const QString &dataFile, const QString &kind)
{
    return directoryOf(dataFile) + entitiesOf(dataFile) + u'_' + kind + ".json"_L1;
}
