// SPDX-License-Identifier: GPL-3.0-or-later
#include "BatchProgram.h"

#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

namespace {

using Outcome = BatchProgram::Outcome;

QStringList words(const QString &line)
{
    return line.split(u' ', Qt::SkipEmptyParts);
}

QStringList words(const char *line)
{
    return words(QString::fromUtf8(line));
}

QByteArray sampleLine(int timeMs)
{
    return QByteArray::number(timeMs) + "\t100\t200\t3\t3\t1\t110\t210\t3\t3\t1\n";
}

} // namespace

/// What the program says and leaves behind when something is wrong.
class TestBatchFailures : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init() { m_batch = std::make_unique<BatchProgram>(); }

    void refusedCalls_data();
    void refusedCalls();
    void wrongValuesInASettingsFile();
    void linesOfASettingsFileThatAreNone_data();
    void linesOfASettingsFileThatAreNone();
    void aPictureThatCannotBeDecoded();
    void aLargePictureIsTaken();
    void whatHasNoEffectIsTold_data();
    void whatHasNoEffectIsTold();
    void twoRecordingsOfOneName();
    void degreesWithoutAPicture();
    void unusableRecordingIsLeftOut_data();
    void unusableRecordingIsLeftOut();
    void withoutUsableRecordingThereIsNothingToWrite();
    void missingSetFileAndPictureAreTold();
    void linesOfWrongLengthAreTold();
    void areasOfInterest_data();
    void areasOfInterest();
    void areasOfOneNameInTwoFiles();
    void aTableThatCannotBeWritten();
    void picturesAndReportInAMissingFolder();
    void aListThatCannotBeWritten();
    void devicesAreNotReplaced();
    void aVideoThatCannotBeMadeTellsWhy_data();
    void aVideoThatCannotBeMadeTellsWhy();
    void withoutTemporaryFolderTheUsersStoreIsNotUsedInstead();

private:
    QJsonArray reportedInputs() const
    {
        const QByteArray report = m_batch->contents(QStringLiteral("report.json"));
        return QJsonDocument::fromJson(report)[QStringLiteral("inputs")].toArray();
    }

    std::unique_ptr<BatchProgram> m_batch;
};

