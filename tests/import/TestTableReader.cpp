// SPDX-License-Identifier: GPL-3.0-or-later
#include "TableWriter.h"

class TestTableReader : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void sameSamples_data();
    void sameSamples();
    void degrees();
    void twoRecordings();
    void everyPieceBoundary();
    void samplesInPieces();
    void limit();
    void eyeColumn();
    void setColumns();
    void withoutTimes();
    void midnight();
    void timesWithManyDigits_data();
    void timesWithManyDigits();
    void headerAgain();
    void gzipMembers();
    void codesInTheFilesOwnEncoding();
    void missingWithADecimalComma();
    void nameThatIsNoUtf8Behind();
};

void TestTableReader::sameSamples_data()
{
    QTest::addColumn<TableLayout>("layout");
    const auto row = [](const char *name, const std::function<void(TableLayout &)> &change) {
        QTest::newRow(name) << table_writer::with(change);
    };
    row("comma and point", [](TableLayout &) {});
    row("semicolon and decimal comma", [](TableLayout &layout) {
        layout.delimiter = ';';
        layout.decimalSign = ',';
    });
    row("tabs", [](TableLayout &layout) { layout.delimiter = '\t'; });
    row("blanks", [](TableLayout &layout) { layout.delimiter = ' '; });
    row("bars and decimal comma", [](TableLayout &layout) {
        layout.delimiter = '|';
        layout.decimalSign = ',';
    });
    row("seconds", [](TableLayout &layout) { layout.timeUnit = TableTimeUnit::Seconds; });
    row("microseconds", [](TableLayout &layout) { layout.timeUnit = TableTimeUnit::Microseconds; });
    row("nanoseconds", [](TableLayout &layout) { layout.timeUnit = TableTimeUnit::Nanoseconds; });
    row("time of day", [](TableLayout &layout) { layout.timeUnit = TableTimeUnit::Clock; });
    row("counted samples", [](TableLayout &layout) {
        layout.timeUnit = TableTimeUnit::Samples;
        layout.rateHz = 500;
    });
    row("share of the screen", [](TableLayout &layout) { layout.place.unit = TablePlaceUnit::Normalised; });
    row("millimetres from the centre upwards", [](TableLayout &layout) {
        layout.place.unit = TablePlaceUnit::Millimetres;
        layout.place.screenMm = {256, 128};
        layout.place.origin = TableOrigin::Centre;
        layout.place.yAxis = TableAxis::LeftOrUp;
    });
    row("pixels from the lower left", [](TableLayout &layout) {
        layout.place.origin = TableOrigin::BottomLeft;
        layout.place.yAxis = TableAxis::LeftOrUp;
    });
    row("x to the left from the centre", [](TableLayout &layout) {
        layout.place.origin = TableOrigin::Centre;
        layout.place.xAxis = TableAxis::LeftOrUp;
    });
    row("missing is -1", [](TableLayout &layout) { layout.missing = {QStringLiteral("-1")}; });
    row("missing is nothing", [](TableLayout &layout) { layout.missing.clear(); });
    row("missing is a word", [](TableLayout &layout) { layout.missing = {QStringLiteral("lost")}; });
    row("a comment above", [](TableLayout &layout) { layout.commentPrefix = QStringLiteral("##"); });
    row("Latin-1", [](TableLayout &layout) {
        layout.encoding = TableEncoding::Latin1;
        layout.time.name = QStringLiteral("Zeit für Größe");
    });
    row("Latin-1 by its bytes", [](TableLayout &layout) { layout.time.name = QStringLiteral("Zeit für Größe"); });
    row("UTF-16", [](TableLayout &layout) { layout.encoding = TableEncoding::Utf16LittleEndian; });
    row("UTF-16, the other way round", [](TableLayout &layout) { layout.encoding = TableEncoding::Utf16BigEndian; });
    row("without header", [](TableLayout &layout) {
        layout.header = TableHeader::None;
        int number = 2;
        for (TableColumn *column : {&layout.time, &layout.left.x, &layout.left.y, &layout.left.pupil, &layout.right.x,
                                    &layout.right.y, &layout.right.pupil})
            *column = TableColumn::numbered(number++);
    });
}

