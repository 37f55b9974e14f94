// SPDX-License-Identifier: GPL-3.0-or-later
#include "import/conversion/ImportSession.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>

#include <algorithm>

namespace {

using namespace Qt::Literals::StringLiterals;

constexpr qsizetype previewSamples = 20'000;
constexpr qsizetype mostColumns = 200; ///< that a list can show

QString eyeSummary(const QString &eye, bool isThere, qsizetype valid, qsizetype samples)
{
    constexpr double all = 100; // percent
    const double share = samples > 0 ? all * static_cast<double>(valid) / static_cast<double>(samples) : 0;
    return isThere ? u", %1 eye valid in %2 %"_s.arg(eye, QString::number(share, 'f', 0)) : QString();
}

QString recordingSummary(const TableRecording &recording, bool isPart)
{
    constexpr double msPerSecond = 1000;
    const TableFacts &facts = recording.facts;
    const QString rate = facts.rateHz > 0 ? QString::number(facts.rateHz, 'g', 5) + u" Hz"_s : u"no rate"_s;
    return u"%1: %2%3 samples, %4, %5 s%6%7"_s.arg(
        recording.name, isPart ? u"the first "_s : QString(), QString::number(facts.samples), rate,
        QString::number((facts.lastTimeMs - facts.firstTimeMs) / msPerSecond, 'f', 2),
        eyeSummary(u"left"_s, facts.hasLeft, facts.leftValid, facts.samples),
        eyeSummary(u"right"_s, facts.hasRight, facts.rightValid, facts.samples));
}

QString stimulusOf(const QString &table, const TableContent &content)
{
    if (content.recordings.isEmpty())
        return {};
    for (const TableEntry &entry : content.recordings.constFirst().entries) {
        const QFileInfo picture(QFileInfo(table).absoluteDir(), entry.value);
        if (entry.key == "stimulus"_L1 && picture.isFile())
            return picture.absoluteFilePath();
    }
    return {};
}

/// Of a table without samples the limit would be its end: nobody waits longer for a look.
TableReadOptions lookOptions(qint64 longestMs, bool &isStopped)
{
    TableReadOptions options;
    options.sampleLimit = previewSamples;
    QElapsedTimer time;
    time.start();
    options.progress = [&isStopped, longestMs, time](double) {
        isStopped = time.elapsed() >= longestMs;
        return !isStopped;
    };
    return options;
}

/// What was found stays one recording until somebody asks for more.
void joinRecordings(TableToImport &table)
{
    for (const TableColumn &column : std::as_const(table.layout.split))
        table.guess.doubts << u"%1 could separate recordings, and the table is read as one; choose it at \"A recording "
                              "for each\" to split it."_s.arg(column.text());
    table.layout.split.clear();
}

QStringList messagesOf(const QString &path, const TableLayout &layout, qint64 longestLookMs)
{
    if (layout.kind != TableKind::EventLog)
        return {};
    bool isStopped = false;
    const TableReadOptions options = lookOptions(longestLookMs, isStopped);
    const auto read = readTable(path, layout, options);
    const auto *content = std::get_if<TableContent>(&read);
    return content ? content->messageWords : QStringList();
}

} // namespace

QStringList tablesIn(const QString &folder)
{
    const QStringList endings{u"*.csv"_s, u"*.tsv"_s,    u"*.txt"_s,    u"*.asc"_s,    u"*.dat"_s,
                              u"*.tab"_s, u"*.csv.gz"_s, u"*.tsv.gz"_s, u"*.txt.gz"_s, u"*.asc.gz"_s};
    QStringList paths;
    for (const QString &name : QDir(folder).entryList(endings, QDir::Files, QDir::Name))
        paths << QDir(folder).filePath(name);
    return paths;
}

void ImportSession::add(const QStringList &paths)
{
    for (const QString &path : paths) {
        if (QFileInfo(path).isDir()) {
            for (const QString &table : tablesIn(path))
                addFile(table);
        } else {
            addFile(path);
        }
    }
}

/// Who saved a layout has said what separates recordings.
bool ImportSession::isOfUser(const QString &layoutName) const
{
    const NamedLayout *known = layoutByName(layoutName, m_known);
    return known && !known->isReady();
}

void ImportSession::remember(const NamedLayout &layout)
{
    m_known.removeIf([&](const NamedLayout &known) { return known.name == layout.name; });
    m_known << layout;
}

void ImportSession::addFile(const QString &path)
{
    if (std::ranges::any_of(m_tables, [&](const TableToImport &table) { return table.path == path; }))
        return;
    TableToImport table;
    table.path = path;
    const auto extract = readExtract(path);
    if (const auto *problem = std::get_if<TableProblem>(&extract)) {
        table.unreadable = *problem;
    } else {
        table.extract = std::get<TableExtract>(extract);
        table.guess = detectLayout(table.extract, m_known);
        table.layout = table.guess.layout;
        if (!isOfUser(table.guess.layoutName))
            joinRecordings(table);
        table.messages = messagesOf(path, table.layout, m_longestLookMs);
    }
    m_tables << table;
}

