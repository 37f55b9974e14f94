// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFile>
#include <QTemporaryDir>

/// A folder of recordings and set files that lives as long as the object.
class ImportFiles {
public:
    QString path(const QString &name) const { return m_folder.filePath(name); }

    /// @return the path of the new file.
    QString write(const QString &name, const QByteArray &bytes) const
    {
        QFile file(path(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("cannot write %s", qPrintable(path(name)));
        return path(name);
    }

    QByteArray read(const QString &name) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    /// A recording of two samples, 4 ms apart, and its set file, which names the image "forest.jpg".
    QString writeRecording(const QString &baseName) const
    {
        write(baseName + QStringLiteral(".set"),
              "picturename=forest.jpg\npicturepath=forest.jpg\n[subject]\nsubjectID=" + baseName.toUtf8() +
                  "\ndominant=left\n");
        return write(baseName + QStringLiteral(".data"), "StaticBinocular\n"
                                                         "100\t10\t20\t3\t4\t1\t30\t40\t5\t6\t1\n"
                                                         "104\t10\t20\t3\t4\t1\t30\t40\t5\t6\t1\n");
    }

private:
    QTemporaryDir m_folder;
};

inline QString corruptMessage(const QString &path, const QString &reason)
{
    return QStringLiteral("IMPORT ERROR!|The file: \n%1\n is corrupt and has not been loaded!\nReason: %2.")
        .arg(path, reason);
}
