// SPDX-License-Identifier: GPL-3.0-or-later
#include "recording/panel/TheEyeTribeRecorder.h"
#include "ui_TheEyeTribeRecorder.h"

#include "base/FileReplacement.h"
#include "base/Messages.h"
#include "base/TextFormat.h"
#include "commands/panel/SaveDialog.h"
#include "recording/panel/QCalibrationWidget.h"
#include "recording/panel/SetFileDialog.h"
#include "recording/RecordingFile.h"
#include "recording/RunningProcess.h"

#include <QCloseEvent>
#include <QDebug>
#include <QFileInfo>
#include <QMessageBox>
#include <QScreen>

namespace {

constexpr int attemptMs = 200;   ///< between two tries to connect to a server that has just been started
constexpr int mostAttempts = 50; ///< 10 s
constexpr int graceMs = 2000;    ///< for an error that was meant for another request than that to start

QIcon icon(const char *name)
{
    return QIcon(QStringLiteral(":/Vistrum/Resources/Vistrum/%1.png").arg(QLatin1StringView(name)));
}

QIcon playIcon()
{
    return QIcon(QStringLiteral(":/Orbelle/Resources/Vistrum/button_green_play.png"));
}

/// The file name of a server's path, of this system or of Windows.
QString imageNameOf(const QString &path)
{
    const QString name = path.section(u'/', -1).section(u'\\', -1);
    return name.isEmpty() ? QStringLiteral("EyeTribe.exe") : name;
}

gtl::Setup clientSetup(const RecorderSetup &setup)
{
    gtl::Setup client{.port = setup.port};
    if (setup.log)
        client.log = [log = setup.log](const std::string &line) { log->write(QString::fromStdString(line)); };
    return client;
}

} // namespace

TheEyeTribeRecorder::TheEyeTribeRecorder(RecorderSetup setup, QWidget *parent)
    : QWidget(parent)
    , m_setup(std::move(setup))
    , m_ui(std::make_unique<Ui::TheEyeTribeRecorder>())
    , m_frames(m_setup.journalFolder)
    , m_client(clientSetup(m_setup))
{
    m_ui->setupUi(this);
    if (!m_setup.random)
        m_setup.random = std::make_shared<std::minstd_rand>();
#ifdef Q_OS_WIN
    m_ui->lineServerPath->setText(QStringLiteral("C:\\Program Files (x86)\\EyeTribe\\Server\\EyeTribe.exe"));
#else
    m_ui->lineServerPath->setPlaceholderText(tr("the server's program, or tracker-simulator"));
#endif
    m_server.setStandardOutputFile(QProcess::nullDevice());
    m_server.setStandardErrorFile(QProcess::nullDevice());
    m_connectSoon.setInterval(attemptMs);
    connect(&m_connectSoon, &QTimer::timeout, this, &TheEyeTribeRecorder::connectSoon);
    m_startOfCalibration.setInterval(graceMs);
    m_startOfCalibration.setSingleShot(true);
    connect(&m_startOfCalibration, &QTimer::timeout, this, &TheEyeTribeRecorder::failUnlessStarted);
    connect(m_ui->btnRunServer, &QPushButton::clicked, this, &TheEyeTribeRecorder::sltStartEyeTribeServer);
    connect(m_ui->btnCalibrate, &QPushButton::clicked, this, &TheEyeTribeRecorder::sltCalibrate);
    connect(m_ui->btnRecord, &QPushButton::clicked, this, &TheEyeTribeRecorder::sltRecord);
    connect(m_ui->btnSave, &QPushButton::clicked, this, &TheEyeTribeRecorder::sltSave);
    connect(m_ui->chkLiveView, &QCheckBox::toggled, this, &TheEyeTribeRecorder::sigLiveView);
}

TheEyeTribeRecorder::~TheEyeTribeRecorder()
{
    endCalibration();
    const std::unique_ptr<QCalibrationWidget> ended(m_calibration.data()); // its client ends now, and so must it
    removeListeners();
    m_client.disconnect();
    endServer();
}

