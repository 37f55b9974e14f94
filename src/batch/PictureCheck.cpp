// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/PictureCheck.h"

#include "model/PictureFile.h"

#include <QFileInfo>
#include <QImageReader>

bool isReadable(const QString &path)
{
    const QFileInfo info(path);
    return info.isFile() && info.isReadable();
}

std::optional<QString> pictureProblem(const QString &path)
{
    if (path.isEmpty())
        return std::nullopt;
    if (!isReadable(path))
        return QStringLiteral("no such file, or it cannot be read");
    if (!QImageReader(path).canRead())
        return QStringLiteral("not a picture");
    QString problem;
    if (!readPicture(path, &problem).isNull())
        return std::nullopt;
    return QStringLiteral("the picture cannot be decoded: %1. Save it anew or, if it is larger than %2 MB in memory, "
                          "smaller.")
        .arg(problem, QString::number(QImageReader::allocationLimit()));
}
