// SPDX-License-Identifier: GPL-3.0-or-later
// What is found in a table by looking at it, what is asked, and what is refused.

#include "import/tables/LayoutDetection.h"
#include "TableWriter.h"

namespace {

TableExtract extractOf(QByteArray bytes)
{
    QBuffer buffer(&bytes);
    if (!buffer.open(QIODevice::ReadOnly))
        qFatal("a buffer does not open");
    const auto result = readExtract(buffer, QStringLiteral("p01.csv"));
    return std::holds_alternative<TableExtract>(result) ? std::get<TableExtract>(result) : TableExtract();
}

LayoutGuess guessOf(const QByteArray &bytes)
{
    return detectLayout(extractOf(bytes), {});
}

const LayoutChoice *choiceOf(const LayoutGuess &guess, const char *key)
{
    const auto found = std::ranges::find(guess.choices, QString::fromLatin1(key), &LayoutChoice::key);
    return found == guess.choices.end() ? nullptr : &*found;
}

/// Rows of time, x, y from a rate and a unit; gaze wanders over most of a screen.
QByteArray rows(int count, double step, const char *sign, double start = 1'234'000, double scale = 1)
{
    QByteArray text;
    for (int i = 0; i < count; ++i) {
        text += QByteArray::number(start + i * step, 'f', QLocale::FloatingPointShortest) + sign +
                QByteArray::number(scale * (100 + i % 50 * 20), 'f', 4) + sign +
                QByteArray::number(scale * (80 + i % 40 * 15), 'f', 4) + '\n';
    }
    return text;
}

} // namespace

class TestTableDetection : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void sameSamples_data();
    void sameSamples();
    void names_data();
    void names();
    void timeUnits_data();
    void timeUnits();
    void asked_data();
    void asked();
    void missingCodes();
    void longMissingCode();
    void confidenceInPercent();
    void assumedScreenIsTold();
    void validityCodes();
    void recordings();
    void knownLayout();
    void knownLayoutWithAnotherRate();
    void noTables_data();
    void noTables();
    void eventLog();
    void extractOfALongFile();
};

void TestTableDetection::sameSamples_data()
{
    QTest::addColumn<TableLayout>("layout");
    const auto row = [](const char *name, const std::function<void(TableLayout &)> &change) {
        QTest::newRow(name) << table_writer::with(change);
    };
    row("comma", [](TableLayout &) {});
    row("semicolon and decimal comma", [](TableLayout &layout) {
        layout.delimiter = ';';
        layout.decimalSign = ',';
    });
    row("tabs", [](TableLayout &layout) { layout.delimiter = '\t'; });
    row("blanks", [](TableLayout &layout) { layout.delimiter = ' '; });
    row("bars", [](TableLayout &layout) { layout.delimiter = '|'; });
    row("seconds", [](TableLayout &layout) { layout.timeUnit = TableTimeUnit::Seconds; });
    row("microseconds", [](TableLayout &layout) { layout.timeUnit = TableTimeUnit::Microseconds; });
    row("nanoseconds", [](TableLayout &layout) { layout.timeUnit = TableTimeUnit::Nanoseconds; });
    row("time of day", [](TableLayout &layout) {
        layout.timeUnit = TableTimeUnit::Clock;
        layout.delimiter = '\t';
    });
    row("missing is -1", [](TableLayout &layout) { layout.missing = {QStringLiteral("-1")}; });
    row("missing is 0", [](TableLayout &layout) { layout.missing = {QStringLiteral("0")}; });
    row("missing is a word", [](TableLayout &layout) { layout.missing = {QStringLiteral("lost")}; });
    row("comments above", [](TableLayout &layout) { layout.commentPrefix = QStringLiteral("##"); });
    row("UTF-16", [](TableLayout &layout) { layout.encoding = TableEncoding::Utf16LittleEndian; });
    row("Latin-1", [](TableLayout &layout) { layout.encoding = TableEncoding::Latin1; });
}

