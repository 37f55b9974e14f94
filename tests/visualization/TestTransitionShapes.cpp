// SPDX-License-Identifier: GPL-3.0-or-later
#include "ToyData.h"
#include "visualization/modes/Picture.h"
#include "visualization/shapes/ClusterShapes.h"
#include "visualization/shapes/TransitionShapes.h"

#include <QTest>

#include <limits>

namespace {

using Pair = ClusterTransitions::Pair;

VisualizationParameters transitionDrawing()
{
    VisualizationParameters parameters = toy::parameters(QStringLiteral("FixationclusterVisualization"));
    parameters.stepSize = 10;
    parameters.heatmapThreashold = 0;
    parameters.fillColor = QColor(9, 8, 7);
    parameters.fillColorLeft = QColor(200, 0, 100);
    parameters.fillColorRight = QColor(0, 100, 50);
    return parameters;
}

/// Clusters at (100, 100), (300, 100) and (300, 400), with transitions of 7 px each.
TransitionPicture pictureOf(const QList<std::pair<Pair, int>> &counts, double perMinute = 1)
{
    QList<FixationCluster> clusters;
    for (const QPoint mean : {QPoint(100, 100), QPoint(300, 100), QPoint(300, 400)})
        clusters << toy::cluster(mean, {toy::stay(mean, 0)});
    ClusterTransitions transitions(clusters.size());
    for (const auto &[pair, count] : counts) {
        for (int i = 0; i < count; ++i)
            transitions.add(pair, 7, 0);
    }
    const int largest = transitions.largest();
    return {clusters, transitions, largest, perMinute};
}

/// The drawing's numbers of circles or ellipses and, of its lines, "from>to" by the tool tips.
QString contentOf(const Drawing &drawing)
{
    QStringList content;
    for (const Shape &shape : drawing) {
        if (const auto *line = std::get_if<LineShape>(&shape))
            content << line->toolTip[13] + QStringLiteral(">") + line->toolTip[26];
        else if (const auto *oval = std::get_if<OvalShape>(&shape))
            content << QString(oval->toolTip[12]);
    }
    return content.join(u' ');
}

} // namespace

class TestTransitionShapes : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void wholeDrawing();
    void ellipsesAndNames();
    void noTransitions();
    void statistics();
    void onePairOneLine_data();
    void onePairOneLine();
    void thresholds_data();
    void thresholds();
    void widths_data();
    void widths();
    void colors_data();
    void colors();
    void perMinute_data();
    void perMinute();
    void clustersWithoutFixations();
    void frameAndWholeRecording();
    void saccadesOnly();
    void bothEyes();
};

void TestTransitionShapes::wholeDrawing()
{
    // From 0 to 1 three times, back once, from 2 to 1 twice. Circles of (5 * 5 + 5) * 4 = 120 px. Totals 4, 6 and 2 of
    // 6 transitions. Widths 3 / 3 * 10 + 1 and 2 / 3 * 10 + 1. Colours: to the right with p = 3/4, q = 1/4:
    // (0 + 50, 75 + 0, 37.5 + 25); a vertical line counts as rightward.
    const QString text =
        toText(transitionShapes(pictureOf({{{0, 1}, 3}, {{1, 0}, 1}, {{2, 1}, 2}}), transitionDrawing()));
    QCOMPARE(text, QStringLiteral("oval 40 40 120 120 pen #090807 5 brush none tip Cluster ID: 0 | "
                                  "Mean position: (100,100) | Amount transitions: 4 | "
                                  "Amount transitions to global (incoming and outgoing): 0.666667 | "
                                  "Mean length: 7 | Standard deviation length: 0\n"
                                  "oval 240 40 120 120 pen #090807 5 brush none tip Cluster ID: 1 | "
                                  "Mean position: (300,100) | Amount transitions: 6 | "
                                  "Amount transitions to global (incoming and outgoing): 1 | "
                                  "Mean length: 7 | Standard deviation length: 0\n"
                                  "oval 240 340 120 120 pen #090807 5 brush none tip Cluster ID: 2 | "
                                  "Mean position: (300,400) | Amount transitions: 2 | "
                                  "Amount transitions to global (incoming and outgoing): 0.333333 | "
                                  "Mean length: 7 | Standard deviation length: 0\n"
                                  "line 100 100 to 300 100 pen #ff324b3e 11 solid tip "
                                  "From Cluster 0 to Cluster 1 :3 | From Cluster 1 to Cluster 0 :1 | "
                                  "Share in total(Cluster 0) (incoming and outgoing):0.75 | "
                                  "Share in total(Cluster 1) (incoming and outgoing):0.166667\n"
                                  "line 300 400 to 300 100 pen #ff006432 7.66667 solid tip "
                                  "From Cluster 2 to Cluster 1 :2 | From Cluster 1 to Cluster 2 :0 | "
                                  "Share in total(Cluster 2) (incoming and outgoing):1 | "
                                  "Share in total(Cluster 1) (incoming and outgoing):0\n"));
}

