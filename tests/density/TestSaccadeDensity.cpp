// SPDX-License-Identifier: GPL-3.0-or-later
#include "density/SaccadeDensity.h"
#include "density/SaccadeTube.h"
#include "PlainSaccades.h"

#include <QTest>

#include <random>

class TestSaccadeDensity : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void marksAreMadeWithinAWalk();
    void weights_data();
    void weights();
    void courseByHand();
    void whatHasNoTube_data();
    void whatHasNoTube();
    void tubeByHand();
    void gaussianByHand();
    void gaussianWithoutLength();
    void gaussianIsClamped();
    void tubesLikeThePlainForm_data();
    void tubesLikeThePlainForm();
    void gaussiansLikeThePlainForm_data();
    void gaussiansLikeThePlainForm();
    void farOutsideTheCanvas_data();
    void farOutsideTheCanvas();
};

namespace {

SaccadeEvent startAt(int x, int y, int durationMs = 0)
{
    return {x, y, durationMs, true};
}

SaccadeEvent thenAt(int x, int y, int durationMs = 0)
{
    return {x, y, durationMs, false};
}

/// Walks of ten fixations each, some beyond the edges.
std::vector<SaccadeEvent> randomWalks(int count, double stride, unsigned seed)
{
    std::mt19937 random(seed);
    std::uniform_int_distribution<int> startX(-50, canvas::width + 50);
    std::uniform_int_distribution<int> startY(-50, canvas::height + 50);
    std::normal_distribution<double> step(0, stride);
    std::uniform_int_distribution<int> duration(0, 800);
    std::vector<SaccadeEvent> events;
    for (int n = 0; n < count; ++n) {
        if (n % 10 == 0)
            events.push_back(startAt(startX(random), startY(random), duration(random)));
        else
            events.push_back(
                thenAt(events.back().x + int(step(random)), events.back().y + int(step(random)), duration(random)));
    }
    return events;
}

/// Many saccades through the same place, where two stripes meet.
std::vector<SaccadeEvent> crowdedWalk(int count, unsigned seed)
{
    std::mt19937 random(seed);
    std::uniform_int_distribution<int> x(560, 720);
    std::uniform_int_distribution<int> y(300, 420);
    std::vector<SaccadeEvent> events{startAt(640, 300)};
    for (int n = 1; n < count; ++n)
        events.push_back(thenAt(x(random), y(random)));
    return events;
}

template <class Add>
QString compared(const std::vector<SaccadeEvent> &events, const SaccadeMarkStyle &style, Add addPlain)
{
    plain::Cells expected;
    for (const SaccadeMark &mark : saccadeMarks(events))
        addPlain(expected, mark, style);
    const Density density = saccadeDensity(events, style, 1);
    for (int workers = 2; workers <= 4; ++workers) {
        if (!plain::sameBits(saccadeDensity(events, style, workers), density))
            return QStringLiteral("%1 workers make other bits").arg(workers);
    }
    return plain::difference(density, expected);
}

} // namespace

void TestSaccadeDensity::marksAreMadeWithinAWalk()
{
    QVERIFY(saccadeMarks({}).empty());
    const std::vector<SaccadeEvent> events{startAt(1, 1), thenAt(2, 2), startAt(3, 3),
                                           startAt(4, 4), thenAt(5, 5), thenAt(6, 6)};
    QStringList found;
    for (const SaccadeMark &mark : saccadeMarks(events))
        found << QStringLiteral("%1-%2").arg(mark.from.x).arg(mark.to.x);
    QCOMPARE(found.join(u' '), QStringLiteral("1-2 4-5 5-6"));
}

void TestSaccadeDensity::weights_data()
{
    QTest::addColumn<bool>("length");
    QTest::addColumn<bool>("duration");
    QTest::addColumn<double>("weight");
    QTest::newRow("none") << false << false << 1.0;
    QTest::newRow("length") << true << false << 121.0;
    QTest::newRow("duration") << false << true << 576.0;
    QTest::newRow("both") << true << true << 696.0;
}

void TestSaccadeDensity::weights()
{
    QFETCH(bool, length);
    QFETCH(bool, duration);
    QFETCH(double, weight);
    const SaccadeMarkStyle style{.kernel = {10, 10}, .lengthDependent = length, .durationDependent = duration};
    QCOMPARE(markFactor({startAt(0, 0, 250), thenAt(150, 0, 325)}, 120, style), std::sqrt(weight));
}

void TestSaccadeDensity::courseByHand()
{
    // From (100, 200) to (205, 200): it starts 10.5 px before the later end, at 194.5, truncated, and ends at 110.5.
    const auto course = tubeCourse({startAt(100, 200), thenAt(205, 200)}, 0);
    QVERIFY(course);
    QCOMPARE(course->start, QPoint(194, 200));
    QCOMPARE(course->lengthPx, 83.5);
    QCOMPARE(course->alongX, -1.0);
    QCOMPARE(course->alongY, 0.0);
}

