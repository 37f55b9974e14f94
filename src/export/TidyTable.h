// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

#include <optional>

/// Text of a tidy table: fields with commas in between, quoted where they need it (RFC 4180), lines ended by "\n".
/// Numbers have a decimal point and as many digits as tell them from every other number; what is not defined is empty.
class TidyTable {
public:
    explicit TidyTable(const QStringList &header) { addRow(header); }

    void addRow(const QStringList &fields);

    /// The text as it stands in the table.
    static QString field(QString text);

    static QString number(std::optional<double> value);

    const QString &text() const { return m_text; }

private:
    QString m_text;
};