/// Nothing is told but the file, and the samples are those that were written.
void TestTableDetection::sameSamples()
{
    QFETCH(TableLayout, layout);
    const QList<TableSample> samples = table_writer::gaze(1500, 1);
    const QByteArray bytes =
        table_writer::encoded(table_writer::tableText({{QStringLiteral("Jürgen"), samples}}, layout), layout.encoding);
    const LayoutGuess guess = guessOf(bytes);
    if (guess.problem)
        QFAIL(qPrintable(guess.problem->text()));
    QVERIFY2(!guess.refusal(), qPrintable(guess.refusal().value_or(TableProblem()).text()));
    QCOMPARE(guess.questions(), QStringList());
    const TableContent content = table_writer::content(table_writer::read(bytes, guess.layout));
    QCOMPARE(content.recordings.size(), 1);
    QVERIFY(content.recordings[0].samples == samples);
    for (const LayoutChoice &choice : guess.choices)
        QVERIFY2(!choice.reason.isEmpty(), qPrintable(choice.key));
}

void TestTableDetection::names_data()
{
    QTest::addColumn<QByteArray>("header");
    QTest::addColumn<QString>("time");
    QTest::addColumn<QString>("left");
    QTest::addColumn<QString>("right");
    const auto row = [](const char *header, const char *time, const char *left, const char *right) {
        QTest::newRow(header) << QByteArray(header) << QString::fromUtf8(time) << QString::fromUtf8(left)
                              << QString::fromUtf8(right);
    };
    row("Timestamp,LeftX,LeftY", "Timestamp", "LeftX", "");
    row("time [ms],gaze_left_x,gaze_left_y", "time [ms]", "gaze_left_x", "");
    row("RecordingTimestamp,GazePointRightX (ADCSpx),GazePointRightY (ADCSpx)", "RecordingTimestamp", "",
        "GazePointRightX (ADCSpx)");
    row("TIMESTAMP,RIGHT_GAZE_X,RIGHT_GAZE_Y", "TIMESTAMP", "", "RIGHT_GAZE_X");
    row("t,x,y", "t", "", "x");
    row("Time,L POR X [px],L POR Y [px]", "Time", "L POR X [px]", "");
    row("time,xl,yl", "time", "xl", "");
    row("time_ms,gazeX,gazeY", "time_ms", "", "gazeX");
    row("time,x_right_pix,y_right_pix", "time", "", "x_right_pix");
}

void TestTableDetection::names()
{
    QFETCH(QByteArray, header);
    QFETCH(QString, time);
    QFETCH(QString, left);
    QFETCH(QString, right);
    const LayoutGuess guess = guessOf(header + '\n' + rows(200, 2, ","));
    if (guess.problem)
        QFAIL(qPrintable(guess.problem->text()));
    QCOMPARE(guess.layout.time.name, time);
    QCOMPARE(guess.layout.left.x.name, left);
    QCOMPARE(guess.layout.right.x.name, right);
    QVERIFY2(!guess.refusal(), qPrintable(guess.refusal().value_or(TableProblem()).text()));
}

void TestTableDetection::timeUnits_data()
{
    QTest::addColumn<double>("step");
    QTest::addColumn<TableTimeUnit>("unit");
    QTest::newRow("s at 250 Hz") << 0.004 << TableTimeUnit::Seconds;
    QTest::newRow("s at 60 Hz") << 1.0 / 64 << TableTimeUnit::Seconds;
    QTest::newRow("ms at 1000 Hz") << 1.0 << TableTimeUnit::Milliseconds;
    QTest::newRow("ms at 2000 Hz") << 0.5 << TableTimeUnit::Milliseconds;
    QTest::newRow("ms at 30 Hz") << 33.25 << TableTimeUnit::Milliseconds;
    QTest::newRow("us at 1000 Hz") << 1000.0 << TableTimeUnit::Microseconds;
    QTest::newRow("us at 60 Hz") << 16'667.0 << TableTimeUnit::Microseconds;
    QTest::newRow("ns at 200 Hz") << 5'000'000.0 << TableTimeUnit::Nanoseconds;
}

void TestTableDetection::timeUnits()
{
    QFETCH(double, step);
    QFETCH(TableTimeUnit, unit);
    const LayoutGuess guess = guessOf("time,left_x,left_y\n" + rows(300, step, ","));
    QCOMPARE(guess.layout.timeUnit, unit);
    QVERIFY(!guess.refusal());
    QVERIFY(choiceOf(guess, "time.unit")->reason.contains(QStringLiteral("samples a second")));
}

