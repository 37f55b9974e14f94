// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/DataModel.h"

#include <algorithm>
#include <cmath>
#include <vector>

/// The tables of statistics written once more, each as its page of the manual has it, one thing after the other: what
/// the program's own tables are compared with.
namespace plain {

inline QString g(double value)
{
    return QString::number(value, 'g', 6);
}

inline QString comma(QString text)
{
    return text.replace(u'.', u',');
}

inline QString quoted(const QString &text)
{
    return u'"' + text + QStringLiteral("\";");
}

inline double twoDecimals(double value)
{
    return std::trunc(value * 100.0 + 0.5) / 100.0;
}

/// The stream as an index of the stems left, right, dominant and mean.
inline const EyeData &streamOf(const Examination &examination, int eye)
{
    const bool leftIsDominant = examination.dominantEye == QStringLiteral("left");
    const EyeData *streams[] = {&examination.leftEye, &examination.rightEye,
                                leftIsDominant ? &examination.leftEye : &examination.rightEye, &examination.meanEye};
    return *streams[eye];
}

inline bool isWithin(const Fixation &fixation, TimeFrame frame)
{
    return fixation.samples.first().time >= frame.startMs && fixation.samples.last().time <= frame.endMs;
}

inline double deviation(const std::vector<double> &values)
{
    double sum = 0;
    double squares = 0;
    for (const double value : values) {
        sum += value;
        squares += value * value;
    }
    const double n = double(values.size());
    return std::sqrt(squares / n - (sum / n) * (sum / n));
}

inline QString generalTable(const DataModel &model, int eye, const QString &word)
{
    QString table = QStringLiteral("subjectID;subjectINFO;eye;HGA;VGA;min_speed;max_speed;mean_speed;\n");
    const TimeFrame span = model.timeFrame();
    for (const Examination &examination : model.examinations()) {
        if (!examination.checked)
            continue;
        const QList<GazePoint> &samples = streamOf(examination, eye).gazePoints;
        std::vector<double> x{samples[0].x};
        std::vector<double> y{samples[0].y};
        std::vector<double> speeds;
        for (qsizetype i = 1; i < samples.size(); ++i) {
            const GazePoint &a = samples[i - 1];
            const GazePoint &b = samples[i];
            if (a.time < span.startMs || a.time > span.endMs || b.time < span.startMs || b.time > span.endMs)
                continue;
            x.push_back(b.x);
            y.push_back(b.y);
            const double dx = int(b.x) - int(a.x);
            const double dy = int(b.y) - int(a.y);
            speeds.push_back(std::sqrt(dx * dx + dy * dy) / (double(b.time - a.time) / 1000.0));
        }
        double sum = 0;
        for (const double speed : speeds)
            sum += speed;
        const double values[] = {deviation(x), deviation(y), *std::min_element(speeds.begin(), speeds.end()),
                                 *std::max_element(speeds.begin(), speeds.end()), sum / double(speeds.size())};
        table += quoted(examination.subjectId) + quoted(examination.subjectText) + word + u';';
        for (int i = 0; i < 5; ++i)
            table += quoted(comma(g(twoDecimals(values[i])) + QLatin1StringView(i < 2 ? "" : " px/ms")));
        table += u'\n';
    }
    return table;
}

/// Count, first, total, shortest, longest and number of stays, of samples or fixations.
struct Stays {
    int count = 0;
    qint64 first = 0;
    qint64 total = 0;
    qint64 shortest = 1000000000;
    qint64 longest = 0;
    int stays = 0;

    void add(qint64 durationMs)
    {
        total += durationMs;
        shortest = std::min(shortest, durationMs);
        longest = std::max(longest, durationMs);
        ++stays;
    }
    QStringList fields(int of, double span) const
    {
        return {QString::number(first),
                QString::number(count),
                g(count / span * (60000.0 / span)),
                g(of ? double(count) / of : 0.0),
                QString::number(total),
                QString::number(stays ? shortest : 0),
                QString::number(longest),
                g(stays ? double(total) / stays : 0.0)};
    }
};

inline QStringList sampleFields(const EyeData &stream, const QPolygon &polygon, TimeFrame frame)
{
    Stays stays;
    int all = 0;
    qint64 start = -1;
    qint64 last = 0;
    bool open = false;
    for (const GazePoint &sample : stream.gazePoints) {
        if (sample.time < frame.startMs || sample.time > frame.endMs)
            continue;
        ++all;
        if (polygon.containsPoint(QPoint(int(sample.x), int(sample.y)), Qt::WindingFill)) {
            if (stays.count++ == 0)
                stays.first = sample.time;
            last = open ? sample.time : sample.time + 1;
            start = open ? start : sample.time;
            open = true;
        } else if (open) {
            stays.add(last - start);
            open = false;
        }
    }
    if (open && start >= 1)
        stays.add(last - start);
    return stays.fields(all, double(frame.endMs - frame.startMs));
}

inline QStringList fixationFields(const EyeData &stream, const QPolygon &polygon, TimeFrame frame)
{
    Stays stays;
    int all = 0;
    for (const Fixation &fixation : stream.scanpath) {
        if (!isWithin(fixation, frame))
            continue;
        ++all;
        if (!polygon.containsPoint(fixation.mean, Qt::WindingFill))
            continue;
        if (stays.count++ == 0)
            stays.first = fixation.samples.first().time;
        stays.add(fixation.samples.last().time - fixation.samples.first().time);
    }
    return stays.fields(all, double(frame.endMs - frame.startMs));
}

inline QString aoiTable(const DataModel &model, int eye)
{
    QString table = QStringLiteral(
        "subjectID;subjectINFO;AOI_name;time_of_first_gp(ms);amount_of_gps;gps_per_min;share_of_gps;"
        "gps_total_time_in_aoi(ms);gps_min_time_in_aoi(ms);gps_max_time_in_aoi(ms);gps_avg_time_in_aoi(ms);"
        "time_of_first_fix(ms);amount_of_fixis;fixis_per_min;share_of_fixis;fixis_total_time_in_aoi(ms);"
        "fixi_min_duration_in_aoi(ms);fixi_max_duration_in_aoi(ms);fixis_avg_duration_in_aoi(ms);\n");
    for (const Examination &examination : model.examinations()) {
        if (!examination.checked)
            continue;
        const EyeData &stream = streamOf(examination, eye);
        for (const AreaOfInterest &area : model.aoiList()) {
            table += quoted(examination.subjectId) + quoted(examination.subjectText) + quoted(comma(area.name));
            for (const QString &field : sampleFields(stream, area.polygon, model.timeFrame()) +
                                            fixationFields(stream, area.polygon, model.timeFrame()))
                table += quoted(comma(field));
            table += u'\n';
        }
    }
    return table;
}

} // namespace plain
