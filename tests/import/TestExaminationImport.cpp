// SPDX-License-Identifier: GPL-3.0-or-later
#include "import/ExaminationImport.h"

#include "base/Progress.h"

#include "ImportFiles.h"
#include "TestLog.h"
#include "TestMessages.h"

#include <QDir>
#include <QTest>

#include <thread>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

using namespace Qt::StringLiterals;

namespace {

constexpr auto missingDataFile = "Eyetracking file does not exist";
const QByteArray unreadable("DataImporter ERROR: Datafile can not be opened or does not exist!\n");

/// Keeps what a progress display is told.
class RecordedProgress : public Progress::IDisplay {
public:
    explicit RecordedProgress(QStringList &calls) : m_calls(calls) {}
    void open(const QString &label, int steps) override { m_calls << u"open %1 %2"_s.arg(label).arg(steps); }
    void show(int stepsDone) override { m_calls << u"show %1"_s.arg(stepsDone); }
    void close() override { m_calls << u"close"_s; }

private:
    QStringList &m_calls;
};

ImportMessage corrupt(const QString &path, const QString &reason)
{
    return {messages::Severity::Critical, u"IMPORT ERROR!"_s,
            u"The file: \n%1\n is corrupt and has not been loaded!"_s.arg(path), u"Reason: %1."_s.arg(reason)};
}

QStringList numbered(const QString &text, int count)
{
    QStringList texts;
    for (int i = 1; i <= count; ++i)
        texts << text.arg(i);
    return texts;
}

} // namespace

class TestExaminationImport : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void recordingAndSetFile();
    void noSetFile();
    void noRecording();
    void folderInPlaceOfTheRecording();
    void linkToItself();
    void noPermission();
    void corruptContent_data();
    void corruptContent();
    void gigabyteWithoutLineBreak();
    void longLoggedLine();
    void foreignFileNames();
    void severalThreads();
    void addingToTheModel();
    void sharedImage();
    void corruptFileStaysOut();
    void missingImages_data();
    void missingImages();
    void importing();
    void importingNothing();
    void boxesOfOneImport();
    void doubtsOfAFileThatStaysOut_data();
    void doubtsOfAFileThatStaysOut();
    void repeatedFilesAreTold_data();
    void repeatedFilesAreTold();
    void logOfFilesReadSideBySide();
    void hugeSetFileIsRefused();
    void removing();

private:
    std::unique_ptr<ImportFiles> m_files;
};

void TestExaminationImport::init()
{
    m_files = std::make_unique<ImportFiles>();
}

void TestExaminationImport::recordingAndSetFile()
{
    const QString image = m_files->write(u"forest.jpg"_s, "x");
    const QString path = m_files->writeRecording(u"p01"_s);
    const ImportedFile file = readRecording(path, nullptr);
    QVERIFY(file.examination.importOk);
    QCOMPARE(file.examination.subjectId, u"p01"_s);
    QCOMPARE(file.examination.baseName, u"p01"_s);
    QCOMPARE(file.examination.duration(), 4);
    QCOMPARE(file.images, (QList<ImageReference>{{image, u"forest.jpg"_s}}));
    QCOMPARE(file.messages, QList<ImportMessage>());
    QCOMPARE(file.counts, (ImportCounts{.samples = 2, .durationMs = 4}));
}

void TestExaminationImport::noSetFile()
{
    const QString path = m_files->writeRecording(u"p01"_s);
    QFile::remove(m_files->path(u"p01.set"_s));
    const ImportedFile file = readRecording(path, nullptr);
    QVERIFY(file.examination.importOk);
    QCOMPARE(file.examination.duration(), 4);
    QCOMPARE(file.examination.subjectId, QString());
    QCOMPARE(file.messages.size(), 1);
    QCOMPARE(file.messages[0].title, u"Error opening set file"_s);
    QFile setFile(m_files->path(u"p01.set"_s));
    QVERIFY(!setFile.open(QIODevice::ReadOnly));
    QCOMPARE(file.messages[0].text, setFile.errorString());
    QCOMPARE(file.messages[0].details, m_files->path(u"p01.set"_s));
}

