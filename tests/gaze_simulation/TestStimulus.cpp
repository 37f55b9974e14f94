// SPDX-License-Identifier: GPL-3.0-or-later
#include "gaze-simulator/SaliencyMap.h"
#include "gaze-simulator/Stimulus.h"

#include <QTest>

#include <algorithm>

class TestStimulus : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void seedDecides();
    void anySize_data();
    void anySize();
    void objectsStandOut_data();
    void objectsStandOut();
};

void TestStimulus::seedDecides()
{
    const QSize size(320, 200);
    QCOMPARE(makeStimulus(size, 1), makeStimulus(size, 1));
    QVERIFY(makeStimulus(size, 1) != makeStimulus(size, 2));
}

void TestStimulus::anySize_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("one pixel") << QSize(1, 1);
    QTest::newRow("a line") << QSize(700, 1);
    QTest::newRow("tall") << QSize(100, 900);
}

void TestStimulus::anySize()
{
    QFETCH(QSize, size);
    QCOMPARE(makeStimulus(size, 1).size(), size);
}

void TestStimulus::objectsStandOut_data()
{
    QTest::addColumn<QPoint>("object"); // its middle, px
    QTest::newRow("the great balloon") << QPoint(400, 170);
    QTest::newRow("the balloon on the right") << QPoint(1060, 200);
    QTest::newRow("the lighthouse") << QPoint(205, 320);
    QTest::newRow("the boat") << QPoint(600, 440);
    QTest::newRow("the cottage") << QPoint(1010, 590);
}

void TestStimulus::objectsStandOut()
{
    // the greatest weight within 60 px, against the mean of the whole picture
    QFETCH(QPoint, object);
    const SaliencyMap map = imageSaliency(makeStimulus({1280, 800}, 1));
    double sum = 0;
    double greatest = 0;
    for (int row = 0; row < map.rows; ++row) {
        for (int column = 0; column < map.columns; ++column) {
            const double weight = map.weights[map.index(column, row)];
            const QPointF way = map.cellCenter(column, row) - object;
            sum += weight;
            if (QPointF::dotProduct(way, way) < 60 * 60)
                greatest = std::max(greatest, weight);
        }
    }
    const double mean = sum / static_cast<double>(map.weights.size());
    QVERIFY2(greatest > 2 * mean, qPrintable(QStringLiteral("%1, mean %2").arg(greatest).arg(mean)));
}

QTEST_GUILESS_MAIN(TestStimulus)
#include "TestStimulus.moc"
