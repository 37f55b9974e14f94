// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/TidyRows.h"

#include "export/TidyTable.h"

#include <charconv>
#include <cmath>

namespace {

QByteArray field(QStringView text)
{
    return TidyTable::field(text.toString()).toUtf8();
}

} // namespace

TidyRows::TidyRows(const QStringList &lead)
{
    for (const QString &text : lead)
        m_lead += field(text) + ',';
}

void TidyRows::addText(QStringView text)
{
    if (!text.isEmpty())
        m_bytes += field(text);
    m_bytes += ',';
}

void TidyRows::addInteger(qint64 number)
{
    appendInteger(m_bytes, number);
    m_bytes += ',';
}

void TidyRows::addNumber(std::optional<double> number)
{
    if (number)
        appendNumber(m_bytes, *number);
    m_bytes += ',';
}

void appendInteger(QByteArray &bytes, qint64 number)
{
    constexpr std::size_t longest = 24;
    char digits[longest];
    const char *const end = std::to_chars(digits, digits + longest, number).ptr;
    bytes.append(digits, end - digits);
}

/// The standard library is several times as fast and gives the same digits where all whole numbers are exact.
void appendNumber(QByteArray &bytes, double number)
{
    constexpr double exact = 9007199254740992; // 2^53
    if (!(std::abs(number) < exact)) {
        bytes += TidyTable::number(number).toLatin1();
        return;
    }
    constexpr std::size_t longest = 32;
    char digits[longest];
    const char *const end = std::to_chars(digits, digits + longest, number == 0 ? 0.0 : number).ptr;
    bytes.append(digits, end - digits);
}
