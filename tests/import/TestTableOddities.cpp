// SPDX-License-Identifier: GPL-3.0-or-later
// What is odd in a table is told, what cannot be read is refused, in bounded memory.

#include "TableWriter.h"

namespace {

using Result = std::variant<TableContent, TableProblem>;

/// A text without end: the same bytes again and again.
class EndlessText : public QIODevice {
public:
    explicit EndlessText(QByteArray part) : m_part(std::move(part)) { open(ReadOnly); }
    bool isSequential() const override { return true; }
    qint64 given = 0;

protected:
    qint64 readData(char *data, qint64 size) override
    {
        for (qint64 i = 0; i < size; ++i)
            data[i] = m_part[(given + i) % m_part.size()];
        given += size;
        return size;
    }
    qint64 writeData(const char *, qint64) override { return -1; }

private:
    QByteArray m_part;
};

} // namespace

class TestTableOddities : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void oddities_data();
    void oddities();
    void numbers_data();
    void numbers();
    void validity_data();
    void validity();
    void refusals_data();
    void refusals();
    void missingFile();
    void endlessLine();
    void manyRecordings();
    void gzipBomb();
};

void TestTableOddities::oddities_data()
{
    QTest::addColumn<QByteArray>("lines");
    QTest::addColumn<TableOddityKind>("kind");
    QTest::addColumn<qsizetype>("count");
    QTest::addColumn<qsizetype>("firstLine");
    const auto row = [](const char *name, const QByteArray &lines, TableOddityKind kind, qsizetype count,
                        qsizetype line) { QTest::newRow(name) << lines << kind << count << line; };
    // Line 1 is the header.
    row("a word for a place", "a,2,1,1,1,1,1,1\na,4,oops,1,1,1,1,1\n", TableOddityKind::NotANumber, 1, 3);
    row("words for both places", "a,2,1,1,1,1,1,1\na,4,x,y,1,1,1,1\n", TableOddityKind::NotANumber, 2, 3);
    row("a decimal comma splits a line", "a,2,1,1,1,1,1,1\na,4,1,5,1,1,1,1,1\n", TableOddityKind::ColumnsChanged, 1, 3);
    row("a cut line", "a,2,1,1,1,1,1,1\na,4,1,1\na,6,1,1,1,1,1,1\na,8\n", TableOddityKind::ColumnsChanged, 2, 3);
    // The layout needs the first eight columns of the nine.
    row("a line that ends early", "a,2,1,1,1,1,1,1,x\na,4,1,1,1,1,1,1\n", TableOddityKind::FewerColumns, 1, 3);
    row("a line without time", "a,2,1,1,1,1,1,1\na,,1,1,1,1,1,1\na,x,1,1,1,1,1,1\n", TableOddityKind::TimeNotANumber, 2,
        3);
    row("equal times", "a,2,1,1,1,1,1,1\na,2,1,1,1,1,1,1\na,2,1,1,1,1,1,1\n", TableOddityKind::RepeatedTime, 2, 3);
    row("times that run backwards", "a,4,1,1,1,1,1,1\na,2,1,1,1,1,1,1\n", TableOddityKind::BackwardTime, 1, 3);
    row("a jump", "a,2,1,1,1,1,1,1\na,103,1,1,1,1,1,1\n", TableOddityKind::TimeJump, 1, 3);
    row("above the screen", "a,2,1,1,1,1,-1,1\na,4,1,1,1,1025,1,1\n", TableOddityKind::OutsideScreen, 2, 2);
    row("an eye that is never there", "a,2,,,1,1,1,1\na,4,,,1,1,1,1\n", TableOddityKind::EyeNeverValid, 2, 2);
    row("an eye that is lost at times", "a,2,1,1,1,1,1,1\na,4,1,1,1,nan,1,1\n", TableOddityKind::EyeLost, 1, 3);
    QByteArray slow;
    QByteArray fast;
    for (int i = 0; i < 20; ++i) {
        slow += "a," + QByteArray::number(i * 4000) + ",1,1,1,1,1,1\n";  // us taken for ms
        fast += "a," + QByteArray::number(i * 0.004) + ",1,1,1,1,1,1\n"; // s taken for ms
    }
    row("times in us", slow, TableOddityKind::ImplausibleRate, 1, 2);
    row("times in s", fast, TableOddityKind::ImplausibleRate, 1, 2);
}