void TestTableDetection::asked_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QByteArray>("key");
    QTest::newRow("a count or ms") << "time,left_x,left_y\n" + rows(100, 1, ",", 0) << QByteArray("time.unit");
    QTest::newRow("the name against the rate")
        << "time_s,left_x,left_y\n" + rows(100, 2, ",") << QByteArray("time.unit");
    QTest::newRow("a rate of no tracker") << "time,left_x,left_y\n" + rows(100, 100, ",") << QByteArray("time.unit");
    QTest::newRow("degrees or millimetres")
        << "time,left_x,left_y\n" + rows(100, 2, ",", 9000, 0.02) << QByteArray("place.unit");
    QTest::newRow("the screen of shares")
        << "time,left_x,left_y\n" + rows(100, 2, ",", 9000, 0.0005) << QByteArray("place.screenPx");
    QTest::newRow("the screen of degrees")
        << "time,left_x_deg,left_y_deg\n" + rows(100, 2, ",", 9000, 0.02) << QByteArray("place.screenMm");
    QTest::newRow("which of two columns") << QByteArray("time,x_here,y_here,x_there,y_there\n1,100,101,200,201\n"
                                                        "3,300,301,400,401\n5,110,111,210,211\n")
                                          << QByteArray("right.x");
    QTest::newRow("places without names") << rows(100, 2, ",") << QByteArray("right.x");
    QTest::newRow("a rate without times")
        << QByteArray("left_x,left_y\n500.5,300\n400,301\n300.5,500\n") << QByteArray("time.rateHz");
    QTest::newRow("more columns than names")
        << "time,left_x,left_y\n" + rows(100, 2, ",").replace("\n", ",7\n") << QByteArray("header");
}

/// A choice that is not sure is a question, and where numbers would be wrong nobody reads without an answer.
void TestTableDetection::asked()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QByteArray, key);
    const LayoutGuess guess = guessOf(bytes);
    if (guess.problem)
        QFAIL(qPrintable(guess.problem->text()));
    const LayoutChoice *choice = choiceOf(guess, key.constData());
    QVERIFY(choice);
    QVERIFY(choice->certainty < LayoutGuess::certaintyLimit);
    QVERIFY(guess.certainty() <= choice->certainty);
    const QString question = QString::fromLatin1(key) + QStringLiteral(": is it ");
    QVERIFY(std::ranges::any_of(guess.questions(), [&](const QString &each) { return each.startsWith(question); }));
    QVERIFY(guess.refusal().has_value());
    QVERIFY(!guess.refusal()->remedy.isEmpty());
}

void TestTableDetection::missingCodes()
{
    QByteArray bytes = "time,left_x,left_y\n";
    for (int i = 0; i < 100; ++i)
        bytes += QByteArray::number(5000 + 2 * i) + (i % 5 == 0   ? ",-32768,-32768\n"
                                                     : i % 7 == 0 ? ",?,?\n"
                                                                  : ",512,300.5\n");
    const LayoutGuess guess = guessOf(bytes);
    QVERIFY(guess.layout.missing.contains(QStringLiteral("-32768")));
    QVERIFY(guess.layout.missing.contains(QStringLiteral("?")));
    QVERIFY(!guess.refusal());
}

/// Ten digits: six would be another number, and the places valid.
void TestTableDetection::longMissingCode()
{
    QByteArray bytes = "time,left_x,left_y\n";
    for (int i = 0; i < 100; ++i)
        bytes += QByteArray::number(5000 + 2 * i) + (i % 5 == 0 ? ",-2147483648,-2147483648\n" : ",512,300.5\n");
    const LayoutGuess guess = guessOf(bytes);
    QVERIFY(guess.layout.missing.contains(QStringLiteral("-2147483648")));
    const TableContent content = table_writer::content(table_writer::read(bytes, guess.layout));
    QCOMPARE(content.recordings[0].facts.leftValid, 80);
}

void TestTableDetection::confidenceInPercent()
{
    const auto table = [](double scale) {
        QByteArray bytes = "time,left_x,left_y,left_confidence\n";
        for (int i = 0; i < 100; ++i)
            bytes += QByteArray::number(5000 + 2 * i) + ",512," + QByteArray::number(300 + i % 7) + ',' +
                     QByteArray::number(scale * (i % 5 == 0 ? 0.105 : 0.985)) + '\n';
        return bytes;
    };
    const LayoutGuess ones = guessOf(table(1));
    QCOMPARE(ones.layout.valid.limit, 0.6);
    QVERIFY(!ones.refusal());
    const LayoutGuess percent = guessOf(table(100));
    QCOMPARE(percent.layout.valid.limit, 60.0);
    QVERIFY(percent.refusal()); // what it counts in is a guess that decides which samples are valid
}

