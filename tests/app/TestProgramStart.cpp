// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/ProgramStart.h"
#include "base/Release.h"

#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

/// Options of the program: those that it answers at once, and those that it does not know.
class TestProgramStart : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void answersNeedNoDisplay_data();
    void answersNeedNoDisplay();
    void answersThatCannotBeWritten();
    void filesAreNoQuestions();
    void unknownOptionsAreRefused_data();
    void unknownOptionsAreRefused();
    void filesMayBeginWithADash();

private:
    struct Outcome {
        int status = -1; ///< -1 where the program did not start or crashed
        QString output;
        QString errors;
    };
    static Outcome run(const QStringList &arguments, const QString &platform, const QString &outputFile = {});
};

TestProgramStart::Outcome TestProgramStart::run(const QStringList &arguments, const QString &platform,
                                                const QString &outputFile)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char *unset : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        environment.remove(QLatin1StringView(unset));
    if (!platform.isEmpty())
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), platform);
    QProcess process;
    process.setProcessEnvironment(environment);
    if (!outputFile.isEmpty())
        process.setStandardOutputFile(outputFile);
    process.start(QStringLiteral(VISTRUM), arguments);
    if (!process.waitForFinished() || process.exitStatus() != QProcess::NormalExit)
        return {};
    return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
}

void TestProgramStart::answersNeedNoDisplay_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("begin");
    const QString help = QStringLiteral("vistrum [options] [FILE or FOLDER]...\n");
    const QString version = QStringLiteral("vistrum 0.2014\nrelease %1\n").arg(releaseText());
    QTest::newRow("--help") << QStringList{QStringLiteral("--help")} << help;
    QTest::newRow("-h") << QStringList{QStringLiteral("-h")} << help;
    QTest::newRow("beside a file") << QStringList{QStringLiteral("S01.data"), QStringLiteral("--help")} << help;
    QTest::newRow("--version") << QStringList{QStringLiteral("--version")} << version;
    QTest::newRow("-v") << QStringList{QStringLiteral("-v")} << version;
}

void TestProgramStart::answersNeedNoDisplay()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, begin);
    const Outcome outcome = run(arguments, {});
    QCOMPARE(outcome.status, 0);
    QVERIFY2(outcome.output.startsWith(begin), qPrintable(outcome.output));
    QCOMPARE(outcome.errors, QString());
}

void TestProgramStart::answersThatCannotBeWritten()
{
    QCOMPARE(run({QStringLiteral("--help")}, {}, QStringLiteral("/dev/full")).status, 1);
}

void TestProgramStart::filesAreNoQuestions()
{
    QVERIFY(!answerOfStart({}));
    QVERIFY(!answerOfStart({"S01.data", "help", "-help"}));
}

void TestProgramStart::unknownOptionsAreRefused_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("option");
    QTest::newRow("a word") << QStringList{QStringLiteral("--export")} << QStringLiteral("--export");
    QTest::newRow("a letter") << QStringList{QStringLiteral("-x")} << QStringLiteral("-x");
    QTest::newRow("behind a file, and one of the toolkit's")
        << QStringList{QStringLiteral("S01.data"), QStringLiteral("-style"), QStringLiteral("fusion"),
                       QStringLiteral("--quiet")}
        << QStringLiteral("--quiet");
}

void TestProgramStart::unknownOptionsAreRefused()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, option);
    const Outcome outcome = run(arguments, QStringLiteral("offscreen"));
    QCOMPARE(outcome.status, 2);
    QCOMPARE(outcome.output, QString());
    QVERIFY2(outcome.errors.endsWith(QStringLiteral("vistrum: unknown option %1\nTry vistrum --help.\n").arg(option)),
             qPrintable(outcome.errors));
}

void TestProgramStart::filesMayBeginWithADash()
{
    const QTemporaryDir folder;
    const QString before = QDir::currentPath();
    QVERIFY(QDir::setCurrent(folder.path()));
    QFile file(QStringLiteral("-x.data"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(unknownOption({QStringLiteral("S01.data"), QStringLiteral("-x.data")}), std::nullopt);
    QCOMPARE(unknownOption({QStringLiteral("-x.data"), QStringLiteral("-y.data")}), QStringLiteral("-y.data"));
    QDir::setCurrent(before);
}

QTEST_GUILESS_MAIN(TestProgramStart)
#include "TestProgramStart.moc"