void TestBatchFailures::refusedCalls_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("line"); // the first on the error channel
    const auto row = [](const char *name, const char *arguments, const char *line) {
        QTest::newRow(name) << words(arguments) << QStringLiteral("vistrum-batch: ") + QString::fromUtf8(line);
    };
    row("no recording", "--quiet", "no recording given");
    row("an option of nobody", "--setting a.ini study/S01.data", "unknown option --setting; did you mean --settings?");
    row("an option of the window toolkit", "-style fusion study/S01.data", "unknown option -style");
    row("a diagram as what it cannot be", "--diagram a.jpg study/S01.data",
        "--diagram a.jpg: the name does not end in .png, .svg or .html");
    row("a misspelt key", "--out tables --set Calculation/Fixation/Standard/MaximumRadios=40 study/S01.data",
        "--set Calculation/Fixation/Standard/MaximumRadios: no such key; did you mean "
        "Calculation/Fixation/Standard/MaximumRadius?");
    row("a key like no other", "--set xyz=1 study/S01.data", "--set xyz: no such key");
    row("a number with a decimal comma", "--set Calculation/Fixation/Standard/MaximumRadius=30,5 study/S01.data",
        "--set Calculation/Fixation/Standard/MaximumRadius=30,5: not a whole number from 10 to 1000");
    row("a radius below that of the panel", "--set Calculation/Fixation/Standard/MaximumRadius=-1 study/S01.data",
        "--set Calculation/Fixation/Standard/MaximumRadius=-1: not a whole number from 10 to 1000");
    row("a colour that is none", "--set Visualization/Fixation/FillColor=notacolor study/S01.data",
        "--set Visualization/Fixation/FillColor=notacolor: not an opaque color such as #ff8000");
    row("a settings file of which nothing applies", "--settings study/S01.set study/S01.data",
        "--settings study/S01.set: no line of it sets a key of this program; unknown are: picturename, picturepath, "
        "subjectID, dominant, group, expertise, age");
    row("the version as a setting", "--set Version=3 study/S01.data", "--set Version: no such key");
    row("an unknown value of drawings", "--draw percent=yes study/S01.data",
        "--draw percent=yes: percent is not one of gaussian-saccades, length-dependent, fixation-duration-dependent, "
        "cluster-percentage, percent-mode, transition-type, aoi-transition-type, aoi-time-window, aoi-global-widths; "
        "did you mean percent-mode?");
    row("a share beyond all", "--draw cluster-percentage=101 study/S01.data",
        "--draw cluster-percentage=101: not a number from 0 to 100");
    row("a time window below that of the panel", "--draw aoi-time-window=9 study/S01.data",
        "--draw aoi-time-window=9: not a number from 10 to 1000000000");
    row("a chart of nobody", "--chart saccade=a.png study/S01.data",
        "--chart saccade: not one of saccades, saccades-by-eye, saccades-and-fixations, fixations, fixations-by-eye, "
        "aoi-transitions, aoi-fixations, aoi-transitions-by-pair, aoi-fixation-shares; did you mean saccades?");
    row("a chart as what it cannot be", "--chart saccades=a.tiff study/S01.data",
        "--chart saccades=a.tiff: the name does not end in .png, .jpg, .svg or .csv");
    row("a chart without a name", "--chart saccades study/S01.data",
        "--chart saccades: the name does not end in .png, .jpg, .svg or .csv");
    row("a video as what it cannot be", "--video a.png study/S01.data",
        "--video a.png: the name does not end in .avi, .mp4 or .mkv");
    row("a scale beyond memory", "--image-scale 9 study/S01.data", "--image-scale 9: not a whole number from 1 to 8");
    row("no such part below a picture", "--append legend study/S01.data",
        "--append legend: not one of legends, parameters; did you mean legends?");
    row("no such settings file", "--out tables --settings missing.ini study/S01.data",
        "--settings missing.ini: it cannot be read: No such file or directory");
    row("a folder for settings", "--settings study study/S01.data",
        "--settings study: it cannot be read: file to open is a directory");
    row("no such background", "--out tables --background missing.png study/S01.data",
        "--background missing.png: no such file, or it cannot be read");
    row("a background that is no picture", "--out tables --background study/S01.set study/S01.data",
        "--background study/S01.set: not a picture");
    row("a file where the output folder should be", "--out study/S01.set --export events study/S01.data",
        "--out study/S01.set: the folder cannot be made: Not a directory");
    row("an output folder below a file", "--out study/S01.set/tables --export events study/S01.data",
        "--out study/S01.set/tables: the folder cannot be made: Not a directory");
    row("a unit for another detector", "--detector gaussian --velocity-unit percentile study/S01.data",
        "--velocity-unit: only with --detector velocity");
}

void TestBatchFailures::refusedCalls()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, line);
    const Outcome outcome = m_batch->run(arguments);
    QCOMPARE(outcome.errors.value(0), line);
    QCOMPARE(outcome.status, 2);
    QCOMPARE(outcome.written, QStringList());
    QVERIFY(m_batch->files().isEmpty());
    QVERIFY(!QFileInfo::exists(m_batch->path(QStringLiteral("tables"))));
}

void TestBatchFailures::wrongValuesInASettingsFile()
{
    m_batch->write(QStringLiteral("a.ini"), "Calculation/Fixation/Standard/MaximumRadius=30\n"
                                            "No/Such/Key=1\n"
                                            "Calculation/Fixation/Standard/Outlier=many\n");
    const Outcome refused = m_batch->run(words("--settings a.ini study/S01.data"));
    QCOMPARE(refused.status, 2);
    QCOMPARE(refused.errors, QStringList{QStringLiteral(
                                 "vistrum-batch: --settings a.ini, line 3: "
                                 "Calculation/Fixation/Standard/Outlier=many: not a whole number from 0 to 20")});
    m_batch->write(QStringLiteral("a.ini"), "No/Such/Key=1\nCalculation/Fixation/Standard/Outlier=2\n");
    const Outcome told = m_batch->run(words("--quiet --settings a.ini study/S01.data"));
    QCOMPARE(told.status, 0);
    QCOMPARE(told.errors, QStringList{QStringLiteral(
                              "Settings: a.ini: keys that this version does not have are passed over: No/Such/Key")});
}

