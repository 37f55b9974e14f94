// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/TidyKinds.h"

#include "export/TidyRows.h"
#include "statistics/GazeEvents.h"

#include <map>
#include <numbers>

namespace {

using Text = QLatin1StringView;

/// As `tidyLead` names them.
QStringList leadOf(const ExportedStream &stream, const TidyContext &context)
{
    const Examination &examination = *stream.examination;
    return {examination.baseName, examination.subjectId, groupOf(examination, context.groupColumn),
            examination.imageName, eyeWord(stream.eye)};
}

/// In which cluster the fixations of a stream lie. The numbers that they bear themselves depend on the method; these
/// are the same in all tidy tables: from 1 in the order in which the clusters were made, 0 for none.
class ClusterNumbers {
public:
    explicit ClusterNumbers(const EyeData &stream)
    {
        for (const FixationCluster &cluster : stream.fixationClusters) {
            for (const Fixation &fixation : cluster.fixations)
                m_numbers.emplace(keyOf(fixation), numberOf(cluster));
        }
    }

    static int numberOf(const FixationCluster &cluster) { return cluster.number + 1; }

    int operator[](const Fixation &fixation) const
    {
        const auto found = m_numbers.find(keyOf(fixation));
        return found == m_numbers.end() ? 0 : found->second;
    }

private:
    using Key = std::pair<int, qint64>;
    static Key keyOf(const Fixation &fixation) { return {fixation.number, fixation.firstTime()}; }

