// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/ScanpathSection.h"
#include "TestLog.h"

#include <QTest>

#include <cmath>
#include <limits>
#include <random>

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

/// Samples at 0, 10, 20 ... ms.
QList<GazePoint> samplesAt(std::initializer_list<QPointF> positions)
{
    QList<GazePoint> samples;
    for (const QPointF &position : positions)
        samples << GazePoint(samples.size() * 10, position.x(), position.y(), 0, 0, 1);
    return samples;
}

QList<GazePoint> samplesAtTimes(std::initializer_list<qint64> times)
{
    QList<GazePoint> samples;
    for (const qint64 time : times)
        samples << GazePoint(time, 1, 1, 0, 0, 1);
    return samples;
}

QList<qint64> timesOf(const ScanpathSection &section)
{
    QList<qint64> times;
    for (const GazePoint &sample : section.samples)
        times << sample.time;
    return times;
}

Fixation fixation(const QList<GazePoint> &samples, QPoint centroid = {1, 1})
{
    return {samples, QStringLiteral("fixation"), centroid, 0};
}

/// Population covariance of the positions, px^2.
struct Covariance {
    double xx = 0;
    double xy = 0;
    double yy = 0;
};

Covariance covarianceOf(const QList<GazePoint> &samples)
{
    const auto count = static_cast<double>(samples.size());
    double meanX = 0;
    double meanY = 0;
    for (const GazePoint &sample : samples) {
        meanX += sample.x / count;
        meanY += sample.y / count;
    }
    Covariance c;
    for (const GazePoint &sample : samples) {
        c.xx += (sample.x - meanX) * (sample.x - meanX) / count;
        c.xy += (sample.x - meanX) * (sample.y - meanY) / count;
        c.yy += (sample.y - meanY) * (sample.y - meanY) / count;
    }
    return c;
}

QList<GazePoint> scatteredSamples(unsigned seed)
{
    std::mt19937 random(seed);
    std::normal_distribution<double> noise;
    std::uniform_real_distribution<double> stretch(0.1, 30);
    const int count = 4 + static_cast<int>(random() % 200);
    const double sizes[] = {stretch(random), stretch(random), stretch(random)};
    QList<GazePoint> samples;
    for (int i = 0; i < count; ++i) {
        const double common = noise(random) * sizes[2] * (seed % 2 == 0 ? 1 : -1);
        samples << GazePoint(i, 1200 + sizes[0] * noise(random) + common,
                             800 + sizes[1] * noise(random) + std::abs(common), 0, 0, 1);
    }
    return samples;
}

} // namespace

class TestScanpathSection : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void medianOfFixation_data();
    void medianOfFixation();
    void varianceOfFixation();
    void centroidOfFixation_data();
    void centroidOfFixation();
    void axesOfFewSamples_data();
    void axesOfFewSamples();
    void axesOfHandCases_data();
    void axesOfHandCases();
    void axesSolveTheEigenvalueEquation();
    void axesOfUnusableCoordinates_data();
    void axesOfUnusableCoordinates();
    void fixationOfUnusableCoordinatesIsBuilt();
    void fixationKeepsOrder();
    void saccadeIsSortedStably();
    void invalidKeepsOrder();
    void emptySections();
    void duration_data();
    void duration();
    void extension_data();
    void extension();
    void extensionOfFixationSortsAll();
    void extensionKeepsStatistics();
};

void TestScanpathSection::medianOfFixation_data()
{
    QTest::addColumn<QList<GazePoint>>("samples");
    QTest::addColumn<QPoint>("median");
    QTest::newRow("one sample is its own median") << samplesAt({{7.9, 3.2}}) << QPoint(7, 3);
    QTest::newRow("two: their mean, truncated") << samplesAt({{1, 10}, {4, 13}}) << QPoint(2, 11); // 2.5, 11.5
    QTest::newRow("odd: element n/2") << samplesAt({{1, 1}, {9, 8}, {2, 2}}) << QPoint(9, 8);
    QTest::newRow("even: mean of n/2 and n/2-1") // (20 + 4) / 2, (6 + 9) / 2 = 7.5
        << samplesAt({{1, 1}, {4, 9}, {20, 6}, {2, 2}}) << QPoint(12, 7);
    QTest::newRow("steady drift: the middle in time")
        << samplesAt({{1, 5}, {2, 5}, {3, 5}, {4, 5}, {5, 5}}) << QPoint(3, 5);
    QTest::newRow("jumping back and forth: not the sorted median") // sorted it would be 0
        << samplesAt({{0, 0}, {0, 0}, {50, 40}, {0, 0}, {0, 0}}) << QPoint(50, 40);
    QTest::newRow("truncation goes towards zero") << samplesAt({{-1.9, -0.5}}) << QPoint(-1, 0);
}

