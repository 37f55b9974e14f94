// SPDX-License-Identifier: GPL-3.0-or-later
#include "report/MethodsRecord.h"

#include "base/Averages.h"
#include "clustering/ClusterJson.h"
#include "detection/DetectionJson.h"
#include "detection/DetectionWarnings.h"
#include "model/ImageCache.h"
#include "table/QualityLimits.h"

#include <QJsonArray>

#include <algorithm>
#include <set>

namespace {

using namespace Qt::StringLiterals;
using Range = std::optional<MethodsRange>;

Range rangeOf(std::vector<double> values)
{
    if (values.empty())
        return {};
    const auto [least, most] = std::minmax_element(values.begin(), values.end());
    MethodsRange range{.least = *least, .median = 0, .most = *most};
    range.median = *medianOf(values);
    return range;
}

template <class Measured>
Range rangeOver(const QList<StreamQuality> &quality, const Measured &measured)
{
    std::vector<double> values;
    for (const StreamQuality &each : quality) {
        if (!wasRecorded(each.quality))
            continue;
        if (const std::optional<double> value = measured(each.quality))
            values.push_back(*value);
    }
    return rangeOf(std::move(values));
}

std::optional<double> percent(std::optional<double> share)
{
    constexpr double percentOfWhole = 100;
    return share ? std::optional(percentOfWhole * *share) : std::nullopt;
}

/// The value of a column of the tables of quality.
std::optional<double> column(const EyeQuality &quality, QLatin1StringView name)
{
    for (const Measure<EyeQuality> &measure : qualityMeasures()) {
        if (measure.name == name)
            return measure.value(quality);
    }
    return {};
}

void takeQuality(MethodsRecord &record, const QList<StreamQuality> &quality)
{
    record.rateHz = rangeOver(quality, [](const EyeQuality &q) { return q.rateHz; });
    record.jitterMs = rangeOver(quality, [](const EyeQuality &q) { return q.jitterMs; });
    record.validPercent = rangeOver(quality, [](const EyeQuality &q) { return percent(q.validShare); });
    record.lossPercent = rangeOver(quality, [](const EyeQuality &q) { return percent(q.dataLossShare); });
    record.precisionPx = rangeOver(quality, [](const EyeQuality &q) { return q.windowRmsPx; });
    record.precisionDegrees =
        rangeOver(quality, [](const EyeQuality &q) { return column(q, "window_rms_s2s_deg"_L1); });
    record.eyeDistancePx = rangeOver(quality, [](const EyeQuality &q) { return q.eyeDistancePx; });
}

void takeExaminations(MethodsRecord &record, const DataModel &model)
{
    std::set<QString> participants;
    std::set<QString> pictures;
    for (const Examination &examination : model.examinations()) {
        if (!examination.checked) {
            record.unchecked << examination.baseName;
            continue;
        }
        const QString &subject = examination.subjectId;
        participants.insert(subject.isEmpty() ? u"/"_s + examination.baseName : subject);
        if (!examination.image || !pictures.insert(examination.image->path).second)
            continue;
        const QSize size = screenSizeOf(examination).toSize();
        if (!record.pictures.contains(size))
            record.pictures << size;
    }
    record.recordings = static_cast<int>(model.examinations().size());
    record.participants = static_cast<int>(participants.size());
    record.pictureCount = static_cast<int>(pictures.size());
}

void takeFixations(MethodsRecord &record, const DataModel &model)
{
    std::vector<double> counts;
    std::vector<double> durations;
    std::vector<double> clusters;
    for (const Examination *examination : model.checkedExaminations()) {
        for (const Eye eye : eyesOf(record.run.eyes)) {
            const EyeData &stream = examination->stream(eye);
            if (!wasRecorded(stream.gazePoints))
                continue;
            double count = 0;
            double sumMs = 0;
            for (const Fixation &fixation : stream.scanpath) {
                if (!record.frame.holds(fixation))
                    continue;
                ++count;
                sumMs += fixation.duration();
            }
            counts.push_back(count);
            if (count > 0)
                durations.push_back(sumMs / count);
            clusters.push_back(static_cast<double>(stream.fixationClusters.size()));
        }
    }
    if (record.run.detector) {
        record.fixations = rangeOf(std::move(counts));
        record.fixationMs = rangeOf(std::move(durations));
    }
    if (record.run.clusters)
        record.clusterNumber = rangeOf(std::move(clusters));
    if (!record.run.pooledClusters)
        return;
    int pooled = 0;
    for (const Eye eye : eyesOf(record.run.eyes))
        pooled += static_cast<int>(model.pooled(eye).fixationClusters.size());
    record.pooledClusterNumber = pooled;
}

// ---- as data

QJsonValue jsonOrNull(const std::optional<MethodsRange> &range)
{
    if (!range)
        return {};
    return QJsonObject{{u"least"_s, range->least}, {u"median"_s, range->median}, {u"most"_s, range->most}};
}

template <class Parameters>
QJsonValue jsonOrNull(const std::optional<Parameters> &parameters)
{
    return parameters ? QJsonValue(toJson(*parameters)) : QJsonValue();
}

QJsonObject qualityJson(const MethodsRecord &record)
{
    return {{u"rateHz"_s, jsonOrNull(record.rateHz)},
            {u"intervalJitterMs"_s, jsonOrNull(record.jitterMs)},
            {u"validPercent"_s, jsonOrNull(record.validPercent)},
            {u"dataLossPercent"_s, jsonOrNull(record.lossPercent)},
            {u"windowRmsS2sPx"_s, jsonOrNull(record.precisionPx)},
            {u"windowRmsS2sDegrees"_s, jsonOrNull(record.precisionDegrees)},
            {u"eyeDistancePx"_s, jsonOrNull(record.eyeDistancePx)}};
}

} // namespace

