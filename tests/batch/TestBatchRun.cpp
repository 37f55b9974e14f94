#include "BatchProgram.h"
#include "settings/FirstStart.h"
#include "settings/Registry.h"
#include "TestSettings.h"

#include <QCryptographicHash>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStringDecoder>
#include <QTest>

#include <algorithm>

namespace {

using Outcome = BatchProgram::Outcome;

const QString fixationsLeft = QStringLiteral("./vistrum_fixations__fixations_left.csv");
const QString fixationsRight = QStringLiteral("./vistrum_fixations__fixations_right.csv");
const QString eventsLeft = QStringLiteral("./vistrum_events_left.csv");
const QString eventsRight = QStringLiteral("./vistrum_events_right.csv");

QStringList words(const char *line)
{
    return QString::fromUtf8(line).split(u' ', Qt::SkipEmptyParts);
}

/// Fixations of the whole study, their tables and whatever else is asked for.
QStringList tablesOfTheStudy(const QStringList &further = {})
{
    return words("--quiet --calculate fixations --export fixations,events") + further + BatchProgram::study();
}

QString sha256(const QByteArray &bytes)
{
    return QString::fromLatin1(QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex());
}

/// Recordings hold time in ms in the first field of each line that begins with a digit.
qint64 durationMs(const QByteArray &recording)
{
    QList<QByteArray> lines = recording.split('\n');
    lines.removeIf([](const QByteArray &line) { return line.isEmpty() || line[0] < '0' || line[0] > '9'; });
    const auto timeOf = [](const QByteArray &line) { return line.split('\t').constFirst().toLongLong(); };
    return timeOf(lines.constLast()) - timeOf(lines.constFirst());
}

} // namespace

/// What the program writes when all goes well.
class TestBatchRun : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init() { m_batch = std::make_unique<BatchProgram>(); }

    void listsExactlyTheFilesWritten();
    void picturesShowTheBackgroundAndTheData();
    void sameBytes_data();
    void sameBytes();
    void eyes_data();
    void eyes();
    void dominantEyeIsThatOfTheSubject_data();
    void dominantEyeIsThatOfTheSubject();
    void timeFrame();
    void aParameterChangesTheResults();
    void savedSettingsAreHonoured();
    void laterSettingsWin();
    void aDetectorThatIsNotUsedDoesNotMatter();
    void aDetectorThatIsNotRecognisedIsTold();
    void detectorsAndUnitsGiveResultsOfTheirOwn();
    void widthOfTheBackground_data();
    void widthOfTheBackground();
    void doubtfulParametersAreTold();
    void theUsersStoreIsNotTouched();
    void reportNamesWhatTheResultsRestOn();
    void densityIsWrittenAndExplained();
    void densityOfNothingFails();
    void areasOfInterestAreReported();
    void sameRecordingTwice();
    void clusters_data();
    void clusters();
    void overlapNumbers();
    void saccadeClusters();
    void messagesWithoutQuiet();
    void help();
    void version();

private:
    QMap<QString, QByteArray> filesOf(const QStringList &arguments) const;
    QJsonObject report() const
    {
        return QJsonDocument::fromJson(m_batch->contents(QStringLiteral("report.json"))).object();
    }

    std::unique_ptr<BatchProgram> m_batch;
};

/// The files that a run without fault leaves in an empty working folder.
QMap<QString, QByteArray> TestBatchRun::filesOf(const QStringList &arguments) const
{
    m_batch->removeFiles();
    const Outcome outcome = m_batch->run(arguments);
    if (outcome.status != 0)
        qWarning("exit code %d: %s", outcome.status, qPrintable(outcome.errors.join(u'\n')));
    return outcome.status == 0 ? m_batch->files() : QMap<QString, QByteArray>();
}

