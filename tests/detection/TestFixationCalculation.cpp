// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Log.h"
#include "base/Progress.h"
#include "detection/FixationCalculation.h"
#include "GeneratedGaze.h"
#include "model/DataModel.h"
#include "TestLog.h"
#include "TestMessages.h"
#include "TestSettings.h"

#include <QTest>

namespace {

const QString reportTitle = QStringLiteral("Standard Fixation Filter Action Report|");

/// A short rest at (x,100), a loss, a long rest: one saccade, one invalid section, one fixation.
QList<GazePoint> recording(double x)
{
    QList<GazePoint> samples;
    for (int i = 0; i < 40; ++i)
        samples << GazePoint(10 * i, x, 100, 0, 0, i >= 3 && i < 8 ? 0 : 1);
    return samples;
}

Examination examination(bool isChecked = true)
{
    Examination made;
    made.leftEye.gazePoints = recording(100);
    made.rightEye.gazePoints = recording(200);
    made.meanEye.gazePoints = recording(150);
    made.checked = isChecked;
    return made;
}

DataModel modelOf(const QList<Examination> &examinations)
{
    DataModel model;
    model.examinations() = examinations;
    return model;
}

const StandardParameters parameters{100, 50, 2};

/// An examination without right eye, whose left one rests 100 ms at each of so many places before the last, which it
/// does not leave any more.
Examination saccadesOf(int places)
{
    Examination made;
    QList<GazePoint> &samples = made.leftEye.gazePoints;
    for (int place = 0; place <= places; ++place) {
        for (int i = 0; i < 21; ++i)
            samples << GazePoint(5 * samples.size(), 300 + 400 * (place % 2) + i % 3, 400, 0, 0, 1);
    }
    made.meanEye = made.leftEye;
    return made;
}

VelocityParameters velocityInPixels(int minimumDurationMs)
{
    return {.minimumDurationMs = minimumDurationMs, .threshold = 2, .unit = VelocityUnit::PixelPerMs};
}

/// What happens in front of the user, in order.
class RecordedProgress : public Progress::IDisplay {
public:
    explicit RecordedProgress(QStringList &events) : m_events(events) {}
    void open(const QString &label, int steps) override { m_events << label + u'|' + QString::number(steps); }
    void show(int stepsDone) override { m_events << QString::number(stepsDone); }
    void close() override { m_events << QStringLiteral("closed"); }

private:
    QStringList &m_events;
};

class RecordedBoxes : public messages::IHandler {
public:
    explicit RecordedBoxes(QStringList &events) : m_events(events) {}
    void show(messages::Severity, const QString &title, const QString &) override { m_events << title; }

private:
    QStringList &m_events;
};

} // namespace

Q_DECLARE_METATYPE(FixationCalculationParameters)

class TestFixationCalculation : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void nothingChecked_data();
    void nothingChecked();
    void allThreeEyesAreDetected();
    void uncheckedIsLeftAlone();
    void reportsOfLeftAndRight();
    void progressIsClosedBeforeTheReport();
    void resultText();
    void secondCalculationAddsToSaccades();
    void clustersAreCleared();
    void pooledContainersAreCleared();
    void eyesWithoutSamples();
    void typeWithoutDetectorIsStandard_data();
    void typeWithoutDetectorIsStandard();
    void parametersOfTheDetectors();
    void unitWithoutNameIsPercentile_data();
    void unitWithoutNameIsPercentile();
    void resultTextOfTheMixture_data();
    void resultTextOfTheMixture();
    void resultTextOfTheVelocity_data();
    void resultTextOfTheVelocity();
    void otherDetectorsAddFixationsOnly_data();
    void otherDetectorsAddFixationsOnly();
    void warningsGoToTheLogOnly();
    void causesInTheParametersAreToldOnce();
    void failureOfTheMixtureIsTold();
    void threadsChangeNothing_data();
    void threadsChangeNothing();
    void oneBoxForEachCause();
};

void TestFixationCalculation::nothingChecked_data()
{
    QTest::addColumn<QList<bool>>("checked");
    QTest::newRow("no examination") << QList<bool>{};
    QTest::newRow("none checked") << QList<bool>{false, false};
}

