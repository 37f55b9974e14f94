// SPDX-License-Identifier: GPL-3.0-or-later
#include "report/scene/ReportBand.h"
#include "visualization/scene/TemporaryItems.h"
#include "visualization/ToyData.h"

#include <QGraphicsRectItem>
#include <QGraphicsScene>
#include <QGraphicsTextItem>
#include <QTest>

class TestReportBand : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void standsBelowThePictureAndGoes();
    void legendsKeepTheGround();
    void nothingAppended();
};

namespace {

struct Band {
    Band() { scene.addRect(picture); }

    void add(const AppendedParts &parts)
    {
        addReportBand(scene, picture, parts, {{DataKind::GazePoints, 3}}, toy.context(), {});
    }

    const QRectF picture{0, 0, 800, 600};
    QGraphicsScene scene;
    toy::Scenery toy;
};

} // namespace

void TestReportBand::standsBelowThePictureAndGoes()
{
    Band band;
    const QList<QGraphicsItem *> before = band.scene.items();
    {
        const TemporaryItems added(band.scene);
        QVERIFY(added.bounds().isNull());
        band.add({.legends = true, .parameters = true});
        QCOMPARE(band.scene.backgroundBrush(), QBrush(Qt::black));
        QVERIFY(added.bounds().top() >= band.picture.bottom());
        const auto *text = qgraphicsitem_cast<QGraphicsTextItem *>(band.scene.items(Qt::AscendingOrder).last());
        QVERIFY(text);
        QCOMPARE(text->pos().x(), 10.0);
        QVERIFY(text->pos().y() > 600); // below the legend
        QVERIFY(text->toPlainText().contains(QStringLiteral("CALCULATION PARAMETER:")));
    }
    QCOMPARE(band.scene.items(), before);
    QCOMPARE(band.scene.backgroundBrush(), QBrush());
}

void TestReportBand::legendsKeepTheGround()
{
    Band band;
    const TemporaryItems added(band.scene);
    band.add({.legends = true});
    QCOMPARE(band.scene.backgroundBrush(), QBrush());
    QVERIFY(!added.bounds().isNull());
}

void TestReportBand::nothingAppended()
{
    Band band;
    const TemporaryItems added(band.scene);
    band.add({});
    QVERIFY(added.bounds().isNull());
}

QTEST_MAIN(TestReportBand)
#include "TestReportBand.moc"
