// SPDX-License-Identifier: GPL-3.0-or-later
// Bytes of any kind as a table of areas. What was read from them comes back unchanged when it is saved.

#include "aoi/AoiTable.h"
#include "AoiChecks.h"

#include <QSet>

namespace {

bool isSameOutline(const AreaOfInterest &one, const AreaOfInterest &other)
{
    return one.name == other.name && one.polygon == other.polygon;
}

void checkNames(const QList<AreaOfInterest> &areas)
{
    QSet<QString> names;
    for (const AreaOfInterest &area : areas)
        names << area.name;
    check(names.size() == areas.size());
}

void checkSavedTable(const QList<AreaOfInterest> &areas)
{
    const QByteArray saved = aoiTable(areas);
    const AoiFileContents loaded = parseAoiTable(saved);
    checkWhole(loaded);
    check(std::equal(areas.cbegin(), areas.cend(), loaded.aois.cbegin(), loaded.aois.cend(), isSameOutline));
    check(aoiTable(loaded.aois) == saved);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size)
{
    const QByteArray file(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    const AoiFileContents contents = parseAoiTable(file);
    check(contents.error.isEmpty());
    check((contents.badVertexLines > 0) == (contents.firstBadVertexLine > 0));
    checkTold(contents);
    checkReadAreas(contents.aois);
    checkNames(contents.aois);
    checkSavedTable(contents.aois);
    return 0;
}
