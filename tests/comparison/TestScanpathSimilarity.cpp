// SPDX-License-Identifier: GPL-3.0-or-later
#include "comparison/ScanpathSimilarity.h"

#include "base/Progress.h"
#include "comparison/ScanpathSamples.h"
#include "comparison/SimilarityExport.h"
#include "comparison/TimeWarping.h"
#include "TestMessages.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <cmath>

namespace {

std::size_t placeOf(const char *name)
{
    std::size_t place = 0;
    while (similarityMeasures()[place].name != QLatin1StringView(name))
        ++place;
    return place;
}

std::vector<SimilaritySet> compared(const DataModel &model, SimilarityTask task = {.eyes = EyeMode::showLeft})
{
    return compareScanpaths(model, task, {}).value();
}

QStringList linesOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()).split(u'\n') : QStringList();
}

} // namespace

class TestScanpathSimilarity : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void eachPairOnce();
    void equalScanpathsAreAlike();
    void onlyOnePictureAtATime();
    void eachEye();
    void uncheckedTakeNoPart();
    void fixationsOfTheFrame();
    void areas();
    void theSizeIsThatOfThePicture();
    void recordingsWithoutFixations();
    void anyNumberOfThreads();
    void stopping();
    void exportedTable();
    void exportedGroups();
    void nothingToExport();
};

void TestScanpathSimilarity::eachPairOnce()
{
    DataModel model;
    addRecordings(model, randomScanpaths(4, 10, 1));
    const auto sets = compared(model);
    QCOMPARE(sets.size(), 1U);
    QCOMPARE(sets[0].recordings.size(), 4);
    QCOMPARE(sets[0].recordings[2].recording, QStringLiteral("r3"));
    QCOMPARE(sets[0].recordings[2].subject, QStringLiteral("s3"));
    QCOMPARE(sets[0].picture, QStringLiteral("p.png"));
    QCOMPARE(sets[0].pairs.size(), 6U);
    for (const ScanpathPair &pair : sets[0].pairs) {
        QVERIFY(pair.first < pair.second);
        QCOMPARE(pair.values.size(), similarityMeasures().size());
        QCOMPARE(sets[0].value(pair.second, pair.first, 4), pair.values[4]);
    }
}

void TestScanpathSimilarity::equalScanpathsAreAlike()
{
    DataModel model;
    const FixationPath path = randomScanpaths(1, 12, 2)[0];
    addRecordings(model, {path, path});
    const std::vector<double> values = compared(model)[0].pairs[0].values;
    for (std::size_t i = 0; i < values.size(); ++i) {
        const SimilarityMeasure &measure = similarityMeasures()[i];
        const QByteArray name = QByteArray(measure.name.data(), measure.name.size());
        if (name.startsWith("aoi_"))
            QVERIFY2(std::isnan(values[i]), name); // there are no areas
        else if (name.startsWith("dtw_") || name == "center_of_recurrence_mass")
            QVERIFY2(std::abs(values[i]) < 1e-12, name);
        else if (name == "determinism_percent")
            QVERIFY2(values[i] > 0, name);
        else if (!name.endsWith("_percent"))
            QVERIFY2(std::abs(values[i] - 1) < 1e-12, name);
    }
}

void TestScanpathSimilarity::onlyOnePictureAtATime()
{
    DataModel model;
    addRecordings(model, randomScanpaths(2, 5, 3), QStringLiteral("a.png"));
    addRecordings(model, randomScanpaths(3, 5, 4), QStringLiteral("b.png"));
    addRecordings(model, randomScanpaths(1, 5, 5), QStringLiteral("c.png"));
    const auto sets = compared(model);
    QCOMPARE(sets.size(), 2U); // one recording has no partner
    QCOMPARE(sets[0].picture, QStringLiteral("a.png"));
    QCOMPARE(sets[0].pairs.size(), 1U);
    QCOMPARE(sets[1].pairs.size(), 3U);
}

