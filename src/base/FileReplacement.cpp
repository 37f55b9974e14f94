#include "base/FileReplacement.h"

#include <QFileInfo>
#include <QSaveFile>

std::optional<QString> replaceFile(const QString &path, const QByteArray &bytes)
{
    if (const QFileInfo info(path); info.exists() && !info.isFile())
        return QStringLiteral("it is not a regular file");
    QSaveFile file(path);
    file.setDirectWriteFallback(true); // where the folder takes no second file
    if (file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit())
        return std::nullopt;
    return file.errorString();
}