void TestExaminationImport::noRecording()
{
    const QString path = m_files->path(u"p01.data"_s);
    m_files->write(u"p01.set"_s, "[subject]\nsubjectID=p01\n");
    QTest::ignoreMessage(QtDebugMsg, missingDataFile);
    const RecordedLog log;
    const ImportedFile file = readRecording(path, &log.log());
    QVERIFY(!file.examination.importOk);
    QCOMPARE(file.messages, QList<ImportMessage>{corrupt(path, u"there is no such file"_s)});
    QCOMPARE(log.bytes(), QByteArray()); // only files that are there are opened
}

void TestExaminationImport::folderInPlaceOfTheRecording()
{
    const QString path = m_files->path(u"p01.data"_s);
    QVERIFY(QDir().mkdir(path));
    m_files->write(u"p01.set"_s, "");
    const RecordedLog log;
    const ImportedFile file = readRecording(path, &log.log());
    QVERIFY(!file.examination.importOk);
    QCOMPARE(file.messages, QList<ImportMessage>{corrupt(path, u"it is a folder"_s)});
    QCOMPARE(log.bytes(), unreadable);
}

void TestExaminationImport::linkToItself()
{
    const QString path = m_files->path(u"p01.data"_s);
    QVERIFY(QFile::link(path, path));
    m_files->write(u"p01.set"_s, "");
    QTest::ignoreMessage(QtDebugMsg, missingDataFile);
    QCOMPARE(readRecording(path, nullptr).messages, QList<ImportMessage>{corrupt(path, u"there is no such file"_s)});
    const RecordedLog log;
    Examination examination;
    QVERIFY(!DataImporter(path, &examination, &log.log())
                 .readFile()); // a file that cannot be opened, for the root user, too
    QCOMPARE(log.bytes(), unreadable);
}

void TestExaminationImport::noPermission()
{
    const QString path = m_files->writeRecording(u"p01"_s);
    QVERIFY(QFile::setPermissions(path, {}));
    QVERIFY(QFile::setPermissions(m_files->path(u"p01.set"_s), {}));
#ifdef Q_OS_UNIX
    if (access(qPrintable(path), R_OK) == 0)
        QSKIP("this user may read every file");
#endif
    const RecordedLog log;
    const ImportedFile file = readRecording(path, &log.log());
    QVERIFY(!file.examination.importOk);
    QCOMPARE(file.messages.size(), 2);
    QCOMPARE(file.messages[0].title, u"Error opening set file"_s);
    QCOMPARE(file.messages[1], corrupt(path, u"it cannot be opened: Permission denied"_s));
    QCOMPARE(log.bytes(), unreadable);
}

void TestExaminationImport::corruptContent_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("reason");
    const auto row = [](const char *name, const QByteArray &bytes, const QString &reason) {
        QTest::newRow(name) << bytes << reason;
    };
    row("an empty file", QByteArray(), u"it is empty"_s);
    row("only headers", "# header\ntime\tleft_x\n", u"it has no sample line, which would begin with a digit"_s);
    row("no usable sample", "1\t1\t1\t1\t1\t0\t1\t1\t1\t1\t0\n", u"none of its 1 samples is valid"_s);
    row("a picture", QByteArray("\xFF\xD8\xFF\xE0\0\x10JFIF\0", 11),
        u"it has no sample line, which would begin with a digit"_s);
    row("commas", "1,1,1,1,1,1,1,1,1,1,1\n",
        u"its fields are separated by \",\" instead of tabs; \"Import other formats...\" or vistrum-import read such files"_s);
    row("semicolons and decimal commas", "1;1,5;1;1;1;1;1;1;1;1;1\n",
        u"its fields are separated by \";\" instead of tabs; \"Import other formats...\" or vistrum-import read such files"_s);
    row("ten fields", "1\t1\t1\t1\t1\t1\t1\t1\t1\t1\n2\t1,5\n",
        u"none of its 2 sample lines has eleven fields separated by tabs"_s);
}

