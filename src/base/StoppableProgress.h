// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Progress.h"

#include <stop_token>

/// Progress of work that may be stopped between its steps:
///
///     if (!progress.next())
///         return std::nullopt;
class StoppableProgress {
public:
    /// @param stop  outlives the work.
    StoppableProgress(const QString &label, int steps, const std::stop_token &stop)
        : m_progress(label, steps)
        , m_stop(stop)
    {
    }

    /// One step is done. Returns whether to go on.
    bool next()
    {
        m_progress.advance();
        return !m_stop.stop_requested();
    }

private:
    Progress m_progress;
    const std::stop_token &m_stop;
};
