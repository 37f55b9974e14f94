// SPDX-License-Identifier: GPL-3.0-or-later
#include "density/FixationDensity.h"
#include "PlainFixations.h"

#include <QTest>

#include <numbers>
#include <random>

class TestFixationDensity : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void oneFixationByHand();
    void firstAxisGivesTheDirection_data();
    void firstAxisGivesTheDirection();
    void massIsOneOrTheDuration();
    void whatAddsNothing_data();
    void whatAddsNothing();
    void outsideTheCanvasIsLost();
    void sameAsThePlainForm_data();
    void sameAsThePlainForm();
};

namespace {

/// @param longest  of the axes, px.
std::vector<FixationEvent> randomEvents(int count, int longest, unsigned seed)
{
    std::mt19937 random(seed);
    std::uniform_int_distribution<int> x(-320, canvas::width + 320);
    std::uniform_int_distribution<int> y(-320, canvas::height + 320);
    std::uniform_real_distribution<double> angle(0, 2 * std::numbers::pi);
    std::uniform_real_distribution<double> length(1, longest);
    std::uniform_real_distribution<double> share(0.1, 1);
    std::uniform_int_distribution<int> duration(1, 900);
    std::vector<FixationEvent> events;
    for (int n = 0; n < count; ++n) {
        const double major = length(random);
        const double minor = major * share(random);
        const double a = n % 4 == 0 ? std::numbers::pi / 2 * (n % 16 / 4) : angle(random);
        const auto component = [](double value) { return static_cast<int>(std::ceil(value - 1e-9)); };
        FixationEvent event{x(random),
                            y(random),
                            component(major * std::cos(a)),
                            component(major * std::sin(a)),
                            component(minor * -std::sin(a)),
                            component(minor * std::cos(a)),
                            duration(random)};
        if (event.firstX == 0 && event.firstY == 0)
            event.firstX = 1;
        if (event.secondX == 0 && event.secondY == 0)
            event.secondY = 1;
        events.push_back(event);
    }
    return events;
}

} // namespace

void TestFixationDensity::oneFixationByHand()
{
    // Both variances 10 * 4 = 40; angle 0, so that steps and cells are the same but for the way in which the row and
    // the column of the centre take nothing else. The Gaussian ends beyond i * i + j * j = 21 * 21.
    const std::vector<FixationEvent> events{{500, 400, 4, 0, 0, 4, 100}};
    const Density density = fixationDensity(events, {.width = 20, .sigma = 10}, FixationMass::One, 1);
    const double center = density.at(500, 400);
    QVERIFY(center > 0);
    const auto share = [](double square) { return std::exp(-0.5 * square / 40); };
    QCOMPARE(density.at(503, 400) / center, share(9));
    QCOMPARE(density.at(498, 406) / center, share(40));
    QCOMPARE(density.at(480, 400) / center, share(400)); // -20 is the first step
    QCOMPARE(density.at(500, 419) / center, share(361)); // 19 is the last
    QCOMPARE(density.peak(), (DensityPeak{center, 500, 400}));
    // Left of the first step, column 479: a cell takes a quarter of its neighbours, which are the one to the right,
    // inside up to 6 rows from the centre (400 + 36 < 441), and the one above, filled just before.
    double filled = 0;
    for (int dy = -6; dy <= 0; ++dy)
        filled = (share(400 + dy * dy) + filled) * 0.25;
    QCOMPARE(density.at(479, 400) / center, filled);
    QCOMPARE(density.at(479, 393), 0.0);
    QCOMPARE(density.at(478, 400), 0.0);
    QVERIFY(std::abs(plain::sumOf(density) - 1) < 1e-12);
}

void TestFixationDensity::firstAxisGivesTheDirection_data()
{
    QTest::addColumn<QPoint>("first");
    QTest::addColumn<QPoint>("second");
    QTest::addColumn<QPoint>("along");
    QTest::newRow("to the right") << QPoint(40, 0) << QPoint(0, 10) << QPoint(30, 0);
    QTest::newRow("to the left") << QPoint(-40, 0) << QPoint(0, 10) << QPoint(30, 0);
    QTest::newRow("downwards") << QPoint(0, 40) << QPoint(10, 0) << QPoint(0, 30);
    QTest::newRow("upwards") << QPoint(0, -40) << QPoint(10, 0) << QPoint(0, 30);
    QTest::newRow("down and right") << QPoint(30, 30) << QPoint(-7, 7) << QPoint(20, 20);
    QTest::newRow("up and right") << QPoint(30, -30) << QPoint(7, 7) << QPoint(20, -20);
}

void TestFixationDensity::firstAxisGivesTheDirection()
{
    QFETCH(QPoint, first);
    QFETCH(QPoint, second);
    QFETCH(QPoint, along);
    const std::vector<FixationEvent> events{{800, 800, first.x(), first.y(), second.x(), second.y(), 200}};
    const Density density = fixationDensity(events, {.width = 100, .sigma = 10}, FixationMass::One, 1);
    const double there = density.at(800 + along.x(), 800 + along.y());
    const double across = density.at(800 - along.y(), 800 + along.x());
    QVERIFY(there > 2 * across);
    QVERIFY(across > 0);
}

