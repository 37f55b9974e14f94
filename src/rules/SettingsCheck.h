// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "rules/SettingRules.h"
#include "settings/SettingsFile.h"

/// A settings file, looked at before anything is taken from it.
struct SettingsCheck {
    struct Line {
        SettingsLine said;
        ParameterValue value; ///< as the rule of the key reads it
    };
    struct Problem {
        int line; ///< from 1
        QString text;
    };

    QList<Line> lines;          ///< those that set a key of the store
    QStringList unknown;        ///< keys that the store does not have
    QList<SettingsLine> unread; ///< lines that are no setting, without those of free texts

    /// The first thing for which nothing of the file is to be taken: a value that is none for its key, or a line that
    /// names a key and is no setting.
    std::optional<Problem> problem;
};

/// Changes nothing, and tells nobody.
SettingsCheck checkSettings(const QByteArray &bytes);

/// Such as "Visualization/EyeMode=9: not a whole number from 0 to 4".
QString notOfItsRule(const QString &key, const QString &text, const SettingRule &rule);

/// Warns of the unknown keys and the lines that are no setting.
void tellPassedOver(const QString &path, const SettingsCheck &check);
