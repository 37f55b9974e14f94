// SPDX-License-Identifier: GPL-3.0-or-later
#include "density/FixationKernel.h"
#include "PlainFixations.h"

#include <QTest>

#include <algorithm>
#include <cmath>
#include <random>

namespace {

constexpr int side = FixationKernel::side;

/// The whole raster; what the kernel says to be empty is not looked at.
std::vector<double> rasterOf(const FixationKernel &kernel)
{
    std::vector<double> raster(side * side);
    for (int row = kernel.rows().first; row <= kernel.rows().last; ++row) {
        const FixationKernel::Span &columns = kernel.columns(row);
        if (!columns.isEmpty())
            std::copy_n(kernel.row(row) + columns.first, columns.count(),
                        &raster[static_cast<std::size_t>(row * side + columns.first)]);
    }
    return raster;
}

FixationEvent randomEvent(std::mt19937 &random)
{
    const auto component = [&] { return static_cast<int>(random() % 61) - 30; };
    FixationEvent event{500, 400, component(), component(), component(), component(), 1 + int(random() % 900)};
    event.firstX = event.firstX == 0 && event.firstY == 0 ? 1 : event.firstX;
    event.secondY = event.secondX == 0 && event.secondY == 0 ? 1 : event.secondY;
    return event;
}

} // namespace

class TestFixationKernel : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void sameAsThePlainRaster();
    void nothingOfTheEventBeforeStays();
    void reachIsAnUpperLimit();
    void withoutAxisOrDurationThereIsNone_data();
    void withoutAxisOrDurationThereIsNone();
};

void TestFixationKernel::sameAsThePlainRaster()
{
    std::mt19937 random(1);
    for (int n = 0; n < 25; ++n) {
        const NormalDistribution size{10 + static_cast<int>(random() % 60), 10 + static_cast<int>(random() % 60)};
        const FixationEvent event = randomEvent(random);
        FixationKernel kernel(size);
        QVERIFY(kernel.build(event));
        const std::vector<double> found = rasterOf(kernel);
        const std::vector<double> expected = plain::fixationKernel(event, size); // each cell as a share of the sum
        const double mass = kernel.mass();
        const auto share = [&](std::size_t cell) { return found[cell] / mass; };
        const auto isRight = [&](std::size_t cell) {
            return std::abs(share(cell) - expected[cell]) <= 1e-12 * expected[cell] + 1e-290;
        };
        std::size_t cell = 0;
        while (cell < found.size() && isRight(cell))
            ++cell;
        if (cell < found.size()) // a text for each cell would take longer than all the rest
            QFAIL(qPrintable(QStringLiteral("event %1, cell %2: %3, expected %4")
                                 .arg(n)
                                 .arg(cell)
                                 .arg(share(cell), 0, 'g', 17)
                                 .arg(expected[cell], 0, 'g', 17)));
    }
}

void TestFixationKernel::nothingOfTheEventBeforeStays()
{
    std::mt19937 random(2);
    const NormalDistribution size{40, 30};
    FixationKernel used(size);
    for (int n = 0; n < 20; ++n) {
        const FixationEvent event = randomEvent(random);
        FixationKernel fresh(size);
        QVERIFY(used.build(event) && fresh.build(event));
        QVERIFY(rasterOf(used) == rasterOf(fresh));
        QCOMPARE(used.mass(), fresh.mass());
    }
    QVERIFY(!used.build({500, 400, 0, 0, 3, 4, 100}));
    QVERIFY(used.rows().isEmpty());
}

void TestFixationKernel::reachIsAnUpperLimit()
{
    std::mt19937 random(3);
    for (int n = 0; n < 60; ++n) {
        FixationKernel kernel({10 + static_cast<int>(random() % 190), 10 + static_cast<int>(random() % 90)});
        const FixationEvent event = randomEvent(random);
        QVERIFY(kernel.build(event));
        const int reach = kernel.reachX(event);
        for (int row = kernel.rows().first; row <= kernel.rows().last; ++row) {
            const FixationKernel::Span &columns = kernel.columns(row);
            const bool isEmpty = std::all_of(kernel.row(row) + std::min(columns.first, side),
                                             kernel.row(row) + columns.last + 1, [](double cell) { return cell == 0; });
            QVERIFY(isEmpty || std::abs(row - FixationKernel::center) <= reach);
        }
    }
}

void TestFixationKernel::withoutAxisOrDurationThereIsNone_data()
{
    QTest::addColumn<FixationEvent>("event");
    QTest::newRow("no first axis") << FixationEvent{500, 400, 0, 0, 3, 4, 100};
    QTest::newRow("no second axis") << FixationEvent{500, 400, 3, 4, 0, 0, 100};
    QTest::newRow("no duration") << FixationEvent{500, 400, 3, 4, 4, -3, 0};
    QTest::newRow("a negative duration") << FixationEvent{500, 400, 3, 4, 4, -3, -5};
}

void TestFixationKernel::withoutAxisOrDurationThereIsNone()
{
    QFETCH(FixationEvent, event);
    FixationKernel kernel({20, 10});
    QVERIFY(!kernel.build(event));
    QVERIFY(kernel.rows().isEmpty());
    QCOMPARE(kernel.reachX(event), -1);
}

QTEST_GUILESS_MAIN(TestFixationKernel)
#include "TestFixationKernel.moc"
