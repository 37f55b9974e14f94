// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/BatchRunTest.h"

#include <QJsonArray>
#include <QStringEncoder>

using namespace Qt::StringLiterals;

namespace {

const QByteArray
    head("StaticBinocular\n"
         "time\tleft_x\tleft_y\tleft_w\tleft_h\tleft_valid\tright_x\tright_y\tright_w\tright_h\tright_valid\n");

/// Semicolons, decimal commas, one eye with confidence, seconds.
const QByteArray layout(R"({
    "version": 1,
    "kind": "delimited",
    "delimiter": ";",
    "decimal": "comma",
    "header": "yes",
    "time": {"column": "t", "unit": "s"},
    "left": {"x": "x", "y": "y", "pupil": "d", "validity": "c"},
    "valid": {"atLeast": 0.6},
    "place": {"unit": "px", "screenPx": [1280, 1024]},
    "set": {"subject": "who", "stimulus": "seen", "mood": "mood"}
})");

const QByteArray table("t;x;y;d;c;who;seen;trial;mood\n"
                       "0,500;100,25;200;3,5;0,9;Ann;bay.png;1;calm\n"
                       "0,504;101;201;3,5;0,5;Ann;bay.png;1;calm\n"
                       "0,508;102;202;3,5;0,6;Ann;bay.png;2;calm\n"
                       "0,512;103;203;3,5;1;Ann;bay.png;2;calm\n");

/// What is to come of it, line by line; the right eye has no columns.
const QByteArray lines[] = {
    "500\t100.25\t200\t3.5\t3.5\t1\t0\t0\t0\t0\t0\n", "504\t101\t201\t3.5\t3.5\t0\t0\t0\t0\t0\t0\n",
    "508\t102\t202\t3.5\t3.5\t1\t0\t0\t0\t0\t0\n", "512\t103\t203\t3.5\t3.5\t1\t0\t0\t0\t0\t0\n"};

QString contains(const QStringList &all, const QString &text)
{
    return all.filter(text).value(0);
}

} // namespace

class TestConvertProgram : public BatchRunTest {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void wholeTable();
    void splitByColumn();
    void compressedTableInAnotherEncoding();
    void fractionalTimesAreRoundedAndTold();
    void badTableDoesNotStopTheOthers();
    void recordingWithoutValidSample();
    void tablesAreNotReplaced();
    void equalNames();
    void namesStayInTheFolder();
    void setFileBesideTheTable();
    void entriesThatNoSetFileHolds();
    void aReportDestroysNothing();
    void report();
    void usage_data();
    void usage();
    void helpAndVersion();
    void fullOutput();
    void sameBytesWithAnyNumberOfJobs();
    void manySamplesOfManyRecordings();

private:
    Outcome convert(const QString &line) const
    {
        return m_batch->run(QStringLiteral(VISTRUM_IMPORT), line.split(u' ', Qt::SkipEmptyParts));
    }
    QByteArray read(const QString &name) const { return m_batch->contents(name); }
    void write(const QString &name, const QByteArray &bytes) const { m_batch->write(name, bytes); }
};

void TestConvertProgram::init()
{
    start();
    write(u"mine.layout.json"_s, layout);
    write(u"ann.csv"_s, table);
    write(u"bay.png"_s, read(u"study/bay.png"_s));
}

void TestConvertProgram::wholeTable()
{
    const Outcome outcome = convert(u"--quiet --layout mine.layout.json --out made ann.csv"_s);
    QCOMPARE(outcome.status, 0);
    QCOMPARE(outcome.written, (QStringList{u"made/ann.data"_s, u"made/ann.set"_s}));
    QCOMPARE(read(u"made/ann.data"_s), head + lines[0] + lines[1] + lines[2] + lines[3]);
    QCOMPARE(read(u"made/ann.set"_s),
             QByteArray("picturename=bay.png\npicturepath=../bay.png\n[subject]\nsubjectID=Ann\n"
                        "group=None\nmood=calm\n"));
    QVERIFY2(!contains(outcome.errors, u"right eye"_s).isEmpty(), qPrintable(outcome.errors.join(u'\n')));
}

void TestConvertProgram::splitByColumn()
{
    const Outcome outcome = convert(u"--quiet --layout mine.layout.json --split trial ann.csv"_s);
    QCOMPARE(outcome.status, 0);
    QCOMPARE(outcome.written, (QStringList{u"ann_1.data"_s, u"ann_1.set"_s, u"ann_2.data"_s, u"ann_2.set"_s}));
    QCOMPARE(read(u"ann_1.data"_s), head + lines[0] + lines[1]);
    QCOMPARE(read(u"ann_2.data"_s), head + lines[2] + lines[3]);
    const Outcome unknown = convert(u"--quiet --layout mine.layout.json --split trail ann.csv"_s);
    QCOMPARE(unknown.status, 1);
    QVERIFY2(unknown.errors.join(u' ').contains(u"trail"_s), qPrintable(unknown.errors.join(u'\n')));
}

