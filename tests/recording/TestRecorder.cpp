// SPDX-License-Identifier: GPL-3.0-or-later
#include "import/DataImporter.h"
#include "recording/ModalAnswers.h"
#include "recording/panel/QCalibrationWidget.h"
#include "recording/panel/TheEyeTribeRecorder.h"
#include "recording/ScriptedServer.h"
#include "recording/SimulatorProcess.h"
#include "TestMessages.h"

#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTest>

/// The recorder's window, used as a person does.
class TestRecorder : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void form();
    void serverThatCannotBeStarted();
    void startsTheServerAndStopsIt();
    void connectsToAServerThatRuns();
    void connectionLost();
    void showsWhatTheTrackerTells();
    void calibrationThatDoesNotStart();
    void calibrationStartsBehindAnotherError();
    void lostConnectionEndsTheCalibration();
    void recordsBetweenTwoClicks();
    void savesAsText();
    void savesNothing();
    void cancelledSaveLosesNothing();
    void unwritableFile();
    void writesTheSetFile();
    void faultySetFileIsRefused();
    void closingAsks_data();
    void closingAsks();
    void closingWithoutFramesDoesNotAsk();
    void interruptedRecordingIsOffered_data();
    void interruptedRecordingIsOffered();
    void liveView();

private:
    void open(const std::string &port);
    void connectToScript();
    void record(int frames);
    template <class Widget>
    Widget *find(const char *name) const
    {
        return m_recorder->findChild<Widget *>(QLatin1StringView(name));
    }
    QString label(const char *name) const { return find<QLabel>(name)->text(); }
    void click(const char *name) const { QTest::mouseClick(find<QPushButton>(name), Qt::LeftButton); }
    QString path(const char *name) const { return m_folder->filePath(QLatin1StringView(name)); }
    QStringList journals() const
    {
        return QDir(path("journals")).entryList({QStringLiteral("*.journal")}, QDir::Files);
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<ScriptedServer> m_server;
    std::unique_ptr<RecordedMessages> m_messages;
    std::unique_ptr<TheEyeTribeRecorder> m_recorder;
    int m_nextTime = 0;
};

namespace {

const std::string stateReply = R"({"category":"tracker","request":"get","statuscode":200,"values":)"
                               R"({"heartbeatinterval":60000,"trackerstate":0}})";
const std::string calibrationStart = R"({"category":"calibration","request":"start","values":{"pointcount":9}})";
const std::string fullStateRequest = R"(["push","heartbeatinterval")";

const QByteArray header =
    "StaticBinocular\n"
    "time\tleft_x\tleft_y\tleft_w\tleft_h\tleft_valid\tright_x\tright_y\tright_w\tright_h\tright_valid\n";

/// A frame whose numbers need rounding to six digits.
std::string frameReply(int time, int state = 7)
{
    return R"({"category":"tracker","request":"get","statuscode":200,"values":{"frame":{"time":)" +
           std::to_string(time) + R"(,"state":)" + std::to_string(state) +
           R"(,"avg":{"x":12.25,"y":-7.5},)"
           R"("lefteye":{"raw":{"x":1234.5678,"y":0.000012345},"psize":22.5},)"
           R"("righteye":{"raw":{"x":1000000,"y":-0.0},"psize":7}}}})";
}

QByteArray frameLine(int time, int state = 7)
{
    const QByteArray validity = state == 7 ? "1" : "0";
    return QByteArray::number(time) + "\t1234.57\t1.2345e-05\t22.5\t22.5\t" + validity + "\t1e+06\t0\t7\t7\t" +
           validity + '\n';
}

QByteArray contents(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
}

void write(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

/// A program that runs the simulated tracker on a free port, under a name of its own.
QString serverProgram(const QTemporaryDir &folder, const std::string &port)
{
    const QString path = folder.filePath(QStringLiteral("some server"));
    write(path, "#!/bin/sh\nexec '" TRACKER_SIMULATOR "' --port " + QByteArray::fromStdString(port) + '\n');
    QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return path;
}

std::string freePort()
{
    return ScriptedServer().port();
}

} // namespace

void TestRecorder::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_messages = std::make_unique<RecordedMessages>();
    m_nextTime = 1;
}

