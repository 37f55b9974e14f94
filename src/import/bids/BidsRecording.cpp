// SPDX-License-Identifier: GPL-3.0-or-later
#include "import/bids/BidsRecording.h"

#include "import/bids/BidsEvents.h"
#include "import/bids/BidsFiles.h"
#include "import/EyeStreams.h"
#include "import/tables/RecordingSamples.h"
#include "import/tables/TableFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace {

using namespace Qt::Literals::StringLiterals;

/// The samples of one eye in whole ms of the clock that all eyes and their events share, and what describes them.
struct EyeTable {
    QString path;
    BidsEyeTable description;
    QList<GazePoint> samples;
    QStringList doubts;
};

using EyeTableOrProblem = std::variant<EyeTable, TableProblem>;

QString fileName(const QString &path)
{
    return QFileInfo(path).fileName();
}

/// What an eye holds at a time without gaze, as the import of other recordings has it.
GazePoint missingSample(Eye eye, qint64 timeMs)
{
    const double nothing = eye == Eye::Mean ? -1 : 0;
    return {timeMs, nothing, nothing, nothing, nothing, 0};
}

GazePoint gazePointOfEye(Eye eye, const DataSample &sample)
{
    const auto point = [&](const TableEyeSample &values, int validity) {
        return GazePoint(sample.timeMs, values.x, values.y, values.pupilWidth, values.pupilHeight, validity);
    };
    if (sample.leftValidity == 1)
        return point(sample.left, 1);
    return sample.rightValidity == 1 ? point(sample.right, 0) : missingSample(eye, sample.timeMs);
}

/// What the joined samples do not tell of themselves.
bool isToldOfTable(TableOddityKind kind)
{
    return kind == TableOddityKind::NotANumber || kind == TableOddityKind::TimeNotANumber ||
           kind == TableOddityKind::ColumnsChanged || kind == TableOddityKind::RoundedTime ||
           kind == TableOddityKind::BeforeZeroTime;
}

void takeOddities(const QList<TableOddity> &oddities, EyeTable &table)
{
    for (const TableOddity &oddity : oddities) {
        if (isToldOfTable(oddity.kind))
            table.doubts << u"%1: %2"_s.arg(fileName(table.path), oddity.sentence);
    }
}

/// What to add to times before zero, as few as there are, so that a .data file could hold them. Whole ms: the rounding
/// stays the same for all eyes and events.
double shiftMs(const TableContent &content, double startMs)
{
    constexpr double most = 9e15; // beyond this a number of ms has no exact double
    for (const TableRecording &recording : content.recordings) {
        if (!recording.samples.isEmpty())
            return std::clamp(std::ceil(-(recording.samples[0].timeMs + startMs)), 0.0, most);
    }
    return 0;
}

EyeTableOrProblem readSamples(EyeTable table)
{
    const auto read = readTable(table.path, table.description.layout);
    if (const auto *problem = std::get_if<TableProblem>(&read))
        return *problem;
    const auto &content = std::get<TableContent>(read);
    takeOddities(content.oddities, table);
    const double shift = shiftMs(content, table.description.startMs);
    DataSampleMaker maker;
    for (const TableRecording &recording : content.recordings) {
        takeOddities(recording.oddities, table);
        table.samples.reserve(table.samples.size() + recording.samples.size());
        for (TableSample sample : recording.samples) {
            sample.timeMs += table.description.startMs + shift;
            auto made = maker.next(sample);
            if (!made)
                continue;
            made->timeMs -= static_cast<qint64>(shift);
            table.samples << gazePointOfEye(table.description.eye, *made);
        }
    }
    takeOddities(maker.oddities(), table);
    return table;
}

