// SPDX-License-Identifier: GPL-3.0-or-later
#include "BatchRunTest.h"

#include <QTest>

class TestOutputChecks : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void outputsThatWouldDestroy_data();
    void outputsThatWouldDestroy();
};

void TestOutputChecks::outputsThatWouldDestroy_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("line");
    const auto row = [](const char *name, const char *options, const char *line) {
        QTest::newRow(name) << words(options) << QStringLiteral("vistrum-batch: ") + QString::fromUtf8(line);
    };
    row("a report over a recording", "--report study/../study/S01.data study/S01.data",
        "--report study/../study/S01.data: this run reads that file, as a recording; give another name");
    row("a report over a set file", "--report study/S01.set study/S01.data",
        "--report study/S01.set: this run reads that file, as a set file; give another name");
    row("a drawing over the picture of a recording", "--out tables --image ./study/bay.png study/S01.data",
        "--image ./study/bay.png: this run reads that file, as the picture of a recording; give another name");
    row("a chart over the background", "--chart saccades=study/bay.png --background study/bay.png study/S01.data",
        "--chart saccades=study/bay.png: this run reads that file, as the background; give another name");
    row("two drawings in one file", "--image a.png --image ./a.png study/S01.data",
        "--image ./a.png: --image a.png writes the same file; give another name");
    row("two outputs in one file", "--report a.json --generate-aois grid --aois-out a.json study/S01.data",
        "--report a.json: --aois-out a.json writes the same file; give another name");
}

void TestOutputChecks::outputsThatWouldDestroy()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, line);
    BatchProgram batch;
    const QByteArray recording = batch.contents(QStringLiteral("study/S01.data"));
    const BatchProgram::Outcome outcome = batch.run(arguments);
    QCOMPARE(outcome.errors.value(0), line);
    QCOMPARE(outcome.status, 2);
    QCOMPARE(outcome.written, QStringList());
    QVERIFY(batch.files().isEmpty());
    QCOMPARE(batch.contents(QStringLiteral("study/S01.data")), recording);
}

QTEST_GUILESS_MAIN(TestOutputChecks)
#include "TestOutputChecks.moc"