/// Beside a line that holds.
void TestBatchFailures::linesOfASettingsFileThatAreNone_data()
{
    QTest::addColumn<QByteArray>("lines");
    QTest::addColumn<int>("status");
    QTest::addColumn<QStringList>("errors");
    const auto refused = [](const char *text) {
        return QStringList(QStringLiteral("vistrum-batch: --settings a.ini, ") + QLatin1StringView(text));
    };
    const auto told = [](const char *text) {
        return QStringList(
            QStringLiteral("Settings: a.ini: lines left out that are not a key, one \"=\" and a value: ") +
            QLatin1StringView(text));
    };
    QTest::newRow("two values") << QByteArray("Calculation/Fixation/Standard/MaximumRadius=30=5\n") << 2
                                << refused("line 2: Calculation/Fixation/Standard/MaximumRadius: not a key, one \"=\" "
                                           "and a value");
    QTest::newRow("a key alone") << QByteArray("\nCalculation/Fixation/Standard/MaximumRadius\n") << 2
                                 << refused("line 3: Calculation/Fixation/Standard/MaximumRadius: not a key, one "
                                            "\"=\" and a value");
    QTest::newRow("a blank in place of the sign")
        << QByteArray("Calculation/Fixation/Standard/MaximumRadius 30\n") << 0 << told("1; the first is line 2.");
    QTest::newRow("no key") << QByteArray("[Fixation]\n=5\nNo/Such/Key=1=2\n") << 0 << told("2; the first is line 3.");
    QTest::newRow("headers, empty lines and the end of lines elsewhere")
        << QByteArray("\r\n[Calculation]\r\n \t\r\nCalculation/Fixation/Standard/MaximumRadius=30\r\n") << 0
        << QStringList();
    QTest::newRow("a folder as the window saves it")
        << QByteArray("ImportModule/lastbasepath=/data/sub=1\n") << 0 << QStringList();
}

void TestBatchFailures::linesOfASettingsFileThatAreNone()
{
    QFETCH(QByteArray, lines);
    m_batch->write(QStringLiteral("a.ini"), "Calculation/Fixation/Standard/Outlier=2\n" + lines);
    const Outcome outcome = m_batch->run(words("--quiet --settings a.ini study/S01.data"));
    QTEST(outcome.errors, "errors");
    QTEST(outcome.status, "status");
}

/// The header of a picture is whole, the rest is missing.
void TestBatchFailures::aPictureThatCannotBeDecoded()
{
    m_batch->write(QStringLiteral("cut.png"), m_batch->contents(QStringLiteral("study/bay.png")).first(2000));
    const Outcome outcome =
        m_batch->run(words("--background cut.png --calculate fixations --export fixations study/S01.data"));
    QCOMPARE(outcome.status, 2);
    const QString beginning = QStringLiteral("vistrum-batch: --background cut.png: the picture cannot be decoded: ");
    const QString last = outcome.errors.value(outcome.errors.size() - 1); // before it the library's own line
    QVERIFY2(last.startsWith(beginning), qPrintable(last));
    QCOMPARE(m_batch->files().keys(), words("cut.png"));
}

/// It takes 324 MB in memory, more than the library reads unless it is told to.
void TestBatchFailures::aLargePictureIsTaken()
{
    constexpr int side = 9000;
    {
        QImage large(side, side, QImage::Format_RGB888);
        large.fill(Qt::white);
        QVERIFY(large.save(m_batch->path(QStringLiteral("large.jpg"))));
    }
    const Outcome outcome = m_batch->run(words("--quiet --background large.jpg --export fixations --calculate "
                                               "fixations --detector velocity --velocity-unit degree-per-s "
                                               "--report report.json study/S02.data"));
    QCOMPARE(outcome.errors, QStringList());
    QCOMPARE(outcome.status, 0);
    const QByteArray report = m_batch->contents(QStringLiteral("report.json"));
    const QJsonValue parameters = QJsonDocument::fromJson(report)[QStringLiteral("parameters")];
    QCOMPARE(parameters[QStringLiteral("Calculation/Fixation/Velocity/ImageSizePixel")].toString(),
             QString::number(side));
}

