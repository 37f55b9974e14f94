// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "batch/OptionRow.h"

#include <variant>

/// The command line of vistrum-import, checked as far as it can be without opening a file.
struct ConvertOptions {
    bool operator==(const ConvertOptions &) const = default;

    QStringList tables; ///< never empty unless help or version is asked for
    QString layout = QStringLiteral("auto");
    QStringList split; ///< columns, or one message
    QString outputFolder = QStringLiteral(".");
    QString reportFile;
    std::optional<int> jobs; ///< at least 1; else as many as there are cores
    bool quiet = false;
    bool help = false;
    bool version = false;
};

std::variant<ConvertOptions, UsageError> parseConvertOptions(const QStringList &arguments);

/// The options that the report of a run states, by name.
QMap<QString, QString> reportedOptions(const ConvertOptions &options);

/// What `--help` prints.
QString convertHelp();