void TestTableReader::sameSamples()
{
    QFETCH(TableLayout, layout);
    const QList<TableSample> samples = table_writer::gaze(500, 1);
    TableEncoding encoding = layout.encoding;
    const bool isLatin = layout.time.name.startsWith(QStringLiteral("Zeit"));
    if (isLatin)
        encoding = TableEncoding::Latin1;
    const QByteArray bytes =
        table_writer::encoded(table_writer::tableText({{QStringLiteral("p01"), samples}}, layout), encoding);
    // The mark decides where the file has one.
    if (!isLatin)
        layout.encoding = TableEncoding::ByMark;
    for (const QByteArray &file : {bytes, table_writer::packed(bytes)}) {
        for (const qsizetype piece : {0, 7, 4096}) {
            const TableContent content = table_writer::content(table_writer::read(file, layout, {.pieceBytes = piece}));
            QCOMPARE(content.recordings.size(), 1);
            const TableRecording &recording = content.recordings[0];
            QVERIFY(recording.samples == samples);
            QCOMPARE(recording.facts.samples, 500);
            QCOMPARE(recording.facts.rateHz, 500.0);
            QCOMPARE(recording.facts.medianStepMs, 2.0);
            QCOMPARE(recording.name, QStringLiteral("p01"));
        }
    }
}

/// Angles are no decimal numbers: the places come back to a millionth of a pixel.
void TestTableReader::degrees()
{
    const TableLayout layout = table_writer::with([](TableLayout &each) {
        each.place = {TablePlaceUnit::Degrees,
                      TableOrigin::Centre,
                      TableAxis::RightOrDown,
                      TableAxis::LeftOrUp,
                      {1024, 512},
                      {300, 150},
                      600};
    });
    const QList<TableSample> samples = table_writer::gaze(300, 2);
    const TableContent content = table_writer::content(
        table_writer::read(table_writer::tableText({{QStringLiteral("p01"), samples}}, layout), layout));
    QCOMPARE(content.recordings.size(), 1);
    QCOMPARE(content.recordings[0].samples.size(), samples.size());
    for (qsizetype i = 0; i < samples.size(); ++i) {
        const TableSample &read = content.recordings[0].samples[i];
        QCOMPARE(read.leftValid, samples[i].leftValid);
        QVERIFY(std::abs(read.right.x - samples[i].right.x) < 1e-6);
        QVERIFY(std::abs(read.right.y - samples[i].right.y) < 1e-6);
    }
    // By hand: 45 degrees at 600 mm are 600 mm, which are 600 * 1024 / 300 = 2048 px from the middle, 512.
    const TableContent one =
        table_writer::content(table_writer::read("recording,time,lx,ly,lp,rx,ry,rp\na,1,45,0,1,-45,0,1\n", layout));
    QCOMPARE(one.recordings[0].samples[0].left.x, 2560.0);
    QCOMPARE(one.recordings[0].samples[0].right.x, -1536.0);
    QCOMPARE(one.recordings[0].samples[0].left.y, 256.0);
}

void TestTableReader::twoRecordings()
{
    const TableLayout layout = table_writer::with([](TableLayout &each) {
        each.split << TableColumn::named(QStringLiteral("recording"));
        each.delimiter = '\t';
    });
    const QList<table_writer::Recording> written{{QStringLiteral("ann"), table_writer::gaze(50, 3)},
                                                 {QStringLiteral("bob"), table_writer::gaze(70, 4)},
                                                 {QStringLiteral("ann"), table_writer::gaze(20, 5)}};
    const TableContent content =
        table_writer::content(table_writer::read(table_writer::tableText(written, layout), layout));
    QCOMPARE(content.recordings.size(), 2);
    QCOMPARE(content.recordings[0].name, QStringLiteral("p01_ann"));
    QCOMPARE(content.recordings[1].name, QStringLiteral("p01_bob"));
    QCOMPARE(content.recordings[0].splitValues, QStringList{QStringLiteral("ann")});
    QVERIFY(content.recordings[0].samples == written[0].samples + written[2].samples);
    QVERIFY(content.recordings[1].samples == written[1].samples);
    QCOMPARE(content.recordings[1].facts.firstLine, 52);
}

