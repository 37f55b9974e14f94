// SPDX-License-Identifier: GPL-3.0-or-later
#include "recording/client/Engine.h"

#include "recording/client/Requests.h"

#include <boost/property_tree/ptree.hpp>

#include <utility>

namespace gtl {

using Lock = boost::unique_lock<boost::mutex>;

namespace {

constexpr int greatestLoggedDrops = 100; ///< per connection: a flood must not fill the disk
constexpr std::size_t shownBytes = 80;   ///< of a dropped message

} // namespace

GazeApi::Engine::Engine(Setup setup) : m_setup(std::move(setup)), m_socket(m_setup.log, m_setup.debug)
{
    m_socket.add(*this);
    m_heart.add(*this);
}

GazeApi::Engine::~Engine()
{
    disconnect();
}

// ---- connection

bool GazeApi::Engine::connect(bool push, const std::string &port)
{
    Releases before = 0;
    {
        const Lock lifecycle(m_lifecycle);
        if (isConnected())
            return false;
        m_heart.stop();
        m_heart.join();
        if (!m_socket.open(port))
            return false;
        before = resetRecords();
        m_heart.start();
        send(requests::protocolVersion);
        send(requests::pushMode(push ? requests::Push::On : requests::Push::Off));
        m_socket.start([this] {
            tell<IConnectionStateListener>([](IConnectionStateListener &it) { it.onConnectionStateChanged(true); });
        });
    }
    clear(FullState);
    send(requests::fullState);
    waitFor(FullState, before, "connect");
    return isConnected();
}

GazeApi::Engine::Releases GazeApi::Engine::resetRecords()
{
    {
        const Lock lock(m_frameMutex);
        m_frame = {};
    }
    {
        const Lock lock(m_serverMutex);
        m_server = {};
    }
    {
        const Lock lock(m_screenMutex);
        m_screen = {};
    }
    {
        const Lock lock(m_calibrationMutex);
        m_calibration = {};
        m_isCalibrated = false;
    }
    resetCounts();
    const Lock lock(m_syncMutex);
    m_connected = true;
    m_syncFlags = 0;
    m_problem.clear();
    m_loggedDrops = 0;
    return m_releases;
}

/// From within a listener's call nobody may wait for the thread of the socket, nor for whoever waits for it.
void GazeApi::Engine::disconnect() noexcept
{
    try {
        release("disconnected");
        m_heart.stop();
        if (m_socket.isOwnThread()) {
            m_socket.close();
            return;
        }
        const Lock lifecycle(m_lifecycle);
        m_heart.stop();
        m_socket.close();
        m_heart.join();
    } catch (const boost::thread_exception &) {
        // Neither thread waits for itself here, and whatever else refuses to be joined has ended already.
    }
}

void GazeApi::Engine::onDisconnected()
{
    release("the connection to the server was lost");
    m_heart.stop();
    tell<IConnectionStateListener>([](IConnectionStateListener &it) { it.onConnectionStateChanged(false); });
}

bool GazeApi::Engine::isConnected() const
{
    const Lock lock(m_syncMutex);
    return m_connected;
}

void GazeApi::Engine::send(std::string request)
{
    if (isConnected())
        m_socket.send(std::move(request));
}

void GazeApi::Engine::onBeat()
{
    send(requests::heartbeat);
}

// ---- waiting

GazeApi::Engine::Releases GazeApi::Engine::clear(SyncFlag flag)
{
    const Lock lock(m_syncMutex);
    m_syncFlags &= static_cast<unsigned char>(~flag);
    return m_releases;
}

/// An answer takes back the error before it.
void GazeApi::Engine::set(SyncFlag flag)
{
    const Lock lock(m_syncMutex);
    m_syncFlags &= static_cast<unsigned char>(~ErrorReply);
    m_syncFlags |= flag;
    m_answered.notify_all();
}

/// Counted, too: a frame that comes before the waiting thread has woken up takes the flag back.
void GazeApi::Engine::setError(const std::string &reason)
{
    const Lock lock(m_syncMutex);
    m_syncFlags |= ErrorReply;
    m_releaseReason = reason;
    ++m_releases;
    m_answered.notify_all();
}

void GazeApi::Engine::release(const std::string &reason)
{
    const Lock lock(m_syncMutex);
    if (!std::exchange(m_connected, false))
        return;
    m_releaseReason = reason;
    ++m_releases;
    m_answered.notify_all();
}

/// Returns whether the answer came and no error with it.
bool GazeApi::Engine::waitFor(SyncFlag flag, Releases before, const char *call)
{
    Lock lock(m_syncMutex);
    const auto deadline = boost::chrono::steady_clock::now() + boost::chrono::milliseconds(m_setup.longestWait.count());
    const bool isOver = m_answered.wait_until(lock, deadline, [this, flag, before] {
        return (m_syncFlags & (flag | ErrorReply)) != 0 || m_releases != before;
    });
    const bool isAnswered = (m_syncFlags & flag) != 0 && (m_syncFlags & ErrorReply) == 0;
    m_problem.clear();
    if (!isAnswered)
        m_problem = std::string(call) + ": " + (isOver ? m_releaseReason : "the server did not answer in time");
    return isAnswered;
}

std::string GazeApi::Engine::lastProblem() const
{
    const Lock lock(m_syncMutex);
    return m_problem;
}

bool GazeApi::Engine::calibrationStart(int pointCount)
{
    const Releases before = clear(CalibrationStarted);
    {
        const Lock lock(m_calibrationMutex);
        m_expectedPoints = pointCount;
        m_finishedPoints = 0;
    }
    send(requests::calibrationStart(pointCount));
    return waitFor(CalibrationStarted, before, "calibration start");
}

// ---- what the server told last

GazeData GazeApi::Engine::frame() const
{
    const Lock lock(m_frameMutex);
    return m_frame;
}

ServerState GazeApi::Engine::serverState() const
{
    const Lock lock(m_serverMutex);
    return m_server;
}

Screen GazeApi::Engine::screen() const
{
    const Lock lock(m_screenMutex);
    return m_screen;
}

CalibResult GazeApi::Engine::calibration() const
{
    const Lock lock(m_calibrationMutex);
    return m_calibration;
}

bool GazeApi::Engine::isCalibrated() const
{
    const Lock lock(m_calibrationMutex);
    return m_isCalibrated;
}

// ---- dispatch

void GazeApi::Engine::drop(const char *reason, const std::string &text)
{
    {
        const Lock lock(m_syncMutex);
        if (++m_loggedDrops > greatestLoggedDrops)
            return;
    }
    if (m_setup.log)
        m_setup.log("TrackerClient: message dropped: " + std::string(reason) + ": " + text.substr(0, shownBytes));
}

void GazeApi::Engine::onMessage(const std::string &text)
{
    const auto message = replies::parse(text);
    if (!message) {
        drop("no JSON, or nested too deep", text);
        return;
    }
    constexpr int ok = 200;
    constexpr int calibrationChanged = 800;
    constexpr int displayChanged = 801;
    constexpr int trackerStateChanged = 802;
    const auto status = replies::numberAt(*message, "statuscode");
    if (message->find("category") == message->not_found() || !status)
        return;
    if (*status == ok)
        dispatch(*message);
    else if (*status == calibrationChanged)
        send(requests::calibrationState);
    else if (*status == displayChanged)
        send(requests::screenValues);
    else if (*status == trackerStateChanged)
        send(requests::trackerState);
    else
        setError("the server answered with status " + std::to_string(*status));
}

void GazeApi::Engine::dispatch(const Tree &message)
{
    const std::string category = replies::textAt(message, "category");
    if (category == "calibration") {
        dispatchCalibration(message);
    } else if (category == "tracker" && replies::textAt(message, "request") == "get") {
        const auto values = message.find("values");
        if (values != message.not_found())
            dispatchTracker(values->second);
    }
}

void GazeApi::Engine::dispatchCalibration(const Tree &message)
{
    const std::string request = replies::textAt(message, "request");
    if (request == "start") {
        set(CalibrationStarted);
        tell<ICalibrationProcessHandler>([](ICalibrationProcessHandler &it) { it.onCalibrationStarted(); });
    } else if (request == "pointend") {
        finishPoint(message);
    } else if (request == "abort") {
        resetCounts();
    } else if (request == "clear") {
        {
            const Lock lock(m_calibrationMutex);
            m_calibration = {};
            m_isCalibrated = false;
        }
        const Lock lock(m_syncMutex);
        m_answered.notify_all();
    }
}

void GazeApi::Engine::resetCounts()
{
    const Lock lock(m_calibrationMutex);
    m_expectedPoints = 0;
    m_finishedPoints = 0;
}

void GazeApi::Engine::finishPoint(const Tree &message)
{
    double progress = 0;
    {
        const Lock lock(m_calibrationMutex);
        ++m_finishedPoints;
        if (m_expectedPoints != 0)
            progress = static_cast<double>(m_finishedPoints) / m_expectedPoints;
    }
    tell<ICalibrationProcessHandler>(
        [progress](ICalibrationProcessHandler &it) { it.onCalibrationProgress(progress); });
    const auto values = message.find("values");
    if (values == message.not_found())
        return;
    const auto result = values->second.find("calibresult");
    if (result != values->second.not_found())
        finishCalibration(result->second);
}

/// A result that failed is told, but the one before it stays in force.
bool GazeApi::Engine::storeCalibration(const Tree &tree, CalibResult &result)
{
    const Lock lock(m_calibrationMutex);
    result = m_calibration;
    replies::read(tree, result);
    if (result.result) {
        m_calibration = result;
        m_isCalibrated = true;
    }
    return result.result;
}

void GazeApi::Engine::finishCalibration(const Tree &tree)
{
    CalibResult result;
    const bool isSuccess = storeCalibration(tree, result);
    if (isSuccess) {
        tell<ICalibrationResultListener>(
            [&result](ICalibrationResultListener &it) { it.onCalibrationChanged(true, result); });
    }
    resetCounts();
    set(CalibrationDone);
    tell<ICalibrationProcessHandler>(
        [isSuccess, &result](ICalibrationProcessHandler &it) { it.onCalibrationResult(isSuccess, result); });
}

void GazeApi::Engine::dispatchTracker(const Tree &values)
{
    if (const auto frame = values.find("frame"); frame != values.not_found())
        takeFrame(frame->second);
    takeServerState(values);
    takeScreen(values);
    if (const auto result = values.find("calibresult"); result != values.not_found())
        takeCalibration(result->second);
    // only the full state is asked for this one
    if (values.find("heartbeatinterval") != values.not_found()) {
        m_heart.setInterval(serverState().heartbeatinterval);
        set(FullState);
    }
}

void GazeApi::Engine::takeFrame(const Tree &tree)
{
    GazeData frame;
    {
        const Lock lock(m_frameMutex);
        replies::read(tree, m_frame);
        frame = m_frame;
    }
    set(Frame);
    tell<IGazeListener>([&frame](IGazeListener &it) { it.onGazeData(frame); });
}

void GazeApi::Engine::takeServerState(const Tree &values)
{
    int before = 0;
    int now = 0;
    {
        const Lock lock(m_serverMutex);
        before = m_server.trackerstate;
        replies::read(values, m_server);
        now = m_server.trackerstate;
    }
    if (now != before)
        tell<ITrackerStateListener>([now](ITrackerStateListener &it) { it.onTrackerConnectionChanged(now); });
}

void GazeApi::Engine::takeScreen(const Tree &values)
{
    Screen screen;
    {
        const Lock lock(m_screenMutex);
        screen = m_screen;
        replies::read(values, screen);
        if (screen == m_screen)
            return;
        m_screen = screen;
    }
    set(ScreenValues);
    tell<ITrackerStateListener>([&screen](ITrackerStateListener &it) { it.onScreenStateChanged(screen); });
}

void GazeApi::Engine::takeCalibration(const Tree &tree)
{
    CalibResult result;
    const bool isCalibrated = storeCalibration(tree, result);
    set(CalibrationDone);
    tell<ICalibrationResultListener>(
        [isCalibrated, &result](ICalibrationResultListener &it) { it.onCalibrationChanged(isCalibrated, result); });
}

} // namespace gtl
