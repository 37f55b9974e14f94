// SPDX-License-Identifier: GPL-3.0-or-later
#include "recording/client/GazeApi.h"
#include "recording/client/Requests.h"
#include "recording/RecordingListener.h"
#include "recording/SimulatorProcess.h"

#include <QTest>

/// The client and the simulated tracker, each a process of its own.
class TestClientWithSimulator : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void noFrameIsLost_data();
    void noFrameIsLost();
    void calibrates_data();
    void calibrates();
    void followsTheTracker();
    void silentServer();
    void restartedServer();
    void serverThatIsGone();
    void simulatorWithoutDescriptors();
};

namespace {

const QString allHostilities = QStringLiteral("torn,merged,delayed,wrong-json,unknown-codes,braces,noise,flood");

/// A client with a listener, and room for calibration calls.
struct Connected {
    explicit Connected(const SimulatorProcess &simulator,
                       std::chrono::milliseconds longestWait = std::chrono::seconds(30))
        : client({.port = simulator.port(), .longestWait = longestWait})
    {
        listener.listenTo(client);
        isConnected = client.connect();
    }

    RecordingListener listener; ///< outlives the client
    gtl::GazeApi client;
    bool isConnected = false;
};

bool calibrate(Connected &it, int points)
{
    if (!it.client.calibrationStart(points))
        return false;
    for (int i = 0; i < points; ++i) {
        it.client.calibrationPointStart(100 * i, 50);
        it.client.calibrationPointEnd();
    }
    return true;
}

} // namespace

void TestClientWithSimulator::noFrameIsLost_data()
{
    QTest::addColumn<int>("rateHz");
    QTest::addColumn<QString>("hostilities");
    QTest::newRow("60 Hz") << 60 << QString();
    QTest::newRow("250 Hz, torn") << 250 << QStringLiteral("torn");
    QTest::newRow("1000 Hz, torn and merged") << 1000 << QStringLiteral("torn,merged");
    QTest::newRow("1000 Hz, all hostilities") << 1000 << allHostilities;
}

