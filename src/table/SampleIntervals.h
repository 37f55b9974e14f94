// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

#include <array>
#include <optional>

/// The steps in time from each sample to the next, counted by their length: what the rate, its jitter and its gaps are
/// read from. Of fixed size, so that a recording of any length is tallied in one pass.
class SampleIntervals {
public:
    /// Steps of a second or more are gaps at any rate that can be measured.
    static constexpr qint64 longestMs = 999;

    struct Rate {
        double hz = 0;
        double intervalMs = 0;   ///< 1000 / hz
        double jitterMs = 0;     ///< standard deviation of the steps that are no gaps
        double gapAfterMs = 0;   ///< longer steps are gaps
        qint64 gaps = 0;         ///< steps
        double gapTimeMs = 0;    ///< time in which samples are missing: of each gap what is beyond one interval
        qint64 longestGapMs = 0; ///< the longest of these steps; 0 without gaps
    };

    void add(qint64 stepMs);

    /// The squared distance, in px^2, of two usable samples this long apart.
    void addDistance(qint64 stepMs, double squaredPx);

    /// Nothing where no step lies between 1 and `longestMs`.
    ///
    /// A step is a gap if it is longer than one and a half intervals, and also longer than an interval can become by
    /// the rounding of both ends to whole ms.
    std::optional<Rate> rate() const;

    /// Root mean square of the distances over steps that are no gaps; nothing without any.
    std::optional<double> rootMeanSquarePx(double gapAfterMs) const;

    qint64 repeated() const { return m_bins[0].steps; }
    qint64 backward() const { return m_backward; }

private:
    struct Bin {
        qint64 steps = 0;
        qint64 distances = 0;
        double squaredPx = 0;
    };
    /// Number, sum and sum of squares of the steps up to a length.
    struct Moments {
        double count = 0;
        double sum = 0;
        double squares = 0;
    };
    Moments momentsUpTo(double mostMs) const;
    qint64 medianStepMs() const;

    std::array<Bin, longestMs + 1> m_bins{}; ///< by the length of the step in ms
    qint64 m_backward = 0;
    qint64 m_long = 0;
    double m_longSumMs = 0;
    qint64 m_longestMs = 0;
};
