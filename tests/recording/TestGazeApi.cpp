// SPDX-License-Identifier: GPL-3.0-or-later
#include "recording/client/GazeApi.h"
#include "recording/client/Requests.h"
#include "recording/RecordingListener.h"
#include "recording/ScriptedServer.h"

#include <QTest>

#include <atomic>
#include <memory>
#include <thread>

/// The client against a server of the test, over a real socket.
class TestGazeApi : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void saysWhoItIs();
    void withoutPush();
    void nobodyListens();
    void secondConnect();
    void tornAndMergedFrames();
    void frameKeepsWhatIsAbsent();
    void repliesThatChangeNothing();
    void changesAreAskedFor_data();
    void changesAreAskedFor();
    void screenIsToldOnce();
    void trackerState();
    void calibration();
    void failedCalibrationIsNotStored();
    void calibrationReplies();
    void calibrationStartFails_data();
    void calibrationStartFails();
    void errorIsNotLostToAFrame();
    void waitsEnd_data();
    void waitsEnd();
    void connectionLost();
    void disconnectTellsOnce();
    void disconnectWithinACall();
    void connectsAgain();
    void nothingReachesTheNextConnection();
    void heartbeatFollowsTheServer();
    void badMessagesAreLogged();
    void floodOfBadMessagesIsLoggedShortly();
    void endlessMessage();
    void endsWhileFramesCome();
    void removedListenerIsNotCalled();

private:
    void open(std::chrono::milliseconds longestWait = std::chrono::seconds(30));
    bool connect();
    QStringList logged() const;

    std::unique_ptr<ScriptedServer> m_server;
    std::unique_ptr<RecordingListener> m_listener;
    std::unique_ptr<gtl::GazeApi> m_client;
    mutable std::mutex m_logMutex;
    QStringList m_log;
};

namespace {

using namespace gtl::requests;

const std::string stateReply = R"({"category":"tracker","request":"get","statuscode":200,"values":{)"
                               R"("push":true,"heartbeatinterval":60000,"version":1,"trackerstate":0,"framerate":60,)"
                               R"("iscalibrated":false,"iscalibrating":false}})";
const std::string startReply = R"({"category":"calibration","request":"start","statuscode":200})";
const std::string errorReply = R"({"category":"calibration","request":"start","statuscode":403})";

std::string trackerReply(const std::string &values)
{
    return R"({"category":"tracker","request":"get","statuscode":200,"values":{)" + values + "}}";
}

std::string frameReply(int time)
{
    return trackerReply(R"("frame":{"time":)" + std::to_string(time) + R"(,"state":7})");
}

std::string calibrationReply(const std::string &request, const std::string &values)
{
    return R"({"category":"calibration","request":")" + request + R"(","statuscode":200,"values":{)" + values + "}}";
}

} // namespace

void TestGazeApi::init()
{
    m_server = std::make_unique<ScriptedServer>();
    m_listener = std::make_unique<RecordingListener>();
    m_log.clear();
    open();
}

void TestGazeApi::cleanup()
{
    m_client.reset();
    m_listener.reset();
    m_server.reset();
}

void TestGazeApi::open(std::chrono::milliseconds longestWait)
{
    m_client = std::make_unique<gtl::GazeApi>(
        gtl::Setup{.port = m_server->port(), .longestWait = longestWait, .log = [this](const std::string &line) {
                       const std::lock_guard lock(m_logMutex);
                       m_log << QString::fromStdString(line);
                   }});
    m_listener->listenTo(*m_client);
}

/// With a server that tells its state.
bool TestGazeApi::connect()
{
    m_server->answer(fullState, stateReply);
    return m_client->connect();
}

QStringList TestGazeApi::logged() const
{
    const std::lock_guard lock(m_logMutex);
    return m_log;
}

void TestGazeApi::saysWhoItIs()
{
    QVERIFY(connect());
    QVERIFY(m_client->isConnected());
    QVERIFY(m_server->received(heartbeat));
    const std::string said = m_server->allReceived();
    const auto version = said.find(R"({"category":"tracker","request":"set","values":{"version":1}})");
    const auto push = said.find(R"({"category":"tracker","request":"set","values":{"push":true}})");
    const auto state = said.find(
        R"({"category":"tracker","request":"get","values":["push","heartbeatinterval","version","trackerstate","framerate",)"
        R"("iscalibrated","iscalibrating","calibresult","frame","screenindex","screenresw","screenresh","screenpsyw",)"
        R"("screenpsyh"]})");
    QVERIFY(version < push && push < state && state != std::string::npos);
    QCOMPARE(m_listener->calls(), QStringList({QStringLiteral("connected 1"), QStringLiteral("tracker 0")}));
    QVERIFY((m_client->serverState() == gtl::ServerState{true, 60000, 1, 0, 60, false, false}));
    QCOMPARE(m_client->lastProblem(), std::string());
}

