// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/AoiColors.h"
#include "model/AreaOfInterest.h"

#include <QTest>

#include <cstdlib>

class TestAoiColors : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void redGreenAndBlueComeInThisOrder();
    void aSeedBeginsTheSequenceAnew();
    void newAreasTakeTheNextColor();
};

void TestAoiColors::redGreenAndBlueComeInThisOrder()
{
    std::srand(7);
    const int red = std::rand() % 256;
    const int green = std::rand() % 256;
    const int blue = std::rand() % 256;
    aoicolors::seed(7);
    QCOMPARE(aoicolors::next(), QColor(red, green, blue, 150));
}

void TestAoiColors::aSeedBeginsTheSequenceAnew()
{
    aoicolors::seed(1);
    const QColor first = aoicolors::next();
    const QColor second = aoicolors::next();
    QVERIFY(first != second);
    aoicolors::seed(1);
    QCOMPARE(aoicolors::next(), first);
    QCOMPARE(aoicolors::next(), second);
}

void TestAoiColors::newAreasTakeTheNextColor()
{
    aoicolors::seed(3);
    const QColor first = aoicolors::next();
    const QColor second = aoicolors::next();
    aoicolors::seed(3);
    const AreaOfInterest area;
    QCOMPARE(area.color, first);
    const AreaOfInterest copy = area; // NOLINT(performance-unnecessary-copy-initialization): a copy takes none
    QCOMPARE(copy.color, first);
    QCOMPARE(AreaOfInterest(QStringLiteral("b"), {}).color, second);
}

QTEST_GUILESS_MAIN(TestAoiColors)
#include "TestAoiColors.moc"