void TestTableReader::everyPieceBoundary()
{
    const TableLayout layout =
        table_writer::with([](TableLayout &each) { each.split << TableColumn::named(QStringLiteral("recording")); });
    QByteArray bytes = table_writer::tableText({{QStringLiteral("ann"), table_writer::gaze(6, 6)},
                                                {QStringLiteral("\"b,b\U0001D11E\""), table_writer::gaze(3, 7)}},
                                               layout);
    bytes.replace("\n", "\r\n");
    bytes.chop(2); // the last line has no end
    const TableContent whole = table_writer::content(table_writer::read(bytes, layout));
    QCOMPARE(whole.recordings.size(), 2);
    QCOMPARE(whole.recordings[0].samples.size(), 6);
    QCOMPARE(whole.recordings[1].samples.size(), 3);
    QCOMPARE(whole.recordings[1].name, QStringLiteral("p01_b,b\U0001D11E")); // in UTF-16 two units
    const QByteArray wide = table_writer::encoded(bytes, TableEncoding::Utf16LittleEndian);
    for (qsizetype piece = 1; piece <= bytes.size(); ++piece) {
        for (const QByteArray &file : {bytes, wide, table_writer::stored(bytes)}) {
            const TableContent cut = table_writer::content(table_writer::read(file, layout, {.pieceBytes = piece}));
            QCOMPARE(cut.recordings.size(), 2);
            QVERIFY(cut.recordings[0].samples == whole.recordings[0].samples);
            QVERIFY(cut.recordings[1].samples == whole.recordings[1].samples);
            QCOMPARE(cut.recordings[1].name, whole.recordings[1].name);
        }
    }
}

void TestTableReader::samplesInPieces()
{
    const TableLayout layout =
        table_writer::with([](TableLayout &each) { each.split << TableColumn::named(QStringLiteral("recording")); });
    const QList<TableSample> ann = table_writer::gaze(200, 8);
    const QList<TableSample> bob = table_writer::gaze(300, 9);
    const QByteArray bytes =
        table_writer::tableText({{QStringLiteral("ann"), ann}, {QStringLiteral("bob"), bob}}, layout);
    QList<QList<TableSample>> taken(2);
    int calls = 0;
    double part = 0;
    const TableReadOptions options{.take =
                                       [&](qsizetype recording, const QList<TableSample> &samples) {
                                           taken[recording] += samples;
                                           ++calls;
                                           return true;
                                       },
                                   .progress =
                                       [&](double read) {
                                           part = read;
                                           return true;
                                       },
                                   .pieceBytes = 512};
    const TableContent content = table_writer::content(table_writer::read(bytes, layout, options));
    QVERIFY(taken[0] == ann);
    QVERIFY(taken[1] == bob);
    QVERIFY(calls > 10);
    QCOMPARE(part, 1.0);
    QCOMPARE(content.recordings.size(), 2);
    QVERIFY(content.recordings[0].samples.isEmpty());
    QCOMPARE(content.recordings[1].facts.samples, 300);
}

void TestTableReader::limit()
{
    const TableLayout layout = table_writer::layout();
    const QByteArray bytes = table_writer::tableText({{QStringLiteral("a"), table_writer::gaze(100, 10)}}, layout);
    const TableContent content = table_writer::content(table_writer::read(bytes, layout, {.sampleLimit = 10}));
    QCOMPARE(content.recordings[0].samples.size(), 10);
}

void TestTableReader::eyeColumn()
{
    TableLayout layout = table_writer::layout();
    layout.left = {};
    layout.eye.column = TableColumn::named(QStringLiteral("eye"));
    const TableContent content = table_writer::content(table_writer::read(
        "time,eye,rx,ry,rp\n1,L,5,6,1\n1,R,7,8,1\n3,left,5,6,1\n3,right,7,8,1\n5,nose,1,1,1\n", layout));
    QCOMPARE(content.recordings.size(), 2);
    QCOMPARE(content.recordings[0].name, QStringLiteral("p01_left"));
    QCOMPARE(content.recordings[0].samples.size(), 2);
    QVERIFY(content.recordings[0].samples[1].leftValid);
    QCOMPARE(content.recordings[0].samples[1].left.x, 5.0);
    QVERIFY(!content.recordings[0].samples[1].rightValid);
    QCOMPARE(content.recordings[1].samples[0].right.x, 7.0);
    QCOMPARE(content.oddities.size(), 1);
    QCOMPARE(content.oddities[0].kind, TableOddityKind::UnknownLine);
    QCOMPARE(content.oddities[0].firstLine, 6);
}