    std::map<Key, int> m_numbers;
};

/// Names of the areas that have the position, with ";" in between.
QString areasAt(QPoint position, const TidyContext &context)
{
    QStringList names;
    for (qsizetype i = 0; i < context.index.size(); ++i) {
        if (context.index[i].winding.contains(position))
            names << context.areas[i].name;
    }
    return names.join(u';');
}

std::optional<double> angleOf(std::optional<double> distancePx, const TidyContext &context)
{
    if (!distancePx || !context.pixelPerDistance)
        return std::nullopt;
    return visualAngleDegree(*distancePx, *context.pixelPerDistance);
}

void addPlace(TidyRows &rows, QPoint place)
{
    rows.addInteger(place.x());
    rows.addInteger(place.y());
}

void addSpeed(TidyRows &rows, std::span<const GazePoint> samples, const TidyContext &context)
{
    const GazeSpeed speed = gazeSpeed(samples, context.pixelPerDistance);
    for (const std::optional<double> value :
         {speed.meanPxPerS, speed.peakPxPerS, speed.meanDegreesPerS, speed.peakDegreesPerS})
        rows.addNumber(value);
}

void addAxes(TidyRows &rows, const ScanpathSection &section)
{
    const auto majorPx = static_cast<double>(section.majorAxis.length());
    const auto minorPx = static_cast<double>(section.minorAxis.length());
    rows.addNumber(majorPx);
    rows.addNumber(minorPx);
    rows.addNumber(std::numbers::pi * majorPx * minorPx);
}

/// Of the valid samples.
void addMeans(TidyRows &rows, std::span<const GazePoint> samples, std::initializer_list<double GazePoint::*> members)
{
    for (double GazePoint::*const member : members) {
        double sum = 0;
        double count = 0;
        for (const GazePoint &sample : samples) {
            sum += sample.validFlag ? sample.*member : 0;
            count += sample.validFlag ? 1 : 0;
        }
        rows.addNumber(count > 0 ? std::optional(sum / count) : std::nullopt);
    }
}

// ---- a row for each

constexpr Text fixationColumns("fixation,onset_ms,duration_ms,samples,x_px,y_px,mean_x_px,mean_y_px,dispersion_px,"
                               "dispersion_deg,major_axis_px,minor_axis_px,area_px2,mean_velocity_px_per_s,"
                               "peak_velocity_px_per_s,mean_velocity_deg_per_s,peak_velocity_deg_per_s,pupil_width,"
                               "pupil_height,aois,cluster");

QByteArray fixationRows(const ExportedStream &stream, const TidyContext &context)
{
    TidyRows rows(leadOf(stream, context));
    const ClusterNumbers clusters(stream.data());
    for (int number = 0; const Fixation &fixation : stream.data().scanpath) {
        ++number;
        if (!context.frame.holds(fixation))
            continue;
        const std::optional<double> dispersion = dispersionPx(fixation.samples);
        rows.beginRow();
        rows.addInteger(number);
        rows.addInteger(fixation.firstTime());
        rows.addInteger(fixation.duration());
        rows.addInteger(fixation.samples.size());
        addPlace(rows, fixation.mean);
        addMeans(rows, fixation.samples, {&GazePoint::x, &GazePoint::y});
        rows.addNumber(dispersion);
        rows.addNumber(angleOf(dispersion, context));
        addAxes(rows, fixation);
        addSpeed(rows, fixation.samples, context);
        addMeans(rows, fixation.samples, {&GazePoint::width, &GazePoint::height});
        rows.addText(areasAt(fixation.mean, context));
        rows.addInteger(clusters[fixation]);
        rows.endRow();
    }
    return rows.bytes();
}

constexpr Text saccadeColumns("saccade,from_fixation,to_fixation,onset_ms,duration_ms,samples,invalid_samples,x_px,"
                              "y_px,end_x_px,end_y_px,amplitude_px,amplitude_deg,direction_deg,mean_velocity_px_per_s,"
                              "peak_velocity_px_per_s,mean_velocity_deg_per_s,peak_velocity_deg_per_s,aois,end_aois,"
                              "cluster,end_cluster");

QByteArray saccadeRows(const ExportedStream &stream, const TidyContext &context)
{
    TidyRows rows(leadOf(stream, context));
    const EyeData &data = stream.data();
    const ClusterNumbers clusters(data);
    for (int number = 0; const GazeStep &step : gazeSteps(data, context.frame)) {
        const auto invalid = std::count_if(step.samples.begin(), step.samples.end(),
                                           [](const GazePoint &sample) { return !sample.validFlag; });
        rows.beginRow();
        rows.addInteger(++number);
        rows.addInteger(step.from - data.scanpath.constData() + 1);
        rows.addInteger(step.to - data.scanpath.constData() + 1);
        rows.addInteger(step.onsetMs());
        rows.addInteger(step.durationMs());
        rows.addInteger(std::ssize(step.samples));
        rows.addInteger(invalid);
        addPlace(rows, step.from->mean);
        addPlace(rows, step.to->mean);
        rows.addNumber(step.amplitudePx());
        rows.addNumber(angleOf(step.amplitudePx(), context));
        rows.addNumber(step.directionDegree());
        addSpeed(rows, step.samples, context);
        rows.addText(areasAt(step.from->mean, context));
        rows.addText(areasAt(step.to->mean, context));
        rows.addInteger(clusters[*step.from]);
        rows.addInteger(clusters[*step.to]);
        rows.endRow();
    }
    return rows.bytes();
}

constexpr Text lossColumns("loss,onset_ms,duration_ms,samples,until_end");

QByteArray lossRows(const ExportedStream &stream, const TidyContext &context)
{
    TidyRows rows(leadOf(stream, context));
    for (int number = 0; const GazeLoss &loss : gazeLosses(stream.data().gazePoints, context.frame)) {
        rows.beginRow();
        rows.addInteger(++number);
        rows.addInteger(loss.onsetMs);
        rows.addInteger(loss.durationMs);
        rows.addInteger(loss.samples);
        rows.addInteger(loss.isOpen ? 1 : 0);
        rows.endRow();
    }
    return rows.bytes();
}

constexpr Text clusterColumns("cluster,onset_ms,duration_ms,dwell_ms,fixations,samples,x_px,y_px,dispersion_px,"
                              "dispersion_deg,major_axis_px,minor_axis_px,area_px2,aois");

QByteArray clusterRows(const ExportedStream &stream, const TidyContext &context)
{
    TidyRows rows(leadOf(stream, context));
    std::map<int, const FixationCluster *> byNumber;
    for (const FixationCluster &cluster : stream.data().fixationClusters) {
        if (context.frame.holds(cluster))
            byNumber.emplace(ClusterNumbers::numberOf(cluster), &cluster);
    }
    for (const auto &[number, cluster] : byNumber) {
        const std::optional<double> dispersion = dispersionPx(cluster->samples);
        qint64 dwellMs = 0;
        for (const Fixation &fixation : cluster->fixations)
            dwellMs += fixation.duration();
        rows.beginRow();
        rows.addInteger(number);
        rows.addInteger(cluster->firstTime());
        rows.addInteger(cluster->duration());
        rows.addInteger(dwellMs);
        rows.addInteger(cluster->fixations.size());
        rows.addInteger(cluster->samples.size());
        addPlace(rows, cluster->mean);
        rows.addNumber(dispersion);
        rows.addNumber(angleOf(dispersion, context));
        addAxes(rows, *cluster);
        rows.addText(areasAt(cluster->mean, context));
        rows.endRow();
    }
    return rows.bytes();
}

constexpr Text visitColumns("aoi,visit,onset_ms,duration_ms,dwell_ms,fixations,x_px,y_px,area_px2");

QByteArray visitRows(const ExportedStream &stream, const TidyContext &context)
{
    TidyRows rows(leadOf(stream, context));
    for (qsizetype i = 0; i < context.areas.size(); ++i) {
        const AreaOfInterest &area = context.areas[i];
        for (int number = 0;
             const AoiVisit &visit : visitsOfArea(context.index[i], stream.data().scanpath, context.frame)) {
            rows.beginRow();
            rows.addText(area.name);
            rows.addInteger(++number);
            rows.addInteger(visit.onsetMs);
            rows.addInteger(visit.durationMs);
            rows.addInteger(visit.dwellMs);
            rows.addInteger(visit.fixations);
            addPlace(rows, area.centroid());
            rows.addNumber(static_cast<double>(area.area()));
            rows.endRow();
        }
    }
    return rows.bytes();
}

// ---- samples

constexpr Text sampleColumns("onset_ms,x_px,y_px,pupil_width,pupil_height,valid,velocity_px_per_s,velocity_deg_per_s,"
                             "event,fixation,aois,cluster");

/// The fixation to which each sample belongs, when it is asked for one sample after the other.
class FixationWalk {
public:
    FixationWalk(const EyeData &stream, TimeFrame frame) : m_stream(stream)
    {
        for (const Fixation &fixation : stream.scanpath) {
            if (frame.holds(fixation))
                m_fixations << &fixation;
        }
    }

