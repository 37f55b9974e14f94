#pragma once

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
/// The reports are shown when all is done, after the progress was closed. Warnings are shown to nobody.
/// @param log  gets each warning as a line with recording and eye; may be null.
/// @return nothing, after a message, where no examination is checked.
std::optional<FixationCalculationOutcome>
calculateFixations(DataModel &model, const FixationCalculationParameters &parameters, const Log *log);
