// SPDX-License-Identifier: GPL-3.0-or-later
#include "recipe/Recipe.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace recipe;

namespace {

/// Each kind of step, with every field that it can have.
QList<Step> everyStep()
{
    return {
        Import{{u"/data/a.data"_s, u"b.data"_s}},
        Filter{{{u"sex"_s, u"f"_s}}},
        LeaveOut{{u"a"_s}},
        Groups{{{u"b"_s, u"old"_s}}},
        CompareBy{u"age"_s},
        Time{},
        Time{TimeFrame{100, 5000}},
        CutEdges{},
        CutEdges{QSize(1280, 1024)},
        Areas{{{u"face"_s, QPolygon({{0, 0}, {-5, 10}, {10, 10}}), true}, {u"off"_s, QPolygon(), false}}},
        Set{u"Calculation/Fixation/CalculationType"_s, u"Standard"_s},
        Fixations{StandardParameters{.minimumDurationMs = 1, .maximumRadiusPx = 2, .allowedOutliers = 3}},
        Fixations{MixtureParameters{.minimumDurationMs = 4, .mergeSequential = true}},
        Fixations{VelocityParameters{.minimumDurationMs = 5, .threshold = 6.5, .unit = VelocityUnit::PixelPerMs}},
        Fixations{VelocityParameters{.minimumDurationMs = 5,
                                     .threshold = 6.5,
                                     .unit = VelocityUnit::DegreePerS,
                                     .screenDistanceM = 0.6,
                                     .imageSizeM = 0.4,
                                     .imageWidthPx = 1280}},
        Clusters{StandardClusterParameters{.minimumFixations = 1, .overlapAllowed = 2, .maximumRadiusPx = 3}, false},
        Clusters{MeanShiftClusterParameters{.radiusPx = 1.5, .rate = 0.25, .iterations = 3, .minimumFixations = 4},
                 true},
        Clusters{OverlapClusterParameters{.minimumFixations = 1, .outliers = 2}, true},
        Clusters{OverlapClusterParameters{.minimumFixations = 1, .outliers = {}}, false},
        Statistics{u"general-statistics"_s},
        Export{
            .table = u"fixations"_s, .eyes = EyeMode::showMean, .prefix = u"p"_s, .folder = u"f"_s, .transitions = {}},
        Export{.table = u"transitions"_s,
               .eyes = EyeMode::showAll,
               .prefix = {},
               .folder = {},
               .transitions = Transitions{{u"own"_s, u"aoi"_s}, {u"absolute"_s}}}};
}

QByteArray withSteps(const QByteArray &steps)
{
    return R"({"recipe":"vistrum","version":1,"release":"1.0","settings":{},"notReplayed":[],"steps":[)" + steps + "]}";
}

void row(const char *name, const QByteArray &bytes, const char *reason)
{
    QTest::newRow(name) << bytes << QString::fromUtf8(reason);
}

void step(const char *name, const char *json, const char *reason)
{
    row(name, withSteps(R"({"step":"time"},)" + QByteArray(json)), reason);
}

/// What is wrong within the second step.
void refusedSteps()
{
    step("unknown step", R"({"step":"dance"})",
         "step 2: step: expected one of import, filter, leave-out, groups, compare-by, time, cut-edges, areas, set, "
         "fixations, clusters, statistics, export, found \"dance\"");
    step("no object", "7",
         "step 2: step: expected one of import, filter, leave-out, groups, compare-by, time, cut-edges, areas, set, "
         "fixations, clusters, statistics, export, found nothing");
    step("a field of another step", R"({"step":"import","recordings":[],"eyes":"all"})",
         "step 2: import: eyes: not known here; known are step, recordings");
    step("a recording that is no text", R"({"step":"import","recordings":["a",2]})",
         "step 2: import: recordings: expected a list of texts, found 2");
    step("time backwards", R"({"step":"time","startMs":5,"endMs":4})",
         "step 2: time: endMs: expected a whole number from 5 to 9007199254740992, found 4");
    step("half a time", R"({"step":"time","startMs":5})",
         "step 2: time: endMs: expected a whole number from 5 to 9007199254740992, found nothing");
    step("a time between", R"({"step":"time","startMs":0.5,"endMs":4})",
         "step 2: time: startMs: expected a whole number from 0 to 9007199254740992, found 0.5");
    step("a vertex of three", R"({"step":"areas","areas":[{"name":"a","vertices":[[1,2,3]],"enabled":true}]})",
         "step 2: areas: areas: number 1: vertices: expected pairs of whole numbers, of at most 1000000");
    step("a vertex too far", R"({"step":"areas","areas":[{"name":"a","vertices":[[1,1000001]],"enabled":true}]})",
         "step 2: areas: areas: number 1: vertices: expected pairs of whole numbers, of at most 1000000");
    step("an area without a name", R"({"step":"areas","areas":[{"name":"","vertices":[],"enabled":true}]})",
         "step 2: areas: areas: number 1: name: expected a text that is not empty");
    step("a detector that is not there", R"({"step":"fixations","parameters":{"detector":"magic"}})",
         "step 2: fixations: parameters: detector: expected one of standard, gaussian, velocity, found \"magic\"");
    step("a parameter of another detector",
         R"({"step":"fixations","parameters":{"detector":"gaussian","minimumDurationMs":1,"mergeSequential":true,
             "threshold":1}})",
         "step 2: fixations: parameters: threshold: not known here; known are detector, minimumDurationMs, "
         "mergeSequential");
    step("a negative duration",
         R"({"step":"fixations","parameters":{"detector":"gaussian","minimumDurationMs":-1,"mergeSequential":true}})",
         "step 2: fixations: parameters: minimumDurationMs: expected a whole number from 0 to 2147483647, found -1");
    step("a method that is not there", R"({"step":"clusters","pooled":true,"parameters":{"method":"x"}})",
         "step 2: clusters: parameters: method: expected one of standard, mean-shift, overlap, found \"x\"");
    step("eyes that are none", R"({"step":"export","table":"t","eyes":"third","prefix":"","folder":""})",
         "step 2: export: eyes: expected one of all, dominant, left, right, mean, found \"third\"");
    step("a size of nothing", R"({"step":"cut-edges","cut":true,"widthPx":0,"heightPx":5})",
         "step 2: cut-edges: widthPx: expected a whole number from 1 to 1000000, found 0");
}

} // namespace

