// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/StatisticsTables.h"

#include "base/TextFormat.h"
#include "export/TextTable.h"
#include "settings/StoredKeys.h"

namespace {

/// A column and the key that switches it on.
template <class Record>
struct Column {
    StoredKey<bool> key;
    QLatin1StringView name;
    QString (*text)(const Record &);
};

template <auto Member, class Record>
QString textOf(const Record &record)
{
    if constexpr (std::is_floating_point_v<std::remove_cvref_t<decltype(record.*Member)>>)
        return text::general6(record.*Member);
    else
        return QString::number(record.*Member);
}

template <auto Member>
QString speedOf(const GeneralStatistics &statistics)
{
    return textOf<Member>(statistics) + QLatin1StringView(" px/ms");
}

using Text = QLatin1StringView;
using General = GeneralStatistics;
constexpr Column<General> generalColumns[] = {
    {keys::horizontalActivity, Text("HGA"), textOf<&General::horizontalActivity>},
    {keys::verticalActivity, Text("VGA"), textOf<&General::verticalActivity>},
    {keys::minimumSpeed, Text("min_speed"), speedOf<&General::minSpeed>},
    {keys::maximumSpeed, Text("max_speed"), speedOf<&General::maxSpeed>},
    {keys::averageSpeed, Text("mean_speed"), speedOf<&General::meanSpeed>},
};

using Aoi = AreaOfInterest;
constexpr Column<Aoi> aoiColumns[] = {
    {keys::timeOfFirstGlance, Text("time_of_first_gp(ms)"), textOf<&Aoi::firstGazeTime>},
    {keys::numberOfGlances, Text("amount_of_gps"), textOf<&Aoi::gazeCount>},
    {keys::glanceFrequency, Text("gps_per_min"), textOf<&Aoi::gazePerMinute>},
    {keys::glanceProportion, Text("share_of_gps"), textOf<&Aoi::gazeShare>},
    {keys::totalGlanceTime, Text("gps_total_time_in_aoi(ms)"), textOf<&Aoi::gazeTotalTime>},
    {keys::minimumGlanceDuration, Text("gps_min_time_in_aoi(ms)"), textOf<&Aoi::gazeMinTime>},
    {keys::maximumGlanceDuration, Text("gps_max_time_in_aoi(ms)"), textOf<&Aoi::gazeMaxTime>},
    {keys::meanGlanceDuration, Text("gps_avg_time_in_aoi(ms)"), textOf<&Aoi::gazeMeanTime>},
    {keys::timeOfFirstGlance, Text("time_of_first_fix(ms)"), textOf<&Aoi::firstFixationTime>},
    {keys::numberOfFixations, Text("amount_of_fixis"), textOf<&Aoi::fixationCount>},
    {keys::glanceFrequency, Text("fixis_per_min"), textOf<&Aoi::fixationsPerMinute>},
    {keys::glanceProportion, Text("share_of_fixis"), textOf<&Aoi::fixationShare>},
    {keys::totalGlanceTime, Text("fixis_total_time_in_aoi(ms)"), textOf<&Aoi::fixationTotalTime>},
    {keys::minimumGlanceDuration, Text("fixi_min_duration_in_aoi(ms)"), textOf<&Aoi::fixationMinTime>},
    {keys::maximumGlanceDuration, Text("fixi_max_duration_in_aoi(ms)"), textOf<&Aoi::fixationMaxTime>},
    {keys::meanGlanceDuration, Text("fixis_avg_duration_in_aoi(ms)"), textOf<&Aoi::fixationMeanTime>},
};

template <class Record, size_t N>
QString columnHeader(const char *fixed, const Column<Record> (&columns)[N], const StatisticsColumns &chosen)
{
    QString line = QString::fromLatin1(fixed);
    for (const Column<Record> &column : columns) {
        if (chosen.contains(column.key.key))
            line += column.name + u';';
    }
    return line + u'\n';
}

template <class Record, size_t N>
QString values(const Record &record, const Column<Record> (&columns)[N], const StatisticsColumns &chosen)
{
    QString fields;
    for (const Column<Record> &column : columns) {
        if (chosen.contains(column.key.key))
            fields += u'"' + text::decimalComma(column.text(record)) + QLatin1StringView("\";");
    }
    return fields + u'\n';
}

} // namespace

QString generalStatisticsHeader(const StatisticsColumns &columns)
{
    return columnHeader("subjectID;subjectINFO;eye;", generalColumns, columns);
}

QString generalStatisticsRow(const Examination &examination, Eye eye, const StatisticsColumns &columns)
{
    const EyeData &stream = examination.stream(eye);
    if (!stream.generalStatistics)
        return {};
    return subjectFields(examination.subjectId, examination.subjectText) + eyeWord(eye) + u';' +
           values(*stream.generalStatistics, generalColumns, columns);
}

QString aoiStatisticsHeader(const StatisticsColumns &columns)
{
    return columnHeader("subjectID;subjectINFO;AOI_name;", aoiColumns, columns);
}

QString aoiStatisticsRows(const Examination &examination, Eye eye, const StatisticsColumns &columns)
{
    const QString subject = subjectFields(examination.subjectId, examination.subjectText);
    QString rows;
    for (const AreaOfInterest &area : examination.stream(eye).aoiStatistics)
        rows += subject + u'"' + text::decimalComma(area.name) + QLatin1StringView("\";") +
                values(area, aoiColumns, columns);
    return rows;
}

QString aoiAreaTable(const QList<AreaOfInterest> &areas)
{
    if (areas.isEmpty())
        return {};
    QString table = QStringLiteral("AOI;Area(pixel)\n");
    for (const AreaOfInterest &area : areas)
        table += area.name + u';' + text::general6(static_cast<double>(area.area())) + u'\n';
    return table;
}
