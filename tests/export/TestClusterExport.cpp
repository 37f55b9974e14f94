// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/ClusterExport.h"
#include "export/DataExport.h"
#include "ExportSamples.h"
#include "TestMessages.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

using samples::bytesOf;
using samples::fixation;
using samples::lines;
using samples::utf16Block;

namespace {

const QString header = QStringLiteral("SubjectID;SubjectINFO;Cluster;Fixations;mean_x;mean_y;radius");
const QString pooledHeader = QStringLiteral("SubjectID;CumCluster;Fixations;mean_x;mean_y;radius;subjects");
const QString nothing = QStringLiteral("Unable to calculate clusters with this parameters!");

/// A cluster over these times, with its statistics set by hand.
FixationCluster cluster(const QList<qint64> &timesMs, QPoint mean, QVector2D major,
                        const QList<int> &examinations = {0})
{
    QList<Fixation> fixations;
    for (const int examination : examinations) {
        fixations << fixation(timesMs, {1, 1});
        fixations.last().examination = examination;
    }
    FixationCluster made = FixationCluster::gathered(fixations);
    made.mean = mean;
    made.majorAxis = major;
    return made;
}

Examination subject(const QString &id, const QString &name)
{
    Examination made = samples::examination(id, QStringLiteral("age=30, "));
    made.baseName = name;
    made.calculationInfo.fixationCalculationInfo = QStringLiteral("Algorithm:STANDARD\nfound\n");
    made.calculationInfo.clusterCalculationInfo = QStringLiteral("Algorithm:OVERLAP\n");
    return made;
}

QStringList parameterLines(const QString &cumulative)
{
    return {QStringLiteral("Fixation calculation parameters:"),
            QStringLiteral("Algorithm:STANDARD"),
            QStringLiteral("found"),
            QString(),
            QStringLiteral("Cluster calculation parameters:"),
            QStringLiteral("Algorithm:OVERLAP"),
            QString(),
            QStringLiteral("CumCluster calculation parameters:"),
            cumulative,
            QString()};
}

QStringList withTrailer(const QStringList &rows)
{
    return rows + parameterLines(QStringLiteral("Not set")) +
           QStringList{QStringLiteral("Subject information:"), QStringLiteral("age=30, ")};
}

/// Two subjects, of whom the second has clusters in the right eye only.
DataModel twoSubjects()
{
    DataModel model;
    model.examinations() << subject(QStringLiteral("A"), QStringLiteral("S01"))
                         << subject(QStringLiteral("B"), QStringLiteral("S02"));
    model.examinations()[0].leftEye.fixationClusters << cluster({0, 10}, {11, 1}, {3, 4});
    model.examinations()[0].rightEye.fixationClusters << cluster({0, 10}, {12, 1}, {3, 4});
    model.examinations()[1].rightEye.fixationClusters << cluster({0, 10}, {22, 1}, {3, 4}, {0, 0});
    model.setTimeFrame({0, 1000});
    return model;
}

QStringList namesIn(const QTemporaryDir &folder)
{
    return QDir(folder.path()).entryList(QDir::Files, QDir::Name);
}

const QString rowOfA = QStringLiteral("\"A\";\"age=30, \";0;1;%1;1;5");

} // namespace

class TestClusterExport : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void block_data();
    void block();
    void pooledBlock_data();
    void pooledBlock();
    void aRemarkFollowsTheParameters();
    void clusterFiles();
    void examinationsOfOneName();
    void onlyCheckedExaminations();
    void everyFileStartsFresh();
    void cumulativeFiles_data();
    void cumulativeFiles();
    void cumulativeFileStartsFresh();
    void closingMessages();
    void folderThatIsNotThere();
    void aNameThatLeadsOut();
};

