// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/AoiInput.h"

#include "aoi/AoiFiles.h"
#include "base/Messages.h"

namespace {

QString numberText(qsizetype value)
{
    return QString::number(value);
}

/// Damaged files hold names of any length.
QString shortened(const QString &name)
{
    constexpr qsizetype longest = 40;
    return name.size() > longest ? name.left(longest) + QStringLiteral("...") : name;
}

QString missingAreas(const AoiFileContents &contents)
{
    if (!contents.error.isEmpty())
        return QStringLiteral("cannot be read: %1.").arg(contents.error);
    if (contents.stoppedAtLine == 1)
        return QStringLiteral("no area is read, since line 1 is not \"AOI FILE\".");
    if (contents.stoppedAtLine > 1)
        return QStringLiteral(
                   "reading stopped at line %1; areas read before: %2. In each block, color= and name= stand "
                   "before the first vertex.")
            .arg(numberText(contents.stoppedAtLine), numberText(contents.aois.size()));
    if (contents.aois.isEmpty())
        return QStringLiteral("holds no area of interest.");
    return {};
}

QString badVertexLines(const AoiFileContents &contents)
{
    if (contents.badVertexLines == 0)
        return {};
    return QStringLiteral(
               "lines left out that are no vertex: %1; the first is line %2. A vertex is two whole numbers with "
               "one blank between them.")
        .arg(numberText(contents.badVertexLines), numberText(contents.firstBadVertexLine));
}

QString unfinishedBlocks(const AoiFileContents &contents)
{
    if (contents.unfinishedBlocks == 0)
        return {};
    return QStringLiteral("areas left out that have no name or no vertices: %1. Each needs both.")
        .arg(numberText(contents.unfinishedBlocks));
}

QString replacedAreas(const QStringList &names)
{
    if (names.isEmpty())
        return {};
    return QStringLiteral(
               "areas that replace one of the same name: %1; the first is \"%2\". Each area needs a name of its "
               "own.")
        .arg(numberText(names.size()), shortened(names.first()));
}

/// Puts the areas into the model; the names of those that replaced another one.
QStringList insertAll(const QList<AreaOfInterest> &aois, DataModel &model)
{
    QStringList replaced;
    for (const AreaOfInterest &aoi : aois) {
        if (model.hasAoi(aoi.name))
            replaced << aoi.name;
        model.insertAoi(aoi);
    }
    return replaced;
}

} // namespace

AoiInput loadAoiFile(const QString &path, DataModel &model)
{
    const AoiFileContents contents = readAois(path);
    const QString missing = missingAreas(contents);
    const QString replaced = replacedAreas(insertAll(contents.aois, model));
    // Readers of other forms say in their own words what was left out.
    const QStringList leftOut = contents.remarks.isEmpty()
                                    ? QStringList{badVertexLines(contents), unfinishedBlocks(contents)}
                                    : contents.remarks;
    for (const QString &problem : QStringList{missing} + leftOut + QStringList{replaced}) {
        if (!problem.isEmpty())
            messages::warning(QStringLiteral("Areas of interest"), path + QStringLiteral(": ") + problem);
    }
    return {.used = !contents.aois.isEmpty(),
            .complete = missing.isEmpty(),
            .counts = {{QStringLiteral("areas"), contents.aois.size()},
                       {QStringLiteral("lines that are no vertex"), contents.badVertexLines}}};
}