void TestBatchFailures::whatHasNoEffectIsTold_data()
{
    QTest::addColumn<QString>("options");
    QTest::addColumn<QStringList>("lines");
    const auto row = [](const char *name, const char *options, std::initializer_list<const char *> lines) {
        QStringList texts;
        for (const char *line : lines)
            texts << QStringLiteral("Options: ") + QString::fromUtf8(line);
        QTest::newRow(name) << QString::fromUtf8(options) << texts;
    };
    row("all of it has an effect", "--calculate fixations --export fixations study/S01.data", {});
    row("tables without their calculation", "--export fixations,clusters --calculate fixations study/S01.data",
        {"--export clusters: without --calculate clusters whatever rests on clusters is missing."});
    row("numbers of another method", "--calculate fixations,clusters --overlap-fixations 2 study/S01.data",
        {"--overlap-fixations, --overlap-outliers: only clusters of the overlap method, "
         "Calculation/Cluster/CalculationType=2, have them."});
    row("the overlap method without clusters",
        "--set Calculation/Cluster/CalculationType=2 --overlap-fixations 2 --overlap-outliers 2 study/S01.data",
        {"--overlap-fixations: without --calculate clusters or --calculate cumulative-clusters nothing uses it.",
         "--overlap-outliers: without --calculate cumulative-clusters nothing uses it."});
    row("a folder for nothing", "--out . study/S01.data", {});
    row("a detector that detects nothing", "--detector gaussian study/S01.data",
        {"--detector: without --calculate fixations or --recipe nothing uses it."});
    row("a time that no recording has", "--time 50000000:60000000 study/S01.data",
        {"--time 50000000:60000000: no recording is that long; the longest has 9996 ms."});
    row("saccade clusters that are not calculated", "--saccade-cluster mode=lines study/S01.data",
        {"--saccade-cluster: without --calculate saccade-clusters nothing uses it."});
    row("saccade clusters that come out nowhere", "--calculate fixations,saccade-clusters study/S01.data",
        {"--calculate saccade-clusters: only --image with --saccade-cluster mode=lines or mode=single-line shows "
         "them."});
    row("a recording twice", "study/S01.data study/../study/S01.data",
        {"study/../study/S01.data: the same recording as study/S01.data, it counts twice."});
}

void TestBatchFailures::whatHasNoEffectIsTold()
{
    QFETCH(QString, options);
    const Outcome outcome = m_batch->run(words("--quiet") + words(options));
    QCOMPARE(outcome.status, 0);
    QTEST(outcome.errors, "lines");
}

void TestBatchFailures::twoRecordingsOfOneName()
{
    QVERIFY(QDir(m_batch->path(QString())).mkpath(QStringLiteral("other")));
    m_batch->write(QStringLiteral("other/S01.data"), m_batch->contents(QStringLiteral("study/S02.data")));
    m_batch->write(QStringLiteral("other/S01.set"), m_batch->contents(QStringLiteral("study/S02.set")));
    const Outcome outcome = m_batch->run(words("--quiet study/S01.data other/S01.data"));
    QCOMPARE(outcome.errors.value(0), QStringLiteral("Options: other/S01.data: has the name of study/S01.data; tables "
                                                     "tell them apart by their order only."));
}

