// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "aoi/AoiFile.h"

#include <QImage>
#include <QMap>

/// Areas from a label image, as segmentations give them: each pixel holds the number of its region, 0 that of none.
///
/// Grey images count with 8 or 16 bits, images with a colour table by its indices, others only if they are grey all
/// over. Each connected part of a region becomes an area: its outer contour, so that holes are filled. A hit test on
/// the area finds the pixels of the part; where the border runs slanted, a pixel of the border may be lost.
///
/// @param names  of the regions; one that is not in it is called "Region" and its number. Parts after the first get
///               their number behind the name, as in "Region 3 (2)".
/// @return the areas by number and then from top to bottom, or an error for an image in colours.
AoiFileContents labelledAois(const QImage &image, const QMap<int, QString> &names);

/// Reads the image, and the names from a table of lines `number,name` if there is such a file.
AoiFileContents readLabelImage(const QString &imagePath, const QString &namesPath);
