// SPDX-License-Identifier: GPL-3.0-or-later
#include "comparison/ScanpathSimilarity.h"

#include "base/Progress.h"
#include "base/SideBySide.h"
#include "export/MeasureExport.h"
#include "model/Canvas.h"
#include "statistics/AoiIndex.h"

#include <QImageReader>

namespace {

/// A set before its comparison.
struct Work {
    SimilaritySet set;
    SimilarityMeasures measures;
    std::vector<PreparedScanpath> paths;
};

QString picturePathOf(const Examination &examination)
{
    return examination.image ? examination.image->path : QString();
}

/// Of the file or, where it cannot be read, as the recording says; else that of the canvas.
QSizeF pictureSize(const Examination &examination)
{
    const QSize size = examination.image ? QImageReader(examination.image->path).size() : QSize();
    if (size.width() > 0 && size.height() > 0)
        return size;
    if (examination.imageWidthPx > 0 && examination.imageHeightPx > 0)
        return {examination.imageWidthPx, examination.imageHeightPx};
    return {canvas::width, canvas::height};
}

struct Words {
    FixationPath path;
    ScanpathWord areas;
};

Words wordsOf(const EyeData &stream, const AoiIndex &areas, TimeFrame frame)
{
    Words words;
    for (const Fixation &fixation : stream.scanpath) {
        if (!frame.holds(fixation))
            continue;
        words.path.push_back({static_cast<double>(fixation.mean.x()), static_cast<double>(fixation.mean.y()),
                              static_cast<double>(fixation.duration())});
        qsizetype area = 0;
        while (area < areas.size() && !areas[area].winding.contains(fixation.mean))
            ++area;
        if (area < areas.size())
            words.areas.push_back(static_cast<int>(area));
    }
    return words;
}

/// The checked examinations of each picture, in the order in which the pictures appear.
QList<QList<const Examination *>> byPicture(const DataModel &model)
{
    QStringList pictures;
    QList<QList<const Examination *>> parts;
    for (const Examination *examination : model.checkedExaminations()) {
        const QString picture = picturePathOf(*examination);
        if (!pictures.contains(picture)) {
            pictures << picture;
            parts << QList<const Examination *>();
        }
        parts[pictures.indexOf(picture)] << examination;
    }
    return parts;
}

Work workOf(const QList<const Examination *> &examinations, Eye eye, const DataModel &model, const SimilarityTask &task)
{
    const AoiIndex areas(model.aoiList());
    const Examination &first = *examinations.constFirst();
    Work work{.set = {.picture = first.image ? first.image->fileName : QString(), .eye = eye},
              .measures = {task.parameters, pictureSize(first), static_cast<int>(areas.size())},
              .paths = {}};
    for (const Examination *each : examinations) {
        const QString subject = each->subjectId.isEmpty() ? each->baseName : each->subjectId;
        work.set.recordings << ComparedRecording{each->baseName, subject, groupOf(*each, task.groupBy)};
        Words words = wordsOf(each->stream(eye), areas, model.timeFrame());
        work.paths.push_back(work.measures.prepared(std::move(words.path), std::move(words.areas)));
    }
    for (qsizetype i = 0; i < examinations.size(); ++i) {
        for (qsizetype j = i + 1; j < examinations.size(); ++j)
            work.set.pairs.push_back({i, j, {}});
    }
    return work;
}

std::vector<Work> allWork(const DataModel &model, const SimilarityTask &task)
{
    std::vector<Work> all;
    for (const QList<const Examination *> &examinations : byPicture(model)) {
        for (const Eye eye : eyesOf(task.eyes)) {
            if (examinations.size() > 1)
                all.push_back(workOf(examinations, eye, model, task));
        }
    }
    return all;
}

/// One pair of one set.
struct Piece {
    const Work *work;
    ScanpathPair *pair;
};

std::vector<Piece> piecesOf(std::vector<Work> &all)
{
    std::vector<Piece> pieces;
    for (Work &work : all) {
        for (ScanpathPair &pair : work.set.pairs)
            pieces.push_back({&work, &pair});
    }
    return pieces;
}

} // namespace

double SimilaritySet::value(qsizetype first, qsizetype second, std::size_t measure) const
{
    const auto [i, j] = std::minmax(first, second);
    const qsizetype before = i * recordings.size() - i * (i + 1) / 2; // pairs of the recordings above i
    return pairs[static_cast<std::size_t>(before + j - i - 1)].values[measure];
}

std::optional<std::vector<SimilaritySet>> compareScanpaths(const DataModel &model, const SimilarityTask &task,
                                                           const std::stop_token &stop)
{
    std::vector<Work> all = allWork(model, task);
    const std::vector<Piece> pieces = piecesOf(all);
    Progress progress(QStringLiteral("Comparing scanpaths"), static_cast<int>(pieces.size()));
    sideBySide(
        static_cast<qsizetype>(pieces.size()), task.threads,
        [&](qsizetype i) {
            const auto &[work, pair] = pieces[static_cast<std::size_t>(i)];
            if (!stop.stop_requested())
                pair->values = work->measures.compare(work->paths[static_cast<std::size_t>(pair->first)],
                                                      work->paths[static_cast<std::size_t>(pair->second)]);
        },
        [&](qsizetype) { progress.advance(); });
    if (stop.stop_requested())
        return std::nullopt;
    std::vector<SimilaritySet> sets;
    sets.reserve(all.size());
    for (Work &work : all)
        sets.push_back(std::move(work.set));
    return sets;
}