void TestClusterExport::block_data()
{
    QTest::addColumn<QList<FixationCluster>>("clusters");
    QTest::addColumn<QStringList>("rows");
    // The span is 100 to 200 ms.
    const FixationCluster within = cluster({100, 200}, {12, -7}, {3, 4}, {0, 0, 0});
    const FixationCluster before = cluster({99, 150}, {1, 1}, {1, 0});
    const FixationCluster after = cluster({150, 201}, {1, 1}, {1, 0});
    const FixationCluster slanted = cluster({150}, {0, 0}, {1, 1}); // sqrt 2 = 1.41421356
    const QString row = QStringLiteral("\"S1\";\"age=30, \";%1;3;12;-7;5");
    QTest::newRow("no cluster gives one line in place of header and rows")
        << QList<FixationCluster>{} << QStringList{nothing};
    QTest::newRow("one that begins and ends with the span") << QList{within} << QStringList{header, row.arg(0)};
    QTest::newRow("one that begins before the span") << QList{before} << QStringList{header};
    QTest::newRow("one that ends after the span") << QList{after} << QStringList{header};
    QTest::newRow("numbers count what is left out")
        << QList{before, within, after, within} << QStringList{header, row.arg(1), row.arg(3)};
    QTest::newRow("decimal point") << QList{slanted}
                                   << QStringList{header, QStringLiteral("\"S1\";\"age=30, \";0;1;0;0;1.41421")};
}

void TestClusterExport::block()
{
    QFETCH(QList<FixationCluster>, clusters);
    QFETCH(QStringList, rows);
    EyeData stream;
    stream.fixationClusters = clusters;
    QCOMPARE(clusterBlock(subject(QStringLiteral("S1"), {}), stream, {100, 200}), lines(withTrailer(rows)));
}

void TestClusterExport::pooledBlock_data()
{
    QTest::addColumn<QList<FixationCluster>>("clusters");
    QTest::addColumn<QStringList>("rows");
    const auto row = [](const QList<int> &examinations, const QString &text) {
        return std::pair(QList{cluster({5000}, {12, -7}, {2.5, 0}, examinations)}, QStringList{pooledHeader, text});
    };
    const auto add = [&](const char *name, const QList<int> &examinations, const QString &text) {
        const auto [clusters, rows] = row(examinations, text);
        QTest::newRow(name) << clusters << rows;
    };
    QTest::newRow("no cluster") << QList<FixationCluster>{} << QStringList{pooledHeader};
    add("one subject, whatever the time", {1}, QStringLiteral("\"\";0;1;12;-7;2.5;B"));
    add("in order of appearance, each once", {1, 0, 1, 2, 0}, QStringLiteral("\"\";0;5;12;-7;2.5;B,A"));
    add("examinations that are no more", {7, 0, -1}, QStringLiteral("\"\";0;3;12;-7;2.5;A"));
}

void TestClusterExport::pooledBlock()
{
    QFETCH(QList<FixationCluster>, clusters);
    QFETCH(QStringList, rows);
    DataModel model = twoSubjects();
    model.examinations() << subject(QStringLiteral("A"), QStringLiteral("S03")); // the same subject once more
    model.calculationInfo() = model.examinations()[0].calculationInfo;
    model.calculationInfo().cumulativeClusterCalculationInfo = QStringLiteral("Algorithm:MEANSHIFT\n");
    model.examinations()[0].calculationInfo = {};
    EyeData pooled;
    pooled.fixationClusters = clusters;
    QStringList expected = rows + parameterLines(QStringLiteral("Algorithm:MEANSHIFT"));
    QCOMPARE(cumulativeClusterBlock(model, pooled), lines(expected));
}

void TestClusterExport::aRemarkFollowsTheParameters()
{
    DataModel model = twoSubjects();
    const auto remarked = [](QStringList rows) {
        rows.insert(rows.indexOf(QStringLiteral("found")) + 1, QStringLiteral("Other fixations."));
        return lines(rows);
    };
    CalculationInfo &info = model.examinations()[0].calculationInfo;
    info.fixationRemark = QStringLiteral("Other fixations.\n");
    model.calculationInfo() = info;
    QCOMPARE(clusterBlock(model.examinations()[0], {}, {0, 1000}), remarked(withTrailer({nothing})));
    QCOMPARE(cumulativeClusterBlock(model, {}),
             remarked(QStringList{pooledHeader} + parameterLines(QStringLiteral("Not set"))));
}