bool ImportSession::change(qsizetype table, const LayoutField &field, const QString &text)
{
    TableLayout changed = m_tables[table].layout;
    if (!field.write(changed, text))
        return false;
    const TableLayout before = m_tables[table].layout;
    for (TableToImport &each : m_tables) {
        if (each.unreadable || !(each.layout == before))
            continue;
        each.layout = changed;
        each.isSeen = true;
        each.guess.choices.removeIf([&](const LayoutChoice &choice) { return choice.key == field.key; });
    }
    return true;
}

void ImportSession::setLayout(qsizetype table, const TableLayout &layout)
{
    const TableLayout before = m_tables[table].layout;
    for (TableToImport &each : m_tables) {
        if (each.unreadable || !(each.layout == before))
            continue;
        each.layout = layout;
        each.isSeen = true;
        each.guess.choices.clear();
        each.guess.doubts.clear();
    }
}

QStringList ImportSession::doubts(qsizetype table) const
{
    const LayoutGuess &guess = m_tables[table].guess;
    return guess.questions() + guess.doubts;
}

const LayoutChoice *ImportSession::choice(qsizetype table, QLatin1StringView key) const
{
    const QList<LayoutChoice> &choices = m_tables[table].guess.choices;
    const auto found = std::ranges::find(choices, key, &LayoutChoice::key);
    return found == choices.end() ? nullptr : &*found;
}

QStringList ImportSession::columns(qsizetype table) const
{
    const TableToImport &each = m_tables[table];
    if (each.layout.header != TableHeader::None)
        return each.guess.header.first(std::min(mostColumns, each.guess.header.size()));
    qsizetype count = each.guess.header.size();
    for (const QString &line : each.extract.head.mid(0, 10))
        count = std::max(count, line.count(QLatin1Char(each.layout.delimiter)) + 1);
    QStringList columns;
    for (qsizetype i = 1; i <= std::min(count, mostColumns); ++i)
        columns << TableColumn::numbered(static_cast<int>(i)).text();
    return columns;
}

QStringList ImportSession::suggestions(qsizetype table, const LayoutField &field) const
{
    if (field.words)
        return field.words();
    const bool isMessage = field.kind == LayoutField::Kind::Message;
    return QStringList(QString()) + (isMessage ? m_tables[table].messages : columns(table));
}

QString ImportSession::state(qsizetype table) const
{
    const TableToImport &each = m_tables[table];
    if (each.unreadable)
        return u"cannot be read"_s;
    if (each.guess.problem && !each.isSeen)
        return u"no samples found"_s;
    if (layoutProblem(each.layout))
        return u"needs choices"_s;
    const qsizetype questions = each.guess.questions().size();
    return questions == 0 ? u"ready"_s : u"ready, %1 to look at"_s.arg(questions);
}

TablePreview ImportSession::preview(qsizetype table) const
{
    const TableToImport &each = m_tables[table];
    TablePreview preview;
    if (each.unreadable) {
        preview.problem = each.unreadable->text();
        return preview;
    }
    if (each.guess.problem && !each.isSeen) {
        preview.problem = each.guess.problem->text();
        return preview;
    }
    bool isStopped = false;
    auto read = readTable(each.path, each.layout, lookOptions(m_longestLookMs, isStopped));
    if (isStopped)
        preview.note = u"Reading is slow: only what came within a second is shown. The import reads the whole file."_s;
    if (const auto *problem = std::get_if<TableProblem>(&read)) {
        preview.problem = problem->text();
        return preview;
    }
    preview.content = std::get<TableContent>(std::move(read));
    qsizetype samples = 0;
    for (const TableRecording &recording : std::as_const(preview.content.recordings))
        samples += recording.facts.samples;
    preview.isPart = isStopped || samples >= previewSamples;
    for (const TableRecording &recording : std::as_const(preview.content.recordings)) {
        preview.recordings << recordingSummary(recording, preview.isPart);
        for (const TableOddity &oddity : recording.oddities)
            preview.oddities << (preview.content.recordings.size() == 1
                                     ? oddity.sentence
                                     : u"%1: %2"_s.arg(recording.name, oddity.sentence));
    }
    for (const TableOddity &oddity : std::as_const(preview.content.oddities))
        preview.oddities << oddity.sentence;
    preview.stimulus = stimulusOf(each.path, preview.content);
    return preview;
}

std::optional<TableProblem> ImportSession::problemOf(const TableToImport &table)
{
    if (table.unreadable)
        return table.unreadable;
    if (table.guess.problem && !table.isSeen)
        return table.guess.problem;
    return layoutProblem(table.layout);
}

QList<std::pair<QString, LayoutRequest>> ImportSession::requests() const
{
    QList<std::pair<QString, LayoutRequest>> requests;
    for (const TableToImport &each : m_tables) {
        if (!problemOf(each))
            requests.emplaceBack(each.path,
                                 LayoutRequest{.layout = NamedLayout{{}, {}, each.layout}, .known = {}, .split = {}});
    }
    return requests;
}

QList<TableProblem> ImportSession::leftOut() const
{
    QList<TableProblem> problems;
    for (const TableToImport &each : m_tables) {
        if (std::optional<TableProblem> problem = problemOf(each)) {
            problem->file = each.path;
            problems << *problem;
        }
    }
    return problems;
}
