// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/shapes/SaccadeClusterShapes.h"

#include <QTest>

class TestSaccadeClusterShapes : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void colors_data();
    void colors();
    void singleLines_data();
    void singleLines();
    void modes_data();
    void modes();
    void widthBelowZeroIsThinnest();
};

namespace {

using Cluster = QList<SaccadeVector>;

SaccadeVector saccade(QPoint start, QPoint end)
{
    return {start, end, 0, 0};
}

/// One cluster of two saccades, an empty one, one of a single saccade.
SaccadeClusterList threeClusters()
{
    return {{saccade({100, 100}, {200, 100}), saccade({90, 110}, {150, 110})}, {}, {saccade({10, 20}, {30, 40})}};
}

} // namespace

void TestSaccadeClusterShapes::colors_data()
{
    QTest::addColumn<qsizetype>("n");
    QTest::addColumn<QList<int>>("firstHues");
    QTest::addColumn<int>("lastHue");
    QTest::newRow("one") << qsizetype(1) << QList<int>{0} << 0;
    QTest::newRow("three") << qsizetype(3) << QList<int>{0, 120, 240} << 240;
    QTest::newRow("seven: the step 51.4 is cut") << qsizetype(7) << QList<int>{0, 51, 102} << 306;
    QTest::newRow("200: the step 1.8 is cut to 1") << qsizetype(200) << QList<int>{0, 1, 2} << 199;
    QTest::newRow("360") << qsizetype(360) << QList<int>{0, 1, 2} << 359;
    QTest::newRow("361 wraps around") << qsizetype(361) << QList<int>{0, 1, 2} << 0;
    QTest::newRow("800") << qsizetype(800) << QList<int>{0, 1, 2} << 79; // 799 - 2 * 360
}

void TestSaccadeClusterShapes::colors()
{
    QFETCH(qsizetype, n);
    QFETCH(QList<int>, firstHues);
    const QList<QColor> colors = saccadeClusterColors(n);
    QCOMPARE(colors.size(), n);
    QColor expected;
    for (qsizetype i = 0; i < firstHues.size(); ++i) {
        expected.setHsl(firstHues[i], 230, 125, 255);
        QCOMPARE(colors[i], expected);
    }
    QTEST(colors.last().hslHue(), "lastHue");
    QVERIFY(saccadeClusterColors(0).isEmpty());
    QVERIFY(saccadeClusterColors(-1).isEmpty());
}

/// Each case is followed by hand, with line and noted length after each end.
void TestSaccadeClusterShapes::singleLines_data()
{
    QTest::addColumn<Cluster>("cluster");
    QTest::addColumn<SaccadeClusterLine>("expected");
    const SaccadeVector first = saccade({0, 0}, {100, 0});
    // Both ends are those of the line: 100 is not above 100.
    QTest::newRow("one saccade is drawn as it is") << Cluster{first} << SaccadeClusterLine{{0, 0}, {100, 0}};
    // (120,0): nearer to the end, 120 > 100: line to 120. (-5,0): nearer to the start, 125 > 120: line from -5.
    QTest::newRow("longer at both sides")
        << Cluster{first, saccade({120, 0}, {-5, 0})} << SaccadeClusterLine{{-5, 0}, {120, 0}};
    QTest::newRow("shorter is within") << Cluster{first, saccade({10, 0}, {90, 0})}
                                       << SaccadeClusterLine{{0, 0}, {100, 0}};
    // (-5,0): line from -5, noted 0. (40,0): 45 from the start, 60 from the end: 60 > 0, so the line starts there.
    QTest::newRow("after the start has moved the next end counts always")
        << Cluster{first, saccade({-5, 0}, {40, 0})} << SaccadeClusterLine{{40, 0}, {100, 0}};
    // ... and (90,0) is nearer to the end: 50 from the start 40, more than 0: the line ends there, noted 50. (95,0):
    // nearer to the end 90, 55 > 50: it ends there.
    QTest::newRow("at the other end, too")
        << Cluster{first, saccade({-5, 0}, {40, 0}), saccade({90, 0}, {95, 0})} << SaccadeClusterLine{{40, 0}, {95, 0}};
    // sqrt(2) = 1.41 is above the noted 1: the start is replaced by itself and 0 is noted. The end is nearer to itself:
    // 1.41 > 0, noted 1.
    QTest::newRow("a cut length is exceeded by its own line")
        << Cluster{saccade({0, 0}, {1, 1})} << SaccadeClusterLine{{0, 0}, {1, 1}};
    // (50,0) is as far from both: it competes with the start, 50 > 100 is false.
    QTest::newRow("in the middle") << Cluster{first, saccade({50, 0}, {50, 0})} << SaccadeClusterLine{{0, 0}, {100, 0}};
    // (50,200) is as far from both, 206 > 100: the start.
    QTest::newRow("beside the middle the start gives way")
        << Cluster{first, saccade({50, 200}, {50, 200})} << SaccadeClusterLine{{50, 200}, {100, 0}};
    QTest::newRow("without length") << Cluster{saccade({7, 8}, {7, 8})} << SaccadeClusterLine{{7, 8}, {7, 8}};
}

