// SPDX-License-Identifier: GPL-3.0-or-later
#include "clustering/ClusterCalculation.h"
#include "ClusterSamples.h"
#include "model/DataModel.h"
#include "ProgressLabels.h"
#include "TestMessages.h"

#include <QTest>

using samples::clusterNumbers;
using samples::clusterSizes;
using samples::streamAt;

namespace {

constexpr StandardClusterParameters standard{2, 0, 100};
constexpr MeanShiftClusterParameters meanShift{100, 0.25, 50, 2};
constexpr OverlapClusterParameters overlap{1, std::nullopt};

/// Left eye: one place; right eye: two places; mean: one fixation alone.
Examination examination()
{
    Examination made;
    made.leftEye = streamAt({{100, 100}, {100, 100}});
    made.rightEye = streamAt({{100, 100}, {900, 100}, {900, 100}, {100, 100}, {900, 100}});
    made.meanEye = streamAt({{100, 100}});
    return made;
}

DataModel modelOf(const QList<Examination> &examinations)
{
    DataModel model;
    model.examinations() = examinations;
    return model;
}

QString found(const DataModel &model, qsizetype index = 0)
{
    return model.examinations()[index].calculationInfo.clusterCalculationInfo;
}

} // namespace

class TestClusterCalculation : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void nothingChecked();
    void methods_data();
    void methods();
    void earlierClustersAreReplaced();
    void onlyCheckedExaminations();
    void pooledContainersButTheDominantOneAreCleared();
    void boxesComeForEachEmptyStream();
    void dialogs();
    void threadsChangeNothing();
    void methodOfTheType_data();
    void methodOfTheType();
    void parametersOfTheType();
    void texts_data();
    void texts();
};

void TestClusterCalculation::nothingChecked()
{
    DataModel model = modelOf({examination()});
    model.examinations()[0].checked = false;
    model.pooled(Eye::Left).scanpath << Fixation();
    const RecordedMessages messages;
    QVERIFY(!calculateClusters(model, standard));
    QCOMPARE(messages.texts(), QStringList(QStringLiteral("No examination selected!|Please select some data first.")));
    QCOMPARE(model.pooled(Eye::Left).scanpath.size(), 1);
    QCOMPARE(found(model), QStringLiteral("Not set\n"));
}

void TestClusterCalculation::methods_data()
{
    QTest::addColumn<ClusterParameters>("parameters");
    QTest::addColumn<QList<int>>("rightNumbers");
    QTest::addColumn<QString>("text");
    const QString counts = QStringLiteral("Fixationclusters found:\n Left Eye:1, Right Eye:2, Mean Eye:0\n");
    QTest::newRow("standard") << ClusterParameters(standard) << QList({1, 2, 2, 1, 2})
                              << QStringLiteral("Algorithm:STANDARD\nParameter:\n Minimum Fixations:2, Overlap "
                                                "Allowed:0, Maximum Radius:100\n") +
                                     counts;
    QTest::newRow("mean-shift") << ClusterParameters(meanShift) << QList({0, 1, 1, 0, 1})
                                << QStringLiteral("Algorithm:MEANSHIFT\nParameter:\n Minimum Fixations:2, Radius:100, "
                                                  "Gradient:0.25, Iterations:50\n") +
                                       counts;
    // The place with most fixations is taken first.
    QTest::newRow("overlap") << ClusterParameters(overlap) << QList({2, 1, 1, 2, 1})
                             << QStringLiteral("Algorithm:OVERLAP\nParameter:\n Minimum Fixations:1\n") + counts;
}

