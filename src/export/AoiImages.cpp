// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/AoiImages.h"

#include "base/FileReplacement.h"
#include "base/NamedPlace.h"

#include <QBuffer>

namespace {

/// Why there is no file of the area; nothing if it is written.
std::optional<QString> written(const AreaOfInterest &area, const std::optional<QString> &path)
{
    if (!path || area.name.isEmpty() || area.name.contains(u'/'))
        return QStringLiteral("the name is none of a file in this folder; give the area another one");
    if (area.thumbnail.isNull())
        return QStringLiteral("the area has no size");
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    if (!area.thumbnail.save(&buffer, "png"))
        return QStringLiteral("the picture cannot be encoded");
    return replaceFile(*path, buffer.data());
}

} // namespace

ExportResult exportAoiImages(const QList<AreaOfInterest> &areas, const QString &folder)
{
    ExportResult result;
    for (const AreaOfInterest &area : areas) {
        const QString name = area.name + QLatin1StringView(".png");
        const std::optional<QString> path = placeInside(folder, name);
        if (const auto problem = written(area, path))
            result.refuse(folder + u'/' + name, *problem);
        else
            result.written << *path;
    }
    return result;
}
