// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Release.h"
#include "BatchRunTest.h"
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

const QString fixationsLeft = QStringLiteral("./vistrum_fixations__fixations_left.csv");
const QString fixationsRight = QStringLiteral("./vistrum_fixations__fixations_right.csv");
const QString eventsLeft = QStringLiteral("./vistrum_events_left.csv");
const QString eventsRight = QStringLiteral("./vistrum_events_right.csv");

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
class TestBatchRun : public BatchRunTest {
    Q_OBJECT
private Q_SLOTS:
    void init() { start(); }

    void listsExactlyTheFilesWritten();
    void picturesShowTheBackgroundAndTheData();
    void sameBytes_data();
    void sameBytes();
    void oneChoiceOfEyesForEverything();
    void eyes_data();
    void eyes();
    void dominantEyeIsThatOfTheSubject_data();
    void dominantEyeIsThatOfTheSubject();
    void timeFrame();
    void aParameterChangesTheResults();
    void savedSettingsAreHonoured();
    void bordersFollowTheirColors();
    void drawingsWithValuesOfTheirOwn();
    void keysAreListed();
    void laterSettingsWin();
    void theUsersStoreIsNotTouched();
    void reportNamesWhatTheResultsRestOn();
    void reportHasQualityAndMethods();
    void methodsAreAFile();
    void densityIsWrittenAndExplained();
    void densityOfNothingFails();
    void areasOfInterestAreReported();
    void sameRecordingTwice();
    void messagesWithoutQuiet();
    void help();
    void version();
};

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