void TestGazeApi::withoutPush()
{
    m_server->answer(fullState, stateReply);
    QVERIFY(m_client->connect(false));
    QVERIFY(m_server->received(R"({"category":"tracker","request":"set","values":{"push":false}})"));
}

void TestGazeApi::nobodyListens()
{
    m_server.reset();
    QVERIFY(!m_client->connect());
    QVERIFY(!m_client->isConnected());
    QCOMPARE(m_listener->calls(), QStringList());
    for (const char *port : {"", "0", "65536", "80x", "-1"})
        QVERIFY2(!gtl::GazeApi(gtl::Setup{.port = port}).connect(), port);
    m_server = std::make_unique<ScriptedServer>();
}

void TestGazeApi::secondConnect()
{
    QVERIFY(connect());
    QVERIFY(!m_client->connect());
    QVERIFY(m_client->isConnected());
    m_server->send(frameReply(1));
    QTRY_COMPARE(m_listener->frameCount(), 1);
    QCOMPARE(m_server->countOf(fullState), 1);
}

void TestGazeApi::tornAndMergedFrames()
{
    QVERIFY(connect());
    m_server->send(frameReply(1) + frameReply(2) + "\r\n" + frameReply(3).substr(0, 30));
    QTRY_COMPARE(m_listener->frameCount(), 2);
    m_server->send(frameReply(3).substr(30));
    for (const char byte : frameReply(4))
        m_server->send(std::string(1, byte));
    QTRY_COMPARE(m_listener->frameCount(), 4);
    int time = 0;
    for (const gtl::GazeData &frame : m_listener->frames())
        QCOMPARE(frame.time, ++time);
}

void TestGazeApi::frameKeepsWhatIsAbsent()
{
    QVERIFY(connect());
    m_server->send(trackerReply(R"("frame":{"time":1,"state":7,"lefteye":{"raw":{"x":1.5,"y":2.5}}})"));
    m_server->send(trackerReply(R"("frame":{"time":2,"lefteye":{"raw":{"x":"?","y":3}}})"));
    QTRY_COMPARE(m_listener->frameCount(), 2);
    gtl::GazeData expected{.time = 2, .state = 7};
    expected.lefteye.raw = {1.5F, 3};
    QVERIFY(m_listener->frames()[1] == expected);
    QVERIFY(m_client->frame() == expected);
}

void TestGazeApi::repliesThatChangeNothing()
{
    QVERIFY(connect());
    const gtl::ServerState before = m_client->serverState();
    const QStringList calls = m_listener->calls();
    m_server->send(R"({"category":"tracker","request":"get","statuscode":200})");
    m_server->send(R"({"category":"tracker","request":"set","statuscode":200,"values":{"trackerstate":3}})");
    m_server->send(R"({"statuscode":200,"request":"get","values":{"trackerstate":3}})");
    m_server->send(R"({"category":"tracker","request":"get","values":{"trackerstate":3}})");
    m_server->send(R"({"category":"weather","request":"get","statuscode":200,"values":{"trackerstate":3}})");
    m_server->send(R"({"category":"heartbeat","statuscode":200})" + frameReply(1));
    QTRY_COMPARE(m_listener->frameCount(), 1);
    QVERIFY(m_client->serverState() == before);
    QCOMPARE(m_listener->calls(), calls);
    QCOMPARE(logged(), QStringList());
}

void TestGazeApi::changesAreAskedFor_data()
{
    QTest::addColumn<int>("status");
    QTest::addColumn<QByteArray>("request");
    QTest::newRow("calibration")
        << 800
        << QByteArray(
               R"({"category":"tracker","request":"get","values":["calibresult","iscalibrated","iscalibrating"]})");
    QTest::newRow("display")
        << 801
        << QByteArray(
               R"({"category":"tracker","request":"get","values":["screenindex","screenresw","screenresh","screenpsyw","screenpsyh"]})");
    QTest::newRow("tracker state") << 802
                                   << QByteArray(R"({"category":"tracker","request":"get","values":["trackerstate"]})");
}

