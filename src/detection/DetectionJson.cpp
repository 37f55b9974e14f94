// SPDX-License-Identifier: GPL-3.0-or-later
#include "detection/DetectionJson.h"

#include "base/JsonFields.h"

using namespace Qt::StringLiterals;

namespace {

const QStringList detectors{u"standard"_s, u"gaussian"_s, u"velocity"_s};
const QStringList units{u"px/ms"_s, u"deg/s"_s, u"percentile"_s}; // in the order of the enumeration

QJsonObject json(const StandardParameters &p)
{
    return {{u"minimumDurationMs"_s, p.minimumDurationMs},
            {u"maximumRadiusPx"_s, p.maximumRadiusPx},
            {u"allowedOutliers"_s, p.allowedOutliers}};
}

QJsonObject json(const MixtureParameters &p)
{
    return {{u"minimumDurationMs"_s, p.minimumDurationMs}, {u"mergeSequential"_s, p.mergeSequential}};
}

QJsonObject json(const VelocityParameters &p)
{
    QJsonObject object{{u"minimumDurationMs"_s, p.minimumDurationMs},
                       {u"threshold"_s, p.threshold},
                       {u"unit"_s, units[static_cast<qsizetype>(p.unit)]}};
    if (p.unit == VelocityUnit::DegreePerS) {
        object.insert(u"screenDistanceM"_s, p.screenDistanceM);
        object.insert(u"imageSizeM"_s, p.imageSizeM);
        object.insert(u"imageWidthPx"_s, p.imageWidthPx);
    }
    return object;
}

FixationCalculationParameters standardOf(JsonFields &fields)
{
    return StandardParameters{.minimumDurationMs = fields.count(u"minimumDurationMs"_s),
                              .maximumRadiusPx = fields.count(u"maximumRadiusPx"_s),
                              .allowedOutliers = fields.count(u"allowedOutliers"_s)};
}

FixationCalculationParameters mixtureOf(JsonFields &fields)
{
    return MixtureParameters{.minimumDurationMs = fields.count(u"minimumDurationMs"_s),
                             .mergeSequential = fields.flag(u"mergeSequential"_s)};
}

FixationCalculationParameters velocityOf(JsonFields &fields)
{
    VelocityParameters p{.minimumDurationMs = fields.count(u"minimumDurationMs"_s),
                         .threshold = fields.number(u"threshold"_s),
                         .unit = static_cast<VelocityUnit>(fields.word(u"unit"_s, units))};
    if (p.unit != VelocityUnit::DegreePerS)
        return p;
    p.screenDistanceM = fields.number(u"screenDistanceM"_s);
    p.imageSizeM = fields.number(u"imageSizeM"_s);
    p.imageWidthPx = fields.number(u"imageWidthPx"_s);
    return p;
}

} // namespace

QJsonObject toJson(const FixationCalculationParameters &parameters)
{
    QJsonObject object = std::visit([](const auto &p) { return json(p); }, parameters);
    object.insert(u"detector"_s, detectors[static_cast<qsizetype>(parameters.index())]);
    return object;
}

std::variant<FixationCalculationParameters, QString> fixationParametersOf(const QJsonObject &json)
{
    return parametersOfKind(json, u"detector"_s, detectors, {standardOf, mixtureOf, velocityOf});
}