/// The samples of one file; nothing where it is of another kind than eye tracking, and there are others.
std::optional<EyeTableOrProblem> readEye(const QString &path, const QJsonObject &screen, qsizetype files)
{
    const auto described = bidsDescription(path, u"physio"_s);
    if (const auto *problem = std::get_if<TableProblem>(&described))
        return *problem;
    const QJsonObject &description = std::get<QJsonObject>(described);
    if (files > 1 && description.contains(u"PhysioType"_s) && !isEyeTracking(description))
        return std::nullopt; // of a heart, say
    const auto table = bidsEyeTable(description, screen, bidsSidecarPath(path, u"physio"_s));
    if (const auto *problem = std::get_if<TableProblem>(&table))
        return *problem;
    return readSamples({path, std::get<BidsEyeTable>(table), {}, {}});
}

std::variant<QList<EyeTable>, TableProblem> readEyes(const BidsRun &run)
{
    const auto events = bidsDescription(run.directory + run.name + "_events.tsv"_L1, u"events"_s);
    if (const auto *problem = std::get_if<TableProblem>(&events))
        return *problem;
    const QJsonObject screen = std::get<QJsonObject>(events)[u"StimulusPresentation"_s].toObject();
    QList<EyeTable> eyes;
    for (const QString &path : run.samples) {
        const auto read = readEye(path, screen, run.samples.size());
        if (!read)
            continue;
        if (const auto *problem = std::get_if<TableProblem>(&*read))
            return *problem;
        const auto &table = std::get<EyeTable>(*read);
        for (const EyeTable &other : std::as_const(eyes)) {
            if (other.description.eye == table.description.eye)
                return TableProblem{.file = bidsSidecarPath(path, u"physio"_s),
                                    .found = u"the same RecordedEye as of %1"_s.arg(fileName(other.path)),
                                    .expected = u"an eye for each file of the run"_s,
                                    .remedy = u"Correct RecordedEye, or take one of the files away."_s};
        }
        eyes << table;
    }
    if (eyes.isEmpty())
        return TableProblem{.file = run.directory + run.name,
                            .found = u"no table of eye tracking (_physio.tsv.gz) of this run"_s,
                            .expected = u"one for each eye"_s,
                            .remedy = u"Put it beside the description."_s};
    return eyes;
}

/// The samples of up to three eyes, joined by their times: index 0 left, 1 right, 2 mean.
class EyeJoin {
public:
    explicit EyeJoin(const QList<EyeTable> &tables)
    {
        for (const EyeTable &table : tables)
            m_lists[placeOf(table.description.eye)] = &table.samples;
    }

    static size_t placeOf(Eye eye) { return eye == Eye::Mean ? 2 : static_cast<size_t>(eye); }
    bool has(Eye eye) const { return m_lists[placeOf(eye)] != nullptr; }

    /// Calls for each time with the samples of left, right and mean.
    template <class Take>
    void forEach(const Take &take)
    {
        while (const std::optional<qint64> time = nextTime()) {
            std::array<GazePoint, 3> samples;
            bool isComplete = true;
            for (size_t i = 0; i < samples.size(); ++i) {
                const bool isHere = hasNext(i) && (*m_lists[i])[m_next[i]].time == *time;
                isComplete &= isHere || !m_lists[i];
                samples[i] = isHere ? (*m_lists[i])[m_next[i]++] : missingSample(eyes[i], *time);
            }
            m_incomplete += isComplete ? 0 : 1;
            take(*time, samples);
        }
    }

    /// Times so far at which one of several eyes has no sample.
    qsizetype incomplete() const { return m_incomplete; }

private:
    static constexpr std::array eyes = {Eye::Left, Eye::Right, Eye::Mean}; ///< of the indices

    bool hasNext(size_t i) const { return m_lists[i] && m_next[i] < m_lists[i]->size(); }

    std::optional<qint64> nextTime() const
    {
        std::optional<qint64> time;
        for (size_t i = 0; i < m_lists.size(); ++i) {
            if (hasNext(i) && (!time || (*m_lists[i])[m_next[i]].time < *time))
                time = (*m_lists[i])[m_next[i]].time;
        }
        return time;
    }

    std::array<const QList<GazePoint> *, 3> m_lists{};
    std::array<qsizetype, 3> m_next{};
    qsizetype m_incomplete = 0;
};

struct JoinedTimes {
    qint64 zeroMs = 0; ///< that of the samples, on the files' clock
    qsizetype incomplete = 0;
};