void TestFixationCalculation::nothingChecked()
{
    QFETCH(QList<bool>, checked);
    DataModel model;
    for (const bool isChecked : checked)
        model.examinations() << examination(isChecked);
    model.pooled(Eye::Left).scanpath << Fixation();
    const RecordedMessages messages;
    QVERIFY(!calculateFixations(model, parameters, nullptr));
    QCOMPARE(messages.texts(), QStringList(QStringLiteral("No examination selected!|Please select some data first.")));
    QCOMPARE(model.pooled(Eye::Left).scanpath.size(), 1);
}

void TestFixationCalculation::allThreeEyesAreDetected()
{
    DataModel model = modelOf({examination(), examination()});
    calculateFixations(model, parameters, nullptr);
    for (const Examination &calculated : std::as_const(model).examinations()) {
        QCOMPARE(calculated.leftEye.scanpath.size(), 1);
        QCOMPARE(calculated.leftEye.scanpath[0].mean, QPoint(100, 100));
        QCOMPARE(calculated.rightEye.scanpath[0].mean, QPoint(200, 100));
        QCOMPARE(calculated.meanEye.scanpath[0].mean, QPoint(150, 100));
        QCOMPARE(calculated.meanEye.calculationInfo,
                 QStringLiteral("Calculated with: MinimumDuration=100ms, MaximumRadius=50, AllowedOutliers=2"));
    }
}

void TestFixationCalculation::uncheckedIsLeftAlone()
{
    Examination unchecked = examination(false);
    unchecked.leftEye.scanpath << Fixation();
    unchecked.leftEye.fixationClusters << FixationCluster();
    DataModel model = modelOf({unchecked, examination()});
    calculateFixations(model, parameters, nullptr);
    QCOMPARE(model.examinations()[0].leftEye, unchecked.leftEye);
    QCOMPARE(model.examinations()[0].calculationInfo, unchecked.calculationInfo);
    QCOMPARE(model.examinations()[1].leftEye.scanpath.size(), 1);
}

void TestFixationCalculation::reportsOfLeftAndRight()
{
    EyeData left;
    left.gazePoints = recording(100);
    EyeData right;
    right.gazePoints = recording(200);
    const QString leftReport = StandardScanpathBuilder(left, parameters, nullptr).report();
    const QString rightReport = StandardScanpathBuilder(right, parameters, nullptr).report();
    const QString expected = QStringLiteral("left eye:\n") + leftReport + QStringLiteral("right eye:\n") + rightReport;

    DataModel model = modelOf({examination(), examination(false), examination()});
    model.examinations()[0].baseName = QStringLiteral("S01");
    model.examinations()[2].baseName = QStringLiteral("S03");
    const RecordedMessages messages;
    const auto outcome = calculateFixations(model, parameters, nullptr);
    QVERIFY(outcome);
    const QList<RecordingReport> reports{{QStringLiteral("S01"), expected}, {QStringLiteral("S03"), expected}};
    QCOMPARE(outcome->reports, reports);
    QCOMPARE(messages.texts(), QStringList());
    showReports(*outcome);
    QCOMPARE(messages.texts(), QStringList(reportTitle + expected + expected));
}

void TestFixationCalculation::progressIsClosedBeforeTheReport()
{
    DataModel model = modelOf({examination(), examination(false), examination()});
    QStringList events;
    auto display = Progress::install(std::make_unique<RecordedProgress>(events));
    auto handler = messages::install(std::make_unique<RecordedBoxes>(events));
    const auto outcome = calculateFixations(model, parameters, nullptr);
    showReports(outcome.value_or(FixationCalculationOutcome()));
    Progress::install(std::move(display));
    messages::install(std::move(handler));
    QCOMPARE(events, QStringList({QStringLiteral("Calculating fixation filter. Please wait.|2"), QStringLiteral("1"),
                                  QStringLiteral("2"), QStringLiteral("closed"),
                                  QStringLiteral("Standard Fixation Filter Action Report")}));
}

void TestFixationCalculation::resultText()
{
    Examination made = examination();
    made.rightEye.gazePoints.clear();
    DataModel model = modelOf({made});
    calculateFixations(model, parameters, nullptr);
    QCOMPARE(model.examinations()[0].calculationInfo.fixationCalculationInfo,
             QStringLiteral("Algorithm:STANDARD\n"
                            "Parameter:\n Minimum Duration:100, Outliers:2, Maximum Radius:50\n"
                            "Fixations found:\n Left Eye:1, Right Eye:0, Mean Eye:1\n"));
    QCOMPARE(model.examinations()[0].calculationInfo.clusterCalculationInfo, QStringLiteral("Not set\n"));
}

