// SPDX-License-Identifier: GPL-3.0-or-later
#include "PlainChart.h"
#include "ToyData.h"
#include "visualization/charts/EventCharts.h"

#include <QTest>

class TestEventCharts : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void fixations();
    void saccades();
    void saccadesByLength();
    void recordingsAndEyesAreNotLinked();
    void saccadesBesideFixations();
    void eyes_data();
    void eyes();
    void groups();
    void uncheckedDoesNotCount();
    void windowOfTheRecord_data();
    void windowOfTheRecord();
    void emptyFrame();
    void manyEventsKeepTheScale();
};

namespace {

/// Fixations of the left eye at 0-80, 200-280 and 500-580 ms, of the right eye only the first two.
Examination recording(const QString &name = QStringLiteral("S01"))
{
    Examination examination;
    examination.baseName = name;
    examination.leftEye.scanpath = {toy::stay({100, 100}, 0), toy::stay({400, 500}, 200), toy::stay({400, 600}, 500)};
    examination.rightEye.scanpath = {toy::stay({100, 100}, 0), toy::stay({160, 180}, 200)};
    return examination;
}

toy::Scenery scenery(EyeMode eyes = EyeMode::showLeft)
{
    toy::Scenery scenery;
    scenery.model.examinations() = {recording()};
    scenery.eyeMode = eyes;
    scenery.frame = {0, 2000};
    scenery.fixations.power = scenery.saccades.power = 0.5; // a window of 50 ms
    return scenery;
}

QList<double> plainBins(const std::vector<plain::Event> &events, int windowMs = 50, TimeFrame frame = {0, 2000})
{
    const std::vector<double> bins = plain::bins(events, frame, windowMs);
    return {bins.begin(), bins.end()};
}

QStringList namesOf(const Chart &chart)
{
    QStringList names;
    for (const ChartCurve &curve : chart.curves)
        names << curve.name + u' ' + curve.color.name();
    return names;
}

} // namespace

void TestEventCharts::fixations()
{
    toy::Scenery toy = scenery();
    const Chart chart = fixationChart(toy.context());
    QCOMPARE(chart.curves.size(), 1);
    QCOMPARE(chart.curves[0].bins, plainBins({{0, 80}, {200, 80}, {500, 80}}));
    QCOMPARE(chart.top, 1.0);
    QCOMPARE(chart.labelAtTop, 1.0);
    QCOMPARE(chart.unit, QString());
    QCOMPARE(chart.curves[0].color, toy.fixations.fillColor);
}

void TestEventCharts::saccades()
{
    const Chart chart = saccadeChart(scenery().context());
    QCOMPARE(chart.curves.size(), 1);
    QCOMPARE(chart.curves[0].bins, plainBins({{80, 120}, {280, 220}}));
    QCOMPARE(chart.unit, QStringLiteral(" sac"));
}

void TestEventCharts::saccadesByLength()
{
    toy::Scenery toy = scenery(EyeMode::showAll);
    toy.saccades.lengthDependent = true;
    const Chart chart = saccadeChart(toy.context());
    // 300 and 400 px, 0 and 100 px; of the right eye 60 and 80 px
    QCOMPARE(chart.curves[0].bins, plainBins({{80, 120, 500}, {280, 220, 100}, {80, 120, 100}}));
    QCOMPARE(chart.top, 700.0); // around 240 ms all three are in the window
    QCOMPARE(chart.unit, QStringLiteral(" sac length"));
}

void TestEventCharts::recordingsAndEyesAreNotLinked()
{
    toy::Scenery toy = scenery(EyeMode::showAll);
    toy.model.examinations() << recording(QStringLiteral("S02"));
    QCOMPARE(saccadeChart(toy.context()).curves[0].bins,
             plainBins({{80, 120}, {280, 220}, {80, 120}, {80, 120}, {280, 220}, {80, 120}}));
}

void TestEventCharts::saccadesBesideFixations()
{
    toy::Scenery toy = scenery();
    toy.fixations.power = 20; // the window is that of the saccades
    const Chart chart = saccadesAndFixationsChart(toy.context());
    QCOMPARE(namesOf(chart),
             QStringList({QStringLiteral("Saccade length #ff0000"), QStringLiteral("Fixation duration #00ff00")}));
    QCOMPARE(chart.curves[0].bins, plainBins({{80, 120, 500}, {280, 220, 100}}));
    QCOMPARE(chart.curves[1].bins, plainBins({{0, 80, 80}, {200, 80, 80}, {500, 80, 80}}));
    QCOMPARE(chart.top, 600.0); // where both saccades are under way, more than any duration
    QCOMPARE(chart.unit, QStringLiteral(" sac length / fix in ms"));
}

