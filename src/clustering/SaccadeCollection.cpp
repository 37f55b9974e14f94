// SPDX-License-Identifier: GPL-3.0-or-later
#include "clustering/SaccadeCollection.h"

#include "base/Progress.h"

#include <algorithm>
#include <cstdlib>

namespace {

QList<GazePoint> samplesInside(const Fixation &fixation, TimeFrame frame)
{
    QList<GazePoint> inside;
    std::copy_if(fixation.samples.cbegin(), fixation.samples.cend(), std::back_inserter(inside),
                 [frame](const GazePoint &sample) { return frame.contains(sample.time); });
    return inside;
}

/// Appends the movement to where the samples rest, and makes that the previous place.
void moveTo(const QList<GazePoint> &samples, QPoint &previous, QList<SaccadeVector> &vectors)
{
    if (samples.isEmpty())
        return;
    const QPoint centre = meanOf(samples);
    if (centre.x() < 0 || centre.y() < 0)
        return;
    if (!previous.isNull())
        vectors << SaccadeVector(previous, centre, samples.first().time, samples.last().time);
    previous = centre;
}

} // namespace

QList<SaccadeVector> collectSaccadeVectors(const QList<Fixation> &scanpath, TimeFrame frame)
{
    Progress progress(QStringLiteral("Saccade clustering collecting data."), static_cast<int>(scanpath.size()));
    QList<SaccadeVector> vectors;
    QPoint previous;
    auto fixation = scanpath.cbegin();
    for (; fixation != scanpath.cend() && fixation->lastTime() < frame.startMs; ++fixation)
        progress.advance();
    for (; fixation != scanpath.cend() && fixation->firstTime() <= frame.endMs; ++fixation) {
        moveTo(samplesInside(*fixation, frame), previous, vectors);
        progress.advance();
    }
    return vectors;
}

int lineDifference(int angleA, int angleB)
{
    constexpr int quarterTurn = 90;
    int difference = std::abs(angleA - angleB);
    if (difference > 2 * quarterTurn)
        difference = 4 * quarterTurn - difference;
    if (difference > quarterTurn)
        difference = 2 * quarterTurn - difference;
    return difference;
}

QList<SaccadeVector> joinSaccadeVectors(const QList<SaccadeVector> &vectors, const PreProcessing &parameters)
{
    if (vectors.isEmpty())
        return {};
    QList<SaccadeVector> joined;
    SaccadeVector current = vectors.first();
    const auto finish = [&] {
        if (current.length >= parameters.minimumLengthPx)
            joined << current;
    };
    for (qsizetype i = 1; i < vectors.size(); ++i) {
        const SaccadeVector &next = vectors[i];
        if (lineDifference(current.angle, next.angle) > parameters.minimumAngleDifference) {
            finish();
            current = next;
        } else {
            current = SaccadeVector(current.start, next.end, current.startTime, next.endTime);
        }
    }
    finish();
    return joined;
}
