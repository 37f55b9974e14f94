// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "recording/client/GazeApi.h"
#include "recording/client/Heartbeater.h"
#include "recording/client/Observable.h"
#include "recording/client/Replies.h"
#include "recording/client/Socket.h"

#include <boost/thread/condition_variable.hpp>
#include <boost/thread/mutex.hpp>

namespace gtl {

/// What stands behind the handle: requests, the dispatch of replies, and what the server told last.
class GazeApi::Engine : public ISocketListener,
                        public IHeartbeatListener,
                        public Observable<IGazeListener>,
                        public Observable<ICalibrationResultListener>,
                        public Observable<ITrackerStateListener>,
                        public Observable<ICalibrationProcessHandler>,
                        public Observable<IConnectionStateListener> {
public:
    explicit Engine(Setup setup);
    ~Engine() override;
    Engine(const Engine &) = delete;
    Engine &operator=(const Engine &) = delete;

    bool connect(bool push, const std::string &port);
    void disconnect() noexcept;
    bool isConnected() const;
    bool calibrationStart(int pointCount);
    /// Dropped while there is no connection.
    void send(std::string request);

    GazeData frame() const;
    ServerState serverState() const;
    Screen screen() const;
    CalibResult calibration() const;
    bool isCalibrated() const;
    std::string lastProblem() const;
    const Setup &setup() const { return m_setup; }
    std::chrono::steady_clock::time_point arrival() const { return m_socket.arrival(); }

    void onMessage(const std::string &text) override;
    void onDisconnected() override;
    void onBeat() override;

private:
    /// What a reply has answered.
    enum SyncFlag : unsigned char {
        ErrorReply = 1,
        FullState = 2,
        Frame = 4,
        ScreenValues = 8,
        CalibrationStarted = 16,
        CalibrationDone = 32
    };
    using Tree = replies::Tree;

    /// The number of events so far that end every wait: what was counted before a request ends no wait for its answer.
    using Releases = unsigned;

    Releases resetRecords();
    Releases clear(SyncFlag flag);
    void set(SyncFlag flag);
    void setError(const std::string &reason);
    bool waitFor(SyncFlag flag, Releases before, const char *call);
    void release(const std::string &reason);
    void drop(const char *reason, const std::string &text);

    void dispatch(const Tree &message);
    void dispatchCalibration(const Tree &message);
    void dispatchTracker(const Tree &values);
    void finishPoint(const Tree &message);
    void finishCalibration(const Tree &tree);
    bool storeCalibration(const Tree &tree, CalibResult &result);
    void resetCounts();
    void takeFrame(const Tree &tree);
    void takeCalibration(const Tree &tree);
    void takeScreen(const Tree &values);
    void takeServerState(const Tree &values);

    template <class Listener, class Call>
    void tell(const Call &call)
    {
        Observable<Listener>::notify(call);
    }

    Setup m_setup;

    mutable boost::mutex m_syncMutex; ///< of the group below
    boost::condition_variable m_answered;
    bool m_connected = false;
    unsigned char m_syncFlags = 0;
    Releases m_releases = 0;
    std::string m_problem;
    std::string m_releaseReason;
    int m_loggedDrops = 0;

    mutable boost::mutex m_frameMutex;
    GazeData m_frame;
    mutable boost::mutex m_serverMutex;
    ServerState m_server;
    mutable boost::mutex m_screenMutex;
    Screen m_screen;
    mutable boost::mutex m_calibrationMutex; ///< of the group below
    CalibResult m_calibration;
    bool m_isCalibrated = false;
    int m_expectedPoints = 0;
    int m_finishedPoints = 0;

    boost::mutex m_lifecycle; ///< connecting and disconnecting exclude each other
    Heartbeater m_heart;
    Socket m_socket; ///< ends first: its thread uses everything above
};

} // namespace gtl
