// SPDX-License-Identifier: GPL-3.0-or-later
#include "import/conversion/TableConversion.h"
#include "import/conversion/TableImport.h"
#include "import/ImportFiles.h"

#include <QTest>

using namespace Qt::StringLiterals;

class TestTableImport : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init() { m_files = std::make_unique<ImportFiles>(); }
    void recordingsWithoutSamplesAreNamed();
    void unreadableTableIsNamed();
    void logIsSplitAtOneMessage();
    void replacedRecordingIsTold();

private:
    QString table(const QByteArray &name) const
    {
        QByteArray text = "trial,time_ms,left_x_px,left_y_px\n";
        for (int i = 0; i < 200; ++i)
            text += name + ',' + QByteArray::number(4 * i) + ',' + QByteArray::number(300 + i % 40) + ",200\n";
        for (int i = 0; i < 50; ++i)
            text += "empty," + QByteArray::number(4 * i) + ",,\n";
        return m_files->write(u"p01.csv"_s, text);
    }
    static LayoutRequest request(const QStringList &split)
    {
        return std::get<LayoutRequest>(layoutRequest(u"auto"_s, split));
    }

    std::unique_ptr<ImportFiles> m_files;
};

void TestTableImport::recordingsWithoutSamplesAreNamed()
{
    const ImportedTable read = importTable(table("forest"), request({u"trial"_s}));
    QCOMPARE(read.recordings.size(), 1);
    QCOMPARE(read.messages.size(), 1);
    QCOMPARE(read.notRead.size(), 1);
    QVERIFY2(read.notRead[0].contains(u"empty"_s), qPrintable(read.notRead[0]));
}

void TestTableImport::unreadableTableIsNamed()
{
    const ImportedTable read = importTable(m_files->path(u"gone.csv"_s), request({}));
    QVERIFY(read.recordings.isEmpty());
    QCOMPARE(read.notRead, QStringList{u"gone"_s});
}

void TestTableImport::logIsSplitAtOneMessage()
{
    TableLayout log;
    log.kind = TableKind::EventLog;
    const auto choose = [&](const QStringList &split) {
        return chooseLayout(u"p01.asc"_s, {.layout = NamedLayout{u"log"_s, {}, log}, .known = {}, .split = split});
    };
    QCOMPARE(std::get<ChosenLayout>(choose({u"TRIALID"_s})).layout.beginMessage, u"TRIALID"_s);
    const auto refused = choose({u"TRIALID"_s, u"BLOCK"_s});
    QVERIFY(std::holds_alternative<TableProblem>(refused));
    const QString text = std::get<TableProblem>(refused).text();
    QVERIFY2(text.contains(u"p01.asc"_s) && text.contains(u"BLOCK"_s), qPrintable(text));
}

void TestTableImport::replacedRecordingIsTold()
{
    const QString path = table("forest");
    for (const bool isThere : {false, true}) {
        auto converted = readForConversion(path, request({}));
        UsedNames used;
        const WrittenRecording written =
            writeRecording(std::get<ConvertedTable>(converted), 0, path, m_files->path({}), used);
        QCOMPARE(written.problem, QString());
        QCOMPARE(written.notes.join(u'\n').contains(u"was there before"_s), isThere);
    }
}

QTEST_GUILESS_MAIN(TestTableImport)
#include "TestTableImport.moc"
