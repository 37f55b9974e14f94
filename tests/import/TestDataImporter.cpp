// SPDX-License-Identifier: GPL-3.0-or-later
#include "import/DataImporter.h"
#include "TestLog.h"

#include <QDir>
#include <QFile>
#include <QStringEncoder>
#include <QTemporaryDir>
#include <QTest>
#include <QTextStream>

#include <limits>
#include <random>
#include <thread>

#include <sys/stat.h>

namespace {

/// A sample line of both eyes: x 10, y 20, pupil 3 by 4 left; x 30, y 40, pupil 5 by 6 right.
QByteArray sampleLine(const QByteArray &time, const QByteArray &leftValidity = "1",
                      const QByteArray &rightValidity = "1")
{
    return time + "\t10\t20\t3\t4\t" + leftValidity + "\t30\t40\t5\t6\t" + rightValidity;
}

const QList<GazePoint> oneLeft{{0, 10, 20, 3, 4, 1}};
const QList<GazePoint> oneRight{{0, 30, 40, 5, 6, 1}};
const QList<GazePoint> oneMean{{0, 20, 30, 4, 5, 1}}; // (10+30)/2, (20+40)/2, (3+5)/2, (4+6)/2

QList<qint64> timesOf(const QList<GazePoint> &points)
{
    QList<qint64> times;
    for (const GazePoint &point : points)
        times << point.time;
    return times;
}

/// Runs the importer on bytes and keeps what came of it.
struct Imported {
    explicit Imported(const QByteArray &bytes)
    {
        const RecordedLog log;
        DataImporter importer(QString(), &examination, &log.log());
        ok = importer.readBytes(bytes);
        counts = importer.counts();
        logText = log.bytes();
    }

    const QList<GazePoint> &left() const { return examination.leftEye.gazePoints; }
    const QList<GazePoint> &right() const { return examination.rightEye.gazePoints; }
    const QList<GazePoint> &mean() const { return examination.meanEye.gazePoints; }

    Examination examination;
    bool ok = false;
    ImportCounts counts;
    QByteArray logText;
};

constexpr QByteArrayView wrongLength("DataImporter ERROR: Journal entry has invalid length\n   --> ");

} // namespace

class TestDataImporter : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void writerForm();
    void recordingFromAPipe();
    void recordingThatCannotBeReadOnceOpen();
    void linesAround_data();
    void linesAround();
    void lineEnds_data();
    void lineEnds();
    void linesAreThoseOfATextStream();
    void headersAreLogged();
    void wrongLengthIsLoggedAndLeftOut_data();
    void wrongLengthIsLoggedAndLeftOut();
    void wrongLengthSetsNoTimeZero();
    void logKeepsTheOrder();
    void loggedLinesAreDecoded_data();
    void loggedLinesAreDecoded();
    void validity_data();
    void validity();
    void files_data();
    void files();
    void times_data();
    void times();
    void fieldsThatAreNoNumbers();
    void faultsAreToldApart_data();
    void faultsAreToldApart();
    void implausibleRates_data();
    void implausibleRates();
    void wideText();
    void falseLeavesTheExaminationAlone();
    void memory();
};

void TestDataImporter::writerForm()
{
    const Imported imported("StaticBinocular\n"
                            "time\tleft_x\tleft_y\tleft_w\tleft_h\tleft_valid\tright_x\tright_y\tright_w\tright_h\t"
                            "right_valid\n"
                            "1000\t10.5\t20.25\t3\t4\t1\t30\t40\t5\t6.5\t1\n"
                            "1004\t11\t21\t3\t4\t1\t31\t41\t5\t6\t0\n");
    QVERIFY(imported.ok);
    const QList<GazePoint> left{{0, 10.5, 20.25, 3, 4, 1}, {4, 11, 21, 3, 4, 1}};
    const QList<GazePoint> right{{0, 30, 40, 5, 6.5, 1}, {4, 31, 41, 5, 6, 0}};
    // (10.5+30)/2, (20.25+40)/2, (3+5)/2, (4+6.5)/2; the right eye of the second sample is lost
    const QList<GazePoint> mean{{0, 20.25, 30.125, 4, 5.25, 1}, {4, -1, -1, -1, -1, 0}};
    QCOMPARE(imported.left(), left);
    QCOMPARE(imported.right(), right);
    QCOMPARE(imported.mean(), mean);
    QCOMPARE(imported.counts, (ImportCounts{.samples = 2, .durationMs = 4}));
    QCOMPARE(imported.logText, QByteArray());
    QCOMPARE(imported.left().constFirst().color, qRgba(255, 0, 0, 255));
}