void TestTableOddities::oddities()
{
    QFETCH(QByteArray, lines);
    QFETCH(TableOddityKind, kind);
    QFETCH(qsizetype, count);
    QFETCH(qsizetype, firstLine);
    const QByteArray further = kind == TableOddityKind::FewerColumns ? ",further\n" : "\n";
    const TableContent content = table_writer::content(
        table_writer::read("recording,time,lx,ly,lp,rx,ry,rp" + further + lines, table_writer::layout()));
    QCOMPARE(content.recordings.size(), 1);
    const QList<TableOddity> all = content.oddities + content.recordings[0].oddities;
    const auto found = std::ranges::find(all, kind, &TableOddity::kind);
    QVERIFY(found != all.end());
    QCOMPARE(found->count, count);
    QCOMPARE(found->firstLine, firstLine);
    QVERIFY(found->sentence.contains(QString::number(count)) || count == 1);
    // What was not spoiled is not told.
    const qsizetype jumps = std::ranges::count(all, TableOddityKind::TimeJump, &TableOddity::kind);
    QCOMPARE(all.size() - (kind == TableOddityKind::ImplausibleRate ? jumps : 0) -
                 std::ranges::count(all, TableOddityKind::EyeLost, &TableOddity::kind),
             qsizetype(kind == TableOddityKind::EyeLost ? 0 : 1));
}

void TestTableOddities::numbers_data()
{
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<double>("value"); ///< NaN: missing
    const double missing = std::nan("");
    QTest::newRow("plain") << QByteArray("12.5") << 12.5;
    QTest::newRow("exponent") << QByteArray("1.25e1") << 12.5;
    QTest::newRow("plus sign") << QByteArray("+12.5") << 12.5;
    QTest::newRow("no digit before the point") << QByteArray(".5") << 0.5;
    QTest::newRow("no digit behind the point") << QByteArray("12.") << 12.0;
    QTest::newRow("negative") << QByteArray("-0.25") << -0.25;
    QTest::newRow("blanks around") << QByteArray("  12.5 ") << 12.5;
    QTest::newRow("in quotes") << QByteArray("\"12.5\"") << 12.5;
    QTest::newRow("nineteen digits") << QByteArray("1234567890123456789") << 1234567890123456789.0;
    QTest::newRow("many decimals") << QByteArray("0.1000000000000000055511151231257827") << 0.1;
    QTest::newRow("seven digits on both sides") << QByteArray("1234567.7654321") << 1234567.7654321;
    QTest::newRow("eight digits before the point") << QByteArray("12345678.5") << 12345678.5;
    QTest::newRow("eight decimals") << QByteArray("1.12345678") << 1.12345678;
    QTest::newRow("a letter behind the digits") << QByteArray("12.5a") << missing;
    QTest::newRow("minus alone") << QByteArray("-") << missing;
    QTest::newRow("empty") << QByteArray("") << missing;
    QTest::newRow("nan") << QByteArray("NaN") << missing;
    QTest::newRow("infinite") << QByteArray("inf") << missing;
    QTest::newRow("hexadecimal") << QByteArray("0x10") << missing;
    QTest::newRow("two points") << QByteArray("1.2.3") << missing;
    QTest::newRow("decimal comma in quotes") << QByteArray("\"1,5\"") << missing;
    QTest::newRow("beyond all doubles") << QByteArray("1e999") << missing;
}

void TestTableOddities::numbers()
{
    QFETCH(QByteArray, field);
    QFETCH(double, value);
    const TableContent content = table_writer::content(
        table_writer::read("recording,time,lx,ly,lp,rx,ry,rp\na,1," + field + ",7,1,1,1,1\n", table_writer::layout()));
    const TableSample &sample = content.recordings[0].samples[0];
    QCOMPARE(sample.leftValid, !std::isnan(value));
    QVERIFY(sample.rightValid);
    QVERIFY(sample.left.x == (std::isnan(value) ? 0 : value));
}