void TestConvertProgram::compressedTableInAnotherEncoding()
{
    QStringEncoder encoder(QStringConverter::Utf16LE, QStringConverter::Flag::WriteBom);
    const QByteArray wide = encoder(QString::fromUtf8(table).replace(u"Ann"_s, u"J\u00FCrgen"_s));
    write(u"wide.csv"_s, wide);
    QProcess gzip;
    gzip.start(u"gzip"_s, {u"-n"_s, m_batch->path(u"wide.csv"_s)});
    QVERIFY(gzip.waitForFinished() && gzip.exitCode() == 0);
    const Outcome outcome = convert(u"--quiet --layout mine.layout.json wide.csv.gz"_s);
    QCOMPARE(outcome.status, 0);
    QCOMPARE(outcome.written, (QStringList{u"wide.data"_s, u"wide.set"_s}));
    QCOMPARE(read(u"wide.data"_s), head + lines[0] + lines[1] + lines[2] + lines[3]);
    QVERIFY(read(u"wide.set"_s).contains("subjectID=J\xC3\xBCrgen\n"));
}

void TestConvertProgram::fractionalTimesAreRoundedAndTold()
{
    // 0.5004 s and 0.5005 s: half a ms goes upwards
    write(u"ann.csv"_s, QByteArray(table).replace("0,500;", "0,5004;").replace("0,504;", "0,5045;"));
    const Outcome outcome = convert(u"--quiet --layout mine.layout.json ann.csv"_s);
    QCOMPARE(outcome.status, 0);
    QCOMPARE(read(u"ann.data"_s), head + lines[0] + QByteArray(lines[1]).replace("504", "505") + lines[2] + lines[3]);
    const QString told = contains(outcome.errors, u"rounded"_s);
    QVERIFY2(told.endsWith(u"ann.csv: times that are no whole milliseconds and were rounded, by up to 0.5 ms: 2."_s),
             qPrintable(outcome.errors.join(u'\n')));
}

void TestConvertProgram::badTableDoesNotStopTheOthers()
{
    write(u"words.csv"_s, "word,length\nbay,3\n");
    const Outcome outcome = convert(u"--quiet --layout mine.layout.json words.csv gone.csv ann.csv"_s);
    QCOMPARE(outcome.status, 1);
    QCOMPARE(outcome.written, (QStringList{u"ann.data"_s, u"ann.set"_s}));
    QVERIFY(contains(outcome.errors, u"words.csv: words.csv, "_s).contains(u"expected"_s));
    QVERIFY(!contains(outcome.errors, u"gone.csv: gone.csv: "_s).isEmpty());
    QVERIFY(!QFile::exists(m_batch->path(u"words.data"_s)));
}

void TestConvertProgram::recordingWithoutValidSample()
{
    write(u"lost.csv"_s, "t;x;y;d;c;who;seen;trial;mood\n0,5;1;2;3;0;Ann;bay.png;1;calm\n");
    const Outcome outcome = convert(u"--quiet --layout mine.layout.json lost.csv ann.csv"_s);
    QCOMPARE(outcome.status, 1);
    QCOMPARE(outcome.written, (QStringList{u"ann.data"_s, u"ann.set"_s}));
    QVERIFY(outcome.errors.contains(u"lost.csv: lost.csv: none of its 1 samples is valid"_s));
}

void TestConvertProgram::tablesAreNotReplaced()
{
    write(u"own.data"_s, table);
    const Outcome outcome = convert(u"--quiet --layout mine.layout.json own.data"_s);
    QCOMPARE(outcome.status, 1);
    QCOMPARE(outcome.written, QStringList());
    QCOMPARE(read(u"own.data"_s), table);
    QVERIFY(!contains(outcome.errors, u"own.data is not written: that name is taken by own.data"_s).isEmpty());
    QCOMPARE(convert(u"--quiet --layout mine.layout.json --out elsewhere own.data"_s).status, 0);
    QCOMPARE(read(u"elsewhere/own.data"_s), head + lines[0] + lines[1] + lines[2] + lines[3]);
}

void TestConvertProgram::equalNames()
{
    QVERIFY(QDir(m_batch->path({})).mkpath(u"other"_s));
    write(u"other/ann.csv"_s, QByteArray(table).replace("100,25", "777"));
    const Outcome outcome = convert(u"--quiet --layout mine.layout.json ann.csv other/ann.csv"_s);
    QCOMPARE(outcome.status, 1);
    QCOMPARE(outcome.written, (QStringList{u"ann.data"_s, u"ann.set"_s}));
    QCOMPARE(read(u"ann.data"_s), head + lines[0] + lines[1] + lines[2] + lines[3]);
    QVERIFY(!contains(outcome.errors, u"ann.data is not written: that name is taken by ann.csv"_s).isEmpty());
}

