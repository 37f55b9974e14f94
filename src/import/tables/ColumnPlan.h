// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "import/tables/TableLayout.h"

#include <QByteArrayView>

/// Which field of a line is what, for the loop over the lines.
struct ColumnPlan {
    /// What is done with a field while the line is walked over; bits.
    enum Use : quint8 { Skip = 0, Number = 1, Time = 2, Text = 4 };

    /// Fields that a sample is made of, by their place among the kept ones; -1: there is none.
    struct Eye {
        int x = -1;
        int y = -1;
        int pupil = -1;
        int pupilHeight = -1;
        int validity = -1;
    };

    /// Whether there are columns of the left and of the right eye.
    std::optional<std::array<bool, 2>> given() const { return std::array{eyes[0].x >= 0, eyes[1].x >= 0}; }

    qsizetype fieldCount = 0; ///< of a whole line; 0: that of the first line of samples
    QList<qint16> kept;       ///< of each field up to the last needed one: place among the kept ones, or -1
    QList<quint8> uses;       ///< of each kept field
    QList<qint16> fields;     ///< of each kept field: its place in the line, from 0
    int time = -1;
    std::array<Eye, 2> eyes; ///< left, right
    int eye = -1;
    QList<int> split;
    QList<int> set;
};

/// Finds the columns of a layout.
///
/// @param names  of the columns; empty where there is no header.
/// @param line   of the header, for the problem.
std::variant<ColumnPlan, TableProblem> columnPlan(const TableLayout &layout, const QStringList &names, qsizetype line);

/// All columns that a layout names or numbers.
QList<TableColumn> columnsOf(const TableLayout &layout);

/// Whether a header has each name of the layout.
bool hasNames(const QStringList &names, const TableLayout &layout);
