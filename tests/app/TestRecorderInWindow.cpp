// SPDX-License-Identifier: GPL-3.0-or-later
#include "recording/panel/LiveGazeOverlay.h"
#include "recording/panel/TheEyeTribeRecorder.h"
#include "recording/SimulatorProcess.h"
#include "WindowTest.h"

#include <QAction>
#include <QCheckBox>
#include <QPushButton>
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
    void latency_data();
    void latency();

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
    QCOMPARE(action->text().remove(u'&'), QStringLiteral("TheEyeTribe Recorder"));
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

void TestRecorderInWindow::latency_data()
{
    QTest::addColumn<int>("rateHz");
    QTest::newRow("60 Hz") << 60;
    QTest::newRow("1000 Hz") << 1000;
}

/// From the arrival of a frame's bytes to the end of the paint that shows it, over a drawn study. All frames are shown;
/// how quickly is told, since it depends on what else the machine does.
void TestRecorderInWindow::latency()
{
    QFETCH(int, rateHz);
    importExamples();
    const SimulatorProcess simulator({QStringLiteral("--rate"), QString::number(rateHz)});
    TheEyeTribeRecorder recorder(RecorderSetup{.port = simulator.port()});
    recorder.show();
    LiveGazeOverlay overlay(*find<QGraphicsView>("visualization"));
    overlay.QWidget::show();
    connect(&recorder, &TheEyeTribeRecorder::sigGaze, &overlay,
            qOverload<const QList<ArrivedGaze> &>(&LiveGazeOverlay::show));
    QList<double> latenciesMs;
    connect(&overlay, &LiveGazeOverlay::sigPainted, this, [&latenciesMs](qint64 ns) {
        constexpr double nsPerMs = 1e6;
        latenciesMs << static_cast<double>(ns) / nsPerMs;
    });
    qsizetype tracked = 0;
    connect(&recorder, &TheEyeTribeRecorder::sigGaze, this, [&tracked](const QList<ArrivedGaze> &gaze) {
        tracked += std::ranges::count_if(gaze, &ArrivedGaze::isTracked);
    });
    recorder.findChild<QLineEdit *>(QStringLiteral("lineServerPath"))->setText(QStringLiteral("/x/tracker-simulator"));
    QTest::mouseClick(recorder.findChild<QPushButton *>(QStringLiteral("btnRunServer")), Qt::LeftButton);
    QTest::mouseClick(recorder.findChild<QCheckBox *>(QStringLiteral("chkLiveView")), Qt::LeftButton, {}, QPoint(5, 8));
    QTRY_VERIFY_WITH_TIMEOUT(tracked > 4 * rateHz, 60'000);
    QTest::mouseClick(recorder.findChild<QPushButton *>(QStringLiteral("btnRunServer")), Qt::LeftButton);
    QTRY_COMPARE(latenciesMs.size(), tracked);
    std::ranges::sort(latenciesMs);
    const auto percentile = [&latenciesMs](double share) {
        return latenciesMs[static_cast<qsizetype>(share * static_cast<double>(latenciesMs.size() - 1))];
    };
    qInfo("%d Hz: median %.1f ms, p99 %.1f ms, longest %.1f ms of %lld frames", rateHz, percentile(0.5),
          percentile(0.99), latenciesMs.constLast(), static_cast<long long>(latenciesMs.size()));
}

QTEST_MAIN(TestRecorderInWindow)
#include "TestRecorderInWindow.moc"