QCalibrationWidget *TheEyeTribeRecorder::calibration() const
{
    return m_calibration;
}

void TheEyeTribeRecorder::removeListeners()
{
    m_client.removeListener(static_cast<gtl::IGazeListener &>(*this));
    m_client.removeListener(static_cast<gtl::ITrackerStateListener &>(*this));
    m_client.removeListener(static_cast<gtl::ICalibrationProcessHandler &>(*this));
    m_client.removeListener(static_cast<gtl::IConnectionStateListener &>(*this));
}

// ---- server and connection

void TheEyeTribeRecorder::sltStartEyeTribeServer()
{
    if (m_client.isConnected()) {
        m_client.disconnect();
        endServer();
        return;
    }
    const QString image = imageNameOf(m_ui->lineServerPath->text());
    if (isProcessRunning(image)) {
        qDebug().noquote() << image + QStringLiteral(" found running.");
    } else {
        qDebug().noquote() << image + QStringLiteral(" not running - starting server.");
        startServer();
    }
    if (!connectClient() && m_server.state() == QProcess::Running) {
        m_attempts = 0;
        m_connectSoon.start();
    }
}

void TheEyeTribeRecorder::startServer()
{
    endServer();
    m_server.start(m_ui->lineServerPath->text(), QStringList());
    if (!m_server.waitForStarted()) {
        messages::warning(QStringLiteral("EyeTribe Server did not start"),
                          QStringLiteral("Failed to run the EyeTribe Server. Is the path correct?"));
    }
}

void TheEyeTribeRecorder::endServer()
{
    m_connectSoon.stop();
    if (m_server.state() == QProcess::NotRunning)
        return;
    m_server.kill();
    m_server.waitForFinished();
}

bool TheEyeTribeRecorder::connectClient()
{
    removeListeners(); // the answer to the question for the state repeats a frame
    if (!m_client.connect())
        return false;
    m_client.addListener(static_cast<gtl::IGazeListener &>(*this));
    m_client.addListener(static_cast<gtl::ITrackerStateListener &>(*this));
    m_client.addListener(static_cast<gtl::ICalibrationProcessHandler &>(*this));
    m_client.addListener(static_cast<gtl::IConnectionStateListener &>(*this));
    // What was told before there was somebody to hear it.
    showConnected(m_client.isConnected());
    showTrackerState(m_client.serverState().trackerstate);
    return true;
}

/// A server that has just been started does not listen at once.
void TheEyeTribeRecorder::connectSoon()
{
    if (connectClient() || ++m_attempts == mostAttempts || m_server.state() == QProcess::NotRunning)
        m_connectSoon.stop();
}

void TheEyeTribeRecorder::onConnectionStateChanged(bool isConnected)
{
    QMetaObject::invokeMethod(
        this, [this, isConnected] { showConnected(isConnected); }, Qt::QueuedConnection);
}

void TheEyeTribeRecorder::showConnected(bool isConnected)
{
    m_ui->btnRunServer->setText(isConnected ? tr("Stop EyeTribe") : tr("Start EyeTribe"));
    m_ui->btnRunServer->setIcon(isConnected ? icon("button_red_stop") : playIcon());
    if (!isConnected && m_calibration) {
        showCalibration(QStringLiteral("Calibration failed!"));
        endCalibration();
    }
}

void TheEyeTribeRecorder::onTrackerConnectionChanged(int state)
{
    QMetaObject::invokeMethod(
        this, [this, state] { showTrackerState(state); }, Qt::QueuedConnection);
}

void TheEyeTribeRecorder::showTrackerState(int state)
{
    const auto &names = gtl::trackerStateNames;
    if (state >= 0 && state < static_cast<int>(names.size())) {
        const std::string_view name = names[static_cast<std::size_t>(state)];
        m_ui->lblTrackerState->setText(QString::fromLatin1(name.data(), static_cast<qsizetype>(name.size())));
    } else {
        m_ui->lblTrackerState->setText(QString::number(state));
    }
}

void TheEyeTribeRecorder::onScreenStateChanged(const gtl::Screen &)
{
    // Nothing of the screen is shown.
}

