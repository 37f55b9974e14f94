// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/RunQuality.h"

#include "batch/RunState.h"
#include "detection/StoredGeometry.h"
#include "settings/StoredKeys.h"
#include "table/StudyQuality.h"

#include <cmath>

namespace {

QJsonObject qualityJson(const EyeQuality &quality)
{
    QJsonObject object;
    for (const Measure<EyeQuality> &measure : qualityMeasures()) {
        const std::optional<double> value = measure.value(quality);
        object.insert(measure.name, value && std::isfinite(*value) ? QJsonValue(*value) : QJsonValue());
    }
    return object;
}

} // namespace

QList<StreamQuality> qualityOf(const RunState &run)
{
    return studyQuality(run.model, {.eyes = eyeMode(),
                                    .which = MeasuredExaminations::All,
                                    .pixelPerDistance = storedPixelPerDistance(),
                                    .threads = run.threads()});
}

void addQuality(const QList<StreamQuality> &quality, BatchReport &report)
{
    struct Recording {
        ReportedInput *input;
        QString name; ///< within a table; else empty
    };
    QList<Recording> recordings; // those that came into the model, in its order
    for (ReportedInput &input : report.inputs) {
        if (input.used && input.kind == QLatin1StringView("recording"))
            recordings << Recording{&input, {}};
        for (const QString &name : std::as_const(input.recordings))
            recordings << Recording{&input, name};
    }
    for (const StreamQuality &measured : quality) {
        if (measured.examination >= recordings.size())
            continue;
        const Recording &recording = recordings[measured.examination];
        QJsonObject &reported = recording.input->quality;
        const QString eye = eyeWord(measured.eye);
        if (recording.name.isEmpty()) {
            reported.insert(eye, qualityJson(measured.quality));
        } else {
            QJsonObject ofRecording = reported.value(recording.name).toObject();
            ofRecording.insert(eye, qualityJson(measured.quality));
            reported.insert(recording.name, ofRecording);
        }
    }
}
