// SPDX-License-Identifier: GPL-3.0-or-later
#include "clustering/ClusterJson.h"

#include "base/JsonFields.h"

using namespace Qt::StringLiterals;

namespace {

const QStringList methods{u"standard"_s, u"mean-shift"_s, u"overlap"_s}; // in the order of the alternatives

QJsonObject json(const StandardClusterParameters &p)
{
    return {{u"minimumFixations"_s, p.minimumFixations},
            {u"overlapAllowedPercent"_s, p.overlapAllowed},
            {u"maximumRadiusPx"_s, p.maximumRadiusPx}};
}

QJsonObject json(const MeanShiftClusterParameters &p)
{
    return {{u"radiusPx"_s, p.radiusPx},
            {u"rate"_s, p.rate},
            {u"iterations"_s, p.iterations},
            {u"minimumFixations"_s, p.minimumFixations}};
}

QJsonObject json(const OverlapClusterParameters &p)
{
    QJsonObject object{{u"minimumFixations"_s, p.minimumFixations}};
    if (p.outliers)
        object.insert(u"outliers"_s, *p.outliers);
    return object;
}

ClusterParameters standardOf(JsonFields &fields)
{
    return StandardClusterParameters{.minimumFixations = fields.count(u"minimumFixations"_s),
                                     .overlapAllowed = fields.count(u"overlapAllowedPercent"_s),
                                     .maximumRadiusPx = fields.count(u"maximumRadiusPx"_s)};
}

ClusterParameters meanShiftOf(JsonFields &fields)
{
    return MeanShiftClusterParameters{.radiusPx = fields.number(u"radiusPx"_s),
                                      .rate = fields.number(u"rate"_s),
                                      .iterations = fields.count(u"iterations"_s),
                                      .minimumFixations = fields.count(u"minimumFixations"_s)};
}

ClusterParameters overlapOf(JsonFields &fields)
{
    OverlapClusterParameters p{.minimumFixations = fields.count(u"minimumFixations"_s), .outliers = {}};
    if (fields.has(u"outliers"_s))
        p.outliers = fields.count(u"outliers"_s);
    return p;
}

} // namespace

QJsonObject toJson(const ClusterParameters &parameters)
{
    QJsonObject object = std::visit([](const auto &p) { return json(p); }, parameters);
    object.insert(u"method"_s, methods[static_cast<qsizetype>(parameters.index())]);
    return object;
}

std::variant<ClusterParameters, QString> clusterParametersOf(const QJsonObject &json)
{
    return parametersOfKind(json, u"method"_s, methods, {standardOf, meanShiftOf, overlapOf});
}

QJsonObject toJson(const SaccadeClusterParameters &parameters)
{
    QJsonObject object;
    const auto put = [&](const auto &row) {
        const int value = static_cast<int>(parameters.*(row.member));
        const QStringList words = QString(row.range.words).split(u',');
        object.insert(row.range.name, row.range.words.isEmpty() ? QJsonValue(value) : QJsonValue(words.value(value)));
    };
    std::apply([&](const auto &...row) { (put(row), ...); }, stagedrows::all);
    return object;
}