void TestTableDetection::assumedScreenIsTold()
{
    NamedLayout known{QStringLiteral("maker"), QStringLiteral(":/layouts/maker.layout.json"), table_writer::layout()};
    known.layout.place.unit = TablePlaceUnit::Normalised;
    known.layout.match = {QStringLiteral("time"), QStringLiteral("lx")};
    const QByteArray bytes = table_writer::tableText({{QStringLiteral("a"), table_writer::gaze(200, 3)}}, known.layout);
    const auto tells = [&](const NamedLayout &layout) {
        return detectLayout(extractOf(bytes), {layout}).doubts.join(u'\n').contains(QStringLiteral("takes the screen"));
    };
    QVERIFY(tells(known));
    known.path = QStringLiteral("mine/maker.layout.json"); // the user has said how large it is
    QVERIFY(!tells(known));
    known.path = QStringLiteral(":/layouts/maker.layout.json");
    known.layout.place.unit = TablePlaceUnit::Pixels;
    QVERIFY(!tells(known));
}

void TestTableDetection::validityCodes()
{
    QByteArray bytes = "time,left_x,left_y,left_validity\n";
    for (int i = 0; i < 100; ++i)
        bytes += QByteArray::number(5000 + 2 * i) + (i % 5 == 0 ? ",,,4\n" : ",512.5,300,0\n");
    LayoutGuess guess = guessOf(bytes);
    QCOMPARE(guess.layout.left.validity.name, QStringLiteral("left_validity"));
    QCOMPARE(guess.layout.valid.codes, QStringList{QStringLiteral("0")});
    QVERIFY(!guess.refusal());
    // One code alone, and gaze with it everywhere: it can mean either.
    guess = guessOf(bytes.replace(",,,4\n", ",1,1.5,0\n"));
    QVERIFY(guess.refusal().has_value());
}

void TestTableDetection::recordings()
{
    QByteArray bytes = "subject,trial,time,left_x,left_y\n";
    for (int i = 0; i < 120; ++i) {
        const int subject = i / 60;
        const int trial = i / 20;
        bytes += "s" + QByteArray::number(subject) + ',' + QByteArray::number(trial) + ',' +
                 QByteArray::number(7000 + 2 * i) + ",512.5,300\n";
    }
    const LayoutGuess guess = guessOf(bytes);
    // Two people are two recordings; trials of one clock stay together, and can be split.
    QCOMPARE(guess.layout.split, QList<TableColumn>{TableColumn::named(QStringLiteral("subject"))});
    QCOMPARE(guess.splitCandidates.size(), 2);
    QVERIFY(guess.doubts.join(u'\n').contains(QStringLiteral("trial has 6 values")));
    QCOMPARE(guess.layout.set.size(), 1);
    QCOMPARE(guess.layout.set[0].key, QStringLiteral("subject"));
    const TableContent content = table_writer::content(table_writer::read(bytes, guess.layout));
    QCOMPARE(content.recordings.size(), 2);
    QCOMPARE(content.recordings[1].name, QStringLiteral("p01_s1"));
    QCOMPARE(content.recordings[1].samples.size(), 60);
}

void TestTableDetection::knownLayout()
{
    NamedLayout known{QStringLiteral("mine"), {}, table_writer::layout()};
    known.layout.match = {QStringLiteral("recording"), QStringLiteral("time"), QStringLiteral("lx"),
                          QStringLiteral("ly")};
    known.layout.split << TableColumn::named(QStringLiteral("recording"));
    const TableLayout written = table_writer::with([](TableLayout &layout) {
        layout.delimiter = ';';
        layout.decimalSign = ',';
    });
    const QList<TableSample> samples = table_writer::gaze(200, 3);
    const QByteArray bytes = table_writer::tableText({{QStringLiteral("a"), samples}}, written);
    const LayoutGuess guess = detectLayout(extractOf(bytes), {known});
    QCOMPARE(guess.layoutName, QStringLiteral("mine"));
    QVERIFY(!guess.refusal());
    QCOMPARE(guess.layout.split.size(), 1);
    QCOMPARE(guess.doubts.size(), 2); // delimiter and decimal sign are those of the file
    const TableContent content = table_writer::content(table_writer::read(bytes, guess.layout));
    QVERIFY(content.recordings[0].samples == samples);
}

