// SPDX-License-Identifier: GPL-3.0-or-later
#include "tracker-simulator/ProtocolSide.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace {

constexpr int ok = 200;
constexpr int badRequest = 400;
constexpr int refused = 403;
constexpr int calibrationChanged = 800;
constexpr int displayChanged = 801;
constexpr int trackerStateChanged = 802;
constexpr int tracked = 7;
constexpr int presenceOnly = 3;

QByteArray text(const QJsonObject &message)
{
    return QJsonDocument(message).toJson(QJsonDocument::Compact);
}

QJsonObject reply(const QString &category, const QString &request, int status = ok)
{
    QJsonObject message{{QStringLiteral("category"), category}, {QStringLiteral("statuscode"), status}};
    if (!request.isEmpty())
        message[QStringLiteral("request")] = request;
    return message;
}

QJsonObject withValues(QJsonObject message, const QJsonObject &values)
{
    message[QStringLiteral("values")] = values;
    return message;
}

QJsonObject pointOf(const QPointF &point)
{
    return {{QStringLiteral("x"), point.x()}, {QStringLiteral("y"), point.y()}};
}

QJsonObject eyeOf(const SentFrame::Eye &eye, const QPointF &center)
{
    return {{QStringLiteral("raw"), pointOf(eye.gaze)},
            {QStringLiteral("avg"), pointOf(eye.gaze)},
            {QStringLiteral("psize"), eye.pupil},
            {QStringLiteral("pcenter"), pointOf(center)}};
}

QJsonObject frameObject(const SentFrame &frame)
{
    const QPointF middle = (frame.left.gaze + frame.right.gaze) / 2;
    return {{QStringLiteral("time"), static_cast<qint64>(frame.timeMs)},
            {QStringLiteral("fix"), false},
            {QStringLiteral("state"), frame.isTracked ? tracked : presenceOnly},
            {QStringLiteral("raw"), pointOf(middle)},
            {QStringLiteral("avg"), pointOf(middle)},
            {QStringLiteral("lefteye"), eyeOf(frame.left, {0.4, 0.5})},
            {QStringLiteral("righteye"), eyeOf(frame.right, {0.6, 0.5})}};
}

QJsonObject tripleOf(const QString &name, double both, double left, double right)
{
    return {{name, both}, {name + u'l', left}, {name + u'r', right}};
}

QByteArray changeNotice(int status)
{
    return text(reply(QStringLiteral("tracker"), {}, status));
}

} // namespace

QList<QByteArray> ProtocolSide::answer(const QByteArray &request)
{
    const QJsonObject message = QJsonDocument::fromJson(request).object();
    const QString category = message[QStringLiteral("category")].toString();
    const QString name = message[QStringLiteral("request")].toString();
    if (category == QLatin1StringView("heartbeat"))
        return {text(reply(category, {}))};
    if (category == QLatin1StringView("tracker"))
        return answerTracker(name, message);
    if (category == QLatin1StringView("calibration"))
        return answerCalibration(name, message[QStringLiteral("values")].toObject());
    return {text(reply(category, name, badRequest))};
}

QList<QByteArray> ProtocolSide::answerTracker(const QString &request, const QJsonObject &message)
{
    const QJsonValue values = message[QStringLiteral("values")];
    if (request == QLatin1StringView("set")) {
        const QJsonValue push = values[QStringLiteral("push")];
        m_isPushing = push.toBool(m_isPushing);
        return {text(reply(QStringLiteral("tracker"), request))};
    }
    if (request != QLatin1StringView("get"))
        return {text(reply(QStringLiteral("tracker"), request, badRequest))};
    QStringList names;
    for (const auto &name : values.toArray())
        names << name.toString();
    return {text(withValues(reply(QStringLiteral("tracker"), request), valuesOf(names)))};
}

QJsonObject ProtocolSide::valuesOf(const QStringList &names) const
{
    const QJsonObject all{{QStringLiteral("push"), m_isPushing},
                          {QStringLiteral("heartbeatinterval"), m_state.heartbeatIntervalMs},
                          {QStringLiteral("version"), 1},
                          {QStringLiteral("trackerstate"), m_state.trackerState},
                          {QStringLiteral("framerate"), m_state.frameRate},
                          {QStringLiteral("iscalibrated"), m_isCalibrated},
                          {QStringLiteral("iscalibrating"), m_expectedPoints > 0},
                          {QStringLiteral("calibresult"), calibrationResult()},
                          {QStringLiteral("frame"), frameObject(m_lastFrame)},
                          {QStringLiteral("screenindex"), m_state.screenIndex},
                          {QStringLiteral("screenresw"), 1280},
                          {QStringLiteral("screenresh"), 800},
                          {QStringLiteral("screenpsyw"), 0.338},
                          {QStringLiteral("screenpsyh"), 0.211}};
    QJsonObject chosen;
    for (const QString &name : names) {
        if (all.contains(name))
            chosen[name] = all[name];
    }
    return chosen;
}