void TestEventCharts::eyes_data()
{
    QTest::addColumn<EyeMode>("mode");
    QTest::addColumn<QStringList>("curves");
    QTest::newRow("all") << EyeMode::showAll
                         << QStringList{QStringLiteral("left #00ff00"), QStringLiteral("right #0000ff")};
    QTest::newRow("left") << EyeMode::showLeft << QStringList{QStringLiteral("left #00ff00")};
    QTest::newRow("right") << EyeMode::showRight << QStringList{QStringLiteral("right #0000ff")};
    QTest::newRow("dominant") << EyeMode::showDominant << QStringList{QStringLiteral("dominant #ff0000")};
    QTest::newRow("mean") << EyeMode::showMean << QStringList{QStringLiteral("mean #ff0000")};
}

void TestEventCharts::eyes()
{
    QFETCH(EyeMode, mode);
    toy::Scenery toy = scenery(mode);
    QTEST(namesOf(fixationsByEyeChart(toy.context())), "curves");
    QTEST(namesOf(saccadesByEyeChart(toy.context())), "curves");
    if (mode != EyeMode::showAll)
        return;
    const Chart chart = fixationsByEyeChart(toy.context());
    QCOMPARE(chart.curves[0].bins, plainBins({{0, 80}, {200, 80}, {500, 80}}));
    QCOMPARE(chart.curves[1].bins, plainBins({{0, 80}, {200, 80}}));
}

void TestEventCharts::groups()
{
    toy::Scenery toy = scenery(EyeMode::showAll);
    toy.fixations.lineSizeAbsolute = true;
    toy.model.examinations() << recording(QStringLiteral("S02")) << recording(QStringLiteral("S03"));
    Group novices(QStringLiteral("novices"), {});
    novices.colorsDominant.insert(toy.fixations.settingsName, QColor(1, 2, 3));
    Group experts(QStringLiteral("experts"), {});
    experts.colorsDominant.insert(toy.fixations.settingsName, QColor(4, 5, 6));
    toy.model.setGroups({novices, experts});
    toy.model.examinations()[0].groupName = QStringLiteral("experts");
    toy.model.examinations()[1].groupName = QStringLiteral("novices");
    toy.model.examinations()[2].groupName = QStringLiteral("novices");
    const Chart chart = fixationsByEyeChart(toy.context());
    QCOMPARE(namesOf(chart), QStringList({QStringLiteral("novices #010203"), QStringLiteral("experts #040506")}));
    QCOMPARE(chart.top, 4.0); // two recordings with two eyes each
    QCOMPARE(chart.curves[1].bins, plainBins({{0, 80}, {200, 80}, {500, 80}, {0, 80}, {200, 80}}));
    toy.model.examinations()[2].groupName = Group::none;
    QCOMPARE(namesOf(fixationsByEyeChart(toy.context())).last(), QStringLiteral("None #ff0000"));
}

void TestEventCharts::uncheckedDoesNotCount()
{
    toy::Scenery toy = scenery();
    toy.model.examinations() << recording(QStringLiteral("S02"));
    toy.model.examinations()[1].checked = false;
    QCOMPARE(fixationChart(toy.context()).top, 1.0);
}

void TestEventCharts::windowOfTheRecord_data()
{
    QTest::addColumn<double>("power");
    QTest::addColumn<int>("windowMs");
    QTest::newRow("a second") << 10.0 << 1000;
    QTest::newRow("rounded up") << 0.501 << 51;
    QTest::newRow("none counts as 10 ms") << 0.0 << 10;
    QTest::newRow("below nothing") << -1.0 << 10;
    QTest::newRow("largest") << 1e7 << 1000000000;
}

void TestEventCharts::windowOfTheRecord()
{
    QFETCH(double, power);
    QFETCH(int, windowMs);
    toy::Scenery toy = scenery();
    toy.fixations.power = power;
    QCOMPARE(fixationChart(toy.context()).curves[0].bins, plainBins({{0, 80}, {200, 80}, {500, 80}}, windowMs));
}

void TestEventCharts::emptyFrame()
{
    toy::Scenery toy = scenery();
    toy.frame = {10000, 10000};
    const Chart chart = fixationChart(toy.context());
    QCOMPARE(chart.top, 0.0);
    QCOMPARE(saccadesByEyeChart(toy.context()).top, 0.0);
}

void TestEventCharts::manyEventsKeepTheScale()
{
    toy::Scenery toy = scenery();
    const Chart one = fixationChart(toy.context());
    for (int i = 1; i < 500; ++i)
        toy.model.examinations() << toy.model.examinations()[0];
    const Chart many = fixationChart(toy.context());
    QCOMPARE(many.top, 500.0);
    for (qsizetype bin = 0; bin < one.curves[0].bins.size(); ++bin)
        QCOMPARE(many.curves[0].bins[bin] / many.top, one.curves[0].bins[bin] / one.top);
}

QTEST_GUILESS_MAIN(TestEventCharts)
#include "TestEventCharts.moc"
