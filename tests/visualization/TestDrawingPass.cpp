// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/Canvas.h"
#include "ToyData.h"
#include "visualization/scene/ArbitraryEllipseItem.h"
#include "visualization/scene/ArrowItem.h"
#include "visualization/scene/Background.h"
#include "visualization/scene/DrawingPass.h"
#include "visualization/scene/SceneItems.h"

#include <QGraphicsEllipseItem>
#include <QGraphicsPixmapItem>
#include <QGraphicsScene>
#include <QGraphicsTextItem>
#include <QPainter>
#include <QTemporaryDir>
#include <QTest>

class TestDrawingPass : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void nothingWithoutExaminations();
    void onlyWhatIsChecked();
    void aPassBeginsAnew();
    void aDetourOfTheTimelineLeavesNoTrace();
    void aHeatmapOnTopReplacesItself();
    void laterStepsLieOnTop();
    void emptyFrameAddsNoPixmap();
    void saccadesLieBetweenFixationsAndWhatIsPooled();
    void heatmapsAndTheirFigures_data();
    void heatmapsAndTheirFigures();
    void heatmapsLieOverEachOther();
    void clustersFollowTheFixationsOfTheirExamination();
    void namesStandInTheMiddle();
    void wholePicture();
    void angleStarPicture();
    void plainBackground();
    void backgroundOfAnImage();
    void backgroundThatFailsToLoad();
    void aPictureIsReadOnce();
    void aChangedPictureIsReadAgain();
};

namespace {

Examination examinationAt(QPoint mean, const QString &eye = QStringLiteral("left"))
{
    Examination examination;
    EyeData &data = eye == QStringLiteral("left") ? examination.leftEye : examination.rightEye;
    data.gazePoints = {toy::sample(10, mean.x() + 200.0, mean.y())};
    data.scanpath = {toy::fixation(mean, {40, 0}, {0, 40}, {toy::sample(10, 0, 0), toy::sample(90, 0, 0)})};
    return examination;
}

/// The eye goes from here 100 px to the right.
Examination movementFrom(QPoint mean)
{
    Examination examination = examinationAt(mean);
    examination.leftEye.scanpath << toy::fixation(mean + QPoint(100, 0), {40, 0}, {0, 40},
                                                  {toy::sample(120, 0, 0), toy::sample(200, 0, 0)});
    return examination;
}

Examination withCluster(Examination examination)
{
    examination.leftEye.fixationClusters << toy::clusterOf(examination.leftEye.scanpath.first());
    return examination;
}

toy::Scenery sceneryOf(const QList<Examination> &examinations)
{
    toy::Scenery scenery;
    scenery.model.examinations() = examinations;
    scenery.gazePoints.visualizationMode = 1;
    scenery.fixations.visualizationMode = 2;
    return scenery;
}

/// Kinds of the items, lowest first.
QString kindsIn(const QGraphicsScene &scene)
{
    QStringList kinds;
    for (const QGraphicsItem *item : scene.items(Qt::AscendingOrder)) {
        if (dynamic_cast<const ArbitraryEllipseItem *>(item))
            kinds << QStringLiteral("ellipse");
        else if (dynamic_cast<const QGraphicsEllipseItem *>(item))
            kinds << QStringLiteral("oval");
        else if (dynamic_cast<const ArrowItem *>(item))
            kinds << QStringLiteral("arrow");
        else if (dynamic_cast<const QGraphicsLineItem *>(item))
            kinds << QStringLiteral("line");
        else if (dynamic_cast<const QGraphicsTextItem *>(item))
            kinds << QStringLiteral("text");
        else if (dynamic_cast<const QGraphicsPixmapItem *>(item))
            kinds << QStringLiteral("pixmap");
    }
    return kinds.join(u' ');
}

} // namespace