void TestFixationCalculation::secondCalculationAddsToSaccades()
{
    DataModel model = modelOf({examination()});
    calculateFixations(model, parameters, nullptr);
    const EyeData once = model.examinations()[0].leftEye;
    calculateFixations(model, parameters, nullptr);
    const EyeData &twice = model.examinations()[0].leftEye;
    QCOMPARE(once.saccades.size(), 1);
    QCOMPARE(once.invalids.size(), 1);
    QCOMPARE(once.eventRows.size(), 1);
    QCOMPARE(twice.scanpath, once.scanpath);
    QCOMPARE(twice.saccades, once.saccades + once.saccades);
    QCOMPARE(twice.invalids, once.invalids + once.invalids);
    QCOMPARE(twice.eventRows, once.eventRows + once.eventRows);
}

void TestFixationCalculation::clustersAreCleared()
{
    Examination made = examination();
    for (EyeData *eye : {&made.leftEye, &made.rightEye, &made.meanEye})
        eye->fixationClusters << FixationCluster();
    DataModel model = modelOf({made});
    calculateFixations(model, parameters, nullptr);
    const Examination &calculated = model.examinations()[0];
    for (const EyeData *eye : {&calculated.leftEye, &calculated.rightEye, &calculated.meanEye})
        QVERIFY(eye->fixationClusters.isEmpty());
}

void TestFixationCalculation::pooledContainersAreCleared()
{
    DataModel model = modelOf({examination()});
    for (const Eye pool : allEyes) {
        model.pooled(pool).scanpath << Fixation();
        model.pooled(pool).fixationClusters << FixationCluster();
        model.pooled(pool).saccades << Saccade();
    }
    calculateFixations(model, parameters, nullptr);
    for (const Eye pool : allEyes) {
        const qsizetype left = pool == Eye::Dominant ? 1 : 0;
        QCOMPARE(model.pooled(pool).scanpath.size(), left);
        QCOMPARE(model.pooled(pool).fixationClusters.size(), left);
        QCOMPARE(model.pooled(pool).saccades.size(), 1);
    }
}

void TestFixationCalculation::eyesWithoutSamples()
{
    DataModel model = modelOf({Examination()});
    const auto outcome = calculateFixations(model, parameters, nullptr);
    QVERIFY(outcome);
    QCOMPARE(outcome->reports.size(), 1);
    QVERIFY(outcome->reports[0].text.startsWith(QStringLiteral("left eye:\nInvalid before processing: min 0[ms]")));
    QCOMPARE(outcome->warnings, QList<DetectionWarning>());
    QVERIFY(model.examinations()[0].calculationInfo.fixationCalculationInfo.endsWith(
        QStringLiteral("Left Eye:0, Right Eye:0, Mean Eye:0\n")));
}

void TestFixationCalculation::typeWithoutDetectorIsStandard_data()
{
    QTest::addColumn<int>("type");
    QTest::newRow("standard") << 0;
    QTest::newRow("unknown") << unknownCalculationType;
    QTest::newRow("none") << -1;
}

void TestFixationCalculation::typeWithoutDetectorIsStandard()
{
    QFETCH(int, type);
    FixationSettingsModel settings;
    settings.standardMinimumDuration = 1;
    settings.standardMaximumRadius = 2;
    settings.standardOutliers = 3;
    const auto chosen = std::get<StandardParameters>(calculationParameters(type, settings));
    QCOMPARE(chosen.minimumDurationMs, 1);
    QCOMPARE(chosen.maximumRadiusPx, 2);
    QCOMPARE(chosen.allowedOutliers, 3);
}

void TestFixationCalculation::parametersOfTheDetectors()
{
    FixationSettingsModel settings;
    settings.gaussianMinimumDuration = 4;
    settings.gaussianMergeSequential = true;
    settings.velocityMinimumDuration = 5;
    settings.velocityThreshold = 10.75;
    settings.velocityScreenDistance = 0.6;
    settings.velocityImageSize = 0.4;
    settings.velocityImageSizePixels = 1024;
    settings.velocityUnit = 1;
    const auto mixture = std::get<MixtureParameters>(calculationParameters(1, settings));
    QCOMPARE(mixture.minimumDurationMs, 4);
    QCOMPARE(mixture.mergeSequential, true);
    const auto velocity = std::get<VelocityParameters>(calculationParameters(2, settings));
    QCOMPARE(velocity.minimumDurationMs, 5);
    QCOMPARE(velocity.threshold, 10.75);
    QCOMPARE(velocity.unit, VelocityUnit::DegreePerS);
    QCOMPARE(velocity.screenDistanceM, 0.6);
    QCOMPARE(velocity.imageSizeM, 0.4);
    QCOMPARE(velocity.imageWidthPx, 1024.0);
}

