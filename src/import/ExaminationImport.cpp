#include "import/ExaminationImport.h"

#include "base/Progress.h"
#include "model/OutlierCut.h"

#include <QFile>

namespace {

QString importError()
{
    return QStringLiteral("IMPORT ERROR!");
}

ImportCounts loadData(const QString &path, Examination &examination, const Log *log)
{
    if (!QFile::exists(path)) {
        qDebug("Eyetracking file does not exist");
        return {};
    }
    DataImporter importer(path, &examination, log);
    examination.importOk = importer.readFile();
    return importer.counts();
}

} // namespace

ImportedFile readRecording(const QString &path, const Log *log)
{
    DescribedExamination described = readSetFile(path);
    ImportedFile file;
    file.examination = std::move(described.examination);
    file.images = std::move(described.images);
    if (!described.error.isEmpty())
        file.messages << ImportMessage{messages::Severity::Warning, QStringLiteral("Error opening set file"),
                                       described.error};
    file.counts = loadData(path, file.examination, log);
    if (!file.examination.importOk)
        file.messages << ImportMessage{messages::Severity::Critical, importError(),
                                       QStringLiteral("The file: \n") + path +
                                           QStringLiteral("\n is corrupt and has not been loaded!")};
    return file;
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
        messages::show(message.severity, message.title, message.text);
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
    if (paths.size() > listed) {
        messages::warning(importError(),
                          QStringLiteral("The first 10 missing images: \n") + paths.first(listed).join(u'\n') +
                              QStringLiteral("\n are missing and have not been loaded!\n (Missing images overall:") +
                              QString::number(paths.size()) + QStringLiteral(" )"));
        return;
    }
    messages::warning(importError(), QStringLiteral("The images: \n") + paths.join(u'\n') +
                                         QStringLiteral("\n are missing and have not been loaded!"));
}

QList<int> importRecordings(const QStringList &paths, DataModel &model, const Log *log,
                            const ExaminationCallback &added)
{
    Progress progress(QStringLiteral("Loading data, please wait."), static_cast<int>(paths.size()));
    QList<int> numbers;
    QStringList missingImages;
    for (const QString &path : paths) {
        const ImportedFile file = readRecording(path, log);
        if (!file.examination.missingImagePath.isEmpty())
            missingImages << file.examination.missingImagePath;
        if (const auto number = addToModel(file, model)) {
            numbers << *number;
            added(model.examinations().constLast());
        }
        progress.advance();
    }
    reportMissingImages(missingImages);
    followExaminations(model);
    return numbers;
}

void removeFromModel(const QList<int> &numbers, DataModel &model)
{
    model.examinations().removeIf([&](const Examination &examination) { return numbers.contains(examination.number); });
    followExaminations(model);
}
