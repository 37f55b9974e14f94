// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "import/tables/TableProblem.h"

#include <QList>
#include <QSizeF>
#include <QStringList>

#include <array>
#include <optional>
#include <variant>

/// A text of columns, or a log in which samples stand among events and messages.
enum class TableKind { Delimited, EventLog };

/// By mark: UTF-16 and UTF-8 by their byte order mark, otherwise UTF-8 where the names are valid UTF-8, else Latin-1.
enum class TableEncoding { ByMark, Utf8, Latin1, Utf16LittleEndian, Utf16BigEndian };

enum class TableTimeUnit {
    Seconds,
    Milliseconds,
    Microseconds,
    Nanoseconds,
    Clock,   ///< time of day, "hh:mm:ss.zzz" with any number of decimals, a date before it is passed over
    Samples, ///< a count of samples, or no column at all: the rate makes it a time
};

enum class TablePlaceUnit {
    Pixels,
    Normalised, ///< 0 to 1 of the screen
    Millimetres,
    Degrees, ///< of visual angle from the middle of the screen, each axis for itself
};

enum class TableOrigin { TopLeft, Centre, BottomLeft };

enum class TableAxis { RightOrDown, LeftOrUp };

enum class TableHeader {
    None,
    Named, ///< the first line that has the columns' names and is no comment
    Line,  ///< the line with a number given
};

/// A column by the name in the header, or by its number.
struct TableColumn {
    bool operator==(const TableColumn &) const = default;

    static TableColumn named(const QString &name) { return {name, 0}; }
    static TableColumn numbered(int number) { return {{}, number}; }
    bool isGiven() const { return number > 0 || !name.isEmpty(); }
    /// The name, or "column 3".
    QString text() const;

    QString name;   ///< empty: by number
    int number = 0; ///< from 1; 0: by name
};

struct TableEyeColumns {
    bool operator==(const TableEyeColumns &) const = default;
    bool isGiven() const { return x.isGiven() && y.isGiven(); }

    TableColumn x;
    TableColumn y;
    TableColumn pupil;       ///< width; the height, too, where that has no column
    TableColumn pupilHeight; ///< not given as a rule
    TableColumn validity;    ///< not given: an eye is valid where it is not missing
};

/// What the validity column has to hold for a valid sample.
struct TableValidityRule {
    bool operator==(const TableValidityRule &) const = default;
    enum class Kind { Codes, AtLeast, AtMost };

    Kind kind = Kind::Codes;
    QStringList codes{QStringLiteral("1")}; ///< compared as numbers where both are numbers, else as text
    double limit = 0;                       ///< of a confidence, for the other kinds
};

/// Where the gaze is measured. Sizes are 0 where they are not known.
struct TableGeometry {
    bool operator==(const TableGeometry &) const = default;

    TablePlaceUnit unit = TablePlaceUnit::Pixels;
    TableOrigin origin = TableOrigin::TopLeft;
    TableAxis xAxis = TableAxis::RightOrDown;
    TableAxis yAxis = TableAxis::RightOrDown;
    QSizeF screenPx{0, 0};
    QSizeF screenMm{0, 0};
    double distanceMm = 0; ///< from the eye to the screen
};

/// Lines of a table that belong to one eye each.
struct TableEyeColumn {
    bool operator==(const TableEyeColumn &) const = default;

    TableColumn column;                                              ///< not given: every line has all eyes
    QStringList left{QStringLiteral("left"), QStringLiteral("L")};   ///< values, in any case
    QStringList right{QStringLiteral("right"), QStringLiteral("R")}; ///< values, in any case
};

/// A column whose first value goes into the set file of a recording.
struct TableSetColumn {
    bool operator==(const TableSetColumn &) const = default;

    QString key; ///< "subject", "group", "stimulus", "dominant" have a place of their own; others are properties
    TableColumn column;
};

/// How to read a table of samples. Plain data with a readable form on disk, NAME.layout.json.
struct TableLayout {
    bool operator==(const TableLayout &) const = default;

    static constexpr int version = 1;

    /// Of the eye at this index: 0 left, 1 right.
    std::array<TableEyeColumns, 2> eyes() const { return {left, right}; }

    QString description; ///< one line for lists of layouts
    TableKind kind = TableKind::Delimited;
    TableEncoding encoding = TableEncoding::ByMark;
    QStringList match; ///< names that a header must have for this layout to be found by it; empty: never found

    // Of delimited tables.
    char delimiter = ','; ///< ' ' stands for any number of blanks and tabs
    char decimalSign = '.';
    TableHeader header = TableHeader::Named;
    qsizetype headerLine = 0; ///< from 1, for TableHeader::Line; without header 0, or the last line before the samples
    QString commentPrefix;    ///< lines that begin so are passed over; empty: none
    TableColumn time;
    TableEyeColumns left;
    TableEyeColumns right;
    TableTimeUnit timeUnit = TableTimeUnit::Milliseconds;
    double rateHz = 0; ///< for TableTimeUnit::Samples
    QStringList missing{QStringLiteral("nan"), QStringLiteral("na"), QStringLiteral(".")}; ///< beside empty fields
    TableValidityRule valid;
    QList<TableColumn> split; ///< each combination of values is a recording of its own; empty: one recording
    TableEyeColumn eye;
    QList<TableSetColumn> set;

    // Of event logs; the first one empty: one recording.
    QString beginMessage; ///< a message that begins so begins a recording
    QString endMessage;   ///< and so ends it; empty: it lasts until the next one begins

    // Of both.
    TableGeometry place;
};

/// The form on disk; the same layout gives the same bytes.
QByteArray layoutJson(const TableLayout &layout);

/// Reads the form on disk. An unknown version or key, a wrong type, a value out of range and a layout that lacks what
/// it needs are refused with key, what was found and what was expected.
/// @param file  for the problem's text.
std::variant<TableLayout, TableProblem> layoutFromJson(QByteArrayView json, const QString &file);

/// What a layout lacks before a table can be read with it, such as columns or the screen for degrees.
std::optional<TableProblem> layoutProblem(const TableLayout &layout);