void TestClusterCalculation::methods()
{
    QFETCH(ClusterParameters, parameters);
    QFETCH(QList<int>, rightNumbers);
    QFETCH(QString, text);
    DataModel model = modelOf({examination()});
    // The overlap method leaves out the last lists: one more, far away, is what it leaves out here.
    if (std::holds_alternative<OverlapClusterParameters>(parameters)) {
        model.examinations()[0].rightEye.scanpath << samples::fixation({3000, 0});
        rightNumbers << 0;
    }
    QVERIFY(calculateClusters(model, parameters));
    const Examination &examination = model.examinations()[0];
    QCOMPARE(clusterNumbers(examination.rightEye), rightNumbers);
    QCOMPARE(clusterSizes(examination.rightEye), QList<qsizetype>({3, 2}));
    QCOMPARE(clusterSizes(examination.leftEye), QList<qsizetype>({2}));
    QCOMPARE(clusterSizes(examination.meanEye), QList<qsizetype>());
    for (qsizetype i = 0; i < 2; ++i)
        QCOMPARE(examination.rightEye.fixationClusters[i].number, static_cast<int>(i));
    QCOMPARE(found(model), text);
}

void TestClusterCalculation::earlierClustersAreReplaced()
{
    DataModel model = modelOf({examination()});
    calculateClusters(model, standard);
    const Examination once = model.examinations()[0];
    calculateClusters(model, standard);
    QCOMPARE(model.examinations()[0].rightEye, once.rightEye);
    calculateClusters(model, StandardClusterParameters{50, 0, 100});
    QVERIFY(model.examinations()[0].rightEye.fixationClusters.isEmpty());
}

void TestClusterCalculation::onlyCheckedExaminations()
{
    Examination unchecked = examination();
    unchecked.checked = false;
    DataModel model = modelOf({unchecked, examination()});
    calculateClusters(model, standard);
    QCOMPARE(model.examinations()[0].rightEye, unchecked.rightEye);
    QCOMPARE(found(model, 0), QStringLiteral("Not set\n"));
    QVERIFY(found(model, 1).startsWith(QStringLiteral("Algorithm:STANDARD\n")));
}

void TestClusterCalculation::pooledContainersButTheDominantOneAreCleared()
{
    DataModel model = modelOf({examination()});
    for (const Eye pool : allEyes) {
        model.pooled(pool).scanpath << Fixation();
        model.pooled(pool).fixationClusters << FixationCluster();
        model.pooled(pool).calculationInfo = QStringLiteral("stays");
    }
    calculateClusters(model, standard);
    for (const Eye pool : allEyes) {
        const qsizetype left = pool == Eye::Dominant ? 1 : 0;
        QCOMPARE(model.pooled(pool).scanpath.size(), left);
        QCOMPARE(model.pooled(pool).fixationClusters.size(), left);
        QCOMPARE(model.pooled(pool).calculationInfo, QStringLiteral("stays"));
    }
}

void TestClusterCalculation::boxesComeForEachEmptyStream()
{
    DataModel model = modelOf({Examination(), examination()});
    {
        const RecordedMessages messages;
        calculateClusters(model, meanShift);
        const QString box =
            QStringLiteral("No fixations found. Cannot calculate clusters.|Please calculate fixations first.");
        QCOMPARE(messages.texts(), QStringList{box + QStringLiteral("\n3 times")});
    }
    const RecordedMessages messages;
    calculateClusters(model, standard);
    calculateClusters(model, overlap);
    QCOMPARE(messages.texts(), QStringList());
}

void TestClusterCalculation::dialogs()
{
    DataModel model = modelOf({examination(), examination()});
    model.examinations()[0].leftEye.scanpath << samples::fixation({500, 500}); // tells the eyes apart: 3 and not 2
    const ProgressLabels progress;
    calculateClusters(model, standard, 1);
    // The right eye comes first, then the left one, then the mean.
    QCOMPARE(progress.opened(), QStringList({QStringLiteral("Calculating fixationclusters, please wait. 2"),
                                             QStringLiteral("Calculating the Clusters, please wait. 5"),
                                             QStringLiteral("Sort clusters, please wait. 2"),
                                             QStringLiteral("Calculating the Clusters, please wait. 3"),
                                             QStringLiteral("Sort clusters, please wait. 1"),
                                             QStringLiteral("Calculating the Clusters, please wait. 1"),
                                             QStringLiteral("Sort clusters, please wait. 0"),
                                             QStringLiteral("Calculating the Clusters, please wait. 2")}));
}

