// SPDX-License-Identifier: GPL-3.0-or-later
#include "BatchRunTest.h"

#include <QJsonArray>

using namespace Qt::StringLiterals;

namespace {

const QByteArray layout(R"({
    "version": 1,
    "kind": "delimited",
    "delimiter": ";",
    "decimal": "comma",
    "header": "yes",
    "time": {"column": "time", "unit": "us"},
    "left": {"x": "lx", "y": "ly", "pupil": "lw", "pupilHeight": "lh", "validity": "lv"},
    "right": {"x": "rx", "y": "ry", "pupil": "rw", "pupilHeight": "rh", "validity": "rv"},
    "place": {"unit": "px"}
})");

/// A recording of the study as another program would write it.
QByteArray tableOf(const QByteArray &recording)
{
    QByteArray table = "time;lx;ly;lw;lh;lv;rx;ry;rw;rh;rv\n";
    for (const QByteArray &line : recording.split('\n')) {
        if (line.isEmpty() || line[0] < '0' || line[0] > '9')
            continue;
        QByteArrayList fields = line.split('\t');
        fields[0] += "000";
        table += fields.join(';').replace('.', ',') + '\n';
    }
    return table;
}

} // namespace

/// Tables of other programs on the command line of the batch program.
class TestBatchTables : public BatchRunTest {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void resultsAreThoseOfTheRecordings();
    void resultsAreThoseOfTheConversion();
    void recordingsStayRecordings();
    void layoutWithoutTableIsTold();
    void unknownLayout();
    void badTableIsLeftOut();
    void reportTellsHowTheTableWasRead();

private:
    /// Tables and pictures of a run, without its report.
    QMap<QString, QByteArray> results(const QString &folder, const QStringList &inputs)
    {
        const Outcome outcome =
            m_batch->run(words("--quiet --calculate fixations,clusters,general-statistics --export "
                               "fixations,events,clusters,general-statistics --image-per recording --image") +
                         QStringList{folder + u"/drawn.png"_s, u"--out"_s, folder} + inputs);
        if (outcome.status != 0)
            qWarning("exit code %d: %s", outcome.status, qPrintable(outcome.errors.join(u'\n')));
        return outcome.status == 0 ? BatchProgram::filesIn(m_batch->path(folder)) : QMap<QString, QByteArray>();
    }
};

void TestBatchTables::init()
{
    start();
    m_batch->write(u"mine.layout.json"_s, layout);
    for (const QString &path : BatchProgram::study())
        m_batch->write(QString(path).replace(u".data"_s, u".csv"_s), tableOf(m_batch->contents(path)));
}

/// The set files of the study lie beside its tables.
void TestBatchTables::resultsAreThoseOfTheRecordings()
{
    const auto expected = results(u"plain"_s, BatchProgram::study());
    const auto actual = results(u"tables"_s, words("--layout mine.layout.json") +
                                                 BatchProgram::study().replaceInStrings(u".data"_s, u".csv"_s));
    QVERIFY(expected.size() > 10);
    QCOMPARE(actual.keys(), expected.keys());
    for (const QString &name : expected.keys())
        QVERIFY2(actual[name] == expected[name], qPrintable(name));
}

void TestBatchTables::resultsAreThoseOfTheConversion()
{
    const QStringList tables = BatchProgram::study().replaceInStrings(u".data"_s, u".csv"_s);
    QFile::remove(m_batch->path(u"study/S02.set"_s)); // one set file is made, the others are copied
    const Outcome converted = m_batch->run(QStringLiteral(VISTRUM_IMPORT),
                                           words("--quiet --layout mine.layout.json --out converted") + tables);
    QCOMPARE(converted.status, 0);
    QStringList recordings = converted.written.filter(u".data"_s);
    QCOMPARE(recordings.size(), tables.size());
    const auto expected = results(u"first"_s, recordings);
    const auto actual = results(u"second"_s, words("--layout mine.layout.json") + tables);
    QVERIFY(expected.size() > 10);
    QCOMPARE(actual.keys(), expected.keys());
    for (const QString &name : expected.keys())
        QVERIFY2(actual[name] == expected[name], qPrintable(name));
}