void TestBatchRun::listsExactlyTheFilesWritten()
{
    const Outcome outcome = m_batch->run(
        tablesOfTheStudy(words("--background study/bay.png --out new/tables --prefix pilot --image a.png --image a.svg "
                               "--image new/a.jpg --image a.tiff --report report.json")));
    QCOMPARE(outcome.errors, QStringList());
    QCOMPARE(outcome.status, 0);
    QCOMPARE(outcome.written,
             words("new/tables/pilot_fixations__fixations_left.csv new/tables/pilot_fixations__fixations_right.csv "
                   "new/tables/pilot_events_left.csv new/tables/pilot_events_right.csv a.png a.svg new/a.jpg a.tiff "
                   "report.json"));
    const QMap<QString, QByteArray> files = m_batch->files();
    for (const QByteArray &bytes : files)
        QVERIFY(!bytes.isEmpty());
    QStringList listed = outcome.written;
    listed.sort();
    QCOMPARE(files.keys(), listed); // so there is no log file
    QVERIFY(BatchProgram::filesIn(m_batch->temporaryFolder()).isEmpty());
}

void TestBatchRun::picturesShowTheBackgroundAndTheData()
{
    const QStringList pictures = words("--calculate fixations --background study/bay.png --image a.png --image a.jpg "
                                       "--image a.tiff --image a.svg study/S01.data");
    const QStringList undrawn =
        words("--set Visualization/Gazepoint/VisualizationMode=0 --set Visualization/Fixation/VisualizationMode=0");
    const QImage background =
        QImage(m_batch->path(QStringLiteral("study/bay.png"))).convertToFormat(QImage::Format_RGB32);
    QCOMPARE(background.size(), QSize(1280, 800));
    constexpr int frame = 10;
    const QRect inside = background.rect().adjusted(frame, frame, -frame, -frame);
    QCOMPARE(filesOf(undrawn + pictures).size(), 4);
    for (const char *name : {"a.png", "a.tiff"}) { // both keep every pixel
        const QImage picture = QImage(m_batch->path(QLatin1StringView(name))).convertToFormat(QImage::Format_RGB32);
        QCOMPARE(picture.size(), background.size());
        QVERIFY(picture.copy(inside) == background.copy(inside));
        QCOMPARE(picture.pixelColor(2, 400), QColor(Qt::black));
    }
    QVERIFY(filesOf(pictures).size() == 4);
    for (const char *name : {"a.png", "a.tiff", "a.jpg"}) {
        const QImage picture = QImage(m_batch->path(QLatin1StringView(name))).convertToFormat(QImage::Format_RGB32);
        QCOMPARE(picture.size(), QSize(2560, 1600)); // the canvas, as gaze points are drawn on
        QVERIFY(picture.copy(inside) != background.copy(inside));
    }
    QVERIFY(m_batch->contents(QStringLiteral("a.svg")).contains("<svg"));
}

void TestBatchRun::sameBytes_data()
{
    QTest::addColumn<QStringList>("further");
    QTest::newRow("the same call again") << QStringList();
    QTest::newRow("one job") << words("--jobs 1");
    QTest::newRow("four jobs") << words("--jobs 4");
    QTest::newRow("more jobs than recordings") << words("--jobs 1000");
}

void TestBatchRun::sameBytes()
{
    QFETCH(QStringList, further);
    const QStringList all = tablesOfTheStudy(words("--background study/bay.png --image a.png --image a.svg "
                                                   "--image a.jpg --image a.tiff --report report.json"));
    const QMap<QString, QByteArray> expected = filesOf(all);
    QCOMPARE(expected.size(), 9);
    const QMap<QString, QByteArray> files = filesOf(further + all);
    QCOMPARE(files.keys(), expected.keys());
    for (auto file = files.cbegin(); file != files.cend(); ++file)
        QVERIFY2(file.value() == expected[file.key()], qPrintable(file.key()));
}

void TestBatchRun::eyes_data()
{
    QTest::addColumn<QString>("eyes");
    QTest::addColumn<QStringList>("streams");
    QTest::newRow("all are left and right") << "all" << words("left right");
    QTest::newRow("dominant") << "dominant" << words("dominant");
    QTest::newRow("left") << "left" << words("left");
    QTest::newRow("right") << "right" << words("right");
    QTest::newRow("mean") << "mean" << words("mean");
}

void TestBatchRun::eyes()
{
    QFETCH(QString, eyes);
    QFETCH(QStringList, streams);
    const Outcome outcome = m_batch->run(tablesOfTheStudy({QStringLiteral("--eyes"), eyes}));
    QCOMPARE(outcome.status, 0);
    QStringList expected;
    for (const char *table : {"./vistrum_fixations__fixations_", "./vistrum_events_"}) {
        for (const QString &stream : streams)
            expected << QLatin1StringView(table) + stream + QLatin1StringView(".csv");
    }
    QCOMPARE(outcome.written, expected);
    QCOMPARE(m_batch->files().size(), expected.size());
}

