// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Progress.h"
#include "export/DataExport.h"
#include "ExportSamples.h"
#include "FullDisk.h"
#include "model/ImageCache.h"
#include "TestMessages.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

using samples::bytesOf;
using samples::fixation;
using samples::lines;
using samples::utf16Block;

class TestDataExport : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void fileNames_data();
    void fileNames();
    void fixationsFile();
    void eventsFile();
    void dominantEyeOfEach();
    void onlyCheckedExaminations();
    void nothingChecked();
    void repeatedExportStartsFresh();
    void eventRowsAreReplaced();
    void closingMessages();
    void progressSteps();
    void folderThatIsNotThere();
    void headerThatCannotBeWritten();
    void fullDiskKeepsOlderTables();
};

namespace {

Examination examinationAt(const QString &subjectId, int leftX, int rightX)
{
    Examination made = samples::examination(subjectId, QStringLiteral("age=30, "));
    made.leftEye.gazePoints << samples::valid(0);
    made.leftEye.scanpath << fixation({0}, {leftX, 1});
    made.rightEye.gazePoints << samples::valid(0);
    made.rightEye.scanpath << fixation({0}, {rightX, 1});
    made.calculationInfo.fixationCalculationInfo = QStringLiteral("calculated\n");
    return made;
}

QString fixationsOf(const QString &subjectId, int x)
{
    return lines({QStringLiteral("subjectID;subjectINFO;Number;GazePoints;mean_x;mean_y;radius;cluster"),
                  QStringLiteral("\"%1\";\"age=30, \";1;1;%2;1;1;0").arg(subjectId).arg(x),
                  QStringLiteral("Fixation calculation parameters:"), QStringLiteral("calculated"), QString(),
                  QStringLiteral("Subject information:"), QStringLiteral("age=30, ")});
}

QString eventsOfOneFixation(const QString &subjectId, int x)
{
    return lines({QStringLiteral("\"%1\";\"age=30, \";no image;fixation;0;1;0;0;0;%2;1;1;;").arg(subjectId).arg(x),
                  QString(), QString(), QString(), QString(), QStringLiteral("Fixation mean duration:0,0000000000"),
                  QStringLiteral("Fixation mean area:0,0000000000"), QStringLiteral("Saccade mean time:nan"),
                  QStringLiteral("Saccade mean length:nan"), QStringLiteral("Saccade mean angle:nan"),
                  QStringLiteral("Subject information:"), QStringLiteral("age=30, ")});
}

const QString eventHeaderLine =
    QStringLiteral("subjectID;subjectINFO;picture;event;eventcode;gazepoints;cluster;onset(ms);duration(ms);"
                   "mean_x(px);mean_y(px);radius(px);saccade_length(px);saccade_angle(\u00B0)\n");

/// Two subjects; the means of left and right eye are at x 11, 12 and 21, 22.
DataModel twoSubjects()
{
    DataModel model;
    model.examinations() << examinationAt(QStringLiteral("A"), 11, 12) << examinationAt(QStringLiteral("B"), 21, 22);
    model.setTimeFrame({0, 1000});
    return model;
}

QStringList namesIn(const QTemporaryDir &folder)
{
    return QDir(folder.path()).entryList(QDir::Files, QDir::Name);
}

/// Writes down what a progress display is told.
class ProgressNotes : public Progress::IDisplay {
public:
    explicit ProgressNotes(QStringList &notes) : m_notes(notes) {}
    void open(const QString &label, int steps) override { m_notes << QStringLiteral("%1 %2").arg(label).arg(steps); }
    void show(int stepsDone) override { m_notes << QString::number(stepsDone); }
    void close() override { m_notes << QStringLiteral("closed"); }

private:
    QStringList &m_notes;
};

} // namespace

void TestDataExport::fileNames_data()
{
    QTest::addColumn<EyeMode>("eyes");
    QTest::addColumn<QStringList>("words");
    QTest::newRow("all eyes are left and right")
        << EyeMode::showAll << QStringList{QStringLiteral("left"), QStringLiteral("right")};
    QTest::newRow("dominant") << EyeMode::showDominant << QStringList{QStringLiteral("dominant")};
    QTest::newRow("left") << EyeMode::showLeft << QStringList{QStringLiteral("left")};
    QTest::newRow("right") << EyeMode::showRight << QStringList{QStringLiteral("right")};
    QTest::newRow("mean") << EyeMode::showMean << QStringList{QStringLiteral("mean")};
}

