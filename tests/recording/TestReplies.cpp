// SPDX-License-Identifier: GPL-3.0-or-later
#include "recording/client/Replies.h"

#include <boost/property_tree/ptree.hpp>

#include <QByteArray>
#include <QTest>

#include <limits>

class TestReplies : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void readsEveryField();
    void keepsWhatIsAbsentOrNoNumber();
    void numbers_data();
    void numbers();
    void readsCalibration();
    void readsScreenAndState();
    void refuses_data();
    void refuses();
};

namespace {

gtl::replies::Tree tree(const std::string &text)
{
    auto parsed = gtl::replies::parse(text);
    if (!parsed)
        qFatal("no JSON: %s", text.c_str());
    return *parsed;
}

const gtl::GazeData someFrame = {.time = 5,
                                 .fix = true,
                                 .state = 7,
                                 .raw = {1, 2},
                                 .avg = {3, 4},
                                 .lefteye = {{5, 6}, {7, 8}, 9, {0.25F, 0.5F}},
                                 .righteye = {{10, 11}, {12, 13}, 14, {0.75F, 0.125F}}};

} // namespace

void TestReplies::readsEveryField()
{
    gtl::GazeData frame;
    gtl::replies::read(tree(R"({"time":5,"fix":true,"state":7,"raw":{"x":1,"y":2.0},"avg":{"x":3e0,"y":4},
        "lefteye":{"raw":{"x":5,"y":6},"avg":{"x":7,"y":8},"psize":9,"pcenter":{"x":0.25,"y":0.5}},
        "righteye":{"raw":{"x":10,"y":11},"avg":{"x":12,"y":13},"psize":14,"pcenter":{"x":0.75,"y":0.125}}})"),
                       frame);
    QVERIFY(frame == someFrame);
}

void TestReplies::keepsWhatIsAbsentOrNoNumber()
{
    gtl::GazeData frame = someFrame;
    gtl::replies::read(tree("{}"), frame);
    QVERIFY(frame == someFrame);
    gtl::replies::read(tree(R"({"time":"soon","fix":2,"state":[],"raw":{"x":null},"avg":7,"lefteye":{"psize":""},
        "righteye":{"raw":{"y":-11.5}}})"),
                       frame);
    gtl::GazeData expected = someFrame;
    expected.righteye.raw.y = -11.5F;
    QVERIFY(frame == expected);
}

void TestReplies::numbers_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<int>("time"); // 99 where the number is not taken
    QTest::addColumn<float>("x");
    const auto row = [](const char *json, int time, float x) { QTest::newRow(json) << QByteArray(json) << time << x; };
    row("0", 0, 0);
    row("-7", -7, -7);
    row("2147483647", 2147483647, 2147483648.0F);
    row("2147483648", 99, 2147483648.0F); // beyond 32 bits
    row("-2147483648", std::numeric_limits<int>::min(), -2147483648.0F);
    row("1.5", 99, 1.5F);
    row("1e2", 99, 100);
    row("1e99", 99, 99); // beyond single precision
    row("\"12\"", 12, 12);
    row("\"nan\"", 99, 99);
    row("\"inf\"", 99, 99);
    row("\"-inf\"", 99, 99);
    row("\" 1\"", 99, 99);
    row("\"1x\"", 99, 99);
    row("true", 99, 99);
}

void TestReplies::numbers()
{
    QFETCH(QByteArray, json);
    QFETCH(int, time);
    QFETCH(float, x);
    gtl::GazeData frame{.time = 99, .raw = {99, 0}};
    gtl::replies::read(tree("{\"time\":" + json.toStdString() + ",\"raw\":{\"x\":" + json.toStdString() + "}}"), frame);
    QCOMPARE(frame.time, time);
    QVERIFY(!(frame.raw.x < x) && !(frame.raw.x > x));
}

void TestReplies::readsCalibration()
{
    gtl::CalibResult result{.calibpoints = {{}, {}, {}}};
    gtl::replies::read(
        tree(R"({"result":true,"deg":0.5,"degl":0.25,"degr":0.75,"calibpoints":[{"state":2,"cp":{"x":1,"y":2},
        "mecp":{"x":3,"y":4},"acd":{"ad":5,"adl":6,"adr":7},"mepix":{"mep":8,"mepl":9,"mepr":10},
        "asdp":{"asd":11,"asdl":12,"asdr":13}},{"state":1}]})"),
        result);
    const gtl::CalibPoint point = {2, {1, 2}, {3, 4}, {5, 6, 7}, {8, 9, 10}, {11, 12, 13}};
    const gtl::CalibResult expected = {true, 0.5F, 0.25F, 0.75F, {point, {.state = 1}}};
    QVERIFY(result == expected);
}

void TestReplies::readsScreenAndState()
{
    gtl::Screen screen;
    gtl::replies::read(tree(R"({"screenindex":1,"screenresw":2,"screenresh":3,"screenpsyw":0.5,"screenpsyh":0.25})"),
                       screen);
    QVERIFY((screen == gtl::Screen{1, 2, 3, 0.5F, 0.25F}));
    gtl::ServerState state;
    gtl::replies::read(tree(R"({"push":true,"heartbeatinterval":250,"version":1,"trackerstate":4,"framerate":60,
        "iscalibrated":true,"iscalibrating":true})"),
                       state);
    QVERIFY((state == gtl::ServerState{true, 250, 1, 4, 60, true, true}));
    gtl::replies::read(tree(R"({"iscalibrated":false})"), state);
    QVERIFY((state == gtl::ServerState{true, 250, 1, 4, 60, false, true}));
}

void TestReplies::refuses_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<bool>("isTaken");
    const auto nested = [](int depth) {
        return "{\"a\":" + QByteArray(depth - 1, '[') + QByteArray(depth - 1, ']') + '}';
    };
    QTest::newRow("an object") << QByteArray("{}") << true;
    QTest::newRow("no JSON") << QByteArray("{]}") << false;
    QTest::newRow("half a string") << QByteArray("{\"a\":\"}") << false;
    QTest::newRow("a key twice") << QByteArray("{\"a\":1,\"a\":2}") << true;
    QTest::newRow("as deep as may be") << nested(64) << true;
    QTest::newRow("too deep") << nested(65) << false;
    QTest::newRow("brackets in a string are not deep") << "{\"a\":\"\\\"" + QByteArray(100, '[') + "\"}" << true;
    QTest::newRow("a million deep") << nested(1'000'000) << false;
}

void TestReplies::refuses()
{
    QFETCH(QByteArray, text);
    QTEST(gtl::replies::parse(text.toStdString()).has_value(), "isTaken");
}

QTEST_GUILESS_MAIN(TestReplies)
#include "TestReplies.moc"
