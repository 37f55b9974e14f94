// SPDX-License-Identifier: GPL-3.0-or-later
#include "aoi/generation/RegionSteps.h"
#include "aoi/generation/StandardSearch.h"
#include "PlainRegions.h"
#include "RegionMaps.h"

#include <QTest>

using namespace standardsearch;

class TestStandardSearch : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void aBlockIsEightBySixtyFourOverEightyOne();
    void onlyWhatIsAboveTheThresholdStays();
    void theFirstOfEqualCellsIsTheMaximum();
    void tilesLeaveOutTheLastColumnsAndRows();
    void beyondFiveHundredMaximaTheRestIsDropped();
    void ofTwoNearMaximaTheLargerStays_data();
    void ofTwoNearMaximaTheLargerStays();
    void ringsLeaveOutTwoCorners();
    void ringsJumpGaps();
    void aRingWithoutCellsEndsTheGrowth();
    void aMaximumInAnEarlierRegionDoesNotGrow();
    void theNumberOfRingsIsLimited();
    void aHoleWithSixNeighboursCloses_data();
    void aHoleWithSixNeighboursCloses();
    void closingSeesItsOwnMarks();
    void aContourFollowsTheFirstNeighbour();
    void shortContoursAreDropped();
    void asThePlainForm_data();
    void asThePlainForm();

private:
    const std::vector<maps::Map> m_maps = maps::all();
};

namespace {

/// A map from text: a digit is a value, a column of the text one of the map.
template <class T>
Grid<T> drawn(const QByteArrayList &rows)
{
    Grid<T> made(int(rows.first().size()), int(rows.size()));
    for (int x = 0; x < made.width(); ++x) {
        for (int y = 0; y < made.height(); ++y)
            made.at(x, y) = T(rows[y][x] - '0');
    }
    return made;
}

template <class T>
QByteArrayList text(const Grid<T> &map)
{
    QByteArrayList rows;
    for (int y = 0; y < map.height(); ++y) {
        QByteArray row;
        for (int x = 0; x < map.width(); ++x)
            row += QByteArray::number(map.at(x, y));
        rows << row;
    }
    return rows;
}

} // namespace

void TestStandardSearch::aBlockIsEightBySixtyFourOverEightyOne()
{
    const Grid<double> sums = blockSums(Grid<double>(20, 16, 1.0));
    QCOMPARE(sums.at(4, 4), 64 / 81.0);
    QCOMPARE(sums.at(15, 11), 64 / 81.0);
    QCOMPARE(sums.at(3, 8), 0.0);
    QCOMPARE(sums.at(16, 8), 0.0);
    QCOMPARE(sums.at(8, 3), 0.0);
    QCOMPARE(sums.at(8, 12), 0.0);

    Grid<double> one(20, 16);
    one.at(10, 8) = 81;
    QCOMPARE(blockSums(one).at(14, 11), 1.0); // the block reaches 4 cells back
    QCOMPARE(blockSums(one).at(15, 8), 0.0);
    QCOMPARE(blockSums(one).at(7, 5), 1.0); // and 3 forward
    QCOMPARE(blockSums(one).at(6, 8), 0.0);
}

void TestStandardSearch::onlyWhatIsAboveTheThresholdStays()
{
    Grid<double> values(8, 8, 2.0);
    values.at(4, 4) = 1.0;
    values.at(5, 5) = 1.5;
    const Grid<double> kept = regionsteps::aboveThreshold(values, 1.0);
    QCOMPARE(kept.at(4, 4), 0.0); // equal is not above
    QCOMPARE(kept.at(5, 5), 1.5);
    QCOMPARE(kept.at(2, 2), 2.0);
    QCOMPARE(kept.at(6, 6), 2.0);
    QCOMPARE(kept.at(1, 4), 0.0);
    QCOMPARE(kept.at(7, 4), 0.0);
    QCOMPARE(kept.at(4, 1), 0.0);
    QCOMPARE(kept.at(4, 7), 0.0);
}

void TestStandardSearch::theFirstOfEqualCellsIsTheMaximum()
{
    Grid<double> values(30, 30);
    values.at(5, 9) = 1;
    values.at(6, 3) = 1;
    values.at(5, 12) = 1; // the tile of 10 x 10 cells ends at 10
    const Maxima maxima = tileMaxima(values, 10);
    QCOMPARE(maxima.positions, (QList<QPoint>{{5, 9}, {5, 12}}));
    QCOMPARE(maxima.dropped, 0);
}

