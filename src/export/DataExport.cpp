// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/DataExport.h"

#include "base/NamedPlace.h"
#include "base/Progress.h"
#include "export/ClusterExport.h"
#include "export/CsvFile.h"
#include "export/EventExport.h"
#include "export/FixationExport.h"

#include <QSet>

#include <vector>

namespace {

struct EyeFile {
    Eye eye;
    CsvFile file;
};

using EyeFiles = std::vector<EyeFile>;

EyeFiles eyeFiles(const ExportTarget &target, const QString &infix)
{
    EyeFiles files;
    for (const Eye eye : eyesOf(target.eyes))
        files.push_back({eye, CsvFile(exportPath(target, infix, eye))});
    return files;
}

ExportResult resultOf(EyeFiles &files)
{
    ExportResult result;
    for (EyeFile &each : files)
        result.take(each.file);
    return result;
}

/// One more than there is work to do: the bar is never full while files are written.
int progressSteps(const DataModel &model)
{
    return static_cast<int>(model.checkedExaminations().size()) + 1;
}

void writeFixations(const DataModel &model, EyeFiles &files)
{
    Progress progress(QStringLiteral("Exporting fixations. Please wait."), progressSteps(model));
    for (const Examination *examination : model.checkedExaminations()) {
        for (EyeFile &each : files) {
            const EyeData &stream = examination->stream(each.eye);
            each.file.append(fixationBlock(*examination, stream, model.timeFrame()));
        }
        progress.advance();
    }
}

/// The clusters of all examinations of that name, a file for each eye.
void writeClustersOf(const QString &baseName, const DataModel &model, const ExportTarget &target, ExportResult &result)
{
    const QString infix = QStringLiteral("_fixationclusters_%1_clusters_").arg(baseName);
    for (const Eye eye : eyesOf(target.eyes)) {
        CsvFile file(exportPath(target, infix, eye));
        if (!placeInside(target.folder, target.prefix + infix)) {
            result.refuse(file.path(), QStringLiteral("the name of the recording leads out of the folder"));
            continue;
        }
        for (const Examination *examination : model.checkedExaminations()) {
            if (examination->baseName == baseName)
                file.append(clusterBlock(*examination, examination->stream(eye), model.timeFrame()));
        }
        result.take(file);
    }
}

/// Each file is finished before the next one begins: there may be more of them than a process can hold open.
ExportResult writeClusters(const DataModel &model, const ExportTarget &target)
{
    ExportResult result;
    QSet<QString> names;
    Progress progress(QStringLiteral("Exporting fixation clusters. Please wait."), progressSteps(model));
    for (const Examination *examination : model.checkedExaminations()) {
        if (!names.contains(examination->baseName))
            writeClustersOf(examination->baseName, model, target, result);
        names << examination->baseName;
        progress.advance();
    }
    return result;
}

void writeEvents(DataModel &model, EyeFiles &files)
{
    Progress progress(QStringLiteral("Exporting events. Please wait."), progressSteps(model));
    for (EyeFile &each : files)
        each.file.append(eventHeader());
    for (Examination &examination : model.examinations()) {
        if (!examination.checked)
            continue;
        for (EyeFile &each : files) {
            EyeData &stream = examination.stream(each.eye);
            const EventList events = eventsOf(stream, model.timeFrame());
            stream.eventRows = events.rows;
            if (each.file.state() == CsvFile::State::Open)
                each.file.append(eventBlock(examination, events));
        }
        progress.advance();
    }
}

} // namespace

ExportResult exportFixations(const DataModel &model, const ExportTarget &target)
{
    EyeFiles files = eyeFiles(target, QStringLiteral("_fixations__fixations_")); // sic, twice
    writeFixations(model, files);
    ExportResult result = resultOf(files);
    tellExported(QStringLiteral("Fixation Export"), QStringLiteral("Fixations exported to: ") + target.folder, result);
    return result;
}

ExportResult exportClusters(const DataModel &model, const ExportTarget &target)
{
    ExportResult result = writeClusters(model, target);
    tellExported(QStringLiteral("Fixation cluster Export"),
                 QStringLiteral("Fixation clusters exported to: ") + target.folder +
                     QLatin1StringView("_filename_fixationclusters_left/right"),
                 result);
    return result;
}

ExportResult exportCumulativeClusters(const DataModel &model, const ExportTarget &target)
{
    ExportResult result;
    for (const Eye eye : eyesOf(target.eyes)) {
        CsvFile file(exportPath(target, QStringLiteral("_cumulative_%1_cumclusters_").arg(eyeWord(eye)), eye));
        file.append(cumulativeClusterBlock(model, model.pooled(eye)));
        result.take(file);
    }
    tellExported(QStringLiteral("Cumulative clusters Export"),
                 QStringLiteral("Cumulative clusters exported to: ") + target.folder +
                     QLatin1StringView("_cumulative_left/right"),
                 result);
    return result;
}

ExportResult exportEvents(DataModel &model, const ExportTarget &target)
{
    EyeFiles files = eyeFiles(target, QStringLiteral("_events_"));
    writeEvents(model, files);
    ExportResult result = resultOf(files);
    tellExported(QStringLiteral("Event Export"),
                 QStringLiteral("Events exported to: ") + target.folder + QLatin1StringView("_events_left/right/dom"),
                 result);
    return result;
}
