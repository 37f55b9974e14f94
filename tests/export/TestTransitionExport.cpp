// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/TransitionExport.h"
#include "ExportSamples.h"
#include "TestMessages.h"
#include "visualization/ToyData.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

#include <cmath>
#include <functional>

using samples::bytesOf;
using samples::lines;

namespace {

/// Fixations of 80 ms each 100 ms at x = 100 for "a", 200 for "b" and so on; a dot is one of no cluster, at 0.
QList<Fixation> scanpathOf(const QString &letters, int examination)
{
    QList<Fixation> scanpath;
    for (qsizetype i = 0; i < letters.size(); ++i) {
        const int place = letters[i] == u'.' ? 0 : letters[i].unicode() - u'a' + 1;
        scanpath << toy::stay({100 * place, 10 + examination}, 100 * i);
        scanpath.last().examination = examination;
    }
    return scanpath;
}

QList<FixationCluster> clustersOf(const QList<Fixation> &scanpath, int count)
{
    QList<FixationCluster> clusters(count);
    for (const Fixation &fixation : scanpath) {
        if (const int place = fixation.mean.x() / 100; place > 0 && place <= count)
            clusters[place - 1].fixations << fixation;
    }
    return clusters;
}

/// A recording for each text, all with clusters a and b of their own, and pooled clusters a, b and c.
DataModel modelOf(const QStringList &scanpaths)
{
    DataModel model;
    for (int number = 0; number < scanpaths.size(); ++number) {
        Examination examination = samples::examination(QStringLiteral("s%1").arg(number), QStringLiteral("x=1, "));
        examination.leftEye.scanpath = scanpathOf(scanpaths[number], number);
        examination.leftEye.fixationClusters = clustersOf(examination.leftEye.scanpath, 2);
        model.examinations() << examination;
        model.pooled(Eye::Left).scanpath << examination.leftEye.scanpath;
    }
    model.pooled(Eye::Left).fixationClusters = clustersOf(model.pooled(Eye::Left).scanpath, 3);
    model.setTimeFrame({0, 60000});
    return model;
}

// ---- a second, plain form of the counting, the table and its numbers

struct Plain {
    QList<QList<int>> counts;
    QList<QList<double>> lengths;
    QList<QList<qint64>> times;
    int total = 0;
};

Plain plainCount(const QList<QList<Fixation>> &lists, const QList<FixationCluster> &clusters, TimeFrame frame)
{
    const qsizetype n = clusters.size();
    Plain plain{QList<QList<int>>(n, QList<int>(n, 0)), QList<QList<double>>(n), QList<QList<qint64>>(n)};
    for (const QList<Fixation> &list : lists) {
        qsizetype previous = -1;
        QPoint previousMean;
        for (const Fixation &fixation : list) {
            if (fixation.firstTime() < frame.startMs || fixation.lastTime() > frame.endMs)
                continue;
            qsizetype found = -1;
            for (qsizetype c = 0; c < n && found < 0; ++c) {
                for (const Fixation &member : clusters[c].fixations) {
                    if (member.mean == fixation.mean && member.firstTime() == fixation.firstTime())
                        found = c;
                }
            }
            if (found < 0 || found == previous)
                continue;
            if (previous >= 0) {
                ++plain.counts[previous][found];
                ++plain.total;
                const QPoint way = fixation.mean - previousMean;
                const double length = std::sqrt(double(way.x()) * way.x() + double(way.y()) * way.y());
                const qint64 time = (fixation.firstTime() + fixation.lastTime()) / 2;
                for (const qsizetype c : {previous, found}) {
                    plain.lengths[c] << length;
                    plain.times[c] << time;
                }
            }
            previous = found;
            previousMean = fixation.mean;
        }
    }
    return plain;
}

QString comma10(double value)
{
    return QString::number(value, 'f', 10).replace(u'.', u',');
}

QString plainGrid(const Plain &plain, const std::function<QString(int, int)> &cell)
{
    QString text = QStringLiteral(";");
    const int n = int(plain.counts.size());
    for (int j = 0; j < n; ++j)
        text += QStringLiteral("To Cluster%1;").arg(j);
    text += u'\n';
    for (int i = 0; i < n; ++i) {
        text += QStringLiteral("From Cluster%1;").arg(i);
        for (int j = 0; j < n; ++j)
            text += cell(i, j) + u';';
        text += u'\n';
    }
    return text + QStringLiteral("\n\n");
}

QString plainAbsolute(const Plain &plain)
{
    return plainGrid(plain, [&](int i, int j) { return QString::number(plain.counts[i][j]); });
}

QString plainShareOfAll(const Plain &plain)
{
    return plainGrid(plain, [&](int i, int j) { return comma10(double(plain.counts[i][j]) / plain.total); });
}

QString plainShareOfRow(const Plain &plain)
{
    return plainGrid(plain, [&](int i, int j) {
        int sum = 0;
        for (const int count : plain.counts[i])
            sum += count;
        return comma10(double(plain.counts[i][j]) / sum);
    });
}

QString plainMeasures(const Plain &plain)
{
    QString text = QStringLiteral(";minimum transitions per minute (>0) [-1 no transition];mean time between "
                                  "transition;standard deviation of time between transition;mean length;standard "
                                  "deviation length;\n");
    for (int c = 0; c < plain.counts.size(); ++c) {
        const QList<qint64> &times = plain.times[c];
        double meanTime = 0;
        double timeDeviation = 0;
        if (times.size() > 1) {
            for (int i = 1; i < times.size(); ++i)
                meanTime += double(std::abs(times[i] - times[i - 1]));
            meanTime /= double(times.size() - 1);
            for (int i = 1; i < times.size(); ++i)
                timeDeviation += std::pow(meanTime - double(std::abs(times[i] - times[i - 1])), 2);
            timeDeviation = std::sqrt(timeDeviation / double(times.size() - 1));
        }
        double meanLength = 0;
        double lengthDeviation = 0;
        for (const double length : plain.lengths[c])
            meanLength += length / double(plain.lengths[c].size());
        for (const double length : plain.lengths[c])
            lengthDeviation += (meanLength - length) * (meanLength - length) / double(plain.lengths[c].size());
        text += QStringLiteral("Cluster%1;-1;").arg(c) + comma10(meanTime) + u';' + comma10(timeDeviation) + u';' +
                comma10(meanLength) + u';' + comma10(std::sqrt(lengthDeviation)) + QStringLiteral(";\n");
    }
    return text + QStringLiteral("\n\n");
}

} // namespace

