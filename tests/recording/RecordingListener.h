// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "recording/client/Listeners.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <mutex>
#include <vector>

/// Keeps what a client's listeners are told, in order, as lines; frames by themselves.
class RecordingListener : public gtl::IGazeListener,
                          public gtl::ICalibrationResultListener,
                          public gtl::ITrackerStateListener,
                          public gtl::ICalibrationProcessHandler,
                          public gtl::IConnectionStateListener {
public:
    template <class Client>
    void listenTo(Client &client)
    {
        client.addListener(static_cast<gtl::IGazeListener &>(*this));
        client.addListener(static_cast<gtl::ICalibrationResultListener &>(*this));
        client.addListener(static_cast<gtl::ITrackerStateListener &>(*this));
        client.addListener(static_cast<gtl::ICalibrationProcessHandler &>(*this));
        client.addListener(static_cast<gtl::IConnectionStateListener &>(*this));
    }

    QStringList calls() const
    {
        const std::lock_guard lock(m_mutex);
        return m_calls;
    }
    std::vector<gtl::GazeData> frames() const
    {
        const std::lock_guard lock(m_mutex);
        return m_frames;
    }
    qsizetype frameCount() const
    {
        const std::lock_guard lock(m_mutex);
        return static_cast<qsizetype>(m_frames.size());
    }

    std::function<void()> onFrame; ///< on the thread of the socket; set before connecting

    void onGazeData(const gtl::GazeData &frame) override
    {
        {
            const std::lock_guard lock(m_mutex);
            m_frames.push_back(frame);
        }
        if (onFrame)
            onFrame();
    }
    void onCalibrationChanged(bool isCalibrated, const gtl::CalibResult &result) override
    {
        add(QStringLiteral("calibrated %1 deg %2").arg(isCalibrated).arg(static_cast<double>(result.deg)));
    }
    void onTrackerConnectionChanged(int state) override { add(QStringLiteral("tracker %1").arg(state)); }
    void onScreenStateChanged(const gtl::Screen &screen) override
    {
        add(QStringLiteral("screen %1: %2 x %3").arg(screen.screenindex).arg(screen.screenresw).arg(screen.screenresh));
    }
    void onCalibrationStarted() override { add(QStringLiteral("started")); }
    void onCalibrationProgress(double progress) override { add(QStringLiteral("progress %1").arg(progress)); }
    void onCalibrationProcessing() override { add(QStringLiteral("processing")); }
    void onCalibrationResult(bool isSuccess, const gtl::CalibResult &result) override
    {
        add(QStringLiteral("result %1 left %2 right %3 points %4")
                .arg(isSuccess)
                .arg(static_cast<double>(result.degl))
                .arg(static_cast<double>(result.degr))
                .arg(result.calibpoints.size()));
    }
    void onConnectionStateChanged(bool isConnected) override { add(QStringLiteral("connected %1").arg(isConnected)); }

private:
    void add(const QString &call)
    {
        const std::lock_guard lock(m_mutex);
        m_calls << call;
    }

    mutable std::mutex m_mutex;
    QStringList m_calls;
    std::vector<gtl::GazeData> m_frames;
};
