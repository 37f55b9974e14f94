// SPDX-License-Identifier: GPL-3.0-or-later
// Logs in which samples stand among events and messages.

#include "TableWriter.h"

namespace {

using Result = std::variant<TableContent, TableProblem>;

TableLayout logLayout(const QString &begin = {}, const QString &end = {})
{
    TableLayout layout;
    layout.kind = TableKind::EventLog;
    layout.beginMessage = begin;
    layout.endMessage = end;
    return layout;
}

/// A block of samples: time, then for each eye x = 100 + i, y = 200 + i, pupil = 900; the second sample is lost.
QByteArray block(const QByteArray &eyes, const QByteArray &rate, double start, double step, int samples)
{
    const auto time = [&](int i) { return QByteArray::number(start + step * i, 'f', QLocale::FloatingPointShortest); };
    QByteArray text = "START\t" + time(0) + " \t" + eyes +
                      "\tSAMPLES\tEVENTS\nPRESCALER\t1\nVPRESCALER\t1\n"
                      "PUPIL\tAREA\nEVENTS\tGAZE\t" +
                      eyes + "\tRATE\t " + rate +
                      "\tTRACKING\tCR\tFILTER\t2\n"
                      "SAMPLES\tGAZE\t" +
                      eyes + "\tRATE\t " + rate + "\tTRACKING\tCR\tFILTER\t2\n";
    const int count = eyes.contains('\t') ? 2 : 1;
    for (int i = 0; i < samples; ++i) {
        text += time(i);
        for (int eye = 0; eye < count; ++eye) {
            const QByteArray x = i == 1 ? "   ." : QByteArray::number(100 + i + 50 * eye) + ".0";
            const QByteArray y = i == 1 ? "   ." : QByteArray::number(200 + i + 50 * eye) + ".5";
            text += "\t  " + x + "\t  " + y + "\t  " + (i == 1 ? "   0.0" : " 900.0");
        }
        text += count == 2 ? "\t.....\n" : "\t...\n";
        if (i == 1)
            text += "EFIX L   1\t2\t3\t  1.0\t  2.0\t  900\nMSG\t" + time(i) + " -3 SYNCTIME\n";
    }
    return text + "END\t" + time(samples) + " \tSAMPLES\tEVENTS\tRES\t  35.0\t  35.0\n";
}

const QByteArray preamble = "** CONVERTED FROM a file\n** DATE: a day\n**\n\nMSG\t1 DISPLAY_COORDS 0 0 1279 1023\n"
                            "MSG\t2 !CAL \n>>>>>>> CALIBRATION (HV9,P-CR) FOR LEFT: <<<<<<<<<\n"
                            "MSG\t2 !CAL eye check box: (L,R,T,B)\n\t  -76     7   -82     7\n"
                            "   5656.2  233.84 -41.107 \nINPUT\t3\t0\n";

qsizetype lineOf(const QByteArray &text, const QByteArray &part)
{
    return text.first(text.indexOf(part)).count('\n') + 1;
}

} // namespace

class TestEventLog : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void eyes_data();
    void eyes();
    void blocksAreOneRecording();
    void eachMillisecondTwice();
    void halfMilliseconds();
    void screen_data();
    void screen();
    void trials();
    void trialsWithoutEnd();
    void eyesChange();
    void furtherColumns();
    void everyPieceBoundary();
    void oddLines();
    void statedRate();
    void refusals_data();
    void refusals();
    void messageWords();
};

void TestEventLog::eyes_data()
{
    QTest::addColumn<QByteArray>("eyes");
    QTest::addColumn<bool>("hasLeft");
    QTest::addColumn<bool>("hasRight");
    QTest::newRow("left") << QByteArray("LEFT") << true << false;
    QTest::newRow("right") << QByteArray("RIGHT") << false << true;
    QTest::newRow("both") << QByteArray("LEFT\tRIGHT") << true << true;
}