void TestFixationCalculation::unitWithoutNameIsPercentile_data()
{
    QTest::addColumn<int>("stored");
    QTest::addColumn<VelocityUnit>("unit");
    QTest::newRow("0") << 0 << VelocityUnit::PixelPerMs;
    QTest::newRow("1") << 1 << VelocityUnit::DegreePerS;
    QTest::newRow("2") << 2 << VelocityUnit::Percentile;
    QTest::newRow("3") << 3 << VelocityUnit::Percentile;
    QTest::newRow("-1") << -1 << VelocityUnit::Percentile;
}

void TestFixationCalculation::unitWithoutNameIsPercentile()
{
    QFETCH(int, stored);
    FixationSettingsModel settings;
    settings.velocityUnit = stored;
    QTEST(std::get<VelocityParameters>(calculationParameters(2, settings)).unit, "unit");
}

void TestFixationCalculation::resultTextOfTheMixture_data()
{
    QTest::addColumn<bool>("merges");
    QTest::addColumn<QString>("text");
    QTest::newRow("merging") << true << QStringLiteral("Merge Sequential:1\n");
    QTest::newRow("not merging") << false << QStringLiteral("Merge Sequential:0\n");
}

void TestFixationCalculation::resultTextOfTheMixture()
{
    QFETCH(bool, merges);
    QFETCH(QString, text);
    const TemporarySettings store;
    SettingsStore().setValue(rows::gaussianMinimumDuration.key, 90);
    SettingsStore().setValue(rows::gaussianMergeSequential.key, merges);
    DataModel model = modelOf({saccadesOf(3)});
    calculateFixations(model, MixtureParameters{90, merges}, nullptr);
    QCOMPARE(model.examinations()[0].calculationInfo.fixationCalculationInfo,
             QStringLiteral("Algorithm:GAUSSIAN\nParameter:\n Minimum Duration:90, ") + text +
                 QStringLiteral("Fixations found:\n Left Eye:3, Right Eye:0, Mean Eye:3\n"));
}

void TestFixationCalculation::resultTextOfTheVelocity_data()
{
    QTest::addColumn<VelocityParameters>("parameters");
    QTest::addColumn<QString>("text");
    const auto row = [](const char *name, const VelocityParameters &given, const char *text) {
        QTest::newRow(name) << given << QString::fromUtf8(text);
    };
    row("the threshold as set", {10, 10.75, VelocityUnit::PixelPerMs, 0.6, 0.4, 0},
        "Minimum Duration:10, Velocity Threshold:10.75, Screen Distance:0.6, Image Size:0.4, Unit:[Pixel/ms]\n"
        "Fixations found:\n Left Eye:3, Right Eye:0, Mean Eye:3\n");
    row("degrees", {10, 300, VelocityUnit::DegreePerS, 1, 0.2, 1024},
        "Minimum Duration:10, Velocity Threshold:300, Screen Distance:1, Image Size:0.2, Unit:[\xC2\xB0/s]\n"
        "Fixations found:\n Left Eye:3, Right Eye:0, Mean Eye:3\n");
    row("six digits, plain or exponent", {10, 1234567.5, VelocityUnit::PixelPerMs, 0.00001234567, 0.123456789, 0},
        "Minimum Duration:10, Velocity Threshold:1.23457e+06, Screen Distance:1.23457e-05, Image Size:0.123457, "
        "Unit:[Pixel/ms]\nFixations found:\n Left Eye:0, Right Eye:0, Mean Eye:0\n");
    row("percentile of too few", {10, 50, VelocityUnit::Percentile, 0, 0, 0},
        "Minimum Duration:10, Velocity Threshold:50, Screen Distance:0, Image Size:0, Unit:Percentile\n"
        "Fixations found:\n Left Eye:0, Right Eye:0, Mean Eye:0\n");
}