void TestDrawingPass::nothingWithoutExaminations()
{
    toy::Scenery scenery = sceneryOf({});
    QGraphicsScene scene;
    drawScene(scene, scenery.context());
    QVERIFY(scene.items().isEmpty());
}

void TestDrawingPass::onlyWhatIsChecked()
{
    Examination unchecked = examinationAt({300, 300});
    unchecked.checked = false;
    toy::Scenery scenery = sceneryOf({unchecked, examinationAt({600, 300})});
    QGraphicsScene scene;
    runDrawingPass(scene, scenery.model, scenery.context(), {backgroundPixmap({}, Border::None)});
    QCOMPARE(kindsIn(scene), QStringLiteral("pixmap oval pixmap")); // the first one is the background
    const QList<Examination> &examinations = scenery.model.examinations();
    QCOMPARE(examinations[0].calculationInfo.fixationVisualizationInfo, QStringLiteral("NOT DRAWN\n"));
    QCOMPARE(examinations[1].calculationInfo.fixationVisualizationInfo, QStringLiteral("CIRCLE\n"));
    QCOMPARE(examinations[1].calculationInfo.gazepointsVisualizationInfo, QStringLiteral("POINTS\n"));
}

void TestDrawingPass::aPassBeginsAnew()
{
    toy::Scenery scenery = sceneryOf({examinationAt({300, 300})});
    const SceneLayers layers{
        backgroundPixmap({}, Border::None), QImage(), {ArrowShape{{10, 10}, {90, 10}, false, {}, {}, {}}}};
    QGraphicsScene scene;
    scene.addText(QStringLiteral("of an earlier drawing"));
    for (int pass = 0; pass < 2; ++pass) {
        const DrawnScene drawn = runDrawingPass(scene, scenery.model, scenery.context(), layers);
        QCOMPARE(kindsIn(scene), QStringLiteral("pixmap oval pixmap arrow"));
        QCOMPARE(scene.items(Qt::AscendingOrder).first(), drawn.background);
        QCOMPARE(drawn.saccadeClusters->childItems().size(), qsizetype(1));
    }
    QVERIFY(!runDrawingPass(scene, scenery.model, scenery.context(), {layers.background}).saccadeClusters);
}

void TestDrawingPass::aDetourOfTheTimelineLeavesNoTrace()
{
    const QList<Fixation> stays{toy::stay({300, 300}, 0), toy::stay({600, 300}, 500)};
    Examination examination;
    for (int number = 0; const Fixation &fixation : stays) {
        examination.leftEye.fixationClusters << toy::clusterOf(fixation);
        examination.leftEye.fixationClusters.last().number = number++;
    }
    toy::Scenery scenery = sceneryOf({examination});
    scenery.clusters.visualizationMode = 2;
    QGraphicsScene scene;
    const auto firstCluster = [&](TimeFrame frame) {
        scenery.frame = frame;
        runDrawingPass(scene, scenery.model, scenery.context(), {});
        for (const QGraphicsItem *item : scene.items()) {
            if (item->toolTip().startsWith(QStringLiteral("Cluster ID: 0\r\n")))
                return item->sceneBoundingRect().center().toPoint();
        }
        return QPoint();
    };
    scenery.clusters.clusterPercentage = 0;
    QCOMPARE(firstCluster({0, 1000}), QPoint(300, 300)); // one fixation each: the order of creation
    QCOMPARE(firstCluster({400, 1000}), QPoint(600, 300));
    QCOMPARE(firstCluster({0, 1000}), QPoint(300, 300));
}

