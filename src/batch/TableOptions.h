// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "batch/OptionRow.h"
#include "model/Eye.h"

/// Which tables a run writes and where; the eyes are those of everything that a run shows.
struct TableOptions {
    bool operator==(const TableOptions &) const = default;

    QStringList tables;          ///< words of `tableRows`, each once, in the order in which they are written
    std::optional<EyeMode> eyes; ///< of tables, pictures and densities; else as the settings say
    QString outputFolder = QStringLiteral(".");
    QString prefix = QStringLiteral("vistrum");
};

OptionGroup tableOptions();
