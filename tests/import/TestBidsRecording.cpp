// SPDX-License-Identifier: GPL-3.0-or-later
#include "BidsFiles.h"
#include "import/bids/BidsFiles.h"
#include "import/bids/BidsRecording.h"

#include <QTest>

namespace {

/// The samples as "time x y width validity", for comparison.
QStringList shown(const GazeSamples &samples)
{
    QStringList lines;
    for (const GazePoint &sample : samples)
        lines << QStringLiteral("%1 %2 %3 %4 %5")
                     .arg(sample.time)
                     .arg(sample.x)
                     .arg(sample.y)
                     .arg(sample.width)
                     .arg(sample.validFlag ? 1 : 0);
    return lines;
}

QStringList list(const char *text)
{
    return QString::fromUtf8(text).split(u'|');
}

} // namespace

class TestBidsRecording : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init() { m_folder = std::make_unique<BidsFolder>(); }
    void twoEyes();
    void placeOfTheExamination_data();
    void placeOfTheExamination();
    void eyesOfOtherTimes();
    void clockBeforeZero();
    void clockThroughZero();
    void cyclopeanAlone();
    void units_data();
    void units();
    void degreesOfTheScreen();
    void withoutTimestamps();
    void startTimes();
    void startTimeBesideTimestamps();
    void missingKeys_data();
    void missingKeys();
    void wrongKeys_data();
    void wrongKeys();
    void sameEyeTwice();
    void inheritedDescription();
    void otherSignalsAreLeftOut();
    void events();
    void eventsBeforeZero();
    void eventsThatCannotBeRead();
    void eventsThatOverlap();
    void participants();
    void runsOfAFolder();
    void damagedFiles_data();
    void damagedFiles();

private:
    ImportedFile read() const
    {
        return readBidsRecording(m_folder->inRun(QStringLiteral("recording-eye1_physio.tsv.gz")));
    }
    QString refusal() const
    {
        const ImportedFile file = read();
        return file.examination.importOk || file.messages.size() != 1 ? QStringLiteral("not refused")
                                                                      : file.messages[0].details;
    }
    void writeEvents(const QByteArray &rows, const QJsonObject &description) const
    {
        m_folder->writeRun(QStringLiteral("recording-eye1_physioevents.tsv.gz"), gzipped(rows));
        m_folder->writeRun(QStringLiteral("recording-eye1_physioevents.json"), QJsonDocument(description).toJson());
    }
    /// A description of events with what each of them needs.
    static QJsonObject shortEvents()
    {
        return {{QStringLiteral("Columns"),
                 QJsonArray{QStringLiteral("onset"), QStringLiteral("duration"), QStringLiteral("trial_type")}}};
    }
    void writeUntimedEye(int number, const QString &eye, const QByteArray &rows, double startSeconds) const
    {
        m_folder->writeEye(number, eye, rows);
        QJsonObject description = BidsFolder::description(eye);
        description[QStringLiteral("Columns")] =
            QJsonArray{QStringLiteral("x_coordinate"), QStringLiteral("y_coordinate"), QStringLiteral("pupil_size")};
        description[QStringLiteral("StartTime")] = startSeconds;
        m_folder->writeDescription(QStringLiteral("recording-eye%1").arg(number), description);
    }

    std::unique_ptr<BidsFolder> m_folder;
};

void TestBidsRecording::twoEyes()
{
    m_folder->writeEye(1, QStringLiteral("left"), "5000\t10.5\t20\t3\n5010\tn/a\tn/a\tn/a\n5020\t12\t22\t4\n");
    m_folder->writeEye(2, QStringLiteral("right"), "5000\t20.5\t30\t5\n5010\t1\t2\t3\n5020\t14\t24\t2\n");
    const ImportedFile file = read();
    QVERIFY(file.examination.importOk);
    QCOMPARE(file.examination.baseName, QStringLiteral("sub-1_task-look"));
    QCOMPARE(file.examination.subjectId, QStringLiteral("1"));
    QCOMPARE(shown(file.examination.leftEye.gazePoints), list("0 10.5 20 3 1|10 0 0 0 0|20 12 22 4 1"));
    QCOMPARE(shown(file.examination.rightEye.gazePoints), list("0 20.5 30 5 1|10 1 2 3 1|20 14 24 2 1"));
    QCOMPARE(shown(file.examination.meanEye.gazePoints), list("0 15.5 25 4 1|10 -1 -1 -1 0|20 13 23 3 1"));
    QCOMPARE(file.counts.samples, qsizetype(3));
    QCOMPARE(file.doubts, QStringList());
}