/// Tables, pictures and densities show the same eyes: those of the option or, without it, those of the settings.
void TestBatchRun::oneChoiceOfEyesForEverything()
{
    const QStringList what = words("--quiet --calculate fixations --export fixations --prefix p --image a.png "
                                   "--density d.tiff --report r.json study/S01.data");
    const auto shown = [&](const char *choice) {
        auto files = filesOf(words(choice) + what);
        const QByteArray report = files.take(QStringLiteral("r.json"));
        files.insert(
            QStringLiteral("eyes"),
            QJsonDocument::fromJson(report)[QStringLiteral("options")][QStringLiteral("eyes")].toString().toUtf8());
        return files;
    };
    const auto left = shown("--eyes left");
    const auto right = shown("--eyes right");
    QCOMPARE(left.size(), 4);
    QCOMPARE(left[QStringLiteral("eyes")], QByteArray("left"));
    QVERIFY(left.contains(QStringLiteral("p_fixations__fixations_left.csv")));
    QVERIFY(right.contains(QStringLiteral("p_fixations__fixations_right.csv")));
    QVERIFY(left[QStringLiteral("a.png")] != right[QStringLiteral("a.png")]);
    QVERIFY(left[QStringLiteral("d.tiff")] != right[QStringLiteral("d.tiff")]);
    QVERIFY(shown("--set Visualization/EyeMode=2") == left);
    QVERIFY(shown("--set Visualization/EyeMode=3 --eyes left") == left);
    QCOMPARE(shown("--jobs 1")[QStringLiteral("eyes")], QByteArray("all")); // as the factory has it
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

/// As in the window: a border follows its fill colour and the border type, unless it is set itself.
void TestBatchRun::bordersFollowTheirColors()
{
    const auto border = [&](const char *settings) {
        filesOf(words(settings) + words("--quiet --report report.json study/S01.data"));
        return report()[QStringLiteral("parameters")][QStringLiteral("Visualization/Fixation/BorderColor")].toString();
    };
    const QString green = border("--set Visualization/Fixation/FillColor=#00ff00");
    // type 2 is the darker shade: half the light of the colour
    QCOMPARE(green, QStringLiteral("#007f00"));
    QVERIFY(border("--set Visualization/Fixation/FillColor=#00ff00 --set Visualization/Fixation/BorderType=0") !=
            green);
    QCOMPARE(border("--set Visualization/Fixation/FillColor=#00ff00 --set Visualization/Fixation/BorderColor=red"),
             QStringLiteral("#ff0000"));
}

/// Values that the store does not keep reach the drawing; without a border the frame is not drawn.
void TestBatchRun::drawingsWithValuesOfTheirOwn()
{
    const QStringList what = words("--quiet --calculate fixations,clusters --time 0:2000 --image a.png "
                                   "--set Visualization/Fixationcluster/VisualizationMode=1") +
                             BatchProgram::study();
    const auto plain = filesOf(what);
    QVERIFY(plain != filesOf(words("--no-border") + what));
    QVERIFY(plain != filesOf(words("--draw cluster-percentage=20") + what));
    QVERIFY(plain == filesOf(words("--draw cluster-percentage=90") + what)); // as at the start of the program
}

void TestBatchRun::keysAreListed()
{
    const Outcome outcome = m_batch->run(words("--keys"));
    QCOMPARE(outcome.status, 0);
    QVERIFY(outcome.written.contains(
        QStringLiteral("Calculation/Fixation/Standard/MaximumRadius=40  (a whole number from 10 to 1000)")));
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

void TestBatchRun::reportHasQualityAndMethods()
{
    const Outcome outcome = m_batch->run(words("--calculate fixations --eyes left --report report.json --quiet "
                                               "study/S01.data none.data study/S02.data"));
    QCOMPARE(outcome.status, 1);
    const QJsonObject all = report();
    QStringList measured;
    for (const QJsonValue &input : all[QStringLiteral("inputs")].toArray()) {
        const QJsonObject quality = input[QStringLiteral("quality")].toObject();
        if (quality.isEmpty())
            continue;
        measured << input[QStringLiteral("path")].toString();
        QCOMPARE(quality.keys(), QStringList(QStringLiteral("left")));
        // 2500 samples, one each 4 ms
        QCOMPARE(quality[QStringLiteral("left")][QStringLiteral("rate_hz")].toDouble(), 250.0);
        QCOMPARE(quality[QStringLiteral("left")][QStringLiteral("duration_ms")].toDouble(), 9996.0);
        QVERIFY(quality[QStringLiteral("left")][QStringLiteral("rms_s2s_deg")].isNull());
    }
    QCOMPARE(measured, (QStringList{QStringLiteral("study/S01.data"), QStringLiteral("study/S02.data")}));
    const QJsonValue methods = all[QStringLiteral("methods")];
    QCOMPARE(methods[QStringLiteral("recordings")].toInt(), 2);
    QCOMPARE(methods[QStringLiteral("notRead")].toArray(), QJsonArray{QStringLiteral("none")});
    QCOMPARE(methods[QStringLiteral("fixationDetection")][QStringLiteral("detector")].toString(),
             QStringLiteral("standard"));
    QVERIFY(methods[QStringLiteral("clusters")].isNull());
    const QString text = methods[QStringLiteral("text")].toString();
    QVERIFY(text.contains(QStringLiteral("1 recording could not be read: none.")));
    QVERIFY(text.contains(QStringLiteral("was analysed, for the left eye.")));
}

void TestBatchRun::methodsAreAFile()
{
    const QStringList calculated = words("--calculate clusters,fixations --export aoi-measures --detector velocity "
                                         "--velocity-unit percentile --quiet study/S01.data --methods");
    QCOMPARE(m_batch->run(calculated + QStringList(QStringLiteral("m.md"))).status, 0);
    QCOMPARE(m_batch->run(calculated + QStringList(QStringLiteral("m.txt"))).status, 0);
    const QString markdown = QString::fromUtf8(m_batch->contents(QStringLiteral("m.md")));
    QVERIFY(markdown.startsWith(QStringLiteral("# Methods\n\n## ")));
    QVERIFY(markdown.contains(QStringLiteral("after I-VT (Salvucci & Goldberg, 2000)")));
    QVERIFY(markdown.contains(QStringLiteral("\n- Holmqvist, K.")));
    QVERIFY(markdown.contains(QStringLiteral("## Clusters\n\nFixations of each recording and eye")));
    const QString plain = QString::fromUtf8(m_batch->contents(QStringLiteral("m.txt")));
    QVERIFY(plain.startsWith(
        QStringLiteral("Methods\n\nParticipants and recordings\n\nThe analysis rests on 1 recording")));
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

void TestBatchRun::messagesWithoutQuiet()
{
    const Outcome outcome = m_batch->run(words("--calculate fixations --export fixations,events --out tables "
                                               "--report report.json study/S01.data study/S02.data"));
    QCOMPARE(outcome.status, 0);
    // One line each, without a bar: the channel is no screen.
    const QString title = QStringLiteral("Standard Fixation Filter Action Report");
    QVERIFY(outcome.errors.value(0).startsWith(title + QStringLiteral(": S01: left eye: ")));
    QVERIFY(outcome.errors.value(1).startsWith(title + QStringLiteral(": S02: left eye: ")));
    for (const QString &line : outcome.errors.first(2))
        QCOMPARE(line.count(QStringLiteral("left eye: ")), 1);
    QCOMPARE(outcome.errors.mid(2), (QStringList{QStringLiteral("Fixation Export: Fixations exported to: tables"),
                                                 QStringLiteral("Event Export: Events exported to: tables_events_left/"
                                                                "right/dom")}));
    const QJsonArray reported = report()[QStringLiteral("messages")].toArray();
    QCOMPARE(reported.size(), outcome.errors.size());
    QCOMPARE(reported[1][QStringLiteral("title")].toString(), title);
    QVERIFY(reported[1][QStringLiteral("text")].toString().startsWith(QStringLiteral("S02: left eye:\n")));
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
    QCOMPARE(outcome.written,
             (QStringList{QStringLiteral("vistrum-batch 0.2014"), QStringLiteral("release ") + releaseText()}));
}

QTEST_GUILESS_MAIN(TestBatchRun)
#include "TestBatchRun.moc"