void TestBatchRun::dominantEyeIsThatOfTheSubject_data()
{
    QTest::addColumn<QString>("recording");
    QTest::addColumn<QString>("same");
    QTest::addColumn<QString>("other");
    QTest::newRow("right in the set file") << "study/S01.data" << fixationsRight << fixationsLeft;
    QTest::newRow("left in the set file") << "study/S02.data" << fixationsLeft << fixationsRight;
}

void TestBatchRun::dominantEyeIsThatOfTheSubject()
{
    QFETCH(QString, recording);
    QFETCH(QString, same);
    QFETCH(QString, other);
    for (const char *eyes : {"all", "dominant"})
        QCOMPARE(m_batch
                     ->run(words("--calculate fixations --export fixations --eyes") +
                           QStringList{QLatin1StringView(eyes), recording})
                     .status,
                 0);
    const QByteArray dominant = m_batch->contents(QStringLiteral("vistrum_fixations__fixations_dominant.csv"));
    QCOMPARE(dominant, m_batch->contents(same));
    QVERIFY(dominant != m_batch->contents(other));
}

void TestBatchRun::timeFrame()
{
    qint64 longest = 0;
    for (const QString &recording : BatchProgram::study())
        longest = std::max(longest, durationMs(m_batch->contents(recording)));
    QVERIFY(longest > 0);
    const QStringList image = words("--image a.png");
    const auto whole = filesOf(tablesOfTheStudy(image));
    QCOMPARE(whole.size(), 5);
    QVERIFY(filesOf(tablesOfTheStudy(image + QStringList{QStringLiteral("--time=0:%1").arg(longest)})) == whole);
    const auto part = filesOf(tablesOfTheStudy(image + words("--time 1000:2000")));
    QCOMPARE(part.keys(), whole.keys());
    for (auto file = part.cbegin(); file != part.cend(); ++file)
        QVERIFY2(file.value() != whole[file.key()], qPrintable(file.key()));
    const auto rows = [&](const auto &files) { return files[eventsLeft.sliced(2)].count('\n'); };
    QVERIFY(rows(part) < rows(whole));
    const QByteArray none = filesOf(tablesOfTheStudy(words("--time 900000:900001")))[eventsLeft.sliced(2)];
    QVERIFY(none.count('\n') < rows(part));
}

void TestBatchRun::aParameterChangesTheResults()
{
    const auto factory = filesOf(tablesOfTheStudy());
    QCOMPARE(factory.size(), 4);
    QVERIFY(filesOf(tablesOfTheStudy(words("--set Calculation/Fixation/Standard/MaximumRadius=40"))) == factory);
    const auto other = filesOf(tablesOfTheStudy(words("--set Calculation/Fixation/Standard/MaximumRadius=15")));
    QCOMPARE(other.keys(), factory.keys());
    for (auto file = other.cbegin(); file != other.cend(); ++file)
        QVERIFY2(file.value() != factory[file.key()], qPrintable(file.key()));
    QVERIFY(filesOf(tablesOfTheStudy(words("--detector standard"))) == factory);
}

void TestBatchRun::savedSettingsAreHonoured()
{
    {
        const TemporarySettings store;
        applyFactorySettings(QStringLiteral(VISTRUM_SOURCE_DIR "/data/factory_settings.ini"), QString());
        SettingsStore().setValue(QStringLiteral("Calculation/Fixation/Standard/MaximumRadius"), 15);
        Registry(Log(QString())).saveSettings(m_batch->path(QStringLiteral("study/narrow.ini")));
    }
    const auto narrow = filesOf(tablesOfTheStudy(words("--set Calculation/Fixation/Standard/MaximumRadius=15")));
    QCOMPARE(narrow.size(), 4);
    QVERIFY(filesOf(tablesOfTheStudy(words("--settings study/narrow.ini"))) == narrow);
    QVERIFY(filesOf(tablesOfTheStudy()) != narrow);
}

