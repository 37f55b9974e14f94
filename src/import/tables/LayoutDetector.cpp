// SPDX-License-Identifier: GPL-3.0-or-later
#include "import/tables/LayoutDetector.h"

#include "import/tables/LayoutWords.h"

#include <algorithm>
#include <cmath>

namespace {

/// Rates of eye trackers, Hz.
constexpr double slowestTrackerHz = 20;
constexpr double fastestTrackerHz = 2500;

struct UnitRow {
    TableTimeUnit unit;
    double perSecond;
};
constexpr UnitRow units[] = {{TableTimeUnit::Seconds, 1},
                             {TableTimeUnit::Milliseconds, 1e3},
                             {TableTimeUnit::Microseconds, 1e6},
                             {TableTimeUnit::Nanoseconds, 1e9}};

double rateOf(const ColumnContents &time, double perSecond)
{
    return time.meanStep > 0 ? perSecond / time.meanStep : 0;
}

bool isPlausible(double rate)
{
    return rate >= slowestTrackerHz && rate <= fastestTrackerHz;
}

QString word(TableTimeUnit unit)
{
    return layout_words::wordOf(layout_words::timeUnits, unit);
}

} // namespace

LayoutDetector::LayoutDetector(const TableExtract &extract, const TableShape &shape)
    : m_extract(extract)
    , m_shape(shape)
{
    for (qsizetype column = 0; column < m_shape.columns; ++column) {
        m_contents << contentsOf(m_shape, column);
        m_meanings << meaningOf(m_shape.names.value(column));
    }
}

void LayoutDetector::choose(const QString &key, const QString &value, double certainty, const QString &reason,
                            ChoiceRisk risk)
{
    // One answer for each question; of two reasons the one that is less sure counts.
    const bool isList = key == QStringLiteral("missing") || key == QStringLiteral("split");
    const auto same = std::ranges::find(m_guess.choices, key, &LayoutChoice::key);
    const LayoutChoice choice{key, value, certainty, reason, risk};
    if (isList || same == m_guess.choices.end())
        m_guess.choices << choice;
    else if (certainty <= same->certainty)
        *same = choice;
}

TableColumn LayoutDetector::columnAt(qsizetype column) const
{
    const QString name = m_shape.names.value(column);
    const bool isUnique = m_shape.names.count(name) == 1 && m_shape.names.size() >= m_shape.columns;
    return isUnique && !name.isEmpty() ? TableColumn::named(name) : TableColumn::numbered(static_cast<int>(column) + 1);
}

qsizetype LayoutDetector::placeOf(const TableColumn &column) const
{
    return column.number > 0 ? column.number - 1 : m_shape.names.indexOf(column.name);
}

void LayoutDetector::chooseForm()
{
    using namespace layout_words;
    TableLayout &layout = m_guess.layout;
    layout.delimiter = m_shape.delimiter;
    layout.decimalSign = m_shape.decimalSign;
    layout.commentPrefix = m_shape.commentPrefix;
    layout.encoding = TableEncoding::ByMark;
    m_guess.header = m_shape.names;
    const double share = m_shape.alikeShare;
    choose(QStringLiteral("delimiter"), wordOf(delimiters, layout.delimiter),
           share *
               (m_shape.secondShare < m_shape.alikeShare * m_shape.numberShare ? certainty::sure : certainty::likely),
           QStringLiteral("%1% of the lines have %2 columns with it").arg(100 * share, 0, 'f', 0).arg(m_shape.columns));
    choose(QStringLiteral("decimal"), wordOf(decimalSigns, layout.decimalSign),
           m_shape.hasDecimals ? certainty::sure : certainty::likely,
           m_shape.hasDecimals ? QStringLiteral("numbers are written with it")
                               : QStringLiteral("no number has decimals"));
    choose(QStringLiteral("encoding"), wordOf(encodings, m_extract.encoding), certainty::sure,
           QStringLiteral("by the mark at the start and the bytes of the first lines"));
    if (!m_shape.commentPrefix.isEmpty())
        choose(QStringLiteral("comment"), m_shape.commentPrefix, certainty::likely,
               QStringLiteral("the file begins with it"));
    if (hasName()) {
        layout.header = TableHeader::Named;
        choose(QStringLiteral("header"), QStringLiteral("yes"), certainty::sure,
               QStringLiteral("line %1 has names, the lines below it numbers").arg(m_shape.headerLine));
    } else {
        layout.header = TableHeader::None;
        layout.headerLine = m_shape.linesBefore;
        choose(QStringLiteral("header"), QStringLiteral("no"), certainty::likely,
               QStringLiteral("the first lines have numbers"));
    }
    if (share < 1)
        m_guess.doubts << QStringLiteral("%1% of the lines looked at have another number of columns than %2.")
                              .arg(100 * (1 - share), 0, 'f', 1)
                              .arg(m_shape.columns);
    if (hasName() && m_shape.names.size() < m_shape.columns)
        choose(QStringLiteral("header"), QStringLiteral("yes"), certainty::doubtful,
               QStringLiteral("the lines have %1 columns, the header %2 names: which column has which name?")
                   .arg(m_shape.columns)
                   .arg(m_shape.names.size()),
               ChoiceRisk::Numbers);
}