void TestScanpathSection::medianOfFixation()
{
    QFETCH(QList<GazePoint>, samples);
    QTEST(fixation(samples).median, "median");
}

void TestScanpathSection::varianceOfFixation()
{
    // About the whole-number centroid (2,10): x (1+0+9)/3 = 3.33, y (25+0+0)/3 = 8.33.
    QCOMPARE(fixation(samplesAt({{1, 5}, {2, 10}, {5, 10}}), {2, 10}).variance, QPoint(3, 8));
    // A centroid at the origin is replaced afterwards: the variance stays that about the origin, (16+36)/2 and 0.
    QCOMPARE(fixation(samplesAt({{4, 0}, {6, 0}}), {0, 0}).variance, QPoint(26, 0));
}

void TestScanpathSection::centroidOfFixation_data()
{
    QTest::addColumn<QPoint>("centroid");
    QTest::addColumn<QPoint>("mean");
    QTest::newRow("a given centroid is kept") << QPoint(100, 200) << QPoint(100, 200);
    QTest::newRow("with one zero coordinate, too") << QPoint(0, 200) << QPoint(0, 200);
    QTest::newRow("the origin is recomputed and truncated") << QPoint(0, 0) << QPoint(2, -2); // 2.5, -2.5
}

void TestScanpathSection::centroidOfFixation()
{
    QFETCH(QPoint, centroid);
    QTEST(fixation(samplesAt({{2, -2}, {3, -3}}), centroid).mean, "mean");
}

void TestScanpathSection::axesOfFewSamples_data()
{
    QTest::addColumn<QList<GazePoint>>("samples");
    QTest::newRow("one") << samplesAt({{5, 5}});
    QTest::newRow("two") << samplesAt({{5, 5}, {50, 9}});
    QTest::newRow("three") << samplesAt({{5, 5}, {50, 9}, {7, 80}});
}

void TestScanpathSection::axesOfFewSamples()
{
    QFETCH(QList<GazePoint>, samples);
    const Fixation built = fixation(samples);
    QCOMPARE(built.majorAxis, QVector2D(1, 0));
    QCOMPARE(built.minorAxis, QVector2D(0, 0));
}

void TestScanpathSection::axesOfHandCases_data()
{
    QTest::addColumn<QList<GazePoint>>("samples");
    QTest::addColumn<QVector2D>("major");
    QTest::addColumn<QVector2D>("minor");
    const auto root = [](double value) { return static_cast<float>(std::sqrt(value)); };
    // Variances (4+4)/4 = 2 and (1+1)/4 = 0.5, no covariance.
    QTest::newRow("wide") << samplesAt({{12, 10}, {8, 10}, {10, 11}, {10, 9}}) << QVector2D(root(2), 0)
                          << QVector2D(0, root(0.5));
    QTest::newRow("high") << samplesAt({{10, 12}, {10, 8}, {11, 10}, {9, 10}}) << QVector2D(0, root(2))
                          << QVector2D(root(0.5), 0);
    // x variance of 0, 1, 2, 3 is 1.25.
    QTest::newRow("on a horizontal line")
        << samplesAt({{0, 7}, {1, 7}, {2, 7}, {3, 7}}) << QVector2D(root(1.25), 0) << QVector2D(0, 0);
    // Both variances and the covariance are 1.25: eigenvalues 2.5 and 0, direction (1,1)/sqrt 2.
    QTest::newRow("on the diagonal") << samplesAt({{0, 0}, {1, 1}, {2, 2}, {3, 3}}) << QVector2D(root(1.25), root(1.25))
                                     << QVector2D(0, 0);
    // Slope 3 with steps that binary fractions miss: the second eigenvalue comes out as a rounding error.
    QTest::newRow("on a steep line") << samplesAt({{0, 0}, {0.1, 0.3}, {0.2, 0.6}, {0.3, 0.9}})
                                     << QVector2D(-root(0.0125), -3 * root(0.0125)) << QVector2D(0, 0);
    QTest::newRow("all at one place") << samplesAt({{4, 4}, {4, 4}, {4, 4}, {4, 4}}) << QVector2D(0, 0)
                                      << QVector2D(0, 0);
}

void TestScanpathSection::axesOfHandCases()
{
    QFETCH(QList<GazePoint>, samples);
    QFETCH(QVector2D, major);
    QFETCH(QVector2D, minor);
    const Fixation built = fixation(samples);
    QVERIFY2((built.majorAxis - major).length() < 1e-6F, qPrintable(QDebug::toString(built.majorAxis)));
    QVERIFY2((built.minorAxis - minor).length() < 1e-6F, qPrintable(QDebug::toString(built.minorAxis)));
}

