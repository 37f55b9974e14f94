// SPDX-License-Identifier: GPL-3.0-or-later
#include "recording/RunningProcess.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

class TestRunningProcess : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void thisProcess();
    void comesAndGoes();
    void tasklist_data();
    void tasklist();
};

void TestRunningProcess::thisProcess()
{
    QVERIFY(isProcessRunning(QFileInfo(QCoreApplication::applicationFilePath()).fileName()));
    QVERIFY(!isProcessRunning(QStringLiteral("no program of this name")));
    QVERIFY(!isProcessRunning(QString()));
}

void TestRunningProcess::comesAndGoes()
{
    const QString sleep = QStandardPaths::findExecutable(QStringLiteral("sleep"));
    QVERIFY(!sleep.isEmpty());
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("Some Tracker.exe"));
    QVERIFY(QFile::copy(sleep, path));
    QVERIFY(!isProcessRunning(QStringLiteral("Some Tracker.exe")));
    QProcess process;
    process.start(path, {QStringLiteral("600")});
    QVERIFY(process.waitForStarted());
    QVERIFY(isProcessRunning(QStringLiteral("Some Tracker.exe")));
    process.kill();
    QVERIFY(process.waitForFinished());
    QVERIFY(!isProcessRunning(QStringLiteral("Some Tracker.exe")));
}

void TestRunningProcess::tasklist_data()
{
    QTest::addColumn<QByteArray>("script");
    QTest::addColumn<bool>("isListed");
    const QByteArray arguments = "[ \"$*\" = '/NH /FO CSV /FI IMAGENAME eq EyeTribe.exe' ] || exit 1\n";
    QTest::newRow("listed") << arguments + "echo '\"EyeTribe.exe\",\"1234\",\"Console\"'\n" << true;
    QTest::newRow("a remark") << arguments + "echo 'INFO: No tasks are running.'\n" << false;
    QTest::newRow("another program") << arguments + "echo '\"Eye.exe\",\"1234\"'\n" << false;
    QTest::newRow("nothing") << arguments << false;
}

void TestRunningProcess::tasklist()
{
    QFETCH(QByteArray, script);
    const QTemporaryDir folder;
    QFile program(folder.filePath(QStringLiteral("tasklist")));
    QVERIFY(program.open(QIODevice::WriteOnly));
    program.write("#!/bin/sh\n" + script);
    program.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    program.close();
    QTEST(isListedByTasklist(QStringLiteral("EyeTribe.exe"), program.fileName()), "isListed");
}

QTEST_GUILESS_MAIN(TestRunningProcess)
#include "TestRunningProcess.moc"
