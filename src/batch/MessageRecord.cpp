// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/MessageRecord.h"

#include <utility>

void MessageRecord::add(const ShownMessage &message)
{
    const std::lock_guard lock(m_mutex);
    m_messages << message;
}

QList<ShownMessage> MessageRecord::take()
{
    const std::lock_guard lock(m_mutex);
    return std::exchange(m_messages, {});
}
