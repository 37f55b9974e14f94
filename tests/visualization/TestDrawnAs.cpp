// SPDX-License-Identifier: GPL-3.0-or-later
#include "ToyData.h"
#include "visualization/modes/DrawnAs.h"

#include <QTest>

class TestDrawnAs : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void gazePoints_data();
    void gazePoints();
    void fixations_data();
    void fixations();
    void clusters_data();
    void clusters();
    void uncheckedIsNotDrawn();
};

namespace {

CalculationInfo infoAfterDrawing(const toy::Scenery &scenery, bool checked = true)
{
    Examination examination;
    examination.checked = checked;
    QList<Examination> examinations{examination};
    setDrawnAs(examinations, scenery.context());
    return examinations.constFirst().calculationInfo;
}

void addModes(std::initializer_list<const char *> words)
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("expected");
    int mode = 0;
    for (const char *word : words) {
        QTest::addRow("mode %d", mode) << mode << QString::fromLatin1(word);
        ++mode;
    }
    QTest::newRow("below the modes the text stays") << -1 << QStringLiteral("Not set\n");
}

} // namespace

void TestDrawnAs::gazePoints_data()
{
    addModes({"NOT DRAWN\n", "POINTS\n", "HEATMAP\n", "SHADOW\n", "Not set\n"});
}

void TestDrawnAs::gazePoints()
{
    QFETCH(int, mode);
    toy::Scenery scenery;
    scenery.gazePoints.visualizationMode = mode;
    QTEST(infoAfterDrawing(scenery).gazepointsVisualizationInfo, "expected");
}

void TestDrawnAs::fixations_data()
{
    addModes({"NOT DRAWN\n", "ELLIPSE\n", "CIRCLE\n", "HEATMAP\n", "SHADOW\n", "Not set\n", "Not set\n", "Not set\n"});
}

void TestDrawnAs::fixations()
{
    QFETCH(int, mode);
    toy::Scenery scenery;
    scenery.fixations.visualizationMode = mode;
    QTEST(infoAfterDrawing(scenery).fixationVisualizationInfo, "expected");
}

void TestDrawnAs::clusters_data()
{
    addModes({"NOT DRAWN\n/NOT DRAWN\n", "ELLIPSE\n/NOT DRAWN\n", "CIRCLE\n/NOT DRAWN\n", "HEATMAP\n/NOT DRAWN\n",
              "SHADOW\n/NOT DRAWN\n", "NOT DRAWN\n/ELLIPSE\n", "NOT DRAWN\n/CIRCLE\n", "TRANSITION\n/NOT DRAWN\n",
              "NOT DRAWN\n/TRANSITION\n", "TRANSITION\n/TRANSITION\n", "Not set\n/Not set\n"});
}

void TestDrawnAs::clusters()
{
    QFETCH(int, mode);
    QFETCH(QString, expected);
    if (mode < 0)
        expected = QStringLiteral("Not set\n/Not set\n");
    toy::Scenery scenery;
    scenery.clusters.visualizationMode = mode;
    const CalculationInfo info = infoAfterDrawing(scenery);
    QCOMPARE(info.clusterVisualizationInfo + u'/' + info.cumulativeClusterVisualizationInfo, expected);
}

void TestDrawnAs::uncheckedIsNotDrawn()
{
    toy::Scenery scenery;
    scenery.gazePoints.visualizationMode = 1;
    scenery.fixations.visualizationMode = 5;
    scenery.clusters.visualizationMode = 9;
    const CalculationInfo info = infoAfterDrawing(scenery, false);
    const QString notDrawn = QStringLiteral("NOT DRAWN\n");
    QCOMPARE(info.gazepointsVisualizationInfo, notDrawn);
    QCOMPARE(info.fixationVisualizationInfo, notDrawn);
    QCOMPARE(info.clusterVisualizationInfo, notDrawn);
    QCOMPARE(info.cumulativeClusterVisualizationInfo, notDrawn);
    QCOMPARE(info.fixationCalculationInfo, QStringLiteral("Not set\n"));
}

QTEST_GUILESS_MAIN(TestDrawnAs)
#include "TestDrawnAs.moc"
