// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <vector>

/// Cells of a raster in one piece, column after column: the cell (x, y) at index x * height + y, as in `Density`.
/// A plain value; without cells when it is made without a size.
template <class T>
class Grid {
public:
    Grid() = default;
    Grid(int width, int height, T value = {})
        : m_width(width)
        , m_height(height)
        , m_cells(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), value)
    {
    }

    int width() const { return m_width; }
    int height() const { return m_height; }
    bool isEmpty() const { return m_cells.empty(); }

    T *column(int x) { return m_cells.data() + static_cast<std::ptrdiff_t>(x) * m_height; }
    const T *column(int x) const { return m_cells.data() + static_cast<std::ptrdiff_t>(x) * m_height; }
    T &at(int x, int y) { return column(x)[y]; }
    const T &at(int x, int y) const { return column(x)[y]; }

    T *data() { return m_cells.data(); }
    const T *data() const { return m_cells.data(); }
    std::ptrdiff_t size() const { return static_cast<std::ptrdiff_t>(m_cells.size()); }

    bool operator==(const Grid &) const = default;

private:
    int m_width = 0;
    int m_height = 0;
    std::vector<T> m_cells;
};