void TestBatchRun::laterSettingsWin()
{
    m_batch->write(QStringLiteral("study/one.ini"), "Calculation/Fixation/Standard/MaximumRadius=11\n"
                                                    "Calculation/Fixation/Standard/MinimumDuration=101\n"
                                                    "Calculation/Fixation/Standard/Outlier=1\n"
                                                    "Unknown/Key=1\n");
    m_batch->write(QStringLiteral("study/two.ini"), "Calculation/Fixation/Standard/MaximumRadius=22\n"
                                                    "Calculation/Fixation/Standard/MinimumDuration=202\n");
    // The values of --set come last, wherever they stand.
    filesOf(words("--set Calculation/Fixation/Standard/MaximumRadius=32 "
                  "--set Calculation/Fixation/Standard/MaximumRadius=33 --settings study/one.ini "
                  "--settings study/two.ini --report report.json study/S01.data"));
    const QJsonObject parameters = report()[QStringLiteral("parameters")].toObject();
    QCOMPARE(parameters[QStringLiteral("Calculation/Fixation/Standard/MaximumRadius")].toString(),
             QStringLiteral("33"));
    QCOMPARE(parameters[QStringLiteral("Calculation/Fixation/Standard/MinimumDuration")].toString(),
             QStringLiteral("202"));
    QCOMPARE(parameters[QStringLiteral("Calculation/Fixation/Standard/Outlier")].toString(), QStringLiteral("1"));
    QVERIFY(!parameters.contains(QStringLiteral("Unknown/Key")));
    QStringList inputs;
    for (const QJsonValue &input : report()[QStringLiteral("inputs")].toArray())
        inputs << input[QStringLiteral("kind")].toString() + u' ' + input[QStringLiteral("path")].toString();
    QCOMPARE(inputs,
             (QStringList{QStringLiteral("settings study/one.ini"), QStringLiteral("settings study/two.ini"),
                          QStringLiteral("recording study/S01.data"), QStringLiteral("set file study/S01.set")}));
}

void TestBatchRun::aDetectorThatIsNotUsedDoesNotMatter()
{
    const QStringList velocity{QStringLiteral("--set"),
                               QStringLiteral("Calculation/Fixation/CalculationType=Velocity based")};
    QCOMPARE(m_batch->run(velocity + words("--export events study/S01.data")).status, 0);
    QCOMPARE(m_batch->run(velocity + words("--quiet --export events study/S01.data")).errors, QStringList());
    const Outcome standard =
        m_batch->run(velocity + words("--quiet --detector standard --calculate fixations study/S01.data"));
    QCOMPARE(standard.status, 0);
    QCOMPARE(standard.errors, QStringList());
}

/// The window, too, runs the standard detector then.
void TestBatchRun::aDetectorThatIsNotRecognisedIsTold()
{
    const auto factory = filesOf(tablesOfTheStudy());
    m_batch->removeFiles();
    const Outcome outcome = m_batch->run(
        QStringList{QStringLiteral("--set"), QStringLiteral("Calculation/Fixation/CalculationType=Velocity based")} +
        tablesOfTheStudy());
    QCOMPARE(outcome.status, 0);
    QCOMPARE(outcome.errors, QStringList(QStringLiteral(
                                 "Detector: The settings choose \"Velocity based\", which is not recognised when "
                                 "settings are read, as in the window: the standard detector runs. --detector "
                                 "chooses another.")));
    QVERIFY(m_batch->files() == factory);
}

void TestBatchRun::detectorsAndUnitsGiveResultsOfTheirOwn()
{
    const QStringList calls{QStringLiteral("--detector standard"), QStringLiteral("--detector gaussian"),
                            QStringLiteral("--detector velocity"),
                            QStringLiteral("--detector velocity --velocity-unit pixel-per-ms "
                                           "--set Calculation/Fixation/Velocity/VelocityThreshold=2"),
                            QStringLiteral("--detector velocity --velocity-unit degree-per-s")};
    QSet<QByteArray> results;
    for (const QString &call : calls) {
        const auto files = filesOf(tablesOfTheStudy(call.split(u' ')));
        QCOMPARE(files.size(), 4);
        for (const QByteArray &file : files)
            QVERIFY2(file.count('\n') > 6, qPrintable(call));
        results << files[eventsLeft.sliced(2)];
    }
    QCOMPARE(results.size(), calls.size());
    // What is loaded is a percentile, whatever was stored.
    QVERIFY(filesOf(tablesOfTheStudy(words("--detector velocity --velocity-unit percentile"))) ==
            filesOf(tablesOfTheStudy(words("--detector velocity --set Calculation/Fixation/Velocity/Unit=0"))));
}