    /// Takes the next sample.
    void goTo(qint64 timeMs)
    {
        while (m_next < m_fixations.size() && m_fixations[m_next]->lastTime() < timeMs)
            ++m_next;
        m_isInside = m_next < m_fixations.size() && m_fixations[m_next]->firstTime() <= timeMs;
    }

    /// Null between fixations.
    const Fixation *fixation() const { return m_isInside ? m_fixations[m_next] : nullptr; }
    int number() const
    {
        return m_isInside ? static_cast<int>(m_fixations[m_next] - m_stream.scanpath.constData()) + 1 : 0;
    }
    bool isBetween() const { return !m_isInside && m_next > 0 && m_next < m_fixations.size(); }

private:
    const EyeData &m_stream;
    QList<const Fixation *> m_fixations;
    qsizetype m_next = 0; ///< the one that is under way or awaited
    bool m_isInside = false;
};

Text eventOf(const GazePoint &sample, const FixationWalk &walk)
{
    if (walk.fixation())
        return Text("fixation");
    if (!sample.validFlag)
        return Text("loss");
    return walk.isBetween() ? Text("saccade") : Text();
}

void addMeasured(TidyRows &rows, const GazePoint &sample)
{
    for (const double value : {sample.x, sample.y, sample.width, sample.height})
        rows.addNumber(sample.validFlag ? std::optional(value) : std::nullopt);
    rows.addInteger(sample.validFlag ? 1 : 0);
}

QByteArray sampleRows(const ExportedStream &stream, const TidyContext &context)
{
    TidyRows rows(leadOf(stream, context));
    const EyeData &data = stream.data();
    const ClusterNumbers clusters(data);
    FixationWalk walk(data, context.frame);
    std::span<const GazePoint> pair;
    for (qsizetype i = 0; i < data.gazePoints.size(); ++i) {
        const GazePoint &sample = data.gazePoints[i];
        if (!context.frame.contains(sample.time))
            continue;
        walk.goTo(sample.time);
        pair = i > 0 ? std::span(&sample - 1, 2) : std::span<const GazePoint>();
        const GazeSpeed speed = gazeSpeed(pair, context.pixelPerDistance);
        rows.beginRow();
        rows.addInteger(sample.time);
        addMeasured(rows, sample);
        rows.addNumber(speed.peakPxPerS);
        rows.addNumber(speed.peakDegreesPerS);
        rows.addWord(eventOf(sample, walk));
        rows.addInteger(walk.number());
        rows.addText(sample.validFlag ? areasAt(AoiIndex::pixelOf(sample.x, sample.y), context) : QString());
        rows.addInteger(walk.fixation() ? clusters[*walk.fixation()] : 0);
        rows.endRow();
    }
    return rows.bytes();
}

constexpr TidyKind events[] = {
    {Text("fixations"), fixationColumns, fixationRows},
    {Text("saccades"), saccadeColumns, saccadeRows},
    {Text("losses"), lossColumns, lossRows},
    {Text("clusters"), clusterColumns, clusterRows},
    {Text("aois"), visitColumns, visitRows},
};

constexpr TidyKind samples{Text("samples"), sampleColumns, sampleRows};

} // namespace

QLatin1StringView tidyLead()
{
    return Text("recording,subject,group,image,eye");
}

std::span<const TidyKind> tidyEvents()
{
    return events;
}

const TidyKind &tidySamples()
{
    return samples;
}