void TestRecorder::cleanup()
{
    m_recorder.reset();
    m_server.reset();
    m_messages.reset();
}

void TestRecorder::open(const std::string &port)
{
    m_recorder = std::make_unique<TheEyeTribeRecorder>(
        RecorderSetup{.port = port, .journalFolder = path("journals"), .picture = [this] { return path("a.png"); }});
    m_recorder->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_recorder.get()));
}

void TestRecorder::connectToScript()
{
    m_server = std::make_unique<ScriptedServer>();
    m_server->answer(fullStateRequest, stateReply);
    open(m_server->port());
    click("btnRunServer"); // there is no program to start, and a server all the same
    QCOMPARE(find<QPushButton>("btnRunServer")->text(), QStringLiteral("Stop EyeTribe"));
    m_messages.reset();
    m_messages = std::make_unique<RecordedMessages>();
}

/// Further frames come and are recorded.
void TestRecorder::record(int frames)
{
    click("btnRecord");
    const qsizetype wanted = m_recorder->frames().count() + frames;
    for (int i = 0; i < frames; ++i)
        m_server->send(frameReply(m_nextTime++));
    QTRY_COMPARE(m_recorder->frames().count(), wanted);
    QTRY_COMPARE(label("lblRecordedFrames"), QString::number(wanted));
    click("btnRecord");
}

void TestRecorder::form()
{
    open("1");
    QCOMPARE(m_recorder->windowTitle(), QStringLiteral("TheEyeTribeRecorder"));
    QCOMPARE(find<QPushButton>("btnRunServer")->text(), QStringLiteral("Start EyeTribe"));
    QCOMPARE(find<QPushButton>("btnCalibrate")->text(), QStringLiteral("Calibration"));
    QCOMPARE(find<QPushButton>("btnRecord")->text(), QStringLiteral("Record"));
    QCOMPARE(label("label_5"), QStringLiteral("Recorded frames:"));
    QCOMPARE(label("lblPosition"), QStringLiteral("(-1,-1)"));
    QCOMPARE(label("lblTrackerState"), QStringLiteral("TRACKER_NOT_CONNECTED"));
#ifndef Q_OS_WIN
    QCOMPARE(find<QLineEdit>("lineServerPath")->text(), QString());
#endif
}

void TestRecorder::serverThatCannotBeStarted()
{
    open(freePort());
    for (const QString &server : {QString(), path("missing")}) {
        find<QLineEdit>("lineServerPath")->setText(server);
        click("btnRunServer");
        QCOMPARE(find<QPushButton>("btnRunServer")->text(), QStringLiteral("Start EyeTribe"));
    }
    const QString told =
        QStringLiteral("EyeTribe Server did not start|Failed to run the EyeTribe Server. Is the path correct?");
    QCOMPARE(m_messages->texts(), QStringList({told, told}));
    click("btnCalibrate");
    QVERIFY(!m_recorder->calibration());
    QCOMPARE(m_messages->texts().size(), 3);
}

void TestRecorder::startsTheServerAndStopsIt()
{
    const std::string port = freePort();
    open(port);
    find<QLineEdit>("lineServerPath")->setText(serverProgram(*m_folder, port));
    click("btnRunServer");
    QTRY_COMPARE(find<QPushButton>("btnRunServer")->text(), QStringLiteral("Stop EyeTribe"));
    QTRY_VERIFY(label("lblPosition") != QStringLiteral("(-1,-1)"));
    click("btnRunServer");
    QTRY_COMPARE(find<QPushButton>("btnRunServer")->text(), QStringLiteral("Start EyeTribe"));
    gtl::GazeApi client({.port = port});
    QVERIFY(!client.connect()); // it has ended
    click("btnRunServer");
    QTRY_COMPARE(find<QPushButton>("btnRunServer")->text(), QStringLiteral("Stop EyeTribe"));
    m_recorder.reset();
    QVERIFY(!client.connect());
    QCOMPARE(m_messages->texts(), QStringList());
}

