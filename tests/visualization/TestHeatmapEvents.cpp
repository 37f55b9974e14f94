// SPDX-License-Identifier: GPL-3.0-or-later
#include "ToyData.h"
#include "visualization/heatmap/HeatmapEvents.h"

#include <QTest>

#include <limits>

class TestHeatmapEvents : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void gazePoints();
    void gazePointsThatAreNoPixels();
    void eyesOfTheMode_data();
    void eyesOfTheMode();
    void fixationsByTheirFirstSample_data();
    void fixationsByTheirFirstSample();
    void axesAreRoundedUp();
    void onlyInsideAreas_data();
    void onlyInsideAreas();
    void clustersLikeFixations();
    void walksEndWithRecordingAndEye();
};

namespace {

Fixation fixationAt(QPoint mean, qint64 firstMs, qint64 lastMs)
{
    return toy::fixation(mean, {3, 0}, {0, 2}, {toy::sample(firstMs, 0, 0), toy::sample(lastMs, 0, 0)});
}

template <class Event>
QString columnsOf(const std::vector<Event> &events)
{
    QStringList columns;
    for (const Event &event : events)
        columns << QString::number(event.x);
    return columns.join(u' ');
}

} // namespace

void TestHeatmapEvents::gazePoints()
{
    toy::Scenery scenery;
    Examination checked;
    checked.leftEye.gazePoints = {toy::sample(99, 10, 10), toy::sample(100, 11.9, -0.9), toy::sample(150, 12, 10, 0),
                                  toy::sample(200, -13.9, 10), toy::sample(201, 14, 10)};
    Examination unchecked = checked;
    unchecked.checked = false;
    scenery.model.examinations() = {unchecked, checked};
    scenery.frame = {100, 200};
    scenery.gazePoints.stepSize = 2; // of mode "points" only
    const std::vector<GazePointEvent> expected{{11, 0}, {-13, 10}};
    QVERIFY(gazePointEvents(scenery.context()) == expected);
}

void TestHeatmapEvents::gazePointsThatAreNoPixels()
{
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    constexpr double infinity = std::numeric_limits<double>::infinity();
    constexpr int largest = std::numeric_limits<int>::max();
    constexpr int lowest = std::numeric_limits<int>::min();
    toy::Scenery scenery;
    Examination examination;
    examination.leftEye.gazePoints = {toy::sample(1, nan, 5), toy::sample(2, infinity, -infinity),
                                      toy::sample(3, 1e300, -1e300)};
    scenery.model.examinations() = {examination};
    const std::vector<GazePointEvent> expected{{0, 5}, {largest, lowest}, {largest, lowest}};
    QVERIFY(gazePointEvents(scenery.context()) == expected);
}

void TestHeatmapEvents::eyesOfTheMode_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("columns");
    const auto row = [](const char *name, EyeMode mode, const char *columns) {
        QTest::newRow(name) << static_cast<int>(mode) << QString::fromLatin1(columns);
    };
    row("all", EyeMode::showAll, "1 2");
    row("dominant", EyeMode::showDominant, "2");
    row("left", EyeMode::showLeft, "1");
    row("right", EyeMode::showRight, "2");
    row("mean", EyeMode::showMean, "3");
}

void TestHeatmapEvents::eyesOfTheMode()
{
    QFETCH(int, mode);
    toy::Scenery scenery;
    scenery.eyeMode = static_cast<EyeMode>(mode);
    Examination examination;
    for (const auto &[eye, x] :
         {std::pair(&examination.leftEye, 1), std::pair(&examination.rightEye, 2), std::pair(&examination.meanEye, 3)})
    {
        eye->gazePoints = {toy::sample(0, x, 5)};
        eye->scanpath = {fixationAt({x, 5}, 0, 100)};
        eye->fixationClusters = {toy::clusterOf(fixationAt({x, 5}, 0, 100))};
    }
    scenery.model.examinations() = {examination};
    QTEST(columnsOf(gazePointEvents(scenery.context())), "columns");
    QTEST(columnsOf(fixationEvents(scenery.context())), "columns");
    QTEST(columnsOf(clusterEvents(scenery.context())), "columns");
    QTEST(columnsOf(saccadeEvents(scenery.context())), "columns");
}

void TestHeatmapEvents::fixationsByTheirFirstSample_data()
{
    QTest::addColumn<qint64>("first");
    QTest::addColumn<qint64>("last");
    QTest::addColumn<bool>("taken");
    QTest::newRow("begins before the frame") << qint64(99) << qint64(150) << false;
    QTest::newRow("begins with the frame") << qint64(100) << qint64(150) << true;
    QTest::newRow("ends after the frame") << qint64(190) << qint64(250) << true;
    QTest::newRow("begins with the end of the frame") << qint64(200) << qint64(250) << true;
    QTest::newRow("begins after the frame") << qint64(201) << qint64(250) << false;
}

