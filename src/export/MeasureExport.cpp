// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/MeasureExport.h"

#include "base/Messages.h"
#include "export/ExportedStreams.h"
#include "export/TextTable.h"
#include "export/TidyTable.h"
#include "statistics/AoiVisits.h"
#include "statistics/GroupComparison.h"
#include "statistics/ScanpathMeasures.h"

namespace {

using Text = QLatin1StringView;

using Stream = ExportedStream;

QStringList lead(const Stream &stream)
{
    return {stream.examination->baseName, stream.examination->subjectId, eyeWord(stream.eye)};
}

/// Does the work of each place of a list side by side with that of the others.
template <class List, class Work>
void forEachPlace(const List &list, int threads, const Work &work)
{
    sideBySide(
        static_cast<qsizetype>(list.size()), threads, [&](qsizetype i) { work(static_cast<size_t>(i)); },
        [](qsizetype) {});
}

/// A result for each stream, in their order, made side by side.
template <class Result, class Make>
std::vector<Result> forEachStream(const std::vector<Stream> &streams, int threads, const Make &make)
{
    std::vector<Result> results(streams.size());
    forEachPlace(results, threads, [&](size_t i) { results[i] = make(streams[i].data()); });
    return results;
}

std::vector<QList<AoiVisits>> visitsOf(const std::vector<Stream> &streams, const DataModel &model, int threads)
{
    const AoiIndex index(model.aoiList());
    return forEachStream<QList<AoiVisits>>(
        streams, threads, [&](const EyeData &stream) { return aoiVisits(stream, index, model.timeFrame()); });
}

std::vector<ScanpathMeasures> scanpathsOf(const std::vector<Stream> &streams, const DataModel &model,
                                          const MeasureForm &form)
{
    const AoiIndex index(model.aoiList());
    return forEachStream<ScanpathMeasures>(streams, form.threads, [&](const EyeData &stream) {
        return scanpathMeasures(stream, index, model.timeFrame(), form.pixelPerDistance);
    });
}

template <class Record>
QStringList names(std::span<const Measure<Record>> measures)
{
    QStringList all;
    for (const Measure<Record> &measure : measures)
        all << measure.name;
    return all;
}

template <class Record>
QStringList numbers(std::span<const Measure<Record>> measures, const Record &record)
{
    QStringList all;
    for (const Measure<Record> &measure : measures)
        all << TidyTable::number(measure.value(record));
    return all;
}

QStringList leadNames()
{
    return {QStringLiteral("recording"), QStringLiteral("subject"), QStringLiteral("eye")};
}

ExportResult write(const QString &path, const QString &text, const QString &title)
{
    ExportResult result;
    writeTable(path, text, result);
    tellExported(title + Text(" Export"), title + Text(" exported to: ") + path, result);
    return result;
}

// ---- comparison of groups

/// One measure of one area through one eye, to be compared.
struct Question {
    Eye eye;
    QString measure;
    QString area; ///< empty: a measure of the whole scanpath
    QList<SubjectValue> values;
    GroupComparison answer{};
};

/// The values of one measure over all streams of an eye that have a group.
template <class Measured>
Question question(const std::vector<Stream> &streams, Eye eye, const QString &column, const Measured &measured)
{
    Question asked{.eye = eye, .measure = {}, .area = {}, .values = {}};
    for (size_t i = 0; i < streams.size(); ++i) {
        const QString group = streams[i].eye == eye ? groupOf(*streams[i].examination, column) : QString();
        if (group.isEmpty())
            continue;
        if (const std::optional<double> value = measured(i))
            asked.values << SubjectValue{streams[i].subject(), group, *value};
    }
    return asked;
}

std::vector<Question> questionsOf(const DataModel &model, EyeMode eyes, const MeasureForm &form)
{
    const std::vector<Stream> streams = streamsOf(model, eyes);
    const std::vector<QList<AoiVisits>> visits = visitsOf(streams, model, form.threads);
    const std::vector<ScanpathMeasures> scanpaths = scanpathsOf(streams, model, form);
    const QList<AreaOfInterest> areas = model.aoiList();
    std::vector<Question> all;
    const auto ask = [&](Eye eye, Text measure, const QString &area, const auto &measured) {
        all.push_back(question(streams, eye, model.comparedBy, measured));
        all.back().measure = measure;
        all.back().area = area;
    };
    for (const Eye eye : eyesOf(eyes)) {
        for (const Measure<ScanpathMeasures> &measure : scanpathMeasureColumns())
            ask(eye, measure.name, {}, [&](size_t i) { return measure.value(scanpaths[i]); });
        for (const Measure<AoiVisits> &measure : aoiVisitMeasures()) {
            for (qsizetype area = 0; area < areas.size(); ++area)
                ask(eye, measure.name, areas[area].name, [&](size_t i) { return measure.value(visits[i][area]); });
        }
    }
    return all;
}

/// The tests of one measure over all areas are one family.
void correct(std::vector<Question> &questions)
{
    for (size_t begin = 0; begin < questions.size();) {
        QList<GroupDifference *> family;
        size_t end = begin;
        while (end < questions.size() && questions[end].eye == questions[begin].eye &&
               questions[end].measure == questions[begin].measure &&
               questions[end].area.isEmpty() == questions[begin].area.isEmpty())
        {
            if (questions[end].answer.difference)
                family << &*questions[end].answer.difference;
            ++end;
        }
        correctByHolm(family);
        begin = end;
    }
}

QStringList differenceFields(const GroupComparison &answer, bool isFirst)
{
    constexpr Text designs[] = {Text("independent"), Text("paired"), Text("mixed")};
    if (!answer.difference)
        return {{}, {}, {}, {}, {}, {}};
    const GroupDifference &difference = *answer.difference;
    const double sign = isFirst ? 1 : -1;
    return {answer.groups[isFirst ? 1 : 0].group,
            designs[static_cast<size_t>(difference.design)],
            TidyTable::number(sign * difference.difference),
            TidyTable::number(difference.p),
            TidyTable::number(difference.holm),
            TidyTable::number(sign * difference.cliffsDelta)};
}

} // namespace