void LayoutDetector::chooseTime()
{
    qsizetype best = -1;
    double bestScore = 0;
    QStringList others;
    for (qsizetype column = 0; column < m_contents.size(); ++column) {
        const ColumnContents &contents = m_contents[column];
        const ColumnRole role = m_meanings[column].role;
        const bool isNamed = role == ColumnRole::Time || role == ColumnRole::SampleCount;
        if (contents.numbers == 0 || contents.forwardShare < certainty::likely || (hasName() && !isNamed))
            continue;
        if (contents.medianStep <= 0 && !(isNamed && m_shape.rows.size() < 2))
            continue;
        // Of several columns of times the one with the most different values measures best.
        const double score = contents.forwardShare + (role == ColumnRole::Time ? 1 : 0) +
                             (m_meanings[column].timeUnit ? 0.2 : 0) +
                             static_cast<double>(contents.changes) / static_cast<double>(m_shape.rows.size());
        if (role == ColumnRole::Time && best >= 0 && score <= bestScore)
            others << nameAt(column);
        if (score > bestScore) {
            if (best >= 0 && m_meanings[best].role == ColumnRole::Time)
                others << nameAt(best);
            best = column;
            bestScore = score;
        }
    }
    if (best < 0) {
        m_guess.layout.timeUnit = TableTimeUnit::Samples;
        choose(QStringLiteral("time.column"), {}, hasName() ? certainty::doubtful : certainty::likely,
               QStringLiteral("no column has numbers that grow like times"));
        choose(QStringLiteral("time.rateHz"), {}, 0,
               QStringLiteral("without times, the samples a second have to be told"), ChoiceRisk::Numbers);
        return;
    }
    m_guess.layout.time = columnAt(best);
    if (!others.isEmpty())
        m_guess.doubts << QStringLiteral("There are other columns of times, which are not used: %1.")
                              .arg(others.join(QStringLiteral(", ")));
    choose(QStringLiteral("time.column"), nameAt(best), hasName() ? certainty::sure : certainty::likely,
           hasName() ? QStringLiteral("its name says so, and its numbers grow")
                     : QStringLiteral("its numbers grow from line to line"),
           ChoiceRisk::Numbers);
    chooseTimeUnit(best);
}

void LayoutDetector::chooseTimeUnit(qsizetype column)
{
    const ColumnContents &time = m_contents[column];
    if (time.isClock) {
        m_guess.layout.timeUnit = TableTimeUnit::Clock;
        choose(QStringLiteral("time.unit"), word(TableTimeUnit::Clock), certainty::sure,
               QStringLiteral("it has times of day such as 12:34:56.789"), ChoiceRisk::Numbers);
        return;
    }
    chooseUnitByRate(time, m_meanings[column].timeUnit);
    const bool isCount = m_meanings[column].role == ColumnRole::SampleCount;
    const bool canBeCount = time.medianStep == 1 && time.meanStep == 1 && !time.hasFractions &&
                            !m_meanings[column].timeUnit && (isCount || time.firstNumber <= 1);
    if (canBeCount)
        choose(QStringLiteral("time.unit"), word(m_guess.layout.timeUnit), certainty::doubtful,
               QStringLiteral("%1 counts 0, 1, 2, ...: these can be milliseconds or numbers of samples")
                   .arg(nameAt(column)),
               ChoiceRisk::Numbers);
}

void LayoutDetector::chooseUnitByRate(const ColumnContents &time, std::optional<TableTimeUnit> named)
{
    std::optional<TableTimeUnit> fitting;
    double fittingRate = 0;
    for (const UnitRow &row : units) {
        const double rate = rateOf(time, row.perSecond);
        if (isPlausible(rate)) {
            fitting = row.unit;
            fittingRate = rate;
        }
    }
    m_guess.layout.timeUnit = named.value_or(fitting.value_or(TableTimeUnit::Milliseconds));
    const QString chosen = word(m_guess.layout.timeUnit);
    const QString measured = QStringLiteral("%1 samples a second").arg(fittingRate, 0, 'g', 4);
    if (named && fitting && *named != *fitting)
        choose(QStringLiteral("time.unit"), chosen, certainty::doubtful,
               QStringLiteral("the name says %1, but only in %2 they are a rate of eye trackers, %3")
                   .arg(chosen, word(*fitting), measured),
               ChoiceRisk::Numbers);
    else if (!fitting)
        choose(QStringLiteral("time.unit"), chosen, certainty::doubtful,
               QStringLiteral("in no unit the steps of %1 are a rate of eye trackers").arg(time.medianStep),
               ChoiceRisk::Numbers);
    else
        choose(QStringLiteral("time.unit"), chosen, named ? certainty::sure : 0.9,
               (named ? QStringLiteral("the name says so, and they are %1")
                      : QStringLiteral("only so they are a rate of eye trackers, %1"))
                   .arg(measured),
               ChoiceRisk::Numbers);
}