/// A pipe does not know its size.
void TestDataImporter::recordingFromAPipe()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("pipe.data"));
    QCOMPARE(mkfifo(qPrintable(path), 0600), 0);
    std::thread writer([&path] {
        QFile pipe(path);
        if (pipe.open(QIODevice::WriteOnly))
            pipe.write(sampleLine("7") + '\n' + sampleLine("11") + '\n');
    });
    Examination examination;
    const bool ok = DataImporter(path, &examination, nullptr).readFile();
    writer.join();
    QVERIFY(ok);
    QCOMPARE(timesOf(examination.leftEye.gazePoints), QList<qint64>({0, 4}));
}

/// The memory of the process can be opened as a file, but nothing can be read at its start.
void TestDataImporter::recordingThatCannotBeReadOnceOpen()
{
    const QString path = QStringLiteral("/proc/self/mem");
    QFile memory(path);
    if (!memory.open(QIODevice::ReadOnly))
        QSKIP("This system has no such file.");
    const RecordedLog log;
    Examination examination;
    QVERIFY(!DataImporter(path, &examination, &log.log()).readFile());
    QCOMPARE(log.bytes(), QByteArray("DataImporter ERROR: Datafile can not be opened or does not exist!\n"));
}

void TestDataImporter::linesAround_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<qsizetype>("shifted");
    const auto row = [](const char *name, const QByteArray &line, qsizetype shifted = 0) {
        QTest::newRow(name) << line << shifted;
    };
    row("an empty line", "");
    row("a word", "StaticBinocular");
    row("column names", "time\tleft_x");
    row("four bytes 0xFD", "\xFD\xFD\xFD\xFD");
    row("four bytes 0xFD before a sample", "\xFD\xFD\xFD\xFD" + sampleLine("5"));
    row("four characters 0xFD in UTF-8", "\xC3\xBD\xC3\xBD\xC3\xBD\xC3\xBD" + sampleLine("5"));
    row("a blank before a sample", " " + sampleLine("5"), 1);
    row("a time below zero", sampleLine("-5"), 1);
    row("a plus before the time", sampleLine("+5"), 1);
    row("a NUL before a sample", QByteArray("\0", 1) + sampleLine("5"));
    row("a run of NULs", QByteArray(5000, '\0'));
    row("a carriage return before a sample", "\r" + sampleLine("5"));
    row("a megabyte of letters", QByteArray(1 << 20, 'x'));
}

void TestDataImporter::linesAround()
{
    QFETCH(QByteArray, line);
    QFETCH(qsizetype, shifted);
    for (const QByteArray &bytes :
         {line + '\n' + sampleLine("7"), sampleLine("7") + '\n' + line, sampleLine("7") + '\n' + line + "\r\n"})
    {
        const Imported imported(bytes);
        QVERIFY(imported.ok);
        QCOMPARE(imported.left(), oneLeft);
        QCOMPARE(imported.right(), oneRight);
        QCOMPARE(imported.mean(), oneMean);
        QCOMPARE(imported.counts.samples, 1);
        QCOMPARE(imported.counts.shifted.count, shifted);
        QCOMPARE(imported.counts.wrongLength.count + imported.counts.noNumbers.count, 0);
        QCOMPARE(imported.logText, QByteArray());
    }
}

void TestDataImporter::lineEnds_data()
{
    QTest::addColumn<QByteArray>("lineEnd");
    QTest::addColumn<bool>("atTheEnd");
    QTest::newRow("line feed") << QByteArray("\n") << true;
    QTest::newRow("line feed, none at the end") << QByteArray("\n") << false;
    QTest::newRow("carriage return and line feed") << QByteArray("\r\n") << true;
    QTest::newRow("carriage return and line feed, none at the end") << QByteArray("\r\n") << false;
}