void TestScanpathSection::axesSolveTheEigenvalueEquation()
{
    for (unsigned seed = 0; seed < 300; ++seed) {
        const QList<GazePoint> samples = scatteredSamples(seed);
        const Covariance c = covarianceOf(samples);
        // Roots of the characteristic polynomial of a symmetric 2 x 2 matrix.
        const double center = (c.xx + c.yy) / 2;
        const double radius = std::hypot((c.xx - c.yy) / 2, c.xy);
        const PrincipalAxes axes = principalAxes(samples);
        const QString where = QStringLiteral("seed %1").arg(seed);
        const auto solves = [&](QVector2D axis, double eigenvalue) {
            const double x = static_cast<double>(axis.x());
            const double y = static_cast<double>(axis.y());
            const double tolerance = 1e-5 * (center + radius) * std::sqrt(center + radius);
            return std::abs(c.xx * x + c.xy * y - eigenvalue * x) < tolerance &&
                   std::abs(c.xy * x + c.yy * y - eigenvalue * y) < tolerance &&
                   std::abs(x * x + y * y - eigenvalue) < 1e-5 * (center + radius);
        };
        QVERIFY2(solves(axes.major, center + radius), qPrintable(where));
        QVERIFY2(solves(axes.minor, center - radius), qPrintable(where));
    }
}

void TestScanpathSection::axesOfUnusableCoordinates_data()
{
    QTest::addColumn<double>("coordinate");
    QTest::newRow("not a number") << notANumber;
    QTest::newRow("infinite") << infinity;
    QTest::newRow("sum of squares at the limit") << 1e140;
    QTest::newRow("sum of squares beyond double") << 1e154;
    QTest::newRow("square beyond double") << 1e200;
    QTest::newRow("largest double") << std::numeric_limits<double>::max();
}

void TestScanpathSection::axesOfUnusableCoordinates()
{
    QFETCH(double, coordinate);
    for (int round = 0; round < 20; ++round) {
        // What the solver does not set would have these values: the heap gives freed memory out again.
        for (size_t size = 1; size < 64; ++size)
            const std::vector<double> left(size, 3.0 + round);
        const PrincipalAxes axes = principalAxes(samplesAt({{1, 2}, {3, 4}, {coordinate, 5}, {6, 9}}));
        QCOMPARE(axes.major, QVector2D(0, 0));
        QCOMPARE(axes.minor, QVector2D(0, 0));
    }
}

void TestScanpathSection::fixationOfUnusableCoordinatesIsBuilt()
{
    const Fixation built = fixation(
        samplesAt({{notANumber, 1e300}, {notANumber, 1e300}, {notANumber, 1e300}, {notANumber, 1e300}}), {0, 0});
    constexpr int highest = std::numeric_limits<int>::max();
    QCOMPARE(built.median, QPoint(0, highest));
    QCOMPARE(built.variance, QPoint(0, highest));
    QCOMPARE(built.mean, QPoint(0, highest));
}

void TestScanpathSection::fixationKeepsOrder()
{
    const Fixation built = fixation(samplesAtTimes({30, 10, 20}));
    QCOMPARE(timesOf(built), QList<qint64>({30, 10, 20}));
    QVERIFY(!built.timeSorted);
    QCOMPARE(built.cluster, 0);
    QCOMPARE(built.type, QStringLiteral("fixation"));
}

void TestScanpathSection::saccadeIsSortedStably()
{
    QList<GazePoint> samples = samplesAtTimes({30, 10, 20, 10});
    samples[1].x = 100;
    samples[3].x = 200;
    const Saccade built(samples, QStringLiteral("saccade"), 5, nullptr);
    QCOMPARE(timesOf(built), QList<qint64>({10, 10, 20, 30}));
    QCOMPARE(built.samples[0].x, 100.0);
    QCOMPARE(built.samples[1].x, 200.0);
    QVERIFY(built.timeSorted);
    QCOMPARE(built.number, 5);
    QCOMPARE(built.mean, QPoint());
}

void TestScanpathSection::invalidKeepsOrder()
{
    const Invalid built(samplesAtTimes({30, 10}), QStringLiteral("invalid"), 2, nullptr);
    QCOMPARE(timesOf(built), QList<qint64>({30, 10}));
    QVERIFY(!built.timeSorted);
    QCOMPARE(built.type, QStringLiteral("invalid"));
    QCOMPARE(built.number, 2);
}

