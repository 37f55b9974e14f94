// SPDX-License-Identifier: GPL-3.0-or-later
#include "recording/CalibrationPoints.h"
#include "recording/client/Requests.h"
#include "recording/panel/QCalibrationWidget.h"
#include "recording/ScriptedServer.h"

#include <QSet>
#include <QTest>

using namespace gtl::requests;

class TestCalibrationWidget : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void pointsOfAnArea();
    void orderOfPoints();
    void startsTheServer();
    void refusedStart();
    void walksThroughThePoints();
    void secondKeyBelongsToItsPoint();
    void keysThatDoNotCount();
    void escapeLeaves();
    void paintsEyesAndPoints();

private:
    void open(const std::string &startReply);
    void pressUntil(int index);
    QColor colorAt(const QPoint &place) const { return m_widget->grab().toImage().pixelColor(place); }

    std::unique_ptr<ScriptedServer> m_server;
    std::unique_ptr<gtl::GazeApi> m_client;
    std::minstd_rand m_random;
    std::unique_ptr<QCalibrationWidget> m_widget;
};

namespace {

const std::string stateReply =
    R"({"category":"tracker","request":"get","statuscode":200,"values":{"heartbeatinterval":60000}})";
const std::string started = R"({"category":"calibration","request":"start","statuscode":200})";

QSet<std::pair<int, int>> places(const QList<QPoint> &points)
{
    QSet<std::pair<int, int>> set;
    for (const QPoint &point : points)
        set.insert({point.x(), point.y()});
    return set;
}

} // namespace

void TestCalibrationWidget::init()
{
    m_server = std::make_unique<ScriptedServer>();
    m_server->answer(fullState, stateReply);
    m_client = std::make_unique<gtl::GazeApi>(gtl::Setup{.port = m_server->port()});
    QVERIFY(m_client->connect());
    m_random = std::minstd_rand();
}

void TestCalibrationWidget::cleanup()
{
    m_widget.reset();
    m_client.reset();
    m_server.reset();
}

void TestCalibrationWidget::open(const std::string &startReply)
{
    m_server->answer(calibrationStart(9), startReply);
    m_widget = std::make_unique<QCalibrationWidget>(*m_client, m_random);
    m_widget->resize(803, 601);
    m_widget->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_widget.get()));
}