void LayoutDetector::giveMatch()
{
    QStringList match;
    for (const QString &name : m_shape.names) {
        if (!name.isEmpty())
            match << name;
    }
    m_guess.layout.match = match;
}

void LayoutDetector::refuse()
{
    QStringList ofEvents;
    for (qsizetype column = 0; column < m_meanings.size(); ++column) {
        if (m_meanings[column].role == ColumnRole::OfEvents)
            ofEvents << m_shape.names[column];
    }
    constexpr qsizetype shown = 5;
    const bool isOfEvents = !ofEvents.isEmpty();
    m_guess.problem = TableProblem{
        .file = m_extract.file,
        .line = m_shape.headerLine,
        .found = isOfEvents ? QStringLiteral("fixations or words instead of samples (columns %1)")
                                  .arg(ofEvents.first(std::min(shown, ofEvents.size())).join(QStringLiteral(", ")))
                            : QStringLiteral("no columns of gaze"),
        .expected = QStringLiteral("a table of samples, with x and y of the gaze in each line"),
        .remedy = isOfEvents ? QStringLiteral("Choose the export of raw samples; fixations are calculated here.")
                             : QStringLiteral("Choose the columns in a layout, or another file.")};
}

LayoutGuess LayoutDetector::detect()
{
    chooseForm();
    choosePlaces();
    if (!m_guess.layout.left.isGiven() && !m_guess.layout.right.isGiven()) {
        refuse();
        return m_guess;
    }
    chooseTime();
    choosePlaceUnit();
    chooseMissing();
    chooseValidity();
    chooseRecordings();
    chooseSetColumns();
    giveMatch();
    return m_guess;
}

/// Parts of a screen say nothing of its size; who saved a layout has told it.
void LayoutDetector::tellAssumedScreen(const NamedLayout &known)
{
    const TableGeometry &place = known.layout.place;
    if (!known.isReady() || place.unit != TablePlaceUnit::Normalised)
        return;
    m_guess.doubts << QStringLiteral(
                          "The layout %1 takes the screen to be %2 x %3 pixels, which the file does not tell; "
                          "give the size of yours, or save a layout that has it.")
                          .arg(known.name)
                          .arg(place.screenPx.width())
                          .arg(place.screenPx.height());
}

LayoutGuess LayoutDetector::check(const NamedLayout &known)
{
    using namespace layout_words;
    const TableLayout &layout = known.layout;
    m_guess.layoutName = known.name;
    m_guess.header = m_shape.names;
    m_guess.layout = layout;
    const auto follow = [&](const QString &key, const QString &value, bool isOther) {
        if (isOther)
            m_guess.doubts << QStringLiteral(
                                  "The layout %1 has another %2 than this file; that of the file, %3, is used.")
                                  .arg(known.name, key, value);
        choose(key, value, certainty::sure, QStringLiteral("the content shows it"));
    };
    follow(QStringLiteral("delimiter"), wordOf(delimiters, m_shape.delimiter), layout.delimiter != m_shape.delimiter);
    const bool isOtherSign = m_shape.hasDecimals && layout.decimalSign != m_shape.decimalSign;
    follow(QStringLiteral("decimal"), wordOf(decimalSigns, isOtherSign ? m_shape.decimalSign : layout.decimalSign),
           isOtherSign);
    m_guess.layout.delimiter = m_shape.delimiter;
    if (isOtherSign)
        m_guess.layout.decimalSign = m_shape.decimalSign;
    m_guess.layout.encoding = TableEncoding::ByMark;
    choose(QStringLiteral("columns"), known.name, certainty::sure,
           QStringLiteral("the header is that of the layout %1").arg(known.name));
    tellAssumedScreen(known);
    const qsizetype time = layout.time.isGiven() ? placeOf(layout.time) : -1;
    if (time < 0 || time >= m_contents.size() || layout.timeUnit == TableTimeUnit::Samples)
        return m_guess;
    const auto row = std::ranges::find(units, layout.timeUnit, &UnitRow::unit);
    const bool isClock = layout.timeUnit == TableTimeUnit::Clock;
    const ColumnContents &contents = m_contents[time];
    const bool fits =
        isClock ? contents.isClock
                : row == std::end(units) || contents.meanStep <= 0 || isPlausible(rateOf(contents, row->perSecond));
    choose(QStringLiteral("time.unit"), word(layout.timeUnit), fits ? certainty::sure : certainty::doubtful,
           fits ? QStringLiteral("the layout %1 says so, and the rate is that of an eye tracker").arg(known.name)
                : QStringLiteral("the layout %1 says so, but then the rate is that of no eye tracker").arg(known.name),
           ChoiceRisk::Numbers);
    return m_guess;
}
