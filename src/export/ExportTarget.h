// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/DataModel.h"

/// Where an export goes and which eyes it covers.
struct ExportTarget {
    QString folder;
    QString prefix;                  ///< beginning of every file name
    EyeMode eyes = EyeMode::showAll; ///< all means left and right, each in files of its own
};

/// What the paths of all files of the export begin with: folder, separator, prefix.
QString pathStem(const ExportTarget &target);

/// Path of an export file: folder, separator, prefix, `infix`, the eye's word, ".csv".
QString exportPath(const ExportTarget &target, const QString &infix, Eye eye);
