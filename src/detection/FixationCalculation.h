// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/SideBySide.h"
#include "detection/FixationCalculationParameters.h"
#include "detection/FixationSettingsModel.h"

#include <QStringList>

#include <optional>

class DataModel;
class Log;

/// The parameters of a calculation type. A type without a detector means the standard detector, and a unit without a
/// name the percentile.
FixationCalculationParameters calculationParameters(int calculationType, const FixationSettingsModel &settings);

/// What is doubtful in the result of one eye.
struct DetectionWarning {
    bool operator==(const DetectionWarning &) const = default;

    QString recording; ///< base name of its file
    QString eye;       ///< "left eye", "right eye" or "mean eye"
    QString text;
};

/// What a calculation has to say beyond its result.
struct FixationCalculationOutcome {
    QString reports; ///< of the detector on left and right eyes, one after the other
    QList<DetectionWarning> warnings;
};

/// Detects the fixations of all checked examinations in left, right and mean eye.
///
/// The fixations and the clusters of these eyes and of the pooled left, right and mean containers are replaced. Their
/// saccades, invalid sections and event rows are not cleared: a second calculation adds to them. The pooled dominant
/// container is left alone. Each examination keeps what was done as its `fixationCalculationInfo`.
///
/// Examinations are worked on side by side; result, messages and log do not depend on how many threads do it. What the
/// detectors have to tell is told at the end, once for each cause; then, after the progress was closed, the reports are
/// shown. Warnings are shown to nobody.
/// @param log  gets each warning as a line with recording and eye; may be null.
/// @return nothing, after a message, where no examination is checked.
std::optional<FixationCalculationOutcome> calculateFixations(DataModel &model,
                                                             const FixationCalculationParameters &parameters,
                                                             const Log *log, int threads = coreCount());
