// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/bids/BidsExport.h"

#include "base/FileReplacement.h"
#include "base/Messages.h"
#include "base/Progress.h"
#include "base/SideBySide.h"
#include "export/bids/BidsSidecars.h"
#include "export/bids/BidsTables.h"
#include "export/bids/Gzip.h"
#include "export/TextTable.h"

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <QImageReader>
#include <QLocale>
#include <QSet>

#include <algorithm>
#include <vector>

namespace {

using namespace Qt::Literals::StringLiterals;

/// A file of the data set; its name is relative to the folder of that.
struct BidsFile {
    QString name;
    QByteArray bytes;
};
using BidsFiles = QList<BidsFile>;

QList<Eye> eyesOfDataset(EyeMode mode)
{
    return mode == EyeMode::showAll ? QList<Eye>{Eye::Left, Eye::Right, Eye::Mean} : eyesOf(mode);
}

/// Number and word of an eye; which of both the dominant one is, the examination knows.
struct RecordedEye {
    RecordedEye(Eye eye, const Examination &examination)
    {
        const bool isLeft = eye == Eye::Left || (eye == Eye::Dominant && examination.isLeftDominant());
        number = eye == Eye::Mean ? 3 : (isLeft ? 1 : 2);
        word = eye == Eye::Mean ? u"cyclopean"_s : (isLeft ? u"left"_s : u"right"_s);
        missing = eye == Eye::Mean ? -1 : 0;
    }