/// A server that somebody else has started is not started again, and is left running.
void TestRecorder::connectsToAServerThatRuns()
{
    const SimulatorProcess simulator;
    open(simulator.port());
    find<QLineEdit>("lineServerPath")
        ->setText(QStringLiteral("C:\\nowhere\\") + QFileInfo(QStringLiteral(TRACKER_SIMULATOR)).fileName());
    click("btnRunServer");
    QCOMPARE(find<QPushButton>("btnRunServer")->text(), QStringLiteral("Stop EyeTribe"));
    QCOMPARE(m_messages->texts(), QStringList());
    m_recorder.reset();
    gtl::GazeApi client({.port = simulator.port()});
    QVERIFY(client.connect());
}

void TestRecorder::connectionLost()
{
    connectToScript();
    record(3);
    m_server->close();
    QTRY_COMPARE(find<QPushButton>("btnRunServer")->text(), QStringLiteral("Start EyeTribe"));
    QCOMPARE(m_recorder->frames().count(), 3);
    // A connection that comes back while recording brings the state with a frame in it, which is none of the pushed
    // ones.
    m_server->answer(R"("push":true}})", frameReply(99));
    click("btnRecord");
    click("btnRunServer");
    QCOMPARE(find<QPushButton>("btnRunServer")->text(), QStringLiteral("Stop EyeTribe"));
    click("btnRecord");
    record(2);
    QCOMPARE(m_recorder->frames().count(), 5);
}

void TestRecorder::showsWhatTheTrackerTells()
{
    connectToScript();
    QCOMPARE(label("lblTrackerState"), QStringLiteral("TRACKER_CONNECTED"));
    const auto state = [](int number) {
        return R"({"category":"tracker","request":"get","statuscode":200,"values":{"trackerstate":)" +
               std::to_string(number) + "}}";
    };
    const QStringList names = {QStringLiteral("TRACKER_CONNECTED"), QStringLiteral("TRACKER_NOT_CONNECTED"),
                               QStringLiteral("TRACKER_CONNECTED_BADFW"), QStringLiteral("TRACKER_CONNECTED_NOUSB3"),
                               QStringLiteral("TRACKER_CONNECTED_NOSTREAM")};
    for (const int number : {4, 3, 2, 1, 0}) {
        m_server->send(state(number));
        QTRY_COMPARE(label("lblTrackerState"), names[number]);
    }
    m_server->send(frameReply(1));
    QTRY_COMPARE(label("lblPosition"), QStringLiteral("(12.25, -7.5)"));
    QCOMPARE(label("lblRecordedFrames"), QStringLiteral("0"));
    const std::string pointEnd = R"({"category":"calibration","request":"pointend","statuscode":200)";
    m_server->send(R"({"category":"calibration","request":"start","statuscode":200})");
    QTRY_COMPARE(label("lblCalibration"), QStringLiteral("Calibration started"));
    m_server->send(pointEnd + "}");
    QTRY_COMPARE(label("lblCalibration"), QStringLiteral("Progress: 0%"));
    m_server->send(pointEnd + R"(,"values":{"calibresult":{"result":true,"degl":0.25,"degr":1.5}}})");
    QTRY_COMPARE(label("lblCalibration"), QStringLiteral("0.25 right: 1.5"));
    m_server->send(pointEnd + R"(,"values":{"calibresult":{"result":false}}})");
    QTRY_COMPARE(label("lblCalibration"), QStringLiteral("Calibration failed!"));
    m_recorder->onCalibrationProcessing();
    QTRY_COMPARE(label("lblCalibration"), QStringLiteral("Calculating..."));
}

