// SPDX-License-Identifier: GPL-3.0-or-later
#include "FullDisk.h"
#include "visualization/scene/ImageExport.h"

#include <QFile>
#include <QGraphicsPixmapItem>
#include <QGraphicsScene>
#include <QImageReader>
#include <QTemporaryDir>
#include <QTest>

class TestImageExport : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { QVERIFY(m_folder.isValid()); }
    void images_data();
    void images();
    void sizeIsCutToWholePixels();
    void svgNamesItsOrigin();
    void repeatedRunsGiveTheSameBytes_data();
    void repeatedRunsGiveTheSameBytes();
    void failures_data();
    void failures();
    void fullDiskKeepsTheOlderPicture_data();
    void fullDiskKeepsTheOlderPicture();

private:
    QTemporaryDir m_folder;
};

namespace {

/// A white ground of 200 x 100 with a red disc and a raster that is transparent but for one blue pixel.
void fill(QGraphicsScene &scene)
{
    scene.setSceneRect(0, 0, 200, 100);
    scene.addRect(0, 0, 200, 100, Qt::NoPen, Qt::white);
    scene.addEllipse(20, 20, 60, 60, Qt::NoPen, Qt::red);
    QImage raster(200, 100, QImage::Format_ARGB32);
    raster.fill(QColor(255, 255, 255, 0));
    raster.setPixelColor(150, 50, Qt::blue);
    scene.addPixmap(QPixmap::fromImage(raster));
}

QByteArray bytesOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

void TestImageExport::images_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("format");
    QTest::addColumn<int>("tolerance"); // per channel
    QTest::newRow("png") << QStringLiteral("a.png") << QByteArray("png") << 0;
    QTest::newRow("tiff") << QStringLiteral("a.tiff") << QByteArray("tiff") << 0;
    QTest::newRow("jpg loses a little") << QStringLiteral("a.jpg") << QByteArray("jpeg") << 10;
    QTest::newRow("another format that is known") << QStringLiteral("a.bmp") << QByteArray("bmp") << 0;
    QTest::newRow("capitals") << QStringLiteral("A.PNG") << QByteArray("png") << 0;
}

void TestImageExport::images()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, format);
    QFETCH(int, tolerance);
    QGraphicsScene scene;
    fill(scene);
    const QString path = m_folder.filePath(name);
    QCOMPARE(exportScene(scene, path), std::nullopt);
    QCOMPARE(QImageReader::imageFormat(path), format);
    const QImage image(path);
    QCOMPARE(image.size(), QSize(200, 100));
    const auto isNear = [&](QPoint at, QColor expected) {
        const QColor found = image.pixelColor(at);
        return std::abs(found.red() - expected.red()) <= tolerance &&
               std::abs(found.green() - expected.green()) <= tolerance &&
               std::abs(found.blue() - expected.blue()) <= tolerance;
    };
    QVERIFY(isNear({50, 50}, Qt::red));
    QVERIFY(isNear({190, 10}, Qt::white));
    QVERIFY(tolerance > 0 || image.pixelColor(150, 50) == QColor(Qt::blue));
}

void TestImageExport::sizeIsCutToWholePixels()
{
    QGraphicsScene scene(0, 0, 200.9, 100.5);
    const QString path = m_folder.filePath(QStringLiteral("cut.png"));
    QCOMPARE(exportScene(scene, path), std::nullopt);
    const QImage image(path);
    QCOMPARE(image.size(), QSize(200, 100));
    QCOMPARE(image.pixelColor(50, 50).alpha(), 0);
}

void TestImageExport::svgNamesItsOrigin()
{
    QGraphicsScene scene;
    fill(scene);
    const QString path = m_folder.filePath(QStringLiteral("named.svg"));
    QCOMPARE(exportScene(scene, path), std::nullopt);
    const QByteArray svg = bytesOf(path);
    QVERIFY(svg.contains("<title>Vistrum 2013 Visualization</title>"));
    QVERIFY(svg.contains("<desc>An Eye-Tracking recording visualized by Vistrum 2013</desc>"));
    QVERIFY(svg.contains("viewBox=\"0 0 1000 1000\""));
    QVERIFY(svg.contains("#ff0000"));
}

void TestImageExport::repeatedRunsGiveTheSameBytes_data()
{
    QTest::addColumn<QString>("ending");
    for (const char *ending : {"svg", "png", "tiff", "jpg"})
        QTest::newRow(ending) << QString::fromLatin1(ending);
}

void TestImageExport::repeatedRunsGiveTheSameBytes()
{
    QFETCH(QString, ending);
    QList<QByteArray> runs;
    for (const char *name : {"first.", "second."}) {
        QGraphicsScene scene;
        fill(scene);
        const QString path = m_folder.filePath(QString::fromLatin1(name) + ending);
        QCOMPARE(exportScene(scene, path), std::nullopt);
        runs << bytesOf(path);
    }
    QVERIFY(!runs[0].isEmpty());
    QCOMPARE(runs[0], runs[1]);
}

void TestImageExport::failures_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("reason"); // its beginning
    QTest::newRow("an ending that no format has")
        << QStringLiteral("a.xyz")
        << QStringLiteral("\".xyz\" is no ending of a picture; let the name end in .png, .svg, .tiff or .jpg");
    QTest::newRow("no ending") << QStringLiteral("a")
                               << QStringLiteral(
                                      "the name has no ending; let the name end in .png, .svg, .tiff or .jpg");
    QTest::newRow("image in a folder that does not exist") << QStringLiteral("none/a.png") << QString();
    QTest::newRow("vector graphics in a folder that does not exist") << QStringLiteral("none/a.svg") << QString();
}

void TestImageExport::failures()
{
    QFETCH(QString, name);
    QFETCH(QString, reason);
    QGraphicsScene scene;
    fill(scene);
    const QString path = m_folder.filePath(name);
    const std::optional<QString> failure = exportScene(scene, path);
    QVERIFY(failure.has_value());
    QVERIFY2(failure->startsWith(path + QStringLiteral(" could not be written: ") + reason), qPrintable(*failure));
    QVERIFY(!QFile::exists(path));
}

/// On a full disk neither kind of picture is half written, and an SVG does not count as written.
void TestImageExport::fullDiskKeepsTheOlderPicture_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("image") << QStringLiteral("kept.png");
    QTest::newRow("vector graphics") << QStringLiteral("kept.svg");
}

void TestImageExport::fullDiskKeepsTheOlderPicture()
{
    QFETCH(QString, name);
    QGraphicsScene scene;
    fill(scene);
    const QString path = m_folder.filePath(name);
    QCOMPARE(exportScene(scene, path), std::nullopt);
    const QByteArray older = bytesOf(path);
    std::optional<QString> problem;
    {
        const FullDisk disk(100);
        problem = exportScene(scene, path);
    }
    QVERIFY(problem);
    QVERIFY2(problem->startsWith(path + QStringLiteral(" could not be written: ")), qPrintable(*problem));
    QVERIFY(older.size() > 100);
    QCOMPARE(bytesOf(path), older);
}

QTEST_MAIN(TestImageExport)
#include "TestImageExport.moc"
