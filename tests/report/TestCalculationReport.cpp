// SPDX-License-Identifier: GPL-3.0-or-later
#include "report/CalculationReport.h"
#include "visualization/ToyData.h"

#include <QTest>

class TestCalculationReport : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void dataOfExaminations();
    void uncheckedExaminationsAreCounted();
    void areas();
    void namesDoNotBecomeMarkup();
    void eyes_data();
    void eyes();
    void detectors_data();
    void detectors();
    void clusters_data();
    void clusters();
    void saccadeClusters();
    void regions();
    void nothingDrawnHasNoBlocks();
    void percentModeChangesTheEndings_data();
    void percentModeChangesTheEndings();
    void blocksOfModes_data();
    void blocksOfModes();
    void saccadeClusterDrawing_data();
    void saccadeClusterDrawing();
    void areaModes_data();
    void areaModes();
    void blocksStandInTheirOrder();
    void table();
};

namespace {

Examination examination(const QString &subject)
{
    Examination examination;
    examination.subjectId = subject;
    examination.dominantEye = QStringLiteral("left");
    examination.leftEye.gazePoints = {toy::sample(0, 1, 1), toy::sample(1, 1, 1), toy::sample(2, 1, 1)};
    examination.leftEye.scanpath = {toy::stay({1, 1}, 0), toy::stay({9, 9}, 100)};
    examination.rightEye.scanpath = {toy::stay({1, 1}, 0)};
    examination.meanEye.saccades = {Saccade()};
    return examination;
}

toy::Scenery scenery()
{
    toy::Scenery scenery;
    scenery.gazePoints.visualizationMode = scenery.fixations.visualizationMode = 0;
    return scenery;
}

QString config(const toy::Scenery &toy, const ReportRecords &records = {})
{
    return calculationReport(toy.context(), records).config;
}

const QString rule = QStringLiteral("----------------------------------------<br>");

} // namespace

void TestCalculationReport::dataOfExaminations()
{
    DataModel model;
    model.examinations() = {examination(QStringLiteral("S01"))};
    QCOMPARE(reportData(model, EyeMode::showAll, {1500, 3661001}),
             QStringLiteral("Eye: ALL<br>-------------<br>Timespan (ms): 1500ms to 3661001ms <br>-------------<br>"
                            "Timespan (h:m:s.ms): 00:00:01.500 to 01:01:01.001 <br>-------------<br>"
                            "DATA:<br>-------------<br>Examination (Subject ID):S01<br>"
                            "Gazepoints (dominant|left|right|mean):3|3|0|0<br>"
                            "Fixations (dominant|left|right|mean):2|2|1|0<br>"
                            "Fixationclusters (dominant|left|right|mean):0|0|0|0<br>"
                            "Saccades (dominant|left|right|mean):0|0|0|1<br>"));
}

void TestCalculationReport::uncheckedExaminationsAreCounted()
{
    DataModel model;
    model.examinations() = {examination(QStringLiteral("S01")), examination(QStringLiteral("S02"))};
    const QString checked = reportData(model, EyeMode::showAll, {});
    for (Examination &each : model.examinations())
        each.checked = false;
    QCOMPARE(reportData(model, EyeMode::showAll, {}), checked);
    QCOMPARE(checked.count(QStringLiteral("Gazepoints (dominant|left|right|mean):")), 2);
}

void TestCalculationReport::areas()
{
    DataModel model;
    model.insertAoi(AreaOfInterest(QStringLiteral("Door"), QPolygon({QPoint(0, 0), QPoint(10, 0), QPoint(11, 30)})));
    QVERIFY(reportData(model, EyeMode::showAll, {})
                .endsWith(QStringLiteral("<br>DATA:AOIs<br>-------------<br>AOI:Door  Mean position:(7,10)<br>")));
}

void TestCalculationReport::namesDoNotBecomeMarkup()
{
    DataModel model;
    model.examinations() = {examination(QStringLiteral("<b>S01"))};
    model.insertAoi(AreaOfInterest(QStringLiteral("a<table>&"), {}));
    const QString text = reportData(model, EyeMode::showAll, {});
    QVERIFY(text.contains(QStringLiteral("&lt;b&gt;S01")));
    QVERIFY(text.contains(QStringLiteral("a&lt;table&gt;&amp;")));
}