void TestSaccadeClusterShapes::singleLines()
{
    QFETCH(Cluster, cluster);
    QFETCH(SaccadeClusterLine, expected);
    const SaccadeClusterLine line = singleLine(cluster);
    QCOMPARE(line.from, expected.from);
    QCOMPARE(line.to, expected.to);
}

void TestSaccadeClusterShapes::modes_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<int>("minimum");
    QTest::addColumn<bool>("tips");
    QTest::addColumn<QString>("expected");
    // Hues 0 and 240 at saturation 230 and lightness 125: the red channel is 125 + 125 * 230 / 255 = 237.7, the others
    // 125 - 112.7 = 12.3.
    const QString style = QStringLiteral(" pen #%1 4 brush #ff%1\n");
    const QString red = style.arg(QStringLiteral("ee0c0c"));
    const QString blue = style.arg(QStringLiteral("0c0cee"));
    const QString top = QStringLiteral("arrow 100 100 to 200 100");
    const QString bottom = QStringLiteral("arrow 90 110 to 150 110");
    const QString third = QStringLiteral("arrow 10 20 to 30 40");
    const QString tip = QStringLiteral(" pointed");
    const QString blunt = QStringLiteral(" blunt");
    QTest::newRow("none") << 0 << 1 << true << QString();
    QTest::newRow("unknown") << 7 << 1 << true << QString();
    QTest::newRow("lines") << 1 << 1 << false << top + blunt + red + bottom + blunt + red + third + blunt + blue;
    QTest::newRow("lines with tips") << 1 << 1 << true << top + tip + red + bottom + tip + red + third + tip + blue;
    QTest::newRow("lines, two at least") << 1 << 2 << false << top + blunt + red + bottom + blunt + red;
    QTest::newRow("lines, three at least") << 1 << 3 << false << QString();
    // (90,110) is nearer to the start, 110.5 > 100: from there, noted 0. (150,110) is 60 from the start, 51 from the
    // end: 60 > 0, so it becomes the end.
    QTest::newRow("single line has never a tip") << 2 << 1 << true << bottom + blunt + red + third + blunt + blue;
    QTest::newRow("single line, two at least") << 2 << 2 << false << bottom + blunt + red;
}

void TestSaccadeClusterShapes::modes()
{
    QFETCH(int, mode);
    QFETCH(int, minimum);
    QFETCH(bool, tips);
    Drawing drawing;
    const SaccadeClusterStyle style{.lineWidthPx = 4, .showArrowTips = tips, .minimumQuantity = minimum};
    for (const ArrowShape &arrow : saccadeClusterArrows(threeClusters(), static_cast<SaccadeClusterMode>(mode), style))
    {
        QCOMPARE(arrow.pen.style(), Qt::SolidLine);
        QCOMPARE(arrow.pen.capStyle(), Qt::SquareCap);
        QCOMPARE(arrow.pen.joinStyle(), Qt::BevelJoin);
        drawing << arrow;
    }
    QTEST(toText(drawing), "expected");
}

void TestSaccadeClusterShapes::widthBelowZeroIsThinnest()
{
    const auto arrows = saccadeClusterArrows(threeClusters(), SaccadeClusterMode::Lines, {.lineWidthPx = -3});
    QCOMPARE(arrows.first().pen.widthF(), 0.0);
}

QTEST_GUILESS_MAIN(TestSaccadeClusterShapes)
#include "TestSaccadeClusterShapes.moc"