/// Puts the samples into the examination.
JoinedTimes joinEyes(const QList<EyeTable> &tables, ImportedFile &file)
{
    EyeJoin join(tables);
    EyeStreams streams;
    QList<GazePoint> mean;
    std::optional<qint64> zero;
    qint64 last = 0;
    join.forEach([&](qint64 time, std::array<GazePoint, 3> &samples) {
        if (!zero)
            zero = time;
        else
            file.counts.countStep(elapsedMs(last, time), file.counts.samples + 1);
        last = time;
        for (GazePoint &sample : samples)
            sample.time = elapsedMs(*zero, sample.time);
        streams.add(samples[0], samples[0].validFlag ? 1 : 0, samples[1], samples[1].validFlag ? 1 : 0);
        mean << samples[2];
        ++file.counts.samples;
        file.examination.importOk |= samples[2].validFlag;
    });
    file.counts.durationMs = zero ? elapsedMs(*zero, last) : 0;
    file.examination.importOk |= streams.anyValid();
    if (file.examination.importOk) {
        streams.moveTo(file.examination);
        if (join.has(Eye::Mean))
            file.examination.meanEye.gazePoints = mean;
    }
    return {zero.value_or(0), join.incomplete()};
}

// ---- events

void readEvents(const EyeTable &table, qint64 timeZeroMs, ImportedFile &file, BidsSections &sections)
{
    QString path = table.path;
    path.replace("_physio.tsv"_L1, "_physioevents.tsv"_L1);
    if (!QFile::exists(path))
        return;
    const auto refuse = [&](const QString &reason) {
        file.doubts << u"%1: the events were not read, because %2"_s.arg(fileName(path), reason);
    };
    const auto description = bidsDescription(path, u"physioevents"_s);
    if (const auto *problem = std::get_if<TableProblem>(&description))
        return refuse(problem->text());
    const auto columns = bidsEventColumns(std::get<QJsonObject>(description), table.description.layout.timeUnit,
                                          bidsSidecarPath(path, u"physioevents"_s));
    if (const auto *problem = std::get_if<TableProblem>(&columns))
        return refuse(problem->text());
    QString reason;
    const std::optional<QByteArray> text = unpackedFile(path, reason);
    if (!text)
        return refuse(reason + u'.');
    const BidsEventList list = bidsEvents(*text, std::get<BidsEventColumns>(columns));
    EyeData &stream = file.examination.stream(table.description.eye);
    const std::optional<BidsSections> made = putSections(list.events, timeZeroMs, stream);
    if (!made)
        return refuse(u"events overlap: together they have many times the samples of the recording."_s);
    if (list.unreadable > 0)
        file.doubts
            << u"%1: events without onset or duration, left out: %2."_s.arg(fileName(path)).arg(list.unreadable);
    if (made->fixations == 0)
        return;
    stream.calculationInfo = u"Read from %1\n"_s.arg(fileName(path));
    file.examination.calculationInfo.fixationCalculationInfo = stream.calculationInfo;
    sections.fixations += made->fixations;
    sections.saccades += made->saccades;
    sections.losses += made->losses;
}

void tellSections(const BidsSections &sections, ImportedFile &file)
{
    file.furtherCounts = reportedCounts(file.counts);
    file.furtherCounts[u"fixations"_s] = sections.fixations;
    file.doubts
        << u"fixations, saccades and losses of its eyes, read with the samples: %1, %2 and %3. They stand until "
           "fixations are calculated: the calculation replaces them."_s.arg(sections.fixations)
               .arg(sections.saccades)
               .arg(sections.losses);
}

// ---- who was recorded

/// The row of a subject in a table of participants, as lines of a set file.
QStringList participantLines(const QString &table, const QString &participant)
{
    QFile file(table);
    constexpr qint64 largest = qint64(64) << 20;
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QStringList rows = QString::fromUtf8(file.read(largest)).split(u'\n');
    const QStringList header = rows.constFirst().trimmed().split(u'\t');
    for (const QString &row : rows.mid(1)) {
        const QStringList fields = row.trimmed().split(u'\t');
        if (fields.constFirst() != participant)
            continue;
        QStringList lines;
        for (qsizetype i = 1; i < std::min(header.size(), fields.size()); ++i) {
            if (fields[i] != "n/a"_L1)
                lines << header[i] + u'=' + fields[i];
        }
        return lines;
    }
    return {};
}