QString groupOf(const Examination &examination, const QString &column)
{
    const QString none = QStringLiteral("None");
    if (column == QLatin1StringView("group") && examination.groupName != none)
        return examination.groupName;
    const QString value = examination.properties.value(column);
    return value == none ? QString() : value;
}

ExportResult exportAoiMeasures(const DataModel &model, const ExportTarget &target, const MeasureForm &form)
{
    const std::vector<Stream> streams = streamsOf(model, target.eyes);
    const std::vector<QList<AoiVisits>> visits = visitsOf(streams, model, form.threads);
    const QList<AreaOfInterest> areas = model.aoiList();
    TidyTable table(leadNames() + QStringList(QStringLiteral("aoi")) + names(aoiVisitMeasures()));
    for (size_t i = 0; i < streams.size(); ++i) {
        for (qsizetype area = 0; area < areas.size(); ++area)
            table.addRow(lead(streams[i]) + QStringList(areas[area].name) +
                         numbers(aoiVisitMeasures(), visits[i][area]));
    }
    return write(pathStem(target) + Text("_aoi_measures.csv"), table.text(), QStringLiteral("AOI measures"));
}

ExportResult exportScanpathMeasures(const DataModel &model, const ExportTarget &target, const MeasureForm &form)
{
    const std::vector<Stream> streams = streamsOf(model, target.eyes);
    const std::vector<ScanpathMeasures> scanpaths = scanpathsOf(streams, model, form);
    TidyTable table(leadNames() + names(scanpathMeasureColumns()));
    for (size_t i = 0; i < streams.size(); ++i)
        table.addRow(lead(streams[i]) + numbers(scanpathMeasureColumns(), scanpaths[i]));
    return write(pathStem(target) + Text("_scanpath_measures.csv"), table.text(), QStringLiteral("Scanpath measures"));
}

QList<QStringList> groupComparisonRows(const DataModel &model, EyeMode eyes, const MeasureForm &form)
{
    std::vector<Question> questions = questionsOf(model, eyes, form);
    forEachPlace(questions, form.threads, [&](size_t i) { questions[i].answer = compareGroups(questions[i].values); });
    correct(questions);
    QList<QStringList> rows{QStringLiteral("eye,measure,aoi,group,subjects,mean,median,standard_deviation,"
                                           "mean_ci95_low,mean_ci95_high,compared_with,design,mean_difference,"
                                           "p_permutation,p_holm,cliffs_delta")
                                .split(u',')};
    for (const Question &each : questions) {
        for (qsizetype i = 0; i < each.answer.groups.size(); ++i) {
            const GroupSummary &group = each.answer.groups[i];
            rows << QStringList{eyeWord(each.eye),
                                each.measure,
                                each.area,
                                group.group,
                                QString::number(group.subjects),
                                TidyTable::number(group.mean),
                                TidyTable::number(group.median),
                                TidyTable::number(group.deviation),
                                TidyTable::number(group.lower),
                                TidyTable::number(group.upper)} +
                        differenceFields(each.answer, i == 0);
        }
    }
    return rows;
}

QString noGroupsText(const DataModel &model)
{
    return QStringLiteral("No checked examination has an entry \"%1\": there are no groups to compare.")
        .arg(model.comparedBy);
}

ExportResult exportGroupComparison(const DataModel &model, const ExportTarget &target, const MeasureForm &form)
{
    const QList<QStringList> rows = groupComparisonRows(model, target.eyes, form);
    if (rows.size() < 2) {
        messages::warning(QStringLiteral("Group comparison Export"), noGroupsText(model));
        return {};
    }
    TidyTable table(rows.first());
    for (const QStringList &row : rows.mid(1))
        table.addRow(row);
    return write(pathStem(target) + Text("_group_comparison.csv"), table.text(), QStringLiteral("Group comparison"));
}
