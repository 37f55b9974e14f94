// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "clustering/ClusterParameters.h"
#include "clustering/SaccadeClusterParameters.h"
#include "detection/FixationCalculationParameters.h"
#include "model/DataModel.h"
#include "table/StudyQuality.h"

#include <QJsonObject>
#include <QSize>

#include <optional>

/// One measure over recordings and eyes.
struct MethodsRange {
    bool operator==(const MethodsRange &) const = default;

    double least = 0;
    double median = 0;
    double most = 0;
};

/// What a run did, beside what can be read from the model.
struct MethodsRun {
    QString release;                                            ///< of the program, with its commit
    QStringList failed = {};                                    ///< names of recordings that could not be read
    std::optional<FixationCalculationParameters> detector = {}; ///< of the last calculation of fixations
    std::optional<ClusterParameters> clusters = {};             ///< of the last clustering within recordings
    std::optional<ClusterParameters> pooledClusters = {};       ///< of the last clustering across recordings
    std::optional<SaccadeClusterParameters> saccadeClusters = {};
    QStringList statistics = {}; ///< tables that were written, by the words of the batch program
    QString groupBy = {};        ///< entry that names the groups that were compared
    EyeMode eyes = EyeMode::showAll;
    std::optional<double> pixelPerDistance = {}; ///< size of a pixel as part of the distance from eye to picture
};

/// What a methods section states, as numbers and names. What is not known is empty.
struct MethodsRecord {
    struct Area {
        QString name;
        double sizePx2 = 0;
    };

    MethodsRun run;

    // Data.
    int recordings = 0; ///< that were read
    QStringList unchecked;
    int participants = 0;  ///< with recordings that were used; a recording without a subject is one of its own
    QList<QSize> pictures; ///< sizes in px, each once
    int pictureCount = 0;
    TimeFrame frame;
    bool edgesCut = false; ///< samples at the edge of the picture and beyond were removed

    // Quality over the used recordings and their eyes.
    std::optional<MethodsRange> rateHz;
    std::optional<MethodsRange> jitterMs;
    std::optional<MethodsRange> validPercent;
    std::optional<MethodsRange> lossPercent;
    std::optional<MethodsRange> precisionPx;
    std::optional<MethodsRange> precisionDegrees;
    std::optional<MethodsRange> eyeDistancePx;

    // Results of the eyes that were recorded.
    std::optional<MethodsRange> fixations;     ///< number in each recording and eye
    std::optional<MethodsRange> fixationMs;    ///< mean duration in each recording and eye
    std::optional<MethodsRange> clusterNumber; ///< in each recording and eye
    std::optional<int> pooledClusterNumber;
    QList<Area> areas; ///< those that are enabled
};

/// Gathers the record from the model.
///
/// @param quality  of the checked examinations, as `studyQuality` has it.
MethodsRecord methodsRecord(const DataModel &model, const MethodsRun &run, const QList<StreamQuality> &quality);

/// The record as data, the names of the keys with their units.
QJsonObject toJson(const MethodsRecord &record);
