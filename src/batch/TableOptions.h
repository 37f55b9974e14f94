#pragma once

#include "batch/OptionRow.h"
#include "model/Eye.h"

/// Which tables a run writes, of which eyes and where.
struct TableOptions {
    bool operator==(const TableOptions &) const = default;

    QStringList tables; ///< words of `tableRows`, each once, in the order in which they are written
    EyeMode eyes = EyeMode::showAll;
    QString outputFolder = QStringLiteral(".");
    QString prefix = QStringLiteral("vistrum");
};

OptionGroup tableOptions();
