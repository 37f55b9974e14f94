// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "recording/client/Records.h"

#include <string>

namespace gtl {

// All operations are called on the thread of the socket, those of IHeartbeatListener on the thread of the heartbeat.

class IGazeListener {
public:
    virtual ~IGazeListener() = default;
    virtual void onGazeData(const GazeData &frame) = 0;
};

class ICalibrationResultListener {
public:
    virtual ~ICalibrationResultListener() = default;
    virtual void onCalibrationChanged(bool isCalibrated, const CalibResult &result) = 0;
};

class ITrackerStateListener {
public:
    virtual ~ITrackerStateListener() = default;
    virtual void onTrackerConnectionChanged(int state) = 0;
    virtual void onScreenStateChanged(const Screen &screen) = 0;
};

class ICalibrationProcessHandler {
public:
    virtual ~ICalibrationProcessHandler() = default;
    virtual void onCalibrationStarted() = 0;
    /// @param progress  finished points of all, 0 to 1.
    virtual void onCalibrationProgress(double progress) = 0;
    /// Nothing in the protocol tells of it; whoever computes the result may say so.
    virtual void onCalibrationProcessing() = 0;
    virtual void onCalibrationResult(bool isSuccess, const CalibResult &result) = 0;
};

class IConnectionStateListener {
public:
    virtual void onConnectionStateChanged(bool isConnected) = 0;

protected:
    ~IConnectionStateListener() = default;
};

class ISocketListener {
public:
    virtual ~ISocketListener() = default;
    virtual void onMessage(const std::string &text) = 0;
    virtual void onDisconnected() = 0;
};

class IHeartbeatListener {
public:
    virtual ~IHeartbeatListener() = default;
    virtual void onBeat() = 0;
};

} // namespace gtl
