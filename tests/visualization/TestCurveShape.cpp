// SPDX-License-Identifier: GPL-3.0-or-later
#include "PlainChart.h"
#include "visualization/charts/CurveShape.h"

#include <QTest>

#include <random>

class TestCurveShape : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void smoothedHalvesThePoints();
    void smoothedFewPointsKeepTheirHeight();
    void smoothedByTheWindow();
    void splineLikeTheFullSystem_data();
    void splineLikeTheFullSystem();
    void splineOfFewPoints();
    void splineOfAPointForEachPixelIsThatCurve();
    void outline();
};

namespace {

QPolygonF randomCurve(qsizetype count, double stepPx)
{
    std::mt19937 random(7);
    std::uniform_real_distribution<double> height(0, 800);
    QPolygonF points;
    for (qsizetype i = 0; i < count; ++i)
        points << QPointF(2761 + double(i) * stepPx, height(random));
    return points;
}

} // namespace

void TestCurveShape::smoothedHalvesThePoints()
{
    const QPolygonF points = randomCurve(2000, 1);
    const QPolygonF smooth = smoothed(points);
    QCOMPARE(smooth.size(), 1000);
    QCOMPARE(smooth[10].x(), points[20].x());
    QVERIFY(smoothed({}).isEmpty());
}

void TestCurveShape::smoothedFewPointsKeepTheirHeight()
{
    // below 200 points the window is 1
    const QPolygonF points = randomCurve(199, 1);
    const QPolygonF smooth = smoothed(points);
    for (qsizetype i = 0; i < smooth.size(); ++i)
        QCOMPARE(smooth[i], points[2 * i]);
}

void TestCurveShape::smoothedByTheWindow()
{
    const QPolygonF points = randomCurve(2000, 1);
    const QPolygonF smooth = smoothed(points); // window 20: from 10 before to 9 behind
    for (const int i : {0, 2, 10, 1000, 1990, 1998}) {
        double sum = 0;
        int count = 0;
        for (int k = i - 10; k <= i + 9; ++k) {
            if (k < 0 || k >= 2000)
                continue;
            sum += points[k].y();
            ++count;
        }
        QVERIFY2(std::abs(smooth[i / 2].y() - sum / count) < 1e-9, qPrintable(QString::number(i)));
    }
}

void TestCurveShape::splineLikeTheFullSystem_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<double>("stepPx");
    QTest::newRow("fewest") << 5 << 2.0;
    QTest::newRow("every second column") << 60 << 2.0;
    QTest::newRow("wide steps") << 20 << 17.0;
}

void TestCurveShape::splineLikeTheFullSystem()
{
    QFETCH(int, count);
    QFETCH(double, stepPx);
    const QPolygonF points = randomCurve(count, stepPx);
    const QPolygonF spline = splined(points);
    QCOMPARE(spline.size(), qsizetype((count - 1) * stepPx) + 1);
    for (const QPointF &point : spline)
        QVERIFY2(std::abs(point.y() - plain::spline(points, point.x())) < 1e-6, qPrintable(QString::number(point.x())));
}

void TestCurveShape::splineOfFewPoints()
{
    const QPolygonF four = randomCurve(4, 3);
    QCOMPARE(splined(four), four);
    QVERIFY(splined({}).isEmpty());
}

void TestCurveShape::splineOfAPointForEachPixelIsThatCurve()
{
    const QPolygonF points = randomCurve(300, 1);
    const QPolygonF spline = splined(points);
    QCOMPARE(spline.size(), points.size());
    for (qsizetype i = 0; i < points.size(); ++i)
        QVERIFY(std::abs(spline[i].y() - points[i].y()) < 1e-9);
}

void TestCurveShape::outline()
{
    QCOMPARE(outlined({{10, 100}, {11, 90}}), QPolygonF({{10, 100}, {11, 90}, {16, 85}, {15, 95}}));
}

QTEST_GUILESS_MAIN(TestCurveShape)
#include "TestCurveShape.moc"