/// The picture gives the width of an angle; the report says what was used.
void TestBatchRun::widthOfTheBackground_data()
{
    QTest::addColumn<QStringList>("background");
    QTest::addColumn<QString>("width");
    QTest::newRow("the canvas") << QStringList() << QStringLiteral("2560");
    QTest::newRow("a picture") << words("--background study/bay.png") << QStringLiteral("1280");
}

void TestBatchRun::widthOfTheBackground()
{
    QFETCH(QStringList, background);
    QVERIFY(!filesOf(background + words("--detector velocity --velocity-unit degree-per-s --calculate fixations "
                                        "--report report.json study/S01.data"))
                 .isEmpty());
    const QJsonObject parameters = report()[QStringLiteral("parameters")].toObject();
    QTEST(parameters[QStringLiteral("Calculation/Fixation/Velocity/ImageSizePixel")].toString(), "width");
    QCOMPARE(parameters[QStringLiteral("Calculation/Fixation/Velocity/Unit")].toString(), QStringLiteral("1"));
    QCOMPARE(parameters[QStringLiteral("Calculation/Fixation/CalculationType")].toString(),
             QStringLiteral("Velocity based"));
}

void TestBatchRun::doubtfulParametersAreTold()
{
    const Outcome outcome = m_batch->run(words("--quiet --calculate fixations --report report.json --set "
                                               "Calculation/Fixation/Standard/MinimumDuration=1 study/S01.data"));
    QCOMPARE(outcome.status, 0);
    QCOMPARE(outcome.errors.size(), 3);
    QVERIFY(outcome.errors[0].startsWith(
        QStringLiteral("S01: left eye: The minimum duration of 1 ms is shorter than one sampling interval, ")));
    QVERIFY(outcome.errors[1].startsWith(QStringLiteral("S01: right eye: ")));
    QVERIFY(outcome.errors[2].startsWith(QStringLiteral("S01: mean eye: ")));
    QStringList reported;
    for (const QJsonValue &message : report()[QStringLiteral("messages")].toArray()) {
        if (message[QStringLiteral("severity")].toString() == QLatin1StringView("warning"))
            reported << message[QStringLiteral("title")].toString() + QStringLiteral(": ") +
                            message[QStringLiteral("text")].toString();
    }
    QCOMPARE(reported, outcome.errors);
}

void TestBatchRun::theUsersStoreIsNotTouched()
{
    const auto factory = filesOf(tablesOfTheStudy());
    QCOMPARE(factory.size(), 4);
    QVERIFY(BatchProgram::filesIn(m_batch->configurationFolder()).isEmpty());
    const QString name = QStringLiteral("Brennhaus Institute/Vistrum 2014.conf");
    QDir(m_batch->configurationFolder()).mkpath(QStringLiteral("Brennhaus Institute"));
    m_batch->write(QStringLiteral("../config/") + name,
                   "[Calculation]\nFixation\\Standard\\MaximumRadius=15\n[General]\nVersion=old\n");
    const auto before = BatchProgram::filesIn(m_batch->configurationFolder());
    QCOMPARE(before.keys(), QStringList{name});
    QVERIFY(filesOf(tablesOfTheStudy(words("--set Calculation/Fixation/Standard/Outlier=2"))) == factory);
    QVERIFY(BatchProgram::filesIn(m_batch->configurationFolder()) == before);
}