void TestGazeApi::changesAreAskedFor()
{
    QFETCH(int, status);
    QFETCH(QByteArray, request);
    QVERIFY(connect());
    m_server->send(R"({"category":"tracker","statuscode":)" + std::to_string(status) + "}" + frameReply(1));
    QVERIFY(m_server->received(request.toStdString()));
    QCOMPARE(m_server->countOf(request.toStdString()), 1);
    QTRY_COMPARE(m_listener->frameCount(), 1);
}

void TestGazeApi::screenIsToldOnce()
{
    QVERIFY(connect());
    m_server->answer(
        screenValues,
        trackerReply(R"("screenindex":1,"screenresw":1280,"screenresh":800,"screenpsyw":0.3,"screenpsyh":0.2)") +
            frameReply(1));
    const std::string notice = R"({"category":"tracker","statuscode":801})";
    m_server->send(notice);
    QTRY_COMPARE(m_listener->frameCount(), 1);
    m_server->send(notice);
    QTRY_COMPARE(m_listener->frameCount(), 2);
    QCOMPARE(m_server->countOf(screenValues), 2);
    QCOMPARE(m_listener->calls().count(QStringLiteral("screen 1: 1280 x 800")), 1);
    QVERIFY((m_client->screen() == gtl::Screen{1, 1280, 800, 0.3F, 0.2F}));
}

void TestGazeApi::trackerState()
{
    QVERIFY(connect());
    m_server->send(trackerReply(R"("trackerstate":3)") + trackerReply(R"("trackerstate":3)") +
                   trackerReply(R"("trackerstate":0)") + frameReply(1));
    QTRY_COMPARE(m_listener->frameCount(), 1);
    QCOMPARE(m_listener->calls().mid(2), QStringList({QStringLiteral("tracker 3"), QStringLiteral("tracker 0")}));
}

void TestGazeApi::calibration()
{
    QVERIFY(connect());
    m_server->answer(calibrationStart(2), startReply);
    m_server->answer(calibrationPointStart(10, -20), calibrationReply("pointstart", ""));
    QVERIFY(m_client->calibrationStart(2));
    m_client->calibrationPointStart(10, -20);
    QVERIFY(m_server->received(R"({"category":"calibration","request":"start","values":{"pointcount":2}})"));
    QVERIFY(m_server->received(R"({"category":"calibration","request":"pointstart","values":{"x":10,"y":-20}})"));
    m_client->calibrationPointEnd();
    QVERIFY(m_server->received(R"({"category":"calibration","request":"pointend"})"));
    m_server->send(calibrationReply("pointend", ""));
    m_server->send(calibrationReply(
        "pointend", R"("calibresult":{"result":true,"deg":0.5,"degl":0.25,"degr":0.75,"calibpoints":[{},{}]})"));
    m_server->send(calibrationReply("pointend", "")); // beyond the end: nothing is expected any more
    m_server->send(frameReply(1));
    QTRY_COMPARE(m_listener->frameCount(), 1);
    QCOMPARE(m_listener->calls().mid(2),
             QStringList({QStringLiteral("started"), QStringLiteral("progress 0.5"), QStringLiteral("progress 1"),
                          QStringLiteral("calibrated 1 deg 0.5"),
                          QStringLiteral("result 1 left 0.25 right 0.75 points 2"), QStringLiteral("progress 0")}));
    QVERIFY(m_client->isCalibrated());
    m_client->calibrationClear();
    QVERIFY(m_server->received(R"({"category":"calibration","request":"clear"})"));
    m_server->send(calibrationReply("clear", "") + frameReply(2));
    QTRY_COMPARE(m_listener->frameCount(), 2);
    QVERIFY(!m_client->isCalibrated());
    QVERIFY(m_client->calibration() == gtl::CalibResult());
}

void TestGazeApi::failedCalibrationIsNotStored()
{
    QVERIFY(connect());
    m_server->send(trackerReply(R"("calibresult":{"result":true,"deg":0.5,"degl":0.25,"degr":0.75})"));
    m_server->send(calibrationReply("pointend", R"("calibresult":{"result":false,"deg":9,"degl":8,"degr":7})"));
    m_server->send(trackerReply(R"("calibresult":{"result":false,"deg":6})") + frameReply(1));
    QTRY_COMPARE(m_listener->frameCount(), 1);
    QCOMPARE(m_listener->calls().mid(2),
             QStringList({QStringLiteral("calibrated 1 deg 0.5"), QStringLiteral("progress 0"),
                          QStringLiteral("result 0 left 8 right 7 points 0"), QStringLiteral("calibrated 0 deg 6")}));
    QVERIFY((m_client->calibration() == gtl::CalibResult{true, 0.5F, 0.25F, 0.75F, {}}));
    QVERIFY(m_client->isCalibrated());
}

