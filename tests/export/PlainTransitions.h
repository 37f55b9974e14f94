// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "PlainStatistics.h"

#include <QMap>

#include <numbers>

namespace plain {

/// The fixations of the frame, of each recording by itself.
using Walks = std::vector<std::vector<const Fixation *>>;

inline std::vector<const Fixation *> walk(const QList<Fixation> &fixations, TimeFrame frame)
{
    std::vector<const Fixation *> all;
    for (const Fixation &fixation : fixations) {
        if (isWithin(fixation, frame))
            all.push_back(&fixation);
    }
    return all;
}

struct Transitions {
    explicit Transitions(size_t n) : counts(n, std::vector<int>(n)), lengths(n), times(n) {}
    std::vector<std::vector<int>> counts;
    std::vector<std::vector<double>> lengths;
    std::vector<std::vector<qint64>> times;
};

inline Transitions transitions(const Walks &walks, const QList<FixationCluster> &clusters)
{
    Transitions found(size_t(clusters.size()));
    for (const auto &fixations : walks) {
        qsizetype previous = -1;
        QPoint previousMean;
        for (const Fixation *fixation : fixations) {
            qsizetype c = -1;
            for (qsizetype i = clusters.size() - 1; i >= 0; --i) {
                for (const Fixation &member : clusters[i].fixations) {
                    if (member.mean == fixation->mean && member.samples.first().time == fixation->samples.first().time)
                        c = i;
                }
            }
            if (c < 0 || c == previous)
                continue;
            if (previous >= 0) {
                ++found.counts[size_t(previous)][size_t(c)];
                const QPoint way = fixation->mean - previousMean;
                for (const qsizetype end : {previous, c}) {
                    found.lengths[size_t(end)].push_back(
                        std::sqrt(double(way.x()) * way.x() + double(way.y()) * way.y()));
                    found.times[size_t(end)].push_back(
                        (fixation->samples.first().time + fixation->samples.last().time) / 2);
                }
            }
            previous = c;
            previousMean = fixation->mean;
        }
    }
    return found;
}

inline QString ten(double value)
{
    return comma(QString::number(value, 'f', 10)) + u';';
}

inline double meanOf(const std::vector<double> &values)
{
    double sum = 0;
    for (const double value : values)
        sum += value;
    return values.empty() ? 0 : sum / double(values.size());
}

inline double spreadOf(const std::vector<double> &values)
{
    const double mean = meanOf(values);
    double sum = 0;
    for (const double value : values)
        sum += (mean - value) * (mean - value);
    return values.empty() ? 0 : std::sqrt(sum / double(values.size()));
}

inline int fewest(const std::vector<qint64> &times)
{
    qint64 end = 3600000;
    int count = 0;
    int least = -1;
    for (const qint64 time : times) {
        while (time > end) {
            end *= 2;
            if (count > 0)
                least = least < 0 ? count : std::min(least, count);
            count = 0;
        }
        ++count;
    }
    return least;
}

/// @param content  0 counts, 1 share of all, 2 share of the row, 3 a row of measures for each cluster.
inline QString transitionBlock(const Transitions &found, int content)
{
    const size_t n = found.counts.size();
    int all = 0;
    for (const auto &row : found.counts) {
        for (const int count : row)
            all += count;
    }
    QString text = QStringLiteral(";");
    if (content == 3)
        text += QStringLiteral("minimum transitions per minute (>0) [-1 no transition];mean time between transition;"
                               "standard deviation of time between transition;mean length;"
                               "standard deviation length;");
    for (size_t i = 0; i < n && content < 3; ++i)
        text += QStringLiteral("To Cluster%1;").arg(i);
    text += u'\n';
    for (size_t i = 0; i < n; ++i) {
        int row = 0;
        for (const int count : found.counts[i])
            row += count;
        text += QLatin1StringView(content < 3 ? "From Cluster" : "Cluster") + QString::number(i) + u';';
        for (size_t j = 0; j < n && content < 3; ++j) {
            const int count = found.counts[i][j];
            text += content == 0 ? QString::number(count) + u';' : ten(double(count) / (content == 1 ? all : row));
        }
        if (content == 3) {
            std::vector<double> between;
            for (size_t k = 1; k < found.times[i].size(); ++k)
                between.push_back(double(std::abs(found.times[i][k] - found.times[i][k - 1])));
            text += QString::number(fewest(found.times[i])) + u';' + ten(meanOf(between)) + ten(spreadOf(between)) +
                    ten(meanOf(found.lengths[i])) + ten(spreadOf(found.lengths[i]));
        }
        text += u'\n';
    }
    return text + QStringLiteral("\n\n");
}

/// @param flavour  0 own, 1 pooled, 2 own and pooled.
inline QString clusterTransitionTable(const DataModel &model, int flavour, int eye, int content)
{
    const TimeFrame frame = model.timeFrame();
    if (flavour == 0) {
        QString text;
        for (const Examination &examination : model.examinations()) {
            const EyeData &stream = streamOf(examination, eye);
            if (examination.checked && !stream.fixationClusters.isEmpty())
                text += quoted(examination.subjectId) + quoted(examination.subjectText) + u'\n' +
                        transitionBlock(transitions({walk(stream.scanpath, frame)}, stream.fixationClusters), content);
        }
        return text;
    }
    const Eye eyes[] = {Eye::Left, Eye::Right, Eye::Dominant, Eye::Mean};
    const EyeData &pool = model.pooled(eyes[eye]);
    Walks walks;
    for (int i = 0; i < model.examinations().size(); ++i) {
        walks.emplace_back();
        for (const Fixation &fixation : pool.scanpath) {
            if (fixation.examination == i && isWithin(fixation, frame))
                walks.back().push_back(&fixation);
        }
    }
    QList<FixationCluster> clusters = pool.fixationClusters;
    for (const Examination &examination : model.examinations()) {
        if (flavour == 2 && examination.checked) {
            clusters << streamOf(examination, eye).fixationClusters;
            walks.push_back(walk(streamOf(examination, eye).scanpath, frame));
        }
    }
    return clusters.isEmpty() ? QString() : transitionBlock(transitions(walks, clusters), content);
}

inline QString areaTransitionTable(const DataModel &model, const std::vector<int> &eyes)
{
    const QList<AreaOfInterest> areas = model.aoiList();
    QMap<std::pair<qsizetype, qsizetype>, double> cells;
    int checked = 0;
    for (const Examination &examination : model.examinations()) {
        if (!examination.checked)
            continue;
        ++checked;
        for (const int eye : eyes) {
            QList<qsizetype> previous;
            for (const Fixation *fixation : walk(streamOf(examination, eye).scanpath, model.timeFrame())) {
                QList<qsizetype> current;
                for (qsizetype i = 0; i < areas.size(); ++i) {
                    if (areas[i].polygon.containsPoint(fixation->mean, Qt::WindingFill))
                        current << i;
                }
                if (current.isEmpty())
                    continue;
                for (const qsizetype from : previous) {
                    for (const qsizetype to : current)
                        cells[{from, to}] += 1.0;
                }
                previous = current;
            }
        }
    }
    QString text = QStringLiteral("NAMES");
    for (const AreaOfInterest &area : areas)
        text += u';' + area.name;
    text += u'\n';
    const double span = double(model.timeFrame().endMs - model.timeFrame().startMs);
    for (qsizetype from = 0; from < areas.size(); ++from) {
        text += areas[from].name;
        for (qsizetype to = 0; to < areas.size(); ++to)
            text += u';' + comma(g(cells.value({from, to}) / checked * (60000.0 / span)));
        text += u'\n';
    }
    return text;
}

inline QString angleStarTable(const DataModel &model, int eye, int bins, int offset)
{
    QString text = QStringLiteral("Number of histogram bins: %1\nOffset angle: %2\n\n\n\n\n").arg(bins).arg(offset);
    const QString titles[] = {QStringLiteral("Quantity: \n"),
                              eye == 0 ? QStringLiteral("Duration(ms): \n") : QStringLiteral("Duration: \n"),
                              eye == 0 ? QStringLiteral("Length(px): \n") : QStringLiteral("Length: \n")};
    for (int block = 0; block < 3; ++block) {
        text += titles[block] + QStringLiteral("Subject ID;Subject INFO;Dominant;");
        for (int bin = 0; bin < bins; ++bin)
            text += QStringLiteral("Angle:%1-%2;").arg(g(bin * 360.0 / bins), g((bin + 1) % bins * 360.0 / bins));
        text += u'\n';
        std::vector<double> sums(size_t(bins), 0.0);
        int rows = 0;
        for (const Examination &examination : model.examinations()) {
            if (!examination.checked)
                continue;
            std::vector<double> counts(size_t(bins), 0.0);
            std::vector<double> values(size_t(bins), 0.0);
            const QList<Fixation> &path = streamOf(examination, eye).scanpath;
            for (qsizetype i = 1; i < path.size(); ++i) {
                const QPoint way = path[i].mean - path[i - 1].mean;
                if (way.isNull() || !isWithin(path[i - 1], model.timeFrame()) || !isWithin(path[i], model.timeFrame()))
                    continue;
                const double length = std::sqrt(double(way.x()) * way.x() + double(way.y()) * way.y());
                const double angle = way.y() / length < 0 ? std::acos(way.x() / length)
                                                          : std::acos(-way.x() / length) + std::numbers::pi;
                const int bin = std::min(int(angle / (2 * std::numbers::pi / bins)), bins - 1);
                counts[size_t(bin)] += 1;
                values[size_t(bin)] +=
                    block == 1 ? double(path[i].samples.first().time - path[i - 1].samples.last().time) : length;
            }
            text += quoted(examination.subjectId) + quoted(examination.subjectText);
            if (eye < 2)
                text += QLatin1StringView(
                    examination.dominantEye == QLatin1StringView(eye == 0 ? "left" : "right") ? "YES;" : "NO;");
            for (size_t bin = 0; bin < size_t(bins); ++bin) {
                const double value = block == 0 ? counts[bin] : counts[bin] > 0 ? values[bin] / counts[bin] : 0.0;
                sums[bin] += value;
                text += comma(g(value)) + u';';
            }
            text += u'\n';
            ++rows;
        }
        text += QStringLiteral("MEAN;;;");
        for (const double sum : sums)
            text += comma(g(sum / rows)) + u';';
        text += u'\n';
    }
    return text;
}

} // namespace plain
