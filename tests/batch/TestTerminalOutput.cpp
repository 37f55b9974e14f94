// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Progress.h"
#include "batch/RunJournal.h"
#include "batch/TerminalMessages.h"
#include "batch/TerminalProgress.h"

#include <QBuffer>
#include <QTest>

using namespace Qt::StringLiterals;

class TestTerminalOutput : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void messageLines_data();
    void messageLines();
    void messagesAreWrittenAndKept();
    void filesHaveTheNamesThatUsersKnow();
    void quietKeepsInformationSilent();
    void linesOfSeveralThreadsAreWhole();
    void bars_data();
    void bars();
    void progressOnAScreen();
    void progressOfEqualBarsIsDrawnOnce();
    void messageAboveTheBar();
    void noBarInAStream();

private:
    QString written() const { return QString::fromLocal8Bit(m_buffer.data()); }

    QBuffer m_buffer;
};

namespace {

QString erased(qsizetype width)
{
    return u'\r' + QString(width, u' ') + u'\r';
}

} // namespace

void TestTerminalOutput::init()
{
    m_buffer.close();
    m_buffer.setData(QByteArray());
    m_buffer.open(QIODevice::WriteOnly);
}

void TestTerminalOutput::messageLines_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("line");
    QTest::newRow("title and text") << "Error"
                                    << "No file"
                                    << "Error: No file";
    QTest::newRow("no title") << ""
                              << "No file"
                              << "No file";
    QTest::newRow("line breaks become blanks") << "R"
                                               << "left:\n 3\r\nright:\n 4"
                                               << "R: left:  3 right:  4";
    QTest::newRow("line breaks at the end are dropped") << "R"
                                                        << "3\n\r\n"
                                                        << "R: 3";
    QTest::newRow("blanks in paths stay") << "R"
                                          << "/a  b"
                                          << "R: /a  b";
    QTest::newRow("commands to the terminal are taken away") << "R"
                                                             << "x\x1b[2Jy\x07\x7f"
                                                             << "R: x?[2Jy??";
    QTest::newRow("letters beyond ASCII stay")
        << "R" << QStringLiteral("M\u00FCller 5\u00B0") << QStringLiteral("R: M\u00FCller 5\u00B0");
    QTest::newRow("nothing") << ""
                             << ""
                             << "";
}

void TestTerminalOutput::messageLines()
{
    QFETCH(QString, title);
    QFETCH(QString, text);
    QTEST(messageLine(title, text), "line");
}

void TestTerminalOutput::messagesAreWrittenAndKept()
{
    Terminal terminal(m_buffer, Terminal::Kind::Stream);
    MessageRecord record;
    auto before = messages::install(std::make_unique<TerminalMessages>(terminal, record, TerminalMessages::Show::All));
    messages::information(QStringLiteral("I"), QStringLiteral("1\n2"));
    messages::warning(QStringLiteral("W"), QStringLiteral("3"));
    messages::critical(QStringLiteral("C"), QStringLiteral("4"));
    messages::install(std::move(before));
    QCOMPARE(written(), QStringLiteral("I: 1 2\nW: 3\nC: 4\n"));
    const QList<ShownMessage> expected{
        {messages::Severity::Information, QStringLiteral("I"), QStringLiteral("1\n2")}, // as it was said
        {messages::Severity::Warning, QStringLiteral("W"), QStringLiteral("3")},
        {messages::Severity::Critical, QStringLiteral("C"), QStringLiteral("4")}};
    QVERIFY(record.take() == expected);
}

/// In messages, in the report and in the list of what was written.
void TestTerminalOutput::filesHaveTheNamesThatUsersKnow()
{
    Terminal terminal(m_buffer, Terminal::Kind::Stream);
    MessageRecord record([](const QString &text) { return QString(text).replace(u"link"_s, u"name"_s); });
    TerminalMessages(terminal, record, TerminalMessages::Show::All)
        .show(messages::Severity::Warning, u"link.data"_s, u"/a/link.data: odd"_s);
    RunJournal journal(record, terminal, RunJournal::Digests::Made);
    journal.addInputWithMessages(u"/a/link.data"_s, u"recording"_s, true, {});
    journal.keep(u"/a/link.png"_s);
    QCOMPARE(written(), u"name.data: /a/name.data: odd\n/a/name.png\n"_s);
    const BatchReport report = journal.report();
    QCOMPARE(report.inputs.constFirst().file.path, u"/a/name.data"_s);
    QCOMPARE(report.inputs.constFirst().messages.constFirst().text, u"/a/name.data: odd"_s);
    QCOMPARE(report.outputs.constFirst().path, u"/a/name.png"_s);
}

