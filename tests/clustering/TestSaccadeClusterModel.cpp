// SPDX-License-Identifier: GPL-3.0-or-later
#include "clustering/SaccadeClusterModel.h"
#include "model/DataModel.h"
#include "ProgressLabels.h"
#include "SaccadeSamples.h"
#include "TestMessages.h"

#include <QSignalSpy>
#include <QTest>

#include <memory>

using samples::examinationAt;

class TestSaccadeClusterModel : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void initialValues();
    void withoutModelNothingHappens();
    void wholePipelineByHand();
    void directionsThatDoNotCount();
    void linkagesDecideHeights();
    void manhattanCounts();
    void onlyCheckedExaminations();
    void recordingsAreNotLinked();
    void dominantEyeCounts();
    void timeSpanCounts();
    void singleVectorPassesThrough();
    void angleClusterOfOneVectorIsALeaf();
    void earlierResultsGoWhenAStageEndsAtOnce();
    void signalsInOrder();
    void nothingToDoGivesNoSignal();
    void anotherTimeSpanRunsEverything();
    void parameterResetsItsStage_data();
    void parameterResetsItsStage();
    void stageIsNeverRaised();
    void changeRunsOnlyWhatFollows();
    void progressTexts();
    void tooManyVectorsAreToldAndNothingIsKept();
    void asManyAsAllowedAreClustered();

private:
    QStringList signalsOfRun();

    std::unique_ptr<DataModel> m_data;
    std::unique_ptr<SaccadeClusterModel> m_model;
};

namespace {

using P = SaccadeClusterParameters;
using Change = void (*)(SaccadeClusterModel &);

/// Three times from left to right and back, each 40 px below the one before: 0-1-2-3-4-5.
QList<QPoint> rows()
{
    return {{100, 100}, {500, 100}, {100, 140}, {500, 140}, {100, 180}, {500, 180}};
}

QList<QList<QLine>> linesOf(const SaccadeClusterList &clusters)
{
    QList<QList<QLine>> lines;
    for (const QList<SaccadeVector> &cluster : clusters) {
        lines << QList<QLine>();
        for (const SaccadeVector &vector : cluster)
            lines.last() << QLine(vector.start, vector.end);
    }
    return lines;
}

QLine between(int from, int to)
{
    return {rows()[from], rows()[to]};
}

} // namespace

