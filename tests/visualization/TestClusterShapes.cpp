// SPDX-License-Identifier: GPL-3.0-or-later
#include "ToyData.h"
#include "visualization/modes/Picture.h"
#include "visualization/shapes/ClusterShapes.h"

#include <QTest>

class TestClusterShapes : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void ellipses();
    void circles();
    void names_data();
    void names();
    void axisRatio_data();
    void axisRatio();
    void diameter_data();
    void diameter();
    void longStays();
    void share_data();
    void share();
    void numbersStayWhenOthersAreHidden();
    void dots();
    void paletteInTurn();
    void ownAndCumulative_data();
    void ownAndCumulative();
    void colorsOfTheGroup();
    void modesWithoutShapes_data();
    void modesWithoutShapes();
};

namespace {

const ShapeStyle redStyle{QPen(Qt::red, 3), QColor(255, 0, 0, 127)};
constexpr TimeFrame wholeDay{0, 86400000};

VisualizationParameters clusterDrawing()
{
    return toy::parameters(QStringLiteral("FixationclusterVisualization"));
}

/// The second one is a single fixation of 1 s and 15 ms at (7, 9).
QList<FixationCluster> twoClusters()
{
    const Fixation longStay = toy::fixation({7, 9}, {}, {}, {toy::sample(5000, 7, 9), toy::sample(6015, 7, 9)});
    return {toy::cluster({640, 400}, {toy::stay({630, 400}, 100), toy::stay({650, 400}, 700)}),
            toy::cluster({7, 9}, {longStay}, {0, -5}, {4, 0})};
}

QStringList namesIn(const Drawing &drawing)
{
    QStringList names;
    for (const Shape &shape : drawing) {
        if (const auto *text = std::get_if<TextShape>(&shape))
            names << text->text;
    }
    return names;
}

QStringList idsIn(const Drawing &drawing)
{
    QStringList ids;
    for (const Shape &shape : drawing)
        ids << std::get<OvalShape>(shape).toolTip.section(QStringLiteral("\r\n"), 0, 0);
    return ids;
}

} // namespace

void TestClusterShapes::ellipses()
{
    // sqrt(30^2 + 10^2) / sqrt(2^2 + 6^2) = 5; durations 80 + 80 and 1015 ms; axes doubled.
    QCOMPARE(toText(clusterEllipses(twoClusters(), wholeDay, redStyle, clusterDrawing())),
             QStringLiteral("ellipse 640 400 major 60 20 minor -4 12 pen #ff0000 3 brush #7fff0000 "
                            "tip Cluster ID: 0 | Duration: 00.160 | Axis ratio: 5 | Mean: (640,400)\n"
                            "ellipse 7 9 major 0 -10 minor 8 0 pen #ff0000 3 brush #7fff0000 "
                            "tip Cluster ID: 1 | Duration: 01.015 | Axis ratio: 1.25 | Mean: (7,9)\n"));
    QVERIFY(clusterEllipses({}, wholeDay, redStyle, clusterDrawing()).isEmpty());
}

void TestClusterShapes::circles()
{
    // (5 * 5 + 5) * 4 = 120, so that the corner is 60 px away.
    QCOMPARE(toText(clusterCircles(twoClusters(), wholeDay, redStyle, clusterDrawing())),
             QStringLiteral("oval 580 340 120 120 pen #ff0000 3 brush #7fff0000 "
                            "tip Cluster ID: 0 | Duration: 00.160 | Mean: (640,400)\n"
                            "oval -53 -51 120 120 pen #ff0000 3 brush #7fff0000 "
                            "tip Cluster ID: 1 | Duration: 01.015 | Mean: (7,9)\n"));
}

void TestClusterShapes::names_data()
{
    QTest::addColumn<QVector2D>("major");
    QTest::addColumn<QVector2D>("minor");
    QTest::addColumn<QPointF>("place");
    // Of the cluster at (640, 400); axes count at twice their length, half of the sum is cut to whole pixels.
    QTest::newRow("(60 + 4) / 2 and (20 + 12) / 2") << QVector2D(30, 10) << QVector2D(-2, 6) << QPointF(608, 384);
    QTest::newRow("whatever the direction") << QVector2D(-30, -10) << QVector2D(2, -6) << QPointF(608, 384);
    QTest::newRow("trunc(20.75 + 0.5) and trunc(0.25 + 5.5)")
        << QVector2D(20.75F, 0.25F) << QVector2D(0.5F, 5.5F) << QPointF(619, 395);
    QTest::newRow("no axes") << QVector2D() << QVector2D() << QPointF(640, 400);
}

