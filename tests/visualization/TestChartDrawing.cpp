// SPDX-License-Identifier: GPL-3.0-or-later
#include "ToyData.h"
#include "visualization/charts/ChartBins.h"
#include "visualization/charts/ChartDrawing.h"
#include "visualization/charts/ChartKinds.h"
#include "visualization/charts/CurveShape.h"

#include <QTest>

class TestChartDrawing : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void ground();
    void axesAndLabels();
    void valuesOfTheScale_data();
    void valuesOfTheScale();
    void theStartPlaysNoPartInTheLabels();
    void filledCurve();
    void withoutEventsThereIsNoCurve();
    void shapeOptions_data();
    void shapeOptions();
    void deviationsAsABand();
    void stackedCurves();
    void stackedOutlinesStandAlone();
    void legend();
    void manyNamesHaveGroundOfTheirOwn();
    void kinds();
    void stylesOfTheRecords();
};

namespace {

QList<double> ramp(double factor = 1)
{
    QList<double> bins;
    for (int i = 0; i < chart::binCount; ++i)
        bins << factor * i;
    return bins;
}

/// Two curves, the second half as high as the first.
Chart rampChart(qsizetype curves = 1)
{
    Chart chart{.frame = {1000, 20000}, .top = 1999, .labelAtTop = 1999, .unit = QStringLiteral(" sac")};
    for (qsizetype i = 0; i < curves; ++i)
        chart.curves << ChartCurve{QStringLiteral("curve %1").arg(i), QColor(10, 20, int(i)), ramp(i == 0 ? 1 : 0.5)};
    return chart;
}

constexpr ChartStyle plainStyle{.legend = false};

template <class Kind>
QList<Kind> all(const Drawing &drawing)
{
    QList<Kind> shapes;
    for (const Shape &shape : drawing) {
        if (const auto *found = std::get_if<Kind>(&shape))
            shapes << *found;
    }
    return shapes;
}

QStringList textsOf(const Drawing &drawing, TextAnchor anchor)
{
    QStringList texts;
    for (const TextShape &shape : all<TextShape>(drawing)) {
        if (shape.anchor == anchor)
            texts << shape.text;
    }
    return texts;
}

QPolygonF curveIn(const Drawing &drawing, qsizetype index = 0)
{
    return all<PolygonShape>(drawing)[1 + index].polygon; // behind the ground
}

QPolygonF pointsOf(const QList<double> &bins, double top)
{
    QPolygonF points;
    for (qsizetype i = 0; i < bins.size(); ++i)
        points << QPointF(2761 + double(i), 800 - bins[i] / top * 800);
    return points;
}

} // namespace

void TestChartDrawing::ground()
{
    const Drawing drawing = chartDrawing(rampChart(), plainStyle);
    const auto *shape = std::get_if<PolygonShape>(&drawing.first());
    QVERIFY(shape);
    QCOMPARE(shape->polygon.boundingRect(), QRectF(2560, 0, 2401, 1000));
    QCOMPARE(shape->brush, QBrush(Qt::white));
    QCOMPARE(shape->pen.color(), QColor(Qt::white));
}

void TestChartDrawing::axesAndLabels()
{
    const QList<LineShape> lines = all<LineShape>(chartDrawing(rampChart(), plainStyle));
    QCOMPARE(lines.size(), 2 + 11 + 11);
    QCOMPARE(lines[0].line, QLineF(2760, 800, 2760, 0));
    QCOMPARE(lines[1].line, QLineF(2760, 800, 4761, 800));
    QCOMPARE(lines[2].line, QLineF(2760, 800, 2760, 0));
    QCOMPARE(lines[3].line, QLineF(2960, 850, 2960, 0)); // every second label stands lower
    QCOMPARE(lines[12].line, QLineF(4760, 800, 4760, 0));
    QCOMPARE(lines[13].line, QLineF(2760, 800, 4801, 800));
    QCOMPARE(lines[23].line, QLineF(2760, 0, 4801, 0));
    for (qsizetype i = 2; i < lines.size(); ++i) {
        QCOMPARE(lines[i].pen.style(), Qt::DashDotLine);
        QCOMPARE(lines[i].pen.widthF(), 3.0);
        QCOMPARE(lines[i].pen.capStyle(), Qt::RoundCap);
        QCOMPARE(lines[i].pen.joinStyle(), Qt::RoundJoin);
    }
    for (const TextShape &text : all<TextShape>(chartDrawing(rampChart(), plainStyle))) {
        QCOMPARE(text.font, QFont(QStringLiteral("Times New Roman"), 30));
        QCOMPARE(text.color, QColor(Qt::black));
    }
}

