#pragma once

#include "detection/FixationSettingsModel.h"
#include "detection/StandardScanpathBuilder.h"

#include <optional>
#include <variant>

class DataModel;
class Log;

/// The detector of a calculation, with its own parameters only. A further detector is a further alternative here, a row
/// in the table of the implementation, and its `run` and `parameterText` beside it.
using FixationCalculationParameters = std::variant<StandardParameters>;

/// The first so many calculation types have a detector.
int builtCalculationTypes();

/// The parameters of a calculation type. A type without a detector means the standard detector.
FixationCalculationParameters calculationParameters(int calculationType, const FixationSettingsModel &settings);

/// Detects the fixations of all checked examinations in left, right and mean eye.
///
/// The fixations and the clusters of these eyes and of the pooled left, right and mean containers are replaced. Their
/// saccades, invalid sections and event rows are not cleared: a second calculation adds to them. The pooled dominant
/// container is left alone. Each examination keeps what was done as its `fixationCalculationInfo`.
///
/// A detector's report on left and right eye is shown when all is done, after the progress was closed.
/// @param log  may be null.
/// @return the reports, one after the other; nothing, after a message, where no examination is checked.
std::optional<QString> calculateFixations(DataModel &model, const FixationCalculationParameters &parameters,
                                          const Log *log);