void TestCalculationReport::eyes_data()
{
    QTest::addColumn<EyeMode>("mode");
    QTest::addColumn<QString>("word");
    QTest::newRow("all") << EyeMode::showAll << "Eye: ALL<br>";
    QTest::newRow("dominant") << EyeMode::showDominant << "Eye: DOMINANT<br>";
    QTest::newRow("left") << EyeMode::showLeft << "Eye: LEFT<br>";
    QTest::newRow("right") << EyeMode::showRight << "Eye: RIGHT<br>";
    QTest::newRow("mean") << EyeMode::showMean << "Eye: MEAN<br>";
}

void TestCalculationReport::eyes()
{
    QFETCH(EyeMode, mode);
    QFETCH(QString, word);
    QVERIFY(reportData({}, mode, {}).startsWith(word));
}

void TestCalculationReport::detectors_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("unit");
    QTest::addColumn<QString>("lines");
    const char *standard =
        "Fixation calculation:Standard<br>Maximum radius:40<br>Minimum duration:100<br>Outlier:2<br>";
    QTest::newRow("standard") << 0 << 0 << standard;
    QTest::newRow("unknown runs the standard one") << unknownCalculationType << 0 << standard;
    QTest::newRow("mixture") << 1 << 0
                             << "Fixation calculation:Gaussian Mixture Model<br>Minimum duration:150<br>"
                                "Merge sequential fixations:YES<br>";
    QTest::newRow("velocity") << 2 << 0
                              << "Fixation calculation:Velocity based<br>Velocity threshold:2.5<br>Unit:[pixel/ms]<br>"
                                 "Minimum duration:120<br>";
    QTest::newRow("degrees") << 2 << 1
                             << QStringLiteral("Fixation calculation:Velocity based<br>Velocity threshold:2.5<br>"
                                               "Unit:[°/s]<br>Minimum duration:120<br>");
    QTest::newRow("percentile")
        << 2 << 2
        << "Fixation calculation:Velocity based<br>Velocity threshold:2.5<br>Unit:percentile<br>"
           "Minimum duration:120<br>";
}

void TestCalculationReport::detectors()
{
    QFETCH(int, type);
    QFETCH(int, unit);
    QFETCH(QString, lines);
    ReportRecords records;
    records.fixations = {.calculationType = type,
                         .standardMinimumDuration = 100,
                         .standardMaximumRadius = 40,
                         .standardOutliers = 2,
                         .gaussianMinimumDuration = 150,
                         .gaussianMergeSequential = true,
                         .velocityMinimumDuration = 120,
                         .velocityThreshold = 2.5,
                         .velocityUnit = unit};
    QVERIFY(reportCalculation(records).startsWith(QStringLiteral("CALCULATION PARAMETER:<br>") + rule + lines +
                                                  QStringLiteral("Fixation cluster")));
}

void TestCalculationReport::clusters_data()
{
    QTest::addColumn<ClusterParameters>("parameters");
    QTest::addColumn<QString>("lines");
    QTest::newRow("standard") << ClusterParameters(StandardClusterParameters{3, 10, 100})
                              << "Fixation cluster calculation:Standard<br>Minimum fixations:3<br>Overlap:10<br>"
                                 "Maximum radius:100<br>";
    QTest::newRow("mean-shift") << ClusterParameters(MeanShiftClusterParameters{80, 0.1, 50, 4})
                                << "Fixation cluster calculation:Mean-shift<br>Gradient:0.1<br>Iterations:50<br>"
                                   "Radius:80<br>Minimum fixations:4<br>";
    QTest::newRow("overlap") << ClusterParameters(OverlapClusterParameters{2, 1})
                             << "Fixation cluster calculation:Overlap<br>Minimum fixations:2<br>Outlier:1<br>";
}

void TestCalculationReport::clusters()
{
    QFETCH(ClusterParameters, parameters);
    QFETCH(QString, lines);
    ReportRecords records;
    records.clusters = parameters;
    QVERIFY(reportCalculation(records).contains(lines + QStringLiteral("Saccade cluster calculation<br>")));
}

