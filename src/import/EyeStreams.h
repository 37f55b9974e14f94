// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/Examination.h"

/// The samples of a recording on their way into the three streams of an examination: those of each eye, and their mean
/// where both are valid.
class EyeStreams {
public:
    /// Room for so many samples, so that no list grows while it is filled.
    void reserve(qsizetype samples);

    /// Takes one line of a recording.
    /// @param left   with the file's own code of validity beside it, from which the points know only exactly 1.
    void add(const GazePoint &left, int leftValidity, const GazePoint &right, int rightValidity);

    qsizetype size() const { return m_left.size(); }
    bool isEmpty() const { return m_left.isEmpty(); }

    /// Whether an eye has a code of 1 or above anywhere.
    bool anyValid() const { return m_anyValid; }

    /// Hands the streams over; this object is empty then.
    void moveTo(Examination &examination);

private:
    QList<GazePoint> m_left;
    QList<GazePoint> m_right;
    QList<GazePoint> m_mean;
    bool m_anyValid = false;
};

/// Time from one clock value to another in ms; beyond 64 bits the nearest 64-bit number.
qint64 saturatedDifference(qint64 minuend, qint64 subtrahend);
