#include "export/ExportTarget.h"

#include <QDir>

QList<ExportEye> exportedEyes(EyeMode mode)
{
    switch (mode) {
    case EyeMode::showDominant:
        return {ExportEye::Dominant};
    case EyeMode::showLeft:
        return {ExportEye::Left};
    case EyeMode::showRight:
        return {ExportEye::Right};
    case EyeMode::showMean:
        return {ExportEye::Mean};
    case EyeMode::showAll:
        break;
    }
    return {ExportEye::Left, ExportEye::Right};
}

QLatin1StringView eyeWord(ExportEye eye)
{
    switch (eye) {
    case ExportEye::Left:
        return QLatin1StringView("left");
    case ExportEye::Right:
        return QLatin1StringView("right");
    case ExportEye::Dominant:
        return QLatin1StringView("dominant");
    case ExportEye::Mean:
        break;
    }
    return QLatin1StringView("mean");
}

EyeData Examination::*streamOf(ExportEye eye, const Examination &examination)
{
    switch (eye) {
    case ExportEye::Left:
        return &Examination::leftEye;
    case ExportEye::Right:
        return &Examination::rightEye;
    case ExportEye::Dominant:
        return examination.isLeftDominant() ? &Examination::leftEye : &Examination::rightEye;
    case ExportEye::Mean:
        break;
    }
    return &Examination::meanEye;
}

DataModel::Pool poolOf(ExportEye eye)
{
    switch (eye) {
    case ExportEye::Left:
        return DataModel::Pool::Left;
    case ExportEye::Right:
        return DataModel::Pool::Right;
    case ExportEye::Dominant:
        return DataModel::Pool::Dominant;
    case ExportEye::Mean:
        break;
    }
    return DataModel::Pool::Mean;
}

QString exportPath(const ExportTarget &target, const QString &infix, ExportEye eye)
{
    return target.folder + QDir::separator() + target.prefix + infix + eyeWord(eye) + QLatin1StringView(".csv");
}