void TestEventLog::eyes()
{
    QFETCH(QByteArray, eyes);
    QFETCH(bool, hasLeft);
    QFETCH(bool, hasRight);
    const TableContent content =
        table_writer::content(table_writer::read(preamble + block(eyes, "500.00", 7000, 2, 5), logLayout()));
    QCOMPARE(content.recordings.size(), 1);
    const TableRecording &recording = content.recordings[0];
    QCOMPARE(recording.samples.size(), 5);
    QCOMPARE(recording.facts.hasLeft, hasLeft);
    QCOMPARE(recording.facts.hasRight, hasRight);
    QCOMPARE(recording.facts.rateHz, 500.0);
    QCOMPARE(recording.facts.statedRateHz, 500.0);
    for (int i = 0; i < 5; ++i) {
        const bool isThere = i != 1;
        const double second = hasLeft && hasRight ? 50 : 0;
        const TableEyeSample lost{0, 0, 0, 0};
        TableSample expected;
        expected.timeMs = 7000 + 2 * i;
        expected.leftValid = hasLeft && isThere;
        expected.rightValid = hasRight && isThere;
        expected.left = expected.leftValid ? TableEyeSample{100.0 + i, 200.5 + i, 900, 900} : lost;
        expected.right = expected.rightValid ? TableEyeSample{100.0 + i + second, 200.5 + i + second, 900, 900} : lost;
        QVERIFY(recording.samples[i] == expected);
    }
    const auto absent = std::ranges::count(recording.oddities, TableOddityKind::EyeAbsent, &TableOddity::kind);
    QCOMPARE(absent, hasLeft && hasRight ? 0 : 1);
    QVERIFY(content.oddities.isEmpty());
}

/// Whole by default: what lies between the blocks is told as a pause, not as a jump of the clock.
void TestEventLog::blocksAreOneRecording()
{
    const QByteArray bytes = preamble + block("LEFT", "500.00", 7000, 2, 10) + block("LEFT", "500.00", 9000, 2, 20);
    const TableContent content = table_writer::content(table_writer::read(bytes, logLayout()));
    QCOMPARE(content.recordings.size(), 1);
    QCOMPARE(content.recordings[0].samples.size(), 30);
    QCOMPARE(content.recordings[0].samples[10].timeMs, 9000.0);
    const QList<TableOddity> &oddities = content.recordings[0].oddities;
    const auto pause = std::ranges::find(oddities, TableOddityKind::RecordingPause, &TableOddity::kind);
    QVERIFY(pause != oddities.end());
    QCOMPARE(pause->count, 1);
    QCOMPARE(pause->firstLine, lineOf(bytes, "START\t9000"));
    QVERIFY(std::ranges::find(oddities, TableOddityKind::TimeJump, &TableOddity::kind) == oddities.end());
}

/// A log at 2000 Hz with whole milliseconds keeps both samples of each.
void TestEventLog::eachMillisecondTwice()
{
    QByteArray bytes = preamble + block("RIGHT", "2000.00", 7000, 0, 0);
    for (int i = 0; i < 40; ++i)
        bytes += QByteArray::number(7000 + i / 2) + "\t 1.0\t 2.0\t 3.0\t...\n";
    const TableContent content = table_writer::content(table_writer::read(bytes, logLayout()));
    const TableRecording &recording = content.recordings[0];
    QCOMPARE(recording.samples.size(), 40);
    // 39 steps in 19 ms.
    QCOMPARE(recording.facts.rateHz, 39 / 0.019);
    const auto repeated = std::ranges::find(recording.oddities, TableOddityKind::RepeatedTime, &TableOddity::kind);
    QCOMPARE(repeated->count, 20);
    QVERIFY(std::ranges::find(recording.oddities, TableOddityKind::ImplausibleRate, &TableOddity::kind) ==
            recording.oddities.end());
}

void TestEventLog::halfMilliseconds()
{
    const TableContent content =
        table_writer::content(table_writer::read(preamble + block("LEFT", "2000.00", 7000.5, 0.5, 20), logLayout()));
    QCOMPARE(content.recordings[0].samples[2].timeMs, 7001.5);
    QCOMPARE(content.recordings[0].facts.rateHz, 2000.0);
}

void TestEventLog::screen_data()
{
    QTest::addColumn<QByteArray>("message");
    QTest::addColumn<QSizeF>("size");
    QTest::addColumn<double>("x"); ///< of the first sample, 100 in the log
    QTest::newRow("last pixels") << QByteArray("MSG\t5 GAZE_COORDS 0.00 0.00 1023.00 767.00\n") << QSizeF(1024, 768)
                                 << 100.0;
    QTest::newRow("sizes") << QByteArray("MSG\t5 GAZE_COORDS 0.00 0.00 1920.00 1080.00\n") << QSizeF(1920, 1080)
                           << 100.0;
    QTest::newRow("a corner elsewhere") << QByteArray("MSG\t5 GAZE_COORDS 20 10 1043 777\n") << QSizeF(1024, 768)
                                        << 80.0;
    QTest::newRow("not told") << QByteArray() << QSizeF(0, 0) << 100.0;
    QTest::newRow("told wrongly") << QByteArray("MSG\t5 GAZE_COORDS 0 0 wide\n") << QSizeF(0, 0) << 100.0;
}

