// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/OutsideProgram.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using End = OutsideResult::End;

namespace {

bool always()
{
    return true;
}

} // namespace

class TestOutsideProgram : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init() { m_folder = std::make_unique<QTemporaryDir>(); }

    void argumentsArriveAsTheyAre();
    void outputIntoAFile();
    void anError();
    void aCrash();
    void cannotStart_data();
    void cannotStart();
    void tooLate();
    void cancelledItGoesOn();
    void longOutputIsCut();
    void programWithAndWithoutEnding();

private:
    QString path(const QString &name) const { return m_folder->filePath(name); }
    /// A program made of shell lines.
    QString script(const QByteArray &lines, const QString &name = QStringLiteral("program")) const
    {
        QFile file(path(name));
        if (!file.open(QIODevice::WriteOnly) || file.write("#!/bin/sh\n" + lines) < 0)
            qFatal("cannot write");
        file.close();
        file.setPermissions(file.permissions() | QFile::ExeOwner);
        return file.fileName();
    }
    QByteArray contents(const QString &name) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    std::unique_ptr<QTemporaryDir> m_folder;
};

void TestOutsideProgram::argumentsArriveAsTheyAre()
{
    const QStringList arguments{QStringLiteral("two words"),  QStringLiteral("\"quoted\" 'so'"),
                                QStringLiteral("$HOME `id`"), QStringLiteral("äöü.txt"),
                                QStringLiteral("a;b|c>d"),    QString()};
    const OutsideResult result =
        runOutside({.program = script("for a in \"$@\"; do echo \"[$a]\"; done\n"), .arguments = arguments}, always);
    QCOMPARE(result.end, End::Done);
    QCOMPARE(result.output, QStringLiteral("[two words]\n[\"quoted\" 'so']\n[$HOME `id`]\n[äöü.txt]\n[a;b|c>d]\n[]"));
}

void TestOutsideProgram::outputIntoAFile()
{
    const OutsideResult result = runOutside({.program = script("echo result; echo remark >&2\n"),
                                             .arguments = {},
                                             .outputFile = path(QStringLiteral("out.txt"))},
                                            always);
    QCOMPARE(result.end, End::Done);
    QCOMPARE(contents(QStringLiteral("out.txt")), QByteArray("result\n"));
    QCOMPARE(result.output, QStringLiteral("remark"));
}

void TestOutsideProgram::anError()
{
    const OutsideResult result =
        runOutside({.program = script("echo one; echo two >&2; exit 3\n"), .arguments = {}}, always);
    QCOMPARE(result.end, End::Failed);
    QCOMPARE(result.reason, QStringLiteral("it ended with the error 3"));
    QCOMPARE(result.output, QStringLiteral("one\ntwo"));
}

void TestOutsideProgram::aCrash()
{
    const OutsideResult result = runOutside({.program = script("kill -9 $$\n"), .arguments = {}}, always);
    QCOMPARE(result.end, End::Failed);
    QCOMPARE(result.reason, QStringLiteral("it crashed"));
}

void TestOutsideProgram::cannotStart_data()
{
    QTest::addColumn<QString>("program");
    QTest::newRow("it is not there") << QStringLiteral("/no/such program");
    QTest::newRow("a folder") << QDir::tempPath();
}

void TestOutsideProgram::cannotStart()
{
    QFETCH(QString, program);
    const OutsideResult result = runOutside({.program = program, .arguments = {}}, always);
    QCOMPARE(result.end, End::NotStarted);
    QVERIFY(!result.reason.isEmpty());
}

void TestOutsideProgram::tooLate()
{
    QElapsedTimer time;
    time.start();
    const OutsideResult result = runOutside(
        {.program = script("sleep 1; touch \"$1\"\n"), .arguments = {path(QStringLiteral("end"))}, .endTimeoutMs = 100},
        always);
    QCOMPARE(result.end, End::TimedOut);
    QVERIFY(time.elapsed() < 900);
    QTRY_VERIFY(QFile::exists(path(QStringLiteral("end")))); // it was not killed
}

void TestOutsideProgram::cancelledItGoesOn()
{
    int asked = 0;
    const OutsideResult result =
        runOutside({.program = script("sleep 0.5; touch \"$1\"\n"), .arguments = {path(QStringLiteral("end"))}},
                   [&] { return ++asked < 3; });
    QCOMPARE(result.end, End::Cancelled);
    QCOMPARE(asked, 3);
    QVERIFY(!QFile::exists(path(QStringLiteral("end"))));
    QTRY_VERIFY(QFile::exists(path(QStringLiteral("end"))));
    QTest::qWait(100); // it takes itself away
}

void TestOutsideProgram::longOutputIsCut()
{
    const OutsideResult result =
        runOutside({.program = script("i=0; while [ $i -lt 20000 ]; do echo line $i; i=$((i+1)); done; exit 1\n"),
                    .arguments = {}},
                   always);
    QVERIFY(result.output.size() <= 64 * 1024);
    QVERIFY(result.output.endsWith(QStringLiteral("line 19999")));
}

void TestOutsideProgram::programWithAndWithoutEnding()
{
    const QString folder = m_folder->path();
    QCOMPARE(programIn(folder, QStringLiteral("p")), path(QStringLiteral("p.exe"))); // neither is there
    script("\n", QStringLiteral("p.exe"));
    QCOMPARE(programIn(folder, QStringLiteral("p")), path(QStringLiteral("p.exe")));
    script("\n", QStringLiteral("p"));
    QCOMPARE(programIn(folder, QStringLiteral("p")), path(QStringLiteral("p")));
}

QTEST_GUILESS_MAIN(TestOutsideProgram)
#include "TestOutsideProgram.moc"
