// SPDX-License-Identifier: GPL-3.0-or-later
#include "table/StudyQuality.h"

#include "base/Progress.h"
#include "model/ImageCache.h"

#include <QHash>

#include <vector>

namespace {

/// One examination to be measured.
struct Place {
    qsizetype examination;
    QSizeF screenPx;
};

/// Recordings of one picture share its size: the file is looked into once.
std::vector<Place> placesOf(const DataModel &model, MeasuredExaminations which)
{
    QHash<QString, QSizeF> sizes;
    std::vector<Place> places;
    for (qsizetype i = 0; i < model.examinations().size(); ++i) {
        const Examination &examination = model.examinations()[i];
        if (!examination.checked && which == MeasuredExaminations::Checked)
            continue;
        const QString path = examination.image ? examination.image->path : QString();
        if (!sizes.contains(path))
            sizes.insert(path, screenSizeOf(examination));
        places.push_back({i, sizes.value(path)});
    }
    return places;
}

} // namespace

QList<StreamQuality> studyQuality(const DataModel &model, const StudyQualityForm &form)
{
    const std::vector<Place> places = placesOf(model, form.which);
    const QList<Eye> eyes = eyesOf(form.eyes);
    std::vector<QList<EyeQuality>> measured(places.size());
    QList<StreamQuality> all;
    Progress progress(QStringLiteral("Measuring data quality, please wait."), static_cast<int>(places.size()) + 1);
    sideBySide(
        static_cast<qsizetype>(places.size()), form.threads,
        [&](qsizetype i) {
            const auto at = static_cast<size_t>(i);
            measured[at] = dataQuality(model.examinations()[places[at].examination], eyes,
                                       {model.timeFrame(), places[at].screenPx, form.pixelPerDistance});
        },
        [&](qsizetype i) {
            const auto at = static_cast<size_t>(i);
            for (qsizetype eye = 0; eye < eyes.size(); ++eye)
                all << StreamQuality{places[at].examination, eyes[eye], measured[at][eye]};
            progress.advance();
        });
    return all;
}
