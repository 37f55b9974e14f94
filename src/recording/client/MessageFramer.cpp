// SPDX-License-Identifier: GPL-3.0-or-later
#include "recording/client/MessageFramer.h"

#include <utility>

namespace gtl {

MessageFramer::Result MessageFramer::take(std::string_view bytes)
{
    Result result;
    while (!bytes.empty()) {
        if (m_depth == 0) {
            const std::size_t begin = bytes.find('{');
            if (begin == std::string_view::npos)
                break;
            bytes.remove_prefix(begin);
        }
        const std::size_t room = m_limitBytes - m_message.size();
        std::size_t taken = 0;
        while (taken < bytes.size() && taken < room) {
            const char byte = bytes[taken++];
            if (byte == '{')
                ++m_depth;
            else if (byte == '}' && --m_depth == 0)
                break;
        }
        m_message.append(bytes.substr(0, taken));
        bytes.remove_prefix(taken);
        if (m_depth == 0) {
            result.messages.push_back(std::exchange(m_message, {}));
        } else if (m_message.size() == m_limitBytes) {
            std::string().swap(m_message);
            m_depth = 0;
            ++result.dropped;
        }
    }
    return result;
}

} // namespace gtl
