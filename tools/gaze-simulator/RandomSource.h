// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

#include <random>

/// Random numbers that are the same for the same seed with every compiler and library: the generator's raw output is
/// fixed by the language standard, the standard library's distributions are not, so these are our own.
class RandomSource {
public:
    /// Streams of one seed are independent, so that more noise does not change where the simulated person looks.
    enum class Stream : quint64 { Targets, Scanpath, Movement, Blinks, Losses, LeftEye, RightEye, Pupil, Scenery };

    RandomSource(quint64 seed, Stream stream);

    /// In [0, 1), 53 random bits.
    double uniform();
    double uniform(double from, double to);

    /// Mean 0, standard deviation 1. Polar method: Marsaglia & Bray (1964), SIAM Review 6.
    double normal();

    /// Positive, with the given mean; `spread` is the standard deviation of the logarithm.
    double logNormal(double mean, double spread);

    /// Positive, with the given mean.
    double exponential(double mean);

private:
    std::mt19937_64 m_generator;
    double m_spare = 0;
    bool m_hasSpare = false;
};