void TestBidsRecording::placeOfTheExamination_data()
{
    QTest::addColumn<QString>("file");
    QTest::newRow("samples") << "sub-1/beh/sub-1_task-look_recording-eye1_physio.tsv.gz";
    QTest::newRow("their description") << "sub-1/beh/sub-1_task-look_recording-eye2_physio.json";
    QTest::newRow("a recording") << "s.1.data";
}

/// It is known before the file is read, and without reading it.
void TestBidsRecording::placeOfTheExamination()
{
    QFETCH(QString, file);
    m_folder->writeEye(1, QStringLiteral("left"), "5000\t10.5\t20\t3\n5010\t12\t22\t4\n");
    m_folder->writeEye(2, QStringLiteral("right"), "5000\t20.5\t30\t5\n5010\t14\t24\t2\n");
    m_folder->write(QStringLiteral("s.1.data"), "");
    const RecordingPath place = recordingOrBidsPath(m_folder->path(file));
    const Examination read = readRecordingOrBids(m_folder->path(file), nullptr).examination;
    QVERIFY(!place.directory.isEmpty() && !place.baseName.isEmpty());
    QCOMPARE(place.directory, read.directory);
    QCOMPARE(place.baseName, read.baseName);
}

void TestBidsRecording::eyesOfOtherTimes()
{
    m_folder->writeEye(1, QStringLiteral("left"), "100\t1\t1\t1\n110\t2\t2\t1\n120\t3\t3\t1\n");
    m_folder->writeEye(2, QStringLiteral("right"), "110\t5\t5\t1\n115\t6\t6\t1\n");
    const ImportedFile file = read();
    QCOMPARE(shown(file.examination.leftEye.gazePoints), list("0 1 1 1 1|10 2 2 1 1|15 0 0 0 0|20 3 3 1 1"));
    QCOMPARE(shown(file.examination.rightEye.gazePoints), list("0 0 0 0 0|10 5 5 1 1|15 6 6 1 1|20 0 0 0 0"));
    QCOMPARE(file.doubts,
             QStringList(QStringLiteral("at 3 of 4 times not every eye has a sample: one without counts as "
                                        "lost then.")));
}

/// Each eye begins before the zero of the clock, at a time of its own.
void TestBidsRecording::clockBeforeZero()
{
    m_folder->writeEye(1, QStringLiteral("left"), "-4\t1\t1\t1\n6\t2\t2\t1\n");
    m_folder->writeEye(2, QStringLiteral("right"), "-2.5\t5\t5\t1\n8\t6\t6\t1\n");
    const ImportedFile file = read();
    QCOMPARE(shown(file.examination.leftEye.gazePoints), list("0 1 1 1 1|2 0 0 0 0|10 2 2 1 1|12 0 0 0 0"));
    QCOMPARE(shown(file.examination.rightEye.gazePoints), list("0 0 0 0 0|2 5 5 1 1|10 0 0 0 0|12 6 6 1 1"));
}

/// One eye begins before zero, the other one behind it.
void TestBidsRecording::clockThroughZero()
{
    m_folder->writeEye(1, QStringLiteral("left"), "-10\t1\t1\t1\n0\t2\t2\t1\n10\t3\t3\t1\n");
    m_folder->writeEye(2, QStringLiteral("right"), "0\t5\t5\t1\n10\t6\t6\t1\n");
    const ImportedFile file = read();
    QCOMPARE(shown(file.examination.leftEye.gazePoints), list("0 1 1 1 1|10 2 2 1 1|20 3 3 1 1"));
    QCOMPARE(shown(file.examination.rightEye.gazePoints), list("0 0 0 0 0|10 5 5 1 1|20 6 6 1 1"));
}

