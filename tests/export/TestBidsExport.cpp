// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/bids/BidsExport.h"
#include "export/bids/BidsNames.h"
#include "export/bids/BidsTables.h"
#include "export/bids/Gzip.h"
#include "ExportSamples.h"
#include "FullDisk.h"
#include "import/bids/BidsEvents.h"
#include "import/bids/BidsRecording.h"
#include "SimulatedStudy.h"
#include "TestMessages.h"

#include <QDir>
#include <QDirIterator>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTemporaryDir>
#include <QTest>

namespace {

QString unpacked(const QString &path)
{
    QString problem;
    return QString::fromUtf8(unpackedFile(path, problem).value_or(problem.toUtf8()));
}

QJsonObject objectIn(const QString &path)
{
    return QJsonDocument::fromJson(samples::bytesOf(path)).object();
}

QMap<QString, QByteArray> filesBelow(const QString &folder)
{
    QMap<QString, QByteArray> files;
    for (QDirIterator entry(folder, QDir::Files, QDirIterator::Subdirectories); entry.hasNext();) {
        const QString path = entry.next();
        files.insert(QDir(folder).relativeFilePath(path), samples::bytesOf(path));
    }
    return files;
}

Examination person(const QString &id, const QString &recording)
{
    Examination examination = samples::examination(id, QString());
    examination.baseName = recording;
    return examination;
}

} // namespace

class TestBidsExport : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void labels_data();
    void labels();
    void namesOfSubjectsAndRuns();
    void gzipIsTheSameEverywhere();
    void sampleRows();
    void lostSamplesKeepWhatWasRecorded();
    void eventRows();
    void rate_data();
    void rate();
    void filesOfTheStudy();
    void screenWithAndWithoutGeometry();
    void timeOfThePicture_data();
    void timeOfThePicture();
    void parametersOfAllRecordings();
    void participantsHaveWhatIsTheSameInAllTheirRecordings();
    void sameFilesWithAnyNumberOfThreads();
    void importGivesWhatWasExported();
    void strangersAreTold();
    void fullDiskLeavesNoEmptyFolders();
    void filesOfAnOlderExportAreTold();
};

void TestBidsExport::labels_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("label");
    QTest::newRow("letters and digits") << "P07a"
                                        << "P07a";
    QTest::newRow("signs") << "P-07_a b/../c"
                           << "P07abc";
    QTest::newRow("other letters") << QString::fromUtf8("M\xC3\xBCller\xD9\xA3") << "Mller";
    QTest::newRow("nothing left") << "../.."
                                  << "";
}

void TestBidsExport::labels()
{
    QFETCH(QString, text);
    QTEST(bidsLabel(text), "label");
}

void TestBidsExport::namesOfSubjectsAndRuns()
{
    QList<Examination> people{person(QStringLiteral("A1"), {}), person(QStringLiteral("a-1"), {}),
                              person(QStringLiteral("A1"), {}), person(QString(), QStringLiteral("rec 9")),
                              person(QStringLiteral("--"), {}), person(QStringLiteral("A1"), {})};
    people[5].properties.insert(QStringLiteral("task"), QStringLiteral("visual search"));
    QList<const Examination *> pointers;
    for (const Examination &each : std::as_const(people))
        pointers << &each;
    const BidsNames named = bidsNames(pointers);
    QStringList stems;
    for (const BidsName &name : named.names)
        stems << name.stem();
    QCOMPARE(stems,
             QStringList({QStringLiteral("sub-A1_task-viewing_run-1"), QStringLiteral("sub-a1x2_task-viewing_run-1"),
                          QStringLiteral("sub-A1_task-viewing_run-2"), QStringLiteral("sub-rec9_task-viewing_run-1"),
                          QStringLiteral("sub-subject_task-viewing_run-1"),
                          QStringLiteral("sub-A1_task-visualsearch_run-1")}));
    QCOMPARE(named.remarks.size(), qsizetype(3));
    QVERIFY(named.remarks[0].contains(QStringLiteral("\"a-1\" is sub-a1x2")));
    QCOMPARE(named.names[0].folder(), QStringLiteral("sub-A1/beh/"));
}