void TestDataImporter::lineEnds()
{
    QFETCH(QByteArray, lineEnd);
    QFETCH(bool, atTheEnd);
    const Imported imported(QByteArrayList{"# header", sampleLine("5"), sampleLine("9")}.join(lineEnd) +
                            (atTheEnd ? lineEnd : QByteArray()));
    QVERIFY(imported.ok);
    QCOMPARE(timesOf(imported.left()), (QList<qint64>{0, 4}));
    QVERIFY(imported.right().constLast().validFlag); // the last field is read without the line end
    QCOMPARE(imported.logText, QByteArray("Dataimporter found header: # header\n"));
}

void TestDataImporter::linesAreThoseOfATextStream()
{
    constexpr int files = 500;
    std::mt19937 random(11); // fixed seed: a failing file is found again
    const QByteArrayView letters("1#\r\r\n\n");
    std::uniform_int_distribution<qsizetype> letter(0, letters.size() - 1);
    for (int i = 0; i < files; ++i) {
        QByteArray bytes;
        for (int length = i % 12; length > 0; --length)
            bytes += letters[letter(random)];
        QByteArray expected;
        QTextStream stream(bytes);
        for (QString line; stream.readLineInto(&line);) {
            if (line.startsWith(u'#'))
                expected += "Dataimporter found header: " + line.toUtf8() + '\n';
            else if (line.startsWith(u'1'))
                expected += wrongLength.toByteArray() + line.toUtf8() + '\n';
        }
        QCOMPARE(Imported(bytes).logText, expected);
    }
}

void TestDataImporter::headersAreLogged()
{
    const Imported imported("# first\n#\n" + sampleLine("1") + "\n#" + sampleLine("2"));
    QCOMPARE(imported.logText, "Dataimporter found header: # first\nDataimporter found header: #\n"
                               "Dataimporter found header: #" +
                                   sampleLine("2") + '\n');
    QCOMPARE(imported.left(), oneLeft);
}

void TestDataImporter::wrongLengthIsLoggedAndLeftOut_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::newRow("ten fields") << QByteArray("5\t1\t2\t3\t4\t1\t6\t7\t8\t9");
    QTest::newRow("twelve fields") << sampleLine("5") + "\t1";
    QTest::newRow("a tab at the end") << sampleLine("5") + '\t';
    QTest::newRow("commas between the fields") << sampleLine("5").replace('\t', ',');
    QTest::newRow("one digit") << QByteArray("5");
}

void TestDataImporter::wrongLengthIsLoggedAndLeftOut()
{
    QFETCH(QByteArray, line);
    const Imported imported("#\n" + sampleLine("3") + '\n' + line + "\r\n\n" + line + '\n' + sampleLine("9"));
    QVERIFY(imported.ok);
    QCOMPARE(timesOf(imported.mean()), (QList<qint64>{0, 6}));
    QCOMPARE(imported.counts, (ImportCounts{.samples = 2, .wrongLength = {2, 3}, .durationMs = 6}));
    const QByteArray logged = wrongLength.toByteArray() + line + '\n';
    QCOMPARE(imported.logText, "Dataimporter found header: #\n" + logged + logged);
}

void TestDataImporter::wrongLengthSetsNoTimeZero()
{
    QCOMPARE(timesOf(Imported("5\t1\n" + sampleLine("7") + '\n' + sampleLine("9")).left()), (QList<qint64>{0, 2}));
}

void TestDataImporter::logKeepsTheOrder()
{
    constexpr int lines = 20000; // several times what is written at once
    QByteArray bytes;
    QByteArray expected;
    for (int i = 0; i < lines; ++i) {
        const QByteArray number = QByteArray::number(i);
        bytes += i % 2 == 0 ? number + '\n' : '#' + number + '\n';
        expected += (i % 2 == 0 ? wrongLength.toByteArray() + number : "Dataimporter found header: #" + number) + '\n';
    }
    const Imported imported(bytes);
    QVERIFY(!imported.ok);
    QCOMPARE(imported.logText, expected);
    QCOMPARE(imported.counts, (ImportCounts{.wrongLength = {lines / 2, 1}}));
}

void TestDataImporter::loggedLinesAreDecoded_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("UTF-8") << QByteArray("# J\xC3\xBCrgen\n");
    QTest::newRow("UTF-8 with a byte order mark") << QByteArray("\xEF\xBB\xBF# J\xC3\xBCrgen\n");
    QTest::newRow("Latin-1") << QByteArray("# J\xFCrgen\n");
}

