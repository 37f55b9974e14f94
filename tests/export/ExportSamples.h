// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/Examination.h"

#include <QFile>
#include <QStringList>

/// Samples, fixations and files made and read by hand, shared by the tests of the exports.
namespace samples {

inline GazePoint valid(qint64 timeMs)
{
    return {timeMs, 0, 0, 0, 0, 1};
}

inline GazePoint lost(qint64 timeMs)
{
    return {timeMs, 0, 0, 0, 0, 0};
}

/// A fixation at these times, with its statistics set by hand.
inline Fixation fixation(const QList<qint64> &timesMs, QPoint mean, QVector2D major = {1, 0}, QVector2D minor = {},
                         int cluster = 0)
{
    Fixation made;
    for (const qint64 time : timesMs)
        made.samples << valid(time);
    made.mean = mean;
    made.majorAxis = major;
    made.minorAxis = minor;
    made.cluster = cluster;
    made.type = QStringLiteral("fixation");
    return made;
}

inline Examination examination(const QString &subjectId, const QString &subjectText)
{
    Examination made;
    made.subjectId = subjectId;
    made.subjectText = subjectText;
    return made;
}

/// The bytes of one block of an export file: the byte order mark, then each character low byte first.
inline QByteArray utf16Block(const QString &text)
{
    QByteArray bytes("\xff\xfe");
    for (const QChar character : text) {
        bytes += static_cast<char>(character.unicode() & 0xff);
        bytes += static_cast<char>(character.unicode() >> 8);
    }
    return bytes;
}

/// All bytes of the file; a null array if there is none.
inline QByteArray bytesOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The lines, each followed by a line end.
inline QString lines(const QStringList &texts)
{
    return texts.join(u'\n') + u'\n';
}

} // namespace samples
