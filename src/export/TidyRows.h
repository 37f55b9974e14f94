// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

/// Adds the number in the form of `TidyTable::number`; nothing where it is not finite.
void appendNumber(QByteArray &bytes, double number);
void appendInteger(QByteArray &bytes, qint64 number);

/// Rows of a tidy table as bytes in UTF-8: fields with commas in between, quoted where they need it, lines ended by
/// "\n"; texts and numbers have the form of `TidyTable`. For tables of millions of rows.
class TidyRows {
public:
    /// @param lead  what each row begins with.
    explicit TidyRows(const QStringList &lead);

    void beginRow() { m_bytes += m_lead; }
    void endRow() { m_bytes.back() = '\n'; }

    void addText(QStringView text);
    /// A text that needs no quotes.
    void addWord(QLatin1StringView word) { m_bytes.append(word.data(), word.size()).append(','); }
    void addInteger(qint64 number);
    /// What is nothing, or not finite, is empty.
    void addNumber(std::optional<double> number);

    const QByteArray &bytes() const { return m_bytes; }

private:
    QByteArray m_lead;
    QByteArray m_bytes;
};
