// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "import/tables/TableShape.h"

#include <QHash>

/// What the rows of a table have in one column.
struct ColumnContents {
    qsizetype numbers = 0;
    qsizetype empty = 0;
    QHash<QByteArray, qsizetype> texts; ///< fields that are neither, with their counts; up to 50 of them
    double smallest = 0;
    double largest = 0;
    bool hasFractions = false;
    bool isClock = false;    ///< most fields are times of day
    double forwardShare = 0; ///< of the steps between rows of the head, those of 0 or more
    double medianStep = 0;   ///< of the steps above 0
    double meanStep = 0;     ///< of the steps that are not backward, jumps of ten medians left out
    qsizetype distinct = 0;  ///< values, up to 50
    qsizetype changes = 0;   ///< rows with another value than the row before
    double firstNumber = 0;
};

ColumnContents contentsOf(const TableShape &shape, qsizetype column);
