#include "export/DataExport.h"

#include "base/Messages.h"
#include "base/Progress.h"
#include "export/CsvFile.h"
#include "export/EventExport.h"
#include "export/FixationExport.h"

namespace {

struct EyeFile {
    ExportEye eye;
    CsvFile file;
};

QList<EyeFile> eyeFiles(const ExportTarget &target, const QString &infix)
{
    QList<EyeFile> files;
    for (const ExportEye eye : exportedEyes(target.eyes))
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

TimeSpan timeSpan(const DataModel &model)
{
    return {model.timeStart(), model.timeEnd()};
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
            const EyeData &stream = examination->*streamOf(each.eye, *examination);
            each.file.append(fixationBlock(*examination, stream, timeSpan(model)));
        }
        progress.advance();
    }
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
            EyeData &stream = examination.*streamOf(each.eye, examination);
            const EventList events = eventsOf(stream, timeSpan(model));
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

ExportResult exportEvents(DataModel &model, const ExportTarget &target)
{
    QList<EyeFile> files = eyeFiles(target, QStringLiteral("_events_"));
    writeEvents(model, files);
    messages::information(QStringLiteral("Event Export"), QStringLiteral("Events exported to: ") + target.folder +
                                                              QLatin1StringView("_events_left/right/dom"));
    return resultOf(files);
}