void TestEventLog::screen()
{
    QFETCH(QByteArray, message);
    QFETCH(QSizeF, size);
    QFETCH(double, x);
    const TableContent content = table_writer::content(
        table_writer::read(preamble + message + block("LEFT", "500.00", 7000, 2, 5), logLayout()));
    QCOMPARE(content.recordings[0].screenPx, size);
    QCOMPARE(content.recordings[0].samples[0].left.x, x);
}

void TestEventLog::trials()
{
    QByteArray bytes =
        preamble + "MSG\t10 TRIALID 7\nMSG\t11 !V TRIAL_VAR side left\n" + block("LEFT", "500.00", 7000, 2, 10) +
        "MSG\t7030 !V TRIAL_VAR kind \"two words\"\nMSG\t7030 TRIAL_RESULT 0\n" + block("LEFT", "500.00", 8000, 2, 3) +
        "MSG\t9000 2 TRIALID eight\n" + block("LEFT", "500.00", 9000, 2, 20) + "MSG\t9100 TRIAL_RESULT 0\n";
    const TableContent content = table_writer::content(
        table_writer::read(bytes, logLayout(QStringLiteral("TRIALID"), QStringLiteral("TRIAL_RESULT"))));
    QCOMPARE(content.recordings.size(), 2);
    QCOMPARE(content.recordings[0].name, QStringLiteral("p01_trial1"));
    QCOMPARE(content.recordings[0].samples.size(), 10);
    QCOMPARE(content.recordings[1].samples.size(), 20);
    QCOMPARE(content.recordings[1].samples[0].timeMs, 9000.0);
    const QList<TableEntry> expected{{QStringLiteral("trial"), QStringLiteral("7")},
                                     {QStringLiteral("side"), QStringLiteral("left")},
                                     {QStringLiteral("kind"), QStringLiteral("two words")}};
    QCOMPARE(content.recordings[0].entries, expected);
    QCOMPARE(content.recordings[1].entries[0].value, QStringLiteral("eight"));
    QCOMPARE(content.oddities.size(), 1);
    QCOMPARE(content.oddities[0].kind, TableOddityKind::OutsideTrial);
    QCOMPARE(content.oddities[0].count, 3);
    QCOMPARE(content.oddities[0].firstLine, lineOf(bytes, "8000\t"));
}

void TestEventLog::trialsWithoutEnd()
{
    const QByteArray bytes = preamble + "MSG\t10 start 1\n" + block("LEFT", "500.00", 7000, 2, 10) +
                             "MSG\t10 start 2\n" + block("LEFT", "500.00", 8000, 2, 5);
    const TableContent content = table_writer::content(table_writer::read(bytes, logLayout(QStringLiteral("start"))));
    QCOMPARE(content.recordings.size(), 2);
    QCOMPARE(content.recordings[0].samples.size(), 10);
    QCOMPARE(content.recordings[1].samples.size(), 5);
}

void TestEventLog::eyesChange()
{
    const QByteArray bytes =
        preamble + block("LEFT", "500.00", 7000, 2, 5) + block("LEFT\tRIGHT", "500.00", 8000, 2, 5);
    const TableContent content = table_writer::content(table_writer::read(bytes, logLayout()));
    const QList<TableSample> &samples = content.recordings[0].samples;
    QCOMPARE(samples.size(), 10);
    QVERIFY(samples[0].leftValid && !samples[0].rightValid);
    QVERIFY(samples[9].leftValid && samples[9].rightValid);
    QVERIFY(content.recordings[0].facts.hasLeft && content.recordings[0].facts.hasRight);
}

/// Velocities, resolution, input and targets stand behind the eyes.
void TestEventLog::furtherColumns()
{
    const TableContent content = table_writer::content(
        table_writer::read(preamble + "START\t1 \tLEFT\tSAMPLES\nSAMPLES\tGAZE\tLEFT\tVEL\tRES\tRATE\t 1000.00\tINPUT\n"
                                      "1\t  10.0\t  20.0\t  30.0\t  1.5\t  2.5\t 35.1\t 35.2\t 127.0\t...\n"
                                      "2\t  10.0\t  20.0\n",
                           logLayout()));
    QCOMPARE(content.recordings[0].samples.size(), 1);
    const TableEyeSample expected{10, 20, 30, 30};
    QVERIFY(content.recordings[0].samples[0].left == expected);
    QCOMPARE(content.oddities[0].kind, TableOddityKind::ColumnsChanged);
}

