// SPDX-License-Identifier: GPL-3.0-or-later
#include "ToyData.h"
#include "visualization/heatmap/HeatmapColoring.h"

#include <QTest>

#include <algorithm>
#include <limits>
#include <random>

class TestHeatmapColoring : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void colorOfACell_data();
    void colorOfACell();
    void sameForAllWorkers();
    void veilByHand();
    void veilWithoutOpacity();
};

namespace {

/// The colour of each index is the index.
DensityColoring indexColoring()
{
    DensityColoring coloring{.gain = 2, .limit = 1, .unit = 51, .below = 1000};
    for (std::size_t i = 0; i < coloring.colors.size(); ++i)
        coloring.colors[i] = static_cast<QRgb>(i);
    return coloring;
}

} // namespace

void TestHeatmapColoring::colorOfACell_data()
{
    QTest::addColumn<double>("cell");
    QTest::addColumn<int>("lowest");
    QTest::addColumn<double>("unit");
    QTest::addColumn<QRgb>("color");
    constexpr double infinity = std::numeric_limits<double>::infinity();
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    QTest::newRow("empty") << 0.0 << 1 << 51.0 << QRgb(1000);
    QTest::newRow("at the limit: twice 0.5 is 1") << 0.5 << 1 << 51.0 << QRgb(1000);
    QTest::newRow("just above it") << 0.51 << 1 << 51.0 << QRgb(2); // 5 steps each
    QTest::newRow("truncated") << 10.19 << 1 << 51.0 << QRgb(50);
    QTest::newRow("the unit") << 51.0 << 1 << 51.0 << QRgb(255);
    QTest::newRow("beyond it") << 1e6 << 1 << 51.0 << QRgb(255);
    QTest::newRow("infinite") << infinity << 1 << 51.0 << QRgb(255);
    QTest::newRow("faint, raised to 1") << 0.6 << 1 << 5100.0 << QRgb(1);
    QTest::newRow("faint, not raised") << 0.6 << 0 << 5100.0 << QRgb(0);
    QTest::newRow("no number") << nan << 1 << 51.0 << QRgb(1000);
    QTest::newRow("a unit of 0") << 1.0 << 1 << 0.0 << QRgb(255);
    QTest::newRow("a unit that is no number") << 1.0 << 1 << nan << QRgb(1);
}

void TestHeatmapColoring::colorOfACell()
{
    QFETCH(double, cell);
    QFETCH(int, lowest);
    QFETCH(double, unit);
    QFETCH(QRgb, color);
    Density density;
    std::fill(density.column(0), density.column(canvas::width), 0.0);
    density.column(70)[40] = cell;
    DensityColoring coloring = indexColoring();
    coloring.lowest = lowest;
    coloring.unit = unit;
    const QImage image = coloredDensity(density, coloring, 1);
    QCOMPARE(image.size(), QSize(canvas::width, canvas::height));
    QCOMPARE(image.format(), QImage::Format_ARGB32);
    QCOMPARE(reinterpret_cast<const QRgb *>(image.constScanLine(40))[70], color);
    QCOMPARE(reinterpret_cast<const QRgb *>(image.constScanLine(41))[70], QRgb(1000));
}

void TestHeatmapColoring::sameForAllWorkers()
{
    std::mt19937 random(1);
    std::uniform_real_distribution<double> value(0, 51);
    Density density;
    std::generate(density.column(0), density.column(canvas::width), [&] { return value(random); });
    const QImage one = coloredDensity(density, indexColoring(), 1);
    const auto pixelAt = [&](int x, int y) { return reinterpret_cast<const QRgb *>(one.constScanLine(y))[x]; };
    for (const QPoint &p : {QPoint(0, 0), QPoint(15, 1), QPoint(16, 1599), QPoint(2559, 800), QPoint(853, 3)}) {
        const double cell = density.at(p.x(), p.y());
        QCOMPARE(pixelAt(p.x(), p.y()), cell > 0.5 ? QRgb(cell * 5) : QRgb(1000));
    }
    for (int workers = 2; workers <= 4; ++workers)
        QVERIFY(coloredDensity(density, indexColoring(), workers) == one);
}

void TestHeatmapColoring::veilByHand()
{
    const auto veil = shadowVeil(255, 200, 1.0);
    const auto alphaAt = [&](std::size_t step) { return qAlpha(veil[step]); };
    QCOMPARE(alphaAt(0), 200);
    QCOMPARE(alphaAt(1), 200);  // ln 1 is 0
    QCOMPARE(alphaAt(2), 175);  // ln 2 / ln 255 * 200 is 25.02
    QCOMPARE(alphaAt(16), 100); // ln 16 / ln 255 * 200 is 100.07
    QCOMPARE(alphaAt(255), 0);
    QCOMPARE(veil[16], qRgba(0, 0, 0, 100));
    QCOMPARE(qAlpha(shadowVeil(255, 200, 0.5)[16]), 59); // root of 0.50035 is 0.70736: 141
}

void TestHeatmapColoring::veilWithoutOpacity()
{
    for (const int alpha : {0, 1}) { // no logarithm of theirs is positive: the veil stays closed
        const auto veil = shadowVeil(alpha, alpha, 0.5);
        QVERIFY(std::all_of(veil.begin(), veil.end(), [alpha](QRgb color) { return qAlpha(color) == alpha; }));
    }
    QCOMPARE(qAlpha(shadowVeil(2, 2, 1)[2]), 0);
}

QTEST_GUILESS_MAIN(TestHeatmapColoring)
#include "TestHeatmapColoring.moc"
