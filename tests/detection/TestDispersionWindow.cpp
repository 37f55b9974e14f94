// SPDX-License-Identifier: GPL-3.0-or-later
#include "detection/DispersionWindow.h"
#include "detection/Median.h"

#include <QTest>

#include <algorithm>
#include <cmath>
#include <deque>
#include <limits>
#include <random>

namespace {

/// The window by the definition: sorts both axes and measures all samples for each question.
struct PlainWindow {
    std::deque<const WorkSample *> samples;
    double radius;
    int allowed;

    double medianOf(double WorkSample::*axis) const
    {
        std::vector<double> values;
        for (const WorkSample *sample : samples)
            values.push_back(sample->*axis);
        std::sort(values.begin(), values.end(), sortsBefore);
        return medianOfSorted(values, values.size());
    }
    bool isOutlier(const WorkSample *sample) const
    {
        const double dx = sample->x - medianOf(&WorkSample::x);
        const double dy = sample->y - medianOf(&WorkSample::y);
        return !(std::sqrt(dx * dx + dy * dy) <= radius);
    }
    bool fits() const
    {
        const double x = samples.empty() ? 0 : medianOf(&WorkSample::x);
        const double y = samples.empty() ? 0 : medianOf(&WorkSample::y);
        const auto outliers = std::count_if(samples.begin(), samples.end(), [&](const WorkSample *sample) {
            const double dx = sample->x - x;
            const double dy = sample->y - y;
            return !(std::sqrt(dx * dx + dy * dy) <= radius);
        });
        return outliers <= allowed;
    }
    template <class Iterator>
    qsizetype inARow(Iterator sample) const
    {
        qsizetype count = 0;
        for (; count < std::min<qsizetype>(std::ssize(samples), allowed) && isOutlier(*sample); ++sample)
            ++count;
        return count;
    }
};

struct Cloud {
    const char *name;
    QPointF (*position)(std::mt19937 &random, int step);
};

double normal(std::mt19937 &random)
{
    return std::normal_distribution<double>()(random);
}

constexpr Cloud clouds[] = {
    {"calm noise", [](std::mt19937 &r, int) { return QPointF(100 + normal(r), 100 + normal(r)); }},
    {"noise as wide as the radius", [](std::mt19937 &r, int) { return QPointF(8 * normal(r), 8 * normal(r)); }},
    {"noise that nearly fills the radius", [](std::mt19937 &r, int) { return QPointF(4 * normal(r), 4 * normal(r)); }},
    {"a few far outliers",
     [](std::mt19937 &r, int) { return QPointF(normal(r) + (r() % 25 == 0 ? 300 : 0), normal(r)); }},
    {"two places", [](std::mt19937 &r, int) { return QPointF(r() % 2 == 0 ? 0 : 12 + 0.1 * normal(r), 0); }},
    {"two places in turn", [](std::mt19937 &, int step) { return QPointF(step % 2 == 0 ? 0 : 19, 0); }},
    {"three places at just the radius",
     [](std::mt19937 &r, int step) { return QPointF(10 * (step % 3 - 1) + 1e-9 * normal(r), 0); }},
    {"three places at exactly the radius", [](std::mt19937 &, int step) { return QPointF(0, 10 * (step % 3 - 1)); }},
    {"drift", [](std::mt19937 &r, int step) { return QPointF(0.03 * step + normal(r), 0.01 * step + normal(r)); }},
    {"jumps", [](std::mt19937 &r, int step) { return QPointF(step / 150 * 40 + normal(r), normal(r)); }},
    {"one place", [](std::mt19937 &, int) { return QPointF(5, 5); }},
    {"whole pixels",
     [](std::mt19937 &r, int) { return QPointF(static_cast<int>(r() % 15), static_cast<int>(r() % 15)); }},
    {"some not a number",
     [](std::mt19937 &r, int) {
         return QPointF(r() % 20 == 0 ? std::numeric_limits<double>::quiet_NaN() : 3 * normal(r), normal(r));
     }},
    {"mostly not a number",
     [](std::mt19937 &r, int) {
         return QPointF(normal(r), r() % 5 != 0 ? std::numeric_limits<double>::quiet_NaN() : 1);
     }},
    {"infinite and huge",
     [](std::mt19937 &r, int) {
         constexpr double values[] = {1,
                                      2,
                                      3,
                                      1e308,
                                      -1e308,
                                      std::numeric_limits<double>::infinity(),
                                      -std::numeric_limits<double>::infinity(),
                                      1e154};
         return QPointF(values[r() % 8], values[r() % 4]);
     }},
};

} // namespace

class TestDispersionWindow : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void radiusIsInclusive_data();
    void radiusIsInclusive();
    void rootIsComparedToTheLastBit();
    void emptyWindow();
    void agreesWithPlain_data();
    void agreesWithPlain();
};

