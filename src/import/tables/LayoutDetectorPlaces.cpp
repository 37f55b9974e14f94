// SPDX-License-Identifier: GPL-3.0-or-later
// The part of the detector that finds gaze: its columns, unit, codes for missing and validity.

#include "import/tables/LayoutDetector.h"
#include "import/tables/LayoutWords.h"

#include <QLocale>
#include <QMap>
#include <QSet>

#include <algorithm>
#include <cmath>

namespace {

constexpr double justEnough = 0.8;

QString eyeKey(NamedEye eye)
{
    return eye == NamedEye::Left ? QStringLiteral("left") : QStringLiteral("right");
}

/// Pixels are preferred: they need nothing else.
int rankOfUnit(std::optional<TablePlaceUnit> unit)
{
    if (!unit)
        return 1;
    return *unit == TablePlaceUnit::Pixels ? 2 : 0;
}

} // namespace

/// Of the eye, first those in pixels; each x with the next y that is like it.
void LayoutDetector::chooseEye(NamedEye eye, TableEyeColumns &columns, QStringList &others)
{
    struct Pair {
        qsizetype x;
        qsizetype y;
        int rank;
    };
    QList<Pair> pairs;
    for (qsizetype x = 0; x < m_meanings.size(); ++x) {
        const ColumnMeaning &meaning = m_meanings[x];
        if (meaning.role != ColumnRole::GazeX || meaning.eye != eye)
            continue;
        ColumnMeaning wanted = meaning;
        wanted.role = ColumnRole::GazeY;
        for (qsizetype y = x + 1; y < m_meanings.size(); ++y) {
            if (m_meanings[y] == wanted) {
                pairs << Pair{x, y, 2 * rankOfUnit(meaning.placeUnit) + (meaning.isGazeWord ? 1 : 0)};
                break;
            }
        }
    }
    if (pairs.isEmpty())
        return;
    std::ranges::stable_sort(pairs, std::ranges::greater(), &Pair::rank);
    columns.x = columnAt(pairs.constFirst().x);
    columns.y = columnAt(pairs.constFirst().y);
    const bool isContested = pairs.size() > 1 && pairs[1].rank == pairs[0].rank;
    for (const Pair &pair : pairs.sliced(1))
        others << nameAt(pair.x);
    choose(eyeKey(eye) + QStringLiteral(".x"), columns.x.text(), isContested ? certainty::doubtful : certainty::sure,
           isContested ? QStringLiteral("%1 could be it, too").arg(nameAt(pairs[1].x))
                       : QStringLiteral("the names %1 and %2 say so").arg(columns.x.text(), columns.y.text()),
           ChoiceRisk::Numbers);
    if (!isContested) // otherwise they may be those of the other tracker
        chooseFurther(eye, columns);
}

/// Pupil and validity of the same eye.
void LayoutDetector::chooseFurther(NamedEye eye, TableEyeColumns &columns)
{
    const auto take = [&](TableColumn &target, std::initializer_list<ColumnRole> roles) {
        for (qsizetype column = 0; column < m_meanings.size() && !target.isGiven(); ++column) {
            const bool isOfEye = m_meanings[column].eye == eye;
            if (isOfEye && std::ranges::find(roles, m_meanings[column].role) != roles.end() &&
                m_contents[column].numbers + m_contents[column].texts.size() > 0)
                target = columnAt(column);
        }
    };
    take(columns.pupil, {ColumnRole::Pupil});
    take(columns.pupilHeight, {ColumnRole::PupilHeight});
    take(columns.validity, {ColumnRole::Validity, ColumnRole::Confidence});
}

void LayoutDetector::choosePlaces()
{
    TableLayout &layout = m_guess.layout;
    if (!hasName()) {
        choosePlacesByOrder();
        return;
    }
    QStringList others;
    chooseEye(NamedEye::Left, layout.left, others);
    chooseEye(NamedEye::Right, layout.right, others);
    if (!layout.left.isGiven() && !layout.right.isGiven()) {
        for (const NamedEye eye : {NamedEye::None, NamedEye::Both}) {
            if (!layout.right.isGiven())
                chooseEye(eye, layout.right, others);
        }
        // One pupil or validity of a named eye tells whose gaze it is.
        const bool isLeft = layout.right.isGiven() && std::ranges::any_of(m_meanings, [](const ColumnMeaning &each) {
                                return each.eye == NamedEye::Left && each.role == ColumnRole::Pupil;
                            });
        const bool isRight = std::ranges::any_of(m_meanings, [](const ColumnMeaning &each) {
            return each.eye == NamedEye::Right && each.role == ColumnRole::Pupil;
        });
        if (isLeft && !isRight) {
            layout.left = layout.right;
            layout.right = {};
        }
        if (isLeft != isRight)
            chooseFurther(isLeft ? NamedEye::Left : NamedEye::Right, isLeft ? layout.left : layout.right);
        else if (layout.right.isGiven())
            m_guess.doubts << QStringLiteral("The file does not say which eye it has; it is taken as the right one.");
    }
    if (!others.isEmpty())
        m_guess.doubts << QStringLiteral("There are other columns of gaze, which are not used: %1.")
                              .arg(others.join(QStringLiteral(", ")));
}