// ---- calibration

void TheEyeTribeRecorder::sltCalibrate()
{
    if (!m_client.isConnected()) {
        messages::warning(QStringLiteral("Calibration"),
                          QStringLiteral("The tracker is not connected. Press \"Start EyeTribe\" first."));
        return;
    }
    endCalibration();
    m_calibration = new QCalibrationWidget(m_client, *m_setup.random); // owned by itself: closing deletes it
    m_calibration->setAttribute(Qt::WA_DeleteOnClose);
    m_calibration->setAttribute(Qt::WA_QuitOnClose, false);
    m_calibration->setGeometry(screen()->geometry());
    m_calibration->showFullScreen();
    m_calibration->activateWindow();
    if (!m_calibration->start())
        m_startOfCalibration.start();
}

void TheEyeTribeRecorder::failUnlessStarted()
{
    if (!m_calibration || m_calibration->index() >= -1)
        return;
    showCalibration(QStringLiteral("Calibration failed!"));
    endCalibration();
    messages::warning(QStringLiteral("Calibration"), QStringLiteral("The tracker does not start a calibration: %1.")
                                                         .arg(QString::fromStdString(m_client.lastProblem())));
}

void TheEyeTribeRecorder::endCalibration()
{
    if (m_calibration)
        m_calibration->close();
}

void TheEyeTribeRecorder::showCalibration(const QString &text)
{
    m_ui->lblCalibration->setText(text);
}

void TheEyeTribeRecorder::onCalibrationStarted()
{
    const auto show = [this] {
        showCalibration(QStringLiteral("Calibration started"));
        if (m_calibration)
            m_calibration->begin();
    };
    QMetaObject::invokeMethod(this, show, Qt::QueuedConnection);
}

/// The share is shown as it is, from 0 to 1, although "%" stands behind it.
void TheEyeTribeRecorder::onCalibrationProgress(double progress)
{
    const QString text = QStringLiteral("Progress: ") + text::general6(progress) + u'%';
    QMetaObject::invokeMethod(
        this, [this, text] { showCalibration(text); }, Qt::QueuedConnection);
}

void TheEyeTribeRecorder::onCalibrationProcessing()
{
    QMetaObject::invokeMethod(
        this, [this] { showCalibration(QStringLiteral("Calculating...")); }, Qt::QueuedConnection);
}

void TheEyeTribeRecorder::onCalibrationResult(bool isSuccess, const gtl::CalibResult &result)
{
    const QString text = isSuccess ? text::general6(static_cast<double>(result.degl)) + QStringLiteral(" right: ") +
                                         text::general6(static_cast<double>(result.degr))
                                   : QStringLiteral("Calibration failed!");
    const auto show = [this, text] {
        showCalibration(text);
        endCalibration();
    };
    QMetaObject::invokeMethod(this, show, Qt::QueuedConnection);
}

// ---- frames

void TheEyeTribeRecorder::onGazeData(const gtl::GazeData &frame)
{
    m_frames.add(frame);
    const QPointF position(static_cast<double>(frame.avg.x), static_cast<double>(frame.avg.y));
    if (m_inbox.put({position, frame.state == gtl::fullyTracked, m_client.arrival()}))
        QMetaObject::invokeMethod(this, &TheEyeTribeRecorder::showGaze, Qt::QueuedConnection);
}

void TheEyeTribeRecorder::showGaze()
{
    const QList<ArrivedGaze> gaze = m_inbox.take();
    if (gaze.isEmpty())
        return;
    if (m_ui->chkLiveView->isChecked())
        Q_EMIT sigGaze(gaze);
    const QPointF last = gaze.constLast().position;
    m_ui->lblPosition->setText(u'(' + text::general6(last.x()) + QStringLiteral(", ") + text::general6(last.y()) +
                               u')');
    if (m_frames.isRecording())
        showRecording();
}

void TheEyeTribeRecorder::showRecording()
{
    m_ui->lblRecordedFrames->setText(QString::number(m_frames.count()));
    tellJournalProblem();
}

