// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "statistics/GazeWalk.h"

/// How often the gaze went from area of interest to area of interest, and stayed in one for a further fixation.
class AoiTransitions {
public:
    /// @param perMinute  a count times this is a rate.
    AoiTransitions(qsizetype areas, double perMinute);

    void add(qsizetype from, qsizetype to);

    qsizetype areas() const { return m_areas; }
    int count(qsizetype from, qsizetype to) const { return m_counts[from * m_areas + to]; }
    /// Of all transitions out of an area, into itself included.
    int countOut(qsizetype from) const;
    /// Of all transitions; where areas overlap, one step of the gaze may count several times.
    int total() const;
    /// Part of the transitions out of `from`, 0 to 1; 0 where there are none.
    double shareOfRow(qsizetype from, qsizetype to) const;
    /// Part of all transitions, 0 to 1; 0 where there are none.
    double shareOfAll(qsizetype from, qsizetype to) const;
    /// Transitions per minute of the time frame, over all recordings together: divided by the number of examinations
    /// it is that of a subject.
    double rate(qsizetype from, qsizetype to) const { return count(from, to) * m_perMinute; }

private:
    qsizetype m_areas;
    double m_perMinute;
    QList<int> m_counts; ///< row by row, the area that is left first
};

/// The areas in which the mean of a fixation lies, by the winding rule; by the saccades, only the first of them.
Places areasOf(const Fixation &fixation, const QList<AreaOfInterest> &areas, TransitionType type);

/// Counts the transitions between these areas; enabled or not, all of them count. None leads from one walk to another.
/// The place of a fixation is its mean, by the winding rule; only fixations that lie wholly in the frame take part.
///
/// By the scanpath, each area of the last fixation that was in any passes the gaze on to each area of the next one;
/// fixations in no area are passed over. By the saccades, a transition takes two fixations in a row, and of overlapping
/// areas the first one has the fixation.
AoiTransitions countAoiTransitions(const QList<AreaOfInterest> &areas, const QList<GazeWalk> &walks,
                                   TransitionType type, TimeFrame frame);
