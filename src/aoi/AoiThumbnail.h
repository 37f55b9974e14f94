// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QImage>
#include <QPolygon>

/// The part of a picture under a polygon's bounding box, white beyond the picture's edge; null for a polygon without
/// vertices, and for one that is larger than any picture.
QImage aoiThumbnail(const QPolygon &polygon, const QImage &picture);