void TestExaminationImport::corruptContent()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, reason);
    const QString path = m_files->writeRecording(u"p01"_s);
    m_files->write(u"p01.data"_s, bytes);
    const ImportedFile file = readRecording(path, nullptr);
    QVERIFY(!file.examination.importOk);
    QVERIFY(file.examination.leftEye.gazePoints.isEmpty());
    QCOMPARE(file.examination.subjectId, u"p01"_s);
    QCOMPARE(file.messages, QList<ImportMessage>{corrupt(path, reason)});
}

void TestExaminationImport::gigabyteWithoutLineBreak()
{
    constexpr qint64 gigabyte = 1'000'000'000;
    const QString path = m_files->write(u"p01.data"_s, "1\t2");
    QVERIFY(QFile::resize(path, gigabyte)); // NUL bytes that take no room on the disk
    m_files->write(u"p01.set"_s, "");
    const RecordedLog log;
    const ImportedFile file = readRecording(path, &log.log());
    QCOMPARE(file.messages,
             QList<ImportMessage>{corrupt(path, u"none of its 1 sample lines has eleven fields separated by tabs"_s)});
    QCOMPARE(file.counts, (ImportCounts{.wrongLength = {1, 1}}));
    constexpr qint64 mostLogged = 2 << 20;
    QVERIFY(log.bytes().size() < mostLogged);
}

void TestExaminationImport::longLoggedLine()
{
    constexpr qsizetype cutAt = 1 << 20;
    const QByteArray good = "5\t10\t20\t3\t4\t1\t30\t40\t5\t6\t1\n";
    // The cut would fall within the last character before it: two bytes each, after one digit.
    const QByteArray line = "1" + QByteArray("\xC3\xBC").repeated(32 << 20);
    const QString path = m_files->write(u"p01.data"_s, good + line + '\n' + good);
    const RecordedLog log;
    Examination examination;
    DataImporter importer(path, &examination, &log.log());
    QVERIFY(importer.readFile());
    QCOMPARE(importer.counts(), (ImportCounts{.samples = 2, .wrongLength = {1, 2}, .repeatedTimes = {1, 3}}));
    const QByteArray expected = "DataImporter ERROR: Journal entry has invalid length\n   --> " +
                                line.first(cutAt - 1) + " ... (cut, the line has " + QByteArray::number(line.size()) +
                                " bytes)\n";
    QVERIFY(log.bytes() == expected);
}

void TestExaminationImport::foreignFileNames()
{
    for (const QString &name : {u"J\u00FCrgen 1"_s, u"\u6E2C\u8A66"_s, u"a.b.c"_s}) {
        const ImportedFile file = readRecording(m_files->writeRecording(name), nullptr);
        QVERIFY(file.examination.importOk);
        QCOMPARE(file.examination.baseName, name);
        QCOMPARE(file.examination.subjectId, name);
        QCOMPARE(file.messages, QList<ImportMessage>());
    }
}

void TestExaminationImport::severalThreads()
{
    constexpr std::size_t threads = 4;
    constexpr int rounds = 20;
    std::array<QString, threads> paths;
    for (std::size_t i = 0; i < threads; ++i)
        paths[i] = m_files->writeRecording(u"p%1"_s.arg(i));
    std::array<int, threads> right{};
    const RecordedLog log;
    const auto readMany = [&](std::size_t i) {
        for (int round = 0; round < rounds; ++round) {
            const ImportedFile file = readRecording(paths[i], &log.log());
            right[i] += file.examination.importOk && file.examination.subjectId == u"p%1"_s.arg(i) ? 1 : 0;
        }
    };
    std::vector<std::thread> running;
    for (std::size_t i = 0; i < threads; ++i)
        running.emplace_back(readMany, i);
    for (std::thread &thread : running)
        thread.join();
    for (const int count : right)
        QCOMPARE(count, rounds);
}

