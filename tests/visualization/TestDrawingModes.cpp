// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/charts/ChartKinds.h"
#include "visualization/charts/EventCharts.h"
#include "visualization/modes/DrawingModes.h"
#include "visualization/shapes/AngleStar.h"
#include "visualization/shapes/ClusterShapes.h"
#include "visualization/shapes/FixationShapes.h"
#include "visualization/shapes/GazePointRaster.h"
#include "visualization/shapes/SaccadeShapes.h"
#include "visualization/shapes/TransitionShapes.h"

#include <QSet>
#include <QTest>

class TestDrawingModes : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void namesInTheOrderOfStoredValues();
    void buildersOfWhatIsDrawn();
    void wordsSayWhetherSomethingIsDrawn();
    void whatIsDrawnHasAReport();
    void nothingBeyondTheTable_data();
    void nothingBeyondTheTable();
};

namespace {

QString namesOf(DataKind kind)
{
    QStringList names;
    for (const DataMode &mode : drawingModes(kind))
        names << mode.name;
    return names.join(u'|');
}

ModeBuild buildAt(DataKind kind, int mode)
{
    VisualizationParameters record;
    record.visualizationMode = mode;
    return buildOf(kind, record);
}

} // namespace

void TestDrawingModes::namesInTheOrderOfStoredValues()
{
    QCOMPARE(namesOf(DataKind::GazePoints), QStringLiteral("none|points|heatmap|shadowmap"));
    QCOMPARE(namesOf(DataKind::Fixations),
             QStringLiteral("none|elliptic (pca)|circular|heatmap|shadowmap|histogram|histogram seperated"));
    QCOMPARE(namesOf(DataKind::Clusters),
             QStringLiteral("none|elliptic (pca)|circular|heatmap|shadowmap|cumulative elliptic|cumulative circle|"
                            "transitions|cumulative transitions|cluster + cumulative transitions"));
    QCOMPARE(namesOf(DataKind::Saccades), QStringLiteral("none|arrows|anglestar|heatmap|shadowmap|histogram|"
                                                         "histogram seperated|histogram sac vs fix"));
}

void TestDrawingModes::buildersOfWhatIsDrawn()
{
    using enum DataKind;
    using enum ClusterSource;
    const auto is = [](DataKind kind, int mode, const ModeBuild &build) { return buildAt(kind, mode) == build; };
    QVERIFY(is(GazePoints, 1, gazePointSquares));
    QVERIFY(is(GazePoints, 2, HeatmapLook::AbsoluteScale));
    QVERIFY(is(GazePoints, 3, HeatmapLook::ShadowMap));
    QVERIFY(is(Fixations, 1, fixationsOfEye<fixationEllipses>));
    QVERIFY(is(Fixations, 2, fixationsOfEye<fixationCircles>));
    QVERIFY(is(Clusters, 1, clustersOfEye<clusterEllipses, Own>));
    QVERIFY(is(Clusters, 2, clustersOfEye<clusterCircles, Own>));
    QVERIFY(is(Clusters, 5, SharedBuild{clustersOfEye<clusterEllipses, Cumulative>}));
    QVERIFY(is(Clusters, 6, SharedBuild{clustersOfEye<clusterCircles, Cumulative>}));
    QVERIFY(is(Clusters, 7, transitionsOfEye<Own>));
    QVERIFY(is(Clusters, 8, SharedBuild{transitionsOfEye<Cumulative>}));
    QVERIFY(is(Clusters, 9, SharedBuild{transitionsOfEye<OwnThenCumulative>}));
    QVERIFY(is(Saccades, 1, arrowsOfPass));
    QVERIFY(is(Saccades, 2, angleStarOfPass));
    QVERIFY(is(Fixations, 5, drawnChart<fixationChart>));
    QVERIFY(is(Fixations, 6, drawnChart<fixationsByEyeChart>));
    QVERIFY(is(Saccades, 5, drawnChart<saccadeChart>));
    QVERIFY(is(Saccades, 6, drawnChart<saccadesByEyeChart>));
    QVERIFY(is(Saccades, 7, drawnChart<saccadesAndFixationsChart>));
    for (const DataKind kind : {Fixations, Clusters, Saccades}) {
        QVERIFY(is(kind, 3, HeatmapLook::AbsoluteScale));
        QVERIFY(is(kind, 4, HeatmapLook::ShadowMap));
    }
}

void TestDrawingModes::wordsSayWhetherSomethingIsDrawn()
{
    const QLatin1StringView notDrawn("NOT DRAWN\n");
    for (const DataKind kind : {DataKind::GazePoints, DataKind::Fixations, DataKind::Clusters}) {
        for (const DataMode &mode : drawingModes(kind)) {
            const auto names = [&](QLatin1StringView word) { return !word.isNull() && word != notDrawn; };
            if (mode.name.startsWith(QLatin1StringView("histogram"))) { // leaves the word of an earlier drawing
                QVERIFY(mode.words.own.isNull() && mode.words.cumulative.isNull());
                continue;
            }
            const bool saysDrawn = names(mode.words.own) || names(mode.words.cumulative);
            QVERIFY2(saysDrawn != std::holds_alternative<std::monostate>(mode.build), mode.name.data());
        }
    }
}

void TestDrawingModes::whatIsDrawnHasAReport()
{
    for (const DataKind kind : allDataKinds) {
        QSet<QLatin1StringView> words;
        for (const DataMode &mode : drawingModes(kind)) {
            const bool draws = !std::holds_alternative<std::monostate>(mode.build);
            QVERIFY2((mode.report.lines != nullptr) == draws, mode.name.data());
            QVERIFY2(mode.report.word.isEmpty() != draws, mode.name.data());
            QVERIFY2(!words.contains(mode.report.word), mode.name.data());
            words << mode.report.word;
        }
    }
}

void TestDrawingModes::nothingBeyondTheTable_data()
{
    QTest::addColumn<int>("mode");
    QTest::newRow("none") << 0;
    QTest::newRow("below") << -1;
    QTest::newRow("one beyond the longest table") << 10;
    QTest::newRow("far beyond") << 1000000;
}

void TestDrawingModes::nothingBeyondTheTable()
{
    QFETCH(int, mode);
    for (const DataKind kind : allDataKinds)
        QVERIFY(std::holds_alternative<std::monostate>(buildAt(kind, mode)));
}

QTEST_GUILESS_MAIN(TestDrawingModes)
#include "TestDrawingModes.moc"
