// SPDX-License-Identifier: GPL-3.0-or-later
#include "aoi/generation/GradientSearch.h"
#include "aoi/generation/RegionSteps.h"
#include "PlainRegions.h"
#include "RegionMaps.h"

#include <QTest>

#include <numbers>

using namespace gradientsearch;

class TestGradientSearch : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void theLastRowAndColumnOfTheKernelAreLeftOut();
    void cellsNearTheEdgeKeepTheirDensity();
    void theWayUp_data();
    void theWayUp();
    void peaksNearEachOtherAreOneRegion();
    void peaksNearTheEdgeHaveNoRegion();
    void floodingFollowsTheWaysUp();
    void aCircleOfWaysIsNotFlooded();
    void erosionTakesLooseCells();
    void bordersRemain();
    void stairsLoseTheirInnerCells();
    void contoursFollowOneLabel();
    void asThePlainForm_data();
    void asThePlainForm();

private:
    const std::vector<maps::Map> m_maps = maps::all();
};

void TestGradientSearch::theLastRowAndColumnOfTheKernelAreLeftOut()
{
    Grid<double> density(31, 31);
    density.at(15, 15) = 1;
    const Smoothed result = smoothed(density);
    const double center = 1 / (50 * std::numbers::pi);
    QCOMPARE(result.values.at(15, 15), center);
    QCOMPARE(result.highest, center);
    QCOMPARE(result.values.at(18, 15), center * std::exp(-9 / 50.0)); // 3 before this cell
    QCOMPARE(result.values.at(13, 15), center * std::exp(-4 / 50.0)); // 2 behind
    QCOMPARE(result.values.at(12, 15), 0.0);                          // 3 behind
    QCOMPARE(result.values.at(15, 12), 0.0);
    QCOMPARE(result.values.at(18, 16), center * std::exp(-10 / 50.0)); // the cut of the disc
    QCOMPARE(result.values.at(18, 17), 0.0);
}

void TestGradientSearch::cellsNearTheEdgeKeepTheirDensity()
{
    const Smoothed result = smoothed(Grid<double>(21, 21, 7.0));
    QCOMPARE(result.values.at(0, 10), 0.0);
    QCOMPARE(result.values.at(1, 10), 7.0);
    QCOMPARE(result.values.at(2, 10), 7.0);
    QVERIFY(result.values.at(3, 10) < 7.0);
    QCOMPARE(result.values.at(18, 10), 7.0);
    QCOMPARE(result.values.at(20, 10), 0.0);
    QCOMPARE(result.highest, result.values.at(3, 3)); // not the 7
    const Grid<double> kept = regionsteps::aboveThreshold(result.values, result.highest / 2);
    QCOMPARE(kept.at(2, 10), 7.0);
    QCOMPARE(kept.at(1, 10), 0.0);
}

void TestGradientSearch::theWayUp_data()
{
    QTest::addColumn<QList<double>>("cells"); // three columns
    QTest::addColumn<QPoint>("way");
    const auto row = [](const char *name, QList<double> cells, QPoint way) { QTest::newRow(name) << cells << way; };
    row("to the right", {0, 0, 0, 0, 1, 0, 0, 2, 0}, {1, 0});
    row("to the upper left", {3, 0, 0, 0, 1, 0, 0, 2, 0}, {-1, -1});
    row("a peak", {0, 0, 0, 0, 4, 0, 0, 2, 0}, {0, 0});
    row("nothing anywhere", {0, 0, 0, 0, 0, 0, 0, 0, 0}, {0, 0});
    row("two corners on the right", {0, 0, 0, 0, 1, 0, 2, 0, 2}, {1, 0});
    row("opposite neighbours cancel out", {0, 2, 0, 0, 1, 0, 0, 2, 0}, {0, 0});
    row("one equal neighbour: a third of a step", {0, 0, 0, 0, 1, 0, 0, 1, 0}, {0, 0});
    row("three equal neighbours: three fifths", {0, 0, 0, 0, 1, 0, 1, 1, 1}, {1, 0});
    row("two equal neighbours: half a step is one", {0, 0, 0, 0, 1, 0, 1, 1, 0}, {1, 0});
    row("half a step to the left", {1, 1, 0, 0, 1, 0, 0, 0, 0}, {-1, 0});
}