void TestTableReader::setColumns()
{
    TableLayout layout = table_writer::layout();
    layout.set = {{QStringLiteral("group"), TableColumn::named(QStringLiteral("recording"))},
                  {QStringLiteral("subject"), TableColumn::named(QStringLiteral("who"))}};
    const TableContent content = table_writer::content(
        table_writer::read("who,recording,time,lx,ly,lp,rx,ry,rp\n\"M\xC3\xBCller, A\",old,1,1,1,1,1,1,1\n", layout));
    const QList<TableEntry> expected{{QStringLiteral("group"), QStringLiteral("old")},
                                     {QStringLiteral("subject"), QStringLiteral("Müller, A")}};
    QCOMPARE(content.recordings[0].entries, expected);
}

void TestTableReader::withoutTimes()
{
    TableLayout layout = table_writer::layout();
    layout.time = {};
    layout.timeUnit = TableTimeUnit::Samples;
    layout.rateHz = 250;
    const TableContent content =
        table_writer::content(table_writer::read("lx,ly,lp,rx,ry,rp\n1,1,1,1,1,1\n2,2,1,1,1,1\n3,3,1,1,1,1\n", layout));
    QCOMPARE(content.recordings[0].samples.size(), 3);
    QCOMPARE(content.recordings[0].samples[2].timeMs, 8.0);
}

void TestTableReader::midnight()
{
    TableLayout layout = table_writer::layout();
    layout.timeUnit = TableTimeUnit::Clock;
    const TableContent content = table_writer::content(
        table_writer::read("recording,time,lx,ly,lp,rx,ry,rp\na,23:59:59.998,1,1,1,1,1,1\na,00:00:00.000,1,1,1,1,1,1\n"
                           "a,00:00:00:0025,1,1,1,1,1,1\n",
                           layout));
    const QList<TableSample> &samples = content.recordings[0].samples;
    QCOMPARE(samples.size(), 3);
    QCOMPARE(samples[0].timeMs, 86'399'998.0);
    QCOMPARE(samples[1].timeMs, 86'400'000.0);
    QCOMPARE(samples[2].timeMs, 86'400'002.5);
}

void TestTableReader::timesWithManyDigits_data()
{
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<TableTimeUnit>("unit");
    QTest::addColumn<double>("ms");
    QTest::newRow("s with an exponent") << QByteArray("1.5e0") << TableTimeUnit::Seconds << 1500.0;
    QTest::newRow("s with a plus sign") << QByteArray("+1.25") << TableTimeUnit::Seconds << 1250.0;
    QTest::newRow("ns of an epoch") << QByteArray("1700000000000500000") << TableTimeUnit::Nanoseconds
                                    << 1700000000000.5;
    QTest::newRow("ns with seventeen decimals")
        << QByteArray("0.00000000000000005") << TableTimeUnit::Nanoseconds << 5e-23;
    QTest::newRow("us of eight digits") << QByteArray("12345678") << TableTimeUnit::Microseconds << 12345.678;
}

void TestTableReader::timesWithManyDigits()
{
    QFETCH(QByteArray, field);
    QFETCH(TableTimeUnit, unit);
    QFETCH(double, ms);
    TableLayout layout = table_writer::layout();
    layout.timeUnit = unit;
    const TableContent content = table_writer::content(
        table_writer::read("recording,time,lx,ly,lp,rx,ry,rp\na," + field + ",1,1,1,1,1,1\n", layout));
    const double read = content.recordings[0].samples[0].timeMs;
    QVERIFY2(std::abs(read - ms) <= 1e-15 * ms, qPrintable(QString::number(read, 'g', 17)));
}