void TestStandardSearch::tilesLeaveOutTheLastColumnsAndRows()
{
    const Maxima maxima = tileMaxima(Grid<double>(31, 31, 1.0), 10); // tiles at 1 and 11; 21 is not below 31 - 10
    QCOMPARE(maxima.positions, (QList<QPoint>{{1, 1}, {1, 11}, {11, 1}, {11, 11}}));
    QCOMPARE(tileMaxima(Grid<double>(12, 12, 1.0), 10).positions.size(), 1);
    QVERIFY(tileMaxima(Grid<double>(11, 11, 1.0), 10).positions.isEmpty());
    QVERIFY(tileMaxima(Grid<double>(31, 31), 10).positions.isEmpty());
}

void TestStandardSearch::beyondFiveHundredMaximaTheRestIsDropped()
{
    const Maxima maxima = tileMaxima(Grid<double>(260, 270, 1.0), 10); // 25 x 26 tiles
    QCOMPARE(maxima.positions.size(), 500);
    QCOMPARE(maxima.dropped, 150);
    QCOMPARE(maxima.positions.last(), QPoint(191, 51)); // 19 columns of 26 tiles, and 6 more
}

void TestStandardSearch::ofTwoNearMaximaTheLargerStays_data()
{
    QTest::addColumn<double>("first");
    QTest::addColumn<double>("second");
    QTest::addColumn<int>("distance");
    QTest::addColumn<QList<int>>("kept");
    QTest::newRow("the first is larger") << 2.0 << 1.0 << 9 << QList<int>{0};
    QTest::newRow("the second is larger") << 1.0 << 2.0 << 9 << QList<int>{1};
    QTest::newRow("of equals the second stays") << 1.0 << 1.0 << 9 << QList<int>{1};
    QTest::newRow("a window apart is not near") << 1.0 << 2.0 << 10 << QList<int>{0, 1};
}

void TestStandardSearch::ofTwoNearMaximaTheLargerStays()
{
    QFETCH(double, first);
    QFETCH(double, second);
    QFETCH(int, distance);
    QFETCH(QList<int>, kept);
    Grid<double> values(40, 40);
    const QList<QPoint> maxima{{5, 20}, {5 + distance, 20}};
    values.at(maxima[0].x(), 20) = first;
    values.at(maxima[1].x(), 20) = second;
    QList<QPoint> expected;
    for (const int i : kept)
        expected << maxima[i];
    QCOMPARE(distantMaxima(maxima, values, 10), expected);
}

void TestStandardSearch::ringsLeaveOutTwoCorners()
{
    const Grid<quint8> marks = grownRegions(Grid<double>(7, 7, 1.0), {{3, 3}}, 0.5, 3);
    // Neither the maximum itself nor the upper right and the lower left corners; column 0 and row 0 are never taken.
    QCOMPARE(text(marks),
             (QByteArrayList{"0000000", "0111100", "0111010", "0110110", "0101110", "0011110", "0000000"}));
}

void TestStandardSearch::ringsJumpGaps()
{
    Grid<double> values(20, 20);
    values.at(10, 10) = 1;
    values.at(11, 10) = 1; // ring 1
    values.at(8, 10) = 1;  // ring 2, on the other side
    const Grid<quint8> marks = grownRegions(values, {{10, 10}}, 0.5, 100);
    QCOMPARE(marks.at(11, 10), quint8(Inside));
    QCOMPARE(marks.at(8, 10), quint8(Inside));
}

void TestStandardSearch::aRingWithoutCellsEndsTheGrowth()
{
    Grid<double> values(20, 20);
    values.at(10, 10) = 1;
    values.at(8, 10) = 1; // ring 2, but ring 1 is empty
    QCOMPARE(grownRegions(values, {{10, 10}}, 0.5, 100), Grid<quint8>(20, 20));
    // At a share of 1 only what is above the maximum grows: nothing here, and no ring is taken.
    QCOMPARE(grownRegions(Grid<double>(20, 20, 1.0), {{10, 10}}, 1.0, 100), Grid<quint8>(20, 20));
}

void TestStandardSearch::aMaximumInAnEarlierRegionDoesNotGrow()
{
    Grid<double> values(60, 20);
    for (int x = 5; x < 19; ++x)
        values.at(x, 10) = 1;
    values.at(19, 10) = 0.8;
    for (int x = 20; x < 40; ++x)
        values.at(x, 10) = 0.7;
    const Grid<quint8> alone = grownRegions(values, {{19, 10}}, 0.75, 100);
    QCOMPARE(alone.at(39, 10), quint8(Inside)); // 0.7 is above 0.6
    const Grid<quint8> second = grownRegions(values, {{6, 10}, {19, 10}}, 0.75, 100);
    QCOMPARE(second.at(19, 10), quint8(Inside)); // marked by the first, at 0.75
    QCOMPARE(second.at(25, 10), quint8(Outside));
}

void TestStandardSearch::theNumberOfRingsIsLimited()
{
    const Grid<quint8> marks = grownRegions(Grid<double>(40, 40, 1.0), {{20, 20}}, 0.5, 6);
    QCOMPARE(marks.at(15, 20), quint8(Inside)); // 5 rings
    QCOMPARE(marks.at(14, 20), quint8(Outside));
}