void TestTableOddities::validity_data()
{
    QTest::addColumn<TableValidityRule>("rule");
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<bool>("isValid");
    using Kind = TableValidityRule::Kind;
    const TableValidityRule one{Kind::Codes, {QStringLiteral("1")}, 0};
    QTest::newRow("the code") << one << QByteArray("1") << true;
    QTest::newRow("the code as a decimal") << one << QByteArray("1.0") << true;
    QTest::newRow("another code") << one << QByteArray("0") << false;
    QTest::newRow("no code") << one << QByteArray("") << false;
    const TableValidityRule words{Kind::Codes, {QStringLiteral("Valid"), QStringLiteral("0")}, 0};
    QTest::newRow("a word") << words << QByteArray("valid") << true;
    QTest::newRow("another word") << words << QByteArray("Invalid") << false;
    QTest::newRow("one of two codes") << words << QByteArray("0") << true;
    const TableValidityRule atLeast{Kind::AtLeast, {}, 0.6};
    QTest::newRow("below the limit") << atLeast << QByteArray("0.59") << false;
    QTest::newRow("at the limit") << atLeast << QByteArray("0.6") << true;
    QTest::newRow("a limit needs a number") << atLeast << QByteArray("high") << false;
    const TableValidityRule atMost{Kind::AtMost, {}, 1};
    QTest::newRow("at the upper limit") << atMost << QByteArray("1") << true;
    QTest::newRow("above it") << atMost << QByteArray("2") << false;
}

void TestTableOddities::validity()
{
    QFETCH(TableValidityRule, rule);
    QFETCH(QByteArray, field);
    QFETCH(bool, isValid);
    TableLayout layout = table_writer::layout();
    layout.valid = rule;
    layout.left.validity = TableColumn::named(QStringLiteral("lv"));
    const TableContent content =
        table_writer::content(table_writer::read("time,lx,ly,lp,rx,ry,rp,lv\n1,5,6,1,1,1,1," + field + "\n", layout));
    const TableSample &sample = content.recordings[0].samples[0];
    QCOMPARE(sample.leftValid, isValid);
    QCOMPARE(sample.left.x, 5.0); // what the file says of it is kept
    QVERIFY(sample.rightValid);
}

void TestTableOddities::refusals_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<TableLayout>("layout");
    QTest::addColumn<QString>("found");
    QTest::addColumn<qsizetype>("line");
    QTest::addColumn<qsizetype>("column");
    const TableLayout plain = table_writer::layout();
    const QByteArray header = "recording,time,lx,ly,lp,rx,ry,rp\n";
    const auto row = [](const char *name, const QByteArray &bytes, const TableLayout &layout, const char *found,
                        qsizetype line, qsizetype column) {
        QTest::newRow(name) << bytes << layout << QString::fromLatin1(found) << line << column;
    };
    row("nothing", "", plain, "no lines", 0, 0);
    row("only a header", header, plain, "no samples", 1, 0);
    row("a column that is not there", "time,lx,ly,lp,rx,ry\n1,1,1,1,1,1\n", plain,
        "the columns time, lx, ly, lp, rx, ry", 1, 0);
    row("a name twice", "time,lx,lx,ly,lp,rx,ry,rp\n1,1,1,1,1,1,1,1\n", plain, "the column \"lx\" more than once", 1,
        0);
    row("times that are words", header + "a,b,1,1,1,1,1,1\n", plain, "\"b\"", 2, 2);
    row("decimal comma where a point is expected", "recording;time;lx;ly;lp;rx;ry;rp\na;1,5;1;1;1;1;1;1\n",
        table_writer::with([](TableLayout &layout) { layout.delimiter = ';'; }), "\"1,5\"", 2, 2);
    row("more columns than names", header + "a,1,1,1,1,1,1,1,9\n", plain, "9 columns below a header of 8 names", 2, 0);
    row("fewer columns than numbers", "1,2\n", table_writer::with([](TableLayout &layout) {
            layout.header = TableHeader::None;
            layout.right = {};
            layout.time = TableColumn::numbered(1);
            layout.left = {TableColumn::numbered(2), TableColumn::numbered(3), {}, {}, {}};
        }),
        "2 columns", 1, 0);
    QByteArray wide(2 * 20'000, ',');
    row("a header of 40,000 columns", header.chopped(1) + wide + "\n", plain, "more than 10000 columns", 1, 0);
    row("damaged gzip", table_writer::packed(header + "a,1,1,1,1,1,1,1\n").replace(20, 4, "XXXX"), plain,
        "damaged gzip data", 0, 0);
    row("a gzip file that is cut off",
        table_writer::packed(QByteArray(header + "a,1,1,1,1,1,1,1\n").repeated(100)).chopped(12), plain,
        "a gzip file that is cut off", 0, 0);
    row("no columns of gaze in the layout", header,
        table_writer::with([](TableLayout &layout) { layout.left = layout.right = {}; }),
        "a layout without columns of gaze", 0, 0);
}

