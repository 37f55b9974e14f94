// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/NamedPlace.h"

#include <QDir>
#include <QFileInfo>
#include <QMap>

#include <algorithm>

namespace {

bool isBelow(const QString &path, const QString &folder)
{
    return path.startsWith(folder.endsWith(u'/') ? folder : folder + u'/');
}

/// The nearest folder above the path that exists, without links; empty where there is none.
QString existingFolder(const QString &path)
{
    QString folder = QFileInfo(path).path();
    while (!QFileInfo::exists(folder) && folder != QFileInfo(folder).path())
        folder = QFileInfo(folder).path();
    return QFileInfo(folder).canonicalFilePath();
}

} // namespace

std::optional<QString> placeInside(const QString &folder, const QString &name)
{
    const QString root = QDir::cleanPath(QFileInfo(folder).absoluteFilePath());
    const bool isName =
        !name.isEmpty() && !name.contains(QChar(u'\0')) && !name.endsWith(u'/') && !QFileInfo(name).isAbsolute();
    if (!isName || !isBelow(QDir::cleanPath(root + u'/' + name), root))
        return std::nullopt;
    const QString canonicalRoot = QFileInfo(root).canonicalFilePath();
    const QString canonicalFolder = existingFolder(root + u'/' + name);
    if (!canonicalRoot.isEmpty() && canonicalFolder != canonicalRoot && !isBelow(canonicalFolder, canonicalRoot))
        return std::nullopt;
    return folder + QDir::separator() + name;
}

QString fileIdentity(const QString &path)
{
    if (path.isEmpty())
        return {};
    const QFileInfo info(path);
    if (QString file = info.canonicalFilePath(); !file.isEmpty()) // a pipe of the shell has none
        return file;
    const QString folder = info.dir().canonicalPath();
    return folder.isEmpty() ? QDir::cleanPath(info.absoluteFilePath()) : QDir(folder).filePath(info.fileName());
}

QList<QStringList> waysToOneFile(const QStringList &paths)
{
    QMap<QString, QStringList> ways;
    QStringList files; // in the order in which they come
    for (const QString &path : paths) {
        const QString file = fileIdentity(path);
        if (!ways.contains(file))
            files << file;
        ways[file] << path;
    }
    QList<QStringList> several;
    for (const QString &file : std::as_const(files)) {
        if (ways[file].size() > 1)
            several << ways[file];
    }
    return several;
}

QString fileNameOf(const QString &path)
{
    return path.sliced(std::max(path.lastIndexOf(u'/'), path.lastIndexOf(u'\\')) + 1);
}
