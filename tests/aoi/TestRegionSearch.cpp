// SPDX-License-Identifier: GPL-3.0-or-later
#include "aoi/generation/RegionSearch.h"
#include "import/ExaminationImport.h"
#include "PlainRegions.h"
#include "RegionMaps.h"

#include <QTest>

class TestRegionSearch : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void withoutASearchThereAreNoAreas();
    void standardAreasAreNamedFromTwo();
    void gradientAreasAreNamedFromOne();
    void aThresholdOfTheWholeMaximumTakesNothing();
    void shortContoursMakeNoArea();
    void aStopGivesNothing_data();
    void aStopGivesNothing();
    void theLogHearsOfDroppedMaxima();
    void layersOfAStandardSearch();
    void layersOfAGradientSearch();
    void recordingsAsThePlainForm_data();
    void recordingsAsThePlainForm();
};

namespace {

RegionDensity densityOf(Grid<double> cells)
{
    double highest = 0;
    for (std::ptrdiff_t i = 0; i < cells.size(); ++i)
        highest = std::max(highest, cells.data()[i]);
    return {.cells = std::move(cells), .highest = highest, .unit = {}, .remark = {}};
}

RegionDensity twoHills()
{
    return densityOf(maps::grid(
        300, 200, [](int x, int y) { return maps::hill(x, y, 70, 90, 12) + 0.8 * maps::hill(x, y, 200, 100, 12); }));
}

RegionParameters parametersFor(RegionMethod method)
{
    return {.method = method, .size = 60, .windowPx = 60, .minimumRegion = 20};
}

/// The density of all gaze points of the example study's first recordings.
std::optional<RegionDensity> studyDensity(DataModel &model)
{
    const QString folder = QStringLiteral(VISTRUM_SOURCE_DIR "/examples/study/");
    importRecordings({folder + QStringLiteral("S01.data"), folder + QStringLiteral("S02.data")}, model, nullptr,
                     [](const Examination &) {});
    model.setTimeFrame({0, model.longestCheckedDuration()});
    return regionDensity(model, {}, {});
}

} // namespace

void TestRegionSearch::withoutASearchThereAreNoAreas()
{
    QVERIFY(regionAois({}, 0).isEmpty());
    QVERIFY(regionContours({.method = RegionMethod::Gradient}, 0).isEmpty());
    QVERIFY(regionLayer({}).isNull());
    QVERIFY(searchRemark({}).isEmpty());
}

void TestRegionSearch::standardAreasAreNamedFromTwo()
{
    const std::optional<RegionSearch> search = searchRegions(twoHills(), parametersFor(RegionMethod::Standard));
    const QList<GeneratedAoi> aois = regionAois(*search, 20);
    QCOMPARE(aois.size(), 2);
    QCOMPARE(aois[0].aoi.name, QStringLiteral("HeatmapAOI(2)"));
    QCOMPARE(aois[0].oldName, QStringLiteral("Cluster1"));
    QCOMPARE(aois[1].aoi.name, QStringLiteral("HeatmapAOI(3)"));
    QVERIFY(aois[0].aoi.polygon.boundingRect().contains(70, 90));
    QVERIFY(aois[1].aoi.polygon.boundingRect().contains(200, 100));
    QCOMPARE(regionAois(*search, 20).size(), 2); // again the same names: an insertion replaces the first ones
    QCOMPARE(regionAois(*search, 20)[1].aoi.name, aois[1].aoi.name);
}

void TestRegionSearch::gradientAreasAreNamedFromOne()
{
    const std::optional<RegionSearch> search = searchRegions(twoHills(), parametersFor(RegionMethod::Gradient));
    QCOMPARE(search->seeds, (QList<QPoint>{{70, 90}, {200, 100}}));
    const QList<GeneratedAoi> aois = regionAois(*search, 20);
    QVERIFY(aois.size() >= 2);
    QCOMPARE(aois[0].aoi.name, QStringLiteral("AOI 1"));
    QCOMPARE(aois[0].oldName, QStringLiteral("Cluster1"));
    QCOMPARE(aois[1].aoi.name, QStringLiteral("AOI 2"));
}

void TestRegionSearch::aThresholdOfTheWholeMaximumTakesNothing()
{
    RegionParameters parameters = parametersFor(RegionMethod::Standard);
    parameters.thresholdPercent = 100;
    const std::optional<RegionSearch> search = searchRegions(twoHills(), parameters);
    QCOMPARE(search->seeds.size(), 2);
    QVERIFY(regionAois(*search, 0).isEmpty()); // no cell is above the maximum of its hill
}

void TestRegionSearch::shortContoursMakeNoArea()
{
    const std::optional<RegionSearch> search = searchRegions(twoHills(), parametersFor(RegionMethod::Standard));
    const QList<QPolygon> contours = regionContours(*search, 0);
    qsizetype longest = 0;
    for (const QPolygon &contour : contours)
        longest = std::max(longest, contour.size());
    QCOMPARE(regionContours(*search, int(longest)).size(), 0);
    QVERIFY(!regionContours(*search, int(longest) - 1).isEmpty());
}

