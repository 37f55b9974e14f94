// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "import/ilmenau/CorrectionEllipse.h"

#include <QColor>

#include <functional>

class QGraphicsScene;

/// The ellipses of a correction as they are drawn.
struct CorrectionOverlay {
    struct Row {
        EllipsePair pair;
        bool selected = false; ///< drawn thicker, and with its points
    };

    QList<Row> rows;
    int pointSizePx = 5;
    QColor points = QColor(255, 0, 0);
    QColor original = QColor(0, 255, 0);
    QColor corrected = QColor(0, 0, 255);
    std::function<void(qsizetype row, QPointF center)> moved; ///< the user has moved a corrected ellipse
};

/// Adds the ellipses on top of what the scene holds: the original one, the corrected one, which can be moved, and of
/// selected rows the points of both, one mark for each pixel.
void addCorrectionItems(QGraphicsScene &scene, const CorrectionOverlay &overlay);
