// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/BoundedFile.h"

#include <QFile>

std::variant<QByteArray, QString> readBounded(const QString &path, qint64 largest)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return file.errorString();
    const QByteArray bytes = file.read(largest + 1);
    if (file.error() != QFile::NoError)
        return file.errorString();
    if (bytes.size() > largest)
        return QStringLiteral("The file is larger than %1 MB and was not read.").arg(largest >> 20);
    return bytes;
}
