// SPDX-License-Identifier: GPL-3.0-or-later
// Bytes of any kind as a file of areas of interest. What was read from them comes back unchanged when it is saved.

#include "aoi/AoiFile.h"
#include "Check.h"

#include <algorithm>

namespace {

void dropLine(QtMsgType, const QMessageLogContext &, const QString &) {}

void checkArea(const AreaOfInterest &area)
{
    check(!area.name.isNull());
    check(!area.polygon.isEmpty());
    check(area.color.isValid());
    check(area.enabled);
    check(area.area() >= 0);
}

bool isSame(const AreaOfInterest &one, const AreaOfInterest &other)
{
    return one.name == other.name && one.polygon == other.polygon && one.color == other.color;
}

void checkRoundTrip(const QList<AreaOfInterest> &areas)
{
    const QByteArray saved = aoiFileText(areas);
    const AoiFileContents loaded = parseAoiFile(saved);
    check(loaded.stoppedAtLine == 0 && loaded.badVertexLines == 0 && loaded.unfinishedBlocks == 0);
    check(std::equal(areas.cbegin(), areas.cend(), loaded.aois.cbegin(), loaded.aois.cend(), isSame));
    check(aoiFileText(loaded.aois) == saved);
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    qInstallMessageHandler(dropLine); // a line for each that is no vertex would be most of the work
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size)
{
    const AoiFileContents contents = parseAoiFile(QByteArrayView(data, static_cast<qsizetype>(size)));
    check((contents.badVertexLines > 0) == (contents.firstBadVertexLine > 0));
    for (const AreaOfInterest &area : contents.aois)
        checkArea(area);
    checkRoundTrip(contents.aois);
    return 0;
}