void TestRecorder::calibrationThatDoesNotStart()
{
    connectToScript();
    m_server->answer(calibrationStart, R"({"category":"calibration","request":"start","statuscode":403})");
    click("btnCalibrate");
    QTRY_COMPARE(m_messages->texts(),
                 QStringList(QStringLiteral("Calibration|The tracker does not start a calibration: calibration start: "
                                            "the server answered with status 403.")));
    QCOMPARE(label("lblCalibration"), QStringLiteral("Calibration failed!"));
    QTRY_VERIFY(!m_recorder->calibration());
}

/// The error was the answer to the request before.
void TestRecorder::calibrationStartsBehindAnotherError()
{
    connectToScript();
    m_server->answer(R"("request":"clear"})", R"({"category":"calibration","request":"clear","statuscode":403})");
    click("btnCalibrate");
    QVERIFY(m_recorder->calibration());
    QCOMPARE(m_recorder->calibration()->index(), -2);
    m_server->send(R"({"category":"calibration","request":"start","statuscode":200})");
    QTRY_COMPARE(m_recorder->calibration()->index(), -1);
    QCOMPARE(m_messages->texts(), QStringList());
}

void TestRecorder::lostConnectionEndsTheCalibration()
{
    connectToScript();
    m_server->answer(calibrationStart, R"({"category":"calibration","request":"start","statuscode":200})");
    click("btnCalibrate");
    QCOMPARE(m_recorder->calibration()->index(), -1);
    m_server->close();
    QTRY_VERIFY(!m_recorder->calibration());
    QCOMPARE(label("lblCalibration"), QStringLiteral("Calibration failed!"));
}

/// A second recording continues the list; what comes between them is not kept.
void TestRecorder::recordsBetweenTwoClicks()
{
    connectToScript();
    QCOMPARE(find<QPushButton>("btnRecord")->text(), QStringLiteral("Record"));
    click("btnRecord");
    QCOMPARE(find<QPushButton>("btnRecord")->text(), QStringLiteral("Stop"));
    click("btnRecord");
    QCOMPARE(find<QPushButton>("btnRecord")->text(), QStringLiteral("Record"));
    record(2);
    const std::string between = frameReply(m_nextTime++) + R"({"category":"tracker","statuscode":802})";
    m_server->send(between);
    QVERIFY(m_server->received(R"("get","values":["trackerstate"]})")); // so the frame was seen
    record(1);
    QList<int> times;
    for (const gtl::GazeData &frame : m_recorder->frames().frames(0, 10))
        times << frame.time;
    QCOMPARE(times, QList<int>({1, 2, 4}));
}

void TestRecorder::savesAsText()
{
    connectToScript();
    record(1);
    click("btnRecord");
    m_server->send(frameReply(-5, 3));
    QTRY_COMPARE(m_recorder->frames().count(), 2);
    ModalAnswers answers({ModalAnswers::file(path("anna")), ModalAnswers::press(QStringLiteral("No set file"))});
    click("btnSave");
    QVERIFY(answers.areAllGiven());
    QCOMPARE(contents(path("anna.data")), header + frameLine(1) + frameLine(-5, 3));
    QVERIFY(!QFile::exists(path("anna.set")));
    QCOMPARE(m_recorder->frames().count(), 2);
    QCOMPARE(m_recorder->frames().unsavedCount(), 0);
    QCOMPARE(m_messages->texts(), QStringList());
}

void TestRecorder::savesNothing()
{
    open("1");
    ModalAnswers answers({ModalAnswers::file(path("empty.data")), ModalAnswers::press(QStringLiteral("No set file"))});
    click("btnSave");
    QCOMPARE(contents(path("empty.data")), header);
}