void TheEyeTribeRecorder::tellJournalProblem()
{
    const QString problem = m_frames.journalProblem();
    if (problem.isEmpty() || std::exchange(m_hasToldProblem, true))
        return;
    messages::warning(QStringLiteral("Recording without a journal"),
                      QStringLiteral("%1\nThe recording goes on, but would be lost if the program ended: save it soon.")
                          .arg(problem));
}

void TheEyeTribeRecorder::sltRecord()
{
    const bool isStart = !m_frames.isRecording();
    if (isStart)
        m_frames.startRecording();
    else
        m_frames.stopRecording();
    m_ui->btnRecord->setText(isStart ? tr("Stop") : tr("Record"));
    m_ui->btnRecord->setIcon(icon(isStart ? "button_red_record" : "button_grey_record"));
    showRecording();
}

// ---- saving

bool TheEyeTribeRecorder::sltSave()
{
    const QString path = chooseSaveFile(this, QStringLiteral("Save file"), QString(), QStringLiteral(".data"));
    const qsizetype count = m_frames.count();
    const auto problem = path.isEmpty() ? QStringLiteral("No file was chosen.") : saveRecording(path, m_frames, count);
    if (problem) {
        messages::show({messages::Severity::Warning, QStringLiteral("Unable to write file"),
                        QStringLiteral("The file you specified could not be created or written to. Is it currently "
                                       "open in another program?"),
                        *problem});
        return false;
    }
    m_frames.markSaved(count);
    offerSetFile(path);
    return true;
}

void TheEyeTribeRecorder::offerSetFile(const QString &dataFile)
{
    SetFileDialog dialog(dataFile, m_setup.picture ? m_setup.picture() : QString(), this);
    if (dialog.exec() != QDialog::Accepted)
        return;
    if (const auto problem = replaceFile(dialog.setFile(), setFileText(dialog.entries())))
        messages::warning(QStringLiteral("Unable to write file"), *problem);
}

void TheEyeTribeRecorder::offerInterruptedRecordings()
{
    if (m_setup.journalFolder.isEmpty())
        return;
    for (const QString &journal : RecordingJournal::interrupted(m_setup.journalFolder)) {
        const auto frames = RecordingJournal::read(journal).frames.size();
        QMessageBox box(
            QMessageBox::Question, QStringLiteral("Interrupted recording"),
            QStringLiteral("A recording, last written %2, was not saved before the program ended. Frames in "
                           "it: %1.\nShall it be recovered, to be saved now?")
                .arg(frames)
                .arg(QFileInfo(journal).lastModified().toString(Qt::ISODate)),
            QMessageBox::NoButton, this);
        const QPushButton *recover = box.addButton(tr("Recover"), QMessageBox::AcceptRole);
        const QPushButton *remove = box.addButton(tr("Delete it"), QMessageBox::DestructiveRole);
        box.setEscapeButton(box.addButton(tr("Later"), QMessageBox::RejectRole));
        box.exec();
        if (box.clickedButton() == remove) {
            RecordingJournal::remove(journal);
        } else if (box.clickedButton() == recover) {
            m_frames.resume(journal);
            showRecording();
            return;
        }
    }
}

/// A recording is the one thing that cannot be repeated. It goes on while the question stands.
bool TheEyeTribeRecorder::mayClose()
{
    const qsizetype unsaved = m_frames.unsavedCount();
    if (unsaved == 0)
        return true;
    const auto answer =
        QMessageBox::question(this, windowTitle(), tr("Recorded frames that are not saved: %1.").arg(unsaved),
                              QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, QMessageBox::Save);
    if (answer == QMessageBox::Save && m_frames.isRecording())
        sltRecord();
    return answer == QMessageBox::Discard || (answer == QMessageBox::Save && sltSave());
}

void TheEyeTribeRecorder::closeEvent(QCloseEvent *event)
{
    if (!mayClose()) {
        event->ignore();
        return;
    }
    m_frames.stopRecording();
    m_frames.discardJournal();
    m_ui->chkLiveView->setChecked(false);
    event->accept();
}
