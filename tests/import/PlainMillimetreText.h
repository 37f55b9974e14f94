// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "import/ilmenau/MillimetreText.h"

#include <QTextStream>

/// The textbook form of the reader of recordings in millimetres: a text stream, split lines, converted strings.
/// For times whose parts are numbers.
inline MillimetreSamples plainMillimetres(const QByteArray &bytes, const StimulusSize &size)
{
    MillimetreSamples read;
    QTextStream stream(bytes);
    const QStringList header = stream.readLine().split(u'\t');
    QList<qsizetype> places;
    for (const char *name : {"sits", "Lspx", "Lspy", "Rspx", "Rspy"})
        places << header.indexOf(QLatin1StringView(name));
    const float fx = float(size.widthPx) / float(size.widthMm);
    const float fy = float(size.heightPx) / float(size.heightMm);
    const int half = size.widthPx / 2;
    qint64 zero = 0;
    QString line;
    for (int index = 1; stream.readLineInto(&line); ++index) {
        const QStringList parts = line.split(u'\t');
        if (places.contains(-1) || parts.size() != header.size())
            continue;
        const QStringList clock = parts[places[0]].split(u':');
        if (clock.size() < 3)
            continue;
        const qint64 time = clock[0].toLongLong() * 3600000 + clock[1].toLongLong() * 60000 +
                            QString(clock[2]).remove(u'.').toLongLong();
        zero = zero == 0 ? time : zero;
        const double lx = parts[places[1]].toDouble() * fx + half;
        const double ly = size.heightPx - parts[places[2]].toDouble() * fy;
        const double rx = parts[places[3]].toDouble() * fx + half;
        const double ry = size.heightPx - parts[places[4]].toDouble() * fy;
        const int valid = lx != -1 && ly != -1 && rx != -1 && ry != -1 ? 1 : 0;
        read.left << GazePoint(time - zero, lx, ly, index, index, valid);
        read.right << GazePoint(time - zero, rx, ry, index, index, valid);
        read.mean << GazePoint(time - zero, (lx + rx) / 2, (ly + ry) / 2, index, index, valid);
    }
    return read;
}