void TestDataExport::fileNames()
{
    QFETCH(EyeMode, eyes);
    QFETCH(QStringList, words);
    const QTemporaryDir folder;
    DataModel model = twoSubjects();
    const ExportTarget target{folder.path(), QStringLiteral("study"), eyes};
    QStringList fixationNames;
    QStringList eventNames;
    QStringList paths;
    for (const QString &word : words) {
        fixationNames << QStringLiteral("study_fixations__fixations_%1.csv").arg(word);
        eventNames << QStringLiteral("study_events_%1.csv").arg(word);
        paths << folder.path() + u'/' + eventNames.last();
    }
    const ExportResult events = exportEvents(model, target);
    QCOMPARE(namesIn(folder), eventNames);
    QCOMPARE(events.written, paths);
    QCOMPARE(events.failed, QStringList());
    const ExportResult fixations = exportFixations(model, target);
    QCOMPARE(namesIn(folder), eventNames + fixationNames);
    QCOMPARE(fixations.written.size(), words.size());
    QCOMPARE(fixations.failed, QStringList());
}

void TestDataExport::fixationsFile()
{
    const QTemporaryDir folder;
    const ExportResult result = exportFixations(twoSubjects(), {folder.path(), QStringLiteral("p"), EyeMode::showAll});
    QCOMPARE(bytesOf(result.written[0]),
             utf16Block(fixationsOf(QStringLiteral("A"), 11)) + utf16Block(fixationsOf(QStringLiteral("B"), 21)));
    QCOMPARE(bytesOf(result.written[1]),
             utf16Block(fixationsOf(QStringLiteral("A"), 12)) + utf16Block(fixationsOf(QStringLiteral("B"), 22)));
}

void TestDataExport::eventsFile()
{
    const QTemporaryDir folder;
    DataModel model = twoSubjects();
    const ExportResult result = exportEvents(model, {folder.path(), QStringLiteral("p"), EyeMode::showAll});
    QCOMPARE(bytesOf(result.written[0]), utf16Block(eventHeaderLine) +
                                             utf16Block(eventsOfOneFixation(QStringLiteral("A"), 11)) +
                                             utf16Block(eventsOfOneFixation(QStringLiteral("B"), 21)));
    QCOMPARE(bytesOf(result.written[1]), utf16Block(eventHeaderLine) +
                                             utf16Block(eventsOfOneFixation(QStringLiteral("A"), 12)) +
                                             utf16Block(eventsOfOneFixation(QStringLiteral("B"), 22)));
}

void TestDataExport::dominantEyeOfEach()
{
    const QTemporaryDir folder;
    DataModel model = twoSubjects();
    model.examinations()[0].dominantEye = QStringLiteral("left");
    model.examinations()[1].dominantEye = QStringLiteral("x"); // no usable entry counts as right
    const ExportTarget target{folder.path(), QStringLiteral("p"), EyeMode::showDominant};
    QCOMPARE(bytesOf(exportFixations(model, target).written[0]),
             utf16Block(fixationsOf(QStringLiteral("A"), 11)) + utf16Block(fixationsOf(QStringLiteral("B"), 22)));
    exportEvents(model, target);
    QCOMPARE(model.examinations()[0].leftEye.eventRows.size(), 1);
    QCOMPARE(model.examinations()[0].rightEye.eventRows.size(), 0);
    QCOMPARE(model.examinations()[1].rightEye.eventRows.size(), 1);
}

void TestDataExport::onlyCheckedExaminations()
{
    const QTemporaryDir folder;
    DataModel model = twoSubjects();
    model.examinations()[0].checked = false;
    const ExportTarget target{folder.path(), QStringLiteral("p"), EyeMode::showLeft};
    QCOMPARE(bytesOf(exportFixations(model, target).written[0]), utf16Block(fixationsOf(QStringLiteral("B"), 21)));
    QCOMPARE(bytesOf(exportEvents(model, target).written[0]),
             utf16Block(eventHeaderLine) + utf16Block(eventsOfOneFixation(QStringLiteral("B"), 21)));
}

void TestDataExport::nothingChecked()
{
    const RecordedMessages messages;
    const QTemporaryDir folder;
    DataModel model;
    const ExportTarget target{folder.path(), QStringLiteral("p"), EyeMode::showMean};
    const ExportResult fixations = exportFixations(model, target);
    QCOMPARE(fixations.written + fixations.failed, QStringList());
    exportEvents(model, target);
    QCOMPARE(namesIn(folder), QStringList{QStringLiteral("p_events_mean.csv")});
    QCOMPARE(bytesOf(folder.filePath(QStringLiteral("p_events_mean.csv"))), utf16Block(eventHeaderLine));
    QCOMPARE(messages.texts().size(), 2); // the closing words come in any case
}

void TestDataExport::repeatedExportStartsFresh()
{
    const QTemporaryDir folder;
    DataModel model = twoSubjects();
    const ExportTarget target{folder.path(), QStringLiteral("p"), EyeMode::showLeft};
    const QString fixationPath = exportFixations(model, target).written[0];
    const QString eventPath = exportEvents(model, target).written[0];
    const QByteArray fixations = bytesOf(fixationPath);
    const QByteArray events = bytesOf(eventPath);
    exportFixations(model, target);
    exportEvents(model, target);
    QCOMPARE(bytesOf(fixationPath), fixations);
    QCOMPARE(bytesOf(eventPath), events);
}

