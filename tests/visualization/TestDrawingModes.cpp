#include "visualization/modes/DrawingModes.h"

#include <QTest>

class TestDrawingModes : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void namesInTheOrderOfStoredValues();
    void buildersOfWhatIsDrawn();
    void noBuilderBeyondTheTable_data();
    void noBuilderBeyondTheTable();
};

namespace {

template <class Build, std::size_t Count>
QString namesOf(const DrawingMode<Build> (&modes)[Count])
{
    QStringList names;
    for (const DrawingMode<Build> &mode : modes)
        names << mode.name;
    return names.join(u'|');
}

} // namespace

void TestDrawingModes::namesInTheOrderOfStoredValues()
{
    QCOMPARE(namesOf(gazePointModes), QStringLiteral("none|points|heatmap|shadowmap"));
    QCOMPARE(namesOf(fixationModes),
             QStringLiteral("none|elliptic (pca)|circular|heatmap|shadowmap|histogram|histogram seperated"));
    QCOMPARE(namesOf(clusterModes),
             QStringLiteral("none|elliptic (pca)|circular|heatmap|shadowmap|cumulative elliptic|cumulative circle|"
                            "transitions|cumulative transitions|cluster + cumulative transitions"));
    QCOMPARE(namesOf(saccadeModes), QStringLiteral("none|arrows|anglestar|heatmap|shadowmap|histogram|"
                                                   "histogram seperated|histogram sac vs fix"));
}

void TestDrawingModes::buildersOfWhatIsDrawn()
{
    QVERIFY(builderOf(gazePointModes, 1) == gazePointSquares);
    QVERIFY(builderOf(fixationModes, 1) == fixationEllipses);
    QVERIFY(builderOf(fixationModes, 2) == fixationCircles);
    using enum ClusterSource;
    QVERIFY((builderOf(clusterModes, 1) == clustersOfEye<clusterEllipses, Own>));
    QVERIFY((builderOf(clusterModes, 2) == clustersOfEye<clusterCircles, Own>));
    QVERIFY((builderOf(clusterModes, 5) == clustersOfEye<clusterEllipses, Cumulative>));
    QVERIFY((builderOf(clusterModes, 6) == clustersOfEye<clusterCircles, Cumulative>));
    QVERIFY((builderOf(clusterModes, 7) == transitionsOfEye<Own>));
    QVERIFY((builderOf(clusterModes, 8) == transitionsOfEye<Cumulative>));
    QVERIFY((builderOf(clusterModes, 9) == transitionsOfEye<OwnThenCumulative>));
    QVERIFY(builderOf(saccadeModes, 1) == arrowsOfPass);
    QVERIFY(builderOf(saccadeModes, 2) == angleStarOfPass);
}

void TestDrawingModes::noBuilderBeyondTheTable_data()
{
    QTest::addColumn<int>("mode");
    QTest::newRow("none") << 0;
    QTest::newRow("below") << -1;
    QTest::newRow("one beyond the longest table") << 10;
    QTest::newRow("far beyond") << 1000000;
}

void TestDrawingModes::noBuilderBeyondTheTable()
{
    QFETCH(int, mode);
    QVERIFY(!builderOf(gazePointModes, mode));
    QVERIFY(!builderOf(fixationModes, mode));
    QVERIFY(!builderOf(clusterModes, mode));
    QVERIFY(!builderOf(saccadeModes, mode));
}

QTEST_GUILESS_MAIN(TestDrawingModes)
#include "TestDrawingModes.moc"
