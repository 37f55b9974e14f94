// SPDX-License-Identifier: GPL-3.0-or-later
#include "detection/SpeedThreshold.h"

#include <QTest>

#include <cmath>
#include <random>

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

/// Root, arc tangent, quotient and comparison, as one would write them down.
bool plainly(double threshold, const std::optional<ViewingGeometry> &geometry, double squaredPx, qint64 timeMs)
{
    double d = std::sqrt(squaredPx);
    if (geometry)
        d = std::atan(geometry->imageSizeM / geometry->imageWidthPx * d / geometry->screenDistanceM) * 180 /
            3.141592653589793;
    return threshold > d / static_cast<double>(timeMs);
}

SpeedThreshold thresholdOf(double threshold, const std::optional<ViewingGeometry> &geometry)
{
    return geometry ? SpeedThreshold(threshold, *geometry) : SpeedThreshold(threshold);
}

/// The squared distance at which the plain answer changes, by halving the interval of all doubles.
double squareAtThreshold(double threshold, const std::optional<ViewingGeometry> &geometry, qint64 timeMs)
{
    double slow = 0;
    double fast = 1e300;
    while (std::nextafter(slow, fast) < fast) {
        const double middle = slow > 0 ? std::sqrt(slow) * std::sqrt(fast) : 1e-300;
        const double next = middle > slow && middle < fast ? middle : slow + (fast - slow) / 2;
        (plainly(threshold, geometry, next, timeMs) ? slow : fast) = next;
    }
    return slow;
}

const ViewingGeometry desk{.screenDistanceM = 0.6, .imageSizeM = 0.4, .imageWidthPx = 1024};

} // namespace

class TestSpeedThreshold : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void sameAnswerAroundTheThreshold_data();
    void sameAnswerAroundTheThreshold();
    void sameAnswerForAnything_data();
    void sameAnswerForAnything();
};

void TestSpeedThreshold::sameAnswerAroundTheThreshold_data()
{
    QTest::addColumn<double>("threshold");
    QTest::addColumn<bool>("inDegrees");
    for (const double threshold : {1.0, 2.0, 3.0, 10.0, 5000.0, 0.1, 1e-60, 1e60})
        QTest::addRow("%g px/ms", threshold) << threshold << false;
    for (const double threshold : {0.001, 0.03, 0.1, 0.7, 1.4, 5.0})
        QTest::addRow("%g degrees/ms", threshold) << threshold << true;
}

/// All neighbours of the border, far beyond the width of the band in which the answer is computed.
void TestSpeedThreshold::sameAnswerAroundTheThreshold()
{
    QFETCH(double, threshold);
    QFETCH(bool, inDegrees);
    const auto geometry = inDegrees ? std::optional(desk) : std::nullopt;
    const SpeedThreshold fast = thresholdOf(threshold, geometry);
    for (const qint64 timeMs : {1, 2, 3, 4, 5, 7, 16, 17, 33, 63, 64, 65, 1000}) {
        if (inDegrees && threshold * static_cast<double>(timeMs) > 89)
            continue; // every step is slower
        const double border = squareAtThreshold(threshold, geometry, timeMs);
        const auto verify = [&](double squaredPx) {
            QVERIFY2(fast.isGreaterThan(squaredPx, timeMs) == plainly(threshold, geometry, squaredPx, timeMs),
                     qPrintable(QStringLiteral("%1 px^2 in %2 ms").arg(squaredPx, 0, 'g', 17).arg(timeMs)));
        };
        double above = border;
        double below = border;
        for (int i = 0; i < 1000; ++i) {
            verify(above = std::nextafter(above, infinity));
            verify(below = std::nextafter(below, 0));
        }
        for (double share = 1e-15; share < 1; share *= 1.5) {
            verify(border * (1 + share));
            verify(border * (1 - share));
        }
    }
}

void TestSpeedThreshold::sameAnswerForAnything_data()
{
    QTest::addColumn<bool>("hasGeometry");
    QTest::addColumn<double>("distance");
    QTest::addColumn<double>("size");
    QTest::addColumn<double>("width");
    QTest::newRow("pixels") << false << 0.0 << 0.0 << 0.0;
    QTest::newRow("degrees") << true << 0.6 << 0.4 << 1024.0;
    QTest::newRow("no distance") << true << 0.0 << 0.4 << 1024.0;
    QTest::newRow("no size") << true << 0.6 << 0.0 << 1024.0;
    QTest::newRow("no width") << true << 0.6 << 0.4 << 0.0;
    QTest::newRow("nothing") << true << 0.0 << 0.0 << 0.0;
    QTest::newRow("negative distance") << true << -0.6 << 0.4 << 1024.0;
    QTest::newRow("negative size") << true << 0.6 << -0.4 << 1024.0;
    QTest::newRow("both negative") << true << -0.6 << -0.4 << 1024.0;
    QTest::newRow("not a number") << true << notANumber << 0.4 << 1024.0;
    QTest::newRow("tiny") << true << 1e-200 << 1e-150 << 1e10;
    QTest::newRow("huge") << true << 1e200 << 1e-150 << 1e10;
}

void TestSpeedThreshold::sameAnswerForAnything()
{
    QFETCH(bool, hasGeometry);
    QFETCH(double, distance);
    QFETCH(double, size);
    QFETCH(double, width);
    const auto geometry = hasGeometry ? std::optional(ViewingGeometry{distance, size, width}) : std::nullopt;
    constexpr double thresholds[] = {0,    1,     2,      0.03,     2.5,       -1,         5000,
                                     1e99, 1e200, 1e-120, infinity, -infinity, notANumber, -0.0};
    constexpr qint64 times[] = {0, 1, 2, 17, 63, 64, -1, -5, 9000000000, std::numeric_limits<qint64>::min()};
    constexpr double squares[] = {0, 1, 4, 1e-320, 1e-200, 1e10, 1e307, infinity, notANumber, 25e6};
    for (const double threshold : thresholds) {
        const SpeedThreshold fast = thresholdOf(threshold, geometry);
        for (const qint64 timeMs : times) {
            for (const double squaredPx : squares)
                QVERIFY2(fast.isGreaterThan(squaredPx, timeMs) == plainly(threshold, geometry, squaredPx, timeMs),
                         qPrintable(QStringLiteral("%1: %2 px^2 in %3 ms").arg(threshold).arg(squaredPx).arg(timeMs)));
        }
    }
}

QTEST_GUILESS_MAIN(TestSpeedThreshold)
#include "TestSpeedThreshold.moc"
