#include "model/Examination.h"

#include <algorithm>

bool Examination::isLeftDominant() const
{
    return dominantEye == QLatin1StringView("left");
}

qint64 Examination::duration() const
{
    const auto durationOf = [](const QList<GazePoint> &points) {
        return points.isEmpty() ? qint64(0) : elapsedMs(points.first().time, points.last().time);
    };
    return std::max(durationOf(leftEye.gazePoints), durationOf(rightEye.gazePoints));
}

QList<const EyeData *> selectedEyes(const Examination &examination, EyeMode mode)
{
    switch (mode) {
    case EyeMode::showAll:
        return {&examination.leftEye, &examination.rightEye};
    case EyeMode::showLeft:
        return {&examination.leftEye};
    case EyeMode::showRight:
        return {&examination.rightEye};
    case EyeMode::showMean:
        return {&examination.meanEye};
    case EyeMode::showDominant:
        break;
    }
    return {&examination.dominantEyeData()};
}
