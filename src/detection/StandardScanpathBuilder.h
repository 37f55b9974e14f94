// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "detection/DispersionWindow.h"
#include "detection/IScanpathBuilder.h"
#include "model/EyeData.h"

#include <vector>

class Log;

/// What the standard detector counts as a fixation.
struct StandardParameters {
    int minimumDurationMs = 0;
    int maximumRadiusPx = 0;
    int allowedOutliers = 0; ///< samples
};

/// The default detector: a fixation is a stretch of at least the minimum duration of which all samples, but for a few
/// outliers, lie within a radius of its median point.
///
/// A window slides over the samples. When it is such a stretch it grows until a sample breaks the condition; outliers
/// at its ends are then handed to the neighbouring sections. Everything between fixations is a saccade, and a loss of
/// tracking that is too long to be bridged is an invalid section. Time and memory are linear in samples, but for what
/// DispersionWindow says of its worst case.
class StandardScanpathBuilder : public IScanpathBuilder {
public:
    /// Runs the detection over the gaze points of `target` and appends to its fixations, saccades, invalid sections and
    /// event rows, which the caller may have cleared; sets its `calculationInfo`.
    ///
    /// A broken promise of the detection itself shows a critical message, and the detection goes on.
    /// @param log  gets the counts and the parameters; may be null.
    StandardScanpathBuilder(EyeData &target, const StandardParameters &parameters, const Log *log);

    /// How long losses, fixations and saccades lasted, a line each. The fixations and saccades are all those of the
    /// target, also those of earlier runs.
    QString report() const override { return m_report; }

private:
    using Records = std::vector<const WorkSample *>;

    enum class State {
        Searching,    ///< the window is too short, or was just emptied
        Shifting,     ///< long enough, but no clean fixation: its front is pushed out
        Growing,      ///< a fixation that extends
        InsideInvalid ///< unusable samples are gathered
    };

    void run(const std::vector<WorkSample> &samples);
    void addValid(const WorkSample &sample);
    void search(const WorkSample &sample);
    void shift(const WorkSample &sample);
    void grow(const WorkSample &sample);
    void addInvalid(const WorkSample &sample);
    void finish();

    bool isLongEnough() const;
    void checkInvariants();
    void moveToPendingSaccade(qsizetype count);
    void flushSaccade();
    void closeInvalid();
    void closeFixation();
    void handToMovement(qsizetype count);
    void appendFixation();
    void logCounts() const;

    EyeData &m_target;
    const StandardParameters m_parameters;
    const Log *m_log;
    State m_state = State::Searching;
    DispersionWindow m_window; ///< while it grows, it is the candidate itself
    Records m_pendingSaccade;  ///< fell out of the front of the window
    Records m_pendingInvalid;
    bool m_lastSectionWasSaccade = false;
    int m_sectionCounter = 1;
    int m_fixationCount = 0;
    int m_saccadeCount = 0;
    int m_invalidCount = 0;
    QString m_calculationInfo;
    QString m_report;
};