void TestChartDrawing::valuesOfTheScale_data()
{
    QTest::addColumn<double>("labelAtTop");
    QTest::addColumn<QString>("labels");
    QTest::newRow("tens") << 10.0 << "0 sac|1 sac|2 sac|3 sac|4 sac|5 sac|6 sac|7 sac|8 sac|9 sac|10 sac";
    QTest::newRow("large") << 2e7
                           << "0 sac|2e+06 sac|4e+06 sac|6e+06 sac|8e+06 sac|1e+07 sac|1.2e+07 sac|1.4e+07 sac|"
                              "1.6e+07 sac|1.8e+07 sac|2e+07 sac";
    QTest::newRow("nothing") << 0.0 << "0 sac|0 sac|0 sac|0 sac|0 sac|0 sac|0 sac|0 sac|0 sac|0 sac|0 sac";
}

void TestChartDrawing::valuesOfTheScale()
{
    QFETCH(double, labelAtTop);
    Chart chart = rampChart();
    chart.labelAtTop = labelAtTop;
    QTEST(textsOf(chartDrawing(chart, plainStyle), TextAnchor::Beside).join(u'|'), "labels");
}

void TestChartDrawing::theStartPlaysNoPartInTheLabels()
{
    const QStringList times = textsOf(chartDrawing(rampChart(), plainStyle), TextAnchor::Middle);
    QCOMPARE(times.size(), 11);
    QCOMPARE(times.first(), QStringLiteral("00.000 sec.ms")); // the frame begins at one second
    QCOMPARE(times[1], QStringLiteral("02.000 sec.ms"));
    QCOMPARE(times.last(), QStringLiteral("20.000 sec.ms"));
}

void TestChartDrawing::filledCurve()
{
    const Drawing drawing = chartDrawing(rampChart(), plainStyle);
    QCOMPARE(curveIn(drawing), QPolygonF{QPointF(2761, 800)} + pointsOf(ramp(), 1999) + QPolygonF{QPointF(4761, 800)});
    const PolygonShape shape = all<PolygonShape>(drawing)[1];
    QCOMPARE(shape.pen.color(), QColor(10, 20, 0));
    QCOMPARE(shape.brush, QBrush(QColor(10, 20, 0)));
    QCOMPARE(curveIn(drawing)[2000].y(), 0.0); // the largest reaches the top
}

void TestChartDrawing::withoutEventsThereIsNoCurve()
{
    Chart chart = rampChart();
    chart.curves[0].bins = chart::emptyBins();
    chart.top = chart.labelAtTop = 0;
    const Drawing drawing = chartDrawing(chart, plainStyle);
    QCOMPARE(all<PolygonShape>(drawing).size(), 1); // the ground
    QCOMPARE(all<LineShape>(drawing).size(), 24);
}

void TestChartDrawing::shapeOptions_data()
{
    QTest::addColumn<bool>("curves");
    QTest::addColumn<bool>("splines");
    QTest::addColumn<bool>("linesOnly");
    QTest::newRow("curves") << true << false << false;
    QTest::newRow("splines") << false << true << false;
    QTest::newRow("lines") << false << false << true;
    QTest::newRow("curves, then splines") << true << true << false;
    QTest::newRow("all") << true << true << true;
}

void TestChartDrawing::shapeOptions()
{
    QFETCH(bool, curves);
    QFETCH(bool, splines);
    QFETCH(bool, linesOnly);
    QPolygonF points = pointsOf(ramp(), 1999);
    if (curves)
        points = smoothed(points);
    if (splines)
        points = splined(points);
    const QPolygonF expected =
        linesOnly ? outlined(points) : QPolygonF{QPointF(2761, 800)} + points + QPolygonF{QPointF(4761, 800)};
    const ChartStyle style{.curves = curves, .splines = splines, .linesOnly = linesOnly, .legend = false};
    QCOMPARE(curveIn(chartDrawing(rampChart(), style)), expected);
}

