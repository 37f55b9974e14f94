// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/AreaOfInterest.h"

#include <QByteArrayView>

/// Areas of interest as a text file (.aoi), UTF-8:
///
///     AOI FILE
///     type=static
///     color=255;128;0;150
///     name=Left mirror
///     10 20
///     110 20
///     110 90
///
/// One block an area, in the order of the list: the colour as red, green, blue and alpha, the name to the end of its
/// line, and a line for each vertex in pixels. A block ends where the next one begins.

/// What was found in a file of areas. Lines count from 1.
/// Larger ones are refused; some thousand areas of a hundred vertices have a few megabytes.
inline constexpr qint64 largestAoiFile = qint64(256) << 20;

struct AoiFileContents {
    QList<AreaOfInterest> aois;       ///< order of the file, all enabled; a name may occur more than once
    qsizetype badVertexLines = 0;     ///< lines that are no vertex; they are left out
    qsizetype firstBadVertexLine = 0; ///< 0 if there is none
    qsizetype unfinishedBlocks = 0;   ///< blocks without vertices, and a last one without name; they are left out
    qsizetype stoppedAtLine = 0;      ///< the line from which on nothing was read; 0 if all was
    QString error;                    ///< why the file could not be read at all, else empty
    QStringList remarks;              ///< what else is to be told of a file of another form, in whole sentences
};

/// Reads an AOI file; tells the user what is wrong with it, but not about unfinished blocks.
///
/// Lines end at "\n" or "\r\n". Colour and name may stand in either order, and the later of two counts, but the first
/// vertex closes both. A colour that cannot be read leaves the area its random one; single values out of range become
/// the nearest of 0 to 255, and what is no number becomes 0.
/// Errors: a wrong first line, and a name, colour or next block where the order forbids it, end the reading. What came
/// before is kept; the block in which it happens is lost.
AoiFileContents readAoiFile(const QString &path);

/// The same for the content of a file.
AoiFileContents parseAoiFile(QByteArrayView bytes);

/// Writes the areas in the order of the list. A name with a line break, or with "name=" in it, does not come back.
///
/// @return false, after a message, if there is no area, or the path is that of a device or cannot be written. An old
///         file is then as it was, unless its folder takes no new files.
bool writeAoiFile(const QList<AreaOfInterest> &aois, const QString &path);

/// The same for a file of another form, whose content the function makes.
bool writeAoiText(const QList<AreaOfInterest> &aois, const QString &path,
                  QByteArray (*text)(const QList<AreaOfInterest> &));

/// The content of the file that is written.
QByteArray aoiFileText(const QList<AreaOfInterest> &aois);