void TestDataImporter::loggedLinesAreDecoded()
{
    QFETCH(QByteArray, bytes);
    QCOMPARE(Imported(bytes).logText, QByteArray("Dataimporter found header: # J\xC3\xBCrgen\n"));
    // One byte that is not UTF-8 anywhere makes the whole file Latin-1.
    if (bytes.contains("\xC3\xBC"))
        QVERIFY(Imported(bytes + "\xFF").logText.contains("J\xC3\x83\xC2\xBCrgen"));
}

void TestDataImporter::validity_data()
{
    QTest::addColumn<QByteArray>("left");
    QTest::addColumn<QByteArray>("right");
    QTest::addColumn<bool>("ok");
    QTest::addColumn<bool>("leftFlag");
    QTest::addColumn<bool>("rightFlag");
    QTest::addColumn<bool>("meanFlag");
    const auto row = [](const char *name, const char *left, const char *right, bool ok, bool leftFlag, bool rightFlag,
                        bool meanFlag) {
        QTest::newRow(name) << QByteArray(left) << QByteArray(right) << ok << leftFlag << rightFlag << meanFlag;
    };
    row("both usable", "1", "1", true, true, true, true);
    row("left lost", "0", "1", true, false, true, false);
    row("right lost", "1", "0", true, true, false, false);
    row("both lost", "0", "0", false, false, false, false);
    row("2 counts for file and mean, not for the eye", "2", "2", true, false, false, true);
    row("2 and 1", "2", "1", true, false, true, true);
    row("2 and 0", "2", "0", true, false, false, false);
    row("below zero is lost", "-1", "-1", false, false, false, false);
    row("a decimal is no whole number", "1.0", "1.0", false, false, false, false);
    row("a word is no number", "true", "yes", false, false, false, false);
    row("empty is no number", "", "", false, false, false, false);
    row("beyond 32 bits is no number", "4294967297", "2147483648", false, false, false, false);
    row("the largest 32-bit number", "2147483647", "1", true, false, true, true);
}

void TestDataImporter::validity()
{
    QFETCH(QByteArray, left);
    QFETCH(QByteArray, right);
    QFETCH(bool, ok);
    QFETCH(bool, leftFlag);
    QFETCH(bool, rightFlag);
    QFETCH(bool, meanFlag);
    const Imported imported(sampleLine("5", left, right));
    QCOMPARE(imported.ok, ok);
    QCOMPARE(imported.counts.samples, qsizetype(1));
    if (!ok)
        return;
    QCOMPARE(imported.left().constFirst().validFlag, leftFlag);
    QCOMPARE(imported.right().constFirst().validFlag, rightFlag);
    QCOMPARE(imported.mean().constFirst(), meanFlag ? oneMean.constFirst() : GazePoint(0, -1, -1, -1, -1, 0));
    QCOMPARE(imported.left().constFirst().x, 10.0); // lost or not, the position is kept
}

void TestDataImporter::files_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("ok");
    QTest::newRow("an empty file") << QByteArray() << false;
    QTest::newRow("only line ends") << QByteArray("\n\r\n\n") << false;
    QTest::newRow("only headers") << QByteArray("# a\nStaticBinocular\ntime\tleft_x\n") << false;
    QTest::newRow("only a byte order mark") << QByteArray("\xEF\xBB\xBF") << false;
    QTest::newRow("no usable sample") << sampleLine("1", "0", "0") + '\n' + sampleLine("2", "0", "0") << false;
    QTest::newRow("one usable sample of one eye")
        << sampleLine("1", "0", "0") + '\n' + sampleLine("2", "0", "1") << true;
    QTest::newRow("only lines of wrong length") << QByteArray("1\t2\n3\t4\n") << false;
    QTest::newRow("a byte order mark before a sample") << "\xEF\xBB\xBF" + sampleLine("1") << true;
}

void TestDataImporter::files()
{
    QFETCH(QByteArray, bytes);
    QFETCH(bool, ok);
    const Imported imported(bytes);
    QCOMPARE(imported.ok, ok);
    QCOMPARE(imported.left().isEmpty(), !ok);
    QCOMPARE(imported.left().size(), imported.right().size());
    QCOMPARE(imported.left().size(), imported.mean().size());
}

