#include "export/DataExport.h"

#include "base/Messages.h"
#include "base/Progress.h"
#include "export/ClusterExport.h"
#include "export/CsvFile.h"
#include "export/EventExport.h"
#include "export/FixationExport.h"

namespace {

struct EyeFile {
    Eye eye;
    CsvFile file;
};

QList<EyeFile> eyeFiles(const ExportTarget &target, const QString &infix)
{
    QList<EyeFile> files;
    for (const Eye eye : eyesOf(target.eyes))
        files << EyeFile{eye, CsvFile(exportPath(target, infix, eye))};
    return files;
}

ExportResult resultOf(const QList<EyeFile> &files)
{
    ExportResult result;
    for (const EyeFile &each : files) {
        if (each.file.state() == CsvFile::State::Written)
            result.written << each.file.path();
        else if (each.file.state() == CsvFile::State::Failed)
            result.failed << each.file.path();
    }
    return result;
}

/// One more than there is work to do: the bar is never full while files are written.
int progressSteps(const DataModel &model)
{
    return static_cast<int>(model.checkedExaminations().size()) + 1;
}

void writeFixations(const DataModel &model, QList<EyeFile> &files)
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

/// The file of that path, first used here or before.
CsvFile &fileOf(const QString &path, Eye eye, QList<EyeFile> &files)
{
    for (EyeFile &each : files) {
        if (each.file.path() == path)
            return each.file;
    }
    files << EyeFile{eye, CsvFile(path)};
    return files.last().file;
}

QList<EyeFile> writeClusters(const DataModel &model, const ExportTarget &target)
{
    QList<EyeFile> files;
    Progress progress(QStringLiteral("Exporting fixation clusters. Please wait."), progressSteps(model));
    for (const Examination *examination : model.checkedExaminations()) {
        const QString infix = QStringLiteral("_fixationclusters_%1_clusters_").arg(examination->baseName);
        for (const Eye eye : eyesOf(target.eyes)) {
            const EyeData &stream = examination->stream(eye);
            fileOf(exportPath(target, infix, eye), eye, files)
                .append(clusterBlock(*examination, stream, model.timeFrame()));
        }
        progress.advance();
    }
    return files;
}

void writeEvents(DataModel &model, QList<EyeFile> &files)
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
            if (each.file.state() == CsvFile::State::Written)
                each.file.append(eventBlock(examination, events));
        }
        progress.advance();
    }
}

} // namespace

ExportResult exportFixations(const DataModel &model, const ExportTarget &target)
{
    QList<EyeFile> files = eyeFiles(target, QStringLiteral("_fixations__fixations_")); // sic, twice
    writeFixations(model, files);
    messages::information(QStringLiteral("Fixation Export"), QStringLiteral("Fixations exported to: ") + target.folder);
    return resultOf(files);
}

ExportResult exportClusters(const DataModel &model, const ExportTarget &target)
{
    const QList<EyeFile> files = writeClusters(model, target);
    messages::information(QStringLiteral("Fixation cluster Export"),
                          QStringLiteral("Fixation clusters exported to: ") + target.folder +
                              QLatin1StringView("_filename_fixationclusters_left/right"));
    return resultOf(files);
}

ExportResult exportCumulativeClusters(const DataModel &model, const ExportTarget &target)
{
    QList<EyeFile> files;
    for (const Eye eye : eyesOf(target.eyes)) {
        const QString infix = QStringLiteral("_cumulative_%1_cumclusters_").arg(eyeWord(eye));
        files << EyeFile{eye, CsvFile(exportPath(target, infix, eye))};
        files.last().file.append(cumulativeClusterBlock(model, model.pooled(eye)));
    }
    messages::information(QStringLiteral("Cumulative clusters Export"),
                          QStringLiteral("Cumulative clusters exported to: ") + target.folder +
                              QLatin1StringView("_cumulative_left/right"));
    return resultOf(files);
}

ExportResult exportEvents(DataModel &model, const ExportTarget &target)
{
    QList<EyeFile> files = eyeFiles(target, QStringLiteral("_events_"));
    writeEvents(model, files);
    messages::information(QStringLiteral("Event Export"), QStringLiteral("Events exported to: ") + target.folder +
                                                              QLatin1StringView("_events_left/right/dom"));
    return resultOf(files);
}