void TestScanpathSimilarity::eachEye()
{
    DataModel model;
    addRecordings(model, randomScanpaths(2, 8, 6));
    model.examinations()[1].rightEye.scanpath = std::as_const(model).examinations()[0].rightEye.scanpath;
    const auto sets = compared(model, {});
    QCOMPARE(sets.size(), 2U);
    QCOMPARE(sets[0].eye, Eye::Left);
    QCOMPARE(sets[1].eye, Eye::Right);
    QVERIFY(sets[0].value(0, 1, placeOf("dtw_distance_px")) > 0);
    QCOMPARE(sets[1].value(0, 1, placeOf("dtw_distance_px")), 0.0);
}

void TestScanpathSimilarity::uncheckedTakeNoPart()
{
    DataModel model;
    addRecordings(model, randomScanpaths(3, 5, 7));
    model.examinations()[1].checked = false;
    const auto sets = compared(model);
    QCOMPARE(sets[0].recordings.size(), 2);
    QCOMPARE(sets[0].recordings[1].recording, QStringLiteral("r3"));
}

void TestScanpathSimilarity::fixationsOfTheFrame()
{
    DataModel model;
    addRecordings(model, {{{0, 0, 100}, {300, 0, 100}}, {{3, 4, 100}, {0, 700, 100}}});
    model.setTimeFrame({0, 150}); // the second fixation of each reaches beyond
    QCOMPARE(compared(model)[0].value(0, 1, placeOf("dtw_distance_px")), 5.0);
}

void TestScanpathSimilarity::areas()
{
    DataModel model;
    addRecordings(model, {{{10, 10, 100}, {110, 10, 100}, {900, 10, 100}, {10, 10, 100}},
                          {{20, 20, 100}, {20, 20, 100}, {20, 20, 100}}});
    for (const int left : {0, 100}) {
        AreaOfInterest area;
        area.name = QStringLiteral("area %1").arg(left);
        area.polygon = QPolygon(QRect(left, 0, 50, 50));
        model.insertAoi(area);
    }
    const auto sets = compared(model);
    // "aba" (the fixation at 900 is in no area) and "aaa"
    QCOMPARE(sets[0].value(0, 1, placeOf("aoi_levenshtein")), 2 / 3.0);
    QCOMPARE(sets[0].value(0, 1, placeOf("aoi_needleman_wunsch")), (1 - 1 + 1) / 3.0);
}

void TestScanpathSimilarity::theSizeIsThatOfThePicture()
{
    const QTemporaryDir folder;
    QImage picture(400, 300, QImage::Format_RGB32);
    picture.fill(Qt::white);
    QVERIFY(picture.save(folder.filePath(QStringLiteral("small.png"))));
    const QList<FixationPath> paths{{{0, 0, 100}, {100, 0, 100}, {100, 200, 100}},
                                    {{50, 0, 100}, {150, 0, 100}, {150, 200, 100}}};
    const auto positionOn = [&](const QString &path) {
        DataModel model;
        addRecordings(model, paths, path);
        return compared(model)[0].value(0, 1, placeOf("multimatch_position"));
    };
    QCOMPARE(positionOn(folder.filePath(QStringLiteral("small.png"))), 1 - 50 / 500.0);
    QCOMPARE(positionOn(QStringLiteral("none.png")), 1 - 50 / std::hypot(2560, 1600));
}

void TestScanpathSimilarity::recordingsWithoutFixations()
{
    DataModel model;
    addRecordings(model, {{}, {{1, 2, 3}}, {}});
    const auto sets = compared(model);
    for (const ScanpathPair &pair : sets[0].pairs) {
        for (std::size_t i = 0; i < pair.values.size(); ++i)
            QVERIFY2(std::isnan(pair.values[i]), similarityMeasures()[i].name.data());
    }
}

void TestScanpathSimilarity::anyNumberOfThreads()
{
    DataModel model;
    addRecordings(model, randomScanpaths(12, 25, 8));
    const auto one = compared(model, {.threads = 1});
    const auto four = compared(model, {.threads = 4});
    for (std::size_t set = 0; set < one.size(); ++set) {
        for (std::size_t pair = 0; pair < one[set].pairs.size(); ++pair) {
            const auto &a = one[set].pairs[pair].values;
            const auto &b = four[set].pairs[pair].values;
            QVERIFY(std::equal(a.begin(), a.end(), b.begin(), b.end(),
                               [](double x, double y) { return x == y || (std::isnan(x) && std::isnan(y)); }));
        }
    }
}

