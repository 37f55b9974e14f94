// SPDX-License-Identifier: GPL-3.0-or-later
#include "recording/GazeInbox.h"

#include <utility>

namespace {

constexpr qsizetype mostWaiting = 4000; ///< more than any trail shows

} // namespace

bool GazeInbox::put(const ArrivedGaze &gaze)
{
    const std::lock_guard lock(m_mutex);
    if (m_waiting.size() == mostWaiting)
        m_waiting.remove(0, mostWaiting / 2);
    m_waiting.append(gaze);
    return !std::exchange(m_isCalled, true);
}

QList<ArrivedGaze> GazeInbox::take()
{
    const std::lock_guard lock(m_mutex);
    m_isCalled = false;
    return std::exchange(m_waiting, {});
}