void TestCalculationReport::saccadeClusters()
{
    ReportRecords records;
    SaccadeClusterParameters &p = records.saccadeClusters;
    p = {.minimumLength = 5,
         .minimumAngleDifference = 6,
         .distanceCutoff = 7,
         .angleCutoff = 8,
         .minimumAngleQuantity = 9,
         .minimumDistanceQuantity = 10,
         .distanceLinkage = 0,
         .angleLinkage = 1,
         .distanceAlgorithm = 1,
         .directionDependent = false};
    const QString head = QStringLiteral("Saccade cluster calculation<br>Minimum saccade lenght:5<br>"
                                        "Minimum saccade angle difference:6<br>");
    QVERIFY(reportCalculation(records).endsWith(
        head + QStringLiteral("Angle clustering: direction independent <br>Linkage method: maximum <br>"
                              "Tree cutoff value:8<br>Minimum saccades per cluster:9<br>"
                              "Distance clustering: manhattan distance <br>Linkage method: average <br>"
                              "Tree cutoff value:7<br>Minimum saccades per cluster:10<br>")));
    p.directionDependent = true;
    p.distanceAlgorithm = 0;
    p.distanceLinkage = 2;
    QVERIFY(reportCalculation(records).contains(QStringLiteral("Angle clustering: direction dependent <br>")));
    QVERIFY(reportCalculation(records).contains(
        QStringLiteral("Distance clustering: euclidean distance <br>Linkage method: minimum <br>")));
}

void TestCalculationReport::regions()
{
    ReportRecords records;
    QVERIFY(!reportCalculation(records).contains(QStringLiteral("AOI heatmap")));
    records.regions = RegionParameters{};
    QVERIFY(reportCalculation(records).endsWith(
        QStringLiteral("AOI heatmap generation parameter<br>Method:STANDARD<br>Intesity:50 I<br>Size:100 px<br>"
                       "Pre threshold:10 %<br>Threshold:50<br>Min region size:50<br>Window size:250<br>")));
    records.regions->method = RegionMethod::Gradient;
    QVERIFY(reportCalculation(records).contains(QStringLiteral("Method:GRADIENT<br>")));
}

void TestCalculationReport::nothingDrawnHasNoBlocks()
{
    QCOMPARE(config(scenery()), QStringLiteral("CONFIG:<br>") + rule + rule);
}

void TestCalculationReport::percentModeChangesTheEndings_data()
{
    QTest::addColumn<bool>("percent");
    QTest::addColumn<QString>("ending");
    QTest::newRow("counts") << false << " fix/min<br>";
    QTest::newRow("percent") << true << "%<br>";
}

void TestCalculationReport::percentModeChangesTheEndings()
{
    QFETCH(bool, percent);
    QFETCH(QString, ending);
    toy::Scenery toy = scenery();
    toy.fixations.visualizationMode = 3;
    toy.fixations.percentMode = percent;
    toy.fixations.heatmapThreashold = 20;
    toy.fixations.power = 0.6;
    toy.fixations.heatmapColormap = 1;
    QCOMPARE(config(toy), QStringLiteral("CONFIG:<br>") + rule +
                              QStringLiteral("Fixations Visualisationmode:Heatmap<br>Size:100<br>Intensity:50<br>"
                                             "Threashold:20%1Absolut maxima:60%1Heatmap colormap:BLUE<br>")
                                  .arg(ending) +
                              rule);
}

