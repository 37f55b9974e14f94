// SPDX-License-Identifier: GPL-3.0-or-later
// Layouts on disk: written, read, refused, found.

#include "import/tables/LayoutFiles.h"
#include "ImportFiles.h"
#include "TableWriter.h"

namespace {

using Read = std::variant<TableLayout, TableProblem>;

Read fromJson(const QByteArray &json)
{
    return layoutFromJson(json, QStringLiteral("a.layout.json"));
}

/// A layout in which nothing has its value at construction.
TableLayout everything()
{
    TableLayout layout = table_writer::layout();
    layout.description = QStringLiteral("all of it");
    layout.encoding = TableEncoding::Latin1;
    layout.match = {QStringLiteral("time"), QStringLiteral("lx")};
    layout.delimiter = ';';
    layout.decimalSign = ',';
    layout.header = TableHeader::Line;
    layout.headerLine = 3;
    layout.commentPrefix = QStringLiteral("#");
    layout.left.pupilHeight = TableColumn::numbered(7);
    layout.right.validity = TableColumn::numbered(9);
    layout.timeUnit = TableTimeUnit::Clock;
    layout.rateHz = 120.5;
    layout.missing = {QStringLiteral("-1"), QStringLiteral("lost")};
    layout.valid = {TableValidityRule::Kind::AtMost, {QStringLiteral("1")}, 0.25};
    layout.split = {TableColumn::named(QStringLiteral("who")), TableColumn::numbered(4)};
    layout.eye = {TableColumn::named(QStringLiteral("eye")), {QStringLiteral("0")}, {QStringLiteral("1")}};
    layout.set = {{QStringLiteral("group"), TableColumn::numbered(5)},
                  {QStringLiteral("subject"), TableColumn::named(QStringLiteral("who"))}};
    layout.place = {TablePlaceUnit::Degrees,
                    TableOrigin::Centre,
                    TableAxis::LeftOrUp,
                    TableAxis::LeftOrUp,
                    {1920, 1080},
                    {531, 299},
                    600.5};
    return layout;
}

NamedLayout named(const QString &name, const QStringList &match)
{
    NamedLayout layout{name, {}, {}};
    layout.layout.match = match;
    return layout;
}

} // namespace

class TestTableLayout : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void roundTrip_data();
    void roundTrip();
    void refused_data();
    void refused();
    void lacking_data();
    void lacking();
    void shippedOnesAreValid();
    void files();
    void foundByHeader();
};

void TestTableLayout::roundTrip_data()
{
    QTest::addColumn<TableLayout>("layout");
    QTest::newRow("the least") << table_writer::layout();
    QTest::newRow("everything") << everything();
    TableLayout log;
    log.kind = TableKind::EventLog;
    log.beginMessage = QStringLiteral("TRIALID");
    log.endMessage = QStringLiteral("TRIAL_RESULT");
    QTest::newRow("an event log") << log;
    TableLayout numbered;
    numbered.header = TableHeader::None;
    numbered.headerLine = 2;
    numbered.timeUnit = TableTimeUnit::Samples;
    numbered.rateHz = 60;
    numbered.delimiter = '&';
    numbered.right = {TableColumn::numbered(1), TableColumn::numbered(2), {}, {}, {}};
    QTest::newRow("without header") << numbered;
}

void TestTableLayout::roundTrip()
{
    QFETCH(TableLayout, layout);
    const QByteArray json = layoutJson(layout);
    const Read read = fromJson(json);
    if (const auto *problem = std::get_if<TableProblem>(&read))
        QFAIL(qPrintable(problem->text()));
    QVERIFY(std::get<TableLayout>(read) == layout);
    QCOMPARE(layoutJson(std::get<TableLayout>(read)), json);
}

