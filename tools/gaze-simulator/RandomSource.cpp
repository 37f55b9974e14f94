// SPDX-License-Identifier: GPL-3.0-or-later
#include "gaze-simulator/RandomSource.h"

#include "gaze-simulator/PortableMath.h"

#include <cmath>

namespace {

/// Neighbouring seeds and streams give unrelated states. SplitMix64: Steele, Lea & Flood (2014), OOPSLA.
quint64 mixed(quint64 value)
{
    value += 0x9e3779b97f4a7c15;
    value = (value ^ (value >> 30)) * 0xbf58476d1ce4e5b9;
    value = (value ^ (value >> 27)) * 0x94d049bb133111eb;
    return value ^ (value >> 31);
}

} // namespace

RandomSource::RandomSource(quint64 seed, Stream stream) : m_generator(mixed(mixed(seed) + static_cast<quint64>(stream)))
{
}

double RandomSource::uniform()
{
    return static_cast<double>(m_generator() >> 11) * 0x1p-53;
}

double RandomSource::uniform(double from, double to)
{
    return from + (to - from) * uniform();
}

double RandomSource::normal()
{
    if (m_hasSpare) {
        m_hasSpare = false;
        return m_spare;
    }
    double x = 0;
    double y = 0;
    double square = 0;
    do {
        x = uniform(-1, 1);
        y = uniform(-1, 1);
        square = x * x + y * y;
    } while (square >= 1 || square <= 0);
    const double scale = std::sqrt(-2 * portable::naturalLogarithm(square) / square);
    m_spare = y * scale;
    m_hasSpare = true;
    return x * scale;
}

double RandomSource::logNormal(double mean, double spread)
{
    // the mean of a log-normal variable is exp(mu + spread^2 / 2)
    return mean * portable::exponential(spread * normal() - spread * spread / 2);
}

double RandomSource::exponential(double mean)
{
    return -mean * portable::naturalLogarithm(1 - uniform());
}