MethodsRecord methodsRecord(const DataModel &model, const MethodsRun &run, const QList<StreamQuality> &quality)
{
    MethodsRecord record;
    record.run = run;
    record.frame = model.timeFrame();
    record.edgesCut = model.samplesAreCut;
    takeExaminations(record, model);
    takeQuality(record, quality);
    takeFixations(record, model);
    for (const AreaOfInterest &area : model.checkedAois())
        record.areas << MethodsRecord::Area{area.name, static_cast<double>(area.area())};
    return record;
}

QJsonObject toJson(const MethodsRecord &record)
{
    QJsonArray sizes;
    for (const QSize &size : record.pictures)
        sizes << QJsonArray{size.width(), size.height()};
    QJsonArray areas;
    for (const MethodsRecord::Area &area : record.areas)
        areas << QJsonObject{{u"name"_s, area.name}, {u"sizePx2"_s, area.sizePx2}};
    const std::optional<double> &pixel = record.run.pixelPerDistance;
    return {
        {u"version"_s, record.run.release},
        {u"recordings"_s, record.recordings},
        {u"participants"_s, record.participants},
        {u"leftOut"_s, QJsonArray::fromStringList(record.unchecked)},
        {u"notRead"_s, QJsonArray::fromStringList(record.run.failed)},
        {u"pictures"_s, record.pictureCount},
        {u"pictureSizesPx"_s, sizes},
        {u"pixelPerDistance"_s, pixel ? QJsonValue(*pixel) : QJsonValue()},
        {u"timeFrameMs"_s, QJsonArray{record.frame.startMs, record.frame.endMs}},
        {u"edgesCut"_s, record.edgesCut},
        {u"quality"_s, qualityJson(record)},
        {u"fixationDetection"_s, jsonOrNull(record.run.detector)},
        {u"fixations"_s, jsonOrNull(record.fixations)},
        {u"meanFixationDurationMs"_s, jsonOrNull(record.fixationMs)},
        {u"clusters"_s, jsonOrNull(record.run.clusters)},
        {u"clusterNumber"_s, jsonOrNull(record.clusterNumber)},
        {u"pooledClusters"_s, jsonOrNull(record.run.pooledClusters)},
        {u"pooledClusterNumber"_s, record.pooledClusterNumber ? QJsonValue(*record.pooledClusterNumber) : QJsonValue()},
        {u"saccadeClusters"_s, jsonOrNull(record.run.saccadeClusters)},
        {u"areasOfInterest"_s, areas},
        {u"statistics"_s, QJsonArray::fromStringList(record.run.statistics)}};
}