void TestConvertProgram::namesStayInTheFolder()
{
    write(u"ann.csv"_s, QByteArray(table).replace(";1;calm", ";../up;calm").replace(";2;calm", ";/etc/x;calm"));
    const Outcome outcome = convert(u"--quiet --layout mine.layout.json --split trial --out made ann.csv"_s);
    QCOMPARE(outcome.status, 0);
    QCOMPARE(outcome.written, (QStringList{u"made/ann_.._up.data"_s, u"made/ann_.._up.set"_s, u"made/ann__etc_x.data"_s,
                                           u"made/ann__etc_x.set"_s}));
    for (const QString &name : outcome.written)
        QVERIFY2(QFile::exists(m_batch->path(name)), qPrintable(name));
}

void TestConvertProgram::setFileBesideTheTable()
{
    const QByteArray given("picturename=bay.png\npicturepath=bay.png\n[subject]\nsubjectID=Bea\ndominant=left\n");
    write(u"ann.set"_s, given);
    Outcome outcome = convert(u"--quiet --layout mine.layout.json ann.csv"_s);
    QCOMPARE(outcome.status, 0);
    QCOMPARE(outcome.written, QStringList{u"ann.data"_s});
    QCOMPARE(read(u"ann.set"_s), given);
    QVERIFY(!contains(outcome.errors, u"ann.set is kept as it is"_s).isEmpty());
    outcome = convert(u"--quiet --layout mine.layout.json --out made ann.csv"_s);
    QCOMPARE(outcome.written, (QStringList{u"made/ann.data"_s, u"made/ann.set"_s}));
    QCOMPARE(read(u"made/ann.set"_s), QByteArray(given).replace("picturepath=bay", "picturepath=../bay"));
}

void TestConvertProgram::entriesThatNoSetFileHolds()
{
    write(u"ann.csv"_s, QByteArray(table).replace("calm", "a=b").replace("bay.png", "c:bay"));
    const Outcome outcome = convert(u"--quiet --layout mine.layout.json ann.csv"_s);
    QCOMPARE(outcome.status, 0);
    QCOMPARE(read(u"ann.set"_s), QByteArray("[subject]\nsubjectID=Ann\ngroup=None\nmood=a b\n"));
    QVERIFY(!contains(outcome.errors, u"the value of mood"_s).isEmpty());
    QVERIFY(!contains(outcome.errors, u"stimulus is left out of the set file"_s).isEmpty());
}

void TestConvertProgram::aReportDestroysNothing()
{
    const QByteArray before = read(u"ann.csv"_s);
    const Outcome overInput = convert(u"--layout mine.layout.json --report ./ann.csv ann.csv"_s);
    QCOMPARE(overInput.status, 2);
    QCOMPARE(overInput.errors,
             QStringList{u"vistrum-import: --report ./ann.csv: this run reads that file; give another name"_s});
    QCOMPARE(read(u"ann.csv"_s), before);
    const Outcome overLayout = convert(u"--layout mine.layout.json --report mine.layout.json ann.csv"_s);
    QCOMPARE(overLayout.status, 2);
    const Outcome overOutput = convert(u"--quiet --layout mine.layout.json --report ann.data ann.csv"_s);
    QCOMPARE(overOutput.status, 1);
    QVERIFY(!contains(overOutput.errors, u"that name is taken by --report"_s).isEmpty());
}

void TestConvertProgram::report()
{
    write(u"words.csv"_s, "word\nbay\n");
    const Outcome outcome =
        convert(u"--quiet --layout mine.layout.json --split trial --report run.json ann.csv words.csv"_s);
    QCOMPARE(outcome.status, 1);
    QCOMPARE(outcome.written.constLast(), u"run.json"_s);
    const QJsonObject report = QJsonDocument::fromJson(read(u"run.json"_s)).object();
    QCOMPARE(report[u"program"_s].toString(), u"vistrum-import"_s);
    QCOMPARE(report[u"options"_s][u"split"_s].toString(), u"trial"_s);
    const QJsonArray inputs = report[u"inputs"_s].toArray();
    QCOMPARE(inputs.size(), 3);
    QCOMPARE(inputs[0][u"kind"_s].toString(), u"layout"_s);
    QCOMPARE(inputs[1][u"path"_s].toString(), u"ann.csv"_s);
    QVERIFY(inputs[1][u"used"_s].toBool());
    const QJsonValue read = inputs[1][u"table"_s];
    QCOMPARE(read[u"layout"_s][u"time"_s][u"unit"_s].toString(), u"s"_s);
    QCOMPARE(read[u"recordings"_s].toArray().size(), 2);
    QCOMPARE(read[u"recordings"_s][0][u"name"_s].toString(), u"ann_1"_s);
    QCOMPARE(read[u"recordings"_s][1][u"samples"_s].toInt(), 2);
    QCOMPARE(read[u"recordings"_s][0][u"leftValid"_s].toInt(), 1);
    QVERIFY(!inputs[1][u"messages"_s].toArray().isEmpty());
    QVERIFY(!inputs[2][u"used"_s].toBool());
    QCOMPARE(report[u"outputs"_s].toArray().size(), 4);
}