void TestDrawingPass::aHeatmapOnTopReplacesItself()
{
    toy::Scenery scenery = sceneryOf({examinationAt({300, 300})});
    QGraphicsScene scene;
    drawScene(scene, scenery.context());
    for (int press = 0; press < 3; ++press) {
        drawHeatmapOnTop(scene, DataKind::GazePoints, scenery.context());
        QCOMPARE(kindsIn(scene), QStringLiteral("oval pixmap pixmap"));
    }
    drawHeatmapOnTop(scene, DataKind::Fixations, scenery.context());
    QCOMPARE(kindsIn(scene), QStringLiteral("oval pixmap pixmap pixmap"));
    scenery.gazePoints.visualizationMode = 2; // what it shows in colours of the absolute scale gives way, too
    QGraphicsScene heatmap;
    drawScene(heatmap, scenery.context());
    drawHeatmapOnTop(heatmap, DataKind::GazePoints, scenery.context());
    QCOMPARE(kindsIn(heatmap), QStringLiteral("oval pixmap"));
    scenery.frame = {5000, 6000};
    drawHeatmapOnTop(heatmap, DataKind::GazePoints, scenery.context()); // nothing to show
    QCOMPARE(kindsIn(heatmap), QStringLiteral("oval"));
}

void TestDrawingPass::laterStepsLieOnTop()
{
    toy::Scenery scenery = sceneryOf({examinationAt({300, 300}), examinationAt({600, 300})});
    scenery.fixations.visualizationMode = 1;
    QGraphicsScene scene;
    drawScene(scene, scenery.context());
    addBackground(scene, backgroundPixmap({}, Border::None)); // added last, yet behind everything
    QCOMPARE(kindsIn(scene), QStringLiteral("pixmap ellipse ellipse pixmap"));
    for (const QGraphicsItem *item : scene.items(Qt::AscendingOrder).mid(1))
        QCOMPARE(item->zValue(), 0.0);
    QVERIFY(scene.items(Qt::AscendingOrder)[1]->toolTip().startsWith(QStringLiteral("Fixation ID: 0\r\n")));
}

void TestDrawingPass::emptyFrameAddsNoPixmap()
{
    toy::Scenery scenery = sceneryOf({examinationAt({300, 300})});
    scenery.frame = {5000, 6000};
    QGraphicsScene scene;
    drawScene(scene, scenery.context());
    QVERIFY(scene.items().isEmpty());
}

void TestDrawingPass::saccadesLieBetweenFixationsAndWhatIsPooled()
{
    toy::Scenery scenery = sceneryOf({movementFrom({300, 300}), movementFrom({600, 300})});
    scenery.saccades.visualizationMode = 1;
    QGraphicsScene scene;
    drawScene(scene, scenery.context());
    QCOMPARE(kindsIn(scene), QStringLiteral("oval oval oval oval arrow arrow pixmap"));
    QCOMPARE(scene.bspTreeDepth(), 1); // else thousands of arrows take minutes
    const QGraphicsItem *arrow = scene.items(Qt::AscendingOrder)[4];
    QCOMPARE(arrow->toolTip(), QStringLiteral("Saccade ID: 1\r\nStart: 00:00:00.120\r\nEnd: 00:00:00.200\r\n"
                                              "Duration: 00.080\r\nMean: (400,300)\r\nRecording: \r\nEye: left"));
}

void TestDrawingPass::heatmapsAndTheirFigures_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("mode");
    QTest::addColumn<bool>("figures");
    QTest::newRow("heatmap of gaze points") << 0 << 2 << true;
    QTest::newRow("shadow map of gaze points") << 0 << 3 << false;
    QTest::newRow("heatmap of fixations") << 1 << 3 << true;
    QTest::newRow("shadow map of fixations") << 1 << 4 << false;
    QTest::newRow("heatmap of clusters") << 2 << 3 << true;
    QTest::newRow("shadow map of clusters") << 2 << 4 << false;
    QTest::newRow("heatmap of saccades") << 3 << 3 << true;
    QTest::newRow("shadow map of saccades") << 3 << 4 << false;
}