void TestDispersionWindow::radiusIsInclusive_data()
{
    QTest::addColumn<double>("distance");
    QTest::addColumn<bool>("fits");
    // Three samples at 0 and one at the distance: the median point is 0.
    QTest::newRow("inside") << 49.9 << true;
    QTest::newRow("at the radius") << 50.0 << true;
    QTest::newRow("next double") << std::nextafter(50.0, 51.0) << false;
    QTest::newRow("outside") << 50.1 << false;
}

void TestDispersionWindow::radiusIsInclusive()
{
    QFETCH(double, distance);
    const GazePoint source;
    const WorkSample rest{&source, 0, 0, false, true};
    const WorkSample probe{&source, 0, distance, false, true};
    DispersionWindow window(50, 0);
    for (const WorkSample *sample : {&rest, &rest, &rest, &probe})
        window.append(*sample);
    QTEST(window.fits(), "fits");
}

void TestDispersionWindow::rootIsComparedToTheLastBit()
{
    for (const int radius : {0, 1, 3, 7, 50, 1000, 46341, 2147483647}) {
        const RadiusLimit limit(radius);
        double distance = radius;
        for (int i = 0; i < 4; ++i)
            distance = std::nextafter(distance, 0.0);
        for (int i = 0; i < 9; ++i) {
            QCOMPARE(limit.isOutside(distance, 0), std::sqrt(distance * distance) > radius);
            const double half = distance / std::sqrt(2.0);
            QCOMPARE(limit.isOutside(half, half), std::sqrt(half * half + half * half) > radius);
            distance = std::nextafter(distance, 1e300);
        }
    }
    QVERIFY(RadiusLimit(-1).isOutside(0, 0));
}

void TestDispersionWindow::emptyWindow()
{
    QVERIFY(DispersionWindow(50, 0).fits());
    QVERIFY(!DispersionWindow(50, -1).fits());
    QCOMPARE(DispersionWindow(50, 3).leadingOutliers(), 0);
    QCOMPARE(DispersionWindow(50, 3).trailingOutliers(), 0);
    QCOMPARE(DispersionWindow(50, 3).durationMs(), 0);
}

void TestDispersionWindow::agreesWithPlain_data()
{
    QTest::addColumn<int>("cloud");
    QTest::addColumn<int>("allowed");
    for (int cloud = 0; cloud < static_cast<int>(std::size(clouds)); ++cloud) {
        for (const int allowed : {0, 4, 20, 100000, -1})
            QTest::addRow("%s, %d outliers allowed", clouds[cloud].name, allowed) << cloud << allowed;
    }
}

/// Random growing, sliding, shrinking at both ends and clearing; each question asked now and then, so that what is
/// brought up to date lags behind by different amounts.
void TestDispersionWindow::agreesWithPlain()
{
    QFETCH(int, cloud);
    QFETCH(int, allowed);
    constexpr int steps = 600;
    for (unsigned seed = 0; seed < 2; ++seed) {
        std::mt19937 random(seed);
        const GazePoint source;
        std::vector<WorkSample> samples;
        samples.reserve(steps);
        DispersionWindow window(10, allowed);
        PlainWindow plain{{}, 10, allowed};
        for (int step = 0; step < steps; ++step) {
            const QPointF position = clouds[cloud].position(random, step);
            samples.push_back({&source, position.x(), position.y(), false, true});
            window.append(samples.back());
            plain.samples.push_back(&samples.back());
            const auto dice = static_cast<int>(random() % 1000);
            const bool slides = step > 300 && step < 500;
            if (slides || dice < 30) {
                QCOMPARE(window.takeFront(), plain.samples.front());
                plain.samples.pop_front();
            }
            if (dice % 17 == 0 && !plain.samples.empty()) {
                QCOMPARE(window.takeBack(), plain.samples.back());
                plain.samples.pop_back();
            }
            if (dice == 999) {
                window.clear();
                plain.samples.clear();
            }
            const QByteArray where =
                QByteArrayLiteral("seed ") + QByteArray::number(seed) + " step " + QByteArray::number(step);
            if (random() % 3 != 0)
                QVERIFY2(window.fits() == plain.fits(), where.constData());
            if (random() % 7 == 0)
                QVERIFY2(window.leadingOutliers() == plain.inARow(plain.samples.begin()), where.constData());
            if (random() % 7 == 0)
                QVERIFY2(window.trailingOutliers() == plain.inARow(plain.samples.rbegin()), where.constData());
            if (random() % 7 == 0)
                QVERIFY2(window.isCleanFixation() == (plain.fits() && plain.inARow(plain.samples.begin()) == 0),
                         where.constData());
            QCOMPARE(std::ssize(window.samples()), std::ssize(plain.samples));
        }
    }
}

QTEST_GUILESS_MAIN(TestDispersionWindow)
#include "TestDispersionWindow.moc"
