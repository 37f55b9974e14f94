// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "import/PlainNumber.h"
#include "import/tables/TableLayout.h"

#include <QByteArrayView>

/// The limit of a table's width.
constexpr qsizetype mostTableColumns = 10'000;

inline bool isBlank(char byte)
{
    return byte == ' ' || byte == '\t';
}

/// Behind the closing quote of a quoted field, and behind what follows it up to the delimiter; `end` without one.
const char *endOfQuotedField(const char *at, const char *end, char delimiter);

/// Without blanks around it, and without quotes.
QByteArrayView bareField(QByteArrayView field);

/// The bare fields of a line; ' ' stands for any number of blanks and tabs.
/// @param largest  no more are split; the rest of the line is left out.
QList<QByteArrayView> splitFields(QByteArrayView line, char delimiter, qsizetype largest = mostTableColumns + 1);

enum class FieldState {
    Number,
    Missing, ///< empty, or a code for missing
    Text,
};

struct FieldValue {
    double value = 0;
    FieldState state = FieldState::Missing;
};

/// Turns fields into numbers by the decimal sign of a layout.
class NumberFields {
public:
    /// @param missing  codes as the fields have them; numbers may have a point, too.
    NumberFields(char decimalSign, const QList<QByteArray> &missing, TableTimeUnit timeUnit);

    /// Any field: exponents, a plus sign and codes for missing included.
    /// @param shift  see PlainNumber::value.
    FieldValue read(QByteArrayView field, int shift = 0) const;
    /// A time in ms; counts of samples as they are.
    FieldValue readTime(QByteArrayView field) const;
    /// Of a time in the layout's unit; see PlainNumber::value.
    int timeShift() const { return m_timeShift; }
    char decimalSign() const { return m_decimalSign; }
    /// Whether a number is a code for missing.
    bool isMissingCode(double value) const { return !m_missingNumbers.isEmpty() && m_missingNumbers.contains(value); }

private:
    FieldValue readClock(QByteArrayView field) const;
    bool isMissingText(QByteArrayView field) const;

    char m_decimalSign;
    bool m_isClock;
    int m_timeShift;
    QList<double> m_missingNumbers;
    QList<QByteArray> m_missingTexts;
};