void TestCalculationReport::blocksOfModes_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("lines");
    const QString colors =
        QStringLiteral("Dominant color (red|green|blue):255|0|0<br>Left color (red|green|blue):0|255|0"
                       "<br>Right color (red|green|blue):0|0|255<br>");
    const QString borders = QStringLiteral("Border width:1<br>Fill opacity:50<br>Border type:Same<br>") + colors;
    const QString shadow = QStringLiteral("Size:100<br>Intensity:50<br>Threashold:0<br>Shadow Power:1<br>"
                                          "Shadow Transparency:10<br>");
    const QString heatmap = QStringLiteral("Size:100<br>Intensity:50<br>Threashold:0<br>Absolut maxima:100<br>"
                                           "Heatmap colormap:RED GREEN<br>");
    const QString transitions =
        QStringLiteral("Cluster size:5<br>Maximal line size:1<br>Draw cluster elliptical:NO<br>Show "
                       "names:NO<br>Transitions only:NO<br>"
                       "Line size absolute:NO<br>Transitions per Minute:0<br>Cluster color (red|green|blue):255|0|0<br>"
                       "Left color (red|green|blue):0|255|0<br>Right color (red|green|blue):0|0|255<br>");
    const QString chart = QStringLiteral("Time window:100 ms<br>Use curves:NO<br>Use splines:NO<br>Lines only:NO<br>");
    const auto row = [](int kind, int mode, const char *head, const QString &lines) {
        QTest::newRow(head) << kind << mode << QLatin1StringView(head) + QStringLiteral("<br>") + lines;
    };
    row(0, 1, "GazePoint Visualisationmode:Point", QStringLiteral("Point size:5<br>Step size:1<br>") + colors);
    row(0, 2, "GazePoint Visualisationmode:Heatmap", heatmap);
    row(0, 3, "GazePoint Visualisationmode:Shadowmap", shadow);
    row(1, 1, "Fixations Visualisationmode:Elliptic", borders);
    row(1, 2, "Fixations Visualisationmode:Circular",
        borders + QStringLiteral("Circle size:5<br>Duration dependent:NO<br>"));
    row(1, 4, "Fixations Visualisationmode:Shadowmap", shadow);
    row(1, 5, "Fixations Visualisationmode:Histogram", chart);
    row(1, 6, "Fixations Visualisationmode:Histogram seperated", chart);
    const QString points = QStringLiteral("Show cluster points:NO<br>") + borders;
    row(2, 1, "Fixationclusters Visualisationmode:Elliptic", points);
    row(2, 2, "Fixationclusters Visualisationmode:Circular", points + QStringLiteral("Circle size:5<br>"));
    row(2, 3, "Fixationclusters Visualisationmode:Heatmap",
        QStringLiteral("Size:100<br>Intensity:50<br>Threashold:0 clu/min<br>Absolut maxima:100 clu/min<br>"
                       "Heatmap colormap:RED GREEN<br>"));
    row(2, 4, "Fixationclusters Visualisationmode:Shadowmap", shadow);
    row(2, 5, "Fixationclusters Visualisationmode:Cumulativ elliptic", points);
    row(2, 6, "Fixationclusters Visualisationmode:Cumulativ circle", points + QStringLiteral("Circle size:5<br>"));
    row(2, 7, "Fixationclusters Visualisationmode:Transitions", transitions);
    row(2, 8, "Fixationclusters Visualisationmode:Cumulativ Transitions", transitions);
    row(2, 9, "Fixationclusters Visualisationmode:Cluster + Cumulativ Transitions", transitions);
    row(3, 1, "Saccades Visualisationmode:Arrows",
        QStringLiteral("Show arrow tip:YES<br>Line thickness:5<br>Step size:1<br>"));
    row(3, 2, "Saccades Visualisationmode:Anglestar",
        QStringLiteral("Number of histogramm bins:25<br>Angle offset:0<br>Show quantity:NO<br>Show duration:YES<br>"
                       "Show length:NO<br>Solid quantity:NO<br>Solid duration:NO<br>Solid length:NO<br>"));
    row(3, 3, "Saccades Visualisationmode:Heatmap", heatmap);
    row(3, 4, "Saccades Visualisationmode:Shadowmap", shadow);
    row(3, 5, "Saccades Visualisationmode:Histogram", chart + QStringLiteral("Length dependent:NO<br>"));
    row(3, 6, "Saccades Visualisationmode:Histogram seperated", chart + QStringLiteral("Length dependent:NO<br>"));
    row(3, 7, "Saccades Visualisationmode:Histogram sac vs fix", chart);
}

void TestCalculationReport::blocksOfModes()
{
    QFETCH(int, kind);
    QFETCH(int, mode);
    QFETCH(QString, lines);
    toy::Scenery toy = scenery();
    VisualizationParameters *records[] = {&toy.gazePoints, &toy.fixations, &toy.clusters, &toy.saccades};
    records[kind]->visualizationMode = mode;
    QCOMPARE(config(toy), QStringLiteral("CONFIG:<br>") + rule + lines + rule);
}

