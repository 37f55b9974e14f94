// SPDX-License-Identifier: GPL-3.0-or-later
#include "density/GazePointDensity.h"
#include "PlainGazePoints.h"

#include <QTest>

#include <numbers>
#include <random>

class TestGazePointDensity : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void onePointByHand();
    void pointsOnTheSameCellAddUp();
    void cutAtTheEdge_data();
    void cutAtTheEdge();
    void pointsThatReachACell();
    void sameAsThePlainForm_data();
    void sameAsThePlainForm();
    void peak_data();
    void peak();
};

namespace {

constexpr NormalDistribution small{.width = 10, .sigma = 10}; // offsets below 5

/// Points everywhere, in heaps, along the edges and beyond them.
std::vector<GazePointEvent> randomEvents(int count, unsigned seed)
{
    std::mt19937 random(seed);
    std::uniform_int_distribution<int> anywhereX(-150, canvas::width + 150);
    std::uniform_int_distribution<int> anywhereY(-150, canvas::height + 150);
    std::uniform_int_distribution<int> nearEdge(-2, 120);
    std::normal_distribution<double> heap(0, 15);
    std::vector<GazePointEvent> events;
    for (int n = 0; n < count; ++n) {
        GazePointEvent event{anywhereX(random), anywhereY(random)};
        if (n % 4 == 1)
            event = {700 + int(heap(random)), 400 + int(heap(random))};
        if (n % 8 == 2)
            event.x = n % 16 == 2 ? nearEdge(random) : canvas::width - nearEdge(random);
        if (n % 8 == 3)
            event.y = n % 16 == 3 ? nearEdge(random) : canvas::height - nearEdge(random);
        events.push_back(event);
    }
    return events;
}

} // namespace

void TestGazePointDensity::onePointByHand()
{
    const Density density = gazePointDensity(std::vector<GazePointEvent>{{100, 200}}, small, 1);
    const double center = 1 / (200 * std::numbers::pi); // 2 pi 10^2
    QCOMPARE(density.at(100, 200), center);
    QCOMPARE(density.at(104, 200), center * std::exp(-0.08)); // 16 / 200
    QCOMPARE(density.at(96, 204), center * std::exp(-0.16));
    QCOMPARE(density.at(105, 200), 0.0);
    QCOMPARE(density.at(100, 195), 0.0);
    QCOMPARE(density.at(100, 205), 0.0);
    QCOMPARE(density.peak(), (DensityPeak{density.at(100, 200), 100, 200}));
}

void TestGazePointDensity::pointsOnTheSameCellAddUp()
{
    const Density one = gazePointDensity(std::vector<GazePointEvent>{{100, 200}}, small, 1);
    const Density three = gazePointDensity(std::vector<GazePointEvent>(3, {100, 200}), small, 1);
    QCOMPARE(three.at(102, 201), 3 * one.at(102, 201));
}

void TestGazePointDensity::cutAtTheEdge_data()
{
    QTest::addColumn<QPoint>("point");
    QTest::addColumn<QRect>("reached");
    const auto row = [](const char *name, QPoint point, QRect reached) { QTest::newRow(name) << point << reached; };
    row("far from all edges", {100, 200}, {QPoint(96, 196), QPoint(104, 204)});
    row("the whole kernel just fits", {5, 200}, {QPoint(1, 196), QPoint(9, 204)});
    row("cut on the left, and so on the right", {3, 200}, {QPoint(1, 196), QPoint(5, 204)});
    row("the second column", {1, 200}, {QPoint(1, 196), QPoint(1, 204)});
    row("the first column adds nothing", {0, 200}, {});
    row("left of the canvas adds nothing", {-1, 200}, {});
    row("the last column", {2559, 200}, {QPoint(2559, 196), QPoint(2559, 204)});
    row("cut on the right, and so on the left", {2557, 200}, {QPoint(2555, 196), QPoint(2559, 204)});
    row("right of the canvas adds nothing", {2560, 200}, {});
    row("cut above, and so below", {100, 2}, {QPoint(96, 1), QPoint(104, 3)});
    row("the first row adds nothing", {100, 0}, {});
    row("the last row", {100, 1599}, {QPoint(96, 1599), QPoint(104, 1599)});
    row("cut below, and so above", {100, 1598}, {QPoint(96, 1597), QPoint(104, 1599)});
    row("below the canvas adds nothing", {100, 1600}, {});
    row("a corner", {2, 1597}, {QPoint(1, 1595), QPoint(3, 1599)});
    row("as far as an int goes", {std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}, {});
}