class TestTransitionExport : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void everyFileAgainstThePlainForm();
    void writtenOut();
    void aClusterThatOnlyReceives();
    void frameWithoutFixations();
    void namesAndMessages();
    void withoutClusters();
    void walksOfPoolsStartAnew();
    void areaMatrix();
    void choiceOfEverything();

private:
    QString text(const QString &name) const { return QString::fromUtf8(bytesOf(m_folder->filePath(name))); }

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_stem;
};

void TestTransitionExport::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_stem = m_folder->filePath(QStringLiteral("p"));
}

void TestTransitionExport::everyFileAgainstThePlainForm()
{
    const DataModel model = modelOf({QStringLiteral("aab.ac.b"), QStringLiteral("bb.a"), QStringLiteral("abcabcb")});
    const TimeFrame frame = model.timeFrame();
    exportTransitions(model, m_stem, EyeMode::showLeft, TransitionChoice::everything(model, EyeMode::showLeft),
                      nullptr);
    QList<Plain> own;
    QStringList titles;
    QList<QList<Fixation>> lists;
    QList<FixationCluster> ownClusters;
    for (const Examination &examination : model.examinations()) {
        own << plainCount({examination.leftEye.scanpath}, examination.leftEye.fixationClusters, frame);
        titles << QStringLiteral("\"%1\";\"x=1, \";\n").arg(examination.subjectId);
        lists << examination.leftEye.scanpath;
        ownClusters << examination.leftEye.fixationClusters;
    }
    const QList<FixationCluster> &pool = model.pooled(Eye::Left).fixationClusters;
    const Plain pooled = plainCount(lists, pool, frame);
    const Plain both = plainCount(lists + lists, pool + ownClusters, frame);
    constexpr std::pair<const char *, QString (*)(const Plain &)> contents[] = {
        {"absolut", plainAbsolute},
        {"relative_to_all_transitions", plainShareOfAll},
        {"relative_to_cluster_transitions", plainShareOfRow},
        {"mtpm_mtbt_stdtbt_ml_stdl", plainMeasures}};
    for (const auto &[name, form] : contents) {
        QString expected;
        for (int i = 0; i < own.size(); ++i)
            expected += titles[i] + form(own[i]);
        const QString end = QString::fromLatin1(name) + QStringLiteral(".csv");
        QCOMPARE(text(QStringLiteral("p_left_cluster_transitions_") + end), expected);
        QCOMPARE(text(QStringLiteral("p_left_cumm_cluster_transitions_") + end), form(pooled));
        QCOMPARE(text(QStringLiteral("p_left_cumm_and_cluster_transitions_") + end), form(both));
    }
    QVERIFY(both.total > pooled.total); // the own lists count once more
}