void TestFixationCalculation::resultTextOfTheVelocity()
{
    QFETCH(VelocityParameters, parameters);
    QFETCH(QString, text);
    const TemporarySettings store;
    DataModel model = modelOf({saccadesOf(3)});
    calculateFixations(model, parameters, nullptr);
    QCOMPARE(model.examinations()[0].calculationInfo.fixationCalculationInfo,
             QStringLiteral("Algorithm:VELOCITY\nParameter:\n ") + text);
}

void TestFixationCalculation::otherDetectorsAddFixationsOnly_data()
{
    QTest::addColumn<FixationCalculationParameters>("other");
    QTest::newRow("mixture") << FixationCalculationParameters(MixtureParameters{10, false});
    QTest::newRow("velocity") << FixationCalculationParameters(velocityInPixels(10));
}

/// Saccades and invalid sections of the standard detector stay, and nobody is shown a report.
void TestFixationCalculation::otherDetectorsAddFixationsOnly()
{
    QFETCH(FixationCalculationParameters, other);
    const TemporarySettings store;
    SettingsStore().setValue(rows::gaussianMinimumDuration.key, 10);
    Examination made = saccadesOf(3);
    made.leftEye.gazePoints[5].validFlag = false;
    DataModel model = modelOf({made});
    calculateFixations(model, parameters, nullptr);
    const EyeData before = model.examinations()[0].leftEye;
    const RecordedMessages messages;
    const auto outcome = calculateFixations(model, other, nullptr);
    EyeData after = model.examinations()[0].leftEye;
    QVERIFY(outcome && outcome->reports.isEmpty());
    QCOMPARE(messages.texts(), QStringList());
    QCOMPARE(after.scanpath.size(), 3);
    after.scanpath = before.scanpath;
    QCOMPARE(after, before);
}

void TestFixationCalculation::warningsGoToTheLogOnly()
{
    const TemporarySettings store;
    const RecordedLog log;
    DataModel model = modelOf({saccadesOf(3)});
    model.examinations()[0].baseName = QStringLiteral("S07");
    const RecordedMessages messages;
    const auto outcome = calculateFixations(model, velocityInPixels(3), &log.log());
    const QString text = QStringLiteral("The minimum duration of 3 ms is shorter than one sampling interval, 5 ms.");
    const QList<DetectionWarning> expected{{QStringLiteral("S07"), QStringLiteral("left eye"), text},
                                           {QStringLiteral("S07"), QStringLiteral("mean eye"), text}};
    QVERIFY(outcome);
    QCOMPARE(outcome->warnings, expected); // the right eye was not recorded
    QCOMPARE(log.lines(),
             QStringList({QStringLiteral("S07, left eye: ") + text, QStringLiteral("S07, mean eye: ") + text}));
    QCOMPARE(messages.texts(), QStringList());
}

/// However many recordings and eyes there are.
void TestFixationCalculation::causesInTheParametersAreToldOnce()
{
    const TemporarySettings store;
    const RecordedLog log;
    VelocityParameters doubtful = velocityInPixels(100);
    doubtful.threshold = 0.5;
    doubtful.unit = VelocityUnit::DegreePerS;
    doubtful.screenDistanceM = 0;
    DataModel model = modelOf({saccadesOf(3), saccadesOf(4)});
    const auto outcome = calculateFixations(model, doubtful, &log.log());
    const QStringList texts{
        QStringLiteral("The velocity threshold of 0.5 works as 0, since only its whole part counts: no eye is slower."),
        QStringLiteral("The screen distance is 0: each movement counts as 90 degrees.")};
    QVERIFY(outcome);
    QCOMPARE(outcome->warnings, (QList<DetectionWarning>{{{}, {}, texts[0]}, {{}, {}, texts[1]}}));
    QCOMPARE(outcome->warnings[0].line(), texts[0]);
    QCOMPARE(log.lines(), texts);
    DataModel empty = modelOf({Examination()});
    const auto none = calculateFixations(empty, doubtful, nullptr);
    QVERIFY(none && none->warnings.isEmpty());
}

