// SPDX-License-Identifier: GPL-3.0-or-later
#include "aoi/AoiJson.h"

#include "aoi/AoiTable.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

constexpr QLatin1StringView aoisKey("aois");
constexpr QLatin1StringView nameKey("name");
constexpr QLatin1StringView colorKey("color");
constexpr QLatin1StringView enabledKey("enabled");
constexpr QLatin1StringView polygonKey("polygon");

std::optional<QPoint> vertexOfPair(const QJsonValue &value)
{
    const QJsonArray pair = value.toArray();
    if (pair.size() != 2 || !pair[0].isDouble() || !pair[1].isDouble())
        return std::nullopt;
    const std::optional<int> x = pixelOf(pair[0].toDouble());
    const std::optional<int> y = pixelOf(pair[1].toDouble());
    return x && y ? std::optional(QPoint(*x, *y)) : std::nullopt;
}

/// Invalid unless there are three or four whole numbers from 0 to 255.
QColor colorOfLevels(const QJsonArray &levels)
{
    constexpr int opaque = 255;
    const auto level = [&levels](qsizetype i) { return levels[i].toInt(-1); };
    const int alpha = levels.size() == 4 ? level(3) : opaque;
    return levels.size() == 3 || levels.size() == 4 ? QColor(level(0), level(1), level(2), alpha) : QColor();
}

/// Counts the vertices that cannot be read.
AreaOfInterest areaOf(const QJsonObject &object, qsizetype &badVertices)
{
    AreaOfInterest aoi;
    aoi.name = object[nameKey].toString();
    aoi.enabled = object[enabledKey].toBool(true);
    if (const QColor color = colorOfLevels(object[colorKey].toArray()); color.isValid())
        aoi.color = color;
    for (const auto &value : object[polygonKey].toArray()) {
        if (const std::optional<QPoint> vertex = vertexOfPair(value))
            aoi.polygon << *vertex;
        else
            ++badVertices;
    }
    return aoi;
}

QJsonObject objectOf(const AreaOfInterest &aoi)
{
    QJsonArray polygon;
    for (const QPoint &vertex : aoi.polygon)
        polygon << QJsonArray{vertex.x(), vertex.y()};
    const QColor &color = aoi.color;
    return {{nameKey, aoi.name},
            {colorKey, QJsonArray{color.red(), color.green(), color.blue(), color.alpha()}},
            {enabledKey, aoi.enabled},
            {polygonKey, polygon}};
}

} // namespace

AoiFileContents parseAoiJson(const QByteArray &bytes)
{
    AoiFileContents contents;
    QJsonParseError problem;
    const QJsonDocument document = QJsonDocument::fromJson(bytes, &problem);
    if (problem.error != QJsonParseError::NoError) {
        contents.error = QStringLiteral("%1 at byte %2").arg(problem.errorString()).arg(problem.offset);
        return contents;
    }
    const QJsonArray entries = document.isArray() ? document.array() : document[aoisKey].toArray();
    for (const auto &entry : entries) {
        AreaOfInterest aoi = areaOf(entry.toObject(), contents.badVertexLines);
        if (aoi.name.isEmpty() || aoi.polygon.isEmpty())
            ++contents.unfinishedBlocks;
        else
            contents.aois << std::move(aoi);
    }
    if (contents.badVertexLines > 0)
        contents.remarks
            << QStringLiteral("Vertices left out that are no pair of numbers: %1.").arg(contents.badVertexLines);
    if (contents.unfinishedBlocks > 0)
        contents.remarks
            << QStringLiteral("Areas left out that have no name or no vertices: %1.").arg(contents.unfinishedBlocks);
    return contents;
}

QByteArray aoiJson(const QList<AreaOfInterest> &aois)
{
    QJsonArray entries;
    for (const AreaOfInterest &aoi : aois)
        entries << objectOf(aoi);
    return QJsonDocument(QJsonObject{{aoisKey, entries}}).toJson();
}
