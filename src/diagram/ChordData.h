// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/DataModel.h"
#include "statistics/GazeWalk.h"

#include <optional>

/// The transitions between all areas of interest, as a chord diagram shows them.
struct ChordData {
    bool operator==(const ChordData &) const = default;

    struct Area {
        bool operator==(const Area &) const = default;

        QString name;
        QColor color;
    };

    QList<Area> areas;
    QList<QList<double>> shares; ///< [from][to] of all transitions; NaN where there are none
};

/// Counts the transitions of all examinations, checked or not, in the time frame.
ChordData chordData(const DataModel &model, EyeMode eyes, TransitionType type, TimeFrame frame);

/// Why there is no diagram, in words for the user; nothing if there is one.
std::optional<QString> emptyDiagram(const DataModel &model);