/// Degrees without a picture rest on an assumed width, which the report has.
void TestBatchFailures::degreesWithoutAPicture()
{
    const QStringList call = words("--quiet --calculate fixations --detector velocity --velocity-unit degree-per-s "
                                   "--report report.json study/S01.data");
    const auto width = [&] {
        const auto report = QJsonDocument::fromJson(m_batch->contents(QStringLiteral("report.json")));
        return report[QStringLiteral("parameters")][QStringLiteral("Calculation/Fixation/Velocity/ImageSizePixel")]
            .toString();
    };
    const Outcome without = m_batch->run(call);
    QCOMPARE(without.errors.value(0), QStringLiteral("Velocity: Degrees are reckoned with a picture that is 2560 px "
                                                     "wide; --background names the picture that was seen."));
    QCOMPARE(width(), QStringLiteral("2560"));
    QImage(640, 480, QImage::Format_RGB32).save(m_batch->path(QStringLiteral("small.png")));
    const Outcome with = m_batch->run(words("--background small.png") + call);
    QVERIFY(with.errors.filter(QStringLiteral("Degrees")).isEmpty());
    QCOMPARE(width(), QStringLiteral("640"));
}

void TestBatchFailures::unusableRecordingIsLeftOut_data()
{
    QTest::addColumn<QString>("bad");
    QTest::addColumn<QByteArray>("contents");
    QTest::addColumn<QString>("reason");
    const auto row = [](const char *name, const char *bad, const QByteArray &contents, const char *reason) {
        QTest::newRow(name) << QString::fromLatin1(bad) << contents << QString::fromLatin1(reason);
    };
    const char *noSampleLine = "it has no sample line, which would begin with a digit";
    row("no sample line", "study/bad.data", "no recording\n", noSampleLine);
    row("empty", "study/bad.data", "", "it is empty");
    row("no valid sample", "study/bad.data", "0\t0\t0\t0\t0\t0\t0\t0\t0\t0\t0\n4\t0\t0\t0\t0\t0\t0\t0\t0\t0\t0\n",
        "none of its 2 samples is valid");
    row("doubtful besides", "study/bad.data", "0\t0\n4\t0,5\n",
        "none of its 2 sample lines has eleven fields separated by tabs");
    row("a binary file", "study/bad.data", QByteArray("\xfd\xfd\xfd\xfd\0\x01\n\xff", 8), noSampleLine);
    row("a folder", "study", QByteArray(), "it is a folder");
    row("no such file", "missing.data", QByteArray(), "there is no such file");
#ifdef Q_OS_LINUX
    row("a file without an end", "/dev/zero", QByteArray(), "it is a device, which may have no end");
#endif
    row("a name that looks like a place for text", "study/%1%2%3.data", "no recording\n", noSampleLine);
}

void TestBatchFailures::unusableRecordingIsLeftOut()
{
    QFETCH(QString, bad);
    QFETCH(QByteArray, contents);
    QFETCH(QString, reason);
    const bool isWritten = bad.startsWith(QLatin1StringView("study/"));
    if (isWritten) {
        m_batch->write(bad, contents);
        m_batch->write(QString(bad).replace(QLatin1StringView(".data"), QLatin1StringView(".set")), "[subject]\n");
    }
    const QStringList tables = words("--quiet --calculate fixations --export fixations,events --image a.png");
    QCOMPARE(m_batch->run(tables + words("study/S01.data study/S02.data")).status, 0);
    const auto expected = m_batch->files();
    QCOMPARE(expected.size(), 5);
    m_batch->removeFiles();

    const QStringList recordings{QStringLiteral("study/S01.data"), bad, QStringLiteral("study/S02.data")};
    const Outcome outcome = m_batch->run(tables + words("--report report.json") + recordings);
    QCOMPARE(outcome.status, 1);
    const QString corrupt =
        QStringLiteral("The file: \n") + bad + QStringLiteral("\n is corrupt and has not been loaded!");
    QCOMPARE(outcome.errors.last(), QStringLiteral("IMPORT ERROR!: ") + QString(corrupt).replace(u'\n', u' ') +
                                        QStringLiteral(" Reason: ") + reason + u'.');
    QCOMPARE(outcome.written.size(), 6);
    auto files = m_batch->files();
    QVERIFY(files.remove(QStringLiteral("report.json")) == 1);
    QCOMPARE(files.keys(), expected.keys());
    for (auto file = files.cbegin(); file != files.cend(); ++file)
        QVERIFY2(file.value() == expected[file.key()], qPrintable(file.key()));

    for (const QJsonValue &input : reportedInputs()) {
        const bool isBad = input[QStringLiteral("path")].toString() == bad;
        const QJsonArray messages = input[QStringLiteral("messages")].toArray();
        QCOMPARE(input[QStringLiteral("used")].toBool(), !isBad);
        QCOMPARE(messages.isEmpty(), !isBad);
        if (isBad)
            QCOMPARE(messages.last()[QStringLiteral("text")].toString(),
                     corrupt + QStringLiteral("\nReason: ") + reason + u'.');
    }
}

