// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/ExportTarget.h"

#include <QDir>

QString pathStem(const ExportTarget &target)
{
    return target.folder + QDir::separator() + target.prefix;
}

QString exportPath(const ExportTarget &target, const QString &infix, Eye eye)
{
    return pathStem(target) + infix + eyeWord(eye) + QLatin1StringView(".csv");
}
