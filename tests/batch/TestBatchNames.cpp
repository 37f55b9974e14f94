// SPDX-License-Identifier: GPL-3.0-or-later
#include "BatchRunTest.h"

#include <QCryptographicHash>
#include <QJsonArray>

/// Recordings that come through a pipe, or under names that are no valid texts.
class TestBatchNames : public BatchRunTest {
    Q_OBJECT
private Q_SLOTS:
    void init() { start(); }
    void aPipeIsReportedAsItWasRead();
    void aLatinNameIsRead();

private:
    /// What the shell's command writes, if it ends well.
    bool runInShell(const char *command) const
    {
        m_batch->setVariable(QStringLiteral("BATCH"), QStringLiteral(VISTRUM_BATCH));
        const Outcome outcome =
            m_batch->run(QStringLiteral("/bin/sh"), {QStringLiteral("-c"), QString::fromUtf8(command)});
        if (outcome.status != 0)
            qWarning("exit code %d: %s", outcome.status, qPrintable(outcome.errors.join(u'\n')));
        return outcome.status == 0;
    }
};

void TestBatchNames::aPipeIsReportedAsItWasRead()
{
    QVERIFY(runInShell("mkfifo p.data && cp study/S01.set p.set && (cat study/S01.data > p.data &) &&"
                       "\"$BATCH\" --quiet --calculate fixations --report report.json p.data"));
    const QByteArray recording = m_batch->contents(QStringLiteral("study/S01.data"));
    const QJsonObject input = report()[QStringLiteral("inputs")].toArray().first().toObject();
    QCOMPARE(input[QStringLiteral("path")].toString(), QStringLiteral("p.data"));
    QCOMPARE(input[QStringLiteral("bytes")].toInteger(), recording.size());
    QCOMPARE(input[QStringLiteral("sha256")].toString().toLatin1(),
             QCryptographicHash::hash(recording, QCryptographicHash::Sha256).toHex());
}

/// The same tables as under another name, but for the name.
void TestBatchNames::aLatinNameIsRead()
{
    QVERIFY(runInShell("name=$(printf '\\374') && cp study/S01.data \"$name.data\" && cp study/S01.set \"$name.set\" &&"
                       "cp study/S01.data u.data && cp study/S01.set u.set && cp study/bay.png . &&"
                       "\"$BATCH\" --quiet --calculate fixations --export fixations --out latin \"$name.data\" &&"
                       "\"$BATCH\" --quiet --calculate fixations --export fixations --out plain u.data &&"
                       "rm \"$name.data\" \"$name.set\""));
    const QMap<QString, QByteArray> latin = BatchProgram::filesIn(m_batch->path(QStringLiteral("latin")));
    QVERIFY(!latin.isEmpty());
    QCOMPARE(latin, BatchProgram::filesIn(m_batch->path(QStringLiteral("plain"))));
}

QTEST_GUILESS_MAIN(TestBatchNames)
#include "TestBatchNames.moc"