void TestDataImporter::times_data()
{
    QTest::addColumn<QByteArrayList>("raw");
    QTest::addColumn<QList<qint64>>("expected");
    constexpr qint64 largest = std::numeric_limits<qint64>::max();
    const auto row = [](const char *name, const QByteArrayList &raw, const QList<qint64> &expected) {
        QTest::newRow(name) << raw << expected;
    };
    row("the first sample is time zero", {"100", "104", "108"}, {0, 4, 8});
    row("times that run backwards stay so", {"100", "90", "95"}, {0, -10, -5});
    row("equal times stay equal", {"100", "100"}, {0, 0});
    row("a clock in microseconds since 1970", {"1700000000000000", "1700000000000004"}, {0, 4});
    row("decimals are no whole number", {"0.5", "100", "7.0"}, {0, 100, 0});
    row("beyond 64 bits is no number", {"0", "9223372036854775808", "99999999999999999999", "5"}, {0, 0, 0, 5});
    row("the largest 64-bit number", {"0", "9223372036854775807"}, {0, largest});
    row("differences at the limit", {"9223372036854775807", "0"}, {0, -largest});
    row("a time like 0x10 is no number", {"10", "0x10"}, {0, -10});
}

void TestDataImporter::times()
{
    QFETCH(QByteArrayList, raw);
    QFETCH(QList<qint64>, expected);
    QByteArray bytes;
    for (const QByteArray &time : raw)
        bytes += sampleLine(time, "0", "1") + '\n'; // time zero does not depend on the left eye, which is lost
    const Imported imported(bytes);
    QVERIFY(imported.ok);
    QCOMPARE(timesOf(imported.left()), expected);
    QCOMPARE(timesOf(imported.right()), expected);
    QCOMPARE(timesOf(imported.mean()), expected);
}

void TestDataImporter::fieldsThatAreNoNumbers()
{
    const QByteArray line("5\t1,5\tx\t\t 3 \t1\t1e2\t-7.5\t0x10\t" + QByteArray("4\0", 2) + "\t1");
    const Imported imported(line + '\n');
    QVERIFY(imported.ok);
    QCOMPARE(imported.left(), (QList<GazePoint>{{0, 0, 0, 0, 3, 1}}));
    QCOMPARE(imported.right(), (QList<GazePoint>{{0, 100, -7.5, 0, QString::fromUtf8("4\0", 2).toDouble(), 1}}));
    QCOMPARE(imported.mean(), (QList<GazePoint>{{0, 50, -3.75, 0, imported.right().constFirst().height / 2 + 1.5, 1}}));
    QCOMPARE(imported.counts, (ImportCounts{.samples = 1, .noNumbers = {3, 1}, .decimalCommas = {1, 1}}));
    // x, 0x10 and 4 with a NUL; 1,5
}

void TestDataImporter::faultsAreToldApart_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<ImportCounts>("counts"); // beside the two samples, of which the second is line 2
    const auto row = [](const char *name, const QByteArray &line, ImportCounts counts) {
        QTest::newRow(name) << line << counts;
    };
    row("nothing", sampleLine("5"), {.samples = 2, .durationMs = 4});
    // what is no number counts as 0: the second sample is at 0, 1 ms before the first
    row("a decimal time", sampleLine("5.25"),
        {.samples = 2, .decimalTimes = {1, 2}, .backwardTimes = {1, 2}, .durationMs = -1});
    row("a time with a comma", sampleLine("5,25"),
        {.samples = 2, .decimalTimes = {1, 2}, .backwardTimes = {1, 2}, .durationMs = -1});
    row("a time in words", sampleLine("5 ms"),
        {.samples = 2, .noNumbers = {1, 2}, .backwardTimes = {1, 2}, .durationMs = -1});
    row("two commas", "5\t10,5\t-20,25\t3\t4\t1\t30\t40\t5\t6\t1",
        {.samples = 2, .decimalCommas = {2, 2}, .durationMs = 4});
    row("no decimal comma", "5\t1,2,3\t,5\t5,\t-\t1\t30\t40\t5\t6\t1",
        {.samples = 2, .noNumbers = {4, 2}, .durationMs = 4});
    row("a validity with decimals", sampleLine("5", "1.0"), {.samples = 2, .noNumbers = {1, 2}, .durationMs = 4});
    row("a blank before the time", ' ' + sampleLine("5"), {.samples = 1, .shifted = {1, 2}});
    row("a time below zero", sampleLine("-5"), {.samples = 1, .shifted = {1, 2}});
    row("a quote before the time", '"' + sampleLine("5"), {.samples = 1, .shifted = {1, 2}});
    row("a remark after a blank", " 5 samples follow", {.samples = 1});
}