void TestClusterExport::clusterFiles()
{
    const QTemporaryDir folder;
    const ExportResult result = exportClusters(twoSubjects(), {folder.path(), QStringLiteral("p"), EyeMode::showAll});
    QCOMPARE(namesIn(folder), QStringList({QStringLiteral("p_fixationclusters_S01_clusters_left.csv"),
                                           QStringLiteral("p_fixationclusters_S01_clusters_right.csv"),
                                           QStringLiteral("p_fixationclusters_S02_clusters_left.csv"),
                                           QStringLiteral("p_fixationclusters_S02_clusters_right.csv")}));
    QCOMPARE(result.failed, QStringList());
    QCOMPARE(result.written.size(), 4);
    QCOMPARE(bytesOf(result.written[0]), utf16Block(lines(withTrailer({header, rowOfA.arg(11)}))));
    QCOMPARE(bytesOf(result.written[1]), utf16Block(lines(withTrailer({header, rowOfA.arg(12)}))));
    QCOMPARE(bytesOf(result.written[2]), utf16Block(lines(withTrailer({nothing}))));
    QCOMPARE(bytesOf(result.written[3]),
             utf16Block(lines(withTrailer({header, QStringLiteral("\"B\";\"age=30, \";0;2;22;1;5")}))));
}

void TestClusterExport::examinationsOfOneName()
{
    const QTemporaryDir folder;
    DataModel model = twoSubjects();
    model.examinations()[1].baseName = QStringLiteral("S01");
    const ExportResult result = exportClusters(model, {folder.path(), QStringLiteral("p"), EyeMode::showLeft});
    QCOMPARE(result.written, QStringList{folder.filePath(QStringLiteral("p_fixationclusters_S01_clusters_left.csv"))});
    QCOMPARE(bytesOf(result.written[0]),
             utf16Block(lines(withTrailer({header, rowOfA.arg(11)}))) + utf16Block(lines(withTrailer({nothing}))));
}

void TestClusterExport::onlyCheckedExaminations()
{
    const QTemporaryDir folder;
    DataModel model = twoSubjects();
    model.examinations()[0].checked = false;
    const ExportTarget target{folder.path(), QStringLiteral("p"), EyeMode::showDominant};
    exportClusters(model, target);
    QCOMPARE(namesIn(folder), QStringList{QStringLiteral("p_fixationclusters_S02_clusters_dominant.csv")});
    model.examinations()[1].checked = false;
    QCOMPARE(exportClusters(model, target).written, QStringList());
}

void TestClusterExport::everyFileStartsFresh()
{
    const QTemporaryDir folder;
    const DataModel model = twoSubjects();
    const ExportTarget target{folder.path(), QStringLiteral("p"), EyeMode::showAll};
    const ExportResult result = exportClusters(model, target);
    QList<QByteArray> once;
    for (const QString &path : result.written)
        once << bytesOf(path);
    exportClusters(model, target);
    for (qsizetype i = 0; i < once.size(); ++i)
        QCOMPARE(bytesOf(result.written[i]), once[i]);
}

void TestClusterExport::cumulativeFiles_data()
{
    QTest::addColumn<EyeMode>("eyes");
    QTest::addColumn<QStringList>("words");
    const auto words = [](const char *text) { return QString::fromLatin1(text).split(u' '); };
    QTest::newRow("all eyes are left and right") << EyeMode::showAll << words("left right");
    QTest::newRow("dominant") << EyeMode::showDominant << words("dominant");
    QTest::newRow("left") << EyeMode::showLeft << words("left");
    QTest::newRow("right") << EyeMode::showRight << words("right");
    QTest::newRow("mean") << EyeMode::showMean << words("mean");
}

