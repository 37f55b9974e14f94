// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/BatchRunTest.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

QString study(const QString &name)
{
    return QStringLiteral(VISTRUM_SOURCE_DIR "/examples/bad-study/") + name;
}

QByteArray contentsOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
}

/// A command line of the page and the lines that are said to follow it.
struct Quote {
    QString command;
    QStringList told;
};

QList<Quote> quotes()
{
    QList<Quote> quotes;
    const QString indent(4, u' ');
    for (const QString &line : QString::fromUtf8(contentsOf(study(u"README.md"_s))).split(u'\n')) {
        if (line.startsWith(indent + u"$ "_s))
            quotes << Quote{line.sliced(indent.size() + 2), {}};
        else if (line.startsWith(indent) && !quotes.isEmpty())
            quotes.last().told << line.sliced(indent.size());
    }
    return quotes;
}

} // namespace

/// The study of bad files and the page about it.
class TestBadStudy : public BatchRunTest {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void filesAreThoseOfTheScript();
    void everyFileIsOnThePage();
    void pageQuotesWhatIsSaid_data();
    void pageQuotesWhatIsSaid();
    void faultsAreTold_data();
    void faultsAreTold();

private:
    static QStringList files()
    {
        return QDir(study({})).entryList({u"*.csv"_s, u"*.gz"_s, u"*.data"_s}, QDir::Files, QDir::Name);
    }
    Outcome runLine(const QString &line) const
    {
        QStringList arguments = line.split(u' ', Qt::SkipEmptyParts);
        const bool isBatch = arguments.takeFirst() == "vistrum-batch"_L1;
        return m_batch->run(isBatch ? QStringLiteral(VISTRUM_BATCH) : QStringLiteral(VISTRUM_IMPORT), arguments);
    }
};

void TestBadStudy::init()
{
    start();
    const QDir folder(study({}));
    for (const QString &name : folder.entryList(QDir::Files))
        m_batch->write(name, contentsOf(folder.filePath(name)));
}

void TestBadStudy::filesAreThoseOfTheScript()
{
    QDir(m_batch->path({})).mkpath(u"made"_s);
    QProcess python;
    python.start(u"python3"_s, {study(u"make_bad_study.py"_s), m_batch->path(u"made"_s)});
    QVERIFY(python.waitForFinished() && python.exitCode() == 0);
    QVERIFY(files().size() >= 16);
    for (const QString &name : files())
        QVERIFY2(m_batch->contents(u"made/"_s + name) == contentsOf(study(name)), qPrintable(name));
}

void TestBadStudy::everyFileIsOnThePage()
{
    QStringList commands;
    for (const Quote &quote : quotes())
        commands << quote.command;
    for (const QString &name : files())
        QVERIFY2(commands.join(u' ').contains(name), qPrintable(name));
}

void TestBadStudy::pageQuotesWhatIsSaid_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QStringList>("told");
    for (const Quote &quote : quotes())
        QTest::newRow(qPrintable(quote.command)) << quote.command << quote.told;
}

void TestBadStudy::pageQuotesWhatIsSaid()
{
    QFETCH(QString, command);
    QFETCH(QStringList, told);
    const Outcome outcome = runLine(command);
    QVERIFY(outcome.status == 0 || outcome.status == 1);
    QCOMPARE(outcome.errors.join(u'\n'), told.join(u'\n'));
    QVERIFY(!told.isEmpty());
}

/// What the script spoils, counted there, and where the program has to say so.
void TestBadStudy::faultsAreTold_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<int>("status");
    QTest::addColumn<QString>("told"); // a regular expression
    const auto row = [](const char *name, const char *command, int status, const char *told) {
        QTest::newRow(name) << QString::fromLatin1(command) << status << QString::fromLatin1(told);
    };
    row("decimal commas are read", "vistrum-import 01-decimal-commas.csv", 0, "read as a delimited table");
    row("three lines with letters in two fields",
        "vistrum-import --layout screen.layout.json 02-letters-among-digits.csv", 0, ": 6; the first is in line 42\\.");
    row("one equal time", "vistrum-import 03-odd-times.csv", 0, "\\b1\\b.*\\bline 102\\b");
    row("one time backwards", "vistrum-import 03-odd-times.csv", 0, "\\b1\\b.*\\bline 152\\b");
    row("a gap", "vistrum-import 03-odd-times.csv", 0, "\\b1\\b.*\\bline 202\\b");
    row("two subjects: the clock begins again", "vistrum-import 05-two-subjects.csv", 0, "\\b1\\b.*\\bline 127\\b");
    row("ten short lines", "vistrum-import 06-columns-change.csv", 0, "\\b10\\b.*\\bline 122\\b");
    row("no samples", "vistrum-import 09-words-read.csv", 1, "09-words-read\\.csv");
    row("a damaged file", "vistrum-import 10-cut-short.csv.gz", 1, "10-cut-short\\.csv\\.gz");
    row("fifty lines with eight commas", "vistrum-batch 12-decimal-commas.data", 0,
        "fields with a decimal comma, which count as 0: 400;.*line 203");
    row("250 decimal times", "vistrum-batch 13-decimal-times.data", 0,
        "times with decimals, which count as 0: 250;.*line 3\\b");
    row("one short line", "vistrum-batch 14-lost-lines.data", 0,
        "sample lines without eleven fields, left out: 1;.*line 13");
    row("one shifted line", "vistrum-batch 14-lost-lines.data", 0, "passed over: 1;.*line 23");
    row("250 Hz in microseconds are 250 samples in 996 seconds", "vistrum-batch 15-microseconds.data", 0,
        "250 samples in 996000 ms are no rate");
    row("no tabs", "vistrum-batch 16-semicolons.data", 1, "separated by \";\" instead of tabs");
}

void TestBadStudy::faultsAreTold()
{
    QFETCH(QString, command);
    QFETCH(int, status);
    QFETCH(QString, told);
    const Outcome outcome = runLine(command);
    QCOMPARE(outcome.status, status);
    const bool isTold = !outcome.errors.filter(QRegularExpression(told)).isEmpty();
    QVERIFY2(isTold, qPrintable(outcome.errors.join(u'\n')));
}

QTEST_GUILESS_MAIN(TestBadStudy)
#include "TestBadStudy.moc"