void TestTableDetection::knownLayoutWithAnotherRate()
{
    NamedLayout known{QStringLiteral("mine"), {}, table_writer::layout()};
    known.layout.match = {QStringLiteral("time"), QStringLiteral("lx")};
    const TableLayout written =
        table_writer::with([](TableLayout &layout) { layout.timeUnit = TableTimeUnit::Seconds; });
    const QByteArray bytes = table_writer::tableText({{QStringLiteral("a"), table_writer::gaze(200, 3)}}, written);
    const LayoutGuess guess = detectLayout(extractOf(bytes), {known});
    QCOMPARE(guess.layoutName, QStringLiteral("mine"));
    QVERIFY(guess.refusal().has_value());
    QVERIFY(guess.refusal()->found.contains(QStringLiteral("time.unit")));
}

void TestTableDetection::noTables_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("found");
    const auto row = [](const char *name, const QByteArray &bytes, const char *found) {
        QTest::newRow(name) << bytes << QString::fromLatin1(found);
    };
    row("nothing", "", "no lines");
    row("empty lines", "\n\r\n\n", "no lines");
    row("prose", "Dear Ann\nnice weather\n", "");
    row("bytes", QByteArray("\x89PNG\r\n\x1a\n\0\0\0\rIHDR\0\0", 18), "bytes that are no text");
    row("words instead of samples", "part,wordId,word,word_first_fix_dur\n1,1,the,120\n1,2,cat,300\n",
        "fixations or words instead of samples");
    row("fixations", "Fixation_Start,Fixation_X,Fixation_Y,Fixation_Duration\n1,500,300,200\n9,510,310,180\n",
        "fixations or words instead of samples");
    row("no gaze", "time,heart,skin\n1,60,2\n2,61,2\n", "no columns of gaze");
}

void TestTableDetection::noTables()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, found);
    const LayoutGuess guess = guessOf(bytes);
    QVERIFY(guess.problem.has_value());
    QVERIFY2(guess.problem->found.startsWith(found), qPrintable(guess.problem->text()));
    QCOMPARE(guess.certainty(), 0.0);
    QVERIFY(guess.refusal().has_value());
    QVERIFY(!guess.problem->remedy.isEmpty());
}

void TestTableDetection::eventLog()
{
    const LayoutGuess guess = guessOf("** CONVERTED\nMSG\t1 DISPLAY_COORDS 0 0 1023 767\nSTART\t5 \tLEFT\tSAMPLES\n"
                                      "SAMPLES\tGAZE\tLEFT\tRATE\t1000.00\n5\t 1.0\t 2.0\t 3.0\t...\nEND\t6\n");
    QCOMPARE(guess.layout.kind, TableKind::EventLog);
    QVERIFY(!guess.refusal());
    QVERIFY(guess.certainty() > 0.9);
}

void TestTableDetection::extractOfALongFile()
{
    const QByteArray bytes =
        table_writer::tableText({{QStringLiteral("a"), table_writer::gaze(20'000, 4)}}, table_writer::layout());
    const TableExtract extract = extractOf(bytes);
    QCOMPARE(extract.head.size(), 1000);
    QCOMPARE(extract.tail.size(), 100);
    QVERIFY(!extract.isWhole);
    QCOMPARE(extract.size, bytes.size());
    QCOMPARE(extract.tail.constLast().toUtf8(), bytes.trimmed().sliced(bytes.trimmed().lastIndexOf('\n') + 1));
    const TableExtract wide = extractOf(table_writer::encoded(bytes, TableEncoding::Utf16BigEndian));
    QCOMPARE(wide.encoding, TableEncoding::Utf16BigEndian);
    QCOMPARE(wide.head, extract.head);
    QCOMPARE(wide.tail, extract.tail);
    const TableExtract packed = extractOf(table_writer::packed(bytes));
    QCOMPARE(packed.head, extract.head);
    QVERIFY(packed.tail.isEmpty());
}

QTEST_GUILESS_MAIN(TestTableDetection)
#include "TestTableDetection.moc"
