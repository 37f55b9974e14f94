// SPDX-License-Identifier: GPL-3.0-or-later
#include "recording/FrameStore.h"
#include "recording/RecordingJournal.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <iostream>

class TestRecordingJournal : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void framesComeBack();
    void savedFramesAreNotOffered();
    void livingJournalIsLeftAlone();
    void damaged_data();
    void damaged();
    void goesOnBehindADamage();
    void unwritableFolder();
    void survivesTheEndOfTheProgram();
};

namespace {

gtl::GazeData frame(int time)
{
    const auto x = static_cast<float>(time);
    return {.time = time,
            .fix = time % 2 == 0,
            .state = 7,
            .raw = {x, -x},
            .avg = {x / 3, x / 7},
            .lefteye = {{x, 1}, {x, 2}, 3, {0.25F, 0.5F}},
            .righteye = {{x, 4}, {x, 5}, 6, {0.75F, 0.125F}}};
}

void record(FrameStore &store, int first, int count)
{
    store.startRecording();
    for (int i = 0; i < count; ++i)
        store.add(frame(first + i));
    store.stopRecording();
}

/// As a program leaves it that has ended.
void leaveJournal(const QString &folder, int frames)
{
    FrameStore store(folder);
    record(store, 1, frames);
}

QString onlyJournal(const QString &folder)
{
    const QStringList journals = RecordingJournal::interrupted(folder);
    return journals.size() == 1 ? journals[0] : QString();
}

} // namespace

void TestRecordingJournal::framesComeBack()
{
    const QTemporaryDir folder;
    leaveJournal(folder.path(), 20'000); // more than are read at a time
    const JournalContent content = RecordingJournal::read(onlyJournal(folder.path()));
    QCOMPARE(content.frames.size(), 20'000);
    QCOMPARE(content.savedFrames, 0);
    for (int i = 0; i < 20'000; ++i)
        QVERIFY(content.frames[i] == frame(i + 1));
}

void TestRecordingJournal::savedFramesAreNotOffered()
{
    const QTemporaryDir folder;
    {
        FrameStore store(folder.path());
        record(store, 1, 3);
        store.markSaved(3);
    }
    QCOMPARE(RecordingJournal::interrupted(folder.path()), QStringList());
    QCOMPARE(QDir(folder.path()).entryList({QStringLiteral("*.journal")}), QStringList());
    {
        FrameStore store(folder.path());
        record(store, 1, 3);
        store.markSaved(3);
        record(store, 4, 2);
    }
    FrameStore resumed(folder.path());
    resumed.resume(onlyJournal(folder.path()));
    QCOMPARE(resumed.count(), 5);
    QCOMPARE(resumed.unsavedCount(), 2);
    resumed.discardJournal();
    QCOMPARE(RecordingJournal::interrupted(folder.path()), QStringList());
}

void TestRecordingJournal::livingJournalIsLeftAlone()
{
    const QTemporaryDir folder;
    FrameStore store(folder.path());
    record(store, 1, 3);
    QCOMPARE(RecordingJournal::interrupted(folder.path()), QStringList());
    const QString path = folder.filePath(QDir(folder.path()).entryList({QStringLiteral("*.journal")})[0]);
    RecordingJournal::remove(path);
    FrameStore other(folder.path());
    other.resume(path);
    QVERIFY(other.journalProblem().contains(QStringLiteral("in use")));
    QVERIFY(QFile::exists(path));
}

void TestRecordingJournal::damaged_data()
{
    QTest::addColumn<int>("place"); // of the changed byte; below 0: so many are cut off
    QTest::addColumn<int>("frames");
    constexpr int record = 84;
    constexpr int magic = 16;
    QTest::newRow("the last record is cut") << -1 << 9;
    QTest::newRow("all but the first byte of the last record is cut") << -(record - 1) << 9;
    QTest::newRow("a whole record is missing") << -record << 9;
    QTest::newRow("a byte of the fifth") << magic + 4 * record + 40 << 4;
    QTest::newRow("the kind of the fifth") << magic + 4 * record << 4;
    QTest::newRow("the file is of another kind") << 3 << 0;
}

void TestRecordingJournal::damaged()
{
    QFETCH(int, place);
    const QTemporaryDir folder;
    leaveJournal(folder.path(), 10);
    const QString path = onlyJournal(folder.path());
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadWrite));
    QByteArray bytes = file.readAll();
    QCOMPARE(bytes.size(), 16 + 10 * 84);
    if (place < 0)
        bytes.chop(-place);
    else
        bytes[place] = static_cast<char>(bytes[place] ^ 0x10);
    file.resize(0);
    file.seek(0);
    file.write(bytes);
    file.close();
    QTEST(static_cast<int>(RecordingJournal::read(path).frames.size()), "frames");
}

void TestRecordingJournal::goesOnBehindADamage()
{
    const QTemporaryDir folder;
    leaveJournal(folder.path(), 10);
    const QString path = onlyJournal(folder.path());
    QVERIFY(QFile::resize(path, QFile(path).size() - 5));
    {
        FrameStore store(folder.path());
        store.resume(path);
        record(store, 100, 2);
        QCOMPARE(store.journalProblem(), QString());
    }
    const QList<gtl::GazeData> frames = RecordingJournal::read(path).frames;
    QCOMPARE(frames.size(), 11);
    QVERIFY(frames[8] == frame(9) && frames[9] == frame(100) && frames[10] == frame(101));
}

void TestRecordingJournal::unwritableFolder()
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("file"));
    QVERIFY(QFile(file).open(QIODevice::WriteOnly));
    FrameStore store(file);
    record(store, 1, 3);
    QCOMPARE(store.count(), 3); // recorded all the same
    QVERIFY2(store.journalProblem().endsWith(
                 QStringLiteral(" could not be written: the folder cannot be made: Not a directory")),
             qPrintable(store.journalProblem()));
}

/// A process that records is killed at some moment: each frame that it has told of is there.
void TestRecordingJournal::survivesTheEndOfTheProgram()
{
    const QTemporaryDir folder;
    for (int round = 1; round <= 5; ++round) {
        QProcess program;
        program.start(QCoreApplication::applicationFilePath(),
                      {QStringLiteral("--record"), folder.path(), QString::number(round)});
        QVERIFY(program.waitForReadyRead());
        for (int i = 0; i < 20 * round; ++i)
            program.waitForReadyRead();
        program.kill();
        QVERIFY(program.waitForFinished());
        const QList<QByteArray> lines = program.readAllStandardOutput().split('\n');
        QVERIFY(lines.size() > 1);
        const int told = lines[lines.size() - 2].toInt();
        const QString journal = onlyJournal(folder.path());
        const QList<gtl::GazeData> frames = RecordingJournal::read(journal).frames;
        QVERIFY2(frames.size() >= told, qPrintable(QStringLiteral("%1 of %2").arg(frames.size()).arg(told)));
        for (int i = 0; i < frames.size(); ++i)
            QVERIFY(frames[i] == frame(i + 1));
        RecordingJournal::remove(journal);
    }
}

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.value(1) == QLatin1StringView("--record")) {
        FrameStore store(arguments.value(2));
        store.startRecording();
        for (int i = 1;; ++i) {
            store.add(frame(i));
            std::cout << i << std::endl;
        }
    }
    TestRecordingJournal test;
    return QTest::qExec(&test, arguments);
}
#include "TestRecordingJournal.moc"