void TestBatchRun::densityIsWrittenAndExplained()
{
    const Outcome outcome =
        m_batch->run(words("--quiet --calculate fixations --density d.tiff --density-kind fixations "
                           "--set Visualization/Fixation/NormalDistributionWidth=120 "
                           "--report report.json study/S01.data"));
    QCOMPARE(outcome.status, 0);
    const QByteArray bytes = m_batch->contents(QStringLiteral("d.tiff"));
    QVERIFY(bytes.startsWith("II*") && bytes.size() > 2560 * 1600 * 4);
    const auto *cells = reinterpret_cast<const float *>(bytes.constData() + 8);
    QVERIFY(std::any_of(cells, cells + 2560 * 1600, [](float cell) { return cell > 0; }));
    const QJsonObject expected{{QStringLiteral("kind"), QStringLiteral("fixations")},
                               {QStringLiteral("kernelWidthPx"), QStringLiteral("120")},
                               {QStringLiteral("kernelSigma"), QStringLiteral("30")},
                               {QStringLiteral("unit"), QStringLiteral("ms of fixations per px^2")}};
    QCOMPARE(report()[QStringLiteral("density")].toObject(), expected);
}

void TestBatchRun::densityOfNothingFails()
{
    const Outcome outcome =
        m_batch->run(words("--density d.tiff --density-kind fixations --report report.json study/S01.data"));
    QCOMPARE(outcome.status, 1); // no fixations were calculated
    QVERIFY(!report().contains(QStringLiteral("density")));
}

void TestBatchRun::reportNamesWhatTheResultsRestOn()
{
    const Outcome outcome = m_batch->run(
        tablesOfTheStudy(words("--background study/bay.png --time 0:4000 --eyes left --report report.json --jobs 2")));
    QCOMPARE(outcome.status, 0);
    const QJsonObject all = report();
    const QJsonObject expectedOptions{{QStringLiteral("calculate"), QStringLiteral("fixations")},
                                      {QStringLiteral("export"), QStringLiteral("fixations,events")},
                                      {QStringLiteral("eyes"), QStringLiteral("left")},
                                      {QStringLiteral("time"), QStringLiteral("0:4000")}};
    QCOMPARE(all[QStringLiteral("options")].toObject(), expectedOptions);
    const auto checkFile = [this](const QJsonValue &file) {
        const QByteArray bytes = m_batch->contents(file[QStringLiteral("path")].toString());
        QCOMPARE(file[QStringLiteral("bytes")].toInteger(), bytes.size());
        QCOMPARE(file[QStringLiteral("sha256")].toString(), sha256(bytes));
    };
    const QJsonArray inputs = all[QStringLiteral("inputs")].toArray();
    QCOMPARE(inputs.size(), 13); // the picture, six recordings, six set files
    for (const QJsonValue &input : inputs) {
        checkFile(input);
        QVERIFY(input[QStringLiteral("used")].toBool());
        if (input[QStringLiteral("kind")] == QStringLiteral("recording"))
            QCOMPARE(input[QStringLiteral("counts")][QStringLiteral("samples")].toInteger(), 2500);
    }
    QStringList outputs;
    for (const QJsonValue &output : all[QStringLiteral("outputs")].toArray()) {
        checkFile(output);
        outputs << output[QStringLiteral("path")].toString();
    }
    outputs << QStringLiteral("report.json"); // cannot hold its own hash
    QCOMPARE(outputs, outcome.written);
    QFile factory(QStringLiteral(VISTRUM_SOURCE_DIR "/data/factory_settings.ini"));
    QVERIFY(factory.open(QIODevice::ReadOnly));
    QStringList keys;
    for (const QByteArray &line : factory.readAll().split('\n')) {
        if (!line.isEmpty())
            keys << QString::fromUtf8(line.first(line.indexOf('=')));
    }
    keys.sort();
    QCOMPARE(all[QStringLiteral("parameters")].toObject().keys(), keys);
    QVERIFY(!m_batch->contents(QStringLiteral("report.json")).contains(m_batch->root().toUtf8()));
}

