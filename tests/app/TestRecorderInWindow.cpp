#include "recording/panel/LiveGazeOverlay.h"
#include "recording/panel/TheEyeTribeRecorder.h"
#include "WindowTest.h"

#include <QAction>
#include <QCheckBox>
#include <QSignalSpy>
#include <QStandardPaths>

/// The recorder's place in the main window, and the live view over the picture.
class TestRecorderInWindow : public WindowTest {
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { QStandardPaths::setTestModeEnabled(true); }
    void init() { openWindow(); }
    void cleanup() { closeWindow(); }
    void opensFromTheMenu();
    void endsWithTheWindow();
    void trailIsDrawnAndGoes();

private:
    static QList<TheEyeTribeRecorder *> recorders()
    {
        QList<TheEyeTribeRecorder *> found;
        for (QWidget *widget : QApplication::topLevelWidgets()) {
            if (auto *recorder = qobject_cast<TheEyeTribeRecorder *>(widget))
                found << recorder;
        }
        return found;
    }
    QImage viewImage() const { return find<QGraphicsView>("visualization")->viewport()->grab().toImage(); }
};

void TestRecorderInWindow::opensFromTheMenu()
{
    auto *action = find<QAction>("action_Recorder");
    QCOMPARE(action->text(), QStringLiteral("TheEyeTribe Recorder"));
    action->trigger();
    action->trigger();
    QCOMPARE(recorders().size(), 2);
    for (TheEyeTribeRecorder *recorder : recorders()) {
        QVERIFY(recorder->isWindow() && recorder->isVisible());
        recorder->close();
    }
    QTRY_COMPARE(recorders().size(), 0);
}

void TestRecorderInWindow::endsWithTheWindow()
{
    find<QAction>("action_Recorder")->trigger();
    m_window.reset();
    QCOMPARE(recorders().size(), 0);
}

/// Red over the place of the gaze, and nothing of it after a second.
void TestRecorderInWindow::trailIsDrawnAndGoes()
{
    find<QAction>("action_Recorder")->trigger();
    TheEyeTribeRecorder &recorder = *recorders().constFirst();
    QTest::mouseClick(recorder.findChild<QCheckBox *>(QStringLiteral("chkLiveView")), Qt::LeftButton, {}, QPoint(5, 8));
    auto *overlay = find<LiveGazeOverlay>("liveGazeOverlay");
    const QSignalSpy painted(overlay, &LiveGazeOverlay::sigPainted);
    const auto *view = find<QGraphicsView>("visualization");
    const auto now = std::chrono::steady_clock::now();
    Q_EMIT recorder.sigGaze(
        {{QPointF(400, 300), true, now}, {QPointF(0, 0), false, now}, {QPointF(800, 300), true, now}});
    QTRY_COMPARE(painted.count(), 2);
    const auto isRed = [](const QColor &color) { return color.red() > 150 && color.green() < 120; };
    const QImage image = overlay->grab().toImage();
    QVERIFY(isRed(image.pixelColor(view->mapFromScene(QPointF(600, 300)))));
    QVERIFY(isRed(image.pixelColor(view->mapFromScene(QPointF(800, 300)) + QPoint(12, 0))));
    QVERIFY(!isRed(image.pixelColor(view->mapFromScene(QPointF(100, 100)))));
    QTRY_VERIFY(!isRed(overlay->grab().toImage().pixelColor(view->mapFromScene(QPointF(600, 300)))));
    recorder.close();
    QVERIFY(!m_window->findChild<LiveGazeOverlay *>());
}

QTEST_MAIN(TestRecorderInWindow)
#include "TestRecorderInWindow.moc"
