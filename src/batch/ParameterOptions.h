// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "batch/OptionRow.h"
#include "detection/VelocityScanpathBuilder.h"

#include <QList>

/// Parameters that differ from the factory's.
struct ParameterOptions {
    enum class Detector { Standard = 0, Gaussian = 1, Velocity = 2 }; ///< as the stored calculation type
    using VelocityUnit = ::VelocityUnit;

    /// One key of the settings store and the text that it gets.
    struct Setting {
        QString key;
        QString value;
        bool operator==(const Setting &) const = default;
    };
    bool operator==(const ParameterOptions &) const = default;

    QStringList settingsFiles;
    QList<Setting> settings;                  ///< to be set after the files, in this order
    std::optional<Detector> detector;         ///< else as the settings say
    std::optional<VelocityUnit> velocityUnit; ///< only for the velocity detector; else what the settings give
};

OptionGroup parameterOptions();