void TestDrawingPass::heatmapsAndTheirFigures()
{
    QFETCH(int, kind);
    QFETCH(int, mode);
    QFETCH(bool, figures);
    toy::Scenery scenery = sceneryOf({withCluster(examinationAt({300, 300}))});
    VisualizationParameters *parameters[] = {&scenery.gazePoints, &scenery.fixations, &scenery.clusters,
                                             &scenery.saccades};
    for (VisualizationParameters *none : parameters)
        none->visualizationMode = 0;
    parameters[kind]->visualizationMode = mode;
    QGraphicsScene scene;
    const QList<HeatmapFigures> found = drawScene(scene, scenery.context());
    QCOMPARE(kindsIn(scene), QStringLiteral("pixmap"));
    QCOMPARE(found.size(), figures ? qsizetype(1) : qsizetype(0));
    if (figures)
        QCOMPARE(static_cast<int>(found[0].kind), kind);
    scenery.frame = {5000, 6000};
    scene.clear();
    QVERIFY(drawScene(scene, scenery.context()).isEmpty());
    QVERIFY(scene.items().isEmpty());
}

void TestDrawingPass::heatmapsLieOverEachOther()
{
    toy::Scenery scenery = sceneryOf({withCluster(examinationAt({300, 300}))});
    scenery.gazePoints.visualizationMode = 2;
    scenery.fixations.visualizationMode = scenery.clusters.visualizationMode = scenery.saccades.visualizationMode = 3;
    QGraphicsScene scene;
    QList<DataKind> kinds;
    for (const HeatmapFigures &figures : drawScene(scene, scenery.context()))
        kinds << figures.kind;
    const QList<DataKind> expected{DataKind::GazePoints, DataKind::Fixations, DataKind::Clusters, DataKind::Saccades};
    QCOMPARE(kinds, expected);
    QCOMPARE(kindsIn(scene), QStringLiteral("pixmap pixmap pixmap pixmap"));
}

void TestDrawingPass::clustersFollowTheFixationsOfTheirExamination()
{
    Examination examination = movementFrom({300, 300});
    const QList<Fixation> &scanpath = examination.leftEye.scanpath;
    examination.leftEye.fixationClusters = {toy::cluster({300, 300}, {scanpath[0]}),
                                            toy::cluster({400, 300}, {scanpath[1]})};
    toy::Scenery scenery = sceneryOf({examination, examination});
    scenery.saccades.visualizationMode = 1;
    scenery.clusters.visualizationMode = 1;
    QGraphicsScene scene;
    drawScene(scene, scenery.context());
    QCOMPARE(kindsIn(scene), QStringLiteral("oval oval ellipse ellipse oval oval ellipse ellipse arrow arrow pixmap"));

    scenery.clusters.visualizationMode = 7;
    scenery.clusters.showOriginalSize = true;
    QGraphicsScene transitions;
    drawScene(transitions, scenery.context());
    QCOMPARE(kindsIn(transitions),
             QStringLiteral("oval oval oval text oval text line oval oval oval text oval text line "
                            "arrow arrow pixmap"));
    const QGraphicsItem *line = transitions.items(Qt::AscendingOrder)[6];
    QVERIFY2(line->toolTip().startsWith(QStringLiteral("From Cluster 0 to Cluster 1 :1\r\n")),
             qPrintable(line->toolTip()));
    runDrawingPass(transitions, scenery.model, scenery.context(), {});
    QCOMPARE(scenery.model.examinations()[1].calculationInfo.clusterVisualizationInfo, QStringLiteral("TRANSITION\n"));
}

void TestDrawingPass::namesStandInTheMiddle()
{
    const QFont font(QStringLiteral("Times New Roman"), 30);
    QGraphicsScene scene;
    addItems(scene, {TextShape{{200, 100}, QStringLiteral("C:10"), font, Qt::blue, TextAnchor::Middle},
                     TextShape{{200, 100}, QStringLiteral("C:10"), font, Qt::blue}});
    const QList<QGraphicsItem *> items = scene.items(Qt::AscendingOrder);
    QVERIFY(items[0]->boundingRect().width() > 20);
    QCOMPARE(items[0]->sceneBoundingRect().center().x(), 200.0);
    QCOMPARE(items[0]->pos().y(), 100.0);
    QCOMPARE(items[1]->pos(), QPointF(200, 100));
}

