// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/heatmap/HeatmapLabels.h"

#include <QTest>

class TestHeatmapLabels : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void maximum_data();
    void maximum();
    void colorRange();
    void classes();
};

void TestHeatmapLabels::maximum_data()
{
    QTest::addColumn<double>("maximum");
    QTest::addColumn<QString>("text");
    QTest::newRow("none") << 0.0 << QStringLiteral("0");
    QTest::newRow("negative") << -4.0 << QStringLiteral("0");
    QTest::newRow("six digits") << 1234.5678 << QStringLiteral("1234.57");
    QTest::newRow("more than six") << 12345678.0 << QStringLiteral("1.23457e+07");
}

void TestHeatmapLabels::maximum()
{
    QFETCH(double, maximum);
    QTEST(maximumText({DataKind::GazePoints, maximum}), "text");
}

void TestHeatmapLabels::colorRange()
{
    QCOMPARE(colorRangeTexts({DataKind::Fixations, 30.0}).join(u' '), QStringLiteral("0-6 6-12 12-18 18-24 24-30"));
    QCOMPARE(colorRangeTexts({DataKind::Fixations, 3000.0}).join(u' '),
             QStringLiteral("0-600 600-1200 1200-1800 1800-2400 2400-3000"));
    QCOMPARE(colorRangeTexts({DataKind::Fixations, 1.23456}).join(u' '),
             QStringLiteral("0-0.2469 0.2469-0.4938 0.4938-0.7407 0.7407-0.9876 0.9876-1.235"));
    QCOMPARE(colorRangeTexts({DataKind::Fixations, -1.0}).join(u' '), QStringLiteral("0-0 0-0 0-0 0-0 0-0"));
}

void TestHeatmapLabels::classes()
{
    const HeatmapFigures figures{DataKind::Fixations, 1, std::array<double, 5>{0, 100.0 / 3, 12.5, 100, 1e-7}};
    QCOMPARE(classPercentageTexts(figures).join(u','), QStringLiteral("0 %,33.33 %,12.5 %,100 %,1e-07 %"));
    QVERIFY(classPercentageTexts({DataKind::Clusters, 1}).isEmpty());
}

QTEST_GUILESS_MAIN(TestHeatmapLabels)
#include "TestHeatmapLabels.moc"
