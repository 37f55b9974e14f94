// SPDX-License-Identifier: GPL-3.0-or-later
#include "report/HeatmapLegend.h"
#include "report/PictureLegend.h"
#include "visualization/ToyData.h"

#include <QTest>

class TestLegends : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void heatmap();
    void fixationsHaveUnitAndClasses();
    void oneBelowTheOther();
    void withoutHeatmaps();
    void allUnits();
    void eyesAndGroups();
    void circlesOfDurations();
    void nothingToTell();
};

namespace {

QStringList textsOf(const Drawing &drawing)
{
    QStringList texts;
    for (const Shape &shape : drawing) {
        if (const auto *text = std::get_if<TextShape>(&shape))
            texts << text->text;
    }
    return texts;
}

Examination examination(const QString &group = Group::none)
{
    Examination examination;
    examination.groupName = group;
    for (int i = 0; i <= 100; ++i) // 100 Hz
        examination.leftEye.gazePoints << toy::sample(10 * i, 1, 1);
    return examination;
}

} // namespace

void TestLegends::heatmap()
{
    const toy::Scenery toy;
    const HeatmapLegend legend = heatmapLegend({{DataKind::GazePoints, 90}}, toy.context(), {10, 1600});
    QCOMPARE(textsOf(legend.drawing), QStringList({QStringLiteral("Gazepoint Heatmap:"), QStringLiteral("0"),
                                                   QStringLiteral("45"), QStringLiteral("90")}));
    const auto &colors = std::get<RasterShape>(legend.drawing[1]);
    QCOMPARE(colors.image.size(), QSize(2400, 50));
    QVERIFY(colors.top.y() > 1600 && colors.top.y() + 50 < 1600 + legend.height);
    QCOMPARE(std::get<TextShape>(legend.drawing[0]).color, QColor(150, 150, 150));
    QCOMPARE(std::get<TextShape>(legend.drawing[0]).top, QPointF(10, 1600));
}

void TestLegends::fixationsHaveUnitAndClasses()
{
    const toy::Scenery toy;
    const HeatmapFigures figures{DataKind::Fixations, 10, std::array<double, 5>{50, 20, 15, 10, 5}};
    const HeatmapLegend legend = heatmapLegend({figures}, toy.context(), {0, 0});
    QCOMPARE(textsOf(legend.drawing).join(u'|'),
             QStringLiteral("Fixation Heatmap:|0 fix/min|5 fix/min|10 fix/min|Percentage of fixations in color range:|"
                            "50 %|20 %|15 %|10 %|5 %|Fixations per minute over color range:|0-2|2-4|4-6|6-8|8-10"));
}

void TestLegends::oneBelowTheOther()
{
    const toy::Scenery toy;
    const HeatmapLegend one = heatmapLegend({{DataKind::Clusters, 1}}, toy.context(), {0, 0});
    const HeatmapLegend two = heatmapLegend({{DataKind::Clusters, 1}, {DataKind::Saccades, 2}}, toy.context(), {0, 0});
    QCOMPARE(two.height, 2 * one.height);
    QCOMPARE(textsOf(two.drawing).filter(QStringLiteral(":")),
             QStringList({QStringLiteral("Fixation Cluster Heatmap:"), QStringLiteral("Saccades Heatmap:")}));
}

void TestLegends::withoutHeatmaps()
{
    const toy::Scenery toy;
    const HeatmapLegend legend = heatmapLegend({}, toy.context(), {0, 0});
    QVERIFY(legend.drawing.isEmpty());
    QCOMPARE(legend.height, 0.0);
}

void TestLegends::allUnits()
{
    const toy::Scenery toy;
    const HeatmapLegend legend =
        heatmapLegend({{DataKind::GazePoints, 90}}, toy.context(), {}, {.widthPx = 500, .allUnits = true});
    QCOMPARE(textsOf(legend.drawing).last(), QStringLiteral("90 gaze points"));
    QCOMPARE(std::get<RasterShape>(legend.drawing[1]).image.width(), 500);
}

void TestLegends::eyesAndGroups()
{
    toy::Scenery toy;
    toy.fixations.visualizationMode = 1;
    toy.model.examinations() = {examination(), examination(), examination(QStringLiteral("experts"))};
    Group experts(QStringLiteral("experts"), {});
    experts.colorsLeft.insert(toy.fixations.settingsName, QColor(9, 8, 7));
    toy.model.setGroups({experts});
    toy.eyeMode = EyeMode::showAll;
    const PictureLegend legend = pictureLegend({}, toy.context(), QRectF(0, 0, 2560, 1600));
    QCOMPARE(textsOf(legend.drawing).join(u'|'),
             QStringLiteral("fixations, left|fixations, right|experts, fixations, left|experts, fixations, right"));
    QList<QColor> colors;
    for (const Shape &shape : legend.drawing) {
        if (const auto *patch = std::get_if<PolygonShape>(&shape))
            colors << patch->brush.color();
    }
    QCOMPARE(colors.mid(0, 4), QList<QColor>({Qt::white, QColor(0, 255, 0), QColor(0, 0, 255), QColor(9, 8, 7)}));
}

void TestLegends::circlesOfDurations()
{
    toy::Scenery toy;
    toy.fixations.visualizationMode = 2;
    toy.fixations.durationDependent = true;
    toy.fixations.size = 5;
    toy.eyeMode = EyeMode::showLeft;
    toy.model.examinations() = {examination()};
    const PictureLegend legend = pictureLegend({}, toy.context(), QRectF(0, 0, 2560, 1600));
    QList<double> diameters;
    for (const Shape &shape : legend.drawing) {
        if (const auto *circle = std::get_if<OvalShape>(&shape))
            diameters << circle->rect.width();
    }
    // at 100 Hz 10, 25 and 50 samples: trunc(10 + 15 + 10 * 0.05) * 5 and so on
    QCOMPARE(diameters, QList<double>({125, 205, 335}));
    QVERIFY(legend.height > 335);
    QCOMPARE(textsOf(legend.drawing).mid(1).join(u'|'), QStringLiteral("100 ms|250 ms|500 ms"));
    const PictureLegend narrow = pictureLegend({}, toy.context(), QRectF(0, 0, 700, 500));
    QCOMPARE(textsOf(narrow.drawing).last(), QStringLiteral("100 ms"));
    toy.fixations.showOriginalSize = true;
    QCOMPARE(textsOf(pictureLegend({}, toy.context(), QRectF(0, 0, 2560, 1600)).drawing).size(), 1);
}

void TestLegends::nothingToTell()
{
    toy::Scenery toy;
    toy.fixations.visualizationMode = toy.gazePoints.visualizationMode = 0;
    toy.model.examinations() = {examination()};
    QCOMPARE(pictureLegend({}, toy.context(), QRectF(0, 0, 100, 100)).height, 0.0);
}

QTEST_MAIN(TestLegends)
#include "TestLegends.moc"