void TestBidsRecording::cyclopeanAlone()
{
    m_folder->writeEye(1, QStringLiteral("cyclopean"), "0\t1\t2\t3\n10\tn/a\tn/a\tn/a\n");
    const ImportedFile file = read();
    QVERIFY(file.examination.importOk);
    QCOMPARE(shown(file.examination.meanEye.gazePoints), list("0 1 2 3 1|10 -1 -1 -1 0"));
    QCOMPARE(shown(file.examination.leftEye.gazePoints), list("0 0 0 0 0|10 0 0 0 0"));
}

void TestBidsRecording::units_data()
{
    QTest::addColumn<QString>("unit");
    QTest::addColumn<QByteArray>("rows");
    QTest::newRow("milliseconds") << "ms" << QByteArray("7\t1\t1\t1\n27\t2\t2\t1\n");
    QTest::newRow("seconds") << "s" << QByteArray("0.007\t1\t1\t1\n0.027\t2\t2\t1\n");
    QTest::newRow("microseconds") << "microseconds" << QByteArray("7000\t1\t1\t1\n27000\t2\t2\t1\n");
    QTest::newRow("nanoseconds") << "ns" << QByteArray("7000000\t1\t1\t1\n27000000\t2\t2\t1\n");
}

void TestBidsRecording::units()
{
    QFETCH(QString, unit);
    QFETCH(QByteArray, rows);
    m_folder->writeEye(1, QStringLiteral("left"), rows);
    QJsonObject description = BidsFolder::description(QStringLiteral("left"));
    description[QStringLiteral("timestamp")] = QJsonObject{{QStringLiteral("Units"), unit}};
    m_folder->writeDescription(QStringLiteral("recording-eye1"), description);
    QCOMPARE(shown(read().examination.leftEye.gazePoints), list("0 1 1 1 1|20 2 2 1 1"));
}

/// 45 degrees to the right of the middle of a screen 1 m wide, 1000 px, at 0.5 m: 0.5 m are 500 px.
void TestBidsRecording::degreesOfTheScreen()
{
    m_folder->writeEye(1, QStringLiteral("left"), "0\t45\t0\t1\n");
    QJsonObject description = BidsFolder::description(QStringLiteral("left"));
    description[QStringLiteral("x_coordinate")] = description[QStringLiteral("y_coordinate")] =
        QJsonObject{{QStringLiteral("Units"), QStringLiteral("degree")}};
    m_folder->writeDescription(QStringLiteral("recording-eye1"), description);
    QVERIFY2(refusal().contains(QStringLiteral("StimulusPresentation.ScreenResolution")), qPrintable(refusal()));
    m_folder->write(QStringLiteral("task-look_events.json"),
                    R"({"StimulusPresentation": {"ScreenResolution": [1000, 500], "ScreenSize": [1, 0.5],
                        "ScreenDistance": 0.5, "ScreenOrigin": ["center", "center"]}})");
    const ImportedFile file = read();
    QVERIFY2(file.examination.importOk, qPrintable(refusal()));
    const GazePoint sample = file.examination.leftEye.gazePoints[0];
    QVERIFY(std::abs(sample.x - 1000) < 1e-9 && std::abs(sample.y - 250) < 1e-9);
}

void TestBidsRecording::withoutTimestamps()
{
    writeUntimedEye(1, QStringLiteral("left"), "1\t1\t1\n2\t2\t1\n", 0);
    QCOMPARE(shown(read().examination.leftEye.gazePoints), list("0 1 1 1 1|10 2 2 1 1")); // 100 Hz
}