void TestDataImporter::faultsAreToldApart()
{
    QFETCH(QByteArray, line);
    QFETCH(ImportCounts, counts);
    const Imported imported(sampleLine("1") + '\n' + line + '\n');
    QVERIFY(imported.ok);
    QCOMPARE(imported.counts, counts);
}

void TestDataImporter::implausibleRates_data()
{
    QTest::addColumn<int>("samplesPerTime");
    QTest::addColumn<int>("step");
    QTest::addColumn<QString>("told"); // of forty samples, the first in line 1
    QTest::newRow("2 ms") << 1 << 2 << QString();
    QTest::newRow("100 ms are the slowest") << 1 << 100 << QString();
    QTest::newRow("microseconds") << 1 << 2000 << QStringLiteral("40 samples in 78000 ms"); // 39 steps
    QTest::newRow("seconds without decimals") << 40 << 1 << QStringLiteral("40 samples in 0 ms");
}

void TestDataImporter::implausibleRates()
{
    QFETCH(int, samplesPerTime);
    QFETCH(int, step);
    QFETCH(QString, told);
    QByteArray bytes;
    for (int i = 0; i < 40; ++i)
        bytes += sampleLine(QByteArray::number(i / samplesPerTime * step)) + '\n';
    const Imported imported(bytes);
    QCOMPARE(imported.counts.isRateImplausible(), !told.isEmpty());
    if (told.isEmpty())
        return;
    const QString doubt = importDoubts(imported.counts).constLast();
    QVERIFY2(doubt.startsWith(told + QStringLiteral(" are no rate of an eye tracker; the first doubtful step is "
                                                    "line 2.")),
             qPrintable(doubt));
    QCOMPARE(reportedCounts(imported.counts)[QStringLiteral("first of implausible rate")], 2);
}

void TestDataImporter::wideText()
{
    const QString text = QString::fromLatin1("# J\xFCrgen\r\n" + sampleLine("5"));
    for (const auto encoding : {QStringConverter::Utf16LE, QStringConverter::Utf16BE, QStringConverter::Utf32LE}) {
        QStringEncoder encoder(encoding, QStringConverter::Flag::WriteBom);
        const QByteArray bytes = encoder(text);
        const Imported imported(bytes);
        QVERIFY(imported.ok);
        QCOMPARE(imported.right(), oneRight);
        QCOMPARE(imported.logText, QByteArray("Dataimporter found header: # J\xC3\xBCrgen\n"));
    }
}

void TestDataImporter::falseLeavesTheExaminationAlone()
{
    Examination examination;
    examination.leftEye.gazePoints = oneRight;
    DataImporter importer(QString(), &examination, nullptr);
    QVERIFY(!importer.readBytes(sampleLine("1", "0", "0")));
    QCOMPARE(examination.leftEye.gazePoints, oneRight);
    QVERIFY(examination.meanEye.gazePoints.isEmpty());
}

void TestDataImporter::memory()
{
    constexpr qsizetype samples = 10000;
    constexpr qsizetype mostBytesPerSample = 72;
    QByteArray good;
    QByteArray bad;
    for (qsizetype i = 0; i < samples; ++i) {
        good += sampleLine(QByteArray::number(i)) + '\n';
        bad += sampleLine(QByteArray::number(i)) + "\t1\n"; // room is made for these, too, and given back
    }
    for (const QByteArray &bytes : {good, good + bad, bad + good + "\n\n\n\n"}) {
        Examination examination;
        QVERIFY(DataImporter(QString(), &examination, nullptr).readBytes(bytes));
        for (const EyeData *eye : {&examination.leftEye, &examination.rightEye, &examination.meanEye}) {
            QCOMPARE(eye->gazePoints.size(), samples);
            const qsizetype taken = eye->gazePoints.capacity() * qsizetype(sizeof(GazePoint));
            QVERIFY2(taken <= mostBytesPerSample * samples, QByteArray::number(taken));
        }
    }
}

QTEST_GUILESS_MAIN(TestDataImporter)
#include "TestDataImporter.moc"