void TestConvertProgram::usage_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("told");
    QTest::newRow("no table") << u"--quiet"_s << u"vistrum-import: no table given"_s;
    QTest::newRow("no such layout") << u"--layout nobodys ann.csv"_s
                                    << u"vistrum-import: --layout nobodys: no layout of this name"_s;
    QTest::newRow("a layout that is none") << u"--layout ann.csv ann.csv"_s << u"vistrum-import: --layout ann.csv: "_s;
    QTest::newRow("no folder") << u"--layout mine.layout.json --out ann.csv/x ann.csv"_s
                               << u"vistrum-import: --out ann.csv/x: the folder cannot be made: Not a directory"_s;
}

void TestConvertProgram::usage()
{
    QFETCH(QString, line);
    QFETCH(QString, told);
    const Outcome outcome = convert(line);
    QCOMPARE(outcome.status, 2);
    QCOMPARE(outcome.written, QStringList());
    QVERIFY2(outcome.errors.value(0).startsWith(told), qPrintable(outcome.errors.join(u'\n')));
}

void TestConvertProgram::helpAndVersion()
{
    const Outcome help = convert(u"--help"_s);
    QCOMPARE(help.status, 0);
    QCOMPARE(help.written.value(0), u"vistrum-import [options] TABLE..."_s);
    const Outcome version = convert(u"--version"_s);
    QCOMPARE(version.status, 0);
    QVERIFY(version.written.value(0).startsWith(u"vistrum-import "_s));
    QVERIFY(version.written.value(1).startsWith(u"release "_s));
}

void TestConvertProgram::fullOutput()
{
    QProcess process;
    process.setWorkingDirectory(m_batch->path({}));
    process.setStandardOutputFile(u"/dev/full"_s);
    process.start(QStringLiteral(VISTRUM_IMPORT), words("--quiet --layout mine.layout.json ann.csv"));
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitCode(), 1);
    QVERIFY(process.readAllStandardError().contains("the list of the files written is cut short"));
}

void TestConvertProgram::sameBytesWithAnyNumberOfJobs()
{
    QString names;
    for (int i = 0; i < 25; ++i) {
        const QString name = u"t%1.csv"_s.arg(i, 2, 10, QChar(u'0'));
        write(name, QByteArray(table).replace("101;", QByteArray::number(100 + i) + ';'));
        names += u' ' + name;
    }
    const QString line = u"--quiet --layout mine.layout.json --report %1/run.json --out %1 --jobs %2"_s;
    const Outcome one = convert(line.arg(u"one"_s).arg(1) + names);
    const Outcome four = convert(line.arg(u"four"_s).arg(4) + names);
    QCOMPARE(one.status, 0);
    QCOMPARE(one.written.size(), 51);
    QCOMPARE(four.errors, one.errors);
    for (int i = 0; i < 50; ++i)
        QCOMPARE(read(four.written[i]), read(one.written[i]));
}

/// More than is kept in memory, and interleaved: what went into the temporary file comes out again in its order.
void TestConvertProgram::manySamplesOfManyRecordings()
{
    constexpr int samples = 600'000;
    constexpr int recordings = 3;
    QByteArray text = "t;x;y;d;c;who;seen;trial;mood\n";
    QByteArray expected[recordings];
    for (int i = 0; i < samples; ++i) {
        const QByteArray time = QByteArray::number(i);
        const int trial = i % recordings;
        const QByteArray place = QByteArray::number(i % 1000);
        text += time + ";" + place + ";7;3;1;Ann;;" + QByteArray::number(trial) + ";\n";
        expected[trial] += QByteArray::number(qint64(1000) * i) + '\t' + place + "\t7\t3\t3\t1\t0\t0\t0\t0\t0\n";
    }
    write(u"long.csv"_s, text);
    const Outcome outcome = convert(u"--quiet --layout mine.layout.json --split trial long.csv"_s);
    QCOMPARE(outcome.status, 0);
    for (int trial = 0; trial < recordings; ++trial)
        QVERIFY(read(u"long_%1.data"_s.arg(trial)) == head + expected[trial]);
}

QTEST_GUILESS_MAIN(TestConvertProgram)
#include "TestConvertProgram.moc"
