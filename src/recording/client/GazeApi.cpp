// SPDX-License-Identifier: GPL-3.0-or-later
#include "recording/client/GazeApi.h"

#include "recording/client/Engine.h"
#include "recording/client/Requests.h"

namespace gtl {

GazeApi::GazeApi(Setup setup) : m_engine(std::make_unique<Engine>(std::move(setup))) {}

GazeApi::~GazeApi() = default;

bool GazeApi::connect(bool push)
{
    return m_engine->connect(push, m_engine->setup().port);
}

void GazeApi::disconnect()
{
    m_engine->disconnect();
}

bool GazeApi::isConnected() const
{
    return m_engine->isConnected();
}

void GazeApi::addListener(IGazeListener &listener)
{
    m_engine->Observable<IGazeListener>::add(listener);
}

void GazeApi::addListener(ICalibrationResultListener &listener)
{
    m_engine->Observable<ICalibrationResultListener>::add(listener);
}

void GazeApi::addListener(ITrackerStateListener &listener)
{
    m_engine->Observable<ITrackerStateListener>::add(listener);
}

void GazeApi::addListener(ICalibrationProcessHandler &listener)
{
    m_engine->Observable<ICalibrationProcessHandler>::add(listener);
}

void GazeApi::addListener(IConnectionStateListener &listener)
{
    m_engine->Observable<IConnectionStateListener>::add(listener);
}

void GazeApi::removeListener(IGazeListener &listener)
{
    m_engine->Observable<IGazeListener>::remove(listener);
}

void GazeApi::removeListener(ICalibrationResultListener &listener)
{
    m_engine->Observable<ICalibrationResultListener>::remove(listener);
}

void GazeApi::removeListener(ITrackerStateListener &listener)
{
    m_engine->Observable<ITrackerStateListener>::remove(listener);
}

void GazeApi::removeListener(ICalibrationProcessHandler &listener)
{
    m_engine->Observable<ICalibrationProcessHandler>::remove(listener);
}

void GazeApi::removeListener(IConnectionStateListener &listener)
{
    m_engine->Observable<IConnectionStateListener>::remove(listener);
}

bool GazeApi::calibrationStart(int pointCount)
{
    return m_engine->calibrationStart(pointCount);
}

void GazeApi::calibrationClear()
{
    m_engine->send(requests::calibrationClear);
}

void GazeApi::calibrationPointStart(int x, int y)
{
    m_engine->send(requests::calibrationPointStart(x, y));
}

void GazeApi::calibrationPointEnd()
{
    m_engine->send(requests::calibrationPointEnd);
}

GazeData GazeApi::frame() const
{
    return m_engine->frame();
}

ServerState GazeApi::serverState() const
{
    return m_engine->serverState();
}

Screen GazeApi::screen() const
{
    return m_engine->screen();
}

CalibResult GazeApi::calibration() const
{
    return m_engine->calibration();
}

bool GazeApi::isCalibrated() const
{
    return m_engine->isCalibrated();
}

std::string GazeApi::lastProblem() const
{
    return m_engine->lastProblem();
}

std::chrono::steady_clock::time_point GazeApi::arrival() const
{
    return m_engine->arrival();
}

} // namespace gtl