void TestExaminationImport::addingToTheModel()
{
    m_files->write(u"forest.jpg"_s, "x");
    const QString path = m_files->writeRecording(u"p01"_s);
    QFile::remove(m_files->path(u"p01.set"_s));
    DataModel model;
    RecordedMessages shown;
    QCOMPARE(addToModel(readRecording(path, nullptr), model), std::optional(1));
    QCOMPARE(addToModel(readRecording(m_files->writeRecording(u"p02"_s), nullptr), model), std::optional(2));
    QCOMPARE(model.examinations().size(), 2);
    QCOMPARE(model.examinations()[1].number, 2);
    QVERIFY(!model.examinations()[0].image);
    QVERIFY(model.examinations()[1].image);
    QCOMPARE(shown.texts().size(), 1); // the set file that is not there
    QVERIFY(shown.texts()[0].startsWith(u"Error opening set file|"_s));
}

void TestExaminationImport::sharedImage()
{
    const QString image = m_files->write(u"forest.jpg"_s, "x");
    DataModel model;
    addToModel(readRecording(m_files->writeRecording(u"p01"_s), nullptr), model);
    addToModel(readRecording(m_files->writeRecording(u"p02"_s), nullptr), model);
    QCOMPARE(model.images().paths(), QStringList{image});
    QCOMPARE(model.images().names(), QStringList{u"forest.jpg"_s}); // the name of the set file, not "forest"
    QCOMPARE(model.examinations()[0].image, model.examinations()[1].image);
}

void TestExaminationImport::corruptFileStaysOut()
{
    m_files->writeRecording(u"p01"_s);
    const QString path = m_files->write(u"p01.data"_s, "");
    DataModel model;
    RecordedMessages shown;
    QCOMPARE(addToModel(readRecording(path, nullptr), model), std::nullopt);
    QVERIFY(model.examinations().isEmpty());
    QCOMPARE(shown.texts(), QStringList{corruptMessage(path, u"it is empty"_s)});
}

void TestExaminationImport::missingImages_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<QStringList>("shown");
    const QString tenLines = numbered(u"/a/%1.jpg"_s, 10).join(u'\n');
    QTest::newRow("none") << 0 << QStringList();
    QTest::newRow("one") << 1
                         << QStringList{
                                u"IMPORT ERROR!|The images: \n/a/1.jpg\n are missing and have not been loaded!"_s};
    QTest::newRow("ten are all named")
        << 10 << QStringList{u"IMPORT ERROR!|The images: \n%1\n are missing and have not been loaded!"_s.arg(tenLines)};
    QTest::newRow("of twelve the first ten are named, and below them the others")
        << 12
        << QStringList{u"IMPORT ERROR!|The first 10 missing images: \n%1\n are missing and have not been loaded!\n "
                       "(Missing images overall:12 )\nThe other missing images:\n/a/11.jpg\n/a/12.jpg"_s.arg(tenLines)};
}

void TestExaminationImport::missingImages()
{
    QFETCH(int, count);
    QFETCH(QStringList, shown);
    RecordedMessages recorded;
    reportMissingImages(numbered(u"/a/%1.jpg"_s, count));
    QCOMPARE(recorded.texts(), shown);
}

void TestExaminationImport::importing()
{
    const QString good = m_files->writeRecording(u"p01"_s);
    const QString bad = m_files->writeRecording(u"p02"_s);
    const QString other = m_files->writeRecording(u"p03"_s);
    m_files->write(u"p02.data"_s, "");
    DataModel model;
    model.examinations() << Examination(); // of an earlier import
    RecordedMessages shown;
    QStringList progress;
    const auto before = Progress::install(std::make_unique<RecordedProgress>(progress));
    QStringList added;
    const ImportOutcome outcome =
        importRecordings({good, bad, other}, model, nullptr, [&](const Examination &examination) {
            added
                << u"%1 of %2: %3"_s.arg(examination.number).arg(model.examinations().size()).arg(examination.baseName);
        });
    Progress::install(nullptr);
    QCOMPARE(outcome.numbers, (QList<int>{2, 3}));
    QCOMPARE(outcome.notRead, QStringList{u"p02"_s});
    QCOMPARE(added, (QStringList{u"2 of 2: p01"_s, u"3 of 3: p03"_s}));
    QCOMPARE(progress,
             (QStringList{u"open Loading data, please wait. 3"_s, u"show 1"_s, u"show 2"_s, u"show 3"_s, u"close"_s}));
    // The image of the corrupt file is missed, too.
    const QString image = m_files->path(u"forest.jpg"_s);
    QCOMPARE(
        shown.texts(),
        (QStringList{corruptMessage(bad, u"it is empty"_s),
                     u"IMPORT ERROR!|The images: \n%1\n%1\n%1\n are missing and have not been loaded!"_s.arg(image)}));
    QCOMPARE(model.allExaminations().size(), 3);
    QCOMPARE(model.allExaminations()[2].baseName, u"p03"_s);
    QVERIFY(model.allExaminations()[2].leftEye == model.examinations()[2].leftEye);
}

