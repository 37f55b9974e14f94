// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/ClusterExport.h"

#include "base/TextFormat.h"

namespace {

QString clusterFields(const FixationCluster &cluster, qsizetype index)
{
    const QStringList fields{QString::number(index), QString::number(cluster.fixations.size()),
                             QString::number(cluster.mean.x()), QString::number(cluster.mean.y()),
                             text::general6(static_cast<double>(cluster.majorAxis.length()))};
    return fields.join(u';');
}

QString clusterTable(const Examination &examination, const QList<FixationCluster> &clusters, TimeFrame frame)
{
    const QString subject = QStringLiteral("\"%1\";\"%2\";").arg(examination.subjectId, examination.subjectText);
    QString table = QStringLiteral("SubjectID;SubjectINFO;Cluster;Fixations;mean_x;mean_y;radius\n");
    for (qsizetype i = 0; i < clusters.size(); ++i) {
        if (frame.holds(clusters[i]))
            table += subject + clusterFields(clusters[i], i) + u'\n';
    }
    return table;
}

QString calculationLines(const CalculationInfo &info)
{
    return QLatin1StringView("Fixation calculation parameters:\n") + info.fixationLines() +
           QLatin1StringView("\nCluster calculation parameters:\n") + info.clusterCalculationInfo +
           QLatin1StringView("\nCumCluster calculation parameters:\n") + info.cumulativeClusterCalculationInfo + u'\n';
}

/// The subjects of the fixations, each once, in the order in which they appear.
QString subjectsOf(const CumulativeCluster &cluster, const QList<Examination> &examinations)
{
    QStringList subjects;
    for (const Fixation &fixation : cluster.fixations) {
        const bool isKnown = fixation.examination >= 0 && fixation.examination < examinations.size();
        if (isKnown && !subjects.contains(examinations[fixation.examination].subjectId))
            subjects << examinations[fixation.examination].subjectId;
    }
    return subjects.join(u',');
}

} // namespace

QString clusterBlock(const Examination &examination, const EyeData &stream, TimeFrame frame)
{
    const QString table = stream.fixationClusters.isEmpty()
                              ? QStringLiteral("Unable to calculate clusters with this parameters!\n") // sic
                              : clusterTable(examination, stream.fixationClusters, frame);
    return table + calculationLines(examination.calculationInfo) + QLatin1StringView("Subject information:\n") +
           examination.subjectText + u'\n';
}

QString cumulativeClusterBlock(const DataModel &model, const EyeData &pooled)
{
    QString table = QStringLiteral("SubjectID;CumCluster;Fixations;mean_x;mean_y;radius;subjects\n");
    const QList<CumulativeCluster> &clusters = pooled.fixationClusters;
    for (qsizetype i = 0; i < clusters.size(); ++i)
        table += QLatin1StringView("\"\";") + clusterFields(clusters[i], i) + u';' +
                 subjectsOf(clusters[i], model.examinations()) + u'\n';
    return table + calculationLines(model.calculationInfo());
}
