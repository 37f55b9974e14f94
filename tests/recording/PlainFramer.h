// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <string>
#include <vector>

/// The framing of the protocol by the rule as it reads, a byte at a time.
class PlainFramer {
public:
    explicit PlainFramer(std::size_t limitBytes) : m_limitBytes(limitBytes) {}

    void take(char byte)
    {
        if (m_message.empty() && byte != '{')
            return;
        m_message += byte;
        m_depth += byte == '{' ? 1 : byte == '}' ? -1 : 0;
        if (m_depth == 0) {
            messages.push_back(m_message);
            m_message.clear();
        } else if (m_message.size() >= m_limitBytes) {
            m_message.clear();
            m_depth = 0;
            ++dropped;
        }
    }

    std::vector<std::string> messages;
    std::size_t dropped = 0;

private:
    std::size_t m_limitBytes;
    std::string m_message;
    int m_depth = 0;
};
