// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/parameters/GroupColors.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// Colours that tell where they come from: red is the kind, green the eye.
VisualizationParameters parametersOf(int kind)
{
    VisualizationParameters parameters;
    parameters.fillColorLeft = QColor(kind, 1, 0);
    parameters.fillColorRight = QColor(kind, 2, 0);
    parameters.fillColor = QColor(kind, 3, 0);
    parameters.borderColor = QColor(Qt::black);
    return parameters;
}

Group::ColorTable fourKinds()
{
    const VisualizationParameters kinds[] = {parametersOf(1), parametersOf(2), parametersOf(3), parametersOf(4)};
    return groupColors({{&kinds[0], &kinds[1], &kinds[2], &kinds[3]}});
}

} // namespace

class TestGroupColors : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void entries();
    void reachTheirPlaceInTheGroup_data();
    void reachTheirPlaceInTheGroup();
    void anInvalidColorStaysInvalid();
};

void TestGroupColors::entries()
{
    const Group::ColorTable expected{
        {u"gazepointsLeft"_s, QColor(1, 1, 0)},
        {u"gazepointsRight"_s, QColor(1, 2, 0)},
        {u"gazepointsDominant"_s, QColor(1, 3, 0)},
        {u"fixationsLeft"_s, QColor(2, 1, 0)},
        {u"fixationsRight"_s, QColor(2, 2, 0)},
        {u"fixationsDominant"_s, QColor(2, 3, 0)},
        {u"fixationClustersLeft"_s, QColor(3, 1, 0)},
        {u"fixationClustersRight"_s, QColor(3, 2, 0)},
        {u"fixationClustersDominant"_s, QColor(3, 3, 0)},
        {u"saccadesLeft"_s, QColor(4, 1, 0)},
        {u"saccadesRight"_s, QColor(4, 2, 0)},
        {u"saccadesDominant"_s, QColor(4, 3, 0)},
    };
    QCOMPARE(fourKinds(), expected);
}

void TestGroupColors::reachTheirPlaceInTheGroup_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("GazepointVisualization") << 1;
    QTest::newRow("FixationVisualization") << 2;
    QTest::newRow("FixationclusterVisualization") << 3;
    QTest::newRow("SaccadeVisualization") << 4;
}

void TestGroupColors::reachTheirPlaceInTheGroup()
{
    QFETCH(int, kind);
    const QString key = QString::fromLatin1(QTest::currentDataTag());
    const Group group(u"g"_s, fourKinds());
    QCOMPARE(group.colorsLeft.value(key), QColor(kind, 1, 0));
    QCOMPARE(group.colorsRight.value(key), QColor(kind, 2, 0));
    QCOMPARE(group.colorsDominant.value(key), QColor(kind, 3, 0));
}

void TestGroupColors::anInvalidColorStaysInvalid()
{
    const VisualizationParameters none;
    const Group::ColorTable colors = groupColors({{&none, &none, &none, &none}});
    QCOMPARE(colors.size(), 12);
    for (const QColor &color : colors)
        QVERIFY(!color.isValid());
}

QTEST_GUILESS_MAIN(TestGroupColors)
#include "TestGroupColors.moc"
