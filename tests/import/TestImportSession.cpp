// SPDX-License-Identifier: GPL-3.0-or-later
#include "import/conversion/ImportSession.h"
#include "import/ImportFiles.h"
#include "import/TableTexts.h"

#include <QDir>
#include <QTest>

using namespace Qt::StringLiterals;

class TestImportSession : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init() { m_files = std::make_unique<ImportFiles>(); }
    void goodTableIsReady();
    void changesAreSeenInThePreview();
    void equalLayoutsChangeTogether();
    void sureOfWhatTheUserSaid();
    void oneChoiceAnswersNoOtherQuestion();
    void savedSplitIsKept();
    void wrongTextIsRefused();
    void foldersHoldTables();
    void unreadableAndUselessFiles();
    void layoutIsFoundAgain();
    void columnsWithoutNames();
    void previewIsLimited();
    void slowReadingIsTold();
    void stimulusBesideTheTable();
    void severalRecordingsAreTold();
    void messagesOfALog();

private:
    QString write(const QString &name, const tabletexts::Form &form) const
    {
        return m_files->write(name, tabletexts::table(form));
    }
    static const LayoutField &field(const char *key) { return *layoutField(QLatin1StringView(key)); }

    std::unique_ptr<ImportFiles> m_files;
};

void TestImportSession::goodTableIsReady()
{
    ImportSession session({});
    session.add({write(u"p01.csv"_s, {})});
    QCOMPARE(session.tables().size(), 1);
    QVERIFY2(session.state(0).startsWith(u"ready"_s), qPrintable(session.state(0)));
    const TablePreview preview = session.preview(0);
    QCOMPARE(preview.problem, QString());
    QCOMPARE(preview.content.recordings.size(), 1);
    const TableRecording &recording = preview.content.recordings.constFirst();
    QCOMPARE(recording.samples.size(), 500);
    QCOMPARE(recording.facts.rateHz, 250.0);
    QCOMPARE(recording.samples.constFirst().timeMs, 1000.0);
    QCOMPARE(recording.samples.constFirst().left.y, 301.0); // 300 + cos 0
    QCOMPARE(preview.recordings,
             QStringList{u"p01: 500 samples, 250 Hz, 2.00 s, left eye valid in 100 %, right eye valid in 100 %"_s});
    QVERIFY(!preview.isPart);
    QCOMPARE(session.requests().size(), 1);
    const LayoutChoice *delimiter = session.choice(0, "delimiter"_L1);
    QVERIFY(delimiter && delimiter->certainty > LayoutGuess::certaintyLimit && !delimiter->reason.isEmpty());
}

