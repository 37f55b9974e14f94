#include "export/ExportTarget.h"

#include <QDir>

QString exportPath(const ExportTarget &target, const QString &infix, Eye eye)
{
    return target.folder + QDir::separator() + target.prefix + infix + eyeWord(eye) + QLatin1StringView(".csv");
}
