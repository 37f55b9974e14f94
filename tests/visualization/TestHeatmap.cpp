// SPDX-License-Identifier: GPL-3.0-or-later
#include "ToyData.h"
#include "visualization/heatmap/Heatmap.h"
#include "visualization/shapes/Drawing.h"

#include <QTest>

class TestHeatmap : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void nothingWithoutEvents_data();
    void nothingWithoutEvents();
    void gazePointsOnTheAbsoluteScale();
    void firstColorLiesUnderEverything();
    void relativeScaleLeavesEmptyCellsOut();
    void shadowMap();
    void thresholdOfAShadowMap();
    void fixations();
    void clustersHaveNoClasses();
    void saccades();
    void saccadeShadowMap();
    void kindsReadTheirOwnParameters();
};

namespace {

constexpr HeatmapLook looks[] = {HeatmapLook::AbsoluteScale, HeatmapLook::RelativeScale, HeatmapLook::ShadowMap};

QRgb pixelOf(const Heatmap &heatmap, int x, int y)
{
    return reinterpret_cast<const QRgb *>(heatmap.image.constScanLine(y))[x];
}

Fixation fixationAt(QPoint mean)
{
    return toy::fixation(mean, {8, 0}, {0, 8}, {toy::sample(100, 0, 0), toy::sample(300, 0, 0)});
}

/// Three fixations at (500, 400) and one at (900, 400), with a sample each; two checked examinations.
toy::Scenery scenery()
{
    toy::Scenery scenery;
    Examination examination;
    for (const QPoint &mean : {QPoint(500, 400), QPoint(500, 400), QPoint(500, 400), QPoint(900, 400)}) {
        examination.leftEye.gazePoints << toy::sample(100, mean.x(), mean.y());
        examination.leftEye.scanpath << fixationAt(mean);
        examination.leftEye.fixationClusters << toy::clusterOf(fixationAt(mean));
    }
    scenery.model.examinations() = {examination, Examination()};
    scenery.frame = {0, 60000};
    for (VisualizationParameters *parameters :
         {&scenery.gazePoints, &scenery.fixations, &scenery.clusters, &scenery.saccades})
    {
        parameters->power = 0;
        parameters->normalDistributionWidth = 100;
        parameters->normalDistributionSigma = 20;
    }
    return scenery;
}

} // namespace

void TestHeatmap::nothingWithoutEvents_data()
{
    QTest::addColumn<DataKind>("kind");
    QTest::newRow("gaze points") << DataKind::GazePoints;
    QTest::newRow("fixations") << DataKind::Fixations;
    QTest::newRow("clusters") << DataKind::Clusters;
    QTest::newRow("saccades") << DataKind::Saccades;
}

void TestHeatmap::nothingWithoutEvents()
{
    QFETCH(DataKind, kind);
    toy::Scenery empty = scenery();
    empty.frame = {1000, 2000};
    for (const HeatmapLook look : looks) {
        QVERIFY(heatmapOf(kind, empty.context(), look).image.isNull());
        QVERIFY(!heatmapOf(kind, empty.context(), look).figures);
        QVERIFY(!heatmapOf(kind, scenery().context(), look).image.isNull());
        QCOMPARE(heatmapOf(kind, scenery().context(), look).figures.has_value(), look == HeatmapLook::AbsoluteScale);
    }
}

void TestHeatmap::gazePointsOnTheAbsoluteScale()
{
    toy::Scenery study = scenery();
    const Heatmap relativeToPeak = heatmapOf(DataKind::GazePoints, study.context(), HeatmapLook::AbsoluteScale);
    QCOMPARE(relativeToPeak.figures->maximum, 3.0);
    QVERIFY(!relativeToPeak.figures->classPercentages);
    QVERIFY(qAlpha(pixelOf(relativeToPeak, 500, 400)) > 195); // the last colour, (255,0,0,200)
    QVERIFY(qAlpha(pixelOf(relativeToPeak, 900, 400)) < 140); // a third of it
    study.gazePoints.power = 0.06;                            // six points
    const Heatmap absolute = heatmapOf(DataKind::GazePoints, study.context(), HeatmapLook::AbsoluteScale);
    QCOMPARE(absolute.figures->maximum, 6.0);
    QVERIFY(qAlpha(pixelOf(absolute, 500, 400)) < 160);
    study.gazePoints.heatmapThreashold = 2; // points a minute, and the frame is a minute
    const Heatmap cut = heatmapOf(DataKind::GazePoints, study.context(), HeatmapLook::AbsoluteScale);
    QCOMPARE(pixelOf(cut, 500, 400), pixelOf(absolute, 500, 400));
    QVERIFY(qAlpha(pixelOf(absolute, 900, 400)) > 90);
    QVERIFY(qAlpha(pixelOf(cut, 900, 400)) < 5);
}

void TestHeatmap::firstColorLiesUnderEverything()
{
    toy::Scenery study = scenery();
    study.gazePoints.heatmapColormap = 2; // "FOCAL POINT" begins with black
    const Heatmap heatmap = heatmapOf(DataKind::GazePoints, study.context(), HeatmapLook::AbsoluteScale);
    QVERIFY(qAlpha(pixelOf(heatmap, 0, 0)) > 250);
    QVERIFY(qAlpha(pixelOf(heatmap, 500, 400)) < 5);
}

void TestHeatmap::relativeScaleLeavesEmptyCellsOut()
{
    toy::Scenery study = scenery();
    study.gazePoints.heatmapColormap = study.saccades.heatmapColormap = 2;
    const Heatmap gazePoints = heatmapOf(DataKind::GazePoints, study.context(), HeatmapLook::RelativeScale);
    QCOMPARE(pixelOf(gazePoints, 0, 0), QRgb(0));
    QVERIFY(qAlpha(pixelOf(gazePoints, 541, 441)) > 240); // faint, but not empty
    const Heatmap saccades = heatmapOf(DataKind::Saccades, study.context(), HeatmapLook::RelativeScale);
    QCOMPARE(pixelOf(saccades, 0, 0), QRgb(0));
    QVERIFY(qAlpha(pixelOf(saccades, 700, 400)) < 5);
}

