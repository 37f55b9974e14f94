// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Averages.h"

#include <QList>
#include <QTest>

#include <cmath>

class TestAverages : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void ofValues_data();
    void ofValues();
    void withoutValues();
    void middleTwoFarApart();
};

void TestAverages::ofValues_data()
{
    QTest::addColumn<QList<double>>("values");
    QTest::addColumn<double>("mean");
    QTest::addColumn<double>("median");
    QTest::addColumn<double>("deviation");
    QTest::newRow("one") << QList<double>{-3} << -3.0 << -3.0 << 0.0;
    QTest::newRow("two") << QList<double>{5, 1} << 3.0 << 3.0 << 2.0;
    QTest::newRow("odd, unordered") << QList<double>{9, 1, 2} << 4.0 << 2.0 << std::sqrt(38 / 3.0);
    QTest::newRow("even, unordered") << QList<double>{8, 2, 4, 2} << 4.0 << 3.0 << std::sqrt(6.0);
}

void TestAverages::ofValues()
{
    QFETCH(QList<double>, values);
    QTEST(meanOfValues(values), "mean");
    QTEST(spreadOf(values).mean, "mean");
    QTEST(spreadOf(values).deviation, "deviation");
    QTEST(*medianOf(values), "median");
}

void TestAverages::withoutValues()
{
    QVERIFY(std::isnan(meanOfValues({})));
    QVERIFY(std::isnan(spreadOf({}).deviation));
    QVERIFY(!medianOf({}));
}

/// The lower one of the middle two is not beside the upper one in the half ordered values.
void TestAverages::middleTwoFarApart()
{
    QList<double> values{6, 5, 4, 3, 2, 1};
    QCOMPARE(*medianOf(values), 3.5);
}

QTEST_GUILESS_MAIN(TestAverages)
#include "TestAverages.moc"
