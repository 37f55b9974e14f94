// SPDX-License-Identifier: GPL-3.0-or-later
#include "import/ilmenau/MillimetreImport.h"

#include "base/Progress.h"
#include "base/SideBySide.h"
#include "import/RecordingText.h"
#include "model/OutlierCut.h"

#include <QFileInfo>

#include <new>

namespace {

using namespace Qt::StringLiterals;

QString lastComponent(QString path)
{
    return path.replace(u'\\', u'/').section(u'/', -1);
}

Examination describedBy(const MillimetreRecording &recording)
{
    const MillimetreStimulus &stimulus = recording.stimulus;
    Examination examination;
    examination.baseName = recording.path;
    examination.subjectId = u"ilmenau_import: "_s + lastComponent(recording.path);
    examination.imagePath = stimulus.imagePath;
    examination.iniPath = stimulus.iniPath;
    examination.imageWidthPx = static_cast<float>(stimulus.size.widthPx);
    examination.imageHeightPx = static_cast<float>(stimulus.size.heightPx);
    examination.imageWidthMm = static_cast<float>(stimulus.size.widthMm);
    examination.imageHeightMm = static_cast<float>(stimulus.size.heightMm);
    examination.properties = {{u"group"_s, Group::none},
                              {u"image"_s, lastComponent(stimulus.imagePath)},
                              {u"Color"_s, QString::number(qRgba(255, 0, 0, 255))},
                              {u"subjectID"_s, examination.subjectId}};
    return examination;
}

void take(MillimetreSamples read, ImportedFile &file)
{
    file.counts = read.counts.samples;
    file.doubts = importDoubts(read.counts);
    file.furtherCounts = reportedCounts(read.counts);
    file.examination.leftEye.gazePoints = std::move(read.left);
    file.examination.rightEye.gazePoints = std::move(read.right);
    file.examination.meanEye.gazePoints = std::move(read.mean);
    file.examination.importOk = true;
}

ImportedFile readWhole(const MillimetreRecording &recording)
{
    ImportedFile file;
    file.path = recording.path;
    QString problem;
    if (!QFileInfo::exists(recording.path))
        return file;
    const auto bytes = readWholeRecording(recording.path, problem);
    if (!bytes) {
        file.messages << ImportMessage{messages::Severity::Warning, u"Can not open file"_s,
                                       u"File could not be opened:"_s + recording.path, u"Reason: %1."_s.arg(problem)};
        return file;
    }
    file.examination = describedBy(recording);
    const QString &image = recording.stimulus.imagePath;
    if (!image.isEmpty())
        file.images << ImageReference{image, ImageRecord(image).name};
    take(readMillimetreText(*bytes, recording.stimulus.size), file);
    return file;
}

} // namespace

ImportedFile readMillimetreRecording(const MillimetreRecording &recording)
{
    try {
        return readWhole(recording);
    } catch (const std::bad_alloc &) {
        ImportedFile file;
        file.path = recording.path;
        file.messages << corruptRecording(recording.path, u"it does not fit into the memory"_s);
        return file;
    }
}

QList<int> importMillimetreRecordings(const QList<MillimetreRecording> &recordings, DataModel &model,
                                      const ExaminationCallback &added)
{
    Progress progress(u"Loading data, please wait."_s, static_cast<int>(recordings.size()));
    QList<int> numbers;
    QStringList doubts;
    {
        const messages::Run told;
        readFiles(
            recordings.size(), coreCount(), nullptr,
            [&](qsizetype i, const Log *) { return readMillimetreRecording(recordings[i]); },
            [&](const ImportedFile &file) {
                if (const auto number = addToModel(file, model)) {
                    numbers << *number;
                    added(model.examinations().constLast());
                    doubts += doubtsWithName(file, QFileInfo(file.path).fileName());
                }
                progress.advance();
            });
    }
    reportDoubts(doubts);
    followExaminations(model);
    return numbers;
}
