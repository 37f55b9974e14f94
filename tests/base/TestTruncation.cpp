// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Truncation.h"

#include <QTest>

#include <limits>

class TestTruncation : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void wholePart_data();
    void wholePart();
};

void TestTruncation::wholePart_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("expected");
    QTest::newRow("towards zero from above") << 2.9 << 2;
    QTest::newRow("towards zero from below") << -2.9 << -2;
    QTest::newRow("not a number") << std::numeric_limits<double>::quiet_NaN() << 0;
    QTest::newRow("beyond int") << 1e300 << std::numeric_limits<int>::max();
    QTest::newRow("below int") << -std::numeric_limits<double>::infinity() << std::numeric_limits<int>::min();
}

void TestTruncation::wholePart()
{
    QFETCH(double, value);
    QTEST(truncated(value), "expected");
}

QTEST_GUILESS_MAIN(TestTruncation)
#include "TestTruncation.moc"