/// A key now, and patience until the point is there.
void TestCalibrationWidget::pressUntil(int index)
{
    QTest::keyClick(m_widget.get(), Qt::Key_Space);
    QTRY_COMPARE_WITH_TIMEOUT(m_widget->index(), index, 30'000);
}

void TestCalibrationWidget::pointsOfAnArea()
{
    // the eighths are 100 and 75 pixels, cut
    const QSet<std::pair<int, int>> expected = {{100, 75},  {400, 75},  {700, 75},  {100, 300}, {400, 300},
                                                {700, 300}, {100, 525}, {400, 525}, {700, 525}};
    std::minstd_rand random;
    QCOMPARE(places(calibrationPoints(QSize(803, 601), random)), expected);
}

void TestCalibrationWidget::orderOfPoints()
{
    std::minstd_rand first;
    std::minstd_rand second;
    const QList<QPoint> order = calibrationPoints(QSize(800, 600), first);
    QCOMPARE(calibrationPoints(QSize(800, 600), second), order); // a fresh start repeats it
    QSet<QString> orders;
    for (int i = 0; i < 20; ++i) {
        QString text;
        for (const QPoint &point : calibrationPoints(QSize(800, 600), first))
            text += QStringLiteral("%1 %2;").arg(point.x()).arg(point.y());
        orders.insert(text);
    }
    QVERIFY(orders.size() > 15); // of 9! orders
}

void TestCalibrationWidget::startsTheServer()
{
    open(started);
    QVERIFY(m_widget->start());
    QCOMPARE(m_widget->index(), -1);
    const std::string said = m_server->allReceived();
    QVERIFY(said.find(calibrationClear) < said.find(calibrationStart(9)));
    QCOMPARE(m_server->countOf(calibrationPointEnd), 0);
}

void TestCalibrationWidget::refusedStart()
{
    open(R"({"category":"calibration","request":"start","statuscode":403})");
    QVERIFY(!m_widget->start());
}

void TestCalibrationWidget::walksThroughThePoints()
{
    open(started);
    QVERIFY(m_widget->start());
    pressUntil(0); // a key before the first frame with eyes
    QCOMPARE(m_server->countOf(calibrationPointEnd), 0);
    for (int i = 0; i < 9; ++i) {
        const QPoint point = m_widget->points()[i];
        pressUntil(i + 1);
        QVERIFY(m_server->received(calibrationPointStart(point.x(), point.y())));
        QVERIFY(m_server->received(calibrationPointEnd, i + 1));
    }
    QVERIFY(m_widget->isVisible());
    QTest::keyClick(m_widget.get(), Qt::Key_A);
    QVERIFY(!m_widget->isVisible());
    QVERIFY(m_server->received(calibrationPointEnd, 10));
    QCOMPARE(m_server->countOf(calibrationClear), 1); // that of the start
}

/// The timer of the second key ends nothing: its point has ended by then.
void TestCalibrationWidget::secondKeyBelongsToItsPoint()
{
    open(started);
    QVERIFY(m_widget->start());
    pressUntil(0);
    const QPoint point = m_widget->points()[0];
    QTest::keyClick(m_widget.get(), Qt::Key_Space);
    pressUntil(1);
    QVERIFY(m_server->received(calibrationPointStart(point.x(), point.y()), 2));
    pressUntil(2); // would come sooner, and twice, if the second timer counted
    QVERIFY(m_server->received(calibrationPointEnd, 2));
    QCOMPARE(m_server->countOf(calibrationPointEnd), 2);
}

void TestCalibrationWidget::keysThatDoNotCount()
{
    open(started);
    QVERIFY(m_widget->start());
    pressUntil(0);
    const auto press = [this](Qt::Key key, bool isRepeated) {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, QString(), isRepeated);
        QCoreApplication::sendEvent(m_widget.get(), &event);
    };
    press(Qt::Key_Space, true);
    for (const Qt::Key key : {Qt::Key_Shift, Qt::Key_Control, Qt::Key_Alt, Qt::Key_AltGr, Qt::Key_Meta})
        press(key, false);
    m_client->calibrationPointStart(-1, -1); // behind everything that was said
    QVERIFY(m_server->received(calibrationPointStart(-1, -1)));
    QCOMPARE(m_server->countOf("pointstart"), 1);
}

void TestCalibrationWidget::escapeLeaves()
{
    open(started);
    QVERIFY(m_widget->start());
    QTest::keyClick(m_widget.get(), Qt::Key_Escape);
    QVERIFY(!m_widget->isVisible());
    QVERIFY(m_server->received(calibrationClear, 2));
}

void TestCalibrationWidget::paintsEyesAndPoints()
{
    open(started);
    QVERIFY(m_widget->start());
    gtl::GazeData frame;
    frame.lefteye.pcenter = {0.25F, 0.5F};
    frame.lefteye.psize = 40.9F;
    frame.righteye.pcenter = {0.75F, 0.5F};
    frame.righteye.psize = 20;
    m_widget->onGazeData(frame);
    const QPoint left(200, 300);
    QCOMPARE(colorAt(left), QColor(Qt::white));
    QCOMPARE(colorAt({602, 300}), QColor(Qt::white));
    QCOMPARE(colorAt(left + QPoint(17, 0)), QColor(Qt::white)); // the radius is 20
    QCOMPARE(colorAt(left + QPoint(24, 0)), QColor(Qt::lightGray));
    pressUntil(0);
    QCOMPARE(colorAt(left), QColor(Qt::lightGray));
    const QPoint point = m_widget->points()[0];
    QCOMPARE(colorAt(point), QColor(Qt::white));
    QCOMPARE(colorAt(point + QPoint(8, 0)), QColor(Qt::white));
    QCOMPARE(colorAt(point + QPoint(13, 0)), QColor(Qt::lightGray));
    QCOMPARE(colorAt(m_widget->points()[1]), QColor(Qt::lightGray));
}

QTEST_MAIN(TestCalibrationWidget)
#include "TestCalibrationWidget.moc"
