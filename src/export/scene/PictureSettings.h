// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "report/AppendedParts.h"

#include <QColor>

/// What of a scene a picture shows: all that is drawn, or the part on the image that was seen, so that the figures of
/// several people have the same size.
enum class PictureArea { Everything, Stimulus };

/// How a drawn scene becomes a picture.
struct PictureSettings {
    bool operator==(const PictureSettings &) const = default;

    AppendedParts appended = {};
    PictureArea area = PictureArea::Everything;
    double scale = 1;                ///< 2 and more draw finer
    QColor ground = Qt::transparent; ///< where nothing is drawn
    bool legend = false;             ///< what colours and sizes stand for, below the picture
    bool labelFixations = false;     ///< their numbers in the order of time, eye by eye
};
