// SPDX-License-Identifier: GPL-3.0-or-later
#include "comparison/CrossRecurrence.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double percent = 100;

/// Which pairs of fixations lie at one place.
class RecurrenceMatrix {
public:
    RecurrenceMatrix(const FixationPath &first, const FixationPath &second, double radiusPx)
        : m_size(std::min(first.size(), second.size()))
        , m_cells(m_size * m_size)
    {
        for (std::size_t i = 0; i < m_size; ++i) {
            for (std::size_t j = 0; j < m_size; ++j)
                m_cells[i * m_size + j] =
                    lengthOf(first[i].x - second[j].x, first[i].y - second[j].y) <= radiusPx ? 1 : 0;
        }
    }

    std::size_t size() const { return m_size; }
    bool at(std::size_t i, std::size_t j) const { return m_cells[i * m_size + j] != 0; }

private:
    std::size_t m_size;
    std::vector<char> m_cells;
};

/// Counts the members of runs that are long enough.
class Runs {
public:
    explicit Runs(int shortest) : m_shortest(shortest) {}

    void take(bool isIn)
    {
        if (isIn)
            ++m_length;
        else
            end();
    }
    void end()
    {
        m_members += m_length >= m_shortest ? m_length : 0;
        m_length = 0;
    }
    double members() const { return static_cast<double>(m_members); }

private:
    long m_shortest;
    long m_length = 0;
    long m_members = 0;
};

double onDiagonals(const RecurrenceMatrix &matrix, int shortest)
{
    Runs runs(shortest);
    const std::size_t n = matrix.size();
    for (std::size_t start = 0; start < 2 * n - 1; ++start) {
        std::size_t i = start < n ? n - 1 - start : 0;
        std::size_t j = start < n ? 0 : start - n + 1;
        for (; i < n && j < n; ++i, ++j)
            runs.take(matrix.at(i, j));
        runs.end();
    }
    return runs.members();
}

double onStraightLines(const RecurrenceMatrix &matrix, int shortest)
{
    Runs horizontal(shortest);
    Runs vertical(shortest);
    for (std::size_t i = 0; i < matrix.size(); ++i) {
        for (std::size_t j = 0; j < matrix.size(); ++j) {
            horizontal.take(matrix.at(i, j));
            vertical.take(matrix.at(j, i));
        }
        horizontal.end();
        vertical.end();
    }
    return horizontal.members() + vertical.members();
}

} // namespace

CrossRecurrence crossRecurrence(const FixationPath &first, const FixationPath &second,
                                const RecurrenceParameters &parameters)
{
    const RecurrenceMatrix matrix(first, second, parameters.radiusPx);
    if (matrix.size() == 0)
        return {};
    double recurrent = 0;
    double lag = 0;
    for (std::size_t i = 0; i < matrix.size(); ++i) {
        for (std::size_t j = 0; j < matrix.size(); ++j) {
            recurrent += matrix.at(i, j) ? 1 : 0;
            lag += matrix.at(i, j) ? static_cast<double>(j) - static_cast<double>(i) : 0;
        }
    }
    const auto n = static_cast<double>(matrix.size());
    CrossRecurrence found{.recurrence = percent * recurrent / (n * n)};
    if (recurrent == 0)
        return found;
    found.determinism = percent * onDiagonals(matrix, parameters.shortestLine) / recurrent;
    found.laminarity = percent * onStraightLines(matrix, parameters.shortestLine) / (2 * recurrent);
    if (n > 1)
        found.centerOfMass = percent * lag / ((n - 1) * recurrent);
    return found;
}