/// After an abort the points count from nothing.
void TestGazeApi::calibrationReplies()
{
    QVERIFY(connect());
    m_server->answer(calibrationStart(4), startReply);
    QVERIFY(m_client->calibrationStart(4));
    const std::string pointEnd = R"({"category":"calibration","request":"pointend","statuscode":200})";
    m_server->send(pointEnd + R"({"category":"calibration","request":"abort","statuscode":200})" + pointEnd +
                   frameReply(1));
    QTRY_COMPARE(m_listener->frameCount(), 1);
    QCOMPARE(m_listener->calls().mid(3), QStringList({QStringLiteral("progress 0.25"), QStringLiteral("progress 0")}));
}

void TestGazeApi::calibrationStartFails_data()
{
    QTest::addColumn<QByteArray>("reply"); // empty: the connection is closed
    QTest::addColumn<QByteArray>("reason");
    QTest::newRow("an error") << QByteArray(errorReply.data())
                              << QByteArray("calibration start: the server answered with status 403");
    QTest::newRow("no answer") << QByteArray("{}")
                               << QByteArray("calibration start: the server did not answer in time");
    QTest::newRow("a closed connection") << QByteArray("")
                                         << QByteArray("calibration start: the connection to the server was lost");
}

void TestGazeApi::calibrationStartFails()
{
    QFETCH(QByteArray, reply);
    QFETCH(QByteArray, reason);
    const bool isTimeout = reply == "{}";
    if (isTimeout)
        open(std::chrono::milliseconds(200));
    QVERIFY(connect());
    m_server->answer(calibrationStart(9), reply.toStdString());
    QVERIFY(!m_client->calibrationStart(9));
    QCOMPARE(m_client->lastProblem(), reason.toStdString());
}

/// The frame behind the error takes its flag back, before anybody has looked.
void TestGazeApi::errorIsNotLostToAFrame()
{
    QVERIFY(connect());
    m_server->answer(calibrationStart(9), errorReply + frameReply(1));
    for (int i = 0; i < 50; ++i)
        QVERIFY(!m_client->calibrationStart(9));
    m_server->answer(calibrationStart(5), errorReply + startReply); // the answer counts
    QVERIFY(m_client->calibrationStart(5) || m_client->lastProblem().ends_with("403"));
}

void TestGazeApi::waitsEnd_data()
{
    QTest::addColumn<bool>("isConnecting");
    QTest::newRow("connecting") << true;
    QTest::newRow("starting a calibration") << false;
}

/// A disconnect from another thread ends a wait that nobody answers.
void TestGazeApi::waitsEnd()
{
    QFETCH(bool, isConnecting);
    if (!isConnecting)
        QVERIFY(connect());
    std::atomic<bool> isReleased = false;
    std::thread caller([&] { isReleased = isConnecting ? !m_client->connect() : !m_client->calibrationStart(9); });
    const bool isAsked = m_server->received(isConnecting ? fullState : calibrationStart(9));
    m_client->disconnect();
    caller.join();
    QVERIFY(isAsked);
    QVERIFY(isReleased);
    QVERIFY(!m_client->isConnected());
    QVERIFY(m_client->lastProblem().ends_with("disconnected"));
}

void TestGazeApi::connectionLost()
{
    QVERIFY(connect());
    m_server->close();
    QTRY_VERIFY(m_listener->calls().contains(QStringLiteral("connected 0")));
    QVERIFY(!m_client->isConnected());
    m_client->disconnect();
    QCOMPARE(m_listener->calls().count(QStringLiteral("connected 0")), 1);
}

void TestGazeApi::disconnectTellsOnce()
{
    QVERIFY(connect());
    m_client->disconnect();
    QCOMPARE(m_listener->calls().last(), QStringLiteral("connected 0"));
    m_client->disconnect();
    QCOMPARE(m_listener->calls().count(QStringLiteral("connected 0")), 1);
}