/// A header without flags, without time, of an unknown system.
void TestBidsExport::gzipIsTheSameEverywhere()
{
    const QByteArray packed = gzipped("hello\n");
    QCOMPARE(packed.first(4), QByteArray("\x1f\x8b\x08\x00", 4));
    QCOMPARE(packed.sliced(4, 4), QByteArray(4, '\0'));
    QCOMPARE(packed[9], '\xff');
    QCOMPARE(gzipped("hello\n"), packed);
    const QTemporaryDir folder;
    for (const QByteArray &text : {QByteArray(), QByteArray("x"), QByteArray(3000000, 'y')}) {
        QFile file(folder.filePath(QStringLiteral("a.gz")));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(gzipped(text)) > 0);
        file.close();
        QCOMPARE(unpacked(file.fileName()).toUtf8(), text);
    }
}

void TestBidsExport::sampleRows()
{
    const QList<GazePoint> points{
        {0, 1.5, 2, 3, 4, 1}, {10, 0, 0, 0, 0, 0}, {20, 0.1, -7, 0, 1e6, 1}, {30, 9, 9, 9, 9, 1}};
    const BidsTable table = bidsSamples(points, {0, 20}, 0);
    QCOMPARE(QString::fromLatin1(table.rows),
             QStringLiteral("0\t1.5\t2\t3\t4\n10\tn/a\tn/a\tn/a\tn/a\n20\t0.1\t-7\t0\t1e+06\n"));
    QCOMPARE(table.columns.join(u' '), QStringLiteral("timestamp x_coordinate y_coordinate pupil_size pupil_height"));
}

void TestBidsExport::lostSamplesKeepWhatWasRecorded()
{
    const QList<GazePoint> points{{0, 1, 2, 3, 4, 1}, {10, 5, 0, 0, 0, 0}};
    const BidsTable table = bidsSamples(points, {0, 20}, 0);
    QCOMPARE(QString::fromLatin1(table.rows), QStringLiteral("0\t1\t2\t3\t4\tn/a\tn/a\tn/a\tn/a\n"
                                                             "10\tn/a\tn/a\tn/a\tn/a\t5\t0\t0\t0\n"));
    QCOMPARE(table.columns.size(), qsizetype(9));
    const QList<GazePoint> mean{{0, -1, -1, -1, -1, 0}};
    QCOMPARE(bidsSamples(mean, {0, 20}, -1).columns.size(), qsizetype(5));
}

void TestBidsExport::eventRows()
{
    EyeData stream;
    stream.gazePoints = {samples::valid(0), samples::valid(10), samples::lost(20), samples::valid(30),
                         samples::valid(40)};
    stream.scanpath = {samples::fixation({0, 10}, {5, 6}), samples::fixation({30, 40}, {8, 10})};
    QCOMPARE(QString::fromLatin1(bidsEvents(stream, TimeFrame{0, 100}).rows),
             QStringLiteral("0\t10\tfixation\t5\t6\tn/a\tn/a\t2\n10\t20\tsaccade\t5\t6\t8\t10\t3\n"
                            "20\t10\tloss\tn/a\tn/a\tn/a\tn/a\t1\n30\t10\tfixation\t8\t10\tn/a\tn/a\t2\n"));
}

void TestBidsExport::rate_data()
{
    QTest::addColumn<QList<qint64>>("times");
    QTest::addColumn<double>("hertz");
    QTest::newRow("no sample") << QList<qint64>() << 0.0;
    QTest::newRow("one sample") << QList<qint64>{5} << 0.0;
    QTest::newRow("even") << QList<qint64>{0, 4, 8, 12} << 250.0;
    QTest::newRow("rounded to ms") << QList<qint64>{0, 8, 17, 25} << 120.0; // 3 steps in 25 ms
    QTest::newRow("equal times at 2000 Hz") << QList<qint64>{0, 0, 1, 1, 2} << 2000.0;
    QTest::newRow("a gap does not count") << QList<qint64>{0, 4, 1000, 1004} << 250.0;
}

void TestBidsExport::rate()
{
    QFETCH(QList<qint64>, times);
    QFETCH(double, hertz);
    QList<GazePoint> points;
    for (const qint64 time : std::as_const(times))
        points << samples::valid(time);
    QCOMPARE(measuredRateHz(points, {0, 10000}), hertz);
}