void TestDataExport::eventRowsAreReplaced()
{
    const QTemporaryDir folder;
    DataModel model = twoSubjects();
    EventRow old;
    old.event = QStringLiteral("invalid");
    model.examinations()[0].leftEye.eventRows << old << old;
    model.examinations()[0].meanEye.eventRows << old;
    exportEvents(model, {folder.path(), QStringLiteral("p"), EyeMode::showAll});
    const Examination &examination = model.examinations()[0];
    QCOMPARE(examination.leftEye.eventRows.size(), 1);
    QCOMPARE(examination.leftEye.eventRows[0].event, QStringLiteral("fixation"));
    QCOMPARE(examination.leftEye.eventRows[0].meanX, QStringLiteral("11"));
    QCOMPARE(examination.meanEye.eventRows, QList<EventRow>{old}); // not of this export
}

void TestDataExport::closingMessages()
{
    const RecordedMessages messages;
    const QTemporaryDir folder;
    DataModel model = twoSubjects();
    const ExportTarget target{folder.path(), QStringLiteral("p"), EyeMode::showMean};
    exportFixations(model, target);
    exportEvents(model, target);
    QCOMPARE(messages.texts(), QStringList({QStringLiteral("Fixation Export|Fixations exported to: ") + folder.path(),
                                            QStringLiteral("Event Export|Events exported to: ") + folder.path() +
                                                QStringLiteral("_events_left/right/dom")}));
}

void TestDataExport::progressSteps()
{
    const QTemporaryDir folder;
    DataModel model = twoSubjects();
    QStringList notes;
    auto before = Progress::install(std::make_unique<ProgressNotes>(notes));
    exportFixations(model, {folder.path(), QStringLiteral("p"), EyeMode::showAll});
    exportEvents(model, {folder.path(), QStringLiteral("p"), EyeMode::showAll});
    Progress::install(std::move(before));
    QCOMPARE(notes, QStringLiteral("Exporting fixations. Please wait. 3|1|2|closed|"
                                   "Exporting events. Please wait. 3|1|2|closed")
                        .split(u'|'));
}

void TestDataExport::folderThatIsNotThere()
{
    const RecordedMessages messages;
    const QTemporaryDir folder;
    DataModel model = twoSubjects();
    const ExportTarget target{folder.filePath(QStringLiteral("nowhere")), QStringLiteral("p"), EyeMode::showLeft};
    const ExportResult fixations = exportFixations(model, target);
    QCOMPARE(fixations.written, QStringList());
    QCOMPARE(fixations.failed, QStringList{target.folder + QStringLiteral("/p_fixations__fixations_left.csv")});
    QCOMPARE(exportEvents(model, target).failed, QStringList{target.folder + QStringLiteral("/p_events_left.csv")});
    QCOMPARE(messages.texts().size(), 2); // no word that anything is exported
    QVERIFY(messages.texts()[0].startsWith(QStringLiteral("Fixation Export|") + fixations.failed[0] +
                                           QStringLiteral(" could not be written: ")));
    QVERIFY(messages.texts()[1].startsWith(QStringLiteral("Event Export|") + target.folder));
    QVERIFY(!QFile::exists(target.folder));
}

void TestDataExport::headerThatCannotBeWritten()
{
    const QTemporaryDir folder;
    QVERIFY(QDir(folder.path()).mkpath(QStringLiteral("p_events_left.csv/full")));
    DataModel model = twoSubjects();
    const ExportResult result = exportEvents(model, {folder.path(), QStringLiteral("p"), EyeMode::showAll});
    QCOMPARE(result.failed, QStringList{folder.filePath(QStringLiteral("p_events_left.csv"))});
    QCOMPARE(result.written, QStringList{folder.filePath(QStringLiteral("p_events_right.csv"))});
    QCOMPARE(model.examinations()[1].leftEye.eventRows.size(), 1); // the events are there all the same
}

/// An export of two blocks a file, of which the second does not fit, keeps the complete older tables.
void TestDataExport::fullDiskKeepsOlderTables()
{
    const QTemporaryDir folder;
    DataModel model = twoSubjects();
    const ExportTarget target{folder.path(), QStringLiteral("p"), EyeMode::showLeft};
    const QString path = exportFixations(model, target).written.value(0);
    const QByteArray older = bytesOf(path);
    QVERIFY(older.size() > 200);
    const RecordedMessages messages;
    ExportResult result;
    {
        const FullDisk disk(static_cast<unsigned long>(older.size()) - 10);
        result = exportFixations(model, target);
    }
    QCOMPARE(result.failed, QStringList{path});
    QCOMPARE(result.written, QStringList());
    QCOMPARE(bytesOf(path), older);
    QCOMPARE(messages.texts().size(), 1);
    QVERIFY(!messages.texts()[0].contains(QStringLiteral("exported")));
}

QTEST_GUILESS_MAIN(TestDataExport)
#include "TestDataExport.moc"
