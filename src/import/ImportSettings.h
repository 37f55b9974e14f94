#pragma once

#include "settings/Parameter.h"

/// Where the user last looked for recordings.
struct ImportSettings {
    QString lastBasePath; ///< folder without a slash at its end
};

namespace rows {

inline const Parameter lastRecordingFolder{&ImportSettings::lastBasePath,
                                           QLatin1StringView("ImportModule/lastbasepath"), QString()};

} // namespace rows
