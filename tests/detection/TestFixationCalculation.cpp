#include "base/Progress.h"
#include "detection/FixationCalculation.h"
#include "model/DataModel.h"
#include "TestMessages.h"

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
    model.pooledEyeData(0).scanpath << Fixation();
    const RecordedMessages messages;
    QVERIFY(!calculateFixations(model, parameters, nullptr));
    QCOMPARE(messages.texts(), QStringList(QStringLiteral("No examination selected!|Please select some data first.")));
    QCOMPARE(model.pooledEyeData(0).scanpath.size(), 1);
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
    const RecordedMessages messages;
    const std::optional<QString> report = calculateFixations(model, parameters, nullptr);
    QCOMPARE(report, expected + expected);
    QCOMPARE(messages.texts(), QStringList(reportTitle + expected + expected));
}

void TestFixationCalculation::progressIsClosedBeforeTheReport()
{
    DataModel model = modelOf({examination(), examination(false), examination()});
    QStringList events;
    auto display = Progress::install(std::make_unique<RecordedProgress>(events));
    auto handler = messages::install(std::make_unique<RecordedBoxes>(events));
    calculateFixations(model, parameters, nullptr);
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
    for (int pool = 0; pool < 4; ++pool) {
        model.pooledEyeData(pool).scanpath << Fixation();
        model.pooledEyeData(pool).fixationClusters << FixationCluster();
        model.pooledEyeData(pool).saccades << Saccade();
    }
    calculateFixations(model, parameters, nullptr);
    constexpr int dominant = 2;
    for (int pool = 0; pool < 4; ++pool) {
        const qsizetype left = pool == dominant ? 1 : 0;
        QCOMPARE(model.pooledEyeData(pool).scanpath.size(), left);
        QCOMPARE(model.pooledEyeData(pool).fixationClusters.size(), left);
        QCOMPARE(model.pooledEyeData(pool).saccades.size(), 1);
    }
}

void TestFixationCalculation::eyesWithoutSamples()
{
    DataModel model = modelOf({Examination()});
    const std::optional<QString> report = calculateFixations(model, parameters, nullptr);
    QVERIFY(report && report->startsWith(QStringLiteral("left eye:\nInvalid before processing: min 0[ms]")));
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

QTEST_GUILESS_MAIN(TestFixationCalculation)
#include "TestFixationCalculation.moc"
