// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "recording/client/Listeners.h"
#include "recording/client/Socket.h"

#include <chrono>
#include <memory>
#include <string>

namespace gtl {

/// How a client is set up.
struct Setup {
    std::string port = "6555";
    std::chrono::milliseconds longestWait{5000}; ///< of a call that waits for the server
    LogSink log = {};                            ///< may be empty
    Debug debug = Debug::Off;
};

/// The handle through which the program speaks to the tracker's server.
///
/// Its operations are for one thread, the main one; `disconnect` may come from any. Listeners are called on the thread
/// of the socket and are not owned.
class GazeApi {
public:
    class Engine;

    explicit GazeApi(Setup setup = {});
    /// Disconnects and waits for both threads. Not from within a listener's call.
    ~GazeApi();
    GazeApi(const GazeApi &) = delete;
    GazeApi &operator=(const GazeApi &) = delete;

    /// Connects to the server and waits until it has told its state, answered with an error, or let the longest wait
    /// pass.
    /// @param push  whether the server sends each frame by itself.
    /// @return false where no server listens or there is a connection already.
    bool connect(bool push = true);
    void disconnect();
    bool isConnected() const;

    void addListener(IGazeListener &listener);
    void addListener(ICalibrationResultListener &listener);
    void addListener(ITrackerStateListener &listener);
    void addListener(ICalibrationProcessHandler &listener);
    void addListener(IConnectionStateListener &listener);
    void removeListener(IGazeListener &listener);
    void removeListener(ICalibrationResultListener &listener);
    void removeListener(ITrackerStateListener &listener);
    void removeListener(ICalibrationProcessHandler &listener);
    void removeListener(IConnectionStateListener &listener);

    /// Waits until the server has started the calibration, answered with an error, or let the longest wait pass.
    /// @return whether there was no error.
    bool calibrationStart(int pointCount);
    void calibrationClear();
    /// The subject looks at this place of the screen from now on, pixels.
    void calibrationPointStart(int x, int y);
    void calibrationPointEnd();

    /// What the server told last.
    GazeData frame() const;
    ServerState serverState() const;
    Screen screen() const;
    CalibResult calibration() const;
    bool isCalibrated() const;
    /// Why the last wait ended without its answer; empty if it did not.
    std::string lastProblem() const;
    /// When the bytes came that completed the message; for listeners within their call.
    std::chrono::steady_clock::time_point arrival() const;

private:
    std::unique_ptr<Engine> m_engine;
};

} // namespace gtl