void TestGazeApi::disconnectWithinACall()
{
    m_listener->onFrame = [this] { m_client->disconnect(); };
    QVERIFY(connect());
    m_server->send(frameReply(1) + frameReply(2));
    QTRY_VERIFY(m_listener->calls().contains(QStringLiteral("connected 0")));
    QCOMPARE(m_listener->frameCount(), 1);
    QVERIFY(!m_client->isConnected());
    QVERIFY(m_client->connect());
}

void TestGazeApi::connectsAgain()
{
    m_server->answer(fullState, stateReply);
    for (int i = 1; i <= 20; ++i) {
        QVERIFY(m_client->connect());
        m_server->send(frameReply(i));
        QTRY_COMPARE(m_listener->frameCount(), i);
        QVERIFY((m_client->frame() == gtl::GazeData{.time = i, .state = 7}));
        m_client->disconnect();
    }
}

void TestGazeApi::nothingReachesTheNextConnection()
{
    QVERIFY(connect());
    m_server->close();
    QTRY_VERIFY(!m_client->isConnected());
    m_client->calibrationPointStart(1, 2);
    QVERIFY(m_client->connect());
    m_client->calibrationPointStart(3, 4);
    QVERIFY(m_server->received(calibrationPointStart(3, 4)));
    QCOMPARE(m_server->countOf(calibrationPointStart(1, 2)), 0);
}

void TestGazeApi::heartbeatFollowsTheServer()
{
    m_server->answer(fullState, trackerReply(R"("heartbeatinterval":5)"));
    QVERIFY(m_client->connect());
    QVERIFY(m_server->received(heartbeat, 20));
    m_server->send(trackerReply(R"("heartbeatinterval":0)") + frameReply(1)); // no interval: that of before holds
    QTRY_COMPARE(m_listener->frameCount(), 1);
    QVERIFY(m_server->received(heartbeat, 40));
}

void TestGazeApi::badMessagesAreLogged()
{
    QVERIFY(connect());
    m_server->send("{]}" + std::string(R"({"category":)") + std::string(100, '[') + std::string(100, ']') + "}" +
                   frameReply(1));
    QTRY_COMPARE(m_listener->frameCount(), 1);
    QCOMPARE(logged().size(), 2);
    QCOMPARE(logged()[0], QStringLiteral("TrackerClient: message dropped: no JSON, or nested too deep: {]}"));
    QVERIFY(m_client->isConnected());
}

void TestGazeApi::floodOfBadMessagesIsLoggedShortly()
{
    QVERIFY(connect());
    std::string flood;
    for (int i = 0; i < 5000; ++i)
        flood += "{]}";
    m_server->send(flood + frameReply(1));
    QTRY_COMPARE(m_listener->frameCount(), 1);
    QCOMPARE(logged().size(), 100);
}

void TestGazeApi::endlessMessage()
{
    QVERIFY(connect());
    m_server->send(std::string(std::size_t(1) << 20, '{') + frameReply(1));
    QTRY_COMPARE(m_listener->frameCount(), 1);
    QCOMPARE(logged(), QStringList(QStringLiteral("TrackerClient: message dropped: more than 1 MiB without an end")));
}

void TestGazeApi::endsWhileFramesCome()
{
    std::string frames;
    for (int i = 0; i < 200; ++i)
        frames += frameReply(i);
    m_server->answer(fullState, stateReply);
    for (int i = 0; i < 10; ++i) {
        QVERIFY(m_client->connect());
        const qsizetype before = m_listener->frameCount();
        m_server->send(frames);
        QTRY_VERIFY(m_listener->frameCount() > before);
        open();
    }
}

void TestGazeApi::removedListenerIsNotCalled()
{
    QVERIFY(connect());
    m_client->removeListener(static_cast<gtl::IGazeListener &>(*m_listener));
    m_server->send(frameReply(1) + trackerReply(R"("trackerstate":2)"));
    QTRY_VERIFY(m_listener->calls().contains(QStringLiteral("tracker 2")));
    QCOMPARE(m_listener->frameCount(), 0);
    m_client->removeListener(static_cast<gtl::ITrackerStateListener &>(*m_listener));
    m_client->removeListener(static_cast<gtl::ICalibrationResultListener &>(*m_listener));
    m_client->removeListener(static_cast<gtl::ICalibrationProcessHandler &>(*m_listener));
    m_client->removeListener(static_cast<gtl::IConnectionStateListener &>(*m_listener));
    m_client->disconnect();
    QVERIFY(!m_listener->calls().contains(QStringLiteral("connected 0")));
}

QTEST_GUILESS_MAIN(TestGazeApi)
#include "TestGazeApi.moc"
