// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "import/tables/TableFile.h"

#include <QByteArrayView>

class NumberFields;

/// How the start and the end of a text fall into columns, before anybody asks what they mean.
class TableShape {
public:
    static constexpr qsizetype mostColumns = 1000; ///< that are looked at

    explicit TableShape(const TableExtract &extract);
    TableShape(const TableShape &) = delete;
    TableShape &operator=(const TableShape &) = delete;

    using Row = QList<QByteArrayView>;

    char delimiter = ',';
    char decimalSign = '.';
    QString commentPrefix;
    QStringList names;         ///< of the header; empty without one
    qsizetype headerLine = 0;  ///< from 1; 0 without a header
    qsizetype linesBefore = 0; ///< that stand before the header or, without one, before the first row
    qsizetype columns = 0;     ///< of most rows
    QList<Row> rows;           ///< lines below the header with that many fields, those of the tail at the end
    qsizetype headRows = 0;    ///< of them, those from the head
    double alikeShare = 0;     ///< of the lines below the header, those that are rows
    double numberShare = 0;    ///< of all fields of the rows, those that are numbers or empty
    double secondShare = 0;    ///< the same for the next best delimiter and decimal sign
    bool hasDecimals = false;  ///< any number has a decimal sign

private:
    struct Split;
    struct Trial;
    void findComment(const QStringList &head);
    Split splitBy(char sign) const;
    static Trial tryOut(const Split &split, char sign, const NumberFields &numbers);
    void takeBest();
    void findHeader();
    void takeRows();

    QList<QByteArray> m_lines;      ///< of the head, then of the tail, as UTF-8
    QList<qsizetype> m_lineNumbers; ///< in the head; 0 for those of the tail
};

/// A number with this decimal sign, or nothing; exponents included.
std::optional<double> shapeNumber(QByteArrayView field, char decimalSign);
