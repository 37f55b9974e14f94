// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/bids/BidsTables.h"

#include "export/TidyRows.h"
#include "statistics/GazeEvents.h"

#include <algorithm>
#include <cmath>

namespace {

using namespace Qt::Literals::StringLiterals;

class TabRow {
public:
    explicit TabRow(QByteArray &bytes) : m_bytes(bytes) {}
    ~TabRow() { m_bytes.back() = '\n'; }
    TabRow(const TabRow &) = delete;
    TabRow &operator=(const TabRow &) = delete;

    TabRow &number(double value)
    {
        if (!std::isfinite(value))
            return word("n/a");
        appendNumber(m_bytes, value);
        m_bytes += '\t';
        return *this;
    }
    TabRow &integer(qint64 value)
    {
        appendInteger(m_bytes, value);
        m_bytes += '\t';
        return *this;
    }
    TabRow &word(QByteArrayView text)
    {
        m_bytes.append(text).append('\t');
        return *this;
    }
    TabRow &missing(int fields)
    {
        while (fields-- > 0)
            word("n/a");
        return *this;
    }

private:
    QByteArray &m_bytes;
};

constexpr double GazePoint::*measured[] = {&GazePoint::x, &GazePoint::y, &GazePoint::width, &GazePoint::height};

bool holdsOnly(const GazePoint &sample, double value)
{
    return std::ranges::all_of(measured, [&](auto member) { return sample.*member == value; });
}

void addGazeFields(TabRow &row, const GazePoint &sample, bool isGiven)
{
    for (double GazePoint::*const member : measured) {
        if (isGiven)
            row.number(sample.*member);
        else
            row.missing(1);
    }
}

/// One event of any kind; places that it does not have are missing.
struct TimedEvent {
    qint64 onsetMs;
    qint64 durationMs;
    QByteArrayView type;
    QList<QPoint> places;
    qsizetype samples;
};

} // namespace

BidsTable bidsSamples(const QList<GazePoint> &samples, TimeFrame frame, double missing)
{
    BidsTable table{{}, {u"timestamp"_s, u"x_coordinate"_s, u"y_coordinate"_s, u"pupil_size"_s, u"pupil_height"_s}};
    const bool keepsLost = std::ranges::any_of(samples, [&](const GazePoint &sample) {
        return !sample.validFlag && frame.contains(sample.time) && !holdsOnly(sample, missing);
    });
    if (keepsLost)
        table.columns << u"lost_x"_s << u"lost_y"_s << u"lost_pupil_size"_s << u"lost_pupil_height"_s;
    for (const GazePoint &sample : samples) {
        if (!frame.contains(sample.time))
            continue;
        TabRow row(table.rows);
        row.integer(sample.time);
        addGazeFields(row, sample, sample.validFlag);
        if (keepsLost)
            addGazeFields(row, sample, !sample.validFlag);
    }
    return table;
}

BidsTable bidsEvents(const EyeData &stream, TimeFrame frame)
{
    QList<TimedEvent> events;
    for (const Fixation &fixation : stream.scanpath) {
        if (frame.holds(fixation))
            events << TimedEvent{
                fixation.firstTime(), fixation.duration(), "fixation", {fixation.mean}, fixation.samples.size()};
    }
    for (const GazeStep &step : gazeSteps(stream, frame))
        events << TimedEvent{
            step.onsetMs(), step.durationMs(), "saccade", {step.from->mean, step.to->mean}, std::ssize(step.samples)};
    for (const GazeLoss &loss : gazeLosses(stream.gazePoints, frame))
        events << TimedEvent{loss.onsetMs, loss.durationMs, "loss", {}, loss.samples};
    std::ranges::stable_sort(events, {}, &TimedEvent::onsetMs);
    BidsTable table{{},
                    {u"onset"_s, u"duration"_s, u"trial_type"_s, u"x_coordinate"_s, u"y_coordinate"_s,
                     u"end_x_coordinate"_s, u"end_y_coordinate"_s, u"samples"_s}};
    constexpr int mostPlaces = 2;
    for (const TimedEvent &event : std::as_const(events)) {
        TabRow row(table.rows);
        row.integer(event.onsetMs).integer(event.durationMs).word(event.type);
        for (const QPoint place : event.places)
            row.integer(place.x()).integer(place.y());
        row.missing(2 * (mostPlaces - static_cast<int>(event.places.size()))).integer(event.samples);
    }
    return table;
}

double measuredRateHz(const QList<GazePoint> &samples, TimeFrame frame)
{
    constexpr qint64 longestStepMs = 100; // longer ones are gaps
    constexpr double msPerSecond = 1000;
    qint64 steps = 0;
    qint64 sumMs = 0;
    for (qsizetype i = 1; i < samples.size(); ++i) {
        if (!frame.contains(samples[i - 1].time) || !frame.contains(samples[i].time))
            continue;
        const qint64 stepMs = elapsedMs(samples[i - 1].time, samples[i].time);
        if (stepMs < 0 || stepMs > longestStepMs)
            continue;
        ++steps;
        sumMs += stepMs;
    }
    return sumMs > 0 ? msPerSecond * static_cast<double>(steps) / static_cast<double>(sumMs) : 0;
}