void TestFixationCalculation::failureOfTheMixtureIsTold()
{
    const TemporarySettings store;
    SettingsStore().setValue(rows::gaussianMinimumDuration.key, 10);
    const RecordedLog log;
    Examination made = saccadesOf(3);
    made.baseName = QStringLiteral("S07");
    made.leftEye.gazePoints.resize(2);
    DataModel model = modelOf({made});
    const auto outcome = calculateFixations(model, MixtureParameters{10, true}, &log.log());
    const QString text = QStringLiteral("No fixations: fewer than three usable samples.");
    QVERIFY(outcome);
    QCOMPARE(outcome->warnings, (QList<DetectionWarning>{{QStringLiteral("S07"), QStringLiteral("left eye"), text}}));
    QCOMPARE(log.lines(),
             QStringList({QStringLiteral("S07, left eye: ") + text, QStringLiteral("S07, right eye: ") + text}));
    QCOMPARE(model.examinations()[0].leftEye.scanpath.size(), 0);
    QCOMPARE(model.examinations()[0].meanEye.scanpath.size(), 3);
}

void TestFixationCalculation::threadsChangeNothing_data()
{
    QTest::addColumn<FixationCalculationParameters>("detector");
    QTest::newRow("standard") << FixationCalculationParameters(parameters);
    QTest::newRow("mixture") << FixationCalculationParameters(MixtureParameters{10, true});
    QTest::newRow("velocity") << FixationCalculationParameters(velocityInPixels(3));
}

void TestFixationCalculation::threadsChangeNothing()
{
    QFETCH(FixationCalculationParameters, detector);
    const TemporarySettings store;
    SettingsStore().setValue(rows::gaussianMinimumDuration.key, 10);
    QList<Examination> examinations;
    for (unsigned i = 0; i < 12; ++i) {
        Examination made = saccadesOf(3);
        made.baseName = QStringLiteral("S%1").arg(i);
        made.rightEye.gazePoints = generatedGaze({.count = 3000, .seed = i});
        made.meanEye.gazePoints[0].time = 1000; // the clock runs backwards: the standard detector complains
        examinations << made;
    }
    examinations[5].leftEye.gazePoints.resize(2); // too few for the mixture: it says so
    struct Result {
        QList<EyeData> eyes;
        QStringList texts;
        QStringList log;
        QStringList messages;
    };
    const auto resultOf = [&](int threads) {
        DataModel model = modelOf(examinations);
        Result result;
        const Log log(result.log);
        const RecordedMessages messages;
        const auto outcome = calculateFixations(model, detector, &log, threads);
        for (const Examination &examination : std::as_const(model).examinations()) {
            for (const EyeData *eye : examination.streams())
                result.eyes << *eye;
            result.texts << examination.calculationInfo.fixationCalculationInfo;
        }
        for (const DetectionWarning &warning : outcome->warnings)
            result.texts << warning.recording + warning.eye + warning.text;
        result.messages = messages.texts();
        return result;
    };
    const Result one = resultOf(1);
    QVERIFY(!one.log.isEmpty());
    const Result four = resultOf(4);
    QVERIFY(one.eyes == four.eyes);
    QCOMPARE(four.texts, one.texts);
    QCOMPARE(four.log, one.log);
    QCOMPARE(four.messages, one.messages);
}

/// An eye that was never found and times that are all the same make each sample a case for a box.
void TestFixationCalculation::oneBoxForEachCause()
{
    Examination blind;
    for (int i = 0; i < 3000; ++i) {
        blind.leftEye.gazePoints << GazePoint(0, 0, 0, 0, 0, 0);
        blind.rightEye.gazePoints << GazePoint(0, 500, 500, 3, 3, 1);
        blind.meanEye.gazePoints << GazePoint(0, -1, -1, -1, -1, 0);
    }
    DataModel model = modelOf({blind, blind});
    model.examinations()[0].baseName = QStringLiteral("S01");
    model.examinations()[1].baseName = QStringLiteral("S02");
    const RecordedMessages messages;
    const auto outcome = calculateFixations(model, parameters, nullptr);
    QVERIFY(outcome);
    showReports(*outcome);
    QCOMPARE(messages.texts().size(), 2);
    QCOMPARE(messages.texts()[0],
             QStringLiteral("All samples are invalid.|Your data seems to contain not a single valid "
                            "sample.\n12000 times in S01, S02"));
    QVERIFY(messages.texts()[1].startsWith(reportTitle));
}

QTEST_GUILESS_MAIN(TestFixationCalculation)
#include "TestFixationCalculation.moc"
