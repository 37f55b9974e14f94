// SPDX-License-Identifier: GPL-3.0-or-later
#include "statistics/AoiVisits.h"

#include "statistics/Quotient.h"

namespace {

using V = AoiVisits;
using Text = QLatin1StringView;
using Value = std::optional<double>;

template <auto Member>
Value visitValue(const V &visits)
{
    const Value value = std::optional(visits.*Member);
    return value;
}

constexpr Measure<V> measures[] = {
    {Text("visits"), visitValue<&V::visits>},
    {Text("revisits"), [](const V &v) -> Value { return std::max(0, v.visits - 1); }},
    {Text("time_to_first_fixation_ms"), visitValue<&V::firstFixationMs>},
    {Text("first_fixation_duration_ms"), visitValue<&V::firstFixationDurationMs>},
    {Text("dwell_time_ms"), visitValue<&V::dwellMs>},
    {Text("dwell_time_share"), [](const V &v) { return quotientOrNone(double(v.dwellMs), double(v.allFixationsMs)); }},
    {Text("fixations"), visitValue<&V::fixations>},
    {Text("mean_fixation_duration_ms"), [](const V &v) { return quotientOrNone(double(v.dwellMs), v.fixations); }},
    {Text("mean_visit_duration_ms"), [](const V &v) { return quotientOrNone(double(v.visitMs), v.visits); }},
    {Text("hit_samples"), visitValue<&V::hitSamples>},
    {Text("hit_sample_share"), [](const V &v) { return quotientOrNone(v.hitSamples, v.validSamples); }},
    {Text("saccades_into"), visitValue<&V::saccadesInto>},
    {Text("saccades_out_of"), visitValue<&V::saccadesOutOf>},
};

/// The fixations of the frame, one after the other, as one area sees them.
class VisitWalk {
public:
    explicit VisitWalk(V &visits, TimeFrame frame) : m_visits(visits), m_frame(frame) {}

    void take(const Fixation &fixation, bool inside)
    {
        m_visits.allFixationsMs += fixation.duration();
        if (inside)
            takeInside(fixation);
        else if (m_isInside)
            ++m_visits.saccadesOutOf;
        m_isInside = inside;
        m_isFirst = false;
    }

private:
    void takeInside(const Fixation &fixation)
    {
        if (m_visits.fixations++ == 0) {
            m_visits.firstFixationMs = elapsedMs(m_frame.startMs, fixation.firstTime());
            m_visits.firstFixationDurationMs = fixation.duration();
        }
        m_visits.dwellMs += fixation.duration();
        if (m_isInside) {
            m_visits.visitMs += elapsedMs(m_lastMs, fixation.lastTime());
        } else {
            ++m_visits.visits;
            m_visits.saccadesInto += m_isFirst ? 0 : 1;
            m_visits.visitMs += fixation.duration();
        }
        m_lastMs = fixation.lastTime();
    }

    V &m_visits;
    TimeFrame m_frame;
    bool m_isFirst = true; ///< no fixation has come yet
    bool m_isInside = false;
    qint64 m_lastMs = 0; ///< end of the last fixation inside
};

} // namespace

QList<AoiVisits> aoiVisits(const EyeData &stream, const AoiIndex &index, TimeFrame frame)
{
    QList<AoiVisits> all(index.size());
    std::vector<VisitWalk> walks;
    for (AoiVisits &each : all)
        walks.emplace_back(each, frame);
    for (const Fixation &fixation : stream.scanpath) {
        if (!frame.holds(fixation))
            continue;
        for (qsizetype i = 0; i < index.size(); ++i)
            walks[static_cast<size_t>(i)].take(fixation, index[i].winding.contains(fixation.mean));
    }
    int validSamples = 0;
    for (const GazePoint &sample : stream.gazePoints) {
        if (!sample.validFlag || !frame.contains(sample.time))
            continue;
        ++validSamples;
        const QPoint pixel = AoiIndex::pixelOf(sample.x, sample.y);
        for (qsizetype i = 0; i < index.size(); ++i)
            all[i].hitSamples += index[i].winding.contains(pixel) ? 1 : 0;
    }
    for (AoiVisits &each : all)
        each.validSamples = validSamples;
    return all;
}

std::span<const Measure<AoiVisits>> aoiVisitMeasures()
{
    return measures;
}
