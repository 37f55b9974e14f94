// SPDX-License-Identifier: GPL-3.0-or-later
// From the samples of a table to those of a .data file, and to the streams of an examination.

#include "import/DataImporter.h"
#include "import/tables/RecordingSamples.h"
#include "TableWriter.h"

namespace {

/// The lines of a .data file, as a writer makes them.
QByteArray dataText(const QList<TableSample> &samples)
{
    DataSampleMaker maker;
    QByteArray text = dataHeader();
    for (const TableSample &sample : samples) {
        if (const auto line = maker.next(sample))
            text += dataLine(*line) + '\n';
    }
    return text;
}

bool isSame(const Examination &a, const Examination &b)
{
    return a.leftEye.gazePoints == b.leftEye.gazePoints && a.rightEye.gazePoints == b.rightEye.gazePoints &&
           a.meanEye.gazePoints == b.meanEye.gazePoints;
}

QList<TableSample> shifted(QList<TableSample> samples, double ms)
{
    for (TableSample &sample : samples)
        sample.timeMs += ms;
    return samples;
}

QList<TableSample> withOddNumbers()
{
    QList<TableSample> samples = table_writer::gaze(50, 3);
    samples[1].left = {1e-7, -12345.678901234567, 1e300, 0.1};
    samples[2].right = {0.1 + 0.2, 1e21, -0.0, 3};
    samples[3].leftValid = false;
    return samples;
}

} // namespace

class TestTableSamples : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void sameAsImport_data();
    void sameAsImport();
    void rounding_data();
    void rounding();
    void beforeZero();
    void lines();
    void withoutValidSamples();
    void recordingsInLayouts();
};

void TestTableSamples::sameAsImport_data()
{
    QTest::addColumn<QList<TableSample>>("samples");
    QTest::newRow("both eyes") << table_writer::gaze(200, 1);
    QTest::newRow("one eye") << table_writer::gaze(200, 1, false);
    QTest::newRow("fractions of ms") << shifted(table_writer::gaze(200, 2), 0.25);
    QTest::newRow("times below zero") << shifted(table_writer::gaze(200, 2), -36'000'100);
    QTest::newRow("numbers of all sizes") << withOddNumbers();
    QTest::newRow("an epoch in ms") << shifted(table_writer::gaze(20, 4), 1.7e12);
}

void TestTableSamples::sameAsImport()
{
    QFETCH(QList<TableSample>, samples);
    TableRecording recording;
    recording.samples = samples;
    Examination direct;
    QVERIFY(putSamples(recording, direct));
    Examination imported;
    DataImporter importer({}, &imported, nullptr);
    QVERIFY(importer.readBytes(dataText(samples)));
    QCOMPARE(importer.counts().samples, samples.size());
    QCOMPARE(importer.counts().noNumbers.count, 0);
    QCOMPARE(importer.counts().wrongLength.count, 0);
    QVERIFY(isSame(direct, imported));
}

void TestTableSamples::rounding_data()
{
    QTest::addColumn<double>("time");
    QTest::addColumn<qint64>("ms");
    QTest::addColumn<bool>("isTold");
    QTest::newRow("whole") << 12.0 << qint64(12) << false;
    QTest::newRow("below half") << 12.49 << qint64(12) << true;
    QTest::newRow("half upwards") << 12.5 << qint64(13) << true;
    QTest::newRow("above half") << 12.51 << qint64(13) << true;
    QTest::newRow("nearly whole, as seconds give it") << 1000.9999999999999 << qint64(1001) << false;
    QTest::newRow("zero") << 0.0 << qint64(0) << false;
}

void TestTableSamples::rounding()
{
    QFETCH(double, time);
    QFETCH(qint64, ms);
    QFETCH(bool, isTold);
    DataSampleMaker maker;
    TableSample sample;
    sample.timeMs = time;
    const auto made = maker.next(sample);
    QVERIFY(made.has_value());
    QCOMPARE(made->timeMs, ms);
    QCOMPARE(maker.oddities().size(), isTold ? 1 : 0);
    if (isTold)
        QCOMPARE(maker.oddities()[0].kind, TableOddityKind::RoundedTime);
}

void TestTableSamples::beforeZero()
{
    DataSampleMaker maker;
    TableSample sample;
    sample.timeMs = -10;
    QCOMPARE(maker.next(sample)->timeMs, 0);
    sample.timeMs = -4;
    QCOMPARE(maker.next(sample)->timeMs, 6);
    sample.timeMs = -11;
    QVERIFY(!maker.next(sample));
    sample.timeMs = 1e300;
    QVERIFY(!maker.next(sample));
    QCOMPARE(maker.oddities().size(), 1);
    QCOMPARE(maker.oddities()[0].kind, TableOddityKind::BeforeZeroTime);
    QCOMPARE(maker.oddities()[0].count, 2);
}

void TestTableSamples::lines()
{
    const DataSample sample{7, {100'000, 0.1, -0.5, 3}, {1e300, 1e-7, 0, 1e15}, 1, 0};
    QCOMPARE(dataLine(sample), QByteArray("7\t100000\t0.1\t-0.5\t3\t1\t1e+300\t1e-07\t0\t1e+15\t0"));
    QByteArray text = "above\n";
    appendDataLine(sample, text);
    QCOMPARE(text, "above\n" + dataLine(sample) + "\n");
}

void TestTableSamples::withoutValidSamples()
{
    TableRecording recording;
    Examination examination;
    QVERIFY(!putSamples(recording, examination));
    recording.samples = {TableSample(), TableSample()};
    QVERIFY(!putSamples(recording, examination));
    QVERIFY(examination.leftEye.gazePoints.isEmpty());
}

/// A .data file read as a table gives what its own importer gives.
void TestTableSamples::recordingsInLayouts()
{
    const QList<TableSample> samples = table_writer::gaze(300, 5);
    const QByteArray bytes = dataText(samples);
    TableLayout layout = table_writer::layout();
    layout.delimiter = '\t';
    const auto eye = [](const char *side) {
        const auto column = [&](const char *what) {
            return TableColumn::named(QString::fromLatin1(side) + QString::fromLatin1(what));
        };
        return TableEyeColumns{column("_x"), column("_y"), column("_w"), column("_h"), column("_valid")};
    };
    layout.left = eye("left");
    layout.right = eye("right");
    TableContent content = table_writer::content(table_writer::read(bytes, layout));
    QCOMPARE(content.recordings.size(), 1);
    Examination asTable;
    QVERIFY(putSamples(content.recordings[0], asTable));
    Examination asData;
    QVERIFY(DataImporter({}, &asData, nullptr).readBytes(bytes));
    QVERIFY(isSame(asTable, asData));
}

QTEST_GUILESS_MAIN(TestTableSamples)
#include "TestTableSamples.moc"