/// Without names, the first two columns of numbers that are no times.
void LayoutDetector::choosePlacesByOrder()
{
    constexpr double always = 0.995;
    QList<qsizetype> numeric;
    for (qsizetype column = 0; column < m_contents.size(); ++column) {
        const ColumnContents &contents = m_contents[column];
        const bool isTime = contents.isClock || (contents.forwardShare > always && contents.distinct > 2);
        if (contents.numbers > 0 && !isTime && contents.distinct > 1)
            numeric << column;
    }
    if (numeric.size() < 2)
        return;
    TableLayout &layout = m_guess.layout;
    layout.right.x = columnAt(numeric[0]);
    layout.right.y = columnAt(numeric[1]);
    choose(QStringLiteral("right.x"), layout.right.x.text(), certainty::doubtful,
           QStringLiteral("it is the first column of numbers that are no times"), ChoiceRisk::Numbers);
    m_guess.doubts << QStringLiteral(
        "There is no header that says which eye the file has; it is taken as the right one.");
}

/// The places of both eyes, of all lines that have numbers there.
QList<LayoutDetector::Place> LayoutDetector::places() const
{
    QList<Place> places;
    for (const TableEyeColumns &eye : m_guess.layout.eyes()) {
        if (!eye.isGiven())
            continue;
        const qsizetype column = placeOf(eye.x);
        const qsizetype other = placeOf(eye.y);
        for (const TableShape::Row &row : m_shape.rows) {
            const auto x = shapeNumber(row[column], m_shape.decimalSign);
            const auto y = shapeNumber(row[other], m_shape.decimalSign);
            if (x && y)
                places << Place{*x, *y};
        }
    }
    return places;
}

void LayoutDetector::choosePlaceUnit()
{
    using namespace layout_words;
    TableLayout &layout = m_guess.layout;
    const TableEyeColumns &eye = layout.left.isGiven() ? layout.left : layout.right;
    QList<double> values;
    for (const Place &place : places()) {
        if (!(place.x == place.y))
            values << place.x << place.y;
    }
    std::ranges::sort(values);
    const auto part = [&](double share) {
        return values.isEmpty() ? 0 : values[static_cast<qsizetype>(share * static_cast<double>(values.size() - 1))];
    };
    const double low = part(0.05);
    const double high = part(0.95);
    const std::optional<TablePlaceUnit> named = m_meanings.value(placeOf(eye.x)).placeUnit;
    const bool isUnit = !values.isEmpty() && low >= -0.2 && high <= 1.2;
    const bool isPixels = high > 100 && low > -200;
    const auto shown = QStringLiteral("most values lie between %1 and %2").arg(low, 0, 'g', 4).arg(high, 0, 'g', 4);
    layout.place.unit = named.value_or(isUnit ? TablePlaceUnit::Normalised : TablePlaceUnit::Pixels);
    const QString chosen = wordOf(placeUnits, layout.place.unit);
    const QString key = QStringLiteral("place.unit");
    if (named)
        choose(key, chosen, certainty::sure, QStringLiteral("the name %1 says so").arg(eye.x.text()),
               ChoiceRisk::Numbers);
    else if (values.isEmpty())
        choose(key, chosen, certainty::doubtful, QStringLiteral("the lines looked at have no gaze"),
               ChoiceRisk::Numbers);
    else if (isUnit || isPixels)
        choose(key, chosen, certainty::likely, shown, ChoiceRisk::Numbers);
    else
        choose(key, chosen, certainty::doubtful,
               shown + QStringLiteral(", which can be degrees, millimetres or pixels"), ChoiceRisk::Numbers);
    if (layout.place.unit != TablePlaceUnit::Pixels)
        choose(QStringLiteral("place.screenPx"), {}, 0,
               QStringLiteral("places that are no pixels need the size of the screen, and the file does not tell it"),
               ChoiceRisk::Numbers);
    if (layout.place.unit == TablePlaceUnit::Degrees || layout.place.unit == TablePlaceUnit::Millimetres)
        choose(QStringLiteral("place.screenMm"), {}, 0,
               QStringLiteral("lengths and angles need the size of the screen in mm and its distance"),
               ChoiceRisk::Numbers);
    if (layout.place.unit == TablePlaceUnit::Degrees)
        layout.place.origin = TableOrigin::Centre;
    choose(QStringLiteral("place.origin"), wordOf(origins, layout.place.origin), justEnough,
           QStringLiteral("it is the usual one; numbers alone cannot show it"), ChoiceRisk::Numbers);
}