void TestSaccadeDensity::whatHasNoTube_data()
{
    QTest::addColumn<QPoint>("to");
    QTest::addColumn<double>("threshold");
    QTest::addColumn<bool>("drawn");
    QTest::newRow("no length") << QPoint(100, 200) << 0.0 << false;
    QTest::newRow("one pixel") << QPoint(101, 200) << 0.0 << true;
    QTest::newRow("below the threshold") << QPoint(102, 200) << 5.0 << false;
    QTest::newRow("as long as the threshold") << QPoint(103, 204) << 5.0 << false;
    QTest::newRow("above the threshold") << QPoint(103, 205) << 5.0 << true;
}

void TestSaccadeDensity::whatHasNoTube()
{
    QFETCH(QPoint, to);
    QFETCH(double, threshold);
    QFETCH(bool, drawn);
    const std::vector<SaccadeEvent> events{startAt(100, 200), thenAt(to.x(), to.y())};
    const Density density = saccadeDensity(events, {.kernel = {10, 10}, .lengthThresholdPx = threshold}, 1);
    QCOMPARE(density.peak().value > 0, drawn);
}

void TestSaccadeDensity::tubeByHand()
{
    // From (100, 200) to (200, 200): lines from x = 190 to 110, and half circles of 10 px beyond.
    const std::vector<SaccadeEvent> events{startAt(100, 200, 30), thenAt(200, 200, 50)};
    const SaccadeMarkStyle style{.kernel = {10, 20}, .lengthDependent = true, .durationDependent = true};
    const Density density = saccadeDensity(events, style, 4);
    const auto at = [](int v) { return std::sqrt(161.0) * std::exp(-0.5 * (v / 20.0) * (v / 20.0)) / 50; };
    QCOMPARE(density.at(150, 200), at(0));
    QCOMPARE(density.at(150, 210), at(10));
    QCOMPARE(density.at(150, 190), at(10));
    QCOMPARE(density.at(150, 211), 0.0);
    QCOMPARE(density.at(190, 204), at(4));
    // Six px beyond the start the line reaches 8 px, with the profile moved outwards by 2.
    QCOMPARE(density.at(196, 200), at(2));
    QCOMPARE(density.at(196, 208), at(10));
    QCOMPARE(density.at(196, 192), at(10));
    QCOMPARE(density.at(196, 209), 0.0);
    QCOMPARE(density.at(104, 208), at(10));
    QCOMPARE(density.at(200, 200), at(10));
    QCOMPARE(density.at(201, 200), 0.0);
    QCOMPARE(density.at(100, 200), at(10));
    QCOMPARE(density.at(99, 200), 0.0);
}

void TestSaccadeDensity::gaussianByHand()
{
    // 100 px to the right: across, the deviation is 10; along, 10 * (ln 100 + 1) = 56.05. The centre is at (150, 200).
    const std::vector<SaccadeEvent> events{startAt(100, 200), thenAt(200, 200)};
    const Density density = saccadeDensity(events, {.kernel = {10, 10}, .shape = SaccadeShape::Gaussian}, 2);
    QCOMPARE(density.at(150, 200), 1.0);
    QVERIFY(std::abs(density.at(150, 210) - std::exp(-0.5)) < 1e-10);
    QVERIFY(std::abs(density.at(150, 180) - std::exp(-2.0)) < 1e-10);
    const double along = 10 * (std::log(100.0) + 1);
    QVERIFY(std::abs(density.at(170, 200) - std::exp(-0.5 * 400 / (along * along))) < 1e-10);
    QVERIFY(density.at(50, 200) > 0); // the square reaches from -100 to 99
    QCOMPARE(density.at(49, 200), 0.0);
    QVERIFY(density.at(249, 200) > 0);
    QCOMPARE(density.at(250, 200), 0.0);
}

void TestSaccadeDensity::gaussianWithoutLength()
{
    const std::vector<SaccadeEvent> events{startAt(100, 200), thenAt(100, 200)};
    const Density density = saccadeDensity(events, {.kernel = {10, 10}, .shape = SaccadeShape::Gaussian}, 1);
    QCOMPARE(density.at(100, 200), 1.0);
    QCOMPARE(density.at(99, 199), std::exp(-1.0)); // both deviations are 1
    QCOMPARE(plain::sumOf(density), 1 + 2 * std::exp(-0.5) + std::exp(-1.0));
}

void TestSaccadeDensity::gaussianIsClamped()
{
    const std::vector<SaccadeEvent> events{startAt(100, 200, 4), thenAt(200, 200, 4)};
    const SaccadeMarkStyle style{.kernel = {10, 10}, .shape = SaccadeShape::Gaussian, .durationDependent = true};
    const Density density = saccadeDensity(events, style, 1);
    QCOMPARE(density.at(150, 200), 1.0); // not 3
    QCOMPARE(density.at(150, 210), 1.0); // 3 exp(-0.5) is 1.8
    QVERIFY(std::abs(density.at(150, 220) - 3 * std::exp(-2.0)) < 1e-10);
}