void TestHeatmapEvents::fixationsByTheirFirstSample()
{
    QFETCH(qint64, first);
    QFETCH(qint64, last);
    QFETCH(bool, taken);
    toy::Scenery scenery;
    scenery.frame = {100, 200};
    Examination examination;
    // A section outside the frame does not end the walk, nor does one without samples.
    examination.leftEye.scanpath = {fixationAt({1, 1}, 500, 600), Fixation(), fixationAt({5, 7}, first, last)};
    scenery.model.examinations() = {examination};
    const std::vector<FixationEvent> events = fixationEvents(scenery.context());
    QCOMPARE(events.size(), size_t(taken));
    if (taken)
        QCOMPARE(events[0], (FixationEvent{5, 7, 3, 0, 0, 2, static_cast<int>(last - first)}));
}

void TestHeatmapEvents::axesAreRoundedUp()
{
    constexpr float nan = std::numeric_limits<float>::quiet_NaN();
    toy::Scenery scenery;
    Examination examination;
    const QList<GazePoint> samples{toy::sample(10, 0, 0), toy::sample(90, 0, 0)};
    examination.leftEye.scanpath = {toy::fixation({5, 7}, {3.1F, -2.9F}, {-0.9F, 4.0F}, samples),
                                    toy::fixation({5, 7}, {nan, 1e30F}, {-1e30F, 0}, samples)};
    scenery.model.examinations() = {examination};
    const std::vector<FixationEvent> events = fixationEvents(scenery.context());
    QCOMPARE(events[0], (FixationEvent{5, 7, 4, -2, 0, 4, 80}));
    QCOMPARE(events[1],
             (FixationEvent{5, 7, 0, std::numeric_limits<int>::max(), std::numeric_limits<int>::min(), 0, 80}));
}

void TestHeatmapEvents::onlyInsideAreas_data()
{
    QTest::addColumn<QPoint>("mean");
    QTest::addColumn<bool>("only");
    QTest::addColumn<int>("times");
    QTest::newRow("the option is off") << QPoint(900, 900) << false << 1;
    QTest::newRow("in no area") << QPoint(900, 900) << true << 0;
    QTest::newRow("in one") << QPoint(20, 20) << true << 1;
    QTest::newRow("in two that overlap") << QPoint(120, 120) << true << 2;
}

void TestHeatmapEvents::onlyInsideAreas()
{
    QFETCH(QPoint, mean);
    QFETCH(bool, only);
    QFETCH(int, times);
    toy::Scenery scenery;
    scenery.fixations.showLenghtArcs = only;
    Examination examination;
    examination.leftEye.scanpath = {fixationAt(mean, 0, 100)};
    scenery.model.examinations() = {examination};
    QCOMPARE(fixationEvents(scenery.context()).size(), only ? size_t(0) : size_t(1)); // there is no area at all
    scenery.model.insertAoi(AreaOfInterest(QStringLiteral("one"), QPolygon(QRect(0, 0, 150, 150), true)));
    scenery.model.insertAoi(AreaOfInterest(QStringLiteral("two"), QPolygon(QRect(100, 100, 200, 200), true)));
    AreaOfInterest off(QStringLiteral("switched off"), QPolygon(QRect(0, 0, 2560, 1600), true));
    off.enabled = false;
    scenery.model.insertAoi(off);
    QCOMPARE(fixationEvents(scenery.context()).size(), size_t(times));
}

void TestHeatmapEvents::clustersLikeFixations()
{
    toy::Scenery scenery;
    scenery.fixations.showLenghtArcs = true; // of the fixations only
    Examination examination;
    examination.leftEye.fixationClusters = {toy::clusterOf(fixationAt({20, 30}, 0, 100)),
                                            toy::clusterOf(fixationAt({40, 50}, 2000, 2100))};
    scenery.model.examinations() = {examination};
    const std::vector<FixationEvent> expected{{20, 30, 3, 0, 0, 2, 100}};
    QVERIFY(clusterEvents(scenery.context()) == expected);
    scenery.clusters.showLenghtArcs = true;
    QVERIFY(clusterEvents(scenery.context()).empty());
}

void TestHeatmapEvents::walksEndWithRecordingAndEye()
{
    toy::Scenery scenery;
    scenery.frame = {100, 1000};
    Examination examination;
    examination.leftEye.scanpath = {fixationAt({1, 1}, 0, 50), fixationAt({2, 1}, 100, 150),
                                    fixationAt({3, 1}, 200, 275)};
    examination.rightEye.scanpath = {fixationAt({4, 1}, 100, 150), fixationAt({5, 1}, 200, 250)};
    scenery.model.examinations() = {examination, examination};
    const std::vector<SaccadeEvent> once{{2, 1, 50, true}, {3, 1, 75, false}, {4, 1, 50, true}, {5, 1, 50, false}};
    std::vector<SaccadeEvent> expected = once;
    expected.insert(expected.end(), once.begin(), once.end());
    QVERIFY(saccadeEvents(scenery.context()) == expected);
}

QTEST_GUILESS_MAIN(TestHeatmapEvents)
#include "TestHeatmapEvents.moc"