/// The eyes begin at different times, which only their descriptions tell.
void TestBidsRecording::startTimes()
{
    writeUntimedEye(1, QStringLiteral("left"), "1\t1\t1\n2\t2\t1\n3\t3\t1\n", -0.01);
    writeUntimedEye(2, QStringLiteral("right"), "5\t5\t1\n6\t6\t1\n", 0.01);
    writeEvents("10\t10\tfixation\n", shortEvents());
    const ImportedFile file = read();
    QCOMPARE(shown(file.examination.leftEye.gazePoints), list("0 1 1 1 1|10 2 2 1 1|20 3 3 1 1|30 0 0 0 0"));
    QCOMPARE(shown(file.examination.rightEye.gazePoints), list("0 0 0 0 0|10 0 0 0 0|20 5 5 1 1|30 6 6 1 1"));
    QCOMPARE(file.examination.leftEye.scanpath.size(), qsizetype(1));
    QCOMPARE(file.examination.leftEye.scanpath[0].firstTime(), qint64(20));
}

/// Where samples have times, these tell when they were; the start is that of the first one.
void TestBidsRecording::startTimeBesideTimestamps()
{
    m_folder->writeEye(1, QStringLiteral("left"), "500\t1\t1\t1\n510\t2\t2\t1\n");
    QJsonObject description = BidsFolder::description(QStringLiteral("left"));
    description[QStringLiteral("StartTime")] = 0.5;
    m_folder->writeDescription(QStringLiteral("recording-eye1"), description);
    writeEvents("510\t0\tfixation\n", shortEvents());
    QCOMPARE(read().examination.leftEye.scanpath[0].firstTime(), qint64(10));
}

void TestBidsRecording::missingKeys_data()
{
    QTest::addColumn<QString>("key");
    for (const char *key : {"PhysioType", "RecordedEye", "SamplingFrequency", "StartTime", "Columns"})
        QTest::newRow(key) << QString::fromLatin1(key);
    QTest::newRow("unit of the time") << "timestamp";
    QTest::newRow("unit of the place") << "x_coordinate";
}

/// The refusal names the file, the key and what to do.
void TestBidsRecording::missingKeys()
{
    QFETCH(QString, key);
    m_folder->writeEye(1, QStringLiteral("left"), "0\t1\t1\t1\n");
    QJsonObject description = BidsFolder::description(QStringLiteral("left"));
    description.remove(key);
    m_folder->writeDescription(QStringLiteral("recording-eye1"), description);
    const QString text = refusal();
    QVERIFY2(text.contains(m_folder->inRun(QStringLiteral("recording-eye1_physio.json"))), qPrintable(text));
    QVERIFY2(text.contains(QStringLiteral("found no key ") + key), qPrintable(text));
    QVERIFY2(text.contains(QStringLiteral("Write ") + key + QStringLiteral(" into that file")), qPrintable(text));
}

void TestBidsRecording::wrongKeys_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("json");
    QTest::addColumn<QString>("found");
    QTest::newRow("another eye") << "RecordedEye"
                                 << "\"third\""
                                 << "RecordedEye: \"third\"";
    QTest::newRow("an eye as a number") << "RecordedEye"
                                        << "1"
                                        << "RecordedEye: 1";
    QTest::newRow("another signal") << "PhysioType"
                                    << "\"generic\""
                                    << "PhysioType: \"generic\"";
    QTest::newRow("rate as a text") << "SamplingFrequency"
                                    << "\"100\""
                                    << "SamplingFrequency: \"100\"";
    QTest::newRow("rate of 0") << "SamplingFrequency"
                               << "0"
                               << "SamplingFrequency: 0";
    QTest::newRow("columns without places") << "Columns"
                                            << "[\"timestamp\"]"
                                            << "Columns: [\"timestamp\"]";
    QTest::newRow("columns as a text") << "Columns"
                                       << "\"timestamp\""
                                       << "Columns: \"timestamp\"";
    QTest::newRow("unknown unit of time") << "timestamp"
                                          << "{\"Units\": \"day\"}"
                                          << "timestamp.Units: \"day\"";
    QTest::newRow("unknown unit of place") << "y_coordinate"
                                           << "{\"Units\": \"ell\"}"
                                           << "y_coordinate.Units: \"ell\"";
}

