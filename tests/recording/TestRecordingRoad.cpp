// SPDX-License-Identifier: GPL-3.0-or-later
#include "detection/FixationCalculation.h"
#include "import/ExaminationImport.h"
#include "recording/ModalAnswers.h"
#include "recording/panel/QCalibrationWidget.h"
#include "recording/panel/TheEyeTribeRecorder.h"
#include "recording/SimulatorProcess.h"
#include "TestMessages.h"

#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

/// The whole road: a simulated tracker replays a recording, the recorder calibrates, records and saves, the file is
/// imported and its fixations are detected. Processes, sockets and windows are real.
class TestRecordingRoad : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void samplesArrive_data();
    void samplesArrive();
};

namespace {

const QString study = QStringLiteral(VISTRUM_SOURCE_DIR "/examples/study/");

QList<QByteArray> sampleLines(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QList<QByteArray> lines;
    for (const QByteArray &line : file.readAll().split('\n')) {
        if (!line.isEmpty() && line[0] >= '0' && line[0] <= '9')
            lines << line;
    }
    return lines;
}

/// The six digits that the format keeps of a number in single precision, which a frame has.
QByteArray kept(const QByteArray &number)
{
    return QByteArray::number(static_cast<double>(static_cast<float>(number.toDouble())), 'g', 6);
}

/// What has to stand in the saved file for a line of the replayed one: the pupil's width twice, one validity for both
/// eyes; without the time.
QByteArray expectedFields(const QByteArray &line)
{
    const QList<QByteArray> from = line.split('\t');
    const QByteArray validity = from[5] == "1" && from[10] == "1" ? "1" : "0";
    const auto eye = [&](int first) {
        const QByteArray pupil = kept(from[first + 2]);
        return QByteArrayList{kept(from[first]), kept(from[first + 1]), pupil, pupil, validity};
    };
    return (eye(1) + eye(6)).join('\t');
}

QByteArray withoutTime(const QByteArray &line)
{
    return line.mid(line.indexOf('\t') + 1);
}

/// Presses a key as often as the calibration needs.
void calibrate(TheEyeTribeRecorder &recorder)
{
    QTest::mouseClick(recorder.findChild<QPushButton *>(QStringLiteral("btnCalibrate")), Qt::LeftButton);
    const QPointer<QCalibrationWidget> calibration = recorder.calibration();
    QVERIFY(calibration);
    QVERIFY(QTest::qWaitForWindowExposed(calibration));
    for (int index = -1; index < 9; ++index) {
        QTRY_COMPARE(calibration->index(), index); // an error that nobody asked for holds it up at first
        QTest::keyClick(calibration.data(), Qt::Key_Space);
        QTRY_VERIFY_WITH_TIMEOUT(!calibration || calibration->index() > index, 30'000);
    }
    QTRY_VERIFY(!calibration);
    QTRY_COMPARE(recorder.findChild<QLabel *>(QStringLiteral("lblCalibration"))->text(),
                 QStringLiteral("0.5 right: 0.75"));
}

} // namespace

void TestRecordingRoad::samplesArrive_data()
{
    QTest::addColumn<int>("rateHz");
    QTest::addColumn<QString>("hostilities");
    QTest::newRow("60 Hz") << 60 << QStringLiteral("torn");
    QTest::newRow("250 Hz") << 250 << QStringLiteral("torn,merged");
    QTest::newRow("1000 Hz") << 1000 << QStringLiteral("torn,merged,wrong-json,unknown-codes,braces,noise,flood");
}

void TestRecordingRoad::samplesArrive()
{
    QFETCH(int, rateHz);
    QFETCH(QString, hostilities);
    const RecordedMessages told;
    const QString original = study + QStringLiteral("S01.data");
    const SimulatorProcess simulator({QStringLiteral("--recording"), original, QStringLiteral("--rate"),
                                      QString::number(rateHz), QStringLiteral("--hostile"), hostilities});
    const QTemporaryDir folder;
    TheEyeTribeRecorder recorder(
        RecorderSetup{.port = simulator.port(), .journalFolder = folder.filePath(QStringLiteral("journals"))});
    recorder.show();
    QVERIFY(QTest::qWaitForWindowExposed(&recorder));
    recorder.findChild<QLineEdit *>(QStringLiteral("lineServerPath"))->setText(QStringLiteral("/x/tracker-simulator"));
    const auto click = [&recorder](const char *name) {
        QTest::mouseClick(recorder.findChild<QPushButton *>(QLatin1StringView(name)), Qt::LeftButton);
    };
    click("btnRunServer");
    calibrate(recorder);
    click("btnRecord");
    const int wanted = 3 * rateHz;
    QTRY_VERIFY_WITH_TIMEOUT(recorder.frames().count() > wanted, 60'000);
    click("btnRecord");

    const QString saved = folder.filePath(QStringLiteral("road.data"));
    ModalAnswers answers({ModalAnswers::file(saved), ModalAnswers::press(QStringLiteral("Write set file"))});
    click("btnSave");
    QVERIFY(answers.areAllGiven());
    QCOMPARE(told.texts(), QStringList());

    const QList<QByteArray> sent = sampleLines(original);
    const QList<QByteArray> received = sampleLines(saved);
    QCOMPARE(received.size(), recorder.frames().count());
    // Whole rounds and the place in the round follow from the time: none is lost, none doubled.
    const qint64 firstTime = sent[0].split('\t')[0].toLongLong();
    const qint64 stepMs = sent[1].split('\t')[0].toLongLong() - firstTime;
    const qint64 start = (received[0].split('\t')[0].toLongLong() - firstTime) / stepMs;
    for (qsizetype i = 0; i < received.size(); ++i) {
        const QByteArray &line = sent[(start + i) % sent.size()];
        QCOMPARE(received[i].split('\t')[0].toLongLong(), firstTime + (start + i) * stepMs);
        QCOMPARE(withoutTime(received[i]), expectedFields(line));
    }

    DataModel model;
    QCOMPARE(importRecordings({saved}, model, nullptr, [](const Examination &) {}).numbers.size(), 1);
    const Examination &examination = std::as_const(model).examinations().constFirst();
    QCOMPARE(examination.subjectId, QStringLiteral("road"));
    QCOMPARE(examination.leftEye.gazePoints.size(), received.size());
    FixationSettingsModel settings;
    settings.standardMinimumDuration = 100;
    settings.standardMaximumRadius = 40;
    QVERIFY(calculateFixations(model, calculationParameters(0, settings), nullptr));
    QVERIFY(std::as_const(model).examinations().constFirst().leftEye.scanpath.size() > 1);
}

QTEST_MAIN(TestRecordingRoad)
#include "TestRecordingRoad.moc"
