// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tracker-simulator/SentFrame.h"

#include <QByteArray>
#include <QJsonObject>
#include <QList>
#include <QStringList>

#include <optional>

/// What a calibration comes to.
enum class CalibrationOutcome { Good, Failed };

/// The server's state that clients ask for.
struct TrackerState {
    int trackerState = 0; ///< 0 to 4
    int frameRate = 60;
    int heartbeatIntervalMs = 3000;
    int screenIndex = 1;
    CalibrationOutcome outcome = CalibrationOutcome::Good;
};

/// The server's side of the protocol, without a socket: requests in, replies out.
class ProtocolSide {
public:
    explicit ProtocolSide(const TrackerState &state) : m_state(state) {}

    /// The replies to one request, in their order; an error reply to what is none.
    QList<QByteArray> answer(const QByteArray &request);

    /// A pushed frame.
    QByteArray frame(const SentFrame &frame);

    /// The state changes; the reply tells clients to ask for it.
    QByteArray changeTrackerState(int state);
    QByteArray changeScreen(int index);

    bool isPushing() const { return m_isPushing; }
    bool isCalibrated() const { return m_isCalibrated; }
    const TrackerState &state() const { return m_state; }

private:
    QList<QByteArray> answerTracker(const QString &request, const QJsonObject &message);
    QList<QByteArray> answerCalibration(const QString &request, const QJsonObject &values);
    QList<QByteArray> endPoint();
    QJsonObject valuesOf(const QStringList &names) const;
    QJsonObject calibrationResult() const;

    TrackerState m_state;
    bool m_isPushing = false;
    bool m_isCalibrated = false;
    int m_expectedPoints = 0; ///< above 0 while calibrating
    int m_finishedPoints = 0;
    QList<QPointF> m_points; ///< px, in the order of their start
    SentFrame m_lastFrame;
};
