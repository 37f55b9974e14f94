// SPDX-License-Identifier: GPL-3.0-or-later
#include "BatchRunTest.h"

#include <QImage>
#include <QJsonArray>
#include <QStringDecoder>

/// Which calculation runs, with what, and what it leaves in tables and pictures.
class TestBatchCalculations : public BatchRunTest {
    Q_OBJECT
private Q_SLOTS:
    void init() { start(); }

    void aDetectorThatIsNotUsedDoesNotMatter();
    void aDetectorThatIsNotRecognisedIsTold();
    void detectorsAndUnitsGiveResultsOfTheirOwn();
    void aStoredUnitThatIsLostIsTold_data();
    void aStoredUnitThatIsLostIsTold();
    void widthOfTheBackground_data();
    void widthOfTheBackground();
    void doubtfulParametersAreTold();
    void clusters_data();
    void clusters();
    void overlapNumbers();
    void saccadeClusters();
    void tooManySaccades();
};

void TestBatchCalculations::aDetectorThatIsNotUsedDoesNotMatter()
{
    const QStringList velocity{QStringLiteral("--set"),
                               QStringLiteral("Calculation/Fixation/CalculationType=Velocity based")};
    QCOMPARE(m_batch->run(velocity + words("--export events study/S01.data")).status, 0);
    QCOMPARE(m_batch->run(velocity + words("--quiet --image a.png study/S01.data")).errors, QStringList());
    const Outcome standard =
        m_batch->run(velocity + words("--quiet --detector standard --calculate fixations study/S01.data"));
    QCOMPARE(standard.status, 0);
    QCOMPARE(standard.errors, QStringList());
}

/// The window, too, runs the standard detector then.
void TestBatchCalculations::aDetectorThatIsNotRecognisedIsTold()
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

void TestBatchCalculations::detectorsAndUnitsGiveResultsOfTheirOwn()
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
        results << files[QStringLiteral("vistrum_events_left.csv")];
    }
    QCOMPARE(results.size(), calls.size());
    // What is loaded is a percentile, whatever was stored; that another unit was is told.
    const auto percentile = filesOf(tablesOfTheStudy(words("--detector velocity --velocity-unit percentile")));
    m_batch->removeFiles();
    const Outcome lost =
        m_batch->run(tablesOfTheStudy(words("--detector velocity --set Calculation/Fixation/Velocity/Unit=0")));
    QCOMPARE(lost.status, 0);
    QCOMPARE(lost.errors, QStringList(QStringLiteral("Velocity: The stored unit of the velocity threshold, [Pixel/ms], "
                                                     "is read as Percentile. --velocity-unit chooses another.")));
    QVERIFY(m_batch->files() == percentile);
}

/// As a file of the window has it: the number of the unit that was chosen there.
void TestBatchCalculations::aStoredUnitThatIsLostIsTold_data()
{
    QTest::addColumn<QByteArray>("stored");
    QTest::addColumn<QString>("options");
    QTest::addColumn<QString>("lost"); // the unit that the warning names; none where nothing is told
    const auto row = [](const char *name, const char *stored, const char *options, const char *lost) {
        QTest::newRow(name) << QByteArray(stored) << QString::fromLatin1(options) << QString::fromUtf8(lost);
    };
    row("pixels", "0", "--detector velocity", "[Pixel/ms]");
    row("degrees", "1", "--detector velocity", "[\xC2\xB0/s]");
    row("what it is read as", "2", "--detector velocity", "");
    row("a text that is read", "[Pixel / ms]", "--detector velocity", "");
    row("the command line chooses", "1", "--detector velocity --velocity-unit pixel-per-ms", "");
    row("another detector runs", "1", "--detector standard", "");
}

void TestBatchCalculations::aStoredUnitThatIsLostIsTold()
{
    QFETCH(QByteArray, stored);
    QFETCH(QString, options);
    QFETCH(QString, lost);
    m_batch->write(QStringLiteral("a.ini"), "Calculation/Fixation/Velocity/Unit=" + stored + '\n');
    const Outcome outcome =
        m_batch->run(words("--quiet --settings a.ini --calculate fixations study/S01.data") + options.split(u' '));
    QCOMPARE(outcome.status, 0);
    const QString warning = QStringLiteral("Velocity: The stored unit of the velocity threshold, %1, is read as "
                                           "Percentile. --velocity-unit chooses another.");
    QCOMPARE(outcome.errors, lost.isEmpty() ? QStringList() : QStringList(warning.arg(lost)));
}

/// The picture gives the width of an angle; the report says what was used.
void TestBatchCalculations::widthOfTheBackground_data()
{
    QTest::addColumn<QStringList>("background");
    QTest::addColumn<QString>("width");
    QTest::newRow("the canvas") << QStringList() << QStringLiteral("2560");
    QTest::newRow("a picture") << words("--background study/bay.png") << QStringLiteral("1280");
}

void TestBatchCalculations::widthOfTheBackground()
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

void TestBatchCalculations::doubtfulParametersAreTold()
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

void TestBatchCalculations::clusters_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("algorithm");
    QTest::newRow("standard") << 0 << QStringLiteral("Algorithm:STANDARD\nParameter:\n Minimum Fixations:3, ");
    QTest::newRow("mean-shift") << 1
                                << QStringLiteral("Algorithm:MEANSHIFT\nParameter:\n Minimum Fixations:3, "
                                                  "Radius:100, Gradient:0.25, Iterations:50\n");
    QTest::newRow("overlap") << 2 << QStringLiteral("Algorithm:OVERLAP\nParameter:\n Minimum Fixations:1\n");
}

void TestBatchCalculations::clusters()
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

void TestBatchCalculations::overlapNumbers()
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

void TestBatchCalculations::saccadeClusters()
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

/// At most 10,000 can be clustered at once; the gaze goes around a square one more time than that.
void TestBatchCalculations::tooManySaccades()
{
    constexpr int fixations = 10'002;
    constexpr int samplesOfEach = 3;
    constexpr const char *corners[] = {"100\t100", "900\t100", "900\t700", "100\t700"};
    QByteArray lines;
    for (int i = 0; i < samplesOfEach * fixations; ++i) {
        const QByteArray eye = corners[i / samplesOfEach % 4] + QByteArray("\t3\t3\t1");
        lines += QByteArray::number(4 * i) + '\t' + eye + '\t' + eye + '\n';
    }
    m_batch->write(QStringLiteral("many.data"), lines);
    m_batch->write(QStringLiteral("many.set"), "[subject]\ndominant=left\n");
    const Outcome outcome = m_batch->run(words("--quiet --calculate fixations,saccade-clusters --export fixations "
                                               "--set Calculation/Fixation/Standard/MinimumDuration=8 --set "
                                               "Calculation/Fixation/Standard/Outlier=0 many.data"));
    QCOMPARE(outcome.status, 1);
    QVERIFY(!outcome.errors.isEmpty()); // before it, that a radius does not suit such steps
    QVERIFY2(outcome.errors.constLast().startsWith(
                 QStringLiteral("Too many saccades: There are 10001 saccades, and at most")),
             qPrintable(outcome.errors.constLast()));
    QCOMPARE(outcome.written.size(), 2); // the tables are written all the same
}

QTEST_GUILESS_MAIN(TestBatchCalculations)
#include "TestBatchCalculations.moc"
