// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/shapes/Drawing.h"

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
        ArrowShape{{1, 2}, {-3, 4}, true, QPen(Qt::red, 3), QColor(0, 255, 0, 127), QStringLiteral("a\r\nb")},
        ArrowShape{{1, 2}, {-3, 4}, false, {}, {}, {}},
        LineShape{{{1.5, 2}, {-0.25, 4}}, QPen(QColor(1, 2, 3, 4), 2)},
        LineShape{{{0, 0}, {1, 1}}, QPen(Qt::black, 1, Qt::DotLine)},
        LineShape{{{0, 0}, {1, 1}}, QPen(Qt::black, 1, Qt::DashLine)},
        LineShape{{{0, 0}, {1, 1}}, QPen(Qt::black, 1, Qt::DashDotLine)},
        LineShape{{{0, 0}, {1, 1}}, QPen(Qt::black, 2.5), QStringLiteral("a\r\nb")},
        TextShape{{1.5, -2}, QStringLiteral("14.4°"), QFont(QStringLiteral("Arial"), 30), Qt::blue},
        TextShape{{1, 2}, QStringLiteral("C0"), QFont(QStringLiteral("Arial"), 30), Qt::blue, TextAnchor::Middle},
    };
    QCOMPARE(toText(drawing), QStringLiteral("ellipse 640 400 major 30 0.5 minor -0.25 20 pen #ff0000 3 "
                                             "brush #7f00ff00 tip a | b\n"
                                             "oval 1.5 2 5 5 pen #000000 1 brush none\n"
                                             "arrow 1 2 to -3 4 pointed pen #ff0000 3 brush #7f00ff00 tip a | b\n"
                                             "arrow 1 2 to -3 4 blunt pen #000000 1 brush none\n"
                                             "line 1.5 2 to -0.25 4 pen #04010203 2 solid\n"
                                             "line 0 0 to 1 1 pen #ff000000 1 dotted\n"
                                             "line 0 0 to 1 1 pen #ff000000 1 dashed\n"
                                             "line 0 0 to 1 1 pen #ff000000 1 style 4\n"
                                             "line 0 0 to 1 1 pen #ff000000 2.5 solid tip a | b\n"
                                             "text 1.5 -2 #0000ff font Arial 30 reads 14.4°\n"
                                             "text middle 1 2 #0000ff font Arial 30 reads C0\n"));
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
