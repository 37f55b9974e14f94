// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/scene/PictureExport.h"
#include "visualization/scene/ImageExport.h"
#include "visualization/ToyData.h"

#include <QGraphicsRectItem>
#include <QGraphicsScene>
#include <QImage>
#include <QTemporaryDir>
#include <QTest>

class TestPictureExport : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void asItIs();
    void cropped();
    void finer();
    void onWhite();
    void legendBelow();
    void numbers();
    void reportBelow();
    void theSceneStaysAsItWas();
    void failureIsTold();

private:
    QImage exported(const PictureSettings &settings)
    {
        const DrawingContext context = m_toy.context();
        const DrawnPicture picture{*m_scene, m_scene->itemsBoundingRect(), m_stimulus, {}, context, {}};
        const QString path = m_folder.filePath(QStringLiteral("picture.png"));
        if (const auto problem = exportPicture(picture, settings, path))
            qFatal("%s", qPrintable(*problem));
        return QImage(path);
    }

    const QRectF m_stimulus{0, 0, 400, 300};
    std::unique_ptr<QGraphicsScene> m_scene;
    toy::Scenery m_toy;
    QTemporaryDir m_folder;
};

/// A red picture of 400 x 300, and a blue square of 100 px that stands out of it on the right.
void TestPictureExport::init()
{
    m_scene = std::make_unique<QGraphicsScene>();
    m_scene->addRect(m_stimulus, Qt::NoPen, Qt::red);
    m_scene->addRect(QRectF(350, 100, 100, 100), Qt::NoPen, Qt::blue);
    m_toy = toy::Scenery();
    m_toy.eyeMode = EyeMode::showLeft;
}

void TestPictureExport::asItIs()
{
    const QImage image = exported({});
    QCOMPARE(image.size(), QSize(450, 300));
    QCOMPARE(image.pixelColor(10, 10), QColor(Qt::red));
    QCOMPARE(image.pixelColor(440, 150), QColor(Qt::blue));
    QCOMPARE(image.pixelColor(440, 10).alpha(), 0);
}

void TestPictureExport::cropped()
{
    const QImage image = exported({.area = PictureArea::Stimulus});
    QCOMPARE(image.size(), QSize(400, 300));
    QCOMPARE(image.pixelColor(390, 150), QColor(Qt::blue));
}

void TestPictureExport::finer()
{
    m_scene->addLine(0, 0, 400, 300, QPen(Qt::black, 3));
    const QImage plain = exported({});
    const QImage fine = exported({.scale = 3});
    QCOMPARE(fine.size(), plain.size() * 3);
    QVERIFY(fine != plain.scaled(fine.size())); // the line has finer steps
    QCOMPARE(fine.pixelColor(1330, 450), QColor(Qt::blue));
}

void TestPictureExport::onWhite()
{
    QCOMPARE(exported({.ground = Qt::white}).pixelColor(440, 10), QColor(Qt::white));
}

void TestPictureExport::legendBelow()
{
    m_toy.fixations.visualizationMode = 1;
    m_toy.fixations.fillColorLeft = QColor(1, 2, 3);
    m_toy.model.examinations() = {Examination()};
    const QImage image = exported({.area = PictureArea::Stimulus, .legend = true});
    QCOMPARE(image.width(), 400);
    QVERIFY(image.height() > 350);
    QCOMPARE(image.pixelColor(25, 335), QColor(1, 2, 3));
    QCOMPARE(image.pixelColor(395, 305), QColor(Qt::white));
}

void TestPictureExport::numbers()
{
    Examination examination;
    examination.leftEye.scanpath = {toy::stay({100, 100}, 0), toy::stay({200, 200}, 100)};
    m_toy.model.examinations() = {examination};
    const QImage image = exported({.labelFixations = true});
    QVERIFY(image.pixelColor(100, 88) != QColor(Qt::red)); // the disc of a label
    QCOMPARE(image.pixelColor(150, 150), QColor(Qt::red));
}

void TestPictureExport::reportBelow()
{
    const QImage image = exported({.appended = {.parameters = true}});
    QVERIFY(image.height() > 600);
    QCOMPARE(image.pixelColor(440, 10), QColor(Qt::black)); // what was transparent
    QCOMPARE(image.pixelColor(10, 10), QColor(Qt::red));
    QCOMPARE(image.pixelColor(2, image.height() - 2), QColor(Qt::black));
}

void TestPictureExport::theSceneStaysAsItWas()
{
    const QList<QGraphicsItem *> before = m_scene->items();
    const QImage plain = exported({});
    exported({.appended = {.legends = true, .parameters = true}, .legend = true, .labelFixations = true});
    QCOMPARE(m_scene->items(), before);
    QCOMPARE(m_scene->backgroundBrush(), QBrush());
    QVERIFY(exported({}) == plain);
}

void TestPictureExport::failureIsTold()
{
    const DrawingContext context = m_toy.context();
    const DrawnPicture picture{*m_scene, m_scene->itemsBoundingRect(), m_stimulus, {}, context, {}};
    const QString path = m_folder.filePath(QStringLiteral("no/such/folder.png"));
    const auto problem = exportPicture(picture, {}, path);
    QVERIFY(problem && problem->startsWith(path));
    QCOMPARE(m_scene->items().size(), 2);
}

QTEST_MAIN(TestPictureExport)
#include "TestPictureExport.moc"
