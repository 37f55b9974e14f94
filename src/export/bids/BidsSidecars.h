// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "detection/SpeedThreshold.h"
#include "export/bids/BidsNames.h"
#include "model/TimeFrame.h"

#include <QJsonObject>

#include <optional>

/// What describes one table of samples.
struct BidsStream {
    QString eye;         ///< "left", "right" or "cyclopean"
    QStringList columns; ///< of the table
    double rateHz = 0;
    qint64 startMs = 0; ///< of the first sample, since the start of the recording
};

/// Beside the samples of one eye.
QJsonObject samplesSidecar(const Examination &examination, const BidsName &name, const BidsStream &stream);

/// Beside the events of one eye.
QJsonObject eventsSidecar(const QStringList &columns);

/// Beside the list of pictures that were shown: what is known of the screen. Without a size of the picture that is the
/// canvas, without geometry its measures are "n/a".
QJsonObject stimulusSidecar(QSize picturePx, const std::optional<ViewingGeometry> &geometry);

/// Of the data set.
QJsonObject datasetDescription(const QList<const Examination *> &examinations, TimeFrame frame, EyeMode eyes);

/// What the people are known by: a row for each subject, with those entries of the set files that are the same in all
/// its recordings.
struct BidsParticipants {
    QByteArray table; ///< with header
    QJsonObject sidecar;
};
BidsParticipants participantsOf(const QList<const Examination *> &examinations, const QList<BidsName> &names);

/// The form of all sidecars.
QByteArray sidecarBytes(const QJsonObject &sidecar);
