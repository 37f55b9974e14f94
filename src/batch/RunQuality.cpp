#include "batch/RunQuality.h"

#include "batch/RunState.h"
#include "detection/PixelSize.h"
#include "settings/StoredKeys.h"
#include "table/StudyQuality.h"

#include <cmath>

namespace {

QJsonObject toJson(const EyeQuality &quality)
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
    QList<ReportedInput *> recordings; // those that came into the model, in its order
    for (ReportedInput &input : report.inputs) {
        if (input.used && input.kind == QLatin1StringView("recording"))
            recordings << &input;
    }
    for (const StreamQuality &measured : quality) {
        if (measured.examination < recordings.size())
            recordings[measured.examination]->quality.insert(eyeWord(measured.eye), toJson(measured.quality));
    }
}
