// SPDX-License-Identifier: GPL-3.0-or-later
#include "PlainChart.h"
#include "ToyData.h"
#include "visualization/charts/AoiCharts.h"

#include <QTest>

class TestAoiCharts : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void examinationsThatLook();
    void anExaminationCountsOnceInABin();
    void deviations();
    void sharesAddUp();
    void transitionsOutOfEachArea();
    void transitionsByPair();
    void transitionsOfTheSaccades();
    void mixedColors();
    void disabledAreasAreNotThere();
    void nobodyChecked();
    void emptyCharts_data();
    void emptyCharts();
};

namespace {

const QPoint inA(50, 50);
const QPoint inB(250, 50);
const QPoint outside(900, 900);

AreaOfInterest area(const QString &name, int left, const QColor &color)
{
    AreaOfInterest area(name, QPolygon(QRect(left, 0, 100, 100)));
    area.color = color;
    return area;
}

Examination recording(const QList<QPoint> &means)
{
    Examination examination;
    for (qsizetype i = 0; i < means.size(); ++i)
        examination.leftEye.scanpath << toy::stay(means[i], 200 * i); // 80 ms each
    return examination;
}

/// Areas A and B, 1 ms a bin, a window of 50 ms.
toy::Scenery scenery(const QList<QList<QPoint>> &recordings)
{
    toy::Scenery scenery;
    for (const QList<QPoint> &means : recordings)
        scenery.model.examinations() << recording(means);
    scenery.model.insertAoi(area(QStringLiteral("A"), 0, QColor(200, 0, 0, 90)));
    scenery.model.insertAoi(area(QStringLiteral("B"), 200, QColor(0, 100, 0)));
    scenery.eyeMode = EyeMode::showLeft;
    scenery.frame = {0, 2000};
    scenery.areas.timeWindowMs = 50;
    return scenery;
}

QList<double> plainBins(const std::vector<plain::Event> &events)
{
    const std::vector<double> bins = plain::bins(events, {0, 2000}, 50);
    return {bins.begin(), bins.end()};
}

QList<double> plainLooks(const std::vector<plain::Event> &events, double factor = 1)
{
    QList<double> bins = plainBins(events);
    for (double &bin : bins)
        bin = bin > 0 ? factor : 0;
    return bins;
}

QString namesOf(const Chart &chart)
{
    QStringList names;
    for (const ChartCurve &curve : chart.curves)
        names << curve.name + u' ' + curve.color.name(QColor::HexArgb);
    return names.join(QStringLiteral(", "));
}

} // namespace

void TestAoiCharts::examinationsThatLook()
{
    toy::Scenery toy = scenery({{inA, inB}, {inA, outside}});
    const Chart chart = aoiFixationChart(toy.context());
    QCOMPARE(namesOf(chart), QStringLiteral("A #ffc80000, B #ff006400")); // filled, whatever the areas are
    QCOMPARE(chart.curves[0].bins, plainLooks({{0, 80}}, 1.0));
    QCOMPARE(chart.curves[1].bins, plainLooks({{200, 80}}, 0.5));
    QCOMPARE(chart.top, 1.0);
    QCOMPARE(chart.labelAtTop, 100.0);
    QCOMPARE(chart.unit, QStringLiteral(" %"));
}

void TestAoiCharts::anExaminationCountsOnceInABin()
{
    toy::Scenery toy = scenery({{inA, inA}}); // both windows overlap
    toy.areas.timeWindowMs = 500;
    const Chart chart = aoiFixationChart(toy.context());
    QCOMPARE(chart.curves[0].bins[150], 1.0);
    QCOMPARE(chart.top, 1.0);
    toy.model.examinations()[0].rightEye = toy.model.examinations()[0].leftEye;
    toy.eyeMode = EyeMode::showAll;
    QCOMPARE(aoiFixationChart(toy.context()).top, 1.0);
}

void TestAoiCharts::deviations()
{
    const Chart chart = aoiFixationChart(scenery({{inA}, {outside}, {inA}, {inA}}).context());
    // looks 1, 0, 1, 1: mean 0.75, squares 3 * 0.0625 + 0.5625 = 0.75, root / 4
    QVERIFY(std::abs(chart.curves[0].deviations[40] - std::sqrt(0.75) / 4) < 1e-12);
    QCOMPARE(chart.curves[0].bins[40], 0.75);
    QCOMPARE(chart.curves[0].deviations[1500], 0.0);
}