void TestStandardSearch::aHoleWithSixNeighboursCloses_data()
{
    QTest::addColumn<QByteArrayList>("rows");
    QTest::addColumn<int>("middle");
    QTest::newRow("eight") << QByteArrayList{"000000", "000000", "001110", "001010", "001110", "000000"} << 1;
    QTest::newRow("six") << QByteArrayList{"000000", "000000", "001110", "001010", "001000", "000000"} << 1;
    QTest::newRow("five") << QByteArrayList{"000000", "000000", "001110", "001000", "001000", "000000"} << 0;
}

void TestStandardSearch::aHoleWithSixNeighboursCloses()
{
    QFETCH(QByteArrayList, rows);
    QFETCH(int, middle);
    QCOMPARE(int(closedHoles(drawn<quint8>(rows)).at(3, 3)), middle);
}

void TestStandardSearch::closingSeesItsOwnMarks()
{
    // The upper hole has seven neighbours; the lower one has five, and six when the upper one is closed.
    const QByteArrayList before{"000000", "000000", "001110", "001010", "001010", "000100", "000000"};
    const Grid<quint8> after = closedHoles(drawn<quint8>(before));
    QCOMPARE(int(after.at(3, 3)), 1);
    QCOMPARE(int(after.at(3, 4)), 1);
}

void TestStandardSearch::aContourFollowsTheFirstNeighbour()
{
    const Grid<quint8> marks = withBorders(
        drawn<quint8>({"00000000", "00000000", "00111000", "00111000", "00111000", "00000000", "00000000"}));
    QCOMPARE(text(marks),
             (QByteArrayList{"00000000", "00000000", "00222000", "00212000", "00222000", "00000000", "00000000"}));
    // From the first cell down; then, since columns to the left come first, round the lower side.
    QCOMPARE(contours(marks, 0),
             (QList<QPolygon>{QPolygon({{2, 2}, {2, 3}, {2, 4}, {3, 4}, {4, 3}, {3, 2}, {4, 2}}), QPolygon({{4, 4}})}));
}

void TestStandardSearch::shortContoursAreDropped()
{
    const Grid<quint8> marks = drawn<quint8>({"0000000", "0000000", "0020000", "0020000", "0000020", "0000000"});
    QCOMPARE(contours(marks, 0).size(), 2);
    QCOMPARE(contours(marks, 1).size(), 1);
    QCOMPARE(contours(marks, 2).size(), 0); // two vertices are not more than two
    QVERIFY(contours(Grid<quint8>(), 0).isEmpty());
}

void TestStandardSearch::asThePlainForm_data()
{
    QTest::addColumn<int>("map");
    QTest::addColumn<int>("window");
    QTest::addColumn<double>("share");
    for (std::size_t i = 0; i < m_maps.size(); ++i) {
        for (const int window : {3, 20, 50}) {
            QTest::addRow("%s, window %d", qPrintable(m_maps[i].name), window) << int(i) << window << 0.5;
            QTest::addRow("%s, window %d, high", qPrintable(m_maps[i].name), window) << int(i) << window << 0.9;
        }
    }
}

void TestStandardSearch::asThePlainForm()
{
    QFETCH(int, map);
    QFETCH(int, window);
    QFETCH(double, share);
    const Grid<double> &density = m_maps[std::size_t(map)].density;
    plain::Regions regions(density);
    regions.sumBlocks();
    Grid<double> values = blockSums(density);
    QVERIFY(plain::tableOf(values) == regions.work);
    const double limit = 0.1 * regions.heatMax;
    regions.preThreshold(limit);
    values = regionsteps::aboveThreshold(values, limit);
    QVERIFY(plain::tableOf(values) == regions.work);
    regions.findMaxima(window);
    const Maxima maxima = tileMaxima(values, window);
    QCOMPARE(maxima.positions, regions.seeds());
    QCOMPARE(maxima.dropped, regions.dropped);
    regions.merge(window);
    const QList<QPoint> seeds = distantMaxima(maxima.positions, values, window);
    QCOMPARE(seeds, regions.seeds());
    regions.grow(share, 60);
    regions.binarise();
    regions.closeHoles();
    regions.markBorders();
    const Grid<quint8> marks = withBorders(closedHoles(grownRegions(values, seeds, share, 60)));
    for (int x = 0; x < marks.width(); ++x) {
        for (int y = 0; y < marks.height(); ++y)
            QCOMPARE(double(marks.at(x, y)), regions.work[std::size_t(x)][std::size_t(y)]);
    }
    QCOMPARE(contours(marks, 5), regions.standardContours(5));
}

QTEST_GUILESS_MAIN(TestStandardSearch)
#include "TestStandardSearch.moc"