void TestRecorder::cancelledSaveLosesNothing()
{
    connectToScript();
    record(2);
    ModalAnswers answers({ModalAnswers::cancel()});
    click("btnSave");
    QCOMPARE(m_messages->texts(),
             QStringList(QStringLiteral("Unable to write file|The file you specified could not be created or written "
                                        "to. Is it currently open in another program?\nNo file was chosen.")));
    QCOMPARE(m_recorder->frames().unsavedCount(), 2);
}

void TestRecorder::unwritableFile()
{
    connectToScript();
    record(2);
    QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("kept.data")));
    ModalAnswers answers({[this](QDialog &dialog) {
        static_cast<QFileDialog &>(dialog).setDirectory(m_folder->path());
        ModalAnswers::file(path("missing/a.data"))(dialog);
        if (dialog.isVisible())
            dialog.reject(); // a dialog may refuse such a name by itself
    }});
    click("btnSave");
    QCOMPARE(m_messages->texts().size(), 1);
    QVERIFY(m_messages->texts().constFirst().startsWith(QStringLiteral("Unable to write file|")));
    QCOMPARE(m_recorder->frames().unsavedCount(), 2);
}

void TestRecorder::writesTheSetFile()
{
    write(path("a.png"), "a picture");
    connectToScript();
    record(2);
    ModalAnswers answers({ModalAnswers::file(path("anna.data")), [](QDialog &dialog) {
                              auto *subject = dialog.findChild<QLineEdit *>(QStringLiteral("lineSubject"));
                              QCOMPARE(subject->text(), QStringLiteral("anna"));
                              subject->setText(QStringLiteral("P07"));
                              dialog.findChild<QComboBox *>(QStringLiteral("cmbDominantEye"))->setCurrentIndex(1);
                              auto *fields = dialog.findChild<QTableWidget *>(QStringLiteral("tblFields"));
                              fields->setItem(0, 0, new QTableWidgetItem(QStringLiteral("age")));
                              fields->setItem(0, 1, new QTableWidgetItem(QStringLiteral("31")));
                              ModalAnswers::press(QStringLiteral("Write set file"))(dialog);
                          }});
    click("btnSave");
    QVERIFY(answers.areAllGiven());
    QCOMPARE(contents(path("anna.set")),
             QByteArray("picturename=a.png\npicturepath=a.png\n[subject]\nsubjectID=P07\ndominant=left\ngroup=None\n"
                        "age=31\n"));
}

void TestRecorder::faultySetFileIsRefused()
{
    connectToScript();
    record(1);
    ModalAnswers answers(
        {ModalAnswers::file(path("anna.data")), [](QDialog &dialog) {
             auto *button = dialog.findChild<QPushButton *>(QStringLiteral("btnWrite"));
             auto *fault = dialog.findChild<QLabel *>(QStringLiteral("lblFault"));
             QVERIFY(!button->isEnabled()); // the picture that is proposed is not there
             QVERIFY(fault->text().contains(QStringLiteral("a.png")));
             dialog.findChild<QLineEdit *>(QStringLiteral("linePicture"))->clear();
             QVERIFY(button->isEnabled());
             dialog.findChild<QLineEdit *>(QStringLiteral("lineSubject"))->setText(QStringLiteral("a=b"));
             QVERIFY(!button->isEnabled());
             QVERIFY(fault->text().contains(QStringLiteral("a=b")));
             ModalAnswers::cancel()(dialog);
         }});
    click("btnSave");
    QVERIFY(answers.areAllGiven());
    QVERIFY(!QFile::exists(path("anna.set")));
}

void TestRecorder::closingAsks_data()
{
    QTest::addColumn<QString>("answer");
    QTest::addColumn<bool>("isClosed");
    QTest::addColumn<bool>("isSaved");
    QTest::newRow("cancel") << QStringLiteral("Cancel") << false << false;
    QTest::newRow("discard") << QStringLiteral("Discard") << true << false;
    QTest::newRow("save") << QStringLiteral("Save") << true << true;
    QTest::newRow("save, and no file is chosen") << QStringLiteral("Save") << false << false;
}