void TestGradientSearch::theWayUp()
{
    QFETCH(QList<double>, cells);
    QFETCH(QPoint, way);
    Grid<double> values(3, 3);
    std::copy(cells.cbegin(), cells.cend(), values.data());
    const Grid<Direction> found = ascents(values);
    QCOMPARE(QPoint(found.at(1, 1).x, found.at(1, 1).y), way);
    QVERIFY(found.at(0, 1).isStill());
}

void TestGradientSearch::peaksNearEachOtherAreOneRegion()
{
    Grid<double> values(60, 40);
    values.at(20, 20) = 1;
    values.at(25, 25) = 2; // 5 away
    values.at(31, 22) = 3; // 6 from the second, 11 from the first
    values.at(29, 33) = 3; // more than 5 from all
    const Peaks found = peaks(values, Grid<Direction>(60, 40), 5);
    QCOMPARE(found.seeds, (QList<QPoint>{{20, 20}, {29, 33}, {31, 22}}));
    QCOMPARE(found.labels.at(20, 20), 1);
    QCOMPARE(found.labels.at(25, 25), 1);
    QCOMPARE(found.labels.at(29, 33), 2);
    QCOMPARE(found.labels.at(31, 22), 3);
}

void TestGradientSearch::peaksNearTheEdgeHaveNoRegion()
{
    Grid<double> values(60, 40, 0);
    values.at(4, 20) = 1;
    values.at(55, 20) = 1;
    values.at(30, 35) = 1;
    QVERIFY(peaks(values, Grid<Direction>(60, 40), 5).seeds.isEmpty());
    values.at(5, 20) = 1;
    QCOMPARE(peaks(values, Grid<Direction>(60, 40), 5).seeds, QList<QPoint>{QPoint(5, 20)});
}

void TestGradientSearch::floodingFollowsTheWaysUp()
{
    Grid<int> labels(8, 5);
    labels.at(5, 2) = 3;
    Grid<Direction> ways(8, 5);
    ways.at(4, 2) = {1, 0};
    ways.at(3, 1) = {1, 1};
    ways.at(2, 1) = {1, 0};
    ways.at(6, 3) = {-1, -1};
    ways.at(6, 1) = {1, -1}; // to the edge
    const Grid<int> found = flooded(labels, ways);
    QCOMPARE(found.at(4, 2), 3);
    QCOMPARE(found.at(3, 1), 3);
    QCOMPARE(found.at(2, 1), 3);
    QCOMPARE(found.at(6, 3), 3);
    QCOMPARE(found.at(6, 1), 0);
    QCOMPARE(found.at(1, 1), 0);
}

void TestGradientSearch::aCircleOfWaysIsNotFlooded()
{
    Grid<Direction> ways(6, 5);
    ways.at(2, 2) = {1, 0};
    ways.at(3, 2) = {-1, 0};
    ways.at(4, 2) = {-1, 0};
    QCOMPARE(flooded(Grid<int>(6, 5), ways), Grid<int>(6, 5));
}

void TestGradientSearch::erosionTakesLooseCells()
{
    Grid<int> labels(12, 10);
    for (int x = 3; x < 7; ++x) {
        for (int y = 3; y < 7; ++y)
            labels.at(x, y) = 1;
    }
    for (int x = 7; x < 10; ++x)
        labels.at(x, 4) = 1; // a spike
    const Grid<int> left = eroded(labels);
    QCOMPARE(left.at(9, 4), 0);
    QCOMPARE(left.at(8, 4), 0);
    QCOMPARE(left.at(4, 4), 1);
    QCOMPARE(left.at(3, 3), 0); // a corner has four of its own
    QCOMPARE(left.at(4, 3), 1);
}

void TestGradientSearch::bordersRemain()
{
    Grid<int> labels(12, 9);
    for (int x = 1; x < 11; ++x) {
        for (int y = 1; y < 8; ++y)
            labels.at(x, y) = x < 6 ? 1 : 2;
    }
    const Grid<int> borders = hollowed(labels);
    QCOMPARE(borders.at(1, 4), 1);
    QCOMPARE(borders.at(3, 4), 0);
    QCOMPARE(borders.at(5, 4), 1); // beside the other region
    QCOMPARE(borders.at(6, 4), 2);
    QCOMPARE(borders.at(8, 4), 0);
}

