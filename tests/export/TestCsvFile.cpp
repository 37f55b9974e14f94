// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/CsvFile.h"
#include "ExportSamples.h"
#include "FullDisk.h"
#include "TestMessages.h"

#include <QTemporaryDir>
#include <QTest>

namespace {

using State = CsvFile::State;

/// A table of one block; true if it stands in its place.
bool writeTable(const QString &path, const QString &block)
{
    CsvFile file(path);
    return file.append(block) && file.commit() == State::Written;
}

} // namespace

class TestCsvFile : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void blockIsLittleEndianAfterAMark();
    void eachBlockHasAMark();
    void firstBlockReplacesAnEarlierFile();
    void fileBehindALinkIsNotReplaced();
    void charactersBeyondTheBasicPlane();
    void nothingWrittenLeavesNoFile();
    void unwritablePathFails_data();
    void unwritablePathFails();
    void failureIsNotForgotten();
    void fullDiskKeepsTheOlderFile();
};

void TestCsvFile::blockIsLittleEndianAfterAMark()
{
    const QTemporaryDir folder;
    CsvFile file(folder.filePath(QStringLiteral("a.csv")));
    QVERIFY(file.append(QStringLiteral("a;\u00B0\n")));
    const char expected[] = "\xff\xfe"    // mark
                            "a\0;\0"      // low byte first
                            "\xb0\0\n\0"; // the degree sign is 0x00b0, a line end is one character
    QVERIFY(!QFile::exists(file.path()));
    QVERIFY(file.commit() == State::Written);
    QCOMPARE(samples::bytesOf(file.path()), QByteArray(expected, sizeof expected - 1));
}

void TestCsvFile::eachBlockHasAMark()
{
    const QTemporaryDir folder;
    CsvFile file(folder.filePath(QStringLiteral("a.csv")));
    QVERIFY(file.append(QStringLiteral("one\n")));
    QVERIFY(file.append(QStringLiteral("two\n")));
    QVERIFY(file.append(QString()));
    QVERIFY(file.commit() == State::Written);
    QCOMPARE(samples::bytesOf(file.path()),
             samples::utf16Block(QStringLiteral("one\n")) + samples::utf16Block(QStringLiteral("two\n")));
}

void TestCsvFile::firstBlockReplacesAnEarlierFile()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a.csv"));
    QVERIFY(writeTable(path, QStringLiteral("a long block of an earlier export\n")));
    QVERIFY(writeTable(path, QStringLiteral("new\n")));
    QCOMPARE(samples::bytesOf(path), samples::utf16Block(QStringLiteral("new\n")));
}

void TestCsvFile::fileBehindALinkIsNotReplaced()
{
    const QTemporaryDir folder;
    const QString original = folder.filePath(QStringLiteral("original.csv"));
    const QString link = folder.filePath(QStringLiteral("link.csv"));
    QVERIFY(writeTable(original, QStringLiteral("kept\n")));
    QVERIFY(QFile::link(original, link));
    QVERIFY(writeTable(link, QStringLiteral("new\n")));
    QCOMPARE(samples::bytesOf(original), samples::utf16Block(QStringLiteral("kept\n")));
    QCOMPARE(samples::bytesOf(link), samples::utf16Block(QStringLiteral("new\n")));
}

void TestCsvFile::charactersBeyondTheBasicPlane()
{
    const QTemporaryDir folder;
    CsvFile file(folder.filePath(QStringLiteral("a.csv")));
    QVERIFY(file.append(QStringLiteral(u"\U0001F441")));
    QVERIFY(file.commit() == State::Written);
    QCOMPARE(samples::bytesOf(file.path()), QByteArray("\xff\xfe\x3d\xd8\x41\xdc")); // d83d dc41
}

void TestCsvFile::nothingWrittenLeavesNoFile()
{
    const QTemporaryDir folder;
    CsvFile file(folder.filePath(QStringLiteral("a.csv")));
    QVERIFY(file.commit() == State::Untouched);
    QVERIFY(!QFile::exists(file.path()));
}

void TestCsvFile::unwritablePathFails_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("a folder that is not there") << QStringLiteral("nowhere/a.csv");
    QTest::newRow("the name belongs to a folder") << QStringLiteral("taken");
    QTest::newRow("a file where the folder should be") << QStringLiteral("file/a.csv");
}

void TestCsvFile::unwritablePathFails()
{
    QFETCH(QString, name);
    const RecordedMessages messages;
    const QTemporaryDir folder;
    QVERIFY(QDir(folder.path()).mkdir(QStringLiteral("taken")));
    QVERIFY(writeTable(folder.filePath(QStringLiteral("file")), QStringLiteral("x")));
    CsvFile file(folder.filePath(name));
    QVERIFY(!file.append(QStringLiteral("lost\n")));
    QVERIFY(file.commit() == State::Failed);
    QVERIFY(!file.problem().isEmpty());
    QCOMPARE(messages.texts(), QStringList());
}

void TestCsvFile::failureIsNotForgotten()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("later/a.csv"));
    CsvFile file(path);
    QVERIFY(!file.append(QStringLiteral("lost\n")));
    QVERIFY(QDir(folder.path()).mkdir(QStringLiteral("later")));
    QVERIFY(writeTable(path, QStringLiteral("of another export\n")));
    QVERIFY(!file.append(QStringLiteral("would not be whole\n")));
    QVERIFY(file.commit() == State::Failed);
    QCOMPARE(samples::bytesOf(path), samples::utf16Block(QStringLiteral("of another export\n")));
}

void TestCsvFile::fullDiskKeepsTheOlderFile()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a.csv"));
    QVERIFY(writeTable(path, QStringLiteral("complete\n")));
    CsvFile file(path);
    {
        const FullDisk disk(100);
        file.append(QString(20, u'x'));     // 2 + 40 bytes fit
        file.append(QString(40'000, u'x')); // these do not
        QVERIFY(file.commit() == State::Failed);
    }
    QVERIFY(!file.problem().isEmpty());
    QCOMPARE(samples::bytesOf(path), samples::utf16Block(QStringLiteral("complete\n")));
}

QTEST_GUILESS_MAIN(TestCsvFile)
#include "TestCsvFile.moc"