void TestBatchRun::areasOfInterestAreReported()
{
    const QByteArray areas = "AOI FILE\ntype=static\ncolor=1;2;3;4\nname=a\n1 2\ntype=static\nname=b\n3 4\n";
    m_batch->write(QStringLiteral("areas.aoi"), areas);
    m_batch->write(QStringLiteral("more.aoi"), "AOI FILE\nname=c\n1 2\n");
    const Outcome outcome = m_batch->run(words("--aois areas.aoi --report report.json --aois more.aoi study/S01.data"));
    QCOMPARE(outcome.status, 0);
    QCOMPARE(outcome.errors, QStringList());
    const QJsonArray inputs = report()[QStringLiteral("inputs")].toArray();
    QCOMPARE(inputs.size(), 4); // behind the recording and its set file
    const QJsonObject expected{{QStringLiteral("path"), QStringLiteral("areas.aoi")},
                               {QStringLiteral("bytes"), areas.size()},
                               {QStringLiteral("sha256"), sha256(areas)},
                               {QStringLiteral("kind"), QStringLiteral("areas of interest")},
                               {QStringLiteral("used"), true},
                               {QStringLiteral("counts"), QJsonObject{{QStringLiteral("areas"), 2},
                                                                      {QStringLiteral("lines that are no vertex"), 0}}},
                               {QStringLiteral("messages"), QJsonArray()}};
    QCOMPARE(inputs[2].toObject(), expected);
    QCOMPARE(inputs[3][QStringLiteral("path")].toString(), QStringLiteral("more.aoi"));
}

void TestBatchRun::sameRecordingTwice()
{
    m_batch->write(QStringLiteral("study/a.data"), m_batch->contents(QStringLiteral("study/S01.data")));
    const QStringList tables = words("--calculate fixations --export fixations,events --report report.json");
    const auto once = filesOf(tables + words("study/a.data"));
    const auto twice = filesOf(tables + words("study/a.data study/a.data"));
    const QString events = eventsLeft.sliced(2);
    QStringDecoder decodeOnce(QStringDecoder::Utf16); // takes the byte order mark away
    QStringDecoder decodeTwice(QStringDecoder::Utf16);
    const QString table = decodeOnce(once[events]);
    const QString block = table.sliced(table.indexOf(u'\n') + 1);
    QVERIFY(block.count(u'\n') > 10);
    QCOMPARE(QString(decodeTwice(twice[events])), table + block);
    const QString fixations = fixationsLeft.sliced(2);
    QCOMPARE(twice[fixations], once[fixations] + once[fixations]);
    const QJsonArray inputs = report()[QStringLiteral("inputs")].toArray();
    QCOMPARE(inputs.size(), 2); // it has no set file, which is told for each
    for (const QJsonValue &input : inputs)
        QCOMPARE(input[QStringLiteral("messages")].toArray().size(), 1);
}

void TestBatchRun::clusters_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("algorithm");
    QTest::newRow("standard") << 0 << QStringLiteral("Algorithm:STANDARD\nParameter:\n Minimum Fixations:3, ");
    QTest::newRow("mean-shift") << 1
                                << QStringLiteral("Algorithm:MEANSHIFT\nParameter:\n Minimum Fixations:3, "
                                                  "Radius:100, Gradient:0.25, Iterations:50\n");
    QTest::newRow("overlap") << 2 << QStringLiteral("Algorithm:OVERLAP\nParameter:\n Minimum Fixations:1\n");
}

void TestBatchRun::clusters()
{
    QFETCH(int, type);
    QFETCH(QString, algorithm);
    const QStringList arguments =
        words("--quiet --calculate fixations,clusters,cumulative-clusters --export clusters,cumulative-clusters "
              "--eyes left --set") +
        QStringList{QStringLiteral("Calculation/Cluster/CalculationType=%1").arg(type)} + BatchProgram::study();
    const auto files = filesOf(arguments);
    QStringList names{QStringLiteral("vistrum_cumulative_left_cumclusters_left.csv")};
    for (int i = 1; i <= 6; ++i)
        names << QStringLiteral("vistrum_fixationclusters_S0%1_clusters_left.csv").arg(i);
    QCOMPARE(files.keys(), names);
    QVERIFY(filesOf(arguments) == files);
    for (const QByteArray &bytes : files) {
        QStringDecoder decode(QStringDecoder::Utf16);
        const QString text = decode(bytes);
        QVERIFY(text.contains(QStringLiteral("Fixation calculation parameters:\nAlgorithm:STANDARD\n")));
        QVERIFY(text.contains(QStringLiteral("\nCluster calculation parameters:\n") + algorithm));
        QVERIFY(text.contains(QStringLiteral("\nCumCluster calculation parameters:\n") + algorithm));
    }
}