void TestBidsRecording::wrongKeys()
{
    QFETCH(QString, key);
    QFETCH(QString, json);
    QFETCH(QString, found);
    m_folder->writeEye(1, QStringLiteral("left"), "0\t1\t1\t1\n");
    QJsonObject description = BidsFolder::description(QStringLiteral("left"));
    description[key] = QJsonDocument::fromJson("[" + json.toUtf8() + "]").array()[0];
    m_folder->writeDescription(QStringLiteral("recording-eye1"), description);
    QVERIFY2(refusal().contains(QStringLiteral("found ") + found), qPrintable(refusal()));
}

void TestBidsRecording::sameEyeTwice()
{
    m_folder->writeEye(1, QStringLiteral("left"), "0\t1\t1\t1\n");
    m_folder->writeEye(2, QStringLiteral("left"), "0\t1\t1\t1\n");
    QVERIFY2(refusal().contains(QStringLiteral("found the same RecordedEye as of sub-1_task-look_recording-eye1")),
             qPrintable(refusal()));
}

/// General keys stand at the top, the eye beside the samples; what is nearer wins.
void TestBidsRecording::inheritedDescription()
{
    m_folder->writeEye(1, QStringLiteral("left"), "0\t1\t1\t1\n1\t2\t2\t1\n");
    QJsonObject general = BidsFolder::description(QStringLiteral("right"));
    m_folder->write(QStringLiteral("task-look_physio.json"), QJsonDocument(general).toJson());
    m_folder->write(QStringLiteral("task-other_physio.json"), R"({"timestamp": {"Units": "day"}})");
    m_folder->writeDescription(QStringLiteral("recording-eye1"),
                               {{QStringLiteral("RecordedEye"), QStringLiteral("left")}});
    const ImportedFile file = read();
    QVERIFY2(file.examination.importOk, qPrintable(refusal()));
    QCOMPARE(shown(file.examination.leftEye.gazePoints), list("0 1 1 1 1|1 2 2 1 1"));
}

void TestBidsRecording::otherSignalsAreLeftOut()
{
    m_folder->writeEye(1, QStringLiteral("left"), "0\t1\t1\t1\n");
    m_folder->writeRun(QStringLiteral("recording-cardiac_physio.tsv.gz"), gzipped("1\n2\n"));
    m_folder->writeDescription(QStringLiteral("recording-cardiac"),
                               {{QStringLiteral("PhysioType"), QStringLiteral("generic")}});
    QCOMPARE(shown(read().examination.leftEye.gazePoints), list("0 1 1 1 1"));
}

/// Times are those of the samples' clock; the place stands in the table, or is the mean of the samples.
void TestBidsRecording::events()
{
    m_folder->writeEye(1, QStringLiteral("left"),
                       "1000\t10\t10\t1\n1010\t12\t10\t1\n1020\t50\t50\t1\n1030\tn/a\tn/a\tn/a\n1040\t90\t90\t1\n");
    const QJsonObject description{
        {QStringLiteral("Columns"),
         QJsonArray{QStringLiteral("onset"), QStringLiteral("duration"), QStringLiteral("trial_type"),
                    QStringLiteral("x_coordinate"), QStringLiteral("y_coordinate"), QStringLiteral("message")}}};
    writeEvents("1000\t10\tfixation\t11\t9\tn/a\n1010\t10\tsaccade\tn/a\tn/a\tn/a\n1030\t10\tloss\tn/a\tn/a\tn/a\n"
                "1040\t0\tfixation\tn/a\tn/a\tn/a\n1015\tn/a\tn/a\tn/a\tn/a\thello\n",
                description);
    const ImportedFile file = read();
    const EyeData &eye = file.examination.leftEye;
    QCOMPARE(eye.scanpath.size(), qsizetype(2));
    QCOMPARE(eye.scanpath[0].mean, QPoint(11, 9));
    QCOMPARE(eye.scanpath[0].firstTime(), qint64(0));
    QCOMPARE(eye.scanpath[0].lastTime(), qint64(10));
    QCOMPARE(eye.scanpath[1].mean, QPoint(90, 90));
    QCOMPARE(eye.saccades.size(), qsizetype(1));
    QCOMPARE(shown(eye.saccades[0].samples), list("10 12 10 1 1|20 50 50 1 1"));
    QCOMPARE(shown(eye.invalids[0].samples), list("30 0 0 0 0"));
    QCOMPARE(file.doubts,
             QStringList(QStringLiteral("fixations, saccades and losses of its eyes, read with the samples: "
                                        "2, 1 and 1. They stand until fixations are calculated: the "
                                        "calculation replaces them.")));
    QCOMPARE(file.examination.calculationInfo.fixationLines(),
             QStringLiteral("Read from sub-1_task-look_recording-eye1_physioevents.tsv.gz\n"));
}

