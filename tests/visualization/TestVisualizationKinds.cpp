// SPDX-License-Identifier: GPL-3.0-or-later
#include "TestSettings.h"
#include "visualization/modes/VisualizationKinds.h"

#include <QTest>

class TestVisualizationKinds : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void kind_data();
    void kind();
    void anUnknownNameIsTheFirstKind();
};

void TestVisualizationKinds::kind_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("size");
    QTest::addColumn<QString>("modes");
    const auto row = [](const char *title, int number, const char *path, const char *name, const char *size,
                        const char *modes) {
        QTest::newRow(title) << number << QString::fromLatin1(path) << QString::fromLatin1(name)
                             << QString::fromLatin1(size) << QString::fromLatin1(modes);
    };
    row("gaze points", 0, "Visualization/Gazepoint", "GazepointVisualization",
        "Points size:", "none,points,heatmap,shadowmap");
    row("fixations", 1, "Visualization/Fixation", "FixationVisualization",
        "Circle size:", "none,elliptic (pca),circular,heatmap,shadowmap,histogram,histogram seperated");
    row("fixation clusters", 2, "Visualization/Fixationcluster", "FixationclusterVisualization", "Circles size:",
        "none,elliptic (pca),circular,heatmap,shadowmap,cumulative elliptic,cumulative circle,transitions,"
        "cumulative transitions,cluster + cumulative transitions");
    row("saccades", 3, "Visualization/Saccade", "SaccadeVisualization", "Line thickness:",
        "none,arrows,anglestar,heatmap,shadowmap,histogram,histogram seperated,histogram sac vs fix");
}

void TestVisualizationKinds::kind()
{
    QFETCH(int, number);
    QFETCH(QString, name);
    const VisualizationKind &kind = visualizationKinds()[static_cast<std::size_t>(number)];
    const TemporarySettings settings;
    const VisualizationParameters stored = kind.stored();
    QTEST(stored.settingsPath, "path");
    QTEST(stored.settingsName, "name");
    QTEST(QString(kind.sizeLabel), "size");
    QTEST(kind.modeNames().join(u','), "modes");
    QCOMPARE(static_cast<int>(kind.kind), number);
    QCOMPARE(visualizationKindOf(name), kind.kind);
}

void TestVisualizationKinds::anUnknownNameIsTheFirstKind()
{
    QCOMPARE(visualizationKindOf(QString()), DataKind::GazePoints);
    QCOMPARE(visualizationKindOf(QStringLiteral("fixationvisualization")), DataKind::GazePoints); // letter for letter
}

QTEST_GUILESS_MAIN(TestVisualizationKinds)
#include "TestVisualizationKinds.moc"
