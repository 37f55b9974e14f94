// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

enum class RecordedEyes { Both, Left, Right };

/// What is simulated. The defaults are a calm adult viewer before a good remote tracker; 35 px per degree is a 24 inch
/// screen of 1920 pixels at 70 cm, rounded.
struct SimulationParameters {
    quint64 seed = 1;
    RecordedEyes eyes = RecordedEyes::Both;
    qint64 clockStartMs = 1000000; ///< >= 0
    double rateHz = 250;
    double durationS = 10;
    double pixelsPerDegree = 35;

    double fixationMeanMs = 275; ///< Rayner (1998), Psychological Bulletin 124: 260 to 330 ms in scenes
    double fixationSpread = 0.4; ///< standard deviation of the logarithm
    double saccadeSpread = 0.08; ///< standard deviation of the logarithm of the duration around the main sequence
    double microsaccadesPerS = 1;
    double driftDegPerS = 0.5; ///< standard deviation of the drift speed, each axis
    double tremorDeg = 0.005;  ///< standard deviation, each axis

    double blinksPerMin = 12;
    double blinkMeanMs = 150;
    double lidArtefactMs = 0; ///< false but valid samples before and after a blink
    double lossesPerMin = 0;
    double lossMeanMs = 300;
    double noiseDeg = 0.1;     ///< measurement noise: standard deviation, each axis and eye
    double eyeOffsetDeg = 0.3; ///< horizontal distance between the two eyes' gaze
    double pupilPx = 22;       ///< mean pupil width in pixels of the tracker's camera
};