void TestScanpathSection::emptySections()
{
    const RecordedLog log;
    QTest::ignoreMessage(QtWarningMsg, "WARNING: Fixation of size zero constructed!");
    const Fixation emptyFixation = fixation({}, {0, 0});
    QCOMPARE(emptyFixation.median, QPoint());
    QCOMPARE(emptyFixation.variance, QPoint());
    QCOMPARE(emptyFixation.majorAxis, QVector2D());
    QCOMPARE(emptyFixation.duration(), 0);
    const Saccade emptySaccade({}, QStringLiteral("saccade"), 1, &log.log());
    QCOMPARE(emptySaccade.duration(), 0);
    const Invalid emptyInvalid({}, QStringLiteral("invalid"), 2, &log.log());
    QCOMPARE(emptyInvalid.duration(), 0);
    QCOMPARE(log.lines(), QStringList({QStringLiteral("Error: Saccade of size zero constructed!"),
                                       QStringLiteral("Error: Invalid of size zero constructed!")}));
    const Saccade unlogged({}, QStringLiteral("saccade"), 1, nullptr);
    QVERIFY(unlogged.samples.isEmpty());
}

void TestScanpathSection::duration_data()
{
    QTest::addColumn<QList<qint64>>("times");
    QTest::addColumn<int>("duration");
    QTest::newRow("none") << QList<qint64>{} << 0;
    QTest::newRow("one") << QList<qint64>{500} << 0;
    QTest::newRow("last minus first") << QList<qint64>{100, 900, 350} << 250;
    QTest::newRow("backwards is negative") << QList<qint64>{100, 40} << -60;
    QTest::newRow("2^31 ms wraps as a 32-bit value") << QList<qint64>{0, 2147483648LL} << -2147483647 - 1;
    QTest::newRow("clock values more than 64 bits apart")
        << QList<qint64>{std::numeric_limits<qint64>::min(), std::numeric_limits<qint64>::max()} << -1;
}

void TestScanpathSection::duration()
{
    QFETCH(QList<qint64>, times);
    ScanpathSection section;
    for (const qint64 time : times)
        section.samples << GazePoint(time, 0, 0, 0, 0, 1);
    QTEST(section.duration(), "duration");
}

void TestScanpathSection::extension_data()
{
    QTest::addColumn<QList<GazePoint>>("first");
    QTest::addColumn<QList<GazePoint>>("further");
    QTest::newRow("later samples") << samplesAtTimes({0, 10}) << samplesAtTimes({20, 30});
    QTest::newRow("earlier samples") << samplesAtTimes({50, 60}) << samplesAtTimes({20, 30});
    QTest::newRow("samples latest first") << samplesAtTimes({0, 10}) << samplesAtTimes({30, 20, 5});
    QTest::newRow("equal times keep their order") << samplesAtTimes({0, 10, 10, 20}) << samplesAtTimes({10, 0, 20});
    QTest::newRow("nothing") << samplesAtTimes({0, 10}) << QList<GazePoint>();
    QTest::newRow("an empty section") << QList<GazePoint>() << samplesAtTimes({20, 10});
}

void TestScanpathSection::extension()
{
    QFETCH(QList<GazePoint>, first);
    QFETCH(QList<GazePoint>, further);
    for (qsizetype i = 0; i < first.size(); ++i)
        first[i].x = static_cast<double>(i); // tells samples of one time apart
    for (qsizetype i = 0; i < further.size(); ++i)
        further[i].x = 100 + static_cast<double>(i);
    Saccade section(first, QStringLiteral("saccade"), 1, nullptr);
    section.extend(further);
    QList<GazePoint> expected = first + further;
    std::stable_sort(expected.begin(), expected.end(),
                     [](const GazePoint &a, const GazePoint &b) { return a.time < b.time; });
    QCOMPARE(section.samples, expected);

    // as stretches of one list, one behind the other
    const QList<GazePoint> list = first + further;
    Saccade stretch({list, 0, first.size()}, QStringLiteral("saccade"), 1, nullptr);
    stretch.extend({list, first.size(), further.size()});
    QCOMPARE(stretch.samples, expected);
}

void TestScanpathSection::extensionOfFixationSortsAll()
{
    Fixation section = fixation(samplesAtTimes({30, 10}));
    section.extend(samplesAtTimes({20}));
    QCOMPARE(timesOf(section), QList<qint64>({10, 20, 30}));
}

void TestScanpathSection::extensionKeepsStatistics()
{
    Fixation section = fixation(samplesAt({{1, 1}, {3, 3}}), {2, 2});
    const Fixation before = section;
    section.extend(samplesAt({{900, 900}}));
    QCOMPARE(section.mean, before.mean);
    QCOMPARE(section.median, before.median);
    QCOMPARE(section.variance, before.variance);
    QCOMPARE(section.majorAxis, before.majorAxis);
}

QTEST_GUILESS_MAIN(TestScanpathSection)
#include "TestScanpathSection.moc"
