// SPDX-License-Identifier: GPL-3.0-or-later
// Bytes of any kind as areas in JSON. What was read from them comes back unchanged when it is saved.

#include "aoi/AoiJson.h"
#include "AoiChecks.h"

namespace {

bool isSameEntry(const AreaOfInterest &one, const AreaOfInterest &other)
{
    return one.name == other.name && one.polygon == other.polygon && one.color == other.color &&
           one.enabled == other.enabled;
}

void checkSavedJson(const QList<AreaOfInterest> &areas)
{
    const QByteArray saved = aoiJson(areas);
    const AoiFileContents loaded = parseAoiJson(saved);
    checkWhole(loaded);
    check(std::equal(areas.cbegin(), areas.cend(), loaded.aois.cbegin(), loaded.aois.cend(), isSameEntry));
    check(aoiJson(loaded.aois) == saved);
}

bool isText(const AreaOfInterest &area)
{
    return area.name.isValidUtf16();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size)
{
    const QByteArray file(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    const AoiFileContents contents = parseAoiJson(file);
    checkTold(contents);
    checkReadAreas(contents.aois);
    // Half of a character can be escaped in a name, but not be written.
    if (std::all_of(contents.aois.cbegin(), contents.aois.cend(), isText))
        checkSavedJson(contents.aois);
    return 0;
}
