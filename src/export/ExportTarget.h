#pragma once

#include "model/DataModel.h"

/// Where an export goes and which eyes it covers.
struct ExportTarget {
    QString folder;
    QString prefix;                  ///< beginning of every file name
    EyeMode eyes = EyeMode::showAll; ///< all means left and right, each in files of its own
};

/// A stream of an examination as exports name it.
enum class ExportEye { Left, Right, Dominant, Mean };

/// The streams of the selection in the order in which they are written.
QList<ExportEye> exportedEyes(EyeMode mode);

/// The word that stands for the stream in file names.
QLatin1StringView eyeWord(ExportEye eye);

/// The member that holds the stream in this examination: which eye is dominant differs from one to the next.
EyeData Examination::*streamOf(ExportEye eye, const Examination &examination);

/// The container that pools the stream of all examinations.
DataModel::Pool poolOf(ExportEye eye);

/// Path of an export file: folder, separator, prefix, `infix`, the eye's word, ".csv".
QString exportPath(const ExportTarget &target, const QString &infix, ExportEye eye);
