// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/SideBySide.h"
#include "detection/FixationCalculationParameters.h"
#include "detection/FixationSettingsModel.h"

#include <QLatin1StringView>
#include <QList>
#include <QString>

#include <optional>

class DataModel;
class Log;

/// The parameters of a calculation type. A type without a detector means the standard detector, and a unit without a
/// name the percentile.
FixationCalculationParameters calculationParameters(int calculationType, const FixationSettingsModel &settings);

/// What is doubtful in the result of one eye or, without recording and eye, of all: the cause lies in the parameters.
struct DetectionWarning {
    bool operator==(const DetectionWarning &) const = default;

    QString recording; ///< base name of its file
    QString eye;       ///< "left eye", "right eye" or "mean eye"
    QString text;

    /// "S01, left eye: ..."
    QString line() const { return recording.isEmpty() ? text : QStringLiteral("%1, %2: %3").arg(recording, eye, text); }
};

/// What the detector did with the samples of one recording.
struct RecordingReport {
    bool operator==(const RecordingReport &) const = default;

    QString recording; ///< base name of its file
    QString text;      ///< of left and right eye, one after the other
};

/// What a calculation has to say beyond its result.
struct FixationCalculationOutcome {
    QList<RecordingReport> reports; ///< in the order of the recordings; of the standard detector only
    QList<DetectionWarning> warnings;
};

/// The title under which reports are shown.
inline constexpr QLatin1StringView detectionReportTitle("Standard Fixation Filter Action Report");

/// Shows all reports as one message, if there are any.
void showReports(const FixationCalculationOutcome &outcome);

/// Detects the fixations of all checked examinations in left, right and mean eye.
///
/// The fixations and the clusters of these eyes and of the pooled left, right and mean containers are replaced. Their
/// saccades, invalid sections and event rows are not cleared: a second calculation adds to them. The pooled dominant
/// container is left alone. Each examination keeps what was done as its `fixationCalculationInfo`.
///
/// Examinations are worked on side by side; result, messages and log do not depend on how many threads do it. What the
/// detectors have to tell is told at the end, once for each cause. Reports and warnings are shown to nobody.
/// @param log  gets each warning as a line; may be null.
/// @return nothing, after a message, where no examination is checked.
std::optional<FixationCalculationOutcome> calculateFixations(DataModel &model,
                                                             const FixationCalculationParameters &parameters,
                                                             const Log *log, int threads = coreCount());
