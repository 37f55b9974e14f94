// SPDX-License-Identifier: GPL-3.0-or-later
#include "gaze-simulator/SimulatedEye.h"

#include "gaze-simulator/PortableMath.h"

#include <cmath>
#include <numbers>

namespace {

constexpr double tremorHz = 90;       // Martinez-Conde et al. (2004), Nature Reviews Neuroscience 5
constexpr double tremorMemoryMs = 20; // how long an oscillation keeps its phase
constexpr double wanderMs = 3000;
constexpr double wanderPart = 0.1; // of the constant offset; standard deviation, each axis
constexpr double lidPullDeg = 3;
constexpr double lidFlattening = 0.8;   // part of the pupil's height that a shut lid hides before the eye is lost
constexpr double pupilRoundness = 0.97; // height over width
constexpr double pupilNoisePx = 0.08;

double distanceOf(const QPointF &way)
{
    return std::sqrt(QPointF::dotProduct(way, way));
}

QPointF normalPoint(RandomSource &random)
{
    const double x = random.normal();
    const double y = random.normal();
    return {x, y};
}

} // namespace

SimulatedEye::SimulatedEye(const SimulationParameters &parameters, const QPointF &offset, RandomSource::Stream stream)
    : m_random(parameters.seed, stream)
    , m_offset(offset)
    , m_tremor(tremorOf(parameters))
    , m_wanderKept(portable::exponential(-1000 / parameters.rateHz / wanderMs))
    , m_wanderFresh(wanderPart * distanceOf(offset) * std::sqrt(1 - m_wanderKept * m_wanderKept))
    , m_noise(parameters.noiseDeg * parameters.pixelsPerDegree)
    , m_lidPull(lidPullDeg * parameters.pixelsPerDegree)
{
}

SimulatedEye::Tremor SimulatedEye::tremorOf(const SimulationParameters &parameters)
{
    const double size = parameters.tremorDeg * parameters.pixelsPerDegree;
    const double turn = 2 * std::numbers::pi * tremorHz / parameters.rateHz; // radians per sample
    Tremor tremor;
    tremor.fresh = size;
    if (turn > std::numbers::pi)
        return tremor; // sampled too slowly to show as an oscillation
    const double kept = portable::exponential(-1000 / parameters.rateHz / tremorMemoryMs);
    tremor.first = 2 * kept * portable::cosine(turn);
    tremor.second = -kept * kept;
    // the variance of such a process: Box & Jenkins, Time Series Analysis, section 3.2
    const double opposite = 1 - tremor.second;
    tremor.fresh =
        size * std::sqrt((1 + tremor.second) * (opposite * opposite - tremor.first * tremor.first) / opposite);
    return tremor;
}

QPointF SimulatedEye::Tremor::next(RandomSource &random)
{
    const QPointF now = first * last + second * before + fresh * normalPoint(random);
    before = last;
    last = now;
    return now;
}

EyeSample SimulatedEye::next(const QPointF &gaze, double pupil, double lidClosed)
{
    m_wander = m_wander * m_wanderKept + m_wanderFresh * normalPoint(m_random);
    const QPointF pull(0, m_lidPull * lidClosed * lidClosed);
    const QPointF tremor = m_tremor.next(m_random);
    const QPointF noise = m_noise * normalPoint(m_random);
    const double width = pupil + pupilNoisePx * m_random.normal();
    const double height = width * pupilRoundness * (1 - lidFlattening * lidClosed);
    return {gaze + m_offset + m_wander + pull + tremor + noise, width, height, true};
}