void TestBatchFailures::withoutUsableRecordingThereIsNothingToWrite()
{
    const Outcome outcome = m_batch->run(words("--quiet --calculate fixations --export fixations,events --image a.png "
                                               "--report report.json missing.data"));
    QCOMPARE(outcome.status, 1);
    QCOMPARE(outcome.written, words("report.json"));
    QCOMPARE(reportedInputs().size(), 1);
    QCOMPARE(m_batch->files().keys(), words("report.json"));
}

void TestBatchFailures::missingSetFileAndPictureAreTold()
{
    m_batch->write(QStringLiteral("study/alone.data"), m_batch->contents(QStringLiteral("study/S01.data")));
    m_batch->write(QStringLiteral("study/blind.data"), m_batch->contents(QStringLiteral("study/S02.data")));
    m_batch->write(QStringLiteral("study/blind.set"), "picturename=gone.png\npicturepath=gone.png\n[subject]\n");
    const Outcome outcome = m_batch->run(words("--quiet --report report.json study/alone.data study/blind.data"));
    QCOMPARE(outcome.status, 0);
    QCOMPARE(outcome.errors,
             (QStringList{QStringLiteral("Error opening set file: No such file or directory study/alone.set"),
                          QStringLiteral("IMPORT ERROR!: The images:  study/gone.png  are missing and have not been "
                                         "loaded!")}));
    const QJsonArray inputs = reportedInputs();
    QCOMPARE(inputs.size(), 3);
    QCOMPARE(inputs[0][QStringLiteral("messages")].toArray().size(), 1);
    QCOMPARE(inputs[1][QStringLiteral("messages")].toArray().size(), 0);
    QCOMPARE(inputs[2][QStringLiteral("kind")].toString(), QStringLiteral("set file"));
}

void TestBatchFailures::linesOfWrongLengthAreTold()
{
    const QString name = QStringLiteral("study/%2.data"); // the name is not taken for a place in a text
    m_batch->write(name, "a header\n" + sampleLine(0) + "4\t100\t200\n\n" + sampleLine(8) + "12\n" + sampleLine(16));
    m_batch->write(QStringLiteral("study/%2.set"), "[subject]\n");
    const Outcome outcome = m_batch->run(words("--quiet --report report.json study/%2.data"));
    QCOMPARE(outcome.status, 0);
    QCOMPARE(outcome.errors,
             QStringList{QStringLiteral("Import: study/%2.data: sample lines without eleven fields, left out: 2; "
                                        "the first is line 3. Fields are separated by one tab each.")});
    const QJsonValue recording = reportedInputs()[0];
    QCOMPARE(recording[QStringLiteral("counts")][QStringLiteral("samples")].toInteger(), 3);
    QCOMPARE(recording[QStringLiteral("counts")][QStringLiteral("lines of wrong length")].toInteger(), 2);
    QCOMPARE(recording[QStringLiteral("messages")].toArray().size(), 1);
}