void TestTableOddities::refusals()
{
    QFETCH(QByteArray, bytes);
    QFETCH(TableLayout, layout);
    QFETCH(QString, found);
    QFETCH(qsizetype, line);
    QFETCH(qsizetype, column);
    const Result result = table_writer::read(bytes, layout);
    const auto *problem = std::get_if<TableProblem>(&result);
    QVERIFY(problem);
    QVERIFY2(problem->found.startsWith(found), qPrintable(problem->text()));
    QCOMPARE(problem->file, QStringLiteral("p01.csv"));
    QCOMPARE(problem->line, line);
    QCOMPARE(problem->column, column);
    QVERIFY(problem->text().startsWith(QStringLiteral("p01.csv")));
    QVERIFY2(!problem->expected.isEmpty(), qPrintable(problem->text()));
}

void TestTableOddities::missingFile()
{
    const Result result = readTable(QStringLiteral("/nowhere/p01.csv"), table_writer::layout());
    QVERIFY(std::holds_alternative<TableProblem>(result));
    QVERIFY(std::get<TableProblem>(result).text().contains(QStringLiteral("cannot be opened")));
    QVERIFY(std::holds_alternative<TableProblem>(readTable(QDir::tempPath(), table_writer::layout())));
}

void TestTableOddities::endlessLine()
{
    EndlessText text("time,");
    const Result result = readTable(text, QStringLiteral("p01.csv"), table_writer::layout());
    QVERIFY(std::holds_alternative<TableProblem>(result));
    QVERIFY(std::get<TableProblem>(result).text().contains(QStringLiteral("a line of more than")));
    QVERIFY(text.given < 8 << 20);
}

void TestTableOddities::manyRecordings()
{
    const TableLayout layout =
        table_writer::with([](TableLayout &each) { each.split << TableColumn::named(QStringLiteral("recording")); });
    QByteArray bytes = "recording,time,lx,ly,lp,rx,ry,rp\n";
    for (int i = 0; i <= 100'000; ++i)
        bytes += QByteArray::number(i) + ",1,1,1,1,1,1,1\n";
    const Result result = table_writer::read(bytes, layout);
    QVERIFY(std::holds_alternative<TableProblem>(result));
    QVERIFY(std::get<TableProblem>(result).text().contains(QStringLiteral("more than 100000 recordings")));
    QCOMPARE(std::get<TableProblem>(result).line, 100'002);
}

/// 128 MB of one line again and again: refused when it has grown to 64 MB.
void TestTableOddities::gzipBomb()
{
    const QByteArray piece = QByteArray("a,1,1,1,1,1,1,1\n").repeated(1 << 16);
    z_stream stream{};
    deflateInit2(&stream, 9, Z_DEFLATED, MAX_WBITS + 16, 9, Z_DEFAULT_STRATEGY);
    QByteArray bomb(8 << 20, Qt::Uninitialized);
    stream.next_out = reinterpret_cast<Bytef *>(bomb.data());
    stream.avail_out = static_cast<uInt>(bomb.size());
    QByteArray header = "recording,time,lx,ly,lp,rx,ry,rp\n";
    const auto feed = [&](QByteArray bytes, int flush) {
        stream.next_in = reinterpret_cast<Bytef *>(bytes.data());
        stream.avail_in = static_cast<uInt>(bytes.size());
        deflate(&stream, flush);
    };
    feed(header, Z_NO_FLUSH);
    for (int i = 0; i < 128; ++i)
        feed(piece, Z_NO_FLUSH);
    feed({}, Z_FINISH);
    bomb.truncate(static_cast<qsizetype>(stream.total_out));
    deflateEnd(&stream);
    qsizetype samples = 0;
    const TableReadOptions options{.take = [&](qsizetype, const QList<TableSample> &taken) {
        samples += taken.size();
        return true;
    }};
    const Result result = table_writer::read(bomb, table_writer::layout(), options);
    QVERIFY(std::holds_alternative<TableProblem>(result));
    QVERIFY(std::get<TableProblem>(result).text().contains(QStringLiteral("grows beyond 500 times")));
    QVERIFY(samples < 5 << 20);
}

QTEST_GUILESS_MAIN(TestTableOddities)
#include "TestTableOddities.moc"
