// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/OutsideProgram.h"
#include "model/Examination.h"

#include <QList>

/// Files for the outside program iComp, in the folder "temp" below the working folder. They stay, and are overwritten
/// by the next comparison.
namespace outsidecomparison {

/// The subject's id as a number in base 10; 0 where it is none.
int idOf(const Examination &examination);

/// "temp/S7-R1-FXD.txt": examinations of one id share it, the last one stays.
QString eyeFile(int id);

/// The fixations of the dominant eye in the form of the program. The header holds fixed values of a study, whatever was
/// recorded, and names four columns where the lines have five: number, number, samples, x and y of the centroid.
QString eyeFileText(const Examination &examination);

/// Which examinations share an eye file, or have an id that is no number, a line for each file; none where all is well.
QStringList sharedFiles(const QList<const Examination *> &examinations);

/// Writes an eye file for each examination and the set file, which lists them; a file that cannot be written is told,
/// and has an empty line in the set file.
/// @return false where the set file could not be written.
bool writeFiles(const QList<const Examination *> &examinations);

/// The call of the program with the files written before; half a minute for its start and for its end.
OutsideCall call();

} // namespace outsidecomparison
