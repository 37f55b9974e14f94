// SPDX-License-Identifier: GPL-3.0-or-later
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>

/// The program itself, as a shell starts it.
class TestProgram : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void writesARecording();
    void namesThePictureFromTheRecordingsFolder();
    void sameSeedSameBytes();
    void help();
    void status_data();
    void status();
    void exampleStudyIsReproduced();
    void exampleStudyIsSmall();
};

namespace {

struct Outcome {
    int status = -1;
    QByteArray output;
    QByteArray errors;
};

Outcome run(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished() || process.exitStatus() != QProcess::NormalExit)
        return {};
    return {process.exitCode(), process.readAllStandardOutput(), process.readAllStandardError()};
}

Outcome simulator(const QStringList &arguments)
{
    return run(QStringLiteral(GAZE_SIMULATOR), arguments);
}

QByteArray contents(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
}

int greatestDifference(const QImage &a, const QImage &b)
{
    if (a.isNull() || a.size() != b.size())
        return 255;
    int greatest = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            const QRgb p = a.pixel(x, y);
            const QRgb q = b.pixel(x, y);
            greatest = std::max({greatest, std::abs(qRed(p) - qRed(q)), std::abs(qGreen(p) - qGreen(q)),
                                 std::abs(qBlue(p) - qBlue(q))});
        }
    }
    return greatest;
}

QString studyFolder()
{
    return QStringLiteral(VISTRUM_SOURCE_DIR "/examples/study");
}

} // namespace

void TestProgram::writesARecording()
{
    const QTemporaryDir folder;
    const QString name = folder.filePath(QStringLiteral("a"));
    const Outcome outcome = simulator({QStringLiteral("--duration"), QStringLiteral("4"), QStringLiteral("--loss-rate"),
                                       QStringLiteral("30"), QStringLiteral("--truth"), name});
    QCOMPARE(outcome.errors, QByteArray());
    QCOMPARE(outcome.status, 0);
    QList<QByteArray> lines = contents(name + QStringLiteral(".data")).split('\n');
    QCOMPARE(lines.size(), 1003); // two of header, 4 s of 250 Hz, the end of the last line
    QCOMPARE(lines.takeFirst(), QByteArray("StaticBinocular"));
    QVERIFY(lines.takeFirst().startsWith("time\tleft_x\t"));
    QCOMPARE(lines.takeLast(), QByteArray());
    QList<QByteArray> labels = contents(name + QStringLiteral(".labels.csv")).split('\n');
    QCOMPARE(labels.takeFirst(), QByteArray("sample,time,label"));
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const QList<QByteArray> fields = lines[i].split('\t');
        QCOMPARE(fields.size(), 11);
        const QList<QByteArray> label = labels[i].split(',');
        QCOMPARE(label.size(), 3);
        QCOMPARE(label[0].toLongLong(), i);
        QCOMPARE(label[1], fields[0]);
        QVERIFY(QByteArrayList({"1", "2", "5", "6"}).contains(label[2]));
        for (const int eye : {1, 6}) {
            if (fields[eye + 4] == "0")
                QCOMPARE(fields.mid(eye, 5), QByteArrayList(5, "0"));
            else
                QCOMPARE(fields[eye + 4], QByteArray("1"));
        }
    }
    QCOMPARE(contents(name + QStringLiteral(".set")),
             QByteArray("[subject]\nsubjectID=a\ndominant=right\ngroup=None\n"));
}

void TestProgram::namesThePictureFromTheRecordingsFolder()
{
    const QTemporaryDir folder;
    QVERIFY(QDir(folder.path()).mkdir(QStringLiteral("recordings")));
    const QString picture = folder.filePath(QStringLiteral("p.png"));
    const QString name = folder.filePath(QStringLiteral("recordings/a"));
    const Outcome outcome =
        simulator({QStringLiteral("--make-stimulus"), picture, QStringLiteral("--size"), QStringLiteral("320x200"),
                   QStringLiteral("--duration"), QStringLiteral("1"), name});
    QCOMPARE(outcome.status, 0);
    QVERIFY(contents(name + QStringLiteral(".set")).startsWith("picturename=p.png\npicturepath=../p.png\n[subject]\n"));
    QCOMPARE(QImage(picture).size(), QSize(320, 200));
}