void TestChartDrawing::deviationsAsABand()
{
    Chart chart = rampChart();
    chart.curves[0].deviations = QList<double>(chart::binCount, 199.9); // 80 px
    const QPolygonF band = curveIn(chartDrawing(chart, {.linesOnly = true, .legend = false}));
    QCOMPARE(band.size(), 4000);
    QVERIFY(std::abs(band[100].y() - (800 - 100 / 1999.0 * 800 - 80)) < 1e-9);
    QVERIFY(std::abs(band[3999 - 100].y() - (800 - 100 / 1999.0 * 800 + 80)) < 1e-9);
    QCOMPARE(band[3999 - 100].x(), band[100].x());
    QCOMPARE(curveIn(chartDrawing(chart, plainStyle)).size(), 2002); // no part of filled curves
}

void TestChartDrawing::stackedCurves()
{
    Chart chart = rampChart(2);
    chart.isStacked = true;
    chart.top = 1999 * 1.5;
    const Drawing drawing = chartDrawing(chart, plainStyle);
    QCOMPARE(curveIn(drawing, 0)[2000].y(), 0.0); // both together
    QVERIFY(std::abs(curveIn(drawing, 1)[2000].y() - (800 - 800.0 / 3)) < 1e-9);
}

void TestChartDrawing::stackedOutlinesStandAlone()
{
    Chart chart = rampChart(2);
    Chart stacked = chart;
    stacked.isStacked = true;
    const ChartStyle lines{.linesOnly = true, .legend = false};
    QCOMPARE(toText(chartDrawing(stacked, lines)), toText(chartDrawing(chart, lines)));
}

void TestChartDrawing::legend()
{
    const ChartStyle named;
    QCOMPARE(textsOf(chartDrawing(rampChart(1), named), TextAnchor::Left), QStringList()); // one curve needs no name
    const Drawing two = chartDrawing(rampChart(2), named);
    QCOMPARE(textsOf(two, TextAnchor::Left), QStringList({QStringLiteral("curve 0"), QStringLiteral("curve 1")}));
    QCOMPARE(all<PolygonShape>(two).last().brush, QBrush(QColor(10, 20, 1)));
    QCOMPARE(textsOf(chartDrawing(rampChart(2), plainStyle), TextAnchor::Left), QStringList());
    Chart longName = rampChart(2);
    longName.curves[0].name = QString(200, u'a');
    QCOMPARE(textsOf(chartDrawing(longName, named), TextAnchor::Left).first(), QString(29, u'a') + u'…');
}

void TestChartDrawing::manyNamesHaveGroundOfTheirOwn()
{
    const auto groundBottom = [](qsizetype curves) {
        QRectF ground;
        for (const PolygonShape &shape : all<PolygonShape>(chartDrawing(rampChart(curves), {}))) {
            if (shape.brush == QBrush(Qt::white))
                ground |= shape.polygon.boundingRect();
        }
        return ground.bottom();
    };
    QCOMPARE(groundBottom(8), 1000.0); // two rows
    QCOMPARE(groundBottom(9), 1050.0);
    QCOMPARE(groundBottom(30), 1300.0);
}

void TestChartDrawing::kinds()
{
    QStringList words;
    for (const ChartKind &kind : chartKinds())
        words << kind.word;
    QCOMPARE(words.join(u' '), QStringLiteral("saccades saccades-by-eye saccades-and-fixations fixations "
                                              "fixations-by-eye aoi-transitions aoi-fixations aoi-transitions-by-pair "
                                              "aoi-fixation-shares"));
    QVERIFY(chartKind(QStringLiteral("fixations")) == &chartKinds()[3]);
    QVERIFY(!chartKind(QStringLiteral("fixation")));
}

void TestChartDrawing::stylesOfTheRecords()
{
    toy::Scenery toy;
    toy.fixations.showOriginalSize = true;
    toy.saccades.showGazePoints = true;
    toy.saccades.transitionsOnly = true;
    toy.areas.outlines = true;
    toy.areas.displayNames = false;
    const DrawingContext context = toy.context();
    QVERIFY(chartStyle(ChartOwner::Fixations, context) == ChartStyle{.curves = true});
    QVERIFY(chartStyle(ChartOwner::Saccades, context) == (ChartStyle{.splines = true, .linesOnly = true}));
    QVERIFY(chartStyle(ChartOwner::Areas, context) == (ChartStyle{.linesOnly = true, .legend = false}));
}

QTEST_GUILESS_MAIN(TestChartDrawing)
#include "TestChartDrawing.moc"
