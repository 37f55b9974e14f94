// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Log.h"
#include "recording/client/GazeApi.h"
#include "recording/FrameStore.h"
#include "recording/GazeInbox.h"

#include <QPointer>
#include <QProcess>
#include <QTimer>
#include <QWidget>

#include <functional>
#include <memory>
#include <random>

class QCalibrationWidget;

namespace Ui {
class TheEyeTribeRecorder;
}

/// What a recorder is given by the window that opens it.
struct RecorderSetup {
    std::string port = "6555";                          ///< of the tracker's server
    QString journalFolder = {};                         ///< empty: unsaved frames have no journal
    std::shared_ptr<std::minstd_rand> random = nullptr; ///< orders calibration points; null: one of its own
    std::function<QString()> picture = {};              ///< path of the picture that is shown, for the set file
    Log *log = nullptr;                                 ///< may be null
};

/// The window that starts the tracker's server, calibrates, records frames and saves them as a recording. From there to
/// the analysis leads the import alone.
///
/// What the tracker tells comes on a thread of its own: frames go into the store there, all else is handed over by
/// queued calls.
class TheEyeTribeRecorder : public QWidget,
                            public gtl::IGazeListener,
                            public gtl::ITrackerStateListener,
                            public gtl::ICalibrationProcessHandler,
                            public gtl::IConnectionStateListener {
    Q_OBJECT
public:
    explicit TheEyeTribeRecorder(RecorderSetup setup = {}, QWidget *parent = nullptr);
    ~TheEyeTribeRecorder() override;

    /// Asks what becomes of recordings that were interrupted, if there are any.
    void offerInterruptedRecordings();

    /// The calibration that is under way; else null.
    QCalibrationWidget *calibration() const;
    const FrameStore &frames() const { return m_frames; }

    void onGazeData(const gtl::GazeData &frame) override;
    void onTrackerConnectionChanged(int state) override;
    void onScreenStateChanged(const gtl::Screen &screen) override;
    void onCalibrationStarted() override;
    void onCalibrationProgress(double progress) override;
    void onCalibrationProcessing() override;
    void onCalibrationResult(bool isSuccess, const gtl::CalibResult &result) override;
    void onConnectionStateChanged(bool isConnected) override;

public Q_SLOTS:
    /// Starts the server if it does not run, and connects; ends a connection that there is.
    void sltStartEyeTribeServer();
    void sltCalibrate();
    void sltRecord();
    /// Asks for a file. Returns whether the recording has been written.
    bool sltSave();

Q_SIGNALS:
    void sigLiveView(bool isShown);
    /// Only while the live view is shown.
    void sigGaze(const QList<ArrivedGaze> &gaze);

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void startServer();
    bool connectClient();
    void connectSoon();
    void endServer();
    void removeListeners();
    void showConnected(bool isConnected);
    void showTrackerState(int state);
    void showCalibration(const QString &text);
    void showGaze();
    void showRecording();
    void tellJournalProblem();
    void endCalibration();
    void failUnlessStarted();
    void offerSetFile(const QString &dataFile);
    bool mayClose();

    RecorderSetup m_setup;
    std::unique_ptr<Ui::TheEyeTribeRecorder> m_ui;
    FrameStore m_frames;
    GazeInbox m_inbox;
    QPointer<QCalibrationWidget> m_calibration;
    QProcess m_server; ///< if this window started it
    QTimer m_connectSoon;
    int m_attempts = 0;
    QTimer m_startOfCalibration; ///< runs while a server that answered with an error may still start one
    bool m_hasToldProblem = false;
    gtl::GazeApi m_client; ///< ends first: its thread uses everything above
};
