// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "import/tables/ColumnContents.h"
#include "import/tables/ColumnNames.h"
#include "import/tables/LayoutDetection.h"

/// How sure a choice is, from 0 to 1, where its reason gives no number of its own.
namespace certainty {
inline constexpr double sure = 0.97;
inline constexpr double likely = 0.85;
inline constexpr double doubtful = 0.5;
} // namespace certainty

/// Finds the layout of a table of columns by its names and contents; lives for the length of one call.
class LayoutDetector {
public:
    LayoutDetector(const TableExtract &extract, const TableShape &shape);

    /// By the content alone.
    LayoutGuess detect();

    /// Checks a layout that was found by the header against the content, whose delimiter, decimal sign and encoding
    /// hold.
    LayoutGuess check(const NamedLayout &known);

private:
    struct Place {
        double x;
        double y;
    };

    QList<Place> places() const;
    void chooseForm();
    void chooseTime();
    void chooseTimeUnit(qsizetype column);
    void chooseUnitByRate(const ColumnContents &time, std::optional<TableTimeUnit> named);
    void choosePlaces();
    void choosePlacesByOrder();
    void chooseEye(NamedEye eye, TableEyeColumns &columns, QStringList &others);
    void chooseFurther(NamedEye eye, TableEyeColumns &columns);
    void choosePlaceUnit();
    void chooseMissing();
    void chooseValidity();
    void chooseCodes(qsizetype column);
    void chooseRecordings();
    void chooseSetColumns();
    void giveMatch();
    void refuse();

    void tellAssumedScreen(const NamedLayout &known);
    void choose(const QString &key, const QString &value, double certainty, const QString &reason,
                ChoiceRisk risk = ChoiceRisk::Form);
    TableColumn columnAt(qsizetype column) const;
    qsizetype placeOf(const TableColumn &column) const;
    QString nameAt(qsizetype column) const { return columnAt(column).text(); }
    bool hasName() const { return !m_shape.names.isEmpty(); }

    const TableExtract &m_extract;
    const TableShape &m_shape;
    QList<ColumnMeaning> m_meanings;
    QList<ColumnContents> m_contents;
    LayoutGuess m_guess;
};