/// Clustering recordings beside each other shows the progress of the whole only.
void TestClusterCalculation::threadsChangeNothing()
{
    QList<Examination> examinations;
    for (int i = 0; i < 6; ++i) {
        examinations << examination();
        examinations[i].leftEye.scanpath << samples::fixation({100 * i, 500});
    }
    for (const ClusterParameters &parameters :
         {ClusterParameters(standard), ClusterParameters(meanShift), ClusterParameters(overlap)})
    {
        DataModel one = modelOf(examinations);
        DataModel four = modelOf(examinations);
        calculateClusters(one, parameters, 1);
        const ProgressLabels progress;
        calculateClusters(four, parameters, 4);
        QCOMPARE(progress.opened(), QStringList{QStringLiteral("Calculating fixationclusters, please wait. 6")});
        for (int i = 0; i < 6; ++i) {
            for (std::size_t eye = 0; eye < 3; ++eye)
                QVERIFY(*std::as_const(one).examinations()[i].streams()[eye] ==
                        *std::as_const(four).examinations()[i].streams()[eye]);
        }
    }
}

void TestClusterCalculation::methodOfTheType_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("method");
    QTest::newRow("standard") << 0 << 0;
    QTest::newRow("mean-shift") << 1 << 1;
    QTest::newRow("overlap") << 2 << 2;
    QTest::newRow("beyond the last") << 3 << 0;
    QTest::newRow("before the first") << -1 << 0;
}

void TestClusterCalculation::methodOfTheType()
{
    QFETCH(int, type);
    QTEST(static_cast<int>(clusterMethod(type)), "method");
}

void TestClusterCalculation::parametersOfTheType()
{
    const ClusterSettingsModel settings{1, 2, 3, 4, 5.5, 0.6, 7, 8};
    const auto first = std::get<StandardClusterParameters>(clusterParameters(0, settings, {9, 10}));
    QCOMPARE(first.minimumFixations, 2);
    QCOMPARE(first.overlapAllowed, 3);
    QCOMPARE(first.maximumRadiusPx, 4);
    const auto second = std::get<MeanShiftClusterParameters>(clusterParameters(1, settings, {9, 10}));
    QCOMPARE(second.radiusPx, 5.5);
    QCOMPARE(second.rate, 0.6);
    QCOMPARE(second.iterations, 7);
    QCOMPARE(second.minimumFixations, 8);
    const auto third = std::get<OverlapClusterParameters>(clusterParameters(2, settings, {9, 10}));
    QCOMPARE(third.minimumFixations, 9);
    QCOMPARE(third.outliers, std::optional(10));
}

void TestClusterCalculation::texts_data()
{
    QTest::addColumn<ClusterParameters>("parameters");
    QTest::addColumn<QString>("text");
    const QString counts = QStringLiteral("Fixationclusters found:\n Left Eye:1, Right Eye:22, Mean Eye:0\n");
    QTest::newRow("numbers have up to six digits")
        << ClusterParameters(MeanShiftClusterParameters{1234.5678, 1.0 / 3, 200, 0})
        << QStringLiteral("Algorithm:MEANSHIFT\nParameter:\n Minimum Fixations:0, Radius:1234.57, Gradient:0.333333, "
                          "Iterations:200\n") +
               counts;
    QTest::newRow("overlap with outliers")
        << ClusterParameters(OverlapClusterParameters{3, 0})
        << QStringLiteral("Algorithm:OVERLAP\nParameter:\n Minimum Fixations:3, Outlier:0\n") + counts;
}

void TestClusterCalculation::texts()
{
    QFETCH(ClusterParameters, parameters);
    QTEST(clusterResultText(parameters, 1, 22, 0), "text");
}

QTEST_GUILESS_MAIN(TestClusterCalculation)
#include "TestClusterCalculation.moc"