void TestBatchRun::overlapNumbers()
{
    const QStringList arguments =
        words("--quiet --calculate fixations,clusters,cumulative-clusters --export clusters,cumulative-clusters "
              "--eyes left --set Calculation/Cluster/CalculationType=2 --report report.json") +
        BatchProgram::study();
    const auto usual = filesOf(arguments);
    QVERIFY(!report()[QStringLiteral("options")].toObject().contains(QStringLiteral("overlap-fixations")));
    const auto other = filesOf(words("--overlap-fixations 2 --overlap-outliers 1") + arguments);
    QCOMPARE(other.keys(), usual.keys());
    QCOMPARE(report()[QStringLiteral("options")][QStringLiteral("overlap-fixations")].toString(), QStringLiteral("2"));
    QCOMPARE(report()[QStringLiteral("options")][QStringLiteral("overlap-outliers")].toString(), QStringLiteral("1"));
    const auto textOf = [&](const QString &name) {
        QStringDecoder decode(QStringDecoder::Utf16);
        return QString(decode(other[name]));
    };
    const QString parameters =
        QStringLiteral("Cluster calculation parameters:\nAlgorithm:OVERLAP\nParameter:\n Minimum "
                       "Fixations:2\n");
    QVERIFY(textOf(QStringLiteral("vistrum_fixationclusters_S01_clusters_left.csv")).contains(parameters));
    const QString pooled = textOf(QStringLiteral("vistrum_cumulative_left_cumclusters_left.csv"));
    QVERIFY(pooled.contains(parameters));
    QVERIFY(pooled.contains(QStringLiteral("Algorithm:OVERLAP\nParameter:\n Minimum Fixations:2, Outlier:1\n")));
}

void TestBatchRun::saccadeClusters()
{
    const auto svg = [this](const QStringList &further) {
        const auto files = filesOf(words("--quiet --image a.svg --set Visualization/Saccade/VisualizationMode=0 "
                                         "--calculate fixations,saccade-clusters --saccade-cluster angle-cutoff=40 "
                                         "--saccade-cluster distance-cutoff=60") +
                                   further + BatchProgram::study());
        return files[QStringLiteral("a.svg")];
    };
    const auto lines = [](const QByteArray &picture) { return picture.count("<polyline"); };
    const QByteArray none = svg({});
    const QByteArray all = svg(words("--saccade-cluster mode=lines"));
    const QByteArray large = svg(words("--saccade-cluster mode=lines --saccade-cluster minimum-quantity=3"));
    const QByteArray single = svg(words("--saccade-cluster mode=single-line"));
    QVERIFY(lines(all) > lines(single));
    QVERIFY(lines(all) > lines(large));
    QVERIFY(lines(single) > lines(none));
    QCOMPARE(svg(words("--saccade-cluster mode=lines --saccade-cluster minimum-length=10000")), none);
    QCOMPARE(svg(words("--saccade-cluster mode=lines")), all);
}

void TestBatchRun::messagesWithoutQuiet()
{
    const Outcome outcome = m_batch->run(words("--export fixations,events --out tables study/S01.data"));
    QCOMPARE(outcome.status, 0);
    // One line each, without a bar: the channel is no screen.
    QCOMPARE(outcome.errors, (QStringList{QStringLiteral("Fixation Export: Fixations exported to: tables"),
                                          QStringLiteral("Event Export: Events exported to: tables_events_left/"
                                                         "right/dom")}));
}

void TestBatchRun::help()
{
    const Outcome outcome = m_batch->run(words("--help"));
    QCOMPARE(outcome.status, 0);
    QCOMPARE(outcome.errors, QStringList());
    QCOMPARE(outcome.written.constFirst(), QStringLiteral("vistrum-batch [options] RECORDING.data..."));
    QVERIFY(outcome.written.constLast().startsWith(QStringLiteral("Exit code: ")));
}

void TestBatchRun::version()
{
    const Outcome outcome = m_batch->run(words("--version"));
    QCOMPARE(outcome.status, 0);
    QCOMPARE(outcome.errors, QStringList());
    QCOMPARE(outcome.written, QStringList{QStringLiteral("vistrum-batch 0.2014")});
}

QTEST_GUILESS_MAIN(TestBatchRun)
#include "TestBatchRun.moc"