void TestClusterExport::cumulativeFiles()
{
    QFETCH(EyeMode, eyes);
    QFETCH(QStringList, words);
    const QTemporaryDir folder;
    DataModel model = twoSubjects();
    const QStringList pools{QStringLiteral("left"), QStringLiteral("right"), QStringLiteral("dominant"),
                            QStringLiteral("mean")};
    for (const Eye pool : allEyes)
        model.pooled(pool).fixationClusters << cluster({0}, {static_cast<int>(pool), 0}, {1, 0}, {0, 1});
    model.calculationInfo() = model.examinations()[0].calculationInfo;
    const ExportResult result = exportCumulativeClusters(model, {folder.path(), QStringLiteral("p"), eyes});
    QCOMPARE(result.written.size(), words.size());
    QCOMPARE(namesIn(folder).size(), words.size());
    for (qsizetype i = 0; i < words.size(); ++i) {
        QCOMPARE(result.written[i],
                 folder.filePath(QStringLiteral("p_cumulative_%1_cumclusters_%1.csv").arg(words[i])));
        const QString row = QStringLiteral("\"\";0;2;%1;0;1;A,B").arg(pools.indexOf(words[i]));
        QCOMPARE(bytesOf(result.written[i]),
                 utf16Block(lines(QStringList{pooledHeader, row} + parameterLines(QStringLiteral("Not set")))));
    }
}

void TestClusterExport::cumulativeFileStartsFresh()
{
    const QTemporaryDir folder;
    const DataModel model = twoSubjects();
    const ExportTarget target{folder.path(), QStringLiteral("p"), EyeMode::showLeft};
    const QString path = exportCumulativeClusters(model, target).written[0];
    const QByteArray once = bytesOf(path);
    exportCumulativeClusters(model, target);
    QCOMPARE(bytesOf(path), once);
}

void TestClusterExport::closingMessages()
{
    const RecordedMessages messages;
    const QTemporaryDir folder;
    const ExportTarget target{folder.path(), QStringLiteral("p"), EyeMode::showMean};
    exportClusters(twoSubjects(), target);
    exportCumulativeClusters(twoSubjects(), target);
    QCOMPARE(messages.texts(),
             QStringList({QStringLiteral("Fixation cluster Export|Fixation clusters exported to: ") + folder.path() +
                              QStringLiteral("_filename_fixationclusters_left/right"),
                          QStringLiteral("Cumulative clusters Export|Cumulative clusters exported to: ") +
                              folder.path() + QStringLiteral("_cumulative_left/right")}));
}

void TestClusterExport::folderThatIsNotThere()
{
    const QTemporaryDir folder;
    const ExportTarget target{folder.filePath(QStringLiteral("nowhere")), QStringLiteral("p"), EyeMode::showLeft};
    QCOMPARE(exportClusters(twoSubjects(), target).failed.size(), 2);
    QCOMPARE(exportCumulativeClusters(twoSubjects(), target).failed,
             QStringList{target.folder + QStringLiteral("/p_cumulative_left_cumclusters_left.csv")});
}

void TestClusterExport::aNameThatLeadsOut()
{
    const RecordedMessages messages;
    const QTemporaryDir folder;
    QVERIFY(QDir(folder.path()).mkpath(QStringLiteral("out")));
    DataModel model = twoSubjects();
    model.examinations()[0].baseName = QStringLiteral("/../../stolen");
    const ExportTarget target{folder.filePath(QStringLiteral("out")), QStringLiteral("p"), EyeMode::showLeft};
    const ExportResult result = exportClusters(model, target);
    QCOMPARE(result.failed.size(), 1);
    QCOMPARE(result.written.size(), 1);
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList());
    QCOMPARE(messages.texts().size(), 1);
    QVERIFY(messages.texts()[0].endsWith(QStringLiteral("the name of the recording leads out of the folder\n"
                                                        "(the other file of this export is new)")));
}

QTEST_GUILESS_MAIN(TestClusterExport)
#include "TestClusterExport.moc"
