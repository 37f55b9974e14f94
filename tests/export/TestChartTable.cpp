// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/ChartTable.h"
#include "visualization/charts/Chart.h"
#include "visualization/charts/ChartBins.h"

#include <QTest>

class TestChartTable : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void rowsAreBins();
    void namesAreQuoted();
};

namespace {

ChartCurve curve(const QString &name, double value)
{
    QList<double> bins = chart::emptyBins();
    bins[1] = value;
    return {name, Qt::red, bins};
}

} // namespace

void TestChartTable::rowsAreBins()
{
    const Chart chart{.frame = {100, 1100},
                      .curves = {curve(QStringLiteral("left"), 1.5), curve(QStringLiteral("right"), 2)}};
    const QStringList lines = chartTable(chart).split(u'\n');
    QCOMPARE(lines.size(), 1 + 2000 + 1); // the last one ends, too
    QCOMPARE(lines[0], QStringLiteral("bin_start_ms,left,right"));
    QCOMPARE(lines[1], QStringLiteral("100,0,0"));
    QCOMPARE(lines[2], QStringLiteral("100.5,1.5,2"));
    QCOMPARE(lines[2000], QStringLiteral("1099.5,0,0"));
    QCOMPARE(lines[2001], QString());
}

void TestChartTable::namesAreQuoted()
{
    const Chart chart{.curves = {curve(QStringLiteral("Door, \"left\""), 0)}};
    QCOMPARE(chartTable(chart).section(u'\n', 0, 0), QStringLiteral("bin_start_ms,\"Door, \"\"left\"\"\""));
}

QTEST_GUILESS_MAIN(TestChartTable)
#include "TestChartTable.moc"
