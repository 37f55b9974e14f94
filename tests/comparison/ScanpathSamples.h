// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "comparison/RandomScanpaths.h"
#include "model/DataModel.h"

/// A fixation of two samples.
inline Fixation fixationAt(QPoint place, qint64 startMs, qint64 durationMs)
{
    Fixation fixation;
    fixation.mean = place;
    fixation.samples = {GazePoint(startMs, place.x(), place.y(), 1, 1, 1),
                        GazePoint(startMs + durationMs, place.x(), place.y(), 1, 1, 1)};
    return fixation;
}

/// Fixations one after the other, 10 ms apart.
inline QList<Fixation> fixationsOf(const FixationPath &path)
{
    QList<Fixation> fixations;
    qint64 time = 0;
    for (const ScanpathPoint &each : path) {
        fixations << fixationAt(QPoint(int(each.x), int(each.y)), time, qint64(each.durationMs));
        time += qint64(each.durationMs) + 10;
    }
    return fixations;
}

/// Recordings "r1", "r2", ... of subjects "s1", "s2", ... with both eyes alike, before a picture that is no file.
inline void addRecordings(DataModel &model, const QList<FixationPath> &paths,
                          const QString &picture = QStringLiteral("p.png"))
{
    for (const FixationPath &path : paths) {
        Examination examination;
        examination.number = int(model.examinations().size()) + 1;
        examination.baseName = QStringLiteral("r%1").arg(examination.number);
        examination.subjectId = QStringLiteral("s%1").arg(examination.number);
        examination.image = model.images().image(picture);
        examination.leftEye.scanpath = fixationsOf(path);
        examination.rightEye.scanpath = examination.leftEye.scanpath;
        model.examinations() << examination;
    }
    model.setTimeFrame({0, 10'000'000});
}

inline QList<FixationPath> randomScanpaths(int count, std::size_t fixations, unsigned seed)
{
    std::mt19937 random(seed);
    QList<FixationPath> paths;
    for (int i = 0; i < count; ++i)
        paths << randomScanpath(random, fixations);
    return paths;
}
