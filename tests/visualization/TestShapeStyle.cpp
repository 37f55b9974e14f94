// SPDX-License-Identifier: GPL-3.0-or-later
#include "ToyData.h"
#include "visualization/shapes/ShapeStyle.h"

#include <QPalette>
#include <QTest>

class TestShapeStyle : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void opacity_data();
    void opacity();
    void colorsFollowTheEye();
    void theMeanHasTheColorOfTheDominantEye();
    void eyeOfWhatIsOneForTheChoice();
    void colorsOfTheGroup();
    void groupsThatAreNone_data();
    void groupsThatAreNone();
    void groupWithoutColorPaintsBlack();
    void negativeWidthCountsAsZero();
};

namespace {

toy::Scenery withGroup()
{
    Group group;
    group.name = QStringLiteral("experts");
    group.colorsDominant[QStringLiteral("FixationVisualization")] = QColor(10, 20, 30);
    group.colorsLeft[QStringLiteral("FixationVisualization")] = QColor(40, 50, 60);
    group.colorsRight[QStringLiteral("FixationVisualization")] = QColor(70, 80, 90);
    toy::Scenery scenery;
    scenery.model.setGroups({group});
    return scenery;
}

ShapeStyle styleOf(const toy::Scenery &scenery, const QString &groupName, Eye eye)
{
    Examination examination;
    examination.groupName = groupName;
    return shapeStyle(examination, eye, scenery.model, scenery.fixations);
}

} // namespace

void TestShapeStyle::opacity_data()
{
    QTest::addColumn<int>("percent");
    QTest::addColumn<int>("alpha");
    QTest::newRow("invisible") << 0 << 0;
    QTest::newRow("10 * 2.55 = 25.5") << 10 << 25;
    QTest::newRow("half: 50 * 2.55 = 127.5") << 50 << 127;
    // The double next to 2.55 is 2.54999999999999982; a hundred of them are 254.99999999999997.
    QTest::newRow("full stays just below 255") << 100 << 254;
    QTest::newRow("more than full") << 1000 << 255;
    QTest::newRow("less than nothing") << -5 << 0;
}

void TestShapeStyle::opacity()
{
    QFETCH(int, percent);
    const QColor color = withOpacity(Qt::red, percent);
    QTEST(color.alpha(), "alpha");
    QCOMPARE(color.rgb(), QColor(Qt::red).rgb());
}

void TestShapeStyle::colorsFollowTheEye()
{
    toy::Scenery scenery;
    scenery.fixations.borderColorLeft = QColor(1, 2, 3);
    scenery.fixations.borderWidth = 4;
    const QString none = QStringLiteral("None");
    const ShapeStyle left = styleOf(scenery, none, Eye::Left);
    QCOMPARE(left.pen.color(), QColor(1, 2, 3));
    QCOMPARE(left.pen.width(), 4);
    QCOMPARE(left.brush.style(), Qt::SolidPattern);
    QCOMPARE(left.brush.color(), QColor(0, 255, 0, 127));
    QCOMPARE(styleOf(scenery, none, Eye::Right).brush.color(), QColor(0, 0, 255, 127));
    QCOMPARE(styleOf(scenery, none, Eye::Dominant).brush.color(), QColor(255, 0, 0, 127));
}

void TestShapeStyle::theMeanHasTheColorOfTheDominantEye()
{
    const toy::Scenery scenery = withGroup();
    QCOMPARE(fillColorOf(scenery.fixations, Eye::Mean), scenery.fixations.fillColor);
    const Group &group = scenery.model.groups().constFirst();
    QCOMPARE(fillColorOf(group, Eye::Mean, scenery.fixations), QColor(10, 20, 30));
}

void TestShapeStyle::eyeOfWhatIsOneForTheChoice()
{
    QCOMPARE(colorEyeOf(EyeMode::showAll), Eye::Dominant);
    QCOMPARE(colorEyeOf(EyeMode::showDominant), Eye::Dominant);
    QCOMPARE(colorEyeOf(EyeMode::showLeft), Eye::Left);
    QCOMPARE(colorEyeOf(EyeMode::showRight), Eye::Right);
    QCOMPARE(colorEyeOf(EyeMode::showMean), Eye::Mean);
}

void TestShapeStyle::colorsOfTheGroup()
{
    toy::Scenery scenery = withGroup();
    scenery.fixations.borderType = 2;
    const QString experts = QStringLiteral("experts");
    QCOMPARE(styleOf(scenery, experts, Eye::Dominant).brush.color(), QColor(10, 20, 30, 127));
    QCOMPARE(styleOf(scenery, experts, Eye::Left).brush.color(), QColor(40, 50, 60, 127));
    QCOMPARE(styleOf(scenery, experts, Eye::Right).brush.color(), QColor(70, 80, 90, 127));
    QCOMPARE(styleOf(scenery, experts, Eye::Left).pen.color(), QPalette(QColor(40, 50, 60)).dark().color());
}

void TestShapeStyle::groupsThatAreNone_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("none") << QStringLiteral("None");
    QTest::newRow("a group that was removed") << QStringLiteral("novices");
}

void TestShapeStyle::groupsThatAreNone()
{
    QFETCH(QString, name);
    QCOMPARE(styleOf(withGroup(), name, Eye::Dominant).brush.color(), QColor(255, 0, 0, 127));
}

void TestShapeStyle::groupWithoutColorPaintsBlack()
{
    toy::Scenery scenery = withGroup();
    scenery.fixations.settingsName = QStringLiteral("SaccadeVisualization");
    const ShapeStyle style = styleOf(scenery, QStringLiteral("experts"), Eye::Left);
    QVERIFY(!style.pen.color().isValid());
    QCOMPARE(style.pen.color().rgb(), QColor(Qt::black).rgb());
}

void TestShapeStyle::negativeWidthCountsAsZero()
{
    toy::Scenery scenery;
    scenery.fixations.borderWidth = -3;
    QCOMPARE(styleOf(scenery, QStringLiteral("None"), Eye::Left).pen.width(), 0);
}

QTEST_GUILESS_MAIN(TestShapeStyle)
#include "TestShapeStyle.moc"
