// SPDX-License-Identifier: GPL-3.0-or-later
// Bytes of any kind as a table whose layout is to be found; what is found is used.

#include "import/tables/LayoutDetection.h"
#include "TableChecks.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size)
{
    QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    QBuffer buffer(&bytes);
    check(buffer.open(QIODevice::ReadOnly));
    const auto extract = readExtract(buffer, QStringLiteral("table.csv"));
    if (!std::holds_alternative<TableExtract>(extract))
        return 0;
    static const LayoutList ready = readyLayouts();
    const LayoutGuess guess = detectLayout(std::get<TableExtract>(extract), ready.layouts);
    check(guess.certainty() >= 0 && guess.certainty() <= 1);
    check(guess.problem || !guess.choices.isEmpty());
    for (const LayoutChoice &choice : guess.choices)
        check(!choice.key.isEmpty() && !choice.reason.isEmpty());
    if (!guess.problem && !layoutProblem(guess.layout))
        checkTable(bytes, guess.layout, 7);
    return 0;
}