void TestRecorder::closingAsks()
{
    QFETCH(QString, answer);
    QFETCH(bool, isClosed);
    QFETCH(bool, isSaved);
    connectToScript();
    record(2);
    std::deque<ModalAnswers::Answer> given = {ModalAnswers::press(answer)};
    if (isSaved) {
        given.push_back(ModalAnswers::file(path("anna.data")));
        given.push_back(ModalAnswers::press(QStringLiteral("No set file")));
    } else if (answer == QLatin1StringView("Save")) {
        given.push_back(ModalAnswers::cancel());
    }
    ModalAnswers answers(given);
    m_recorder->close();
    QVERIFY(answers.areAllGiven());
    QCOMPARE(!m_recorder->isVisible(), isClosed);
    QCOMPARE(m_recorder->frames().count(), 2);
    QCOMPARE(QFile::exists(path("anna.data")), isSaved);
    QCOMPARE(journals().isEmpty(), isClosed);
}

void TestRecorder::closingWithoutFramesDoesNotAsk()
{
    connectToScript();
    click("btnRecord");
    m_recorder->close();
    QVERIFY(!m_recorder->isVisible());
    QCOMPARE(journals(), QStringList());
}

void TestRecorder::interruptedRecordingIsOffered_data()
{
    QTest::addColumn<QString>("answer");
    QTest::addColumn<int>("frames");
    QTest::addColumn<int>("journals");
    QTest::newRow("recover") << QStringLiteral("Recover") << 3 << 1;
    QTest::newRow("delete") << QStringLiteral("Delete it") << 0 << 0;
    QTest::newRow("later") << QStringLiteral("Later") << 0 << 1;
}

void TestRecorder::interruptedRecordingIsOffered()
{
    QFETCH(QString, answer);
    QFETCH(int, frames);
    connectToScript();
    record(3);
    m_recorder.reset(); // ends without being closed
    open(m_server->port());
    ModalAnswers answers({ModalAnswers::press(answer)});
    m_recorder->offerInterruptedRecordings();
    QVERIFY(answers.areAllGiven());
    QCOMPARE(m_recorder->frames().unsavedCount(), frames);
    QTEST(static_cast<int>(journals().size()), "journals");
    if (frames == 0)
        return;
    QCOMPARE(label("lblRecordedFrames"), QStringLiteral("3"));
    click("btnRunServer");
    record(1); // goes on in the same journal
    m_recorder.reset();
    open(m_server->port());
    ModalAnswers again({ModalAnswers::press(answer)});
    m_recorder->offerInterruptedRecordings();
    QCOMPARE(m_recorder->frames().unsavedCount(), 4);
}

void TestRecorder::liveView()
{
    connectToScript();
    const QSignalSpy gaze(m_recorder.get(), &TheEyeTribeRecorder::sigGaze);
    const QSignalSpy shown(m_recorder.get(), &TheEyeTribeRecorder::sigLiveView);
    m_server->send(frameReply(1));
    QTRY_COMPARE(label("lblPosition"), QStringLiteral("(12.25, -7.5)"));
    QCOMPARE(gaze.count(), 0);
    QTest::mouseClick(find<QCheckBox>("chkLiveView"), Qt::LeftButton, {}, QPoint(5, 8));
    QCOMPARE(shown.count(), 1);
    m_server->send(frameReply(2));
    QTRY_COMPARE(gaze.count(), 1);
    const auto arrived = gaze.at(0).at(0).value<QList<ArrivedGaze>>();
    QCOMPARE(arrived.size(), 1);
    QCOMPARE(arrived[0].position, QPointF(12.25, -7.5));
    m_recorder->close();
    QCOMPARE(shown.count(), 2);
    QCOMPARE(shown.at(1).at(0).toBool(), false);
}

QTEST_MAIN(TestRecorder)
#include "TestRecorder.moc"