void TestSaccadeClusterModel::init()
{
    m_data = std::make_unique<DataModel>();
    m_data->setTimeFrame({0, 1'000'000'000});
    m_data->examinations() << examinationAt(rows());
    m_model = std::make_unique<SaccadeClusterModel>();
    m_model->setModel(m_data.get());
    m_model->set(stagedrows::minimumAngleQuantity, 1);
}

/// What has been done since the last stage, in words.
QStringList TestSaccadeClusterModel::signalsOfRun()
{
    QStringList names;
    const QObject context;
    const auto note = [&](void (SaccadeClusterModel::*signal)(), const QString &name) {
        connect(m_model.get(), signal, &context, [&names, name] { names << name; });
    };
    using M = SaccadeClusterModel;
    note(&M::sigPreProcessingDone, QStringLiteral("vectors"));
    note(&M::sigAngleMatrixDone, QStringLiteral("angle matrix"));
    note(&M::sigAngleTreeDone, QStringLiteral("angle tree"));
    note(&M::sigAngleClusterDone, QStringLiteral("angle clusters"));
    note(&M::sigDistanceMatrixDone, QStringLiteral("distance matrix"));
    note(&M::sigDistanceTreeDone, QStringLiteral("distance tree"));
    note(&M::sigDistanceClusterDone, QStringLiteral("distance clusters"));
    m_model->cluster();
    return names;
}

void TestSaccadeClusterModel::initialValues()
{
    const SaccadeClusterModel model;
    const P &p = model.parameters();
    QCOMPARE(p.minimumLength, 0);
    QCOMPARE(p.minimumAngleDifference, 0);
    QCOMPARE(p.distanceCutoff, 25);
    QCOMPARE(p.angleCutoff, 10);
    QCOMPARE(p.minimumAngleQuantity, 10);
    QCOMPARE(p.minimumDistanceQuantity, 1);
    QCOMPARE(p.distanceLinkage, 2);
    QCOMPARE(p.angleLinkage, 1);
    QCOMPARE(p.distanceAlgorithm, 0);
    QCOMPARE(p.directionDependent, true);
    QCOMPARE(model.stage(), SaccadeClusterStage::PreProcessing);
}

void TestSaccadeClusterModel::withoutModelNothingHappens()
{
    m_model->setModel(nullptr);
    QVERIFY(!m_model->hasExaminations());
    QCOMPARE(signalsOfRun(), QStringList());
    QCOMPARE(m_model->stage(), SaccadeClusterStage::PreProcessing);
}

/// To the right are 0-1, 2-3, 4-5 at 360 degrees; back are 1-2 and 3-4 at atan2(40, -400) = 174.3 degrees. The ways to
/// the right are 40 apart: the starts of both lie at t = 0 of the other. The ways back, too.
void TestSaccadeClusterModel::wholePipelineByHand()
{
    m_model->cluster();
    QCOMPARE(m_model->stage(), SaccadeClusterStage::Done);
    QCOMPARE(m_model->vectors().size(), 5);
    QCOMPARE(m_model->angleMatrices().size(), 1);
    QCOMPARE(m_model->angleMatrices()[0].distances.at(0, 1), 174);
    QCOMPARE(m_model->angleTrees()[0].root().height, 174);
    const QList<QLine> right{between(0, 1), between(2, 3), between(4, 5)};
    const QList<QLine> back{between(1, 2), between(3, 4)};
    QCOMPARE(linesOf(m_model->angleClusters()), (QList<QList<QLine>>{back, {right[2], right[0], right[1]}}));
    QCOMPARE(m_model->distanceMatrices()[0].distances.at(0, 1), 40);
    m_model->set(stagedrows::distanceCutoff, 39);
    m_model->cluster();
    QCOMPARE(m_model->distanceClusters().size(), 5); // each for itself
    m_model->set(stagedrows::distanceCutoff, 40);
    m_model->cluster();
    QCOMPARE(m_model->distanceClusters().size(), 2);
    m_model->set(stagedrows::minimumDistanceQuantity, 3);
    m_model->cluster();
    QCOMPARE(m_model->distanceClusters().size(), 1);
    QCOMPARE(m_model->distanceClusters()[0].size(), 3);
    m_model->set(stagedrows::minimumAngleQuantity, 4);
    m_model->cluster();
    QCOMPARE(m_model->angleClusters().size(), 0);
    QCOMPARE(m_model->distanceClusters().size(), 0);
}

void TestSaccadeClusterModel::directionsThatDoNotCount()
{
    m_data->examinations() = {examinationAt({{100, 100}, {500, 100}, {100, 100}})};
    m_model->set(stagedrows::minimumAngleDifference, -1); // else both are joined
    m_model->set(stagedrows::angleCutoff, 0);
    m_model->cluster();
    QCOMPARE(m_model->angleClusters().size(), 2);
    m_model->set(stagedrows::directionDependent, false);
    m_model->cluster();
    QCOMPARE(m_model->angleMatrices()[0].distances.at(0, 1), 0);
    QCOMPARE(m_model->angleClusters().size(), 1);
}

/// The ways to the right are 40, 40 and 80 apart.
void TestSaccadeClusterModel::linkagesDecideHeights()
{
    const auto height = [this](Linkage linkage) {
        m_model->set(stagedrows::distanceLinkage, static_cast<int>(linkage));
        m_model->cluster();
        return m_model->distanceTrees()[1].root().height;
    };
    QCOMPARE(height(Linkage::Minimum), 40);
    QCOMPARE(height(Linkage::Average), 60);
    QCOMPARE(height(Linkage::Maximum), 80);
}

void TestSaccadeClusterModel::manhattanCounts()
{
    m_data->examinations() = {examinationAt({{100, 100}, {500, 100}, {510, 130}, {910, 130}})};
    m_model->set(stagedrows::angleCutoff, 180);
    m_model->cluster();
    // 0: (100,100)-(500,100) and 2: (510,130)-(910,130) are nearest where the start of 2 has t = 1.03 on 0, to the sum
    // (600,200), or from the end of 0 to the start of 2: (10,30), sqrt(1000) = 31.6.
    const auto distance = [this] {
        const SaccadeGroup &group = m_model->distanceMatrices()[0];
        const auto place = [&](QPoint start) {
            const auto found = std::find_if(group.vectors.begin(), group.vectors.end(),
                                            [&](const SaccadeVector &vector) { return vector.start == start; });
            return static_cast<size_t>(found - group.vectors.begin());
        };
        return group.distances.at(place({100, 100}), place({510, 130}));
    };
    QCOMPARE(distance(), 31);
    m_model->set(stagedrows::distanceAlgorithm, 1);
    m_model->cluster();
    QCOMPARE(distance(), 40);
}

void TestSaccadeClusterModel::onlyCheckedExaminations()
{
    m_data->examinations() << examinationAt({{1, 2}, {3, 4}});
    m_data->examinations()[0].checked = false;
    m_model->cluster();
    QCOMPARE(m_model->vectors(), QList{SaccadeVector({1, 2}, {3, 4}, 100, 100)});
}

void TestSaccadeClusterModel::recordingsAreNotLinked()
{
    m_data->examinations() = {examinationAt({{100, 100}, {500, 100}}), examinationAt({}),
                              examinationAt({{500, 100}, {900, 100}})};
    m_model->set(stagedrows::minimumAngleDifference, 90); // joins all of one recording
    m_model->cluster();
    QCOMPARE(m_model->vectors(),
             (QList{SaccadeVector({100, 100}, {500, 100}, 100, 100), SaccadeVector({500, 100}, {900, 100}, 100, 100)}));
}

void TestSaccadeClusterModel::dominantEyeCounts()
{
    m_data->examinations()[0].leftEye = samples::scanpathAt({{1, 2}, {3, 4}});
    m_data->examinations()[0].dominantEye = QStringLiteral("left");
    m_model->cluster();
    QCOMPARE(m_model->vectors(), QList{SaccadeVector({1, 2}, {3, 4}, 100, 100)});
}

void TestSaccadeClusterModel::timeSpanCounts()
{
    m_data->setTimeFrame({100, 200});
    m_model->cluster();
    QCOMPARE(m_model->vectors(), QList{SaccadeVector(rows()[1], rows()[2], 200, 200)});
}

void TestSaccadeClusterModel::singleVectorPassesThrough()
{
    m_data->examinations() = {examinationAt({{1, 2}, {3, 4}})};
    QCOMPARE(signalsOfRun().size(), 7);
    QCOMPARE(m_model->stage(), SaccadeClusterStage::Done);
    QCOMPARE(m_model->vectors().size(), 1);
    QVERIFY(m_model->angleMatrices().empty());
    QVERIFY(m_model->angleTrees().empty());
    QVERIFY(m_model->distanceClusters().isEmpty());
}

void TestSaccadeClusterModel::angleClusterOfOneVectorIsALeaf()
{
    m_data->examinations() = {examinationAt({{100, 100}, {500, 100}, {500, 400}})};
    m_model->cluster();
    QCOMPARE(m_model->angleClusters().size(), 2);
    QCOMPARE(m_model->distanceTrees().size(), 2);
    QCOMPARE(m_model->distanceTrees()[0].root().height, 0);
    QVERIFY(!m_model->distanceTrees()[0].root().left);
    QCOMPARE(linesOf(m_model->distanceClusters()),
             (QList<QList<QLine>>{{QLine(100, 100, 500, 100)}, {QLine(500, 100, 500, 400)}}));
}

void TestSaccadeClusterModel::earlierResultsGoWhenAStageEndsAtOnce()
{
    m_model->cluster();
    QCOMPARE(m_model->distanceClusters().size(), 5);
    m_model->set(stagedrows::minimumLength, 10'000);
    m_model->cluster();
    QCOMPARE(m_model->stage(), SaccadeClusterStage::Done);
    QVERIFY(m_model->vectors().isEmpty());
    QVERIFY(m_model->angleMatrices().empty());
    QVERIFY(m_model->angleTrees().empty());
    QVERIFY(m_model->angleClusters().isEmpty());
    QVERIFY(m_model->distanceMatrices().empty());
    QVERIFY(m_model->distanceTrees().empty());
    QVERIFY(m_model->distanceClusters().isEmpty());
}

void TestSaccadeClusterModel::signalsInOrder()
{
    QCOMPARE(signalsOfRun(), QString::fromLatin1("vectors,angle matrix,angle tree,angle clusters,distance matrix,"
                                                 "distance tree,distance clusters")
                                 .split(u','));
}

void TestSaccadeClusterModel::nothingToDoGivesNoSignal()
{
    m_model->cluster();
    QCOMPARE(signalsOfRun(), QStringList());
}

void TestSaccadeClusterModel::anotherTimeSpanRunsEverything()
{
    QVERIFY(!m_model->isOutdated()); // there are no vectors yet
    m_model->cluster();
    QVERIFY(!m_model->isOutdated());
    m_data->setTimeFrame({100, 200});
    QVERIFY(m_model->isOutdated());
    QCOMPARE(signalsOfRun().size(), 7);
    QVERIFY(!m_model->isOutdated());
    QCOMPARE(m_model->vectors(), QList{SaccadeVector(rows()[1], rows()[2], 200, 200)});
}

void TestSaccadeClusterModel::parameterResetsItsStage_data()
{
    QTest::addColumn<Change>("change");
    QTest::addColumn<int>("stage");
    const auto row = [](const char *name, int stage, Change change) { QTest::newRow(name) << change << stage; };
    row("minimum length", 0, [](auto &m) { m.set(stagedrows::minimumLength, 1); });
    row("minimum angle difference", 0, [](auto &m) { m.set(stagedrows::minimumAngleDifference, 1); });
    row("direction", 1, [](auto &m) { m.set(stagedrows::directionDependent, false); });
    row("angle linkage", 2, [](auto &m) { m.set(stagedrows::angleLinkage, 0); });
    row("angle cutoff", 3, [](auto &m) { m.set(stagedrows::angleCutoff, 1); });
    row("minimum angle quantity", 3, [](auto &m) { m.set(stagedrows::minimumAngleQuantity, 1); });
    row("distance algorithm", 4, [](auto &m) { m.set(stagedrows::distanceAlgorithm, 1); });
    row("distance linkage", 5, [](auto &m) { m.set(stagedrows::distanceLinkage, 1); });
    row("distance cutoff", 6, [](auto &m) { m.set(stagedrows::distanceCutoff, 1); });
    row("minimum distance quantity", 6, [](auto &m) { m.set(stagedrows::minimumDistanceQuantity, 2); });
}

void TestSaccadeClusterModel::parameterResetsItsStage()
{
    QFETCH(Change, change);
    QFETCH(int, stage);
    m_model->cluster();
    change(*m_model);
    QCOMPARE(m_model->stage(), static_cast<SaccadeClusterStage>(stage));
    QCOMPARE(signalsOfRun().size(), 7 - stage);
    QCOMPARE(m_model->stage(), SaccadeClusterStage::Done);
}

void TestSaccadeClusterModel::stageIsNeverRaised()
{
    m_model->set(stagedrows::distanceCutoff, 3);
    QCOMPARE(m_model->stage(), SaccadeClusterStage::PreProcessing);
    m_model->cluster();
    m_model->set(stagedrows::angleLinkage, 0);
    m_model->set(stagedrows::distanceCutoff, 4);
    QCOMPARE(m_model->stage(), SaccadeClusterStage::AngleTree);
    m_model->resetStage(SaccadeClusterStage::PreProcessing);
    QCOMPARE(m_model->stage(), SaccadeClusterStage::PreProcessing);
}

void TestSaccadeClusterModel::changeRunsOnlyWhatFollows()
{
    m_model->cluster();
    const ClusterNode *angleTree = &m_model->angleTrees()[0].root();
    const ClusterNode *distanceTree = &m_model->distanceTrees()[0].root();
    m_model->set(stagedrows::distanceCutoff, 80);
    QCOMPARE(signalsOfRun(), QStringList{QStringLiteral("distance clusters")});
    QCOMPARE(&m_model->distanceTrees()[0].root(), distanceTree);
    m_model->set(stagedrows::angleCutoff, 20);
    QCOMPARE(signalsOfRun().size(), 4);
    QCOMPARE(&m_model->angleTrees()[0].root(), angleTree);
}

void TestSaccadeClusterModel::progressTexts()
{
    const auto texts = [this] {
        const ProgressLabels progress;
        m_model->cluster();
        return progress.opened();
    };
    const QString matrix = QStringLiteral("Saccade clustering initialize matrix. %1");
    const QString tree = QStringLiteral("Saccade clustering create tree. %1");
    QCOMPARE(texts(), QStringList({QStringLiteral("Saccade clustering collecting data. 6"), matrix.arg(5), tree.arg(4),
                                   tree.arg(3), tree.arg(2)}));
    m_model->set(stagedrows::distanceAlgorithm, 1);
    QCOMPARE(texts(), QStringList({matrix.arg(5), tree.arg(3), tree.arg(2)}));
    m_model->set(stagedrows::distanceCutoff, 1);
    QCOMPARE(texts(), QStringList{tree.arg(2)});
}

void TestSaccadeClusterModel::tooManyVectorsAreToldAndNothingIsKept()
{
    m_model->cluster();
    QList<QPoint> places;
    for (int i = 0; i <= mostSaccadeVectors + 1; ++i)
        places << QPoint(100 + 100 * (i % 2), 100 + 50 * (i / 2 % 2));
    m_data->examinations() = {examinationAt(places)};
    m_model->resetStage(SaccadeClusterStage::PreProcessing);
    const RecordedMessages messages;
    m_model->set(stagedrows::minimumAngleDifference, -1);
    QCOMPARE(signalsOfRun(), QStringList{QStringLiteral("vectors")});
    const QString text = QStringLiteral("Too many saccades|There are 10001 saccades, and at most 10000 can be "
                                        "clustered at once. Please select fewer examinations or a shorter time, or "
                                        "raise the minimum length or the minimum angle difference.");
    QCOMPARE(messages.texts(), QStringList{text});
    QCOMPARE(m_model->stage(), SaccadeClusterStage::AngleMatrix);
    QVERIFY(m_model->angleMatrices().empty());
    QVERIFY(m_model->distanceTrees().empty());
    QVERIFY(m_model->distanceClusters().isEmpty());
    QCOMPARE(signalsOfRun(), QStringList()); // and is told again
    QCOMPARE(messages.texts(), QStringList(2, text));
    m_model->set(stagedrows::minimumLength, 110); // the diagonals are 111 px long
    QVERIFY(signalsOfRun().size() == 7);
    QCOMPARE(m_model->vectors().size(), 5000);
}

void TestSaccadeClusterModel::asManyAsAllowedAreClustered()
{
    const RecordedMessages messages;
    QVERIFY(canClusterSaccades(0));
    QVERIFY(canClusterSaccades(10'000));
    QCOMPARE(messages.texts(), QStringList());
    QVERIFY(!canClusterSaccades(10'001));
    QCOMPARE(messages.texts().size(), 1);
}

QTEST_GUILESS_MAIN(TestSaccadeClusterModel)
#include "TestSaccadeClusterModel.moc"
