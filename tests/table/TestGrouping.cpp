// SPDX-License-Identifier: GPL-3.0-or-later
#include "table/Grouping.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

Examination withProperty(const QString &key, const QString &value)
{
    Examination examination;
    examination.properties.insert(key, value);
    return examination;
}

Group::ColorTable blueFixations()
{
    return {{u"fixationsLeft"_s, QColor(Qt::blue)}};
}

QStringList names(const DataModel &model)
{
    QStringList names;
    for (const Group &group : model.groups())
        names << group.name;
    return names;
}

/// "name index" of each examination.
QStringList memberships(const DataModel &model)
{
    QStringList texts;
    for (const Examination &examination : model.examinations())
        texts << examination.groupName + u' ' + QString::number(examination.groupIndex);
    return texts;
}

} // namespace

class TestGrouping : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void byDominantEye();
    void aGroupOfThatNameIsUsed();
    void ofGroupsOfTheSameNameTheFirstIsUsed();
    void withoutThePropertyThereIsNoGroup();
    void anEmptyValueIsAName();
    void newGroupsHaveTheColors();
    void groupingSharesSamples();
    void onlyTheWorkingListIsGrouped();
    void keepingKnownGroups_data();
    void keepingKnownGroups();
    void colorOfEverySample();
    void colorOfOneLeavesTheOthersShared();
};

void TestGrouping::byDominantEye()
{
    DataModel model;
    for (const QString &eye : {u"left"_s, u"right"_s, u"invalid"_s, u"left"_s})
        model.examinations() << withProperty(u"dominant"_s, eye);
    groupBy(model, u"dominant"_s, {});
    QCOMPARE(names(model), QStringList({u"left"_s, u"right"_s, u"invalid"_s}));
    QCOMPARE(memberships(model), QStringList({u"left 0"_s, u"right 1"_s, u"invalid 2"_s, u"left 0"_s}));
}

void TestGrouping::aGroupOfThatNameIsUsed()
{
    DataModel model;
    const Group other(u"other"_s, {});
    const Group left(u"left"_s, {{u"saccadesLeft"_s, QColor(Qt::green)}});
    model.setGroups({other, left});
    model.examinations() << withProperty(u"dominant"_s, u"left"_s);
    groupBy(model, u"dominant"_s, blueFixations());
    QCOMPARE(model.groups(), QList<Group>({other, left})); // its colours, too, are as they were
    QCOMPARE(memberships(model), QStringList{u"left 1"_s});
}

void TestGrouping::ofGroupsOfTheSameNameTheFirstIsUsed()
{
    DataModel model;
    model.setGroups({Group(u"a"_s, {}), Group(u"b"_s, {}), Group(u"b"_s, {})});
    model.examinations() << withProperty(u"key"_s, u"b"_s);
    groupBy(model, u"key"_s, {});
    QCOMPARE(memberships(model), QStringList{u"b 1"_s});
}

void TestGrouping::withoutThePropertyThereIsNoGroup()
{
    DataModel model;
    model.examinations() << withProperty(u"age"_s, u"30"_s) << Examination();
    assignGroup(model.examinations()[1], u"before"_s, 3);
    groupBy(model, u"age"_s, {});
    QCOMPARE(memberships(model), QStringList({u"30 0"_s, u"None 0"_s}));
    QCOMPARE(names(model), QStringList{u"30"_s});
}

void TestGrouping::anEmptyValueIsAName()
{
    DataModel model;
    model.examinations() << withProperty(u"age"_s, QString());
    groupBy(model, u"age"_s, {});
    QCOMPARE(names(model), QStringList{QString()});
}

void TestGrouping::newGroupsHaveTheColors()
{
    DataModel model;
    model.examinations() << withProperty(u"age"_s, u"30"_s);
    groupBy(model, u"age"_s, blueFixations());
    QCOMPARE(model.groups(), QList<Group>{Group(u"30"_s, blueFixations())});
    QCOMPARE(model.groups().constFirst().colorsLeft.value(u"FixationVisualization"_s), QColor(Qt::blue));
}

void TestGrouping::groupingSharesSamples()
{
    DataModel model;
    model.examinations() << withProperty(u"age"_s, u"30"_s);
    model.examinations()[0].leftEye.gazePoints = {GazePoint(0, 1, 1, 1, 1, 1)};
    model.allExaminations() = model.examinations();
    groupBy(model, u"age"_s, {});
    const DataModel &done = model;
    QCOMPARE(done.examinations()[0].leftEye.gazePoints.constData(),
             done.allExaminations()[0].leftEye.gazePoints.constData());
}

void TestGrouping::onlyTheWorkingListIsGrouped()
{
    DataModel model;
    model.examinations() << withProperty(u"age"_s, u"30"_s);
    model.allExaminations() = model.examinations();
    groupBy(model, u"age"_s, {});
    QCOMPARE(model.allExaminations().constFirst().groupName, u"None"_s);
}

void TestGrouping::keepingKnownGroups_data()
{
    QTest::addColumn<QStringList>("known");
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("index");
    QTest::newRow("the first") << QStringList{u"a"_s, u"b"_s} << u"a"_s << 0;
    QTest::newRow("moved back") << QStringList{u"b"_s, u"a"_s} << u"a"_s << 1;
    QTest::newRow("gone") << QStringList{u"b"_s} << u"None"_s << 0;
    QTest::newRow("only in capitals the same") << QStringList{u"A"_s} << u"None"_s << 0;
    QTest::newRow("no groups left") << QStringList() << u"None"_s << 0;
}

void TestGrouping::keepingKnownGroups()
{
    QFETCH(QStringList, known);
    Examination examination;
    assignGroup(examination, u"a"_s, 7);
    keepKnownGroup(examination, known);
    QTEST(examination.groupName, "name");
    QTEST(examination.groupIndex, "index");
}

void TestGrouping::colorOfEverySample()
{
    constexpr QRgb teal = qRgba(0, 128, 128, 255);
    Examination examination;
    for (EyeData *eye : {&examination.leftEye, &examination.rightEye, &examination.meanEye})
        eye->gazePoints = {GazePoint(0, 1, 1, 1, 1, 1), GazePoint(4, 1, 1, 1, 1, 0)};
    setGazePointColor(examination, teal);
    for (const EyeData *eye : {&examination.leftEye, &examination.rightEye, &examination.meanEye}) {
        for (const GazePoint &point : eye->gazePoints)
            QCOMPARE(point.color, teal);
    }
    QCOMPARE(examination.properties.value(u"Color"_s), u"4278222976"_s); // 0xff008080
}

void TestGrouping::colorOfOneLeavesTheOthersShared()
{
    Examination first;
    first.leftEye.gazePoints = {GazePoint(0, 1, 1, 1, 1, 1)};
    QList<Examination> list{first, first};
    setGazePointColor(list[0], qRgb(1, 2, 3));
    QCOMPARE(first.leftEye.gazePoints.at(0).color, qRgba(255, 0, 0, 255));
    QCOMPARE(list.at(1).leftEye.gazePoints.constData(), std::as_const(first).leftEye.gazePoints.constData());
}

QTEST_GUILESS_MAIN(TestGrouping)
#include "TestGrouping.moc"