void TestTransitionExport::writtenOut()
{
    const DataModel model = modelOf({QStringLiteral("aba")});
    exportTransitions(model, m_stem, EyeMode::showLeft, {{TransitionFlavour::Own}}, nullptr);
    QCOMPARE(text(QStringLiteral("p_left_cluster_transitions_absolut.csv")),
             lines({QStringLiteral("\"s0\";\"x=1, \";"), QStringLiteral(";To Cluster0;To Cluster1;"),
                    QStringLiteral("From Cluster0;0;1;"), QStringLiteral("From Cluster1;1;0;"), QString(), QString()}));
    QCOMPARE(text(QStringLiteral("p_left_cluster_transitions_relative_to_all_transitions.csv")),
             lines({QStringLiteral("\"s0\";\"x=1, \";"), QStringLiteral(";To Cluster0;To Cluster1;"),
                    QStringLiteral("From Cluster0;0,0000000000;0,5000000000;"),
                    QStringLiteral("From Cluster1;0,5000000000;0,0000000000;"), QString(), QString()}));
    // Transitions of 100 px in the middles of 100 to 180 and 200 to 280 ms.
    QVERIFY(text(QStringLiteral("p_left_cluster_transitions_mtpm_mtbt_stdtbt_ml_stdl.csv"))
                .contains(QStringLiteral("Cluster0;-1;100,0000000000;0,0000000000;100,0000000000;0,0000000000;\n")));
}

void TestTransitionExport::aClusterThatOnlyReceives()
{
    const DataModel model = modelOf({QStringLiteral("ab")});
    exportTransitions(model, m_stem, EyeMode::showLeft, {{TransitionFlavour::Own}}, nullptr);
    QVERIFY(text(QStringLiteral("p_left_cluster_transitions_relative_to_cluster_transitions.csv"))
                .contains(QStringLiteral("From Cluster1;nan;nan;\n")));
}

void TestTransitionExport::frameWithoutFixations()
{
    DataModel model = modelOf({QStringLiteral("ab.a")});
    model.setTimeFrame({50000, 60000});
    exportTransitions(model, m_stem, EyeMode::showLeft, {{TransitionFlavour::Own}}, nullptr);
    QVERIFY(text(QStringLiteral("p_left_cluster_transitions_absolut.csv"))
                .contains(QStringLiteral("From Cluster0;0;0;\nFrom Cluster1;0;0;\n")));
    QVERIFY(text(QStringLiteral("p_left_cluster_transitions_relative_to_all_transitions.csv"))
                .contains(QStringLiteral("From Cluster0;nan;nan;")));
}

void TestTransitionExport::namesAndMessages()
{
    const RecordedMessages messages;
    DataModel model = modelOf({QStringLiteral("aba")});
    Examination &examination = model.examinations()[0];
    examination.rightEye = examination.meanEye = examination.leftEye;
    TransitionChoice choice{{TransitionFlavour::Own}};
    choice.relative = choice.measures = false;
    const auto names = [&](EyeMode mode) {
        QStringList found;
        for (const QString &path : exportTransitions(model, m_stem, mode, choice, nullptr).written)
            found << QFileInfo(path).fileName();
        return found;
    };
    QCOMPARE(names(EyeMode::showAll), (QStringList{QStringLiteral("p_left_cluster_transitions_absolut.csv"),
                                                   QStringLiteral("p_right_cluster_transitions_absolut.csv")}));
    QCOMPARE(names(EyeMode::showDominant), QStringList(QStringLiteral("p_dom_cluster_transitions_absolut.csv")));
    QCOMPARE(names(EyeMode::showMean), QStringList(QStringLiteral("p_mean_cluster_transitions_absolut.csv")));
    QCOMPARE(messages.texts().first(),
             QStringLiteral("Cluster transitions export|Cluster transitions absolut exported to: ") + m_stem +
                 QStringLiteral("_left/right/dom_cluster_transitions_absolut.csv"));
}