void TestClusterShapes::names()
{
    QFETCH(QVector2D, major);
    QFETCH(QVector2D, minor);
    VisualizationParameters parameters = clusterDrawing();
    parameters.showOriginalSize = true;
    parameters.fillColorName = QColor(1, 2, 3);
    const QList<FixationCluster> clusters{toy::cluster({640, 400}, {toy::stay({640, 400}, 0)}, major, minor)};
    const Drawing drawing = clusterEllipses(clusters, wholeDay, redStyle, parameters);
    const auto name = std::get<TextShape>(drawing.value(1));
    QTEST(name.top, "place");
    QCOMPARE(name.anchor, TextAnchor::Middle);
    QCOMPARE(name.font, QFont(QStringLiteral("Times New Roman"), 30, 20, false));
    const Drawing circle = clusterCircles(clusters, wholeDay, redStyle, parameters);
    QCOMPARE(toText({circle.value(1)}),
             QStringLiteral("text middle 580 340 #010203 font Times New Roman 30 reads C0\n"));
}

void TestClusterShapes::axisRatio_data()
{
    QTest::addColumn<QVector2D>("major");
    QTest::addColumn<QVector2D>("minor");
    QTest::addColumn<QString>("ratio");
    QTest::newRow("six digits") << QVector2D(10, 0) << QVector2D(0, 3) << QStringLiteral("3.33333");
    QTest::newRow("on a line") << QVector2D(10, 0) << QVector2D(0, 0) << QStringLiteral("inf");
    QTest::newRow("at a point") << QVector2D(0, 0) << QVector2D(0, 0) << QStringLiteral("nan");
}

void TestClusterShapes::axisRatio()
{
    QFETCH(QVector2D, major);
    QFETCH(QVector2D, minor);
    QFETCH(QString, ratio);
    const QList<FixationCluster> clusters{toy::cluster({1, 2}, {toy::stay({1, 2}, 0)}, major, minor)};
    const Drawing drawing = clusterEllipses(clusters, wholeDay, redStyle, clusterDrawing());
    QCOMPARE(std::get<EllipseShape>(drawing[0]).toolTip,
             QStringLiteral("Cluster ID: 0\r\nDuration: 00.080\r\nAxis ratio: ") + ratio +
                 QStringLiteral("\r\nMean: (1,2)"));
}

void TestClusterShapes::diameter_data()
{
    QTest::addColumn<bool>("durationDependent");
    QTest::addColumn<int>("size");
    QTest::addColumn<QList<qint64>>("durations");
    QTest::addColumn<int>("expected");
    QTest::newRow("(5 * 5 + 5) * 4") << false << 5 << QList<qint64>{80} << 120;
    QTest::newRow("(1 * 5 + 5) * 4") << false << 1 << QList<qint64>{80} << 40;
    QTest::newRow("trunc(0.05 * 100 + 110)") << true << 5 << QList<qint64>{150, 50} << 115;
    QTest::newRow("half of 201 is 100") << true << 5 << QList<qint64>{201} << 115;
    QTest::newRow("trunc(0.03 * 51 + 61) = trunc(62.53)") << true << 3 << QList<qint64>{102} << 62;
    QTest::newRow("no time: 10") << true << 50 << QList<qint64>{0} << 10;
    QTest::newRow("nothing overflows") << false << std::numeric_limits<int>::max() << QList<qint64>{1}
                                       << std::numeric_limits<int>::max();
}

void TestClusterShapes::diameter()
{
    QFETCH(bool, durationDependent);
    QFETCH(int, size);
    QFETCH(QList<qint64>, durations);
    VisualizationParameters parameters = clusterDrawing();
    parameters.durationDependent = durationDependent;
    parameters.size = size;
    FixationCluster cluster;
    for (const qint64 duration : durations)
        cluster.fixations << toy::fixation({}, {}, {}, {toy::sample(7, 0, 0), toy::sample(7 + duration, 0, 0)});
    QTEST(clusterDiameter(cluster, parameters), "expected");
}