void TestFixationDensity::massIsOneOrTheDuration()
{
    const std::vector<FixationEvent> events{{800, 800, 13, 21, -8, 5, 250}, {300, 900, 30, 2, -1, 9, 410}};
    const NormalDistribution kernel{.width = 100, .sigma = 20};
    const double one = plain::sumOf(fixationDensity(events, kernel, FixationMass::One, 2));
    const double duration = plain::sumOf(fixationDensity(events, kernel, FixationMass::Duration, 2));
    QVERIFY2(std::abs(one - 2) < 1e-11, qPrintable(QString::number(one, 'g', 17)));
    QVERIFY2(std::abs(duration - 660) < 1e-8, qPrintable(QString::number(duration, 'g', 17)));
}

void TestFixationDensity::whatAddsNothing_data()
{
    QTest::addColumn<QList<int>>("event");
    QTest::newRow("no first axis") << QList<int>{500, 500, 0, 0, 0, 5, 100};
    QTest::newRow("no second axis") << QList<int>{500, 500, 5, 0, 0, 0, 100};
    QTest::newRow("no axes") << QList<int>{500, 500, 0, 0, 0, 0, 100};
    QTest::newRow("no duration") << QList<int>{500, 500, 5, 0, 0, 5, 0};
    QTest::newRow("a negative duration") << QList<int>{500, 500, 5, 0, 0, 5, -100};
    QTest::newRow("left of the canvas") << QList<int>{-301, 500, 20, 0, 0, 20, 100};
    constexpr int largest = std::numeric_limits<int>::max();
    constexpr int lowest = std::numeric_limits<int>::min();
    QTest::newRow("as far as an int goes") << QList<int>{largest, lowest, 5, 0, 0, 5, 100};
}

void TestFixationDensity::whatAddsNothing()
{
    QFETCH(QList<int>, event);
    const std::vector<FixationEvent> events{{event[0], event[1], event[2], event[3], event[4], event[5], event[6]}};
    for (const int workers : {1, 4}) {
        const Density density = fixationDensity(events, {.width = 200, .sigma = 100}, FixationMass::One, workers);
        QCOMPARE(plain::sumOf(density), 0.0);
        QCOMPARE(density.peak(), DensityPeak{});
    }
}

void TestFixationDensity::outsideTheCanvasIsLost()
{
    // Symmetric about its centre in the first column: a little more than half of it is on the canvas.
    const std::vector<FixationEvent> events{{0, 800, 10, 0, 0, 10, 100}};
    const double sum = plain::sumOf(fixationDensity(events, {.width = 100, .sigma = 50}, FixationMass::One, 4));
    QVERIFY(sum > 0.5 && sum < 0.53);
}

void TestFixationDensity::sameAsThePlainForm_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("longest");
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("sigma");
    QTest::addColumn<unsigned>("seed");
    QTest::newRow("none") << 0 << 10 << 100 << 30 << 1U;
    QTest::newRow("usual") << 16 << 30 << 150 << 30 << 2U;
    QTest::newRow("the widest") << 8 << 60 << 200 << 100 << 3U;
    QTest::newRow("the smallest") << 30 << 20 << 10 << 10 << 4U;
    QTest::newRow("thin ones, whose rim is no double any more") << 8 << 3 << 200 << 10 << 5U;
    QTest::newRow("long ones, cut by the width") << 10 << 400 << 100 << 100 << 6U;
    QTest::newRow("steps exactly on the rim: 101 * 101 = 99 * 99 + 20 * 20") << 20 << 12 << 100 << 50 << 7U;
    QTest::newRow("an odd width") << 12 << 15 << 73 << 45 << 8U;
}

void TestFixationDensity::sameAsThePlainForm()
{
    QFETCH(int, count);
    QFETCH(int, longest);
    QFETCH(int, width);
    QFETCH(int, sigma);
    QFETCH(unsigned, seed);
    std::vector<FixationEvent> events = randomEvents(count, longest, seed);
    if (count > 0)
        events.push_back({1280, 800, longest, 0, 0, longest, 300}); // a round one
    const NormalDistribution kernel{width, sigma};
    for (const FixationMass mass : {FixationMass::One, FixationMass::Duration}) {
        plain::Cells expected = plain::fixationCells(events, kernel, mass);
        const Density density = fixationDensity(events, kernel, mass, 1);
        const QString difference = plain::difference(density, expected);
        QVERIFY2(difference.isEmpty(), qPrintable(QStringLiteral("%1, seed %2").arg(difference).arg(seed)));
        for (int workers = 2; workers <= 4; ++workers)
            QVERIFY2(plain::sameBits(fixationDensity(events, kernel, mass, workers), density),
                     qPrintable(QStringLiteral("%1 workers, seed %2").arg(workers).arg(seed)));
    }
}

QTEST_GUILESS_MAIN(TestFixationDensity)
#include "TestFixationDensity.moc"