/// The folder of the data set: the one that holds that of the subject.
QString datasetOf(const BidsRun &run)
{
    QDir folder(QFileInfo(run.directory).absolutePath());
    while (!folder.exists(u"dataset_description.json"_s) && !folder.exists(u"participants.tsv"_s)) {
        if (!folder.cdUp() || folder.isRoot())
            return run.directory;
    }
    return folder.path() + u'/';
}

/// Lines of a set file, for a data set of others from what it says of the person.
QStringList setFileLines(const BidsRun &run, const BidsEyeTable &table)
{
    if (!table.setFile.isEmpty())
        return table.setFile;
    const QString participant = run.name.section(u'_', 0, 0);
    QStringList lines = participantLines(datasetOf(run) + "participants.tsv"_L1, participant);
    if (lines.filter(u"subjectID="_s).isEmpty())
        lines.prepend(u"subjectID="_s + participant.section(u'-', 1));
    return QStringList(u"[subject]"_s) + lines;
}

/// A base name ends at the last stop.
RecordingPath recordingPathOf(const BidsRun &run)
{
    return RecordingPath(run.directory + run.name + ".tsv"_L1);
}

void describe(const BidsRun &run, const BidsEyeTable &table, ImportedFile &file)
{
    QStringList lines = setFileLines(run, table);
    const QString stimuli = datasetOf(run) + "stimuli/"_L1;
    if (!lines.isEmpty() && lines[0].startsWith("picturename="_L1)) {
        const QString name = lines[0].section(u'=', 1);
        if (!name.contains(u'/') && QFile::exists(stimuli + name))
            lines.insert(1, u"picturepath="_s + QDir(run.directory).relativeFilePath(stimuli + name));
    }
    const DescribedExamination described = parseSetFile((lines.join(u'\n') + u'\n').toUtf8(), recordingPathOf(run));
    file.examination = described.examination;
    file.images = described.images;
}

void readRun(const BidsRun &run, ImportedFile &file)
{
    const auto eyes = readEyes(run);
    if (const auto *problem = std::get_if<TableProblem>(&eyes)) {
        file.messages << corruptRecording(file.path, problem->text().chopped(1));
        return;
    }
    const auto &tables = std::get<QList<EyeTable>>(eyes);
    describe(run, tables.constFirst().description, file);
    const JoinedTimes times = joinEyes(tables, file);
    if (!file.examination.importOk) {
        file.messages << corruptRecording(file.path, u"none of its samples is valid"_s);
        return;
    }
    file.doubts = importDoubts(file.counts);
    if (times.incomplete > 0)
        file.doubts << u"at %1 of %2 times not every eye has a sample: one without counts as lost then."_s
                           .arg(times.incomplete)
                           .arg(file.counts.samples);
    BidsSections sections;
    for (const EyeTable &table : tables) {
        file.doubts += table.doubts;
        readEvents(table, times.zeroMs, file, sections);
    }
    if (sections.fixations > 0)
        tellSections(sections, file);
}

} // namespace

ImportedFile readBidsRecording(const QString &path)
{
    ImportedFile file;
    file.path = path;
    try {
        readRun(bidsRun(path), file);
    } catch (const std::bad_alloc &) {
        file = {};
        file.path = path;
        file.messages << corruptRecording(path, u"it does not fit into the memory"_s);
    }
    return file;
}

ImportedFile readRecordingOrBids(const QString &path, const Log *log)
{
    return isBidsSamples(path) ? readBidsRecording(path) : readRecording(path, log);
}

RecordingPath recordingOrBidsPath(const QString &path)
{
    return isBidsSamples(path) ? recordingPathOf(bidsRun(path)) : RecordingPath(path);
}