void TestBatchTables::recordingsStayRecordings()
{
    const Outcome outcome = m_batch->run(words("--quiet --layout mine.layout.json --calculate fixations --export "
                                               "fixations --report report.json study/S01.data study/S02.csv"));
    QCOMPARE(outcome.status, 0);
    const QJsonArray inputs = report()[u"inputs"_s].toArray();
    QCOMPARE(inputs[0][u"kind"_s].toString(), u"layout"_s);
    QCOMPARE(inputs[1][u"kind"_s].toString(), u"recording"_s);
    QCOMPARE(inputs[3][u"kind"_s].toString(), u"table"_s);
    const QJsonValue ofRecording = inputs[1][u"quality"_s][u"left"_s];
    const QJsonValue ofTable = inputs[3][u"quality"_s][u"S02"_s][u"left"_s];
    QVERIFY(ofRecording.isObject() && ofTable.isObject() && ofRecording != ofTable);
    const Outcome plain = m_batch->run(words("--quiet --calculate fixations --report report.json study/S02.data"));
    QCOMPARE(plain.status, 0);
    QCOMPARE(report()[u"inputs"_s][0][u"quality"_s][u"left"_s], ofTable);
}

void TestBatchTables::layoutWithoutTableIsTold()
{
    const Outcome outcome = m_batch->run(words("--quiet --layout auto study/S01.data"));
    QCOMPARE(outcome.status, 0);
    QCOMPARE(outcome.errors, QStringList{u"Options: --layout: every recording is one of Vistrum's own, none is read by "
                                         "a layout."_s});
}

void TestBatchTables::unknownLayout()
{
    const Outcome outcome = m_batch->run(words("--layout nobodys study/S01.csv --out made"));
    QCOMPARE(outcome.status, 2);
    QVERIFY2(outcome.errors.value(0).startsWith(u"vistrum-batch: --layout nobodys: no layout of this name"_s),
             qPrintable(outcome.errors.join(u'\n')));
    QVERIFY(!QFile::exists(m_batch->path(u"made"_s)));
}

void TestBatchTables::badTableIsLeftOut()
{
    m_batch->write(u"words.csv"_s, "word;length\nbay;3\n");
    const Outcome outcome = m_batch->run(words("--quiet --layout mine.layout.json --calculate fixations --export "
                                               "fixations words.csv study/S01.csv"));
    QCOMPARE(outcome.status, 1);
    QVERIFY(!outcome.written.isEmpty());
    const QString told = outcome.errors.value(0);
    QVERIFY2(told.startsWith(u"IMPORT ERROR!: The file:  words.csv  is corrupt and has not been loaded!"_s) &&
                 told.contains(u"expected"_s),
             qPrintable(outcome.errors.join(u'\n')));
}

void TestBatchTables::reportTellsHowTheTableWasRead()
{
    const Outcome outcome = m_batch->run(words("--quiet --layout mine.layout.json --report report.json study/S01.csv"));
    QCOMPARE(outcome.status, 0);
    const QJsonObject whole = report();
    QCOMPARE(whole[u"options"_s][u"layout"_s].toString(), u"mine.layout.json"_s);
    const QJsonValue input = whole[u"inputs"_s][1];
    QCOMPARE(input[u"path"_s].toString(), u"study/S01.csv"_s);
    QCOMPARE(input[u"table"_s][u"layout"_s][u"time"_s][u"unit"_s].toString(), u"us"_s);
    const QByteArray recording = m_batch->contents(u"study/S01.data"_s);
    const auto lines = recording.count('\n') - 2; // without the two above the samples
    QCOMPARE(input[u"table"_s][u"recordings"_s][0][u"samples"_s].toInteger(), lines);
}

QTEST_GUILESS_MAIN(TestBatchTables)
#include "TestBatchTables.moc"
