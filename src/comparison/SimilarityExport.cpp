// SPDX-License-Identifier: GPL-3.0-or-later
#include "comparison/SimilarityExport.h"

#include "base/Messages.h"
#include "base/SideBySide.h"
#include "comparison/GroupSimilarity.h"
#include "export/TextTable.h"
#include "export/TidyTable.h"

namespace {

using Text = QLatin1StringView;

QString pairTable(const std::vector<SimilaritySet> &sets)
{
    TidyTable table(
        QStringLiteral("picture,eye,recording_a,subject_a,recording_b,subject_b,measure,value").split(u','));
    const auto measures = similarityMeasures();
    for (const SimilaritySet &set : sets) {
        for (const ScanpathPair &pair : set.pairs) {
            const ComparedRecording &a = set.recordings[pair.first];
            const ComparedRecording &b = set.recordings[pair.second];
            for (std::size_t i = 0; i < measures.size(); ++i)
                table.addRow({set.picture, eyeWord(set.eye), a.recording, a.subject, b.recording, b.subject,
                              measures[i].name, TidyTable::number(pair.values[i])});
        }
    }
    return table.text();
}

/// A measure of a set, and what came of it.
struct Question {
    const SimilaritySet *set;
    std::size_t measure;
    GroupSimilarity answer{};
};

std::vector<Question> answered(const std::vector<SimilaritySet> &sets, int threads)
{
    std::vector<Question> questions;
    for (const SimilaritySet &set : sets) {
        for (std::size_t measure = 0; measure < similarityMeasures().size(); ++measure)
            questions.push_back({&set, measure});
    }
    sideBySide(
        static_cast<qsizetype>(questions.size()), threads,
        [&](qsizetype i) {
            Question &each = questions[static_cast<std::size_t>(i)];
            each.answer = compareGroups(*each.set, each.measure);
        },
        [](qsizetype) {});
    return questions;
}

} // namespace

QList<QStringList> groupSimilarityRows(const std::vector<SimilaritySet> &sets, int threads)
{
    QList<QStringList> rows{
        QStringLiteral("picture,eye,measure,comparison,group_a,group_b,subject_pairs,mean,p_permutation").split(u',')};
    for (const auto &[set, measure, answer] : answered(sets, threads)) {
        const QStringList lead{set->picture, eyeWord(set->eye), similarityMeasures()[measure].name};
        const auto add = [&, &each = lead](Text comparison, const QString &a, const QString &b, int pairs, double mean,
                                           double p) {
            rows << each + QStringList{comparison,          a, b, QString::number(pairs), TidyTable::number(mean),
                                       TidyTable::number(p)};
        };
        for (const GroupPair &pair : answer.pairs)
            add(pair.first == pair.second ? Text("within") : Text("between"), pair.first, pair.second,
                pair.subjectPairs, pair.mean, undefined);
        if (answer.withinPairs > 0 && answer.betweenPairs > 0) {
            add(Text("within"), {}, {}, answer.withinPairs, answer.within, undefined);
            add(Text("between"), {}, {}, answer.betweenPairs, answer.between, undefined);
            add(Text("within-between"), {}, {}, answer.withinPairs + answer.betweenPairs,
                answer.within - answer.between, answer.p);
        }
    }
    return rows;
}

ExportResult exportScanpathSimilarity(const std::vector<SimilaritySet> &sets, const ExportTarget &target, int threads)
{
    const QString title = QStringLiteral("Scanpath similarity Export");
    if (sets.empty()) {
        messages::warning(title, QStringLiteral("No two checked examinations show the same picture: there is nothing "
                                                "to compare."));
        return {};
    }
    ExportResult result;
    const QString path = pathStem(target) + Text("_scanpath_similarity.csv");
    writeTable(path, pairTable(sets), result);
    const QList<QStringList> groups = groupSimilarityRows(sets, threads);
    if (groups.size() > 1) {
        TidyTable table(groups.first());
        for (const QStringList &row : groups.mid(1))
            table.addRow(row);
        writeTable(pathStem(target) + Text("_scanpath_similarity_groups.csv"), table.text(), result);
    }
    tellExported(title, QStringLiteral("Scanpath similarity exported to: ") + path, result);
    return result;
}