void TestGradientSearch::stairsLoseTheirInnerCells()
{
    Grid<int> labels(8, 8);
    for (const QPoint cell : {QPoint(2, 2), QPoint(3, 2), QPoint(3, 3), QPoint(4, 3), QPoint(4, 4)})
        labels.at(cell.x(), cell.y()) = 1;
    const Grid<int> thin = thinned(labels);
    QCOMPARE(thin.at(2, 2), 1);
    QCOMPARE(thin.at(3, 2), 0); // left and down are set, the upper right is not
    QCOMPARE(thin.at(3, 3), 1); // up is gone by now
    QCOMPARE(thin.at(4, 3), 0);
    QCOMPARE(thin.at(4, 4), 1);
}

void TestGradientSearch::contoursFollowOneLabel()
{
    Grid<int> borders(10, 8);
    borders.at(2, 2) = 1;
    borders.at(3, 2) = 1;
    borders.at(4, 3) = 2;
    borders.at(5, 3) = 2;
    borders.at(4, 2) = 1;
    borders.at(1, 3) = 1; // the scan begins at 2, a way may lead there
    borders.at(7, 6) = 3;
    QCOMPARE(contours(borders, 0), (QList<QPolygon>{QPolygon({{2, 2}, {1, 3}}), QPolygon({{3, 2}, {4, 2}}),
                                                    QPolygon({{4, 3}, {5, 3}}), QPolygon({{7, 6}})}));
    QCOMPARE(contours(borders, 1).size(), 3);
    QVERIFY(contours(Grid<int>(), 0).isEmpty());
}

void TestGradientSearch::asThePlainForm_data()
{
    QTest::addColumn<int>("map");
    QTest::addColumn<int>("reach");
    for (std::size_t i = 0; i < m_maps.size(); ++i) {
        for (const int reach : {1, 7, 25})
            QTest::addRow("%s, reach %d", qPrintable(m_maps[i].name), reach) << int(i) << reach;
    }
}

void TestGradientSearch::asThePlainForm()
{
    QFETCH(int, map);
    QFETCH(int, reach);
    const Grid<double> &density = m_maps[std::size_t(map)].density;
    plain::Regions regions(density);
    const double highest = regions.smooth();
    Smoothed smooth = smoothed(density);
    QVERIFY(plain::tableOf(smooth.values) == regions.work);
    QCOMPARE(smooth.highest, highest);
    regions.preThreshold(highest * 0.1);
    const Grid<double> values = regionsteps::aboveThreshold(std::move(smooth.values), highest * 0.1);
    QVERIFY(plain::tableOf(values) == regions.work);
    regions.findDirections();
    const Grid<Direction> ways = ascents(values);
    for (int x = 0; x < ways.width(); ++x) {
        for (int y = 0; y < ways.height(); ++y) {
            QCOMPARE(int(ways.at(x, y).x), regions.directionX[std::size_t(x)][std::size_t(y)]);
            QCOMPARE(int(ways.at(x, y).y), regions.directionY[std::size_t(x)][std::size_t(y)]);
        }
    }
    Peaks found = peaks(values, ways, reach);
    QCOMPARE(found.seeds, regions.findPeaks(reach));
    QVERIFY(plain::tableOf(found.labels) == regions.labels);
    regions.flood();
    Grid<int> labels = flooded(std::move(found.labels), ways);
    QVERIFY(plain::tableOf(labels) == regions.labels);
    regions.erode();
    labels = eroded(std::move(labels));
    QVERIFY(plain::tableOf(labels) == regions.labels);
    regions.hollow();
    labels = hollowed(labels);
    QVERIFY(plain::tableOf(labels) == regions.labels);
    regions.thin();
    labels = thinned(std::move(labels));
    QVERIFY(plain::tableOf(labels) == regions.labels);
    QCOMPARE(contours(labels, 5), regions.gradientContours(5));
}

QTEST_GUILESS_MAIN(TestGradientSearch)
#include "TestGradientSearch.moc"