void TestEventLog::everyPieceBoundary()
{
    QByteArray bytes =
        "MSG\t5 GAZE_COORDS 20 10 1043 777\nMSG\t10 TRIALID 7\n" + block("LEFT\tRIGHT", "500.00", 7000, 2, 4);
    bytes.replace("\n", "\r\n");
    const TableLayout layout = logLayout(QStringLiteral("TRIALID"));
    const TableContent whole = table_writer::content(table_writer::read(bytes, layout));
    QCOMPARE(whole.recordings[0].samples.size(), 4);
    for (qsizetype piece = 1; piece <= bytes.size(); ++piece) {
        const TableContent cut = table_writer::content(table_writer::read(bytes, layout, {.pieceBytes = piece}));
        QCOMPARE(cut.recordings.size(), 1);
        QVERIFY(cut.recordings[0].samples == whole.recordings[0].samples);
        QCOMPARE(cut.recordings[0].entries, whole.recordings[0].entries);
    }
}

void TestEventLog::oddLines()
{
    const QByteArray bytes =
        "7\t1\t2\t3\n" + preamble + "START\t1 \tLEFT\n1\t 1.0\t 2.0\t 3.0\nwhat is this\n2\t x\t 2.0\t 3.0\n";
    const TableContent content = table_writer::content(table_writer::read(bytes, logLayout()));
    QCOMPARE(content.recordings[0].samples.size(), 2);
    QVERIFY(!content.recordings[0].samples[1].leftValid);
    QCOMPARE(content.oddities.size(), 2);
    QCOMPARE(content.oddities[0].kind, TableOddityKind::NotANumber);
    QCOMPARE(content.oddities[0].firstLine, lineOf(bytes, "2\t x"));
    QCOMPARE(content.oddities[1].kind, TableOddityKind::UnknownLine); // a sample of no eye, and words
    QCOMPARE(content.oddities[1].count, 2);
    QCOMPARE(content.oddities[1].firstLine, 1);
}

void TestEventLog::statedRate()
{
    const TableContent content =
        table_writer::content(table_writer::read(preamble + block("LEFT", "1000.00", 7000, 2, 50), logLayout()));
    const QList<TableOddity> &oddities = content.recordings[0].oddities;
    const auto found = std::ranges::find(oddities, TableOddityKind::ImplausibleRate, &TableOddity::kind);
    QVERIFY(found != oddities.end());
    QVERIFY2(found->sentence.contains(QStringLiteral("1000")) && found->sentence.contains(QStringLiteral("500")),
             qPrintable(found->sentence));
}

void TestEventLog::refusals_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("begin");
    QTest::addColumn<QString>("found");
    QTest::newRow("no samples") << preamble << QString() << QStringLiteral("no samples");
    QTest::newRow("samples of no eye") << preamble + "1\t2\t3\t4\n" << QString() << QStringLiteral("no samples");
    QTest::newRow("no such message") << preamble + block("LEFT", "500.00", 1, 2, 3) << QStringLiteral("GO")
                                     << QStringLiteral("no samples");
    QTest::newRow("angles of the head") << preamble + "SAMPLES\tHREF\tLEFT\tRATE\t500\n1\t2\t3\t4\n"
                                        << QString() << QStringLiteral("samples that are no places on the screen");
    QTest::newRow("a line without end") << QByteArray(3 << 20, 'M') << QString()
                                        << QStringLiteral("a line of more than");
}

void TestEventLog::refusals()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, begin);
    QFETCH(QString, found);
    const Result result = table_writer::read(bytes, logLayout(begin));
    const auto *problem = std::get_if<TableProblem>(&result);
    QVERIFY(problem);
    QVERIFY2(problem->found.startsWith(found), qPrintable(problem->text()));
    QVERIFY(problem->line > 0);
    QVERIFY(!problem->expected.isEmpty() && !problem->remedy.isEmpty());
}

void TestEventLog::messageWords()
{
    const TableContent content = table_writer::content(
        table_writer::read("MSG\t1 b\nMSG\t2 -4 a x\nMSG\t3 a y\n" + block("LEFT", "500.00", 7000, 2, 2), logLayout()));
    const QStringList expected{QStringLiteral("a"), QStringLiteral("SYNCTIME"), QStringLiteral("b")};
    QCOMPARE(content.messageWords, expected);
}

QTEST_GUILESS_MAIN(TestEventLog)
#include "TestEventLog.moc"