void TestGazePointDensity::cutAtTheEdge()
{
    QFETCH(QPoint, point);
    QFETCH(QRect, reached);
    const Density density = gazePointDensity(std::vector<GazePointEvent>{{point.x(), point.y()}}, small, 2);
    QRect found;
    for (int x = 0; x < canvas::width; ++x) {
        for (int y = 0; y < canvas::height; ++y) {
            if (density.at(x, y) > 0)
                found |= QRect(x, y, 1, 1);
        }
    }
    QCOMPARE(found, reached);
}

void TestGazePointDensity::pointsThatReachACell()
{
    constexpr int size = 60;
    for (const int halfWidth : {1, 5, 8, 20}) {
        for (int cell = 0; cell < size; ++cell) {
            const PositionRange range = positionsReaching(cell, size, halfWidth);
            for (int p = 0; p < size; ++p) {
                const int offset = std::abs(cell - p);
                const bool reaches = offset < halfWidth && p - offset > 0 && p + offset < size;
                QVERIFY2((range.begin <= p && p < range.end) == reaches,
                         qPrintable(QStringLiteral("cell %1 from %2, half width %3").arg(cell).arg(p).arg(halfWidth)));
            }
        }
    }
}

void TestGazePointDensity::sameAsThePlainForm_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("sigma");
    QTest::addColumn<unsigned>("seed");
    QTest::newRow("no point") << 0 << 100 << 50 << 1U;
    QTest::newRow("one") << 1 << 100 << 50 << 2U;
    QTest::newRow("few") << 40 << 200 << 10 << 3U;
    QTest::newRow("an odd width") << 300 << 33 << 17 << 4U;
    QTest::newRow("many") << 500 << 100 << 50 << 5U;
    QTest::newRow("the widest") << 150 << 200 << 100 << 6U;
    QTest::newRow("the smallest") << 5000 << 10 << 10 << 7U;
}

void TestGazePointDensity::sameAsThePlainForm()
{
    QFETCH(int, count);
    QFETCH(int, width);
    QFETCH(int, sigma);
    QFETCH(unsigned, seed);
    const std::vector<GazePointEvent> events = randomEvents(count, seed);
    plain::Cells expected = plain::gazePointCells(events, {width, sigma});
    const Density density = gazePointDensity(events, {width, sigma}, 1);
    const QString difference = plain::difference(density, expected);
    QVERIFY2(difference.isEmpty(), qPrintable(QStringLiteral("%1, seed %2").arg(difference).arg(seed)));
    QCOMPARE(density.peak().value, *std::max_element(density.column(0), density.column(canvas::width)));
    for (int workers = 2; workers <= 4; ++workers)
        QVERIFY2(plain::sameBits(gazePointDensity(events, {width, sigma}, workers), density),
                 qPrintable(QStringLiteral("%1 workers, seed %2").arg(workers).arg(seed)));
}

void TestGazePointDensity::peak_data()
{
    QTest::addColumn<QList<QPoint>>("points");
    QTest::addColumn<QPoint>("peak");
    QTest::newRow("none") << QList<QPoint>{} << QPoint(0, 0);
    QTest::newRow("of two equal ones the left") << QList<QPoint>{{900, 300}, {400, 700}} << QPoint(400, 700);
    QTest::newRow("of two above each other the upper") << QList<QPoint>{{900, 300}, {900, 200}} << QPoint(900, 200);
    QTest::newRow("in different stripes the left") << QList<QPoint>{{2000, 300}, {100, 700}} << QPoint(100, 700);
    QTest::newRow("the higher") << QList<QPoint>{{100, 700}, {2000, 300}, {2000, 300}} << QPoint(2000, 300);
}

void TestGazePointDensity::peak()
{
    QFETCH(QList<QPoint>, points);
    QFETCH(QPoint, peak);
    std::vector<GazePointEvent> events;
    for (const QPoint &point : points)
        events.push_back({point.x(), point.y()});
    for (int workers = 1; workers <= 4; ++workers) {
        const DensityPeak found = gazePointDensity(events, small, workers).peak();
        QCOMPARE(QPoint(found.x, found.y), peak);
    }
}

QTEST_GUILESS_MAIN(TestGazePointDensity)
#include "TestGazePointDensity.moc"
