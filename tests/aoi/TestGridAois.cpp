// SPDX-License-Identifier: GPL-3.0-or-later
#include "aoi/generation/GridAois.h"

#include <QTest>

class TestGridAois : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void namesBeginAtTwo();
    void tilesGoColumnByColumn();
    void theBorderHasAVertexAPixel();
    void aPixelLiesInOneTile();
};

void TestGridAois::namesBeginAtTwo()
{
    const QList<GeneratedAoi> aois = gridAois();
    QCOMPARE(aois.size(), 25);
    QCOMPARE(aois.first().aoi.name, QStringLiteral("GridAOI(2)"));
    QCOMPARE(aois.first().oldName, QStringLiteral("Cluster1"));
    QCOMPARE(aois.last().aoi.name, QStringLiteral("GridAOI(26)"));
    QCOMPARE(aois.last().oldName, QStringLiteral("Cluster25"));
    for (const GeneratedAoi &generated : aois)
        QVERIFY(generated.aoi.enabled);
}

void TestGridAois::tilesGoColumnByColumn()
{
    const QList<GeneratedAoi> aois = gridAois();
    QCOMPARE(aois[0].aoi.polygon.boundingRect(), QRect(0, 0, 512, 320));
    QCOMPARE(aois[1].aoi.polygon.boundingRect(), QRect(0, 320, 512, 320));
    QCOMPARE(aois[5].aoi.polygon.boundingRect(), QRect(512, 0, 512, 320));
    QCOMPARE(aois[24].aoi.polygon.boundingRect(), QRect(2048, 1280, 512, 320));
}

void TestGridAois::theBorderHasAVertexAPixel()
{
    const QPolygon border = gridAois()[6].aoi.polygon; // from (512, 320) on
    QCOMPARE(border.size(), 2 * (512 + 320));
    QCOMPARE(border.first(), QPoint(512, 320));
    QCOMPARE(border[1], QPoint(513, 320));
    QCOMPARE(border[511], QPoint(1023, 320)); // each corner twice
    QCOMPARE(border[512], QPoint(1023, 320));
    QCOMPARE(border[831], QPoint(1023, 639));
    QCOMPARE(border[832], QPoint(1023, 639));
    QCOMPARE(border[1343], QPoint(512, 639));
    QCOMPARE(border[1344], QPoint(512, 639));
    QCOMPARE(border.last(), border.first());
}

void TestGridAois::aPixelLiesInOneTile()
{
    const QList<GeneratedAoi> aois = gridAois();
    for (const QPoint position : {QPoint(0, 0), QPoint(510, 318), QPoint(512, 320), QPoint(1300, 700)}) {
        const auto holding = std::count_if(aois.cbegin(), aois.cend(), [&](const GeneratedAoi &generated) {
            return generated.aoi.contains(position, Qt::WindingFill);
        });
        QCOMPARE(holding, 1);
    }
}

QTEST_GUILESS_MAIN(TestGridAois)
#include "TestGridAois.moc"
