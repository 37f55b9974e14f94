// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/GazePoint.h"

#include <QList>

#include <initializer_list>

/// Samples of one section of a scanpath: a list of their own, or a stretch of a longer list, which is shared instead of
/// copied as long as neither is changed. A fixation of a recording costs no memory for its samples.
///
/// Reads like a constant list of samples; `own()` is what they are changed through.
class GazeSamples {
public:
    using value_type = GazePoint;
    using const_iterator = const GazePoint *;

    GazeSamples() = default;
    GazeSamples(QList<GazePoint> samples) : m_list(std::move(samples)) {} // a list stands for all its samples
    GazeSamples(std::initializer_list<GazePoint> samples) : m_list(samples) {}
    /// The stretch of `count` samples of the list from index `first` on; both must lie in it.
    GazeSamples(const QList<GazePoint> &list, qsizetype first, qsizetype count);

    qsizetype size() const { return m_count == all ? m_list.size() : m_count; }
    bool isEmpty() const { return size() == 0; }
    const GazePoint *data() const { return m_list.constData() + m_first; }
    const_iterator begin() const { return data(); }
    const_iterator end() const { return data() + size(); }
    const_iterator cbegin() const { return begin(); }
    const_iterator cend() const { return end(); }
    const GazePoint &operator[](qsizetype index) const { return m_list[m_first + index]; }
    const GazePoint &first() const { return (*this)[0]; }
    const GazePoint &last() const { return (*this)[size() - 1]; }

    /// The samples as a list of their own, to be changed.
    QList<GazePoint> &own();
    /// Stays a stretch of the same list where `further` is what follows in it.
    void append(const GazeSamples &further);
    GazeSamples &operator<<(const GazePoint &sample);

    friend bool operator==(const GazeSamples &a, const GazeSamples &b) { return a.equals(b); }

private:
    bool equals(const GazeSamples &other) const;

    static constexpr qsizetype all = -1; ///< however long the list becomes

    QList<GazePoint> m_list;
    qsizetype m_first = 0;
    qsizetype m_count = all;
};