void TestTransitionExport::withoutClusters()
{
    const RecordedMessages messages;
    DataModel model = modelOf({QStringLiteral("aba")});
    const TransitionChoice choice{{TransitionFlavour::Own, TransitionFlavour::Pooled}};
    QVERIFY(exportTransitions(model, m_stem, EyeMode::showRight, choice, nullptr).written.isEmpty());
    QVERIFY(QDir(m_folder->path()).isEmpty());
    QCOMPARE(messages.texts(),
             (QStringList{QStringLiteral("Cluster transitions export|Cluster transitions: there are no clusters, "
                                         "nothing was exported."),
                          QStringLiteral("CUMM Cluster transitions export|CUMM Cluster transitions: there are no "
                                         "clusters, nothing was exported.")}));
    // The left eye has some: of the right eye there is no file.
    QCOMPARE(exportTransitions(model, m_stem, EyeMode::showAll, {{TransitionFlavour::Own}}, nullptr).written.size(), 4);
}

void TestTransitionExport::walksOfPoolsStartAnew()
{
    const DataModel model = modelOf({QStringLiteral("ab"), QStringLiteral("ab")}); // in one go there were a "ba"
    exportTransitions(model, m_stem, EyeMode::showLeft, {{TransitionFlavour::Pooled}}, nullptr);
    QCOMPARE(
        text(QStringLiteral("p_left_cumm_cluster_transitions_absolut.csv")),
        lines({QStringLiteral(";To Cluster0;To Cluster1;To Cluster2;"), QStringLiteral("From Cluster0;0;2;0;"),
               QStringLiteral("From Cluster1;0;0;0;"), QStringLiteral("From Cluster2;0;0;0;"), QString(), QString()}));
}

void TestTransitionExport::areaMatrix()
{
    DataModel model = modelOf({QStringLiteral("ab"), QStringLiteral("aa"), QStringLiteral("ab")});
    model.setTimeFrame({0, 40000});
    for (const int left : {50, 150})
        model.insertAoi(AreaOfInterest(QStringLiteral("area.%1").arg(left),
                                       QPolygon({{left, 0}, {left + 100, 0}, {left + 100, 90}, {left, 90}})));
    TransitionChoice choice;
    choice.areas = true;
    exportTransitions(model, m_stem, EyeMode::showLeft, choice, nullptr);
    // Names in the order of texts: "area.150" is b. One aa and two ab among three subjects in 2/3 min.
    QCOMPARE(text(QStringLiteral("p_transitionmatrix.csv")),
             lines({QStringLiteral("NAMES;area.150;area.50"), QStringLiteral("area.150;0;0"),
                    QStringLiteral("area.50;1;0,5")}));
}

void TestTransitionExport::choiceOfEverything()
{
    DataModel model = modelOf({QStringLiteral("ab")});
    using Flavours = QList<TransitionFlavour>;
    QCOMPARE(TransitionChoice::everything(model, EyeMode::showAll).flavours,
             (Flavours{TransitionFlavour::Own, TransitionFlavour::Pooled, TransitionFlavour::OwnAndPooled}));
    QVERIFY(!TransitionChoice::everything(model, EyeMode::showAll).areas);
    QVERIFY(TransitionChoice::everything(model, EyeMode::showMean).flavours.isEmpty());
    model.pooled(Eye::Left) = {};
    model.insertAoi(AreaOfInterest(QStringLiteral("x"), QPolygon()));
    QCOMPARE(TransitionChoice::everything(model, EyeMode::showAll).flavours,
             (Flavours{TransitionFlavour::Own, TransitionFlavour::OwnAndPooled}));
    QVERIFY(TransitionChoice::everything(model, EyeMode::showAll).areas);
}

QTEST_GUILESS_MAIN(TestTransitionExport)
#include "TestTransitionExport.moc"