/// Their onsets are on the clock of the samples, which begins before its zero.
void TestBidsRecording::eventsBeforeZero()
{
    m_folder->writeEye(1, QStringLiteral("left"),
                       "-4000\t10\t10\t1\n-3990.5\t12\t10\t1\n-3980\t50\t50\t1\n0\t60\t60\t1\n10\t70\t70\t1\n");
    writeEvents("-3990.5\t10.5\tfixation\n0\t10\tfixation\n", shortEvents());
    const EyeData eye = read().examination.leftEye;
    QCOMPARE(eye.scanpath.size(), qsizetype(2));
    QCOMPARE(shown(eye.scanpath[0].samples), list("10 12 10 1 1|20 50 50 1 1"));
    QCOMPARE(shown(eye.scanpath[1].samples), list("4000 60 60 1 1|4010 70 70 1 1"));
}

void TestBidsRecording::eventsThatCannotBeRead()
{
    m_folder->writeEye(1, QStringLiteral("left"), "0\t1\t1\t1\n10\t1\t1\t1\n");
    writeEvents("0\t10\tfixation\n", {});
    ImportedFile file = read();
    QVERIFY(file.examination.importOk); // the samples are there all the same
    QCOMPARE(file.doubts.size(), qsizetype(1));
    QVERIFY2(file.doubts[0].contains(QStringLiteral("physioevents.json: found no key Columns")),
             qPrintable(file.doubts[0]));
    writeEvents("0\tlong\tfixation\n0\t10\tfixation\n", shortEvents());
    file = read();
    QCOMPARE(file.examination.leftEye.scanpath.size(), qsizetype(1));
    QVERIFY2(file.doubts[0].contains(QStringLiteral("events without onset or duration, left out: 1.")),
             qPrintable(file.doubts[0]));
}

/// Each event has all samples of its time: a small packed file could ask for more memory than there is.
void TestBidsRecording::eventsThatOverlap()
{
    constexpr int samples = 1000;
    QByteArray rows;
    for (int i = 0; i < samples; ++i)
        rows += QByteArray::number(10 * i) + "\t1\t1\t1\n";
    m_folder->writeEye(1, QStringLiteral("left"), rows);
    writeEvents(QByteArray("0\t1e12\tfixation\n").repeated(200000), shortEvents());
    ImportedFile file = read();
    QVERIFY(file.examination.importOk);
    QCOMPARE(file.examination.leftEye.gazePoints.size(), qsizetype(samples));
    QVERIFY(file.examination.leftEye.scanpath.isEmpty());
    QCOMPARE(file.doubts,
             QStringList(QStringLiteral("sub-1_task-look_recording-eye1_physioevents.tsv.gz: the events were not read, "
                                        "because events overlap: together they have many times the samples of the "
                                        "recording.")));
    writeEvents(QByteArray("0\t1e12\tfixation\n").repeated(8), shortEvents()); // odd, and harmless
    file = read();
    QCOMPARE(file.examination.leftEye.scanpath.size(), qsizetype(8));
    writeEvents(QByteArray("0\t1e12\tblock\n").repeated(200000) + "0\t10\tfixation\n", shortEvents());
    file = read();
    QCOMPARE(file.examination.leftEye.scanpath.size(), qsizetype(1)); // others have no samples
}