void TestImportSession::changesAreSeenInThePreview()
{
    ImportSession session({});
    session.add({write(u"p01.csv"_s, {})});
    QVERIFY(session.change(0, field("time.unit"), u"us"_s));
    QCOMPARE(session.preview(0).content.recordings[0].facts.rateHz, 250'000.0);
    QVERIFY(!session.preview(0).oddities.isEmpty()); // no tracker is as fast
    QVERIFY(session.change(0, field("left.x"), QString()));
    QVERIFY(session.change(0, field("left.y"), QString()));
    QVERIFY(!session.preview(0).content.recordings[0].facts.hasLeft);
    QVERIFY(session.change(0, field("left.x"), u"nothing"_s));
    QVERIFY(session.change(0, field("left.y"), u"left_y_px"_s));
    QVERIFY2(session.preview(0).problem.contains(u"nothing"_s), qPrintable(session.preview(0).problem));
}

void TestImportSession::equalLayoutsChangeTogether()
{
    ImportSession session({});
    session.add({write(u"a.csv"_s, {}), write(u"b.csv"_s, {}), write(u"c.csv"_s, {.separator = ';', .decimal = ','})});
    QVERIFY(session.change(1, field("place.screenPx"), u"1280 x 1024"_s));
    QCOMPARE(session.tables()[0].layout.place.screenPx, QSizeF(1280, 1024));
    QCOMPARE(session.tables()[1].layout.place.screenPx, QSizeF(1280, 1024));
    QVERIFY(session.tables()[2].layout.place.screenPx != QSizeF(1280, 1024));
}

void TestImportSession::sureOfWhatTheUserSaid()
{
    ImportSession session({});
    session.add({write(u"p01.csv"_s, {})});
    QVERIFY(session.choice(0, "time.unit"_L1));
    QVERIFY(session.change(0, field("time.unit"), u"ms"_s));
    QVERIFY(!session.choice(0, "time.unit"_L1));
    QCOMPARE(session.state(0), u"ready"_s);
}

void TestImportSession::oneChoiceAnswersNoOtherQuestion()
{
    QByteArray bytes = "t,gaze_x,gaze_y\n"; // whose eye, and in which unit of time?
    for (int i = 0; i < 200; ++i)
        bytes += QByteArray::number(7 * i) + ',' + QByteArray::number(300 + i % 50) + ",200\n";
    ImportSession session({});
    session.add({m_files->write(u"p01.csv"_s, bytes)});
    const QStringList before = session.doubts(0);
    QVERIFY(!before.isEmpty());
    QVERIFY(session.change(0, field("place.screenPx"), u"1280 x 1024"_s));
    for (const QString &doubt : before)
        QVERIFY2(session.doubts(0).contains(doubt) || doubt.contains(u"place.screenPx"_s), qPrintable(doubt));
}

void TestImportSession::savedSplitIsKept()
{
    ImportSession first({});
    first.add({write(u"a.csv"_s, {.subjects = 2})});
    QVERIFY(first.change(0, field("split"), u"subject"_s));
    TableLayout layout = first.tables()[0].layout;
    layout.match = first.tables()[0].guess.header;
    ImportSession second({});
    second.remember({u"lab"_s, m_files->path(u"lab.layout.json"_s), layout});
    second.add({write(u"b.csv"_s, {.subjects = 3})});
    QCOMPARE(second.preview(0).content.recordings.size(), 3);
    ImportSession third({});
    third.remember({u"lab"_s, u":/layouts/lab.layout.json"_s, layout});
    third.add({write(u"c.csv"_s, {.subjects = 3})});
    QCOMPARE(third.preview(0).content.recordings.size(), 1);
}

void TestImportSession::wrongTextIsRefused()
{
    ImportSession session({});
    session.add({write(u"p01.csv"_s, {})});
    const TableLayout before = session.tables()[0].layout;
    QVERIFY(!session.change(0, field("place.screenPx"), u"wide"_s));
    QCOMPARE(session.tables()[0].layout, before);
    QVERIFY(!session.tables()[0].isSeen);
}

void TestImportSession::foldersHoldTables()
{
    write(u"b.csv"_s, {});
    write(u"a.txt"_s, {});
    m_files->writeRecording(u"own"_s);
    m_files->write(u"picture.png"_s, "x");
    ImportSession session({});
    session.add({m_files->path({})});
    QCOMPARE(session.tables().size(), 2);
    QCOMPARE(session.tables()[0].path, m_files->path(u"a.txt"_s));
    session.add({m_files->path(u"b.csv"_s)}); // is there
    QCOMPARE(session.tables().size(), 2);
}

void TestImportSession::unreadableAndUselessFiles()
{
    ImportSession session({});
    session.add({m_files->path(u"gone.csv"_s), m_files->write(u"words.csv"_s, "word,letters\nthe,3\nfox,3\n")});
    QCOMPARE(session.state(0), u"cannot be read"_s);
    QVERIFY(session.preview(0).problem.contains(u"gone.csv"_s));
    QVERIFY2(!session.state(1).startsWith(u"ready"_s), qPrintable(session.state(1)));
    QVERIFY(!session.preview(1).problem.isEmpty());
    QCOMPARE(session.requests().size(), 0);
    QCOMPARE(session.leftOut().size(), 2);
    QCOMPARE(session.leftOut()[1].file, m_files->path(u"words.csv"_s));
}

void TestImportSession::layoutIsFoundAgain()
{
    ImportSession first({});
    first.add({write(u"a.csv"_s, {})});
    QVERIFY(first.change(0, field("place.screenPx"), u"1280 x 1024"_s));
    TableLayout layout = first.tables()[0].layout;
    layout.match = first.tables()[0].guess.header;
    ImportSession second({NamedLayout{u"lab"_s, {}, layout}});
    second.add({write(u"b.csv"_s, {.samples = 700})});
    QCOMPARE(second.tables()[0].guess.layoutName, u"lab"_s);
    QCOMPARE(second.tables()[0].layout.place.screenPx, QSizeF(1280, 1024));
}

void TestImportSession::columnsWithoutNames()
{
    QByteArray text = tabletexts::table({});
    text.remove(0, text.indexOf('\n') + 1);
    ImportSession session({});
    session.add({m_files->write(u"p01.csv"_s, text)});
    QCOMPARE(session.tables()[0].layout.header, TableHeader::None);
    QCOMPARE(session.columns(0),
             (QStringList{u"column 1"_s, u"column 2"_s, u"column 3"_s, u"column 4"_s, u"column 5"_s}));
}

void TestImportSession::previewIsLimited()
{
    ImportSession session({});
    session.add({write(u"long.csv"_s, {.samples = 30'000})});
    const TablePreview preview = session.preview(0);
    QVERIFY(preview.isPart);
    QVERIFY(preview.recordings.value(0).startsWith(u"long: the first 2"_s));
    QVERIFY(preview.content.recordings[0].samples.size() < 30'000);
}

void TestImportSession::slowReadingIsTold()
{
    ImportSession session({});
    session.add({write(u"p01.csv"_s, {})});
    QCOMPARE(session.preview(0).note, QString());
    session.setLongestLook(0); // ends with the first piece
    const TablePreview preview = session.preview(0);
    QVERIFY2(preview.note.startsWith(u"Reading is slow"_s), qPrintable(preview.note));
    QVERIFY(preview.isPart);
    QVERIFY2(preview.recordings.value(0).startsWith(u"p01: the first "_s), qPrintable(preview.recordings.value(0)));
}

void TestImportSession::stimulusBesideTheTable()
{
    QByteArray text = tabletexts::table({});
    text.replace("\n", ",bay.png\n").replace("right_y_px,bay.png", "right_y_px,seen");
    const QString picture = m_files->write(u"bay.png"_s, "x");
    ImportSession session({});
    session.add({m_files->write(u"p01.csv"_s, text)});
    QVERIFY(session.change(0, field("set.stimulus"), u"seen"_s));
    QCOMPARE(session.preview(0).stimulus, picture);
}

void TestImportSession::severalRecordingsAreTold()
{
    ImportSession session({});
    session.add({write(u"all.csv"_s, {.subjects = 2})});
    QCOMPARE(session.preview(0).content.recordings.size(), 1);
    QVERIFY2(session.tables()[0].guess.doubts.join(u' ').contains(u"subject could separate recordings"_s),
             qPrintable(session.tables()[0].guess.doubts.join(u' ')));
    QVERIFY(session.change(0, field("split"), u"subject"_s));
    QCOMPARE(session.preview(0).content.recordings.size(), 2);
}

void TestImportSession::messagesOfALog()
{
    QByteArray log = "** CONVERTED FROM a log\nMSG\t90 DISPLAY_COORDS 0 0 1279 1023\n";
    for (int trial = 0; trial < 3; ++trial) {
        log += "START\t" + QByteArray::number(1000 * trial + 100) + " LEFT\tSAMPLES\tEVENTS\n";
        log += "SAMPLES\tGAZE\tLEFT\tRATE\t 500.00\tTRACKING\tCR\n";
        log += "MSG\t" + QByteArray::number(1000 * trial + 100) + " TRIALID " + QByteArray::number(trial) + '\n';
        for (int i = 0; i < 50; ++i)
            log += QByteArray::number(1000 * trial + 101 + 2 * i) + "\t 500.0\t 400.0\t 900.0\t...\n";
        log += "END\t" + QByteArray::number(1000 * trial + 220) + " SAMPLES\tEVENTS\n";
    }
    ImportSession session({});
    session.add({m_files->write(u"log.asc"_s, log)});
    QCOMPARE(session.tables()[0].layout.kind, TableKind::EventLog);
    QVERIFY(session.suggestions(0, field("messages.begin")).contains(u"TRIALID"_s));
    QCOMPARE(session.preview(0).content.recordings.size(), 1);
    QVERIFY(session.change(0, field("messages.begin"), u"TRIALID"_s));
    QCOMPARE(session.preview(0).content.recordings.size(), 3);
    QCOMPARE(session.preview(0).content.recordings[2].samples.size(), 50);
}

QTEST_GUILESS_MAIN(TestImportSession)
#include "TestImportSession.moc"