void TestRegionSearch::aStopGivesNothing_data()
{
    QTest::addColumn<RegionMethod>("method");
    QTest::newRow("standard") << RegionMethod::Standard;
    QTest::newRow("gradient") << RegionMethod::Gradient;
}

void TestRegionSearch::aStopGivesNothing()
{
    QFETCH(RegionMethod, method);
    std::stop_source source;
    source.request_stop();
    QVERIFY(!searchRegions(twoHills(), parametersFor(method), source.get_token()));
}

void TestRegionSearch::theLogHearsOfDroppedMaxima()
{
    RegionParameters parameters = parametersFor(RegionMethod::Standard);
    parameters.windowPx = 10;
    const std::optional<RegionSearch> search = searchRegions(densityOf(Grid<double>(270, 270, 1.0)), parameters);
    QCOMPARE(search->droppedMaxima, 26 * 26 - 500);
    QCOMPARE(searchRemark(*search),
             QStringLiteral("Regions were searched at the first 500 maxima; 176 more were dropped."));
}

void TestRegionSearch::layersOfAStandardSearch()
{
    RegionDensity density = twoHills();
    density.cells.at(0, 0) = 0;
    const QImage heat = densityLayer(density);
    QCOMPARE(heat.size(), QSize(300, 200));
    QCOMPARE(heat.pixel(0, 0), QRgb(0));
    QCOMPARE(heat.pixel(70, 90), qRgba(0, 255, 0, 255));
    const double share = density.cells.at(85, 90) / density.highest;
    QCOMPARE(heat.pixel(85, 90), qRgba(0, 255, 0, int(share * 250) + 5));
    const std::optional<RegionSearch> search = searchRegions(density, parametersFor(RegionMethod::Standard));
    const QImage regions = regionLayer(*search);
    QCOMPARE(regions.pixel(75, 90), QRgb(0x96ff0000));
    QCOMPARE(regions.pixel(130, 20), QRgb(0));
}

void TestRegionSearch::layersOfAGradientSearch()
{
    RegionSearch search{.method = RegionMethod::Gradient};
    search.labels = Grid<int>(12, 8);
    for (int x = 1; x < 11; ++x) {
        for (int y = 1; y < 7; ++y)
            search.labels.at(x, y) = x < 6 ? 1 : 12;
    }
    const QImage layer = regionLayer(search);
    QCOMPARE(layer.pixel(3, 3), qRgba(213, 62, 79, 150));
    QCOMPARE(layer.pixel(8, 3), qRgba(244, 109, 67, 150)); // 12 as 2
    QCOMPARE(layer.pixel(5, 3), qRgba(0, 0, 0, 150));
    QCOMPARE(layer.pixel(6, 3), qRgba(0, 0, 0, 150));
    QCOMPARE(layer.pixel(1, 3), qRgba(0, 0, 0, 150)); // beside a cell of no region
    QCOMPARE(layer.pixel(0, 3), QRgb(0));
}

void TestRegionSearch::recordingsAsThePlainForm_data()
{
    QTest::addColumn<int>("window");
    QTest::addColumn<int>("preThreshold");
    QTest::newRow("as the dialog has it") << 250 << 10;
    QTest::newRow("more than 500 tiles") << 50 << 1;
}

void TestRegionSearch::recordingsAsThePlainForm()
{
    QFETCH(int, window);
    QFETCH(int, preThreshold);
    DataModel model;
    const std::optional<RegionDensity> density = studyDensity(model);
    QVERIFY(density);
    RegionParameters parameters{.preThresholdPercent = preThreshold, .windowPx = window};

    plain::Regions standard(density->cells);
    QCOMPARE(density->highest, standard.heatMax);
    standard.sumBlocks();
    standard.preThreshold(preThreshold / 100.0 * standard.heatMax);
    standard.findMaxima(window);
    standard.merge(window);
    standard.grow(0.5, 100000);
    standard.binarise();
    standard.closeHoles();
    standard.markBorders();
    const std::optional<RegionSearch> search = searchRegions(*density, parameters);
    QVERIFY(!search->seeds.isEmpty());
    QCOMPARE(search->seeds, standard.seeds());
    QCOMPARE(search->droppedMaxima, standard.dropped);
    QCOMPARE(regionContours(*search, 50), standard.standardContours(50));

    plain::Regions gradient(density->cells);
    const double highest = gradient.smooth();
    gradient.preThreshold(highest * (preThreshold / 100.0));
    gradient.findDirections();
    const QList<QPoint> seeds = gradient.findPeaks(50);
    gradient.flood();
    parameters.method = RegionMethod::Gradient;
    const std::optional<RegionSearch> steepest = searchRegions(*density, parameters);
    QCOMPARE(steepest->seeds, seeds);
    QVERIFY(plain::tableOf(steepest->labels) == gradient.labels);
    gradient.erode();
    gradient.hollow();
    gradient.thin();
    QCOMPARE(regionContours(*steepest, 50), gradient.gradientContours(50));
}

QTEST_GUILESS_MAIN(TestRegionSearch)
#include "TestRegionSearch.moc"