void TestHeatmap::shadowMap()
{
    toy::Scenery study = scenery();
    study.gazePoints.shadowTransparency = study.fixations.shadowTransparency = 55;
    for (const DataKind kind : {DataKind::GazePoints, DataKind::Fixations}) {
        const Heatmap shadow = heatmapOf(kind, study.context(), HeatmapLook::ShadowMap);
        QCOMPARE(pixelOf(shadow, 0, 0), qRgba(0, 0, 0, 200));
        QCOMPARE(pixelOf(shadow, 500, 400), qRgba(0, 0, 0, 0));
        const int third = qAlpha(pixelOf(shadow, 900, 400)); // ln 84 / ln 255 of 200 is 159; or 85
        QVERIFY(third == 41 || third == 40);
    }
}

void TestHeatmap::thresholdOfAShadowMap()
{
    toy::Scenery study = scenery();
    study.gazePoints.shadowTransparency = 0;
    study.gazePoints.heatmapThreashold = 40; // percent of the maximum; the lone point has a third
    const Heatmap shadow = heatmapOf(DataKind::GazePoints, study.context(), HeatmapLook::ShadowMap);
    QCOMPARE(pixelOf(shadow, 900, 400), qRgba(0, 0, 0, 255));
    QCOMPARE(pixelOf(shadow, 500, 400), qRgba(0, 0, 0, 0));
}

void TestHeatmap::fixations()
{
    const toy::Scenery study = scenery();
    const Heatmap heatmap = heatmapOf(DataKind::Fixations, study.context(), HeatmapLook::AbsoluteScale);
    QCOMPARE(heatmap.figures->kind, DataKind::Fixations);
    QCOMPARE(heatmap.figures->maximum, 1.5); // three a minute over two examinations
    // The lone fixation has a third of the peak, the second class from 0.2 on; the three are at the peak.
    QVERIFY(heatmap.figures->classPercentages == (std::array<double, 5>{0, 25, 0, 0, 75}));
    QVERIFY(qAlpha(pixelOf(heatmap, 500, 400)) > 195);
    toy::Scenery twice = scenery();
    twice.frame = {0, 30000};
    QCOMPARE(heatmapOf(DataKind::Fixations, twice.context(), HeatmapLook::AbsoluteScale).figures->maximum, 3.0);
    twice.frame = {100, 100}; // without length nothing is related to a minute
    QCOMPARE(heatmapOf(DataKind::Fixations, twice.context(), HeatmapLook::AbsoluteScale).figures->maximum, 1.5);
}

void TestHeatmap::clustersHaveNoClasses()
{
    const Heatmap heatmap = heatmapOf(DataKind::Clusters, scenery().context(), HeatmapLook::AbsoluteScale);
    QCOMPARE(heatmap.figures->kind, DataKind::Clusters);
    QCOMPARE(heatmap.figures->maximum, 1.5);
    QVERIFY(!heatmap.figures->classPercentages);
}

void TestHeatmap::saccades()
{
    // Two marks without length are none; the third leads from x = 500 to 900 and covers 540 to 860.
    const Heatmap heatmap = heatmapOf(DataKind::Saccades, scenery().context(), HeatmapLook::AbsoluteScale);
    QVERIFY(qAlpha(pixelOf(heatmap, 700, 400)) > 195);
    QVERIFY(qAlpha(pixelOf(heatmap, 700, 600)) < 5);
    QCOMPARE(heatmap.figures->kind, DataKind::Saccades);
    // The first densest cell is the start of the leftmost full line, at 540: the three fixations are nearer than 50.
    QCOMPARE(heatmap.figures->maximum, 3.0);
}

void TestHeatmap::saccadeShadowMap()
{
    toy::Scenery study = scenery();
    study.saccades.shadowTransparency = 55;
    const Heatmap shadow = heatmapOf(DataKind::Saccades, study.context(), HeatmapLook::ShadowMap);
    QCOMPARE(pixelOf(shadow, 700, 400), qRgba(0, 0, 0, 0));
    QCOMPARE(pixelOf(shadow, 700, 600), qRgba(0, 0, 0, 200));
    study.saccades.heatmapThreashold = 40000; // 400 px are not longer than 400
    QCOMPARE(pixelOf(heatmapOf(DataKind::Saccades, study.context(), HeatmapLook::ShadowMap), 700, 400),
             qRgba(0, 0, 0, 200));
    study.saccades.heatmapThreashold = 39999;
    QCOMPARE(pixelOf(heatmapOf(DataKind::Saccades, study.context(), HeatmapLook::ShadowMap), 700, 400),
             qRgba(0, 0, 0, 0));
}

void TestHeatmap::kindsReadTheirOwnParameters()
{
    toy::Scenery study = scenery();
    const auto pictures = [&] {
        QStringList texts;
        for (const DataKind kind : allDataKinds)
            texts << toText({RasterShape{heatmapOf(kind, study.context(), HeatmapLook::AbsoluteScale).image}});
        return texts;
    };
    const QStringList before = pictures();
    study.clusters.heatmapColormap = 1;
    const QStringList after = pictures();
    QCOMPARE(after[0], before[0]);
    QCOMPARE(after[1], before[1]);
    QVERIFY(after[2] != before[2]);
    QCOMPARE(after[3], before[3]);
}

QTEST_GUILESS_MAIN(TestHeatmap)
#include "TestHeatmap.moc"
