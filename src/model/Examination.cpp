// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/Examination.h"

#include <algorithm>
#include <utility>

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

const EyeData &Examination::stream(Eye eye) const
{
    switch (eye) {
    case Eye::Left:
        return leftEye;
    case Eye::Right:
        return rightEye;
    case Eye::Dominant:
        return isLeftDominant() ? leftEye : rightEye;
    case Eye::Mean:
        break;
    }
    return meanEye;
}

EyeData &Examination::stream(Eye eye)
{
    return const_cast<EyeData &>(std::as_const(*this).stream(eye));
}
