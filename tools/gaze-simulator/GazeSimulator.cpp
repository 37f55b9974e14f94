// SPDX-License-Identifier: GPL-3.0-or-later
#include "gaze-simulator/GazeSimulator.h"

#include "gaze-simulator/PortableMath.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double msPerS = 1000;
constexpr double blinkSpread = 0.3; // standard deviation of the logarithm of the duration
constexpr double lossSpread = 0.6;
constexpr double leastBlinkPauseMs = 100;
constexpr double bothEyesLost = 0.6; // part of the losses; the others take one eye
constexpr double leftEyeLost = 0.8;  // up to here the left one
constexpr double pupilChangeMs = 2000;
constexpr double pupilChangePart = 0.05;   // of the mean width; standard deviation
constexpr double verticalOffsetPart = 0.2; // of the horizontal distance between the two eyes' gaze

QPointF halfOffset(const SimulationParameters &parameters)
{
    const double horizontal = parameters.eyeOffsetDeg * parameters.pixelsPerDegree / 2;
    return {horizontal, horizontal * verticalOffsetPart};
}

qint64 rounded(double value)
{
    return static_cast<qint64>(std::floor(value + 0.5));
}

} // namespace

GazeSimulator::GazeSimulator(const SimulationParameters &parameters, const SaliencyMap &map)
    : m_parameters(parameters)
    , m_movement(parameters, map)
    , m_left(parameters, -halfOffset(parameters), RandomSource::Stream::LeftEye)
    , m_right(parameters, halfOffset(parameters), RandomSource::Stream::RightEye)
    , m_blinks({parameters.blinksPerMin, parameters.blinkMeanMs, blinkSpread,
                2 * parameters.lidArtefactMs + leastBlinkPauseMs},
               parameters.seed, RandomSource::Stream::Blinks)
    , m_losses({parameters.lossesPerMin, parameters.lossMeanMs, lossSpread, 0}, parameters.seed,
               RandomSource::Stream::Losses)
    , m_pupilRandom(parameters.seed, RandomSource::Stream::Pupil)
    , m_pupilKept(portable::exponential(-msPerS / parameters.rateHz / pupilChangeMs))
    , m_pupilFresh(pupilChangePart * parameters.pupilPx * std::sqrt(1 - m_pupilKept * m_pupilKept))
    , m_sampleCount(rounded(parameters.durationS * parameters.rateHz))
{
}

SimulatedSample GazeSimulator::next()
{
    const double timeMs = msPerS * static_cast<double>(m_index++) / m_parameters.rateHz;
    m_movement.advance(timeMs);
    m_blinks.advance(timeMs);
    m_losses.advance(timeMs);
    const double lid = lidClosed(timeMs);
    const double pupil = nextPupil();
    SimulatedSample sample;
    sample.timeMs = m_parameters.clockStartMs + rounded(timeMs);
    sample.left = m_left.next(m_movement.position(), pupil, lid);
    sample.right = m_right.next(m_movement.position(), pupil, lid);
    applyLosses(sample, timeMs);
    sample.label = labelOf(sample, timeMs);
    return sample;
}

double GazeSimulator::lidClosed(double timeMs) const
{
    const double distanceMs = std::max(m_blinks.startMs() - timeMs, timeMs - m_blinks.endMs());
    if (distanceMs >= m_parameters.lidArtefactMs)
        return 0;
    return 1 - std::max(distanceMs, 0.0) / m_parameters.lidArtefactMs;
}

double GazeSimulator::nextPupil()
{
    m_pupilChange = m_pupilChange * m_pupilKept + m_pupilFresh * m_pupilRandom.normal();
    return std::max(m_parameters.pupilPx + m_pupilChange, m_parameters.pupilPx / 2);
}

void GazeSimulator::applyLosses(SimulatedSample &sample, double timeMs) const
{
    const bool blink = m_blinks.isOn(timeMs);
    const bool loss = m_losses.isOn(timeMs);
    const bool twoEyes = m_parameters.eyes == RecordedEyes::Both;
    const bool both = blink || (loss && (!twoEyes || m_losses.mark() < bothEyesLost));
    const bool left = both || (loss && m_losses.mark() < leftEyeLost);
    const bool right = both || (loss && m_losses.mark() >= leftEyeLost);
    if (left || m_parameters.eyes == RecordedEyes::Right)
        sample.left = {};
    if (right || m_parameters.eyes == RecordedEyes::Left)
        sample.right = {};
}

EventLabel GazeSimulator::labelOf(const SimulatedSample &sample, double timeMs) const
{
    if (m_blinks.isOn(timeMs) || lidClosed(timeMs) > 0)
        return EventLabel::Blink;
    if (!sample.left.valid && !sample.right.valid)
        return EventLabel::Undefined;
    return m_movement.inSaccade() ? EventLabel::Saccade : EventLabel::Fixation;
}

QList<SimulatedSample> simulate(const SimulationParameters &parameters, const SaliencyMap &map)
{
    GazeSimulator simulator(parameters, map);
    QList<SimulatedSample> samples;
    samples.reserve(simulator.sampleCount());
    for (qint64 i = 0; i < simulator.sampleCount(); ++i)
        samples.append(simulator.next());
    return samples;
}
