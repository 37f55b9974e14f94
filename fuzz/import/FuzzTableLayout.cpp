// SPDX-License-Identifier: GPL-3.0-or-later
// Bytes of any kind as a layout: what is read is written, and read again as the same.

#include "Check.h"
#include "import/tables/TableLayout.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size)
{
    const auto read =
        layoutFromJson(QByteArrayView(data, static_cast<qsizetype>(size)), QStringLiteral("a.layout.json"));
    if (const auto *problem = std::get_if<TableProblem>(&read)) {
        check(!problem->text().isEmpty());
        return 0;
    }
    const auto &layout = std::get<TableLayout>(read);
    check(!layoutProblem(layout).has_value());
    const QByteArray json = layoutJson(layout);
    const auto again = layoutFromJson(json, {});
    check(std::holds_alternative<TableLayout>(again));
    check(layoutJson(std::get<TableLayout>(again)) == json);
    return 0;
}
