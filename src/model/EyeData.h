// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/AreaOfInterest.h"
#include "model/FixationCluster.h"
#include "model/GeneralStatistics.h"

#include <QStringList>

#include <optional>

/// One row of the events table; a field that does not apply to the kind of event is empty.
struct EventRow {
    QString event;      ///< "fixation", "saccade", "error" or "invalid"
    QString eventCode;  ///< 0 fixation, 1 saccade, 2 no valid samples
    QString gazePoints; ///< count
    QString cluster;
    QString onset;         ///< ms
    QString duration;      ///< ms
    QString meanX;         ///< px
    QString meanY;         ///< px
    QString radius;        ///< px
    QString saccadeLength; ///< px
    QString saccadeAngle;  ///< degrees

    bool operator==(const EventRow &) const = default;
};

/// The samples of one eye (or of the mean of both) and what was computed from them. A copy shares its lists until one
/// side writes.
struct EyeData {
    bool operator==(const EyeData &) const = default;

    QString setFileText;     ///< copy of the examination's
    QString subjectText;     ///< copy of the examination's
    QString calculationInfo; ///< parameters of the last detection; only the standard detector writes it
    QList<EventRow> eventRows;
    QList<GazePoint> gazePoints;                        ///< file order
    QList<Fixation> scanpath;                           ///< order of creation
    QList<Invalid> invalids;                            ///< order of creation
    QList<Saccade> saccades;                            ///< order of creation
    QList<FixationCluster> fixationClusters;            ///< clusters of this stream
    std::optional<GeneralStatistics> generalStatistics; ///< of the last calculation
    QList<AreaOfInterest> aoiStatistics;                ///< the areas with what the last calculation measured in them
};