void TestBidsExport::filesOfTheStudy()
{
    const DataModel model = study::model();
    const RecordedMessages messages;
    const QTemporaryDir folder;
    const ExportResult result = exportBids(model, {folder.path(), QStringLiteral("p"), EyeMode::showAll}, {});
    const QString root = folder.filePath(QStringLiteral("p_bids/"));
    QCOMPARE(result.written.size(), qsizetype(4 + 4 * (3 * 4 + 2))); // four checked recordings of three eyes
    const QJsonObject description = objectIn(root + QStringLiteral("dataset_description.json"));
    QCOMPARE(description[QStringLiteral("DatasetType")].toString(), QStringLiteral("derivative"));
    const QJsonObject generator = description[QStringLiteral("GeneratedBy")].toArray()[0].toObject();
    QCOMPARE(generator[QStringLiteral("Name")].toString(), QStringLiteral("Vistrum"));
    QVERIFY(generator[QStringLiteral("Parameters")].toObject()[QStringLiteral("Fixations")].toString().contains(
        QStringLiteral("Minimum Duration:80")));
    constexpr const char *words[] = {"left", "right", "cyclopean"};
    for (int eye = 1; eye <= 3; ++eye) {
        const QString stem = root + QStringLiteral("sub-1/beh/sub-1_task-viewing_run-1_recording-eye%1_").arg(eye);
        const QJsonObject sidecar = objectIn(stem + QStringLiteral("physio.json"));
        QCOMPARE(sidecar[QStringLiteral("RecordedEye")].toString(), QLatin1StringView(words[eye - 1]));
        QCOMPARE(sidecar[QStringLiteral("PhysioType")].toString(), QStringLiteral("eyetrack"));
        QCOMPARE(sidecar[QStringLiteral("SamplingFrequency")].toDouble(), 250.0);
        QCOMPARE(sidecar[QStringLiteral("StartTime")].toDouble(), 0.5); // the frame begins there
        const QStringList rows = unpacked(stem + QStringLiteral("physio.tsv.gz")).split(u'\n');
        QVERIFY(rows[0].startsWith(QStringLiteral("500\t")));
        QCOMPARE(rows[0].count(u'\t') + 1, sidecar[QStringLiteral("Columns")].toArray().size());
        QVERIFY(unpacked(stem + QStringLiteral("physioevents.tsv.gz")).contains(QStringLiteral("\tfixation\t")));
    }
    QCOMPARE(messages.texts(),
             QStringList(QStringLiteral("BIDS Export|BIDS data set exported to: ") + root.chopped(1)));
}

void TestBidsExport::screenWithAndWithoutGeometry()
{
    const QTemporaryDir folder;
    DataModel model;
    model.examinations() << person(QStringLiteral("1"), QStringLiteral("r"));
    model.examinations()[0].leftEye.gazePoints << samples::valid(0);
    const ExportTarget target{folder.path(), QStringLiteral("p"), EyeMode::showLeft};
    const auto presentation = [&] {
        return objectIn(folder.filePath(QStringLiteral(
            "p_bids/sub-1/beh/sub-1_task-viewing_run-1_events.json")))[QStringLiteral("StimulusPresentation")]
            .toObject();
    };
    exportBids(model, target, {});
    QCOMPARE(presentation()[QStringLiteral("ScreenResolution")], QJsonValue(QJsonArray{2560, 1600})); // no picture
    QCOMPARE(presentation()[QStringLiteral("ScreenSize")].toString(), QStringLiteral("n/a"));
    exportBids(model, target, {.geometry = ViewingGeometry{0.6, 0.512, 2560}});
    QCOMPARE(presentation()[QStringLiteral("ScreenSize")], QJsonValue(QJsonArray{0.512, 0.0002 * 1600}));
    QCOMPARE(presentation()[QStringLiteral("ScreenDistance")].toDouble(), 0.6);
}

void TestBidsExport::timeOfThePicture_data()
{
    QTest::addColumn<qint64>("startMs");
    QTest::addColumn<qint64>("endMs");
    QTest::addColumn<QString>("seconds");
    QTest::newRow("short") << qint64(0) << qint64(9996) << "0\t9.996";
    QTest::newRow("whole seconds") << qint64(10000) << qint64(30000) << "10\t20";
    QTest::newRow("hours to the millisecond") << qint64(12345678) << qint64(98765432) << "12345.678\t86419.754";
    QTest::newRow("weeks") << qint64(2000000000) << qint64(3234567001) << "2000000\t1234567.001";
}

void TestBidsExport::timeOfThePicture()
{
    QFETCH(qint64, startMs);
    QFETCH(qint64, endMs);
    QFETCH(QString, seconds);
    const QTemporaryDir folder;
    DataModel model;
    model.examinations() << person(QStringLiteral("1"), QStringLiteral("r"));
    model.examinations()[0].meanEye.gazePoints << samples::valid(startMs) << samples::valid(endMs);
    model.setTimeFrame({0, endMs});
    exportBids(model, {folder.path(), QStringLiteral("p"), EyeMode::showMean}, {});
    const QString path = folder.filePath(QStringLiteral("p_bids/sub-1/beh/sub-1_task-viewing_run-1_events.tsv"));
    const QString row = QString::fromUtf8(samples::bytesOf(path)).section(u'\n', 1, 1);
    QCOMPARE(row.section(QStringLiteral("\tpicture"), 0, 0), seconds);
}