void TestTableLayout::refused_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QString>("found");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *name, const QByteArray &json, const char *found, const char *expected) {
        QTest::newRow(name) << json << QString::fromLatin1(found) << QString::fromLatin1(expected);
    };
    const QByteArray good = layoutJson(table_writer::layout());
    const auto changed = [&](const QByteArray &from, const QByteArray &to) {
        QByteArray json = good;
        return json.replace(from, to);
    };
    row("nothing", "", "what is no JSON", "a layout");
    row("a list", "[]", "what is no JSON", "a layout");
    row("half a file", good.first(good.size() / 2), "what is no JSON", "a layout");
    row("no version", "{}", "null for the key \"version\"", "1, the version");
    row("a later version", changed("\"version\": 1", "\"version\": 2"), "2 for the key \"version\"", "1, the version");
    row("an unknown key", changed("\"version\": 1", "\"version\": 1, \"colour\": 3"), "the key \"colour\"",
        "only keys");
    row("an unknown key inside", changed("\"unit\": \"ms\"", "\"unit\": \"ms\", \"zone\": 1"), "the key \"time.zone\"",
        "only keys");
    row("an unknown unit", changed("\"unit\": \"ms\"", "\"unit\": \"min\""), "\"min\" for the key \"time.unit\"",
        "one of \"s\", \"ms\"");
    row("a number for a word", changed("\"comma\"", "7"), "7 for the key \"delimiter\"", "one of \"comma\"");
    row("a letter as delimiter", changed("\"comma\"", "\"x\""), "\"x\" for the key \"delimiter\"", "one of \"comma\"");
    row("a word for a list", changed("\"missing\": [", "\"match\": \"a\", \"missing\": ["),
        "\"a\" for the key \"match\"", "a list in brackets");
    row("a list for an object", changed("\"time\": {", "\"eye\": [], \"time\": {"), "[] for the key \"eye\"",
        "an object in braces");
    row("column 0", changed("\"lx\"", "0"), "0 for the key \"left.x\"", "the name of a column");
    row("half a column", changed("\"lx\"", "1.5"), "1.5 for the key \"left.x\"", "the name of a column");
    row("a screen of nothing", changed("1024,", "0,"), "[0,512] for the key \"place.screenPx\"", "[width, height]");
    row("two rules of validity", changed("\"codes\": [", "\"atLeast\": 0.5, \"codes\": ["), "", "only one of codes");
}

void TestTableLayout::refused()
{
    QFETCH(QByteArray, json);
    QFETCH(QString, found);
    QFETCH(QString, expected);
    const Read read = fromJson(json);
    const auto *problem = std::get_if<TableProblem>(&read);
    QVERIFY(problem);
    QVERIFY2(problem->found.startsWith(found), qPrintable(problem->text()));
    QVERIFY2(problem->expected.startsWith(expected), qPrintable(problem->text()));
    QCOMPARE(problem->file, QStringLiteral("a.layout.json"));
    QVERIFY(!problem->remedy.isEmpty());
}