void TestBidsRecording::participants()
{
    m_folder->writeEye(1, QStringLiteral("left"), "0\t1\t1\t1\n");
    m_folder->write(QStringLiteral("participants.tsv"), "participant_id\tage\tdominant\tsex\nsub-2\t50\tright\tm\n"
                                                        "sub-1\t30\tleft\tn/a\n");
    const Examination examination = read().examination;
    QCOMPARE(examination.properties.value(QStringLiteral("age")), QStringLiteral("30"));
    QCOMPARE(examination.dominantEye, QStringLiteral("left"));
    QCOMPARE(examination.subjectId, QStringLiteral("1"));
    QVERIFY(!examination.properties.contains(QStringLiteral("sex")));
}

void TestBidsRecording::runsOfAFolder()
{
    m_folder->writeEye(1, QStringLiteral("left"), "0\t1\t1\t1\n");
    m_folder->writeEye(2, QStringLiteral("right"), "0\t1\t1\t1\n");
    QDir(m_folder->path(QString())).mkpath(QStringLiteral("sub-2/beh"));
    m_folder->write(QStringLiteral("sub-2/beh/sub-2_task-look_recording-eye1_physio.tsv.gz"), "");
    const QStringList runs = bidsRunsIn(m_folder->path(QString()));
    QCOMPARE(runs.size(), qsizetype(2));
    QVERIFY(runs[0].endsWith(QStringLiteral("sub-1_task-look_recording-eye1_physio.tsv.gz")));
    QVERIFY(runs[1].endsWith(QStringLiteral("sub-2_task-look_recording-eye1_physio.tsv.gz")));
    QCOMPARE(withoutRepeatedRuns({runs[0], QStringLiteral("a.data"), QStringLiteral("a.data"),
                                  m_folder->inRun(QStringLiteral("recording-eye2_physio.json"))}),
             QStringList({runs[0], QStringLiteral("a.data"), QStringLiteral("a.data")}));
    QVERIFY(isBidsSamples(runs[0]) && !isBidsSamples(QStringLiteral("a.data")));
}

void TestBidsRecording::damagedFiles_data()
{
    QTest::addColumn<QString>("end");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("told");
    const QByteArray packed = gzipped("0\t1\t1\t1\n");
    QTest::newRow("empty samples") << "recording-eye1_physio.tsv.gz" << gzipped({}) << "found";
    QTest::newRow("cut samples") << "recording-eye1_physio.tsv.gz" << packed.chopped(6) << "cut off";
    QTest::newRow("a bomb") << "recording-eye1_physio.tsv.gz" << gzipped(QByteArray(qsizetype(200) << 20, '0'))
                            << "found";
    QTest::newRow("no JSON") << "recording-eye1_physio.json" << QByteArray("{\n\"a\": }") << "line 2";
    QTest::newRow("a list") << "recording-eye1_physio.json" << QByteArray("[]") << "expected an object in JSON";
    QTest::newRow("deep JSON") << "recording-eye1_physio.json" << QByteArray(100000, '[') << "expected an object";
    QTest::newRow("a large description") << "recording-eye1_physio.json" << QByteArray(qsizetype(17) << 20, ' ')
                                         << "16 MB";
    QTest::newRow("no valid sample") << "recording-eye1_physio.tsv.gz" << gzipped("0\tn/a\tn/a\tn/a\n")
                                     << "none of its samples is valid";
}

void TestBidsRecording::damagedFiles()
{
    QFETCH(QString, end);
    QFETCH(QByteArray, bytes);
    QFETCH(QString, told);
    m_folder->writeEye(1, QStringLiteral("left"), "0\t1\t1\t1\n");
    m_folder->writeRun(end, bytes);
    QVERIFY2(refusal().contains(told), qPrintable(refusal()));
}

QTEST_GUILESS_MAIN(TestBidsRecording)
#include "TestBidsRecording.moc"