void TestTransitionShapes::ellipsesAndNames()
{
    VisualizationParameters parameters = transitionDrawing();
    parameters.showOriginalSize = true;
    parameters.fillColorName = QColor(1, 2, 3);
    Drawing drawing = transitionShapes(pictureOf({}), parameters);
    QCOMPARE(toText({drawing[1]}), QStringLiteral("text middle 40 40 #010203 font Times New Roman 30 reads C:0\n"));
    QCOMPARE(std::get<TextShape>(drawing[1]).font, QFont(QStringLiteral("Times New Roman"), 30));
    QCOMPARE(std::get<TextShape>(drawing[5]).text, QStringLiteral("C:2"));

    // Axes (30, 10) and (-2, 6) at 5 / 10 + 1 = 1.5 times; the name at (45 + 3) / 2 and (15 + 9) / 2.
    parameters.showGazePoints = true;
    drawing = transitionShapes(pictureOf({}), parameters);
    QVERIFY(toText({drawing[0]})
                .startsWith(QStringLiteral(
                    "ellipse 100 100 major 45 15 minor -3 9 pen #090807 5 brush none tip Cluster ID: 0 | ")));
    QCOMPARE(std::get<TextShape>(drawing[1]).top, QPointF(76, 88));
    const QPen pen = std::get<EllipseShape>(drawing[0]).pen;
    QCOMPARE(pen, QPen(QColor(9, 8, 7), 5.0, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
}

void TestTransitionShapes::noTransitions()
{
    const Drawing drawing = transitionShapes(pictureOf({}), transitionDrawing());
    QCOMPARE(contentOf(drawing), QStringLiteral("0 1 2"));
    QVERIFY(std::get<OvalShape>(drawing[0])
                .toolTip.endsWith(QStringLiteral("Amount transitions: 0\r\n"
                                                 "Amount transitions to global (incoming and outgoing): nan\r\n"
                                                 "Mean length: nan\r\nStandard deviation length: nan")));
    QVERIFY(transitionShapes({{}, ClusterTransitions(0), 1, 1}, transitionDrawing()).isEmpty());
}

void TestTransitionShapes::statistics()
{
    TransitionPicture picture = pictureOf({});
    for (const double length : {10.0, 20.0, 60.0})
        picture.inFrame.add({0, 1}, length, 0);
    // Mean 30; squares 400 + 100 + 900 over 3 make 466.667, its root 21.6025.
    const QString toolTip = std::get<OvalShape>(transitionShapes(picture, transitionDrawing())[1]).toolTip;
    QVERIFY2(toolTip.endsWith(QStringLiteral("\r\nMean length: 30\r\nStandard deviation length: 21.6025")),
             qPrintable(toolTip));
}

void TestTransitionShapes::onePairOneLine_data()
{
    QTest::addColumn<int>("there");
    QTest::addColumn<int>("back");
    QTest::addColumn<QString>("content");
    QTest::newRow("none") << 0 << 0 << QStringLiteral("0 1 2");
    QTest::newRow("there only") << 1 << 0 << QStringLiteral("0 1 2 0>1");
    QTest::newRow("back only") << 0 << 1 << QStringLiteral("0 1 2 1>0");
    QTest::newRow("the busier direction") << 1 << 2 << QStringLiteral("0 1 2 1>0");
    QTest::newRow("even: from the smaller number") << 2 << 2 << QStringLiteral("0 1 2 0>1");
}

void TestTransitionShapes::onePairOneLine()
{
    QFETCH(int, there);
    QFETCH(int, back);
    QTEST(contentOf(transitionShapes(pictureOf({{{0, 1}, there}, {{1, 0}, back}}), transitionDrawing())), "content");
}

void TestTransitionShapes::thresholds_data()
{
    QTest::addColumn<int>("threshold");
    QTest::addColumn<bool>("perPair");
    QTest::addColumn<double>("perMinute");
    QTest::addColumn<QString>("content");
    // From 0 to 1 four times, from 1 to 2 once: totals 4, 5 and 1.
    QTest::newRow("none") << 0 << false << 1.0 << QStringLiteral("0 1 2 0>1 1>2");
    QTest::newRow("1 is reached by all") << 1 << false << 1.0 << QStringLiteral("0 1 2 0>1 1>2");
    QTest::newRow("a line needs the total of its target") << 2 << false << 1.0 << QStringLiteral("0 1 0>1");
    QTest::newRow("and not that of its origin") << 5 << false << 1.0 << QStringLiteral("1 0>1");
    QTest::newRow("nothing reaches 6") << 6 << false << 1.0 << QString();
    QTest::newRow("per pair: all clusters, busy pairs") << 2 << true << 1.0 << QStringLiteral("0 1 2 0>1");
    QTest::newRow("4 are enough for 4") << 4 << true << 1.0 << QStringLiteral("0 1 2 0>1");
    QTest::newRow("but not for 5") << 5 << true << 1.0 << QStringLiteral("0 1 2");
    QTest::newRow("two per minute each: 8, 10 and 2") << 8 << false << 2.0 << QStringLiteral("0 1 0>1");
    QTest::newRow("8 and 2 per pair") << 8 << true << 2.0 << QStringLiteral("0 1 2 0>1");
}

void TestTransitionShapes::thresholds()
{
    QFETCH(int, threshold);
    QFETCH(bool, perPair);
    QFETCH(double, perMinute);
    VisualizationParameters parameters = transitionDrawing();
    parameters.heatmapThreashold = threshold;
    parameters.transitionsOnly = perPair;
    QTEST(contentOf(transitionShapes(pictureOf({{{0, 1}, 4}, {{1, 2}, 1}}, perMinute), parameters)), "content");
    // Both directions count for a pair.
    parameters.transitionsOnly = true;
    parameters.heatmapThreashold = 5;
    QCOMPARE(contentOf(transitionShapes(pictureOf({{{0, 1}, 3}, {{1, 0}, 2}}), parameters)),
             QStringLiteral("0 1 2 0>1"));
}

void TestTransitionShapes::widths_data()
{
    QTest::addColumn<bool>("absolute");
    QTest::addColumn<int>("stepSize");
    QTest::addColumn<QList<double>>("expected");
    // Counts 4 and 1 in the frame, at most 8 in the recording.
    QTest::newRow("4 / 4 and 1 / 4 of 10, and 1") << false << 10 << QList<double>{11, 3.5};
    QTest::newRow("4 / 8 and 1 / 8 of 10, and 1") << true << 10 << QList<double>{6, 2.25};
    QTest::newRow("a step of 1") << false << 1 << QList<double>{2, 1.25};
    QTest::newRow("one below the form's: never below 0") << false << -20 << QList<double>{0, 0};
}

void TestTransitionShapes::widths()
{
    QFETCH(bool, absolute);
    QFETCH(int, stepSize);
    VisualizationParameters parameters = transitionDrawing();
    parameters.lineSizeAbsolute = absolute;
    parameters.stepSize = stepSize;
    TransitionPicture picture = pictureOf({{{0, 1}, 4}, {{1, 2}, 1}});
    picture.largestOfRecording = 8;
    QList<double> widths;
    for (const Shape &shape : transitionShapes(picture, parameters).mid(3)) {
        const QPen pen = std::get<LineShape>(shape).pen;
        QCOMPARE(pen, QPen(pen.color(), pen.widthF(), Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
        widths << pen.widthF();
    }
    QTEST(widths, "expected");
}

void TestTransitionShapes::colors_data()
{
    QTest::addColumn<int>("toX");
    QTest::addColumn<int>("there");
    QTest::addColumn<int>("back");
    QTest::addColumn<QColor>("expected");
    // From x = 50; to the left is (200, 0, 100), to the right (0, 100, 50).
    QTest::newRow("rightward only") << 60 << 5 << 0 << QColor(0, 100, 50);
    QTest::newRow("leftward only") << 40 << 5 << 0 << QColor(200, 0, 100);
    QTest::newRow("vertical is rightward") << 50 << 1 << 0 << QColor(0, 100, 50);
    QTest::newRow("one pixel to the left is leftward") << 49 << 1 << 0 << QColor(200, 0, 100);
    QTest::newRow("even: the mean of both") << 60 << 2 << 2 << QColor(100, 50, 75);
    QTest::newRow("even from the right, too") << 40 << 2 << 2 << QColor(100, 50, 75);
    QTest::newRow("2 : 1 to the right, cut: 66.7, 66.7, 66.7") << 60 << 2 << 1 << QColor(66, 66, 66);
    QTest::newRow("3 : 1 to the left: 150, 25, 87.5") << 40 << 3 << 1 << QColor(150, 25, 87);
}

void TestTransitionShapes::colors()
{
    QFETCH(int, toX);
    QFETCH(int, there);
    QFETCH(int, back);
    VisualizationParameters parameters = transitionDrawing();
    parameters.fillColorLeft.setAlpha(10); // lines are opaque
    QTEST(directionColor({50, 7}, {toX, 90}, {there, back}, parameters), "expected");
}

void TestTransitionShapes::perMinute_data()
{
    QTest::addColumn<qint64>("start");
    QTest::addColumn<qint64>("end");
    QTest::addColumn<double>("expected");
    QTest::newRow("a minute") << qint64(1000) << qint64(61000) << 1.0;
    QTest::newRow("a quarter") << qint64(0) << qint64(15000) << 4.0;
    QTest::newRow("a millisecond") << qint64(5) << qint64(6) << 60000.0;
    QTest::newRow("no time") << qint64(5) << qint64(5) << 1.0;
    QTest::newRow("backwards") << qint64(6) << qint64(5) << 1.0;
    QTest::newRow("nothing overflows") << std::numeric_limits<qint64>::min() << std::numeric_limits<qint64>::max()
                                       << 60000.0 / 18446744073709551616.0;
}

void TestTransitionShapes::perMinute()
{
    QFETCH(qint64, start);
    QFETCH(qint64, end);
    QTEST((TimeFrame{start, end}.perMinute()), "expected");
}

void TestTransitionShapes::clustersWithoutFixations()
{
    TransitionPicture picture = pictureOf({{{0, 2}, 1}});
    picture.clusters[1].fixations.clear();
    VisualizationParameters parameters = transitionDrawing();
    parameters.showOriginalSize = true;
    QCOMPARE(contentOf(transitionShapes(picture, parameters)), QStringLiteral("0 2 0>2"));
    parameters.transitionsOnly = true;
    QCOMPARE(transitionShapes(picture, parameters).size(), qsizetype(2 + 2 + 1)); // marks, names, a line
}

namespace {

/// A left eye that looks at x = 0, 500, 0, 500 from 0, 100, 200 and 300 ms, with a cluster at each.
toy::Scenery movingScenery()
{
    toy::Scenery scenery;
    scenery.clusters = transitionDrawing();
    scenery.clusters.visualizationMode = 7;
    scenery.eyeMode = EyeMode::showLeft;
    Examination examination;
    QList<Fixation> &scanpath = examination.leftEye.scanpath;
    for (int i = 0; i < 4; ++i)
        scanpath << toy::stay({i % 2 * 500, 100}, 100 * i);
    examination.leftEye.fixationClusters = {toy::cluster({0, 100}, {scanpath[0], scanpath[2]}),
                                            toy::cluster({500, 100}, {scanpath[1], scanpath[3]})};
    examination.rightEye = examination.leftEye;
    scenery.model.examinations() = {examination};
    return scenery;
}

Drawing drawn(const toy::Scenery &scenery)
{
    return pictureOf(scenery.context()).drawing;
}

} // namespace

void TestTransitionShapes::frameAndWholeRecording()
{
    toy::Scenery scenery = movingScenery();
    // In the recording two there, one back; in the frame one there.
    scenery.frame = {0, 199};
    Drawing drawing = drawn(scenery);
    QCOMPARE(contentOf(drawing), QStringLiteral("0 1 0>1"));
    QCOMPARE(std::get<LineShape>(drawing[2]).pen.widthF(), 11.0);
    scenery.clusters.lineSizeAbsolute = true;
    QCOMPARE(std::get<LineShape>(drawn(scenery)[2]).pen.widthF(), 6.0); // 1 / 2 * 10 + 1
    // One transition in 199 ms are 301.5 in a minute.
    scenery.clusters.heatmapThreashold = 301;
    QCOMPARE(drawn(scenery).size(), qsizetype(3));
    scenery.clusters.heatmapThreashold = 302;
    QVERIFY(drawn(scenery).isEmpty());
    // What the frame holds of a cluster does not matter here.
    scenery.clusters.heatmapThreashold = 0;
    scenery.frame = {5000, 6000};
    QCOMPARE(contentOf(drawn(scenery)), QStringLiteral("0 1"));
}

void TestTransitionShapes::saccadesOnly()
{
    toy::Scenery scenery = movingScenery();
    scenery.clusters.transitionType = 1;
    QCOMPARE(contentOf(drawn(scenery)), QStringLiteral("0 1"));
    scenery.model.examinations()[0].leftEye.saccades
        << Saccade({toy::sample(184, 0, 0), toy::sample(196, 0, 0)}, QStringLiteral("saccade"), 0, nullptr);
    QCOMPARE(contentOf(drawn(scenery)), QStringLiteral("0 1 1>0"));
}

void TestTransitionShapes::bothEyes()
{
    toy::Scenery scenery = movingScenery();
    scenery.eyeMode = EyeMode::showAll;
    QCOMPARE(contentOf(drawn(scenery)), QStringLiteral("0 1 0>1 0 1 0>1"));
    scenery.clusters.visualizationMode = 8; // nothing is pooled
    QVERIFY(drawn(scenery).isEmpty());
    scenery.clusters.visualizationMode = 9;
    QCOMPARE(contentOf(drawn(scenery)), QStringLiteral("0 1 0>1 0 1 0>1"));
}

QTEST_GUILESS_MAIN(TestTransitionShapes)
#include "TestTransitionShapes.moc"
