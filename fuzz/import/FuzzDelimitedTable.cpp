// SPDX-License-Identifier: GPL-3.0-or-later
// Bytes of any kind as a table of columns. The first byte chooses among layouts, the second the size of the pieces.

#include "TableChecks.h"

namespace {

TableLayout layoutOf(unsigned char choice)
{
    const auto named = [](const char *name) { return TableColumn::named(QString::fromLatin1(name)); };
    constexpr std::array delimiters{',', '\t', ' ', ';'};
    constexpr std::array units{TableTimeUnit::Milliseconds, TableTimeUnit::Seconds, TableTimeUnit::Clock,
                               TableTimeUnit::Nanoseconds};
    TableLayout layout;
    layout.delimiter = delimiters[choice % 4];
    layout.decimalSign = layout.delimiter == ';' ? ',' : '.';
    layout.timeUnit = units[choice / 4 % 4];
    layout.place.screenPx = {1024, 512};
    layout.place.screenMm = {300, 150};
    layout.place.distanceMm = 600;
    if (choice & 16) {
        layout.header = TableHeader::None;
        layout.time = TableColumn::numbered(1);
        layout.right = {TableColumn::numbered(2), TableColumn::numbered(3), TableColumn::numbered(4), {}, {}};
    } else {
        layout.time = named("t");
        layout.left = {named("x"), named("y"), named("p"), {}, named("v")};
        layout.right = layout.left;
        layout.set = {{QStringLiteral("subject"), named("s")}};
    }
    if (choice & 32) {
        layout.place.unit = TablePlaceUnit::Degrees;
        layout.place.origin = TableOrigin::Centre;
    }
    if ((choice & 80) == 64)
        layout.split << named("s");
    if ((choice & 144) == 128)
        layout.eye.column = named("e");
    return layout;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size)
{
    if (size < 2)
        return 0;
    const TableLayout layout = layoutOf(data[0]);
    checkTable(QByteArray(reinterpret_cast<const char *>(data + 2), static_cast<qsizetype>(size) - 2), layout,
               data[1] % 64 + 1);
    return 0;
}