void TestProgram::sameSeedSameBytes()
{
    const QTemporaryDir folder;
    const auto recorded = [&folder](const QString &seed, const QString &name) {
        const QString path = folder.filePath(name);
        simulator({QStringLiteral("--seed"), seed, path});
        return contents(path + QStringLiteral(".data"));
    };
    const QByteArray first = recorded(QStringLiteral("5"), QStringLiteral("a"));
    QVERIFY(first.size() > 100000);
    QVERIFY(first == recorded(QStringLiteral("5"), QStringLiteral("b")));
    QVERIFY(first != recorded(QStringLiteral("6"), QStringLiteral("c")));
}

void TestProgram::help()
{
    const Outcome outcome = simulator({QStringLiteral("--help")});
    QCOMPARE(outcome.status, 0);
    QVERIFY(outcome.output.contains("Examples:") && outcome.output.contains("--fixation-duration-mean"));
    QCOMPARE(outcome.errors, QByteArray());
}

void TestProgram::status_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("status");
    QTest::addColumn<QByteArray>("named");
    const auto row = [](const char *name, const QString &commandLine, int status, const QByteArray &named) {
        QTest::newRow(name) << commandLine.split(u' ', Qt::SkipEmptyParts) << status << named;
    };
    row("no arguments", {}, 2, "NAME");
    row("unknown option", QStringLiteral("--speed a"), 2, "speed");
    row("no such picture", QStringLiteral("--image missing.png a"), 1, "missing.png");
    row("no such folder", QStringLiteral("missing/a"), 1, "missing/a.data");
    row("no such folder for the picture", QStringLiteral("--make-stimulus missing/a.png"), 1, "missing/a.png");
    row("a picture name that a set file cannot hold", QStringLiteral("--image a=b.png a"), 2, "a=b.png");
    QTest::newRow("a text for a picture")
        << QStringList{QStringLiteral("--image"), QStringLiteral(__FILE__), QStringLiteral("a")} << 1
        << QByteArray("PNG or JPG");
}

void TestProgram::status()
{
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, named);
    const Outcome outcome = simulator(arguments);
    QTEST(outcome.status, "status");
    QVERIFY2(outcome.errors.startsWith("gaze-simulator: ") && outcome.errors.contains(named), outcome.errors);
}

void TestProgram::exampleStudyIsReproduced()
{
    const QString shell = QStandardPaths::findExecutable(QStringLiteral("sh"));
    if (shell.isEmpty())
        QSKIP("needs a POSIX shell");
    const QTemporaryDir folder;
    const Outcome outcome =
        run(shell, {studyFolder() + QStringLiteral("/make_study.sh"), QStringLiteral(GAZE_SIMULATOR), folder.path()});
    QCOMPARE(outcome.errors, QByteArray());
    QCOMPARE(outcome.status, 0);
    const QStringList kept = {QStringLiteral("*.data"), QStringLiteral("*.set"), QStringLiteral("*.csv")};
    const QStringList names = QDir(studyFolder()).entryList(kept, QDir::Files);
    QCOMPARE(names.size(), 18); // six people, three files each
    QCOMPARE(QDir(folder.path()).entryList(kept, QDir::Files), names);
    for (const QString &name : names)
        QVERIFY2(contents(folder.filePath(name)) == contents(studyFolder() + u'/' + name), qPrintable(name));
    // The picture is painted and packed by libraries: another version may pack otherwise or round a blend differently.
    const QString picture = QStringLiteral("/bay.png");
    QVERIFY(greatestDifference(QImage(folder.path() + picture), QImage(studyFolder() + picture)) <= 2);
}

void TestProgram::exampleStudyIsSmall()
{
    constexpr qint64 limitBytes = 2'000'000;
    qint64 bytes = 0;
    for (QDirIterator files(studyFolder(), QDir::Files, QDirIterator::Subdirectories); files.hasNext();)
        bytes += files.nextFileInfo().size();
    QVERIFY2(bytes > 0 && bytes < limitBytes, qPrintable(QString::number(bytes)));
}

QTEST_GUILESS_MAIN(TestProgram)
#include "TestProgram.moc"