void TestExaminationImport::importingNothing()
{
    DataModel model;
    RecordedMessages shown;
    const auto neverCalled = [](const Examination &) { QFAIL("no examination was read"); };
    QCOMPARE(importRecordings({}, model, nullptr, neverCalled).numbers, QList<int>());
    QCOMPARE(shown.texts(), QStringList());
}

/// Whatever the files hold: a box for the set files that are not there, one for each corrupt file and one for all that
/// is doubtful.
void TestExaminationImport::boxesOfOneImport()
{
    QStringList paths;
    for (const QString &name : {u"p01"_s, u"p02"_s}) {
        paths << m_files->write(name + u".data"_s, "5\t1,5\t2\t3\t4\t1\t6\t7\t8\t9\t1\n"
                                                   "4\t1\t2\t3\t4\t1\t6\t7\t8\t9\t1\n"
                                                   "4\t1\t2\t3\t4\t1\t6\t7\t8\t9\t1\n");
    }
    DataModel model;
    RecordedMessages shown;
    importRecordings(paths, model, nullptr, [](const Examination &) {});
    QCOMPARE(model.examinations().size(), 2);
    QStringList doubts;
    for (const QString &file : {u"p01.data"_s, u"p02.data"_s}) {
        doubts << file +
                      u": fields with a decimal comma, which count as 0: 1; the first is in line 1. Write a point, or "
                      "use \"Import other formats...\" or vistrum-import, which read commas."_s
               << file + u": samples earlier than the sample before them: 1; the first is line 2."_s
               << file + u": samples with the time of the sample before them: 1; the first is line 3."_s;
    }
    QCOMPARE(shown.texts(),
             (QStringList{u"Error opening set file|No such file or directory\n%1\n%2"_s.arg(
                              m_files->path(u"p01.set"_s), m_files->path(u"p02.set"_s)),
                          u"Import|Some recordings hold what is doubtful. They were loaded all the same.\n"_s +
                              doubts.join(u'\n')}));
}

void TestExaminationImport::doubtsOfAFileThatStaysOut_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("reason");
    QTest::newRow("few fields") << QByteArray("1\t1\n2\t1,5\n")
                                << u"none of its 2 sample lines has eleven fields separated by tabs"_s;
    QTest::newRow("times that go back") << QByteArray("5\t0\t0\t0\t0\t0\t0\t0\t0\t0\t0\n"
                                                      "4\t0\t0\t0\t0\t0\t0\t0\t0\t0\t0\n")
                                        << u"none of its 2 samples is valid"_s;
}

/// It was not loaded "all the same": its own message tells all.
void TestExaminationImport::doubtsOfAFileThatStaysOut()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, reason);
    m_files->writeRecording(u"p01"_s);
    const QString path = m_files->write(u"p01.data"_s, bytes);
    QVERIFY(!readRecording(path, nullptr).doubts.isEmpty());
    DataModel model;
    RecordedMessages shown;
    importRecordings({path}, model, nullptr, [](const Examination &) {});
    QCOMPARE(shown.texts().filter(u"corrupt"_s), QStringList{corruptMessage(path, reason)});
    QCOMPARE(shown.texts().filter(u"doubtful"_s), QStringList());
}

