// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/selection/DataSelection.h"

QList<ExaminationEye> eyesToDraw(const Examination &examination, EyeMode mode)
{
    QList<ExaminationEye> eyes;
    for (const Eye eye : eyesOf(mode))
        eyes << ExaminationEye{&examination, eye};
    return eyes;
}

QList<QList<ExaminationEye>> passesToDraw(const QList<const Examination *> &examinations, EyeMode mode)
{
    QList<QList<ExaminationEye>> passes;
    if (examinations.isEmpty())
        return passes;
    for (const Eye eye : eyesOf(mode)) {
        passes << QList<ExaminationEye>();
        for (const Examination *examination : examinations)
            passes.last() << ExaminationEye{examination, eye};
    }
    return passes;
}