void TestSaccadeDensity::tubesLikeThePlainForm_data()
{
    QTest::addColumn<std::vector<SaccadeEvent>>("events");
    QTest::addColumn<int>("width");
    QTest::addColumn<bool>("weighted");
    QTest::addColumn<double>("threshold");
    QTest::newRow("none") << std::vector<SaccadeEvent>() << 100 << false << 0.0;
    QTest::newRow("a single fixation") << std::vector<SaccadeEvent>{startAt(500, 500)} << 100 << false << 0.0;
    QTest::newRow("usual, seed 1") << randomWalks(60, 150, 1) << 100 << false << 0.0;
    QTest::newRow("weighted, seed 2") << randomWalks(60, 150, 2) << 60 << true << 0.0;
    QTest::newRow("long, seed 3") << randomWalks(50, 900, 3) << 40 << false << 0.0;
    QTest::newRow("short ones left out, seed 4") << randomWalks(120, 60, 4) << 10 << false << 70.0;
    QTest::newRow("the widest, seed 5") << randomWalks(20, 300, 5) << 200 << false << 0.0;
    QTest::newRow("many through the border of two stripes, seed 6") << crowdedWalk(400, 6) << 10 << false << 0.0;
}

void TestSaccadeDensity::tubesLikeThePlainForm()
{
    QFETCH(std::vector<SaccadeEvent>, events);
    QFETCH(int, width);
    QFETCH(bool, weighted);
    QFETCH(double, threshold);
    const SaccadeMarkStyle style{.kernel = {width, width / 2 + 5},
                                 .lengthDependent = weighted,
                                 .durationDependent = weighted,
                                 .lengthThresholdPx = threshold};
    QCOMPARE(compared(events, style, plain::addTube), QString());
}

void TestSaccadeDensity::gaussiansLikeThePlainForm_data()
{
    QTest::addColumn<std::vector<SaccadeEvent>>("events");
    QTest::addColumn<bool>("length");
    QTest::addColumn<bool>("duration");
    QTest::newRow("none") << std::vector<SaccadeEvent>() << false << false;
    QTest::newRow("usual, seed 1") << randomWalks(60, 100, 1) << false << false;
    QTest::newRow("by length, seed 2") << randomWalks(60, 100, 2) << true << false;
    QTest::newRow("by duration, seed 3") << randomWalks(60, 100, 3) << false << true;
    QTest::newRow("short, seed 4") << randomWalks(120, 3, 4) << true << true;
    QTest::newRow("long, seed 5") << randomWalks(20, 700, 5) << false << false;
}

void TestSaccadeDensity::gaussiansLikeThePlainForm()
{
    QFETCH(std::vector<SaccadeEvent>, events);
    QFETCH(bool, length);
    QFETCH(bool, duration);
    const SaccadeMarkStyle style{
        .kernel = {100, 50}, .shape = SaccadeShape::Gaussian, .lengthDependent = length, .durationDependent = duration};
    QCOMPARE(compared(events, style, plain::addGaussian<long double>), QString());
}

void TestSaccadeDensity::farOutsideTheCanvas_data()
{
    QTest::addColumn<QPoint>("from");
    QTest::addColumn<QPoint>("to");
    constexpr int largest = std::numeric_limits<int>::max();
    constexpr int lowest = std::numeric_limits<int>::min();
    QTest::newRow("across the canvas") << QPoint(lowest, lowest) << QPoint(largest, largest);
    QTest::newRow("beside it") << QPoint(lowest, 5) << QPoint(lowest, largest);
    QTest::newRow("one end on it") << QPoint(1280, 800) << QPoint(largest, lowest);
}

void TestSaccadeDensity::farOutsideTheCanvas()
{
    QFETCH(QPoint, from);
    QFETCH(QPoint, to);
    const std::vector<SaccadeEvent> events{startAt(from.x(), from.y(), -5), thenAt(to.x(), to.y(), -5)};
    for (const SaccadeShape shape : {SaccadeShape::Tube, SaccadeShape::Gaussian}) {
        for (const bool durations : {false, true}) { // a negative weight has no root
            const SaccadeMarkStyle style{.kernel = {200, 100}, .shape = shape, .durationDependent = durations};
            const Density one = saccadeDensity(events, style, 1);
            QVERIFY(plain::sameBits(saccadeDensity(events, style, 4), one));
            QVERIFY(!(one.peak().value < 0));
        }
    }
}

QTEST_GUILESS_MAIN(TestSaccadeDensity)
#include "TestSaccadeDensity.moc"