void TestExaminationImport::repeatedFilesAreTold_data()
{
    QTest::addColumn<QStringList>("files");
    QTest::addColumn<QStringList>("told");
    const QString doubtful = u"Import|Some recordings hold what is doubtful. They were loaded all the same."_s;
    const auto row = [](const char *name, const QString &files, const QStringList &told) {
        QTest::newRow(name) << files.split(u' ') << told;
    };
    row("two files", u"p01.data p02.data"_s, {});
    row("a way about", u"p01.data ./p01.data p02.data"_s,
        {doubtful, u"p01.data: the same recording, it counts 2 times."_s});
    row("a link, and both again", u"p01.data p02.data link.data p02.data p01.data"_s,
        {doubtful, u"p01.data, link.data: the same recording, it counts 3 times."_s,
         u"p02.data: the same recording, it counts 2 times."_s});
    row("not loaded", u"empty.data empty.data"_s, {});
}

/// Each of them has a row in the table: nothing else would tell that they are one.
void TestExaminationImport::repeatedFilesAreTold()
{
    QFETCH(QStringList, files);
    QFETCH(QStringList, told);
    m_files->writeRecording(u"p01"_s);
    m_files->writeRecording(u"p02"_s);
    m_files->write(u"forest.jpg"_s, "x");
    m_files->writeRecording(u"empty"_s);
    m_files->write(u"empty.data"_s, "");
    QVERIFY(QFile::link(m_files->path(u"p01.data"_s), m_files->path(u"link.data"_s)));
    QVERIFY(QFile::link(m_files->path(u"p01.set"_s), m_files->path(u"link.set"_s)));
    QStringList paths;
    for (const QString &file : std::as_const(files))
        paths << m_files->path(file);
    DataModel model;
    RecordedMessages shown;
    importRecordings(paths, model, nullptr, [](const Examination &) {});
    const QString doubts = shown.texts().filter(u"doubtful"_s).join(u'\n');
    QCOMPARE(doubts, told.join(u'\n'));
}

void TestExaminationImport::logOfFilesReadSideBySide()
{
    constexpr int files = 20;
    QStringList paths;
    QByteArray expected;
    for (int i = 0; i < files; ++i) {
        const QString name = u"p%1"_s.arg(i);
        m_files->write(name + u".set"_s, "");
        paths << m_files->write(name + u".data"_s, "# first of " + name.toUtf8() + "\n# second\n");
        expected +=
            "Dataimporter found header: # first of " + name.toUtf8() + "\nDataimporter found header: # second\n";
    }
    const RecordedLog log;
    QStringList taken;
    readRecordings(paths, 4, &log.log(), [&](const ImportedFile &file) { taken << file.path; });
    QCOMPARE(taken, paths);
    QCOMPARE(log.bytes(), expected);
}

/// A side file that does not end: nothing of it is read, and the recording is.
void TestExaminationImport::hugeSetFileIsRefused()
{
    constexpr qint64 terabyte = 1'000'000'000'000;
    const QString path = m_files->writeRecording(u"p01"_s);
    if (!QFile::resize(m_files->path(u"p01.set"_s), terabyte))
        QSKIP("no room for a file of holes");
    const ImportedFile file = readRecording(path, nullptr);
    QVERIFY(file.examination.importOk);
    QCOMPARE(file.messages, (QList<ImportMessage>{{messages::Severity::Warning, u"Error opening set file"_s,
                                                   u"The file is larger than 16 MB and was not read."_s,
                                                   m_files->path(u"p01.set"_s)}}));
}

void TestExaminationImport::removing()
{
    DataModel model;
    for (int number = 1; number <= 4; ++number) {
        model.examinations() << Examination();
        model.examinations().last().number = number;
    }
    removeFromModel({2, 4, 7}, model);
    QCOMPARE(model.examinations().size(), 2);
    QCOMPARE(model.examinations()[0].number, 1);
    QCOMPARE(model.examinations()[1].number, 3);
    QCOMPARE(model.allExaminations().size(), 2);
}

QTEST_GUILESS_MAIN(TestExaminationImport)
#include "TestExaminationImport.moc"
