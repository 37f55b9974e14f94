// SPDX-License-Identifier: GPL-3.0-or-later
#include "tracker-simulator/TrackerOptions.h"

#include <QTest>

class TestTrackerOptions : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void taken();
    void refused_data();
    void refused();
    void help();
};

namespace {

auto parsed(const QString &commandLine)
{
    return parseTrackerOptions(QStringList(QStringLiteral("tracker-simulator")) +
                               commandLine.split(u' ', Qt::SkipEmptyParts));
}

} // namespace

void TestTrackerOptions::taken()
{
    const auto result =
        parsed(QStringLiteral("--port 7000 --rate 250.5 --recording a.data --seed 3 --state 4 --calibration failed "
                              "--heartbeat 100 --hostile merged,noise --at 9=restart:50 --at 3=state:2 --at 5=stop"));
    QVERIFY(std::holds_alternative<TrackerOptions>(result));
    const auto &options = std::get<TrackerOptions>(result);
    QCOMPARE(options.port, quint16(7000));
    QCOMPARE(options.rateHz, 250.5);
    QCOMPARE(options.recordingPath, QStringLiteral("a.data"));
    QCOMPARE(options.seed, quint64(3));
    QCOMPARE(options.state.trackerState, 4);
    QCOMPARE(options.state.heartbeatIntervalMs, 100);
    QVERIFY(options.state.outcome == CalibrationOutcome::Failed);
    QVERIFY(has(options.hostilities, Hostility::Merged) && has(options.hostilities, Hostility::Noise));
    QVERIFY(!has(options.hostilities, Hostility::Torn) && !has(options.hostilities, Hostility::Braces));
    QCOMPARE(options.events.size(), 3);
    QCOMPARE(options.events[0].frame, 3);
    QVERIFY(options.events[0].kind == PlannedEvent::Kind::State);
    QCOMPARE(options.events[0].value, 2);
    QVERIFY(options.events[1].kind == PlannedEvent::Kind::Stop);
    QVERIFY(options.events[2].kind == PlannedEvent::Kind::Restart);
    QCOMPARE(options.events[2].value, 50);
}

void TestTrackerOptions::refused_data()
{
    QTest::addColumn<QString>("commandLine");
    QTest::addColumn<QString>("named");
    const auto row = [](const char *commandLine, const char *named) {
        QTest::newRow(commandLine) << QString::fromLatin1(commandLine) << QString::fromLatin1(named);
    };
    row("--speed 3", "speed");
    row("--port 65536", "65536");
    row("--rate 0", "--rate needs a number from 1 to 1000");
    row("--rate 1001", "1001");
    row("--state 5", "--state");
    row("--calibration poor", "good or failed");
    row("--hostile torn,rude", "rude");
    row("--at 5", "FRAME=EVENT");
    row("--at x=close", "x=close");
    row("--at 5=close:3", "5=close:3");
    row("--at 5=state", "5=state");
    row("--at 5=state:9", "5=state:9");
    row("--at 5=sleep", "5=sleep");
    row("more", "more");
}

void TestTrackerOptions::refused()
{
    QFETCH(QString, commandLine);
    QFETCH(QString, named);
    const auto result = parsed(commandLine);
    QVERIFY(std::holds_alternative<TrackerUsageFault>(result));
    const QString text = std::get<TrackerUsageFault>(result).text;
    QVERIFY2(text.contains(named), qPrintable(text));
}

void TestTrackerOptions::help()
{
    const auto result = parsed(QStringLiteral("--help"));
    QVERIFY(std::holds_alternative<TrackerHelp>(result));
    const QString text = std::get<TrackerHelp>(result).text;
    for (const QString &name : hostilityNames())
        QVERIFY2(text.contains(name), qPrintable(name));
}

QTEST_GUILESS_MAIN(TestTrackerOptions)
#include "TestTrackerOptions.moc"
