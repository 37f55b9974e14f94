// SPDX-License-Identifier: GPL-3.0-or-later
#include "convert/ConvertOptions.h"

#include <QTest>

class TestConvertOptions : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void accepted();
    void refused_data();
    void refused();
    void helpNamesEveryOptionAndLayout();
    void reportStatesTheLayout();
};

void TestConvertOptions::accepted()
{
    const auto parsed = parseConvertOptions({QStringLiteral("--layout=mine.layout.json"), QStringLiteral("a.csv"),
                                             QStringLiteral("--split"), QStringLiteral("subject"),
                                             QStringLiteral("--split"), QStringLiteral("trial"),
                                             QStringLiteral("--out"), QStringLiteral("made"), QStringLiteral("--jobs"),
                                             QStringLiteral("3"), QStringLiteral("--"), QStringLiteral("-b.csv")});
    const auto *options = std::get_if<ConvertOptions>(&parsed);
    QVERIFY(options);
    ConvertOptions expected;
    expected.layout = QStringLiteral("mine.layout.json");
    expected.tables = QStringList{QStringLiteral("a.csv"), QStringLiteral("-b.csv")};
    expected.split = QStringList{QStringLiteral("subject"), QStringLiteral("trial")};
    expected.outputFolder = QStringLiteral("made");
    expected.jobs = 3;
    QCOMPARE(*options, expected);
    const auto bare = parseConvertOptions({QStringLiteral("a.csv")});
    QCOMPARE(std::get<ConvertOptions>(bare).layout, QStringLiteral("auto"));
    QCOMPARE(std::get<ConvertOptions>(bare).outputFolder, QStringLiteral("."));
}

void TestConvertOptions::refused_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("reason");
    const auto row = [](const char *name, const char *line, const char *reason) {
        QTest::newRow(name) << QString::fromLatin1(line) << QString::fromLatin1(reason);
    };
    row("nothing", "", "no table given");
    row("only options", "--quiet", "no table given");
    row("a slip of the pen", "--layuot auto a.csv", "unknown option --layuot; did you mean --layout?");
    row("no value", "a.csv --out", "--out: needs a value, DIR");
    row("no threads", "--jobs 0 a.csv", "--jobs 0: not a whole number from 1 on");
    row("two folders", "--out a --out b a.csv", "--out: given twice");
    row("an option of the other program", "--calculate fixations a.csv", "unknown option --calculate");
}

void TestConvertOptions::refused()
{
    QFETCH(QString, line);
    QFETCH(QString, reason);
    const auto parsed = parseConvertOptions(line.split(u' ', Qt::SkipEmptyParts));
    const auto *error = std::get_if<UsageError>(&parsed);
    QVERIFY(error);
    QCOMPARE(error->text, reason);
}

void TestConvertOptions::helpNamesEveryOptionAndLayout()
{
    const QString help = convertHelp();
    for (const char *option : {"--layout", "--split", "--out", "--report", "--jobs", "--quiet", "--help", "--version"})
        QVERIFY2(help.contains(QStringLiteral("\n  ") + QLatin1StringView(option) + u' '), option);
    for (const QString &line : help.split(u'\n'))
        QVERIFY2(line.size() <= 100, qPrintable(line));
}

void TestConvertOptions::reportStatesTheLayout()
{
    ConvertOptions options;
    options.tables = QStringList{QStringLiteral("a.csv")};
    const QString layout = QStringLiteral("layout");
    QCOMPARE(reportedOptions(options), (QMap<QString, QString>{{layout, QStringLiteral("auto")}}));
    options.split = QStringList{QStringLiteral("trial")};
    QCOMPARE(reportedOptions(options)[QStringLiteral("split")], QStringLiteral("trial"));
}

QTEST_GUILESS_MAIN(TestConvertOptions)
#include "TestConvertOptions.moc"