void TestCalculationReport::saccadeClusterDrawing_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<bool>("tips");
    QTest::addColumn<QString>("lines");
    QTest::newRow("none") << 0 << true << "";
    QTest::newRow("lines") << 1 << false
                           << "Saccade clusters visualization mode: lines<br>Line width: 3<br>Show arrowtips: false<br>"
                              "Minimum saccades per cluster: 1<br>";
    QTest::newRow("with tips") << 1 << true
                               << "Saccade clusters visualization mode: lines<br>Line width: 3<br>Show arrowtips: true"
                                  "<br>Minimum saccades per cluster: 1<br>";
    QTest::newRow("single lines") << 2 << true
                                  << "Saccade clusters visualization mode: single lines<br>Line width: >3<br>"
                                     "Minimum saccades per cluster: 1<br>";
}

void TestCalculationReport::saccadeClusterDrawing()
{
    QFETCH(int, mode);
    QFETCH(bool, tips);
    QFETCH(QString, lines);
    ReportRecords records;
    records.saccadeClusterMode = static_cast<SaccadeClusterMode>(mode);
    records.saccadeClusterStyle.showArrowTips = tips;
    QCOMPARE(config(scenery(), records), QStringLiteral("CONFIG:<br>") + rule + lines + rule);
}

void TestCalculationReport::areaModes_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("head");
    QTest::newRow("none") << 0 << QString();
    QTest::newRow("outlined") << 1 << "AOI Visualisationmode:Outlined<br>";
    QTest::newRow("page") << 2 << "AOI Visualisationmode:Transition diagram(external)<br>";
    QTest::newRow("ribbons") << 3 << "AOI Visualisationmode:Transition diagram(internally)<br>";
    QTest::newRow("another chart") << 4
                                   << "AOI Visualisationmode:Time dependent transitions<br>Time window:1000 ms<br>";
    QTest::newRow("chart") << 5 << "AOI Visualisationmode:Fixations over time<br>Time window:1000 ms<br>";
    QTest::newRow("outlines and a chart")
        << 7 << "AOI Visualisationmode:FixationsRelativeToTimeWindow<br>Time window:1000 ms<br>";
    QTest::newRow("not there") << 99 << QString();
}

void TestCalculationReport::areaModes()
{
    QFETCH(int, mode);
    QFETCH(QString, head);
    toy::Scenery toy = scenery();
    toy.areas.drawMode = mode;
    const QString block = QStringLiteral("Display names:YES<br>Border width:5<br>Fill opacity:50<br>"
                                         "Color (red|green|blue):255|0|0<br>");
    QCOMPARE(config(toy), QStringLiteral("CONFIG:<br>") + rule + head + (head.isEmpty() ? QString() : block) + rule);
}

void TestCalculationReport::blocksStandInTheirOrder()
{
    toy::Scenery toy = scenery();
    toy.gazePoints.visualizationMode = toy.fixations.visualizationMode = toy.clusters.visualizationMode = 1;
    toy.saccades.visualizationMode = toy.areas.drawMode = 1;
    ReportRecords records;
    records.saccadeClusterMode = SaccadeClusterMode::Lines;
    const QString text = config(toy, records);
    qsizetype last = 0;
    for (const char *head : {"GazePoint ", "Fixations ", "Fixationclusters ", "Saccades ", "Saccade clusters ", "AOI "})
    {
        const qsizetype place = text.indexOf(QLatin1StringView(head) + QStringLiteral("V"), 0, Qt::CaseInsensitive);
        QVERIFY2(place > last, head);
        last = place;
    }
}

void TestCalculationReport::table()
{
    const QString style = QStringLiteral("px;background-color:#FFFFFF;font-family:\"Times New Roman\";font-size:40px;"
                                         "font-weight:bold;color:#000000;'>");
    QCOMPARE(reportTable({QStringLiteral("one"), QStringLiteral("two"), QStringLiteral("three")}, 2560),
             QStringLiteral("<table border='0'  cellspacing='30' style=\"background-color:#000000;\"><tr><td>"
                            "<div style='padding: 10px 10px 10px 10px;float:left;width:853.333") +
                 style +
                 QStringLiteral("one</div> </td><td><div style='padding: 10px 10px 10px 10px;float:left;width:"
                                "853.333") +
                 style +
                 QStringLiteral("two</div> </td><td> <div style='padding: 10px 10px 10px 10px;float:right;width:"
                                "853.333") +
                 style + QStringLiteral("three</div></td></tr></table>"));
}

QTEST_GUILESS_MAIN(TestCalculationReport)
#include "TestCalculationReport.moc"
