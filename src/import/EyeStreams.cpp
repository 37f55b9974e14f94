// SPDX-License-Identifier: GPL-3.0-or-later
#include "import/EyeStreams.h"

#include "import/SampleList.h"

#include <limits>
#include <utility>

void EyeStreams::reserve(qsizetype samples)
{
    for (QList<GazePoint> *stream : {&m_left, &m_right, &m_mean})
        reserveSamples(*stream, samples);
}

void EyeStreams::add(const GazePoint &left, int leftValidity, const GazePoint &right, int rightValidity)
{
    m_left.append(left);
    m_right.append(right);
    // Codes above 1 count here, but do not make the eye's own sample usable.
    const bool leftValid = leftValidity >= 1;
    const bool rightValid = rightValidity >= 1;
    m_anyValid |= leftValid || rightValid;
    if (leftValid && rightValid) {
        m_mean.append(GazePoint(left.time, (left.x + right.x) / 2, (left.y + right.y) / 2,
                                (left.width + right.width) / 2, (left.height + right.height) / 2, 1));
    } else {
        m_mean.append(GazePoint(left.time, -1, -1, -1, -1, 0));
    }
}

void EyeStreams::moveTo(Examination &examination)
{
    for (QList<GazePoint> *stream : {&m_left, &m_right, &m_mean})
        shrinkSamples(*stream);
    examination.leftEye.gazePoints = std::exchange(m_left, {});
    examination.rightEye.gazePoints = std::exchange(m_right, {});
    examination.meanEye.gazePoints = std::exchange(m_mean, {});
    m_anyValid = false;
}

qint64 saturatedDifference(qint64 minuend, qint64 subtrahend)
{
    qint64 difference = 0;
    if (!__builtin_sub_overflow(minuend, subtrahend, &difference))
        return difference;
    return minuend < 0 ? std::numeric_limits<qint64>::min() : std::numeric_limits<qint64>::max();
}
