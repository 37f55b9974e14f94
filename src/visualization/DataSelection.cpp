#include "visualization/DataSelection.h"

QList<SelectedEye> eyesToDraw(const Examination &examination, EyeMode mode)
{
    const bool ownColor = mode == EyeMode::showAll || mode == EyeMode::showLeft || mode == EyeMode::showRight;
    const auto colorOf = [&](const EyeData *data) {
        if (data == &examination.leftEye && ownColor)
            return EyeColor::Left;
        if (data == &examination.rightEye && ownColor)
            return EyeColor::Right;
        return EyeColor::Dominant;
    };
    QList<SelectedEye> eyes;
    for (const EyeData *data : selectedEyes(examination, mode))
        eyes << SelectedEye{data, colorOf(data)};
    return eyes;
}

QList<QList<ExaminationEye>> passesToDraw(const QList<const Examination *> &examinations, EyeMode mode)
{
    QList<QList<ExaminationEye>> passes;
    for (const Examination *examination : examinations) {
        const QList<SelectedEye> eyes = eyesToDraw(*examination, mode);
        passes.resize(eyes.size()); // the mode alone decides how many
        for (qsizetype i = 0; i < eyes.size(); ++i)
            passes[i] << ExaminationEye{examination, eyes[i]};
    }
    return passes;
}