void TestClusterShapes::longStays()
{
    // 115 across: the corner is 57 whole pixels away, and so is the name.
    VisualizationParameters parameters = clusterDrawing();
    parameters.durationDependent = true;
    parameters.showOriginalSize = true;
    const Fixation stay = toy::fixation({}, {}, {}, {toy::sample(0, 0, 0), toy::sample(200, 0, 0)});
    const Drawing drawing = clusterCircles({toy::cluster({640, 400}, {stay})}, wholeDay, redStyle, parameters);
    QCOMPARE(std::get<OvalShape>(drawing[0]).rect, QRectF(583, 343, 115, 115));
    QCOMPARE(std::get<TextShape>(drawing[1]).top, QPointF(583, 343));
}

void TestClusterShapes::share_data()
{
    QTest::addColumn<double>("percentage");
    QTest::addColumn<qint64>("start");
    QTest::addColumn<qint64>("end");
    QTest::addColumn<bool>("drawn");
    // Fixations from 0 to 80, 100 to 180, 200 to 280 and 300 to 380 ms.
    QTest::newRow("all, limits included") << 100.0 << qint64(0) << qint64(380) << true;
    QTest::newRow("the last one ends later") << 100.0 << qint64(0) << qint64(379) << false;
    QTest::newRow("the first one begins earlier") << 100.0 << qint64(1) << qint64(380) << false;
    QTest::newRow("three of four are 75 percent") << 75.0 << qint64(0) << qint64(379) << true;
    QTest::newRow("which is less than 75.01") << 75.01 << qint64(0) << qint64(379) << false;
    QTest::newRow("above 100 counts as 100") << 250.0 << qint64(0) << qint64(380) << true;
    QTest::newRow("0 with all outside") << 0.0 << qint64(900) << qint64(1000) << true;
    QTest::newRow("below 0 counts as 0") << -5.0 << qint64(900) << qint64(1000) << true;
    QTest::newRow("a little with all outside") << 0.1 << qint64(900) << qint64(1000) << false;
}

void TestClusterShapes::share()
{
    QFETCH(double, percentage);
    QFETCH(qint64, start);
    QFETCH(qint64, end);
    QFETCH(bool, drawn);
    VisualizationParameters parameters = clusterDrawing();
    parameters.clusterPercentage = percentage;
    parameters.showOriginalSize = true;
    QList<Fixation> fixations;
    for (const qint64 time : {0, 100, 200, 300})
        fixations << toy::stay({10, 10}, time);
    // One without fixations is not drawn whatever the share.
    const QList<FixationCluster> clusters{toy::cluster({1, 1}, {}), toy::cluster({10, 10}, fixations)};
    for (const ClusterPainter paint : {clusterEllipses, clusterCircles}) {
        const QStringList names = namesIn(paint(clusters, {start, end}, redStyle, parameters));
        QCOMPARE(names, drawn ? QStringList{QStringLiteral("C1")} : QStringList());
    }
}

void TestClusterShapes::numbersStayWhenOthersAreHidden()
{
    VisualizationParameters parameters = clusterDrawing();
    const QList<FixationCluster> clusters{toy::cluster({1, 1}, {toy::stay({1, 1}, 0)}), toy::cluster({2, 2}, {}),
                                          toy::cluster({3, 3}, {toy::stay({3, 3}, 500)})};
    QCOMPARE(idsIn(clusterCircles(clusters, {400, 900}, redStyle, parameters)),
             QStringList{QStringLiteral("Cluster ID: 2")});
    parameters.showGazePoints = true;
    const Drawing dots = clusterCircles(clusters, {400, 900}, redStyle, parameters);
    QCOMPARE(dots.size(), qsizetype(1));
    QCOMPARE(std::get<OvalShape>(dots[0]).pen.color(), QColor(244, 109, 67, 150));
}

void TestClusterShapes::dots()
{
    VisualizationParameters parameters = clusterDrawing();
    parameters.showGazePoints = true;
    parameters.showOriginalSize = true; // dots have no names
    parameters.clusterPercentage = 50;
    const QString expected = QStringLiteral("oval 650 400 5 5 pen #9e0142 3 brush #7fff0000\n"
                                            "oval 7 9 5 5 pen #d53e4f 3 brush #7fff0000\n");
    // The first fixation, from 100 to 180 ms, begins before the frame.
    QCOMPARE(toText(clusterEllipses(twoClusters(), {101, 9000}, redStyle, parameters)), expected);
    QCOMPARE(toText(clusterCircles(twoClusters(), {101, 9000}, redStyle, parameters)), expected);
    parameters.clusterPercentage = 51;
    QCOMPARE(clusterCircles(twoClusters(), {101, 9000}, redStyle, parameters).size(), qsizetype(1));
}