void TestTableLayout::lacking_data()
{
    QTest::addColumn<TableLayout>("layout");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *name, const char *expected, const std::function<void(TableLayout &)> &change) {
        QTest::newRow(name) << table_writer::with(change) << QString::fromLatin1(expected);
    };
    row("gaze", "x and y", [](TableLayout &layout) { layout.left = layout.right = {}; });
    row("y", "both", [](TableLayout &layout) { layout.left.y = {}; });
    row("times", "time.column", [](TableLayout &layout) { layout.time = {}; });
    row("a rate", "time.rateHz", [](TableLayout &layout) { layout.timeUnit = TableTimeUnit::Samples; });
    row("the screen", "place.screenPx", [](TableLayout &layout) {
        layout.place = {};
        layout.place.unit = TablePlaceUnit::Normalised;
    });
    row("lengths", "place.screenMm", [](TableLayout &layout) { layout.place.unit = TablePlaceUnit::Millimetres; });
    row("the distance", "place.distanceMm", [](TableLayout &layout) {
        layout.place.unit = TablePlaceUnit::Degrees;
        layout.place.screenMm = {1, 1};
    });
    row("the middle", "\"origin\": \"centre\"", [](TableLayout &layout) {
        layout.place.unit = TablePlaceUnit::Degrees;
        layout.place.screenMm = {1, 1};
        layout.place.distanceMm = 600;
    });
    row("two different signs", "two different signs", [](TableLayout &layout) { layout.decimalSign = ','; });
    row("numbers of columns", "a number", [](TableLayout &layout) { layout.header = TableHeader::None; });
    row("a number that can be", "a number up to 10000",
        [](TableLayout &layout) { layout.left.x = TableColumn::numbered(10'001); });
}

void TestTableLayout::lacking()
{
    QFETCH(TableLayout, layout);
    QFETCH(QString, expected);
    const auto problem = layoutProblem(layout);
    QVERIFY(problem.has_value());
    QVERIFY2(problem->expected.startsWith(expected), qPrintable(problem->text()));
    QVERIFY(!problem->remedy.isEmpty());
}

void TestTableLayout::shippedOnesAreValid()
{
    const LayoutList ready = readyLayouts();
    QStringList problems;
    for (const TableProblem &problem : ready.problems)
        problems << problem.text();
    QCOMPARE(problems, QStringList());
    QVERIFY(ready.layouts.size() >= 20);
    for (const NamedLayout &each : ready.layouts) {
        QVERIFY2(!each.layout.description.isEmpty(), qPrintable(each.name));
        QVERIFY2(!layoutProblem(each.layout).has_value(), qPrintable(each.name));
        QCOMPARE(layoutByName(each.name, ready.layouts)->path, each.path);
        QVERIFY2(each.isReady(), qPrintable(each.path));
        if (each.layout.kind == TableKind::Delimited && !each.layout.match.isEmpty())
            QCOMPARE(findLayout(each.layout.match, ready.layouts)->name, each.name);
    }
}

void TestTableLayout::files()
{
    const ImportFiles files;
    const QString path = files.path(QStringLiteral("mine.layout.json"));
    QVERIFY(!writeLayoutFile(path, everything()).has_value());
    files.write(QStringLiteral("bad.layout.json"), "{\"version\": 9}");
    files.write(QStringLiteral("other.json"), "{}");
    const LayoutList list = layoutsIn(files.path(QString()));
    QCOMPARE(list.layouts.size(), 1);
    QCOMPARE(list.layouts[0].name, QStringLiteral("mine"));
    QVERIFY(!list.layouts[0].isReady());
    QVERIFY(list.layouts[0].layout == everything());
    QCOMPARE(list.problems.size(), 1);
    QVERIFY(list.problems[0].file.endsWith(QStringLiteral("bad.layout.json")));
    QVERIFY(writeLayoutFile(files.path(QStringLiteral("no/such/folder.layout.json")), everything()).has_value());
    QVERIFY(std::holds_alternative<TableProblem>(readLayoutFile(QStringLiteral("/nowhere/a.layout.json"))));
    QVERIFY(layoutsIn(QStringLiteral("/nowhere")).layouts.isEmpty());
}

void TestTableLayout::foundByHeader()
{
    const QStringList header{QStringLiteral("time"), QStringLiteral("x"), QStringLiteral("y"), QStringLiteral("z")};
    const QList<NamedLayout> layouts{named(QStringLiteral("none"), {}), named(QStringLiteral("two"), header.first(2)),
                                     named(QStringLiteral("three"), header.first(3)),
                                     named(QStringLiteral("also three"), header.sliced(1)),
                                     named(QStringLiteral("other"), {QStringLiteral("time"), QStringLiteral("w")})};
    QCOMPARE(findLayout(header, layouts)->name, QStringLiteral("also three"));
    QCOMPARE(findLayout(header.first(2), layouts)->name, QStringLiteral("two"));
    QVERIFY(!findLayout({QStringLiteral("x")}, layouts));
    QVERIFY(!findLayout({}, layouts));
    QVERIFY(!layoutByName(QStringLiteral("four"), layouts));
}

QTEST_GUILESS_MAIN(TestTableLayout)
#include "TestTableLayout.moc"
