#include "visualization/Drawing.h"

#include <QTest>

class TestDrawing : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void oneShapeALine();
    void rastersWithOneDifferentPixelDiffer();
};

void TestDrawing::oneShapeALine()
{
    const Drawing drawing{
        EllipseShape{
            {640, 400}, {30, 0.5}, {-0.25, 20}, QPen(Qt::red, 3), QColor(0, 255, 0, 127), QStringLiteral("a\r\nb")},
        OvalShape{{1.5, 2, 5, 5}, {}, {}, {}},
    };
    QCOMPARE(toText(drawing), QStringLiteral("ellipse 640 400 major 30 0.5 minor -0.25 20 pen #ff0000 3 "
                                             "brush #7f00ff00 tip a | b\n"
                                             "oval 1.5 2 5 5 pen #000000 1 brush none\n"));
}

void TestDrawing::rastersWithOneDifferentPixelDiffer()
{
    QImage image(2, 1, QImage::Format_ARGB32);
    image.fill(Qt::white);
    const QString white = toText({RasterShape{image}});
    QVERIFY(white.startsWith(QStringLiteral("raster 2 1 sha1 ")));
    QCOMPARE(toText({RasterShape{image.copy()}}), white);
    image.setPixelColor(1, 0, Qt::black);
    QVERIFY(toText({RasterShape{image}}) != white);
}

QTEST_GUILESS_MAIN(TestDrawing)
#include "TestDrawing.moc"