void TestTableReader::headerAgain()
{
    const TableContent content =
        table_writer::content(table_writer::read("recording,time,lx,ly,lp,rx,ry,rp\na,1,10,11,1,20,21,1\n"
                                                 "time,rx,ry,rp,lx,ly,lp\n3,20,21,1,10,11,1\n",
                                                 table_writer::layout()));
    QCOMPARE(content.recordings.size(), 1);
    const QList<TableSample> &samples = content.recordings[0].samples;
    QCOMPARE(samples.size(), 2);
    QVERIFY(samples[0].left == samples[1].left);
    QVERIFY(samples[0].right == samples[1].right);
    QCOMPARE(content.oddities.size(), 1);
    QCOMPARE(content.oddities[0].kind, TableOddityKind::ColumnsChanged);
    QCOMPARE(content.oddities[0].firstLine, 3);
}

void TestTableReader::gzipMembers()
{
    const QList<TableSample> samples = table_writer::gaze(100, 11);
    const TableLayout layout = table_writer::layout();
    const QByteArray bytes = table_writer::tableText({{QStringLiteral("a"), samples}}, layout);
    const QByteArray file =
        table_writer::packed(bytes.first(777)) + table_writer::stored(bytes.sliced(777)) + QByteArray(512, '\0');
    const TableContent content = table_writer::content(table_writer::read(file, layout));
    QCOMPARE(content.recordings.size(), 1);
    QVERIFY(content.recordings[0].samples == samples);
}

void TestTableReader::codesInTheFilesOwnEncoding()
{
    TableLayout layout;
    layout.time = TableColumn::named(QStringLiteral("time"));
    layout.left = {.x = TableColumn::named(QStringLiteral("x")),
                   .y = TableColumn::named(QStringLiteral("y")),
                   .pupil = {},
                   .pupilHeight = {},
                   .validity = TableColumn::named(QStringLiteral("state"))};
    layout.valid.codes = {QStringLiteral("gültig")};
    layout.commentPrefix = QStringLiteral("§");
    const QString text = QStringLiteral("time,x,y,state\n0,1,2,gültig\n§ 2,1,2,gültig\n4,3,4,ungültig\n");
    for (const QByteArray &bytes : {text.toLatin1(), text.toUtf8()}) {
        const TableContent content = table_writer::content(table_writer::read(bytes, layout));
        QCOMPARE(content.recordings.size(), 1);
        const QList<TableSample> &samples = content.recordings[0].samples;
        QCOMPARE(samples.size(), 2);
        QVERIFY(samples[0].leftValid);
        QVERIFY(!samples[1].leftValid);
    }
}

void TestTableReader::missingWithADecimalComma()
{
    TableLayout layout = table_writer::with([](TableLayout &with) {
        with.delimiter = ';';
        with.decimalSign = ',';
    });
    for (const QString &code : {QStringLiteral("-99,9"), QStringLiteral("-99.9"), QStringLiteral("-9,99e1")}) {
        layout.missing = {code};
        const TableContent content = table_writer::content(
            table_writer::read("recording;time;lx;ly;lp;rx;ry;rp\na;1;-99,9;-99,9;1;20,5;21;1\n", layout));
        QCOMPARE(content.recordings.size(), 1);
        QVERIFY(!content.recordings[0].samples[0].leftValid);
        QVERIFY(content.recordings[0].samples[0].rightValid);
    }
}

/// The first 64 KB say that the file is UTF-8; what comes behind them may not be.
void TestTableReader::nameThatIsNoUtf8Behind()
{
    TableLayout layout = table_writer::layout();
    layout.split << TableColumn::named(QStringLiteral("recording"));
    QByteArray bytes = "recording,time,lx,ly,lp,rx,ry,rp\n";
    for (int i = 0; i < 5000; ++i)
        bytes += "a," + QByteArray::number(i) + ",10,11,1,20,21,1\n";
    bytes += "M\xE4x,1,10,11,1,20,21,1\nM\xFCx,1,10,11,1,20,21,1\n";
    const TableContent content = table_writer::content(table_writer::read(bytes, layout));
    QCOMPARE(content.recordings.size(), 3);
    QVERIFY2(content.recordings[1].name.contains(QStringLiteral("Mäx")), qPrintable(content.recordings[1].name));
    QVERIFY2(content.recordings[2].name.contains(QStringLiteral("Müx")), qPrintable(content.recordings[2].name));
}

QTEST_GUILESS_MAIN(TestTableReader)
#include "TestTableReader.moc"