void TestScanpathSimilarity::stopping()
{
    DataModel model;
    addRecordings(model, randomScanpaths(30, 50, 9));
    std::stop_source stop;
    stop.request_stop();
    QVERIFY(!compareScanpaths(model, {.threads = 2}, stop.get_token()));
}

void TestScanpathSimilarity::exportedTable()
{
    DataModel model;
    addRecordings(model, {{{0, 0, 100}}, {{3, 4, 100}}});
    const QTemporaryDir folder;
    const RecordedMessages told;
    const ExportResult result =
        exportScanpathSimilarity(compared(model), {folder.path(), QStringLiteral("x"), EyeMode::showLeft}, 2);
    const QString path = folder.filePath(QStringLiteral("x_scanpath_similarity.csv"));
    QCOMPARE(result.written, QStringList{path});
    const QStringList lines = linesOf(path);
    QCOMPARE(lines.size(), qsizetype(similarityMeasures().size()) + 2);
    QCOMPARE(lines[0], QStringLiteral("picture,eye,recording_a,subject_a,recording_b,subject_b,measure,value"));
    QCOMPARE(lines[1], QStringLiteral("p.png,left,r1,s1,r2,s2,aoi_levenshtein,"));
    QVERIFY(lines.contains(QStringLiteral("p.png,left,r1,s1,r2,s2,dtw_distance_px,5")));
    QCOMPARE(told.texts(),
             QStringList{QStringLiteral("Scanpath similarity Export|Scanpath similarity exported to: ") + path});
}

void TestScanpathSimilarity::exportedGroups()
{
    DataModel model;
    addRecordings(model, {{{0, 0, 100}}, {{0, 1, 100}}, {{500, 0, 100}}, {{500, 3, 100}}});
    for (int i = 0; i < 4; ++i)
        model.examinations()[i].properties[QStringLiteral("task")] =
            i < 2 ? QStringLiteral("read") : QStringLiteral("search");
    const QTemporaryDir folder;
    const RecordedMessages told;
    exportScanpathSimilarity(compared(model, {.eyes = EyeMode::showLeft, .groupBy = QStringLiteral("task")}),
                             {folder.path(), QStringLiteral("x"), EyeMode::showLeft}, 2);
    const QStringList lines = linesOf(folder.filePath(QStringLiteral("x_scanpath_similarity_groups.csv")));
    QCOMPARE(lines[0],
             QStringLiteral("picture,eye,measure,comparison,group_a,group_b,subject_pairs,mean,p_permutation"));
    const QStringList warped = lines.filter(QStringLiteral("dtw_distance_px"));
    QCOMPARE(warped.size(), 6);
    QCOMPARE(warped[0], QStringLiteral("p.png,left,dtw_distance_px,within,read,read,1,1,"));
    QVERIFY(warped[1].startsWith(QStringLiteral("p.png,left,dtw_distance_px,between,read,search,4,500")));
    QCOMPARE(warped[2], QStringLiteral("p.png,left,dtw_distance_px,within,search,search,1,3,"));
    QCOMPARE(warped[3], QStringLiteral("p.png,left,dtw_distance_px,within,,,2,2,"));
    QVERIFY(warped[5].startsWith(QStringLiteral("p.png,left,dtw_distance_px,within-between,,,6,-498")));
    QVERIFY(warped[5].endsWith(QStringLiteral(",0.3333333333333333"))); // two of six
}

void TestScanpathSimilarity::nothingToExport()
{
    DataModel model;
    addRecordings(model, {{{0, 0, 100}}});
    const QTemporaryDir folder;
    const RecordedMessages told;
    const ExportResult result =
        exportScanpathSimilarity(compared(model), {folder.path(), QStringLiteral("x"), EyeMode::showLeft}, 2);
    QVERIFY(result.written.isEmpty());
    QCOMPARE(told.texts(),
             QStringList{QStringLiteral("Scanpath similarity Export|No two checked examinations show the same picture: "
                                        "there is nothing to compare.")});
}

QTEST_GUILESS_MAIN(TestScanpathSimilarity)
#include "TestScanpathSimilarity.moc"