void TestDrawingPass::wholePicture()
{
    // An ellipse of the left eye at (300, 300), twice 40 px in radius and opaque enough; its sample at (500, 300).
    toy::Scenery scenery = sceneryOf({examinationAt({300, 300}), examinationAt({900, 700}, QStringLiteral("right"))});
    scenery.fixations.visualizationMode = 1;
    scenery.fixations.fillOpacity = 100;
    scenery.frame = {5, 80}; // all fixations go on after it, so that they keep their axes
    QGraphicsScene scene;
    addBackground(scene, backgroundPixmap({}, Border::Black));
    drawScene(scene, scenery.context());
    QCOMPARE(scene.sceneRect(), QRectF(0, 0, canvas::width, canvas::height));
    QImage image(canvas::width, canvas::height, QImage::Format_RGB32);
    QPainter painter(&image);
    scene.render(&painter);
    painter.end();
    const auto colorAt = [&](int x, int y) { return image.pixelColor(x, y).name(); };
    QCOMPARE(colorAt(0, 0), QStringLiteral("#000000"));
    QCOMPARE(colorAt(4, 800), QStringLiteral("#000000"));
    QCOMPARE(colorAt(6, 800), QStringLiteral("#ffffff"));
    QCOMPARE(colorAt(495, 300), QStringLiteral("#00ff00")); // outline of the point, half size 5
    QCOMPARE(colorAt(500, 300), QStringLiteral("#ffffff"));
    QCOMPARE(colorAt(1095, 700), QStringLiteral("#0000ff"));
    QCOMPARE(colorAt(300, 382), QStringLiteral("#ffffff"));
    const QColor inside = image.pixelColor(300, 378); // 254 / 255 of green on white
    QVERIFY(inside.green() == 255 && inside.red() <= 1 && inside.blue() <= 1);
    QVERIFY(image.pixelColor(900, 700).blue() == 255 && image.pixelColor(900, 700).red() <= 1);
}

void TestDrawingPass::angleStarPicture()
{
    toy::Scenery scenery = sceneryOf({movementFrom({300, 300})});
    scenery.gazePoints.visualizationMode = 0;
    scenery.fixations.visualizationMode = 0;
    scenery.saccades.visualizationMode = 2;
    scenery.saccades.numberOfHistogramBins = 2;
    scenery.saccades.angleOffset = 90;
    scenery.saccades.borderWidth = 6;
    scenery.saccades.showQuantityArcs = true;
    scenery.saccades.showDurationArcs = false;
    QGraphicsScene scene;
    addBackground(scene, backgroundPixmap({}, Border::None));
    drawScene(scene, scenery.context());
    QCOMPARE(kindsIn(scene), QStringLiteral("pixmap oval oval oval oval oval oval oval oval oval oval "
                                            "line text line text line line"));
    const auto *label = dynamic_cast<const QGraphicsTextItem *>(scene.items(Qt::AscendingOrder)[14]);
    QVERIFY(label);
    QCOMPARE(label->toPlainText(), QStringLiteral("270°"));
    QCOMPARE(label->defaultTextColor(), QColor(Qt::black));
    QCOMPARE(label->pos().toPoint(), QPoint(1280, 1475));
    QImage image(canvas::width, canvas::height, QImage::Format_RGB32);
    QPainter painter(&image);
    scene.render(&painter);
    painter.end();
    const auto colorAt = [&](int x, int y) { return image.pixelColor(x, y).name(); };
    QCOMPARE(colorAt(1280 - 475, 800), QStringLiteral("#c8c8c8"));
    QCOMPARE(colorAt(1280 - 425, 800), QStringLiteral("#646464"));
    QCOMPARE(colorAt(1280 - 505, 800), QStringLiteral("#ffffff"));
    // The first spoke goes up between two columns.
    QVERIFY(colorAt(1279, 250) == QStringLiteral("#000000") || colorAt(1280, 250) == QStringLiteral("#000000"));
    // To the right is the last of two bins. Its bar stands at 90 + 180 + 90 - 59 = 301 degrees: at 475 px, (245, 407).
    // Red at 50 of 255 on (200, 200, 200): 211, 161, 161.
    const QColor bar = image.pixelColor(1280 + 245, 800 + 407);
    QVERIFY2(std::abs(bar.red() - 211) <= 1 && std::abs(bar.green() - 161) <= 1, qPrintable(bar.name()));
}