/// Numbers that stand for missing are equal in x and y, and are no place of the gaze.
void LayoutDetector::chooseMissing()
{
    constexpr double farAway = 1e5;
    TableLayout &layout = m_guess.layout;
    QSet<QString> texts;
    constexpr qsizetype mostTexts = 4;
    for (const TableEyeColumns &eye : layout.eyes()) {
        for (const TableShape::Row &row : eye.isGiven() ? m_shape.rows : QList<TableShape::Row>()) {
            const QByteArrayView field = row[placeOf(eye.x)];
            if (!field.isEmpty() && !shapeNumber(field, m_shape.decimalSign) && texts.size() < mostTexts)
                texts.insert(QString::fromUtf8(field).toLower());
        }
    }
    QMap<double, qsizetype> pairs;
    qsizetype others = 0;
    for (const Place &place : places()) {
        if (place.x == place.y && (place.x <= 0 || place.x > farAway))
            ++pairs[place.x];
        else
            ++others;
    }
    for (const QString &text : texts) {
        if (!layout.missing.contains(text))
            layout.missing << text;
    }
    for (auto pair = pairs.constBegin(); pair != pairs.constEnd(); ++pair) {
        const bool isAll = others == 0;
        const QString code = QString::number(pair.key(), 'g', QLocale::FloatingPointShortest); // it has to be met
        if (!isAll)
            layout.missing << code;
        choose(QStringLiteral("missing"), code, isAll ? certainty::doubtful : certainty::likely,
               isAll ? QStringLiteral("every place is %1, %1, and is read as a place").arg(code)
                     : QStringLiteral("%1 places are %2, %2").arg(QString::number(pair.value()), code));
    }
    std::ranges::sort(layout.missing);
}

void LayoutDetector::chooseValidity()
{
    TableLayout &layout = m_guess.layout;
    const TableEyeColumns &eye = layout.left.validity.isGiven() ? layout.left : layout.right;
    if (!eye.validity.isGiven())
        return;
    const qsizetype column = placeOf(eye.validity);
    const ColumnContents &contents = m_contents[column];
    const bool isShare = m_meanings[column].role == ColumnRole::Confidence || contents.hasFractions;
    if (!isShare) {
        chooseCodes(column);
        return;
    }
    constexpr double usualLimit = 0.6; // of 1
    constexpr double all = 100;        // percent
    const bool isPercent = contents.largest > 1;
    layout.valid.kind = TableValidityRule::Kind::AtLeast;
    layout.valid.limit = isPercent ? usualLimit * all : usualLimit;
    const QString range = QStringLiteral("%1 to %2").arg(contents.smallest).arg(contents.largest);
    choose(QStringLiteral("valid.atLeast"), QString::number(layout.valid.limit),
           isPercent ? certainty::doubtful : justEnough,
           isPercent
               ? QStringLiteral("%1 is a confidence of %2, which nobody says to be percent").arg(nameAt(column), range)
               : QStringLiteral("%1 is a confidence from 0 to 1; this is a usual limit").arg(nameAt(column)),
           isPercent ? ChoiceRisk::Numbers : ChoiceRisk::Form);
}

/// A code is valid where the gaze is mostly there.
void LayoutDetector::chooseCodes(qsizetype column)
{
    struct Seen {
        qsizetype present = 0;
        qsizetype missing = 0;
    };
    QMap<QString, Seen> codes;
    for (const TableEyeColumns &eye : m_guess.layout.eyes()) {
        for (const TableShape::Row &row : eye.validity.isGiven() ? m_shape.rows : QList<TableShape::Row>()) {
            const auto x = shapeNumber(row[placeOf(eye.x)], m_shape.decimalSign);
            const auto y = shapeNumber(row[placeOf(eye.y)], m_shape.decimalSign);
            const bool isThere = x && y && !(*x == *y && *x <= 0);
            const QString code = QString::fromUtf8(row[placeOf(eye.validity)]);
            constexpr qsizetype most = 20;
            if (codes.size() < most || codes.contains(code))
                ++(isThere ? codes[code].present : codes[code].missing);
        }
    }
    QStringList valid;
    bool isSeparated = codes.size() > 1;
    for (auto code = codes.constBegin(); code != codes.constEnd(); ++code) {
        if (code->present > code->missing)
            valid << code.key();
        else
            continue;
        isSeparated &= code->missing * 20 <= code->present;
    }
    TableLayout &layout = m_guess.layout;
    const bool isWord = codes.contains(QStringLiteral("Valid")) || codes.contains(QStringLiteral("valid"));
    if (isWord)
        valid =
            QStringList{codes.contains(QStringLiteral("Valid")) ? QStringLiteral("Valid") : QStringLiteral("valid")};
    layout.valid.codes = valid.isEmpty() ? QStringList{QStringLiteral("1")} : valid;
    const bool isClear = isWord || (isSeparated && valid.size() < codes.size());
    choose(QStringLiteral("valid.codes"), layout.valid.codes.join(QStringLiteral(", ")),
           isClear ? 0.9 : certainty::doubtful,
           isClear ? QStringLiteral("with other codes the gaze is missing")
                   : QStringLiteral("the codes of %1 (%2) do not go with missing gaze")
                         .arg(nameAt(column), codes.keys().join(QStringLiteral(", "))),
           ChoiceRisk::Numbers);
}
