// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <cstddef>
#include <span>
#include <vector>

/// The places of some samples of a sliding window, ascending. Places grow as samples are appended.
class IndexQueue {
public:
    std::span<const std::size_t> all() const { return std::span(m_indices).subspan(m_first); }
    std::size_t size() const { return m_indices.size() - m_first; }

    void clear()
    {
        m_indices.clear();
        m_first = 0;
    }
    void append(std::size_t index) { m_indices.push_back(index); }
    void reverse() { std::reverse(m_indices.begin() + static_cast<std::ptrdiff_t>(m_first), m_indices.end()); }

    /// The sample at the front of the window was taken: drops its place, if it is here.
    void removeFront(std::size_t index)
    {
        if (size() > 0 && m_indices[m_first] == index)
            ++m_first;
    }
    /// The same for the sample at the back.
    void removeBack(std::size_t index)
    {
        if (size() > 0 && m_indices.back() == index)
            m_indices.pop_back();
    }

private:
    std::vector<std::size_t> m_indices;
    std::size_t m_first = 0;
};