void TestDrawingPass::plainBackground()
{
    const QImage plain = backgroundPixmap({}, Border::None).toImage();
    QCOMPARE(plain.size(), QSize(2560, 1600));
    QCOMPARE(plain.pixelColor(0, 0), QColor(Qt::white));
    const QImage framed = backgroundPixmap({}, Border::Black).toImage();
    QCOMPARE(framed.pixelColor(0, 0), QColor(Qt::black));
    QCOMPARE(framed.pixelColor(4, 4), QColor(Qt::black)); // 5 of the 10 px fall on the picture
    QCOMPARE(framed.pixelColor(5, 5), QColor(Qt::white));
    QCOMPARE(framed.pixelColor(2559, 1599), QColor(Qt::black));
}

void TestDrawingPass::backgroundOfAnImage()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("blue.png"));
    QImage blue(64, 48, QImage::Format_RGB32);
    blue.fill(Qt::blue);
    QVERIFY(blue.save(path));
    const QImage shown = backgroundPixmap(path, Border::Black).toImage();
    QCOMPARE(shown.size(), QSize(64, 48));
    QCOMPARE(shown.pixelColor(0, 24), QColor(Qt::black));
    QCOMPARE(shown.pixelColor(32, 24), QColor(Qt::blue));
}

void TestDrawingPass::backgroundThatFailsToLoad()
{
    const QPixmap pixmap = backgroundPixmap(QStringLiteral("/no/such/picture.png"), Border::Black);
    QVERIFY(pixmap.isNull());
    QGraphicsScene scene;
    addBackground(scene, pixmap);
    QCOMPARE(scene.items().size(), qsizetype(1));
}

void TestDrawingPass::aPictureIsReadOnce()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("large.png"));
    QImage large(2600, 1700, QImage::Format_RGB32); // too large for what Qt itself keeps of read pictures
    large.fill(Qt::darkGreen);
    QVERIFY(large.save(path));

    PictureReader reader;
    const QPixmap first = reader.pixmap(path);
    QCOMPARE(first.toImage().convertToFormat(QImage::Format_RGB32), large);
    QCOMPARE(reader.pixmap(path).cacheKey(), first.cacheKey());
    QPixmap framed = reader.pixmap(path);
    drawBorder(framed);
    QCOMPARE(reader.pixmap(path).toImage(), first.toImage()); // the border is drawn on a copy
    QCOMPARE(reader.pixmap({}).toImage(), backgroundPixmap({}, Border::None).toImage());
}

void TestDrawingPass::aChangedPictureIsReadAgain()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("stimulus.bmp"));
    PictureReader reader;
    QVERIFY(reader.pixmap(path).isNull()); // not there yet
    for (const int size : {30, 20}) {
        QImage image(size, size, QImage::Format_RGB32);
        image.fill(Qt::red);
        QVERIFY(image.save(path));
        QCOMPARE(reader.pixmap(path).size(), image.size());
    }
    QVERIFY(QFile::remove(path));
    QVERIFY(reader.pixmap(path).isNull());
}

QTEST_MAIN(TestDrawingPass)
#include "TestDrawingPass.moc"