void TestClientWithSimulator::noFrameIsLost()
{
    QFETCH(int, rateHz);
    QFETCH(QString, hostilities);
    const SimulatorProcess simulator({QStringLiteral("--rate"), QString::number(rateHz), QStringLiteral("--hostile"),
                                      hostilities, QStringLiteral("--heartbeat"), QStringLiteral("500")});
    Connected it(simulator);
    QVERIFY(it.isConnected);
    QTRY_VERIFY_WITH_TIMEOUT(it.listener.frameCount() > 2 * rateHz, 60'000);
    it.client.disconnect();
    // The answer to the question for the state has a frame, too: the one that was pushed before it, or an empty one.
    std::vector<gtl::GazeData> frames = it.listener.frames();
    const auto isRepeated = [](const gtl::GazeData &a, const gtl::GazeData &b) { return a.time == b.time; };
    const auto firstRepeated = std::unique(frames.begin(), frames.end(), isRepeated);
    QVERIFY(frames.end() - firstRepeated <= 1);
    frames.erase(firstRepeated, frames.end());
    for (std::size_t i = 0; i < frames.size(); ++i) {
        const auto index = static_cast<double>(i);
        QCOMPARE(frames[i].time, static_cast<int>(std::lround(index * 1000 / rateHz)));
    }
}

void TestClientWithSimulator::calibrates_data()
{
    QTest::addColumn<QString>("outcome");
    QTest::addColumn<QString>("result");
    QTest::newRow("good") << QStringLiteral("good") << QStringLiteral("result 1 left 0.5 right 0.75 points 3");
    QTest::newRow("failed") << QStringLiteral("failed") << QStringLiteral("result 0 left 0 right 0 points 3");
}

void TestClientWithSimulator::calibrates()
{
    QFETCH(QString, outcome);
    QFETCH(QString, result);
    const SimulatorProcess simulator({QStringLiteral("--calibration"), outcome});
    Connected it(simulator);
    it.client.calibrationClear();
    QVERIFY(calibrate(it, 3));
    QTRY_VERIFY2(it.listener.calls().contains(result), qPrintable(it.listener.calls().join(u'\n')));
    QCOMPARE(it.client.isCalibrated(), outcome == QLatin1StringView("good"));
    QVERIFY(it.client.calibrationStart(2));
    QVERIFY(!it.client.calibrationStart(2)); // while one is under way
    QVERIFY(it.client.lastProblem().ends_with("403"));
}

void TestClientWithSimulator::followsTheTracker()
{
    const SimulatorProcess simulator({QStringLiteral("--state"), QStringLiteral("3"), QStringLiteral("--rate"),
                                      QStringLiteral("500"), QStringLiteral("--at"), QStringLiteral("20=state:0"),
                                      QStringLiteral("--at"), QStringLiteral("40=screen:2")});
    Connected it(simulator);
    QTRY_COMPARE(it.listener.calls(),
                 QStringList({QStringLiteral("connected 1"), QStringLiteral("tracker 3"),
                              QStringLiteral("screen 1: 1280 x 800"), QStringLiteral("calibrated 0 deg 0"),
                              QStringLiteral("tracker 0"), QStringLiteral("screen 2: 1280 x 800")}));
    QCOMPARE(it.client.serverState().framerate, 500);
}

/// Nothing comes any more, and a call that waits comes back.
void TestClientWithSimulator::silentServer()
{
    SimulatorProcess simulator({QStringLiteral("--rate"), QStringLiteral("500"), QStringLiteral("--at"),
                                QStringLiteral("20=stop"), QStringLiteral("--at"), QStringLiteral("20=silence")});
    Connected it(simulator, std::chrono::milliseconds(300));
    QVERIFY(simulator.waitFor(QStringLiteral("stopped")));
    QVERIFY(!it.client.calibrationStart(9));
    QVERIFY(it.client.lastProblem().ends_with("did not answer in time"));
    QVERIFY(it.client.isConnected());
}

void TestClientWithSimulator::restartedServer()
{
    const SimulatorProcess simulator(
        {QStringLiteral("--rate"), QStringLiteral("500"), QStringLiteral("--at"), QStringLiteral("20=restart:50")});
    Connected it(simulator);
    QVERIFY(it.isConnected);
    QTRY_VERIFY(it.listener.calls().contains(QStringLiteral("connected 0")));
    const qsizetype before = it.listener.frameCount();
    bool isConnected = false;
    QTRY_VERIFY(isConnected = isConnected || it.client.connect());
    QTRY_VERIFY(it.listener.frameCount() > before);
}

/// A process that is killed leaves a closed connection.
void TestClientWithSimulator::serverThatIsGone()
{
    auto simulator = std::make_unique<SimulatorProcess>();
    Connected it(*simulator);
    QVERIFY(it.isConnected);
    simulator.reset();
    QTRY_COMPARE(it.listener.calls().last(), QStringLiteral("connected 0"));
    QVERIFY(!it.client.isConnected());
}

/// A simulator that cannot begin tells why and ends with 1, instead of being aborted: five descriptors are too few.
void TestClientWithSimulator::simulatorWithoutDescriptors()
{
#if defined(__SANITIZE_ADDRESS__)
    QSKIP("The sanitizer itself needs descriptors.");
#endif
    QProcess shell;
    shell.start(QStringLiteral("/bin/sh"),
                {QStringLiteral("-c"), QStringLiteral("exec 3>&- 4>&-; ulimit -c 0; ulimit -n 5; exec \"$0\" --port 0"),
                 QStringLiteral(TRACKER_SIMULATOR)});
    QVERIFY(shell.waitForFinished());
    QCOMPARE(shell.exitStatus(), QProcess::NormalExit);
    QCOMPARE(shell.exitCode(), 1);
    const QByteArray told = shell.readAllStandardError();
    QVERIFY2(told.startsWith("tracker-simulator: ") && told.contains("Too many open files"), told.constData());
}

QTEST_GUILESS_MAIN(TestClientWithSimulator)
#include "TestClientWithSimulator.moc"