    int number;
    QString word;
    double missing; ///< what a sample without gaze holds as a rule
};

/// The first and last sample of the frame; nothing if there is none.
std::optional<TimeFrame> sampledTime(const QList<GazePoint> &samples, TimeFrame frame)
{
    std::optional<TimeFrame> sampled;
    for (const GazePoint &sample : samples) {
        if (!frame.contains(sample.time))
            continue;
        sampled = sampled ? TimeFrame{std::min(sampled->startMs, sample.time), std::max(sampled->endMs, sample.time)}
                          : TimeFrame{sample.time, sample.time};
    }
    return sampled;
}

QSize pictureSize(const Examination &examination)
{
    return examination.image ? QImageReader(examination.image->path).size() : QSize();
}

/// To the ms, without zeros at the end.
QString secondsText(qint64 timeMs)
{
    constexpr double msPerSecond = 1000;
    return QString::number(static_cast<double>(timeMs) / msPerSecond, 'f', QLocale::FloatingPointShortest);
}

BidsFiles streamFiles(const Examination &examination, const BidsName &name, Eye eye, TimeFrame frame)
{
    const RecordedEye recorded(eye, examination);
    const EyeData &stream = examination.stream(eye);
    const QString stem = u"%1%2_recording-eye%3_"_s.arg(name.folder(), name.stem(), QString::number(recorded.number));
    const BidsTable samples = bidsSamples(stream.gazePoints, frame, recorded.missing);
    const BidsTable events = bidsEvents(stream, frame);
    const TimeFrame sampled = sampledTime(stream.gazePoints, frame).value_or(TimeFrame{});
    const BidsStream description{recorded.word, samples.columns, measuredRateHz(stream.gazePoints, frame),
                                 sampled.startMs};
    return {{stem + "physio.tsv.gz"_L1, gzipped(samples.rows)},
            {stem + "physio.json"_L1, sidecarBytes(samplesSidecar(examination, name, description))},
            {stem + "physioevents.tsv.gz"_L1, gzipped(events.rows)},
            {stem + "physioevents.json"_L1, sidecarBytes(eventsSidecar(events.columns))}};
}

BidsFiles recordingFiles(const Examination &examination, const BidsName &name, const ExportTarget &target,
                         TimeFrame frame, const std::optional<ViewingGeometry> &geometry)
{
    BidsFiles files;
    for (const Eye eye : eyesOfDataset(target.eyes))
        files += streamFiles(examination, name, eye, frame);
    const TimeFrame shown = sampledTime(examination.meanEye.gazePoints, frame).value_or(TimeFrame{});
    const QString picture = examination.imageName.simplified();
    const QString row = u"%1\t%2\tpicture\t%3\n"_s.arg(
        secondsText(shown.startMs), secondsText(shown.endMs - shown.startMs), picture.isEmpty() ? u"n/a"_s : picture);
    const QString stem = name.folder() + name.stem() + "_events"_L1;
    files << BidsFile{stem + ".tsv"_L1, "onset\tduration\ttrial_type\tpicture\n" + row.toUtf8()}
          << BidsFile{stem + ".json"_L1, sidecarBytes(stimulusSidecar(pictureSize(examination), geometry))};
    return files;
}

QByteArray readme(bool knowsGeometry)
{
    QByteArray text =
        "# Gaze recordings\n\n"
        "Samples of gaze and the events in them, written by Vistrum. Each recording is one person before\n"
        "one picture: eye1 is the left eye, eye2 the right one, eye3 the mean of both.\n";
    if (!knowsGeometry)
        text += "\nSize and distance of the screen were not known to the program: ScreenSize and ScreenDistance\n"
                "are \"n/a\" and can be filled in by hand.\n";
    return text;
}

BidsFiles datasetFiles(const QList<const Examination *> &examinations, const QList<BidsName> &names,
                       const DataModel &model, const ExportTarget &target, const BidsForm &form)
{
    const BidsParticipants participants = participantsOf(examinations, names);
    return {
        {u"dataset_description.json"_s, sidecarBytes(datasetDescription(examinations, model.timeFrame(), target.eyes))},
        {u"README.md"_s, readme(form.geometry.has_value())},
        {u"participants.tsv"_s, participants.table},
        {u"participants.json"_s, sidecarBytes(participants.sidecar)}};
}

QString folderOf(const QString &path)
{
    return path.section(u'/', 0, -2);
}

void writeBidsFile(const BidsFile &each, const QString &path, ExportResult &result)
{
    if (const auto problem = makeFolder(folderOf(path))) {
        result.refuse(path, *problem);
        return;
    }
    FileReplacement file(path, Links::Replaced);
    file.write(each.bytes);
    takeTable(file, result);
}

void writeDataset(const BidsFiles &files, const QString &folder, ExportResult &result)
{
    for (const BidsFile &each : files) {
        const QString path = folder + u'/' + each.name;
        writeBidsFile(each, path, result);
        // A folder that was made for a file that then failed is empty, and goes again; no other can be removed so.
        for (QString made = folderOf(path); made != folder && QDir().rmdir(made);)
            made = folderOf(made);
    }
}

/// Subjects, and files of the subjects, of an older data set in the same folder: they would be in this one without
/// being in its table of participants, or as runs and eyes that it does not have.
QStringList strangers(const QString &folder, const QList<BidsName> &names, const ExportResult &result)
{
    QStringList subjects = QDir(folder).entryList({u"sub-*"_s}, QDir::Dirs, QDir::Name);
    for (const BidsName &name : names)
        subjects.removeAll(u"sub-"_s + name.subject);
    const QDir root(QDir(folder).absolutePath());
    const auto nameOf = [&](const QString &path) { return root.relativeFilePath(QFileInfo(path).absoluteFilePath()); };
    QSet<QString> own;
    for (const QString &path : result.written + result.failed)
        own << nameOf(path);
    QStringList files;
    for (QDirIterator entry(folder, QDir::Files, QDirIterator::Subdirectories); entry.hasNext();) {
        const QString name = nameOf(entry.next());
        const bool isOfSubject = name.startsWith("sub-"_L1) && name.contains(u'/');
        if (isOfSubject && !own.contains(name) && !subjects.contains(name.section(u'/', 0, 0)))
            files << name;
    }
    files.sort();
    return subjects + files;
}

void tellRemarks(QStringList remarks, const QStringList &strangers)
{
    constexpr qsizetype mostNames = 10;
    const qsizetype others = strangers.size() - mostNames;
    if (!strangers.isEmpty())
        remarks << u"The folder holds what is left of an older data set: %1%2. Choose a new folder or prefix."_s.arg(
            strangers.first(std::min(strangers.size(), mostNames)).join(u", "_s),
            others > 0 ? u" and %1 more"_s.arg(others) : QString());
    if (!remarks.isEmpty())
        messages::warning(u"BIDS Export"_s, remarks.join(u'\n'));
}

} // namespace

ExportResult exportBids(const DataModel &model, const ExportTarget &target, const BidsForm &form)
{
    const QString folder = pathStem(target) + "_bids"_L1;
    const QList<const Examination *> examinations = model.checkedExaminations();
    const BidsNames named = bidsNames(examinations);
    ExportResult result;
    Progress progress(u"Exporting BIDS. Please wait."_s, static_cast<int>(examinations.size()) + 1);
    writeDataset(datasetFiles(examinations, named.names, model, target, form), folder, result);
    std::vector<BidsFiles> files(static_cast<std::size_t>(examinations.size()));
    sideBySide(
        examinations.size(), form.threads,
        [&](qsizetype i) {
            files[static_cast<std::size_t>(i)] =
                recordingFiles(*examinations[i], named.names[i], target, model.timeFrame(), form.geometry);
        },
        [&](qsizetype i) {
            writeDataset(std::exchange(files[static_cast<std::size_t>(i)], {}), folder, result);
            progress.advance();
        });
    tellRemarks(named.remarks, strangers(folder, named.names, result));
    tellExported(u"BIDS Export"_s, u"BIDS data set exported to: "_s + folder, result);
    return result;
}
