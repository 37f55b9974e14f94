#include "export/CsvFile.h"
#include "ExportSamples.h"
#include "TestMessages.h"

#include <QTemporaryDir>
#include <QTest>

#ifdef Q_OS_LINUX
#include <csignal>
#include <sys/resource.h>
#endif

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
    void fullDiskFails();
};

void TestCsvFile::blockIsLittleEndianAfterAMark()
{
    const QTemporaryDir folder;
    CsvFile file(folder.filePath(QStringLiteral("a.csv")));
    QVERIFY(file.append(QStringLiteral("a;\u00B0\n")));
    const char expected[] = "\xff\xfe"    // mark
                            "a\0;\0"      // low byte first
                            "\xb0\0\n\0"; // the degree sign is 0x00b0, a line end is one character
    QCOMPARE(samples::bytesOf(file.path()), QByteArray(expected, sizeof expected - 1));
    QVERIFY(file.state() == CsvFile::State::Written);
}

void TestCsvFile::eachBlockHasAMark()
{
    const QTemporaryDir folder;
    CsvFile file(folder.filePath(QStringLiteral("a.csv")));
    QVERIFY(file.append(QStringLiteral("one\n")));
    QVERIFY(file.append(QStringLiteral("two\n")));
    QVERIFY(file.append(QString()));
    QCOMPARE(samples::bytesOf(file.path()),
             samples::utf16Block(QStringLiteral("one\n")) + samples::utf16Block(QStringLiteral("two\n")));
}

void TestCsvFile::firstBlockReplacesAnEarlierFile()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a.csv"));
    QVERIFY(CsvFile(path).append(QStringLiteral("a long block of an earlier export\n")));
    CsvFile file(path);
    QVERIFY(file.append(QStringLiteral("new\n")));
    QCOMPARE(samples::bytesOf(path), samples::utf16Block(QStringLiteral("new\n")));
}

void TestCsvFile::fileBehindALinkIsNotReplaced()
{
    const QTemporaryDir folder;
    const QString original = folder.filePath(QStringLiteral("original.csv"));
    const QString link = folder.filePath(QStringLiteral("link.csv"));
    QVERIFY(CsvFile(original).append(QStringLiteral("kept\n")));
    QVERIFY(QFile::link(original, link));
    QVERIFY(CsvFile(link).append(QStringLiteral("new\n")));
    QCOMPARE(samples::bytesOf(original), samples::utf16Block(QStringLiteral("kept\n")));
    QCOMPARE(samples::bytesOf(link), samples::utf16Block(QStringLiteral("new\n")));
}

void TestCsvFile::charactersBeyondTheBasicPlane()
{
    const QTemporaryDir folder;
    CsvFile file(folder.filePath(QStringLiteral("a.csv")));
    QVERIFY(file.append(QStringLiteral(u"\U0001F441")));
    QCOMPARE(samples::bytesOf(file.path()), QByteArray("\xff\xfe\x3d\xd8\x41\xdc")); // d83d dc41
}

void TestCsvFile::nothingWrittenLeavesNoFile()
{
    const QTemporaryDir folder;
    const CsvFile file(folder.filePath(QStringLiteral("a.csv")));
    QVERIFY(!QFile::exists(file.path()));
    QVERIFY(file.state() == CsvFile::State::Untouched);
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
    QVERIFY(CsvFile(folder.filePath(QStringLiteral("file"))).append(QStringLiteral("x")));
    CsvFile file(folder.filePath(name));
    QVERIFY(!file.append(QStringLiteral("lost\n")));
    QVERIFY(file.state() == CsvFile::State::Failed);
    QCOMPARE(messages.texts(), QStringList());
}

void TestCsvFile::failureIsNotForgotten()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("later/a.csv"));
    CsvFile file(path);
    QVERIFY(!file.append(QStringLiteral("lost\n")));
    QVERIFY(QDir(folder.path()).mkdir(QStringLiteral("later")));
    QVERIFY(CsvFile(path).append(QStringLiteral("of another export\n")));
    QVERIFY(file.append(QStringLiteral("arrives\n")));
    QCOMPARE(samples::bytesOf(path), samples::utf16Block(QStringLiteral("arrives\n"))); // not behind a foreign block
    QVERIFY(file.state() == CsvFile::State::Failed);
}

void TestCsvFile::fullDiskFails()
{
#ifdef Q_OS_LINUX
    const QTemporaryDir folder;
    CsvFile file(folder.filePath(QStringLiteral("a.csv")));
    rlimit before{};
    QCOMPARE(getrlimit(RLIMIT_FSIZE, &before), 0);
    const auto signalBefore = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit tiny{100, before.rlim_max};
    QCOMPARE(setrlimit(RLIMIT_FSIZE, &tiny), 0);
    const bool fits = file.append(QString(20, u'x'));    // 2 + 40 bytes
    const bool exceeds = file.append(QString(40, u'x')); // 82 more
    setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, signalBefore);
    QVERIFY(fits);
    QVERIFY(!exceeds);
    QVERIFY(file.state() == CsvFile::State::Failed);
#else
    QSKIP("File size limits are set by a Linux call");
#endif
}

QTEST_GUILESS_MAIN(TestCsvFile)
#include "TestCsvFile.moc"