void TestClusterShapes::paletteInTurn()
{
    QCOMPARE(clusterColor(0), QColor(158, 1, 66, 150));
    QCOMPARE(clusterColor(4), QColor(254, 224, 139, 150));
    QCOMPARE(clusterColor(9), QColor(94, 79, 162, 150));
    QCOMPARE(clusterColor(10), clusterColor(0));
    QCOMPARE(clusterColor(1234), clusterColor(4));
}

void TestClusterShapes::ownAndCumulative_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<int>("eyes");
    QTest::addColumn<QString>("expected"); // x of the mean and fill colour
    const auto row = [](const char *name, int mode, EyeMode eyes, const char *expected) {
        QTest::newRow(name) << mode << static_cast<int>(eyes) << QString::fromLatin1(expected);
    };
    row("own of both eyes", 2, EyeMode::showAll, "1 #00ff00, 2 #0000ff");
    row("own of the mean", 2, EyeMode::showMean, "3 #ff0000");
    row("own of the dominant eye", 2, EyeMode::showDominant, "2 #ff0000");
    row("pooled of both eyes", 6, EyeMode::showAll, "10 #00ff00, 11 #0000ff");
    row("pooled of the dominant eyes", 6, EyeMode::showDominant, "12 #ff0000");
    row("pooled of the mean", 6, EyeMode::showMean, "13 #ff0000");
    row("pooled of the right eye", 6, EyeMode::showRight, "11 #0000ff");
}

void TestClusterShapes::ownAndCumulative()
{
    QFETCH(int, mode);
    QFETCH(int, eyes);
    const auto at = [](int x) { return QList{toy::cluster({x, 0}, {toy::stay({x, 0}, 0)})}; };
    toy::Scenery scenery;
    scenery.clusters.visualizationMode = mode;
    scenery.eyeMode = static_cast<EyeMode>(eyes);
    Examination examination;
    examination.leftEye.fixationClusters = at(1);
    examination.rightEye.fixationClusters = at(2);
    examination.meanEye.fixationClusters = at(3);
    for (const Eye pool : allEyes)
        scenery.model.pooled(pool).fixationClusters = at(10 + static_cast<int>(pool));
    scenery.model.examinations() = {examination};
    constexpr int radius = 60;
    QStringList found;
    const Drawing drawing = pictureOf(scenery.context()).drawing;
    for (const Shape &shape : drawing) {
        const auto &oval = std::get<OvalShape>(shape);
        found << QString::number(oval.rect.x() + radius) + u' ' + oval.brush.color().name();
    }
    QTEST(found.join(QStringLiteral(", ")), "expected");
    scenery.clusters.visualizationMode = mode - 1; // the ellipses of the same clusters
    QCOMPARE(pictureOf(scenery.context()).drawing.size(), found.size());
}

void TestClusterShapes::colorsOfTheGroup()
{
    toy::Scenery scenery;
    scenery.clusters.visualizationMode = 2;
    scenery.eyeMode = EyeMode::showLeft;
    Group group;
    group.name = QStringLiteral("Readers");
    group.colorsLeft[QStringLiteral("FixationclusterVisualization")] = QColor(1, 2, 3);
    scenery.model.setGroups({group});
    Examination examination;
    examination.groupName = group.name;
    examination.leftEye.fixationClusters = twoClusters().first(1);
    scenery.model.examinations() = {examination};
    const Drawing drawing = pictureOf(scenery.context()).drawing;
    QCOMPARE(std::get<OvalShape>(drawing[0]).brush.color(), QColor(1, 2, 3, 127));
}

void TestClusterShapes::modesWithoutShapes_data()
{
    QTest::addColumn<int>("mode");
    QTest::newRow("none") << 0;
    QTest::newRow("below the modes") << -1;
    QTest::newRow("beyond the modes") << 99;
}

void TestClusterShapes::modesWithoutShapes()
{
    QFETCH(int, mode);
    toy::Scenery scenery;
    scenery.clusters.visualizationMode = mode;
    Examination examination;
    examination.leftEye.fixationClusters = twoClusters();
    scenery.model.examinations() = {examination};
    QVERIFY(pictureOf(scenery.context()).drawing.isEmpty());
}

QTEST_GUILESS_MAIN(TestClusterShapes)
#include "TestClusterShapes.moc"