class TestRecipe : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void roundTrip();
    void readByHand();
    void refused_data();
    void refused();
};

void TestRecipe::roundTrip()
{
    Recipe written{
        .release = u"1.0"_s, .settings = {{u"A/B"_s, u"x y"_s}}, .steps = everyStep(), .notReplayed = {u"a picture"_s}};
    const QByteArray bytes = toBytes(written);
    const auto read = recipe::read(bytes);
    if (const auto *problem = std::get_if<QString>(&read))
        QFAIL(qPrintable(*problem));
    const auto &found = std::get<Recipe>(read);
    QCOMPARE(found.release, written.release);
    QCOMPARE(found.settings, written.settings);
    QCOMPARE(found.notReplayed, written.notReplayed);
    QCOMPARE(found.steps.size(), written.steps.size());
    for (qsizetype i = 0; i < found.steps.size(); ++i)
        QCOMPARE(found.steps[i].index(), written.steps[i].index());
    QCOMPARE(toBytes(found), bytes); // and so each field
    QSet<size_t> kinds;
    for (const Step &step : found.steps)
        kinds.insert(step.index());
    QCOMPARE(kinds.size(), qsizetype(std::variant_size_v<Step>));
}

void TestRecipe::readByHand()
{
    const auto read = recipe::read(withSteps(R"({"step":"import","recordings":["a.data"]},
        {"step":"fixations","parameters":{"detector":"standard","minimumDurationMs":80,"maximumRadiusPx":40,
                                          "allowedOutliers":2}},
        {"step":"time","startMs":0,"endMs":10},
        {"step":"areas","areas":[{"name":"A","vertices":[[1,2],[3,4],[5,6]],"enabled":true}]},
        {"step":"export","table":"fixations","eyes":"dominant","prefix":"p","folder":""})"));
    QVERIFY(std::holds_alternative<Recipe>(read));
    const QList<Step> &steps = std::get<Recipe>(read).steps;
    QCOMPARE(std::get<Import>(steps[0]).recordings, QStringList{u"a.data"_s});
    const auto standard = std::get<StandardParameters>(std::get<Fixations>(steps[1]).parameters);
    QCOMPARE(standard.minimumDurationMs, 80);
    QCOMPARE(standard.maximumRadiusPx, 40);
    QCOMPARE(standard.allowedOutliers, 2);
    QCOMPARE(std::get<Time>(steps[2]), Time{(TimeFrame{0, 10})});
    QCOMPARE(std::get<Areas>(steps[3]).areas[0].polygon, QPolygon({{1, 2}, {3, 4}, {5, 6}}));
    QCOMPARE(std::get<Export>(steps[4]).eyes, EyeMode::showDominant);
}

void TestRecipe::refused_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("reason");
    row("empty", "", "it is no recipe: line 1: illegal value");
    row("a list", "[]", "it is no recipe: line 1: expected an object");
    row("another file", "{}", "it is no recipe: expected \"recipe\": \"vistrum\"");
    row("no version", R"({"recipe":"vistrum"})", "\"version\": expected 1");
    row("older version", R"({"recipe":"vistrum","version":0})", "\"version\": expected 1");
    row("newer version", R"({"recipe":"vistrum","version":2,"release":"9.1"})",
        "it was written by release 9.1 in version 2 of the form, which is newer than version 1, the one that this "
        "program reads: replay it with that release");
    row("no steps", R"({"recipe":"vistrum","version":1,"release":"1","settings":{},"notReplayed":[]})",
        "steps: expected a list, found nothing");
    row("more than is known",
        R"({"recipe":"vistrum","version":1,"release":"1","settings":{},"notReplayed":[],"steps":[],"x":1})",
        "x: not known here; known are recipe, version, release, settings, notReplayed, steps");
    row("a setting that is no text",
        R"({"recipe":"vistrum","version":1,"release":"1","settings":{"A":1},"notReplayed":[],"steps":[]})",
        "settings: A: expected a text, found 1");
    refusedSteps();
}

void TestRecipe::refused()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, reason);
    const auto read = recipe::read(bytes);
    const auto *problem = std::get_if<QString>(&read);
    QVERIFY(problem);
    QCOMPARE(*problem, reason);
}

QTEST_GUILESS_MAIN(TestRecipe)
#include "TestRecipe.moc"