void TestAoiCharts::sharesAddUp()
{
    toy::Scenery toy = scenery({{inA, inB}, {inB, inB}, {inB, outside, inA}});
    const Chart chart = aoiFixationShareChart(toy.context());
    QVERIFY(chart.isStacked);
    QCOMPARE(chart.top, 1.0);
    QCOMPARE(chart.labelAtTop, 100.0);
    // at 40 ms one looks into A and two into B
    QCOMPARE(chart.curves[0].bins[40], 1.0 / 3);
    QCOMPARE(chart.curves[1].bins[40], 2.0 / 3);
    for (int bin = 0; bin < 2000; ++bin) {
        const double sum = chart.curves[0].bins[bin] + chart.curves[1].bins[bin];
        QVERIFY(sum == 0 || std::abs(sum - 1) < 1e-12);
    }
    QCOMPARE(chart.curves[0].bins[1999], 0.0);
}

void TestAoiCharts::transitionsOutOfEachArea()
{
    // A to B after a fixation in none, B to B is none, B to A
    const Chart chart = aoiTransitionChart(scenery({{inA, outside, inB, inB, inA}}).context());
    QCOMPARE(chart.curves[0].bins, plainBins({{80, 320}}));
    QCOMPARE(chart.curves[1].bins, plainBins({{680, 120}}));
    QCOMPARE(chart.unit, QString());
}

void TestAoiCharts::transitionsByPair()
{
    const Chart chart = aoiTransitionPairChart(scenery({{inA, inB, inA}, {inA, inB}}).context());
    QCOMPARE(namesOf(chart), QStringLiteral("A → B #ffc80000, B → A #ff006400"));
    // half is 48 bins of 1 ms, so that a bin counts what is within 97 ms
    QList<double> expected = plainBins({{80, 120}, {80, 120}});
    for (double &bin : expected)
        bin *= 60000.0 / 97;
    QCOMPARE(chart.curves[0].bins, expected);
    QCOMPARE(chart.top, 2 * 60000.0 / 97);
    QCOMPARE(chart.unit, QStringLiteral(" trans/min"));
}

void TestAoiCharts::transitionsOfTheSaccades()
{
    toy::Scenery toy = scenery({{inA, outside, inB}});
    QCOMPARE(aoiTransitionPairChart(toy.context()).curves.size(), 1);
    toy.areas.transitionType = 1;
    QCOMPARE(aoiTransitionPairChart(toy.context()).curves.size(), 0);
    QCOMPARE(aoiTransitionChart(toy.context()).top, 0.0);
}

void TestAoiCharts::mixedColors()
{
    toy::Scenery toy = scenery({{inA, inB, inA, inB, inA, inB}}); // 3 there, 2 back
    toy.areas.mixColor = true;
    // both are 200 * 3 / 5 and 100 * 2 / 5: as with ribbons, the two ways of a pair have one mixture
    QCOMPARE(namesOf(aoiTransitionPairChart(toy.context())), QStringLiteral("A → B #ff782800, B → A #ff782800"));
}

void TestAoiCharts::disabledAreasAreNotThere()
{
    toy::Scenery toy = scenery({{inA, inB}});
    AreaOfInterest disabled = toy.model.aoi(QStringLiteral("A"));
    disabled.enabled = false;
    toy.model.insertAoi(disabled);
    QCOMPARE(aoiFixationChart(toy.context()).curves.size(), 1);
    QCOMPARE(aoiTransitionPairChart(toy.context()).curves.size(), 0);
}

void TestAoiCharts::nobodyChecked()
{
    toy::Scenery toy = scenery({{inA}});
    toy.model.examinations()[0].checked = false;
    QCOMPARE(aoiFixationChart(toy.context()).top, 0.0);
    QCOMPARE(aoiFixationShareChart(toy.context()).top, 0.0);
}

void TestAoiCharts::emptyCharts_data()
{
    QTest::addColumn<bool>("hasAreas");
    QTest::addColumn<bool>("hasFixations");
    QTest::addColumn<QString>("reason");
    QTest::newRow("neither") << false << false << "No AOIs available";
    QTest::newRow("no areas") << false << true << "No AOIs available";
    QTest::newRow("no fixations") << true << false << "No fixations available";
    QTest::newRow("both") << true << true << QString();
}

void TestAoiCharts::emptyCharts()
{
    QFETCH(bool, hasAreas);
    QFETCH(bool, hasFixations);
    toy::Scenery toy = scenery({hasFixations ? QList{inA} : QList<QPoint>()});
    if (!hasAreas) {
        toy.model.removeAoi(QStringLiteral("A"));
        toy.model.removeAoi(QStringLiteral("B"));
    }
    QTEST(emptyAoiChart(toy.model).value_or(QString()), "reason");
}

QTEST_GUILESS_MAIN(TestAoiCharts)
#include "TestAoiCharts.moc"
