// SPDX-License-Identifier: GPL-3.0-or-later
#include "density/SaccadeTube.h"

#include <QTest>

#include <algorithm>
#include <cmath>

namespace {

/// A saccade between two places; durations play no part here.
SaccadeMark markFrom(QPoint from, QPoint to)
{
    return {{from.x(), from.y(), 0, true}, {to.x(), to.y(), 0, false}};
}

constexpr ColumnStripe wholeCanvas{0, canvas::width};

} // namespace

class TestSaccadeTube : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void profile();
    void courseCoversTheMiddle_data();
    void courseCoversTheMiddle();
    void coursesThatAreNone();
    void aLevelTube();
    void aSlantedTubeHasNoHoles();
    void tubesAddUp();
    void aStripeIsAPartOfTheCanvas();
};

void TestSaccadeTube::profile()
{
    const std::vector<double> heights = tubeProfile({.width = 20, .sigma = 10});
    QCOMPARE(heights.size(), 21U);
    QCOMPARE(heights[0], 1 / 25.0);
    QCOMPARE(heights[10], std::exp(-0.5) / 25.0);
    QCOMPARE(heights[20], std::exp(-2.0) / 25.0);
}

void TestSaccadeTube::courseCoversTheMiddle_data()
{
    QTest::addColumn<QPoint>("from");
    QTest::addColumn<QPoint>("to");
    QTest::addColumn<QPoint>("start");
    QTest::addColumn<double>("length");
    QTest::addColumn<QPointF>("along");
    QTest::newRow("to the right") << QPoint(0, 0) << QPoint(100, 0) << QPoint(90, 0) << 80.0 << QPointF(-1, 0);
    QTest::newRow("upwards") << QPoint(7, 50) << QPoint(7, 0) << QPoint(7, 5) << 40.0 << QPointF(0, 1);
    QTest::newRow("3 by 4") << QPoint(30, 40) << QPoint(0, 0) << QPoint(3, 4) << 40.0 << QPointF(0.6, 0.8);
    // The start 13.5 is cut to 13, the other end 1.5 is not.
    QTest::newRow("only the start is cut") << QPoint(0, 0) << QPoint(15, 0) << QPoint(13, 0) << 11.5 << QPointF(-1, 0);
}

void TestSaccadeTube::courseCoversTheMiddle()
{
    QFETCH(QPoint, from);
    QFETCH(QPoint, to);
    QFETCH(QPointF, along);
    const std::optional<TubeCourse> course = tubeCourse(markFrom(from, to), 0);
    QVERIFY(course);
    QTEST(course->start, "start");
    QTEST(course->lengthPx, "length");
    QCOMPARE(course->alongX, along.x());
    QCOMPARE(course->alongY, along.y());
}

void TestSaccadeTube::coursesThatAreNone()
{
    QVERIFY(!tubeCourse(markFrom({5, 5}, {5, 5}), 0));
    QVERIFY(!tubeCourse(markFrom({0, 0}, {30, 40}), 50)); // not longer than the threshold
    QVERIFY(tubeCourse(markFrom({0, 0}, {30, 40}), 49.9));
}

/// Along x each line across the tube is one column: the cell at distance v gets the profile at v.
void TestSaccadeTube::aLevelTube()
{
    const std::vector<double> profile = tubeProfile({.width = 10, .sigma = 10});
    TubeStrip strip(wholeCanvas);
    strip.add({{300, 200}, 50, 1, 0}, 3, profile);
    for (const int x : {300, 320, 350}) {
        for (int v = 0; v <= 10; ++v) {
            QCOMPARE(strip.column(x)[200 + v], 3 * profile[static_cast<std::size_t>(v)]);
            QCOMPARE(strip.column(x)[200 - v], 3 * profile[static_cast<std::size_t>(v)]);
        }
        QCOMPARE(strip.column(x)[211], 0.0);
        QCOMPARE(strip.column(x)[189], 0.0);
    }
    // 6 px beyond an end the line is 8 px long to each side and ends with the profile's last value.
    QCOMPARE(strip.column(294)[200], 3 * profile[2]);
    QCOMPARE(strip.column(294)[208], 3 * profile[10]);
    QCOMPARE(strip.column(294)[209], 0.0);
    QCOMPARE(strip.column(356)[192], 3 * profile[10]);
    QCOMPARE(strip.column(290)[200], 3 * profile[10]);
    QCOMPARE(strip.column(289)[200], 0.0);
}

/// Lines one px apart leave cells out where they are slanted; these are filled from their neighbours.
void TestSaccadeTube::aSlantedTubeHasNoHoles()
{
    const std::vector<double> profile = tubeProfile({.width = 20, .sigma = 20});
    TubeStrip strip(wholeCanvas);
    const double slope = std::sqrt(0.5);
    strip.add({{300, 300}, 200, slope, slope}, 1, profile);
    for (int t = 0; t <= 200; ++t) {
        for (int v = -18; v <= 18; ++v) {
            const int x = static_cast<int>(std::lround(300 + (t - v) * slope));
            const int y = static_cast<int>(std::lround(300 + (t + v) * slope));
            const double cell = strip.column(x)[y];
            QVERIFY2(cell > 0.7 * profile[static_cast<std::size_t>(std::abs(v))],
                     qPrintable(QStringLiteral("%1 %2: %3").arg(x).arg(y).arg(cell)));
            QVERIFY(cell <= profile[0]);
        }
    }
}

void TestSaccadeTube::tubesAddUp()
{
    const std::vector<double> profile = tubeProfile({.width = 10, .sigma = 10});
    TubeStrip strip(wholeCanvas);
    strip.add({{300, 200}, 50, 1, 0}, 1, profile);
    strip.add({{300, 205}, 50, 1, 0}, 2, profile);
    QCOMPARE(strip.column(320)[205], profile[5] + 2 * profile[0]);
    QCOMPARE(strip.column(320)[190], profile[10]);
}

void TestSaccadeTube::aStripeIsAPartOfTheCanvas()
{
    const std::vector<double> profile = tubeProfile({.width = 30, .sigma = 15});
    const ColumnStripe stripe{640, 900};
    TubeStrip whole(wholeCanvas);
    TubeStrip part(stripe);
    const TubeCourse course = *tubeCourse(markFrom({500, 1500}, {1100, -20}), 0);
    for (TubeStrip *strip : {&whole, &part})
        strip->add(course, 1.5, profile);
    for (int x = stripe.begin + 1; x < stripe.end - 1; ++x) // the outermost column lacks a neighbour
        QVERIFY(std::equal(part.column(x), part.column(x) + canvas::height, whole.column(x)));
}

QTEST_GUILESS_MAIN(TestSaccadeTube)
#include "TestSaccadeTube.moc"
