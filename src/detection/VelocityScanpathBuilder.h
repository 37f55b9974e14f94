// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "detection/IScanpathBuilder.h"
#include "model/EyeData.h"

class SpeedThreshold;

/// The unit of a velocity threshold; the values are those of the stored setting.
enum class VelocityUnit {
    PixelPerMs = 0,
    DegreePerS = 1,
    Percentile = 2 ///< of the speeds of the recording itself
};

/// What the velocity detector counts as a fixation.
struct VelocityParameters {
    int minimumDurationMs = 0;
    double threshold = 0; ///< as set; the detector works with its whole part, whatever the unit
    VelocityUnit unit = VelocityUnit::PixelPerMs;
    double screenDistanceM = 0; ///< from the eye to the image; this and the next two are for degrees only
    double imageSizeM = 0;
    double imageWidthPx = 0;
};

/// A threshold detector on the speed from sample to sample, as I-VT in Salvucci & Goldberg (2000), ETRA: valid samples
/// slower than the threshold are a fixation, if they last longer than the minimum duration.
///
/// An invalid sample neither ends nor joins a fixation, though the speed of the sample after it is measured from it. A
/// sample with the same time as the one before it has no finite speed and ends the fixation. The first sample is in no
/// fixation, and a recording that ends within a fixation loses it.
///
/// Time is linear in samples. What is not part of a fixation costs little more than the reading of its memory.
class VelocityScanpathBuilder : public IScanpathBuilder {
public:
    /// Runs the detection.
    /// @param scanpath  gets the fixations, behind those that it has; they are numbered by their place in it from 1.
    ///                  May be null: nothing is kept.
    VelocityScanpathBuilder(const QList<GazePoint> &samples, QList<Fixation> *scanpath,
                            const VelocityParameters &parameters);

    QString report() const override { return {}; }

private:
    void detect(const SpeedThreshold &threshold);
    void closeRun(qsizetype first, qsizetype last);

    const QList<GazePoint> m_samples;
    QList<Fixation> *m_scanpath;
    const int m_minimumDurationMs;
};

/// The speed that a percentage of the steps do not reach, in px/ms, over all samples, valid or not.
///
/// The percentage counts in whole hundredths of the number of steps, rounded down: below 100 steps every percentage
/// gives the slowest. 100 and more give the fastest, below 0 counts as 0. A speed that is not a number counts as faster
/// than all others. Without a step the result is 0.
double percentileSpeed(const QList<GazePoint> &samples, int percent);