void TestTerminalOutput::quietKeepsInformationSilent()
{
    Terminal terminal(m_buffer, Terminal::Kind::Stream);
    MessageRecord record;
    TerminalMessages handler(terminal, record, TerminalMessages::Show::Problems);
    handler.show(messages::Severity::Information, QStringLiteral("I"), QStringLiteral("1"));
    handler.show(messages::Severity::Warning, QStringLiteral("W"), QStringLiteral("2"));
    handler.show(messages::Severity::Critical, QStringLiteral("C"), QStringLiteral("3"));
    QCOMPARE(written(), QStringLiteral("W: 2\nC: 3\n"));
    QCOMPARE(record.take().size(), 3);
}

void TestTerminalOutput::linesOfSeveralThreadsAreWhole()
{
    constexpr int threads = 4;
    constexpr int each = 200;
    Terminal terminal(m_buffer, Terminal::Kind::Screen);
    MessageRecord record;
    TerminalMessages handler(terminal, record, TerminalMessages::Show::All);
    std::vector<std::thread> workers;
    for (int i = 0; i < threads; ++i) {
        workers.emplace_back([&handler] {
            for (int k = 0; k < each; ++k)
                handler.show(messages::Severity::Warning, QStringLiteral("Title"), QStringLiteral("text"));
        });
    }
    for (std::thread &worker : workers)
        worker.join();
    QCOMPARE(written(), QStringLiteral("Title: text\n").repeated(threads * each));
}

void TestTerminalOutput::bars_data()
{
    QTest::addColumn<QString>("label");
    QTest::addColumn<int>("done");
    QTest::addColumn<int>("steps");
    QTest::addColumn<QString>("bar");
    QTest::newRow("nothing done") << "Work" << 0 << 4 << "Work [....................] 0%";
    QTest::newRow("a quarter") << "Work" << 1 << 4 << "Work [#####...............] 25%";
    QTest::newRow("a third is rounded down") << "Work" << 1 << 3 << "Work [######..............] 33%";
    QTest::newRow("all done") << "Work" << 4 << 4 << "Work [####################] 100%";
    QTest::newRow("more than all") << "Work" << 9 << 4 << "Work [####################] 100%";
    QTest::newRow("less than nothing") << "Work" << -1 << 4 << "Work [....................] 0%";
    QTest::newRow("no steps") << "Work" << 0 << 0 << "Work [####################] 100%";
    QTest::newRow("very many steps") << "Work" << 2000000000 << 2147483647 << "Work [##################..] 93%";
    QTest::newRow("a label of 50 characters is whole")
        << QString(50, u'x') << 0 << 1 << QString(50, u'x') + QStringLiteral(" [....................] 0%");
    QTest::newRow("a longer one is cut") << QString(51, u'x') << 1 << 1
                                         << QString(47, u'x') + QStringLiteral("... [####################] 100%");
}

void TestTerminalOutput::bars()
{
    QFETCH(QString, label);
    QFETCH(int, done);
    QFETCH(int, steps);
    QTEST(progressBar(label, done, steps), "bar");
    QVERIFY(progressBar(label, done, steps).size() < 80);
}

void TestTerminalOutput::progressOnAScreen()
{
    Terminal terminal(m_buffer, Terminal::Kind::Screen);
    auto before = Progress::install(std::make_unique<TerminalProgress>(terminal));
    {
        Progress progress(QStringLiteral("Work"), 2);
        QTest::qSleep(static_cast<int>(Progress::oneMovement.count()));
        progress.advance();
    }
    Progress::install(std::move(before));
    const QString none = QStringLiteral("Work [....................] 0%");
    const QString half = QStringLiteral("Work [##########..........] 50%");
    QCOMPARE(written(), none + erased(none.size()) + half + erased(half.size()));
}

void TestTerminalOutput::progressOfEqualBarsIsDrawnOnce()
{
    Terminal terminal(m_buffer, Terminal::Kind::Screen);
    TerminalProgress progress(terminal);
    progress.open(QStringLiteral("Work"), 1000000);
    const QString drawn = written();
    progress.show(1);
    progress.show(9999);
    QCOMPARE(written(), drawn);
    progress.show(10000);
    QVERIFY(written() != drawn);
}

void TestTerminalOutput::messageAboveTheBar()
{
    Terminal terminal(m_buffer, Terminal::Kind::Screen);
    terminal.setStatus(QStringLiteral("bar"));
    terminal.writeLine(QStringLiteral("message"));
    terminal.setStatus(QString());
    QCOMPARE(written(), QStringLiteral("bar") + erased(3) + QStringLiteral("message\nbar") + erased(3));
}

void TestTerminalOutput::noBarInAStream()
{
    Terminal terminal(m_buffer, Terminal::Kind::Stream);
    TerminalProgress progress(terminal);
    progress.open(QStringLiteral("Work"), 2);
    progress.show(1);
    terminal.writeLine(QStringLiteral("message"));
    progress.close();
    QCOMPARE(written(), QStringLiteral("message\n"));
}

QTEST_GUILESS_MAIN(TestTerminalOutput)
#include "TestTerminalOutput.moc"
