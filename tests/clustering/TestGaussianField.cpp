// SPDX-License-Identifier: GPL-3.0-or-later
#include "clustering/GaussianField.h"

#include <QTest>

#include <random>

class TestGaussianField : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void twoPoints();
    void weightsCountAsPoints();
    void sameAsTheSum_data();
    void sameAsTheSum();
    void farAwayIsNoNumber();
    void nearPoints();
};

void TestGaussianField::twoPoints()
{
    // r is 10. From (0,0) the other one, 20 away, weighs exp(-2): the mean is at 20 exp(-2) / (1 + exp(-2)).
    GaussianField field({{0, 0}, {20, 0}}, {1, 1}, 10);
    const PlanePoint shift = field.shiftAt({0, 0});
    QVERIFY(std::abs(shift.x - 20 * 0.1353352832366127 / 1.1353352832366127) < 1e-12);
    QVERIFY(std::abs(shift.y) < 1e-12);
    QVERIFY(std::abs(field.shiftAt({10, 0}).x) < 1e-12); // halfway they balance
}

void TestGaussianField::weightsCountAsPoints()
{
    GaussianField weighted({{0, 0}, {8, 5}}, {1, 3}, 10);
    GaussianField repeated({{0, 0}, {8, 5}, {8, 5}, {8, 5}}, {1, 1, 1, 1}, 10);
    QVERIFY(std::abs(weighted.shiftAt({1, 1}).x - repeated.shiftAt({1, 1}).x) < 1e-13);
    QVERIFY(std::abs(weighted.shiftAt({1, 1}).y - repeated.shiftAt({1, 1}).y) < 1e-13);
}

void TestGaussianField::sameAsTheSum_data()
{
    QTest::addColumn<double>("widthPx");
    QTest::newRow("narrow") << 3.0;
    QTest::newRow("usual") << 100.0;
    QTest::newRow("wide") << 5000.0;
}

void TestGaussianField::sameAsTheSum()
{
    QFETCH(double, widthPx);
    std::mt19937 random(5);
    std::uniform_real_distribution<double> coordinate(0, 1500);
    std::vector<PlanePoint> points;
    std::vector<double> weights;
    for (int i = 0; i < 400; ++i) {
        points.push_back({coordinate(random), coordinate(random)});
        weights.push_back(1 + i % 3);
    }
    GaussianField field(points, weights, widthPx);
    std::normal_distribution<double> aside(0, widthPx / 3);
    double largest = 0;
    for (const PlanePoint &point : points) {
        const PlanePoint place{point.x + aside(random), point.y + aside(random)};
        const PlanePoint shift = field.shiftAt(place);
        const PlanePoint expected = field.directShiftAt(place);
        largest = std::max({largest, std::abs(shift.x - expected.x), std::abs(shift.y - expected.y)});
    }
    QVERIFY2(largest < 1e-12 * widthPx, qPrintable(QString::number(largest / widthPx)));
}

void TestGaussianField::farAwayIsNoNumber()
{
    GaussianField field({{0, 0}}, {1}, 10);
    QVERIFY(std::isnan(field.shiftAt({1e6, 0}).x)); // exp(-5e9) is 0, and 0 / 0 is no number
    const PlanePoint shift = field.shiftAt({200, 0});
    QCOMPARE(shift.x, -200.0); // 20 widths away: the polynomial knows nothing of it any more
}

void TestGaussianField::nearPoints()
{
    const PointIndex index({{0, 0}, {3, 4}, {3, 4.000001}, {-3, -4}, {10, 10}});
    std::vector<size_t> near = index.within({0, 0}, 5);
    std::sort(near.begin(), near.end());
    QCOMPARE(near, std::vector<size_t>({0, 1, 3})); // those at just the distance, too
    QCOMPARE(index.within({0, 0}, 0), std::vector<size_t>({0}));
    QCOMPARE(PointIndex({}).within({0, 0}, 5), std::vector<size_t>());
}

QTEST_GUILESS_MAIN(TestGaussianField)
#include "TestGaussianField.moc"