void TestBatchFailures::areasOfInterest_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("contents"); // none: there is no such file
    QTest::addColumn<QString>("warning");     // the last line on the error channel, behind name and path
    QTest::addColumn<int>("areas");
    QTest::addColumn<int>("status");
    const auto row = [](const char *name, const QByteArray &contents, const char *warning, int areas, int status) {
        QTest::newRow(name) << QStringLiteral("study/%1.aoi") << contents << QString::fromUtf8(warning) << areas
                            << status;
    };
    const QByteArray one = "AOI FILE\ntype=static\ncolor=1;2;3;4\nname=a\n1 2\n3 4\n";
    QTest::newRow("no such file") << "missing.aoi" << QByteArray() << "cannot be read: No such file or directory." << 0
                                  << 1;
    row("an empty file", "", "holds no area of interest.", 0, 1);
    row("no header", "type=static\n", "no area is read, since line 1 is not \"AOI FILE\".", 0, 1);
    row("reading stops", one + "name=b\n",
        "reading stopped at line 7; areas read before: 0. In each block, color= and name= stand before the first "
        "vertex.",
        0, 1);
    row("reading stops behind an area", one + "type=static\n5 6\ntype=static\n",
        "reading stopped at line 9; areas read before: 1. In each block, color= and name= stand before the first "
        "vertex.",
        1, 1);
    row("lines that are no vertex", one + "5  6\nx\n",
        "lines left out that are no vertex: 2; the first is line 7. A vertex is two whole numbers with one blank "
        "between "
        "them.",
        1, 0);
    row("an unfinished area", one + "type=static\nname=b\n",
        "areas left out that have no name or no vertices: 1. Each needs both.", 1, 0);
    row("two areas of one name", one + one.sliced(9),
        "areas that replace one of the same name: 1; the first is \"a\". Each area needs a name of its own.", 2, 0);
}

void TestBatchFailures::areasOfInterest()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, contents);
    QFETCH(QString, warning);
    QFETCH(int, areas);
    if (!contents.isNull())
        m_batch->write(name, contents);
    const Outcome outcome = m_batch->run(words("--quiet --export fixations --report report.json --aois") +
                                         QStringList{name} + words("study/S01.data"));
    QTEST(outcome.status, "status");
    QCOMPARE(outcome.written.size(), 3); // the rest goes on: a table for each eye, and the report
    QCOMPARE(outcome.errors.last(), QStringLiteral("Areas of interest: ") + name + QStringLiteral(": ") + warning);
    const QJsonValue input = reportedInputs().last();
    QCOMPARE(input[QStringLiteral("path")].toString(), name);
    QCOMPARE(input[QStringLiteral("used")].toBool(), areas > 0);
    QCOMPARE(input[QStringLiteral("counts")][QStringLiteral("areas")].toInt(), areas);
    QCOMPARE(input[QStringLiteral("messages")].toArray().last()[QStringLiteral("text")].toString(),
             name + QStringLiteral(": ") + warning);
}

void TestBatchFailures::areasOfOneNameInTwoFiles()
{
    const QByteArray longName(100, 'n');
    for (const QString &name : {QStringLiteral("1.aoi"), QStringLiteral("2.aoi")})
        m_batch->write(name, "AOI FILE\nname=" + longName + "\n1 2\n");
    const Outcome outcome = m_batch->run(words("--aois 1.aoi --aois 2.aoi study/S01.data"));
    QCOMPARE(outcome.status, 0);
    QCOMPARE(outcome.errors,
             QStringList{QStringLiteral("Areas of interest: 2.aoi: areas that replace one of the same name: 1; the "
                                        "first is \"%1...\". Each area needs a name of its own.")
                             .arg(QLatin1StringView(longName.first(40)))});
}

void TestBatchFailures::aTableThatCannotBeWritten()
{
    // A folder has the name of the table; permissions would not stop a superuser.
    QVERIFY(QDir(m_batch->path(QString())).mkpath(QStringLiteral("tables/vistrum_events_left.csv")));
    const Outcome outcome = m_batch->run(
        words("--quiet --out tables --calculate fixations --export fixations,events --image a.png study/S01.data"));
    QCOMPARE(outcome.status, 1);
    QCOMPARE(
        outcome.errors,
        QStringList{QStringLiteral(
            "Event Export: tables/vistrum_events_left.csv could not be written: it is not a regular file (the other "
            "file of this export is new)")});
    QCOMPARE(outcome.written,
             words("tables/vistrum_fixations__fixations_left.csv tables/vistrum_fixations__fixations_right.csv "
                   "tables/vistrum_events_right.csv a.png"));
}

