// SPDX-License-Identifier: GPL-3.0-or-later
#include "recipe/RecipeBuilder.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace recipe;

namespace {

const QMap<QString, QString> delivered{{u"A"_s, u"1"_s}, {u"B"_s, u"2"_s}};
const Step table =
    Export{.table = u"fixations"_s, .eyes = EyeMode::showAll, .prefix = {}, .folder = {}, .transitions = {}};

Context context()
{
    Context made;
    made.settings = delivered;
    made.comparedBy = DataModel().comparedBy;
    return made;
}

QStringList words(const RecipeBuilder &builder)
{
    QStringList all;
    for (const Step &step : builder.recipe().steps)
        all << wordOf(step);
    return all;
}

} // namespace

class TestRecipeBuilder : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void stepsAlone();
    void changesStandBeforeTheStep_data();
    void changesStandBeforeTheStep();
    void settings();
    void choicesAfterAFilter();
    void contextOfAModel();
};

void TestRecipeBuilder::stepsAlone()
{
    RecipeBuilder builder(u"1"_s, delivered);
    builder.add(context(), Import{{u"a.data"_s}});
    builder.add(context(), table);
    builder.leaveOut(u"x"_s);
    QCOMPARE(words(builder), (QStringList{u"import"_s, u"export"_s}));
    QCOMPARE(builder.recipe().release, u"1"_s);
    QVERIFY(builder.recipe().settings.isEmpty());
    QCOMPARE(builder.recipe().notReplayed, QStringList{u"x"_s});
}

void TestRecipeBuilder::changesStandBeforeTheStep_data()
{
    QTest::addColumn<QString>("word");
    QTest::addColumn<Context>("changed");
    Context other = context();
    other.leftOut = {u"a"_s};
    QTest::newRow("left out") << u"leave-out"_s << other;
    other = context();
    other.groups = {{u"a"_s, u"g"_s}};
    QTest::newRow("groups") << u"groups"_s << other;
    other = context();
    other.comparedBy = u"age"_s;
    QTest::newRow("compared by") << u"compare-by"_s << other;
    other = context();
    other.areas = {{u"a"_s, QPolygon({{1, 1}}), true}};
    QTest::newRow("areas") << u"areas"_s << other;
    other = context();
    other.frame = TimeFrame{1, 2};
    QTest::newRow("time") << u"time"_s << other;
    other = context();
    other.cutPicturePx = QSize(3, 4);
    QTest::newRow("edges") << u"cut-edges"_s << other;
}

void TestRecipeBuilder::changesStandBeforeTheStep()
{
    QFETCH(QString, word);
    QFETCH(Context, changed);
    RecipeBuilder builder(u"1"_s, delivered);
    builder.add(context(), table);
    builder.add(changed, table);   // there it is
    builder.add(changed, table);   // nothing new
    builder.add(context(), table); // and back
    QCOMPARE(words(builder), (QStringList{u"export"_s, word, u"export"_s, u"export"_s, word, u"export"_s}));
}

/// Those that differ from the delivered ones where the work begins stand at the head; later each is a step.
void TestRecipeBuilder::settings()
{
    RecipeBuilder builder(u"1"_s, delivered);
    Context changed = context();
    changed.settings[u"A"_s] = u"7"_s;
    builder.add(changed, Import{{u"a.data"_s}});
    changed.settings[u"B"_s] = u"8"_s;
    builder.add(changed, table);
    changed.settings[u"A"_s] = u"1"_s;
    builder.add(changed, table);
    QCOMPARE(builder.recipe().settings, (QMap<QString, QString>{{u"A"_s, u"7"_s}}));
    QCOMPARE(words(builder), (QStringList{u"import"_s, u"set"_s, u"export"_s, u"set"_s, u"export"_s}));
    QCOMPARE(std::get<Set>(builder.recipe().steps[1]), (Set{u"B"_s, u"8"_s}));
    QCOMPARE(std::get<Set>(builder.recipe().steps[3]), (Set{u"A"_s, u"1"_s}));
}

/// What a filter leaves depends on the recordings: what held is stated, so that the same ones give the same.
void TestRecipeBuilder::choicesAfterAFilter()
{
    RecipeBuilder builder(u"1"_s, delivered);
    builder.add(context(), Import{{u"a.data"_s}});
    builder.add(context(), Filter{{{u"sex"_s, u"f"_s}}});
    builder.add(context(), table);
    builder.add(context(), table);
    QCOMPARE(words(builder), (QStringList{u"import"_s, u"filter"_s, u"leave-out"_s, u"export"_s, u"export"_s}));
}

void TestRecipeBuilder::contextOfAModel()
{
    DataModel model;
    for (const QString &name : {u"a"_s, u"b"_s}) {
        Examination examination;
        examination.baseName = name;
        examination.leftEye.gazePoints << GazePoint(0, 1, 1, 0, 0, 1) << GazePoint(500, 1, 1, 0, 0, 1);
        model.examinations() << examination;
    }
    model.examinations()[1].checked = false;
    model.examinations()[1].groupName = u"g"_s;
    model.insertAoi(AreaOfInterest(u"z"_s, QPolygon({{1, 2}})));
    model.setTimeFrame({0, 500});
    Context found = contextOf(model, QSize(5, 6), delivered);
    QCOMPARE(found.settings, delivered);
    QCOMPARE(found.leftOut, QStringList{u"b"_s});
    QCOMPARE(found.groups, (QMap<QString, QString>{{u"b"_s, u"g"_s}}));
    QCOMPARE(found.areas, (QList<Areas::Area>{{u"z"_s, QPolygon({{1, 2}}), true}}));
    QVERIFY(!found.frame && !found.cutPicturePx);
    model.setTimeFrame({10, 500});
    model.samplesAreCut = true;
    found = contextOf(model, QSize(5, 6), delivered);
    QCOMPARE(found.frame, (TimeFrame{10, 500}));
    QCOMPARE(found.cutPicturePx, QSize(5, 6));
}

QTEST_GUILESS_MAIN(TestRecipeBuilder)
#include "TestRecipeBuilder.moc"