/// One text where all recordings have the same, all of them where they differ.
void TestBidsExport::parametersOfAllRecordings()
{
    const QTemporaryDir folder;
    DataModel model;
    for (const char *duration : {"80", "80", "120", "80"}) {
        model.examinations() << person(QStringLiteral("1"), QStringLiteral("r"));
        model.examinations().last().calculationInfo.fixationCalculationInfo =
            QStringLiteral("Minimum Duration:%1\nFixations found:\n Left Eye:7\n").arg(QLatin1StringView(duration));
    }
    const auto written = [&]() -> QJsonValue {
        exportBids(model, {folder.path(), QStringLiteral("p"), EyeMode::showLeft}, {});
        const QJsonObject description = objectIn(folder.filePath(QStringLiteral("p_bids/dataset_description.json")));
        const QJsonObject generator = description[QStringLiteral("GeneratedBy")].toArray()[0].toObject();
        return generator[QStringLiteral("Parameters")].toObject()[QStringLiteral("Fixations")];
    };
    const QString first = QStringLiteral("Minimum Duration:80");
    QCOMPARE(written(), QJsonValue(QJsonArray{first, QStringLiteral("Minimum Duration:120")}));
    model.examinations()[2].calculationInfo.fixationCalculationInfo.clear();
    QCOMPARE(written(), QJsonValue(first));
    for (Examination &examination : model.examinations())
        examination.calculationInfo.fixationRemark = QStringLiteral("Other fixations.\n");
    model.examinations()[2].calculationInfo = model.examinations()[0].calculationInfo;
    QCOMPARE(written(), QJsonValue(first + QStringLiteral("\nOther fixations.")));
}

void TestBidsExport::participantsHaveWhatIsTheSameInAllTheirRecordings()
{
    const QTemporaryDir folder;
    DataModel model;
    for (const char *condition : {"a", "b"}) {
        model.examinations() << person(QStringLiteral("1"), QString::fromLatin1(condition));
        model.examinations().last().properties = {{QStringLiteral("age"), QStringLiteral("3\t0")},
                                                  {QStringLiteral("condition"), QString::fromLatin1(condition)}};
    }
    model.examinations() << person(QStringLiteral("2"), QStringLiteral("c"));
    model.examinations().last().properties = {{QStringLiteral("sex"), QStringLiteral("f")}};
    exportBids(model, {folder.path(), QStringLiteral("p"), EyeMode::showLeft}, {});
    QCOMPARE(QString::fromUtf8(samples::bytesOf(folder.filePath(QStringLiteral("p_bids/participants.tsv")))),
             samples::lines({QStringLiteral("participant_id\tage\tsex"), QStringLiteral("sub-1\t3 0\tn/a"),
                             QStringLiteral("sub-2\tn/a\tf")}));
}

void TestBidsExport::sameFilesWithAnyNumberOfThreads()
{
    const QTemporaryDir one;
    const QTemporaryDir four;
    const DataModel model = study::model();
    exportBids(model, {one.path(), QStringLiteral("p"), EyeMode::showAll}, {.geometry = {}, .threads = 1});
    exportBids(model, {four.path(), QStringLiteral("p"), EyeMode::showAll}, {.geometry = {}, .threads = 4});
    QCOMPARE(filesBelow(one.path()), filesBelow(four.path()));
}