void TestBatchFailures::picturesAndReportInAMissingFolder()
{
    const Outcome outcome = m_batch->run(
        words("--quiet --image no/a.png --image no/a.svg --image a.png --report no/report.json study/S01.data"));
    QCOMPARE(outcome.status, 1);
    QCOMPARE(outcome.errors.size(), 3);
    QVERIFY(outcome.errors[0].startsWith(QStringLiteral("Image: no/a.png could not be written: ")));
    QVERIFY(outcome.errors[1].startsWith(QStringLiteral("Image: no/a.svg could not be written: ")));
    QVERIFY(outcome.errors[2].startsWith(QStringLiteral("Report: no/report.json could not be written: ")));
    QCOMPARE(outcome.written, words("a.png"));
}

void TestBatchFailures::aListThatCannotBeWritten()
{
    const QStringList arguments = words("--quiet --calculate fixations --export fixations study/S01.data");
    QCOMPARE(m_batch->runWithFullOutput(arguments), 1);
    QCOMPARE(m_batch->files().size(), 2); // the tables are there all the same
    QCOMPARE(m_batch->runWithFullOutput(words("--version")), 1);
}

void TestBatchFailures::devicesAreNotReplaced()
{
    const Outcome outcome = m_batch->run(
        words("--quiet --report /dev/full --density no/d.tiff --calculate fixations --density-kind fixations "
              "study/S01.data"));
    QCOMPARE(outcome.status, 1);
    QCOMPARE(outcome.errors.size(), 2);
    QCOMPARE(outcome.errors[1], QStringLiteral("Report: /dev/full could not be written: it is not a regular file"));
    QVERIFY(!QFileInfo(QStringLiteral("/dev/full")).isFile());
}

void TestBatchFailures::aVideoThatCannotBeMadeTellsWhy_data()
{
    QTest::addColumn<bool>("moved"); // the program, away from its library
    QTest::addColumn<QString>("error");
    QTest::newRow("a step that is too long")
        << false
        << QStringLiteral("Video: Timespan is too short!!! a.avi could not be written: the time is shorter than that "
                          "of one image");
    QTest::newRow("no library of encoders")
        << true
        << QStringLiteral("Video: Can't create video!!! a.avi could not be written: libvistrum_video.so, which has "
                          "the encoders, is missing or cannot be loaded");
}

void TestBatchFailures::aVideoThatCannotBeMadeTellsWhy()
{
    QFETCH(bool, moved);
    QString program = QStringLiteral(VISTRUM_BATCH);
    if (moved) {
        program = m_batch->path(QStringLiteral("vistrum-batch"));
        QVERIFY(QFile::copy(QStringLiteral(VISTRUM_BATCH), program));
    }
    const Outcome outcome = m_batch->run(program, words("--quiet --video a.avi --video-step 999999 study/S01.data"));
    QCOMPARE(outcome.status, 1);
    QTEST(outcome.errors.value(0), "error");
    QCOMPARE(outcome.errors.size(), 1);
}

void TestBatchFailures::withoutTemporaryFolderTheUsersStoreIsNotUsedInstead()
{
    // a file is no folder, not even for a superuser
    m_batch->setVariable(QStringLiteral("TMPDIR"), m_batch->path(QStringLiteral("study/S01.data")));
    const Outcome outcome = m_batch->run(words("--export fixations study/S01.data"));
    QCOMPARE(outcome.status, 1);
    QCOMPARE(outcome.errors.size(), 1);
    QVERIFY(outcome.errors[0].startsWith(
        QStringLiteral("vistrum-batch: no temporary folder for the settings of the run: ")));
    QVERIFY(m_batch->files().isEmpty());
    QVERIFY(BatchProgram::filesIn(m_batch->configurationFolder()).isEmpty());
}

QTEST_GUILESS_MAIN(TestBatchFailures)
#include "TestBatchFailures.moc"
