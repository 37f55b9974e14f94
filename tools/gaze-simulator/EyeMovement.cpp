// SPDX-License-Identifier: GPL-3.0-or-later
#include "gaze-simulator/EyeMovement.h"

#include "gaze-simulator/PortableMath.h"
#include "gaze-simulator/SaccadeShape.h"

#include <cmath>

namespace {

constexpr double driftMemoryMs = 100;      // how long the drift keeps its direction
constexpr double returnMs = 500;           // how fast the eye comes back to its target
constexpr double microsaccadeDeg = 0.3;    // mean; Martinez-Conde et al. (2004), Nature Reviews Neuroscience 5
constexpr double microsaccadeSpread = 0.4; // standard deviation of the logarithm
constexpr double microsaccadeAimDeg = 0.2; // deviation from the target that turns a microsaccade back to it
constexpr double landingError = 0.05;      // of the amplitude; standard deviation, each axis

double length(const QPointF &way)
{
    return std::sqrt(QPointF::dotProduct(way, way));
}

} // namespace

EyeMovement::EyeMovement(const SimulationParameters &parameters, const SaliencyMap &map)
    : m_parameters(parameters)
    , m_targets(map, parameters.pixelsPerDegree, parameters.seed)
    , m_scanpath(parameters.seed, RandomSource::Stream::Scanpath)
    , m_movement(parameters.seed, RandomSource::Stream::Movement)
    , m_stepMs(1000 / parameters.rateHz)
    , m_driftKept(portable::exponential(-m_stepMs / driftMemoryMs))
    , m_driftFresh(parameters.driftDegPerS / parameters.rateHz * parameters.pixelsPerDegree *
                   std::sqrt(1 - m_driftKept * m_driftKept))
    , m_returnKept(portable::exponential(-m_stepMs / returnMs))
    , m_anchor(map.canvas.width() / 2.0, map.canvas.height() / 2.0) // as after a fixation cross
{
    startFixation();
}

void EyeMovement::advance(double timeMs)
{
    while (timeMs >= m_eventEndMs) {
        if (m_inSaccade) {
            m_anchor += m_saccade.way;
            m_inSaccade = false;
            startFixation();
        } else {
            startSaccade();
        }
    }
    if (m_inSaccade) {
        m_position = m_anchor + m_saccade.way * saccade::progress((timeMs - m_saccade.startMs) / m_saccade.durationMs);
        return;
    }
    advanceDrift();
    advanceMicrosaccade(timeMs);
    m_position = m_anchor + m_deviation;
}

void EyeMovement::startFixation()
{
    m_deviation = {};
    m_microsaccadeDone = 1;
    m_eventEndMs += m_scanpath.logNormal(m_parameters.fixationMeanMs, m_parameters.fixationSpread);
}

void EyeMovement::startSaccade()
{
    m_anchor += m_deviation;
    const QPointF way = m_targets.next(m_anchor) - m_anchor;
    const double error = landingError * length(way);
    const double errorX = error * m_scanpath.normal();
    const double errorY = error * m_scanpath.normal();
    m_saccade = jump(way + QPointF(errorX, errorY), m_eventEndMs, m_scanpath);
    m_eventEndMs += m_saccade.durationMs;
    m_inSaccade = true;
}

void EyeMovement::advanceDrift()
{
    const double pushX = m_driftFresh * m_movement.normal();
    const double pushY = m_driftFresh * m_movement.normal();
    m_driftStep = m_driftStep * m_driftKept + QPointF(pushX, pushY);
    m_deviation = m_deviation * m_returnKept + m_driftStep;
}

void EyeMovement::advanceMicrosaccade(double timeMs)
{
    if (m_microsaccadeDone >= 1) {
        constexpr double msPerS = 1000;
        if (m_movement.uniform() < m_parameters.microsaccadesPerS * m_stepMs / msPerS)
            startMicrosaccade(timeMs);
        return;
    }
    const double done = saccade::progress((timeMs - m_microsaccade.startMs) / m_microsaccade.durationMs);
    m_deviation += m_microsaccade.way * (done - m_microsaccadeDone);
    m_microsaccadeDone = done;
}

void EyeMovement::startMicrosaccade(double timeMs)
{
    const QPointF back = m_deviation / (microsaccadeAimDeg * m_parameters.pixelsPerDegree);
    const double x = m_movement.normal();
    const double y = m_movement.normal();
    const QPointF direction = QPointF(x, y) - back;
    const double amplitude = m_movement.logNormal(microsaccadeDeg, microsaccadeSpread) * m_parameters.pixelsPerDegree;
    m_microsaccade = jump(direction * (amplitude / length(direction)), timeMs, m_movement);
    m_microsaccadeDone = 0;
}

EyeMovement::Jump EyeMovement::jump(const QPointF &way, double startMs, RandomSource &random) const
{
    const double typicalMs = saccade::durationMs(length(way) / m_parameters.pixelsPerDegree);
    return {way, startMs, random.logNormal(typicalMs, m_parameters.saccadeSpread)};
}