/// Samples to the last bit, the fixations that were exported, and those that are calculated anew.
void TestBidsExport::importGivesWhatWasExported()
{
    const QTemporaryDir folder;
    DataModel model = study::model();
    model.setTimeFrame({0, 100000});
    exportBids(model, {folder.path(), QStringLiteral("p"), EyeMode::showAll}, {});
    DataModel again;
    for (const Examination *original : model.checkedExaminations()) {
        const QString path =
            folder.filePath(QStringLiteral("p_bids/sub-%1/beh/sub-%1_task-viewing_run-1_recording-eye1_physio.tsv.gz"))
                .replace(QStringLiteral("%1"), original->subjectId);
        const ImportedFile file = readBidsRecording(path);
        QVERIFY(file.examination.importOk);
        for (size_t eye = 0; eye < 3; ++eye) {
            const EyeData &before = *original->streams()[eye];
            const EyeData &after = *file.examination.streams()[eye];
            QVERIFY(after.gazePoints == before.gazePoints);
            QCOMPARE(after.scanpath.size(), before.scanpath.size());
            for (qsizetype i = 0; i < before.scanpath.size(); ++i) {
                QCOMPARE(after.scanpath[i].mean, before.scanpath[i].mean);
                QCOMPARE(after.scanpath[i].firstTime(), before.scanpath[i].firstTime());
                QCOMPARE(after.scanpath[i].lastTime(), before.scanpath[i].lastTime());
            }
        }
        again.examinations() << file.examination;
    }
    calculateFixations(again, StandardParameters{.minimumDurationMs = 80, .maximumRadiusPx = 30, .allowedOutliers = 1},
                       nullptr, 1);
    for (qsizetype i = 0; i < again.examinations().size(); ++i) {
        for (size_t eye = 0; eye < 3; ++eye) {
            QList<Fixation> before = model.checkedExaminations()[i]->streams()[eye]->scanpath;
            for (Fixation &fixation : before)
                fixation.cluster = 0; // clusters were calculated behind the fixations
            QVERIFY(again.examinations()[i].streams()[eye]->scanpath == before);
        }
    }
}

void TestBidsExport::strangersAreTold()
{
    const RecordedMessages messages;
    const QTemporaryDir folder;
    QVERIFY(QDir(folder.path()).mkpath(QStringLiteral("p_bids/sub-old")));
    DataModel model;
    model.examinations() << person(QStringLiteral("1"), QStringLiteral("r"));
    exportBids(model, {folder.path(), QStringLiteral("p"), EyeMode::showLeft}, {});
    QVERIFY(messages.texts()[0].contains(QStringLiteral("older data set: sub-old")));
}

void TestBidsExport::fullDiskLeavesNoEmptyFolders()
{
    const RecordedMessages messages;
    const QTemporaryDir folder;
    DataModel model;
    model.examinations() << person(QStringLiteral("1"), QStringLiteral("r"));
    ExportResult result;
    {
        const FullDisk disk(10);
        result = exportBids(model, {folder.path(), QStringLiteral("p"), EyeMode::showLeft}, {});
    }
    QVERIFY(result.written.isEmpty() && result.failed.size() > 4);
    QCOMPARE(QDir(folder.filePath(QStringLiteral("p_bids"))).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
             QStringList());
}

/// A smaller export into the folder of a larger one leaves files that it did not write.
void TestBidsExport::filesOfAnOlderExportAreTold()
{
    const QTemporaryDir folder;
    DataModel model;
    model.examinations() << person(QStringLiteral("1"), QStringLiteral("r"))
                         << person(QStringLiteral("1"), QStringLiteral("s"));
    const auto told = [&](EyeMode eyes) {
        const RecordedMessages messages;
        exportBids(model, {folder.path(), QStringLiteral("p"), eyes}, {});
        return messages.texts().size() == 2 ? messages.texts()[0] : QString();
    };
    QCOMPARE(told(EyeMode::showLeft), QString());
    QCOMPARE(told(EyeMode::showLeft), QString()); // the same files
    model.examinations().removeLast();
    QCOMPARE(told(EyeMode::showLeft),
             QStringLiteral("BIDS Export|The folder holds what is left of an older data set: "
                            "sub-1/beh/sub-1_task-viewing_run-2_events.json, "
                            "sub-1/beh/sub-1_task-viewing_run-2_events.tsv, "
                            "sub-1/beh/sub-1_task-viewing_run-2_recording-eye1_physio.json, "
                            "sub-1/beh/sub-1_task-viewing_run-2_recording-eye1_physio.tsv.gz, "
                            "sub-1/beh/sub-1_task-viewing_run-2_recording-eye1_physioevents.json, "
                            "sub-1/beh/sub-1_task-viewing_run-2_recording-eye1_physioevents.tsv.gz. "
                            "Choose a new folder or prefix."));
    const QString others = told(EyeMode::showRight); // the left eye's four files more
    QVERIFY2(others.contains(QStringLiteral("run-1_recording-eye1_physio.json, ")), qPrintable(others));
    QVERIFY2(others.contains(QStringLiteral("set: sub-1/")) && !others.contains(QStringLiteral("more")),
             qPrintable(others));
    told(EyeMode::showMean);
    QVERIFY(told(EyeMode::showLeft).contains(QStringLiteral(" and 4 more. Choose")));
}

QTEST_GUILESS_MAIN(TestBidsExport)
#include "TestBidsExport.moc"