QJsonObject ProtocolSide::calibrationResult() const
{
    constexpr double leftDeg = 0.5;
    constexpr double rightDeg = 0.75;
    const double meanDeg = (leftDeg + rightDeg) / 2;
    QJsonArray points;
    for (const QPointF &point : m_points) {
        const QPointF estimate = point + QPointF(4, -3);
        const double error = 5; // px, the length of (4, -3)
        points << QJsonObject{{QStringLiteral("state"), m_isCalibrated ? 2 : 1},
                              {QStringLiteral("cp"), pointOf(point)},
                              {QStringLiteral("mecp"), pointOf(estimate)},
                              {QStringLiteral("acd"), tripleOf(QStringLiteral("ad"), meanDeg, leftDeg, rightDeg)},
                              {QStringLiteral("mepix"), tripleOf(QStringLiteral("mep"), error, error, error)},
                              {QStringLiteral("asdp"), tripleOf(QStringLiteral("asd"), 2, 2, 2)}};
    }
    return {{QStringLiteral("result"), m_isCalibrated},
            {QStringLiteral("deg"), m_isCalibrated ? meanDeg : 0},
            {QStringLiteral("degl"), m_isCalibrated ? leftDeg : 0},
            {QStringLiteral("degr"), m_isCalibrated ? rightDeg : 0},
            {QStringLiteral("calibpoints"), points}};
}

QList<QByteArray> ProtocolSide::answerCalibration(const QString &request, const QJsonObject &values)
{
    const QString category = QStringLiteral("calibration");
    const QByteArray done = text(reply(category, request));
    const QByteArray refusal = text(reply(category, request, refused));
    if (request == QLatin1StringView("start")) {
        const int points = values[QStringLiteral("pointcount")].toInt();
        if (points < 1 || m_expectedPoints > 0 || m_state.trackerState != 0)
            return {refusal};
        m_expectedPoints = points;
        m_finishedPoints = 0;
        m_points.clear();
        return {done};
    }
    if (request == QLatin1StringView("clear") || request == QLatin1StringView("abort")) {
        m_expectedPoints = 0;
        m_points.clear();
        m_isCalibrated = m_isCalibrated && request != QLatin1StringView("clear");
        return {done};
    }
    if (m_expectedPoints == 0)
        return {refusal};
    if (request == QLatin1StringView("pointstart")) {
        m_points.resize(std::min<qsizetype>(m_points.size(), m_finishedPoints)); // a point that begins again
        m_points << QPointF(values[QStringLiteral("x")].toDouble(), values[QStringLiteral("y")].toDouble());
        return {done};
    }
    if (request == QLatin1StringView("pointend") && m_points.size() > m_finishedPoints)
        return endPoint();
    return {refusal};
}

QList<QByteArray> ProtocolSide::endPoint()
{
    const QJsonObject message = reply(QStringLiteral("calibration"), QStringLiteral("pointend"));
    if (++m_finishedPoints < m_expectedPoints)
        return {text(message)};
    m_expectedPoints = 0;
    m_isCalibrated = m_state.outcome == CalibrationOutcome::Good;
    const QJsonObject values{{QStringLiteral("calibresult"), calibrationResult()}};
    return {text(withValues(message, values)), changeNotice(calibrationChanged)};
}

QByteArray ProtocolSide::frame(const SentFrame &frame)
{
    m_lastFrame = frame;
    const QJsonObject values{{QStringLiteral("frame"), frameObject(frame)}};
    return text(withValues(reply(QStringLiteral("tracker"), QStringLiteral("get")), values));
}

QByteArray ProtocolSide::changeTrackerState(int state)
{
    m_state.trackerState = state;
    return changeNotice(trackerStateChanged);
}

QByteArray ProtocolSide::changeScreen(int index)
{
    m_state.screenIndex = index;
    return changeNotice(displayChanged);
}
