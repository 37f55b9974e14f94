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
    constexpr std::size_t longest = 24;
    char digits[longest];
    const char *const end = std::to_chars(digits, digits + longest, number).ptr;
    m_bytes.append(digits, end - digits).append(',');
}

/// The standard library is several times as fast and gives the same digits where all whole numbers are exact.
void TidyRows::addNumber(std::optional<double> number)
{
    constexpr double exact = 9007199254740992; // 2^53
    if (number && std::abs(*number) < exact) {
        constexpr std::size_t longest = 32;
        char digits[longest];
        const char *const end = std::to_chars(digits, digits + longest, *number == 0 ? 0.0 : *number).ptr;
        m_bytes.append(digits, end - digits);
    } else {
        m_bytes += TidyTable::number(number).toLatin1();
    }
    m_bytes += ',';
}
